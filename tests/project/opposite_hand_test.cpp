#include <cmath>
#include <vector>

#include "holes/hole_list.h"
#include "project/sections.h"
#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Positions = std::vector<int>;

class OppositeHandTest : public test::SystemTest {
 protected:
  // One section of 3000 mm, row 1.
  OppositeHandTest() {
    Item item;
    item.Mark = "P1";
    item.SectionType = "Z";
    item.Length = 3000;
    Items.Append(item);
  }

  static void AddHole(int x, const std::string& kind = "S") {
    Hole hole;
    hole.XPos = Int16(x);
    hole.Kind = kind;
    Item& item = Items.At(1);
    item.Holes.Append(hole);
    if (kind == "C") ++item.CustomHoleCount;
  }

  static void AddNotch(const std::string& code, float size1, float size2, float size3) {
    Notch notch;
    notch.Code = code;
    notch.Size1 = size1;
    notch.Size2 = size2;
    notch.Size3 = size3;
    Item& item = Items.At(1);
    item.Notches.Append(notch);
  }

  static Positions PositionsOf(int row) {
    Positions positions;
    for (const Hole& hole : Items.At(row).Holes) positions.push_back(hole.XPos);
    return positions;
  }
};

TEST_F(OppositeHandTest, Positions_are_measured_from_the_other_end) {
  AddHole(32);
  AddHole(1000);
  EXPECT_EQ(CreateOppHandRow(1), 2);
  EXPECT_EQ(PositionsOf(2), (Positions{2000, 2968}));
  EXPECT_EQ(PositionsOf(1), (Positions{32, 1000}));
  EXPECT_EQ(Items.At(2).HoleCount(), 2);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OppositeHandTest, The_new_row_is_last_and_keeps_all_that_has_no_hand) {
  Item& item = Items.At(1);
  item.Product = "Z200";
  item.Quantity = 12;
  item.DateText = "d";
  item.Notes = "note";
  item.PatternName = "Std";
  item.Pitch = "22.5";
  item.JointingPieces = 4;
  item.SagBarDia = 18;
  item.CustomHoleCount = 5;  // as copied, whatever it holds
  Items.Append({});
  Items.At(2).Mark = "P2";

  EXPECT_EQ(CreateOppHandRow(1), 3);

  const Item& hand = Items.At(3);
  EXPECT_EQ(hand.Mark, "P1X");
  EXPECT_EQ(hand.SectionType, "Z");
  EXPECT_EQ(hand.Product, "Z200");
  EXPECT_EQ(hand.Length, 3000);
  EXPECT_EQ(hand.Quantity, 12);
  EXPECT_EQ(hand.DateText, "d");
  EXPECT_EQ(hand.Notes, "note");
  EXPECT_EQ(hand.PatternName, "Std");
  EXPECT_EQ(hand.Pitch, "22.5");
  EXPECT_EQ(hand.JointingPieces, 4);
  EXPECT_EQ(hand.SagBarDia, 18);
  EXPECT_EQ(hand.CustomHoleCount, 5);
  EXPECT_EQ(Items.At(1).Mark, "P1");
  EXPECT_EQ(Items.At(2).Mark, "P2");
}

