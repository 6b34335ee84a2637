#include "project/rules/section_faults.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/model.h"
#include "project/rules/section_columns.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

const std::string Duplicate = "Error - Duplicate Mark";

class SectionFaultsTest : public test::SystemTest {
 protected:
  SectionFaultsTest() {
    MaxDims.Resize(6);
    MaxDims.At(1) = 15000;
  }

  static Item& Put(const std::string& mark) {
    Item item;
    item.SectionType = "Z";
    item.Mark = mark;
    item.Product = "Z14012";
    item.Length = 6000;
    item.Quantity = 4;
    return Items.Append(item);
  }
  void SetMark(int row, const std::string& mark) {
    Items.At(row).Mark = mark;
    faults.Changed(row);
  }
  // The rows whose cell in that column bears a sign.
  std::vector<int> Rows(int column) const {
    std::vector<int> rows;
    for (int row = 1; row <= Items.UBound(); ++row) {
      if (faults.Of(row, column)) rows.push_back(row);
    }
    return rows;
  }
  using RowList = std::vector<int>;

  SectionFaults faults;
};

TEST_F(SectionFaultsTest, A_section_in_order_has_no_sign) {
  Put("P1");
  Put("P2");
  faults.Refill();
  for (int column = 0; column < SectionColumns; ++column) EXPECT_EQ(Rows(column), RowList{});
}

TEST_F(SectionFaultsTest, Each_value_that_the_rules_refuse_has_its_reason) {
  Put("  ");
  Put("P2").Product = " ";
  Put("P3").Length = 0;
  Put("P4").Length = 15001;
  Put("P5").Length = 15000;
  Put("P6").Quantity = 0;
  Put("P7").Quantity = -3;
  faults.Refill();
  EXPECT_EQ(faults.Of(1, MarkColumn), "No mark");
  EXPECT_EQ(faults.Of(2, ProductColumn), "No product");
  EXPECT_EQ(faults.Of(3, LengthColumn), "Invalid length");
  EXPECT_EQ(faults.Of(4, LengthColumn), "Length exceeds maximum for section (15000)");
  EXPECT_EQ(faults.Of(6, QuantityColumn), "Invalid quantity");
  EXPECT_EQ(Rows(MarkColumn), RowList{1});
  EXPECT_EQ(Rows(ProductColumn), RowList{2});
  EXPECT_EQ(Rows(LengthColumn), (RowList{3, 4}));
  EXPECT_EQ(Rows(QuantityColumn), (RowList{6, 7}));
}

TEST_F(SectionFaultsTest, All_rows_of_a_duplicate_have_the_sign_blanks_apart_and_case_counts) {
  Put("P1");
  Put(" P1 ");
  Put("p1");
  Put("");
  Put("");
  Put("P1");
  faults.Refill();
  EXPECT_EQ(Rows(MarkColumn), (RowList{1, 2, 4, 5, 6}));
  EXPECT_EQ(faults.Of(1, MarkColumn), Duplicate);
  EXPECT_EQ(faults.Of(4, MarkColumn), "No mark");
}

TEST_F(SectionFaultsTest, A_row_that_is_entered_for_the_first_time_has_none_until_it_is_left) {
  Put("P1");
  faults.Refill();
  Item& added = Put("P1");
  added.Length = 0;
  faults.Enter(2);
  for (int column = 0; column < SectionColumns; ++column) EXPECT_EQ(Rows(column), RowList{});
  faults.Enter(1);
  EXPECT_EQ(Rows(MarkColumn), (RowList{1, 2}));
  EXPECT_EQ(Rows(LengthColumn), RowList{2});
}

TEST_F(SectionFaultsTest, What_is_typed_on_the_way_to_a_mark_is_no_duplicate) {
  Put("P1");
  Put("X");
  faults.Refill();
  faults.Enter(2);
  for (const char* typed : {"", "P", "P1", "P12"}) {
    SetMark(2, typed);
    EXPECT_EQ(Rows(MarkColumn), RowList{}) << typed;
  }
  SetMark(2, "P1");
  faults.Enter(0);
  EXPECT_EQ(Rows(MarkColumn), (RowList{1, 2}));
}

