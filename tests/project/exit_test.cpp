// Saving as a command, leaving the system, and what is kept when a save came to nothing.

#include <filesystem>
#include <optional>
#include <string>

#include "core/runtime_error.h"
#include "core/settings.h"
#include "project/lifecycle.h"
#include "project/recent_files.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::Chain;
using test::Joined;
using test::LifecycleTest;
using test::LinesOf;
using test::Log;
using test::SmallProjectLines;
using test::StoredRecent;

// What is told of a job that is left although its save came to nothing.
const std::string Kept =
    "tell The project isn't saved. A copy of it stands "
    "in\r@/data/recovery/2024-03-05-140709/job1.ovd"
    "\rand is offered when the program is started again.";

class SaveTest : public LifecycleTest {
 protected:
  void HoldSmallProject(const std::string& path) {
    FillSmallProject();
    ProjectFileName = path;
    ProjectDirty = True;
    StoreProjectDirectory("/jobs/");
    Events();
  }

  void ExpectUnsaved(const std::string& name) {
    EXPECT_EQ(ProjectFileName, name);
    EXPECT_EQ(ProjectDirty, True);
    EXPECT_EQ(Recent(), (Log{"", "", "", "", ""}));
  }
};

TEST_F(SaveTest, Save_writes_a_named_project_without_a_dialog) {
  HoldSmallProject(JobPath());
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Events(), Chain({{"ShowFileName @/job.ovd"}, StoredRecent({"@/job.ovd"})}));
  EXPECT_EQ(BytesOf(JobPath()), Joined(SmallProjectLines()));
  EXPECT_EQ(ProjectFileName, JobPath());
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Recent(), (Log{"@/job.ovd", "", "", "", ""}));
  EXPECT_EQ(RecentFile(1), JobPath());
  EXPECT_EQ(ProjectDirectory(), "/jobs/");
}

TEST_F(SaveTest, What_follows_the_writing_comes_in_order) {
  HoldSmallProject("");
  person.Chosen = {JobPath()};
  log.On["ShowFileName @/job.ovd"] = [this] {
    EXPECT_EQ(BytesOf(JobPath()), Joined(SmallProjectLines()));
    EXPECT_EQ(ProjectFileName, JobPath());
    EXPECT_EQ(ProjectDirty, True);
  };
  log.On["store Recent1=@/job.ovd"] = [] { EXPECT_EQ(ProjectDirty, False); };
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Events(), Chain({{"save dialog", "store ProjectDirectory=@/", "ShowFileName @/job.ovd"},
                             StoredRecent({"@/job.ovd"})}));
}

TEST_F(SaveTest, A_project_without_a_name_asks_for_one_in_the_folder_of_the_last) {
  for (const std::string name : {"", "  "}) {
    HoldSmallProject(name);
    person.SaveDialogs.clear();
    person.Chosen = {JobPath()};
    EXPECT_TRUE(SaveProject(False));
    ASSERT_EQ(person.SaveDialogs.size(), 1U);
    const FileDialog& dialog = person.SaveDialogs.front();
    EXPECT_EQ(dialog.Title, "Save Project");
    EXPECT_EQ(dialog.Filter, "Orvane Detail Projects (*.ovd)|*.ovd");
    EXPECT_EQ(dialog.DefaultExtension, ".ovd");
    EXPECT_EQ(dialog.InitialFolder, "/jobs/");
    EXPECT_TRUE(dialog.OverwritePrompt);
    EXPECT_FALSE(dialog.FileMustExist);
    EXPECT_EQ(ProjectDirectory(), Path("@/"));
    EXPECT_EQ(ProjectFileName, JobPath());
  }
}

