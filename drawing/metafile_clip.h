// Lines and areas cut exactly at the edges of a rectangle.
#pragma once

#include <vector>

#include "drawing/document.h"

namespace orvane {

// The box around some points; empty at the origin for none.
Box BoundsOf(const std::vector<Point>& points);

// How a box lies to the clip rectangle.
enum class ClipSide { Inside, Across, Outside };
ClipSide SideOf(const Box& box, const Box& clip);

// The pieces of a chain of lines that lie in the rectangle; a closed one returns to its start.
std::vector<std::vector<Point>> ClipChain(const std::vector<Point>& points, bool closed,
                                          const Box& clip);

// The part of a ring's area in the rectangle. Where the area falls apart, its parts stay joined
// along the rectangle's edge, which no filling shows.
std::vector<Point> ClipRing(const std::vector<Point>& ring, const Box& clip);

}  // namespace orvane
