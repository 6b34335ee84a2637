// The roads of the keyboard between the sections grid and what stands around it.
#include <QComboBox>
#include <QImage>
#include <QListWidget>
#include <array>

#include "project/lifecycle.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {

namespace {

class KeyboardRoads : public SectionsTest {};

TEST_F(KeyboardRoads, From_the_product_to_the_pattern_and_back_by_Tab_leaves_the_flag) {
  Put("Z", "A1", "Z14012", 6000);
  Show(1, 2);
  ASSERT_TRUE(CursorAt(1, 2, "Z14012"));
  ProjectDirty = False;
  Press(Qt::Key_N, Qt::AltModifier);
  Settle();
  ASSERT_EQ(Focus(), "cboPattern");
  for (int tabs = 0; tabs < 12 && Focus() != "cboEdit"; ++tabs) {
    Press(Qt::Key_Tab);
    ASSERT_NE(Focus(), "lstAccessories");
  }
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
  EXPECT_EQ(ProjectDirty, False);

  Press(Qt::Key_N, Qt::AltModifier);
  Settle();
  for (int tabs = 0; tabs < 12 && Focus() != "cboEdit"; ++tabs) {
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_NE(Focus(), "lstAccessories");
  }
  EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(KeyboardRoads, After_an_opening_that_failed_keys_lead_into_the_grid) {
  for (const Qt::Key key :
       {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2, Qt::Key_Tab}) {
    Items.Clear();
    Put("Z", "A1", "Z14012", 6000);
    Put("V", "B1", "VCR", 2000);
    Show();
    ProjectDirty = False;
    dialogs.ExpectBox("Input past end of file");
    OpenFile(TempFile("empty.ovd", ""));
    Settle();
    ASSERT_EQ(Sections().Row(), 0);
    ASSERT_TRUE(NoEditor());
    Press(key);
    EXPECT_TRUE(CursorAt(1, 1, "A1"));
    EXPECT_EQ(ProjectDirty, False);
  }
}

TEST_F(KeyboardRoads, The_accessories_are_reached_by_the_key_of_their_label) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  ProjectDirty = False;
  Press(Qt::Key_C, Qt::AltModifier);
  Settle();
  EXPECT_EQ(Focus(), "lstAccessories");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(KeyboardRoads, On_the_closed_product_list_no_key_but_letters_chooses) {
  Put("Z", "A1", "Z16514", 6000);
  Put("Z", "A2", "Z16514", 6000);
  for (const Qt::KeyboardModifier with : {Qt::AltModifier, Qt::ControlModifier}) {
    for (const Qt::Key key :
         {Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Down}) {
      if (key == Qt::Key_Down && with == Qt::AltModifier) continue;  // opens the list
      if (with == Qt::ControlModifier && (key == Qt::Key_Home || key == Qt::Key_End)) continue;
      Show(1, 2);
      ProjectDirty = False;
      Press(key, with);
      EXPECT_TRUE(CursorAt(1, 2, "Z16514")) << key << " with " << with;
      EXPECT_EQ(Items.At(1).Product, "Z16514");
      EXPECT_EQ(ProjectDirty, False);
    }
  }
}

TEST_F(KeyboardRoads, Ctrl_with_Home_and_End_goes_to_the_first_and_the_last_row_from_each_editor) {
  for (int row = 1; row <= 40; ++row) Put("Z", "M" + std::to_string(row), "Z14012", 6000, 7);
  Show();
  const std::vector<std::pair<int, std::string>> cells = {
      {2, "Z14012"}, {3, "6000"}, {4, "7"}, {5, ""}};
  for (const auto& [column, text] : cells) {
    ClickCell(Sections(), 2, column);
    Settle();
    Press(Qt::Key_End, Qt::ControlModifier);
    Settle();
    EXPECT_TRUE(CursorAt(40, column, text));
    Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_TRUE(CursorAt(40, column, text));
    Press(Qt::Key_Home, Qt::ControlModifier);
    Settle();
    EXPECT_TRUE(CursorAt(1, column, text));
  }
  // The cell is left by it as by an arrow.
  ClickCell(Sections(), 1, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  Press(Qt::Key_End, Qt::ControlModifier);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
}

TEST_F(KeyboardRoads, Alt_with_a_letter_that_nobody_uses_types_nothing_and_AltGr_types) {
  Put("Z", "A1", "Z14012", 6000);
  Put("R", "B1", "CLR", 3000).JointingPieces = 4;
  Show(1, 1);
  // The mark is selected: a letter would take its place.
  Press(Qt::Key_Z, Qt::AltModifier);
  Press(Qt::Key_Z, Qt::AltModifier | Qt::ShiftModifier);
  Press(Qt::Key_7, Qt::AltModifier);
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
  ClickCell(Sections(), 1, 3);
  Press(Qt::Key_7, Qt::AltModifier);
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  ClickCell(Sections(), 2, 1);
  Click("txtJointing");
  Press(Qt::Key_7, Qt::AltModifier);
  EXPECT_EQ(FromQt(Find<QLineEdit>("txtJointing").text()), "4");
  EXPECT_EQ(Items.At(2).JointingPieces, 4);

  ClickCell(Sections(), 1, 1);
  QTest::keyClick(&Editor(), '@', Qt::ControlModifier | Qt::AltModifier);
  QTest::keyClick(&Editor(), Qt::Key_B, Qt::GroupSwitchModifier);
  EXPECT_TRUE(CursorAt(1, 1, "@b"));
}

TEST_F(KeyboardRoads, F6_goes_round_grid_panel_hole_list_and_sheet) {
  Put("Z", "A1", "Z14012", 6000).PatternName = "Custom";
  PutHole(Items.At(1), 500, "C");
  Show(1, 3);
  ProjectDirty = False;
  const std::vector<std::string> round = {"cboPattern", "MSFlexGrid2", "VSPrinter1", "txtEdit"};
  for (int turn = 0; turn < 2; ++turn) {
    for (const std::string& stop : round) {
      Press(Qt::Key_F6);
      Settle();
      EXPECT_EQ(Focus(), stop);
    }
  }
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  for (const char* stop : {"VSPrinter1", "MSFlexGrid2", "cboPattern", "txtEdit"}) {
    Press(Qt::Key_F6, Qt::ShiftModifier);
    Settle();
    EXPECT_EQ(Focus(), stop);
  }
  EXPECT_EQ(ProjectDirty, False);
  // Whoever comes by it to the holes sees where he is.
  Press(Qt::Key_F6);
  Press(Qt::Key_F6);
  EXPECT_EQ(Find<FlexGrid>("MSFlexGrid2").Model().GreyRow(), 1);
}

TEST_F(KeyboardRoads, F6_passes_by_what_shows_nothing_and_comes_back_from_the_accessories) {
  // The page of first things to do stands in the sheet's place.
  Press(Qt::Key_F6);
  EXPECT_EQ(Focus(), "cmdStartNew");
  Press(Qt::Key_F6);
  EXPECT_EQ(Focus(), "cmdStartNew");
  Put("Z", "A1", "Z14012", 6000).PatternName = "Butt Single Holes";
  Show();
  for (const char* stop : {"cboPattern", "VSPrinter1", "txtEdit"}) {
    Press(Qt::Key_F6);
    Settle();
    EXPECT_EQ(Focus(), stop);
  }
  for (const auto& [held, stop] : {std::pair(Qt::NoModifier, std::string("txtEdit")),
                                   std::pair(Qt::ShiftModifier, std::string("VSPrinter1"))}) {
    Press(Qt::Key_C, Qt::AltModifier);
    Settle();
    ASSERT_EQ(Focus(), "lstAccessories");
    Press(Qt::Key_F6, held);
    Settle();
    EXPECT_EQ(Focus(), stop);
  }
}

TEST_F(KeyboardRoads,
       F6_leaves_a_cell_as_Tab_does_and_brings_the_grid_back_beside_a_large_drawing) {
  Put("Z", "A1", "Z14012", 6000);
  Show(1, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  Press(Qt::Key_F6);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
  Retype("5000");
  main->Run(Command::ToggleDrawing);
  Settle();
  ASSERT_EQ(Find("SSPanel7").width(), 0);
  Press(Qt::Key_F6);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "5000"));
  EXPECT_GT(Find("SSPanel7").width(), 0);
}

TEST_F(KeyboardRoads, The_product_list_shows_that_it_has_the_focus) {
  Put("Z", "A1", "Z14012", 6000);
  Show(1, 2);
  const auto frame = [this] {
    const QImage seen = Find("sspEditCombo").grab().toImage();
    return std::array{
        seen.pixelColor(0, seen.height() / 2), seen.pixelColor(seen.width() - 1, seen.height() / 2),
        seen.pixelColor(seen.width() / 2, 0), seen.pixelColor(seen.width() / 2, seen.height() - 1)};
  };
  const QColor focused = Find("sspEditCombo").palette().color(QPalette::Highlight);
  for (const QColor& side : frame()) EXPECT_EQ(side, focused);
  ProductBox().clearFocus();
  for (const QColor& side : frame()) EXPECT_EQ(side, QColor(Qt::gray));
}

TEST_F(KeyboardRoads, A_letter_and_a_blank_search_on_in_the_pattern_list) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  Press(Qt::Key_N, Qt::AltModifier);
  Settle();
  Type("Butt 1 Sag Bar P");
  Press(Qt::Key_Return);
  EXPECT_EQ(FromQt(Find<QComboBox>("cboPattern").currentText()), "Butt 1 Sag Bar Pair");
  EXPECT_EQ(Items.At(1).PatternName, "Butt 1 Sag Bar Pair");
}

}  // namespace

}  // namespace orvane::test
