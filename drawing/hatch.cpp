#include "drawing/hatch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>

#include "core/model.h"

namespace orvane {

namespace {

// Two thousand lines cover the largest standard sheet of paper; beyond some more, the coordinates
// are no drawing's.
constexpr double MostLines = 5000;
// Nor are lines this many spacings away from the page's corner: far out, the next whole multiple
// is no longer another number.
constexpr double FarthestLine = 1e6;

// Positions seen from the lines: Across tells the line, Along the place on it.
struct Direction {
  Point Across;
  Point Along;
};

Direction DirectionOf(HatchLines lines) {
  const double half = std::sqrt(0.5);
  switch (lines) {
    case HatchLines::Rising:
      return {{half, half}, {half, -half}};
    case HatchLines::Falling:
      return {{-half, half}, {half, half}};
    case HatchLines::Level:
      return {{0, 1}, {1, 0}};
    case HatchLines::Upright:
      break;
  }
  return {{1, 0}, {0, 1}};
}

double Dot(const Point& a, const Point& b) {
  return a.X * b.X + a.Y * b.Y;
}

struct Interval {
  double From = 0;
  double To = 0;
};

// Lines at whole multiples of the spacing, by their numbers.
struct LineNumbers {
  int First = 0;
  int Last = -1;
};

// The lines that meet `extent`; none where their number is no drawing's.
LineNumbers LinesWithin(const Interval& extent, double spacing) {
  const double first = std::ceil(extent.From / spacing);
  const double last = std::floor(extent.To / spacing);
  // What is not a number fails the comparisons too.
  const bool few = last - first < MostLines;
  const bool close = first > -FarthestLine && last < FarthestLine;
  if (!few || !close || last < first) return {};
  return {static_cast<int>(first), static_cast<int>(last)};
}

void AddLine(std::vector<Shape>& shapes, const Direction& direction, double across,
             const Interval& piece, const Hatch& hatch) {
  const auto at = [&](double along) {
    return Point{across * direction.Across.X + along * direction.Along.X,
                 across * direction.Across.Y + along * direction.Along.Y};
  };
  if (piece.From < piece.To) {
    shapes.emplace_back(LineShape{at(piece.From), at(piece.To), {hatch.Width, hatch.Color, true}});
  }
}

struct Crossing {
  double Along = 0;
  int Turn = 0;  // +1 or -1: which way the edge passes the line
};

// One ring's crossings with a line. An edge owns its lower end only, so that a corner on the line
// counts once or not at all.
void AddCrossings(std::vector<Crossing>& crossings, std::span<const Point> ring,
                  const Direction& direction, double across) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point& a = ring[i];
    const Point& b = ring[i + 1 < ring.size() ? i + 1 : 0];
    const double fromAcross = Dot(a, direction.Across);
    const double toAcross = Dot(b, direction.Across);
    if ((fromAcross <= across) == (toAcross <= across)) continue;
    const double share = (across - fromAcross) / (toAcross - fromAcross);
    const double fromAlong = Dot(a, direction.Along);
    const double toAlong = Dot(b, direction.Along);
    crossings.push_back({fromAlong + share * (toAlong - fromAlong), fromAcross <= across ? 1 : -1});
  }
}

void HatchRings(std::vector<Shape>& shapes, std::span<const std::span<const Point>> rings,
                bool winding, const Hatch& hatch) {
  const Direction direction = DirectionOf(hatch.Lines);
  Interval extent{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
  for (const auto& ring : rings) {
    for (const Point& point : ring) {
      const double across = Dot(point, direction.Across);
      extent.From = std::min(extent.From, across);
      extent.To = std::max(extent.To, across);
    }
  }
  const LineNumbers lines = LinesWithin(extent, hatch.Spacing);
  std::vector<Crossing> crossings;
  for (int line = lines.First; line <= lines.Last; ++line) {
    const double across = line * hatch.Spacing;
    crossings.clear();
    for (const auto& ring : rings) AddCrossings(crossings, ring, direction, across);
    std::sort(crossings.begin(), crossings.end(),
              [](const Crossing& a, const Crossing& b) { return a.Along < b.Along; });
    int turns = 0;
    for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
      turns += winding ? crossings[i].Turn : 1;
      if (winding ? turns != 0 : turns % 2 != 0) {
        AddLine(shapes, direction, across, {crossings[i].Along, crossings[i + 1].Along}, hatch);
      }
    }
  }
}

