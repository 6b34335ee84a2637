#include <QInputMethodEvent>

#include "project/lifecycle.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

struct Stroke {
  std::string Name;
  Qt::Key Key;
  Qt::KeyboardModifiers Modifiers;
};

// The keys that go one column right, and those that go one column left. The window system reports
// Shift and Tab as a key of its own.
const Stroke RightKeys[] = {
    {"Tab", Qt::Key_Tab, Qt::NoModifier},
    {"Return", Qt::Key_Return, Qt::NoModifier},
    {"Enter of the keypad", Qt::Key_Enter, Qt::KeypadModifier},
};
const Stroke LeftKeys[] = {
    {"Shift+Tab", Qt::Key_Backtab, Qt::ShiftModifier},
    {"Shift+Tab unnamed", Qt::Key_Tab, Qt::ShiftModifier},
    {"Shift+Return", Qt::Key_Return, Qt::ShiftModifier},
    {"Shift+Enter of the keypad", Qt::Key_Enter, Qt::ShiftModifier | Qt::KeypadModifier},
};

class SectionsKeys : public SectionsTest {
 protected:
  void Press(const Stroke& stroke) { ScreenTest::Press(stroke.Key, stroke.Modifiers); }
  using ScreenTest::Press;

  // Rows 1 to 3 are purlins, 4 a vertical rail, 5 a purlin, 6 a cleader rail.
  void PutSix() {
    Put("Z", "A1", "Z14012", 6000, 1).Notes = "n1";
    Put("Z", "B1", "Z14014", 6100, 2).Notes = "n2";
    Put("Z", "C1", "Z14016", 6200, 3).Notes = "n3";
    Put("V", "D1", "VCR", 2000, 4).Notes = "n4";
    Put("Z", "E1", "Z14018", 6400, 5).Notes = "n5";
    Put("R", "F1", "CLR", 2500, 6).Notes = "n6";
  }
  ::testing::AssertionResult At(int row, int column) {
    return CursorAt(row, column, Cell(row, column));
  }
};

TEST_F(SectionsKeys, Tab_and_both_Enters_go_right_to_the_last_column_and_stay_there) {
  PutSix();
  for (const Stroke& stroke : RightKeys) {
    SCOPED_TRACE(stroke.Name);
    Show();
    for (const int column : {2, 3, 4, 5}) {
      Press(stroke);
      EXPECT_TRUE(At(1, column));
    }
    EXPECT_EQ(FromQt(Editor().selectedText()), "n1");
    for (int again = 0; again < 2; ++again) {
      Press(stroke);
      EXPECT_TRUE(CursorAt(1, 5, "n1"));
    }
  }
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsKeys, With_Shift_they_go_left_to_the_mark_and_stay_there) {
  PutSix();
  for (const Stroke& stroke : LeftKeys) {
    SCOPED_TRACE(stroke.Name);
    Show(2, 5);
    for (const int column : {4, 3, 2, 1}) {
      Press(stroke);
      EXPECT_TRUE(At(2, column));
    }
    EXPECT_EQ(FromQt(Editor().selectedText()), "B1");
    for (int again = 0; again < 2; ++again) {
      Press(stroke);
      EXPECT_TRUE(CursorAt(2, 1, "B1"));
    }
  }
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsKeys, The_product_of_a_rail_is_passed_over_both_ways) {
  PutSix();
  for (const int row : {4, 6}) {
    SCOPED_TRACE(row);
    for (const Stroke& right : RightKeys) {
      SCOPED_TRACE(right.Name);
      for (const Stroke& left : LeftKeys) {
        SCOPED_TRACE(left.Name);
        Show(row, 1);
        Press(right);
        EXPECT_TRUE(At(row, 3));
        Press(left);
        EXPECT_TRUE(At(row, 1));
        Press(right);
        EXPECT_TRUE(At(row, 3));
        Press(right);
        EXPECT_TRUE(At(row, 4));
        Press(left);
        EXPECT_TRUE(At(row, 3));
        Press(left);
        EXPECT_TRUE(At(row, 1));
      }
    }
  }
  EXPECT_EQ(Items.At(4).Product, "VCR");
  EXPECT_EQ(Items.At(6).Product, "CLR");
}

