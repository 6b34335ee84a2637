// The bars between the main window's areas: where they begin, and where they come back.
#include <QScrollBar>
#include <QSplitter>
#include <array>

#include "tests/screens/window_state_fixture.h"

namespace orvane::test {

TEST_F(WindowStateTest, The_grids_side_begins_wide_enough_for_its_columns) {
  EXPECT_GE(Find("SSPanel7").width(), 460 - 1);
  EXPECT_GT(Find("SSPanel4").width(), 0);
}

// The bars between the areas.

TEST_F(WindowStateTest,
       Bars_stand_between_grid_panel_and_accessories_and_come_back_where_they_were_left) {
  auto& areas = Find<QSplitter>("splitLeft");
  ASSERT_EQ(areas.count(), 3);
  main->resize(main->width(), main->minimumSizeHint().height() + 300);
  QCoreApplication::processEvents();
  const int grid = areas.sizes().at(0);
  const int list = areas.sizes().at(2);
  DragBar(areas, 1, {0, -40});
  DragBar(areas, 2, {0, -30});
  const QList<int> sizes = areas.sizes();
  EXPECT_EQ(sizes.at(0), grid - 40);
  EXPECT_EQ(sizes.at(2), list + 30);
  DragBar(Find<QSplitter>("SSSplitter1"), 1, {35, 0});
  const int left = Find("SSPanel7").width();
  // Twice: a start in which nobody touches them keeps them too.
  for (int start = 0; start < 2; ++start) {
    main->close();
    Restart();
    QCoreApplication::processEvents();
    EXPECT_EQ(Find("SSPanel7").width(), left);
    auto& again = Find<QSplitter>("splitLeft");
    for (int area = 0; area < 3; ++area) {
      EXPECT_NEAR(again.sizes().at(area), sizes.at(area), 2) << area;
    }
  }
}

TEST_F(WindowStateTest, The_areas_keep_their_shares_in_a_window_of_another_height) {
  auto& areas = Find<QSplitter>("splitLeft");
  const int least = main->minimumSizeHint().height();
  main->resize(main->width(), least + 100);
  QCoreApplication::processEvents();
  DragBar(areas, 2, {0, -50});
  const auto sum = [&] { return areas.sizes().at(0) + areas.sizes().at(1) + areas.sizes().at(2); };
  const double share = areas.sizes().at(2) / static_cast<double>(sum());
  main->resize(main->width(), least + 250);
  QCoreApplication::processEvents();
  EXPECT_NEAR(areas.sizes().at(2), share * sum(), 2);
}

TEST_F(WindowStateTest, A_bar_of_a_maximized_drawing_is_stored_where_it_will_stand_again) {
  DragBar(Find<QSplitter>("SSSplitter1"), 1, {35, 0});
  const int left = Find("SSPanel7").width();
  Click("SSCommand1(12)");
  ASSERT_EQ(Find("SSPanel7").width(), 0);
  main->close();
  Restart();
  EXPECT_EQ(Find("SSPanel7").width(), left);
}

TEST_F(WindowStateTest, Places_of_bars_that_nobody_can_use_leave_every_area_in_sight) {
  const std::vector<std::array<const char*, 3>> stored = {
      {"30000", "999", "1"}, {"-5", "-5", "2000"}, {"1", "1", "1"}, {"far", "1e999", ""}};
  for (const auto& [pane, grid, panel] : stored) {
    SCOPED_TRACE(pane);
    StoreBar("GridPane", pane);
    StoreBar("GridShare", grid);
    StoreBar("PanelShare", panel);
    if (std::string(grid) == "1e999") {
      dialogs.ExpectBox("Overflow in the settings\nBars, GridShare: 1e999 becomes 0");
    }
    Restart();
    for (const char* area : {"MSFlexGrid1", "DetailPanel", "lstAccessories", "VSPrinter1"}) {
      EXPECT_GE(Find(area).width(), 50) << area;
      EXPECT_GE(Find(area).height(), 20) << area;
      EXPECT_TRUE(main->rect().contains(
          QRect(Find(area).mapTo(main.get(), QPoint(0, 0)), Find(area).size())))
          << area;
    }
  }
}

TEST_F(WindowStateTest, A_bar_that_nobody_has_moved_is_not_stored) {
  main->close();
  for (const char* name : {"GridPane", "GridShare", "PanelShare"}) {
    EXPECT_EQ(platform.Settings().Query(TheSettingsRoot, SettingsKey + "\\Settings\\Bars", name),
              std::nullopt)
        << name;
  }
}

TEST_F(WindowStateTest, Free_height_goes_to_the_hole_list_too) {
  AddSectionRow("Z");
  Items.At(1).PatternName = "Custom";
  main->DisplayItems();
  main->SelectFirstItem();
  Settle();
  ASSERT_TRUE(Find("MSFlexGrid2").isVisible());
  const int least = main->minimumSizeHint().height();
  main->resize(main->width(), least + 100);
  QCoreApplication::processEvents();
  const int before = Find("MSFlexGrid2").height();
  const int grid = Find("MSFlexGrid1").height();
  main->resize(main->width(), least + 300);
  QCoreApplication::processEvents();
  EXPECT_GE(Find("MSFlexGrid2").height(), before + 30);
  EXPECT_GT(Find("MSFlexGrid1").height(), grid);
}

TEST_F(WindowStateTest, The_first_width_of_the_grids_side_shows_the_hole_list_whole_in_any_font) {
  const QFont former = QApplication::font();
  for (const int points : {9, 10, 14}) {
    SCOPED_TRACE(points);
    QFont font = former;
    font.setPointSize(points);
    QApplication::setFont(font);
    // Neither normal nor maximized: the window loads at the size that it has, on no screen's
    // account.
    StoreScreenSetting("State", "3");
    main.reset();
    main = std::make_unique<FrmMain>(*details);
    main->resize(1600, 900);
    main->Load();
    main->show();
    AddSectionRow("Z");
    Items.At(1).PatternName = "Custom";
    main->DisplayItems();
    main->SelectFirstItem();
    Settle();
    auto& holes = Find<FlexGrid>("MSFlexGrid2");
    ASSERT_TRUE(holes.isVisible());
    EXPECT_EQ(holes.horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(Find("SSPanel4").width(), main->width() / 3);
  }
  QApplication::setFont(former);
}

}  // namespace orvane::test
