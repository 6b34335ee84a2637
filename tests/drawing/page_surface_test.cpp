#include "drawing/page_surface.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "core/model.h"
#include "tests/drawing/page_fixture.h"

namespace {

using namespace orvane;
using orvane::test::ErrorOf;
using orvane::test::Lines;
using orvane::test::PageTest;

// Ten points: a character is 100 twips wide (1.764 mm), a line 230 high (4.056 mm).
class PageSurfaceTest : public PageTest {};

// --- Paper and lengths

TEST_F(PageSurfaceTest, PageWidth_is_the_paper_in_whole_twips_of_the_present_orientation) {
  EXPECT_EQ(surface.PageWidth(), 16840);   // 297 * 56.7 = 16839.9
  EXPECT_EQ(surface.PageHeight(), 11907);  // 210 * 56.7
  surface.Orientation(PageOrientation::Portrait);
  EXPECT_EQ(surface.PageWidth(), 11907);
  EXPECT_EQ(surface.PageHeight(), 16840);

  PageSurface large(metrics, {841, 1189});
  EXPECT_EQ(large.PageWidth(), 67416);   // 1189 * 56.7 = 67416.3, beyond 16 bits
  EXPECT_EQ(large.PageHeight(), 47685);  // 841 * 56.7 = 47684.7
}

TEST_F(PageSurfaceTest, Lengths_in_mm_and_in_twips_meet_at_56_7_twips_to_the_millimetre) {
  surface.DrawLine(Length::OfMm(10), Length::OfMm(20), 1134, 2268);
  surface.DrawLine(Length("10mm"), Length("567"), Length("56.7"), Length("0.5mm"));
  EXPECT_EQ(ShapesOf(1), (Lines{"line 10 20 20 40 pen 0", "line 10 10 1 0.5 pen 0"}));
}

TEST_F(PageSurfaceTest, A_length_without_end_overflows) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nothing = std::numeric_limits<double>::quiet_NaN();
  const auto bad = Length::OfMm(infinity);
  const Length none(nothing);
  const auto picture = std::make_shared<const Picture>(Picture{4, 2, {}});
  const std::vector<std::function<void()>> actions = {
      [&] { surface.MarginLeft(bad); },
      [&] { surface.MarginTop(bad); },
      [&] { surface.MarginRight(bad); },
      [&] { surface.MarginBottom(bad); },
      [&] { surface.MarginFooter(bad); },
      [&] { surface.CurrentX(none); },
      [&] { surface.CurrentY(none); },
      [&] { surface.TextBox("1", 0, 0, bad, 0, true); },
      [&] { surface.PenWidth(none); },
      [&] { surface.DrawLine(0, 0, 0, none); },
      [&] { surface.DrawRectangle(0, 0, bad, 1); },
      [&] { surface.DrawCircle(0, none, 1); },
      [&] { surface.DrawArc(0, 0, 1, nothing, 1); },
      [&] { surface.DrawArc(0, 0, 1, 0, infinity); },
      [&] { surface.DrawEllipse(0, 0, 1, bad); },
      [&] { surface.DrawPicture(picture, bad, 0); },
      [&] { surface.TableIndent(bad); },
  };
  for (std::size_t i = 0; i < actions.size(); ++i) {
    EXPECT_EQ(ErrorOf(actions.at(i)), "Overflow") << i;
  }
}

// --- Text

TEST_F(PageSurfaceTest, A_new_surface_writes_Arial_in_10_points_at_the_margins_in_black) {
  surface.Text("Mark");
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"Mark\" 10 10 10"}));
  const auto& text = std::get<TextShape>(surface.Result().Pages.at(0).Shapes.at(0));
  EXPECT_EQ(text.Type, (Font{"Arial", 10, false, false}));
  EXPECT_EQ(text.Color, Black);
  EXPECT_NEAR(text.Ascent, 3.175, 0.001);  // 0.9 x 200 twips
  EXPECT_FALSE(text.Clipped);
}

