// A changed job that another one takes the place of, or that is left, is there as an earlier
// version.
#include "project/left_unsaved.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "project/changes.h"
#include "project/history.h"
#include "project/lifecycle.h"
#include "project/saving.h"
#include "project/versions.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::Joined;
using test::LifecycleTest;
using test::SmallProjectLines;
using test::With;
namespace fs = std::filesystem;
namespace line = test::line;

using Contents = std::vector<std::string>;

class LeftUnsaved : public LifecycleTest {
 protected:
  LeftUnsaved() {
    KeepVersionsIn(TempPath(""));
    WriteSmallProject(JobPath());
    WriteSmallProject(Path("@/other.ovd"));
    Hold(JobPath());
  }
  ~LeftUnsaved() override {
    EndHistory();
    KeepVersionsIn({});
    TakeVersionTrouble();
    ForgetCopies();
  }

  // The small project is open, saved under that name, with the flag that an opening leaves.
  void Hold(const std::string& path) {
    EndHistory();
    FillSmallProject();
    ProjectFileName = path;
    ProjectDirty = True;
    BeginHistory();
  }
  static void TypeNotes(const std::string& text) {
    Change(ChangeKind::Notes, 1, [&] { Items.At(1).Notes = text; });
  }
  static std::string WithNotes(const std::string& text) {
    return Joined(With(SmallProjectLines(), line::Notes, "\"" + text + "\""));
  }
  static Contents Kept(const std::string& path) {
    Contents contents;
    for (const Version& version : VersionsOf(path)) {
      EXPECT_EQ(version.Kind, VersionKind::LeftUnsaved);
      contents.push_back(ReadVersion(version.File));
    }
    return contents;
  }
};

TEST_F(LeftUnsaved, New_without_saving_keeps_the_job_as_it_was_left) {
  TypeNotes("typed");
  person.Answers = {Answer::No};
  // The tables are still those of the job.
  log.On["ForgetEditors"] = [this] { EXPECT_EQ(Kept(JobPath()), Contents{WithNotes("typed")}); };
  NewProject();
  EXPECT_EQ(Kept(JobPath()), Contents{WithNotes("typed")});
  EXPECT_EQ(BytesOf(JobPath()), Joined(SmallProjectLines()));
}

TEST_F(LeftUnsaved, Open_without_saving_keeps_it_once_there_is_a_file_to_open) {
  TypeNotes("typed");
  person.Answers = {Answer::No, Answer::No, Answer::No};
  person.Chosen = {std::nullopt, Path("@/gone.ovd"), Path("@/other.ovd")};
  OpenProject();
  OpenProject();
  EXPECT_EQ(Kept(JobPath()), Contents{});
  log.On["ForgetEditors"] = [this] { EXPECT_EQ(Kept(JobPath()), Contents{WithNotes("typed")}); };
  OpenProject();
  EXPECT_EQ(Kept(JobPath()), Contents{WithNotes("typed")});
  EXPECT_EQ(Kept(Path("@/other.ovd")), Contents{});
}

TEST_F(LeftUnsaved, A_recent_file_which_asks_nothing_keeps_it_too) {
  TypeNotes("typed");
  OpenFile(Path("@/other.ovd"));
  EXPECT_EQ(Kept(JobPath()), Contents{WithNotes("typed")});
}

TEST_F(LeftUnsaved, The_exit_keeps_it_and_waits_for_it) {
  TypeNotes("typed");
  person.Answers = {Answer::No};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Kept(JobPath()), Contents{WithNotes("typed")});
  EXPECT_TRUE(ExitProject());  // the second pass keeps no second one
  EXPECT_EQ(Kept(JobPath()).size(), 1U);
}

TEST_F(LeftUnsaved, The_exit_that_asks_nothing_keeps_what_the_flag_does_not_tell_of) {
  ProjectDirty = False;
  Change(ChangeKind::ProjectDetails, 0, [] { txtProject.at(4) = "N. Else"; });
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Kept(JobPath()), Contents{Joined(With(SmallProjectLines(), 5, "\"N. Else\""))});
}

TEST_F(LeftUnsaved, Who_stays_keeps_nothing) {
  TypeNotes("typed");
  person.Answers = {Answer::Cancel, Answer::Cancel, Answer::Cancel};
  NewProject();
  OpenProject();
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(Kept(JobPath()), Contents{});
}

