#include "drawing/page_tables.h"

#include <gtest/gtest.h>

#include <string>

#include "core/numbers.h"
#include "tests/drawing/table_fixture.h"

namespace {

using namespace orvane;
using orvane::test::Lines;
using orvane::test::PageTablesTest;

class TableFlowTest : public PageTablesTest {};

// The logo is 18 mm high: the table begins at page - 18 - margin - 12 and is 28.8 mm high.
TEST_F(TableFlowTest, The_job_table_never_leaves_its_page_whatever_the_margin) {
  for (const double margin : {10.0, 0.0, 30.0, -40.0, 150.0, 300.0}) {
    surface.StartDoc();
    surface.MarginBottom(Length::OfMm(margin));
    DrawJobTable(210 - 18 - margin - 12);
    surface.EndDoc();
    EXPECT_EQ(PageCount(), 1U) << margin;
    EXPECT_EQ(TextsOf(1).size(), 12U) << margin;
  }
}

// 28.8 mm from 175 end at 203.8: below the margin, on the paper. From 185 they would end at 213.8,
// so the table breaks at the margin behind the third row, at 199.4.
TEST_F(TableFlowTest, A_table_with_row_heights_breaks_only_where_the_paper_ends) {
  DrawJobTable(175);
  EXPECT_EQ(PageCount(), 1U);
  surface.StartDoc();
  DrawJobTable(185);
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"Label", "V1", "Label", "V2", "Label", "V3"}));
  EXPECT_EQ(TextsOf(2), (Lines{"Label", "V4", "Label", "V5", "Label", "V6"}));
  EXPECT_EQ(ShapesOf(2).front(), "text \"Label\" 160.5 10.169 11");
  surface.Text("next");
  EXPECT_EQ(ShapesOf(2).back(), "text \"next\" 10 24.4 10");
}

// The rows end behind the paper, at 210 mm, and the margins leave room for one of them.
TEST_F(TableFlowTest, A_table_on_one_page_stands_whole_where_it_begins) {
  for (const bool growing : {false, true}) {
    surface.StartDoc();
    surface.MarginTop(Length::OfMm(191));
    surface.CurrentY(Length::OfMm(195));
    Start(4, {"20"}, growing);
    surface.TableOnOnePage();
    for (int row = 1; row <= 4; ++row) SetText(row, 1, DecimalText(row));
    surface.TableBorder(AllTableLines);
    surface.EndTable();
    EXPECT_EQ(PageCount(), 1U);
    EXPECT_EQ(TextsOf(1), (Lines{"1", "2", "3", "4"}));
    // Four lines of 4.056 mm, or four rows of 5.
    EXPECT_EQ(ShapesOf(1, "line").at(4),
              growing ? "line 10 211.226 30 211.226 pen 0.1" : "line 10 215 30 215 pen 0.1");
  }
  // The next table flows again, a row a page.
  surface.StartDoc();
  surface.CurrentY(Length::OfMm(195));
  Start(4, {"20"});
  for (int row = 1; row <= 4; ++row) SetText(row, 1, DecimalText(row));
  surface.EndTable();
  EXPECT_EQ(PageCount(), 4U);
}

TEST_F(TableFlowTest, A_row_with_a_height_beyond_the_page_stands_on_one_of_its_own) {
  surface.CurrentY(Length::OfMm(50));
  Start(3, {"20"});
  Set(TableSetting::RowHeight, 2, 0, "500mm");
  for (int row = 1; row <= 3; ++row) SetText(row, 1, std::to_string(row));
  surface.EndTable();
  ASSERT_EQ(PageCount(), 3U);
  EXPECT_EQ(TextsOf(1), (Lines{"1"}));
  EXPECT_EQ(TextsOf(2), (Lines{"2"}));
  EXPECT_EQ(TextsOf(3), (Lines{"3"}));
}

// --- Rows that grow

