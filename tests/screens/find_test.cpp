// Ctrl+F, F3 and Shift+F3: looking for a section by a text that it holds.
#include <QToolButton>

#include "project/history.h"
#include "tests/screens/detail_fixture.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

class FindTest : public DetailTest {
 protected:
  void ShowPurlins(int row = 1, int column = 1) {
    for (const char* mark : {"P1", "P2", "B1", "P12", "B2"}) {
      Put("Z", mark, "Z14012", 6000, 2).PatternName = "Butt";
    }
    Items.At(3).Notes = "with P2";
    Show(row, column);
  }
  void OpenFind() { Press(Qt::Key_F, Qt::ControlModifier); }
  QLineEdit& Field() { return Find<QLineEdit>("txtFind"); }
  bool IsOpen() { return Find<QWidget>("findLine").isVisible(); }
  std::string Count() { return FromQt(Find<QLabel>("lblFound").text()); }
};

TEST_F(FindTest, Each_key_shows_the_first_section_that_holds_the_text) {
  ShowPurlins(1, 3);
  OpenFind();
  ASSERT_TRUE(IsOpen());
  EXPECT_EQ(Focus(), "txtFind");
  Type("p");
  EXPECT_EQ(Sections().Row(), 1);
  EXPECT_EQ(Count(), "1 of 4");
  Type("2");
  EXPECT_EQ(Sections().Row(), 2);
  EXPECT_EQ(CurrentItem, 2);
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_EQ(Count(), "1 of 2");
  EXPECT_EQ(Focus(), "txtFind") << "the cursor stays in the field";
  EXPECT_TRUE(NoEditor());
}

TEST_F(FindTest, It_begins_where_one_was_and_goes_round) {
  ShowPurlins(4, 1);
  OpenFind();
  Type("p");
  EXPECT_EQ(Sections().Row(), 4);
  EXPECT_EQ(Count(), "4 of 4");
  Type("2");
  EXPECT_EQ(Sections().Row(), 2) << "behind the last one the first";
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Sections().Row(), 4);
}

TEST_F(FindTest, F3_and_Shift_F3_go_to_the_next_and_to_the_one_before) {
  ShowPurlins();
  OpenFind();
  Type("b");
  EXPECT_EQ(Sections().Row(), 3) << "B1";
  Press(Qt::Key_F3);
  EXPECT_EQ(Sections().Row(), 5);
  EXPECT_EQ(Count(), "2 of 2");
  Press(Qt::Key_F3);
  EXPECT_EQ(Sections().Row(), 3);
  Press(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Sections().Row(), 5);
  Press(Qt::Key_Up);
  EXPECT_EQ(Sections().Row(), 3);
  Press(Qt::Key_Down);
  EXPECT_EQ(Sections().Row(), 5);
  EXPECT_EQ(Focus(), "txtFind");
}

TEST_F(FindTest, Esc_goes_back_to_the_cell_where_one_was) {
  ShowPurlins(2, 5);
  OpenFind();
  Type("b2");
  EXPECT_EQ(Sections().Row(), 5);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(CursorAt(2, 5, ""));
  EXPECT_EQ(Sheet().ShownRow(), 2);
}

TEST_F(FindTest, Enter_goes_into_the_cell_that_was_found) {
  ShowPurlins();
  OpenFind();
  Type("with");
  Press(Qt::Key_Return);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(CursorAt(3, 5, "with P2"));
}