// A straight cut through an ellipse: what lies on its kept side has Dot(point, Kept) >= Limit.
struct Cut {
  Point Kept;
  double Limit = 0;
};

Interval Within(Interval piece, const Cut& cut, const Direction& direction, double across) {
  // Along the line the distance from the cut grows evenly.
  const double start = across * Dot(direction.Across, cut.Kept) - cut.Limit;
  const double slope = Dot(direction.Along, cut.Kept);
  if (slope == 0) return start >= 0 ? piece : Interval{};
  const double meets = -start / slope;
  if (slope > 0) {
    piece.From = std::max(piece.From, meets);
  } else {
    piece.To = std::min(piece.To, meets);
  }
  return piece;
}

void HatchCutEllipse(std::vector<Shape>& shapes, const Box& place, const Cut* cut,
                     const Hatch& hatch) {
  const Direction direction = DirectionOf(hatch.Lines);
  const double a = place.Width / 2;
  const double b = place.Height / 2;
  if (!(a > 0 && b > 0)) return;
  const Point centre{place.Left + a, place.Top + b};
  const double middle = Dot(centre, direction.Across);
  const double reach = std::hypot(a * direction.Across.X, b * direction.Across.Y);
  const LineNumbers lines = LinesWithin({middle - reach, middle + reach}, hatch.Spacing);
  for (int line = lines.First; line <= lines.Last; ++line) {
    const double across = line * hatch.Spacing;
    // In units of the half axes the ellipse is a circle of radius 1 around the centre, the line
    // runs through `foot` along `step`.
    const Point foot{(across * direction.Across.X - centre.X) / a,
                     (across * direction.Across.Y - centre.Y) / b};
    const Point step{direction.Along.X / a, direction.Along.Y / b};
    const double square = Dot(step, step);
    const double nearest = -Dot(foot, step) / square;
    const double root = nearest * nearest - (Dot(foot, foot) - 1) / square;
    if (!(root > 0)) continue;
    const double half = std::sqrt(root);
    Interval piece{nearest - half, nearest + half};
    if (cut) piece = Within(piece, *cut, direction, across);
    AddLine(shapes, direction, across, piece, hatch);
  }
}

}  // namespace

void HatchRectangle(std::vector<Shape>& shapes, const Box& place, const Hatch& hatch) {
  const double right = place.Left + place.Width;
  const double bottom = place.Top + place.Height;
  const std::array<Point, 4> corners{
      {{place.Left, place.Top}, {right, place.Top}, {right, bottom}, {place.Left, bottom}}};
  const std::array<std::span<const Point>, 1> rings{corners};
  HatchRings(shapes, rings, false, hatch);
}

void HatchEllipse(std::vector<Shape>& shapes, const Box& place, const Hatch& hatch) {
  HatchCutEllipse(shapes, place, nullptr, hatch);
}

void HatchArc(std::vector<Shape>& shapes, const Box& place, double start, double span,
              const Hatch& hatch) {
  const double a = place.Width / 2;
  const double b = place.Height / 2;
  const Point centre{place.Left + a, place.Top + b};
  const auto at = [&](double angle) {
    return Point{centre.X + a * std::cos(angle), centre.Y - b * std::sin(angle)};
  };
  // A full turn has no chord.
  constexpr double fullTurn = 2 * Pi - 1e-9;
  if (span >= fullTurn) return HatchEllipse(shapes, place, hatch);
  // Seen from the chord's first end to its last, a counter-clockwise arc lies on the right.
  const Point first = at(start);
  const Point last = at(start + span);
  Cut cut{{-(last.Y - first.Y), last.X - first.X}, 0};
  cut.Limit = Dot(first, cut.Kept);
  HatchCutEllipse(shapes, place, &cut, hatch);
}

void HatchPolygon(std::vector<Shape>& shapes, const std::vector<std::vector<Point>>& rings,
                  bool winding, const Hatch& hatch) {
  std::vector<std::span<const Point>> spans(rings.begin(), rings.end());
  HatchRings(shapes, spans, winding, hatch);
}

}  // namespace orvane
