// The two views of a section: its cross-section in true shape, and its elevation.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/model.h"
#include "drawing/print_surface.h"

namespace orvane {

// The drawn depth of a section, mm: that of its web, or the overall one of a top hat.
double DrawnDepth(std::string_view sectionType, const SectionDim& dim);

// The bottom of both views on the page, mm.
double ViewBottom(std::string_view sectionType, const SectionDim& dim);

// Text block, cross-section, elevation, dimensions, mitres and notches. Draws nothing for a section
// without depth or length. Sets the drawing state and DrawingWidth.
void DrawSectionViews(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim,
                      double length);

enum class EdgeSide { None, Left, Right, Top, Bottom };

// One edge of the cross-section, points in real millimetres, with its dimension on that side at
// that offset.
void DrawSectionEdge(PrintSurface& surface, double x1, double y1, double x2, double y2,
                     EdgeSide side, double offset, double value);
// The same edge in the key of off-gauge holes, without a dimension.
void DrawKeyEdge(PrintSurface& surface, double x1, double y1, double x2, double y2);

// The edges of a family's cross-section, as DrawSectionViews draws them for Z, and for C and E
// without a pitch; none for other letters.
void DrawKeyEdges(PrintSurface& surface, std::string_view sectionType, const SectionDim& dim);

// The origin of that key on the page, mm.
Point KeyOrigin(PrintSurface& surface);

// The section's length over the elevation.
void DrawLengthDimension(PrintSurface& surface, double length, double baseY);

}  // namespace orvane
