// Saving a job over another one with earlier versions: what stood before is among them, whatever it
// was and whatever fails.
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/disk.h"
#include "project/project_file.h"
#include "project/versions.h"
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

// What is done apart waits until the test has it done.
class PatientDesktop : public test::ScriptedDesktop {
 public:
  void RunApart(std::function<void()> action) override { Waiting.push_back(std::move(action)); }
  void FinishApart() override {
    for (const auto& action : Waiting) action();
    Waiting.clear();
  }
  std::vector<std::function<void()>> Waiting;
};

class SavedVersions : public ProjectFileTest {
 protected:
  SavedVersions() { KeepVersionsIn(TempPath("")); }
  ~SavedVersions() override {
    KeepVersionsIn({});
    TakeVersionTrouble();
  }

  std::string Job() { return TempPath("f/job.ovd"); }
  std::string Backup() { return TempPath("f/job.ovd.bak"); }
  static std::string Former() {
    return Joined(With(SmallProjectLines(), line::Notes, "\"" + std::string(100, 'f') + "\""));
  }
  static std::string Fresh() { return Joined(SmallProjectLines()); }

  void Prepare(const std::string& former) {
    fs::remove_all(TempPath("f"));
    fs::remove_all(TempPath("versions"));
    fs::create_directory(TempPath("f"));
    TempFile("f/job.ovd", former);
    FillSmallProject();
  }
  // A file that can only be written in its place, and no room for a backup beside it.
  void PrepareInPlace() {
    Prepare(Former());
    fs::create_hard_link(Job(), TempPath("f/other.ovd"));
    fs::create_directory(Backup());
  }
  std::vector<std::string> Kept() {
    std::vector<std::string> contents;
    for (const Version& version : VersionsOf(Job())) contents.push_back(ReadVersion(version.File));
    return contents;
  }
  int Leftovers() {
    int count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(TempPath(""))) {
      if (entry.path().extension() == ".tmp") ++count;
    }
    return count;
  }
};

using Contents = std::vector<std::string>;

TEST_F(SavedVersions, Each_save_keeps_what_it_replaced) {
  Prepare(Former());
  EXPECT_EQ(WriteProjectFile(Job()), "");
  EXPECT_EQ(Kept(), Contents{Former()});
  EXPECT_EQ(VersionsOf(Job()).front().Kind, VersionKind::BeforeSave);
  Items.At(1).Notes = "second";
  WriteProjectFile(Job());
  Items.At(1).Notes = "third";
  WriteProjectFile(Job());
  EXPECT_EQ(Kept().size(), 3U);
  EXPECT_EQ(Kept().at(1), Fresh());
}

TEST_F(SavedVersions, What_the_backup_does_not_take_is_kept_too) {
  for (const std::string& former : {std::string("no job at all"), Former().substr(0, 700)}) {
    Prepare(former);
    TempFile("f/job.ovd.bak", Former());
    WriteProjectFile(Job());
    EXPECT_EQ(BytesOf(Backup()), Former());
    EXPECT_EQ(Kept(), Contents{former});
  }
}

TEST_F(SavedVersions, A_first_save_has_nothing_to_keep) {
  Prepare(Former());
  fs::remove(Job());
  WriteProjectFile(Job());
  EXPECT_TRUE(VersionsOf(Job()).empty());
}

TEST_F(SavedVersions, A_save_waits_for_nothing_and_brings_two_files_to_the_disk) {
  PatientDesktop patient;
  InstallDesktop(patient);
  Prepare(Former());
  {
    FailingDisk disk(Fault{});
    WriteProjectFile(Job());
    EXPECT_EQ(std::count(disk.Calls.begin(), disk.Calls.end(), "sync"), 2);
  }
  TempFile("f/job.ovd", "gone");  // it needs nothing of the disk
  Items.Clear();                  // nor of the tables
  EXPECT_TRUE(VersionsOf(Job()).empty());
  ASSERT_EQ(patient.Waiting.size(), 1U);
  patient.FinishApart();
  EXPECT_EQ(Kept(), Contents{Former()});
  InstallDesktop(desktop);
}

TEST_F(SavedVersions, A_version_that_is_not_kept_is_told_by_a_line) {
  PatientDesktop patient;
  InstallDesktop(patient);
  Prepare(Former());
  TempFile("versions", "a file where the folder should be");
  EXPECT_EQ(WriteProjectFile(Job()), "");
  patient.FinishApart();
  EXPECT_EQ(BytesOf(Job()), Fresh());
  EXPECT_EQ(WriteProjectFile(Job()), "Saved, but an earlier version is not kept: Path not found");
  EXPECT_EQ(WriteProjectFile(Job()), "");
  InstallDesktop(desktop);
}

