// Choosing rows of the sections grid by the mouse and by keys, and what ends a choice.
#include <QAccessible>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

#include "tests/screens/chosen_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {
namespace {

using Rows = std::vector<int>;

Rows From(int first, int last) {
  Rows rows;
  for (int row = first; row <= last; ++row) rows.push_back(row);
  return rows;
}

class ChosenRows : public ChosenTest {};

TEST_F(ChosenRows, Without_a_choice_the_current_row_alone_is_worked_on) {
  EXPECT_EQ(Chosen(), Rows{}) << "without sections";
  ShowPurlins(3, 2, 3);
  EXPECT_EQ(Chosen(), Rows{2});
  EXPECT_EQ(ToldRows(), Rows{});
  EXPECT_EQ(RowsWithBars(), Rows{});
}

// By the mouse.

TEST_F(ChosenRows, A_click_on_the_letter_chooses_its_row_and_goes_to_its_mark) {
  ShowPurlins(4, 1, 3);
  ClickLetter(3);
  EXPECT_TRUE(CursorAt(3, 1, "P3"));
  EXPECT_EQ(Chosen(), Rows{3});
  EXPECT_EQ(ToldRows(), Rows{3});
  EXPECT_EQ(RowsWithBars(), Rows{3});
  ClickLetter(2);
  EXPECT_EQ(Chosen(), Rows{2});
  EXPECT_EQ(RowsWithBars(), Rows{2});
}

TEST_F(ChosenRows, Shift_and_a_click_choose_the_rows_between_and_the_cursor_stays) {
  ShowPurlins(6, 3, 4);
  ClickLetter(5, Qt::ShiftModifier);
  EXPECT_TRUE(CursorAt(3, 4, "2"));
  EXPECT_EQ(Chosen(), From(3, 5));
  EXPECT_EQ(ToldRows(), From(3, 5));
  EXPECT_EQ(RowsWithBars(), From(3, 5));
  ClickLetter(1, Qt::ShiftModifier);
  EXPECT_TRUE(CursorAt(3, 4, "2"));
  EXPECT_EQ(Chosen(), From(1, 3));
}

TEST_F(ChosenRows, Ctrl_and_a_click_choose_one_more_or_one_less) {
  ShowPurlins(6, 2, 3);
  ClickLetter(5, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), (Rows{2, 5}));
  EXPECT_TRUE(CursorAt(5, 1, "P5"));
  ClickLetter(4, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), (Rows{2, 4, 5}));
  EXPECT_TRUE(CursorAt(4, 1, "P4"));
  EXPECT_EQ(ToldRows(), (Rows{2, 4, 5}));
  ClickLetter(2, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), (Rows{4, 5}));
  EXPECT_TRUE(CursorAt(4, 1, "P4"));
  // The chosen rows always have the current one among them.
  ClickLetter(4, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), Rows{5});
  EXPECT_TRUE(CursorAt(5, 1, "P5"));
  ClickLetter(5, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), Rows{5}) << "the current one";
  EXPECT_EQ(ToldRows(), Rows{});
}

TEST_F(ChosenRows, Ctrl_and_Shift_add_the_rows_between_to_the_others) {
  ShowPurlins(8, 1, 1);
  ClickLetter(4, Qt::ControlModifier);
  ClickLetter(6, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Chosen(), (Rows{1, 4, 5, 6}));
  ClickLetter(5, Qt::ShiftModifier);
  EXPECT_EQ(Chosen(), (Rows{4, 5}));
}

TEST_F(ChosenRows, Dragging_over_the_letters_chooses_what_it_has_come_over) {
  ShowPurlins(6, 1, 3);
  DragLetters(2, 5);
  EXPECT_EQ(Chosen(), From(2, 5));
  EXPECT_TRUE(CursorAt(2, 1, "P2"));
  DragLetters(5, 3);
  EXPECT_EQ(Chosen(), From(3, 5));
  EXPECT_TRUE(CursorAt(5, 1, "P5"));
  DragLetters(1, 2, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), From(1, 5));
  // A row that was taken out begins nothing.
  DragLetters(3, 5, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), (Rows{1, 2, 4, 5}));
}

TEST_F(ChosenRows, A_drag_beyond_the_rows_in_sight_brings_further_ones) {
  ShowPurlins(200);
  QWidget* viewport = Sections().viewport();
  const QPoint first = Sections().CellRect(1, 0).center();
  const QPoint below(first.x(), viewport->height() + 10);
  QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, first);
  QMouseEvent move(QEvent::MouseMove, below, viewport->mapToGlobal(below), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(viewport, &move);
  const auto inSight = static_cast<std::size_t>(Sections().PageRows() + 3);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Chosen().size() > inSight; }, Patience));
  EXPECT_GT(Sections().verticalScrollBar()->value(), 0);
  QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, below);
  Settle();
  const Rows chosen = Chosen();
  EXPECT_EQ(chosen, From(1, static_cast<int>(chosen.size())));
}

