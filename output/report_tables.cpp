#include "output/report_tables.h"

#include <cstddef>

#include "core/dates.h"
#include "core/model.h"
#include "core/numbers.h"
#include "drawing/sheet_frame.h"
#include "output/output_screen.h"

namespace orvane {

namespace {

void DrawRow(PrintSurface& surface, int row, const ReportRow& texts) {
  int column = 0;
  for (const std::string& text : texts) {
    surface.TableCell(TableSetting::CellText, row, ++column, text);
  }
}

// Opens a table; its texts are to follow.
void BeginTable(PrintSurface& surface, int border, const std::vector<ReportColumn>& columns,
                std::size_t rows) {
  surface.StartTable();
  surface.TableBorder(border);
  surface.TableCell(TableSetting::Columns, 0, 0, static_cast<int>(columns.size()));
  surface.TableCell(TableSetting::Rows, 0, 0, static_cast<int>(rows));
  int column = 0;
  for (const ReportColumn& given : columns) {
    surface.TableCell(TableSetting::ColumnWidth, 0, ++column, given.Width);
  }
}

}  // namespace

void DrawOnPreview(const std::function<void(PrintSurface& surface, SheetErrors& errors)>& draw) {
  OutputScreen& screen = TheOutputScreen();
  SheetErrors errors;
  try {
    draw(screen.PreviewSurface(), errors);
  } catch (...) {
    screen.DropPreview();
    errors.Say();
    throw;
  }
}

std::string MillimetreText(int width) {
  return DecimalText(width) + "mm";
}

void SetUpReportPages(PrintSurface& surface, std::string_view title) {
  SetSheetFooter(surface, CompanyName, CompanyDetails);
  surface.Orientation(PageOrientation::Portrait);
  surface.Header(std::string("Orvane Detail System|").append(title) + " (" + txtProject.at(1) +
                 ")|Page %d");
  surface.HdrFontSize(ReportHeaderPoints);
  surface.HdrFontBold(true);
  surface.FontSize(ReportTextPoints);
}

void DrawProjectTable(PrintSurface& surface) {
  const std::vector<ReportRow> rows = {
      {"Job No.:", txtProject.at(1)},
      {"Customer:", txtProject.at(2)},
      {"Project/Site:", txtProject.at(3)},
      {"Designer:", txtProject.at(4)},
      {"Project Date:", FullYearText(DTPicker1)},
      {"Orvane Job No.:", txtProject.at(0)},
  };
  BeginTable(surface, NoTableBorder, {{"", "32mm"}, {"", "100mm"}}, rows.size());
  surface.TableCell(TableSetting::RowHeight, 0, 0, "4.8mm");
  int row = 0;
  for (const ReportRow& texts : rows) DrawRow(surface, ++row, texts);
  surface.EndTable();
}

void DrawReportTable(PrintSurface& surface, const std::vector<ReportColumn>& columns,
                     const std::vector<ReportRow>& rows) {
  constexpr int headingRow = 1;
  BeginTable(surface, ReportTableBorder, columns, rows.size() + headingRow);
  int column = 0;
  for (const ReportColumn& given : columns) {
    surface.TableAlignment(0, ++column, given.Alignment);
    surface.TableCell(TableSetting::CellText, headingRow, column, given.Heading);
  }
  surface.TableCell(TableSetting::RuleAbove, headingRow, 0, "0.2mm");
  surface.TableCell(TableSetting::RuleBelow, headingRow, 0, "0.2mm");
  int row = headingRow;
  for (const ReportRow& texts : rows) DrawRow(surface, ++row, texts);
  surface.EndTable();
}

void WriteTitle(PrintSurface& surface, const std::string& title) {
  surface.Paragraph("");
  surface.Paragraph(title);
  surface.Paragraph("");
}

}  // namespace orvane
