// What a list will do to the job, row by row.
#include "project/section_list/section_plan.h"

#include <string>
#include <vector>

#include "tests/project/section_list_fixture.h"

namespace orvane {

namespace {

using Words = std::vector<std::string>;
using Result = PlannedSection::Result;
const std::string Arrow = " \xE2\x86\x92 ";

class SectionPlanTest : public test::SectionListTest {
 protected:
  static std::vector<int> Targets(const SectionPlan& plan) {
    std::vector<int> rows;
    for (const PlannedSection& row : plan.Rows) rows.push_back(row.Row);
    return rows;
  }
};

TEST_F(SectionPlanTest, Rows_go_to_the_section_of_their_mark_and_else_come_anew) {
  Put("P1", "Z14012", 6000, 4);
  Put(" P2 ", "Z14012", 6000, 4);
  const SectionPlan plan =
      Plan("P2|Z14012|6000|4\nP3|Z14014|7000|2\np1|Z14012|6000|4\nP1|Z14012|6500|4", 1);
  EXPECT_EQ(Targets(plan), (std::vector<int>{2, 0, 0, 1}));
  EXPECT_EQ(WordsOf(plan), (Words{"No change", "New", "New", "Length 6000" + Arrow + "6500"}));
  EXPECT_EQ(plan.Rows[1].After.SectionType, "Z");
  EXPECT_EQ(plan.Rows[1].After.Product, "Z14014");
  // Nothing has happened yet.
  EXPECT_EQ(Job(), (Words{"Z P1 Z14012 6000 4 ", "Z  P2  Z14012 6000 4 "}));
}

TEST_F(SectionPlanTest, Without_marks_they_fill_the_rows_from_the_current_one_and_then_come_anew) {
  for (const char* mark : {"P1", "P2", "P3"}) Put(mark, "Z14012", 6000, 4);
  const SectionPlan plan = Plan("Z14012|6000\nZ14014|6100\nZ14014|6200", 2, ProductColumn);
  EXPECT_EQ(Targets(plan), (std::vector<int>{2, 3, 0}));
  EXPECT_EQ(WordsOf(plan),
            (Words{"No change", "Product Z14012" + Arrow + "Z14014; Length 6000" + Arrow + "6100",
                   "New"}));
  // A file has no current row: all of it comes anew.
  EXPECT_EQ(Targets(Plan("Z14012|6000\nZ14014|6100", 0, ProductColumn)), (std::vector<int>{0, 0}));
  // A row that is left out keeps its place.
  answers.LeftOut = {0};
  EXPECT_EQ(Targets(Plan("Z14012|6000\nZ14014|6100", 2, ProductColumn)), (std::vector<int>{2, 3}));
}

TEST_F(SectionPlanTest, What_the_grid_refuses_is_refused_with_its_words) {
  Put("P1", "Z14012", 6000, 4);
  const SectionPlan plan = Plan(
      "P1|Z14012|0|4\n"
      "P2|Z14012|15001|4\n"
      "P3|T05010|4001|4\n"
      "P4|Z14013|6000|4\n"
      "P5||6000|4\n"
      "P6|Z14012|6000|99999\n"
      "P7|Z14012|6.5|2\n"
      "P8|Z14012|6 m|2\n"
      "P2|Z14012|6000|1\n"
      "P1||6000|4\n"
      "P1|C20020|6000|4");
  EXPECT_EQ(WordsOf(plan),
            (Words{"Length \"0\": Invalid length",
                   "Length \"15001\": Length exceeds maximum for section (15000)",
                   "Length \"4001\": Length exceeds maximum for section (4000)",
                   "Product \"Z14013\": Not in the list; nearest: Z14012, Z14014",
                   "Product: No product, which tells the family of a new section",
                   "Qty \"99999\": It is larger than 32767",
                   "Length \"6.5\": Only whole numbers are taken here",
                   "Length \"6 m\": Metres aren't taken here: in millimetres it is 6000",
                   // P2 is on its way, though its own row is refused.
                   "Mark \"P2\": Error - Duplicate Mark", "Mark \"P1\": Error - Duplicate Mark",
                   "Mark \"P1\": Error - Duplicate Mark; Product \"C20020\": Not in the list"}));
  EXPECT_EQ(plan.Count(Result::Refused), 11);
}

TEST_F(SectionPlanTest, A_new_section_may_stay_unfinished_as_in_the_grid) {
  const SectionPlan plan = Plan("|Z14012\nP2|Z14012||\nP3|Z14012|0|0");
  EXPECT_EQ(WordsOf(plan), (Words{"New", "New", "New"}));
  EXPECT_EQ(plan.Rows[1].After.Length, 0);
  EXPECT_EQ(plan.Rows[1].Cells.at(LengthColumn).Text, "0");
  EXPECT_EQ(plan.Rows[0].Cells.at(MitreLeftColumn).Text, "0.0");
}

TEST_F(SectionPlanTest, An_empty_text_says_nothing_of_a_section_that_is_there) {
  Item& item = Put("P1", "Z14012", 6000, 4);
  item.Notes = "sleeved";
  item.PatternName = "Butt 1 Sag Bar";
  item.SagBarDia = 18;
  item.MitreLeft = 5;
  EXPECT_EQ(WordsOf(Plan("P1|Z14012|6000|||||||")), Words{"No change"});
  EXPECT_EQ(WordsOf(Plan("P1||6500")), Words{"Length 6000" + Arrow + "6500"});
}

TEST_F(SectionPlanTest, A_mark_that_two_sections_bear_is_refused) {
  Put("P1", "Z14012", 6000, 4);
  Put("P1", "Z14012", 6000, 4);
  EXPECT_EQ(WordsOf(Plan("P1|Z14012|6500")), Words{"Mark \"P1\": 2 sections bear this mark"});
}

TEST_F(SectionPlanTest, The_letter_comes_from_the_product) {
  const SectionPlan plan = Plan("P1|Z14012\nE1|E20016\nC1|C20020\nV1|VCR\nR1|CLR\nT1| T05010 ");
  std::string letters;
  for (const PlannedSection& row : plan.Rows) letters += row.After.SectionType;
  EXPECT_EQ(letters, "ZECVRT");
  EXPECT_EQ(plan.Count(Result::New), 6);
}

TEST_F(SectionPlanTest, A_name_of_two_families_is_asked_once) {
  SectionPlan plan = Plan("P1|AB 12|6000\nP2|AB 12|6000\nP3|Z14012|6000");
  ASSERT_EQ(plan.SharedProducts.size(), 1U);
  EXPECT_EQ(plan.SharedProducts[0].Name, "AB 12");
  EXPECT_EQ(plan.SharedProducts[0].Letters, (Words{"Z", "C"}));
  EXPECT_EQ(WordsOf(plan)[1], "Product \"AB 12\": Products of several families have that name");
  EXPECT_EQ(plan.Count(Result::Refused), 2);

  answers.Families = {{"AB 12", "C"}};
  plan = Plan("P1|AB 12|6000\nP2|AB 12|6000\nP3|Z14012|6000");
  EXPECT_EQ(plan.Count(Result::New), 3);
  EXPECT_EQ(plan.Rows[1].After.SectionType, "C");
  EXPECT_EQ(plan.SharedProducts.size(), 1U);

  // A section that stands there has its family.
  answers.Families.clear();
  Put("P1", "Z14012", 6000, 1);
  plan = Plan("P1|AB 12|6000");
  EXPECT_TRUE(plan.SharedProducts.empty());
  EXPECT_EQ(WordsOf(plan), Words{"Product Z14012" + Arrow + "AB 12"});
}

TEST_F(SectionPlanTest, Thousands_are_asked_once_for_all_numbers) {
  SectionPlan plan = Plan("P1|Z14012|6,000|4\nP2|Z14012|7.500|1 200");
  EXPECT_EQ(plan.AmbiguousNumber, "6,000");
  EXPECT_EQ(WordsOf(plan)[0], "Length \"6,000\": It may be thousands or a fraction");
  EXPECT_EQ(plan.Count(Result::Refused), 2);

  answers.Told = ThreeDigits::Thousands;
  plan = Plan("P1|Z14012|6,000|4\nP2|Z14012|7.500|1 200");
  EXPECT_EQ(plan.AmbiguousNumber, "6,000");
  EXPECT_EQ(plan.Count(Result::New), 2);
  EXPECT_EQ(plan.Rows[0].After.Length, 6000);
  EXPECT_EQ(plan.Rows[1].After.Length, 7500);
  EXPECT_EQ(plan.Rows[1].After.Quantity, 1200);

  answers.Told = ThreeDigits::Fraction;
  plan = Plan("P1|Z14012|6,000|4\nP2|Z14012|7.500|1 200");
  EXPECT_EQ(plan.Rows[0].After.Length, 6);
  EXPECT_EQ(WordsOf(plan)[1], "Length \"7.500\": Only whole numbers are taken here");
}

TEST_F(SectionPlanTest, Punching_sag_bars_pitch_and_mitres_go_by_their_own_rules) {
  const std::string head = "Mark|Product|Punching|Sag bars|Pitch|Mitre left|Mitre right\n";
  const SectionPlan plan = Plan(head +
                                "P1|Z14012|Butt||||\n"
                                "P2|Z14012|Butt 1 Sag Bar||||\n"
                                "P3|Z14012|Butt 1 Sag Bar|Spring Fix (18mm)||22,5|-5\n"
                                "P4|Z14012|Butt|18|||\n"
                                "P5|Z14012|Butt 1 Sag Bar|none|||\n"
                                "P6|Z14012|Butt 1 Sag Bar|16|||\n"
                                "P7|Z14012|Butts||||\n"
                                "P8|Z14012|||5||\n"
                                "E1|E20016|Eaves||22,5\xC2\xB0||\n"
                                "E2|E20016|||7||\n"
                                "E3|E20016|Butt||||\n"
                                "V1|VCR|Custom|||61|x\n");
  EXPECT_EQ(WordsOf(plan),
            (Words{"New", "New", "New", "Sag bars \"18\": The pattern has no sag bars",
                   "Sag bars \"none\": The pattern has sag bars",
                   "Sag bars \"16\": Sag bars are of 18 mm (spring fix) or 14 mm (threaded)",
                   "Punching \"Butts\": Not in the list; nearest: Butt",
                   "Pitch \"5\": A section of this family has no pitch", "New",
                   "Pitch \"7\": Not in the list: 0, 5, 10, 15, 22.5, 30",
                   "Punching \"Butt\": Not in the list",
                   "Mitre left \"61\": A mitre is at most 60 degrees either way; "
                   "Mitre right \"x\": It isn't a number"}));
  EXPECT_EQ(plan.Rows[1].After.SagBarDia, 14);  // as choosing the pattern gives it
  EXPECT_EQ(plan.Rows[2].After.SagBarDia, 18);
  EXPECT_EQ(plan.Rows[2].After.MitreLeft, 22.5F);
  EXPECT_EQ(plan.Rows[2].After.MitreRight, -5.0F);
  EXPECT_EQ(plan.Rows[8].After.Pitch, "22.5");
}

TEST_F(SectionPlanTest,
       A_pattern_that_would_remove_holes_placed_by_hand_waits_until_it_is_allowed) {
  Item& item = Put("P1", "Z14012", 6000, 4);
  item.PatternName = "Custom";
  for (const int x : {500, 1000, 1500}) PutHole(item, static_cast<std::int16_t>(x));
  const std::string list = "Mark|Length|Punching|Sag bars\nP1|6500|Butt 1 Sag Bar|18";
  SectionPlan plan = Plan(list);
  EXPECT_EQ(WordsOf(plan), Words{"Length 6000" + Arrow +
                                 "6500; Punching stays Custom: Butt 1 Sag Bar would remove 3 "
                                 "holes placed by hand"});
  EXPECT_EQ(plan.Rows[0].Cells.at(PunchingColumn).Text, "Custom");
  EXPECT_EQ(plan.Rows[0].After.PatternName, "Custom");
  EXPECT_EQ(plan.Rows[0].RemovedHoles, 3);
  answers.MayRemoveHoles = {0};
  plan = Plan(list);
  EXPECT_EQ(WordsOf(plan), Words{"Length 6000" + Arrow + "6500; Punching Custom" + Arrow +
                                 "Butt 1 Sag Bar; removes 3 holes placed by hand; Sag bars (none)" +
                                 Arrow + "18"});
  // "Custom" keeps them, and a pattern by itself has none to lose.
  answers.MayRemoveHoles.clear();
  EXPECT_EQ(WordsOf(Plan("Mark|Punching\nP1|Custom")), Words{"No change"});
  Items.At(1).Holes.Clear();
  EXPECT_EQ(WordsOf(Plan("Mark|Punching\nP1|Butt")), Words{"Punching Custom" + Arrow + "Butt"});
}

TEST_F(SectionPlanTest, A_pattern_brings_its_sag_bars_into_the_preview) {
  Item& item = Put("P1", "Z14012", 6000, 4);
  item.PatternName = "Butt 1 Sag Bar";
  item.SagBarDia = 18;
  EXPECT_EQ(WordsOf(Plan("Mark|Punching\nP1|Butt")),
            Words{"Punching Butt 1 Sag Bar" + Arrow + "Butt; Sag bars 18" + Arrow + "(none)"});
}

TEST_F(SectionPlanTest, A_row_left_out_frees_its_mark) {
  const std::string list = "P1|Z14012|6000\nP1|Z14014|7000";
  EXPECT_EQ(WordsOf(Plan(list)), (Words{"New", "Mark \"P1\": Error - Duplicate Mark"}));
  answers.LeftOut = {0};
  EXPECT_EQ(WordsOf(Plan(list)), (Words{"Left out", "New"}));
}

TEST_F(SectionPlanTest, A_double_quote_becomes_two_apostrophes_before_marks_are_compared) {
  Put("P''", "Z14012", 6000, 1);
  const SectionPlan plan = Plan("P1|Z14012|6000|1|12\" deep");
  EXPECT_EQ(plan.Rows[0].After.Notes, "12'' deep");
  EXPECT_EQ(WordsOf(Plan("P\"|Z14012|6000|1\nQ\"|Z14012\nQ''|Z14012")),
            (Words{"No change", "New", "Mark \"Q''\": Error - Duplicate Mark"}));
}

TEST_F(SectionPlanTest, A_job_holds_no_more_sections_than_16_bits_count) {
  Items.Resize(32766);
  EXPECT_EQ(WordsOf(Plan("P1|Z14012\nP2|Z14012")),
            (Words{"New", "Mark \"P2\": A job holds no more than 32767 sections"}));
}

}  // namespace

}  // namespace orvane
