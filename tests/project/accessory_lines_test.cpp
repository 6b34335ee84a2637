#include "project/accessory_lines.h"

#include <string>
#include <utility>
#include <vector>

#include "tests/support/fixture.h"

namespace orvane {
namespace {

class AccessoryLinesTest : public test::SystemTest {
 protected:
  // Two type 1 accessories, three of type 2, all of them in use.
  AccessoryLinesTest() {
    AccDefs.Resize(5);
    AccType1Count = 2;
    AccType2Count = 3;
    AccUsed.Resize(5);
    for (Boolean& used : AccUsed) used = True;
  }

  static void Add1(int accIndex, int paramIndex, int qty) {
    AccLines1.Append({Int16(accIndex), Int16(paramIndex), Int16(qty), 0});
  }

  static void Add2(int accIndex, const std::string& mark, int noOff) {
    AccLine2 line;
    line.AccIndex = Int16(accIndex);
    line.Mark = mark;
    line.NoOff = Int16(noOff);
    line.Values.Append(mark + "!");
    AccLines2.Append(line);
  }

  // "AccIndex/ParamIndex/Qty" of each line.
  static std::vector<std::string> Lines1() {
    std::vector<std::string> lines;
    for (const AccLine1& line : AccLines1) {
      lines.push_back(std::to_string(line.AccIndex) + "/" + std::to_string(line.ParamIndex) + "/" +
                      std::to_string(line.Qty));
    }
    return lines;
  }

