// Saving a job over the one before: whatever fails on the way, a good version stands, the failure
// is told, and nothing is left beside it.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "project/project_file.h"
#include "tests/project/small_project.h"
#include "tests/support/failing_disk.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::ErrorOf;
using test::FailingDisk;
using test::Fault;
using test::ForEachFault;
using test::Joined;
using test::OutcomeOf;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::TextOf;
using test::With;
namespace fs = std::filesystem;
namespace line = test::line;

using Names = std::vector<std::string>;

class SavingTest : public ProjectFileTest {
 protected:
  std::string Job() { return TempPath("f/job.ovd"); }
  std::string Backup() { return TempPath("f/job.ovd.bak"); }

  // The job before and the backup before that, and the one to be saved in the tables.
  void Prepare() {
    fs::remove_all(TempPath("f"));
    fs::create_directory(TempPath("f"));
    TempFile("f/job.ovd", Former());
    TempFile("f/job.ovd.bak", Oldest());
    FillSmallProject();
  }
  static std::string Former() {
    return Joined(With(SmallProjectLines(), line::Notes, "\"" + std::string(100, 'f') + "\""));
  }
  static std::string Oldest() {
    return Joined(With(SmallProjectLines(), line::Notes, "\"oldest\""));
  }
  static std::string Fresh() { return Joined(SmallProjectLines()); }

  Names NamesBeside() {
    Names names;
    for (const auto& entry : fs::directory_iterator(TempPath("f"))) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  // Saves and keeps what was told: the error, or the quiet line.
  void Save() {
    told.clear();
    error = OutcomeOf([&] { told = WriteProjectFile(Job()); });
    if (told.empty()) told = error;
  }

  std::string told;
  std::string error;
};

// What was only looked at and couldn't be closed hurts nobody.
bool MayBeQuiet(const Fault& fault, const FailingDisk& disk) {
  const std::string& call = disk.Calls.at(static_cast<std::size_t>(fault.Call - 1));
  return fault.Heals() || call == "close";
}

TEST_F(SavingTest, After_any_fault_of_the_disk_a_good_version_stands) {
  ForEachFault(
      [&] { Prepare(); }, [&] { Save(); },
      [&](const Fault& fault, const FailingDisk& disk) {
        const std::string where = TextOf(fault, disk);
        const std::string job = BytesOf(Job());
        const std::string backup = BytesOf(Backup());
        EXPECT_TRUE(job == Fresh() || (job == Former() && !error.empty())) << where;
        EXPECT_TRUE(backup == Former() || backup == Oldest()) << where;
        // A folder that denies a new file has the job written in its place.
        const bool inPlace = fault.Error == EACCES && backup == Former();
        EXPECT_TRUE(!told.empty() || (job == Fresh() && (inPlace || MayBeQuiet(fault, disk))))
            << where;
        EXPECT_TRUE(backup == Former() || !told.empty()) << where;
        EXPECT_EQ(NamesBeside(), (Names{"job.ovd", "job.ovd.bak"})) << where;
      });
}

TEST_F(SavingTest, After_any_fault_the_first_save_leaves_a_whole_job_or_none) {
  ForEachFault(
      [&] {
        Prepare();
        fs::remove(Job());
        fs::remove(Backup());
      },
      [&] { Save(); },
      [&](const Fault& fault, const FailingDisk& disk) {
        const std::string where = TextOf(fault, disk);
        const Names names = NamesBeside();
        EXPECT_TRUE(names.empty() || names == Names{"job.ovd"}) << where;
        if (!names.empty()) {
          EXPECT_EQ(BytesOf(Job()), Fresh()) << where;
        }
        EXPECT_TRUE(!told.empty() || MayBeQuiet(fault, disk)) << where;
        EXPECT_TRUE(!names.empty() || !error.empty()) << where;
      });
}

TEST_F(SavingTest, A_job_with_other_names_keeps_them_and_any_fault_leaves_a_good_version) {
  int torn = 0;
  ForEachFault(
      [&] {
        Prepare();
        fs::create_hard_link(Job(), TempPath("f/other.ovd"));
      },
      [&] { Save(); },
      [&](const Fault& fault, const FailingDisk& disk) {
        const std::string where = TextOf(fault, disk);
        const std::string job = BytesOf(Job());
        EXPECT_EQ(fs::hard_link_count(Job()), 2U) << where;
        EXPECT_EQ(NamesBeside(), (Names{"job.ovd", "job.ovd.bak", "other.ovd"})) << where;
        EXPECT_TRUE(!told.empty() || (job == Fresh() && MayBeQuiet(fault, disk))) << where;
        if (job == Fresh() || job == Former()) return;
        // A disk that is broken for good lets nothing be put back: the box says where it stands.
        ++torn;
        EXPECT_TRUE(fault.Stays) << where;
        EXPECT_EQ(BytesOf(Backup()), Former()) << where;
        EXPECT_NE(error.find("What it held before stands in " + Backup()), std::string::npos)
            << where << error;
      });
  EXPECT_GT(torn, 0);
}

TEST_F(SavingTest, A_job_with_other_names_is_not_written_over_before_its_content_is_kept) {
  Prepare();
  fs::create_hard_link(Job(), TempPath("f/other.ovd"));
  fs::remove(Backup());
  fs::create_directory(Backup());
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(Job()); }),
            "The file has other names on the disk. It can only be written in its place, and what "
            "it holds now is not kept first: a folder has that name.\rSave under another name.");
  EXPECT_EQ(BytesOf(Job()), Former());
  TempFile("f/job.ovd", "no job at all");
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(Job()); }),
            "The file has other names on the disk. It can only be written in its place, and what "
            "it holds now is not kept first: it doesn't read back whole.\rSave under another "
            "name.");
  EXPECT_EQ(BytesOf(Job()), "no job at all");
}

TEST_F(SavingTest, A_link_stays_and_its_file_is_replaced) {
  Prepare();
  fs::create_symlink("job.ovd", TempPath("f/link.ovd"));
  EXPECT_EQ(WriteProjectFile(TempPath("f/link.ovd")), "");
  EXPECT_TRUE(fs::is_symlink(TempPath("f/link.ovd")));
  EXPECT_EQ(BytesOf(Job()), Fresh());
  EXPECT_EQ(BytesOf(TempPath("f/link.ovd.bak")), Former());
}

TEST_F(SavingTest, No_more_than_two_files_are_brought_to_the_disk) {
  Prepare();
  FailingDisk disk(Fault{});
  Save();
  EXPECT_EQ(told, "");
  EXPECT_EQ(std::count(disk.Calls.begin(), disk.Calls.end(), "sync"), 2);
  EXPECT_EQ(std::count(disk.Calls.begin(), disk.Calls.end(), "move"), 2);
}

TEST_F(SavingTest, A_save_sweeps_what_a_killed_one_left) {
  Prepare();
  const pid_t child = fork();
  if (child == 0) _exit(0);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  TempFile("f/job.ovd." + DecimalText(child) + ".tmp", "half");
  TempFile("f/job.ovd.bak." + DecimalText(child) + ".tmp", "half");
  Save();
  EXPECT_EQ(NamesBeside(), (Names{"job.ovd", "job.ovd.bak"}));
}

}  // namespace

}  // namespace orvane
