// Copies of the jobs that are worked on: where they stand, that one of them is whole at every
// moment, and that a state of the history gives the text of the tables.
#include "project/recovery.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <set>
#include <string>

#include "core/disk.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "project/content_mark.h"
#include "project/project_file.h"
#include "project/rules/section_columns.h"
#include "tests/project/history_fixture.h"
#include "tests/project/lifecycle_fixture.h"
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
using test::LinesOf;
using test::Log;
using test::OutcomeOf;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::TextOf;
namespace fs = std::filesystem;

class RecoveryFolderTest : public ProjectFileTest {
 protected:
  RecoveryFolderTest() { fs::create_directory(Data()); }

  std::string Data() { return TempPath("data"); }
  std::string NewFolder() { return MakeRecoveryFolder(Data(), {{2024, 3, 5}, 14, 7, 9}); }
  static std::set<std::string> NamesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }
};

TEST_F(RecoveryFolderTest, A_folder_is_called_by_its_moment_and_is_the_users_alone) {
  EXPECT_EQ(NewFolder(), Data() + "/recovery/2024-03-05-140709");
  EXPECT_EQ(fs::status(Data() + "/recovery").permissions(), fs::perms::owner_all);
  EXPECT_EQ(MakeRecoveryFolder(Data(), {{2031, 12, 9}, 4, 5, 6}),
            Data() + "/recovery/2031-12-09-040506");
}

TEST_F(RecoveryFolderTest, A_name_that_is_taken_stays_a_dangling_link_too) {
  const std::string first = NewFolder();
  fs::create_symlink(TempPath("nowhere"), first + "-2");
  TempFile("data/recovery/2024-03-05-140709-3", "stays");
  EXPECT_EQ(NewFolder(), first + "-4");
  EXPECT_FALSE(fs::exists(TempPath("nowhere")));
  EXPECT_EQ(RecoveryFolders(Data()),
            (std::vector<std::string>{first, first + "-4"}));  // no link, no file
}

TEST_F(RecoveryFolderTest, Where_no_folder_can_be_made_there_is_an_error) {
  EXPECT_EQ(ErrorOf([&] { MakeRecoveryFolder(TempPath("gone"), {}); }), "Path not found");
  EXPECT_FALSE(fs::exists(TempPath("gone")));
  TempFile("data/recovery", "a file");
  EXPECT_EQ(ErrorOf([&] { NewFolder(); }), "Path not found");
  EXPECT_TRUE(RecoveryFolders(Data()).empty());
}

TEST_F(RecoveryFolderTest, A_copy_stands_with_the_path_of_its_job) {
  const std::string folder = NewFolder();
  EXPECT_FALSE(CopyIn(folder));
  KeepCopy(folder, "/jobs/north.ovd", "", "one");
  ASSERT_TRUE(CopyIn(folder));
  EXPECT_EQ(CopyIn(folder)->Path, "/jobs/north.ovd");
  EXPECT_EQ(BytesOf(CopyIn(folder)->File), "one");
  KeepCopy(folder, "/jobs/north.ovd", "", "two");
  EXPECT_EQ(BytesOf(CopyIn(folder)->File), "two");
  EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"job1.ovd", "job1.path"}));
}

TEST_F(RecoveryFolderTest, A_copy_of_another_job_takes_its_place) {
  const std::string folder = NewFolder();
  KeepCopy(folder, "/jobs/north.ovd", "", "north");
  KeepCopy(folder, "", "", "without a name");
  EXPECT_EQ(CopyIn(folder)->Path, "");
  EXPECT_EQ(BytesOf(CopyIn(folder)->File), "without a name");
  EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"job2.ovd", "job2.path"}));
  DropCopy(folder);
  EXPECT_FALSE(CopyIn(folder));
  EXPECT_TRUE(NamesIn(folder).empty());
}

TEST_F(RecoveryFolderTest, Of_two_copies_the_later_one_counts_as_its_writer_died_between_them) {
  const std::string folder = NewFolder();
  for (const std::string name : {"job9.ovd", "job9.path", "job10.ovd", "job10.path", "job11.path",
                                 "job.ovd", "jobx.ovd", "job99999999999.ovd", "a.ovd"}) {
    WriteWholeFile(folder + "/" + name, "1 2\n" + name);
  }
  EXPECT_EQ(CopyIn(folder)->File, folder + "/job10.ovd");
  EXPECT_EQ(CopyIn(folder)->Path, "job10.path");
}

