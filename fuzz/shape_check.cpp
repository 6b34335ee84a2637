#include "fuzz/shape_check.h"

#include <cmath>
#include <variant>

#include "fuzz/fuzz_support.h"

namespace orvane::fuzz {

namespace {

void CheckNumber(double value) {
  if (!std::isfinite(value)) Fail("a length that is no number");
}

void CheckSize(double value) {
  CheckNumber(value);
  if (value < 0) Fail("a size below 0");
}

void CheckPoint(const Point& point) {
  CheckNumber(point.X);
  CheckNumber(point.Y);
}

void CheckBox(const Box& box) {
  CheckPoint({box.Left, box.Top});
  CheckSize(box.Width);
  CheckSize(box.Height);
}

struct ShapeCheck {
  bool InPicture = false;

  void operator()(const LineShape& line) const {
    CheckPoint(line.From);
    CheckPoint(line.To);
    CheckSize(line.Stroke.Width);
  }
  void operator()(const RectangleShape& rectangle) const {
    CheckBox(rectangle.Place);
    CheckSize(rectangle.Stroke.Width);
  }
  void operator()(const EllipseShape& ellipse) const {
    CheckBox(ellipse.Place);
    CheckSize(ellipse.Stroke.Width);
  }
  void operator()(const ArcShape& arc) const {
    CheckBox(arc.Place);
    CheckSize(arc.Stroke.Width);
    CheckNumber(arc.Start);
    if (!(arc.Span > 0 && arc.Span < 7)) Fail("an arc beyond its ellipse");
  }
  void operator()(const PolygonShape& polygon) const {
    if (polygon.Rings.empty()) Fail("a polygon of nothing");
    CheckSize(polygon.Stroke.Width);
    for (const auto& ring : polygon.Rings) {
      for (const Point& point : ring) CheckPoint(point);
    }
  }
  void operator()(const TextShape& text) const {
    if (text.Text.empty()) Fail("a text of nothing");
    CheckPoint(text.TopLeft);
    CheckSize(text.Type.Size);
    CheckNumber(text.Ascent);
    CheckNumber(text.Angle);
    CheckSize(text.WidthScale);
    if (text.Clipped) CheckBox(text.Clip);
  }
  void operator()(const PictureShape& picture) const {
    if (InPicture) Fail("a picture in a picture");
    CheckBox(picture.Place);
    if (!picture.Content) Fail("a picture of nothing");
    CheckPicture(*picture.Content);
  }
};

}  // namespace

void CheckPicture(const Picture& picture) {
  CheckNumber(picture.Width);
  CheckNumber(picture.Height);
  if (picture.Width <= 0 || picture.Height <= 0) Fail("a picture without a size");
  for (const Shape& shape : picture.Shapes) std::visit(ShapeCheck{true}, shape);
}

void CheckPage(const Page& page) {
  CheckSize(page.Width);
  CheckSize(page.Height);
  for (const Shape& shape : page.Shapes) std::visit(ShapeCheck{}, shape);
}

}  // namespace orvane::fuzz
