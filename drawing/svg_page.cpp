#include "drawing/svg_page.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "core/model.h"
#include "core/numbers.h"
#include "core/text.h"
#include "drawing/length.h"
#include "drawing/painting.h"

namespace orvane {

namespace {

constexpr double TwipsToThePoint = 20;

// Kerning and joined letters would move a text away from where it was measured. A corner is cut off
// beyond ten widths of its line from its middle, which are twenty here.
constexpr std::string_view Style =
    " stroke-miterlimit=\"20\" xml:space=\"preserve\""
    " style=\"font-kerning:none;font-variant-ligatures:none\"";

// A ten-thousandth of a millimetre is finer than any device.
std::string NumberText(double value) {
  constexpr double finest = 10000;
  return ShortestText(Nearest(value * finest) / finest);
}

std::string ColorText(Rgb color) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text = "#";
  for (const int part : {color.Red, color.Green, color.Blue}) {
    text += digits[static_cast<std::size_t>(part / 16)];
    text += digits[static_cast<std::size_t>(part % 16)];
  }
  return text;
}

// Control characters, and the two that stand for no character.
bool IsForbidden(std::string_view character) {
  if (character.size() == 1) return static_cast<unsigned char>(character[0]) < ' ';
  return character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";
}

// A text between two tags or in an attribute.
std::string Escaped(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const std::string_view character = FirstChars(text, 1);
    text.remove_prefix(character.size());
    if (character == "&") {
      escaped += "&amp;";
    } else if (character == "<") {
      escaped += "&lt;";
    } else if (character == ">") {
      escaped += "&gt;";
    } else if (character == "\"") {
      escaped += "&quot;";
    } else if (character == "\t" || character == "\n" || character == "\r") {
      escaped += ' ';
    } else if (!IsForbidden(character)) {
      escaped += character;
    }
  }
  return escaped;
}

class SvgWriter {
 public:
  explicit SvgWriter(const FontMetrics& metrics) : metrics_(metrics) {}

  void Write(const std::vector<Shape>& shapes) {
    for (const Shape& shape : shapes) {
      std::visit([this](const auto& one) { Add(one); }, shape);
    }
  }

  std::string TakeText() { return std::move(text_); }

 private:
  // The pieces of an element.

  void Attribute(std::string_view name, std::string_view value) {
    text_.append(" ").append(name).append("=\"").append(value).append("\"");
  }
  void Attribute(std::string_view name, double value) { Attribute(name, NumberText(value)); }

  void Ink(const Pen& pen, const Fill& inside) {
    Attribute("fill", inside.Visible ? ColorText(inside.Color) : "none");
    if (!pen.Visible) return;
    Attribute("stroke", ColorText(pen.Color));
    Attribute("stroke-width", std::max(pen.Width, ThinnestOnPaper));
  }

  void Close() { text_ += "/>\n"; }

  static std::string PointText(const Point& point) {
    return NumberText(point.X) + " " + NumberText(point.Y);
  }

  void Path(const std::string& path, const Pen& pen, const Fill& inside) {
    text_ += "<path";
    Attribute("d", path);
    Ink(pen, inside);
    Close();
  }

  // The shapes.

  void Add(const LineShape& line) {
    if (!line.Stroke.Visible) return;
    Path("M" + PointText(line.From) + "L" + PointText(line.To), line.Stroke, {});
  }

  void Add(const RectangleShape& rectangle) {
    text_ += "<rect";
    BoxAttributes(rectangle.Place);
    Ink(rectangle.Stroke, rectangle.Inside);
    Close();
  }

  void BoxAttributes(const Box& box) {
    Attribute("x", box.Left);
    Attribute("y", box.Top);
    Attribute("width", box.Width);
    Attribute("height", box.Height);
  }

  void Add(const EllipseShape& ellipse) {
    const Box& box = ellipse.Place;
    text_ += "<ellipse";
    Attribute("cx", box.Left + box.Width / 2);
    Attribute("cy", box.Top + box.Height / 2);
    Attribute("rx", box.Width / 2);
    Attribute("ry", box.Height / 2);
    Ink(ellipse.Stroke, ellipse.Inside);
    Close();
  }

  // A whole turn has no two ends, so that it is made of two halves.
  void Add(const ArcShape& arc) {
    const double a = arc.Place.Width / 2;
    const double b = arc.Place.Height / 2;
    const Point middle{arc.Place.Left + a, arc.Place.Top + b};
    const auto at = [&](double angle) -> Point {
      return {middle.X + a * std::cos(angle), middle.Y - b * std::sin(angle)};
    };
    const bool large = arc.Span > Pi;
    std::string line = "M" + PointText(at(arc.Start));
    for (const double share : {large ? 0.5 : 1.0, 1.0}) {
      const std::string end = PointText(at(arc.Start + share * arc.Span));
      line += "A" + NumberText(a) + " " + NumberText(b) + " 0 0 0 " + end;
      if (!large) break;
    }
    const std::string whole = line + (arc.Pie ? "L" + PointText(middle) : "") + "Z";
    if (arc.StrokeAll) return Path(whole, arc.Stroke, arc.Inside);
    if (arc.Inside.Visible) Path(whole, {0, Black, false}, arc.Inside);
    if (arc.Stroke.Visible) Path(line, arc.Stroke, {});
  }

