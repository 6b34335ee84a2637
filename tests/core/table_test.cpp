#include "core/table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/runtime_error.h"
#include "tests/support/fixture.h"

namespace {

using orvane::Table;
using orvane::test::ErrorOf;

Table<std::string> TableOf(const std::vector<std::string>& rows) {
  Table<std::string> table;
  for (const std::string& row : rows) table.Append(row);
  return table;
}

std::vector<std::string> RowsOf(const Table<std::string>& table) {
  return {table.begin(), table.end()};
}

using Rows = std::vector<std::string>;

TEST(Table, An_empty_table_has_upper_bound_0_and_a_blank_element_0) {
  const Table<std::string> table;
  EXPECT_EQ(table.UBound(), 0);
  EXPECT_TRUE(table.Empty());
  EXPECT_EQ(table.At(0), "");
  EXPECT_EQ(RowsOf(table), Rows{});
}

TEST(Table, Real_rows_start_at_1_and_the_upper_bound_counts_them) {
  const Table<std::string> table = TableOf({"a", "b"});
  EXPECT_EQ(table.UBound(), 2);
  EXPECT_FALSE(table.Empty());
  EXPECT_EQ(table.At(0), "");
  EXPECT_EQ(table.At(1), "a");
  EXPECT_EQ(table.At(2), "b");
  EXPECT_EQ(RowsOf(table), (Rows{"a", "b"}));
}

TEST(Table, Append_gives_the_new_row_back) {
  Table<std::string> table = TableOf({"a"});
  table.Append("b") += "c";
  EXPECT_EQ(RowsOf(table), (Rows{"a", "bc"}));
}

TEST(Table, Append_of_a_row_of_the_same_table_copies_it_before_the_table_grows) {
  Table<std::string> table = TableOf({std::string(100, 'x')});
  for (int i = 0; i < 20; ++i) table.Append(table.At(1));
  EXPECT_EQ(table.At(21), std::string(100, 'x'));
}

TEST(Table, Every_access_outside_its_rows_raises_Subscript_out_of_range) {
  Table<std::string> table = TableOf({"a", "b"});
  const Table<std::string>& reading = table;
  for (const int row : {-1, 3, 1000, -32768}) {
    EXPECT_EQ(ErrorOf([&] { table.At(row) = "x"; }), "Subscript out of range") << row;
    EXPECT_EQ(ErrorOf([&] { (void)reading.At(row); }), "Subscript out of range") << row;
  }
  for (const int row : {-1, 0, 3}) {
    EXPECT_EQ(ErrorOf([&] { table.Remove(row); }), "Subscript out of range") << row;
  }
  for (const int row : {-1, 0, 4}) {
    EXPECT_EQ(ErrorOf([&] { table.Insert(row, "x"); }), "Subscript out of range") << row;
  }
  EXPECT_EQ(RowsOf(table), (Rows{"a", "b"}));
}

TEST(Table, Element_0_can_be_written_and_is_never_counted) {
  Table<std::string> table = TableOf({"a"});
  table.At(0) = "end";
  EXPECT_EQ(table.At(0), "end");
  EXPECT_EQ(table.UBound(), 1);
  EXPECT_EQ(RowsOf(table), (Rows{"a"}));
}

TEST(Table, Remove_moves_the_rows_behind_down_by_one) {
  Table<std::string> table = TableOf({"a", "b", "c", "d"});
  table.Remove(2);
  EXPECT_EQ(table.UBound(), 3);
  EXPECT_EQ(RowsOf(table), (Rows{"a", "c", "d"}));
  table.Remove(3);
  table.Remove(1);
  EXPECT_EQ(RowsOf(table), (Rows{"c"}));
}

TEST(Table, Insert_moves_the_rows_from_there_on_up_by_one) {
  Table<std::string> table;
  table.Insert(1, "b");
  table.Insert(1, "a");
  table.Insert(3, "d");
  table.Insert(3, "c");
  EXPECT_EQ(RowsOf(table), (Rows{"a", "b", "c", "d"}));
}

TEST(Table, Resize_keeps_what_it_holds_and_adds_blank_rows) {
  Table<std::string> table = TableOf({"a", "b"});
  table.At(0) = "end";
  table.Resize(3);
  EXPECT_EQ(RowsOf(table), (Rows{"a", "b", ""}));
  table.Resize(1);
  EXPECT_EQ(RowsOf(table), (Rows{"a"}));
  table.Resize(2);
  EXPECT_EQ(RowsOf(table), (Rows{"a", ""}));
  EXPECT_EQ(table.At(0), "end");
}

TEST(Table, Resize_to_a_negative_count_raises_Subscript_out_of_range) {
  Table<std::string> table = TableOf({"a"});
  EXPECT_EQ(ErrorOf([&] { table.Resize(-1); }), "Subscript out of range");
  EXPECT_EQ(RowsOf(table), (Rows{"a"}));
}

TEST(Table, Reserve_changes_nothing_that_can_be_seen_and_takes_any_count) {
  Table<std::string> table = TableOf({"a"});
  table.Reserve(-5);
  table.Reserve(100);
  EXPECT_EQ(RowsOf(table), (Rows{"a"}));
}

TEST(Table, Clear_empties_the_table_and_its_element_0) {
  Table<std::string> table = TableOf({"a", "b"});
  table.At(0) = "end";
  table.Clear();
  EXPECT_EQ(table.UBound(), 0);
  EXPECT_EQ(table.At(0), "");
}

TEST(Table, Copying_is_deep) {
  Table<Table<std::string>> table;
  table.Append(TableOf({"a", "b"}));
  Table<Table<std::string>> copy = table;
  copy.At(1).At(1) = "x";
  copy.At(1).Append("y");
  copy.At(0).Append("z");
  copy.Append({});
  EXPECT_EQ(table.UBound(), 1);
  EXPECT_EQ(RowsOf(table.At(1)), (Rows{"a", "b"}));
  EXPECT_EQ(RowsOf(table.At(0)), Rows{});
  EXPECT_EQ(RowsOf(copy.At(1)), (Rows{"x", "b", "y"}));
}

}  // namespace