TEST_F(PageSurfaceTest, Text_leaves_the_position_at_its_end_on_the_same_line) {
  surface.FontSize(12);
  surface.CurrentX(Length::OfMm(15));
  surface.CurrentY(Length::OfMm(25));
  surface.Text("Mark:  ");  // 7 x 120 = 840 twips = 14.815 mm, the blanks counted
  surface.Text("P1");
  surface.CurrentX(1134);
  surface.Text("Z");
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"Mark:  \" 15 25 12",
                             "text \"P1\" 29.815 25 12",
                             "text \"Z\" 20 25 12",
                         }));
}

TEST_F(PageSurfaceTest, A_line_end_in_a_text_is_a_blank_and_nothing_wraps) {
  surface.Text("a\nb");
  surface.Text("c\r\nd");
  surface.Text("e");
  const std::string wide(300, 'x');
  surface.Text(wide);
  // 3 characters each: 300 twips = 5.291 mm.
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"a b\" 10 10 10",
                             "text \"c d\" 15.291 10 10",
                             "text \"e\" 20.582 10 10",
                             "text \"" + wide + "\" 22.346 10 10",
                         }));
  EXPECT_EQ(surface.TextWidth("c\r\nd"), 300);
}

TEST_F(PageSurfaceTest, An_empty_text_leaves_nothing) {
  surface.StartDoc();
  surface.Text("");
  surface.TextBox("", 0, 0, 567, 567, true);
  EXPECT_EQ(ShapesOf(1), (Lines{"rectangle 0 0 10 10 pen 0"}));
}

TEST_F(PageSurfaceTest, TextWidth_and_TextHeight_are_whole_twips_of_the_present_font) {
  surface.FontSize(7);
  EXPECT_EQ(surface.TextWidth("1200"), 280);
  EXPECT_EQ(surface.TextHeight("1200"), 161);
  surface.FontSize(11);
  EXPECT_EQ(surface.TextHeight(""), 253);
  surface.FontSize(7.25);
  EXPECT_EQ(surface.TextWidth("1"), 72);     // 72.5
  EXPECT_EQ(surface.TextWidth("123"), 218);  // 217.5
  surface.FontSize(10);
  EXPECT_EQ(surface.TextWidth("10\xC2\xBA"), 300);  // three characters
  // Longer than 16 bits reach.
  EXPECT_EQ(surface.TextWidth(std::string(400, 'x')), 40000);
}

TEST_F(PageSurfaceTest, Font_colour_and_weight_hold_for_what_follows) {
  surface.FontName("Courier");
  surface.FontSize(14);
  surface.FontBold(true);
  surface.TextColor(Navy);
  surface.Text("A");
  surface.FontBold(false);
  surface.FontName("Arial");
  surface.TextColor(Black);
  surface.CurrentX(0);
  surface.Text("B");
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"A\" 10 10 14 bold Courier 0,0,128", "text \"B\" 0 10 14"}));
}

// A font of this kind is as high as it is heavy and long in its name.
class UnevenFontMetrics : public PlainFontMetrics {
 public:
  double Height(const Font& font) const override {
    return PlainFontMetrics::Height(font) + (font.Bold ? 50 : 0) +
           static_cast<double>(font.Name.size());
  }
};

TEST_F(PageSurfaceTest, A_font_is_measured_anew_when_any_of_it_changes) {
  const UnevenFontMetrics uneven;
  PageSurface other(uneven);
  EXPECT_EQ(other.TextHeight(""), 235);  // 230, and the letters of "Arial"
  other.FontBold(true);
  EXPECT_EQ(other.TextHeight(""), 285);
  other.FontName("Courier");
  EXPECT_EQ(other.TextHeight(""), 287);
  other.FontSize(20);
  EXPECT_EQ(other.TextHeight(""), 517);  // 460
  other.FontBold(false);
  EXPECT_EQ(other.TextHeight(""), 467);
}

TEST_F(PageSurfaceTest, A_new_document_keeps_the_font) {
  surface.StartDoc();
  surface.FontName("Courier");
  surface.FontSize(7);
  surface.StartDoc();
  surface.Text("A");
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"A\" 10 10 7 Courier"}));
}

