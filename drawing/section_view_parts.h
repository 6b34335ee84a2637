// What the views of the six families are made of.
#pragma once

#include <initializer_list>
#include <string_view>

#include "core/model.h"
#include "drawing/print_surface.h"
#include "drawing/section_views.h"

namespace orvane {

// One section on one sheet.
struct SectionView {
  PrintSurface& Surface;
  const SectionDim& Dim;
  std::string_view Pitch;  // eaves beams: roof pitch, degrees as text
  double Length;           // of the section, mm
  double Depth;            // as drawn, mm of the section
  double Bottom;           // of both views, mm of the page
};

// A point of the section, in its real millimetres, on the page.
double SectionX(double x);
double SectionY(double y);

// One edge of a cross-section, points in real millimetres, with its dimension.
struct SectionEdge {
  double X1, Y1;
  double X2, Y2;
  EdgeSide Side = EdgeSide::None;
  double Offset = 0;  // of the dimension, mm of the page
  double Value = 0;   // of the dimension
};

void DrawSectionEdge(PrintSurface& surface, const SectionEdge& edge);

// A straight line on the page, mm.
struct PageLine {
  double X1, Y1;
  double X2, Y2;
};

void DrawPageLines(PrintSurface& surface, std::initializer_list<PageLine> lines);

// Where the extension lines of a gauge column begin on each row, mm of the page: its top, the two
// hole rows, its bottom.
struct GaugeStarts {
  double Top, Row1, Row2, Bottom;
};

// The three dimensions of the gauges, one below the other at x; the extension lines end at endX.
void DrawGaugeColumn(const SectionView& view, double x, const GaugeStarts& starts, double endX);

// The two halves of a flange of that width, each with half of it as value, in one row at y.
void DrawHalvedFlange(PrintSurface& surface, double flange, double y);

// The elevation from its top to its bottom, with lines along it at the heights between them, mm of
// the page. The brush stays transparent.
void DrawElevation(const SectionView& view, double top, double bottom,
                   std::initializer_list<double> heights);

// The views of the six families.
void DrawZViews(const SectionView& view);
void DrawCViews(const SectionView& view);
void DrawEavesViews(const SectionView& view);
void DrawVViews(const SectionView& view);
void DrawRailViews(const SectionView& view);
void DrawTopHatViews(const SectionView& view);

}  // namespace orvane