TEST_F(OppositeHandTest, What_a_hole_is_goes_with_it_and_lines_are_not_swapped) {
  AddHole(100, "C");
  Hole& first = Items.At(1).Holes.At(1);
  first.BF = "y";
  first.W1 = "n";
  first.W2 = "31.5";
  first.TF = "30";
  first.Diameter = 14;
  first.SlotLength = 22.5F;
  first.CounterSunk = "*";
  AddHole(700, "S");
  Items.At(1).Holes.At(2).BF = "n";
  Items.At(1).Holes.At(2).CounterSunk = " ";
  AddHole(2500, "C");
  Items.At(1).Holes.At(3).Diameter = 18;

  CreateOppHandRow(1);

  const Item& hand = Items.At(2);
  EXPECT_EQ(PositionsOf(2), (Positions{500, 2300, 2900}));
  EXPECT_EQ(hand.Holes.At(1).Kind, "C");
  EXPECT_EQ(hand.Holes.At(1).Diameter, 18.0F);
  EXPECT_EQ(hand.Holes.At(1).BF, "");
  EXPECT_EQ(hand.Holes.At(1).CounterSunk, "");
  EXPECT_EQ(hand.Holes.At(2).Kind, "S");
  EXPECT_EQ(hand.Holes.At(2).BF, "n");
  EXPECT_EQ(hand.Holes.At(2).CounterSunk, " ");
  EXPECT_EQ(hand.Holes.At(2).Diameter, 0.0F);
  const Hole& last = hand.Holes.At(3);
  EXPECT_EQ(last.Kind, "C");
  EXPECT_EQ(last.BF, "y");
  EXPECT_EQ(last.W1, "n");
  EXPECT_EQ(last.W2, "31.5");
  EXPECT_EQ(last.TF, "30");
  EXPECT_EQ(last.Diameter, 14.0F);
  EXPECT_EQ(last.SlotLength, 22.5F);
  EXPECT_EQ(last.CounterSunk, "*");
  EXPECT_EQ(hand.CustomHoleCount, 2);
}

TEST_F(OppositeHandTest, An_unsorted_source_comes_out_sorted) {
  AddHole(1000);
  AddHole(32);
  CreateOppHandRow(1);
  EXPECT_EQ(PositionsOf(2), (Positions{2000, 2968}));
}

TEST_F(OppositeHandTest, The_gaps_are_those_of_the_new_row_with_its_own_end) {
  MinHoleSep = 4;
  DrawingWidth = 180;
  AddHole(500);
  AddHole(2000);
  AdjustHoleSpacing(1);
  CreateOppHandRow(1);
  const Table<Hole>& holes = Items.At(2).Holes;
  EXPECT_EQ(PositionsOf(2), (Positions{1000, 2500}));
  EXPECT_EQ(holes.At(1).RelX, 1000);
  EXPECT_EQ(holes.At(2).RelX, 1500);
  EXPECT_EQ(holes.At(0).XPos, 3000);
  EXPECT_EQ(holes.At(0).RelX, 500);
  EXPECT_EQ(holes.At(0).DrawGap, 500);
  EXPECT_EQ(Items.At(1).Holes.At(0).RelX, 1000);
}

TEST_F(OppositeHandTest, Mitres_are_swapped_and_negated) {
  Items.At(1).MitreLeft = 10;
  Items.At(1).MitreRight = -20;
  CreateOppHandRow(1);
  EXPECT_EQ(Items.At(2).MitreLeft, 20.0F);
  EXPECT_EQ(Items.At(2).MitreRight, -10.0F);
}

TEST_F(OppositeHandTest, Square_ends_stay_square_and_show_no_sign) {
  CreateOppHandRow(1);
  const Item& hand = Items.At(2);
  EXPECT_EQ(hand.MitreLeft, 0.0F);
  EXPECT_EQ(hand.MitreRight, 0.0F);
  EXPECT_FALSE(std::signbit(hand.MitreLeft));
  EXPECT_FALSE(std::signbit(hand.MitreRight));
  EXPECT_EQ(FormatNumber(hand.MitreLeft, 1), "0.0");
  EXPECT_EQ(ShortestText(hand.MitreRight), "0");
  std::string line;
  AppendFileNumber(line, hand.MitreLeft);
  EXPECT_EQ(line, " 0 ");
}

