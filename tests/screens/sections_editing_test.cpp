#include <QClipboard>
#include <QWheelEvent>

#include "tests/screens/sections_fixture.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

class SectionsEditing : public SectionsTest {
 protected:
  void PutOne() { Put("Z", "A1", "Z14012", 6000, 5).Notes = "old"; }
};

TEST_F(SectionsEditing, Each_cell_gets_its_editor_with_its_text_selected_whole) {
  PutOne();
  Show();
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
  EXPECT_EQ(FromQt(Editor().selectedText()), "A1");
  ClickCell(Sections(), 1, 2);
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
  ClickCell(Sections(), 1, 3);
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  EXPECT_EQ(FromQt(Editor().selectedText()), "6000");
  ClickCell(Sections(), 1, 4);
  EXPECT_TRUE(CursorAt(1, 4, "5"));
  EXPECT_EQ(FromQt(Editor().selectedText()), "5");
  ClickCell(Sections(), 1, 5);
  EXPECT_TRUE(CursorAt(1, 5, "old"));
  EXPECT_EQ(FromQt(Editor().selectedText()), "old");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsEditing, Every_stroke_in_the_mark_reaches_cell_and_record_blanks_included) {
  PutOne();
  Show();
  for (const auto& [stroke, mark] : std::vector<std::pair<std::string, std::string>>{
           {" ", " "}, {"b", " b"}, {",", " b,"}, {"1", " b,1"}, {" ", " b,1 "}}) {
    ProjectDirty = False;
    Type(stroke);
    EXPECT_EQ(Items.At(1).Mark, mark);
    EXPECT_TRUE(CursorAt(1, 1, mark));
    EXPECT_EQ(ProjectDirty, True);
  }
}

TEST_F(SectionsEditing, Notes_take_any_text_but_for_double_quotes) {
  PutOne();
  Show(1, 5);
  Retype("See dwg. 12/A: 50% \"left\", -3");
  EXPECT_EQ(Items.At(1).Notes, "See dwg. 12/A: 50% ''left'', -3");
  EXPECT_EQ(Cell(1, 5), "See dwg. 12/A: 50% ''left'', -3");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(SectionsEditing, Length_and_quantity_drop_every_typed_character_but_digits) {
  PutOne();
  for (const int column : {3, 4}) {
    Show(1, column);
    Retype("1a-2. +e,3");
    EXPECT_TRUE(CursorAt(1, column, "123"));
    EXPECT_EQ(column == 3 ? Items.At(1).Length : Items.At(1).Quantity, 123);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Cell(1, column), "12");
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    EXPECT_TRUE(CursorAt(1, column, "2"));
    Press(Qt::Key_End);
    Press(Qt::Key_Left);
    Type("7");
    EXPECT_TRUE(CursorAt(1, column, "72"));
    EXPECT_EQ(column == 3 ? Items.At(1).Length : Items.At(1).Quantity, 72);
  }
}

TEST_F(SectionsEditing, A_dropped_character_changes_nothing) {
  PutOne();
  Show(1, 3);
  Type("x");
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  EXPECT_EQ(FromQt(Editor().selectedText()), "6000");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsEditing, Ctrl_with_a_letter_is_no_typed_character) {
  PutOne();
  Show(1, 3);
  Press(Qt::Key_C, Qt::ControlModifier);
  Press(Qt::Key_End);
  Press(Qt::Key_V, Qt::ControlModifier);
  // 60006000 doesn't fit; the old value shows again.
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  Retype("12");
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_TRUE(CursorAt(1, 3, ""));
  EXPECT_EQ(Items.At(1).Length, 0);
}

TEST_F(SectionsEditing, Typing_99999_into_the_length_leaves_9999_without_a_word) {
  PutOne();
  Show(1, 3);
  Retype("99999");
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "9999"));
  EXPECT_EQ(Items.At(1).Length, 9999);
  EXPECT_EQ(Editor().cursorPosition(), 4);
  // The editor goes on working on what it shows.
  Press(Qt::Key_Backspace);
  EXPECT_TRUE(CursorAt(1, 3, "999"));
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 4, "5"));
  EXPECT_EQ(Items.At(1).Length, 999);
}

