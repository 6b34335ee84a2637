// What a save asks before it writes, what leaving asks when nothing could be kept, and what a
// half-read job is saved as.
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "project/lifecycle.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::Chain;
using test::Joined;
using test::LifecycleTest;
using test::LineOf;
using test::Log;
using test::SmallProjectLines;
using test::StoredRecent;
using test::With;
namespace line = test::line;

class SaveQuestionTest : public LifecycleTest {
 protected:
  SaveQuestionTest() {
    WriteSmallProject(JobPath());
    FillSmallProject();
    ProjectFileName = JobPath();
    ProjectDirty = True;
  }

  void ExpectNothingWritten() {
    EXPECT_EQ(BytesOf(JobPath()), Joined(SmallProjectLines()));
    EXPECT_EQ(ProjectDirty, True);
    EXPECT_EQ(ProjectFileName, JobPath());
  }

  // Neither the job nor the data folder can be written.
  void LoseBothFolders() {
    ProjectFileName = Path("@/gone/job.ovd");
    person.DataFolder = TempPath("gone");
  }
};

TEST_F(SaveQuestionTest, A_text_that_would_come_back_otherwise_is_asked_about) {
  Items.At(2).Notes = "12\" deep";
  person.Choices = {"Cancel"};
  EXPECT_FALSE(SaveProject(False));
  ASSERT_EQ(person.ChoiceBoxes.size(), 1U);
  EXPECT_EQ(person.ChoiceBoxes.front().Text,
            "The project file can't hold these texts as they are:\r\rR é, Notes:  12\" deep\r    "
            "comes back as:  12");
  EXPECT_EQ(person.ChoiceBoxes.front().Title, "Save Project");
  EXPECT_EQ(person.ChoiceBoxes.front().Answers, (Log{"Go there", "Save all the same", "Cancel"}));
  EXPECT_EQ(Events(), Log{"choose Save Project"});
  ExpectNothingWritten();
}

TEST_F(SaveQuestionTest, Go_there_puts_the_cursor_to_the_first_place_and_saves_nothing) {
  Items.At(2).Notes = "12\" deep";
  AccLines2.At(1).Mark = "a,b";
  person.Choices = {"Go there"};
  EXPECT_FALSE(SaveProject(False));
  EXPECT_EQ(Events(), (Log{"choose Save Project", "GoTo section 2, 5"}));
  ExpectNothingWritten();
}

TEST_F(SaveQuestionTest, Save_all_the_same_saves_it) {
  Items.At(2).Notes = "12\" deep";
  person.Choices = {"Save all the same"};
  EXPECT_TRUE(SaveProject(False));
  EXPECT_NE(BytesOf(JobPath()).find("\"12\" deep\""), std::string::npos);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SaveQuestionTest, A_project_that_would_not_open_again_is_never_written) {
  Items.At(1).Notes = "12\" x 3\", see drawing";
  person.Choices = {"Cancel"};
  EXPECT_FALSE(SaveProject(False));
  ASSERT_EQ(person.ChoiceBoxes.size(), 1U);
  EXPECT_EQ(person.ChoiceBoxes.front().Text,
            "With these texts the project could not be opened again. It isn't saved.\r\rZ1, Notes: "
            " 12\" x 3\", see drawing\r    comes back as:  12");
  EXPECT_EQ(person.ChoiceBoxes.front().Answers, (Log{"Go there", "Cancel"}));
  ExpectNothingWritten();
}

TEST_F(SaveQuestionTest, A_backup_that_was_not_made_is_a_quiet_line) {
  std::filesystem::create_directory(JobPath() + ".bak");
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(window.Note,
            "Saved, but the version before is not kept as job.ovd.bak: a folder has that name");
  std::filesystem::remove(JobPath() + ".bak");
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(window.Note, "");
}

// --- Leaving

TEST_F(SaveQuestionTest, Who_goes_to_a_text_does_not_leave) {
  Items.At(2).Notes = "12\" deep";
  for (const std::function<void()>& leave :
       {std::function<void()>([] { EXPECT_FALSE(ExitProject()); }),
        std::function<void()>([] { NewProject(); }),
        std::function<void()>([] { OpenProject(); })}) {
    person.Answers = {Answer::Yes};
    person.Choices = {"Go there"};
    leave();
    EXPECT_EQ(Events().back(), "GoTo section 2, 5");
    EXPECT_EQ(Recovered(), Log{});
    EXPECT_EQ(Items.At(2).Notes, "12\" deep");
    ExpectNothingWritten();
  }
}

