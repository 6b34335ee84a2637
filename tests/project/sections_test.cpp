#include "project/sections.h"

#include <string>
#include <utility>
#include <vector>

#include "holes/hole_list.h"
#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Texts = std::vector<std::string>;
using Positions = std::vector<int>;

class SectionsTest : public test::SystemTest {
 protected:
  static Item& AddItem(const std::string& mark, int length = 3000) {
    Item item;
    item.Mark = mark;
    item.SectionType = "Z";
    item.Length = Int16(length);
    return Items.Append(item);
  }

  static void AddHole(Item& item, int x, const std::string& kind = "S") {
    Hole hole;
    hole.XPos = Int16(x);
    hole.Kind = kind;
    item.Holes.Append(hole);
    if (kind == "C") ++item.CustomHoleCount;
  }

  static void AddNotch(Item& item, const std::string& code, float size1, float size2, float size3) {
    Notch notch;
    notch.Code = code;
    notch.Size1 = size1;
    notch.Size2 = size2;
    notch.Size3 = size3;
    item.Notches.Append(notch);
  }

  static Positions PositionsOf(int row) {
    Positions positions;
    for (const Hole& hole : Items.At(row).Holes) positions.push_back(hole.XPos);
    return positions;
  }

  static Texts Marks() {
    Texts marks;
    for (const Item& item : Items) marks.push_back(item.Mark);
    return marks;
  }
};

// The table of sections.

TEST_F(SectionsTest, A_project_without_sections_keeps_a_blank_element_0) {
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(Items.At(0).Mark, "");
  EXPECT_EQ(Items.At(0).SectionType, "");
  EXPECT_EQ(Items.At(0).HoleCount(), 0);
  EXPECT_EQ(Items.At(0).Holes.UBound(), 0);
}

TEST_F(SectionsTest, AddSectionRow_appends_a_blank_row_of_its_letter) {
  const std::vector<std::pair<std::string, std::string>> products = {
      {"Z", ""}, {"E", ""}, {"C", ""}, {"V", "VCR"}, {"R", "CLR"}, {"T", ""}};
  std::int16_t row = 0;
  for (const auto& [letter, product] : products) {
    ProjectDirty = False;
    EXPECT_EQ(AddSectionRow(letter), ++row);
    EXPECT_EQ(Items.UBound(), row);
    EXPECT_EQ(ProjectDirty, True);
    const Item& item = Items.At(row);
    EXPECT_EQ(item.SectionType, letter);
    EXPECT_EQ(item.Product, product);
    EXPECT_EQ(item.Mark + item.DateText + item.Notes + item.PatternName + item.Pitch, "");
    EXPECT_EQ(item.Length, 0);
    EXPECT_EQ(item.Quantity, 0);
    EXPECT_EQ(item.MitreLeft, 0.0F);
    EXPECT_EQ(item.MitreRight, 0.0F);
    EXPECT_EQ(item.HoleCount(), 0);
    EXPECT_EQ(item.Holes.UBound(), 0);
    EXPECT_EQ(item.CustomHoleCount, 0);
    EXPECT_EQ(item.NotchCount(), 0);
    EXPECT_EQ(item.Notches.UBound(), 0);
    EXPECT_EQ(item.JointingPieces, 0);
    EXPECT_EQ(item.SagBarDia, 0);
  }
  EXPECT_EQ(Items.At(0).SectionType, "");
}

TEST_F(SectionsTest, A_row_that_16_bits_cannot_number_overflows_and_is_not_added) {
  Items.Resize(32767);
  EXPECT_EQ(test::ErrorOf([] { AddSectionRow("Z"); }), "Overflow");
  EXPECT_EQ(test::ErrorOf([] { DuplicateRow(1); }), "Overflow");
  EXPECT_EQ(test::ErrorOf([] { CreateOppHandRow(1); }), "Overflow");
  EXPECT_EQ(Items.UBound(), 32767);
  EXPECT_EQ(ProjectDirty, False);
}

// Duplicate.

