#include "drawing/page_tables.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "tests/drawing/table_fixture.h"

namespace {

using namespace orvane;
using orvane::test::ErrorOf;
using orvane::test::Lines;
using orvane::test::PageTablesTest;

// --- Cells

// Eleven points: a line is 253 twips (4.462 mm) high, so 0.169 mm are left above it in 4.8 mm. The
// columns begin at 10, 160 and 192 mm, and the text half a millimetre inside. The table ends at
// 292, 5 mm over the right margin, and no width is taken from it.
TEST_F(PageTablesTest, The_job_table_stands_at_the_left_margin_with_its_own_widths) {
  surface.CurrentX(Length::OfMm(70));
  DrawJobTable(170);
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"Label\" 160.5 170.169 11",
                             "text \"V1\" 192.5 170.169 11",
                             "text \"Label\" 160.5 174.969 11",
                             "text \"V2\" 192.5 174.969 11",
                             "text \"Label\" 160.5 179.769 11",
                             "text \"V3\" 192.5 179.769 11",
                             "text \"Label\" 160.5 184.569 11",
                             "text \"V4\" 192.5 184.569 11",
                             "text \"Label\" 160.5 189.369 11",
                             "text \"V5\" 192.5 189.369 11",
                             "text \"Label\" 160.5 194.169 11 128,128,128",
                             "text \"V6\" 192.5 194.169 11 128,128,128",
                         }));
}

TEST_F(PageTablesTest, The_position_after_a_table_is_below_it_at_the_left_margin) {
  surface.FontSize(14);
  surface.CurrentX(Length::OfMm(70));
  DrawJobTable(100);  // 6 x 4.8 mm high
  surface.Text("next");
  EXPECT_EQ(ShapesOf(1).back(), "text \"next\" 10 128.8 14");  // in the font from before the table
}

TEST_F(PageTablesTest, Cells_have_the_font_and_colour_of_the_moment_until_they_get_their_own) {
  surface.FontName("Courier");
  surface.FontBold(true);
  surface.TextColor(Navy);
  Start(2, {"50"});
  surface.FontName("Arial");  // too late for this table
  surface.FontBold(false);
  surface.TextColor(Black);
  SetText(1, 1, "as it was");
  SetText(2, 1, "own");
  Set(TableSetting::FontSize, 2, 1, 7);
  Set(TableSetting::Bold, 2, 1, 0);
  Set(TableSetting::CellTextColor, 2, 1, Grey);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"as it was\" 10.5 10.472 10 bold Courier 0,0,128",
                             // 7 points: 161 twips, 2.840 mm
                             "text \"own\" 10.5 16.08 7 Courier 128,128,128",
                         }));
}

// "abcd" is 400 twips (7.055 mm) wide: centred in 20 mm it begins 6.473 mm inside, at the right it
// ends half a millimetre before the edge.
TEST_F(PageTablesTest, Text_stands_at_the_left_in_the_centre_or_at_the_right) {
  Start(2, {"20", "20", "20"});
  SetText(0, 0, "abcd");
  surface.TableAlignment(0, 2, CellAlignment::Centre);
  surface.TableAlignment(0, 3, CellAlignment::Right);
  surface.TableAlignment(2, 0, CellAlignment::Right);
  surface.TableAlignment(2, 3, CellAlignment::Left);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"abcd\" 10.5 10.472 10",
                             "text \"abcd\" 36.473 10.472 10",
                             "text \"abcd\" 62.445 10.472 10",
                             "text \"abcd\" 22.445 15.472 10",
                             "text \"abcd\" 42.445 15.472 10",
                             "text \"abcd\" 50.5 15.472 10",
                         }));
}

TEST_F(PageTablesTest, A_row_or_column_of_0_means_all_and_the_later_setting_holds) {
  Start(2, {"20", "20"});
  SetText(0, 0, "all");
  SetText(2, 0, "row");
  SetText(0, 2, "column");
  SetText(2, 2, "cell");
  surface.EndTable();
  EXPECT_EQ(TextsOf(1), (Lines{"all", "column", "row", "cell"}));
}

TEST_F(PageTablesTest, Settings_may_come_before_the_counts_of_rows_and_columns) {
  surface.StartTable();
  Set(TableSetting::FontSize, 0, 0, 7);
  SetText(2, 1, "b");
  Set(TableSetting::RowHeight, 0, 0, "5mm");
  Set(TableSetting::ColumnWidth, 0, 1, 1134);  // bare twips
  Set(TableSetting::Columns, 0, 0, 1);
  Set(TableSetting::Rows, 0, 0, 1);
  Set(TableSetting::Rows, 0, 0, 2);
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"b\" 10.5 16.08 7",
                             "line 10 10 30 10 pen 0.1",
                             "line 10 15 30 15 pen 0.1",
                             "line 10 20 30 20 pen 0.1",
                             "line 10 10 10 20 pen 0.1",
                             "line 30 10 30 20 pen 0.1",
                         }));
}

