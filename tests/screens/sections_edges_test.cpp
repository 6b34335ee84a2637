#include <QHeaderView>
#include <QScrollBar>

#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

// Haste, long lists, and errors in the middle of a command.
class SectionsEdges : public SectionsTest {
 protected:
  void PutPurlins(int count, const std::string& pattern = "") {
    for (int row = 1; row <= count; ++row) {
      Put("Z", "M" + std::to_string(row), "Z14012", 6000).PatternName = pattern;
    }
  }
  bool InSight(int row, int column) {
    return Sections().viewport()->rect().contains(Sections().CellRect(row, column));
  }
  // On a purlin of 32 mm the single end holes stand at 0 and 32: the one gap between them is too
  // short for the paper, and no other gap is left to pay for it.
  static void MakeRoomOnTheSheet() { DrawingWidth = 180; }
  // Types such a length and leaves its cell, which tells the failure once.
  void LeaveAFailedRebuild(const std::function<void()>& leave) {
    PutPurlins(2, "Butt Single Holes");
    Show(1, 3);
    MakeRoomOnTheSheet();
    Retype("32");
    Settle();
    EXPECT_TRUE(dialogs.Boxes().empty());
    dialogs.ExpectBox("M1: Division by zero");
    leave();
    Settle();
  }
};

TEST_F(SectionsEdges, A_second_key_that_comes_before_the_box_doesnt_leave_the_refused_cell) {
  PutPurlins(3);
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Down, Qt::Key_Return}) {
    Show(2, 3);
    Retype("0");
    ExpectRefusal("Invalid length");
    Press(key);
    Press(key);
    Settle();
    EXPECT_TRUE(CursorAt(2, 3, "0"));
    Retype("6000");
  }
}

TEST_F(SectionsEdges, A_second_press_that_comes_before_the_box_doesnt_leave_the_refused_cell) {
  PutPurlins(3);
  Show(2, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  QTest::mouseDClick(Sections().viewport(), Qt::LeftButton, Qt::NoModifier,
                     Sections().CellRect(3, 4).center());
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
}

TEST_F(SectionsEdges, A_second_command_that_comes_before_the_box_adds_nothing) {
  PutPurlins(2);
  Show(2, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  Click("SSCommand1(6)");
  Click("SSCommand1(6)");
  Settle();
  EXPECT_EQ(Items.UBound(), 2);
  EXPECT_TRUE(CursorAt(2, 3, "0"));
}

TEST_F(SectionsEdges, A_rebuild_that_failed_while_typing_is_told_when_a_key_leaves_the_row) {
  LeaveAFailedRebuild([this] { Press(Qt::Key_Down); });
  EXPECT_TRUE(CursorAt(2, 3, "6000"));
}

TEST_F(SectionsEdges, A_rebuild_that_failed_while_typing_is_told_when_a_click_leaves_the_row) {
  LeaveAFailedRebuild([this] { ClickCell(Sections(), 2, 5); });
  EXPECT_TRUE(CursorAt(2, 5, ""));
}

TEST_F(SectionsEdges, A_rebuild_that_failed_while_typing_is_told_when_another_control_is_clicked) {
  LeaveAFailedRebuild([this] {
    QTest::mouseClick(Find<QListWidget>("lstAccessories").viewport(), Qt::LeftButton);
  });
}

TEST_F(SectionsEdges, A_duplicate_whose_gaps_fail_stays_and_the_cell_is_still_validated) {
  PutPurlins(1, "Butt Single Holes");
  Show(1, 3);
  MakeRoomOnTheSheet();
  Items.At(1).Length = 32;  // shorter than its holes, with no wide gap left
  dialogs.ExpectBox("Division by zero");
  Section(DuplicateEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"M1", "M1A"}));
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(ProjectDirty, True);
  Retype("0");
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
}

TEST_F(SectionsEdges, Custom_holes_stay_where_they_are_while_the_length_is_typed) {
  PutPurlins(1, "Custom");
  PutHole(Items.At(1), 700, "C");
  PutHole(Items.At(1), 2900, "C");
  Show(1, 3);
  Retype("800");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{700, 2900}));
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_EQ(HolesOf(1), (std::vector<int>{700, 2900}));
}

