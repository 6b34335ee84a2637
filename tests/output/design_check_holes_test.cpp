// What the design check says of holes along a section, across its parts and beside each other: what
// just passes and what just fails.
#include "tests/output/design_check_fixture.h"

namespace orvane {

namespace {

using namespace test;

// 18 mm are 9 to either side.
TEST_F(DesignCheckTest, A_hole_that_touches_the_end_passes_and_one_a_millimetre_on_doesnt) {
  SwitchOff(DesignRule::EndDistance);
  Item& item = AddPurlin();
  AddHoles(item, {OnLines(9, "nyyn"), OnLines(5991, "nyyn")});
  EXPECT_EQ(Found(), Texts{});
  item.Holes.At(1).XPos = 8;
  item.Holes.At(2).XPos = 5992;
  EXPECT_EQ(Found(),
            (Texts{"P1 at 8 mm: 18 mm hole reaches beyond the left-hand end (9 to 5991 mm; "
                   "the section)",
                   "P1 at 5992 mm: 18 mm hole reaches beyond the right-hand end (9 to 5991 "
                   "mm; the section)"}));
  // Its middle beyond the end, and on no line at all.
  EXPECT_TRUE(Finds(DesignRule::HoleBeyondEnd, {OnLines(6500, "nnnn")}));
  EXPECT_TRUE(Finds(DesignRule::HoleBeyondEnd, {OnLines(-1, "nyyn")}));
}

// Off its web, flange or lip at the standard gauge.

TEST_F(DesignCheckTest, A_hole_off_the_web_is_found) {
  Add("R", "CLR", 3000);
  constexpr auto rule = DesignRule::HoleOffPart;
  EXPECT_FALSE(Finds(rule, {OnLines(1500, "nnny")}));
  // A cleader rail has no upper row: its gauge is 0, which is the edge of the web.
  EXPECT_TRUE(Finds(rule, {OnLines(1500, "nnyn")}));
  EXPECT_EQ(Found().at(0),
            "P1 at 1500 mm: 18 mm hole isn't on the web, at 120 mm (9 to 111 mm from "
            "the bottom; dims.csv)");
  EXPECT_EQ(CheckSection(OpenJob(), 1).at(0).Line, "W2");
}

TEST_F(DesignCheckTest, A_hole_larger_than_its_place_on_a_web_a_lip_or_a_flange_is_found) {
  constexpr auto rule = DesignRule::HoleOffPart;
  AddPurlin();  // 40 from either edge of the web
  EXPECT_FALSE(Finds(rule, {OnLines(3000, "nyyn", 80)}));
  EXPECT_TRUE(Finds(rule, {OnLines(3000, "nyyn", 81)}));
  EXPECT_FALSE(Finds(rule, {OnLines(3000, "ynnn", 60)}));
  EXPECT_TRUE(Finds(rule, {OnLines(3000, "ynnn", 61)}));
  EXPECT_EQ(Found().at(0),
            "P1 at 3000 mm: 61 mm hole isn't on the bottom flange (at most 60 mm; "
            "dims.csv)");
  EXPECT_FALSE(Finds(rule, {OnLines(3000, "nnny", 65)}));
  EXPECT_TRUE(Finds(rule, {OnLines(3000, "nnny", 66)}));
  Items.Clear();
  Add("T", "T05010", 3000);  // lips of 30 with their holes in the middle, sides 50.8 wide
  for (const char* lines : {"ynnn", "nnny"}) {
    EXPECT_FALSE(Finds(rule, {OnLines(1500, lines, 30)})) << lines;
    EXPECT_TRUE(Finds(rule, {OnLines(1500, lines, 31)})) << lines;
  }
  for (const char* lines : {"nynn", "nnyn"}) {
    EXPECT_FALSE(Finds(rule, {OnLines(1500, lines, 50)})) << lines;
    EXPECT_TRUE(Finds(rule, {OnLines(1500, lines, 51)})) << lines;
  }
  Items.Clear();
  Add("V", "VCR", 3000);  // 30 from either edge
  EXPECT_FALSE(Finds(rule, {OnLines(1500, "nyyn", 60)}));
  EXPECT_TRUE(Finds(rule, {OnLines(1500, "nyyn", 61)}));
}

// Off gauge.

TEST_F(DesignCheckTest, An_off_gauge_distance_of_0_and_one_that_is_no_number_are_found) {
  AddPurlin();
  constexpr auto rule = DesignRule::OffGaugeZero;
  EXPECT_FALSE(Finds(rule, {OffGauge(3000, 3, "1")}));
  EXPECT_TRUE(Finds(rule, {OffGauge(3000, 3, "0")}));
  EXPECT_EQ(Found(), Texts{"P1 at 3000 mm: 18 mm hole off gauge by 0 (above 0 mm; the section)"});
  EXPECT_EQ(CheckSection(OpenJob(), 1).at(0).Line, "TF");
  EXPECT_TRUE(Finds(rule, {OffGauge(3000, 0, "-20")}));
  EXPECT_TRUE(Finds(rule, {OffGauge(3000, 1, "yes")}));
  // No hole on a line is no distance.
  EXPECT_FALSE(Finds(rule, {OffGauge(3000, 0, "n")}));
  EXPECT_FALSE(Finds(rule, {OffGauge(3000, 0, "")}));
  EXPECT_FALSE(Finds(rule, {OffGauge(3000, 0, "y")}));
}

TEST_F(DesignCheckTest, An_off_gauge_hole_outside_its_flange_or_web_is_found) {
  AddPurlin();
  constexpr auto rule = DesignRule::OffGaugeOutside;
  struct Limits {
    int Line;
    const char *Below, *Least, *Most, *Above;
  };
  // 9 from the edges of 60, 140 and 65 mm.
  for (const Limits& limits : {Limits{0, "8", "9", "51", "52"}, Limits{1, "8", "9", "131", "132"},
                               Limits{3, "8", "9", "56", "57"}}) {
    EXPECT_TRUE(Finds(rule, {OffGauge(3000, limits.Line, limits.Below)})) << limits.Line;
    EXPECT_FALSE(Finds(rule, {OffGauge(3000, limits.Line, limits.Least)})) << limits.Line;
    EXPECT_FALSE(Finds(rule, {OffGauge(3000, limits.Line, limits.Most)})) << limits.Line;
    EXPECT_TRUE(Finds(rule, {OffGauge(3000, limits.Line, limits.Above)})) << limits.Line;
  }
  EXPECT_EQ(Found(), Texts{"P1 at 3000 mm: 18 mm hole off gauge by 57 isn't on the top flange (9 "
                           "to 56 mm across; dims.csv)"});
  EXPECT_TRUE(Finds(rule, {OffGauge(3000, 1, "1e300")}));
  EXPECT_TRUE(Finds(rule, {OffGauge(3000, 1, "1e999")}));
}

TEST_F(DesignCheckTest, A_top_hat_has_no_place_for_off_gauge_holes) {
  Add("T", "T05010", 3000);
  EXPECT_TRUE(Finds(DesignRule::OffGaugeOutside, {OffGauge(1500, 1, "20")}));
  EXPECT_EQ(Found().at(0),
            "P1 at 1500 mm: 18 mm hole off gauge by 20 has no part to be measured on "
            "(the standard gauge; dims.csv)");
}

TEST_F(DesignCheckTest, An_off_gauge_distance_in_W2_is_found) {
  AddPurlin();
  EXPECT_FALSE(Finds(DesignRule::OffGaugeInW2, {OffGauge(3000, 1, "55")}));
  EXPECT_TRUE(Finds(DesignRule::OffGaugeInW2, {OffGauge(3000, 2, "55")}));
  EXPECT_EQ(Found(),
            Texts{"P1 at 3000 mm: 18 mm hole off gauge by 55 in W2, which the sheet gives no "
                  "letter (W1, BF or TF; the sheet)"});
}

// Beside each other.

TEST_F(DesignCheckTest, Holes_that_overlap_along_a_line_are_found) {
  AddPurlin();
  constexpr auto rule = DesignRule::HolesOverlap;
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nyyn"), OnLines(1018, "nyyn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nyyn"), OnLines(1017, "nyyn")}));
  const Finding finding = CheckSection(OpenJob(), 1).at(0);
  EXPECT_EQ(FindingLine(finding),
            "P1 at 1017 mm: 18 mm hole overlaps the 18 mm hole at 1000 mm (at "
            "least 18 mm between their rounds; the section)");
  EXPECT_EQ(finding.Hole, 2);
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "ynnn"), OnLines(1016, "ynnn", 14)}));
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "ynnn"), OnLines(1015, "ynnn", 14)}));
  // Slots of 28 for 18 mm, 14 to either side.
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nnny", 18, 28), OnLines(1028, "nnny", 18, 28)}));
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nnny", 18, 28), OnLines(1027, "nnny", 18, 28)}));
  // The longer of two slots is still there behind the shorter.
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nnny", 18, 300), OnLines(1100, "nnny", 18, 22),
                           OnLines(1140, "nnny", 18)}));
  EXPECT_EQ(CheckSection(OpenJob(), 1).at(1).Hole, 3);
}

