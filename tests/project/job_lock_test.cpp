// Two people and one job: who is told of whom, and when a lock comes and goes.
#include "project/job_lock.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "project/history.h"
#include "project/lifecycle.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane {
namespace {

using test::BytesOf;
using test::Joined;
using test::LifecycleTest;
using test::Log;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

using Paths = std::set<std::string>;

class JobLockTest : public LifecycleTest {
 protected:
  JobLockTest() {
    person.LaysLocks = true;
    WriteSmallProject(JobPath());
    WriteSmallProject(OtherPath());
  }
  ~JobLockTest() override { DropJobLock(); }

  std::string OtherPath() { return Path("@/other.ovd"); }
  std::string JobsLock() { return Path("@/.job.ovd.lock"); }
  std::string OthersLock() { return Path("@/.other.ovd.lock"); }
  Paths Locks() const { return *person.Locks; }

  // Somebody else has it open, on another computer.
  void LetAnnaHold(const std::string& lock) {
    person.LockHolders[lock] = {"anna", "OFFICE-7", "orvane", 2 * 60 * 60 + 59 * 60};
  }
  bool AnnaHolds(const std::string& lock) const { return person.LockHolders.count(lock) == 1; }
};

const Log OpenAnswers = {"Open a copy", "Open all the same", "Cancel"};

// --- The lock file

TEST_F(JobLockTest, It_is_a_hidden_file_beside_the_job_and_no_job_itself) {
  EXPECT_EQ(LockPathOf(JobPath()), JobsLock());
}

TEST_F(JobLockTest, It_stands_beside_the_file_that_a_link_leads_to) {
  std::filesystem::create_directory(Path("@/linked"));
  std::filesystem::create_symlink(JobPath(), Path("@/linked/x.ovd"));
  EXPECT_EQ(LockPathOf(Path("@/linked/x.ovd")), JobsLock());
}

// --- It comes and goes

TEST_F(JobLockTest, Opening_lays_it_and_the_next_job_has_its_own) {
  OpenFile(JobPath());
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  OpenFile(OtherPath());
  EXPECT_EQ(Locks(), (Paths{OthersLock()}));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
}

TEST_F(JobLockTest, The_same_job_opened_again_is_no_stranger) {
  OpenFile(JobPath());
  OpenFile(JobPath());
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
}

TEST_F(JobLockTest, New_takes_it_away) {
  OpenFile(JobPath());
  ProjectDirty = False;
  NewProject();
  EXPECT_EQ(Locks(), Paths{});
}

TEST_F(JobLockTest, A_file_that_has_gone_leaves_it) {
  OpenFile(JobPath());
  OpenFile(Path("@/gone.ovd"));
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
}

TEST_F(JobLockTest, The_first_save_of_a_job_lays_it_and_save_as_moves_it) {
  FillSmallProject();
  person.Chosen = {Path("@/first.ovd"), Path("@/second.ovd")};
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Locks(), (Paths{Path("@/.first.ovd.lock")}));
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Locks(), (Paths{Path("@/.first.ovd.lock")}));
  EXPECT_TRUE(SaveProject(True));
  EXPECT_EQ(Locks(), (Paths{Path("@/.second.ovd.lock")}));
}

TEST_F(JobLockTest, A_save_as_that_comes_to_nothing_leaves_it_where_it_was) {
  OpenFile(JobPath());
  std::filesystem::create_directory(Path("@/folder.ovd"));
  person.Chosen = {Path("@/folder.ovd"), std::nullopt, OtherPath()};
  EXPECT_FALSE(SaveProject(True));
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  EXPECT_FALSE(SaveProject(True));
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  Items.At(2).Notes = "12\" deep";
  person.Choices = {"Cancel"};
  EXPECT_FALSE(SaveProject(True));
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
}

TEST_F(JobLockTest, Where_none_can_be_laid_nobody_is_asked) {
  person.LaysLocks = false;
  OpenFile(JobPath());
  EXPECT_TRUE(SaveProject(False));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
  EXPECT_EQ(Locks(), Paths{});
}

TEST_F(JobLockTest, A_save_lays_the_one_that_could_not_be_laid_before) {
  person.LaysLocks = false;
  OpenFile(JobPath());
  person.LaysLocks = true;
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
}

// --- Somebody else's

