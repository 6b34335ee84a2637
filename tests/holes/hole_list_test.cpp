#include "holes/hole_list.h"

#include <random>
#include <utility>
#include <vector>

#include "holes/hole_coding.h"
#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Positions = std::vector<int>;
using Cells = std::vector<std::string>;

class HoleListTest : public test::SystemTest {
 protected:
  HoleListTest() {
    Item item;
    item.SectionType = "Z";
    item.Length = 6000;
    Items.Append(item);
  }

  static void Add(int x, const std::string& kind, float diameter = 18) {
    Hole hole;
    hole.XPos = Int16(x);
    hole.Kind = kind;
    hole.BF = hole.W1 = hole.W2 = hole.TF = "n";
    hole.Diameter = diameter;
    Item& item = Items.At(1);
    item.Holes.Append(hole);
    if (kind == "C") ++item.CustomHoleCount;
  }

  static void AddPattern(const std::string& name, const std::string& codes) {
    PunchPattern pattern;
    pattern.SectionType = "Z";
    pattern.Name = name;
    pattern.Codes = codes;
    PunchPatterns.Append(pattern);
  }

  static Positions PositionsNow() {
    Positions positions;
    for (const Hole& hole : Items.At(1).Holes) positions.push_back(hole.XPos);
    return positions;
  }

  static std::vector<float> DiametersNow() {
    std::vector<float> diameters;
    for (const Hole& hole : Items.At(1).Holes) diameters.push_back(hole.Diameter);
    return diameters;
  }

  static void ExpectBlank(const Hole& hole) {
    EXPECT_EQ(hole.XPos, 0);
    EXPECT_EQ(hole.Kind, "");
    EXPECT_EQ(hole.BF + hole.W1 + hole.W2 + hole.TF + hole.CounterSunk, "");
    EXPECT_EQ(hole.Diameter, 0.0F);
    EXPECT_EQ(hole.SlotLength, 0.0F);
    EXPECT_EQ(hole.RelX, 0);
    EXPECT_EQ(hole.DrawGap, 0);
  }

  static Cells CellsOf(const Table<std::string>& row) { return {row.begin(), row.end()}; }
};

TEST_F(HoleListTest, RemoveStandardHoles_keeps_custom_holes_whole_and_in_order) {
  Add(50, "S");
  Add(400, "C", 14);
  Items.At(1).Holes.At(2).BF = "31";
  Items.At(1).Holes.At(2).SlotLength = 22;
  Items.At(1).Holes.At(2).RelX = 350;
  Items.At(1).Holes.At(2).DrawGap = 349.5;
  Items.At(1).Holes.At(2).CounterSunk = "*";
  Add(300, "S");
  Add(100, "C", 18);
  Items.At(1).Holes.At(0).XPos = 6000;
  Items.At(1).Holes.At(0).RelX = 5900;
  Items.At(1).Holes.At(0).DrawGap = 5900;
  Items.At(1).CustomHoleCount = 9;

  RemoveStandardHoles(1);

  const Item& item = Items.At(1);
  EXPECT_EQ(PositionsNow(), (Positions{400, 100}));
  EXPECT_EQ(item.HoleCount(), 2);
  EXPECT_EQ(item.CustomHoleCount, 2);
  EXPECT_EQ(item.Holes.At(1).BF, "31");
  EXPECT_EQ(item.Holes.At(1).W1 + item.Holes.At(1).W2 + item.Holes.At(1).TF, "nnn");
  EXPECT_EQ(item.Holes.At(1).Diameter, 14.0F);
  EXPECT_EQ(item.Holes.At(1).SlotLength, 22.0F);
  EXPECT_EQ(item.Holes.At(1).RelX, 350);
  EXPECT_EQ(item.Holes.At(1).DrawGap, 349.5);
  EXPECT_EQ(item.Holes.At(1).CounterSunk, "*");
  EXPECT_EQ(item.Holes.At(2).Kind, "C");
  EXPECT_EQ(item.Holes.At(2).BF, "n");
  ExpectBlank(item.Holes.At(0));
}

TEST_F(HoleListTest, RemoveStandardHoles_without_custom_holes_leaves_a_blank_row_0_only) {
  Add(32, "S");
  Add(5968, "S");
  MinHoleSep = 4;
  DrawingWidth = 180;
  AdjustHoleSpacing(1);
  ASSERT_EQ(Items.At(1).Holes.At(0).XPos, 6000);

  RemoveStandardHoles(1);

  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 0);
  ExpectBlank(Items.At(1).Holes.At(0));
}