TEST_F(PageSurfaceTest, The_position_begins_at_the_margins_set_last) {
  surface.StartDoc();
  surface.MarginLeft(Length::OfMm(20));
  surface.MarginTop(Length::OfMm(30));
  surface.Text("A");
  surface.MarginTop(Length::OfMm(50));  // too late for this page
  surface.Text("B");
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"A\" 20 30 10", "text \"B\" 21.764 30 10"}));
  surface.NewPage();
  surface.Text("C");
  EXPECT_EQ(ShapesOf(2), (Lines{"text \"C\" 20 50 10"}));
}

TEST_F(PageSurfaceTest, TextAlign_moves_neither_Text_nor_TextBox) {
  surface.TextAlign(6);
  surface.Text("A");
  surface.TextBox("B", 567, 1134, 567, 567, true);
  EXPECT_EQ(ShapesOf(1),
            (Lines{"text \"A\" 10 10 10", "rectangle 10 20 10 10 pen 0", "text \"B\" 10 20 10"}));
}

// --- TextBox

TEST_F(PageSurfaceTest, TextBox_is_filled_and_framed_by_brush_and_pen_whatever_its_flag) {
  surface.PenWidth(Length::OfMm(0.1));
  surface.PenColor(White);
  surface.BrushStyle(Brush::Solid);
  surface.BrushColor(White);
  surface.TextBox("75", 567, 1134, 200, 230, true);
  surface.BrushStyle(Brush::Transparent);
  surface.TextBox("76", 567, 1134, 200, 230, false);
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "rectangle 10 20 3.527 4.056 pen 0.1 255,255,255 fill 255,255,255",
                             "text \"75\" 10 20 10",
                             "rectangle 10 20 3.527 4.056 pen 0.1 255,255,255",
                             "text \"76\" 10 20 10",
                         }));
}

// A box 20 mm wide and 10 mm high, turned counter-clockwise about its top left corner. At 90
// degrees it runs up the page; at 30 its width points to (cos 30, -sin 30) = (0.866, -0.5) and its
// height to (0.5, 0.866).
TEST_F(PageSurfaceTest, TextAngle_turns_a_TextBox_counter_clockwise_about_its_top_left_corner) {
  surface.BrushStyle(Brush::Solid);
  surface.TextAngle(900);
  surface.TextBox("A", 5670, 2835, 1134, 567, true);
  surface.TextAngle(300);
  surface.TextBox("B", 5670, 2835, 1134, 567, true);
  surface.TextAngle(-900);
  surface.TextBox("C", 5670, 2835, 1134, 567, true);
  const std::string look = " pen 0 fill 255,255,255";
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "polygon 100,50 100,30 110,30 110,50" + look,
                             "text \"A\" 100 50 10 angle 90",
                             "polygon 100,50 117.321,40 122.321,48.66 105,58.66" + look,
                             "text \"B\" 100 50 10 angle 30",
                             "polygon 100,50 100,70 90,70 90,50" + look,
                             "text \"C\" 100 50 10 angle -90",
                         }));
}

TEST_F(PageSurfaceTest, TextAngle_stays_until_it_is_changed_and_leaves_Text_level) {
  surface.TextAngle(125);
  surface.Text("A");
  surface.TextBox("B", 0, 0, 567, 567, true);
  surface.TextAngle(0);
  surface.TextBox("C", 0, 0, 567, 567, true);
  EXPECT_EQ(ShapesOf(1, "text"), (Lines{
                                     "text \"A\" 10 10 10",
                                     "text \"B\" 0 0 10 angle 12.5",
                                     "text \"C\" 0 0 10",
                                 }));
  EXPECT_EQ(ShapesOf(1, "rectangle").size(), 1U);
}

// --- Pen and brush

TEST_F(PageSurfaceTest, Pen_width_and_colour_hold_for_what_follows) {
  surface.PenWidth(Length::OfMm(0.4));
  surface.PenStyle(0);
  surface.DrawLine(0, 0, 567, 0);
  surface.PenColor(White);
  surface.PenWidth(5.67);
  surface.DrawLine(0, 0, 567, 0);
  surface.PenWidth(Length::OfMm(-1));
  surface.DrawLine(0, 0, 567, 0);
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "line 0 0 10 0 pen 0.4",
                             "line 0 0 10 0 pen 0.1 255,255,255",
                             "line 0 0 10 0 pen 0 255,255,255",
                         }));
}