TEST_F(OppositeHandTest, Each_notch_code_has_its_counterpart) {
  struct Case {
    std::string Code;
    float Size3;
    std::string NewCode;
    float NewSize3;
  };
  const std::vector<Case> cases = {
      {"TL1", 5, "TR1", 0},
      {"TR1", 6, "TL1", 0},
      {"T2", 500, "T2", 2500},
      {"L3", 40, "R3", 40},
      {"R3", 41, "L3", 41},
      {"BL1", 7, "BR1", 0},
      {"BR1", 8, "BL1", 0},
      {"B2", 2900, "B2", 100},
      {"T2", 3100, "T2", -100},
      // No code of the table.
      {"XX", 9, "", 0},
      {"", 9, "", 0},
      {"tl1", 9, "", 0},
      {"T2 ", 9, "", 0},
  };
  float size = 100;
  for (const Case& c : cases) {
    AddNotch(c.Code, size, size + 0.5F, c.Size3);
    ++size;
  }

  CreateOppHandRow(1);

  const Item& hand = Items.At(2);
  ASSERT_EQ(hand.Notches.UBound(), static_cast<int>(cases.size()));
  EXPECT_EQ(hand.NotchCount(), static_cast<int>(cases.size()));
  size = 100;
  int row = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Code);
    const Notch& notch = hand.Notches.At(++row);
    EXPECT_EQ(notch.Code, c.NewCode);
    EXPECT_EQ(notch.Size1, size);
    EXPECT_EQ(notch.Size2, size + 0.5F);
    EXPECT_EQ(notch.Size3, c.NewSize3);
    EXPECT_EQ(Items.At(1).Notches.At(row).Code, c.Code);
    EXPECT_EQ(Items.At(1).Notches.At(row).Size3, c.Size3);
    ++size;
  }
}

TEST_F(OppositeHandTest, A_notch_position_is_mirrored_as_a_32_bit_float) {
  AddNotch("T2", 10, 100, 0.1F);
  CreateOppHandRow(1);
  // The nearest 32-bit float to 2999.9; the notch's own width has no part in it.
  EXPECT_EQ(Items.At(2).Notches.At(1).Size3, 2999.9F);
  EXPECT_EQ(ShortestText(Items.At(2).Notches.At(1).Size3), "2999.9");
}

TEST_F(OppositeHandTest, A_section_without_holes_or_notches_gets_empty_lists) {
  CreateOppHandRow(1);
  const Item& hand = Items.At(2);
  EXPECT_EQ(hand.Mark, "P1X");
  EXPECT_EQ(hand.HoleCount(), 0);
  EXPECT_EQ(hand.Holes.UBound(), 0);
  EXPECT_EQ(hand.Holes.At(0).XPos, 0);
  EXPECT_EQ(hand.NotchCount(), 0);
  EXPECT_EQ(hand.Notches.UBound(), 0);
}

