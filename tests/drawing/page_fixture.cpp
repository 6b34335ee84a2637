#include "tests/drawing/page_fixture.h"

#include "core/numbers.h"

namespace orvane::test {

namespace {

std::string Number(double value) {
  return ShortestText(ParseDouble(FormatNumber(value, 3)));
}

std::string Color(Rgb color) {
  return DecimalText(color.Red) + "," + DecimalText(color.Green) + "," + DecimalText(color.Blue);
}

std::string Place(const Box& box) {
  return Number(box.Left) + " " + Number(box.Top) + " " + Number(box.Width) + " " +
         Number(box.Height);
}

std::string Look(const Pen& pen) {
  std::string text = pen.Visible ? " pen " + Number(pen.Width) : " no pen";
  if (!(pen.Color == Black)) text += " " + Color(pen.Color);
  return text;
}

std::string Look(const Pen& pen, const Fill& fill) {
  return Look(pen) + (fill.Visible ? " fill " + Color(fill.Color) : "");
}

struct Describer {
  std::string operator()(const LineShape& line) const {
    return "line " + Number(line.From.X) + " " + Number(line.From.Y) + " " + Number(line.To.X) +
           " " + Number(line.To.Y) + Look(line.Stroke);
  }
  std::string operator()(const RectangleShape& shape) const {
    return "rectangle " + Place(shape.Place) + Look(shape.Stroke, shape.Inside);
  }
  std::string operator()(const EllipseShape& shape) const {
    return "ellipse " + Place(shape.Place) + Look(shape.Stroke, shape.Inside);
  }
  std::string operator()(const ArcShape& arc) const {
    return "arc " + Place(arc.Place) + " from " + Number(arc.Start * 180 / Pi) + " span " +
           Number(arc.Span * 180 / Pi) + (arc.Pie ? " pie" : "") +
           (arc.StrokeAll ? " outlined" : "") + Look(arc.Stroke, arc.Inside);
  }
  std::string operator()(const PolygonShape& polygon) const {
    std::string text = polygon.Closed ? "polygon" : "chain";
    for (const auto& ring : polygon.Rings) {
      for (const Point& point : ring) text += " " + Number(point.X) + "," + Number(point.Y);
    }
    return text + Look(polygon.Stroke, polygon.Inside);
  }
  std::string operator()(const TextShape& text) const {
    std::string line = "text \"" + text.Text + "\" " + Number(text.TopLeft.X) + " " +
                       Number(text.TopLeft.Y) + " " + Number(text.Type.Size);
    if (text.Type.Bold) line += " bold";
    if (text.Type.Name != "Arial") line += " " + text.Type.Name;
    if (!(text.Color == Black)) line += " " + Color(text.Color);
    if (text.WidthScale != 1) line += " narrowed " + Number(text.WidthScale);
    if (text.Angle != 0) line += " angle " + Number(text.Angle);
    if (text.Clipped) line += " clip " + Place(text.Clip);
    return line;
  }
  std::string operator()(const PictureShape& picture) const {
    return "picture " + Place(picture.Place);
  }
};

}  // namespace

std::string Described(const Shape& shape) {
  return std::visit(Describer(), shape);
}

std::vector<std::string> PageTest::ShapesOf(std::size_t page) const {
  std::vector<std::string> lines;
  for (const Shape& shape : surface.Result().Pages.at(page - 1).Shapes) {
    lines.push_back(Described(shape));
  }
  return lines;
}

std::vector<std::string> PageTest::ShapesOf(std::size_t page, const std::string& kind) const {
  std::vector<std::string> lines;
  for (const std::string& line : ShapesOf(page)) {
    if (line.rfind(kind + " ", 0) == 0) lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> PageTest::TextsOf(std::size_t page) const {
  std::vector<std::string> texts;
  for (const Shape& shape : surface.Result().Pages.at(page - 1).Shapes) {
    if (const auto* text = std::get_if<TextShape>(&shape)) texts.push_back(text->Text);
  }
  return texts;
}

}  // namespace orvane::test