TEST_F(RecoveryFolderTest, The_job_that_was_saved_later_than_its_copy_is_newer) {
  const std::string folder = NewFolder();
  const std::string job = TempFile("north.ovd", "saved");
  KeepCopy(folder, job, MarkText(MarkOf("saved")), "copy");
  const auto copied = fs::last_write_time(CopyIn(folder)->File);
  fs::last_write_time(job, copied - std::chrono::seconds(1));
  EXPECT_FALSE(CopyIn(folder)->IsOlder);
  fs::last_write_time(job, copied + std::chrono::seconds(1));
  EXPECT_TRUE(CopyIn(folder)->IsOlder);
  fs::remove(job);
  EXPECT_FALSE(CopyIn(folder)->IsOlder);
}

TEST_F(RecoveryFolderTest, A_job_whose_file_is_not_what_was_read_has_changed_whatever_its_time) {
  const std::string folder = NewFolder();
  const std::string job = TempFile("north.ovd", "saved");
  KeepCopy(folder, job, MarkText(MarkOf("saved")), "copy");
  EXPECT_FALSE(CopyIn(folder)->IsChanged);
  WriteWholeFile(job, "sAved");
  fs::last_write_time(job, fs::last_write_time(CopyIn(folder)->File) - std::chrono::hours(1));
  EXPECT_TRUE(CopyIn(folder)->IsChanged);
  EXPECT_FALSE(CopyIn(folder)->IsOlder);
  fs::remove(job);
  EXPECT_FALSE(CopyIn(folder)->IsChanged);
  // Nothing is known of a file that came while the job had none.
  KeepCopy(folder, job, "", "copy");
  TempFile("north.ovd", "saved");
  EXPECT_TRUE(CopyIn(folder)->IsChanged);
}

TEST_F(RecoveryFolderTest, Whatever_fails_a_copy_stands_with_its_own_path) {
  std::string folder;
  std::string error;
  int faults = 0;
  for (const std::string before : {"", "/jobs/north.ovd", "/jobs/south.ovd"}) {
    ForEachFault(
        [&] {
          fs::remove_all(Data() + "/recovery");
          folder = NewFolder();
          KeepCopy(folder, before, "1 2", "before");
        },
        [&] { error = OutcomeOf([&] { KeepCopy(folder, "/jobs/north.ovd", "1 2", "after"); }); },
        [&](const Fault& fault, const FailingDisk& disk) {
          ++faults;
          const std::string where = TextOf(fault, disk);
          UninstallDisk();  // whoever looks for copies later has a whole one
          const std::optional<LeftJob> copy = CopyIn(folder);
          ASSERT_TRUE(copy) << where;
          const bool after = BytesOf(copy->File) == "after";
          EXPECT_TRUE(after || BytesOf(copy->File) == "before") << where;
          EXPECT_EQ(copy->Path, after ? "/jobs/north.ovd" : before) << where;
          EXPECT_TRUE(after || !error.empty()) << where;
          for (const std::string& name : NamesIn(folder)) {
            EXPECT_EQ(name.find(".tmp"), std::string::npos) << where << name;
          }
        });
  }
  RecordProperty("faults", faults);
  EXPECT_GT(faults, 100);
}

TEST_F(RecoveryFolderTest, A_folder_goes_with_all_that_it_holds) {
  const std::string folder = NewFolder();
  KeepCopy(folder, "", "", "job");
  RemoveRecoveryFolder(folder);
  EXPECT_TRUE(RecoveryFolders(Data()).empty());
  RemoveRecoveryFolder(folder);
}

// --- A job that is left although its save came to nothing

class UnsavedProjectTest : public test::LifecycleTest {
 protected:
  UnsavedProjectTest() { FillSmallProject(); }
};

