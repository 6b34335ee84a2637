#include "holes/hole_coding.h"

#include <map>
#include <vector>

#include "core/catalogues.h"
#include "holes/hole_list.h"
#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Positions = std::vector<int>;

class HoleCodingTest : public test::SystemTest {
 protected:
  // A Z section of that length, with a product of pair spacing 75 and sag bars of 14 mm.
  HoleCodingTest() {
    SectionDim product;
    product.SectionType = "Z";
    product.Product = "Z200";
    product.Dim13 = 75;
    SectionDims.Append(product);
    AddItem("Z", 6000);
  }

  static void AddItem(const std::string& sectionType, int length) {
    Item item;
    item.SectionType = sectionType;
    item.Product = "Z200";
    item.Length = Int16(length);
    item.SagBarDia = 14;
    Items.Append(item);
  }

  static void AddPattern(const std::string& sectionType, const std::string& name,
                         const std::string& codes, Boolean starred = False) {
    PunchPattern pattern;
    pattern.SectionType = sectionType;
    pattern.Name = name;
    pattern.Codes = codes;
    pattern.Starred = starred;
    PunchPatterns.Append(pattern);
  }

  // The holes that a code string gives a section of that length, in order of creation.
  static const Table<Hole>& Expand(const std::string& codes, int length) {
    PunchPatterns.Clear();
    AddPattern("Z", "P", codes);
    Items.At(1).Length = Int16(length);
    RemoveStandardHoles(1);
    ExpandPattern("P", 1);
    return Items.At(1).Holes;
  }

  static Positions PositionsOf(const Table<Hole>& holes) {
    Positions positions;
    for (const Hole& hole : holes) positions.push_back(hole.XPos);
    return positions;
  }

  static Positions ExpandedPositions(const std::string& codes, int length) {
    return PositionsOf(Expand(codes, length));
  }
};

// What one hole of a code is: where it stands at two lengths, its lines in the order bottom flange,
// first web row, second web row, top flange, its diameter and its slot.
struct ExpectedHole {
  int At6000, At6001;
  std::string Lines;
  float Diameter, Slot;
};

constexpr float Bar = 14;  // the item's sag-bar choice

