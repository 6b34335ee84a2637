#include "drawing/notches_and_mitres.h"

#include <string>
#include <vector>

#include "core/numbers.h"
#include "tests/drawing/elevation_fixture.h"

namespace orvane {
namespace {

using Lines = std::vector<std::string>;

// A Z section of 2000 mm at 1:10, from 55 to 255 mm and from 100 down to 114 mm.
class NotchesTest : public test::ElevationTest {
 protected:
  void Add(const std::string& code, float size1, float size2, float size3 = 0) {
    TheItem().Notches.Append({code, size1, size2, size3});
  }

  std::string Drawn() {
    DrawNotchesAndMitres(TheSheet());
    return Taken();
  }

  // A notch of the code, 40 deep, 200 wide, at 50: on paper 4, 20 and 5 mm.
  std::string DrawnNotch(const std::string& code) {
    TheItem().Notches.Clear();
    Add(code, 40, 200, 50);
    return Drawn();
  }

  const std::string pen = "PenWidth 0.1mm\n";
  // The room for a value of two characters beside a notch and for one below it: half of 140 and of
  // 161 twips in mm, and 0.5 and 0.2 mm.
  const double beside = 140 / 113.4 + 0.5;
  const double under = 161 / 113.4 + 0.2;

  // "Notches" in 7 points is 490 twips wide, 161 high.
  const std::string label = "CurrentX " + ShortestText(54 - 490 / 56.7) + "mm\nCurrentY " +
                            ShortestText(88 - 161 / 113.4) + "mm\nText \"Notches\"\n";