TEST_F(DesignCheckTest, Holes_that_coincide_are_told_as_such_and_a_countersink_is_no_excuse) {
  AddPurlin();
  Hole second = OnLines(1000, "nyyn");
  second.CounterSunk = "*";
  EXPECT_TRUE(Finds(DesignRule::HolesOverlap, {OnLines(1000, "nyyn"), second}));
  EXPECT_EQ(Found(), Texts{"P1 at 1000 mm: 18 mm hole coincides with the 18 mm hole at 1000 mm (at "
                           "least 18 mm between their rounds; the section)"});
}

TEST_F(DesignCheckTest, Holes_of_other_lines_dont_overlap) {
  AddPurlin();
  EXPECT_FALSE(Finds(DesignRule::HolesOverlap, {OnLines(1000, "ynnn"), OnLines(1000, "nynn"),
                                                OnLines(1000, "nnyn"), OnLines(1000, "nnny")}));
  EXPECT_EQ(Found(), Texts{});
}

TEST_F(DesignCheckTest, Off_gauge_holes_overlap_by_their_places_across_the_part) {
  AddPurlin();
  constexpr auto rule = DesignRule::HolesOverlap;
  // The lower row of the web is 40 high.
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nynn"), OffGauge(1000, 1, "58")}));
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nynn"), OffGauge(1000, 1, "57")}));
  // And the upper one 100.
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nnyn"), OffGauge(1000, 1, "117")}));
  EXPECT_FALSE(Finds(rule, {OffGauge(1000, 3, "20"), OffGauge(1000, 3, "38")}));
  EXPECT_TRUE(Finds(rule, {OffGauge(1000, 3, "20"), OffGauge(1000, 3, "37")}));
  // 3, 4, 5: 15 along and 10 across are 18.03 apart.
  EXPECT_FALSE(Finds(rule, {OffGauge(1000, 3, "20"), OffGauge(1015, 3, "30")}));
  EXPECT_TRUE(Finds(rule, {OffGauge(1000, 3, "20"), OffGauge(1014, 3, "30")}));
  // Where a purlin's flange has its own gauge the catalogue doesn't tell.
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nnny"), OffGauge(1000, 3, "32")}));
  // A channel's is the middle, 30.
  Items.Clear();
  Add("C", "14012", 3000);
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nnny"), OffGauge(1000, 3, "48")}));
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nnny"), OffGauge(1000, 3, "47")}));
}

