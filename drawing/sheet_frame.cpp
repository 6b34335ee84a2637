#include "drawing/sheet_frame.h"

#include <array>
#include <memory>
#include <string>

#include "core/dates.h"
#include "core/model.h"
#include "core/section_families.h"
#include "core/text.h"
#include "drawing/elevation.h"
#include "drawing/pictures.h"

namespace orvane {

namespace {

constexpr std::string_view ContactLine = "E-mail: sales@lintaro.example";
constexpr std::string_view RightsLine = "(c) Lintaro. All rights reserved.";

std::string SheetTitle(std::string_view kind) {
  if (kind == "a") return AccDefs.At(CurrentAcc).Name;
  const int row = FamilyNumber(kind);
  if (row == 0) return {};
  return std::string(SectionFamilies.at(static_cast<std::size_t>(row) - 1).SheetTitle);
}

struct JobField {
  std::string_view Label;
  std::string Value;
};

// Three columns, of which the first keeps the room of logo and titles empty.
void DrawJobTable(PrintSurface& surface) {
  constexpr int orvaneRow = 6;
  const std::array<JobField, orvaneRow> fields = {{
      {"Job No.", txtProject.at(1)},
      {"Customer", txtProject.at(2)},
      {"Project/Site", txtProject.at(3)},
      {"Designer", txtProject.at(4)},
      {"Project Date", FullYearText(DTPicker1)},
      {"Orvane Job No.", txtProject.at(0)},
  }};
  constexpr std::array<std::string_view, 3> widths = {"150mm", "32mm", "100mm"};

  surface.StartTable();
  surface.TableCell(TableSetting::Columns, 0, 0, static_cast<int>(widths.size()));
  surface.TableCell(TableSetting::Rows, 0, 0, static_cast<int>(fields.size()));
  surface.TableCell(TableSetting::RowHeight, 0, 0, "4.8mm");
  int column = 0;
  for (const std::string_view width : widths) {
    surface.TableCell(TableSetting::ColumnWidth, 0, ++column, std::string(width));
  }
  surface.TableCell(TableSetting::CellTextColor, orvaneRow, 2, Grey);
  surface.TableCell(TableSetting::CellTextColor, orvaneRow, 3, Grey);
  surface.TableCell(TableSetting::FontSize, 0, 0, 11);
  int row = 0;
  for (const JobField& field : fields) {
    ++row;
    surface.TableCell(TableSetting::CellText, row, 2, std::string(field.Label));
    surface.TableCell(TableSetting::CellText, row, 3, field.Value);
  }
  surface.TableBorder(NoTableBorder);
  surface.EndTable();
}

}  // namespace

void StartSheets(PrintSurface& surface) {
  surface.Orientation(PageOrientation::Landscape);
  surface.HdrFontName("Arial");
  surface.HdrFontSize(8);
  ApplyPageMargins(surface);
  surface.Clear();
  surface.StartDoc();
}

double StripTop(const PrintSurface& surface) {
  return surface.PageHeight() / TwipsPerMm - frmDrawings().imgLogo->Height - BottomMargin - 12;
}

void DrawSheetFrame(PrintSurface& surface, std::string_view kind) {
  SetSheetFooter(surface);
  surface.TextAlign(6);

  const std::shared_ptr<const Picture> logo = frmDrawings().imgLogo;
  const double logoTop = StripTop(surface);
  const double below = logoTop + logo->Height;
  surface.DrawPicture(logo, Length::OfMm(LeftMargin + 10), Length::OfMm(logoTop));

  surface.TextColor(Navy);
  surface.FontSize(14);
  surface.FontBold(true);
  WriteTextAt(surface, "Detail System", LeftMargin + 6, below + 0.5);
  surface.FontSize(9);
  surface.FontBold(false);
  WriteTextAt(surface, RightsLine, LeftMargin + 1, below + 7);

  surface.FontSize(14);
  const std::string title = SheetTitle(kind);
  if (!title.empty()) WriteTextAt(surface, title, LeftMargin + 60, below + 5);

  surface.TextColor(Black);
  surface.CurrentY(Length::OfMm(logoTop));
  DrawJobTable(surface);
}

void SetSheetFooter(PrintSurface& surface) {
  std::string footer(ContactLine);
  if (!Trim(CompanyName).empty()) {
    footer += "||Registered User: " + CompanyName + " " + CompanyDetails;
  }
  surface.HdrFontSize(7);
  surface.Footer(footer);
}

void ApplyPageMargins(PrintSurface& surface) {
  surface.MarginLeft(Length::OfMm(LeftMargin));
  surface.MarginRight(Length::OfMm(RightMargin));
  surface.MarginTop(Length::OfMm(TopMargin));
  surface.MarginBottom(Length::OfMm(BottomMargin));
  surface.MarginFooter(Length::OfMm(BottomMargin - 5));
}

}  // namespace orvane
