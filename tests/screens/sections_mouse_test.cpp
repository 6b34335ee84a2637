#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>

#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

class SectionsMouse : public SectionsTest {
 protected:
  void PutMixed() {
    Put("Z", "A1", "Z14012", 6000, 1);
    Put("V", "B1", "VCR", 2000, 2);
    Put("R", "C1", "CLR", 2500, 3);
    Put("E", "D1", "E20020", 5000, 4);
  }
  // More rows than the window shows.
  void PutMany() {
    for (int row = 1; row <= 200; ++row) {
      Put("Z", "M" + std::to_string(row), "Z14012", 6000).Notes = "note " + std::to_string(row);
    }
  }
};

TEST_F(SectionsMouse, A_click_moves_the_cursor_to_its_cell) {
  PutMixed();
  Show();
  ClickCell(Sections(), 4, 3);
  EXPECT_TRUE(CursorAt(4, 3, "5000"));
  ClickCell(Sections(), 1, 2);
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
  ClickCell(Sections(), 3, 4);
  EXPECT_TRUE(CursorAt(3, 4, "3"));
  ClickCell(Sections(), 4, 2);
  EXPECT_TRUE(CursorAt(4, 2, "E20020"));
}

TEST_F(SectionsMouse, A_click_on_the_product_of_a_rail_goes_to_its_mark) {
  PutMixed();
  Show(1, 3);
  ClickCell(Sections(), 2, 2);
  EXPECT_TRUE(CursorAt(2, 1, "B1"));
  ClickCell(Sections(), 2, 4);
  ClickCell(Sections(), 2, 2);
  EXPECT_TRUE(CursorAt(2, 1, "B1"));
  ClickCell(Sections(), 3, 2);
  EXPECT_TRUE(CursorAt(3, 1, "C1"));
  ClickCell(Sections(), 3, 2, Qt::MiddleButton);
  EXPECT_TRUE(CursorAt(3, 1, "C1"));
}

TEST_F(SectionsMouse, A_click_on_the_letter_goes_to_the_mark) {
  PutMixed();
  Show();
  ClickCell(Sections(), 3, 0);
  EXPECT_TRUE(CursorAt(3, 1, "C1"));
  Type("X");
  EXPECT_EQ(Items.At(3).SectionType, "R");
  EXPECT_EQ(Items.At(3).Mark, "X");
}

TEST_F(SectionsMouse, Clicks_on_the_heading_and_below_the_rows_do_nothing) {
  PutMixed();
  Show(2, 3);
  auto& heading = *Sections().horizontalHeader();
  const QPoint onProduct(heading.sectionViewportPosition(2) + 5, heading.height() / 2);
  QTest::mouseClick(heading.viewport(), Qt::LeftButton, Qt::NoModifier, onProduct);
  QTest::mouseDClick(heading.viewport(), Qt::LeftButton, Qt::NoModifier, onProduct);
  const QRect last = Sections().CellRect(4, 1);
  QTest::mouseClick(Sections().viewport(), Qt::LeftButton, Qt::NoModifier,
                    last.center() + QPoint(0, 3 * last.height()));
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "2000"));
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(SectionsMouse, A_right_click_on_the_edited_cell_opens_the_section_menu_as_on_other_cells) {
  PutMixed();
  Show();
  const auto rightClick = [](QWidget& control) {
    const QPoint at = control.rect().center();
    QTest::mousePress(&control, Qt::RightButton, Qt::NoModifier, at);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, control.mapToGlobal(at));
    QCoreApplication::sendEvent(&control, &event);
    QTest::mouseRelease(&control, Qt::RightButton, Qt::NoModifier, at);
  };
  const auto other = MenusOpenedBy([this] { RightClickCell(3, 3); });
  ASSERT_EQ(other.size(), 1U);
  EXPECT_TRUE(CursorAt(3, 3, "2500"));
  EXPECT_EQ(MenusOpenedBy([&] { rightClick(Editor()); }), other);
  EXPECT_TRUE(CursorAt(3, 3, "2500"));
  ClickCell(Sections(), 1, 2);
  EXPECT_EQ(MenusOpenedBy([&] { rightClick(ProductBox()); }), other);
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
}

TEST_F(SectionsMouse, A_double_click_keeps_the_cursor_in_the_editor) {
  PutMixed();
  Show();
  QTest::mouseDClick(Sections().viewport(), Qt::LeftButton, Qt::NoModifier,
                     Sections().CellRect(4, 5).center());
  EXPECT_TRUE(CursorAt(4, 5, ""));
}

TEST_F(SectionsMouse, Dragging_over_the_rows_moves_nothing_after_the_press) {
  PutMixed();
  Show();
  QWidget* viewport = Sections().viewport();
  QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, Sections().CellRect(2, 3).center());
  for (const int row : {3, 4}) QTest::mouseMove(viewport, Sections().CellRect(row, 4).center());
  QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, Sections().CellRect(4, 4).center());
  EXPECT_TRUE(CursorAt(2, 3, "2000"));
}