TEST_F(ChosenRows, A_refused_cell_keeps_the_cursor_and_the_choice) {
  ShowPurlins(4, 1, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  ClickLetter(3);
  EXPECT_TRUE(CursorAt(1, 3, "0"));
  EXPECT_EQ(Chosen(), Rows{1});
  EXPECT_EQ(ToldRows(), Rows{});
}

TEST_F(ChosenRows, The_right_button_on_a_chosen_row_keeps_them_and_on_another_ends_the_choice) {
  ShowPurlins(5);
  DragLetters(2, 4);
  EXPECT_EQ(MenusOpenedBy([this] { RightClickCell(3, 4); }).size(), 1U);
  EXPECT_EQ(Chosen(), From(2, 4));
  EXPECT_EQ(Sections().Row(), 3);
  EXPECT_EQ(MenusOpenedBy([this] { RightClickCell(5, 4); }).size(), 1U);
  EXPECT_EQ(Chosen(), Rows{5});
  EXPECT_EQ(ToldRows(), Rows{});
}

// By keys.

TEST_F(ChosenRows, Shift_and_the_arrows_draw_the_choice_out_and_back_from_any_cell) {
  ShowPurlins(6);
  for (const int column : {1, 2, 3, 4, 5}) {
    SCOPED_TRACE(column);
    ClickCell(Sections(), 3, column);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Chosen(), From(3, 5));
    EXPECT_EQ(ToldRows(), From(3, 5));
    EXPECT_EQ(Sections().Row(), 3);
    EXPECT_EQ(Sections().Col(), column);
    Press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Chosen(), From(3, 4));
    Press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Chosen(), Rows{3});
    EXPECT_EQ(ToldRows(), Rows{}) << "back at the cursor's row there is no choice";
    Press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Chosen(), From(2, 3));
    for (int more = 0; more < 5; ++more) Press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Chosen(), From(1, 3)) << "there is nothing above the first row";
    ClickCell(Sections(), 1, column);
  }
}

TEST_F(ChosenRows, Shift_and_the_page_keys_draw_it_out_by_the_rows_in_sight) {
  ShowPurlins(200, 20, 3);
  const int page = Sections().PageRows();
  ASSERT_GT(page, 2);
  Press(Qt::Key_PageDown, Qt::ShiftModifier);
  EXPECT_EQ(Chosen(), From(20, 20 + page));
  EXPECT_TRUE(Sections().viewport()->rect().contains(Sections().CellRect(20 + page, 3).center()));
  Press(Qt::Key_PageUp, Qt::ShiftModifier);
  Press(Qt::Key_PageUp, Qt::ShiftModifier);
  EXPECT_EQ(Chosen(), From(20 - page, 20));
  EXPECT_EQ(Sections().Row(), 20);
}

TEST_F(ChosenRows, Ctrl_A_selects_the_text_first_and_then_all_rows) {
  ShowPurlins(4, 2, 5);
  Type("abc");
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(FromQt(Editor().selectedText()), "abc");
  EXPECT_EQ(Chosen(), Rows{2});
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), From(1, 4));
  EXPECT_EQ(Sections().Row(), 2);
  EXPECT_EQ(FromQt(Editor().text()), "abc");
  // An empty cell has nothing left to select.
  ClickCell(Sections(), 3, 5);
  EXPECT_EQ(Chosen(), Rows{3});
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), From(1, 4));
  // Nor has a product.
  ClickCell(Sections(), 1, 2);
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Chosen(), From(1, 4));
}

TEST_F(ChosenRows, Ctrl_A_then_typing_replaces_the_text_and_ends_the_choice) {
  ShowPurlins(3, 2, 1);
  Press(Qt::Key_A, Qt::ControlModifier);
  ASSERT_EQ(Chosen(), From(1, 3));
  Type("Q");
  EXPECT_EQ(Chosen(), Rows{2});
  EXPECT_EQ(Marks(), (std::vector<std::string>{"P1", "Q", "P3"}));
  EXPECT_EQ(RowsWithBars(), Rows{});
}

// What ends it.

TEST_F(ChosenRows, A_choice_of_several_lasts_while_the_cursor_stays_in_its_row) {
  ShowPurlins(6, 2, 1);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_Tab);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(2, 3, "6000"));
  EXPECT_EQ(Chosen(), From(2, 3));
  Press(Qt::Key_Left);
  ClickCell(Sections(), 2, 4);
  EXPECT_EQ(Chosen(), From(2, 3));
  Press(Qt::Key_Down);
  EXPECT_EQ(Chosen(), Rows{3});
  EXPECT_EQ(RowsWithBars(), Rows{});
  EXPECT_EQ(ToldRows(), Rows{});
}

TEST_F(ChosenRows, A_plain_click_on_another_row_ends_a_choice) {
  ShowPurlins(6);
  DragLetters(2, 4);
  ClickCell(Sections(), 3, 5);
  EXPECT_EQ(Chosen(), Rows{3});
  EXPECT_EQ(ToldRows(), Rows{});
}