  static std::string Link(double from, double to, const std::string& value) {
    const std::string first = " " + ShortestText(from) + "mm ";
    const std::string second = " " + ShortestText(to) + "mm ";
    return "DrawLine" + first + "86mm" + first + "92mm\nDrawLine" + second + "86mm" + second +
           "92mm\n" + Dimension(from, 88, to, 88, value);
  }
};

TEST_F(NotchesTest, TL1_is_a_corner_at_the_top_left) {
  test::ExpectNear(DrawnNotch("TL1"), pen + Dashed(75, 100, 75, 104) + Dashed(75, 104, 55, 104) +
                                          Dimension(75 + beside, 100, 75 + beside, 104, "40") +
                                          Dimension(55, 104 + under, 75, 104 + under, "200"));
}

TEST_F(NotchesTest, TR1_is_a_corner_at_the_top_right) {
  test::ExpectNear(DrawnNotch("TR1"), pen + Dashed(235, 104, 235, 100) +
                                          Dashed(255, 104, 235, 104) +
                                          Dimension(235 - beside, 100, 235 - beside, 104, "40") +
                                          Dimension(235, 104 + under, 255, 104 + under, "200"));
}

TEST_F(NotchesTest, T2_is_open_at_the_top_and_stands_in_the_chain) {
  test::ExpectNear(DrawnNotch("T2"), pen + Dashed(60, 104, 60, 100) + Dashed(80, 100, 80, 104) +
                                         Dashed(80, 104, 60, 104) +
                                         Dimension(80 + beside, 100, 80 + beside, 104, "40") +
                                         Dimension(60, 104 + under, 80, 104 + under, "200") +
                                         label + Link(55, 60, "50"));
}

TEST_F(NotchesTest, L3_is_open_at_the_left_end_and_measured_from_the_bottom) {
  // From 100 + 0.1 * (140 - 50) = 109 mm up to 105 mm.
  test::ExpectNear(DrawnNotch("L3"), pen + Dashed(55, 105, 75, 105) + Dashed(75, 105, 75, 109) +
                                         Dashed(75, 109, 55, 109) +
                                         Dimension(75 + beside, 105, 75 + beside, 109, "40") +
                                         Dimension(55, 109 + under, 75, 109 + under, "200") +
                                         Dimension(75 + beside, 109, 75 + beside, 114, "50"));
}

TEST_F(NotchesTest, R3_is_open_at_the_right_end_and_measured_from_the_bottom) {
  test::ExpectNear(DrawnNotch("R3"), pen + Dashed(235, 109, 235, 105) + Dashed(235, 105, 255, 105) +
                                         Dashed(255, 109, 235, 109) +
                                         Dimension(235 - beside, 105, 235 - beside, 109, "40") +
                                         Dimension(235, 109 + under, 255, 109 + under, "200") +
                                         Dimension(235 - beside, 109, 235 - beside, 114, "50"));
}

TEST_F(NotchesTest, BL1_is_a_corner_at_the_bottom_left) {
  test::ExpectNear(DrawnNotch("BL1"), pen + Dashed(55, 110, 75, 110) + Dashed(75, 110, 75, 114) +
                                          Dimension(75 + beside, 110, 75 + beside, 114, "40") +
                                          Dimension(55, 110 - under, 75, 110 - under, "200"));
}

TEST_F(NotchesTest, B2_is_open_at_the_bottom_and_stands_in_the_chain) {
  test::ExpectNear(DrawnNotch("B2"), pen + Dashed(60, 114, 60, 110) + Dashed(60, 110, 80, 110) +
                                         Dashed(80, 110, 80, 114) +
                                         Dimension(80 + beside, 110, 80 + beside, 114, "40") +
                                         Dimension(60, 110 - under, 80, 110 - under, "200") +
                                         label + Link(55, 60, "50"));
}

TEST_F(NotchesTest, BR1_is_a_corner_at_the_bottom_right) {
  test::ExpectNear(DrawnNotch("BR1"), pen + Dashed(235, 114, 235, 110) +
                                          Dashed(235, 110, 255, 110) +
                                          Dimension(235 - beside, 110, 235 - beside, 114, "40") +
                                          Dimension(235, 110 - under, 255, 110 - under, "200"));
}

TEST_F(NotchesTest, A_dashed_side_is_recorded_piece_by_piece) {
  // The right side of a TL1 runs from 100 to 104 mm: 226.8 twips, in pieces of 56 four and 0.05 of
  // one left over. It begins half of that 0.05 lower, without regard to the dash.
  Add("TL1", 40, 200);
  DrawNotchesAndMitres(TheSheet());
  const Lines lines = LinesOf("DrawLine");
  ASSERT_GE(lines.size(), 4U);
  EXPECT_EQ(
      Lines(lines.begin(), lines.begin() + 4),
      (Lines{"DrawLine 4252.5 5684.025 4252.5 5712.025", "DrawLine 4252.5 5740.025 4252.5 5768.025",
             "DrawLine 4252.5 5796.025 4252.5 5824.025",
             "DrawLine 4252.5 5852.025 4252.5 5880.025"}));
}

TEST_F(NotchesTest, Widths_follow_the_scale_of_lengths_and_depths_do_not) {
  LengthScale = 0.05;
  test::ExpectNear(
      DrawnNotch("T2"),
      pen + Dashed(57.5, 104, 57.5, 100) + Dashed(67.5, 100, 67.5, 104) +
          Dashed(67.5, 104, 57.5, 104) + Dimension(67.5 + beside, 100, 67.5 + beside, 104, "40") +
          Dimension(57.5, 104 + under, 67.5, 104 + under, "200") + label + Link(55, 57.5, "50"));
  // The right end at 55 + 0.05 * 2000 = 155 mm.
  test::ExpectNear(DrawnNotch("BR1"), pen + Dashed(145, 114, 145, 110) +
                                          Dashed(145, 110, 155, 110) +
                                          Dimension(145 - beside, 110, 145 - beside, 114, "40") +
                                          Dimension(145, 110 - under, 155, 110 - under, "200"));
}

TEST_F(NotchesTest, Bottom_notches_of_a_vertical_rail_are_measured_by_its_web) {
  // Down to 110 mm by the web's 100, though the elevation ends at 106.
  MakeSection("V");
  test::ExpectNear(DrawnNotch("BL1"), pen + Dashed(55, 106, 75, 106) + Dashed(75, 106, 75, 110) +
                                          Dimension(75 + beside, 106, 75 + beside, 110, "40") +
                                          Dimension(55, 106 - under, 75, 106 - under, "200"));
}

TEST_F(NotchesTest, A_top_hat_is_notched_by_its_overall_depth) {
  MakeSection("T");
  const double bottom = 112.26326980708465;
  test::ExpectNear(DrawnNotch("BL1"),
                   pen + Dashed(55, bottom - 4, 75, bottom - 4) +
                       Dashed(75, bottom - 4, 75, bottom) +
                       Dimension(75 + beside, bottom - 4, 75 + beside, bottom, "40") +
                       Dimension(55, bottom - 4 - under, 75, bottom - 4 - under, "200"));
}

TEST_F(NotchesTest, An_eaves_beam_with_a_pitch_is_notched_from_the_level_top) {
  const std::string level = DrawnNotch("TL1");
  MakeSection("E");
  TheItem().Pitch = "10";
  EXPECT_EQ(DrawnNotch("TL1"), level);
}

TEST_F(NotchesTest, Sizes_are_shown_as_they_are_and_measured_without_decimals) {
  // 9.5 is shown and "10" measured, two characters; 200.1 of 32 bits keeps the digits
  // that were typed.
  Add("TL1", 9.5F, 200.1F);
  const double right = 55 + 0.1 * 200.1F;
  const double lower = 100.95;
  test::ExpectNear(Drawn(), pen + Dashed(right, 100, right, lower) +
                                Dashed(right, lower, 55, lower) +
                                Dimension(right + beside, 100, right + beside, lower, "9.5") +
                                Dimension(55, lower + under, right, lower + under, "200.1"));
}

TEST_F(NotchesTest, A_code_outside_the_table_draws_nothing_and_stops_no_other) {
  const std::string first = DrawnNotch("TL1");
  const std::string last = DrawnNotch("BR1").substr(pen.size());
  TheItem().Notches.Clear();
  for (const char* code : {"TL1", "XX", "tl1", "", "BR1"}) Add(code, 40, 200, 50);
  EXPECT_EQ(Drawn(), first + last);
}

TEST_F(NotchesTest, Corners_outside_the_section_are_drawn_as_given) {
  Add("TL1", 400, 3000);
  const double gap = 210 / 113.4 + 0.5;  // for the three characters of "400"
  test::ExpectNear(Drawn(), pen + Dashed(355, 100, 355, 140) + Dashed(355, 140, 55, 140) +
                                Dimension(355 + gap, 100, 355 + gap, 140, "400") +
                                Dimension(55, 140 + under, 355, 140 + under, "3000"));
}

TEST_F(NotchesTest, A_notch_without_depth_shows_a_message_for_each_side_without_length) {
  Add("T2", 0, 200, 50);
  const std::string drawn = Drawn();
  ASSERT_EQ(desktop.Boxes.size(), 2U);  // its left and right sides
  EXPECT_EQ(desktop.Boxes.front().Text, "Division by zero");
  EXPECT_EQ(desktop.Boxes.back().Text, "Division by zero");
  // The sheet goes on: one character of room for the "0".
  const double gap = 70 / 113.4 + 0.5;
  test::ExpectNear(
      drawn, pen + Dashed(80, 100, 60, 100) + Dimension(80 + gap, 100, 80 + gap, 100, "0") +
                 Dimension(60, 100 + under, 80, 100 + under, "200") + label + Link(55, 60, "50"));
}

TEST_F(NotchesTest, A_notch_without_width_shows_a_message_for_its_level_side) {
  Add("TL1", 40, 0);
  Drawn();
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.front().Text, "Division by zero");
}

// The chain of notches inside the length.

TEST_F(NotchesTest, Corner_and_end_notches_add_nothing_to_the_chain) {
  for (const char* code : {"TL1", "TR1", "L3", "R3", "BL1", "BR1"}) Add(code, 40, 200, 50);
  EXPECT_EQ(Drawn().find("Notches"), std::string::npos);
}

TEST_F(NotchesTest, The_chain_gives_the_clear_distances) {
  // A notch of 200 at 1000 ends at 1200; the next one begins at 1500.
  Add("T2", 40, 200, 1000);
  Add("B2", 40, 100, 1500);
  const std::string drawn = Drawn();
  EXPECT_EQ(drawn.substr(drawn.find(label)), label + Link(55, 155, "1000") + Link(175, 205, "300"));
}

TEST_F(NotchesTest, Two_notches_entered_in_descending_order_come_out_ascending_in_the_chain) {
  Add("B2", 40, 100, 1500);
  Add("B2", 40, 200, 1000);
  const std::string drawn = Drawn();
  EXPECT_EQ(drawn.substr(drawn.find(label)), label + Link(55, 155, "1000") + Link(175, 205, "300"));
  // The notches themselves stay in the order of the list.
  EXPECT_LT(drawn.find(Dashed(205, 114, 205, 110)), drawn.find(Dashed(155, 114, 155, 110)));
}

TEST_F(NotchesTest, DrawNotchChain_sorts_any_number_of_pairs_and_keeps_the_order_of_equal_ones) {
  Table<MiddleNotch> notches;
  notches.Append({1500, 100});
  notches.Append({200, 50});
  notches.Append({600, 100});
  notches.Append({200, 30});
  DrawNotchChain(TheSheet(), notches);
  // 200, then 50 back from 250 to the other one at 200, then from 230 to 600, from 700 to 1500.
  test::ExpectNear(Taken(), label + Link(55, 75, "200") + Link(80, 75, "-50") +
                                Link(78, 115, "370") + Link(125, 205, "800"));
}

TEST_F(NotchesTest, DrawNotchChain_draws_nothing_without_notches) {
  DrawNotchChain(TheSheet(), {});
  EXPECT_EQ(Taken(), "");
}

TEST_F(NotchesTest, A_notch_that_begins_where_the_last_ended_has_a_dimension_without_length) {
  // Both ends at 175 mm: taken for a vertical one.
  Add("T2", 40, 200, 1000);
  Add("B2", 40, 100, 1200);
  const std::string drawn = Drawn();
  EXPECT_EQ(drawn.substr(drawn.find(label)), label + Link(55, 155, "1000") + Link(175, 175, "0"));
}

TEST_F(NotchesTest, Distances_in_the_chain_have_the_digits_that_were_typed) {
  // 1500.5 less 1000.1 and 200.2, all of 32 bits.
  Table<MiddleNotch> notches;
  notches.Append({1000.1F, 200.2F});
  notches.Append({1500.5F, 100});
  DrawNotchChain(TheSheet(), notches);
  const Lines texts = LinesOf("Text");
  EXPECT_EQ(texts, (Lines{"Text \"Notches\"", "Text \"1000.1\"", "Text \"300.2\""}));
}

TEST_F(NotchesTest, Mitres_come_before_notches_and_the_chain_last) {
  TheItem().MitreLeft = 45;
  Add("T2", 40, 200, 1000);
  Add("TL1", 30, 100);
  DrawNotchesAndMitres(TheSheet());
  EXPECT_EQ(LinesOf("Text"),
            (Lines{"Text \"Mitres\"", "Text \"140\"", "Text \"40\"", "Text \"200\"", "Text \"30\"",
                   "Text \"100\"", "Text \"Notches\"", "Text \"1000\""}));
}

}  // namespace
}  // namespace orvane