TEST_F(PageSurfaceTest, A_line_without_length_leaves_nothing) {
  surface.StartDoc();
  surface.DrawLine(567, 567, Length::OfMm(10), Length::OfMm(10));
  EXPECT_EQ(ShapesOf(1), Lines{});
}

TEST_F(PageSurfaceTest, Closed_shapes_are_open_filled_or_hatched) {
  surface.PenWidth(Length::OfMm(0.1));
  surface.BrushColor(Grey);
  surface.BrushStyle(Brush::Transparent);
  surface.DrawRectangle(0, 0, 567, 1134);
  surface.BrushStyle(Brush::Solid);
  surface.DrawRectangle(0, 0, 567, 1134);
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "rectangle 0 0 10 20 pen 0.1",
                             "rectangle 0 0 10 20 pen 0.1 fill 128,128,128",
                         }));

  // Lines every half millimetre at 45 degrees, in the colour of the brush, then the outline without
  // a fill: over the box 10..12, 10..11 those of x + y = k * 0.7071 for k = 29 to 32.
  surface.StartDoc();
  surface.PenWidth(Length::OfMm(0.4));
  surface.BrushStyle(Brush::DiagonalHatch);
  surface.DrawRectangle(567, 567, Length::OfMm(12), Length::OfMm(11));
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "line 10 10.506 10.506 10 pen 0.1 128,128,128",
                             "line 10.213 11 11.213 10 pen 0.1 128,128,128",
                             "line 10.92 11 11.92 10 pen 0.1 128,128,128",
                             "line 11.627 11 12 10.627 pen 0.1 128,128,128",
                             "rectangle 10 10 2 1 pen 0.4",
                         }));
}

TEST_F(PageSurfaceTest, Every_closed_shape_can_be_hatched) {
  const auto hatchedBy = [&](const std::function<void()>& draw) {
    surface.StartDoc();
    draw();
    const Lines shapes = ShapesOf(1);
    EXPECT_GT(shapes.size(), 3U);
    for (std::size_t i = 0; i + 1 < shapes.size(); ++i) {
      EXPECT_EQ(shapes.at(i).rfind("line ", 0), 0U) << shapes.at(i);
    }
    return shapes.back();
  };
  surface.BrushStyle(Brush::DiagonalHatch);
  EXPECT_EQ(hatchedBy([&] { surface.DrawCircle(567, 567, 113.4); }), "ellipse 8 8 4 4 pen 0");
  EXPECT_EQ(hatchedBy([&] { surface.DrawEllipse(567, 567, 680.4, 737.1); }),
            "ellipse 10 10 2 3 pen 0");
  EXPECT_EQ(hatchedBy([&] { surface.DrawArc(567, 567, 113.4, HalfPi, ThreeHalfPi); }),
            "arc 8 8 4 4 from 90 span 180 pen 0");
  EXPECT_EQ(hatchedBy([&] { surface.Polygon("0 0 567 0 0 567"); }), "polygon 0,0 10,0 0,10 pen 0");
  surface.TextAngle(900);
  EXPECT_EQ(hatchedBy([&] { surface.TextBox("", 567, 567, 567, 567, true); }),
            "polygon 10,10 10,0 20,0 20,10 pen 0");
}

// --- Shapes

TEST_F(PageSurfaceTest, Corners_may_come_in_any_order) {
  surface.DrawRectangle(1134, 1701, 567, 567);
  surface.DrawEllipse(1134, 567, 567, 1701);
  EXPECT_EQ(ShapesOf(1), (Lines{"rectangle 10 10 10 20 pen 0", "ellipse 10 10 10 20 pen 0"}));
}

TEST_F(PageSurfaceTest, A_circle_stands_around_its_centre_and_none_without_a_radius) {
  surface.StartDoc();
  surface.BrushStyle(Brush::Solid);
  surface.BrushColor(Grey);
  surface.DrawCircle(Length::OfMm(50), Length::OfMm(40), Length::OfMm(0.7));
  surface.DrawCircle(Length::OfMm(50), Length::OfMm(40), 0);
  surface.DrawArc(Length::OfMm(50), Length::OfMm(40), 0, 0, 1);
  surface.DrawEllipse(567, 567, 567, 567);
  EXPECT_EQ(ShapesOf(1), (Lines{"ellipse 49.3 39.3 1.4 1.4 pen 0 fill 128,128,128"}));
}

