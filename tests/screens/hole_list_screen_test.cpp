// The list of a section's custom holes: what it shows, its pop-up, its keys.
#include <QBrush>
#include <QContextMenuEvent>
#include <QSplitter>

#include "tests/screens/detail_fixture.h"

namespace orvane::test {
namespace {

class HoleListTest : public DetailTest {
 protected:
  QMenu& Popup() { return Find<QMenu>("mnuCHPU"); }

  // The captions of the pop-up's entries.
  std::vector<std::string> PopupCaptions() {
    std::vector<std::string> captions;
    for (const QAction* entry : Popup().actions()) captions.push_back(FromQt(entry->text()));
    return captions;
  }

  // Presses the right button on a place of the list, as the window system reports it.
  void RightClick(QPoint place) {
    QWidget* view = HoleList().viewport();
    QTest::mousePress(view, Qt::RightButton, Qt::NoModifier, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view->mapToGlobal(place));
    QCoreApplication::sendEvent(view, &event);
    QTest::mouseRelease(view, Qt::RightButton, Qt::NoModifier, place);
  }
  void RightClickHole(int row) { RightClick(HoleList().CellRect(row, 2).center()); }

  // Clicks the entry of the open pop-up.
  void ChooseRemove() {
    ASSERT_TRUE(Popup().isVisible());
    QAction& entry = Entry("mnuCHPUI(3)");
    QTest::mouseClick(&Popup(), Qt::LeftButton, Qt::NoModifier,
                      Popup().actionGeometry(&entry).center());
    EXPECT_FALSE(Popup().isVisible());
  }

