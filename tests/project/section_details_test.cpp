#include "project/rules/section_details.h"

#include <optional>
#include <string>
#include <vector>

#include "holes/hole_list.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using test::ErrorOf;
using Texts = std::vector<std::string>;

Texts TextsOf(const Table<std::string>& table) {
  return {table.begin(), table.end()};
}

class SectionDetailsTest : public test::SystemTest {
 protected:
  SectionDetailsTest() {
    AddItem("Z");
    AddItem("Z");
    CurrentSection = Item{};
  }

  // A section with one custom hole and one pattern hole.
  static void AddItem(const std::string& letter) {
    Item item;
    item.Mark = "mark";
    item.SectionType = letter;
    item.Length = 3000;
    item.CustomHoleCount = 1;
    item.Holes.At(0).XPos = 3000;
    item.Holes.Append({500, "C", "n", "y", "n", "n", 18, 0, 0, 0, ""});
    item.Holes.Append({600, "S", "n", "y", "n", "n", 14, 0, 0, 0, " "});
    item.PatternName = "Custom";
    item.Pitch = "15";
    item.JointingPieces = 7;
    item.SagBarDia = 16;
    Items.Append(item);
  }

  static void AddPattern(const std::string& letter, const std::string& name, bool sagBars,
                         const std::string& codes = "A0") {
    PunchPatterns.Append({letter, name, codes, ToBoolean(sagBars), False});
  }

  static void AddProduct(const std::string& letter, const std::string& product) {
    SectionDim dims;
    dims.SectionType = letter;
    dims.Product = product;
    SectionDims.Append(dims);
  }

  // Section 2, which no test chooses anything for, is as it was made.
  static void ExpectOtherUntouched() {
    const Item& item = Items.At(2);
    EXPECT_EQ(item.HoleCount(), 2);
    EXPECT_EQ(item.Holes.UBound(), 2);
    EXPECT_EQ(item.CustomHoleCount, 1);
    EXPECT_EQ(item.PatternName, "Custom");
    EXPECT_EQ(item.Pitch, "15");
    EXPECT_EQ(item.JointingPieces, 7);
    EXPECT_EQ(item.SagBarDia, 16);
    EXPECT_EQ(ProjectDirty, False);
  }

  // Element 0 of the sections, which stands for none, is blank.
  static void ExpectBlankElement0() {
    const Item& item = Items.At(0);
    EXPECT_EQ(item.PatternName, "");
    EXPECT_EQ(item.Pitch, "");
    EXPECT_EQ(item.JointingPieces, 0);
    EXPECT_EQ(item.SagBarDia, 0);
    EXPECT_EQ(item.HoleCount(), 0);
  }
};

// What the panel offers.

TEST_F(SectionDetailsTest, The_pitches_are_those_of_an_eaves_beam) {
  EXPECT_EQ(TextsOf(Pitches), (Texts{"0", "5", "10", "15", "22.5", "30"}));
}

TEST_F(SectionDetailsTest, The_products_of_a_letter_come_in_file_order) {
  AddProduct("Z", "Z2");
  AddProduct("C", "C1");
  AddProduct("z", "lower");
  AddProduct("Z", "Z1");
  EXPECT_EQ(TextsOf(SectionProducts("Z")), (Texts{"Z2", "Z1"}));
  EXPECT_EQ(TextsOf(SectionProducts("C")), (Texts{"C1"}));
  EXPECT_EQ(TextsOf(SectionProducts("T")), Texts{});
}

TEST_F(SectionDetailsTest, ProductNamed_gives_the_letters_product_as_the_catalogue_has_it) {
  AddProduct("C", "B1");
  AddProduct("Z", "A1");
  AddProduct("Z", " B1 ");
  AddProduct("Z", "B1");
  EXPECT_EQ(ProductNamed("Z", "A1"), "A1");
  EXPECT_EQ(ProductNamed("Z", "  A1 "), "A1");
  EXPECT_EQ(ProductNamed("Z", "B1"), " B1 ");  // the first of two
  EXPECT_EQ(ProductNamed("C", "B1"), "B1");
  for (const std::string text : {"a1", "A", "A11", "", "  "}) {
    EXPECT_EQ(ProductNamed("Z", text), std::nullopt) << text;
  }
  EXPECT_EQ(ProductNamed("C", "A1"), std::nullopt);
  EXPECT_EQ(ProductNamed("", "A1"), std::nullopt);
}

