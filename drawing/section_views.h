// The two views of a section: its cross-section in true shape, and its elevation.
#pragma once

#include "drawing/sheet.h"

namespace orvane {

// Text block, cross-section, elevation, dimensions, mitres and notches. Draws nothing for a section
// without depth or length.
void DrawSectionViews(const Sheet& sheet);

// An edge of the cross-section in the key of off-gauge holes, points in real millimetres.
void DrawKeyEdge(const Sheet& sheet, double x1, double y1, double x2, double y2);

// The edges of the cross-section in that key: for Z as DrawSectionViews draws them, for C and E
// without a pitch; none for other letters.
void DrawKeyEdges(const Sheet& sheet);

// The section's length over the elevation.
void DrawLengthDimension(const Sheet& sheet, double length, double baseY);

}  // namespace orvane