  static std::vector<Boolean> Flags() { return {AccUsed.begin(), AccUsed.end()}; }
};

using Lines = std::vector<std::string>;

TEST_F(AccessoryLinesTest, ClearAccLines_takes_out_the_lines_of_one_type_1_accessory) {
  Add1(2, 1, 10);
  Add1(1, 1, 11);
  Add1(2, 2, 12);
  Add1(1, 3, 13);
  Add2(2, "M", 1);  // the same number in the other list
  ClearAccLines(1, 2);
  EXPECT_EQ(Lines1(), (Lines{"1/1/11", "1/3/13"}));
  EXPECT_EQ(test::LinesOfType2(), (Lines{"2/M/1"}));
  EXPECT_EQ(Flags(), (std::vector<Boolean>{True, False, True, True, True}));
}

TEST_F(AccessoryLinesTest, ClearAccLines_takes_out_the_lines_of_one_type_2_accessory) {
  Add2(4, "B", 1);
  Add2(3, "C", 2);
  Add2(4, "A", 3);
  Add2(5, "B", 4);
  Add1(4, 1, 9);
  ClearAccLines(2, 4);
  EXPECT_EQ(test::LinesOfType2(), (Lines{"3/C/2", "5/B/4"}));
  EXPECT_EQ(AccLines2.At(1).Values.At(1), "C!");
  EXPECT_EQ(AccLines2.At(2).Values.At(1), "B!");
  EXPECT_EQ(Lines1(), (Lines{"4/1/9"}));
  EXPECT_EQ(Flags(), (std::vector<Boolean>{True, True, True, False, True}));
}

TEST_F(AccessoryLinesTest, An_emptied_list_has_upper_bound_0) {
  Add1(1, 1, 1);
  Add1(1, 2, 1);
  Add2(3, "A", 1);
  ClearAccLines(1, 1);
  ClearAccLines(2, 3);
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccLines1.At(0).AccIndex, 0);
  EXPECT_EQ(AccLines2.UBound(), 0);
}

TEST_F(AccessoryLinesTest, Clearing_an_accessory_without_lines_leaves_its_flag_false) {
  Add1(1, 1, 7);
  ClearAccLines(1, 2);
  ClearAccLines(2, 5);
  EXPECT_EQ(Lines1(), (Lines{"1/1/7"}));
  EXPECT_EQ(Flags(), (std::vector<Boolean>{True, False, True, True, False}));
  ClearAccLines(1, 2);
  EXPECT_EQ(AccUsed.At(2), False);
}

TEST_F(AccessoryLinesTest, Clearing_leaves_the_changed_flag_alone) {
  ClearAccLines(1, 1);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(AccessoryLinesTest, An_accessory_outside_the_catalogue_is_out_of_range) {
  EXPECT_EQ(test::ErrorOf([] { ClearAccLines(1, 6); }), "Subscript out of range");
  EXPECT_EQ(test::ErrorOf([] { ClearAccLines(2, -1); }), "Subscript out of range");
}

TEST_F(AccessoryLinesTest, SortAccLines_orders_type_1_by_accessory_then_parameter) {
  Add1(2, 1, 1);
  Add1(1, 3, 2);
  Add1(1, 10, 3);
  Add1(1, 1, 4);
  Add1(-1, 5, 5);
  SortAccLines(1);
  EXPECT_EQ(Lines1(), (Lines{"-1/5/5", "1/1/4", "1/3/2", "1/10/3", "2/1/1"}));
}

TEST_F(AccessoryLinesTest, SortAccLines_orders_type_2_by_accessory_then_mark_in_character_codes) {
  Add2(4, "A1", 1);
  Add2(3, "a1", 2);
  Add2(3, "B1", 3);
  Add2(3, "A10", 4);
  Add2(3, "\xC3\xA9", 5);
  Add2(3, "A9", 6);
  Add2(3, "", 7);
  SortAccLines(2);
  EXPECT_EQ(test::LinesOfType2(),
            (Lines{"3//7", "3/A10/4", "3/A9/6", "3/B1/3", "3/a1/2", "3/\xC3\xA9/5", "4/A1/1"}));
  EXPECT_EQ(AccLines2.At(2).Values.At(1), "A10!");  // the whole line moved
}

TEST_F(AccessoryLinesTest, Lines_of_equal_keys_keep_their_order) {
  for (int i = 1; i <= 40; ++i) {
    Add1(2 - i % 2, 1, i);
    Add2(4 - i % 2, "M", i);
  }
  SortAccLines(1);
  SortAccLines(2);
  for (int i = 1; i <= 20; ++i) {
    EXPECT_EQ(AccLines1.At(i).Qty, 2 * i - 1);
    EXPECT_EQ(AccLines1.At(20 + i).Qty, 2 * i);
    EXPECT_EQ(AccLines2.At(i).NoOff, 2 * i - 1);
    EXPECT_EQ(AccLines2.At(20 + i).NoOff, 2 * i);
  }
}

TEST_F(AccessoryLinesTest, Each_type_sorts_its_own_list) {
  Add1(2, 1, 1);
  Add1(1, 1, 2);
  Add2(4, "A", 1);
  Add2(3, "A", 2);
  SortAccLines(1);
  EXPECT_EQ(test::LinesOfType2(), (Lines{"4/A/1", "3/A/2"}));
  Add1(1, 0, 3);
  SortAccLines(2);
  EXPECT_EQ(test::LinesOfType2(), (Lines{"3/A/2", "4/A/1"}));
  EXPECT_EQ(Lines1(), (Lines{"1/1/2", "2/1/1", "1/0/3"}));
}

TEST_F(AccessoryLinesTest, Empty_lists_sort_to_themselves) {
  SortAccLines(1);
  SortAccLines(2);
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccLines2.UBound(), 0);
}

// A file that broke off leaves blank lines, which belong to accessory 0.
TEST_F(AccessoryLinesTest, Blank_lines_of_a_broken_file_sort_first_and_can_be_cleared) {
  Add2(4, "B", 1);
  AccLines2.Resize(3);
  SortAccLines(2);
  EXPECT_EQ(test::LinesOfType2(), (Lines{"0//0", "0//0", "4/B/1"}));
  ClearAccLines(2, 4);
  EXPECT_EQ(test::LinesOfType2(), (Lines{"0//0", "0//0"}));
  ClearAccLines(2, 0);
  EXPECT_EQ(AccLines2.UBound(), 0);
  EXPECT_EQ(Flags(), (std::vector<Boolean>{True, True, True, False, True}));
}

}  // namespace
}  // namespace orvane
