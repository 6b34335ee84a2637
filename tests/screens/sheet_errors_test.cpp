// What is wrong with a section's holes and sheet: no box while it is typed, one when it is left,
// and a line under the sheet.
#include <QLabel>

#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

const std::string Fault = "P4: Division by zero";

class SheetErrors : public SectionsTest {
 protected:
  // A section with a notch without depth, which the sheet can't draw two sides of, and a good one.
  Item& PutNotched(const std::string& letter = "Z", const std::string& product = "Z14012") {
    Item& item = Put(letter, "P4", product, 3000);
    item.Notches.Append({"T2", 0, 50, 400});
    return item;
  }
  // Both on the screen, the good one below with its cursor in it, and nothing said yet.
  void ShowBoth() {
    PutNotched();
    Put("Z", "P5", "Z14012", 3000);
    main->DisplayItems();
    ClickCell(Sections(), 2, 1);
    Settle();
    ASSERT_TRUE(CursorAt(2, 1, "P5"));
  }
  // The same with P4 in sight, which was told.
  void ShowTold(int column) {
    ShowBoth();
    dialogs.ExpectBox(Fault);
    ClickCell(Sections(), 1, column);
    Settle();
  }
  QLabel& ErrorLine() { return Find<QLabel>("lblErrors"); }
  // The line under the sheet; empty while there is none.
  std::string Line() { return ErrorLine().isVisible() ? FromQt(ErrorLine().text()) : ""; }
};

TEST_F(SheetErrors, A_section_that_is_looked_at_tells_once_by_its_mark_and_keeps_its_line) {
  ShowTold(1);
  EXPECT_EQ(Line(), Fault);
  EXPECT_EQ(ErrorLine().toolTip(), ToQt(Fault));
  EXPECT_TRUE(CursorAt(1, 1, "P4"));
  // Along the row, down and up again.
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab}) {
    Press(key);
    Settle();
    EXPECT_EQ(Line(), Fault);
  }
  Press(Qt::Key_Down);
  Settle();
  EXPECT_EQ(Line(), "");
  Press(Qt::Key_Up);
  Settle();
  EXPECT_EQ(Line(), Fault);
  EXPECT_EQ(dialogs.Boxes(), std::vector<std::string>{Fault});
}

TEST_F(SheetErrors, No_letter_falls_into_a_box_and_leaving_the_cell_tells_once) {
  ShowTold(5);
  for (const auto& [column, text] :
       std::vector<std::pair<int, std::string>>{{5, "1234"}, {4, "12"}, {3, "4321"}, {1, "P47"}}) {
    SCOPED_TRACE(column);
    ClickCell(Sections(), 1, column);
    Settle();
    const std::size_t before = dialogs.Boxes().size();
    Retype(text);
    EXPECT_EQ(FromQt(Editor().text()), text);
    EXPECT_EQ(dialogs.Boxes().size(), before);
    const std::string fault = Items.At(1).Mark + ": Division by zero";
    EXPECT_EQ(Line(), fault);
    dialogs.ExpectBox(fault);
    Press(column == 5 ? Qt::Key_Backtab : Qt::Key_Tab);
    Settle();
    EXPECT_EQ(dialogs.Boxes().size(), before + 1);
    Press(Qt::Key_Tab);
    Settle();
    EXPECT_EQ(dialogs.Boxes().size(), before + 1);
    EXPECT_EQ(Line(), fault);
  }
  EXPECT_EQ(Items.At(1).Mark, "P47");
}

TEST_F(SheetErrors, Leaving_by_an_arrow_and_by_a_click_tells_of_the_row_that_was_typed) {
  ShowTold(3);
  Type("4000");
  dialogs.ExpectBox(Fault);
  Press(Qt::Key_Down);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "3000"));
  EXPECT_EQ(Line(), "");
  Press(Qt::Key_Up);
  Settle();
  Type("5000");
  dialogs.ExpectBox(Fault);
  QTest::mouseClick(Find<QListWidget>("lstAccessories").viewport(), Qt::LeftButton);
  Settle();
  EXPECT_EQ(Line(), Fault);
}