  // The rows marked as current.
  std::vector<int> GreyRows() {
    std::vector<int> rows;
    const QAbstractItemModel& model = *HoleList().model();
    for (int row = 0; row < model.rowCount(); ++row) {
      const auto colour = [&](int column) {
        return qvariant_cast<QBrush>(model.data(model.index(row, column), Qt::BackgroundRole))
                   .color()
                   .rgb() &
               0xFFFFFF;
      };
      const unsigned first = colour(0);
      for (int column = 1; column < model.columnCount(); ++column) {
        EXPECT_EQ(colour(column), first) << row << "," << column;
      }
      EXPECT_TRUE(first == 0xE0E0E0 || first == 0xFFFFFF) << first;
      if (first == 0xE0E0E0) rows.push_back(row + 1);
    }
    return rows;
  }
};

// What it shows.

TEST_F(HoleListTest, The_list_has_its_nine_headings_and_no_row_at_first) {
  EXPECT_EQ(HoleTexts(0), (std::vector<std::string>{"Xpos", "Rel X", "BF", "W1", "W2", "TF", "Dia",
                                                    "Slot", "C"}));
  EXPECT_EQ(HoleList().Rows(), 1);
  EXPECT_EQ(HoleList().Row(), 0);
}

TEST_F(HoleListTest, Its_columns_have_one_alignment_and_their_widths_the_given_ratio) {
  PutCustom({500});
  Show();
  // Wide enough that no figure needs more than its share.
  main->resize(1600, main->height());
  Find<QSplitter>("SSSplitter1").setSizes({900, 700});
  Settle();
  const std::vector<int> ratio = {520, 520, 360, 360, 360, 360, 320, 360, 200};
  const double unit = HoleList().viewport()->width() / 3360.0;
  for (int column = 0; column < 9; ++column) {
    EXPECT_NEAR(HoleList().columnWidth(column), ratio.at(static_cast<std::size_t>(column)) * unit,
                1)
        << column;
    EXPECT_EQ(HoleList().Model().AlignmentOf(column), HoleList().Model().AlignmentOf(0));
  }
}

TEST_F(HoleListTest, No_figure_is_cut_off_in_any_font_however_narrow_the_window) {
  Item& item = PutCustom({11500, 11530});
  item.Holes.At(1).BF = "125";
  item.Holes.At(1).SlotLength = 101.5F;
  Show();
  for (const int points : {9, 10, 14}) {
    SCOPED_TRACE(points);
    QFont font = main->font();
    font.setPointSize(points);
    main->setFont(font);
    main->resize(main->minimumSizeHint());
    Settle();
    for (int row = 1; row <= 2; ++row) {
      for (int column = 0; column < 9; ++column) {
        EXPECT_TRUE(IsWhole(HoleList(), row, column));
        HoleList().EnsureVisible(row, column);
        EXPECT_EQ(Tip(HoleList(), row, column), "");
      }
    }
  }
}

TEST_F(HoleListTest, A_resting_mouse_is_told_a_text_that_its_cell_cuts_off) {
  Item& purlin = Put("Z", "P1", "Z14012", 6000);
  purlin.Notes =
      "Sleeved <both> ends & packed apart, see drawing 4711 of the steelwork, revision C";
  Show();
  main->resize(main->minimumSizeHint());
  Settle();
  EXPECT_TRUE(IsWhole(Sections(), 1, 3));
  EXPECT_EQ(Tip(Sections(), 1, 3), "");
  EXPECT_FALSE(IsWhole(Sections(), 1, 5));
  EXPECT_EQ(Tip(Sections(), 1, 5),
            "<span>Sleeved &lt;both&gt; ends &amp; packed apart, see drawing 4711 of the "
            "steelwork, revision C</span>");
  // The cell's editor lies over it.
  const std::string told = Tip(Sections(), 1, 5);
  ClickCell(Sections(), 1, 5);
  EXPECT_EQ(FromQt(Find("sspEditText").toolTip()), told);
  Retype("Short");
  EXPECT_EQ(FromQt(Find("sspEditText").toolTip()), "");
}

TEST_F(HoleListTest, A_longer_figure_widens_its_column_and_a_shorter_one_gives_the_room_back) {
  Item& item = PutCustom({500});
  Show();
  main->resize(main->minimumSizeHint());
  Settle();
  const int before = HoleList().columnWidth(2);
  item.Holes.At(1).BF = "1234.5678";
  Show();
  EXPECT_TRUE(IsWhole(HoleList(), 1, 2));
  EXPECT_GT(HoleList().columnWidth(2), before);
  item.Holes.At(1).BF = "n";
  Show();
  EXPECT_EQ(HoleList().columnWidth(2), before);
}

TEST_F(HoleListTest, It_shows_custom_holes_alone_in_ascending_order_measured_from_any_hole) {
  Item& item = PutSection("Z", "Butt");
  PutHole(item, 1000, "C");
  PutHole(item, 500, "C");
  Hole& slot = item.Holes.At(1);
  slot.BF = "35";
  slot.Diameter = 14.5F;
  slot.SlotLength = 28;
  slot.CounterSunk = "*";
  Show();
  // Pattern holes stand at 32, 92, 2908 and 2968.
  ASSERT_EQ(Items.At(1).HoleCount(), 6);
  ASSERT_EQ(HoleList().Rows(), 3);
  EXPECT_EQ(HoleTexts(1),
            (std::vector<std::string>{"500", "408", "n", "y", "y", "n", "18", "", ""}));
  EXPECT_EQ(HoleTexts(2),
            (std::vector<std::string>{"1000", "500", "35", "y", "y", "n", "14.5", "28", "*"}));
}

TEST_F(HoleListTest, Gaps_are_those_after_the_rebuild) {
  PutCustom({500, 900});
  Show();
  EXPECT_EQ(HoleTexts(1).at(1), "500");
  EXPECT_EQ(HoleTexts(2).at(1), "400");
}

TEST_F(HoleListTest, It_follows_each_rebuild_of_its_section) {
  PutCustom({500, 900});
  Show(1, 1);
  Items.At(1).Holes.At(1).XPos = 1200;
  ClickCell(Sections(), 1, 5);
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"900", "1200"}));
  EXPECT_EQ(HoleTexts(1).at(1), "900");
  EXPECT_EQ(HoleTexts(2).at(1), "300");
}

TEST_F(HoleListTest, Another_section_shows_its_own_holes_and_none_marked) {
  PutCustom({500, 900});
  PutCustom({100, 200, 300});
  Show(1);
  ClickCell(HoleList(), 2, 0);
  ASSERT_EQ(GreyRows(), std::vector<int>{2});
  ClickCell(Sections(), 2, 1);
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"100", "200", "300"}));
  EXPECT_EQ(HoleList().Row(), 0);
  EXPECT_EQ(GreyRows(), std::vector<int>{});
}

// The mouse.