TEST_F(LeftUnsaved, What_is_saved_or_not_changed_is_not_left_unsaved) {
  person.Answers = {Answer::No};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Kept(JobPath()), Contents{});
  TypeNotes("typed");
  RestoredStep step;
  UndoStep(step);
  person.Answers = {Answer::No};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Kept(JobPath()), Contents{});

  TypeNotes("saved");
  ProjectDirty = True;
  person.Answers = {Answer::Yes};
  EXPECT_TRUE(ExitProject());
  ASSERT_EQ(VersionsOf(JobPath()).size(), 1U);  // what the save has replaced
  EXPECT_EQ(VersionsOf(JobPath()).front().Kind, VersionKind::BeforeSave);
}

TEST_F(LeftUnsaved, A_failed_save_has_left_its_own_copy) {
  ProjectFileName = Path("@/gone/job.ovd");
  TypeNotes("typed");
  person.Answers = {Answer::Yes};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Recovered().size(), 1U);
  EXPECT_EQ(Kept(ProjectFileName), Contents{});
}

TEST_F(LeftUnsaved, The_second_pass_of_the_exit_keeps_none_beside_that_copy_either) {
  ProjectFileName = Path("@/gone/job.ovd");
  TypeNotes("typed");
  person.Answers = {Answer::Yes};
  EXPECT_TRUE(ExitProject());
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(Recovered().size(), 1U);
  EXPECT_EQ(Kept(ProjectFileName), Contents{});
}

TEST_F(LeftUnsaved, The_copies_of_one_that_stayed_and_was_saved_after_all_go) {
  ProjectFileName = Path("@/gone/job.ovd");
  TypeNotes("typed");
  person.Answers = {Answer::Yes, Answer::Yes};
  person.Chosen = {std::nullopt, std::nullopt};
  OpenProject();  // the save failed, and then no file was chosen
  TypeNotes("typed again");
  ProjectDirty = True;
  OpenProject();
  EXPECT_EQ(Recovered().size(), 2U);
  fs::create_directory(Path("@/gone"));
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Recovered(), std::vector<std::string>{});
  // What it was copied as before counts no more.
  TypeNotes("typed");
  OpenFile(Path("@/other.ovd"));
  const std::vector<Version> kept = VersionsOf(Path("@/gone/job.ovd"));
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_EQ(ReadVersion(kept.front().File), WithNotes("typed"));
}

TEST_F(LeftUnsaved, The_copy_of_one_that_was_left_stays_when_the_next_one_is_saved) {
  for (const bool isNew : {false, true}) {
    Hold(Path("@/gone/job.ovd"));
    TypeNotes("typed");
    person.Answers = {Answer::Yes};
    if (isNew) {
      NewProject();
      person.Chosen = {Path("@/new.ovd")};
    } else {
      person.Chosen = {Path("@/other.ovd")};
      OpenProject();
    }
    EXPECT_TRUE(SaveProject(False));
  }
  EXPECT_EQ(Recovered().size(), 2U);
}

TEST_F(LeftUnsaved, A_job_that_changed_since_its_copy_was_made_is_kept) {
  ProjectFileName = Path("@/gone/job.ovd");
  TypeNotes("typed");
  person.Answers = {Answer::Yes};
  person.Chosen = {std::nullopt};
  OpenProject();  // the save failed, and then no file was chosen
  TypeNotes("typed again");
  OpenFile(Path("@/other.ovd"));
  EXPECT_EQ(Kept(Path("@/gone/job.ovd")), Contents{WithNotes("typed again")});
}

TEST_F(LeftUnsaved, A_copy_that_is_opened_keeps_it_and_is_kept_itself_when_it_is_left) {
  TypeNotes("typed");
  const std::string copy = Joined(With(SmallProjectLines(), line::FirstHoleCounterSunk, ""));
  EXPECT_TRUE(OpenCopy(copy, Path("@/other.ovd")));
  EXPECT_EQ(Kept(JobPath()), Contents{WithNotes("typed")});
  OpenFile(JobPath());
  EXPECT_EQ(Kept(Path("@/other.ovd")), Contents{copy});
  EXPECT_EQ(Kept(JobPath()).size(), 1U);
}

