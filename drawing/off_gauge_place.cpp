#include "drawing/off_gauge_place.h"

#include <cstdint>

#include "core/numbers.h"
#include "core/section_families.h"
#include "drawing/table_parts.h"

namespace orvane {

namespace {

// The top flange of an eaves beam follows the roof: it has no holes off the gauges.
constexpr PerFamily<int> TableRows = {{
    {"Z", 4},
    {"E", 3},
    {"C", 4},
    {"V", 4},
    {"R", 4},
    {"T", 4},
}};
static_assert(NamesEachFamily(TableRows), "TableRows needs one row for each section family");

}  // namespace

bool IsOffGauge(const Hole& hole) {
  return Val(hole.BF) > 0 || Val(hole.TF) > 0 || Val(hole.W1) > 0;
}

Point KeyOrigin(const Sheet& sheet) {
  const PageMargins& margins = sheet.Source.Margins;
  return {sheet.PageWidth - margins.RightMargin - KeyInset, margins.TopMargin + KeyDrop};
}

double OffGaugeTableLeft(const Sheet& sheet, int letters) {
  return KeyOrigin(sheet).X - OffGaugeTableGap - OffGaugeColumnWidth * letters;
}

int OffGaugeRows(std::string_view sectionType) {
  const int* rows = FactOf(TableRows, sectionType);
  return rows == nullptr ? 4 : *rows;
}

SheetRoom OffGaugeRoom(const Sheet& sheet) {
  // The names of the rows have a column of their own, so that the table ends a column behind the
  // place where one without letters would begin.
  return {.Left = sheet.Source.Margins.LeftMargin + TextBlockLeastWidth,
          .Right = OffGaugeTableLeft(sheet, 0) + OffGaugeColumnWidth,
          .Bottom = SlotListRow - 1};
}

double OffGaugeStart(const Sheet& sheet, int letters) {
  TableGrid grid;
  double left = OffGaugeTableLeft(sheet, letters);
  for (int column = 0; column <= letters; ++column, left += OffGaugeColumnWidth) {
    grid.Columns.push_back({OffGaugeColumnWidth, left});
  }
  grid.Rows.resize(static_cast<std::size_t>(OffGaugeRows(sheet.Section.SectionType)),
                   {OffGaugeRowHeight});
  grid.Cells.resize(grid.Rows.size() * grid.Columns.size());
  const double top = sheet.Source.Margins.TopMargin + OffGaugeTableDrop;
  return TableParts(grid, OffGaugeRoom(sheet), top).front().Columns.front().Left;
}

double OffGaugeLeft(const Sheet& sheet) {
  int positions = 0;
  std::int16_t last = 0;
  for (const Hole& hole : sheet.Section.Holes) {
    if (!IsOffGauge(hole)) continue;
    if (positions == 0 || hole.XPos != last) ++positions;
    last = hole.XPos;
  }
  if (positions == 0) return sheet.PageWidth - sheet.Source.Margins.RightMargin;
  return OffGaugeStart(sheet, positions);
}

}  // namespace orvane
