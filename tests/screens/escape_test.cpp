// Escape in the sections grid: one press does one thing, and none leaves the program.
#include "tests/screens/detail_fixture.h"
#include "tests/support/patience.h"
#include "ui/controls/plain_combo.h"

namespace orvane::test {
namespace {

class EscapeTest : public DetailTest {
 protected:
  PlainCombo& Products() { return Find<PlainCombo>("cboEdit"); }
  static void PutTwo() {
    Put("Z", "A1", "Z14012", 6000);
    Put("Z", "B1", "Z14012", 6000);
  }
};

TEST_F(EscapeTest, A_cell_is_taken_back_to_what_it_held_when_the_cursor_came) {
  PutTwo();
  Show(2, 1);
  const std::vector<std::string> cells = {"B1", "Z14012", "6000", "1", ""};
  for (const int column : {1, 3, 4, 5}) {
    SCOPED_TRACE(column);
    ClickCell(Sections(), 2, column);
    Type("75");
    EXPECT_EQ(Cell(2, column), "75");
    Press(Qt::Key_Escape);
    EXPECT_TRUE(CursorAt(2, column, cells.at(static_cast<std::size_t>(column) - 1)));
    EXPECT_TRUE(GridShowsItems());
    // A further press finds nothing to do.
    Press(Qt::Key_Escape);
    EXPECT_TRUE(CursorAt(2, column, cells.at(static_cast<std::size_t>(column) - 1)));
    EXPECT_TRUE(main->isVisible());
  }
  EXPECT_EQ(Items.At(2).Mark, "B1");
  EXPECT_EQ(Items.At(2).Length, 6000);
}

TEST_F(EscapeTest, A_refused_cell_is_taken_back_behind_its_box) {
  PutTwo();
  Show(2, 1);
  Type("A1");
  dialogs.ExpectBox("Error - Duplicate Mark");
  Press(Qt::Key_Tab);
  Settle();
  BackToMain();
  ASSERT_TRUE(CursorAt(2, 1, "A1"));
  Press(Qt::Key_Escape);
  EXPECT_EQ(Items.At(2).Mark, "B1");
  Press(Qt::Key_Tab);  // no box was foreseen
  EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
}

TEST_F(EscapeTest, What_was_typed_before_the_cell_was_left_stays) {
  PutTwo();
  Show(1, 3);
  Type("7000");
  Press(Qt::Key_Down);
  Press(Qt::Key_Up);
  Press(Qt::Key_Escape);
  EXPECT_EQ(Items.At(1).Length, 7000);
  Type("75");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Items.At(1).Length, 7000);
}

TEST_F(EscapeTest, In_the_product_cell_it_acts_on_list_letters_and_cell_in_this_order) {
  PutTwo();
  Show(1, 2);
  Choose(Products(), Products().findText("Z24520"));
  EXPECT_EQ(Items.At(1).Product, "Z24520");
  Type("z2");
  Press(Qt::Key_F4);
  QWidget& view = *Products().view();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(view.window(), Patience));
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_FALSE(view.isVisible());
  EXPECT_EQ(FromQt(Products().Typed().Letters()), "z2");
  Products().setFocus();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Products().Typed().Pending());
  EXPECT_EQ(Items.At(1).Product, "Z24520");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
  EXPECT_TRUE(main->isVisible());
}

TEST_F(EscapeTest, A_product_that_the_list_has_not_comes_back_too) {
  Put("Z", "A1", "Z99999", 6000);
  Show(1, 2);
  Choose(Products(), Products().findText("Z24520"));
  ASSERT_EQ(Items.At(1).Product, "Z24520");
  ASSERT_EQ(Focus(), "cboEdit");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Items.At(1).Product, "Z99999");
  EXPECT_EQ(Products().currentIndex(), -1);
  EXPECT_EQ(Cell(1, 2), "Z99999");
  // And so does the emptiness of a new row.
  Press(Qt::Key_1, Qt::ControlModifier);
  Settle();
  Press(Qt::Key_Tab);
  Choose(Products(), Products().findText("Z24520"));
  ASSERT_EQ(Items.At(2).Product, "Z24520");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Items.At(2).Product, "");
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(EscapeTest, Delete_leaves_a_product_alone) {
  PutTwo();
  Show(1, 2);
  Press(Qt::Key_Delete);
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
}

TEST_F(EscapeTest, Held_down_since_the_list_was_closed_it_keeps_the_letters) {
  PutTwo();
  Show(1, 2);
  Type("z2");
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, "", true);
  QCoreApplication::sendEvent(&Products(), &held);
  EXPECT_EQ(FromQt(Products().Typed().Letters()), "z2");
}

}  // namespace
}  // namespace orvane::test
