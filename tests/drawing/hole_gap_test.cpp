#include <array>
#include <string>
#include <string_view>

#include "drawing/hole_drawing.h"
#include "tests/drawing/elevation_fixture.h"

namespace orvane {
namespace {

using test::HoleOn;
using test::Placed;

// The Z section's views end at 114 mm: extension lines reach from 116 to 122, the row of dimensions
// stands at 120, the one below it at 124.
class HoleGapTest : public test::ElevationTest {
 protected:
  std::string Drawn(std::int16_t XPos, double RelX, double DrawGap, double running,
                    std::int16_t labelRow = 1) {
    nextRow = DrawHoleGap(TheSheet(), labelRow, running,
                          Placed(HoleOn("n", "y", "n", "n"), XPos, RelX, DrawGap));
    return Taken();
  }

  int nextRow = 0;
  const std::string state =
      "FontName \"Arial\"\nFontSize 7\nPenWidth 0.1mm\nPenStyle 0\nPenColor 0,0,0\n";
};

TEST_F(HoleGapTest, A_first_gap_is_recorded_line_by_line) {
  // From 55 to 55 + 0.1 * 500 = 105 mm; "500" is 210 twips wide and 161 high, centred on 80 mm and
  // 120 mm: 4536 and 6804 twips. The total stands at 105 mm and 124.5 mm: 5953.5 and 7059.15.
  EXPECT_EQ(Drawn(500, 500, 500, 0), state +
                                         "DrawLine 55mm 116mm 55mm 122mm\n"
                                         "DrawLine 105mm 116mm 105mm 122mm\n"
                                         "DrawLine 55mm 120mm 105mm 120mm\n"
                                         "BrushStyle 0\n"
                                         "BrushColor 255,255,255\n"
                                         "PenColor 255,255,255\n"
                                         "DrawRectangle 4431 6724 4641 6885\n"
                                         "CurrentX 4431\n"
                                         "CurrentY 6724\n"
                                         "Text \"500\"\n"
                                         "PenColor 0,0,0\n"
                                         "BrushStyle 0\n"
                                         "BrushColor 255,255,255\n"
                                         "PenColor 255,255,255\n"
                                         "DrawRectangle 5848 6979 6058 7140\n"
                                         "CurrentX 5848\n"
                                         "CurrentY 6979\n"
                                         "Text \"500\"\n"
                                         "PenColor 0,0,0\n");
  EXPECT_EQ(nextRow, 2);
}

TEST_F(HoleGapTest, A_value_stands_on_the_line_alone_or_below_as_its_gap_allows) {
  struct Case {
    double DrawGap;
    double X2;
    double Middle;
    double Row;
    bool Line;
  };
  // "100" is 210 / 56.7 = 3.7037 mm wide; twice that is 7.4074.
  const std::array<Case, 4> cases = {{
      {37, 68.7, 66.85, 124, false},  // 3.7: too narrow
      {38, 68.8, 66.9, 120, false},   // 3.8: fits
      {74, 72.4, 68.7, 120, false},   // 7.4: just under twice the width
      {75, 72.5, 68.75, 120, true},   // 7.5: room for a line
  }};
  for (const Case& one : cases) {
    const std::string x2 = " " + ShortestText(one.X2) + "mm ";
    std::string expected = state + "DrawLine" + x2 + "116mm" + x2 + "122mm\n";
    if (one.Line) expected += "DrawLine 65mm 120mm" + x2 + "120mm\n";
    expected += Centred("100", one.Middle, one.Row) + Centred("200", one.X2, one.Row + 4.5);
    test::ExpectNear(Drawn(200, 100, one.DrawGap, 100), expected);
  }
}

// Every text is 10 mm wide.
class TenMmMetrics : public PlainFontMetrics {
 public:
  double Width(const Font&, std::string_view) const override { return 567; }
};

TEST_F(HoleGapTest, A_value_as_wide_as_its_gap_keeps_its_row_and_half_the_gap_is_room_for_a_line) {
  const TenMmMetrics tenMm;
  struct Case {
    double DrawGap;
    int Lines;  // extension lines included
    std::string Top;
  };
  // Tops of the values' boxes: 120 mm are 6804 twips, 124 mm are 7030 whole ones, less 80.
  const std::array<Case, 4> cases = {{
      {99, 1, "6950"},   // 9.9 mm, less than the width
      {100, 1, "6724"},  // 10 mm, the width
      {199, 1, "6724"},  // half of it is less than the width
      {200, 2, "6724"},  // half of it is the width
  }};
  for (const Case& one : cases) {
    RecordingSurface wide(tenMm);
    DrawHoleGap(TheSheet(wide), 1, 100,
                Placed(HoleOn("n", "y", "n", "n"), 100, one.DrawGap, one.DrawGap));
    int lines = 0;
    std::string top;
    for (const std::string& line : wide.Lines()) {
      if (line.rfind("DrawLine", 0) == 0) ++lines;
      if (line.rfind("CurrentY ", 0) == 0) top = line.substr(9);
    }
    EXPECT_EQ(lines, one.Lines) << one.DrawGap;
    EXPECT_EQ(top, one.Top) << one.DrawGap;
  }
}

TEST_F(HoleGapTest, The_value_is_the_true_gap_with_halves_away_from_zero) {
  // 32.5 mm true, drawn 100 wide.
  EXPECT_EQ(Drawn(600, 32.5, 100, 600), state +
                                            "DrawLine 125mm 116mm 125mm 122mm\n"
                                            "DrawLine 115mm 120mm 125mm 120mm\n" +
                                            Centred("33", 120, 120));
}

TEST_F(HoleGapTest, A_hole_without_a_true_gap_has_no_dimension) {
  EXPECT_EQ(Drawn(500, 0, 40, 0, 3), "");
  EXPECT_EQ(nextRow, 3);
}

TEST_F(HoleGapTest, The_elevations_end_is_drawn_with_the_gap_that_begins_there) {
  const std::string first = "DrawLine 55mm 116mm 55mm 122mm\n";
  EXPECT_NE(Drawn(500, 500, 500, 0).find(first), std::string::npos);
  EXPECT_EQ(Drawn(500, 400, 400, 100).find(first), std::string::npos);
}

TEST_F(HoleGapTest, The_total_stands_in_the_row_that_the_label_row_tells) {
  const std::string gap = state +
                          "DrawLine 115mm 116mm 115mm 122mm\n"
                          "DrawLine 95mm 120mm 115mm 120mm\n" +
                          Centred("200", 105, 120);
  EXPECT_EQ(Drawn(600, 200, 200, 400, 1), gap + Centred("600", 115, 124.5));
  EXPECT_EQ(nextRow, 2);
  EXPECT_EQ(Drawn(600, 200, 200, 400, 2), gap + Centred("600", 115, 128));
  EXPECT_EQ(nextRow, 3);
}

TEST_F(HoleGapTest, The_total_of_a_value_below_the_row_stands_below_that) {
  // 3 mm of room for "100": the value at 124, the total at 124 + 4.5 or 124 + 8.
  const std::string gap = state + "DrawLine 98mm 116mm 98mm 122mm\n" + Centred("100", 96.5, 124);
  test::ExpectNear(Drawn(500, 100, 30, 400, 1), gap + Centred("500", 98, 128.5));
  test::ExpectNear(Drawn(500, 100, 30, 400, 2), gap + Centred("500", 98, 132));
}

TEST_F(HoleGapTest, A_gap_that_begins_at_the_holes_own_position_has_no_total) {
  EXPECT_EQ(Drawn(400, 200, 200, 400, 2), state +
                                              "DrawLine 115mm 116mm 115mm 122mm\n"
                                              "DrawLine 95mm 120mm 115mm 120mm\n" +
                                              Centred("200", 105, 120));
  EXPECT_EQ(nextRow, 2);
}

TEST_F(HoleGapTest, The_chain_has_no_arrow_heads) {
  Drawn(500, 500, 500, 0);
  DrawHoleGap(TheSheet(), 1, 0, Placed(HoleOn("n", "y", "n", "n"), 500, 500, 500));
  EXPECT_TRUE(LinesOf("Polygon").empty());
  EXPECT_EQ(LinesOf("DrawLine").size(), 3U);
}

TEST_F(HoleGapTest, The_chain_hangs_below_the_view_of_each_family) {
  struct Case {
    const char* Family;
    std::string Line;
  };
  // The bottom of the view and 2 to 8 mm: V by its strip of 60, T by its overall depth.
  const std::array<Case, 4> cases = {{
      {"C", "DrawLine 105mm 116mm 105mm 122mm"},
      {"V", "DrawLine 105mm 108mm 105mm 114mm"},
      {"R", "DrawLine 105mm 117mm 105mm 123mm"},
      {"T", "DrawLine 105mm 114.263269807085mm 105mm 120.263269807085mm"},
  }};
  for (const Case& one : cases) {
    MakeSection(one.Family);
    DrawHoleGap(TheSheet(), 1, 200, Placed(HoleOn("n", "y", "n", "n"), 500, 300, 300));
    EXPECT_EQ(LinesOf("DrawLine").front(), one.Line) << one.Family;
    surface.Forget();
  }
}

TEST_F(HoleGapTest, A_label_row_beyond_16_bits_is_an_overflow) {
  EXPECT_EQ(test::ErrorOf([&] { Drawn(500, 500, 500, 0, 32767); }), "Overflow");
}

TEST(IsOddTest, Tells_odd_from_even) {
  EXPECT_TRUE(IsOdd(1));
  EXPECT_FALSE(IsOdd(2));
  EXPECT_TRUE(IsOdd(3));
  EXPECT_FALSE(IsOdd(4));
  EXPECT_FALSE(IsOdd(0));
  EXPECT_TRUE(IsOdd(32767));
}

}  // namespace
}  // namespace orvane
