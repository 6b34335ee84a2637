#include "drawing/page_surface.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"

namespace orvane {

namespace {

// Corners in any order: a mirrored scale draws from right to left.
Box BoxOf(const Length& x1, const Length& y1, const Length& x2, const Length& y2) {
  const double left = FiniteMm(x1);
  const double top = FiniteMm(y1);
  const double right = FiniteMm(x2);
  const double bottom = FiniteMm(y2);
  return {std::min(left, right), std::min(top, bottom), std::fabs(right - left),
          std::fabs(bottom - top)};
}

Box BoxAround(const Length& x, const Length& y, const Length& radius) {
  const double reach = std::fabs(FiniteMm(radius));
  return {FiniteMm(x) - reach, FiniteMm(y) - reach, 2 * reach, 2 * reach};
}

// The angle from the start to the end, counter-clockwise: above 0 and at most a full turn.
double SpanOf(double start, double end) {
  const double fullTurn = 2 * Pi;
  double span = end - start;
  if (!std::isfinite(span)) throw RuntimeError(Failure::Overflow);
  if (span <= 0) span -= std::floor(span / fullTurn) * fullTurn;
  return span > 0 ? std::min(span, fullTurn) : fullTurn;
}

// x and y of each point in turn, twips, as millimetres.
std::vector<Point> PointsOf(std::string_view text) {
  std::vector<Point> points;
  bool across = true;
  std::size_t at = text.find_first_not_of(' ');
  while (at < text.size()) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    const double value = Length(ParseDouble(text.substr(at, end - at))).Mm();
    if (across) {
      points.push_back({value, 0});
    } else {
      points.back().Y = value;
    }
    across = !across;
    at = text.find_first_not_of(' ', end);
  }
  if (!across) throw RuntimeError(Failure::TypeMismatch);
  return points;
}

}  // namespace

// Lines and shapes.

void PageSurface::PenWidth(const Length& width) {
  pen_.Width = std::max(FiniteMm(width), 0.0);
}

// Sheets have no other style than solid.
void PageSurface::PenStyle(int) {}

void PageSurface::DrawLine(const Length& x1, const Length& y1, const Length& x2, const Length& y2) {
  const LineShape line{{FiniteMm(x1), FiniteMm(y1)}, {FiniteMm(x2), FiniteMm(y2)}, pen_};
  if (line.From == line.To) return;
  Shapes().emplace_back(line);
}

void PageSurface::DrawRectangle(const Length& x1, const Length& y1, const Length& x2,
                                const Length& y2) {
  AddRectangle(BoxOf(x1, y1, x2, y2));
}

void PageSurface::DrawCircle(const Length& x, const Length& y, const Length& radius) {
  AddEllipse(BoxAround(x, y, radius));
}

void PageSurface::DrawEllipse(const Length& x1, const Length& y1, const Length& x2,
                              const Length& y2) {
  AddEllipse(BoxOf(x1, y1, x2, y2));
}

void PageSurface::DrawArc(const Length& x, const Length& y, const Length& radius, double start,
                          double end) {
  ArcShape arc;
  arc.Place = BoxAround(x, y, radius);
  arc.Start = start;
  arc.Span = SpanOf(start, end);
  arc.Stroke = pen_;
  arc.Inside = PresentFill();
  if (arc.Place.Width == 0) return;
  if (Hatched()) HatchArc(Shapes(), arc.Place, arc.Start, arc.Span, PresentHatch());
  Shapes().emplace_back(arc);
}

void PageSurface::Polygon(std::string_view points) {
  AddPolygon(PointsOf(points));
}

void PageSurface::DrawPicture(const std::shared_ptr<const Picture>& picture, const Length& left,
                              const Length& top) {
  if (!picture) return;
  DrawPicture(picture, left, top, Length::OfMm(picture->Width), Length::OfMm(picture->Height));
}

void PageSurface::DrawPicture(const std::shared_ptr<const Picture>& picture, const Length& left,
                              const Length& top, const Length& width, const Length& height) {
  const Box place{FiniteMm(left), FiniteMm(top), FiniteMm(width), FiniteMm(height)};
  if (!picture || place.Width <= 0 || place.Height <= 0) return;
  Shapes().emplace_back(PictureShape{picture, place});
}

void PageSurface::AddRectangle(const Box& place) {
  if (Hatched()) HatchRectangle(Shapes(), place, PresentHatch());
  Shapes().emplace_back(RectangleShape{place, pen_, PresentFill()});
}

// One without any size would still show as a dot of the pen.
void PageSurface::AddEllipse(const Box& place) {
  if (place.Width == 0 && place.Height == 0) return;
  if (Hatched()) HatchEllipse(Shapes(), place, PresentHatch());
  Shapes().emplace_back(EllipseShape{place, pen_, PresentFill()});
}

void PageSurface::AddPolygon(std::vector<Point> corners) {
  // It closes by itself; a last point on the first one would leave its corner without a mitre.
  if (corners.size() > 1 && corners.back() == corners.front()) corners.pop_back();
  if (corners.size() < 2) return;
  PolygonShape shape;
  shape.Rings.push_back(std::move(corners));
  shape.Stroke = pen_;
  shape.Inside = PresentFill();
  if (Hatched()) HatchPolygon(Shapes(), shape.Rings, shape.Winding, PresentHatch());
  Shapes().emplace_back(std::move(shape));
}

Hatch PageSurface::PresentHatch() const {
  Hatch hatch;
  hatch.Color = brushColor_;
  return hatch;
}

// The brush alone tells whether the box covers what lies below.
void PageSurface::TextBox(std::string_view text, const Length& left, const Length& top,
                          const Length& width, const Length& height, bool) {
  const Point corner{FiniteMm(left), FiniteMm(top)};
  const double degrees = textAngle_ / 10.0;
  if (textAngle_ == 0) {
    AddRectangle(BoxOf(left, top, Length::OfMm(corner.X + FiniteMm(width)),
                       Length::OfMm(corner.Y + FiniteMm(height))));
  } else {
    const double angle = degrees * Pi / 180;
    const Point along{FiniteMm(width) * std::cos(angle), -FiniteMm(width) * std::sin(angle)};
    const Point down{FiniteMm(height) * std::sin(angle), FiniteMm(height) * std::cos(angle)};
    AddPolygon({corner,
                {corner.X + along.X, corner.Y + along.Y},
                {corner.X + along.X + down.X, corner.Y + along.Y + down.Y},
                {corner.X + down.X, corner.Y + down.Y}});
  }
  AddText(text, corner, degrees, std::numeric_limits<double>::infinity());
}

}  // namespace orvane