TEST_F(UnsavedProjectTest, It_is_kept_in_a_folder_of_its_own_with_its_path) {
  person.Present = {{2031, 12, 9}, 4, 5, 6};
  const std::string copy = KeepUnsavedProject("/jobs/north.ovd", "1 2");
  EXPECT_EQ(copy, Path("@/data/recovery/2031-12-09-040506/job1.ovd"));
  EXPECT_EQ(BytesOf(copy), Joined(SmallProjectLines()));
  EXPECT_EQ(CopyIn(Path("@/data/recovery/2031-12-09-040506"))->Path, "/jobs/north.ovd");
  EXPECT_EQ(Events(), Log{"user's data folder"});
}

TEST_F(UnsavedProjectTest, Each_one_has_its_own) {
  KeepUnsavedProject("", "");
  txtProject.at(0) = "OV 1235";
  KeepUnsavedProject("", "");
  EXPECT_EQ(Recovered(), (Log{"2024-03-05-140709", "2024-03-05-140709-2"}));
  const std::string second = Path("@/data/recovery/2024-03-05-140709-2/job1.ovd");
  EXPECT_EQ(LinesOf(BytesOf(second)).front(), "v1.07:OV 1235");
}

TEST_F(UnsavedProjectTest, What_goes_wrong_gives_no_path) {
  person.DataFolder = TempPath("gone");
  EXPECT_EQ(KeepUnsavedProject("", ""), "");
  log.On["user's data folder"] = [] { throw RuntimeError(Failure::PermissionDenied); };
  EXPECT_EQ(KeepUnsavedProject("", ""), "");
  Items.At(1).Notches.Resize(32768);  // one more than a file can count
  EXPECT_EQ(KeepUnsavedProject("", ""), "");
  EXPECT_EQ(Events(), (Log{"user's data folder", "user's data folder"}));
  EXPECT_FALSE(fs::exists(Path("@/gone")));
}

TEST_F(UnsavedProjectTest, Without_a_data_folder_nothing_is_written) {
  const fs::path before = fs::current_path();
  fs::current_path(person.DataFolder);
  person.HasNoDataFolder = true;
  EXPECT_EQ(KeepUnsavedProject("", ""), "");
  fs::current_path(before);
  EXPECT_EQ(Events(), Log{"user's data folder"});
  EXPECT_TRUE(fs::is_empty(person.DataFolder));
}

TEST_F(UnsavedProjectTest, After_any_fault_it_is_whole_or_said_to_be_missing) {
  std::string copy;
  ForEachFault([&] { fs::remove_all(Path("@/data/recovery")); },
               [&] { copy = KeepUnsavedProject("", ""); },
               [&](const Fault& fault, const FailingDisk& disk) {
                 const std::string where = TextOf(fault, disk);
                 EXPECT_EQ(Recovered().size(), copy.empty() ? 0U : 1U) << where;
                 if (!copy.empty()) {
                   EXPECT_EQ(BytesOf(copy), Joined(SmallProjectLines())) << where;
                   EXPECT_TRUE(fault.Heals()) << where;
                 }
               });
}

// --- The text of a state

class StateTextTest : public test::HistoryFixture {};

TEST_F(StateTextTest, A_state_gives_the_text_of_the_tables_that_it_was_taken_from) {
  AddPurlin("P1");
  ChoosePattern(AddPurlin("P2", 5400), "Butt 1 Sag Bar");
  LookAt(2);
  txtProject.at(1) = "J-1";
  Change(ChangeKind::ProjectDetails);
  EXPECT_EQ(TextOfState(StateNow()), ProjectText());
}

TEST_F(StateTextTest, Keys_of_a_cell_that_is_not_left_are_in_it) {
  AddPurlin("P1");
  TypeKeys(1, LengthColumn, "72");
  EXPECT_EQ(Items.At(1).Length, 72);
  EXPECT_EQ(TextOfState(StateNow()), ProjectText());
  TypeKeys(1, LengthColumn, "7250");
  EXPECT_EQ(TextOfState(StateNow()), ProjectText());
}

TEST_F(StateTextTest, A_state_that_was_taken_stays_while_the_job_goes_on) {
  AddPurlin("P1");
  const JobState state = StateNow();
  const std::string before = ProjectText();
  TypeCell(1, LengthColumn, "7250");
  AddPurlin("P2");
  Undo();
  EXPECT_NE(ProjectText(), before);
  EXPECT_EQ(TextOfState(state), before);
}

}  // namespace

}  // namespace orvane
