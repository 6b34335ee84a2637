#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

// What sets the flag of a changed project, and what leaves it.
class ChangedFlag : public SectionsTest {
 protected:
  void PutMixed() {
    Item& purlin = Put("Z", "B1", "Z14012", 6000, 2);
    purlin.PatternName = "Butt 1 Sag Bar";
    purlin.SagBarDia = 14;
    Item& eaves = Put("E", "A1", "E20020", 5000, 2);
    eaves.Pitch = "10";
    Put("R", "C1", "CLR", 3000, 2);
    Item& custom = Put("Z", "D1", "Z14012", 6000, 2);
    custom.PatternName = "Custom";
    PutHole(custom, 700, "C");
  }
};

TEST_F(ChangedFlag, Typing_into_each_column_and_choosing_a_product_set_it) {
  PutMixed();
  for (const int column : {1, 3, 4, 5}) {
    Show(1, column);
    Type("1");
    EXPECT_EQ(ProjectDirty, True) << column;
  }
  Show(1, 2);
  Choose("cboEdit", "Z19014");
  Settle();
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ChangedFlag, A_chosen_pattern_sets_it) {
  PutMixed();
  Show();
  Choose("cboPattern", "Butt");
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ChangedFlag, Converting_to_custom_sets_it) {
  PutMixed();
  Show();
  Section(12);
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ChangedFlag, Pitch_sag_bars_and_jointing_pieces_leave_it) {
  PutMixed();
  Show();
  ASSERT_TRUE(Shown("fraSagBars"));
  QTest::mouseClick(&Find("optSagBars(0)"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
  Settle();
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(ProjectDirty, False);
  ClickCell(Sections(), 2, 1);
  Choose("cboPitch", "15");
  Settle();
  EXPECT_EQ(Items.At(2).Pitch, "15");
  EXPECT_EQ(ProjectDirty, False);
  ClickCell(Sections(), 3, 1);
  Find<QLineEdit>("txtJointing").setFocus(Qt::MouseFocusReason);
  Type("4");
  Settle();
  EXPECT_EQ(Items.At(3).JointingPieces, 4);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ChangedFlag, A_click_into_the_accessory_list_sets_it) {
  PutMixed();
  Show();
  auto& list = Find<QListWidget>("lstAccessories");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                    list.visualItemRect(list.item(1)).center());
  Settle();
  EXPECT_EQ(Focus(), "lstAccessories");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ChangedFlag, Adding_and_duplicating_set_it) {
  PutMixed();
  Show();
  Add("T");
  EXPECT_EQ(ProjectDirty, True);
  ProjectDirty = False;
  ClickCell(Sections(), 1, 4);
  Section(DuplicateEntry);
  Settle();
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ChangedFlag, Deleting_and_sorting_set_it_only_by_the_texts_of_the_grid) {
  PutMixed();
  Show();
  dialogs.ExpectBox("Remove mark B1?", "", QMessageBox::No);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  // By product: CLR, E20020, Z14012 twice.
  Section(SortByProductEntry);
  Settle();
  EXPECT_EQ(ProjectDirty, True);
  ProjectDirty = False;
  Section(SortByProductEntry);
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  dialogs.ExpectBox("Remove mark C1?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ChangedFlag, A_sort_that_exchanges_rows_of_equal_texts_leaves_it) {
  // What the grid doesn't show makes them differ.
  Put("Z", "", "Z14012", 5000).SagBarDia = 14;
  Put("Z", "", "Z14012", 5000).SagBarDia = 18;
  Show();
  for (const int entry : {SortByMarkEntry, SortByProductEntry, SortByLengthEntry}) Section(entry);
  Settle();
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ChangedFlag, Removing_a_custom_hole_leaves_it) {
  PutMixed();
  Show(4, 1);
  auto& holes = Find<FlexGrid>("MSFlexGrid2");
  ASSERT_EQ(holes.Rows(), 2);
  ClickCell(holes, 1, 0);
  Entry("mnuCHPUI(3)").trigger();
  Settle();
  EXPECT_EQ(Items.At(4).HoleCount(), 0);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ChangedFlag, The_details_leave_it) {
  PutMixed();
  Show();
  dialogs.ExpectDialog("frmProjectDetails", [](QWidget& dialog) {
    QTest::keyClicks(&Find<QLineEdit>(dialog, "txtProject(1)"), "J9");
    dialog.close();
  });
  Click("SSCommand1(3)");
  Settle();
  EXPECT_EQ(txtProject.at(1), "J9");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ChangedFlag, Coming_back_from_boxes_and_dialogs_leaves_it) {
  PutMixed();
  Show(1, 1);
  for (const std::string entry : {"mnuHelp(1)", "mnuProject(7)"}) {
    const std::string dialog = entry == "mnuHelp(1)" ? "frmAbout" : "frmMaxDims";
    dialogs.ExpectDialog(dialog, [](QWidget& window) { window.close(); });
    Entry(entry).trigger();
    Settle();
    BackToMain();
    EXPECT_TRUE(CursorAt(1, 1, "B1"));
  }
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ChangedFlag, Saving_clears_it_and_opening_and_New_set_it) {
  PutMixed();
  Show();
  ProjectDirty = True;
  const std::string path = TempPath("job.ovd");
  platform.Chosen.push_back(path);
  Click("SSCommand1(4)");
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  platform.Chosen.push_back(path);
  Click("SSCommand1(2)");
  Settle();
  EXPECT_EQ(ProjectDirty, True);
  ProjectDirty = False;
  ExpectDetails();
  Click("SSCommand1(1)");
  Settle();
  EXPECT_EQ(ProjectDirty, True);
}

// The title counts for itself: "*" while the file lacks something.

class ChangedTitle : public ChangedFlag {
 protected:
  void ExpectTitle(const std::string& name) {
    EXPECT_EQ(FromQt(main->windowTitle()), name + " - Orvane Detailing System");
  }
  void Save(const std::string& name) {
    if (ProjectFileName.empty()) platform.Chosen.push_back(TempPath(name));
    Press(Qt::Key_S, Qt::ControlModifier);
    Settle();
  }
};

TEST_F(ChangedTitle, It_begins_with_Untitled_and_then_with_the_files_name) {
  ExpectTitle("Untitled");
  Add("Z");
  ExpectTitle("Untitled*");
  Type("P1");
  Save("shed.ovd");
  ExpectTitle("shed.ovd");
  Type("2");
  ExpectTitle("shed.ovd*");
  platform.Chosen.push_back(TempPath("barn.ovd"));
  Entry("mnuProject(3)").trigger();  // "Save As"
  Settle();
  ExpectTitle("barn.ovd");
}

TEST_F(ChangedTitle, Changes_that_leave_the_flag_alone_show) {
  PutMixed();
  Show();
  Save("job.ovd");
  ExpectTitle("job.ovd");
  QTest::mouseClick(&Find("optSagBars(0)"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  ExpectTitle("job.ovd*");
  Save("job.ovd");
  ExpectTitle("job.ovd");
  dialogs.ExpectDialog("frmProjectDetails", [this](QWidget& dialog) {
    Type("4711");
    dialog.close();
  });
  Entry("mnuProject(5)").trigger();
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  ExpectTitle("job.ovd*");
  BackToMain();
  Save("job.ovd");
  ExpectTitle("job.ovd");
}

TEST_F(ChangedTitle, Looking_and_what_only_sets_the_flag_shows_nothing) {
  PutMixed();
  Show();
  Save("job.ovd");
  for (int row = 2; row <= 4; ++row) ClickCell(Sections(), row, 3);
  auto& list = Find<QListWidget>("lstAccessories");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                    list.visualItemRect(list.item(1)).center());
  Settle();
  EXPECT_EQ(ProjectDirty, True);
  ExpectTitle("job.ovd");
  dialogs.ExpectDialog("frmMaxDims", [](QWidget& dialog) { dialog.close(); });
  Entry("mnuProject(7)").trigger();
  Settle();
  ExpectTitle("job.ovd");
}

TEST_F(ChangedTitle, A_sort_shows_when_it_changed_something) {
  Put("Z", "A1", "Z14012", 6000);
  Put("Z", "B1", "Z14012", 6000);
  Show();
  Save("job.ovd");
  Section(SortByMarkEntry);
  Settle();
  ExpectTitle("job.ovd");
  Items.At(1).Mark = "C1";
  Section(SortByMarkEntry);
  Settle();
  ExpectTitle("job.ovd*");
}

TEST_F(ChangedTitle, Opening_shows_no_change_though_the_flag_is_set_and_New_has_no_name) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  Save("job.ovd");
  Type("x");
  ExpectTitle("job.ovd*");
  Entry("mnuProject(9)").trigger();  // opened again without a question
  Settle();
  EXPECT_EQ(ProjectDirty, True);
  ExpectTitle("job.ovd");
  ProjectDirty = False;
  ExpectDetails([this] { ExpectTitle("Untitled"); });
  Click("SSCommand1(1)");
  Settle();
  ExpectTitle("Untitled");
}

TEST_F(ChangedTitle, A_save_that_was_cancelled_leaves_the_change) {
  Add("Z");
  platform.Chosen.push_back(std::nullopt);
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  ExpectTitle("Untitled*");
}

}  // namespace
}  // namespace orvane::test
