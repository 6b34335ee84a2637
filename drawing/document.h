// A document as pages of shapes in millimetres, origin at the top left of the paper, X right, Y
// down. What shows, prints or exports a page paints these shapes and decides nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "drawing/font_metrics.h"

namespace orvane {

struct Rgb {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;

  friend bool operator==(const Rgb&, const Rgb&) = default;
};
constexpr Rgb Black{0, 0, 0};
constexpr Rgb White{255, 255, 255};
constexpr Rgb Grey{128, 128, 128};
constexpr Rgb Navy{0, 0, 128};

struct Point {
  double X = 0;
  double Y = 0;

  friend bool operator==(const Point&, const Point&) = default;
};

struct Box {
  double Left = 0;
  double Top = 0;
  double Width = 0;
  double Height = 0;

  friend bool operator==(const Box&, const Box&) = default;
};

// A line of this width and colour; a width of 0 is the thinnest line of the device. Ends are cut
// flat, corners mitred.
struct Pen {
  double Width = 0;  // mm
  Rgb Color = Black;
  bool Visible = true;

  friend bool operator==(const Pen&, const Pen&) = default;
};

// The inside of a closed shape.
struct Fill {
  bool Visible = false;
  Rgb Color = White;

  friend bool operator==(const Fill&, const Fill&) = default;
};

struct LineShape {
  Point From;
  Point To;
  Pen Stroke;

  friend bool operator==(const LineShape&, const LineShape&) = default;
};

struct RectangleShape {
  Box Place;
  Pen Stroke;
  Fill Inside;

  friend bool operator==(const RectangleShape&, const RectangleShape&) = default;
};

struct EllipseShape {
  Box Place;
  Pen Stroke;
  Fill Inside;

  friend bool operator==(const EllipseShape&, const EllipseShape&) = default;
};

// A part of an ellipse, counter-clockwise as seen on the page. Filled up to its chord, or up to its
// centre for a pie; the stroke follows the arc alone, or the whole outline.
struct ArcShape {
  Box Place;         // of the whole ellipse
  double Start = 0;  // radians from the X axis
  double Span = 0;   // radians, above 0
  bool Pie = false;
  bool StrokeAll = false;
  Pen Stroke;
  Fill Inside;

  friend bool operator==(const ArcShape&, const ArcShape&) = default;
};

// Closed, or an open chain of lines. Several rings make one area, by odd crossings or by winding.
struct PolygonShape {
  std::vector<std::vector<Point>> Rings;
  bool Closed = true;
  bool Winding = false;
  Pen Stroke;
  Fill Inside;

  friend bool operator==(const PolygonShape&, const PolygonShape&) = default;
};

// Where a text lies along its own line, seen from its point.
enum class TextSide { Left, Middle, Right };

struct TextShape {
  Point TopLeft;
  std::string Text;
  Font Type;
  Rgb Color = Black;
  // What its letters and the room between them measure along its own line, of what the font gives
  // them: above 0, below 1 for a text that is set narrower to get into its room.
  double WidthScale = 1;
  double Angle = 0;   // degrees, counter-clockwise about the top left corner
  double Ascent = 0;  // mm from the top to the baseline
  bool Clipped = false;
  Box Clip;
  // The texts of pictures are read without a font to measure them by, and hang on a point of their
  // baseline: `TopLeft` is then below the text's middle or right end, which only the painter knows.
  TextSide Side = TextSide::Left;
  Fill Behind;  // of the text's box, as wide as the text is set, from its ascent to its descent

  friend bool operator==(const TextShape&, const TextShape&) = default;
};

struct Picture;

// A picture in a box of the page, stretched to it.
struct PictureShape {
  std::shared_ptr<const Picture> Content;
  Box Place;

  friend bool operator==(const PictureShape&, const PictureShape&) = default;
};

using Shape = std::variant<LineShape, RectangleShape, EllipseShape, ArcShape, PolygonShape,
                           TextShape, PictureShape>;

// A picture: shapes in millimetres within its natural size.
struct Picture {
  double Width = 0;  // natural size, mm, above 0
  double Height = 0;
  std::vector<Shape> Shapes;
};

struct Page {
  double Width = 0;  // mm
  double Height = 0;
  std::vector<Shape> Shapes;
};

struct Document {
  std::vector<Page> Pages;
};

}  // namespace orvane