TEST_F(SectionsEditing, The_length_takes_32767_and_not_32768) {
  PutOne();
  Show(1, 3);
  Retype("32767");
  EXPECT_EQ(Items.At(1).Length, 32767);
  Retype("32768");
  EXPECT_TRUE(CursorAt(1, 3, "3276"));
  EXPECT_EQ(Items.At(1).Length, 3276);
}

TEST_F(SectionsEditing, A_refused_digit_brings_the_cell_back_from_the_record) {
  PutOne();
  Show(1, 3);
  Retype("0009999");
  EXPECT_TRUE(CursorAt(1, 3, "0009999"));
  Press(Qt::Key_Home);
  Type("1");
  // 10009999 doesn't fit: the record's plain digits, the cursor behind them.
  EXPECT_TRUE(CursorAt(1, 3, "9999"));
  EXPECT_EQ(Editor().cursorPosition(), 4);
  Paste("123456789012345678901234567890");
  EXPECT_TRUE(CursorAt(1, 3, "9999"));
  EXPECT_EQ(Items.At(1).Length, 9999);
}

TEST_F(SectionsEditing, A_pasted_number_that_no_field_holds_is_refused_with_its_reason) {
  PutOne();
  Show(1, 3);
  for (const std::string& text : {std::string("61500"), std::string(400, '9')}) {
    for (const int column : {3, 4}) {
      ClickCell(Sections(), 1, column);
      Paste(text);
      Settle();
      EXPECT_TRUE(CursorAt(1, column, column == 3 ? "6000" : "5"));
      EXPECT_TRUE(IsFieldRefused(Editor()));
      EXPECT_NE(FromQt(Editor().toolTip()).find("it is larger than 32767"), std::string::npos);
    }
  }
}

TEST_F(SectionsEditing, Typing_40000_into_the_quantity_tells_Overflow_and_leaves_4000) {
  PutOne();
  Show(1, 4);
  Retype("4000");
  dialogs.ExpectBox("Overflow");
  Type("0");
  Settle();
  EXPECT_TRUE(CursorAt(1, 4, "4000"));
  EXPECT_EQ(Items.At(1).Quantity, 4000);
  EXPECT_EQ(Editor().cursorPosition(), 4);
  dialogs.ExpectBox("Overflow");
  Type("0");
  Settle();
  EXPECT_TRUE(CursorAt(1, 4, "4000"));
  // The other cells of the row are as they were.
  EXPECT_TRUE(RowShows(1, {"Z", "A1", "Z14012", "6000", "4000", "old"}));
}

TEST_F(SectionsEditing, A_pasted_length_is_the_number_that_was_copied) {
  PutOne();
  Show(1, 3);
  struct Pasted {
    std::string Text;
    std::string Length;
  };
  for (const Pasted& pasted : std::vector<Pasted>{{"6150", "6150"},
                                                  {"6150.0", "6150"},
                                                  {"7150.00\r\n", "7150"},
                                                  {"  70 mm", "70"},
                                                  {"\t6100\t", "6100"}}) {
    SCOPED_TRACE(pasted.Text);
    Paste(pasted.Text);
    EXPECT_EQ(std::to_string(Items.At(1).Length), pasted.Length);
    EXPECT_TRUE(CursorAt(1, 3, pasted.Length));
    EXPECT_FALSE(IsFieldRefused(Editor()));
  }
}

TEST_F(SectionsEditing, What_could_be_another_length_is_not_pasted) {
  PutOne();
  Show(1, 3);
  for (const std::string text : {"12.5", "-5", "+5", "1e3", "abc", "5,500", "6.150", "3 pcs"}) {
    SCOPED_TRACE(text);
    Paste(text);
    EXPECT_EQ(Items.At(1).Length, 6000);
    EXPECT_TRUE(CursorAt(1, 3, "6000"));
    EXPECT_TRUE(IsFieldRefused(Editor()));
    EXPECT_TRUE(Editor().toolTip().startsWith(ToQt("\"" + text + "\" wasn't pasted")));
  }
  // Typing goes on, and the cell looks as ever.
  Type("61");
  EXPECT_TRUE(CursorAt(1, 3, "61"));
  EXPECT_FALSE(IsFieldRefused(Editor()));
}

