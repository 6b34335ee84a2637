#include "drawing/metafile_clip.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orvane {

namespace {

// One edge of the rectangle: how far a point lies on its inner side.
struct ClipEdge {
  double Sign = 1;
  bool Level = false;  // the edge bounds Y
  double At = 0;

  double Inward(const Point& point) const { return Sign * ((Level ? point.Y : point.X) - At); }

  // Where the line from `a` to `b`, which lie on both sides, meets the edge.
  Point Meet(const Point& a, const Point& b) const {
    const double share = Inward(a) / (Inward(a) - Inward(b));
    Point point{a.X + share * (b.X - a.X), a.Y + share * (b.Y - a.Y)};
    (Level ? point.Y : point.X) = At;
    return point;
  }
};

std::array<ClipEdge, 4> EdgesOf(const Box& clip) {
  return {ClipEdge{1, false, clip.Left}, ClipEdge{-1, false, clip.Left + clip.Width},
          ClipEdge{1, true, clip.Top}, ClipEdge{-1, true, clip.Top + clip.Height}};
}

// Cuts the line from `a` to `b`; false where nothing of it is left.
bool ClipLine(Point& a, Point& b, const std::array<ClipEdge, 4>& edges) {
  for (const ClipEdge& edge : edges) {
    const bool aOutside = edge.Inward(a) < 0;
    const bool bOutside = edge.Inward(b) < 0;
    if (aOutside && bOutside) return false;
    if (aOutside) a = edge.Meet(a, b);
    if (bOutside) b = edge.Meet(a, b);
  }
  return true;
}

}  // namespace

Box BoundsOf(const std::vector<Point>& points) {
  if (points.empty()) return {};
  double left = points.front().X;
  double right = left;
  double top = points.front().Y;
  double bottom = top;
  for (const Point& point : points) {
    left = std::min(left, point.X);
    right = std::max(right, point.X);
    top = std::min(top, point.Y);
    bottom = std::max(bottom, point.Y);
  }
  return {left, top, right - left, bottom - top};
}

ClipSide SideOf(const Box& box, const Box& clip) {
  const double right = clip.Left + clip.Width;
  const double bottom = clip.Top + clip.Height;
  if (box.Left > right || box.Left + box.Width < clip.Left || box.Top > bottom ||
      box.Top + box.Height < clip.Top) {
    return ClipSide::Outside;
  }
  const bool inside = box.Left >= clip.Left && box.Left + box.Width <= right &&
                      box.Top >= clip.Top && box.Top + box.Height <= bottom;
  return inside ? ClipSide::Inside : ClipSide::Across;
}

std::vector<std::vector<Point>> ClipChain(const std::vector<Point>& points, bool closed,
                                          const Box& clip) {
  const std::array<ClipEdge, 4> edges = EdgesOf(clip);
  std::vector<std::vector<Point>> pieces;
  bool joined = false;  // the last piece ends where the next line begins
  const std::size_t lines = points.empty() ? 0 : points.size() - (closed ? 0 : 1);
  for (std::size_t i = 0; i < lines; ++i) {
    Point a = points[i];
    Point b = points[i + 1 < points.size() ? i + 1 : 0];
    const Point end = b;
    if (!ClipLine(a, b, edges)) {
      joined = false;
      continue;
    }
    if (!joined) pieces.push_back({a});
    pieces.back().push_back(b);
    joined = b == end;
  }
  return pieces;
}

std::vector<Point> ClipRing(const std::vector<Point>& ring, const Box& clip) {
  std::vector<Point> kept = ring;
  for (const ClipEdge& edge : EdgesOf(clip)) {
    const std::vector<Point> before = std::move(kept);
    kept.clear();
    for (std::size_t i = 0; i < before.size(); ++i) {
      const Point& a = before[i];
      const Point& b = before[i + 1 < before.size() ? i + 1 : 0];
      if (edge.Inward(a) >= 0) kept.push_back(a);
      if ((edge.Inward(a) >= 0) != (edge.Inward(b) >= 0)) kept.push_back(edge.Meet(a, b));
    }
  }
  return kept;
}

}  // namespace orvane