TEST_F(SheetErrors, A_product_chosen_in_its_cell_is_told_of_when_the_cell_is_left) {
  ShowTold(2);
  const std::size_t before = dialogs.Boxes().size();
  Choose(ProductBox(), 5);
  Settle();
  EXPECT_NE(Items.At(1).Product, "Z14012");
  EXPECT_EQ(dialogs.Boxes().size(), before);
  EXPECT_EQ(Line(), Fault);
  dialogs.ExpectBox(Fault);
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "3000"));
}

TEST_F(SheetErrors, A_product_that_is_taken_back_shows_no_box_while_its_cell_is_open) {
  ShowTold(2);
  Choose(ProductBox(), 5);
  Settle();
  const std::size_t before = dialogs.Boxes().size();
  Press(Qt::Key_Escape);
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_EQ(dialogs.Boxes().size(), before);
  EXPECT_EQ(Line(), Fault);
}

TEST_F(SheetErrors, A_product_that_was_typed_and_left_for_another_pane_tells) {
  ShowTold(2);
  Type("z24520");
  dialogs.ExpectBox(Fault);
  Press(Qt::Key_F6);
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z24520");
  EXPECT_EQ(dialogs.Boxes(), (std::vector<std::string>{Fault, Fault}));
}

TEST_F(SheetErrors, Jointing_pieces_are_typed_without_a_box_too) {
  PutNotched("R", "CLR");
  dialogs.ExpectBox(Fault);
  Show();
  Click("txtJointing");
  Press(Qt::Key_A, Qt::ControlModifier);
  Type("123");
  EXPECT_EQ(Items.At(1).JointingPieces, 123);
  EXPECT_EQ(dialogs.Boxes().size(), 1U);
  dialogs.ExpectBox(Fault);
  Press(Qt::Key_Tab);
  Settle();
}

TEST_F(SheetErrors, A_choice_in_the_panel_changes_the_section_and_tells_at_once) {
  ShowTold(1);
  dialogs.ExpectBox(Fault);
  Choose("cboPattern", "Butt 1 Sag Bar");
  Settle();
  dialogs.ExpectBox(Fault);
  Click("optSagBars(1)");
  Settle();
}

TEST_F(SheetErrors, What_was_told_isnt_told_again_by_sorting_or_after_a_dialog_that_was_cancelled) {
  ShowTold(1);
  Section(SortByLengthEntry);
  Settle();
  EXPECT_EQ(Line(), Fault);
  dialogs.ExpectDialog("frmMitres", [](QWidget& form) {
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  });
  Section(13);
  Settle();
  EXPECT_EQ(Line(), Fault);
  EXPECT_EQ(dialogs.Boxes(), std::vector<std::string>{Fault});
}

TEST_F(SheetErrors, A_notch_that_is_put_right_takes_the_line_away) {
  ShowTold(1);
  Items.At(1).Notches.At(1).Size1 = 20;
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_EQ(Line(), "");
}

TEST_F(SheetErrors, Deleting_the_last_section_takes_the_line_away) {
  PutNotched();
  dialogs.ExpectBox(Fault);
  Show();
  ASSERT_EQ(Line(), Fault);
  dialogs.ExpectBox("Remove mark P4?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(Line(), "");
}

TEST_F(SheetErrors, The_line_doesnt_move_the_sheet) {
  ShowBoth();
  const QRect sheet = OnScreen("VSPrinter1");
  dialogs.ExpectBox(Fault);
  ClickCell(Sections(), 1, 1);
  Settle();
  ASSERT_EQ(Line(), Fault);
  EXPECT_EQ(OnScreen("VSPrinter1"), sheet);
  EXPECT_GT(OnScreen("lblErrors").top(), sheet.bottom());
}

}  // namespace
}  // namespace orvane::test