TEST_F(PageTablesTest, A_cell_that_the_table_lacks_is_out_of_range) {
  const auto errorOf = [&](int row, int column) {
    Start(2, {"20", "20"});
    SetText(row, column, "x");
    return ErrorOf([&] { surface.EndTable(); });
  };
  for (const auto& [row, column] :
       std::vector<std::array<int, 2>>{{3, 1}, {1, 3}, {-1, 1}, {1, -1}}) {
    EXPECT_EQ(errorOf(row, column), "Subscript out of range") << row << " " << column;
  }
  Start(2, {"20"});
  Set(TableSetting::RowHeight, 3, 0, "5mm");
  EXPECT_EQ(ErrorOf([&] { surface.EndTable(); }), "Subscript out of range");
  Start(2, {"20"});
  surface.TableAlignment(1, 2, CellAlignment::Right);
  EXPECT_EQ(ErrorOf([&] { surface.EndTable(); }), "Subscript out of range");
  Start(2, {"20"});
  surface.TableMerge(1, 2, 2);
  EXPECT_EQ(ErrorOf([&] { surface.EndTable(); }), "Subscript out of range");
  // The table is closed all the same.
  surface.EndTable();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), Lines{});
}

TEST_F(PageTablesTest, A_value_of_the_wrong_kind_is_a_type_mismatch) {
  Start(1, {"20"});
  const std::vector<std::pair<TableSetting, TableValue>> cases = {
      {TableSetting::Rows, "many"},       {TableSetting::Columns, Black},
      {TableSetting::RowHeight, "high"},  {TableSetting::ColumnWidth, Black},
      {TableSetting::CellText, Black},    {TableSetting::CellTextColor, 128},
      {TableSetting::FontSize, "large"},  {TableSetting::Bold, "yes"},
      {TableSetting::RuleAbove, "0,2mm"}, {TableSetting::RuleBelow, Black},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(ErrorOf([&] { Set(each.first, 1, 1, each.second); }), "Type mismatch")
        << static_cast<int>(each.first);
  }
  Set(TableSetting::CellText, 1, 1, 12);  // a number is its digits
  surface.EndTable();
  EXPECT_EQ(TextsOf(1), (Lines{"12"}));
}

TEST_F(PageTablesTest, An_empty_table_leaves_nothing_and_moves_to_the_left_margin) {
  surface.CurrentX(Length::OfMm(50));
  surface.CurrentY(Length::OfMm(60));
  surface.StartTable();
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  Start(0, {"20"});
  surface.EndTable();
  surface.Text("x");
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"x\" 10 60 10"}));
}

TEST_F(PageTablesTest, A_new_table_knows_nothing_of_the_one_before) {
  Start(1, {"20"});
  SetText(1, 1, "first");
  surface.TableBorder(AllTableLines);
  surface.TableIndent(Length::OfMm(30));
  surface.StartTable();  // the first was never ended
  Set(TableSetting::Rows, 0, 0, 1);
  Set(TableSetting::Columns, 0, 0, 1);
  SetText(1, 1, "second");
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"second\" 10.5 10 10"}));
}

// --- Columns

TEST_F(PageTablesTest, The_indent_counts_from_the_left_margin) {
  surface.MarginLeft(Length::OfMm(15));
  Start(1, {"20"});
  surface.TableIndent(Length::OfMm(33.5));
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  surface.Text("x");
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "line 48.5 10 68.5 10 pen 0.1",
                             "line 48.5 15 68.5 15 pen 0.1",
                             "line 48.5 10 48.5 15 pen 0.1",
                             "line 68.5 10 68.5 15 pen 0.1",
                             "text \"x\" 15 15 10",
                         }));
}

TEST_F(PageTablesTest, An_indent_below_0_runs_off_the_page_without_an_error) {
  Start(1, {"20"});
  surface.TableIndent(Length::OfMm(-50));
  SetText(1, 1, "x");
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"x\" -39.5 10.472 10"}));
}

