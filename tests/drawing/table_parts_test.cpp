#include "drawing/table_parts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/numbers.h"

namespace orvane {
namespace {

// The table of off-gauge holes with that many letters, as it ends at 252 mm: a column of names and
// the letters, 15 mm each, in four rows of 5 mm.
TableGrid WithLetters(int letters) {
  TableSettings settings;
  settings.Set(TableSetting::Columns, 0, 0, letters + 1);
  settings.Set(TableSetting::Rows, 0, 0, 4);
  settings.Set(TableSetting::RowHeight, 0, 0, "5mm");
  settings.Set(TableSetting::ColumnWidth, 0, 0, "15mm");
  settings.Set(TableSetting::CellText, 2, 1, "w");
  for (int letter = 1; letter <= letters; ++letter) {
    settings.Set(TableSetting::CellText, 1, letter + 1, DecimalText(letter));
    settings.Set(TableSetting::CellText, 2, letter + 1, DecimalText(100 * letter));
  }
  return settings.Grid({}, Black, 252 - 15.0 * (letters + 1), 1000);
}

// The texts of a row, one part's behind the other's, with a bar before each part.
std::string RowOf(const std::vector<TableGrid>& parts, std::size_t row) {
  std::string texts;
  for (const TableGrid& part : parts) {
    texts += "|";
    for (std::size_t at = 0; at < part.Columns.size(); ++at) texts += part.At(row, at).Text + " ";
  }
  return texts;
}

constexpr double Close = 1e-9;

TEST(TableParts, A_table_that_has_room_stays_whole_wherever_it_stands) {
  for (const int letters : {1, 11}) {
    const std::vector<TableGrid> parts =
        TableParts(WithLetters(letters), {.Left = 72, .Right = 252, .Bottom = 10}, 30);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_NEAR(parts[0].Columns.front().Left, 252 - 15 * (letters + 1), Close);
    EXPECT_EQ(parts[0].Rows.front().Height, 5);
  }
  EXPECT_EQ(TableParts(WithLetters(40), {}, 30).size(), 1U);
}

// 180 mm are twelve columns, the names and eleven letters: sixteen letters take two parts, eight in
// each, with the names once more.
TEST(TableParts, A_wider_one_goes_on_below_with_the_names_of_its_rows) {
  const std::vector<TableGrid> parts =
      TableParts(WithLetters(16), {.Left = 72, .Right = 252, .Bottom = 80}, 30);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(RowOf(parts, 0), "| 1 2 3 4 5 6 7 8 | 9 10 11 12 13 14 15 16 ");
  EXPECT_EQ(RowOf(parts, 1),
            "|w 100 200 300 400 500 600 700 800 |w 900 1000 1100 1200 1300 1400 1500 1600 ");
  for (const TableGrid& part : parts) {
    EXPECT_NEAR(part.Columns.front().Left, 252 - 9 * 15, Close);
    EXPECT_NEAR(part.Right, 252, Close);
    EXPECT_EQ(part.Rows.size(), 4U);
    EXPECT_EQ(part.Rows.front().Height, 5);
    EXPECT_EQ(part.At(1, 0).Type.Size, 10);
  }
}

// Seventeen letters: nine in the first part, eight below its left edge.
TEST(TableParts, The_last_part_may_have_fewer_columns) {
  const std::vector<TableGrid> parts =
      TableParts(WithLetters(17), {.Left = 72, .Right = 252, .Bottom = 80}, 30);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_NEAR(parts[0].Columns.front().Left, 252 - 10 * 15, Close);
  EXPECT_NEAR(parts[1].Columns.front().Left, 252 - 10 * 15, Close);
  EXPECT_NEAR(parts[1].Right, 252 - 15, Close);
}

// 10 and 6 x 20 mm in 100: the first four have room together, but three in the middle hadn't.
TEST(TableParts, Columns_of_different_widths_stay_as_they_fit) {
  TableSettings settings;
  settings.Set(TableSetting::Columns, 0, 0, 6);
  settings.Set(TableSetting::Rows, 0, 0, 1);
  settings.Set(TableSetting::RowHeight, 0, 0, "5mm");
  int column = 0;
  for (const char* width : {"10mm", "10mm", "10mm", "70mm", "10mm", "70mm"}) {
    settings.Set(TableSetting::ColumnWidth, 0, ++column, std::string(width));
  }
  const std::vector<TableGrid> parts =
      TableParts(settings.Grid({}, Black, 10, 1000), {.Left = 10, .Right = 110}, 30);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].Columns.size(), 4U);
  EXPECT_EQ(parts[1].Columns.size(), 3U);
}

