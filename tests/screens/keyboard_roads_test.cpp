// The roads of the keyboard between the sections grid and what stands around it.
#include <QComboBox>
#include <QListWidget>

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
      Show(1, 2);
      ProjectDirty = False;
      Press(key, with);
      EXPECT_TRUE(CursorAt(1, 2, "Z16514")) << key << " with " << with;
      EXPECT_EQ(Items.At(1).Product, "Z16514");
      EXPECT_EQ(ProjectDirty, False);
    }
  }
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
