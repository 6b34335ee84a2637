#include <QLabel>

#include "project/project_file.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

// New and Save, from the toolbar and the menu.
class LifecycleScreen : public SectionsTest {
 protected:
  std::string FileLabel() { return FromQt(Find<QLabel>("lblFilename(1)").text()); }
  void ExpectSaveQuestion(QMessageBox::StandardButton answer) {
    dialogs.ExpectBox("Save changes to current project?", "New Project", answer);
  }
  void ExpectEmptyProject() {
    EXPECT_EQ(Items.UBound(), 0);
    EXPECT_EQ(Sections().Rows(), 1);
    EXPECT_EQ(Sections().Row(), 0);
    EXPECT_EQ(Sections().Model().GreyRow(), 0);
    EXPECT_EQ(Find<FlexGrid>("MSFlexGrid2").Rows(), 1);
    EXPECT_EQ(CurrentItem, 0);
    EXPECT_EQ(ProjectFileName, "");
    EXPECT_EQ(FileLabel(), "None");
    EXPECT_TRUE(NoEditor());
    EXPECT_EQ(Patterns().currentIndex(), -1);
    EXPECT_EQ(Find<QComboBox>("cboPitch").currentIndex(), -1);
    EXPECT_EQ(FromQt(Find<QLineEdit>("txtJointing").text()), "");
    EXPECT_EQ(Sheet().ShownRow(), 0);
    EXPECT_EQ(AccLines1.UBound(), 0);
    EXPECT_EQ(AccLines2.UBound(), 0);
    for (int n = 0; n < 5; ++n) {
      EXPECT_EQ(FromQt(Find<QLineEdit>("txtProject(" + std::to_string(n) + ")").text()), "");
    }
    for (const Boolean used : AccUsed) EXPECT_EQ(used, False);
  }
  // A job with a bit of everything, its second row being edited.
  void PutJob() {
    Item& item = Put("E", "E1", "E20020", 5000);
    item.Pitch = "10";
    item.PatternName = "Custom";
    PutHole(item, 700, "C");
    Put("R", "R1", "CLR", 3000).JointingPieces = 2;
    txtProject = {"77", "J1", "Customer", "Site", "Me"};
    AccLines1.Append({4, 1, 2, 0});
    AccUsed.At(4) = True;
    main->RefreshProjectDetails();
    main->SetAccUsage();
    Show(1, 3);
  }
};

TEST_F(LifecycleScreen, The_window_starts_with_a_clean_empty_project_and_no_file_name) {
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(FileLabel(), "");
  EXPECT_EQ(DTPicker1, (Date{2024, 3, 5}));
}

