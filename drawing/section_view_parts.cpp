#include "drawing/section_view_parts.h"

#include <array>
#include <cstddef>

#include "core/numbers.h"
#include "drawing/drawing_state.h"
#include "drawing/elevation.h"
#include "drawing/primitives.h"

namespace orvane {

double SectionX(double x) {
  return SectionViewLeft + CrossScale * x;
}

double SectionY(double y) {
  return ViewTop + CrossScale * y;
}

void DrawSectionEdge(PrintSurface& surface, const SectionEdge& edge) {
  DrawSectionEdge(surface, edge.X1, edge.Y1, edge.X2, edge.Y2, edge.Side, edge.Offset, edge.Value);
}

void DrawPageLines(PrintSurface& surface, std::initializer_list<PageLine> lines) {
  for (const PageLine& line : lines) DrawLineMm(surface, line.X1, line.Y1, line.X2, line.Y2);
}

void DrawGaugeColumn(const SectionView& view, double x, const GaugeStarts& starts, double endX) {
  const double row1 = SectionY(view.Dim.Dim9);
  const double row2 = SectionY(view.Dim.Dim9 + view.Dim.Dim10);
  DrawPageLines(view.Surface, {
                                  {starts.Top, ViewTop, endX, ViewTop},
                                  {starts.Row1, row1, endX, row1},
                                  {starts.Row2, row2, endX, row2},
                                  {starts.Bottom, view.Bottom, endX, view.Bottom},
                              });
  DrawDimension(view.Surface, x, ViewTop, x, row1, view.Dim.Dim9);
  DrawDimension(view.Surface, x, row1, x, row2, view.Dim.Dim10);
  DrawDimension(view.Surface, x, row2, x, view.Bottom, view.Dim.Dim11);
}

void DrawHalvedFlange(PrintSurface& surface, double flange, double y) {
  const std::array<double, 3> ends = {SectionX(0), SectionX(flange / 2), SectionX(flange)};
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

void DrawElevation(const SectionView& view, double top, double bottom,
                   std::initializer_list<double> heights) {
  const double right = ElevationX(view.Length);
  PenWidthMm(view.Surface, ObjectPen);
  view.Surface.BrushStyle(Brush::Transparent);
  view.Surface.DrawRectangle(Length::OfMm(ElevationLeft), Length::OfMm(top), Length::OfMm(right),
                             Length::OfMm(bottom));
  for (const double y : heights) DrawLineMm(view.Surface, ElevationLeft, y, right, y);
}

}  // namespace orvane
