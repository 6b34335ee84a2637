// What the views of the families are made of.
#pragma once

#include <initializer_list>

#include "drawing/print_surface.h"
#include "drawing/sheet.h"

namespace orvane {

enum class EdgeSide { None, Left, Right, Top, Bottom };

// One edge of the cross-section, points in real millimetres, with its dimension on that side at
// that offset.
void DrawSectionEdge(const Sheet& sheet, double x1, double y1, double x2, double y2, EdgeSide side,
                     double offset, double value);
// The same as a record.
struct SectionEdge {
  double X1, Y1;
  double X2, Y2;
  EdgeSide Side = EdgeSide::None;
  double Offset = 0;  // of the dimension, mm of the page
  double Value = 0;   // of the dimension
};

void DrawSectionEdge(const Sheet& sheet, const SectionEdge& edge);

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
void DrawGaugeColumn(const Sheet& sheet, double x, const GaugeStarts& starts, double endX);

// The two halves of a flange of that width, each with half of it as value, in one row at y.
void DrawHalvedFlange(const Sheet& sheet, double flange, double y);

// The elevation from its top to its bottom, with lines along it at the heights between them, mm of
// the page. The brush stays transparent.
void DrawElevation(const Sheet& sheet, double top, double bottom,
                   std::initializer_list<double> heights);

// The views of the families.
void DrawZViews(const Sheet& sheet);
void DrawCViews(const Sheet& sheet);
void DrawEavesViews(const Sheet& sheet);
void DrawVViews(const Sheet& sheet);
void DrawRailViews(const Sheet& sheet);
void DrawTopHatViews(const Sheet& sheet);

}  // namespace orvane