TEST_F(SectionsEdges, A_product_list_that_is_left_open_for_another_cell_changes_nothing) {
  PutPurlins(2);
  Show(1, 2);
  Press(Qt::Key_F4);
  QTest::keyClick(&OpenedProducts(), Qt::Key_Down);
  ProductBox().hidePopup();
  Settle();
  ClickCell(Sections(), 2, 4);
  EXPECT_TRUE(CursorAt(2, 4, "1"));
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_EQ(Items.At(2).Product, "Z14012");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsEdges, Deleting_far_down_a_long_list_keeps_the_cursor_in_sight) {
  PutPurlins(200);
  Show(1, 4);
  for (int row = 2; row <= 150; ++row) Press(Qt::Key_Down);
  dialogs.ExpectBox("Remove mark M150?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_TRUE(CursorAt(150, 4, "1"));
  EXPECT_TRUE(InSight(150, 4));
  EXPECT_EQ(Cell(150, 1), "M151");
}

TEST_F(SectionsEdges, Deleting_the_last_of_a_long_list_keeps_the_cursor_in_sight) {
  PutPurlins(200);
  Show(1, 4);
  for (int row = 2; row <= 200; ++row) Press(Qt::Key_Down);
  for (const std::string mark : {"M200", "M199", "M198"}) {
    dialogs.ExpectBox("Remove mark " + mark + "?", "", QMessageBox::Yes);
    Section(DeleteEntry);
    Settle();
  }
  EXPECT_TRUE(CursorAt(197, 4, "1"));
  EXPECT_TRUE(InSight(197, 4));
}

TEST_F(SectionsEdges, Sorting_a_long_list_keeps_the_cursor_in_sight) {
  PutPurlins(200);
  Show(1, 1);
  for (int row = 2; row <= 150; ++row) Press(Qt::Key_Down);
  Section(SortByMarkEntry);
  Settle();
  EXPECT_TRUE(CursorAt(150, 1, Items.At(150).Mark));
  EXPECT_TRUE(InSight(150, 1));
}

TEST_F(SectionsEdges, Opening_after_a_long_list_was_scrolled_shows_the_first_row) {
  PutPurlins(200);
  Show(1, 1);
  Sections().verticalScrollBar()->setValue(Sections().verticalScrollBar()->maximum());
  main->DisplayItems();
  main->SelectFirstItem();
  Settle();
  EXPECT_TRUE(CursorAt(1, 1, "M1"));
  EXPECT_TRUE(InSight(1, 1));
}

TEST_F(SectionsEdges, Sections_added_one_after_the_other_are_always_in_sight) {
  for (int row = 1; row <= 60; ++row) {
    Press(Qt::Key_4, Qt::ControlModifier);
    ASSERT_TRUE(CursorAt(row, 1, "")) << row;
    ASSERT_TRUE(InSight(row, 1)) << row;
    Type("V" + std::to_string(row));
  }
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(SectionsEdges, Duplicates_far_down_are_in_sight) {
  PutPurlins(100);
  Show(1, 1);
  Section(DuplicateEntry);
  EXPECT_TRUE(CursorAt(101, 1, "M1A"));
  EXPECT_TRUE(InSight(101, 1));
}

TEST_F(SectionsEdges, The_right_button_opens_the_menu_on_an_empty_grid_too) {
  const auto menus = MenusOpenedBy([this] {
    QTest::mouseClick(Sections().viewport(), Qt::RightButton, Qt::NoModifier, QPoint(40, 40));
  });
  ASSERT_EQ(menus.size(), 1U);
  EXPECT_EQ(menus.front().front(), "&Z section");
  EXPECT_EQ(Sections().Row(), 0);
}

TEST_F(SectionsEdges, The_columns_share_the_width_in_their_ratio) {
  const std::vector<int> ratio = {350, 1000, 1200, 600, 450, 2000};
  for (const int width : {900, 1300}) {
    main->resize(width, main->height());
    Settle();
    const int whole = Sections().viewport()->width();
    int sum = 0;
    for (int column = 0; column < 6; ++column) {
      EXPECT_NEAR(Sections().columnWidth(column),
                  whole * ratio.at(static_cast<std::size_t>(column)) / 5600.0, 1.0)
          << column;
      sum += Sections().columnWidth(column);
    }
    EXPECT_EQ(sum, whole);
  }
}

TEST_F(SectionsEdges, A_length_and_a_quantity_are_never_cut_off) {
  Put("Z", "P1", "Z14012", 32767, 1200);
  Put("Z", "P2", "Z14012", 6000, 4);
  Show();
  for (const int points : {9, 10, 14}) {
    SCOPED_TRACE(points);
    QFont font = main->font();
    font.setPointSize(points);
    main->setFont(font);
    main->resize(main->minimumSizeHint());
    Settle();
    EXPECT_TRUE(IsWhole(Sections(), 1, 3));
    EXPECT_TRUE(IsWhole(Sections(), 1, 4));
    // A longer one than there was room for, while it is typed and with the cursor elsewhere.
    ClickCell(Sections(), 1, 4);
    Retype("32767");
    EXPECT_TRUE(IsWhole(Sections(), 1, 4));
    EXPECT_EQ(OnScreen("sspEditText"), CellOnScreen(1, 4));
    const int wide = Sections().columnWidth(4);
    ClickCell(Sections(), 2, 4);
    EXPECT_TRUE(IsWhole(Sections(), 1, 4));
    // And the room comes back.
    ClickCell(Sections(), 1, 4);
    Retype("4");
    EXPECT_LE(Sections().columnWidth(4), wide);
    Retype("1200");
  }
}

TEST_F(SectionsEdges, The_longest_quantity_counts_wherever_its_row_goes) {
  Put("Z", "P1", "Z14012", 6000, 32767);
  Put("Z", "P2", "Z14012", 6000, 4);
  Show(2);
  main->resize(main->minimumSizeHint());
  Settle();
  const int wide = Sections().columnWidth(4);
  ASSERT_TRUE(IsWhole(Sections(), 1, 4));
  Section(SortByMarkEntry);
  EXPECT_EQ(Sections().columnWidth(4), wide);
  ClickCell(Sections(), 1, 1);
  dialogs.ExpectBox("Remove mark P1?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  ASSERT_EQ(Items.UBound(), 1);
  EXPECT_LT(Sections().columnWidth(4), wide);
}

TEST_F(SectionsEdges, No_heading_of_the_grid_loses_a_letter_in_a_large_font) {
  PutPurlins(1);
  Show();
  for (const int points : {9, 10, 14}) {
    QFont font = main->font();
    font.setPointSize(points);
    main->setFont(font);
    main->resize(main->minimumSizeHint());
    Settle();
    const QFontMetrics metrics = Sections().horizontalHeader()->fontMetrics();
    const std::vector<const char*> words = {"", "Mark", "Product", "Length", "Qty", "Notes"};
    for (int column = 0; column < 6; ++column) {
      const char* word = words.at(static_cast<std::size_t>(column));
      EXPECT_GT(Sections().columnWidth(column), metrics.horizontalAdvance(word)) << word;
    }
  }
}

TEST_F(SectionsEdges, The_cursor_comes_back_from_a_question_whose_window_took_the_activation) {
  PutPurlins(2);
  Show(2, 5);
  dialogs.ExpectBox("Remove mark M2?", "", QMessageBox::No);
  Section(DeleteEntry);
  Settle();
  EXPECT_TRUE(CursorAt(2, 5, ""));
  Type("on");
  EXPECT_EQ(Items.At(2).Notes, "on");
}

TEST_F(SectionsEdges, A_delete_never_hands_the_focus_to_the_accessory_list) {
  PutPurlins(2);
  Show(1, 1);
  auto& list = Find<QListWidget>("lstAccessories");
  int arrivals = 0;
  const auto watch =
      QObject::connect(qApp, &QApplication::focusChanged,
                       [&](QWidget*, const QWidget* now) { arrivals += now == &list ? 1 : 0; });
  for (const std::string mark : {"M1", "M2"}) {
    dialogs.ExpectBox("Remove mark " + mark + "?", "", QMessageBox::Yes);
    Section(DeleteEntry);
    Settle();
  }
  QObject::disconnect(watch);
  EXPECT_EQ(arrivals, 0);
}

}  // namespace
}  // namespace orvane::test