TEST_F(SectionDetailsTest, The_patterns_of_a_letter_stand_behind_Custom_in_file_order) {
  AddPattern("Z", "Slvd", false);
  AddPattern("C", "Butted", false);
  AddPattern("Z", "Butted", false);
  EXPECT_EQ(TextsOf(PatternNames("Z")), (Texts{"Custom", "Slvd", "Butted"}));
  EXPECT_EQ(TextsOf(PatternNames("C")), (Texts{"Custom", "Butted"}));
  EXPECT_EQ(TextsOf(PatternNames("V")), (Texts{"Custom"}));
}

TEST_F(SectionDetailsTest, Only_eaves_beams_have_a_pitch_and_only_cleader_rails_jointing_pieces) {
  for (const std::string letter : {"Z", "E", "C", "V", "R", "T", "Q", "", "e", "r"}) {
    EXPECT_EQ(HasPitch(letter), letter == "E") << letter;
    EXPECT_EQ(HasJointingPieces(letter), letter == "R") << letter;
  }
}

struct Dia {
  int Stored;
  SagBars Shown;
  int Becomes;
};

TEST_F(SectionDetailsTest, The_choice_shows_18_and_takes_any_other_diameter_for_14) {
  const std::vector<Dia> dias = {
      {0, SagBars::Hidden, 0},     {14, SagBars::Threaded, 14}, {18, SagBars::SpringFix, 18},
      {16, SagBars::Threaded, 14}, {1, SagBars::Threaded, 14},  {17, SagBars::Threaded, 14},
      {19, SagBars::Threaded, 14}, {-1, SagBars::Hidden, -1},   {-18, SagBars::Hidden, -18},
  };
  for (const std::string letter : {"Z", "C", "V", "T"}) {
    Items.At(1).SectionType = letter;  // whichever letter it is
    for (const Dia& dia : dias) {
      Items.At(1).SagBarDia = Int16(dia.Stored);
      EXPECT_EQ(ShownSagBars(1), dia.Shown) << dia.Stored;
      EXPECT_EQ(Items.At(1).SagBarDia, dia.Stored) << "asking changes nothing";
      SettleSagBars(1);
      EXPECT_EQ(Items.At(1).SagBarDia, dia.Becomes) << dia.Stored;
    }
  }
  EXPECT_EQ(ShownSagBars(0), SagBars::Hidden);
  SettleSagBars(0);
  ExpectBlankElement0();
  ExpectOtherUntouched();
}

// Selecting a pattern.

TEST_F(SectionDetailsTest, Leaving_Custom_asks_only_for_another_entry_and_with_holes) {
  EXPECT_TRUE(RemovesCustomHoles(1, 1));
  EXPECT_TRUE(RemovesCustomHoles(1, 2));
  EXPECT_FALSE(RemovesCustomHoles(1, 0));  // Custom again
  EXPECT_FALSE(RemovesCustomHoles(1, -1));
  Items.At(1).Holes.Remove(2);
  EXPECT_TRUE(RemovesCustomHoles(1, 1));
  Items.At(1).Holes.Clear();
  EXPECT_FALSE(RemovesCustomHoles(1, 1));
  Items.At(1).Holes = Items.At(2).Holes;
  for (const std::string pattern : {"", "Slvd", "custom"}) {
    Items.At(1).PatternName = pattern;
    EXPECT_FALSE(RemovesCustomHoles(1, 1)) << pattern;
  }
  EXPECT_FALSE(RemovesCustomHoles(0, 1));
}

TEST_F(SectionDetailsTest, Asking_changes_nothing) {
  RemovesCustomHoles(2, 1);
  ExpectOtherUntouched();
}

TEST_F(SectionDetailsTest, The_answer_Yes_takes_all_holes_and_leaves_the_custom_count) {
  EmptyHoles(1);
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 0);
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 0);  // the end sentinel goes too
  EXPECT_EQ(Items.At(1).CustomHoleCount, 1);
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  ExpectOtherUntouched();
}

TEST_F(SectionDetailsTest, No_pattern_takes_the_name_and_the_sag_bars) {
  ClearPattern(1);
  EXPECT_EQ(Items.At(1).PatternName, "");
  EXPECT_EQ(Items.At(1).SagBarDia, 0);
  EXPECT_EQ(Items.At(1).HoleCount(), 2);  // nothing else
  ClearPattern(0);
  ExpectBlankElement0();
  ExpectOtherUntouched();
}