TEST_F(HoleListTest, RemoveStandardHoles_knows_a_custom_hole_by_an_exact_C) {
  for (const char* kind : {"c", "", " ", "C ", " C", "CC", "S", "C"}) Add(100, kind);
  RemoveStandardHoles(1);
  ASSERT_EQ(Items.At(1).HoleCount(), 1);
  EXPECT_EQ(Items.At(1).Holes.At(1).Kind, "C");
}

TEST_F(HoleListTest, An_item_without_holes_holds_row_0_only) {
  RemoveStandardHoles(1);
  SortHoles(1);
  AdjustHoleSpacing(1);
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 0);
  ExpectBlank(Items.At(1).Holes.At(0));
}

TEST_F(HoleListTest, SortHoles_orders_by_position_and_keeps_the_order_of_equal_ones) {
  Add(500, "S", 1);
  Add(-20, "C", 2);
  Add(500, "C", 3);
  Add(32767, "S", 4);
  Add(-32768, "S", 5);
  Add(500, "S", 6);
  Add(0, "S", 7);
  Items.At(1).Holes.At(0).XPos = 6000;

  SortHoles(1);

  EXPECT_EQ(PositionsNow(), (Positions{-32768, -20, 0, 500, 500, 500, 32767}));
  EXPECT_EQ(DiametersNow(), (std::vector<float>{5, 2, 7, 1, 3, 6, 4}));
  EXPECT_EQ(Items.At(1).Holes.At(2).Kind, "C");  // the whole record moved
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 6000);
}

TEST_F(HoleListTest, SortHoles_leaves_row_0_and_a_single_hole_alone) {
  Add(700, "S");
  Items.At(1).Holes.At(0).XPos = 6000;
  Items.At(1).Holes.At(0).RelX = 5300;
  SortHoles(1);
  EXPECT_EQ(PositionsNow(), (Positions{700}));
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 6000);
  EXPECT_EQ(Items.At(1).Holes.At(0).RelX, 5300);
}

// The rule in its plain words: passes over the neighbours until a pass exchanges nothing.
void ExchangeSort(Table<Hole>& holes) {
  bool exchanged = true;
  while (exchanged) {
    exchanged = false;
    for (int i = 1; i <= holes.UBound() - 1; ++i) {
      if (holes.At(i).XPos > holes.At(i + 1).XPos) {
        std::swap(holes.At(i), holes.At(i + 1));
        exchanged = true;
      }
    }
  }
}

TEST_F(HoleListTest, SortHoles_equals_an_exchange_sort) {
  std::mt19937 random(20240305);
  for (int round = 0; round < 300; ++round) {
    Item& item = Items.At(1);
    item.Holes.Clear();
    item.CustomHoleCount = 0;
    const int count = round % 60;
    const unsigned spread = round % 3 == 0 ? 5 : 4000;  // few positions make many equal ones
    for (int i = 1; i <= count; ++i) {
      Add(static_cast<int>(random() % spread) - 2, i % 2 == 0 ? "C" : "S", static_cast<float>(i));
    }
    Table<Hole> expected = item.Holes;
    ExchangeSort(expected);
    SortHoles(1);
    ASSERT_EQ(item.Holes.UBound(), count);
    for (int row = 1; row <= count; ++row) {
      ASSERT_EQ(item.Holes.At(row).XPos, expected.At(row).XPos) << round << " " << row;
      ASSERT_EQ(item.Holes.At(row).Diameter, expected.At(row).Diameter) << round << " " << row;
      ASSERT_EQ(item.Holes.At(row).Kind, expected.At(row).Kind) << round << " " << row;
    }
  }
}

TEST_F(HoleListTest, Custom_holes_keep_their_position_when_the_length_changes) {
  AddPattern("Ends", "B6,B0");
  Add(2500, "C", 14);
  RebuildHoles(1, "Ends");
  EXPECT_EQ(PositionsNow(), (Positions{32, 2500, 5968}));
  Items.At(1).Length = 3000;
  RebuildHoles(1, "Ends");
  EXPECT_EQ(PositionsNow(), (Positions{32, 2500, 2968}));
  RebuildHoles(1, "Custom");
  EXPECT_EQ(PositionsNow(), (Positions{2500}));
  EXPECT_EQ(Items.At(1).HoleCount(), 1);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 1);
}

