// One section on one sheet: all that its drawing procedures share, made once for each drawing.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/model.h"
#include "drawing/print_surface.h"
#include "drawing/sheet_layout.h"
#include "drawing/sheet_source.h"

namespace orvane {

struct Sheet {
  PrintSurface& Surface;
  const SheetSource& Source;
  const Item& Section;
  const SectionDim& Dim;  // of its product; without a depth where the catalogue hasn't got it
  double Length = 0;      // of the section, mm

  // What follows is worked out by SheetOf, and stays 0 for a section that has no views.
  double PageWidth = 0;        // mm
  double Height = 0;           // of both views, mm of the section
  double Depth = 0;            // as drawn, mm of the section
  double Bottom = 0;           // of both views, mm of the page
  double SectionViewLeft = 0;  // left edges of the two views, mm of the page
  double ElevationLeft = 0;
  std::int16_t DrawingWidth = 0;  // room for the elevation, mm
  double LengthScale = 0;         // lengths: fitted to the page, at most 0.1

  // Counts the running positions written below the elevation, from 1, so that they alternate
  // between two rows.
  std::int16_t HoleLabelRow = 1;
};

// The sheet of a section on that surface, whose page must stand as it will be drawn on. The sheet
// refers to all five; none may go before it. "Overflow" where margins leave a room beyond 16 bits.
Sheet SheetOf(PrintSurface& surface, const SheetSource& source, const Item& section,
              const SectionDim& dim, double length);

// A section without depth or length has a sheet with its frame alone.
bool HasViews(const Sheet& sheet);

// The drawn depth of a section, mm: that of its web, or the overall one of a top hat.
double DrawnDepth(std::string_view sectionType, const SectionDim& dim);

// The height of both views, mm of the section: its drawn depth, but for one that lies on its side.
double ViewHeight(std::string_view sectionType, const SectionDim& dim);

// The bottom of both views on the page, mm.
double ViewBottom(std::string_view sectionType, const SectionDim& dim);

// DrawingWidth for a page of that width in twips with those margins: the room for the elevation, to
// the nearest whole millimetre, ties to even; "Overflow" beyond 16 bits.
std::int16_t DrawingWidthOf(double pageWidth, const PageMargins& margins);

// The scale of lengths in that room for a section of that length, mm: at most 1:10.
double LengthScaleOf(std::int16_t drawingWidth, double length);

// A rectangle on the page, mm.
struct PagePlace {
  double Left = 0;
  double Top = 0;
  double Right = 0;
  double Bottom = 0;
};

// Positions on the page, mm: X of a length along the section, and a point of the cross-section in
// its real millimetres.
double ElevationX(const Sheet& sheet, double along);
double SectionX(const Sheet& sheet, double x);
double SectionY(double y);

// What a row over the elevation is called: its right end stands left of the elevation, and its
// middle at that height.
void DrawRowLabel(const Sheet& sheet, std::string_view text, double y);

}  // namespace orvane