// All codes there are, worked out by hand for pair spacing 75. At 6001 the stations are 1500.25,
// 2000.33, 3000.5, 4000.67, 4500.75, 5969, 1000.17 and 5000.83; 3000.5 goes to the even 3000, but
// its pair 2965.5 and 3035.5 to 2966 and 3036.
const std::map<std::string, std::vector<ExpectedHole>> AllCodes = {
    {"A0", {{32, 32, "nyyn", 18, 0}, {107, 107, "nyyn", 18, 0}}},
    {"A6", {{5893, 5894, "nyyn", 18, 0}, {5968, 5969, "nyyn", 18, 0}}},
    {"B0", {{32, 32, "nyyn", 18, 0}}},
    {"B6", {{5968, 5969, "nyyn", 18, 0}}},
    {"C3", {{2965, 2966, "nyyn", 18, 0}, {3035, 3036, "nyyn", 18, 0}}},
    {"D1", {{1500, 1500, "nyyn", Bar, 0}}},
    {"D2", {{2000, 2000, "nyyn", Bar, 0}}},
    {"D3", {{3000, 3000, "nyyn", Bar, 0}}},
    {"D4", {{4000, 4001, "nyyn", Bar, 0}}},
    {"D5", {{4500, 4501, "nyyn", Bar, 0}}},
    {"D7", {{1000, 1000, "nyyn", Bar, 0}}},
    {"D8", {{5000, 5001, "nyyn", Bar, 0}}},
    {"E1", {{1465, 1465, "nyyn", Bar, 0}, {1535, 1535, "nyyn", Bar, 0}}},
    {"E2", {{1965, 1965, "nyyn", Bar, 0}, {2035, 2035, "nyyn", Bar, 0}}},
    {"E3", {{2965, 2966, "nyyn", Bar, 0}, {3035, 3036, "nyyn", Bar, 0}}},
    {"E4", {{3965, 3966, "nyyn", Bar, 0}, {4035, 4036, "nyyn", Bar, 0}}},
    {"E5", {{4465, 4466, "nyyn", Bar, 0}, {4535, 4536, "nyyn", Bar, 0}}},
    {"E7", {{965, 965, "nyyn", Bar, 0}, {1035, 1035, "nyyn", Bar, 0}}},
    {"E8", {{4965, 4966, "nyyn", Bar, 0}, {5035, 5036, "nyyn", Bar, 0}}},
    {"F0", {{32, 32, "yyyn", 18, 0}}},
    {"F1", {{1500, 1500, "yyyn", 18, 0}}},
    {"F2", {{2000, 2000, "yyyn", 18, 0}}},
    {"F3", {{3000, 3000, "yyyn", 18, 0}}},
    {"F4", {{4000, 4001, "yyyn", 18, 0}}},
    {"F5", {{4500, 4501, "yyyn", 18, 0}}},
    {"F6", {{5968, 5969, "yyyn", 18, 0}}},
    {"F7", {{1000, 1000, "yyyn", 18, 0}}},
    {"F8", {{5000, 5001, "yyyn", 18, 0}}},
    {"G1", {{1500, 1500, "ynnn", 18, 0}}},
    {"G2", {{2000, 2000, "ynnn", 18, 0}}},
    {"G3", {{3000, 3000, "ynnn", 18, 0}}},
    {"G4", {{4000, 4001, "ynnn", 18, 0}}},
    {"G5", {{4500, 4501, "ynnn", 18, 0}}},
    {"H2", {{2000, 2000, "nynn", Bar, 0}}},
    {"H3", {{3000, 3000, "nynn", Bar, 0}}},
    {"H4", {{4000, 4001, "nynn", Bar, 0}}},
    {"I3", {{2965, 2966, "yyyn", 18, 0}, {3035, 3036, "yyyn", 18, 0}}},
    {"S0", {{35, 35, "nnny", 18, 28}}},
    {"S6", {{5965, 5966, "nnny", 18, 28}}},
    {"T0", {{32, 32, "nyyn", 14, 0}, {72, 72, "ynny", 14, 0}}},
    {"T6", {{5968, 5969, "nyyn", 14, 0}, {5928, 5929, "ynny", 14, 0}}},
};

TEST_F(HoleCodingTest, Every_code_of_the_table_makes_its_holes_in_order) {
  ASSERT_EQ(AllCodes.size(), 41u);
  // Seen against the item's bar, the fixed 14 of the T codes could hide a mistake.
  for (const std::int16_t bar : {std::int16_t{14}, std::int16_t{18}, std::int16_t{0}}) {
    Items.At(1).SagBarDia = bar;
    for (const auto& [code, expected] : AllCodes) {
      for (const int length : {6000, 6001}) {
        SCOPED_TRACE(code + " at " + std::to_string(length));
        const bool barHole = code[0] == 'D' || code[0] == 'E' || code[0] == 'H';
        const Table<Hole>& holes = Expand(code, length);
        ASSERT_EQ(holes.UBound(), static_cast<int>(expected.size()));
        EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
        int row = 0;
        for (const ExpectedHole& wanted : expected) {
          const Hole& hole = holes.At(++row);
          EXPECT_EQ(hole.XPos, length == 6000 ? wanted.At6000 : wanted.At6001);
          EXPECT_EQ(hole.Kind, "S");
          EXPECT_EQ(hole.BF + hole.W1 + hole.W2 + hole.TF, wanted.Lines);
          EXPECT_EQ(hole.Diameter, barHole ? bar : wanted.Diameter);
          EXPECT_EQ(hole.SlotLength, wanted.Slot);
          EXPECT_EQ(hole.RelX, 0);
          EXPECT_EQ(hole.DrawGap, 0);
          EXPECT_EQ(hole.CounterSunk, " ");
        }
      }
    }
  }
}

TEST_F(HoleCodingTest, No_other_pair_of_characters_is_a_code) {
  int known = 0;
  for (int first = 1; first < 256; ++first) {
    for (int second = 1; second < 256; ++second) {
      const std::string code{static_cast<char>(first), static_cast<char>(second)};
      const int holes = Expand(code, 6000).UBound();
      const bool expected = AllCodes.count(code) != 0;
      ASSERT_EQ(holes > 0, expected) << first << " " << second;
      known += holes > 0 ? 1 : 0;
    }
  }
  EXPECT_EQ(known, 41);
}