TEST_F(JobLockTest, Who_has_the_job_open_is_told_with_user_computer_program_and_age) {
  LetAnnaHold(JobsLock());
  person.Choices = {"Cancel"};
  OpenFile(JobPath());
  ASSERT_EQ(person.ChoiceBoxes.size(), 1U);
  EXPECT_EQ(person.ChoiceBoxes.front().Title, "Open Project");
  EXPECT_EQ(person.ChoiceBoxes.front().Text,
            "job.ovd is open already, for 2 hours now.\r\rUser:  anna\rComputer:  OFFICE-7\r"
            "Program:  orvane\r\rTwo people who save one job lose each other's changes. A copy has "
            "no file until you save it.");
  EXPECT_EQ(person.ChoiceBoxes.front().Answers, OpenAnswers);
}

TEST_F(JobLockTest, What_a_lock_does_not_tell_is_left_out) {
  person.LockHolders[JobsLock()] = {"", "OFFICE-7", "", 59};
  person.Choices = {"Cancel"};
  OpenFile(JobPath());
  EXPECT_EQ(
      person.ChoiceBoxes.front().Text.substr(0, 81),
      "job.ovd is open already, for less than a minute now.\r\rComputer:  OFFICE-7\r\rTwo pe");
}

TEST_F(JobLockTest, Its_age_is_told_in_the_largest_unit) {
  struct Case {
    long long Seconds;
    std::string Age;
  };
  for (const Case& each : {Case{60, "1 minute"}, Case{3599, "59 minutes"}, Case{3600, "1 hour"},
                           Case{24 * 3600 - 1, "23 hours"}, Case{24 * 3600, "1 day"},
                           Case{400 * 86400LL, "400 days"}}) {
    person.LockHolders[JobsLock()] = {"", "", "", each.Seconds};
    person.Choices = {"Cancel"};
    OpenFile(JobPath());
    const std::string begin = "job.ovd is open already, for " + each.Age + " now.\r";
    EXPECT_EQ(person.ChoiceBoxes.back().Text.substr(0, begin.size()), begin);
  }
}

TEST_F(JobLockTest, Cancel_leaves_everything_as_it_is) {
  OpenFile(OtherPath());
  Events();
  LetAnnaHold(JobsLock());
  person.Choices = {"Cancel"};
  Items.At(1).Mark = "mine";
  OpenFile(JobPath());
  EXPECT_EQ(Events(), Log{"choose Open Project"});
  EXPECT_EQ(Items.At(1).Mark, "mine");
  EXPECT_EQ(ProjectFileName, OtherPath());
  EXPECT_EQ(Locks(), (Paths{OthersLock()}));
  EXPECT_TRUE(AnnaHolds(JobsLock()));
}

TEST_F(JobLockTest, A_copy_has_neither_a_file_nor_a_lock) {
  OpenFile(OtherPath());
  LetAnnaHold(JobsLock());
  person.Choices = {"Open a copy"};
  OpenFile(JobPath());
  EXPECT_EQ(Items.At(1).Mark, "Z1");
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(Recent().front(), "@/other.ovd");
  EXPECT_EQ(Locks(), Paths{});
  EXPECT_TRUE(AnnaHolds(JobsLock()));
}

TEST_F(JobLockTest, All_the_same_puts_ones_own_in_the_place_of_another_computers) {
  LetAnnaHold(JobsLock());
  person.Choices = {"Open all the same"};
  OpenFile(JobPath());
  EXPECT_EQ(ProjectFileName, JobPath());
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  EXPECT_FALSE(AnnaHolds(JobsLock()));
}

TEST_F(JobLockTest, One_of_this_computer_stands_and_the_save_asks_no_more) {
  person.LockHolders[JobsLock()] = {"anna", "here", "orvane", 5};
  person.Choices = {"Open all the same"};
  OpenFile(JobPath());
  EXPECT_EQ(ProjectFileName, JobPath());
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(person.ChoiceBoxes.size(), 1U);
  EXPECT_TRUE(AnnaHolds(JobsLock()));
  // It has ended meanwhile.
  person.LockHolders.clear();
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
}