TEST_F(SectionsEditing, A_refused_paste_is_forgotten_in_the_next_cell) {
  PutOne();
  Show(1, 3);
  Paste("3 pcs");
  ASSERT_TRUE(IsFieldRefused(Editor()));
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 4, "5"));
  EXPECT_FALSE(IsFieldRefused(Editor()));
}

TEST_F(SectionsEditing, A_mark_that_is_pasted_with_a_line_end_is_the_mark_itself) {
  Put("Z", "A1", "Z14012", 6000, 5);
  Put("Z", "B1", "Z14012", 6000, 5);
  Show(2, 1);
  Paste("A1\r\n");
  EXPECT_TRUE(CursorAt(2, 1, "A1"));
  EXPECT_EQ(Items.At(2).Mark, "A1");
  ExpectRefusal("Error - Duplicate Mark");
  Press(Qt::Key_Tab);
  Settle();
  // With a tab it would be a block of cells: this key pastes into the cell always.
  QApplication::clipboard()->setText("left\tend\nand more\n");
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Items.At(2).Mark, "left end and more");
}

TEST_F(SectionsEditing, A_cell_keeps_its_typed_text_after_it_was_left) {
  PutOne();
  Show(1, 3);
  Retype("0012");
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 4, "5"));
  EXPECT_EQ(Cell(1, 3), "0012");
  Press(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_TRUE(CursorAt(1, 3, "0012"));
  EXPECT_EQ(Items.At(1).Length, 12);
}

TEST_F(SectionsEditing, A_negative_length_of_a_file_is_refused_on_leaving_and_stays) {
  Put("Z", "A1", "Z14012", -5, 5);
  Show(1, 3);
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "-5"));
  EXPECT_EQ(Items.At(1).Length, -5);
}

TEST_F(SectionsEditing, An_emptied_length_stays_empty_on_the_screen_and_0_in_the_record) {
  PutOne();
  Show(1, 3);
  Press(Qt::Key_Backspace);
  EXPECT_TRUE(CursorAt(1, 3, ""));
  EXPECT_EQ(Items.At(1).Length, 0);
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, ""));
  EXPECT_EQ(Items.At(1).Length, 0);
  Type("7000");
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 4, "5"));
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(SectionsEditing, An_emptied_quantity_or_note_is_left_without_a_word) {
  PutOne();
  Show(1, 4);
  Press(Qt::Key_Delete);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 5, "old"));
  EXPECT_EQ(Items.At(1).Quantity, 0);
  EXPECT_EQ(Cell(1, 4), "");
  Press(Qt::Key_Delete);
  Press(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_TRUE(CursorAt(1, 4, ""));
  EXPECT_EQ(Items.At(1).Notes, "");
}

TEST_F(SectionsEditing, An_undone_stroke_reaches_the_record_too) {
  PutOne();
  Show(1, 5);
  Press(Qt::Key_End);
  Type("er");
  EXPECT_EQ(Items.At(1).Notes, "older");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(FromQt(Editor().text()), Items.At(1).Notes);
  EXPECT_EQ(Cell(1, 5), Items.At(1).Notes);
}

TEST_F(SectionsEditing, Undo_in_a_freshly_placed_editor_doesnt_bring_back_another_cells_text) {
  PutOne();
  Show(1, 1);
  const std::string mark = Items.At(1).Mark;
  Type("XY");
  ClickCell(Sections(), 1, 5);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Items.At(1).Notes, "old");
  // It is the step of the mark that is taken back, in its own cell.
  EXPECT_EQ(Items.At(1).Mark, mark);
  EXPECT_TRUE(CursorAt(1, 1, mark));
}