// Nine points: a character is 90 twips wide, a line 207 high (3.651 mm). 15 mm less two paddings
// are 793.8 twips, eight characters. The row is two lines high; a single line stands in its middle.
TEST_F(TableFlowTest, A_row_without_a_height_grows_with_texts_that_break_between_words) {
  surface.FontSize(9);
  Start(2, {"15", "15"}, true);
  SetText(1, 1, "Quantity");
  SetText(1, 2, "two lines");
  SetText(2, 1, "next");
  surface.TableAlignment(0, 2, CellAlignment::Right);
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1, "text"), (Lines{
                                     "text \"Quantity\" 10.5 11.825 9",
                                     "text \"two\" 34.738 10 9",        // 270 twips, 4.762 mm
                                     "text \"lines\" 31.563 13.651 9",  // 450 twips, 7.937 mm
                                     "text \"next\" 10.5 17.302 9",
                                 }));
  EXPECT_EQ(ShapesOf(1, "line"), (Lines{
                                     "line 10 10 40 10 pen 0.1",
                                     "line 10 17.302 40 17.302 pen 0.1",
                                     "line 10 20.952 40 20.952 pen 0.1",
                                     "line 10 10 10 20.952 pen 0.1",
                                     "line 25 10 25 20.952 pen 0.1",
                                     "line 40 10 40 20.952 pen 0.1",
                                 }));
}

// Twenty characters are 1800 twips, of which 793.8 are 44.1 %: set in 60 % of the width and 6.6
// points, 792 twips. Their baseline is 118.8 twips below the top, 0.762 mm less than in 9 points.
TEST_F(TableFlowTest, A_word_wider_than_its_column_is_a_line_of_its_own_and_fitted) {
  surface.FontSize(9);
  Start(1, {"15"}, true);
  SetText(1, 1, "in abcdefghijklmnopqrst on");
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"in\" 10.5 10 9",
                             "text \"abcdefghijklmnopqrst\" 10.5 14.413 6.6 narrowed 0.6",
                             "text \"on\" 10.5 17.302 9",
                         }));
}

TEST_F(TableFlowTest, A_row_of_empty_cells_is_one_line_high_and_takes_its_largest_font) {
  Start(2, {"20", "20"}, true);
  Set(TableSetting::FontSize, 2, 2, 20);
  surface.EndTable();
  surface.Text("x");
  // 230 and 460 twips: 4.056 and 8.113 mm.
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"x\" 10 22.169 10"}));
}

// From 190 mm on two rows of 4.056 mm fit above the bottom margin at 200, with the 0.3 mm that a
// report keeps free above and below its texts; at the sides it is 1 mm.
TEST_F(TableFlowTest, A_table_breaks_between_rows_at_the_bottom_margin) {
  surface.CurrentY(Length::OfMm(190));
  Start(4, {"20"}, true);
  for (int row = 1; row <= 4; ++row) SetText(row, 1, std::to_string(row));
  surface.TableBorder(ReportTableBorder);
  surface.EndTable();
  surface.Paragraph("below");
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"1\" 11 190.3 10",
                             "text \"2\" 11 194.956 10",
                             "line 10 190 30 190 pen 0.1",
                             "line 10 199.313 30 199.313 pen 0.1",
                             "line 10 190 10 199.313 pen 0.1",
                             "line 30 190 30 199.313 pen 0.1",
                         }));
  EXPECT_EQ(ShapesOf(2), (Lines{
                             "text \"3\" 11 10.3 10",
                             "text \"4\" 11 14.956 10",
                             "line 10 10 30 10 pen 0.1",
                             "line 10 19.313 30 19.313 pen 0.1",
                             "line 10 10 10 19.313 pen 0.1",
                             "line 30 10 30 19.313 pen 0.1",
                             "text \"below\" 10 19.313 10",
                         }));
}

// 15 mm less two paddings of 1 are 737.1 twips, eight characters of 90.
TEST_F(TableFlowTest, The_words_of_a_report_break_before_its_padding) {
  surface.FontSize(9);
  Start(1, {"15", "15"}, true);
  SetText(1, 1, "Quantity");
  SetText(1, 2, "two four");
  surface.TableAlignment(0, 2, CellAlignment::Right);
  surface.TableBorder(ReportTableBorder);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1, "text"), (Lines{
                                     "text \"Quantity\" 11 10.3 9",
                                     "text \"two four\" 26.302 10.3 9",  // 12.698 mm, up to 39
                                 }));
  surface.StartDoc();
  Start(1, {"14"}, true);  // 680.4 twips
  SetText(1, 1, "two four");
  surface.TableBorder(ReportTableBorder);
  surface.EndTable();
  EXPECT_EQ(TextsOf(1), (Lines{"two", "four"}));
}

