#include "drawing/dashes.h"

#include <cmath>
#include <cstddef>
#include <numeric>

namespace orvane {

namespace {

std::size_t LinesOf(const std::vector<Point>& points, bool closed) {
  return points.empty() ? 0 : points.size() - (closed ? 0 : 1);
}

const Point& EndOf(const std::vector<Point>& points, std::size_t line) {
  return points[line + 1 < points.size() ? line + 1 : 0];
}

double Distance(const Point& a, const Point& b) {
  return std::hypot(b.X - a.X, b.Y - a.Y);
}

}  // namespace

double DashesOf(const std::vector<Point>& points, bool closed, const DashPattern& pattern) {
  double length = 0;
  const std::size_t lines = LinesOf(points, closed);
  for (std::size_t i = 0; i < lines; ++i) length += Distance(points[i], EndOf(points, i));
  const double period = std::accumulate(pattern.begin(), pattern.end(), 0.0);
  return static_cast<double>(pattern.size()) * (length / period + 1) + static_cast<double>(lines);
}

std::vector<std::vector<Point>> DashChain(const std::vector<Point>& points, bool closed,
                                          const DashPattern& pattern) {
  std::vector<std::vector<Point>> dashes;
  std::size_t at = 0;        // in the pattern; even places are dashes
  double left = pattern[0];  // of that dash or gap
  const std::size_t lines = LinesOf(points, closed);
  if (lines > 0) dashes.push_back({points.front()});
  for (std::size_t i = 0; i < lines; ++i) {
    const Point& from = points[i];
    const Point& to = EndOf(points, i);
    const double length = Distance(from, to);
    double done = 0;
    while (length - done > left) {
      done += left;
      const Point point{from.X + (to.X - from.X) * done / length,
                        from.Y + (to.Y - from.Y) * done / length};
      if (at % 2 == 0) {
        // A dash that ended with the line before has its end already.
        if (done > 0) dashes.back().push_back(point);
      } else {
        dashes.push_back({point});
      }
      at = (at + 1) % pattern.size();
      left = pattern[at];
    }
    left -= length - done;
    if (at % 2 == 0) dashes.back().push_back(to);
  }
  return dashes;
}

}  // namespace orvane