TEST_F(SectionDetailsTest, The_pattern_name_is_the_trimmed_text_of_the_list) {
  SetPattern(1, " Slvd 2 ");
  EXPECT_EQ(Items.At(1).PatternName, "Slvd 2");
  EXPECT_EQ(Items.At(1).SagBarDia, 16);
  EXPECT_EQ(Items.At(1).HoleCount(), 2);
  SetPattern(0, "Slvd 2");
  ExpectBlankElement0();
  ExpectOtherUntouched();
}

TEST_F(SectionDetailsTest, A_sag_bar_pattern_keeps_18_and_makes_anything_else_14) {
  AddPattern("Z", "plain", false);
  AddPattern("Z", "sag", true);
  const std::vector<Dia> dias = {{0, SagBars::Threaded, 14},
                                 {14, SagBars::Threaded, 14},
                                 {16, SagBars::Threaded, 14},
                                 {-18, SagBars::Threaded, 14},
                                 {18, SagBars::SpringFix, 18}};
  for (const Dia& dia : dias) {
    Items.At(1).SagBarDia = Int16(dia.Stored);
    EXPECT_EQ(SagBarsOfPattern(1, "sag"), dia.Shown) << dia.Stored;
    EXPECT_EQ(Items.At(1).SagBarDia, dia.Stored) << "asking changes nothing";
    SetSagBarsOfPattern(1, "sag");
    EXPECT_EQ(Items.At(1).SagBarDia, dia.Becomes) << dia.Stored;
  }
  ExpectOtherUntouched();
}

TEST_F(SectionDetailsTest, Any_other_pattern_takes_the_sag_bars) {
  AddPattern("Z", "sag", true);
  AddPattern("Z", "plain", false);
  for (const std::string pattern : {"plain", "Custom", "unknown", "SAG"}) {
    Items.At(1).SagBarDia = 18;
    EXPECT_EQ(SagBarsOfPattern(1, pattern), SagBars::Hidden) << pattern;
    EXPECT_EQ(Items.At(1).SagBarDia, 18) << "asking changes nothing";
    SetSagBarsOfPattern(1, pattern);
    EXPECT_EQ(Items.At(1).SagBarDia, 0) << pattern;
  }
}

TEST_F(SectionDetailsTest, The_first_pattern_of_the_name_decides_whichever_letter_it_has) {
  AddPattern("C", "both", true);
  AddPattern("Z", "both", false);
  AddPattern("C", "other", false);
  AddPattern("Z", "other", true);
  EXPECT_EQ(SagBarsOfPattern(1, "both"), SagBars::Threaded);
  EXPECT_EQ(SagBarsOfPattern(1, "other"), SagBars::Hidden);
}

TEST_F(SectionDetailsTest, Without_patterns_or_a_section_the_sag_bars_stay) {
  EXPECT_EQ(SagBarsOfPattern(1, "sag"), std::nullopt);
  SetSagBarsOfPattern(1, "sag");
  EXPECT_EQ(Items.At(1).SagBarDia, 16);
  AddPattern("Z", "sag", true);
  EXPECT_EQ(SagBarsOfPattern(0, "sag"), std::nullopt);
  SetSagBarsOfPattern(0, "sag");
  ExpectBlankElement0();
}

// The steps together with the rebuild that ends them.

TEST_F(SectionDetailsTest, Custom_over_a_standard_pattern_keeps_nothing_but_the_custom_holes) {
  AddPattern("Z", "sag", true);
  Items.At(1).PatternName = "sag";
  ASSERT_FALSE(RemovesCustomHoles(1, 0));
  SetPattern(1, "Custom");
  SetSagBarsOfPattern(1, "Custom");
  RebuildHoles(1, "Custom");
  EXPECT_EQ(Items.At(1).HoleCount(), 1);
  EXPECT_EQ(Items.At(1).Holes.At(1).Kind, "C");
  EXPECT_EQ(Items.At(1).SagBarDia, 0);
  EXPECT_EQ(HoleGridRows(1).UBound(), 1);

  Items.At(2).PatternName = "sag";
  Items.At(2).Holes.Remove(1);  // a standard pattern has no custom hole as a rule
  SetPattern(2, "Custom");
  RebuildHoles(2, "Custom");
  EXPECT_EQ(Items.At(2).HoleCount(), 0);
  EXPECT_EQ(HoleGridRows(2).UBound(), 0);
}