// A title of one line, 4.056 mm, with a blank one above and below, from 186 mm on: the title stands
// at 190.056 and the table begins at 198.169, where no row has room above 200.
TEST_F(TableFlowTest, A_title_goes_to_the_next_page_with_its_table) {
  surface.Text("above");
  surface.CurrentX(Length::OfMm(10));
  surface.CurrentY(Length::OfMm(186));
  for (const char* line : {"", "Title", ""}) surface.Paragraph(line);
  Start(3, {"20"}, true);
  for (int row = 1; row <= 3; ++row) SetText(row, 1, std::to_string(row));
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"above\" 10 10 10"}));
  EXPECT_EQ(ShapesOf(2), (Lines{
                             "text \"Title\" 10 10 10",
                             "text \"1\" 10.5 18.113 10",
                             "text \"2\" 10.5 22.169 10",
                             "text \"3\" 10.5 26.226 10",
                         }));
}

// The blank line behind the title has no room above 200 mm: it takes no page for itself.
TEST_F(TableFlowTest, A_title_in_the_last_line_of_a_page_goes_with_its_table_too) {
  surface.CurrentY(Length::OfMm(191));
  for (const char* line : {"", "Title", ""}) surface.Paragraph(line);
  Start(1, {"20"}, true);
  SetText(1, 1, "row");
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(ShapesOf(1), Lines{});
  EXPECT_EQ(ShapesOf(2), (Lines{"text \"Title\" 10 10 10", "text \"row\" 10.5 18.113 10"}));
}

TEST_F(TableFlowTest, A_title_stays_where_a_row_has_room_below_it) {
  surface.CurrentY(Length::OfMm(180));
  for (const char* line : {"", "Title", ""}) surface.Paragraph(line);
  Start(60, {"20"}, true);
  for (int row = 1; row <= 60; ++row) SetText(row, 1, std::to_string(row));
  surface.EndTable();
  // 192.169 and one row; 46 rows a page.
  ASSERT_EQ(PageCount(), 3U);
  EXPECT_EQ(TextsOf(1), (Lines{"Title", "1"}));
  EXPECT_EQ(TextsOf(2).front(), "2");
}

// A second table stands below the first: what is above that is no title of it.
TEST_F(TableFlowTest, A_title_belongs_to_the_table_that_follows_it_alone) {
  surface.CurrentY(Length::OfMm(180));
  surface.Paragraph("Title");
  for (int table = 1; table <= 2; ++table) {
    Start(3, {"20"}, true);
    SetText(0, 1, std::to_string(table));
    surface.EndTable();
  }
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"Title", "1", "1", "1"}));
  EXPECT_EQ(TextsOf(2), (Lines{"2", "2", "2"}));
}

// A title that begins a page would stand at the same place of the next one.
TEST_F(TableFlowTest, A_title_at_the_top_of_a_page_stays_there) {
  surface.MarginBottom(Length::OfMm(210 - 10 - 9));  // two lines of 4.056 mm
  surface.StartDoc();
  surface.Paragraph("Title");
  surface.Paragraph("");
  Start(1, {"20"}, true);
  SetText(1, 1, "row");
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"Title"}));
  EXPECT_EQ(TextsOf(2), (Lines{"row"}));
}

// 190 mm hold 46 lines of 4.056 mm.
TEST_F(TableFlowTest, A_row_taller_than_a_page_is_split_and_loses_no_line) {
  surface.CurrentY(Length::OfMm(100));  // 24 lines are left on this page
  Start(2, {"20", "20"}, true);
  std::string words;
  for (int i = 1; i <= 100; ++i) words += "word" + std::to_string(1000 + i) + " ";
  SetText(1, 1, words);
  SetText(1, 2, "short");
  SetText(2, 1, "after");
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  ASSERT_EQ(PageCount(), 3U);
  Lines all;
  for (std::size_t page = 1; page <= 3; ++page) {
    for (const std::string& text : TextsOf(page)) all.push_back(text);
  }
  ASSERT_EQ(all.size(), 102U);
  EXPECT_EQ(all.at(0), "word1001");
  EXPECT_EQ(all.at(24), "short");
  EXPECT_EQ(all.at(25), "word1025");
  EXPECT_EQ(all.back(), "after");
  EXPECT_EQ(TextsOf(1).size(), 25U);
  EXPECT_EQ(TextsOf(2).size(), 46U);
  EXPECT_EQ(TextsOf(3).size(), 31U);
  // 24 lines from 100, 46 from 10; then 30, and the row behind them.
  EXPECT_EQ(ShapesOf(1, "line").at(1), "line 10 197.354 50 197.354 pen 0.1");
  EXPECT_EQ(ShapesOf(2, "line").at(1), "line 10 196.596 50 196.596 pen 0.1");
  EXPECT_EQ(ShapesOf(3, "line").at(1), "line 10 131.693 50 131.693 pen 0.1");
}

