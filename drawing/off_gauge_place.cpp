#include "drawing/off_gauge_place.h"

#include <algorithm>
#include <cstdint>

#include "core/numbers.h"

namespace orvane {

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

SheetRoom OffGaugeRoom(const Sheet& sheet) {
  // The names of the rows have a column of their own, so that the table ends a column behind the
  // place where one without letters would begin.
  return {.Left = sheet.Source.Margins.LeftMargin + TextBlockLeastWidth,
          .Right = OffGaugeTableLeft(sheet, 0) + OffGaugeColumnWidth,
          .Bottom = SlotListRow - 1};
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
  return std::max(OffGaugeTableLeft(sheet, positions), OffGaugeRoom(sheet).Left);
}

}  // namespace orvane
