#include <array>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "drawing/hole_drawing.h"
#include "tests/drawing/elevation_fixture.h"

namespace orvane {
namespace {

using test::HoleOn;

std::string Mm(double number) {
  return " " + ShortestText(number) + "mm";
}

// Marks alone: holes with a drawn gap of 100, so that they stand at 55 + 0.1 * 100 = 65 mm, and
// without a true gap, so that no dimension follows.
class HoleMarksTest : public test::ElevationTest {
 protected:
  std::string Drawn(Hole hole) {
    hole.DrawGap = 100;
    Sheet sheet = TheSheet();
    DrawHole(sheet, 0, hole);
    return Taken();
  }

  const std::string pen = "PenWidth 0.1mm\nPenStyle 0\nPenColor 0,0,0\n";

  // A flange hole of 18 mm reaches 18 * 0.1 = 1.8 mm to both sides.
  static std::string Flange(double y) {
    return "BrushStyle 7\nBrushColor 0,0,0\nDrawRectangle 63.2mm" + Mm(y - 0.75) + " 66.8mm" +
           Mm(y + 0.75) + "\nBrushColor 255,255,255\n";
  }
  static std::string CentreLines(double y) {
    return "BrushColor 255,255,255\nBrushStyle 1\n"
           "DrawLine 65mm" +
           Mm(y - 1.5) + " 65mm" + Mm(y + 1.5) + "\nDrawLine 63.5mm" + Mm(y) + " 66.5mm" + Mm(y) +
           "\n";
  }
  // A web hole of 18 mm has a radius of 0.1 * 18 / 2 = 0.9 mm.
  static std::string Web(double y) {
    return "BrushColor 255,255,255\nBrushStyle 1\nDrawCircle 65mm" + Mm(y) + " 0.9mm\n" +
           CentreLines(y);
  }
  // On the slope it is seen tan(10 degrees) = 0.176326980708465 times as high.
  static std::string Slope(double y) {
    return "BrushColor 255,255,255\nBrushStyle 1\nDrawEllipse 64.1mm" +
           Mm(y - 0.9 * 0.176326980708465) + " 65.9mm" + Mm(y + 0.9 * 0.176326980708465) + "\n" +
           CentreLines(y);
  }
};

TEST_F(HoleMarksTest, Each_line_of_each_family_has_its_mark_and_height) {
  struct Case {
    std::vector<std::string> Families;
    std::string Hole::*Line;
    std::string Text;
    std::string (*Mark)(double y);
    double Y;  // 0.1 * (D - h) + 100
  };
  const std::vector<std::string> most = {"Z", "C", "E"};
  // The drawn depth of the top hat is 60 + 20 + 25 + 2 * 50 * 0.176326980708465 =
  // 122.6326980708465, less whole heights.
  const std::array<Case, 32> cases = {{
      // D 140. h: 0, Dim11, D - Dim9, D; for numbers 0, 30, 30, D.
      {most, &Hole::BF, "y", Flange, 114},
      {most, &Hole::W1, "y", Web, 110},
      {most, &Hole::W2, "y", Web, 104.5},
      {most, &Hole::TF, "y", Flange, 100},
      {most, &Hole::BF, "30", Flange, 114},
      {most, &Hole::W1, "30", Web, 111},
      {most, &Hole::W2, "30", Web, 111},
      {most, &Hole::TF, "30", Flange, 100},
      // D 100, also where the elevation is only 60 high.
      {{"V"}, &Hole::BF, "y", Flange, 110},
      {{"V"}, &Hole::W1, "y", Web, 106.2},
      {{"V"}, &Hole::W2, "y", Web, 103.5},
      {{"V"}, &Hole::TF, "y", Flange, 100},
      {{"V"}, &Hole::BF, "30", Flange, 110},
      {{"V"}, &Hole::W1, "30", Web, 107},
      {{"V"}, &Hole::W2, "30", Web, 107},
      {{"V"}, &Hole::TF, "30", Flange, 100},
      // D 150; TF is a web hole: h Dim11, or the number.
      {{"R"}, &Hole::BF, "y", Flange, 115},
      {{"R"}, &Hole::W1, "y", Web, 111},
      {{"R"}, &Hole::W2, "y", Web, 104.5},
      {{"R"}, &Hole::TF, "y", Web, 111},
      {{"R"}, &Hole::BF, "30", Flange, 115},
      {{"R"}, &Hole::W1, "30", Web, 112},
      {{"R"}, &Hole::W2, "30", Web, 112},
      {{"R"}, &Hole::TF, "30", Web, 112},
      // h: Dim9 = 30; t * 50 / 2 + 20 = 24.4, so 24; D - 25 - t * 80 / 2 = 90.58, so 91, by the
      // bottom flange's column; D - Dim9 = 92.63, so 93. Numbers as most.
      {{"T"}, &Hole::BF, "y", Web, 109.26326980708465},
      {{"T"}, &Hole::W1, "y", Slope, 109.86326980708465},
      {{"T"}, &Hole::W2, "y", Slope, 103.16326980708465},
      {{"T"}, &Hole::TF, "y", Web, 102.96326980708465},
      {{"T"}, &Hole::BF, "30", Flange, 112.26326980708465},
      {{"T"}, &Hole::W1, "30", Web, 109.26326980708465},
      {{"T"}, &Hole::W2, "30", Web, 109.26326980708465},
      // h = whole(D) = 123, above the drawn depth.
      {{"T"}, &Hole::TF, "30", Flange, 99.96326980708465},
  }};
  for (const Case& one : cases) {
    for (const std::string& family : one.Families) {
      MakeSection(family);
      Hole hole = HoleOn("n", "n", "n", "n");
      hole.*one.Line = one.Text;
      SCOPED_TRACE(family + ": " + hole.BF + " " + hole.W1 + " " + hole.W2 + " " + hole.TF);
      test::ExpectNear(Drawn(hole), pen + one.Mark(one.Y));
    }
  }
}

TEST_F(HoleMarksTest, A_row_with_all_lines_has_four_marks_in_their_order) {
  EXPECT_EQ(Drawn(HoleOn("y", "y", "y", "y")),
            pen + Flange(114) + Web(110) + Web(104.5) + Flange(100));
}

TEST_F(HoleMarksTest, Standard_lines_come_before_numbers) {
  // BF and W2 are numbers: the standard web hole and top flange hole are drawn before them, and the
  // number on the bottom flange falls at the height that the top flange hole left.
  EXPECT_EQ(Drawn(HoleOn("30", "y", "60", "y")),
            pen + Web(110) + Flange(100) + Flange(100) + Web(108));
}

TEST_F(HoleMarksTest, Numbers_are_read_by_their_beginning_and_count_above_zero_alone) {
  EXPECT_EQ(Drawn(HoleOn("n", "60mm", "n", "n")), pen + Web(108));
  EXPECT_EQ(Drawn(HoleOn("n", "0.5", "n", "n")), pen + Web(114));  // a height of 0
  EXPECT_EQ(Drawn(HoleOn("0", "-5", "inf", "nan")), pen);
  EXPECT_EQ(Drawn(HoleOn("Y", "", " ", "n")), pen);
}

TEST_F(HoleMarksTest, Heights_are_whole_with_halves_to_the_even_neighbour) {
  dim.Dim11 = 36.5;
  EXPECT_EQ(Drawn(HoleOn("n", "y", "n", "n")), pen + Web(110.4));  // 36
  dim.Dim11 = 37.5;
  EXPECT_EQ(Drawn(HoleOn("n", "y", "n", "n")), pen + Web(110.2));  // 38
  EXPECT_EQ(Drawn(HoleOn("n", "36.5", "n", "n")), pen + Web(110.4));
}

TEST_F(HoleMarksTest, A_height_beyond_16_bits_is_an_overflow) {
  EXPECT_EQ(test::ErrorOf([&] { Drawn(HoleOn("n", "40000", "n", "n")); }), "Overflow");
}

TEST_F(HoleMarksTest, A_web_hole_of_14_mm_is_filled_grey) {
  EXPECT_EQ(Drawn(HoleOn("n", "y", "n", "n", 14)),
            pen + "BrushColor 128,128,128\nBrushStyle 0\nDrawCircle 65mm 110mm 0.7mm\n" +
                CentreLines(110));
}

TEST_F(HoleMarksTest, Any_other_diameter_is_open) {
  EXPECT_EQ(Drawn(HoleOn("n", "y", "n", "n", 14.5F)),
            pen + "BrushColor 255,255,255\nBrushStyle 1\nDrawCircle 65mm 110mm 0.725mm\n" +
                CentreLines(110));
  EXPECT_EQ(
      Drawn(HoleOn("n", "y", "n", "n", 0)),
      pen + "BrushColor 255,255,255\nBrushStyle 1\nDrawCircle 65mm 110mm 0mm\n" + CentreLines(110));
}

TEST_F(HoleMarksTest, A_slot_is_two_half_circles_joined_by_two_lines) {
  // 28 by 18: arc centres 5 mm of the section to both sides of 100, ends 14 mm.
  const std::string shape =
      "DrawArc 64.5mm 110mm 0.9mm 1.5707963267949 4.71238898038468\n"
      "DrawArc 65.5mm 110mm 0.9mm 4.71238898038468 1.5707963267949\n"
      "DrawLine 64.5mm 109.1mm 65.5mm 109.1mm\n"
      "DrawLine 64.5mm 110.9mm 65.5mm 110.9mm\n"
      "BrushColor 255,255,255\nBrushStyle 1\n"
      "DrawLine 65mm 108.5mm 65mm 111.5mm\n"
      "DrawLine 62.1mm 110mm 67.9mm 110mm\n";
  test::ExpectNear(Drawn(HoleOn("n", "y", "n", "n", 18, 28)),
                   pen + "BrushColor 255,255,255\nBrushStyle 1\n" + shape);
}

TEST_F(HoleMarksTest, A_slot_of_14_mm_is_filled_grey) {
  // 22 by 14: arc centres 4 mm to both sides, ends 11 mm.
  test::ExpectNear(Drawn(HoleOn("n", "n", "y", "n", 14, 22)),
                   pen +
                       "BrushColor 128,128,128\nBrushStyle 0\n"
                       "DrawArc 64.6mm 104.5mm 0.7mm 1.5707963267949 4.71238898038468\n"
                       "DrawArc 65.4mm 104.5mm 0.7mm 4.71238898038468 1.5707963267949\n"
                       "DrawLine 64.6mm 103.8mm 65.4mm 103.8mm\n"
                       "DrawLine 64.6mm 105.2mm 65.4mm 105.2mm\n"
                       "BrushColor 255,255,255\nBrushStyle 1\n"
                       "DrawLine 65mm 103mm 65mm 106mm\n"
                       "DrawLine 62.4mm 104.5mm 67.6mm 104.5mm\n");
}

TEST_F(HoleMarksTest, A_slot_on_a_flange_reaches_its_diameter_and_half_its_length) {
  // 18 + 28 / 2 = 32 mm of the section to both sides.
  EXPECT_EQ(Drawn(HoleOn("n", "n", "n", "y", 18, 28)),
            pen +
                "BrushStyle 7\nBrushColor 0,0,0\nDrawRectangle 61.8mm 99.25mm 68.2mm 100.75mm\n"
                "BrushColor 255,255,255\n");
}

TEST_F(HoleMarksTest, A_sloping_hole_of_14_mm_is_filled_grey) {
  MakeSection("T");
  const double y = 109.86326980708465;
  test::ExpectNear(Drawn(HoleOn("n", "y", "n", "n", 14)),
                   pen + "BrushColor 128,128,128\nBrushStyle 0\nDrawEllipse 64.3mm" +
                       Mm(y - 0.7 * 0.176326980708465) + " 65.7mm" +
                       Mm(y + 0.7 * 0.176326980708465) + "\n" + CentreLines(y));
}

TEST_F(HoleMarksTest, A_countersunk_hole_bears_a_cross) {
  Hole hole = HoleOn("n", "y", "n", "n");
  hole.CounterSunk = "*";
  EXPECT_EQ(Drawn(hole), pen + Web(110) +
                             "DrawLine 63.9mm 108.9mm 66.1mm 111.1mm\n"
                             "DrawLine 63.9mm 111.1mm 66.1mm 108.9mm\n");
  hole.CounterSunk = " ";
  EXPECT_EQ(Drawn(hole), pen + Web(110));
}

TEST_F(HoleMarksTest, A_countersunk_sloping_hole_bears_a_cross_and_a_flange_hole_none) {
  MakeSection("T");
  Hole hole = HoleOn("30", "y", "n", "n");
  hole.CounterSunk = "*";
  const double y = 109.86326980708465;
  // The number on the bottom flange stands at the height 24 that the slope left.
  test::ExpectNear(Drawn(hole), pen + Slope(y) + "DrawLine 63.9mm" + Mm(y - 1.1) + " 66.1mm" +
                                    Mm(y + 1.1) + "\nDrawLine 63.9mm" + Mm(y + 1.1) + " 66.1mm" +
                                    Mm(y - 1.1) + "\n" + Flange(y));
}

TEST_F(HoleMarksTest, DrawHole_gives_the_running_position_behind_the_gap) {
  Hole hole = HoleOn("n", "y", "n", "n");
  hole.DrawGap = 250.5;
  Sheet sheet = TheSheet();
  EXPECT_EQ(DrawHole(sheet, 400, hole), 650.5);
  EXPECT_EQ(LinesOf("DrawCircle"), std::vector<std::string>{"DrawCircle 120.05mm 110mm 0.9mm"});
}

TEST_F(HoleMarksTest, DrawHole_gives_it_for_a_hole_without_a_mark_too_and_draws_no_gap) {
  Hole hole = HoleOn("n", "n", "n", "n");
  hole.DrawGap = hole.RelX = 250;
  Sheet sheet = TheSheet();
  sheet.HoleLabelRow = 5;
  EXPECT_EQ(DrawHole(sheet, 400, hole), 650);
  EXPECT_EQ(Taken(), pen);
  EXPECT_EQ(sheet.HoleLabelRow, 5);
}

TEST_F(HoleMarksTest, DrawHole_draws_at_the_scale_of_its_sheet) {
  // 228 mm of room for 4560: 1:20.
  MakeSection("Z", 4560);
  Hole hole = HoleOn("n", "y", "n", "n");
  hole.DrawGap = 100;
  Sheet sheet = TheSheet();
  DrawHole(sheet, 0, hole);
  EXPECT_EQ(LinesOf("DrawCircle"), std::vector<std::string>{"DrawCircle 60mm 110mm 0.9mm"});
}

}  // namespace
}  // namespace orvane