TEST_F(SaveTest, Save_As_asks_although_there_is_a_name_and_takes_the_new_one) {
  HoldSmallProject(JobPath());
  ASSERT_TRUE(SaveProject(False));
  Events();
  person.Chosen = {Path("@/copy.ovd")};
  EXPECT_TRUE(SaveProject(True));
  EXPECT_EQ(Events(),
            Chain({{"save dialog", "store ProjectDirectory=@/", "ShowFileName @/copy.ovd"},
                   StoredRecent({"@/copy.ovd", "@/job.ovd"})}));
  EXPECT_EQ(ProjectFileName, Path("@/copy.ovd"));
  EXPECT_EQ(BytesOf(Path("@/copy.ovd")), Joined(SmallProjectLines()));
}

TEST_F(SaveTest, A_cancelled_dialog_changes_nothing) {
  for (const std::optional<std::string>& chosen :
       {std::optional<std::string>(), std::optional<std::string>("  ")}) {
    HoldSmallProject(JobPath());
    person.Chosen = {chosen};
    EXPECT_FALSE(SaveProject(True));
    EXPECT_EQ(Events(), Log{"save dialog"});
    EXPECT_EQ(ProjectDirectory(), "/jobs/");
    EXPECT_FALSE(std::filesystem::exists(JobPath()));
    ExpectUnsaved(JobPath());
  }
}

TEST_F(SaveTest, A_failed_writing_is_told_and_has_stored_the_folder_already) {
  HoldSmallProject(JobPath());
  person.Chosen = {Path("@/gone/copy.ovd")};
  EXPECT_FALSE(SaveProject(True));
  EXPECT_EQ(Events(),
            (Log{"save dialog", "store ProjectDirectory=@/gone/", "tell Path not found"}));
  ASSERT_EQ(person.Boxes.size(), 1U);
  EXPECT_EQ(person.Boxes.front().Title, "");
  EXPECT_EQ(person.Boxes.front().Choice, Buttons::Ok);
  EXPECT_EQ(person.Boxes.front().Sign, Icon::None);
  ExpectUnsaved(JobPath());
}

TEST_F(SaveTest, A_project_that_has_no_text_is_told_and_its_file_stays) {
  WriteSmallProject(JobPath());
  HoldSmallProject(JobPath());
  Items.At(1).Notches.Resize(32768);  // one more than a file can count
  EXPECT_FALSE(SaveProject(False));
  EXPECT_EQ(Events(), Log{"tell Overflow"});
  EXPECT_EQ(BytesOf(JobPath()), Joined(SmallProjectLines()));
  ExpectUnsaved(JobPath());
}

TEST_F(SaveTest, A_file_that_was_written_counts_as_saved_whatever_showing_it_raises) {
  HoldSmallProject(JobPath());
  log.On["ShowRecentFiles"] = [] { throw RuntimeError(Failure::Overflow); };
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Events().back(), "tell Overflow");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SaveTest, A_second_save_leaves_the_recent_list_alone) {
  HoldSmallProject(JobPath());
  SaveProject(False);
  Events();
  ProjectDirty = True;
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Events(), Log{"ShowFileName @/job.ovd"});
  EXPECT_EQ(ProjectDirty, False);
}

class ExitTest : public LifecycleTest {
 protected:
  // A section that ends before its last hole.
  void ShortenSection() {
    FillSmallProject();
    Items.At(1).Length = 5699;
  }
};

const std::string ShortSection = "Z1 : 20020 Length shorter than last hole position \rQuit anyway?";

TEST_F(ExitTest, An_untouched_system_closes_without_a_word) {
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Events(), Log{});
}

TEST_F(ExitTest, The_prompt_has_the_title_of_the_exit) {
  HoldEarlierProject(Path("@/old.ovd"), True);
  person.Answers = {Answer::No};
  ExitProject();
  ASSERT_EQ(person.Boxes.size(), 1U);
  EXPECT_EQ(person.Boxes.front().Text, "Save changes to current project?");
  EXPECT_EQ(person.Boxes.front().Title, "Exit");
  EXPECT_EQ(person.Boxes.front().Choice, Buttons::YesNoCancel);
  EXPECT_EQ(person.Boxes.front().Sign, Icon::None);
}