TEST_F(SectionsKeys, Up_and_Down_keep_the_column_in_both_editors) {
  PutSix();
  for (const int column : {1, 2, 3, 4, 5}) {
    SCOPED_TRACE(column);
    Show(1, column);
    Press(Qt::Key_Down);
    EXPECT_TRUE(At(2, column));
    Press(Qt::Key_Down);
    EXPECT_TRUE(At(3, column));
    Press(Qt::Key_Up);
    EXPECT_TRUE(At(2, column));
    if (column != 2) {
      EXPECT_EQ(FromQt(Editor().selectedText()), Cell(2, column));
    }
    Press(Qt::Key_Up);
    EXPECT_TRUE(At(1, column));
  }
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_EQ(Items.At(2).Product, "Z14014");
  EXPECT_EQ(Items.At(3).Product, "Z14016");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsKeys, From_the_product_of_a_purlin_into_a_rail_the_cursor_goes_on_to_the_length) {
  PutSix();
  Show(3, 2);
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(4, 3, "2000"));
  ClickCell(Sections(), 5, 2);
  Press(Qt::Key_Up);
  EXPECT_TRUE(CursorAt(4, 3, "2000"));
  ClickCell(Sections(), 5, 2);
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(6, 3, "2500"));
}

TEST_F(SectionsKeys, The_way_through_a_product_column_depends_on_the_last_cell_only) {
  PutSix();
  // Length of a rail, up to the length of a purlin, left to its product, down into the rail again:
  // the last editor stood on a product.
  Show(4, 3);
  Press(Qt::Key_Up);
  EXPECT_TRUE(At(3, 3));
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(At(3, 2));
  Press(Qt::Key_Down);
  EXPECT_TRUE(At(4, 3));
}

TEST_F(SectionsKeys, Up_in_the_first_row_and_Down_in_the_last_change_nothing) {
  Put("Z", "A1", "Z14012", 6000, 1).Notes = "n1";
  Put("E", "B1", "E20020", 6100, 2).Notes = "n2";
  for (const int column : {1, 2, 3, 4, 5}) {
    SCOPED_TRACE(column);
    Show(1, column);
    Press(Qt::Key_Up);
    EXPECT_TRUE(At(1, column));
    ClickCell(Sections(), 2, column);
    Press(Qt::Key_Down);
    EXPECT_TRUE(At(2, column));
  }
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsKeys, A_key_that_moves_nothing_validates_nothing) {
  Add("Z");
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab}) Press(key);
  ASSERT_TRUE(CursorAt(1, 3, "0"));
  Press(Qt::Key_Up);
  Press(Qt::Key_Down);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
  ClickCell(Sections(), 1, 3);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
}

TEST_F(SectionsKeys, Left_Right_Home_and_End_stay_within_the_text) {
  PutSix();
  Show(2, 5);
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Left, Qt::Key_End, Qt::Key_Right}) Press(key);
  EXPECT_TRUE(CursorAt(2, 5, "n2"));
  Press(Qt::Key_Left);
  Type("x");
  EXPECT_TRUE(CursorAt(2, 5, "nx2"));
}

TEST_F(SectionsKeys, A_typed_text_goes_with_the_key_that_leaves_the_cell) {
  PutSix();
  Show(1, 1);
  Type("Q7");
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(2, 1, "B1"));
  Type("Q8");
  Press(Qt::Key_Up);
  EXPECT_TRUE(CursorAt(1, 1, "Q7"));
  EXPECT_EQ(Marks(), (std::vector<std::string>{"Q7", "Q8", "C1", "D1", "E1", "F1"}));
}

TEST_F(SectionsKeys, Keys_after_a_product_was_chosen_go_on_from_its_cell) {
  PutSix();
  Show(1, 2);
  Choose("cboEdit", "Z19014");
  Settle();
  EXPECT_TRUE(CursorAt(1, 2, "Z19014"));
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  Press(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_TRUE(CursorAt(1, 2, "Z19014"));
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(2, 2, "Z14014"));
}