TEST_F(PageTablesTest, A_column_of_width_0_shows_nothing) {
  Start(1, {"0", "20", "0", "30", "0"});
  SetText(0, 0, "text");
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"text\" 10.5 10.472 10",
                             "text \"text\" 30.5 10.472 10",
                             "line 10 10 60 10 pen 0.1",
                             "line 10 15 60 15 pen 0.1",
                             "line 10 10 10 15 pen 0.1",
                             "line 30 10 30 15 pen 0.1",
                             "line 60 10 60 15 pen 0.1",
                         }));
  surface.StartDoc();
  Start(1, {"0", "-5"});
  SetText(0, 0, "text");
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), Lines{});
}

// 277 mm between the margins less 77 mm, shared by two.
TEST_F(PageTablesTest, Columns_without_a_width_share_what_is_left) {
  surface.StartTable();
  Set(TableSetting::Rows, 0, 0, 1);
  Set(TableSetting::Columns, 0, 0, 3);
  Set(TableSetting::ColumnWidth, 0, 2, "77mm");
  SetText(0, 0, "x");
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"x\" 10.5 10 10",
                             "text \"x\" 110.5 10 10",
                             "text \"x\" 187.5 10 10",
                         }));
}

TEST_F(PageTablesTest, Columns_without_a_width_show_nothing_where_nothing_is_left) {
  surface.StartTable();
  Set(TableSetting::Rows, 0, 0, 1);
  Set(TableSetting::Columns, 0, 0, 3);
  Set(TableSetting::ColumnWidth, 0, 2, "300mm");
  SetText(1, 1, "a");
  SetText(1, 2, "b");
  SetText(1, 3, "c");
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"b\" 10.5 10 10"}));
}

TEST_F(PageTablesTest, A_text_in_a_cell_knows_its_baseline) {
  Start(1, {"20"});
  SetText(1, 1, "x");
  surface.EndTable();
  const auto& text = std::get<TextShape>(surface.Result().Pages.at(0).Shapes.at(0));
  EXPECT_NEAR(text.Ascent, 3.175, 0.001);  // 0.9 x 200 twips
}

// --- Rows with a height

// 56 characters of 100 twips are 98.765 mm; 57 are 100.529, more than the cell, and have the 99 mm
// between its paddings.
TEST_F(PageTablesTest, A_text_too_long_for_a_row_with_a_height_is_one_line_narrowed_into_the_cell) {
  const std::string fits(56, 'x');
  const std::string tooLong = std::string(50, 'x') + " abcdef";
  Start(2, {"100", "20"});
  SetText(1, 1, fits);
  SetText(2, 1, tooLong);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"" + fits + "\" 10.5 10.472 10",
                             "text \"" + tooLong + "\" 10.5 15.472 10 narrowed 0.985",
                         }));
  surface.StartDoc();
  Start(2, {"20", "100"});
  SetText(0, 2, tooLong);
  surface.TableAlignment(1, 2, CellAlignment::Centre);
  surface.TableAlignment(2, 2, CellAlignment::Right);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"" + tooLong + "\" 30.5 10.472 10 narrowed 0.985",
                             "text \"" + tooLong + "\" 30.5 15.472 10 narrowed 0.985",
                         }));
}

// The mark of a roof's grid, 14 characters, is 24.691 mm long: in a cell of 20 it has 19.
TEST_F(PageTablesTest, A_mark_is_never_shown_as_another_one) {
  Start(2, {"20", "20"});
  SetText(1, 1, "SL-GRID-C-TO-F");
  SetText(2, 1, std::string(60, 'x') + "1");
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1).at(0), "text \"SL-GRID-C-TO-F\" 10.5 10.472 10 narrowed 0.77");
  // Six points at 60 % are 0.635 mm a character: 29 in 19 mm, the last of them the ellipsis.
  EXPECT_EQ(TextsOf(1).at(1), std::string(28, 'x') + "\xE2\x80\xA6");
}

// The second column reaches from 60 to 310 mm, over the edge of the paper at 297: its room ends at
// the right margin, at 287. 150 characters are 264.55 mm, and have 226.
TEST_F(PageTablesTest, What_reaches_over_the_paper_ends_at_the_right_margin) {
  Start(1, {"50", "250"});
  SetText(1, 2, std::string(150, 'x'));
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1),
            (Lines{"text \"" + std::string(150, 'x') + "\" 60.5 10.472 10 narrowed 0.854"}));
}

// 28 characters are 49.383 mm: in 49.5 mm there is no room for both paddings.
TEST_F(PageTablesTest, A_text_may_use_the_padding_before_it_is_narrowed) {
  Start(3, {"49.5"});
  SetText(0, 0, std::string(28, 'x'));
  surface.TableAlignment(2, 1, CellAlignment::Centre);
  surface.TableAlignment(3, 1, CellAlignment::Right);
  surface.EndTable();
  const std::string text = "text \"" + std::string(28, 'x') + "\" ";
  EXPECT_EQ(ShapesOf(1), (Lines{
                             text + "10.117 10.472 10",
                             text + "10.059 15.472 10",
                             text + "10 20.472 10",
                         }));
}