TEST_F(SectionsEditing, Choosing_a_product_moves_cell_record_holes_and_sheet) {
  PutOne();
  Items.At(1).PatternName = "Butt";
  Show(1, 2);
  ASSERT_EQ(HolesOf(1), (std::vector<int>{32, 92, 5908, 5968}));
  const int draws = Sheet().DrawCount();
  Choose("cboEdit", "Z21514");
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z21514");
  EXPECT_TRUE(CursorAt(1, 2, "Z21514"));
  // The pair at the ends is 75 apart with this depth.
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 107, 5893, 5968}));
  EXPECT_GT(Sheet().DrawCount(), draws);
  EXPECT_EQ(Sheet().ShownRow(), 1);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(SectionsEditing, Passing_over_a_product_that_isnt_in_the_list_leaves_it_alone) {
  Put("Z", "A1", "Z99999", 6000);
  Put("Z", "B1", "", 6000);
  Put("Z", "C1", " Z14014 ", 6000);
  Show(1, 2);
  EXPECT_EQ(ProductBox().currentIndex(), -1);
  EXPECT_TRUE(CursorAt(1, 2, ""));
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(2, 2, ""));
  EXPECT_EQ(ProductBox().currentIndex(), -1);
  Press(Qt::Key_Down);
  // Blanks at the ends don't count when the entry is looked for.
  EXPECT_EQ(FromQt(ProductBox().currentText()), "Z14014");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z99999");
  EXPECT_EQ(Items.At(2).Product, "");
  EXPECT_EQ(Items.At(3).Product, " Z14014 ");
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsEditing, Typing_letters_over_the_closed_list_chooses_a_product) {
  PutOne();
  Show(1, 2);
  Type("Z21514");
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_EQ(ProjectDirty, False);
  Press(Qt::Key_Return);
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z21514");
  EXPECT_TRUE(CursorAt(1, 2, "Z21514"));
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(SectionsEditing, The_wheel_over_the_closed_product_box_changes_nothing) {
  PutOne();
  Show(1, 2);
  for (const int turn : {120, -120}) {
    const QPoint at = ProductBox().rect().center();
    QWheelEvent event(at, ProductBox().mapToGlobal(at), QPoint(), QPoint(0, turn), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&ProductBox(), &event);
  }
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsEditing, Alt_Down_and_F4_open_the_list_whose_arrows_are_its_own) {
  PutOne();
  Put("Z", "B1", "Z14016", 6000);
  Show(1, 2);
  struct Opening {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    std::string Product;
  };
  for (const Opening& opening : std::vector<Opening>{{Qt::Key_Down, Qt::AltModifier, "Z14014"},
                                                     {Qt::Key_F4, Qt::NoModifier, "Z14016"}}) {
    Press(opening.Key, opening.Modifiers);
    QAbstractItemView* list = &OpenedProducts();
    EXPECT_TRUE(Shown("sspEditCombo"));
    EXPECT_EQ(Sections().Row(), 1);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Sections().Row(), 1);
    QTest::keyClick(list, Qt::Key_Return);
    Settle();
    EXPECT_EQ(Items.At(1).Product, opening.Product);
    EXPECT_TRUE(CursorAt(1, 2, opening.Product));
  }
  Press(Qt::Key_F4);
  QAbstractItemView* list = &OpenedProducts();
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Escape);
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z14016");
  EXPECT_TRUE(CursorAt(1, 2, "Z14016"));
}

TEST_F(SectionsEditing, Leaving_the_product_box_hides_its_panel) {
  Put("R", "A1", "CLR", 3000);
  Put("Z", "B1", "Z14012", 6000);
  Show(2, 2);
  ASSERT_TRUE(Shown("sspEditCombo"));
  Find("lstAccessories").setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(Shown("sspEditCombo"));
  ClickCell(Sections(), 2, 2);
  EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
  ClickCell(Sections(), 2, 1);
  EXPECT_FALSE(Shown("sspEditCombo"));
}

}  // namespace
}  // namespace orvane::test
