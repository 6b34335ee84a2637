// A save that finds the job otherwise on the disk than it was read or saved.
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "project/lifecycle.h"
#include "project/versions.h"
#include "tests/project/lifecycle_fixture.h"
#include "tests/support/failing_disk.h"

namespace orvane {
namespace {

using test::BytesOf;
using test::Joined;
using test::LifecycleTest;
using test::LineOf;
using test::Log;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;
namespace fs = std::filesystem;

class ChangedContentTest : public LifecycleTest {
 protected:
  ChangedContentTest() {
    WriteSmallProject(JobPath());
    OpenFile(JobPath());
    Items.At(1).Mark = "mine";
    ProjectDirty = True;
    Events();
  }

  // What somebody else has saved: of the same size as the job, and under its time.
  static std::string Theirs(const std::string& mark = "Z9") {
    return Joined(With(SmallProjectLines(), line::Mark, '"' + mark + '"'));
  }
  void SaveTheirs(const std::string& mark = "Z9") {
    const fs::file_time_type time = fs::last_write_time(JobPath());
    TempFile("job.ovd", Theirs(mark));
    fs::last_write_time(JobPath(), time);
  }
  std::string MarkOnDisk(const std::string& path) { return LineOf(BytesOf(path), line::Mark); }
};

TEST_F(ChangedContentTest, A_job_that_stands_as_it_was_read_or_saved_is_saved_without_a_question) {
  EXPECT_TRUE(SaveProject(False));
  Items.At(1).Mark = "again";
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(MarkOnDisk(JobPath()), "\"again\"");
  EXPECT_TRUE(person.ChoiceBoxes.empty());
}

TEST_F(ChangedContentTest, A_newer_time_alone_is_no_question) {
  fs::last_write_time(JobPath(), fs::last_write_time(JobPath()) + std::chrono::hours(1));
  EXPECT_TRUE(SaveProject(False));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
}

TEST_F(ChangedContentTest, Another_content_is_asked_about_and_cancel_touches_nothing) {
  SaveTheirs();
  TempFile("job.ovd.bak", "the backup");
  person.Choices = {"Cancel"};
  EXPECT_FALSE(SaveProject(False));
  ASSERT_EQ(person.ChoiceBoxes.size(), 1U);
  EXPECT_EQ(person.ChoiceBoxes.front().Title, "Save Project");
  EXPECT_EQ(
      person.ChoiceBoxes.front().Text,
      "job.ovd was changed on the disk after you opened it or saved it last.\rIt differs from "
      "this project by 1 section renamed.\rIf you overwrite it, what stands there now goes to "
      "job.ovd.bak.");
  EXPECT_EQ(person.ChoiceBoxes.front().Answers,
            (Log{"Save under another name", "Overwrite", "Cancel"}));
  EXPECT_EQ(Events(), Log{"choose Save Project"});
  EXPECT_EQ(BytesOf(JobPath()), Theirs());
  EXPECT_EQ(BytesOf(JobPath() + ".bak"), "the backup");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ChangedContentTest, What_makes_no_backup_is_told_to_go_elsewhere_or_to_be_lost) {
  const std::string changed =
      "job.ovd was changed on the disk after you opened it or saved it last.";
  const std::string overwrite = "\rIf you overwrite it, what stands there now ";
  // Of what is broken or cut nobody knows how it differs.
  const std::string asked = changed + overwrite;
  const auto ask = [this] {
    person.Choices = {"Cancel"};
    EXPECT_FALSE(SaveProject(False));
    return person.ChoiceBoxes.back().Text;
  };
  const std::string lost = asked + "is lost: it makes no backup.";
  // Broken.
  TempFile("job.ovd", "no job at all");
  EXPECT_EQ(ask(), lost);
  KeepVersionsIn(TempPath(""));
  const std::string kept = asked + "makes no backup: it goes to the earlier versions alone.";
  EXPECT_EQ(ask(), kept);
  // Cut, beside a good backup and without one.
  TempFile("job.ovd", Theirs() + "-1");
  EXPECT_EQ(ask(), asked + "goes to job.ovd.bak.");
  TempFile("job.ovd.bak", Theirs());
  EXPECT_EQ(ask(), kept);
  // The backup's name is taken.
  SaveTheirs();
  const std::string renamed =
      changed + "\rIt differs from this project by 1 section renamed." + overwrite;
  EXPECT_EQ(ask(), renamed + "goes to job.ovd.bak.");
  fs::remove(JobPath() + ".bak");
  fs::create_directory(JobPath() + ".bak");
  EXPECT_EQ(ask(), renamed + "makes no backup: it goes to the earlier versions alone.");
  person.Choices = {"Overwrite"};
  EXPECT_TRUE(SaveProject(False));
  const std::vector<Version> versions = VersionsOf(JobPath());
  ASSERT_EQ(versions.size(), 1U);
  EXPECT_EQ(ReadVersion(versions.front().File), Theirs());
  KeepVersionsIn({});
}

TEST_F(ChangedContentTest, What_was_saved_is_compared_with_the_open_job) {
  const auto ask = [this] {
    person.Choices = {"Cancel"};
    EXPECT_FALSE(SaveProject(False));
    const std::string text = person.ChoiceBoxes.back().Text;
    return text.substr(text.find('\r') + 1, text.rfind('\r') - text.find('\r') - 1);
  };
  // Theirs has what mine lacks, and the length that mine hasn't any more.
  SaveTheirs("mine");
  Items.At(1).Length = 5000;
  Items.Remove(2);
  EXPECT_EQ(ask(), "It differs from this project by 1 section added, 1 changed.");
  OpenFile(JobPath());
  // The same job in other bytes: an empty line at the end.
  TempFile("job.ovd", Joined(With(SmallProjectLines(), line::Mark, "\"mine\"")) + "\r\n");
  EXPECT_EQ(ask(), "It holds the same as this project.");
}

TEST_F(ChangedContentTest, Overwritten_it_stands_in_the_backup) {
  SaveTheirs();
  person.Choices = {"Overwrite"};
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(MarkOnDisk(JobPath()), "\"mine\"");
  EXPECT_EQ(BytesOf(JobPath() + ".bak"), Theirs());
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(person.ChoiceBoxes.size(), 1U);
}

TEST_F(ChangedContentTest, Saved_once_more_while_the_question_stands_it_is_asked_about_again) {
  SaveTheirs();
  int asked = 0;
  log.On["choose Save Project"] = [&] {
    if (++asked == 1) SaveTheirs("Z8");
  };
  person.Choices = {"Overwrite", "Overwrite"};
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(MarkOnDisk(JobPath() + ".bak"), "\"Z8\"");
}

TEST_F(ChangedContentTest, Under_another_name_it_is_left_alone) {
  SaveTheirs();
  person.Choices = {"Save under another name"};
  person.Chosen = {Path("@/mine.ovd")};
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(BytesOf(JobPath()), Theirs());
  EXPECT_EQ(MarkOnDisk(Path("@/mine.ovd")), "\"mine\"");
  EXPECT_EQ(ProjectFileName, Path("@/mine.ovd"));
  Items.At(1).Mark = "later";
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(person.ChoiceBoxes.size(), 1U);
}

TEST_F(ChangedContentTest, No_other_name_is_no_save) {
  SaveTheirs();
  person.Choices = {"Save under another name"};
  person.Chosen = {std::nullopt};
  EXPECT_FALSE(SaveProject(False));
  EXPECT_EQ(BytesOf(JobPath()), Theirs());
  EXPECT_EQ(ProjectFileName, JobPath());
}

TEST_F(ChangedContentTest, Save_as_over_the_same_job_asks_too) {
  SaveTheirs();
  person.Chosen = {JobPath()};
  person.Choices = {"Cancel"};
  EXPECT_FALSE(SaveProject(True));
  EXPECT_EQ(BytesOf(JobPath()), Theirs());
}

TEST_F(ChangedContentTest, A_job_that_has_gone_is_simply_written) {
  fs::remove(JobPath());
  EXPECT_TRUE(SaveProject(False));
  EXPECT_EQ(MarkOnDisk(JobPath()), "\"mine\"");
  EXPECT_TRUE(person.ChoiceBoxes.empty());
}

TEST_F(ChangedContentTest, Leaving_goes_on_over_a_cancelled_one_as_over_any_save) {
  SaveTheirs();
  person.Answers = {Answer::Yes};
  person.Choices = {"Cancel"};
  EXPECT_TRUE(ExitProject());
  EXPECT_EQ(BytesOf(JobPath()), Theirs());
  EXPECT_EQ(Recovered().size(), 1U);
}

TEST_F(ChangedContentTest, What_a_failed_save_of_ones_own_left_is_no_strangers) {
  EXPECT_TRUE(SaveProject(False));  // there is a backup from now on
  int calls = 0;
  {
    test::FailingDisk disk(test::Fault{});
    EXPECT_TRUE(SaveProject(False));
    ASSERT_EQ(disk.Calls.back(), "sync folder");
    calls = static_cast<int>(disk.Calls.size());
  }
  // The new file stands, but its folder can't be brought to the disk.
  Items.At(1).Mark = "later";
  {
    test::FailingDisk disk({calls, EIO});
    EXPECT_FALSE(SaveProject(False));
  }
  ASSERT_EQ(MarkOnDisk(JobPath()), "\"later\"");
  Items.At(1).Mark = "last";
  EXPECT_TRUE(SaveProject(False));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
}

TEST_F(ChangedContentTest, A_recovered_job_knows_the_one_that_stands_on_the_disk) {
  SaveTheirs();
  EXPECT_TRUE(OpenCopy(Joined(SmallProjectLines()), JobPath()));
  EXPECT_TRUE(SaveProject(False));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
  EXPECT_EQ(BytesOf(JobPath() + ".bak"), Theirs());
  EXPECT_TRUE(OpenCopy(Joined(SmallProjectLines()), JobPath()));
  SaveTheirs();
  person.Choices = {"Overwrite"};
  EXPECT_TRUE(SaveProject(False));
}

TEST_F(ChangedContentTest, A_new_project_saved_over_it_asks_the_dialogs_question_alone) {
  person.Answers = {Answer::No};
  NewProject();
  FillSmallProject();
  SaveTheirs();
  person.Chosen = {JobPath()};
  EXPECT_TRUE(SaveProject(False));
  EXPECT_TRUE(person.ChoiceBoxes.empty());
}

}  // namespace
}  // namespace orvane