TEST_F(SectionsTest, DuplicateRow_copies_the_whole_row_and_the_copy_is_its_own) {
  Item& item = AddItem("B1");
  item.Product = "Z200";
  item.Quantity = 7;
  item.DateText = "d";
  item.Notes = "note";
  item.MitreLeft = 10;
  item.MitreRight = -20;
  item.PatternName = "Std";
  item.Pitch = "10";
  item.JointingPieces = 2;
  item.SagBarDia = 18;
  AddHole(item, 100, "C");
  AddHole(item, 2900);
  AddNotch(item, "TL1", 1, 2, 3);
  AddItem("B2");

  EXPECT_EQ(DuplicateRow(1), 3);

  EXPECT_EQ(Marks(), (Texts{"B1", "B2", "B1A"}));
  const Item& copy = Items.At(3);
  EXPECT_EQ(copy.SectionType, "Z");
  EXPECT_EQ(copy.Product, "Z200");
  EXPECT_EQ(copy.Length, 3000);
  EXPECT_EQ(copy.Quantity, 7);
  EXPECT_EQ(copy.DateText, "d");
  EXPECT_EQ(copy.Notes, "note");
  EXPECT_EQ(copy.MitreLeft, 10.0F);
  EXPECT_EQ(copy.MitreRight, -20.0F);
  EXPECT_EQ(copy.PatternName, "Std");
  EXPECT_EQ(copy.Pitch, "10");
  EXPECT_EQ(copy.JointingPieces, 2);
  EXPECT_EQ(copy.SagBarDia, 18);
  EXPECT_EQ(copy.HoleCount(), 2);
  EXPECT_EQ(copy.CustomHoleCount, 1);
  EXPECT_EQ(PositionsOf(3), (Positions{100, 2900}));
  EXPECT_EQ(copy.NotchCount(), 1);
  EXPECT_EQ(copy.Notches.At(1).Code, "TL1");
  EXPECT_EQ(ProjectDirty, True);

  Items.At(3).Holes.At(1).BF = "y";
  Items.At(3).Notches.At(1).Code = "T2";
  EXPECT_EQ(Items.At(1).Holes.At(1).BF, "");
  EXPECT_EQ(Items.At(1).Notches.At(1).Code, "TL1");
}

TEST_F(SectionsTest, DuplicateRow_twice_gives_two_rows_of_one_mark) {
  AddItem("B1");
  DuplicateRow(1);
  DuplicateRow(1);
  EXPECT_EQ(Marks(), (Texts{"B1", "B1A", "B1A"}));
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(SectionsTest, DuplicateRow_sorts_and_adjusts_the_copy_but_never_expands_it) {
  MinHoleSep = 4;
  DrawingWidth = 180;
  PunchPattern pattern;
  pattern.SectionType = "Z";
  pattern.Name = "Mid";
  pattern.Codes = "F3";
  PunchPatterns.Append(pattern);
  Item& item = AddItem("B1");
  item.PatternName = "Mid";
  AddHole(item, 2000);
  AddHole(item, 500);
  DuplicateRow(1);
  EXPECT_EQ(PositionsOf(2), (Positions{500, 2000}));
  EXPECT_EQ(Items.At(2).Holes.At(2).RelX, 1500);
  EXPECT_EQ(Items.At(2).Holes.At(0).XPos, 3000);
  EXPECT_EQ(Items.At(2).Holes.At(0).RelX, 1000);
  EXPECT_EQ(PositionsOf(1), (Positions{2000, 500}));  // the source stays
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 0);
}

TEST_F(SectionsTest, DuplicateRow_keeps_the_copy_but_not_the_changed_flag_when_the_gaps_fail) {
  // At 1:10 the least gap is 40 mm. The gaps are 30, 0 and 30: the two short ones are to be paid by
  // the one of 0, which has nothing to give.
  MinHoleSep = 4;
  DrawingWidth = 180;
  Item& item = AddItem("B1", 60);
  AddHole(item, 30);
  AddHole(item, 30);
  EXPECT_EQ(test::ErrorOf([] { DuplicateRow(1); }), "Division by zero");
  EXPECT_EQ(Marks(), (Texts{"B1", "B1A"}));
  EXPECT_EQ(PositionsOf(2), (Positions{30, 30}));
  EXPECT_EQ(Items.At(2).Holes.At(1).DrawGap, 40);
  EXPECT_EQ(Items.At(2).Holes.At(2).DrawGap, 0);
  EXPECT_EQ(Items.At(2).Holes.At(0).DrawGap, 40);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsTest, AddSectionRow_of_a_text_that_is_no_family_has_no_product) {
  for (const char* letter : {"", "z", "M", "ZE", " V"}) {
    EXPECT_EQ(Items.At(AddSectionRow(letter)).Product, "") << letter;
  }
}