TEST_F(HoleListTest, A_click_marks_the_row_and_leaves_the_cursor_in_the_section) {
  PutCustom({500, 900, 1300});
  Show();
  const int draws = Sheet().DrawCount();
  ClickCell(HoleList(), 2, 5);
  EXPECT_EQ(HoleList().Row(), 2);
  EXPECT_EQ(GreyRows(), std::vector<int>{2});
  ClickCell(HoleList(), 3, 0);
  EXPECT_EQ(GreyRows(), std::vector<int>{3});
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(Sheet().DrawCount(), draws);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(HoleListTest, The_mark_stays_when_the_section_is_rebuilt) {
  PutCustom({500, 900});
  Show(1, 1);
  ClickCell(HoleList(), 2, 0);
  ClickCell(Sections(), 1, 3);
  EXPECT_EQ(HoleList().Row(), 2);
  EXPECT_EQ(GreyRows(), std::vector<int>{2});
}

TEST_F(HoleListTest, The_right_button_selects_the_hole_under_it_and_opens_the_menu) {
  PutCustom({500, 900});
  Show();
  ClickCell(HoleList(), 1, 0);
  RightClickHole(2);
  EXPECT_TRUE(Popup().isVisible());
  EXPECT_EQ(HoleList().Row(), 2);
  EXPECT_EQ(GreyRows(), std::vector<int>{2});
  Popup().close();
}

TEST_F(HoleListTest, The_right_button_on_an_empty_list_opens_the_menu_and_Remove_does_nothing) {
  PutCustom({});
  Show();
  const int draws = Sheet().DrawCount();
  const std::string before = RecordText(Items.At(1));
  RightClick(HoleList().viewport()->rect().center());
  ChooseRemove();
  EXPECT_EQ(RecordText(Items.At(1)), before);
  EXPECT_EQ(Sheet().DrawCount(), draws);
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(HoleListTest, The_menu_opened_beside_the_holes_removes_none_though_the_list_has_the_focus) {
  PutCustom({500, 900});
  Show();
  HoleList().setFocus(Qt::TabFocusReason);
  ASSERT_EQ(HoleList().Row(), 1);
  const QPoint beside(5, HoleList().CellRect(2, 0).bottom() + 5);
  ASSERT_TRUE(HoleList().viewport()->rect().contains(beside));
  RightClick(beside);
  EXPECT_EQ(HoleList().Row(), 0);
  // The focus comes back to the list before the entry acts.
  ChooseRemove();
  EXPECT_EQ(HoleList().Row(), 0);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{500, 900}));
}

TEST_F(HoleListTest, The_menu_offers_adding_editing_and_removing) {
  EXPECT_EQ(PopupCaptions(),
            (std::vector<std::string>{"Add Holes (Absolute X)", "Add Holes (Relative X)", "Edit",
                                      "Remove"}));
}

// Removing.

TEST_F(HoleListTest, Remove_takes_the_hole_out_of_record_list_and_sheet_and_leaves_the_flag) {
  PutCustom({500, 900, 1300});
  PutCustom({500, 900, 1300});
  Show(2);
  const int draws = Sheet().DrawCount();
  RightClickHole(1);
  ChooseRemove();
  EXPECT_EQ(HolesOf(2), (std::vector<int>{900, 1300}));
  EXPECT_EQ(Items.At(2).CustomHoleCount, 2);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{500, 900, 1300}));
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"900", "1300"}));
  // The gap to the first hole has grown.
  EXPECT_EQ(HoleTexts(1).at(1), "900");
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(HoleListTest, Remove_counts_custom_holes_alone) {
  Item& item = PutCustom({500, 900});
  Show();
  // A hole of another kind among them, as a file may hold it.
  item.Holes.Insert(2, item.Holes.At(1));
  item.Holes.At(2).Kind = "S";
  item.Holes.At(2).XPos = 700;
  RightClickHole(2);
  ChooseRemove();
  EXPECT_EQ(HolesOf(1), (std::vector<int>{500, 700}));
}

TEST_F(HoleListTest, Removing_the_last_row_marks_the_one_that_is_last_now) {
  PutCustom({500, 900});
  Show();
  RightClickHole(2);
  ChooseRemove();
  EXPECT_EQ(HoleList().Row(), 1);
  EXPECT_EQ(GreyRows(), std::vector<int>{1});
  RightClickHole(1);
  ChooseRemove();
  EXPECT_EQ(HolesOf(1), std::vector<int>{});
  EXPECT_EQ(HoleList().Rows(), 1);
  EXPECT_EQ(HoleList().Row(), 0);
  EXPECT_TRUE(Shown("SSpanelCustom"));
}

