// What holes, notches and mitres share on the elevation. Positions on the page are millimetres.
#pragma once

#include <string_view>

#include "drawing/print_surface.h"

namespace orvane {

// The X on the page of a length along the section, mm of the section, by the drawing state.
double ElevationX(double along);

// The text with its top left corner at (x, y).
void WriteTextAt(PrintSurface& surface, std::string_view text, double x, double y);

// What a row over the elevation is called: its right end stands 1 mm left of the elevation, and its
// middle at that height.
void DrawRowLabel(PrintSurface& surface, std::string_view text, double y);

}  // namespace orvane
