// Dashed lines, made of pieces of their own: a device's dashes would follow its pixels.
#pragma once

#include <vector>

#include "drawing/document.h"

namespace orvane {

// Lengths in mm of a dash, a gap and so on in turn, repeated; none for a solid line. An even number
// of them, each above 0.
using DashPattern = std::vector<double>;

// The dashes of a chain of lines, each a chain of its own. The pattern begins with the first point
// and runs on around the corners; a closed chain returns to its start.
std::vector<std::vector<Point>> DashChain(const std::vector<Point>& points, bool closed,
                                          const DashPattern& pattern);

// How many dashes and gaps DashChain makes at the most.
double DashesOf(const std::vector<Point>& points, bool closed, const DashPattern& pattern);

}  // namespace orvane