TEST_F(HoleCodingTest, Unknown_codes_add_nothing_and_the_walk_goes_on) {
  EXPECT_EQ(ExpandedPositions("X9,A1,B3,b0, B,D6,B6", 6000), (Positions{5968}));
}

TEST_F(HoleCodingTest, A_half_goes_to_the_even_neighbour) {
  struct Case {
    std::string Code;
    int Length;
    Positions Expected;
  };
  const std::vector<Case> cases = {
      {"D3", 1001, {500}},         // 500.5
      {"D3", 1003, {502}},         // 501.5
      {"E1", 6002, {1466, 1536}},  // 1500.5 -35 and +35
      {"E5", 6002, {4466, 4536}},  // 4501.5 -35 and +35
      {"F1", 6002, {1500}},        // 1500.5
      {"F5", 6002, {4502}},        // 4501.5
      {"F7", 6003, {1000}},        // 1000.5
      {"F8", 6003, {5002}},        // 5002.5
      {"F7", 6009, {1002}},        // 1001.5
      {"F8", 6009, {5008}},        // 5007.5
      {"E7", 6003, {966, 1036}},   // 965.5 and 1035.5
      {"E8", 6003, {4968, 5038}},  // 4967.5 and 5037.5
      {"C3", 6001, {2966, 3036}},  // 2965.5 and 3035.5
      {"F4", 6002, {4001}},        // 4001.33
      {"F2", 32767, {10922}},      // 10922.33
      {"F8", 32767, {27306}},      // 27305.83
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ExpandedPositions(c.Code, c.Length), c.Expected) << c.Code << " at " << c.Length;
  }
}

TEST_F(HoleCodingTest, A_pair_is_rounded_behind_its_sum) {
  EXPECT_EQ(ExpandedPositions("E2", 6000), (Positions{1965, 2035}));
  EXPECT_EQ(ExpandedPositions("E2", 6001), (Positions{1965, 2035}));
}

TEST_F(HoleCodingTest, End_pairs_come_in_the_order_of_their_codes) {
  EXPECT_EQ(ExpandedPositions("A0,A6", 3000), (Positions{32, 107, 2893, 2968}));
  EXPECT_EQ(ExpandedPositions("A6,A0", 3000), (Positions{2893, 2968, 32, 107}));
}

TEST_F(HoleCodingTest, A_broken_pair_spacing_is_rounded_at_the_end) {
  SectionDims.At(1).Dim13 = 60.5;
  // 92.5 to the even 92; 3000 - 32 - 60.5 = 2907.5 to the even 2908.
  EXPECT_EQ(ExpandedPositions("A0,A6", 3000), (Positions{32, 92, 2908, 2968}));
}

TEST_F(HoleCodingTest, A_product_without_dimensions_puts_the_end_pair_at_one_place) {
  Items.At(1).Product = "none";
  EXPECT_EQ(ExpandedPositions("A0,A6", 3000), (Positions{32, 32, 2968, 2968}));
}

TEST_F(HoleCodingTest, The_length_of_the_string_gives_the_number_of_codes) {
  struct Case {
    std::string Codes;
    Positions Expected;
  };
  const std::vector<Case> cases = {
      {"", {}},
      {"B", {}},                      // one character: whole(2/3) = 1 code that is none
      {"B0", {32}},                   // two: one code
      {"B0,", {32}},                  // three: whole(4/3) = 1
      {"B0,B", {32}},                 // four: whole(5/3) = 2, the second is none
      {"B0,B6", {32, 5968}},          // five: two codes
      {"B0,B6 ", {32, 5968}},         // a stray blank: whole(7/3) = 2
      {"B0,B6,F", {32, 5968}},        // seven: whole(8/3) = 3, the third is none
      {"B0,B6,F3", {32, 5968, 3000}}  // eight: three codes
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ExpandedPositions(c.Codes, 6000), c.Expected) << "\"" << c.Codes << "\"";
  }
}