TEST_F(HoleListTest, The_rebuild_removes_expands_sorts_and_adjusts_in_that_order) {
  MinHoleSep = 4;
  DrawingWidth = 180;
  AddPattern("Mid", "F3,B0");
  Add(4000, "S");  // left over from another pattern
  RebuildHoles(1, "Mid");
  EXPECT_EQ(PositionsNow(), (Positions{32, 3000}));
  const Table<Hole>& holes = Items.At(1).Holes;
  EXPECT_EQ(holes.At(1).RelX, 32);
  EXPECT_EQ(holes.At(2).RelX, 2968);
  EXPECT_EQ(holes.At(0).RelX, 3000);
  EXPECT_EQ(holes.At(0).XPos, 6000);
}

TEST_F(HoleListTest, The_rebuild_stops_at_the_first_step_that_fails_or_tells_and_goes_on) {
  AddPattern("End", "B6");
  Items.At(1).Length = -32768;  // the hole 32 mm before its end has no place in 16 bits
  Add(500, "C");
  Add(300, "C");
  EXPECT_EQ(test::ErrorOf([] { RebuildHoles(1, "End"); }), "Overflow");
  EXPECT_EQ(PositionsNow(), (Positions{500, 300}));
  EXPECT_TRUE(desktop.Boxes.empty());
  RebuildHoles(1, "End", TellInMessageBox);
  EXPECT_EQ(PositionsNow(), (Positions{300, 500}));
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text, "Overflow");
}

TEST_F(HoleListTest, A_copy_of_a_section_is_rebuilt_without_its_row) {
  AddPattern("Mid", "F3,B0");
  Add(4000, "S");
  Item copy = Items.At(1);
  RebuildHoles(copy, "Mid");
  EXPECT_EQ(PositionsNow(), (Positions{4000}));
  ASSERT_EQ(copy.Holes.UBound(), 2);
  EXPECT_EQ(copy.Holes.At(1).XPos, 32);
  EXPECT_EQ(copy.Holes.At(2).XPos, 3000);
}

TEST_F(HoleListTest, The_rebuild_may_be_told_the_items_own_pattern_name) {
  Items.At(1).PatternName = "A pattern name that is longer than a short text";
  AddPattern(Items.At(1).PatternName, "F3,B0");
  RebuildHoles(1, Items.At(1).PatternName);
  EXPECT_EQ(PositionsNow(), (Positions{32, 3000}));
}

TEST_F(HoleListTest, DeleteCustomHoleRow_takes_the_custom_hole_of_that_number) {
  Add(100, "S");
  Add(200, "C");
  Add(300, "S");
  Add(400, "C");
  Add(500, "S");
  EXPECT_TRUE(DeleteCustomHoleRow(1, 2));
  EXPECT_EQ(PositionsNow(), (Positions{100, 200, 300, 500}));
  EXPECT_EQ(Items.At(1).HoleCount(), 4);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 1);
  EXPECT_TRUE(DeleteCustomHoleRow(1, 1));
  EXPECT_EQ(PositionsNow(), (Positions{100, 300, 500}));
  EXPECT_EQ(Items.At(1).HoleCount(), 3);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
}

TEST_F(HoleListTest, DeleteCustomHoleRow_adjusts_the_gaps) {
  MinHoleSep = 4;
  DrawingWidth = 180;
  Add(1000, "S");
  Add(2000, "C");
  Add(4500, "S");
  EXPECT_TRUE(DeleteCustomHoleRow(1, 1));
  const Table<Hole>& holes = Items.At(1).Holes;
  EXPECT_EQ(holes.At(1).RelX, 1000);
  EXPECT_EQ(holes.At(2).RelX, 3500);
  EXPECT_EQ(holes.At(2).DrawGap, 3500);
  EXPECT_EQ(holes.At(0).RelX, 1500);
}

TEST_F(HoleListTest, DeleteCustomHoleRow_does_nothing_below_row_1_or_without_such_a_hole) {
  Add(100, "S");
  Add(200, "C");
  EXPECT_FALSE(DeleteCustomHoleRow(0, 1));
  EXPECT_FALSE(DeleteCustomHoleRow(-1, 1));
  EXPECT_FALSE(DeleteCustomHoleRow(1, 0));
  EXPECT_FALSE(DeleteCustomHoleRow(1, -1));
  EXPECT_FALSE(DeleteCustomHoleRow(1, 2));
  EXPECT_EQ(PositionsNow(), (Positions{100, 200}));
  EXPECT_EQ(Items.At(1).HoleCount(), 2);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 1);
}