// Two parts of four rows and the gap are 42 mm high. In 37.8 mm they are 85 % as large: 36 mm; at
// 90 % they would be 38. A column is 12.75 mm wide then, so that 14 of them have room.
TEST(TableParts, Parts_that_are_higher_than_the_room_are_smaller) {
  const std::vector<TableGrid> parts =
      TableParts(WithLetters(26), {.Left = 72, .Right = 252, .Bottom = 67.8}, 30);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].Columns.size(), 14U);
  EXPECT_EQ(parts[1].Columns.size(), 14U);
  EXPECT_NEAR(parts[0].Columns.front().Width, 12.75, Close);
  EXPECT_NEAR(parts[0].Columns.front().Left, 73.5, Close);
  EXPECT_NEAR(parts[0].Right, 252, Close);
  EXPECT_NEAR(parts[0].Rows.front().Height, 4.25, Close);
  EXPECT_NEAR(parts[0].At(0, 0).Type.Size, 8.5, Close);
}

// Twenty columns of 9 mm are 38 letters in two parts, and three are 40 mm high: 39 letters take
// columns of 8.25 mm.
TEST(TableParts, Parts_that_are_higher_at_60_percent_have_narrower_columns) {
  const std::vector<TableGrid> parts =
      TableParts(WithLetters(39), {.Left = 72, .Right = 252, .Bottom = 67.8}, 30);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].Columns.size(), 21U);
  EXPECT_EQ(parts[1].Columns.size(), 20U);
  EXPECT_NEAR(parts[0].Columns.front().Width, 8.25, Close);
  EXPECT_NEAR(parts[0].Rows.front().Height, 3, Close);
  EXPECT_NEAR(parts[0].At(0, 0).Type.Size, 6, Close);
}

// Columns of 5.25 mm are 33 letters in each of three parts, which are 37 mm high with rows of 2.75
// mm.
TEST(TableParts, At_last_their_rows_are_lower) {
  const std::vector<TableGrid> parts =
      TableParts(WithLetters(99), {.Left = 72, .Right = 252, .Bottom = 67.8}, 30);
  ASSERT_EQ(parts.size(), 3U);
  EXPECT_EQ(parts[2].Columns.size(), 34U);
  EXPECT_NEAR(parts[0].Columns.front().Width, 5.25, Close);
  EXPECT_NEAR(parts[0].Rows.front().Height, 2.75, Close);
  EXPECT_NEAR(parts[0].At(0, 0).Type.Size, 6, Close);
}

// Five parts of up to 27 letters, and their letters can't be smaller.
TEST(TableParts, More_than_that_run_on) {
  const std::vector<TableGrid> parts =
      TableParts(WithLetters(133), {.Left = 72, .Right = 252, .Bottom = 67.8}, 30);
  ASSERT_EQ(parts.size(), 5U);
  EXPECT_EQ(parts[0].Columns.size(), 28U);
  EXPECT_NEAR(parts[0].Rows.front().Height, 2.5, Close);
  EXPECT_NEAR(parts[0].At(0, 0).Type.Size, 6, Close);
}

TEST(TableParts, Each_part_has_a_letter_even_without_room_for_it) {
  const std::vector<TableGrid> parts = TableParts(WithLetters(3), {.Left = 240, .Right = 252}, 30);
  ASSERT_EQ(parts.size(), 3U);
  EXPECT_EQ(RowOf(parts, 0), "| 1 | 2 | 3 ");
  EXPECT_NEAR(parts[0].Columns.front().Left, 240, Close);
}

TEST(TableParts, A_text_over_several_columns_stays_where_it_begins) {
  TableSettings settings;
  settings.Set(TableSetting::Columns, 0, 0, 5);
  settings.Set(TableSetting::Rows, 0, 0, 1);
  settings.Set(TableSetting::RowHeight, 0, 0, "5mm");
  settings.Set(TableSetting::ColumnWidth, 0, 0, "10mm");
  settings.SetMerge(1, 3, 2);
  settings.Set(TableSetting::CellText, 1, 3, "over two");
  const std::vector<TableGrid> parts =
      TableParts(settings.Grid({}, Black, 10, 1000), {.Left = 10, .Right = 40}, 30);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(RowOf(parts, 0), "|  over two |   ");
  EXPECT_EQ(parts[0].At(0, 2).Span, 1);
  EXPECT_EQ(parts[1].At(0, 1).Span, 1);
}

}  // namespace
}  // namespace orvane
