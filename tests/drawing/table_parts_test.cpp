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

// 180 mm are twelve columns: the names and eleven letters. The others stand below them, with the
// names once more.
TEST(TableParts, A_wider_one_goes_on_below_with_the_names_of_its_rows) {
  const std::vector<TableGrid> parts =
      TableParts(WithLetters(16), {.Left = 72, .Right = 252, .Bottom = 80}, 30);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(RowOf(parts, 0), "| 1 2 3 4 5 6 7 8 9 10 11 | 12 13 14 15 16 ");
  EXPECT_EQ(RowOf(parts, 1),
            "|w 100 200 300 400 500 600 700 800 900 1000 1100 |w 1200 1300 1400 1500 1600 ");
  for (const TableGrid& part : parts) {
    EXPECT_NEAR(part.Columns.front().Left, 72, Close);
    EXPECT_EQ(part.Rows.size(), 4U);
    EXPECT_EQ(part.Rows.front().Height, 5);
    EXPECT_EQ(part.At(1, 0).Type.Size, 10);
  }
  EXPECT_NEAR(parts[0].Right, 252, Close);
  EXPECT_NEAR(parts[1].Right, 72 + 6 * 15, Close);
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
  EXPECT_NEAR(parts[0].Columns.front().Left, 72, Close);
  EXPECT_NEAR(parts[0].Right, 72 + 14 * 12.75, Close);
  EXPECT_NEAR(parts[0].Rows.front().Height, 4.25, Close);
  EXPECT_NEAR(parts[0].At(0, 0).Type.Size, 8.5, Close);
}

TEST(TableParts, They_are_never_smaller_than_60_percent) {
  const std::vector<TableGrid> parts =
      TableParts(WithLetters(100), {.Left = 72, .Right = 252, .Bottom = 67.8}, 30);
  // 180 mm are twenty columns of 9 mm.
  ASSERT_EQ(parts.size(), 6U);
  EXPECT_EQ(parts[0].Columns.size(), 20U);
  EXPECT_EQ(parts[5].Columns.size(), 6U);
  EXPECT_NEAR(parts[0].Rows.front().Height, 3, Close);
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