TEST_F(SectionFaultsTest, A_sign_stays_while_the_row_is_entered_again_and_goes_when_it_is_mended) {
  Put("P1");
  Put("P1").Quantity = 0;
  faults.Refill();
  faults.Enter(2);
  EXPECT_EQ(Rows(MarkColumn), (RowList{1, 2}));
  EXPECT_EQ(Rows(QuantityColumn), RowList{2});
  // At the stroke, on both rows of the duplicate.
  SetMark(2, "P1x");
  EXPECT_EQ(Rows(MarkColumn), RowList{});
  EXPECT_EQ(Rows(QuantityColumn), RowList{2});
  // A new fault of a value that was mended waits until the row is left.
  SetMark(2, "P1");
  EXPECT_EQ(Rows(MarkColumn), RowList{});
  Items.At(2).Quantity = 5;
  faults.Changed(2);
  Items.At(2).Quantity = 0;
  faults.Changed(2);
  EXPECT_EQ(Rows(QuantityColumn), RowList{});
  faults.Enter(1);
  EXPECT_EQ(Rows(MarkColumn), (RowList{1, 2}));
  EXPECT_EQ(Rows(QuantityColumn), RowList{2});
}

TEST_F(SectionFaultsTest, A_value_that_is_changed_to_another_fault_keeps_its_sign) {
  Put("P1");
  Put("P2");
  Put("P1").Length = 0;
  faults.Refill();
  faults.Enter(3);
  SetMark(3, "P2");
  EXPECT_EQ(Rows(MarkColumn), RowList{3});
  Items.At(3).Length = 20000;
  faults.Changed(3);
  EXPECT_EQ(faults.Of(3, LengthColumn), "Length exceeds maximum for section (15000)");
  faults.Enter(0);
  EXPECT_EQ(Rows(MarkColumn), (RowList{2, 3}));
}

TEST_F(SectionFaultsTest, Of_three_rows_of_a_mark_two_stay_when_one_is_mended) {
  for (int row = 1; row <= 3; ++row) Put("P1");
  faults.Refill();
  faults.Enter(2);
  SetMark(2, "P2");
  EXPECT_EQ(Rows(MarkColumn), (RowList{1, 3}));
  faults.Enter(3);
  SetMark(3, "P3");
  EXPECT_EQ(Rows(MarkColumn), RowList{});
}

TEST_F(SectionFaultsTest, Whoever_shows_the_signs_is_told_where_they_may_have_moved) {
  Put("P1");
  Put("P2").Quantity = 0;
  faults.Refill();
  EXPECT_FALSE(faults.Enter(2).Others);
  Items.At(2).Mark = "P1";
  SectionFaults::Moved moved = faults.Changed(2);
  EXPECT_FALSE(moved.Others);
  EXPECT_TRUE(faults.Enter(1).Others);
  EXPECT_FALSE(faults.Enter(2).Others);
  Items.At(2).Mark = "P2";
  moved = faults.Changed(2);
  EXPECT_TRUE(moved.Own);
  EXPECT_TRUE(moved.Others);
  Items.At(2).Quantity = 1;
  moved = faults.Changed(2);
  EXPECT_TRUE(moved.Own);
  EXPECT_FALSE(moved.Others);
  Items.At(2).Length = 0;
  moved = faults.Changed(2);
  EXPECT_FALSE(moved.Own);
  EXPECT_FALSE(moved.Others);
}

TEST_F(SectionFaultsTest, Rows_and_columns_that_are_not_there_have_no_sign) {
  Put("");
  faults.Refill();
  for (const auto& [row, column] :
       std::vector<std::pair<int, int>>{{0, 1}, {-1, 1}, {2, 1}, {1, -1}, {1, 6}}) {
    EXPECT_EQ(faults.Of(row, column), std::nullopt) << row << "," << column;
  }
  Items.Clear();
  EXPECT_EQ(faults.Of(1, MarkColumn), std::nullopt);
  faults.Enter(0);
  faults.Changed(1);
  EXPECT_EQ(faults.Of(1, MarkColumn), std::nullopt);
}

}  // namespace

}  // namespace orvane