TEST_F(OppositeHandTest, Marks_gather_Xs_and_are_not_checked) {
  CreateOppHandRow(1);
  CreateOppHandRow(2);
  CreateOppHandRow(1);
  EXPECT_EQ(Items.At(2).Mark, "P1X");
  EXPECT_EQ(Items.At(3).Mark, "P1XX");
  EXPECT_EQ(Items.At(4).Mark, "P1X");
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(OppositeHandTest, An_unsymmetric_pattern_stands_mirrored_until_the_rebuild) {
  PunchPattern pattern;
  pattern.SectionType = "Z";
  pattern.Name = "Left";
  pattern.Codes = "B0 D2";
  PunchPatterns.Append(pattern);
  Items.At(1).PatternName = "Left";
  AddHole(2900, "C");
  RebuildHoles(1, "Left");
  ASSERT_EQ(PositionsOf(1), (Positions{32, 1000, 2900}));

  CreateOppHandRow(1);
  EXPECT_EQ(PositionsOf(2), (Positions{100, 2000, 2968}));

  // The pattern's holes turn back to its own order, the custom hole stays mirrored.
  RebuildHoles(2, Items.At(2).PatternName);
  EXPECT_EQ(PositionsOf(2), (Positions{32, 100, 1000}));
  EXPECT_EQ(Items.At(2).Holes.At(2).Kind, "C");
}

TEST_F(OppositeHandTest, A_position_beyond_16_bits_stops_it_and_the_row_stays_as_far_as_it_came) {
  Items.At(1).MitreLeft = 10;
  AddHole(10, "C");
  Items.At(1).Holes.At(1).BF = "1";
  AddHole(-30000, "S");
  Items.At(1).Holes.At(2).BF = "2";
  AddHole(20, "C");
  Items.At(1).Holes.At(3).BF = "3";

  EXPECT_EQ(test::ErrorOf([] { CreateOppHandRow(1); }), "Overflow");

  ASSERT_EQ(Items.UBound(), 2);
  const Item& hand = Items.At(2);
  EXPECT_EQ(hand.Mark, "P1");
  EXPECT_EQ(hand.MitreLeft, 10.0F);
  // Row 3 was made from the source's row 1; row 2 has all of its hole but the position; row 1 is
  // still the copy.
  EXPECT_EQ(PositionsOf(2), (Positions{10, -30000, 2990}));
  EXPECT_EQ(hand.Holes.At(1).BF, "1");
  EXPECT_EQ(hand.Holes.At(2).BF, "2");
  EXPECT_EQ(hand.Holes.At(3).BF, "1");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(OppositeHandTest, An_error_of_the_gaps_comes_behind_the_mark_and_before_the_changed_flag) {
  MinHoleSep = 4;
  DrawingWidth = 180;
  Items.At(1).Length = 50;
  AddHole(30);
  AddHole(30);
  EXPECT_EQ(test::ErrorOf([] { CreateOppHandRow(1); }), "Division by zero");
  EXPECT_EQ(Items.UBound(), 2);
  EXPECT_EQ(Items.At(2).Mark, "P1X");
  EXPECT_EQ(PositionsOf(2), (Positions{20, 20}));
  EXPECT_EQ(ProjectDirty, False);
}

// A section punched by a pattern of the catalogue, as it stands after a rebuild.
class MirroredPattern : public OppositeHandTest {
 protected:
  MirroredPattern() {
    PunchPattern lopsided;
    lopsided.SectionType = "Z";
    lopsided.Name = "Lopsided";
    lopsided.Codes = "B0 D2";
    PunchPatterns.Append(lopsided);
    PunchPattern even = lopsided;
    even.Name = "Even";
    even.Codes = "B0 B6";
    PunchPatterns.Append(even);
  }
  static void Punch(const std::string& pattern) {
    Items.At(1).PatternName = pattern;
    RebuildHoles(1, pattern);
  }
};

TEST_F(MirroredPattern, Stands_mirrored_until_its_holes_are_made_afresh) {
  Punch("Lopsided");
  EXPECT_FALSE(ShowsMirroredPattern(1));
  CreateOppHandRow(1);
  EXPECT_TRUE(ShowsMirroredPattern(2));
  // Looking changes nothing.
  EXPECT_EQ(PositionsOf(2), (Positions{2000, 2968}));
  RebuildHoles(2, "Lopsided");
  EXPECT_FALSE(ShowsMirroredPattern(2));
}

TEST_F(MirroredPattern, Is_none_when_the_mirror_of_the_mirror_is_the_pattern) {
  Punch("Lopsided");
  CreateOppHandRow(1);
  CreateOppHandRow(2);
  EXPECT_FALSE(ShowsMirroredPattern(3));
}

TEST_F(MirroredPattern, Is_none_for_a_symmetric_pattern_nor_for_custom_holes_nor_for_row_0) {
  Punch("Even");
  CreateOppHandRow(1);
  EXPECT_FALSE(ShowsMirroredPattern(2));
  Items.At(1) = {};
  Items.At(1).SectionType = "Z";
  Items.At(1).Length = 3000;
  Items.At(1).PatternName = "Custom";
  AddHole(100, "C");
  CreateOppHandRow(1);
  EXPECT_FALSE(ShowsMirroredPattern(3));
  EXPECT_FALSE(ShowsMirroredPattern(0));
}

}  // namespace
}  // namespace orvane