TEST_F(HoleListTest, Remove_with_no_row_selected_does_nothing) {
  PutCustom({500});
  Show();
  ASSERT_EQ(HoleList().Row(), 0);
  Entry("mnuCHPUI(3)").trigger();
  EXPECT_EQ(HolesOf(1), std::vector<int>{500});
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(HoleListTest, A_hole_that_went_isnt_listed_any_more_though_its_gaps_failed) {
  // Of the holes at 0 and 100 the second goes; then 0 is the only gap that could pay for the other.
  PutCustom({0, 100}).Length = 400;
  Show();
  MinHoleSep = 50;
  dialogs.ExpectBox("Z1: Division by zero");
  RightClickHole(2);
  ChooseRemove();
  Settle();
  EXPECT_EQ(HolesOf(1), std::vector<int>{0});
  EXPECT_EQ(ListedHoles(), std::vector<std::string>{"0"});
}

// The keyboard.

TEST_F(HoleListTest, Tab_reaches_the_list_between_the_panels_other_controls) {
  PutCustom({500, 900});
  Show();
  Pattern().setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "MSFlexGrid2");
  EXPECT_EQ(HoleList().Row(), 1);
  EXPECT_EQ(GreyRows(), std::vector<int>{1});
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "cmdHoles(0)");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "cmdHoles(1)");
  Press(Qt::Key_Backtab);
  Press(Qt::Key_Backtab);
  EXPECT_EQ(Focus(), "MSFlexGrid2");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(HoleListTest, Up_and_Down_move_the_row_and_stop_at_the_ends) {
  PutCustom({500, 900, 1300});
  Show();
  HoleList().setFocus(Qt::TabFocusReason);
  const std::vector<std::pair<Qt::Key, int>> steps = {{Qt::Key_Up, 1},   {Qt::Key_Down, 2},
                                                      {Qt::Key_Down, 3}, {Qt::Key_Down, 3},
                                                      {Qt::Key_Up, 2},   {Qt::Key_Up, 1}};
  for (const auto& [key, row] : steps) {
    Press(key);
    EXPECT_EQ(HoleList().Row(), row);
    EXPECT_EQ(GreyRows(), std::vector<int>{row});
  }
  EXPECT_EQ(Sections().Row(), 1);
  EXPECT_EQ(Focus(), "MSFlexGrid2");
}

TEST_F(HoleListTest, The_keys_of_the_number_pad_act_as_the_others) {
  PutCustom({500, 900, 1300});
  Show();
  HoleList().setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down, Qt::KeypadModifier);
  EXPECT_EQ(HoleList().Row(), 2);
  Press(Qt::Key_Up, Qt::KeypadModifier);
  EXPECT_EQ(HoleList().Row(), 1);
  Press(Qt::Key_Delete, Qt::KeypadModifier);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{900, 1300}));
}

TEST_F(HoleListTest, The_keys_on_an_empty_list_do_nothing) {
  PutCustom({});
  Show();
  HoleList().setFocus(Qt::TabFocusReason);
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Delete}) Press(key);
  EXPECT_EQ(HoleList().Row(), 0);
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(HoleListTest, Delete_removes_the_marked_hole) {
  PutCustom({500, 900, 1300});
  Show();
  HoleList().setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  Press(Qt::Key_Delete);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{500, 1300}));
  EXPECT_EQ(HoleList().Row(), 2);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(HoleListTest, The_menu_opens_by_its_key_and_by_Shift_F10) {
  PutCustom({500, 900});
  Show();
  HoleList().setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  Press(Qt::Key_Menu);
  EXPECT_TRUE(Popup().isVisible());
  ChooseRemove();
  EXPECT_EQ(HolesOf(1), std::vector<int>{500});
  HoleList().setFocus(Qt::TabFocusReason);
  QTest::keyClick(&HoleList(), Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(Popup().isVisible());
  Popup().close();
  // The same wish as the window system puts it.
  const QPoint place(5, 5);
  QContextMenuEvent event(QContextMenuEvent::Keyboard, place,
                          HoleList().viewport()->mapToGlobal(place));
  QCoreApplication::sendEvent(HoleList().viewport(), &event);
  EXPECT_TRUE(Popup().isVisible());
  Popup().close();
}

}  // namespace
}  // namespace orvane::test