TEST_F(LifecycleScreen, New_after_the_start_asks_nothing_and_ends_dirty) {
  ExpectDetails([] { EXPECT_EQ(ProjectDirty, False) << "it becomes dirty behind the details"; });
  Click("SSCommand1(1)");
  Settle();
  EXPECT_TRUE(dialogs.Boxes().empty());
  ExpectEmptyProject();
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(LifecycleScreen, New_empties_everything_before_it_shows_the_details) {
  PutJob();
  DTPicker1 = {2019, 8, 7};
  ExpectDetails([this] { ExpectEmptyProject(); });
  Entry("mnuProject(0)").trigger();
  Settle();
  ExpectEmptyProject();
  EXPECT_EQ(DTPicker1, (Date{2024, 3, 5}));
  EXPECT_EQ(ProjectDirty, True);
  const auto& list = Find<QListWidget>("lstAccessories");
  const QString name = list.item(3)->text();
  main->ClearAccUsage();
  EXPECT_EQ(list.item(3)->text(), name) << "the mark of an accessory in use was left";
}

TEST_F(LifecycleScreen, New_of_a_dirty_project_asks_and_Cancel_leaves_all_as_it_is) {
  PutJob();
  Type("4900");
  ASSERT_EQ(ProjectDirty, True);
  const std::string before = ProjectText();
  ExpectSaveQuestion(QMessageBox::Cancel);
  Click("SSCommand1(1)");
  Settle();
  EXPECT_EQ(ProjectText(), before);
  EXPECT_TRUE(CursorAt(1, 3, "4900"));
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(LifecycleScreen, New_with_No_throws_the_project_away) {
  PutJob();
  ProjectDirty = True;
  ExpectSaveQuestion(QMessageBox::No);
  ExpectDetails();
  Click("SSCommand1(1)");
  Settle();
  ExpectEmptyProject();
  EXPECT_TRUE(std::filesystem::is_empty(platform.DataFolder));
}

TEST_F(LifecycleScreen, New_with_Yes_saves_first) {
  PutJob();
  ProjectDirty = True;
  const std::string text = ProjectText();
  const std::string path = TempPath("job.ovd");
  platform.Chosen.push_back(path);
  ExpectSaveQuestion(QMessageBox::Yes);
  ExpectDetails();
  Click("SSCommand1(1)");
  Settle();
  EXPECT_EQ(BytesOf(path), text);
  ExpectEmptyProject();
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_TRUE(std::filesystem::is_empty(platform.DataFolder));
}

TEST_F(LifecycleScreen, New_goes_on_when_the_save_was_cancelled_and_keeps_the_work_aside) {
  PutJob();
  ProjectDirty = True;
  const std::string text = ProjectText();
  platform.Chosen.push_back(std::nullopt);
  ExpectSaveQuestion(QMessageBox::Yes);
  ExpectKeptAside("New Project");
  ExpectDetails();
  Click("SSCommand1(1)");
  Settle();
  ExpectEmptyProject();
  EXPECT_EQ(BytesOf(KeptAside()), text);
}

TEST_F(LifecycleScreen, New_while_a_refusable_cell_is_edited_tells_nothing) {
  PutJob();
  Retype("0");
  ExpectSaveQuestion(QMessageBox::No);
  ExpectDetails();
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  ExpectEmptyProject();
  BackToMain();
  EXPECT_TRUE(NoEditor());
  Add("Z");
  Type("A1");
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(LifecycleScreen, The_details_reach_the_project_with_each_stroke_and_leave_the_flag) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  dialogs.ExpectDialog("frmProjectDetails", [](QWidget& dialog) {
    EXPECT_EQ(FromQt(dialog.windowTitle()), "Project Details");
    for (int n = 0; n < 5; ++n) {
      auto& field = Find<QLineEdit>(dialog, "txtProject(" + std::to_string(n) + ")");
      field.setFocus();
      QTest::keyClicks(&field, "Text; " + QString::number(n));
      EXPECT_EQ(txtProject.at(static_cast<std::size_t>(n)), "Text; " + std::to_string(n));
    }
    dialog.close();
  });
  Click("SSCommand1(3)");
  Settle();
  EXPECT_EQ(txtProject.at(4), "Text; 4");
  EXPECT_EQ(ProjectDirty, False);
  // Closed by its frame it was only hidden.
  ExpectDetails([this] { EXPECT_EQ(FromQt(Find<QLineEdit>("txtProject(2)").text()), "Text; 2"); });
  Entry("mnuProject(5)").trigger();
  Settle();
  BackToMain();
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
}

TEST_F(LifecycleScreen, Save_of_a_new_project_asks_for_its_file) {
  PutJob();
  ProjectDirty = True;
  StoreProjectDirectory("/somewhere/");
  const std::string path = TempPath("job.ovd");
  platform.Chosen.push_back(path);
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  ASSERT_EQ(platform.SaveDialogs.size(), 1U);
  const FileDialog& dialog = platform.SaveDialogs.front();
  EXPECT_EQ(dialog.Title, "Save Project");
  EXPECT_EQ(dialog.Filter, "Orvane Detail Projects (*.ovd)|*.ovd");
  EXPECT_EQ(dialog.DefaultExtension, ".ovd");
  EXPECT_EQ(dialog.InitialFolder, "/somewhere/");
  EXPECT_TRUE(dialog.OverwritePrompt);
  EXPECT_EQ(ProjectFileName, path);
  EXPECT_EQ(FileLabel(), path);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(ProjectDirectory(), path.substr(0, path.size() - 7));
  EXPECT_EQ(BytesOf(path), ProjectText());
  EXPECT_TRUE(dialogs.Boxes().empty());
  EXPECT_TRUE(CursorAt(1, 3, "5000"));

  // From then on Save asks nothing.
  Retype("4800");
  EXPECT_EQ(ProjectDirty, True);
  Click("SSCommand1(4)");
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(BytesOf(path), ProjectText());
  EXPECT_NE(BytesOf(path).find("\r\n 4800 \r\n"), std::string::npos);
}

TEST_F(LifecycleScreen, Save_doesnt_validate_the_cell_that_is_being_edited) {
  PutJob();
  Retype("0");
  platform.Chosen.push_back(TempPath("job.ovd"));
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_TRUE(CursorAt(1, 3, "0"));
}

TEST_F(LifecycleScreen, Save_As_asks_for_a_file_in_any_case) {
  PutJob();
  const std::string first = TempPath("first.ovd");
  const std::string second = TempPath("second.ovd");
  platform.Chosen = {first, second};
  Entry("mnuProject(2)").trigger();
  Entry("mnuProject(3)").trigger();
  Settle();
  EXPECT_EQ(platform.SaveDialogs.size(), 2U);
  EXPECT_EQ(FileLabel(), second);
  EXPECT_EQ(BytesOf(first), BytesOf(second));
}

TEST_F(LifecycleScreen, A_cancelled_save_changes_nothing_and_says_nothing) {
  PutJob();
  ProjectDirty = True;
  platform.Chosen.push_back(std::nullopt);
  Click("SSCommand1(4)");
  Settle();
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(FileLabel(), "");
  EXPECT_EQ(ProjectDirectory(), "");
  EXPECT_FALSE(Entry("mnuProject(8)").isVisible());
  EXPECT_TRUE(CursorAt(1, 3, "5000"));
}

TEST_F(LifecycleScreen, A_save_that_fails_tells_why_and_leaves_the_project_dirty) {
  PutJob();
  ProjectDirty = True;
  platform.Chosen.push_back(TempPath("missing") + "/job.ovd");
  dialogs.ExpectBox("Path not found");
  Click("SSCommand1(4)");
  Settle();
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(FileLabel(), "");
  EXPECT_FALSE(Entry("mnuProject(8)").isVisible());
  EXPECT_TRUE(CursorAt(1, 3, "5000"));
}

}  // namespace
}  // namespace orvane::test