// Distances that are less than our practice.

// 1.5 times 18 mm is 27 mm.
TEST_F(DesignCheckTest, A_hole_close_to_an_end_a_mitre_or_a_notch_is_worth_a_look) {
  Item& item = AddPurlin();
  constexpr auto rule = DesignRule::EndDistance;
  EXPECT_FALSE(Finds(rule, {OnLines(27, "nyyn"), OnLines(5973, "nyyn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(26, "nyyn")}));
  EXPECT_EQ(Found(),
            Texts{"P1 at 26 mm: 18 mm hole is 26 mm from the left-hand end (at least 27 mm, "
                  "1.5 times the hole; own practice)"});
  EXPECT_EQ(CheckSection(OpenJob(), 1).at(0).Grade, FindingGrade::Advice);
  EXPECT_TRUE(Finds(rule, {OnLines(5974, "nyyn")}));
  // A slot counts from the middle of its round, 5 from its own.
  EXPECT_FALSE(Finds(rule, {OnLines(32, "nyyn", 18, 28)}));
  EXPECT_TRUE(Finds(rule, {OnLines(31, "nyyn", 18, 28)}));
  AddNotches(item, {MakeNotch("T2", 40, 100, 1000)});
  EXPECT_FALSE(Finds(rule, {OnLines(973, "nyyn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(974, "nyyn")}));
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nynn")}));  // the lower row is 60 below it
  // 27 mm across a cut of 45 degrees are 38.18 along the section; it is at 100 for the upper row.
  item.MitreLeft = 45;
  EXPECT_FALSE(Finds(rule, {OnLines(139, "nyyn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(138, "nyyn")}));
  EXPECT_EQ(Found(),
            Texts{"P1 at 138 mm: 18 mm hole is 26.9 mm from the left-hand mitre (at least 27 "
                  "mm, 1.5 times the hole; own practice)"});
  // What is in the cut is told by that alone.
  EXPECT_FALSE(Finds(rule, {OnLines(112, "nyyn")}));
}

// Once the hole: a top hat's lip has it 15 from its free edge and 15 from its bend.
TEST_F(DesignCheckTest, A_hole_close_to_a_free_edge_or_a_bend_is_worth_a_look) {
  Add("T", "T05010", 3000);
  EXPECT_FALSE(Finds(DesignRule::EdgeDistance, {OnLines(1500, "ynny", 15)}));
  EXPECT_FALSE(Finds(DesignRule::BendDistance));
  EXPECT_TRUE(Finds(DesignRule::EdgeDistance, {OnLines(1500, "ynny", 16)}));
  EXPECT_EQ(Found(), (Texts{"P1 at 1500 mm: 16 mm hole is 15 mm from the edge of the lower lip (at "
                            "least 16 mm, 1 times the hole; own practice)",
                            "P1 at 1500 mm: 16 mm hole is 15 mm from a bend of the lower lip (at "
                            "least 16 mm, 1 times the hole; own practice)"}));
  // A cleader rail's flange, 60 wide with a free edge, and its web, with one at the top.
  Items.Clear();
  Add("R", "CLR", 3000);
  EXPECT_FALSE(Finds(DesignRule::EdgeDistance, {OffGauge(1500, 0, "42")}));
  EXPECT_TRUE(Finds(DesignRule::EdgeDistance, {OffGauge(1500, 0, "43")}));
  EXPECT_FALSE(Finds(DesignRule::EdgeDistance, {OffGauge(1500, 3, "102")}));
  EXPECT_TRUE(Finds(DesignRule::EdgeDistance, {OffGauge(1500, 3, "103")}));
  EXPECT_FALSE(Finds(DesignRule::BendDistance, {OffGauge(1500, 3, "18")}));
  EXPECT_TRUE(Finds(DesignRule::BendDistance, {OffGauge(1500, 3, "17")}));
}

TEST_F(DesignCheckTest, A_lipped_flange_has_bends_at_both_edges) {
  AddPurlin();
  constexpr auto rule = DesignRule::BendDistance;
  EXPECT_FALSE(Finds(rule, {OffGauge(3000, 3, "18")}));
  EXPECT_TRUE(Finds(rule, {OffGauge(3000, 3, "17")}));
  EXPECT_FALSE(Finds(rule, {OffGauge(3000, 3, "47")}));
  EXPECT_TRUE(Finds(rule, {OffGauge(3000, 3, "48")}));
  EXPECT_FALSE(Finds(rule, {OffGauge(3000, 1, "122")}));
  EXPECT_TRUE(Finds(rule, {OffGauge(3000, 1, "123")}));
  // Outside its flange it is told by that alone.
  EXPECT_FALSE(Finds(rule, {OffGauge(3000, 3, "57")}));
}

// Twice 18 mm is 36 mm; of two holes the larger counts.
TEST_F(DesignCheckTest, Holes_close_to_each_other_are_worth_a_look) {
  AddPurlin();
  constexpr auto rule = DesignRule::PitchDistance;
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nyyn"), OnLines(1036, "nyyn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nyyn"), OnLines(1035, "nyyn")}));
  EXPECT_EQ(Found(), Texts{"P1 at 1035 mm: 18 mm hole is 35 mm from the 18 mm hole at 1000 mm (at "
                           "least 36 mm, 2 times the hole; own practice)"});
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nyyn", 14), OnLines(1036, "nyyn")}));
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nyyn", 14), OnLines(1035, "nyyn")}));
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nynn"), OffGauge(1000, 1, "76")}));
  EXPECT_TRUE(Finds(rule, {OnLines(1000, "nynn"), OffGauge(1000, 1, "75")}));
  EXPECT_FALSE(Finds(rule, {OnLines(1000, "nyyn"), OnLines(1017, "nyyn")}));  // they overlap
}

}  // namespace

}  // namespace orvane