// 12 characters are 21.164 mm in columns of 20, with 19 between the paddings.
TEST_F(PageTablesTest, A_bold_heading_is_narrowed_into_its_cell) {
  Start(1, {"20", "20"});
  SetText(0, 0, "abcdefghijkl");
  Set(TableSetting::Bold, 1, 0, 1);
  surface.TableAlignment(0, 0, CellAlignment::Centre);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"abcdefghijkl\" 10.5 10.472 10 bold narrowed 0.898",
                             "text \"abcdefghijkl\" 30.5 10.472 10 bold narrowed 0.898",
                         }));
}

// At the left it begins, at the right it ends half a millimetre inside, as the values below it.
TEST_F(PageTablesTest, A_narrowed_heading_keeps_in_line_with_its_column) {
  Start(2, {"20", "20", "20"});
  SetText(1, 2, "abcdefghijkl");
  SetText(2, 2, "ab");
  Set(TableSetting::Bold, 1, 0, 1);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"abcdefghijkl\" 30.5 10.472 10 bold narrowed 0.898",
                             "text \"ab\" 30.5 15.472 10",
                         }));
  surface.StartDoc();
  Start(2, {"20", "20", "20"});
  SetText(1, 2, "abcdefghijkl");
  SetText(2, 2, "ab");
  Set(TableSetting::Bold, 1, 0, 1);
  surface.TableAlignment(0, 2, CellAlignment::Right);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"abcdefghijkl\" 30.5 10.472 10 bold narrowed 0.898",
                             "text \"ab\" 45.973 15.472 10",  // 3.527 mm wide
                         }));
}

TEST_F(PageTablesTest, A_text_too_high_for_its_row_is_cut_off_above_and_below) {
  Start(1, {"20"});
  SetText(1, 1, "x");
  Set(TableSetting::FontSize, 0, 0, 20);  // 460 twips, 8.113 mm
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"x\" 10.5 8.444 20 clip 10 10 20 5"}));
}

TEST_F(PageTablesTest, A_line_end_in_a_cell_is_a_blank) {
  Start(1, {"50"});
  SetText(1, 1, "two\r\nlines");
  surface.EndTable();
  EXPECT_EQ(TextsOf(1), (Lines{"two lines"}));
}

// --- Lines

TEST_F(PageTablesTest, Borders_are_none_all_lines_or_the_outline_with_column_lines) {
  struct Case {
    int Border;
    Lines Drawn;
  };
  const Lines uprights = {"line 10 10 10 20 pen 0.1", "line 30 10 30 20 pen 0.1",
                          "line 60 10 60 20 pen 0.1"};
  Lines all = {"line 10 10 60 10 pen 0.1", "line 10 15 60 15 pen 0.1", "line 10 20 60 20 pen 0.1"};
  Lines report = {"line 10 10 60 10 pen 0.1", "line 10 20 60 20 pen 0.1"};
  all.insert(all.end(), uprights.begin(), uprights.end());
  report.insert(report.end(), uprights.begin(), uprights.end());
  for (const Case& c :
       {Case{NoTableBorder, {}}, Case{AllTableLines, all}, Case{ReportTableBorder, report}}) {
    surface.StartDoc();
    surface.PenWidth(Length::OfMm(0.4));  // the table has lines of its own
    surface.PenColor(White);
    Start(2, {"20", "30"});
    surface.TableBorder(c.Border);
    surface.EndTable();
    EXPECT_EQ(ShapesOf(1), c.Drawn) << c.Border;
  }
}

TEST_F(PageTablesTest, Rules_run_over_and_under_a_row_in_their_own_width) {
  Start(3, {"20", "30"});
  Set(TableSetting::RuleAbove, 1, 0, "0.2mm");
  Set(TableSetting::RuleBelow, 1, 0, 17);  // 0.3 mm in bare twips
  Set(TableSetting::RuleAbove, 3, 0, "0mm");
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{"line 10 10 60 10 pen 0.2", "line 10 15 60 15 pen 0.3"}));
}

// --- Merged cells

// Columns 2 to 4 of the first row make one cell from 30 to 90 mm; "Group" is 500 twips (8.818 mm)
// wide and begins at 30 + (60 - 8.818) / 2.

}  // namespace