TEST_F(TableFlowTest, Without_room_for_anything_every_row_takes_a_page_and_it_ends) {
  surface.MarginBottom(Length::OfMm(205));
  Start(2, {"20"}, true);
  SetText(1, 1, "a");
  SetText(2, 1, "b");
  surface.EndTable();
  EXPECT_EQ(PageCount(), 2U);
  surface.StartDoc();
  surface.TableIndent(0);
  Start(2, {"0"}, true);  // rows without any height
  surface.EndTable();
  EXPECT_EQ(PageCount(), 1U);
  surface.StartDoc();
  Start(2, {"5"}, true);
  Set(TableSetting::FontSize, 0, 0, 0);
  SetText(0, 0, "a b c");
  surface.EndTable();
  EXPECT_EQ(PageCount(), 1U);
}

// --- Headings

// Ruled rows of 4.056 mm: the heading and 45 rows on the first page, again the heading on the next.
TEST_F(TableFlowTest, A_first_row_with_rules_is_the_heading_of_every_page) {
  Start(61, {"20"}, true);
  SetText(1, 1, "Mark");
  Set(TableSetting::RuleAbove, 1, 0, "0.2mm");
  Set(TableSetting::RuleBelow, 1, 0, "0.2mm");
  for (int row = 2; row <= 61; ++row) SetText(row, 1, std::to_string(row - 1));
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  Lines rows;
  for (std::size_t page = 1; page <= 2; ++page) {
    const Lines texts = TextsOf(page);
    EXPECT_EQ(texts.front(), "Mark");
    rows.insert(rows.end(), texts.begin() + 1, texts.end());
    EXPECT_EQ(ShapesOf(page, "line"),
              (Lines{"line 10 10 30 10 pen 0.2", "line 10 14.056 30 14.056 pen 0.2"}));
  }
  EXPECT_EQ(TextsOf(1).size(), 46U);
  ASSERT_EQ(rows.size(), 60U);  // none lost, none doubled
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows.at(i), std::to_string(i + 1));
}

// At 194 mm one row would fit above the margin at 200, but not two.
TEST_F(TableFlowTest, A_heading_never_stands_alone_at_the_foot_of_a_page) {
  surface.CurrentY(Length::OfMm(194));
  Start(2, {"20"}, true);
  SetText(1, 1, "Mark");
  SetText(2, 1, "P1");
  Set(TableSetting::RuleBelow, 1, 0, "0.2mm");
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), Lines{});
  EXPECT_EQ(TextsOf(2), (Lines{"Mark", "P1"}));
}

TEST_F(TableFlowTest, A_split_row_stands_below_the_heading_on_each_page) {
  Start(2, {"20"}, true);
  SetText(1, 1, "Mark");
  Set(TableSetting::RuleBelow, 1, 0, "0.2mm");
  std::string words;
  for (int i = 1; i <= 60; ++i) words += "word" + std::to_string(1000 + i) + " ";
  SetText(2, 1, words);
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1).size(), 46U);
  EXPECT_EQ(TextsOf(1).front(), "Mark");
  EXPECT_EQ(TextsOf(2).size(), 16U);
  EXPECT_EQ(TextsOf(2).front(), "Mark");
  EXPECT_EQ(TextsOf(2).at(1), "word1046");
}

// 46 lines fill a page; with a heading over them the row is one line too tall, and is split.
TEST_F(TableFlowTest, A_row_that_only_the_heading_makes_too_tall_is_split) {
  Start(2, {"20"}, true);
  SetText(1, 1, "Mark");
  Set(TableSetting::RuleBelow, 1, 0, "0.2mm");
  std::string words;
  for (int i = 1; i <= 46; ++i) words += "word" + std::to_string(1000 + i) + " ";
  SetText(2, 1, words);
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1).size(), 46U);
  EXPECT_EQ(TextsOf(2), (Lines{"Mark", "word1046"}));
}

TEST_F(TableFlowTest, Two_first_rows_with_rules_are_one_heading) {
  Start(4, {"20"}, true);
  for (int row = 1; row <= 4; ++row) SetText(row, 1, std::to_string(row));
  Set(TableSetting::RuleAbove, 1, 0, "0.2mm");
  Set(TableSetting::RuleBelow, 2, 0, "0.2mm");
  surface.MarginBottom(Length::OfMm(210 - 10 - 17));  // 17 mm of room: four rows of 4.056 mm
  surface.EndTable();
  EXPECT_EQ(PageCount(), 1U);
  surface.StartDoc();
  Start(5, {"20"}, true);
  for (int row = 1; row <= 5; ++row) SetText(row, 1, std::to_string(row));
  Set(TableSetting::RuleAbove, 1, 0, "0.2mm");
  Set(TableSetting::RuleBelow, 2, 0, "0.2mm");
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"1", "2", "3", "4"}));
  EXPECT_EQ(TextsOf(2), (Lines{"1", "2", "5"}));
}