TEST_F(LeftUnsaved, A_job_without_a_name_and_one_half_read_are_kept_as_such) {
  Hold("");
  TypeNotes("nameless");
  OpenFile(Path("@/other.ovd"));
  Hold(JobPath());
  NotFullyRead = True;
  TypeNotes("half");
  OpenFile(Path("@/other.ovd"));
  EXPECT_EQ(Kept(""), (Contents{WithNotes("half"), WithNotes("nameless")}));
  for (const Version& version : VersionsOf(JobPath())) EXPECT_TRUE(version.IsUntitled);
}

// --- What can't be kept

// A file stands where the folder of the versions should be.
class LostUnsaved : public LeftUnsaved {
 protected:
  LostUnsaved() {
    TempFile("versions", "");
    TypeNotes("typed");
  }
};

const std::string ExitBox =
    "What was changed since the last save could not be kept: Path not found.\rLeave it all the "
    "same?";
const std::string LostNote =
    "What was changed in the project before could not be kept: Path not found";

TEST_F(LostUnsaved, The_exit_asks_before_it_is_lost_and_No_stays) {
  person.Answers = {Answer::No, Answer::No};
  EXPECT_FALSE(ExitProject());
  EXPECT_EQ(ProjectDirty, True);
  ASSERT_EQ(person.Boxes.size(), 2U);
  EXPECT_EQ(person.Boxes.back().Text, ExitBox);
  EXPECT_EQ(person.Boxes.back().Title, "Exit");
  EXPECT_EQ(person.Boxes.back().Choice, Buttons::YesNo);
}

TEST_F(LostUnsaved, Yes_leaves_it_and_the_second_pass_does_not_ask_again) {
  person.Answers = {Answer::No, Answer::Yes};
  EXPECT_TRUE(ExitProject());
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(person.Boxes.size(), 2U);
}

TEST_F(LostUnsaved, Whoever_stayed_and_changed_more_is_asked_again) {
  person.Answers = {Answer::No, Answer::Yes};
  EXPECT_TRUE(ExitProject());
  TypeNotes("more");
  ProjectDirty = True;
  person.Answers = {Answer::No, Answer::No};
  EXPECT_FALSE(ExitProject());
}

TEST_F(LostUnsaved, Nobody_is_asked_for_what_a_save_before_could_not_keep) {
  TempFile("job.ovd", WithNotes("former"));
  person.Answers = {Answer::Yes};
  EXPECT_TRUE(ExitProject());  // it is saved, and what it replaced isn't kept
  EXPECT_EQ(person.Boxes.size(), 1U);
}

TEST_F(LostUnsaved, Whoever_agreed_to_lose_it_when_no_copy_could_be_made_is_not_asked_again) {
  ProjectFileName = Path("@/gone/job.ovd");
  person.HasNoDataFolder = true;
  person.Answers = {Answer::Yes, Answer::Yes};
  EXPECT_TRUE(ExitProject());
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(person.Boxes.size(), 3U);  // with the error of the save
}

TEST_F(LostUnsaved, New_and_an_opening_tell_it_in_the_line_behind_them) {
  person.Answers = {Answer::No};
  NewProject();
  EXPECT_EQ(window.Note, LostNote);
  Hold(JobPath());
  TypeNotes("typed");
  OpenFile(Path("@/other.ovd"));
  EXPECT_EQ(window.Note, LostNote);
  OpenFile(JobPath());
  EXPECT_EQ(window.Note, "");
}

TEST_F(LostUnsaved, It_stands_behind_what_the_opening_tells_itself) {
  TempFile("dated.ovd", Joined(With(SmallProjectLines(), line::ProjectDate, "\"no day\"")));
  OpenFile(Path("@/dated.ovd"));
  EXPECT_EQ(window.Note, "The date \"no day\" can't be read; today's is in its place. " + LostNote);
  Hold(JobPath());
  TypeNotes("typed");
  TempFile("torn.ovd", Joined(With(SmallProjectLines(), line::Length, "x")));
  OpenFile(Path("@/torn.ovd"));
  EXPECT_EQ(window.Note, LostNote);
}

TEST_F(LeftUnsaved, A_job_that_can_not_be_written_down_is_told_in_the_same_way) {
  TypeNotes("typed");
  Change(ChangeKind::Notches, 1, [] { Items.At(1).Notches.Resize(32768); });
  person.Answers = {Answer::No, Answer::Yes};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(person.Boxes.back().Text,
            "What was changed since the last save could not be kept: Overflow.\rLeave it all the "
            "same?");
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(person.Boxes.size(), 2U);
  EXPECT_EQ(Kept(JobPath()), Contents{});
}

}  // namespace

}  // namespace orvane
