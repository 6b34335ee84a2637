#include "drawing/section_view_parts.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/numbers.h"
#include "drawing/primitives.h"

namespace orvane {

void DrawSectionEdge(const Sheet& sheet, double x1, double y1, double x2, double y2, EdgeSide side,
                     double offset, double value) {
  PrintSurface& surface = sheet.Surface;
  const double left = SectionX(sheet, x1);
  const double right = SectionX(sheet, x2);
  const double top = SectionY(y1);
  const double bottom = SectionY(y2);
  PenWidthMm(surface, ObjectPen);
  DrawLineMm(surface, left, top, right, bottom);

  PenWidthMm(surface, ThinPen);
  if (side == EdgeSide::None) return;
  const double outward = side == EdgeSide::Left || side == EdgeSide::Top ? -1 : 1;
  // The dimension's first end is the top or left one, whichever way the edge runs.
  if (side == EdgeSide::Left || side == EdgeSide::Right) {
    const double outer = left + outward * (offset + UprightEdge.Outer);
    const double inner = left + outward * (offset + UprightEdge.Inner);
    const double x = left + outward * (offset + UprightEdge.Row);
    DrawLineMm(surface, outer, top, inner, top);
    DrawLineMm(surface, outer, bottom, inner, bottom);
    DrawDimension(surface, x, std::min(top, bottom), x, std::max(top, bottom), value);
  } else {
    const double outer = top + outward * (offset + LevelEdge.Outer);
    const double inner = top + outward * (offset + LevelEdge.Inner);
    const double y = top + outward * (offset + LevelEdge.Row);
    DrawLineMm(surface, left, outer, left, inner);
    DrawLineMm(surface, right, outer, right, inner);
    DrawDimension(surface, std::min(left, right), y, std::max(left, right), y, value);
  }
}

void DrawSectionEdge(const Sheet& sheet, const SectionEdge& edge) {
  DrawSectionEdge(sheet, edge.X1, edge.Y1, edge.X2, edge.Y2, edge.Side, edge.Offset, edge.Value);
}

void DrawPageLines(PrintSurface& surface, std::initializer_list<PageLine> lines) {
  for (const PageLine& line : lines) DrawLineMm(surface, line.X1, line.Y1, line.X2, line.Y2);
}

void DrawGaugeColumn(const Sheet& sheet, double x, const GaugeStarts& starts, double endX) {
  const double row1 = SectionY(sheet.Dim.Dim9);
  const double row2 = SectionY(sheet.Dim.Dim9 + sheet.Dim.Dim10);
  DrawPageLines(sheet.Surface, {
                                   {starts.Top, ViewTop, endX, ViewTop},
                                   {starts.Row1, row1, endX, row1},
                                   {starts.Row2, row2, endX, row2},
                                   {starts.Bottom, sheet.Bottom, endX, sheet.Bottom},
                               });
  DrawDimension(sheet.Surface, x, ViewTop, x, row1, sheet.Dim.Dim9);
  DrawDimension(sheet.Surface, x, row1, x, row2, sheet.Dim.Dim10);
  DrawDimension(sheet.Surface, x, row2, x, sheet.Bottom, sheet.Dim.Dim11);
}

void DrawHalvedFlange(const Sheet& sheet, double flange, double y) {
  const std::array<double, 3> ends = {SectionX(sheet, 0), SectionX(sheet, flange / 2),
                                      SectionX(sheet, flange)};
  PrintSurface& surface = sheet.Surface;
  PenWidthMm(surface, ThinPen);
  for (std::size_t half = 0; half < 2; ++half) {
    DrawLineMm(surface, ends.at(half), y, ends.at(half + 1), y);
    DrawArrowHead(surface, Pi, ends.at(half), y);
    DrawArrowHead(surface, 0, ends.at(half + 1), y);
  }
  // Both values behind the lines: they are often wider than their halves, and a line through a
  // value could not be read.
  for (std::size_t half = 0; half < 2; ++half) {
    DrawCentredText(surface, ShortestText(flange / 2), (ends.at(half) + ends.at(half + 1)) / 2, y);
  }
}

void DrawElevation(const Sheet& sheet, double top, double bottom,
                   std::initializer_list<double> heights) {
  const double right = ElevationX(sheet, sheet.Length);
  PenWidthMm(sheet.Surface, ObjectPen);
  sheet.Surface.BrushStyle(Brush::Transparent);
  sheet.Surface.DrawRectangle(Length::OfMm(sheet.ElevationLeft), Length::OfMm(top),
                              Length::OfMm(right), Length::OfMm(bottom));
  for (const double y : heights) DrawLineMm(sheet.Surface, sheet.ElevationLeft, y, right, y);
}

}  // namespace orvane