TEST_F(HoleListTest, Deleting_the_last_hole_makes_row_0_blank_again) {
  MinHoleSep = 4;
  DrawingWidth = 180;
  Add(1000, "C");
  AdjustHoleSpacing(1);
  ASSERT_EQ(Items.At(1).Holes.At(0).RelX, 5000);
  EXPECT_TRUE(DeleteCustomHoleRow(1, 1));
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
  EXPECT_EQ(Items.At(1).Holes.UBound(), 0);
  ExpectBlank(Items.At(1).Holes.At(0));
}

TEST_F(HoleListTest, ConvertHolesToCustom_changes_the_kind_alone) {
  AddPattern("Mixed", "S0,F3");
  PunchPatterns.At(1).Starred = True;
  Add(700, "C", 14);
  RebuildHoles(1, "Mixed");
  ConvertHolesToCustom(1);
  const Item& item = Items.At(1);
  EXPECT_EQ(item.CustomHoleCount, 3);
  EXPECT_EQ(item.HoleCount(), 3);
  EXPECT_EQ(PositionsNow(), (Positions{35, 700, 3000}));
  EXPECT_EQ(DiametersNow(), (std::vector<float>{18, 14, 18}));
  for (const Hole& hole : item.Holes) EXPECT_EQ(hole.Kind, "C");
  EXPECT_EQ(item.Holes.At(1).SlotLength, 28.0F);
  EXPECT_EQ(item.Holes.At(1).TF, "y");
  EXPECT_EQ(item.Holes.At(1).CounterSunk, "*");
  EXPECT_EQ(item.Holes.At(2).CounterSunk, "");
  // As custom holes they survive the rebuild.
  RebuildHoles(1, "Custom");
  EXPECT_EQ(PositionsNow(), (Positions{35, 700, 3000}));
}

TEST_F(HoleListTest, A_converted_pattern_hole_keeps_its_one_blank_countersink) {
  AddPattern("Mid", "F3");
  RebuildHoles(1, "Mid");
  ConvertHolesToCustom(1);
  EXPECT_EQ(Items.At(1).Holes.At(1).CounterSunk, " ");
}

TEST_F(HoleListTest, ConvertHolesToCustom_without_holes_leaves_both_counts_0) {
  Items.At(1).CustomHoleCount = 2;  // stale
  ConvertHolesToCustom(1);
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
  ConvertHolesToCustom(0);
  ConvertHolesToCustom(-1);
}

TEST_F(HoleListTest, The_hole_grid_shows_custom_holes_only_with_their_distance_from_any_hole) {
  MinHoleSep = 0;
  DrawingWidth = 180;
  AddPattern("Mid", "F3");
  Add(4500, "C", 13.5F);
  Items.At(1).Holes.At(1).TF = "30";
  Items.At(1).Holes.At(1).W2 = "y";
  Items.At(1).Holes.At(1).SlotLength = 22.5F;
  Add(1200, "C", 18);
  Items.At(1).Holes.At(2).BF = "y";
  Items.At(1).Holes.At(2).CounterSunk = "*";
  RebuildHoles(1, "Mid");
  const Table<Table<std::string>> rows = HoleGridRows(1);
  ASSERT_EQ(rows.UBound(), 2);
  EXPECT_EQ(CellsOf(rows.At(1)), (Cells{"1200", "1200", "y", "n", "n", "n", "18", "", "*"}));
  EXPECT_EQ(CellsOf(rows.At(2)), (Cells{"4500", "1500", "n", "n", "y", "30", "13.5", "22.5", ""}));
}

TEST_F(HoleListTest, The_hole_grid_shows_numbers_in_their_plain_form) {
  Add(-5, "C", 0.5F);
  Items.At(1).Holes.At(1).RelX = -5.25;
  Items.At(1).Holes.At(1).SlotLength = -3;  // not above 0: no slot
  const Table<Table<std::string>> rows = HoleGridRows(1);
  ASSERT_EQ(rows.UBound(), 1);
  EXPECT_EQ(CellsOf(rows.At(1)), (Cells{"-5", "-5.25", "n", "n", "n", "n", "0.5", "", ""}));
}

TEST_F(HoleListTest, The_hole_grid_of_a_section_without_custom_holes_is_empty) {
  Add(100, "S");
  EXPECT_EQ(HoleGridRows(1).UBound(), 0);
}