TEST_F(SectionsTest, DuplicateRow_and_CreateOppHandRow_do_nothing_below_row_1) {
  AddItem("B1");
  EXPECT_EQ(DuplicateRow(0), 0);
  EXPECT_EQ(DuplicateRow(-1), 0);
  EXPECT_EQ(CreateOppHandRow(0), 0);
  EXPECT_EQ(CreateOppHandRow(-1), 0);
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsTest, A_row_outside_the_table_is_out_of_range) {
  AddItem("B1");
  EXPECT_EQ(test::ErrorOf([] { DuplicateRow(2); }), "Subscript out of range");
  EXPECT_EQ(test::ErrorOf([] { CreateOppHandRow(2); }), "Subscript out of range");
  EXPECT_EQ(test::ErrorOf([] { DeleteItemRow(2); }), "Subscript out of range");
  EXPECT_EQ(test::ErrorOf([] { DeleteItemRow(0); }), "Subscript out of range");
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_EQ(ProjectDirty, False);
}

// While the table grows it moves its rows, so that a copy must not be taken through an old place.
TEST_F(SectionsTest, Rows_may_be_copied_while_the_table_grows) {
  Item& first = AddItem("A mark that is longer than a short text");
  AddHole(first, 100, "C");
  AddNotch(first, "T2", 1, 2, 500);
  for (int i = 1; i <= 70; ++i) {
    DuplicateRow(1);
    CreateOppHandRow(1);
  }
  ASSERT_EQ(Items.UBound(), 141);
  for (int row = 2; row <= 141; ++row) {
    const bool copy = row % 2 == 0;
    EXPECT_EQ(Items.At(row).Mark,
              std::string("A mark that is longer than a short text") + (copy ? "A" : "X"));
    EXPECT_EQ(PositionsOf(row), (Positions{copy ? 100 : 2900}));
    EXPECT_EQ(Items.At(row).Notches.At(1).Size3, copy ? 500.0F : 2500.0F);
  }
}

// Delete and sort.

TEST_F(SectionsTest, DeleteItemRow_moves_the_rows_behind_it_up) {
  for (const char* mark : {"A", "B", "C", "D"}) AddItem(mark);
  DeleteItemRow(2);
  EXPECT_EQ(Marks(), (Texts{"A", "C", "D"}));
  DeleteItemRow(3);
  EXPECT_EQ(Marks(), (Texts{"A", "C"}));
  DeleteItemRow(1);
  EXPECT_EQ(Marks(), (Texts{"C"}));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsTest, Deleting_the_only_row_leaves_an_empty_table) {
  AddItem("A");
  DeleteItemRow(1);
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(Items.At(0).Mark, "");
}

TEST_F(SectionsTest, Marks_sort_by_character_code) {
  for (const char* mark : {"a1", "A9", "", "B1", "A10", "\u00c41", "A1", "a"}) AddItem(mark);
  SortItemRows(SortKey::Mark);
  EXPECT_EQ(Marks(), (Texts{"", "A1", "A10", "A9", "B1", "a", "a1", "\u00c41"}));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsTest, Sorting_by_section_means_the_product_and_not_the_letter) {
  AddItem("1").SectionType = "C";
  Items.At(1).Product = "Z300";
  AddItem("2").SectionType = "Z";
  Items.At(2).Product = "C150";
  AddItem("3").SectionType = "A";
  Items.At(3).Product = "Z300";
  AddItem("4").SectionType = "Z";
  SortItemRows(SortKey::Product);
  EXPECT_EQ(Marks(), (Texts{"4", "2", "1", "3"}));
}

TEST_F(SectionsTest, Rows_of_equal_length_keep_their_order_and_move_whole) {
  AddHole(AddItem("P", 1000), 10);
  AddHole(AddItem("Q", 500), 20);
  AddHole(AddItem("R", 1000), 30);
  SortItemRows(SortKey::Length);
  EXPECT_EQ(Marks(), (Texts{"Q", "P", "R"}));
  EXPECT_EQ(PositionsOf(1), (Positions{20}));
  EXPECT_EQ(PositionsOf(2), (Positions{10}));
  EXPECT_EQ(PositionsOf(3), (Positions{30}));
}