// Letters typed for one row's product are no beginning of the next row's.
TEST_F(SectionsKeys, The_search_for_a_product_begins_afresh_in_another_row) {
  PutSix();
  Show(1, 2);
  Type("Z21514");
  Press(Qt::Key_Down);
  EXPECT_EQ(Items.At(1).Product, "Z21514");
  ASSERT_TRUE(CursorAt(2, 2, "Z14014"));
  Type("Z19014");
  Press(Qt::Key_Up);
  EXPECT_EQ(Items.At(2).Product, "Z19014");
  Type("Z24516");
  Press(Qt::Key_Down);
  EXPECT_EQ(Items.At(1).Product.substr(0, 3), "Z24");
  EXPECT_EQ(Items.At(2).Product, "Z19014");
}

TEST_F(SectionsKeys, Of_a_composed_text_the_number_cells_take_the_digits) {
  PutSix();
  for (const int column : {3, 4}) {
    Show(1, column);
    const auto compose = [this](const QString& text) {
      QInputMethodEvent composing(text, {});
      QCoreApplication::sendEvent(&Editor(), &composing);
      QInputMethodEvent done;
      done.setCommitString(text);
      QCoreApplication::sendEvent(&Editor(), &done);
    };
    compose("4\u30425");
    EXPECT_TRUE(CursorAt(1, column, "45"));
    EXPECT_EQ(Editor().displayText(), "45");
    EXPECT_EQ(column == 3 ? Items.At(1).Length : Items.At(1).Quantity, 45);
    compose("\u3042");
    EXPECT_TRUE(CursorAt(1, column, "45"));
    EXPECT_EQ(Editor().displayText(), "45");
  }
  // A note takes them all.
  Show(1, 5);
  QInputMethodEvent done;
  done.setCommitString("4\u30425");
  QCoreApplication::sendEvent(&Editor(), &done);
  EXPECT_EQ(Items.At(1).Notes, "4\u30425");
}

TEST_F(SectionsKeys, The_number_cells_drop_letters_that_show_nothing_and_other_scripts_digits) {
  PutSix();
  Show(1, 3);
  for (const char16_t* typed : {u"\U0001D7D7", u"\uFF19", u"\u200E"}) {
    QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf16(typed));
    QCoreApplication::sendEvent(&Editor(), &key);
  }
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsKeys, Typing_begins_a_cell_of_the_grid_at_rest) {
  PutSix();
  Show();
  dialogs.ExpectBox("Input past end of file");
  OpenFile(TempFile("empty.ovd", ""));
  Settle();
  ASSERT_TRUE(NoEditor());
  Type("Q7");
  EXPECT_TRUE(CursorAt(1, 1, "Q7"));
  EXPECT_EQ(Marks(), (std::vector<std::string>{"Q7", "B1", "C1", "D1", "E1", "F1"}));
  // A command's key isn't typing.
  dialogs.ExpectBox("Input past end of file");
  OpenFile(TempFile("empty.ovd", ""));
  Settle();
  Press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_TRUE(NoEditor());
}

TEST_F(SectionsKeys, An_editor_bears_the_name_of_its_column_and_its_row) {
  PutSix();
  Show(2, 1);
  EXPECT_EQ(Editor().accessibleName(), "Mark, row 2");
  Press(Qt::Key_Tab);
  EXPECT_EQ(ProductBox().accessibleName(), "Product, row 2");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Editor().accessibleName(), "Length (mm), row 2");
  Press(Qt::Key_Tab);
  Press(Qt::Key_Down);
  EXPECT_EQ(Editor().accessibleName(), "Qty, row 3");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Editor().accessibleName(), "Notes, row 3");
}

TEST_F(SectionsKeys, A_held_key_moves_as_often_as_it_repeats) {
  PutSix();
  Show(1, 4);
  for (int repeat = 0; repeat < 10; ++repeat) Press(Qt::Key_Down);
  EXPECT_TRUE(At(6, 4));
  for (int repeat = 0; repeat < 10; ++repeat) Press(Qt::Key_Up);
  EXPECT_TRUE(At(1, 4));
}

}  // namespace
}  // namespace orvane::test
