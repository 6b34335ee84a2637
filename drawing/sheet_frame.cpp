#include "drawing/sheet_frame.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>

#include "core/dates.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "core/text.h"
#include "drawing/papers.h"
#include "drawing/primitives.h"
#include "drawing/sheet.h"
#include "drawing/sheet_layout.h"

namespace orvane {

namespace {

constexpr std::string_view ContactLine = "E-mail: sales@lintaro.example";
constexpr std::string_view RightsLine = "(c) Lintaro. All rights reserved.";

// The strip, mm: its rise above the bottom margin without the logo, whose height it takes on top,
// and what stands in it, from the left margin and from the logo's lower edge.
constexpr double StripRise = 12;
constexpr double LogoInset = 10;
constexpr double HeadingInset = 6;
constexpr double HeadingDrop = 0.5;
constexpr double RightsInset = 1;
constexpr double RightsDrop = 7;
constexpr double TitleInset = 60;
constexpr double TitleDrop = 5;
// The job table: its first column, which stays empty, and the other two.
constexpr double JobLabelInset = 150;
constexpr double JobLabelWidth = 32;
constexpr double JobValueWidth = 100;

constexpr int LevelAlign = 6;     // TextAlign of every sheet, set once and never changed
constexpr double FooterRise = 5;  // mm, of the footer's edge below the bottom margin's line

std::string SheetTitle(std::string_view kind) {
  const SectionFamily* family = FamilyOf(kind);
  return family == nullptr ? std::string() : std::string(family->SheetTitle);
}

struct JobField {
  std::string_view Label;
  std::string Value;
};

// Three columns, of which the first keeps the room of logo and titles empty.
void DrawJobTable(PrintSurface& surface, const SheetSource& source) {
  constexpr int orvaneRow = 6;
  const std::array<JobField, orvaneRow> fields = {{
      {"Job No.", source.txtProject.at(1)},
      {"Customer", source.txtProject.at(2)},
      {"Project/Site", source.txtProject.at(3)},
      {"Designer", source.txtProject.at(4)},
      {"Project Date", FullYearText(source.DTPicker1)},
      {"Orvane Job No.", source.txtProject.at(0)},
  }};
  const std::array<std::string, 3> widths = {MmText(JobLabelInset), MmText(JobLabelWidth),
                                             MmText(JobValueWidth)};

  surface.StartTable();
  surface.TableCell(TableSetting::Columns, 0, 0, static_cast<int>(widths.size()));
  surface.TableCell(TableSetting::Rows, 0, 0, static_cast<int>(fields.size()));
  surface.TableCell(TableSetting::RowHeight, 0, 0, "4.8mm");
  int column = 0;
  for (const std::string& width : widths) {
    surface.TableCell(TableSetting::ColumnWidth, 0, ++column, width);
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

// The lowest that stands below the views of a product, mm from the top of the page: the legend, or
// the detail of a rail.
double LowestOf(const SectionDim& product) {
  const double legend = ViewBottom(product.SectionType, product) + LegendDrop + LegendHalfHeight;
  const double detail = RailDetail.Top + RailDetail.Width / RailDetailProportion;
  return product.SectionType == "R" ? std::max(legend, detail) : legend;
}

void DrawFrame(PrintSurface& surface, const SheetSource& source, const std::string& title) {
  const double left = source.Margins.LeftMargin;
  SetSheetFooter(surface, source.CompanyName, source.CompanyDetails);
  surface.TextAlign(LevelAlign);

  const std::shared_ptr<const Picture>& logo = source.imgLogo;
  const double logoTop = StripTop(surface, source);
  const double below = logoTop + logo->Height;
  surface.DrawPicture(logo, Length::OfMm(left + LogoInset), Length::OfMm(logoTop));

  surface.TextColor(Navy);
  surface.FontSize(14);
  surface.FontBold(true);
  WriteTextAt(surface, "Detail System", left + HeadingInset, below + HeadingDrop);
  surface.FontSize(9);
  surface.FontBold(false);
  WriteTextAt(surface, RightsLine, left + RightsInset, below + RightsDrop);

  surface.FontSize(14);
  surface.Within({.Right = left + JobLabelInset - TextGap});
  if (!title.empty()) WriteTextAt(surface, title, left + TitleInset, below + TitleDrop);
  surface.Within({});

  surface.TextColor(Black);
  surface.CurrentY(Length::OfMm(logoTop));
  DrawJobTable(surface, source);
}

}  // namespace

void StartSheets(PrintSurface& surface, const PageMargins& margins) {
  surface.Orientation(PageOrientation::Landscape);
  surface.HdrFontName("Arial");
  surface.HdrFontSize(8);
  ApplyPageMargins(surface, margins);
  surface.Clear();
  surface.StartDoc();
}

double StripTop(const PrintSurface& surface, const SheetSource& source) {
  return surface.PageHeight() / TwipsPerMm - source.imgLogo->Height - source.Margins.BottomMargin -
         StripRise;
}

StripMargins FittingStripMargins(const SheetSource& source) {
  // The last lines of the strip end 1.4 mm above the bottom margin's line. The contact line below
  // them, 2.8 mm high, can't go lower than the edge of the paper.
  constexpr int leastBottom = 2;
  constexpr Paper paper;  // A4, which lies
  double lowest = 0;
  for (const SectionDim& product : SectionDims) lowest = std::max(lowest, LowestOf(product));
  const double left = paper.Height - JobLabelInset - JobLabelWidth - JobValueWidth;
  const double bottom = paper.Width - source.imgLogo->Height - StripRise - lowest;
  return {.GreatestLeft = Whole(std::floor(left)),
          .LeastBottom = leastBottom,
          .GreatestBottom = std::max<int>(Whole(std::floor(bottom)), leastBottom)};
}

void DrawSheetFrame(PrintSurface& surface, const SheetSource& source, std::string_view kind) {
  DrawFrame(surface, source, SheetTitle(kind));
}

void DrawSheetFrame(PrintSurface& surface, const SheetSource& source, const AccDef& accessory) {
  DrawFrame(surface, source, accessory.Name);
}

void SetSheetFooter(PrintSurface& surface, const std::string& CompanyName,
                    const std::string& CompanyDetails) {
  std::string footer(ContactLine);
  std::size_t betweenBoth = std::string::npos;
  if (!Trim(CompanyName).empty()) {
    footer += "||Registered User: " + CompanyName;
    if (!Trim(CompanyDetails).empty()) betweenBoth = footer.size();
    footer += " " + CompanyDetails;
  }
  surface.HdrFontSize(7);
  surface.Footer(footer);
  surface.FooterBreak(betweenBoth);
}

void ApplyPageMargins(PrintSurface& surface, const PageMargins& margins) {
  surface.MarginLeft(Length::OfMm(margins.LeftMargin));
  surface.MarginRight(Length::OfMm(margins.RightMargin));
  surface.MarginTop(Length::OfMm(margins.TopMargin));
  surface.MarginBottom(Length::OfMm(margins.BottomMargin));
  surface.MarginFooter(Length::OfMm(margins.BottomMargin - FooterRise));
}

}  // namespace orvane