TEST_F(HoleListTest, The_blank_element_0_of_Items_is_never_converted_nor_deleted_from) {
  Hole hole;
  hole.XPos = 700;
  hole.Kind = "S";
  Items.At(0).Holes.Append(hole);
  hole.XPos = 900;
  hole.Kind = "C";
  Items.At(0).Holes.Append(hole);
  Items.At(0).CustomHoleCount = 1;

  ConvertHolesToCustom(0);
  EXPECT_FALSE(DeleteCustomHoleRow(0, 1));

  const Item& blank = Items.At(0);
  EXPECT_EQ(blank.HoleCount(), 2);
  EXPECT_EQ(blank.CustomHoleCount, 1);
  ASSERT_EQ(blank.Holes.UBound(), 2);
  EXPECT_EQ(blank.Holes.At(1).Kind, "S");
  EXPECT_EQ(blank.Holes.At(1).XPos, 700);
  EXPECT_EQ(blank.Holes.At(2).Kind, "C");
  EXPECT_EQ(blank.Holes.At(2).XPos, 900);
}

// Row 0 may come out of a file with any content: it is no hole, whatever it says.
class CustomRow0Test : public HoleListTest {
 protected:
  CustomRow0Test() {
    Add(100, "S");
    Add(200, "C");
    Add(300, "S");
    Hole& row0 = Items.At(1).Holes.At(0);
    row0.Kind = "C";
    row0.XPos = 50;
    row0.BF = "y";
    row0.Diameter = 22;
  }
};

TEST_F(CustomRow0Test, RemoveStandardHoles_blanks_it_and_keeps_the_real_custom_hole) {
  RemoveStandardHoles(1);
  EXPECT_EQ(PositionsNow(), (Positions{200}));
  EXPECT_EQ(Items.At(1).HoleCount(), 1);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 1);
  ExpectBlank(Items.At(1).Holes.At(0));
}

TEST_F(CustomRow0Test, HoleGridRows_does_not_show_it) {
  const Table<Table<std::string>> rows = HoleGridRows(1);
  ASSERT_EQ(rows.UBound(), 1);
  EXPECT_EQ(CellsOf(rows.At(1)), (Cells{"200", "0", "n", "n", "n", "n", "18", "", ""}));
}

TEST_F(CustomRow0Test, DeleteCustomHoleRow_does_not_count_it) {
  EXPECT_FALSE(DeleteCustomHoleRow(1, 2));
  EXPECT_EQ(PositionsNow(), (Positions{100, 200, 300}));
  EXPECT_TRUE(DeleteCustomHoleRow(1, 1));
  EXPECT_EQ(PositionsNow(), (Positions{100, 300}));
  EXPECT_EQ(Items.At(1).HoleCount(), 2);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 50);
  EXPECT_EQ(Items.At(1).Holes.At(0).Kind, "C");
}

TEST_F(CustomRow0Test, ConvertHolesToCustom_neither_counts_nor_changes_it) {
  Items.At(1).Holes.At(0).Kind = "S";
  ConvertHolesToCustom(1);
  EXPECT_EQ(Items.At(1).Holes.At(0).Kind, "S");
  Items.At(1).Holes.At(0).Kind = "C";
  ConvertHolesToCustom(1);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 3);
  EXPECT_EQ(Items.At(1).HoleCount(), 3);
  for (const Hole& hole : Items.At(1).Holes) EXPECT_EQ(hole.Kind, "C");
  EXPECT_EQ(Items.At(1).Holes.At(0).Kind, "C");
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 50);
  EXPECT_EQ(Items.At(1).Holes.At(0).BF, "y");
}

TEST_F(HoleListTest, A_row_outside_the_table_is_out_of_range) {
  for (const std::int16_t row : {std::int16_t{2}, std::int16_t{-1}}) {
    EXPECT_EQ(test::ErrorOf([&] { RemoveStandardHoles(row); }), "Subscript out of range");
    EXPECT_EQ(test::ErrorOf([&] { SortHoles(row); }), "Subscript out of range");
    EXPECT_EQ(test::ErrorOf([&] { AdjustHoleSpacing(row); }), "Subscript out of range");
    EXPECT_EQ(test::ErrorOf([&] { RebuildHoles(row, "P"); }), "Subscript out of range");
    EXPECT_EQ(test::ErrorOf([&] { HoleGridRows(row); }), "Subscript out of range");
  }
  EXPECT_EQ(test::ErrorOf([] { DeleteCustomHoleRow(2, 1); }), "Subscript out of range");
  EXPECT_EQ(test::ErrorOf([] { ConvertHolesToCustom(2); }), "Subscript out of range");
}

}  // namespace
}  // namespace orvane