// Counter-clockwise from the X axis as seen on the page: from straight up over the left to straight
// down is the left half; the other way round runs through 0.
TEST_F(PageSurfaceTest, An_arc_runs_counter_clockwise_from_its_start_to_its_end) {
  struct Case {
    double Start;
    double End;
    std::string Degrees;
  };
  const std::vector<Case> cases = {
      {HalfPi, ThreeHalfPi, "from 90 span 180"},
      {ThreeHalfPi, HalfPi, "from 270 span 180"},
      {0, Pi / 6, "from 0 span 30"},
      {Pi / 6, 0, "from 30 span 330"},
      {0, 0, "from 0 span 360"},
      {-HalfPi, HalfPi, "from -90 span 180"},
      {0, 5 * Pi, "from 0 span 360"},
  };
  for (const Case& c : cases) {
    surface.StartDoc();
    surface.DrawArc(Length::OfMm(50), Length::OfMm(40), Length::OfMm(4), c.Start, c.End);
    EXPECT_EQ(ShapesOf(1), (Lines{"arc 46 36 8 8 " + c.Degrees + " pen 0"}));
  }
}

TEST_F(PageSurfaceTest, An_arc_with_a_solid_brush_fills_its_half_disc_and_strokes_the_arc_alone) {
  surface.BrushStyle(Brush::Solid);
  surface.BrushColor(Grey);
  surface.DrawArc(Length::OfMm(50), Length::OfMm(40), Length::OfMm(0.7), HalfPi, ThreeHalfPi);
  const auto& arc = std::get<ArcShape>(surface.Result().Pages.at(0).Shapes.at(0));
  EXPECT_FALSE(arc.Pie);
  EXPECT_FALSE(arc.StrokeAll);
  EXPECT_EQ(arc.Inside, (Fill{true, Grey}));
}

TEST_F(PageSurfaceTest, A_polygon_closes_by_itself) {
  surface.BrushStyle(Brush::Solid);
  surface.BrushColor(Black);
  surface.Polygon("567 567 504 587 504 547 567 567");  // an arrow head: tip, corners, tip
  surface.Polygon("  0 0   567 0  567 567 0 -283.5 ");
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "polygon 10,10 8.889,10.353 8.889,9.647 pen 0 fill 0,0,0",
                             "polygon 0,0 10,0 10,10 0,-5 pen 0 fill 0,0,0",
                         }));
  const auto& polygon = std::get<PolygonShape>(surface.Result().Pages.at(0).Shapes.at(0));
  EXPECT_TRUE(polygon.Closed);
}

TEST_F(PageSurfaceTest, A_polygon_of_bad_numbers_is_a_type_mismatch_and_a_point_is_none) {
  surface.StartDoc();
  for (const char* text : {"1 2 3", "1 2 x 4", "1mm 2mm 3mm 4mm", "1,2 3,4"}) {
    EXPECT_EQ(ErrorOf([&] { surface.Polygon(text); }), "Type mismatch") << text;
  }
  for (const char* text : {"", "  ", "567 567", "567 567 567 567"}) surface.Polygon(text);
  EXPECT_EQ(ShapesOf(1), Lines{});
}

TEST_F(PageSurfaceTest, A_picture_stands_at_its_natural_size_or_stretched) {
  const auto picture = std::make_shared<const Picture>(Picture{40, 18, {}});
  surface.StartDoc();
  surface.DrawPicture(picture, Length::OfMm(20), Length::OfMm(170));
  surface.DrawPicture(picture, Length::OfMm(160), Length::OfMm(125), Length::OfMm(75),
                      Length::OfMm(33.75));
  surface.DrawPicture(nullptr, 0, 0);
  surface.DrawPicture(nullptr, 0, 0, 567, 567);
  surface.DrawPicture(picture, 0, 0, 0, 567);
  EXPECT_EQ(ShapesOf(1), (Lines{"picture 20 170 40 18", "picture 160 125 75 33.75"}));
  const auto& shape = std::get<PictureShape>(surface.Result().Pages.at(0).Shapes.at(0));
  EXPECT_EQ(shape.Content, picture);
}

}  // namespace