  void Add(const PolygonShape& polygon) {
    std::string path;
    for (const std::vector<Point>& ring : polygon.Rings) {
      char command = 'M';
      for (const Point& point : ring) {
        path += std::exchange(command, 'L') + PointText(point);
      }
      if (polygon.Closed && !ring.empty()) path += 'Z';
    }
    text_ += "<path";
    Attribute("d", path);
    if (polygon.Closed && !polygon.Winding) Attribute("fill-rule", "evenodd");
    Ink(polygon.Stroke, polygon.Closed ? polygon.Inside : Fill{});
    Close();
  }

  // Texts stand on their base line, which lies the ascent below the top, and are turned about the
  // top left corner.
  void Add(const TextShape& text) {
    if (text.Clipped) OpenClip(text.Clip);
    text_ += "<g";
    std::string place =
        "translate(" + NumberText(text.TopLeft.X) + " " + NumberText(text.TopLeft.Y) + ")";
    if (text.Angle != 0) place += "rotate(" + NumberText(-text.Angle) + ")";
    if (text.WidthScale != 1) place += "scale(" + ShortestText(text.WidthScale) + " 1)";
    Attribute("transform", place);
    text_ += '>';
    if (text.Behind.Visible) AddBehind(text);
    text_ += "<text";
    Attribute("y", text.Ascent);
    Attribute("font-family", FamilyText(text.Type.Name));
    // As the page was measured: a point of a sheet is 20 of its twips.
    Attribute("font-size", text.Type.Size * TwipsToThePoint / TwipsPerMm);
    if (text.Type.Bold) Attribute("font-weight", "bold");
    if (text.Type.Italic) Attribute("font-style", "italic");
    if (text.Side == TextSide::Middle) Attribute("text-anchor", "middle");
    if (text.Side == TextSide::Right) Attribute("text-anchor", "end");
    Attribute("fill", ColorText(text.Color));
    text_.append(">").append(Escaped(text.Text)).append("</text></g>\n");
    if (text.Clipped) text_ += "</g>\n";
  }

  void AddBehind(const TextShape& text) {
    const double width = metrics_.Width(text.Type, text.Text) / TwipsPerMm;
    const double left = text.Side == TextSide::Left     ? 0
                        : text.Side == TextSide::Middle ? -width / 2
                                                        : -width;
    text_ += "<rect";
    BoxAttributes({left, text.Ascent - metrics_.Ascent(text.Type) / TwipsPerMm, width,
                   metrics_.Height(text.Type) / TwipsPerMm});
    Ink({0, Black, false}, text.Behind);
    Close();
  }

  static std::string FamilyText(std::string name) {
    // A picture may name any text as its font; quotes would end the name.
    name.erase(std::remove_if(name.begin(), name.end(),
                              [](char c) { return c == '\'' || c == '"' || c == '\\'; }),
               name.end());
    const std::string own = name.empty() || name == "Arial" ? "" : "'" + Escaped(name) + "', ";
    return own + "Arial, 'Liberation Sans', sans-serif";
  }

  // Opens a group that shows what lies in the box alone.
  void OpenClip(const Box& box) {
    const std::string name = "clip" + DecimalText(++clips_);
    text_ += "<clipPath";
    Attribute("id", name);
    text_ += "><rect";
    BoxAttributes(box);
    text_ += "/></clipPath>\n<g";
    Attribute("clip-path", "url(#" + name + ")");
    text_ += ">\n";
  }

  void Add(const PictureShape& shape) {
    if (!shape.Content || depth_ == DeepestPicture) return;
    const Picture& picture = *shape.Content;
    if (!(picture.Width > 0) || !(picture.Height > 0)) return;
    // Factors, which stretch hundreds of millimetres, need more digits than places.
    const std::string across = ShortestText(shape.Place.Width / picture.Width);
    const std::string down = ShortestText(shape.Place.Height / picture.Height);
    text_ += "<g";
    Attribute("transform", "translate(" + NumberText(shape.Place.Left) + " " +
                               NumberText(shape.Place.Top) + ")scale(" + across + " " + down + ")");
    text_ += ">\n";
    ++depth_;
    Write(picture.Shapes);
    --depth_;
    text_ += "</g>\n";
  }

  const FontMetrics& metrics_;
  std::string text_;
  int depth_ = 0;
  int clips_ = 0;
};

}  // namespace

std::string SvgOfPage(const Page& page, std::string_view title, const FontMetrics& metrics) {
  const std::string width = NumberText(page.Width);
  const std::string height = NumberText(page.Height);
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  text += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "mm\" height=\"" + height +
          "mm\" viewBox=\"0 0 " + width + " " + height + "\"";
  text.append(Style).append(">\n");
  text += "<title>" + Escaped(title) + "</title>\n<desc>Orvane Detailing System</desc>\n";
  text += "<rect width=\"" + width + "\" height=\"" + height + "\" fill=\"#ffffff\"/>\n";
  SvgWriter writer(metrics);
  writer.Write(page.Shapes);
  return text + writer.TakeText() + "</svg>\n";
}

}  // namespace orvane