TEST_F(SavedVersions, The_folders_of_a_first_version_are_brought_to_the_disk_with_it) {
  Prepare(Former());
  FailingDisk disk(Fault{});
  KeepVersion(VersionOf(Job(), VersionKind::BeforeSave, Former()));
  // That of all versions and that of the job, by the folders above them; its two files.
  EXPECT_EQ(std::count(disk.Calls.begin(), disk.Calls.end(), "sync folder"), 4);
  disk.Calls.clear();
  KeepVersion(VersionOf(Job(), VersionKind::BeforeSave, Fresh()));
  EXPECT_EQ(std::count(disk.Calls.begin(), disk.Calls.end(), "sync folder"), 1);
}

// --- In its place

TEST_F(SavedVersions, A_job_that_is_written_in_its_place_is_a_version_first) {
  PatientDesktop patient;
  InstallDesktop(patient);
  PrepareInPlace();
  EXPECT_EQ(WriteProjectFile(Job()),
            "Saved, but the version before is not kept as job.ovd.bak: a folder has that name");
  EXPECT_EQ(Kept(), Contents{Former()});
  patient.FinishApart();
  EXPECT_EQ(Kept(), Contents{Former()});
  EXPECT_EQ(fs::hard_link_count(Job()), 2U);
  EXPECT_EQ(BytesOf(Job()), Fresh());

  Prepare("no job at all");
  fs::create_hard_link(Job(), TempPath("f/other.ovd"));
  EXPECT_EQ(WriteProjectFile(Job()), "");
  EXPECT_EQ(Kept(), Contents{"no job at all"});
  InstallDesktop(desktop);
}

TEST_F(SavedVersions, A_job_that_can_be_kept_nowhere_is_not_written_in_its_place) {
  PrepareInPlace();
  TempFile("versions", "a file where the folder should be");
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(Job()); }),
            "The file has other names on the disk. It can only be written in its place, and what "
            "it holds now is not kept first: a folder has that name; as an earlier version: Path "
            "not found.\rSave under another name.");
  EXPECT_EQ(BytesOf(Job()), Former());
}

TEST_F(SavedVersions, After_any_fault_in_its_place_a_good_version_stands_and_the_box_tells_where) {
  int torn = 0;
  std::string error;
  ForEachFault([&] { PrepareInPlace(); },
               [&] { error = OutcomeOf([&] { WriteProjectFile(Job()); }); },
               [&](const Fault& fault, const FailingDisk& disk) {
                 UninstallDisk();
                 const std::string where = TextOf(fault, disk) + " " + error;
                 const std::string job = BytesOf(Job());
                 EXPECT_EQ(Leftovers(), 0) << where;
                 EXPECT_TRUE(!error.empty() || job == Fresh()) << where;
                 if (job == Fresh() || job == Former()) return;
                 ++torn;
                 EXPECT_TRUE(fault.Stays) << where;
                 EXPECT_EQ(Kept(), Contents{Former()}) << where;
                 EXPECT_NE(error.find("What it held before stands in Tools, Earlier versions"),
                           std::string::npos)
                     << where;
               });
  EXPECT_GT(torn, 0);
}

// --- Faults of the keeping itself

TEST_F(SavedVersions, After_any_fault_a_version_is_kept_or_the_failure_told) {
  // The folder as it is when the thirty-first comes.
  Prepare(Former());
  for (int at = 0; at < 30; ++at) {
    KeepVersion(VersionOf(Job(), VersionKind::BeforeSave, std::to_string(at) + Former()));
  }
  const Contents before = Kept();
  fs::copy(TempPath("versions"), TempPath("template"), fs::copy_options::recursive);
  std::string error;
  ForEachFault(
      [&] {
        fs::remove_all(TempPath("versions"));
        fs::copy(TempPath("template"), TempPath("versions"), fs::copy_options::recursive);
        // None of a job yet: its folder is made.
        fs::remove_all(TempPath("versions/untitled"));
      },
      [&] {
        error = OutcomeOf([&] {
          KeepVersion(VersionOf(Job(), VersionKind::LeftUnsaved, Fresh()));
          KeepVersion(VersionOf("", VersionKind::LeftUnsaved, Fresh()));
        });
      },
      [&](const Fault& fault, const FailingDisk& disk) {
        UninstallDisk();
        const std::string where = TextOf(fault, disk) + " " + error;
        EXPECT_EQ(Leftovers(), 0) << where;
        Contents kept = Kept();  // the job's and the untitled one
        if (error.empty()) {
          ASSERT_GE(kept.size(), 31U) << where;
          EXPECT_EQ(kept.back(), Fresh()) << where;
          EXPECT_EQ(kept.front(), Fresh()) << where;
        }
        // But for the oldest, all that stood there reads back.
        kept.erase(std::remove(kept.begin(), kept.end(), Fresh()), kept.end());
        ASSERT_GE(kept.size(), 29U) << where;
        EXPECT_TRUE(std::equal(before.begin(), before.begin() + 29, kept.begin())) << where;
        // One too many that can't be removed now goes the next time.
        const std::string& call = disk.Calls.at(static_cast<std::size_t>(fault.Call - 1));
        EXPECT_TRUE(!error.empty() || call == "remove" || kept.size() == 29) << where;
      });
}

}  // namespace

}  // namespace orvane
