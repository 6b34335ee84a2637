// Cells that are merged into one.
#include <gtest/gtest.h>

#include <string>

#include "tests/drawing/table_fixture.h"

namespace {

using namespace orvane;
using orvane::test::Lines;
using orvane::test::PageTablesTest;

TEST_F(PageTablesTest, Merged_cells_show_their_first_text_centred_and_no_lines_inside) {
  Start(2, {"20", "20", "20", "20", "20"});
  SetText(1, 2, "Group");
  SetText(1, 3, "hidden");
  SetText(2, 3, "x");
  surface.TableMerge(1, 2, 3);
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"Group\" 55.591 10.472 10",
                             "text \"x\" 50.5 15.472 10",
                             "line 10 10 110 10 pen 0.1",
                             "line 10 15 110 15 pen 0.1",
                             "line 10 20 110 20 pen 0.1",
                             "line 10 10 10 20 pen 0.1",
                             "line 30 10 30 20 pen 0.1",
                             "line 50 15 50 20 pen 0.1",
                             "line 70 15 70 20 pen 0.1",
                             "line 90 10 90 20 pen 0.1",
                             "line 110 10 110 20 pen 0.1",
                         }));
}

TEST_F(PageTablesTest, A_merge_in_the_middle_parts_the_lines_above_and_below) {
  Start(3, {"20", "20"});
  surface.TableMerge(2, 1, 2);
  surface.TableBorder(ReportTableBorder);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "line 10 10 50 10 pen 0.1",
                             "line 10 25 50 25 pen 0.1",
                             "line 10 10 10 25 pen 0.1",
                             "line 30 10 30 15 pen 0.1",
                             "line 30 20 30 25 pen 0.1",
                             "line 50 10 50 25 pen 0.1",
                         }));
}

TEST_F(PageTablesTest, A_merge_ends_at_the_last_column_or_where_the_next_one_begins) {
  Start(2, {"20", "20", "20", "20"});
  for (int column = 1; column <= 4; ++column) SetText(0, column, std::to_string(column));
  surface.TableMerge(1, 2, 3);
  surface.TableMerge(1, 3, 9);
  surface.TableMerge(2, 4, 0);  // of no columns: the cell itself
  surface.TableMerge(2, 1, -3);
  surface.EndTable();
  // The second merged cell reaches from 50 to 90, its text is 1.764 mm wide.
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"1\" 10.5 10.472 10",
                             "text \"2\" 39.118 10.472 10",
                             "text \"3\" 69.118 10.472 10",
                             "text \"1\" 19.118 15.472 10",
                             "text \"2\" 30.5 15.472 10",
                             "text \"3\" 50.5 15.472 10",
                             "text \"4\" 79.118 15.472 10",
                         }));
}

TEST_F(PageTablesTest, A_merge_that_ends_in_a_column_of_width_0_has_its_line_there) {
  Start(1, {"20", "0", "20"});
  surface.TableMerge(1, 1, 2);
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "line 10 10 50 10 pen 0.1",
                             "line 10 15 50 15 pen 0.1",
                             "line 10 10 10 15 pen 0.1",
                             "line 30 10 30 15 pen 0.1",
                             "line 50 10 50 15 pen 0.1",
                         }));
}

TEST_F(PageTablesTest, A_merged_cell_may_be_aligned_and_wraps_in_its_whole_width) {
  Start(1, {"20", "20"}, true);
  SetText(1, 1, "wide as two of them");  // 19 characters, 33.510 mm
  surface.TableAlignment(0, 0, CellAlignment::Left);
  surface.TableMerge(1, 1, 2);
  surface.EndTable();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"wide as two of them\" 10.5 10 10"}));
}

}  // namespace