TEST_F(SaveQuestionTest, Leaving_asks_when_neither_the_save_nor_its_copy_can_be_written) {
  LoseBothFolders();
  person.Answers = {Answer::Yes, Answer::No};
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Events(), (Log{"ask Exit", "tell Path not found", "user's data folder", "ask Exit"}));
  EXPECT_EQ(person.Boxes.back().Text,
            "The project isn't saved, and no copy that opens could be put into your data folder "
            "either.\rLeave it all the same? What was changed in it is lost then.");
  EXPECT_EQ(person.Boxes.back().Choice, Buttons::YesNo);
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(Items.UBound(), 2);

  person.Answers = {Answer::Yes, Answer::Yes};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SaveQuestionTest, New_and_Open_ask_too) {
  LoseBothFolders();
  for (const auto leave : {NewProject, OpenProject}) {
    person.Answers = {Answer::Yes, Answer::No};
    leave();
    EXPECT_EQ(Events(), (Log{"ask New Project", "tell Path not found", "user's data folder",
                             "ask New Project"}));
    EXPECT_EQ(Items.UBound(), 2);
    EXPECT_EQ(ProjectDirty, True);
  }
}

TEST_F(SaveQuestionTest, A_copy_that_would_not_open_is_kept_but_does_not_count) {
  Items.At(1).Notes = "12\" x 3\", see drawing";
  person.Answers = {Answer::Yes, Answer::No};
  person.Choices = {"Cancel"};
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Events(), (Log{"ask Exit", "choose Save Project", "user's data folder", "ask Exit"}));
  EXPECT_EQ(Recovered(), Log{"2024-03-05-140709"});
  ExpectNothingWritten();
}

// --- After an opening that stopped half-way

class HalfReadTest : public LifecycleTest {
 protected:
  HalfReadTest() {
    TempFile("bad.ovd", Joined(With(SmallProjectLines(), line::SecondHoleCount, "x")));
    HoldEarlierProject(Path("@/old.ovd"), False);
    TempFile("old.ovd", "the earlier job");
  }
};

TEST_F(HalfReadTest, The_name_says_that_the_job_is_not_fully_read) {
  OpenFile(Path("@/bad.ovd"));
  EXPECT_EQ(Events(), (Log{"ForgetEditors", "tell Type mismatch", "DisplayItems",
                           "ClearDetailPanel", "RefreshProjectDetails", "ClearDrawing",
                           "ShowFileName @/old.ovd (not fully read)"}));
  EXPECT_EQ(ProjectFileName, Path("@/old.ovd"));
  ProjectFileName.clear();
  OpenFile(Path("@/bad.ovd"));
  EXPECT_EQ(Events().back(), "ShowFileName None (not fully read)");
}

TEST_F(HalfReadTest, The_next_save_asks_for_a_name_and_leaves_the_earlier_job_alone) {
  OpenFile(Path("@/bad.ovd"));
  person.Chosen = {std::nullopt};
  EXPECT_FALSE(SaveProject(False));
  person.Chosen = {Path("@/pieces.ovd")};
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(BytesOf(Path("@/old.ovd")), "the earlier job");
  EXPECT_EQ(LineOf(BytesOf(Path("@/pieces.ovd")), line::Mark), "\"Z1\"");
  // It has a file of its own now.
  Events();
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Events(), Log{"ShowFileName @/pieces.ovd"});
}

TEST_F(HalfReadTest, New_and_a_whole_opening_end_it) {
  WriteSmallProject(JobPath());
  for (const std::function<void()>& end :
       {std::function<void()>([] { NewProject(); }),
        std::function<void()>([this] { OpenFile(JobPath()); })}) {
    OpenFile(Path("@/bad.ovd"));
    EXPECT_EQ(NotFullyRead, True);
    end();
    EXPECT_EQ(NotFullyRead, False);
    ProjectDirty = False;
  }
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(BytesOf(JobPath()).empty(), false);
}

TEST_F(HalfReadTest, A_file_that_is_gone_leaves_the_open_job_fully_read) {
  OpenFile(Path("@/gone.ovd"));
  EXPECT_EQ(NotFullyRead, False);
}

}  // namespace

}  // namespace orvane
