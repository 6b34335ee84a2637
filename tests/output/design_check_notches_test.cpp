// What the design check says of notches, of the mitres' cuts, and of holes in either: what just
// passes and what just fails on a purlin 140 deep and 6000 long.
#include "tests/output/design_check_fixture.h"

namespace orvane {

namespace {

using namespace test;

TEST_F(DesignCheckTest, A_notch_without_depth_or_width_is_found) {
  AddPurlin();
  constexpr auto rule = DesignRule::NotchWithoutSize;
  EXPECT_FALSE(Finds(rule, {MakeNotch("TL1", 0.5F, 0.5F, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("TL1", 0, 50, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("BR1", 50, 0, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("L3", -1, 50, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("T2", 0, 50, 1000)}));
  const Finding finding = CheckSection(OpenJob(), 1).at(0);
  EXPECT_EQ(FindingLine(finding),
            "P1 at 1000 to 1050 mm: notch T2 is 0 mm deep and 50 mm wide (above 0; the section)");
  EXPECT_EQ(finding.Notch, 1);
}

TEST_F(DesignCheckTest, A_notch_inside_the_length_needs_a_position_and_others_dont) {
  AddPurlin();
  constexpr auto rule = DesignRule::NotchWithoutPlace;
  for (const char* code : {"TL1", "TR1", "BL1", "BR1", "L3", "R3"}) {
    EXPECT_FALSE(Finds(rule, {MakeNotch(code, 30, 50, 0)})) << code;
    EXPECT_EQ(Found(), Texts{"P1: neither a pattern nor a hole (the section)"}) << code;
  }
  // The CAM file has a purlin's counted from its other end, 6000 for 0, and none of a channel's.
  EXPECT_FALSE(Finds(rule, {MakeNotch("T2", 30, 50, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("T2", 30, 50, -1)}));
  Items.Clear();
  Add("C", "14012", 6000);
  for (const char* code : {"T2", "B2"}) {
    EXPECT_FALSE(Finds(rule, {MakeNotch(code, 30, 50, 1)})) << code;
    EXPECT_TRUE(Finds(rule, {MakeNotch(code, 30, 50, 0)})) << code;
  }
  EXPECT_EQ(Found().at(0), "P1: notch B2 has the position 0 mm (above 0; the CAM file)");
}

TEST_F(DesignCheckTest, A_notch_that_leaves_nothing_of_the_section_is_found) {
  AddPurlin();
  constexpr auto rule = DesignRule::NotchTooLarge;
  EXPECT_FALSE(Finds(rule, {MakeNotch("TL1", 139, 5999, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("TL1", 140, 50, 0)}));
  EXPECT_EQ(Found().at(0),
            "P1 at 0 to 50 mm: notch TL1 is 140 mm deep (less than 140 mm; the section)");
  EXPECT_TRUE(Finds(rule, {MakeNotch("BR1", 50, 6000, 0)}));
  EXPECT_EQ(Found().at(0),
            "P1 at 0 to 6000 mm: notch BR1 is 6000 mm wide (less than 6000 mm; the section)");
  EXPECT_TRUE(Finds(rule, {MakeNotch("T2", 140, 50, 1000)}));  // two sections
}

TEST_F(DesignCheckTest, A_notch_that_sticks_out_of_the_section_is_found) {
  AddPurlin();
  constexpr auto rule = DesignRule::NotchTooLarge;
  EXPECT_FALSE(Finds(rule, {MakeNotch("B2", 30, 100, 5900)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("B2", 30, 100, 5901)}));
  EXPECT_EQ(Found().at(0),
            "P1 at 5901 to 6001 mm: notch B2 is 100 mm wide at 5901 mm (at 0 to "
            "5900 mm; the section)");
  EXPECT_FALSE(Finds(rule, {MakeNotch("R3", 50, 100, 90)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("R3", 50, 100, 91)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("L3", 50, 100, -1)}));
}

TEST_F(DesignCheckTest, Notches_that_overlap_are_found_and_those_that_touch_arent) {
  AddPurlin();
  constexpr auto rule = DesignRule::NotchesOverlap;
  EXPECT_FALSE(Finds(rule, {MakeNotch("T2", 30, 100, 1000), MakeNotch("T2", 30, 50, 1100)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("T2", 30, 50, 1099), MakeNotch("T2", 30, 100, 1000)}));
  const Finding finding = CheckSection(OpenJob(), 1).at(0);
  EXPECT_EQ(FindingLine(finding),
            "P1 at 1099 to 1149 mm: notch T2 overlaps notch T2 of 1000 to 1100 mm (the section)");
  EXPECT_EQ(finding.Notch, 1);
  // Over each other at an end, where a millimetre of 140 is left; what leaves none cuts it off.
  EXPECT_FALSE(Finds(rule, {MakeNotch("TL1", 70, 50, 0), MakeNotch("BL1", 69, 50, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("TL1", 70, 50, 0), MakeNotch("BL1", 71, 50, 0)}));
  // An end notch of 40 from the bottom up to 90.
  EXPECT_FALSE(Finds(rule, {MakeNotch("R3", 50, 80, 40), MakeNotch("TR1", 50, 80, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("R3", 50, 80, 40), MakeNotch("TR1", 51, 80, 0)}));
  // The same twice.
  EXPECT_TRUE(Finds(rule, {MakeNotch("TL1", 20, 50, 0), MakeNotch("TL1", 20, 50, 0)}));
}

TEST_F(DesignCheckTest, A_notch_of_an_unknown_code_is_nowhere) {
  AddPurlin();
  AddNotches(Items.At(1), {MakeNotch("BR2", 0, 9000, -1)});
  EXPECT_EQ(Found(), Texts{"P1: neither a pattern nor a hole (the section)"});
}

// Holes in the cut of a mitre. At 45 degrees the cut stands as far from the end as it is high.

TEST_F(DesignCheckTest, A_hole_in_the_cut_of_the_left_hand_mitre_is_found) {
  Item& item = AddPurlin();
  constexpr auto rule = DesignRule::HoleInMitre;
  item.MitreLeft = 45;
  // Upper row, 100 high: the cut is at 100, and 9 mm across it are 12.73 along the section.
  EXPECT_FALSE(Finds(rule, {OnLines(113, "nyyn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(112, "nyyn")}));
  const Finding finding = CheckSection(OpenJob(), 1).at(0);
  EXPECT_EQ(FindingLine(finding),
            "P1 at 112 mm: 18 mm hole lies in the left-hand mitre (from 112.7 "
            "mm on; the section)");
  EXPECT_EQ(finding.Line, "W2");
  // Lower row, 40 high.
  EXPECT_FALSE(Finds(rule, {OnLines(53, "nynn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(52, "nynn")}));
  // The top flange is cut square at 140; the bottom one keeps its length.
  EXPECT_FALSE(Finds(rule, {OnLines(149, "nnny")}));
  EXPECT_TRUE(Finds(rule, {OnLines(148, "nnny")}));
  EXPECT_FALSE(Finds(rule, {OnLines(9, "ynnn")}));
  // Turned, it cuts the bottom: the lower row is 100 below the top.
  item.MitreLeft = -45;
  EXPECT_FALSE(Finds(rule, {OnLines(113, "nynn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(112, "nynn")}));
  EXPECT_FALSE(Finds(rule, {OnLines(9, "nnny")}));
  EXPECT_TRUE(Finds(rule, {OnLines(148, "ynnn")}));
}

TEST_F(DesignCheckTest, A_hole_in_the_cut_of_the_right_hand_mitre_is_found) {
  Item& item = AddPurlin();
  constexpr auto rule = DesignRule::HoleInMitre;
  item.MitreRight = 45;  // cuts the bottom back, to 5860
  EXPECT_FALSE(Finds(rule, {OnLines(5887, "nynn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(5888, "nynn")}));
  EXPECT_EQ(Found().at(0),
            "P1 at 5888 mm: 18 mm hole lies in the right-hand mitre (up to 5887.3 mm; "
            "the section)");
  EXPECT_FALSE(Finds(rule, {OnLines(5851, "ynnn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(5852, "ynnn")}));
  EXPECT_FALSE(Finds(rule, {OnLines(5991, "nnny")}));
  item.MitreRight = -45;
  EXPECT_FALSE(Finds(rule, {OnLines(5947, "nynn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(5948, "nynn")}));
  EXPECT_FALSE(Finds(rule, {OnLines(5991, "ynnn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(5852, "nnny")}));
}

// Holes in a notch: 100 wide from 1000 on, 40 deep, so that it reaches down to the upper row.

TEST_F(DesignCheckTest, A_hole_in_a_notch_is_found) {
  AddPurlin();
  constexpr auto rule = DesignRule::HoleInNotch;
  AddNotches(Items.At(1), {MakeNotch("T2", 40, 100, 1000)});
  EXPECT_FALSE(Finds(rule, {OnLines(991, "nyyn"), OnLines(1109, "nyyn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(992, "nyyn")}));
  const Finding finding = CheckSection(OpenJob(), 1).at(0);
  EXPECT_EQ(FindingLine(finding),
            "P1 at 992 mm: 18 mm hole lies in notch T2 (clear of 1000 to 1100 mm; the section)");
  EXPECT_EQ(finding.Hole, 1);
  EXPECT_EQ(finding.Line, "W2");
  EXPECT_TRUE(Finds(rule, {OnLines(1108, "nyyn")}));
  // The flange is gone too, the other one isn't, nor the lower row.
  EXPECT_FALSE(Finds(rule, {OnLines(991, "nnny")}));
  EXPECT_TRUE(Finds(rule, {OnLines(992, "nnny")}));
  EXPECT_FALSE(Finds(rule, {OnLines(1050, "ynnn"), OnLines(1080, "nynn")}));
}

TEST_F(DesignCheckTest, A_hole_below_a_notch_is_clear_of_it_by_its_radius) {
  AddPurlin();
  constexpr auto rule = DesignRule::HoleInNotch;
  AddHoles(Items.At(1), {OnLines(1050, "nyyn")});  // upper row, 40 from the top
  EXPECT_FALSE(Finds(rule, {MakeNotch("T2", 31, 100, 1000)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("T2", 31.1F, 100, 1000)}));
  EXPECT_FALSE(Finds(rule, {MakeNotch("B2", 31, 100, 1000)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("B2", 32, 100, 1000)}));
}

// An end notch from 60 to 80 high, 50 wide, misses both rows; at the bottom it takes the flange.
TEST_F(DesignCheckTest, An_end_notch_takes_what_it_reaches) {
  AddPurlin();
  constexpr auto rule = DesignRule::HoleInNotch;
  AddHoles(Items.At(1), {OnLines(32, "yyyy")});
  EXPECT_FALSE(Finds(rule, {MakeNotch("L3", 20, 50, 60)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("L3", 20, 50, 48)}));  // 8 above the lower row
  EXPECT_TRUE(Finds(rule, {MakeNotch("L3", 20, 50, 0)}));
  EXPECT_EQ(CheckSection(OpenJob(), 1).at(0).Line, "BF");
  EXPECT_FALSE(Finds(rule, {MakeNotch("R3", 20, 50, 0)}));
  EXPECT_TRUE(Finds(rule, {MakeNotch("L3", 20, 50, 120)}));
  EXPECT_EQ(CheckSection(OpenJob(), 1).at(0).Line, "TF");
}

// A slot of 28 for 18 mm reaches 14 to either side, 5 of them to the middle of its round.
TEST_F(DesignCheckTest, A_slot_over_an_edge_is_told_apart_from_a_hole_there) {
  Item& item = AddPurlin();
  constexpr auto rule = DesignRule::SlotOverEdge;
  EXPECT_FALSE(Finds(rule, {OnLines(14, "nyyn", 18, 28), OnLines(5986, "nyyn", 18, 28)}));
  EXPECT_TRUE(Finds(rule, {OnLines(13, "nyyn", 18, 28)}));
  EXPECT_EQ(Found().at(0),
            "P1 at 13 mm: 18x28 slot runs over the left-hand end (14 to 5986 mm; the section)");
  EXPECT_TRUE(Finds(rule, {OnLines(5987, "nyyn", 18, 28)}));
  EXPECT_FALSE(Finds(rule, {OnLines(8, "nyyn", 18, 28)}));
  EXPECT_TRUE(Finds(DesignRule::HoleBeyondEnd));
  AddNotches(item, {MakeNotch("T2", 40, 100, 1000)});
  EXPECT_FALSE(Finds(rule, {OnLines(986, "nyyn", 18, 28)}));
  EXPECT_TRUE(Finds(rule, {OnLines(987, "nyyn", 18, 28)}));
  EXPECT_EQ(Found().at(0),
            "P1 at 987 mm: 18x28 slot runs over notch T2 (clear of 1000 to 1100 mm; the section)");
  EXPECT_FALSE(Finds(rule, {OnLines(992, "nyyn", 18, 28)}));
  EXPECT_TRUE(Finds(DesignRule::HoleInNotch));
  // The mitre's cut of the upper row is at 100: 117.73 with the slot, 112.73 for the round.
  item.MitreLeft = 45;
  EXPECT_FALSE(Finds(rule, {OnLines(118, "nyyn", 18, 28)}));
  EXPECT_TRUE(Finds(rule, {OnLines(117, "nyyn", 18, 28)}));
  EXPECT_EQ(
      Found().at(0),
      "P1 at 117 mm: 18x28 slot runs over the left-hand mitre (from 117.7 mm on; the section)");
  EXPECT_FALSE(Finds(rule, {OnLines(112, "nyyn", 18, 28)}));
}

// Of a Z14012, 140 deep: 70 from the top and 70 from the bottom at one place leave nothing. 69
// leave a millimetre, and beside one another they leave all.
TEST_F(DesignCheckTest, Notches_from_both_edges_must_leave_something_between_them) {
  AddPurlin();
  EXPECT_TRUE(Finds(DesignRule::NotchesOverlap, {{"T2", 70, 50, 3000}, {"B2", 70, 50, 3020}}));
  EXPECT_FALSE(Finds(DesignRule::NotchesOverlap, {{"T2", 70, 50, 3000}, {"B2", 69, 50, 3020}}));
  EXPECT_FALSE(Finds(DesignRule::NotchesOverlap, {{"T2", 70, 50, 3000}, {"B2", 70, 50, 3050}}));
  EXPECT_TRUE(Finds(DesignRule::NotchesOverlap, {{"TL1", 70, 50, 0}, {"BL1", 70, 40, 0}}));
}

// One that would fit elsewhere is told where: 100 wide up to 5900 of 6000, 20 deep up to 120 of
// 140.
TEST_F(DesignCheckTest, A_notch_that_sticks_out_is_told_where_it_would_fit) {
  AddPurlin();
  const auto limitOf = [](const Notch& notch) {
    Items.At(1).Notches.Clear();
    Items.At(1).Notches.Append(notch);
    for (const Finding& finding : CheckSection(OpenJob(), 1)) {
      if (finding.Rule == "notch-too-large") return finding.Limit;
    }
    return std::string("none");
  };
  EXPECT_EQ(limitOf({"T2", 30, 100, 5950}), "at 0 to 5900 mm");
  EXPECT_EQ(limitOf({"T2", 30, 100, 5900}), "none");
  EXPECT_EQ(limitOf({"L3", 20, 50, 130}), "at 0 to 120 mm");
  EXPECT_EQ(limitOf({"L3", 140, 50, 0}), "less than 140 mm");
}

}  // namespace

}  // namespace orvane