TEST_F(SectionsMouse, The_right_button_selects_the_row_and_opens_the_section_menu) {
  PutMixed();
  Show();
  std::vector<std::string> entries;
  for (const QAction* entry : Find<QMenu>("mnuBar(1)").actions()) {
    if (entry->isVisible()) entries.push_back(FromQt(entry->text()));
  }
  ASSERT_EQ(entries.size(), 21U);
  ASSERT_EQ(entries.back(), "&Delete");
  const auto menus = MenusOpenedBy([this] { RightClickCell(4, 4); });
  ASSERT_EQ(menus.size(), 1U);
  EXPECT_EQ(menus.front(), entries);
  EXPECT_TRUE(CursorAt(4, 4, "4"));

  EXPECT_EQ(MenusOpenedBy([this] { RightClickCell(3, 2); }).size(), 1U);
  EXPECT_EQ(Sections().Row(), 3);
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(SectionsMouse, The_right_button_validates_the_cell_that_is_left_once) {
  PutMixed();
  Show(1, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  MenusOpenedBy([this] {
    RightClickCell(4, 4);
    Settle();
  });
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
}

TEST_F(SectionsMouse, A_menu_over_the_editor_is_no_leaving_of_the_cell) {
  PutMixed();
  Show(1, 3);
  Retype("0");
  MenusOpenedBy([this] { RightClickCell(1, 3); });
  Settle();
  EXPECT_EQ(Sections().Row(), 1);
  EXPECT_EQ(Sections().Col(), 3);
  EXPECT_EQ(FromQt(Editor().text()), "0");
}

TEST_F(SectionsMouse, The_editor_follows_its_cell_when_the_grid_is_scrolled) {
  PutMany();
  Show(3, 5);
  Type("still");
  QScrollBar& bar = *Sections().verticalScrollBar();
  ASSERT_GT(bar.maximum(), 0);
  bar.setValue(bar.value() + bar.singleStep());
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(FromQt(Editor().text()), "still");
  if (Sections().viewport()->rect().intersects(Sections().CellRect(3, 5))) {
    EXPECT_EQ(OnScreen("sspEditText"), CellOnScreen(3, 5));
  }

  bar.setValue(bar.maximum());
  Settle();
  const QRect viewport(Sections().viewport()->mapToGlobal(QPoint(0, 0)),
                       Sections().viewport()->size());
  EXPECT_FALSE(viewport.intersects(OnScreen("sspEditText")));
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(Sections().Row(), 3);
  Type("!");
  EXPECT_EQ(Items.At(3).Notes, "still!");
  EXPECT_EQ(Items.At(200).Notes, "note 200");

  bar.setValue(0);
  Settle();
  EXPECT_TRUE(CursorAt(3, 5, "still!"));
}

TEST_F(SectionsMouse, Scrolling_validates_nothing_and_leaves_the_selected_text_alone) {
  PutMany();
  Show(2, 3);
  Retype("0");
  QScrollBar& bar = *Sections().verticalScrollBar();
  bar.setValue(bar.maximum());
  Settle();
  bar.setValue(0);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
  // The cell is still validated by its own text when it is left.
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Down);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
}

TEST_F(SectionsMouse, A_refusal_out_of_sight_brings_its_cell_back_into_sight) {
  PutMany();
  Show(2, 3);
  Retype("0");
  QScrollBar& bar = *Sections().verticalScrollBar();
  bar.setValue(bar.maximum());
  ExpectRefusal("Invalid length");
  ClickCell(Sections(), 200, 4);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
  EXPECT_TRUE(Sections().viewport()->rect().contains(Sections().CellRect(2, 3).center()));
  ClickCell(Sections(), 3, 4);
  EXPECT_TRUE(CursorAt(3, 4, "1"));
}

TEST_F(SectionsMouse, The_cursor_keys_scroll_the_row_into_sight) {
  PutMany();
  Show(1, 1);
  for (int row = 2; row <= 200; ++row) {
    Press(Qt::Key_Down);
    ASSERT_TRUE(CursorAt(row, 1, "M" + std::to_string(row)));
    ASSERT_TRUE(Sections().viewport()->rect().contains(Sections().CellRect(row, 1))) << row;
  }
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(200, 1, "M200"));
  for (int row = 199; row >= 1; --row) {
    Press(Qt::Key_Up);
    ASSERT_TRUE(CursorAt(row, 1, "M" + std::to_string(row)));
    ASSERT_TRUE(Sections().viewport()->rect().contains(Sections().CellRect(row, 1))) << row;
  }
}

TEST_F(SectionsMouse, A_section_added_below_many_is_in_sight) {
  PutMany();
  Show();
  Add("C");
  EXPECT_TRUE(CursorAt(201, 1, ""));
  EXPECT_TRUE(Sections().viewport()->rect().contains(Sections().CellRect(201, 1)));
}

TEST_F(SectionsMouse, The_editors_follow_when_the_window_is_resized) {
  PutMixed();
  Show(4, 2);
  main->resize(main->width() + 150, main->height() + 60);
  Settle();
  EXPECT_TRUE(CursorAt(4, 2, "E20020"));
  ClickCell(Sections(), 4, 5);
  main->resize(main->width() - 200, main->height());
  Settle();
  EXPECT_TRUE(CursorAt(4, 5, ""));
}

TEST_F(SectionsMouse, Turning_the_wheel_over_the_grid_doesnt_steal_the_focus) {
  PutMany();
  Show(1, 1);
  Find<QListWidget>("lstAccessories").setFocus(Qt::MouseFocusReason);
  Settle();
  Sections().verticalScrollBar()->setValue(20);
  Settle();
  EXPECT_EQ(Focus(), "lstAccessories");
}

TEST_F(SectionsMouse, A_click_beside_the_cell_that_is_typed_keeps_what_Escape_leads_back_to) {
  Put("Z", "B1", "Z14012", 6000);
  Show(1, 1);
  Retype("75");
  ClickCell(Sections(), 1, 0);
  Settle();
  Press(Qt::Key_Escape);
  EXPECT_EQ(Items.At(1).Mark, "B1");
}

}  // namespace
}  // namespace orvane::test