TEST_F(FindTest, F3_goes_on_in_the_grid_with_the_text_before) {
  ShowPurlins();
  OpenFind();
  Type("p");
  Press(Qt::Key_Return);
  ASSERT_TRUE(CursorAt(1, 1, "P1"));
  Press(Qt::Key_F3);
  EXPECT_TRUE(CursorAt(2, 1, "P2"));
  Press(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
  EXPECT_FALSE(IsOpen());
}

TEST_F(FindTest, F3_without_a_text_asks_for_one) {
  ShowPurlins();
  Press(Qt::Key_F3);
  EXPECT_TRUE(IsOpen());
  EXPECT_EQ(Focus(), "txtFind");
}

TEST_F(FindTest, A_text_that_no_section_holds_is_told_and_leads_back) {
  ShowPurlins(2, 1);
  OpenFind();
  Type("b2");
  ASSERT_EQ(Sections().Row(), 5);
  Type("x");
  EXPECT_EQ(Sections().Row(), 2);
  EXPECT_EQ(Count(), "None");
  EXPECT_TRUE(IsFieldRefused(Field()));
  Press(Qt::Key_Return);
  EXPECT_TRUE(IsOpen());
  Press(Qt::Key_Backspace);
  EXPECT_FALSE(IsFieldRefused(Field()));
  EXPECT_EQ(Sections().Row(), 5);
}

TEST_F(FindTest, The_text_before_is_selected_when_it_is_opened_again) {
  ShowPurlins();
  OpenFind();
  Type("b1");
  Press(Qt::Key_Escape);
  OpenFind();
  EXPECT_EQ(FromQt(Field().selectedText()), "b1");
  Type("b2");
  EXPECT_EQ(Sections().Row(), 5);
}

TEST_F(FindTest, A_cell_that_may_not_be_left_keeps_the_cursor) {
  ShowPurlins(1, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  OpenFind();
  Settle();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Focus(), "txtEdit");
}

TEST_F(FindTest, Order_rows_and_the_project_stay_as_they_are) {
  ShowPurlins();
  ProjectDirty = False;
  OpenFind();
  Type("p12");
  Press(Qt::Key_Return);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_FALSE(IsChangedSinceSaved());
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(FindTest, The_buttons_do_what_the_keys_do) {
  ShowPurlins();
  OpenFind();
  Type("b");
  Find<QToolButton>("cmdFindNext").click();
  EXPECT_EQ(Sections().Row(), 5);
  Find<QToolButton>("cmdFindPrevious").click();
  EXPECT_EQ(Sections().Row(), 3);
  EXPECT_EQ(Focus(), "txtFind");
  Find<QToolButton>("cmdFindClose").click();
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
}

TEST_F(FindTest, Undo_and_redo_in_the_field_are_for_its_own_text) {
  ShowPurlins(1, 3);
  Retype("7250");
  OpenFind();
  Type("b1");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(FromQt(Field().text()), "");
  EXPECT_EQ(Items.At(1).Length, 7250);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Items.At(1).Length, 7250) << "nothing is left to take back there";
  EXPECT_EQ(Focus(), "txtFind");
  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(FromQt(Field().text()), "b1");
}

TEST_F(FindTest, Commands_work_on_the_section_that_was_found_and_not_on_rows_chosen_before) {
  ShowPurlins(1, 1);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  auto& grid = *main->findChild<SectionsGrid*>();
  ASSERT_EQ(grid.ChosenRows(), (std::vector<int>{1, 2}));
  OpenFind();
  Type("b2");
  ASSERT_EQ(Sections().Row(), 5);
  EXPECT_EQ(grid.ChosenRows(), std::vector<int>{5});
}

TEST_F(FindTest, Esc_in_the_grid_closes_the_line_and_the_cursor_stays) {
  ShowPurlins(1, 1);
  OpenFind();
  Type("b2");
  ClickCell(Sections(), 3, 5);
  ASSERT_TRUE(IsOpen());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(CursorAt(3, 5, "with P2"));
}

TEST_F(FindTest, Esc_finds_the_section_that_one_was_in_though_rows_have_gone) {
  ShowPurlins(4, 1);
  OpenFind();
  Type("b1");
  ASSERT_EQ(Sections().Row(), 3);
  dialogs.ExpectBox("Remove mark B1?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  ASSERT_TRUE(IsOpen());
  Field().setFocus();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(CursorAt(3, 1, "P12"));
}

TEST_F(FindTest, Without_sections_there_is_nothing_to_find) {
  OpenFind();
  EXPECT_FALSE(IsOpen());
}

}  // namespace
}  // namespace orvane::test
