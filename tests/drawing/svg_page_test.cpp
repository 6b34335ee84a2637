// A page's shapes as SVG, element by element: one unit is a millimetre.
#include "drawing/svg_page.h"

#include <memory>

#include "tests/drawing/page_fixture.h"

namespace orvane::test {
namespace {

// The lines of the file between its white ground and its end.
Lines SvgOf(std::vector<Shape> shapes) {
  const PlainFontMetrics metrics;
  const std::string svg = SvgOfPage({297, 210, std::move(shapes)}, "Title", metrics);
  Lines lines;
  std::size_t at = svg.find("fill=\"#ffffff\"/>\n");
  EXPECT_NE(at, std::string::npos);
  at = svg.find('\n', at) + 1;
  for (std::size_t end = svg.find('\n', at); end != std::string::npos;
       at = end + 1, end = svg.find('\n', at)) {
    lines.push_back(svg.substr(at, end - at));
  }
  EXPECT_EQ(lines.back(), "</svg>");
  lines.pop_back();
  return lines;
}

const Pen Thick{0.4, {255, 0, 16}, true};
const Fill Light{true, White};

TEST(SvgPage, The_paper_is_in_true_millimetres_and_white) {
  const PlainFontMetrics metrics;
  EXPECT_EQ(SvgOfPage({215.9, 279.4, {}}, "A & B", metrics),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"215.9mm\" height=\"279.4mm\" "
            "viewBox=\"0 0 215.9 279.4\" stroke-miterlimit=\"20\" xml:space=\"preserve\" "
            "style=\"font-kerning:none;font-variant-ligatures:none\">\n"
            "<title>A &amp; B</title>\n<desc>Orvane Detailing System</desc>\n"
            "<rect width=\"215.9\" height=\"279.4\" fill=\"#ffffff\"/>\n</svg>\n");
}

TEST(SvgPage, Lines_have_their_width_and_colour_and_the_thinnest_can_be_seen) {
  EXPECT_EQ(
      SvgOf({LineShape{{1, 2}, {3.5, 0.00004}, Thick}, LineShape{{0, 0}, {1, 1}, {}},
             LineShape{{0, 0}, {1, 1}, {1, Black, false}}}),
      (Lines{"<path d=\"M1 2L3.5 0\" fill=\"none\" stroke=\"#ff0010\" stroke-width=\"0.4\"/>",
             "<path d=\"M0 0L1 1\" fill=\"none\" stroke=\"#000000\" stroke-width=\"0.02\"/>"}));
}

TEST(SvgPage, Rectangles_and_ellipses_have_stroke_and_inside) {
  EXPECT_EQ(
      SvgOf({RectangleShape{{1, 2, 30, 4}, {1, Black, false}, Light},
             EllipseShape{{10, 20, 30, 8}, Thick, {}}}),
      (Lines{"<rect x=\"1\" y=\"2\" width=\"30\" height=\"4\" fill=\"#ffffff\"/>",
             "<ellipse cx=\"25\" cy=\"24\" rx=\"15\" ry=\"4\" fill=\"none\" stroke=\"#ff0010\" "
             "stroke-width=\"0.4\"/>"}));
}

TEST(SvgPage, Arcs_run_counter_clockwise_and_fill_to_their_chord_or_centre) {
  // A quarter from the right up to the top of a circle of 10 mm about 20, 30.
  ArcShape arc;
  arc.Place = {10, 20, 20, 20};
  arc.Span = 1.5707963267948966;
  arc.Stroke = Thick;
  const std::string stroke = " fill=\"none\" stroke=\"#ff0010\" stroke-width=\"0.4\"/>";
  EXPECT_EQ(SvgOf({arc}), Lines{"<path d=\"M30 30A10 10 0 0 0 20 20\"" + stroke});
  arc.Inside = Light;
  EXPECT_EQ(SvgOf({arc}), (Lines{"<path d=\"M30 30A10 10 0 0 0 20 20Z\" fill=\"#ffffff\"/>",
                                 "<path d=\"M30 30A10 10 0 0 0 20 20\"" + stroke}));
  arc.Pie = arc.StrokeAll = true;
  arc.Inside = {};
  EXPECT_EQ(SvgOf({arc}), Lines{"<path d=\"M30 30A10 10 0 0 0 20 20L20 30Z\"" + stroke});
  // More than half a turn goes by way of its middle: from the right over the left to the bottom.
  arc.Pie = arc.StrokeAll = false;
  arc.Span *= 3;
  EXPECT_EQ(SvgOf({arc}),
            Lines{"<path d=\"M30 30A10 10 0 0 0 12.9289 22.9289A10 10 0 0 0 20 40\"" + stroke});
}

TEST(SvgPage, Polygons_of_several_rings_fill_by_odd_crossings_or_winding) {
  PolygonShape polygon;
  polygon.Rings = {{{0, 0}, {4, 0}, {4, 4}}, {{1, 1}, {2, 1}, {2, 2}}};
  polygon.Inside = Light;
  polygon.Stroke.Visible = false;
  EXPECT_EQ(SvgOf({polygon}), Lines{"<path d=\"M0 0L4 0L4 4ZM1 1L2 1L2 2Z\" fill-rule=\"evenodd\" "
                                    "fill=\"#ffffff\"/>"});
  polygon.Winding = true;
  EXPECT_EQ(SvgOf({polygon}), Lines{"<path d=\"M0 0L4 0L4 4ZM1 1L2 1L2 2Z\" fill=\"#ffffff\"/>"});
  polygon.Closed = false;  // an open chain is never filled
  polygon.Rings.pop_back();
  polygon.Stroke = Thick;
  EXPECT_EQ(SvgOf({polygon}), Lines{"<path d=\"M0 0L4 0L4 4\" fill=\"none\" stroke=\"#ff0010\" "
                                    "stroke-width=\"0.4\"/>"});
}

// 11.34 points are 226.8 twips of the sheet, 4 mm.
TEST(SvgPage, Texts_stay_texts_on_their_base_line_turned_about_their_corner) {
  TextShape text;
  text.TopLeft = {10, 20};
  text.Text = "M16 x 40";
  text.Type.Size = 11.34;
  text.Ascent = 3.5;
  EXPECT_EQ(SvgOf({text}), Lines{"<g transform=\"translate(10 20)\"><text y=\"3.5\" "
                                 "font-family=\"Arial, 'Liberation Sans', sans-serif\" "
                                 "font-size=\"4\" fill=\"#000000\">M16 x 40</text></g>"});
  text.Angle = 90;
  text.Type = {"Symbol", 11.34, true, true};
  text.Color = Grey;
  text.Side = TextSide::Middle;
  EXPECT_EQ(SvgOf({text}),
            Lines{"<g transform=\"translate(10 20)rotate(-90)\"><text y=\"3.5\" "
                  "font-family=\"'Symbol', Arial, 'Liberation Sans', sans-serif\" font-size=\"4\" "
                  "font-weight=\"bold\" font-style=\"italic\" text-anchor=\"middle\" "
                  "fill=\"#808080\">M16 x 40</text></g>"});
}

TEST(SvgPage, A_text_that_is_set_narrower_is_pressed_with_what_lies_behind_it) {
  TextShape text;
  text.TopLeft = {10, 20};
  text.Text = "ab";
  text.WidthScale = 0.75;
  text.Angle = 90;
  text.Behind = Light;
  const std::string line = SvgOf({text}).front();
  EXPECT_EQ(
      line.rfind("<g transform=\"translate(10 20)rotate(-90)scale(0.75 1)\"><rect x=\"0\"", 0), 0U)
      << line;
}

TEST(SvgPage, A_box_behind_a_text_is_as_wide_as_the_text_to_the_side_it_hangs_on) {
  const PlainFontMetrics metrics;
  TextShape text;
  text.Text = "ab";
  text.Behind = Light;
  text.Ascent = metrics.Ascent(text.Type) / 56.7;
  const double width = metrics.Width(text.Type, "ab") / 56.7;
  const auto leftOf = [&](TextSide side) {
    text.Side = side;
    const std::string line = SvgOf({text}).front();
    const std::size_t at = line.find("<rect x=\"") + 9;
    return std::stod(line.substr(at));
  };
  EXPECT_EQ(leftOf(TextSide::Left), 0);
  EXPECT_NEAR(leftOf(TextSide::Middle), -width / 2, 1e-4);
  EXPECT_NEAR(leftOf(TextSide::Right), -width, 1e-4);
}

TEST(SvgPage, A_clipped_text_shows_in_its_box_alone) {
  TextShape text;
  text.Text = "long";
  text.Clipped = true;
  text.Clip = {1, 2, 3, 4};
  const Lines lines = SvgOf({text, text});
  ASSERT_EQ(lines.size(), 8U);
  EXPECT_EQ(lines[0],
            "<clipPath id=\"clip1\"><rect x=\"1\" y=\"2\" width=\"3\" height=\"4\"/></clipPath>");
  EXPECT_EQ(lines[1], "<g clip-path=\"url(#clip1)\">");
  EXPECT_EQ(lines[3], "</g>");
  EXPECT_EQ(lines[5], "<g clip-path=\"url(#clip2)\">");
}

TEST(SvgPage, What_means_something_to_xml_is_escaped_and_what_it_forbids_is_left_out) {
  TextShape text;
  text.Text = std::string("a&b<c>d\"e\x01\x1f\tf\n\xEF\xBF\xBEg\xC3\xA9", 20);
  text.Type.Name = "\"Sym&'bol";
  const std::string line = SvgOf({text}).front();
  EXPECT_NE(line.find(">a&amp;b&lt;c&gt;d&quot;e f g\xC3\xA9</text>"), std::string::npos) << line;
  EXPECT_NE(line.find("font-family=\"'Sym&amp;bol', Arial"), std::string::npos) << line;
}

TEST(SvgPage, A_picture_is_stretched_into_its_place) {
  auto picture = std::make_shared<Picture>(Picture{30, 20, {}});
  picture->Shapes.emplace_back(LineShape{{0, 0}, {30, 20}, Thick});
  EXPECT_EQ(SvgOf({PictureShape{picture, {5, 6, 10, 40}}}),
            (Lines{"<g transform=\"translate(5 6)scale(0.333333333333333 2)\">",
                   "<path d=\"M0 0L30 20\" fill=\"none\" stroke=\"#ff0010\" stroke-width=\"0.4\"/>",
                   "</g>"}));
  EXPECT_EQ(SvgOf({PictureShape{nullptr, {5, 6, 10, 40}}}), Lines{});
  // One that holds itself ends.
  auto round = std::make_shared<Picture>(Picture{30, 20, {}});
  round->Shapes.emplace_back(PictureShape{round, {0, 0, 30, 20}});
  EXPECT_EQ(SvgOf({PictureShape{round, {0, 0, 30, 20}}}).size(), 16U);
  round->Shapes.clear();
}

}  // namespace
}  // namespace orvane::test
