// Any bytes as a metafile: refused with a description, or a picture whose shapes are all finite.
#include <cmath>
#include <string_view>

#include "core/runtime_error.h"
#include "drawing/metafile.h"
#include "fuzz/quiet_desktop.h"

namespace {

using namespace orvane;

void CheckNumber(double value) {
  if (!std::isfinite(value)) fuzz::Fail("a length that is no number");
}

void CheckSize(double value) {
  CheckNumber(value);
  if (value < 0) fuzz::Fail("a size below 0");
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
  void operator()(const LineShape& line) const {
    CheckPoint(line.From);
    CheckPoint(line.To);
    CheckSize(line.Stroke.Width);
  }
  void operator()(const RectangleShape& rectangle) const { CheckBox(rectangle.Place); }
  void operator()(const EllipseShape& ellipse) const { CheckBox(ellipse.Place); }
  void operator()(const ArcShape& arc) const {
    CheckBox(arc.Place);
    CheckNumber(arc.Start);
    if (!(arc.Span > 0 && arc.Span < 7)) fuzz::Fail("an arc beyond its ellipse");
  }
  void operator()(const PolygonShape& polygon) const {
    if (polygon.Rings.empty()) fuzz::Fail("a polygon of nothing");
    for (const auto& ring : polygon.Rings) {
      for (const Point& point : ring) CheckPoint(point);
    }
  }
  void operator()(const TextShape& text) const {
    if (text.Text.empty()) fuzz::Fail("a text of nothing");
    CheckPoint(text.TopLeft);
    CheckSize(text.Type.Size);
    CheckNumber(text.Ascent);
    if (text.Clipped) CheckBox(text.Clip);
  }
  void operator()(const PictureShape&) const { fuzz::Fail("a picture in a picture"); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const Picture picture = ReadMetafile({reinterpret_cast<const char*>(data), size});
    CheckNumber(picture.Width);
    CheckNumber(picture.Height);
    if (picture.Width <= 0 || picture.Height <= 0) fuzz::Fail("a picture without a size");
    for (const Shape& shape : picture.Shapes) std::visit(ShapeCheck(), shape);
  } catch (const RuntimeError& error) {
    if (error.Description().empty()) fuzz::Fail("an error that doesn't say why");
  }
  return 0;
}
