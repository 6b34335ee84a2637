// Hatched fills, made of lines of their own: a device's pattern would follow its pixels, and look
// different on paper, on the screen and at every zoom.
#pragma once

#include <vector>

#include "drawing/document.h"

namespace orvane {

// How the lines run, as seen on the page.
enum class HatchLines { Rising, Falling, Level, Upright };

struct Hatch {
  Rgb Color = Black;
  HatchLines Lines = HatchLines::Rising;  // the slanting ones at 45 degrees
  double Spacing = 0.5;                   // mm between the lines, measured across them; above 0
  double Width = 0.1;                     // of each line, mm
};

// The lines that lie in a shape, cut exactly at its outline, added to `shapes`. They are anchored
// to the origin of the page, so that those of neighbouring shapes run on. What is too large for any
// paper (more than some thousand lines) is not hatched.
void HatchRectangle(std::vector<Shape>& shapes, const Box& place, const Hatch& hatch);
void HatchEllipse(std::vector<Shape>& shapes, const Box& place, const Hatch& hatch);
// The part of an ellipse between an arc, as in ArcShape, and its chord.
void HatchArc(std::vector<Shape>& shapes, const Box& place, double start, double span,
              const Hatch& hatch);
// The area of closed rings, by odd crossings or by winding, as in PolygonShape.
void HatchPolygon(std::vector<Shape>& shapes, const std::vector<std::vector<Point>>& rings,
                  bool winding, const Hatch& hatch);

}  // namespace orvane
