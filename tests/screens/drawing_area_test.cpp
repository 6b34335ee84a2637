// Giving the drawing the whole width, and taking it back.
#include <QLineEdit>
#include <QSplitter>

#include "tests/screens/screen_fixture.h"

namespace orvane::test {

namespace {

class DrawingAreaTest : public ScreenTest {
 protected:
  void Toggle() {
    Click("SSCommand1(12)");
    QCoreApplication::processEvents();
  }
  QSize Drawing() { return Find("SSPanel4").size(); }
  QSize Whole() { return Find("SSPanel2").size(); }
  bool IsMaximized() { return Drawing() == Whole(); }
};

}  // namespace

TEST_F(DrawingAreaTest, The_first_press_gives_all_of_SSPanel2_and_the_second_gives_it_back) {
  const QSize before = Drawing();
  const QSize grid = Find("SSPanel7").size();
  ASSERT_LT(before.width(), Whole().width());
  for (int i = 0; i < 3; ++i) {
    Toggle();
    EXPECT_EQ(Drawing(), Whole());
    Toggle();
    EXPECT_EQ(Drawing(), before);
    EXPECT_EQ(Find("SSPanel7").size(), grid);
  }
}

TEST_F(DrawingAreaTest, A_size_that_the_user_chose_comes_back) {
  auto& splitter = Find<QSplitter>("SSSplitter1");
  const int left = splitter.sizes().at(0);
  splitter.setSizes({left + 40, splitter.sizes().at(1) - 40});
  const QSize chosen = Drawing();
  ASSERT_EQ(splitter.sizes().at(0), left + 40);
  Toggle();
  Toggle();
  EXPECT_EQ(Drawing(), chosen);
}

TEST_F(DrawingAreaTest, The_key_of_the_button_does_the_same) {
  QTest::keyClick(main.get(), Qt::Key_D, Qt::AltModifier);
  QCoreApplication::processEvents();
  EXPECT_TRUE(QTest::qWaitFor([this] { return IsMaximized(); }));
}

TEST_F(DrawingAreaTest, Neither_toolbar_nor_file_panel_moves) {
  const QRect toolbar = Find("SSPanelToolbar").geometry();
  const QRect file = Find("SSPanelFile").geometry();
  Toggle();
  EXPECT_EQ(Find("SSPanelToolbar").geometry(), toolbar);
  EXPECT_EQ(Find("SSPanelFile").geometry(), file);
  Toggle();
  EXPECT_EQ(Find("SSPanelToolbar").geometry(), toolbar);
}

TEST_F(DrawingAreaTest, The_cursor_waits_outside_and_comes_back_to_its_cell) {
  Click("SSCommand1(6)");
  Type("P1");
  Press(Qt::Key_Tab);
  Press(Qt::Key_Tab);
  Type("6000");
  Toggle();
  EXPECT_EQ(QApplication::focusWidget(), main->centralWidget());
  EXPECT_FALSE(Find("sspEditText").isVisible());
  Type("9");  // goes nowhere
  EXPECT_EQ(Items.At(1).Length, 6000);
  Toggle();
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(FromQt(Find<QLineEdit>("txtEdit").text()), "6000");
  EXPECT_EQ(Sections().Row(), 1);
  EXPECT_EQ(Sections().Col(), 3);
  Press(Qt::Key_Tab);
  Type("4");
  EXPECT_EQ(Items.At(1).Quantity, 4);
}

TEST_F(DrawingAreaTest, Another_control_gets_its_focus_back) {
  Click("SSCommand1(6)");
  Find("cboPattern").setFocus();
  ASSERT_EQ(Focus(), "cboPattern");
  Toggle();
  EXPECT_EQ(QApplication::focusWidget(), main->centralWidget());
  Toggle();
  EXPECT_EQ(Focus(), "cboPattern");
}

TEST_F(DrawingAreaTest, Without_a_cursor_nothing_gets_the_focus) {
  Toggle();
  EXPECT_EQ(QApplication::focusWidget(), main->centralWidget());
  Toggle();
  EXPECT_EQ(QApplication::focusWidget(), main->centralWidget());
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DrawingAreaTest, A_refused_cell_keeps_the_grid_in_sight) {
  Click("SSCommand1(6)");
  Press(Qt::Key_Tab);
  Press(Qt::Key_Tab);  // the length, which is 0
  ASSERT_EQ(Sections().Col(), 3);
  const QSize before = Drawing();
  dialogs.ExpectDialog("MessageBox", [&](QWidget& box) {
    EXPECT_EQ(FromQt(dynamic_cast<QMessageBox&>(box).text()), "Invalid length");
    EXPECT_EQ(Drawing(), before);  // not even for the time of the box
    QTest::keyClick(&box, Qt::Key_Return);
  });
  Toggle();
  Settle();
  EXPECT_EQ(Drawing(), before);
  EXPECT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(Sections().Col(), 3);
}

TEST_F(DrawingAreaTest, A_command_that_puts_the_cursor_into_the_grid_brings_the_grid_back) {
  const QSize before = Drawing();
  Toggle();
  ASSERT_TRUE(IsMaximized());
  Click("SSCommand1(8)");
  QCoreApplication::processEvents();
  EXPECT_EQ(Drawing(), before);
  EXPECT_EQ(Focus(), "txtEdit");
  Type("C1");
  EXPECT_EQ(Items.At(1).Mark, "C1");
  EXPECT_TRUE(Sections().viewport()->rect().contains(Find("sspEditText").geometry().center()));
  // The next press is a first press again.
  Press(Qt::Key_Down);
  Toggle();
  EXPECT_TRUE(IsMaximized());
}

TEST_F(DrawingAreaTest, A_Tab_out_of_the_maximized_drawing_never_types_blindly) {
  Click("SSCommand1(6)");
  Type("P1");
  Toggle();
  ASSERT_TRUE(IsMaximized());
  Press(Qt::Key_Tab);
  QCoreApplication::processEvents();
  const QWidget* focus = QApplication::focusWidget();
  ASSERT_NE(focus, nullptr);
  EXPECT_EQ(IsMaximized(), !Find("SSPanel7").isAncestorOf(focus)) << Focus();
}

TEST_F(DrawingAreaTest, A_window_resized_meanwhile_gives_the_drawing_its_remembered_width) {
  const int before = Drawing().width();
  Toggle();
  main->resize(main->width() - 10, main->height() - 20);
  QCoreApplication::processEvents();
  EXPECT_TRUE(IsMaximized());
  Toggle();
  EXPECT_EQ(Drawing().width(), before);
}

}  // namespace orvane::test