TEST_F(ExitTest, Cancel_keeps_the_system_open_and_the_flag_set) {
  HoldEarlierProject(Path("@/old.ovd"), True);
  person.Answers = {Answer::Cancel};
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Events(), Log{"ask Exit"});
  EXPECT_EQ(ProjectDirty, True);
  ExpectEarlierItems();
}

TEST_F(ExitTest, No_closes_and_clears_the_flag) {
  HoldEarlierProject(Path("@/old.ovd"), True);
  person.Answers = {Answer::No};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Events(), Log{"ask Exit"});
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_FALSE(std::filesystem::exists(Path("@/old.ovd")));
  EXPECT_EQ(Recovered(), Log{});
}

TEST_F(ExitTest, Yes_saves_and_closes) {
  HoldEarlierProject(Path("@/old.ovd"), True);
  person.Answers = {Answer::Yes};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Events(), Chain({{"ask Exit", "ShowFileName @/old.ovd"}, StoredRecent({"@/old.ovd"})}));
  EXPECT_EQ(LinesOf(BytesOf(Path("@/old.ovd"))).at(7), "\"old mark\"");
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Recovered(), Log{});
}

TEST_F(ExitTest, A_cancelled_save_closes_all_the_same_and_the_project_is_kept) {
  HoldEarlierProject("", True);
  person.Answers = {Answer::Yes};
  person.Chosen = {std::nullopt};
  log.On["save dialog"] = [] { EXPECT_EQ(ProjectDirty, False); };  // before the save begins
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Events(), (Log{"ask Exit", "save dialog", "user's data folder", Kept}));
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Recovered(), Log{"2024-03-05-140709"});
}

TEST_F(ExitTest, A_failed_save_closes_all_the_same_and_the_project_is_kept) {
  HoldEarlierProject(Path("@/gone/old.ovd"), True);
  person.Answers = {Answer::Yes};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Events(), (Log{"ask Exit", "tell Path not found", "user's data folder", Kept}));
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Recovered(), Log{"2024-03-05-140709"});
}

TEST_F(ExitTest, No_to_the_length_warning_stops_before_the_save_prompt) {
  ShortenSection();
  ProjectDirty = True;
  person.Answers = {Answer::No};
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Events(), Log{"ask Warning"});
  EXPECT_EQ(person.Boxes.front().Text, ShortSection);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ExitTest, Yes_to_the_length_warning_goes_on_to_the_save_prompt) {
  ShortenSection();
  ProjectDirty = True;
  person.Answers = {Answer::Yes, Answer::Cancel};
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Events(), (Log{"ask Warning", "ask Exit"}));
}

TEST_F(ExitTest, A_second_pass_warns_again_and_does_not_ask_to_save_again) {
  ShortenSection();
  ProjectDirty = True;
  person.Answers = {Answer::Yes, Answer::No, Answer::No};
  EXPECT_TRUE(ExitProject());
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Events(), (Log{"ask Warning", "ask Exit", "ask Warning"}));
}

TEST_F(ExitTest, A_check_that_cannot_be_made_is_told_and_the_save_prompt_comes) {
  ShortenSection();
  log.On["ask Warning"] = [] { throw RuntimeError(Failure::SubscriptOutOfRange); };
  ProjectDirty = True;
  person.Answers = {Answer::Cancel};
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Events(), (Log{"ask Warning", "tell Subscript out of range", "ask Exit"}));
}

TEST_F(ExitTest, An_opened_project_asks_although_nothing_was_touched) {
  WriteSmallProject(JobPath());
  OpenFile(JobPath());
  Events();
  person.Answers = {Answer::Cancel};
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Events(), Log{"ask Exit"});
}

TEST_F(ExitTest, Details_edited_after_a_save_are_lost_without_a_prompt) {
  FillSmallProject();
  ProjectFileName = JobPath();
  ASSERT_TRUE(SaveProject(False));
  Events();
  txtProject.at(1) = "J-78";
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Events(), Log{});
  EXPECT_EQ(BytesOf(JobPath()), Joined(SmallProjectLines()));
}

}  // namespace

}  // namespace orvane