TEST_F(SectionDetailsTest, A_standard_pattern_over_Custom_has_its_own_holes_alone) {
  AddPattern("Z", "sag", true);
  AddProduct("Z", "Z1");
  Items.At(1).Product = "Z1";
  ASSERT_TRUE(RemovesCustomHoles(1, 1));
  EmptyHoles(1);
  SetPattern(1, "sag");
  SetSagBarsOfPattern(1, "sag");
  RebuildHoles(1, "sag");
  EXPECT_EQ(Items.At(1).PatternName, "sag");
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
  EXPECT_GT(Items.At(1).HoleCount(), 0);
  for (const Hole& hole : Items.At(1).Holes) EXPECT_EQ(hole.Kind, "S");
}

// The other choices.

TEST_F(SectionDetailsTest, Option_1_of_the_sag_bars_is_14_and_option_0_is_18) {
  SetSagBars(1, 1);
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  SetSagBars(1, 0);
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(Items.At(1).HoleCount(), 2);
  SetSagBars(0, 1);
  ExpectBlankElement0();
  ExpectOtherUntouched();
}

TEST_F(SectionDetailsTest, The_pitch_is_the_trimmed_text_of_the_list_and_the_holes_stay) {
  SetPitch(1, " 22.5 ");
  EXPECT_EQ(Items.At(1).Pitch, "22.5");
  EXPECT_EQ(Items.At(1).HoleCount(), 2);
  SetPitch(0, "30");
  ExpectBlankElement0();
  ExpectOtherUntouched();
}

TEST_F(SectionDetailsTest, Jointing_pieces_are_the_number_in_front_rounded_half_to_even) {
  struct Case {
    std::string Text;
    int Pieces;
  };
  for (const Case& typed : std::vector<Case>{{"4", 4},
                                             {"2.5", 2},
                                             {"3.5", 4},
                                             {"", 0},
                                             {"abc", 0},
                                             {" 12 off", 12},
                                             {"-3", -3},
                                             {"32767", 32767}}) {
    SetJointingPieces(1, typed.Text);
    EXPECT_EQ(Items.At(1).JointingPieces, typed.Pieces) << typed.Text;
  }
  EXPECT_EQ(Items.At(1).HoleCount(), 2);
  SetJointingPieces(0, "4");
  ExpectBlankElement0();
  ExpectOtherUntouched();
}

TEST_F(SectionDetailsTest, Jointing_pieces_beyond_16_bits_overflow_and_stay) {
  EXPECT_EQ(ErrorOf([] { SetJointingPieces(1, "32768"); }), "Overflow");
  EXPECT_EQ(Items.At(1).JointingPieces, 7);
}

// The scratch section.

TEST_F(SectionDetailsTest, The_scratch_section_is_blank_but_for_its_letter_and_the_day) {
  CurrentSection = Items.At(1);
  CurrentSection.Quantity = 3;
  CurrentSection.MitreLeft = 5;
  CurrentSection.Notches.Append({"T2", 1, 2, 3});
  ClearCurrentSection("E", {2024, 3, 5});
  EXPECT_EQ(CurrentSection.SectionType, "E");
  EXPECT_EQ(CurrentSection.DateText, "05/03/2024");
  EXPECT_EQ(CurrentSection.Mark, "");
  EXPECT_EQ(CurrentSection.PatternName, "");
  EXPECT_EQ(CurrentSection.Pitch, "");
  EXPECT_EQ(CurrentSection.Length, 0);
  EXPECT_EQ(CurrentSection.Quantity, 0);
  EXPECT_EQ(CurrentSection.MitreLeft, 0);
  EXPECT_EQ(CurrentSection.HoleCount(), 0);
  EXPECT_EQ(CurrentSection.Holes.UBound(), 0);
  EXPECT_EQ(CurrentSection.Holes.At(0).XPos, 0);
  EXPECT_EQ(CurrentSection.NotchCount(), 0);
  EXPECT_EQ(CurrentSection.Notches.UBound(), 0);
  EXPECT_EQ(Items.At(1).DateText, "");  // the sections' own stay empty
  ExpectOtherUntouched();
}

}  // namespace

}  // namespace orvane