TEST_F(JobLockTest, Save_as_asks_about_a_job_that_somebody_else_has_open) {
  OpenFile(JobPath());
  LetAnnaHold(OthersLock());
  Items.At(1).Mark = "mine";
  person.Chosen = {OtherPath(), OtherPath()};
  person.Choices = {"Cancel"};
  EXPECT_FALSE(SaveProject(True));
  ASSERT_EQ(person.ChoiceBoxes.size(), 1U);
  EXPECT_EQ(person.ChoiceBoxes.front().Title, "Save Project");
  EXPECT_EQ(person.ChoiceBoxes.front().Text,
            "other.ovd is open already, for 2 hours now.\r\rUser:  anna\rComputer:  OFFICE-7\r"
            "Program:  orvane\r\rSaving puts this project in its place.");
  EXPECT_EQ(person.ChoiceBoxes.front().Answers, (Log{"Save all the same", "Cancel"}));
  EXPECT_EQ(BytesOf(OtherPath()), Joined(SmallProjectLines()));
  EXPECT_EQ(ProjectFileName, JobPath());
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  person.Choices = {"Save all the same"};
  EXPECT_TRUE(SaveProject(True));
  EXPECT_EQ(ProjectFileName, OtherPath());
  EXPECT_EQ(Locks(), (Paths{OthersLock()}));
}

// --- A job that can't be read to its end

class TornJobLock : public JobLockTest {
 protected:
  TornJobLock() {
    TempFile("torn.ovd", Joined(With(SmallProjectLines(), line::Length, "x")));
    OpenFile(JobPath());
    BeginHistory();
    OpenFile(Path("@/torn.ovd"));
  }
  ~TornJobLock() override { EndHistory(); }

  static void TakeBack() {
    RestoredStep restored;
    ASSERT_TRUE(UndoStep(restored));
    ASSERT_EQ(restored.Kind, ChangeKind::OpenProject);
    FollowTakenOpening();
  }
};

TEST_F(TornJobLock, The_former_jobs_goes_and_it_has_none) {
  EXPECT_EQ(Locks(), Paths{});
}

TEST_F(TornJobLock, Taken_back_the_former_job_has_its_own_again) {
  TakeBack();
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  RestoredStep restored;
  ASSERT_TRUE(RedoStep(restored));
  FollowTakenOpening();
  EXPECT_EQ(Locks(), Paths{});
}

TEST_F(TornJobLock, Somebody_who_took_the_former_job_meanwhile_keeps_it_and_is_told) {
  LetAnnaHold(JobsLock());
  TakeBack();
  EXPECT_EQ(Locks(), Paths{});
  EXPECT_TRUE(AnnaHolds(JobsLock()));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
  EXPECT_EQ(window.Note, "job.ovd is open somewhere else too");
}

TEST_F(TornJobLock, Whoever_was_only_told_of_somebody_is_asked_at_the_next_save) {
  LetAnnaHold(JobsLock());
  TakeBack();
  ProjectDirty = True;
  Items.At(1).Mark = "mine";
  person.Choices = {"Cancel", "Save all the same"};
  EXPECT_FALSE(SaveProject(False));
  EXPECT_EQ(BytesOf(JobPath()), Joined(SmallProjectLines()));
  EXPECT_TRUE(SaveProject(False));
  EXPECT_NE(BytesOf(JobPath()), Joined(SmallProjectLines()));
  // Now it has been asked.
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(person.ChoiceBoxes.size(), 2U);
}

// --- A job that comes back from its recovery

TEST_F(JobLockTest, A_recovered_job_lays_it_and_asks_as_an_opened_one) {
  const std::string text = Joined(SmallProjectLines());
  EXPECT_TRUE(OpenCopy(text, JobPath()));
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  LetAnnaHold(OthersLock());
  person.Choices = {"Cancel", "Open a copy", "Open all the same"};
  EXPECT_FALSE(OpenCopy(text, OtherPath()));
  EXPECT_EQ(ProjectFileName, JobPath());
  EXPECT_EQ(Locks(), (Paths{JobsLock()}));
  EXPECT_TRUE(OpenCopy(text, OtherPath()));
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(Locks(), Paths{});
  EXPECT_TRUE(OpenCopy(text, OtherPath()));
  EXPECT_EQ(ProjectFileName, OtherPath());
  EXPECT_EQ(Locks(), (Paths{OthersLock()}));
}

}  // namespace
}  // namespace orvane