TEST_F(TableFlowTest, A_heading_stays_with_a_row_that_has_to_pass_the_margin) {
  Start(3, {"20"}, true);
  for (int row = 1; row <= 3; ++row) SetText(row, 1, std::to_string(row));
  Set(TableSetting::RuleBelow, 1, 0, "0.2mm");
  Set(TableSetting::RowHeight, 2, 0, "500mm");
  Set(TableSetting::RowHeight, 3, 0, "500mm");
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"1", "2"}));
  EXPECT_EQ(TextsOf(2), (Lines{"1", "3"}));
}

// The row begins at 14.056 mm with 45 of its lines; the last 5 end at 30.282.
TEST_F(TableFlowTest, A_split_row_has_its_rules_at_its_beginning_and_its_end_alone) {
  Start(2, {"20"}, true);
  std::string words;
  for (int i = 1; i <= 50; ++i) words += "word" + std::to_string(1000 + i) + " ";
  SetText(2, 1, words);
  Set(TableSetting::RuleAbove, 2, 0, "0.3mm");
  Set(TableSetting::RuleBelow, 2, 0, "0.4mm");
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(ShapesOf(1, "line"), (Lines{"line 10 14.056 30 14.056 pen 0.3"}));
  EXPECT_EQ(ShapesOf(2, "line"), (Lines{"line 10 30.282 30 30.282 pen 0.4"}));
}

TEST_F(TableFlowTest, Rules_on_every_row_make_no_heading) {
  surface.CurrentY(Length::OfMm(194));
  Start(3, {"20"}, true);
  for (int row = 1; row <= 3; ++row) SetText(row, 1, std::to_string(row));
  Set(TableSetting::RuleBelow, 0, 0, "0.2mm");
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"1"}));
  EXPECT_EQ(TextsOf(2), (Lines{"2", "3"}));
}

TEST_F(TableFlowTest, A_heading_that_would_fill_the_page_is_not_repeated) {
  surface.MarginBottom(Length::OfMm(190));  // 10 mm of room: two rows of 4.056 mm
  Start(3, {"20"}, true);
  SetText(1, 1, "Mark two");  // 8 characters, 14.109 mm
  SetText(2, 1, "a");
  SetText(3, 1, "b");
  Set(TableSetting::RuleBelow, 1, 0, "0.2mm");
  Set(TableSetting::FontSize, 1, 1, 13);  // 299 twips, 5.273 mm: more than half of the room
  surface.EndTable();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"Mark two", "a"}));
  EXPECT_EQ(TextsOf(2), (Lines{"b"}));
}

// --- Pages and tables

TEST_F(TableFlowTest, NewPage_and_EndDoc_finish_an_open_table) {
  Start(1, {"20"});
  SetText(1, 1, "one");
  surface.NewPage();
  Start(1, {"20"});
  SetText(1, 1, "two");
  surface.EndDoc();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"one"}));
  EXPECT_EQ(TextsOf(2), (Lines{"two"}));
}

TEST_F(TableFlowTest, The_pages_of_a_table_get_header_and_footer) {
  surface.Header("Page %d");
  surface.Footer("F");
  Start(100, {"20"}, true);
  surface.EndTable();
  surface.EndDoc();
  ASSERT_EQ(PageCount(), 3U);  // 46 + 46 + 8 rows
  EXPECT_EQ(TextsOf(1), (Lines{"Page 1", "F"}));
  EXPECT_EQ(TextsOf(2), (Lines{"Page 2", "F"}));
  EXPECT_EQ(TextsOf(3), (Lines{"Page 3", "F"}));
}

TEST_F(TableFlowTest, A_table_on_an_empty_surface_makes_its_first_page) {
  surface.Clear();
  surface.Orientation(PageOrientation::Portrait);
  Start(1, {"20"});
  SetText(1, 1, "x");
  surface.EndTable();
  ASSERT_EQ(PageCount(), 1U);
  EXPECT_EQ(surface.Result().Pages.at(0).Width, 210);
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"x\" 10.5 10.472 10"}));
}

}  // namespace
