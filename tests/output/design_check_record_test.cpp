// What the design check says of a section as a whole, of its mitres, and beside the other sections:
// each rule with what just passes and what just fails.
#include "core/model.h"
#include "tests/output/design_check_fixture.h"

namespace orvane {

namespace {

using namespace test;

TEST_F(DesignCheckTest, A_section_that_nothing_is_wrong_with_gives_no_finding) {
  AddHoles(AddPurlin(), {OnLines(3000, "nyyn")});
  EXPECT_EQ(Found(), Texts{});
}

TEST_F(DesignCheckTest, A_product_that_the_catalogue_lacks_is_found) {
  Item& item = AddPurlin();
  AddHoles(item, {OnLines(3000, "nyyn")});
  item.Product = "Z14013";
  EXPECT_EQ(Found(), Texts{"P1: product Z14013 (a product of the catalogue; dims.csv)"});
  item.Product.clear();
  EXPECT_EQ(Found(), Texts{"P1: no product (a product of the catalogue; dims.csv)"});
}

TEST_F(DesignCheckTest, A_pattern_of_another_family_or_of_none_is_found) {
  Item& item = AddPurlin();
  item.PatternName = "Butt";
  EXPECT_EQ(Found(), Texts{});
  item.PatternName = "Joist";  // a channel's
  EXPECT_EQ(Found(),
            Texts{"P1: pattern Joist, whose holes are left out (a pattern of the family in "
                  "the catalogue; punch.csv)"});
  item.PatternName = "butt";
  EXPECT_TRUE(Finds(DesignRule::PatternUnknown));
}

TEST_F(DesignCheckTest, A_length_of_0_or_less_is_found) {
  Item& item = AddPurlin();
  AddHoles(item, {OnLines(3000, "nyyn")});
  item.Length = 0;
  EXPECT_EQ(Found(), Texts{"P1: length 0 mm (above 0; the section)"});
  item.Length = -6000;
  EXPECT_EQ(Found(), Texts{"P1: length -6000 mm (above 0; the section)"});
  item.Length = 1;
  EXPECT_FALSE(Finds(DesignRule::LengthNotAboveZero));
}

TEST_F(DesignCheckTest, A_length_over_the_maximum_of_its_family_is_found) {
  Item& item = AddPurlin();
  AddHoles(item, {OnLines(3000, "nyyn")});
  item.Length = 15000;
  EXPECT_EQ(Found(), Texts{});
  item.Length = 15001;
  EXPECT_EQ(Found(), Texts{"P1: length 15001 mm (at most 15000 mm; maximum lengths)"});
  MaxDims.At(1) = 15001;
  EXPECT_EQ(Found(), Texts{});
  item.SectionType = "V";
  item.Product = "VCR";
  item.Length = 3050;
  EXPECT_FALSE(Finds(DesignRule::LengthOverMaximum));
  item.Length = 3051;
  EXPECT_TRUE(Finds(DesignRule::LengthOverMaximum));
}

TEST_F(DesignCheckTest, A_quantity_of_0_or_less_is_found) {
  Item& item = AddPurlin();
  AddHoles(item, {OnLines(3000, "nyyn")});
  item.Quantity = 0;
  EXPECT_EQ(Found(), Texts{"P1: quantity 0 (above 0; the section)"});
  item.Quantity = -1;
  EXPECT_TRUE(Finds(DesignRule::QuantityNotAboveZero));
}

TEST_F(DesignCheckTest, A_section_with_neither_pattern_nor_hole_is_worth_a_look) {
  Item& item = AddPurlin();
  EXPECT_EQ(Found(), Texts{"P1: neither a pattern nor a hole (the section)"});
  EXPECT_EQ(CheckSection(OpenJob(), 1).at(0).Grade, FindingGrade::Advice);
  item.PatternName.clear();
  EXPECT_TRUE(Finds(DesignRule::NoHoles));
  item.PatternName = "Butt";
  EXPECT_FALSE(Finds(DesignRule::NoHoles));
}

// The end pair of "Butt" stands at 32 and 92: 101 mm to the far side of its second hole.
TEST_F(DesignCheckTest, A_pattern_longer_than_its_section_is_told_once) {
  Item& item = AddPurlin();
  item.PatternName = "Butt";
  item.Length = 101;
  EXPECT_FALSE(Finds(DesignRule::PatternTooLong));
  item.Length = 100;
  const std::vector<Finding> findings = CheckSection(OpenJob(), 1);
  EXPECT_FALSE(Finds(DesignRule::HoleBeyondEnd));
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(
      FindingLine(findings.at(0)),
      "P1 at 8 mm: pattern Butt puts 2 holes beyond the ends (a longer section; the section)");
  EXPECT_EQ(findings.at(0).Hole, 1);
  // The right-hand pair, 32 and 92 from its end, stands at -32 and 28.
  item.Length = 60;
  EXPECT_EQ(
      Found().at(0),
      "P1 at -32 mm: pattern Butt puts 2 holes beyond the ends (a longer section; the section)");
}

TEST_F(DesignCheckTest, A_patterns_holes_are_those_that_the_export_makes) {
  Item& item = AddPurlin();
  item.PatternName = "Butt";
  // What the table still holds of it is of a longer section; the hole placed by hand stays.
  Hole stale = OnLines(9000, "nyyn");
  stale.Kind = "S";
  AddHoles(item, {OnLines(95, "nyyn"), stale});
  // By hand at 95, behind the pattern's at 32 and 92: row 3.
  const std::vector<Finding> findings = CheckSection(OpenJob(), 1);
  ASSERT_EQ(Rules(findings), (Texts{"holes-overlap"}));
  EXPECT_EQ(findings.at(0).Hole, 3);
  EXPECT_EQ(item.Holes.UBound(), 2);  // looking changes nothing
}

// Mitres of 45 degrees take 140 mm of the edge they cut back.
TEST_F(DesignCheckTest, Mitres_that_meet_are_found) {
  Item& item = AddPurlin();
  item.PatternName = "Custom";
  item.MitreLeft = 45;
  item.MitreRight = -45;
  item.Length = 281;
  EXPECT_FALSE(Finds(DesignRule::MitresMeet));
  item.Length = 280;
  EXPECT_EQ(Found().at(0),
            "P1 at 0 to 280 mm: the mitres leave nothing of the top (a length above 280 mm; the "
            "section)");
  item.MitreLeft = -45;
  item.MitreRight = 45;
  EXPECT_EQ(Found().at(0),
            "P1 at 0 to 280 mm: the mitres leave nothing of the bottom (a length above 280 mm; the "
            "section)");
  // A parallelogram: each edge is cut once.
  item.MitreLeft = 45;
  item.Length = 141;
  EXPECT_FALSE(Finds(DesignRule::MitresMeet));
  item.Length = 140;
  EXPECT_TRUE(Finds(DesignRule::MitresMeet));
  // One end alone.
  item.MitreLeft = 0;
  EXPECT_TRUE(Finds(DesignRule::MitresMeet));
  item.MitreRight = 90;
  item.Length = 6000;
  EXPECT_TRUE(Finds(DesignRule::MitresMeet));
}

TEST_F(DesignCheckTest, What_cant_be_made_stands_before_what_is_worth_a_look) {
  Item& item = AddPurlin();
  AddHoles(item, {OnLines(26, "nyyn"), OnLines(5998, "nyyn")});
  item.Quantity = 0;
  EXPECT_EQ(Rules(CheckSection(OpenJob(), 1)),
            (Texts{"quantity-not-above-0", "hole-beyond-end", "end-distance"}));
}

TEST_F(DesignCheckTest, A_rule_that_is_switched_off_finds_nothing) {
  Item& item = AddPurlin();
  item.Quantity = 0;
  SwitchOff(DesignRule::QuantityNotAboveZero);
  SwitchOff(DesignRule::NoHoles);
  EXPECT_EQ(Found(), Texts{});
}

// Across the job.

TEST_F(DesignCheckTest, A_mark_that_stands_twice_is_found_at_each_of_its_sections) {
  AddPurlin();
  Add("Z", "Z14012", 5000).Mark = " P1";
  Add("Z", "Z14012", 4000);
  std::vector<Finding> findings = CheckAcross(OpenJob());
  EXPECT_EQ(Rules(findings), (Texts{"mark-twice", "mark-twice"}));
  EXPECT_EQ(FindingLine(findings.at(0)),
            "P1: 2 sections have the mark (one section a mark; the job)");
  EXPECT_EQ(findings.at(0).Row, 1);
  EXPECT_EQ(findings.at(1).Row, 2);
  Items.At(2).Mark = "p1";
  EXPECT_EQ(CheckAcross(OpenJob()).size(), 0U);
  // Marks that are missing are the export's own to tell.
  Items.At(1).Mark.clear();
  Items.At(2).Mark = " ";
  EXPECT_EQ(CheckAcross(OpenJob()).size(), 0U);
}

TEST_F(DesignCheckTest, Sections_alike_in_all_but_mark_and_quantity_are_worth_a_look) {
  Item& first = AddPurlin();
  first.PatternName = "Butt";
  AddHoles(first, {OnLines(700, "nyyn"), OnLines(900, "ynnn")});
  AddNotches(first, {MakeNotch("TL1", 20, 30, 0), MakeNotch("B2", 20, 30, 1000)});
  Item second = Items.At(1);
  second.Mark = "P2";
  second.Quantity = 7;
  second.DateText = "carried through";
  // The order of the holes and their gaps are the system's.
  std::swap(second.Holes.At(1), second.Holes.At(2));
  second.Holes.At(1).RelX = 4711;
  second.Holes.At(0).XPos = 6000;
  std::swap(second.Notches.At(1), second.Notches.At(2));
  Items.Append(second);
  const std::vector<Finding> findings = CheckAcross(OpenJob());
  ASSERT_EQ(Rules(findings), (Texts{"sections-alike"}));
  EXPECT_EQ(findings.at(0).Row, 2);
  EXPECT_EQ(findings.at(0).Grade, FindingGrade::Advice);
  EXPECT_EQ(FindingLine(findings.at(0)),
            "P2: the same as P1 but for mark and quantity (one mark for both; the job)");

  const auto differs = [](const std::function<void(Item & item)>& change) {
    const Item former = Items.At(2);
    change(Items.At(2));
    const bool none = CheckAcross(OpenJob()).empty();
    Items.At(2) = former;
    return none;
  };
  EXPECT_TRUE(differs([](Item& item) { item.Length = 5999; }));
  EXPECT_TRUE(differs([](Item& item) { item.Product = "Z14014"; }));
  EXPECT_TRUE(differs([](Item& item) { item.Notes = "galvanised"; }));
  EXPECT_TRUE(differs([](Item& item) { item.PatternName = "Sleeved"; }));
  EXPECT_TRUE(differs([](Item& item) { item.SagBarDia = 14; }));
  EXPECT_TRUE(differs([](Item& item) { item.MitreRight = 1; }));
  EXPECT_TRUE(differs([](Item& item) { item.Pitch = "5"; }));
  EXPECT_TRUE(differs([](Item& item) { item.JointingPieces = 1; }));
  EXPECT_TRUE(differs([](Item& item) { item.Holes.At(1).XPos = 901; }));
  EXPECT_TRUE(differs([](Item& item) { item.Holes.At(1).CounterSunk = "*"; }));
  EXPECT_TRUE(differs([](Item& item) { item.Notches.At(1).Size3 = 999; }));
  EXPECT_FALSE(differs([](Item&) {}));
}

TEST_F(DesignCheckTest, A_row_that_holds_a_mark_alone_is_like_no_other) {
  Add("Z", "", 0);
  Add("Z", "", 0);
  EXPECT_EQ(CheckAcross(OpenJob()).size(), 0U);
}

TEST_F(DesignCheckTest, A_sleeve_whose_product_no_section_has_is_worth_a_look) {
  AddPurlin();
  AccLines2.Append(MakeLine2(6, "S1", 4, {"Z14012"}));
  EXPECT_EQ(CheckAcross(OpenJob()).size(), 0U);
  AccLines2.Append(MakeLine2(6, "S2", 4, {"Z16512"}));
  AccLines2.Append(MakeLine2(6, "S3", 4, {}));          // nothing to look for
  AccLines2.Append(MakeLine2(8, "V1", 4, {"Z16512"}));  // no sleeve
  const std::vector<Finding> findings = CheckAcross(OpenJob());
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(FindingLine(findings.at(0)),
            "S2: sleeve of Z16512, which no section is made of (the job)");
  EXPECT_EQ(findings.at(0).Row, 0);
  EXPECT_EQ(findings.at(0).Grade, FindingGrade::Advice);
}

TEST_F(DesignCheckTest, The_whole_job_is_told_by_rows_with_accessory_lines_behind) {
  AddPurlin();
  Add("Z", "Z14013", 5000).Mark = "P1";
  AccLines2.Append(MakeLine2(6, "S2", 4, {"Z16512"}));
  const std::vector<Finding> findings = CheckJob(OpenJob());
  EXPECT_EQ(Rules(findings), (Texts{"mark-twice", "no-holes", "product-unknown", "mark-twice",
                                    "no-holes", "sleeve-without-product"}));
  EXPECT_EQ(SectionsThatCannotBeMade(findings), 2);
  Items.At(2).Mark = "P2";
  EXPECT_EQ(SectionsThatCannotBeMade(CheckJob(OpenJob())), 1);
  Items.At(2).Product = "Z16512";
  EXPECT_EQ(SectionsThatCannotBeMade(CheckJob(OpenJob())), 0);
}

}  // namespace

}  // namespace orvane
