// Lists from elsewhere: what is a block, which text is meant for which column.
#include "project/section_list/section_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/runtime_error.h"
#include "project/section_list/nearest_names.h"

namespace orvane {

namespace {

using Texts = std::vector<std::string>;

// The texts of a row by column, "-" for one that isn't given; those behind the last given one are
// left off.
Texts TextsOf(const SectionList& list, std::size_t row) {
  Texts texts;
  std::size_t given = 0;
  for (const auto& text : list.Rows.at(row).Texts) {
    texts.push_back(text.value_or("-"));
    if (text) given = texts.size();
  }
  texts.resize(given);
  return texts;
}

TEST(Block, A_tab_makes_one_anywhere_and_lines_do_where_no_notes_are_written) {
  for (int column = 0; column <= NotesColumn; ++column) {
    EXPECT_TRUE(IsBlock("P1\tZ14012", column)) << column;
    EXPECT_FALSE(IsBlock("P1", column)) << column;
    EXPECT_FALSE(IsBlock("P1\r\n", column)) << column;
    EXPECT_FALSE(IsBlock("", column)) << column;
    EXPECT_FALSE(IsBlock("\t6100 mm\t \n", column)) << column;
    EXPECT_FALSE(IsBlock("\t\t", column)) << column;
    EXPECT_TRUE(IsBlock("\tP1\t\tP2\t", column)) << column;
    EXPECT_TRUE(IsBlock("P1\t\nP2", column)) << column;
    EXPECT_FALSE(IsBlock("\n", column)) << column;
    EXPECT_EQ(IsBlock("P1\nP2", column), column != NotesColumn) << column;
    EXPECT_EQ(IsBlock("P1\rP2\r", column), column != NotesColumn) << column;
  }
}

TEST(Block, Without_headings_its_columns_go_on_from_the_current_one) {
  const SectionList marks = ListOfBlock("P1\tZ14012\t6000\nP2\tZ14014\t6500\n", MarkColumn);
  ASSERT_EQ(marks.Rows.size(), 2U);
  EXPECT_TRUE(marks.HasMarks);
  EXPECT_EQ(TextsOf(marks, 0), (Texts{"-", "P1", "Z14012", "6000"}));
  EXPECT_EQ(TextsOf(marks, 1), (Texts{"-", "P2", "Z14014", "6500"}));
  const SectionList lengths = ListOfBlock("6000\t4\n6500\t8", LengthColumn);
  EXPECT_FALSE(lengths.HasMarks);
  EXPECT_EQ(TextsOf(lengths, 0), (Texts{"-", "-", "-", "6000", "4"}));
  // An empty grid has no current column.
  EXPECT_EQ(TextsOf(ListOfBlock("P1\tZ14012", 0), 0), (Texts{"-", "P1", "Z14012"}));
}

TEST(Block, Behind_the_notes_come_punching_sag_bars_pitch_and_mitres) {
  const SectionList list = ListOfBlock("note\tButt\t14\t\t5\t-5\tmore", NotesColumn);
  EXPECT_EQ(TextsOf(list, 0),
            (Texts{"-", "-", "-", "-", "-", "note", "Butt", "14", "", "5", "-5"}));
  EXPECT_EQ(list.OtherColumns, Texts{"column 7"});
}

TEST(Block, Headings_name_the_columns_in_any_order_and_case) {
  const SectionList list =
      ListOfBlock("QTY\tweight\tSection\tNo. off\tMark\n4\t12.5\tZ14012\t9\tP1", LengthColumn);
  ASSERT_EQ(list.Rows.size(), 1U);
  EXPECT_TRUE(list.HasMarks);
  EXPECT_EQ(TextsOf(list, 0), (Texts{"-", "P1", "Z14012", "-", "4"}));
  EXPECT_EQ(list.OtherColumns, (Texts{"weight", "No. off"}));
  EXPECT_EQ(list.Rows.front().Number, 2);
}

TEST(Block, A_row_that_holds_a_number_is_one_of_headings_only_if_it_names_two) {
  EXPECT_EQ(ListOfBlock("Mark\nP1", MarkColumn).Rows.size(), 1U);
  EXPECT_EQ(ListOfBlock("Mark\tNo 1\nP1\tx", MarkColumn).Rows.size(), 2U);
  EXPECT_EQ(ListOfBlock("Mark\tQty\tPhase 1\nP1\t4\tx", MarkColumn).Rows.size(), 1U);
  EXPECT_EQ(ListOfBlock("P1\t6000\nP2\t6500", MarkColumn).Rows.size(), 2U);
}

TEST(Block, Headings_below_a_title_are_found_and_the_rows_above_them_told) {
  const SectionList list = ListOfBlock(
      "Purlin schedule\t\t\nJob\tJ-17\t3\n\nMark\tQty\tLength mm\nP1\t12\t6000\n", MarkColumn);
  ASSERT_EQ(list.Rows.size(), 1U);
  EXPECT_EQ(list.Rows[0].Number, 5);
  EXPECT_EQ(list.Rows[0].Texts.at(QuantityColumn), "12");
  EXPECT_EQ(list.Rows[0].Texts.at(LengthColumn), "6000");
  EXPECT_EQ(list.RowsAbove, (std::vector<int>{1, 2}));
  EXPECT_EQ(LeftOutOf(list), "Rows above the headings: 1, 2");
}

TEST(Block, Rows_without_headings_are_not_searched_for_them_beyond_a_few) {
  std::string text;
  for (int row = 0; row < 25; ++row) text += "P1\tZ14012\n";
  EXPECT_EQ(ListOfBlock(text + "Mark\tQty\n", MarkColumn).Rows.size(), 26U);
}

TEST(Block, Empty_rows_are_none_and_keep_the_numbers_of_the_others) {
  const SectionList list = ListOfBlock("\n\t\nMark\tQty\n \t \nP1\t4\n\n", MarkColumn);
  ASSERT_EQ(list.Rows.size(), 1U);
  EXPECT_EQ(list.Rows.front().Number, 5);
  EXPECT_TRUE(ListOfBlock("\t\n", MarkColumn).Rows.empty());
  EXPECT_TRUE(ListOfBlock("Mark\tQty\n", MarkColumn).Rows.empty());
}

TEST(Block, A_cell_is_one_line_and_loses_what_guarded_it) {
  const SectionList list = ListOfBlock("'=A1\t\"two\nlines\"\t'-5\t12\" deep", MarkColumn);
  EXPECT_EQ(TextsOf(list, 0), (Texts{"-", "=A1", "two lines", "-5", "12\" deep"}));
}

TEST(Block, Quotes_that_a_person_wrote_swallow_no_rows) {
  const SectionList list =
      ListOfBlock("Mark\tQty\tNotes\nP1\t4\t\"3 inch\nP2\t5\tplain\nP3\t6\t\"4 inch\n", MarkColumn);
  ASSERT_EQ(list.Rows.size(), 3U);
  EXPECT_EQ(list.Rows[0].Texts.at(NotesColumn), "\"3 inch");
  EXPECT_EQ(list.Rows[1].Texts.at(MarkColumn), "P2");
  EXPECT_EQ(ListOfBlock("P1\t\"A\" bracket\n", QuantityColumn).Rows.at(0).Texts.at(NotesColumn),
            "\"A\" bracket");
  EXPECT_EQ(ListOfBlock("P1\t\"3\"\" slot\"\n", QuantityColumn).Rows.at(0).Texts.at(NotesColumn),
            "3\" slot");
}

TEST(Block, An_inch_sign_in_front_that_is_never_closed_is_a_letter) {
  const SectionList list = ListOfBlock("\"P1\t4\r\nP2\t5\r\n", MarkColumn);
  ASSERT_EQ(list.Rows.size(), 2U);
  EXPECT_EQ(TextsOf(list, 0), (Texts{"-", "\"P1", "4"}));
  EXPECT_EQ(TextsOf(list, 1), (Texts{"-", "P2", "5"}));
}

TEST(Block, No_more_rows_are_taken_than_a_job_holds) {
  std::string most;
  for (int row = 0; row < 32767; ++row) most += "P\t1\n";
  EXPECT_EQ(ListOfBlock("Mark\tQty\n" + most, MarkColumn).Rows.size(), 32767U);
  EXPECT_THROW(ListOfBlock(most + "P\t1\n", MarkColumn), RuntimeError);
}

TEST(ListFile, It_is_read_whatever_separates_its_fields) {
  for (const std::string file :
       {"Mark,Length,Notes\r\nP1,6000,\"a, b\"\r\n", "Mark;Length;Notes\nP1;6000;a, b\n",
        "\xEF\xBB\xBFMark\tLength\tNotes\nP1\t6000\ta, b"}) {
    const SectionList list = ListOfFile(file);
    ASSERT_EQ(list.Rows.size(), 1U) << file;
    EXPECT_EQ(TextsOf(list, 0), (Texts{"-", "P1", "-", "6000", "-", "a, b"})) << file;
  }
}

TEST(ListFile, Lengths_under_a_heading_in_metres_are_metres) {
  const SectionList list = ListOfFile("Mark,Length (m)\nP1,6.5\nP2,6500 mm\nP3,\n");
  EXPECT_EQ(TextsOf(list, 0).back(), "6.5 m");
  EXPECT_EQ(TextsOf(list, 1).back(), "6500 mm");
  EXPECT_EQ(TextsOf(list, 2).back(), "");
}

TEST(NearestNames, They_are_told_the_nearest_first) {
  const Texts names = {"Z14012", "Z14014", "Z16512", "C20020", "VCR"};
  EXPECT_EQ(NearestNames("Z14013", names), (Texts{"Z14012", "Z14014"}));
  EXPECT_EQ(NearestNames("z 140 14", names), (Texts{"Z14014", "Z14012"}));
  EXPECT_EQ(NearestNames("purlin", names), Texts{});
  EXPECT_EQ(NearestNames("", names), Texts{});
  EXPECT_EQ(NotInTheList("Z1401", names), "Not in the list; nearest: Z14012, Z14014");
  EXPECT_EQ(NotInTheList("purlin", names), "Not in the list");
}

}  // namespace

}  // namespace orvane
