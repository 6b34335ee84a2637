#include "drawing/primitives.h"

#include <cmath>

#include "core/runtime_error.h"
#include "tests/drawing/sheet_fixture.h"
#include "tests/support/decimal_comma.h"

namespace orvane::test {

namespace {

using Lines = std::vector<std::string>;

class Primitives : public SheetTest {
 protected:
  Primitives() {
    surface.FontSize(7);
    surface.Forget();
  }

  // The points of the head drawn for that angle with its tip at 100 mm, 100 mm: 5670 twips.
  std::string HeadAt100(double angle) {
    surface.Forget();
    DrawArrowHead(surface, angle, 100, 100);
    return LinesOf("Polygon").at(0);
  }

  // The last text written.
  std::string LastText() { return LinesOf("Text").back(); }
};

TEST_F(Primitives, MmText_of_a_tenth_is_0_1mm_and_a_negative_number_keeps_its_sign) {
  EXPECT_EQ(MmText(0.1), "0.1mm");
  EXPECT_EQ(MmText(-7.5), "-7.5mm");
}

TEST_F(Primitives, MmText_rounds_nothing_and_shows_no_noise) {
  EXPECT_EQ(MmText(100.25), "100.25mm");
  EXPECT_EQ(MmText(100), "100mm");
  EXPECT_EQ(MmText(0.1 + 0.2), "0.3mm");
  EXPECT_EQ(MmText(1.0 / 3), "0.333333333333333mm");
  EXPECT_EQ(MmText(-0.0), "0mm");
}

TEST_F(Primitives, Texts_of_lengths_bear_a_point_in_a_land_of_commas) {
  WithDecimalComma(TempPath("locale"), [] {
    EXPECT_EQ(MmText(100.25), "100.25mm");
    EXPECT_EQ(TwipsText(0.5), "28");
  });
}

TEST_F(Primitives, TwipsText_rounds_towards_minus_infinity) {
  EXPECT_EQ(TwipsText(1), "56");      // 56.7
  EXPECT_EQ(TwipsText(0.5), "28");    // 28.35
  EXPECT_EQ(TwipsText(-0.01), "-1");  // -0.567
  EXPECT_EQ(TwipsText(-1), "-57");    // -56.7
  EXPECT_EQ(TwipsText(10), "567");
  EXPECT_EQ(TwipsText(100), "5670");
  EXPECT_EQ(TwipsText(0), "0");
}

TEST_F(Primitives, Whole_twips_are_the_same_as_a_bare_length) {
  EXPECT_EQ(WholeTwips(1).Text(), "56");
  EXPECT_EQ(WholeTwips(-0.01).Text(), "-1");
}

TEST_F(Primitives, Degrees_become_radians_by_the_systems_own_pi) {
  EXPECT_EQ(DegToRad(180), 3.14159265358979);
  EXPECT_EQ(DegToRad(0), 0);
  EXPECT_DOUBLE_EQ(DegToRad(-90), -1.570796326794895);
}

TEST_F(Primitives, A_top_hats_sides_lean_10_degrees) {
  EXPECT_NEAR(TopHatLean(), 0.176326980708465, 1e-14);
}

TEST_F(Primitives, An_arrow_head_is_a_black_triangle_and_leaves_the_brush_transparent_and_white) {
  // Base at 98.9 mm (5607.63), 99.65 mm (5650.155) and 100.35 mm (5689.845).
  DrawArrowHead(surface, 0, 100, 100);
  EXPECT_EQ(surface.Lines(), (Lines{
                                 "BrushStyle 0",
                                 "BrushColor 0,0,0",
                                 "Polygon \"5670 5670 5607 5650 5607 5689 5670 5670\"",
                                 "BrushStyle 1",
                                 "BrushColor 255,255,255",
                             }));
}

TEST_F(Primitives, Arrow_heads_point_right_left_up_and_down) {
  // 98.9 mm: 5607, 101.1 mm: 5732, 99.65 mm: 5650, 100.35 mm: 5689.
  EXPECT_EQ(HeadAt100(0), "Polygon \"5670 5670 5607 5650 5607 5689 5670 5670\"");
  EXPECT_EQ(HeadAt100(Pi), "Polygon \"5670 5670 5732 5689 5732 5650 5670 5670\"");
  EXPECT_EQ(HeadAt100(HalfPi), "Polygon \"5670 5670 5650 5732 5689 5732 5670 5670\"");
  EXPECT_EQ(HeadAt100(ThreeHalfPi), "Polygon \"5670 5670 5689 5607 5650 5607 5670 5670\"");
}

TEST_F(Primitives, An_arrow_head_takes_any_angle) {
  // cos = sin = 0.70711: the base lies 0.77782 mm left and below, the corners 0.24749 mm off:
  // x 98.97469 and 99.46967, y 100.53033 and 101.02531.
  EXPECT_EQ(HeadAt100(Pi / 4), "Polygon \"5670 5670 5611 5700 5639 5728 5670 5670\"");
}

TEST_F(Primitives, Centred_text_stands_in_a_white_box_on_whole_twips) {
  // (100.01, 50.01) mm are 5670 and 2835 whole twips; the text is 140 by 161, half of it 70 and 80.
  DrawCentredText(surface, "65", 100.01, 50.01);
  EXPECT_EQ(surface.Lines(), (Lines{
                                 "BrushStyle 0",
                                 "BrushColor 255,255,255",
                                 "PenColor 255,255,255",
                                 "DrawRectangle 5600 2755 5740 2916",
                                 "CurrentX 5600",
                                 "CurrentY 2755",
                                 "Text \"65\"",
                                 "PenColor 0,0,0",
                             }));
}

TEST_F(Primitives, Centred_text_of_an_odd_width_falls_on_whole_twips_too) {
  surface.FontSize(7.3);  // 73 twips a character, 167.9 high: 168
  surface.Forget();
  DrawCentredText(surface, "x", 1, 2);  // 56 and 113 twips
  EXPECT_EQ(surface.Lines().at(3), "DrawRectangle 20 29 93 197");
}

TEST_F(Primitives, A_dimension_with_one_x_is_vertical) {
  DrawDimension(surface, 100, 100, 100, 110, "37.5");
  EXPECT_EQ(surface.Lines(), (Lines{
                                 "PenWidth 0.1mm",
                                 "DrawLine 100mm 100mm 100mm 110mm",
                                 // Up at the first end.
                                 "BrushStyle 0",
                                 "BrushColor 0,0,0",
                                 "Polygon \"5670 5670 5650 5732 5689 5732 5670 5670\"",
                                 "BrushStyle 1",
                                 "BrushColor 255,255,255",
                                 // Down at the second: 110 mm are 6237, 108.9 mm 6174.63.
                                 "BrushStyle 0",
                                 "BrushColor 0,0,0",
                                 "Polygon \"5670 6237 5689 6174 5650 6174 5670 6237\"",
                                 "BrushStyle 1",
                                 "BrushColor 255,255,255",
                                 // 280 by 161 about 100, 105 mm: 5670, 5953.
                                 "BrushStyle 0",
                                 "BrushColor 255,255,255",
                                 "PenColor 255,255,255",
                                 "DrawRectangle 5530 5873 5810 6034",
                                 "CurrentX 5530",
                                 "CurrentY 5873",
                                 "Text \"37.5\"",
                                 "PenColor 0,0,0",
                             }));
}

TEST_F(Primitives, Any_other_dimension_is_horizontal) {
  DrawDimension(surface, 100, 100, 110, 100, "w");
  EXPECT_EQ(surface.Lines(), (Lines{
                                 "PenWidth 0.1mm",
                                 "DrawLine 100mm 100mm 110mm 100mm",
                                 "BrushStyle 0",
                                 "BrushColor 0,0,0",
                                 "Polygon \"5670 5670 5732 5689 5732 5650 5670 5670\"",
                                 "BrushStyle 1",
                                 "BrushColor 255,255,255",
                                 "BrushStyle 0",
                                 "BrushColor 0,0,0",
                                 "Polygon \"6237 5670 6174 5650 6174 5689 6237 5670\"",
                                 "BrushStyle 1",
                                 "BrushColor 255,255,255",
                                 // 70 by 161 about 105, 100 mm: 5953, 5670.
                                 "BrushStyle 0",
                                 "BrushColor 255,255,255",
                                 "PenColor 255,255,255",
                                 "DrawRectangle 5918 5590 5988 5751",
                                 "CurrentX 5918",
                                 "CurrentY 5590",
                                 "Text \"w\"",
                                 "PenColor 0,0,0",
                             }));
}

TEST_F(Primitives, A_dimension_stands_at_the_height_of_its_first_end) {
  DrawDimension(surface, 100, 100, 110, 120, "w");
  EXPECT_EQ(LinesOf("CurrentY"), Lines{"CurrentY 5590"});
}

TEST_F(Primitives, A_dimension_without_length_is_vertical_and_its_heads_meet) {
  DrawDimension(surface, 100, 100, 100, 100, "0");
  EXPECT_EQ(LinesOf("Polygon"), (Lines{
                                    "Polygon \"5670 5670 5650 5732 5689 5732 5670 5670\"",
                                    "Polygon \"5670 5670 5689 5607 5650 5607 5670 5670\"",
                                }));
}

TEST_F(Primitives, The_smallest_difference_of_x_makes_a_dimension_horizontal) {
  DrawDimension(surface, 100, 50, std::nextafter(100.0, 101.0), 60, "9");
  EXPECT_EQ(LinesOf("Polygon").at(0), "Polygon \"5670 2835 5732 2854 5732 2815 5670 2835\"");
}

TEST_F(Primitives, A_numeric_value_is_shown_as_its_plain_trimmed_text_and_another_as_given) {
  struct Case {
    const char* Given;
    const char* Shown;
  };
  for (const Case& each : {Case{"100", "100"}, Case{"37.5", "37.5"}, Case{" 18 ", "18"},
                           Case{"12.50", "12.5"}, Case{"w", "w"}, Case{" w ", " w "}}) {
    DrawDimension(surface, 0, 0, 10, 0, each.Given);
    EXPECT_EQ(LastText(), "Text \"" + std::string(each.Shown) + "\"");
  }
  DrawDimension(surface, 0, 0, 10, 0, 32.5);
  EXPECT_EQ(LastText(), "Text \"32.5\"");
  DrawDimension(surface, 0, 0, 10, 0, 0.1 + 0.2);
  EXPECT_EQ(LastText(), "Text \"0.3\"");
}

TEST_F(Primitives, A_dashed_line_has_dashes_and_gaps_of_one_length_behind_its_slack) {
  // q = 1000 / 112 = 8.92857..., so eight dashes, and half of 0.92857 steps of slack: 26 twips.
  // The first dash begins half a step behind it, at 54.
  DrawDashedLine(surface, 0, 200, 1000, 200, 56);
  const Lines dashes = LinesOf("DrawLine");
  ASSERT_EQ(dashes.size(), 8U);
  EXPECT_EQ(surface.Lines().size(), 8U);  // in the pen there is
  const double y = 200 + (1000.0 / 112 - 8) / 2;
  for (int at = 0; at < 8; ++at) {
    const std::string from = Length(54.0 + 112 * at).Text();
    const std::string to = Length(110.0 + 112 * at).Text();
    EXPECT_EQ(dashes.at(static_cast<std::size_t>(at)),
              "DrawLine " + from + " " + Length(y).Text() + " " + to + " " + Length(y).Text());
  }
}

TEST_F(Primitives, A_sloping_dashed_line_spreads_its_slack_along_x_only) {
  // From (100, 200) to (400, 600): 500 long. With dashes of 40, q = 6.25: six dashes, f = 0.25;
  // the step is (24, 32), so the start is (100 + 0.25 * 12, 200 + 0.125).
  DrawDashedLine(surface, 100, 200, 400, 600, 40);
  EXPECT_EQ(surface.Lines(), (Lines{
                                 "DrawLine 115 216.125 139 248.125",
                                 "DrawLine 163 280.125 187 312.125",
                                 "DrawLine 211 344.125 235 376.125",
                                 "DrawLine 259 408.125 283 440.125",
                                 "DrawLine 307 472.125 331 504.125",
                                 "DrawLine 355 536.125 379 568.125",
                             }));
}

TEST_F(Primitives, A_dashed_line_may_run_backwards) {
  // q = 2.5: two dashes, f = 0.5; the step is (0, -20), so the start is (50, 100.25).
  DrawDashedLine(surface, 50, 100, 50, 0, 20);
  EXPECT_EQ(surface.Lines(), (Lines{"DrawLine 50 90.25 50 70.25", "DrawLine 50 50.25 50 30.25"}));
}

TEST_F(Primitives, A_dashed_line_shorter_than_twice_the_dash_draws_nothing) {
  DrawDashedLine(surface, 0, 0, 111, 0, 56);
  EXPECT_TRUE(surface.Lines().empty());
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(Primitives, A_dashed_line_without_length_shows_its_error_and_the_sheet_goes_on) {
  DrawDashedLine(surface, 100, 200, 100, 200, 56);
  DrawDashedLine(surface, 0, 0, 1000, 0, 0);
  ASSERT_EQ(desktop.Boxes.size(), 2U);
  for (const ShownBox& box : desktop.Boxes) {
    EXPECT_EQ(box.Text, "Division by zero");
    EXPECT_EQ(box.Title, "");
    EXPECT_EQ(box.Choice, Buttons::Ok);
    EXPECT_EQ(box.Sign, Icon::None);
  }
  EXPECT_TRUE(surface.Lines().empty());
}

TEST_F(Primitives, A_dashed_line_of_more_dashes_than_a_page_can_hold_is_an_overflow) {
  // 32767 dashes at most: with a dash of 1 twip a line of 65,534 twips, and a little.
  DrawDashedLine(surface, 0, 0, 65536, 0, 1);
  DrawDashedLine(surface, 0, 0, 1e300, 0, 1);
  ASSERT_EQ(desktop.Boxes.size(), 2U);
  EXPECT_EQ(desktop.Boxes.at(0).Text, "Overflow");
  EXPECT_EQ(desktop.Boxes.at(1).Text, "Overflow");
  EXPECT_TRUE(surface.Lines().empty());
  DrawDashedLine(surface, 0, 0, 65535, 0, 1);
  EXPECT_EQ(surface.Lines().size(), 32767U);
}

// A surface whose lines fail.
class FailingSurface : public RecordingSurface {
 public:
  using RecordingSurface::RecordingSurface;
  void DrawLine(const Length&, const Length&, const Length&, const Length&) override {
    throw RuntimeError(Failure::DiskFull);
  }
};

TEST_F(Primitives, An_error_of_the_surface_inside_a_dashed_line_is_shown) {
  FailingSurface failing(metrics);
  DrawDashedLine(failing, 0, 0, 1000, 0, 56);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.at(0).Text, DescriptionOf(Failure::DiskFull));
}

TEST_F(Primitives, An_error_of_the_surface_in_any_other_primitive_ends_the_operation) {
  FailingSurface failing(metrics);
  EXPECT_EQ(ErrorOf([&] { DrawDimension(failing, 0, 0, 10, 0, "1"); }),
            DescriptionOf(Failure::DiskFull));
  EXPECT_TRUE(desktop.Boxes.empty());
}

}  // namespace

}  // namespace orvane::test
