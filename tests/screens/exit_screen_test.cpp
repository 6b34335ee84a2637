#include "project/project_file.h"
#include "project/recovery.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

class ExitScreen : public SectionsTest {
 protected:
  // A section whose custom hole stands beyond its end.
  void PutShort(const std::string& mark) {
    Item& item = Put("Z", mark, "Z14012", 2000);
    item.PatternName = "Custom";
    PutHole(item, 2900, "C");
  }
  void ExpectExitQuestion(QMessageBox::StandardButton answer) {
    dialogs.ExpectBox("Save changes to current project?", "Exit", answer);
  }
  void ExpectLengthQuestion(const std::string& mark, QMessageBox::StandardButton answer) {
    dialogs.ExpectBox(mark + " : Z14012 Length shorter than last hole position \nQuit anyway?",
                      "Warning", answer);
  }
  bool Closes() {
    return EndsProgram([this] { main->close(); });
  }
  bool Exits() {
    return EndsProgram([this] { Click("SSCommand1(0)"); });
  }
  // Jobs that are kept aside.
  std::size_t Kept() { return RecoveryFolders(platform.DataFolder).size(); }
};

TEST_F(ExitScreen, An_untouched_program_closes_without_a_question) {
  EXPECT_TRUE(Closes());
  EXPECT_FALSE(main->isVisible());
}

TEST_F(ExitScreen, The_exit_commands_end_the_program_without_a_question_too) {
  EXPECT_TRUE(Exits());
  EXPECT_FALSE(main->isVisible());
}

TEST_F(ExitScreen, The_menu_exits_like_the_toolbar) {
  EXPECT_TRUE(EndsProgram([this] { Entry("mnuProject(15)").trigger(); }));
}

TEST_F(ExitScreen, Closing_a_dirty_project_asks_and_Cancel_leaves_the_window_and_the_project) {
  Add("Z");
  Type("A1");
  ExpectExitQuestion(QMessageBox::Cancel);
  EXPECT_FALSE(Closes());
  EXPECT_TRUE(main->isVisible());
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_TRUE(CursorAt(1, 1, "A1"));

  ExpectExitQuestion(QMessageBox::Cancel);
  EXPECT_FALSE(Exits());
  EXPECT_TRUE(main->isVisible());
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ExitScreen, No_closes_without_saving) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  ProjectDirty = True;
  ProjectFileName = TempPath("job.ovd");
  ExpectExitQuestion(QMessageBox::No);
  EXPECT_TRUE(Closes());
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_FALSE(std::filesystem::exists(ProjectFileName));
  EXPECT_EQ(Kept(), 0U);
}

TEST_F(ExitScreen, Yes_saves_and_closes) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  ProjectDirty = True;
  const std::string path = TempPath("job.ovd");
  platform.Chosen.push_back(path);
  ExpectExitQuestion(QMessageBox::Yes);
  EXPECT_TRUE(Exits());
  EXPECT_EQ(BytesOf(path), ProjectText());
  EXPECT_EQ(Kept(), 0U);
}

TEST_F(ExitScreen, A_cancelled_save_stops_nothing_and_the_work_is_kept_aside) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  ProjectDirty = True;
  platform.Chosen.push_back(std::nullopt);
  ExpectExitQuestion(QMessageBox::Yes);
  ExpectKeptAside("Exit");
  EXPECT_TRUE(Closes());
  EXPECT_EQ(BytesOf(KeptAside()), ProjectText());
}

TEST_F(ExitScreen, A_failed_save_tells_why_and_stops_nothing) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  ProjectDirty = True;
  ProjectFileName = TempPath("missing") + "/job.ovd";
  ExpectExitQuestion(QMessageBox::Yes);
  dialogs.ExpectBox("Path not found");
  ExpectKeptAside("Exit");
  EXPECT_TRUE(Exits());
  EXPECT_EQ(BytesOf(KeptAside()), ProjectText());
}

TEST_F(ExitScreen, A_section_shorter_than_its_last_hole_is_asked_about_before_the_saving) {
  PutShort("A1");
  Show();
  ProjectDirty = True;
  ExpectLengthQuestion("A1", QMessageBox::No);
  EXPECT_FALSE(Closes());
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_TRUE(main->isVisible());

  ExpectLengthQuestion("A1", QMessageBox::Yes);
  ExpectExitQuestion(QMessageBox::No);
  EXPECT_TRUE(Closes());
}

TEST_F(ExitScreen, Only_the_last_short_section_is_told) {
  PutShort("A1");
  PutShort("B1");
  Put("Z", "C1", "Z14012", 6000);
  Show();
  ExpectLengthQuestion("B1", QMessageBox::Yes);
  EXPECT_TRUE(Closes());
}

TEST_F(ExitScreen, A_hole_right_at_the_end_is_no_fault) {
  PutShort("A1");
  Items.At(1).Length = 2900;
  Show();
  EXPECT_TRUE(Closes());
}

TEST_F(ExitScreen, The_exit_command_asks_about_the_length_twice_and_about_saving_once) {
  PutShort("A1");
  Show();
  ProjectDirty = True;
  ExpectLengthQuestion("A1", QMessageBox::Yes);
  ExpectExitQuestion(QMessageBox::No);
  // Whatever the second pass answers, the program ends.
  ExpectLengthQuestion("A1", QMessageBox::No);
  EXPECT_TRUE(Exits());
  EXPECT_EQ(dialogs.Boxes().size(), 3U);
}

TEST_F(ExitScreen, A_refusable_cell_that_is_being_edited_tells_nothing) {
  Put("Z", "A1", "Z14012", 6000);
  Show(1, 3);
  Retype("0");
  ExpectExitQuestion(QMessageBox::Cancel);
  EXPECT_FALSE(Closes());
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
  ExpectExitQuestion(QMessageBox::No);
  EXPECT_TRUE(Exits());
}

TEST_F(ExitScreen, After_opening_a_file_the_question_comes_although_nothing_was_touched) {
  Put("Z", "A1", "Z14012", 6000);
  const std::string path = TempPath("job.ovd");
  WriteProjectFile(path);
  Items.Clear();
  platform.Chosen.push_back(path);
  Click("SSCommand1(2)");
  Settle();
  ExpectExitQuestion(QMessageBox::No);
  EXPECT_TRUE(Closes());
}

TEST_F(ExitScreen, Details_edited_after_saving_are_lost_at_the_exit_without_a_question) {
  const std::string path = TempPath("job.ovd");
  platform.Chosen.push_back(path);
  Add("Z");
  Click("SSCommand1(4)");
  Settle();
  const std::string saved = BytesOf(path);
  dialogs.ExpectDialog("frmProjectDetails", [](QWidget& dialog) {
    auto& customer = Find<QLineEdit>(dialog, "txtProject(2)");
    customer.setFocus();
    QTest::keyClicks(&customer, "Lost Ltd");
    dialog.close();
  });
  Click("SSCommand1(3)");
  Settle();
  EXPECT_EQ(txtProject.at(2), "Lost Ltd");
  EXPECT_TRUE(Exits());
  EXPECT_EQ(BytesOf(path), saved);
  EXPECT_TRUE(dialogs.Boxes().empty());
}

}  // namespace
}  // namespace orvane::test