TEST_F(HoleCodingTest, The_separator_is_one_character_of_any_kind) {
  for (const std::string separator : {",", " ", "x", "0", "\xC2\xB7", "\xE2\x80\x93"}) {
    EXPECT_EQ(ExpandedPositions("B0" + separator + "F3" + separator + "B6", 6000),
              (Positions{32, 3000, 5968}))
        << separator;
  }
  // Two separators shift the reading: "B0", then ",F".
  EXPECT_EQ(ExpandedPositions("B0,,F3", 6000), (Positions{32}));
}

TEST_F(HoleCodingTest, More_codes_than_16_bits_can_count_overflow) {
  // 98301 characters: 98302 / 3 = 32767.33, the greatest count; one more code is too many. Nothing
  // but the count is at stake, so the codes are none.
  EXPECT_EQ(Expand(std::string(98301, 'x'), 6000).UBound(), 0);
  EXPECT_EQ(test::ErrorOf([] { Expand(std::string(98304, 'x'), 6000); }), "Overflow");
}

TEST_F(HoleCodingTest, The_pattern_is_the_first_of_the_items_letter_and_that_name) {
  AddPattern("C", "Std", "F0");
  AddPattern("Z", "std", "F1");
  AddPattern("Z", " Std ", "F2", True);
  AddPattern("Z", "Std", "F3");
  ExpandPattern("Std", 1);
  EXPECT_EQ(PositionsOf(Items.At(1).Holes), (Positions{2000}));
  EXPECT_EQ(Items.At(1).Holes.At(1).CounterSunk, "*");
  // The name asked for is not trimmed.
  ExpandPattern(" Std ", 1);
  EXPECT_EQ(Items.At(1).HoleCount(), 1);
}

TEST_F(HoleCodingTest, A_first_pattern_with_an_empty_string_ends_the_search) {
  AddPattern("Z", "Std", "");
  AddPattern("Z", "Std", "F3");
  ExpandPattern("Std", 1);
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
}

TEST_F(HoleCodingTest, A_pattern_of_another_letter_is_not_taken) {
  AddPattern("C", "Std", "F0");
  ExpandPattern("Std", 1);
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 0);
}

TEST_F(HoleCodingTest, Expanding_goes_by_letter_and_name_but_the_sag_bar_look_up_by_name_alone) {
  AddPattern("C", "Two bars", "D2,D4");
  PunchPatterns.At(1).HasSagBars = True;
  AddPattern("Z", "Two bars", "D3");
  Items.At(1).SagBarDia = 0;
  // The sag-bar choice of a Z section follows the C row; its holes follow the Z row.
  EXPECT_EQ(FindPunchPattern("Two bars"), 1);
  ExpandPattern("Two bars", 1);
  EXPECT_EQ(PositionsOf(Items.At(1).Holes), (Positions{3000}));
  EXPECT_EQ(Items.At(1).Holes.At(1).Diameter, 0.0F);
}

TEST_F(HoleCodingTest, Custom_names_no_pattern_and_adds_nothing) {
  ExpandPattern("Custom", 1);  // no patterns at all
  AddPattern("Z", "Std", "F3");
  ExpandPattern("Custom", 1);
  ExpandPattern("", 1);
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 0);
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(HoleCodingTest, Expanding_twice_doubles_the_holes_and_leaves_the_earlier_rows) {
  AddPattern("Z", "Std", "F3,A0");
  ExpandPattern("Std", 1);
  Items.At(1).Holes.At(0).XPos = 6000;
  Items.At(1).Holes.At(1).RelX = 7;
  ExpandPattern("Std", 1);
  EXPECT_EQ(PositionsOf(Items.At(1).Holes), (Positions{3000, 32, 107, 3000, 32, 107}));
  EXPECT_EQ(Items.At(1).HoleCount(), 6);
  EXPECT_EQ(Items.At(1).Holes.At(1).RelX, 7);
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 6000);
}

TEST_F(HoleCodingTest, A_starred_pattern_marks_all_its_holes_slots_too) {
  AddPattern("Z", "Csk", "S0,F3,T6,S6", True);
  ExpandPattern("Csk", 1);
  ASSERT_EQ(Items.At(1).HoleCount(), 5);
  for (const Hole& hole : Items.At(1).Holes) EXPECT_EQ(hole.CounterSunk, "*");
}