TEST_F(SectionsTest, Sorting_tells_where_each_row_stood_before) {
  Items.At(0).Mark = "blank";
  for (const int length : {900, 400, 900, 100}) AddItem("M", Int16(length));
  EXPECT_EQ(SortItemRows(SortKey::Length), (std::vector<int>{4, 2, 1, 3}));
  EXPECT_EQ(SortItemRows(SortKey::Mark), (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(Items.At(0).Mark, "blank");
}

TEST_F(SectionsTest, Rows_of_equal_keys_keep_their_order_in_a_long_table_too) {
  for (const SortKey key : {SortKey::Mark, SortKey::Product, SortKey::Length}) {
    Items.Clear();
    for (int i = 1; i <= 60; ++i) {
      Item& item = AddItem(i % 2 == 0 ? "A" : "B", 1000 - i % 2);
      item.Product = item.Mark;
      item.Quantity = Int16(i);
    }
    SortItemRows(key);
    for (int i = 1; i <= 30; ++i) {
      const int even = key == SortKey::Length ? 30 + i : i;  // "A" is first, but 1000 is last
      const int odd = key == SortKey::Length ? i : 30 + i;
      EXPECT_EQ(Items.At(even).Quantity, 2 * i);
      EXPECT_EQ(Items.At(odd).Quantity, 2 * i - 1);
    }
  }
}

TEST_F(SectionsTest, Lengths_sort_as_signed_numbers) {
  AddItem("P", 32767);
  AddItem("Q", -5);
  AddItem("R", 0);
  AddItem("S", 9);
  AddItem("T", 10);
  SortItemRows(SortKey::Length);
  EXPECT_EQ(Marks(), (Texts{"Q", "R", "S", "T", "P"}));
}

TEST_F(SectionsTest, A_table_of_one_row_or_none_sorts_to_itself) {
  for (const SortKey key : {SortKey::Mark, SortKey::Product, SortKey::Length}) SortItemRows(key);
  EXPECT_EQ(Items.UBound(), 0);
  AddItem("A");
  for (const SortKey key : {SortKey::Mark, SortKey::Product, SortKey::Length}) SortItemRows(key);
  EXPECT_EQ(Marks(), (Texts{"A"}));
}

// New project.

TEST_F(SectionsTest, NewProjectTables_empties_the_project_and_keeps_the_rest) {
  AddItem("A");
  AccLines1.Append({1, 1, 2, 0});
  AccLines2.Append({});
  txtProject = {"o", "job", "customer", "project", "designer"};
  DTPicker1 = {2001, 1, 1};
  CurrentItem = 1;
  CurrentAcc = 2;
  ProjectFileName = "/tmp/a.ovd";
  CompanyName = "Company";
  MinHoleSep = 4;
  DrawingWidth = 180;
  AccDefs.Resize(3);
  AccType1Count = 1;
  AccType2Count = 2;
  AccUsed.Resize(4);  // the last one is of an accessory that the catalogues haven't got
  AccUsed.At(1) = AccUsed.At(3) = AccUsed.At(4) = True;
  PunchPatterns.Resize(2);

  NewProjectTables({2024, 3, 5});

  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccLines2.UBound(), 0);
  for (const std::string& text : txtProject) EXPECT_EQ(text, "");
  EXPECT_EQ(DTPicker1, (Date{2024, 3, 5}));
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_EQ(ProjectFileName, "");
  // Every flag of the old job is gone, and their number is still the catalogues'.
  ASSERT_EQ(AccUsed.UBound(), 3);
  for (const Boolean used : AccUsed) EXPECT_EQ(used, False);
  EXPECT_EQ(AccDefs.UBound(), 3);
  EXPECT_EQ(PunchPatterns.UBound(), 2);
  EXPECT_EQ(CompanyName, "Company");
  EXPECT_EQ(DrawingWidth, 180);
  EXPECT_EQ(ProjectDirty, False);  // the command sets it, when all else is done
  ProjectDirty = True;
  NewProjectTables({2024, 3, 5});
  EXPECT_EQ(ProjectDirty, True);
}

}  // namespace
}  // namespace orvane
