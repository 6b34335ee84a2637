#include "drawing/section_view_parts.h"

#include <array>
#include <cstddef>

#include "core/numbers.h"
#include "drawing/primitives.h"

namespace orvane {

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