TEST_F(HoleCodingTest, A_section_too_short_for_its_pattern_still_gets_its_holes) {
  EXPECT_EQ(ExpandedPositions("B6,T6,S0,A0", 20), (Positions{-12, -12, -52, 35, 32, 107}));
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(HoleCodingTest, A_position_beyond_16_bits_overflows_before_its_hole_is_appended) {
  SectionDims.At(1).Dim13 = 40000;
  AddPattern("Z", "P", "A0,F3");
  EXPECT_EQ(test::ErrorOf([] { ExpandPattern("P", 1); }), "Overflow");
  // The first hole of the pair stands, the second was never made, the walk is over.
  EXPECT_EQ(PositionsOf(Items.At(1).Holes), (Positions{32}));
  EXPECT_EQ(Items.At(1).HoleCount(), 1);

  EXPECT_EQ(test::ErrorOf([] { Expand("B6", -32768); }), "Overflow");
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 0);
}

TEST_F(HoleCodingTest, The_greatest_length_expands_without_overflow) {
  EXPECT_EQ(ExpandedPositions("A6,T6,S6", 32767), (Positions{32660, 32735, 32735, 32695, 32732}));
}

TEST_F(HoleCodingTest, Pitch_jointing_and_notes_have_no_part_in_the_expansion) {
  Items.At(1).Pitch = "22.5";
  Items.At(1).JointingPieces = 3;
  Items.At(1).MitreLeft = 10;
  EXPECT_EQ(ExpandedPositions("A0,E3", 6000), (Positions{32, 107, 2965, 3035}));
}

TEST_F(HoleCodingTest, A_row_outside_the_table_is_out_of_range) {
  EXPECT_EQ(test::ErrorOf([] { ExpandPattern("P", 2); }), "Subscript out of range");
  EXPECT_EQ(test::ErrorOf([] { ExpandPattern("P", -1); }), "Subscript out of range");
  EXPECT_EQ(test::ErrorOf([] { AddHole(2, 5, "S", "n", "n", "n", "n", 18); }),
            "Subscript out of range");
}

TEST_F(HoleCodingTest, AddHole_appends_one_hole_and_gives_its_position_back) {
  Items.At(1).CustomHoleCount = 1;
  Hole first;
  first.XPos = 10;
  first.Kind = "C";
  Items.At(1).Holes.Append(first);

  EXPECT_EQ(AddHole(1, -7, "S", "a", "b", "c", "d", 18), -7);
  EXPECT_EQ(AddHole(1, 9, "S", "y", "n", "y", "n", 14, 28, True), 9);

  const Item& item = Items.At(1);
  ASSERT_EQ(item.Holes.UBound(), 3);
  EXPECT_EQ(item.HoleCount(), 3);
  EXPECT_EQ(item.CustomHoleCount, 1);
  EXPECT_EQ(item.Holes.At(1).XPos, 10);
  const Hole& plain = item.Holes.At(2);
  EXPECT_EQ(plain.XPos, -7);
  EXPECT_EQ(plain.Kind, "S");
  EXPECT_EQ(plain.BF + plain.W1 + plain.W2 + plain.TF, "abcd");
  EXPECT_EQ(plain.Diameter, 18.0F);
  EXPECT_EQ(plain.SlotLength, 0.0F);
  EXPECT_EQ(plain.CounterSunk, " ");
  const Hole& slot = item.Holes.At(3);
  EXPECT_EQ(slot.Diameter, 14.0F);
  EXPECT_EQ(slot.SlotLength, 28.0F);
  EXPECT_EQ(slot.CounterSunk, "*");
}

TEST_F(HoleCodingTest, AddHole_refuses_the_hole_that_16_bits_cannot_count) {
  Items.At(1).Holes.Resize(32767);
  EXPECT_EQ(test::ErrorOf([] { AddHole(1, 5, "S", "n", "n", "n", "n", 18); }), "Overflow");
  EXPECT_EQ(Items.At(1).HoleCount(), 32767);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 32767);
}

}  // namespace
}  // namespace orvane
