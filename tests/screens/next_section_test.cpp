// Ctrl+Enter: the section that comes behind the current one.
#include "tests/screens/detail_fixture.h"

namespace orvane::test {
namespace {

class NextSectionScreen : public DetailTest {
 protected:
  void ShowPurlin(int column) {
    Put("Z", "P1", "Z14012", 6000, 2).PatternName = "Butt 1 Sag Bar";
    Show(1, column);
  }
  void Next(Qt::Key key = Qt::Key_Return) {
    Press(key, Qt::ControlModifier);
    Settle();
  }
};

TEST_F(NextSectionScreen, Ctrl_and_Enter_in_any_cell_add_it_with_the_cursor_in_its_quantity) {
  ShowPurlin(1);
  for (const int column : {1, 2, 3, 4, 5}) {
    SCOPED_TRACE(column);
    ClickCell(Sections(), 1, column);
    const int rows = Items.UBound();
    Next(column % 2 == 0 ? Qt::Key_Enter : Qt::Key_Return);
    ASSERT_EQ(Items.UBound(), rows + 1);
    EXPECT_TRUE(CursorAt(rows + 1, 4, "0"));
    EXPECT_TRUE(GridShowsItems());
  }
  EXPECT_EQ(Items.At(6).Mark, "P6");
}

TEST_F(NextSectionScreen, A_further_purlin_takes_its_quantity_alone) {
  ShowPurlin(4);
  Next();
  Press(Qt::Key_6);
  Next();
  Press(Qt::Key_1);
  Press(Qt::Key_2);
  ASSERT_EQ(Items.UBound(), 3);
  EXPECT_EQ(Items.At(2).Mark, "P2");
  EXPECT_EQ(Items.At(2).Quantity, 6);
  EXPECT_EQ(Items.At(3).Mark, "P3");
  EXPECT_EQ(Items.At(3).Quantity, 12);
  EXPECT_EQ(Items.At(3).Length, 6000);
  // The pattern's holes are there, and the sheet shows them.
  EXPECT_EQ(Items.At(3).HoleCount(), Items.At(1).HoleCount());
  EXPECT_GT(Items.At(3).HoleCount(), 0);
  EXPECT_EQ(Sheet().ShownRow(), 3);
}

TEST_F(NextSectionScreen, A_cell_that_may_not_be_left_keeps_the_cursor) {
  ShowPurlin(3);
  Retype("0");
  ExpectRefusal("Invalid length");
  Next();
  EXPECT_EQ(Items.UBound(), 1);
}

TEST_F(NextSectionScreen, Undo_takes_it_away_again) {
  ShowPurlin(5);
  Next();
  Press(Qt::Key_Z, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_TRUE(CursorAt(1, 4, "2"));
}

TEST_F(NextSectionScreen, In_an_empty_grid_it_does_nothing) {
  Entry("mnuEditNextSection").trigger();
  EXPECT_EQ(Items.UBound(), 0);
}

}  // namespace
}  // namespace orvane::test