TEST_F(ChosenRows, Escape_takes_the_cell_back_before_it_ends_a_choice_of_several) {
  ShowPurlins(6, 2, 5);
  Type("north");
  Press(Qt::Key_Down, Qt::ShiftModifier);
  ASSERT_EQ(Chosen(), From(2, 3));
  Press(Qt::Key_Escape);
  EXPECT_EQ(Items.At(2).Notes, "");
  EXPECT_EQ(Chosen(), From(2, 3));
  Press(Qt::Key_Escape);
  EXPECT_EQ(Chosen(), Rows{2});
}

TEST_F(ChosenRows, A_single_row_is_chosen_until_a_person_turns_to_its_texts) {
  ShowPurlins(4);
  const std::vector<std::pair<std::string, std::function<void()>>> ways = {
      {"the next cell", [this] { Press(Qt::Key_Tab); }},
      {"a caret", [this] { Press(Qt::Key_Left); }},
      {"letters picked out", [this] { Press(Qt::Key_Left, Qt::ShiftModifier); }},
      {"Escape", [this] { Press(Qt::Key_Escape); }},
      {"a row above", [this] { Press(Qt::Key_Up); }},
      {"typing", [this] { Type("x"); }},
  };
  for (const auto& [name, way] : ways) {
    SCOPED_TRACE(name);
    ClickLetter(2);
    ASSERT_EQ(ToldRows(), Rows{2});
    way();
    EXPECT_EQ(ToldRows(), Rows{});
  }
}

TEST_F(ChosenRows, Rows_that_come_go_or_move_end_a_choice) {
  ShowPurlins(6);
  const std::vector<std::pair<std::string, std::function<void()>>> ways = {
      {"a sort", [this] { Section(SortByLengthEntry); }},
      {"a section added", [this] { Add("Z"); }},
      {"a section added and taken back",
       [this] {
         Add("C");
         Press(Qt::Key_Z, Qt::ControlModifier);
       }},
      {"another project", [this] { main->DisplayItems(); }},
  };
  for (const auto& [name, way] : ways) {
    SCOPED_TRACE(name);
    Show(2, 1);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    ASSERT_EQ(Chosen(), From(2, 3));
    way();
    Settle();
    EXPECT_LE(Chosen().size(), 1U);
    EXPECT_EQ(ToldRows(), Rows{});
  }
}

TEST_F(ChosenRows, A_step_taken_back_in_the_cursors_row_leaves_the_choice) {
  ShowPurlins(4, 2, 3);
  Retype("5000");
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_Z, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Items.At(2).Length, 6000);
  EXPECT_EQ(Chosen(), From(2, 3));
}

// The look.

TEST_F(ChosenRows, The_cells_keep_their_backgrounds) {
  ShowPurlins(4, 2, 1);
  const QImage before = Sections().viewport()->grab().toImage();
  const QColor white = before.pixelColor(Sections().CellRect(3, 5).center());
  Press(Qt::Key_Down, Qt::ShiftModifier);
  const QImage after = Sections().viewport()->grab().toImage();
  EXPECT_EQ(after.pixelColor(Sections().CellRect(3, 5).center()), white);
  EXPECT_EQ(white, QColor(Qt::white));
  EXPECT_EQ(after.pixelColor(Sections().CellRect(2, 5).center()), QColor(0xE0, 0xE0, 0xE0));
  EXPECT_EQ(Colour(2, 3), 0xE0E0E0U);
  EXPECT_EQ(Colour(3, 3), 0xFFFFFFU);
}

TEST_F(ChosenRows, The_bar_stands_out_on_a_dark_desktop_too) {
  const QPalette former = QApplication::palette();
  QPalette dark(QColor(0x35, 0x35, 0x35));
  dark.setColor(QPalette::Highlight, QColor(0x2A, 0x82, 0xDA));
  QApplication::setPalette(dark);
  ShowPurlins(5, 2, 1);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(RowsWithBars(), (Rows{2, 3}));
  QApplication::setPalette(former);
}

TEST_F(ChosenRows, Readers_of_the_screen_hear_how_many_rows_are_chosen) {
  ShowPurlins(4, 2, 1);
  const auto name = [this] { return FromQt(Editor().accessibleName()); };
  EXPECT_EQ(name(), "Mark, row 2");
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(name(), "Mark, row 2, 2 sections chosen");
  Press(Qt::Key_Tab);
  EXPECT_EQ(FromQt(ProductBox().accessibleName()), "Product, row 2, 2 sections chosen");
  Press(Qt::Key_Escape);
  EXPECT_EQ(FromQt(ProductBox().accessibleName()), "Product, row 2");
  ClickLetter(3);
  EXPECT_EQ(name(), "Mark, row 3, chosen");
}

}  // namespace
}  // namespace orvane::test
