#include "drawing/metafile_shapes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/model.h"
#include "core/runtime_error.h"
#include "drawing/metafile_clip.h"

namespace orvane {

namespace {

// Some hundred times a rich picture. It bounds the time at well under a second and the memory at
// some hundred megabytes.
constexpr double MostWork = 2'000'000;

// Of an ellipse that is cut or hatched: the outline is off by less than 1/3000 of its size.
constexpr int LinesOfAnEllipse = 90;

using Rings = std::vector<std::vector<Point>>;

double PointsOf(const Rings& rings) {
  double points = 0;
  for (const auto& ring : rings) points += static_cast<double>(ring.size());
  return points;
}

Box BoundsOf(const Rings& rings) {
  std::vector<Point> corners;
  for (const auto& ring : rings) {
    const Box box = orvane::BoundsOf(ring);
    corners.push_back({box.Left, box.Top});
    corners.push_back({box.Left + box.Width, box.Top + box.Height});
  }
  return orvane::BoundsOf(corners);
}

Point OnEllipse(const Box& place, double angle) {
  const double a = place.Width / 2;
  const double b = place.Height / 2;
  return {place.Left + a + a * std::cos(angle), place.Top + b - b * std::sin(angle)};
}

void AppendArc(std::vector<Point>& points, const Box& place, double start, double span) {
  const int lines = std::max(1, static_cast<int>(std::ceil(LinesOfAnEllipse * span / (2 * Pi))));
  for (int i = 0; i <= lines; ++i) points.push_back(OnEllipse(place, start + span * i / lines));
}

MetafileInk StrokeOnly(const MetafileInk& ink) {
  MetafileInk stroke = ink;
  stroke.Inside.Visible = false;
  stroke.Hatches.clear();
  return stroke;
}

template <typename Area>
void SetInk(Area& area, const MetafileInk& ink) {
  area.Stroke = ink.Stroke;
  area.Inside = ink.Inside;
}

bool IsVisible(const MetafileInk& ink) {
  return ink.Stroke.Visible || ink.Inside.Visible || !ink.Hatches.empty();
}

}  // namespace

void MetafileShapes::Spend(double work) {
  work_ += work;
  // No limit of the system fits, but that of a number that has grown too large.
  if (!(work_ <= MostWork)) throw RuntimeError(Failure::Overflow, "Picture too large");
}

void MetafileShapes::AddLine(const Point& from, const Point& to, const MetafileInk& ink) {
  if (!ink.Stroke.Visible) return;
  Spend(1);
  const std::vector<Point> points = {from, to};
  if (!ink.Dashes.empty()) {
    AddPieces(points, false, ink);
    return;
  }
  if (!ink.Clip || SideOf(BoundsOf(points), *ink.Clip) == ClipSide::Inside) {
    shapes_.emplace_back(LineShape{from, to, ink.Stroke});
    return;
  }
  for (const auto& piece : ClipChain(points, false, *ink.Clip)) {
    shapes_.emplace_back(LineShape{piece.front(), piece.back(), ink.Stroke});
  }
}

void MetafileShapes::AddChain(const std::vector<Point>& points, const MetafileInk& ink) {
  if (!ink.Stroke.Visible || points.size() < 2) return;
  AddPieces(points, false, ink);
}

void MetafileShapes::AddPolygon(std::vector<std::vector<Point>> rings, const MetafileInk& ink) {
  rings.erase(std::remove_if(rings.begin(), rings.end(),
                             [](const std::vector<Point>& ring) { return ring.size() < 2; }),
              rings.end());
  if (rings.empty()) return;
  Spend(PointsOf(rings));
  PolygonShape polygon;
  polygon.Rings = std::move(rings);
  polygon.Winding = ink.Winding;
  const Box bounds = BoundsOf(polygon.Rings);
  AddArea(
      std::move(polygon), bounds, [](const PolygonShape& area) { return area.Rings; }, ink);
}

void MetafileShapes::AddRectangle(const Box& place, const MetafileInk& ink) {
  const auto corners = [](const RectangleShape& area) -> Rings {
    const Box& box = area.Place;
    const double right = box.Left + box.Width;
    const double bottom = box.Top + box.Height;
    return {{{box.Left, box.Top}, {right, box.Top}, {right, bottom}, {box.Left, bottom}}};
  };
  AddArea(RectangleShape{place, {}, {}}, place, corners, ink);
}

void MetafileShapes::AddRoundRectangle(const Box& place, double cornerWidth, double cornerHeight,
                                       const MetafileInk& ink) {
  const double width = std::min(std::abs(cornerWidth), place.Width);
  const double height = std::min(std::abs(cornerHeight), place.Height);
  if (width <= 0 || height <= 0) {
    AddRectangle(place, ink);
    return;
  }
  const double left = place.Left;
  const double top = place.Top;
  const double right = place.Left + place.Width - width;
  const double bottom = place.Top + place.Height - height;
  Spend(LinesOfAnEllipse);
  std::vector<Point> ring;
  AppendArc(ring, {right, top, width, height}, 0, HalfPi);
  AppendArc(ring, {left, top, width, height}, HalfPi, HalfPi);
  AppendArc(ring, {left, bottom, width, height}, Pi, HalfPi);
  AppendArc(ring, {right, bottom, width, height}, ThreeHalfPi, HalfPi);
  AddPolygon({std::move(ring)}, ink);
}

void MetafileShapes::AddEllipse(const Box& place, const MetafileInk& ink) {
  const auto circumference = [](const EllipseShape& area) -> Rings {
    std::vector<Point> ring;
    AppendArc(ring, area.Place, 0, 2 * Pi);
    ring.pop_back();
    return {ring};
  };
  AddArea(EllipseShape{place, {}, {}}, place, circumference, ink);
}

void MetafileShapes::AddArc(const ArcShape& arc, const MetafileInk& ink) {
  const auto pointsOf = [](const ArcShape& shape) -> Rings {
    const Box& box = shape.Place;
    std::vector<Point> points;
    AppendArc(points, box, shape.Start, shape.Span);
    if (shape.Pie) points.push_back({box.Left + box.Width / 2, box.Top + box.Height / 2});
    return {points};
  };
  if (arc.StrokeAll) {
    AddArea(arc, arc.Place, pointsOf, ink);
  } else if (ink.Stroke.Visible) {
    Spend(1);
    const bool whole = !ink.Clip || SideOf(arc.Place, *ink.Clip) == ClipSide::Inside;
    if (whole && ink.Dashes.empty()) {
      ArcShape stroked = arc;
      stroked.Stroke = ink.Stroke;
      shapes_.emplace_back(stroked);
    } else {
      AddPieces(pointsOf(arc).front(), false, ink);
    }
  }
}

void MetafileShapes::AddText(TextShape text, const MetafileInk& ink) {
  Spend(1);
  // How far a text reaches shows only when it is painted.
  if (ink.Clip) {
    text.Clip = text.Clipped ? CommonBox(text.Clip, *ink.Clip) : *ink.Clip;
    text.Clipped = true;
  }
  if (text.Clipped && (text.Clip.Width <= 0 || text.Clip.Height <= 0)) return;
  shapes_.emplace_back(std::move(text));
}

template <typename Area, typename OutlineOf>
void MetafileShapes::AddArea(Area area, const Box& bounds, const OutlineOf& outlineOf,
                             const MetafileInk& ink) {
  if (!IsVisible(ink)) return;
  Spend(1);
  const ClipSide side = ink.Clip ? SideOf(bounds, *ink.Clip) : ClipSide::Inside;
  if (side == ClipSide::Outside) return;
  const bool dashed = ink.Stroke.Visible && !ink.Dashes.empty();
  if (side == ClipSide::Inside && ink.Hatches.empty() && !dashed) {
    SetInk(area, ink);
    shapes_.emplace_back(std::move(area));
    return;
  }

  // First the inside, then the hatch, then the stroke over both.
  const Rings outline = outlineOf(area);
  const double points = PointsOf(outline);
  Spend(points);
  Rings rings = outline;
  Box place = bounds;
  if (side == ClipSide::Across) {
    for (std::vector<Point>& ring : rings) ring = ClipRing(ring, *ink.Clip);
    place = CommonBox(bounds, *ink.Clip);
  }
  if (ink.Inside.Visible) {
    PolygonShape inside;
    inside.Rings = rings;
    inside.Winding = ink.Winding;
    inside.Stroke.Visible = false;
    inside.Inside = ink.Inside;
    shapes_.emplace_back(std::move(inside));
  }
  for (const Hatch& hatch : ink.Hatches) {
    // Each line of the hatch is held against each edge of the area.
    Spend(points * (place.Width + place.Height) / hatch.Spacing);
    HatchPolygon(shapes_, rings, ink.Winding, hatch);
  }
  if (!ink.Stroke.Visible) return;
  if (side == ClipSide::Inside && !dashed) {
    SetInk(area, StrokeOnly(ink));
    shapes_.emplace_back(std::move(area));
    return;
  }
  for (const std::vector<Point>& ring : outline) AddPieces(ring, true, ink);
}

// A stroke, dashed where its pen is.
void MetafileShapes::AddPieces(const std::vector<Point>& points, bool closed,
                               const MetafileInk& ink) {
  if (ink.Dashes.empty()) {
    AddChainPieces(points, closed, ink);
    return;
  }
  Spend(DashesOf(points, closed, ink.Dashes));
  for (const auto& dash : DashChain(points, closed, ink.Dashes)) AddChainPieces(dash, false, ink);
}

// A chain, cut where the clip rectangle cuts it.
void MetafileShapes::AddChainPieces(const std::vector<Point>& points, bool closed,
                                    const MetafileInk& ink) {
  Spend(1 + static_cast<double>(points.size()));
  const auto add = [&](std::vector<Point> chain) {
    PolygonShape piece;
    piece.Rings = {std::move(chain)};
    piece.Closed = closed && !ink.Clip;
    piece.Stroke = ink.Stroke;
    shapes_.emplace_back(std::move(piece));
  };
  if (!ink.Clip) {
    add(points);
    return;
  }
  for (std::vector<Point>& piece : ClipChain(points, closed, *ink.Clip)) add(std::move(piece));
}

Box CommonBox(const Box& a, const Box& b) {
  const double left = std::max(a.Left, b.Left);
  const double top = std::max(a.Top, b.Top);
  const double right = std::min(a.Left + a.Width, b.Left + b.Width);
  const double bottom = std::min(a.Top + a.Height, b.Top + b.Height);
  return {left, top, std::max(0.0, right - left), std::max(0.0, bottom - top)};
}

}  // namespace orvane
