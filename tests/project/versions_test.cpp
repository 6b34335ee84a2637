// Earlier versions: what is kept of a job, how long, and what a list of them passes over.
#include "project/versions.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "tests/project/small_project.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::ErrorOf;
using test::Joined;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::With;
namespace fs = std::filesystem;
namespace line = test::line;

class VersionsTest : public ProjectFileTest {
 protected:
  VersionsTest() { KeepVersionsIn(TempPath("")); }
  ~VersionsTest() override {
    KeepVersionsIn({});
    TakeVersionTrouble();
  }

  std::string Folder() { return TempPath("versions"); }
  std::string Job() { return TempPath("job.ovd"); }
  static std::string Content(const std::string& notes) {
    return Joined(With(SmallProjectLines(), line::Notes, "\"" + notes + "\""));
  }
  void At(const Date& day, int hour, int minute, int second = 0) {
    desktop.Present = {day, hour, minute, second};
  }
  static void Keep(const std::string& job, const std::string& bytes,
                   VersionKind kind = VersionKind::BeforeSave) {
    KeepVersion(VersionOf(job, kind, bytes));
  }
  static std::vector<std::string> Contents(const std::string& job) {
    std::vector<std::string> contents;
    for (const Version& version : VersionsOf(job)) contents.push_back(ReadVersion(version.File));
    return contents;
  }
  // The folder of the one job that has versions.
  std::string OnlyFolder() {
    const fs::directory_iterator entries(Folder());
    return entries->path().string();
  }
  // A version's file as another one of that folder, with that number and day.
  static std::string Copied(const Version& version, const std::string& name) {
    const std::string copy = (fs::path(version.File).parent_path() / name).string();
    fs::copy_file(version.File, copy);
    return copy;
  }
};

TEST_F(VersionsTest, A_version_is_listed_with_what_a_person_needs_and_reads_back) {
  At({2026, 11, 22}, 9, 8, 7);
  Keep(Job(), Content("first"));
  At({2026, 11, 23}, 17, 30, 0);
  Keep(Job(), Content("second"), VersionKind::LeftUnsaved);
  const std::vector<Version> versions = VersionsOf(Job());
  ASSERT_EQ(versions.size(), 2U);
  EXPECT_EQ(versions.at(0).Time.Day, (Date{2026, 11, 23}));
  EXPECT_EQ(versions.at(0).Time.Hour, 17);
  EXPECT_EQ(versions.at(0).Time.Minute, 30);
  EXPECT_EQ(versions.at(0).Kind, VersionKind::LeftUnsaved);
  EXPECT_EQ(versions.at(1).Time.Day, (Date{2026, 11, 22}));
  EXPECT_EQ(versions.at(1).Time.Second, 7);
  EXPECT_EQ(versions.at(1).Kind, VersionKind::BeforeSave);
  EXPECT_EQ(versions.at(1).Sections, 2);
  EXPECT_FALSE(versions.at(1).IsUntitled);
  EXPECT_EQ(ReadVersion(versions.at(0).File), Content("second"));
  EXPECT_EQ(ReadVersion(versions.at(1).File), Content("first"));
}

TEST_F(VersionsTest, Versions_of_one_second_stand_beside_each_other_in_their_order) {
  for (const char* notes : {"a", "b", "c", "d"}) Keep(Job(), Content(notes));
  EXPECT_EQ(Contents(Job()), (std::vector{Content("d"), Content("c"), Content("b"), Content("a")}));
}

TEST_F(VersionsTest, The_same_bytes_are_not_kept_twice_in_a_row) {
  Keep(Job(), Content("a"));
  Keep(Job(), Content("a"));
  Keep(Job(), Content("b"));
  Keep(Job(), Content("a"));
  EXPECT_EQ(Contents(Job()), (std::vector{Content("a"), Content("b"), Content("a")}));
}

TEST_F(VersionsTest, Any_bytes_are_kept_as_they_are_and_no_job_has_no_number_of_sections) {
  const std::string bytes("\0\xFF no job,\n\n at all", 18);
  for (const std::string& each : {std::string(), bytes, Content("cut").substr(0, 500)}) {
    Keep(Job(), each);
    EXPECT_EQ(ReadVersion(VersionsOf(Job()).front().File), each);
  }
  EXPECT_EQ(VersionsOf(Job()).at(0).Sections, 2);
  EXPECT_EQ(VersionsOf(Job()).at(1).Sections, std::nullopt);
  EXPECT_EQ(VersionsOf(Job()).at(2).Sections, std::nullopt);
}

TEST_F(VersionsTest, Each_job_has_its_own_and_those_without_a_name_are_listed_for_each) {
  Keep(Job(), Content("job"));
  Keep(TempPath("other.ovd"), Content("other"));
  Keep("", Content("nameless"));
  Keep("  ", Content("nameless too"));
  EXPECT_EQ(Contents(Job()),
            (std::vector{Content("job"), Content("nameless too"), Content("nameless")}));
  EXPECT_EQ(Contents(TempPath("new.ovd")),
            (std::vector{Content("nameless too"), Content("nameless")}));
  EXPECT_EQ(Contents(""), (std::vector{Content("nameless too"), Content("nameless")}));
  const std::vector<Version> versions = VersionsOf(Job());
  EXPECT_FALSE(versions.at(0).IsUntitled);
  EXPECT_TRUE(versions.at(1).IsUntitled);
}

TEST_F(VersionsTest, A_job_is_the_same_by_whatever_way_its_path_is_told) {
  Keep(Job(), Content("a"));
  const std::string relative = fs::relative(Job()).string();
  EXPECT_EQ(Contents(relative), std::vector{Content("a")});
  EXPECT_EQ(Contents(TempPath("none/../job.ovd")), std::vector{Content("a")});
  EXPECT_EQ(BytesOf(OnlyFolder() + "/job.txt"), Job() + "\n");
}

TEST_F(VersionsTest, Nobody_else_may_read_them) {
  Keep(Job(), Content("a"));
  const auto modeOf = [](const std::string& path) { return fs::status(path).permissions(); };
  EXPECT_EQ(modeOf(Folder()), fs::perms(0700));
  EXPECT_EQ(modeOf(OnlyFolder()), fs::perms(0700));
  for (const auto& entry : fs::directory_iterator(OnlyFolder())) {
    EXPECT_EQ(modeOf(entry.path().string()), fs::perms(0600)) << entry.path();
  }
}

TEST_F(VersionsTest, Without_a_folder_nothing_is_kept_and_nothing_listed) {
  Keep(Job(), Content("a"));
  KeepVersionsIn({});
  EXPECT_TRUE(VersionsOf(Job()).empty());
  KeepVersionApart(VersionOf(Job(), VersionKind::BeforeSave, Content("b")));
  EXPECT_EQ(TakeVersionTrouble(), "");
  EXPECT_EQ(ErrorOf([&] { Keep(Job(), Content("b")); }), "Path not found");
  KeepVersionsIn(TempPath(""));
  EXPECT_EQ(Contents(Job()), std::vector{Content("a")});
}

TEST_F(VersionsTest, An_error_apart_is_told_once_when_somebody_asks) {
  TempFile("versions", "a file where the folder should be");
  KeepVersionApart(VersionOf(Job(), VersionKind::BeforeSave, Content("a")));
  EXPECT_NE(TakeVersionTrouble(), "");
  EXPECT_EQ(TakeVersionTrouble(), "");
}

// --- Damage

TEST_F(VersionsTest, What_is_no_version_is_passed_over) {
  Keep(Job(), Content("a"));
  const Version version = VersionsOf(Job()).front();
  const std::string folder = OnlyFolder();
  for (const char* name :
       {"notes.txt", ".version", "1.version", "00000002-20261301T000000-1-saved-2.version",
        "00000002-20260101T240000-1-saved-2.version", "00000002-20260101T000000-1-other-2.version",
        "00000002-20260101T000000-1-saved-.version", "00000002-20260101T000000-1-saved-2.version~",
        "00000002-20260101T000000--saved-2.version", "-00000002-20260101T000000-1-saved-2.version",
        "00000002-20260101T000000-1-saved-2.version.99.tmp"}) {
    Copied(version, name);
  }
  fs::create_directory(folder + "/00000003-20260101T000000-1-saved-2.version");
  fs::create_symlink(version.File, folder + "/00000004-20260101T000000-1-saved-2.version");
  TempFile("versions/stray", "in the folder of all");
  EXPECT_EQ(Contents(Job()), std::vector{Content("a")});
  Keep(Job(), Content("b"));
  EXPECT_EQ(Contents(Job()), (std::vector{Content("b"), Content("a")}));
}

TEST_F(VersionsTest, What_a_killed_program_left_beside_them_is_swept) {
  Keep(Job(), Content("a"));
  const pid_t child = fork();
  if (child == 0) _exit(0);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  const std::string version = VersionsOf(Job()).front().File;
  const std::string dead = version + "." + DecimalText(child) + ".tmp";
  const std::string alive = version + "." + DecimalText(getpid()) + ".tmp";
  fs::copy_file(version, dead);
  fs::copy_file(version, alive);
  Keep(Job(), Content("b"));
  EXPECT_FALSE(fs::exists(dead));
  EXPECT_TRUE(fs::exists(alive));
}

TEST_F(VersionsTest, A_damaged_version_is_listed_and_says_so_when_it_is_read) {
  Keep(Job(), Content("a"));
  const std::string file = VersionsOf(Job()).front().File;
  const std::string whole = BytesOf(file);
  const std::string name = file.substr(TempPath("").size());
  int damaged = 0;
  for (std::size_t at = 0; at < whole.size(); at += 7) {
    std::string bytes = whole;
    bytes.at(at) = static_cast<char>(bytes.at(at) ^ 1);
    TempFile(name, bytes);
    EXPECT_EQ(ErrorOf([&] { ReadVersion(file); }), "This version is damaged and can't be opened");
    TempFile(name, whole.substr(0, at));
    EXPECT_EQ(ErrorOf([&] { ReadVersion(file); }), "This version is damaged and can't be opened");
    damaged += 2;
  }
  EXPECT_GT(damaged, 100);
  EXPECT_EQ(VersionsOf(Job()).size(), 1U);
  Keep(Job(), Content("a"));  // what can't be read is not the same
  EXPECT_EQ(VersionsOf(Job()).size(), 2U);
  fs::remove(file);
  EXPECT_EQ(ErrorOf([&] { ReadVersion(file); }), "File not found");
}

// --- How many

std::vector<Moment> Every(int minutes, int count, Moment from = {{2026, 11, 2}, 0, 0, 0}) {
  std::vector<Moment> times;
  for (int at = 0; at < count; ++at) {
    const int minute = from.Hour * 60 + from.Minute + at * minutes;
    Moment time = from;
    time.Day.Day += minute / (24 * 60);
    time.Hour = minute / 60 % 24;
    time.Minute = minute % 60;
    times.push_back(time);
  }
  return times;
}

using Places = std::vector<std::size_t>;

TEST_F(VersionsTest, Up_to_thirty_none_goes_however_old) {
  EXPECT_EQ(VersionsTooMany({}), Places{});
  EXPECT_EQ(VersionsTooMany(Every(0, 30)), Places{});
  std::vector<Moment> times = Every(0, 29, {{1990, 1, 1}, 0, 0, 0});
  times.push_back({{2026, 11, 22}, 12, 0, 0});
  EXPECT_EQ(VersionsTooMany(times), Places{});
}

TEST_F(VersionsTest, Saves_in_a_row_leave_the_last_thirty) {
  EXPECT_EQ(VersionsTooMany(Every(1, 31)), (Places{0}));
  EXPECT_EQ(VersionsTooMany(Every(1, 35)), (Places{0, 1, 2, 3, 4}));
}

// Versions at 0:00, 0:20, 0:40, 1:00 and so on to 10:00: the first two of an hour have a later one.
TEST_F(VersionsTest, Of_the_last_day_one_an_hour_stays_when_there_are_too_many) {
  EXPECT_EQ(VersionsTooMany(Every(20, 31)), (Places{0}));
  EXPECT_EQ(VersionsTooMany(Every(20, 33)), (Places{0, 1, 3}));
  EXPECT_EQ(VersionsTooMany(Every(20, 36)), (Places{0, 1, 3, 4, 6, 7}));
}

TEST_F(VersionsTest, Of_days_before_one_a_day_stays) {
  // Two a day on the 2nd to the 12th, 22 in all, and ten in a row on the 20th.
  std::vector<Moment> times;
  for (int day = 2; day <= 12; ++day) {
    times.push_back({{2026, 11, day}, 9, 0, 0});
    times.push_back({{2026, 11, day}, 16, 0, 0});
  }
  for (int minute = 0; minute < 10; ++minute) times.push_back({{2026, 11, 20}, 8, minute, 0});
  ASSERT_EQ(times.size(), 32U);
  // The 2nd, a Monday, is older than two weeks by then, and its week goes on to the 8th.
  EXPECT_EQ(VersionsTooMany(times), (Places{0, 1}));
  // On the 15th none is older than two weeks: the morning of each day has its afternoon.
  for (std::size_t at = 22; at < times.size(); ++at) times.at(at).Day.Day = 15;
  EXPECT_EQ(VersionsTooMany(times), (Places{0, 2}));
}

TEST_F(VersionsTest, Of_weeks_before_one_a_week_stays) {
  // A day each on 6 Mondays and the Tuesdays behind them, long ago; then 20 in a row.
  std::vector<Moment> times;
  for (int week = 0; week < 6; ++week) {
    const int day = 2 + 7 * (week % 4);
    const int month = week < 4 ? 2 : 3;  // of 2026: Monday is the 2nd of both
    times.push_back({{2026, month, day}, 9, 0, 0});
    times.push_back({{2026, month, day + 1}, 9, 0, 0});
  }
  for (const Moment& time : Every(1, 20)) times.push_back(time);
  EXPECT_EQ(VersionsTooMany(times), (Places{0, 2}));
}

TEST_F(VersionsTest, Where_each_stands_for_itself_the_oldest_goes) {
  // One in each of 21 months long ago, and ten in a row, for which no other stands in.
  std::vector<Moment> times;
  for (int month = 1; month <= 12; ++month) times.push_back({{2024, month, 1}, 9, 0, 0});
  for (int month = 1; month <= 9; ++month) times.push_back({{2025, month, 1}, 9, 0, 0});
  for (const Moment& time : Every(1, 10)) times.push_back(time);
  ASSERT_EQ(times.size(), 31U);
  EXPECT_EQ(VersionsTooMany(times), (Places{0}));
}

TEST_F(VersionsTest, A_clock_set_back_costs_no_new_version) {
  // 30 of next year by a clock that was wrong, then ten by the right one.
  std::vector<Moment> times = Every(1, 30, {{2027, 11, 2}, 8, 0, 0});
  for (const Moment& time : Every(1, 10)) times.push_back(time);
  EXPECT_EQ(VersionsTooMany(times), (Places{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));

  for (int at = 0; at < 31; ++at) {
    At({2027, 11, 2}, 8, at);
    Keep(Job(), Content(std::to_string(at)));
  }
  At({2026, 11, 2}, 8, 0);
  Keep(Job(), Content("back"));
  EXPECT_EQ(VersionsOf(Job()).size(), 30U);
  EXPECT_EQ(ReadVersion(VersionsOf(Job()).front().File), Content("back"));
  EXPECT_EQ(ReadVersion(VersionsOf(Job()).at(1).File), Content("30"));
}

TEST_F(VersionsTest, Keeping_one_too_many_removes_one) {
  for (int at = 0; at < 31; ++at) Keep(Job(), Content(std::to_string(at)));
  const std::vector<Version> versions = VersionsOf(Job());
  EXPECT_EQ(versions.size(), 30U);
  EXPECT_EQ(ReadVersion(versions.front().File), Content("30"));
  EXPECT_EQ(ReadVersion(versions.back().File), Content("1"));
}

TEST_F(VersionsTest, Of_all_jobs_the_oldest_go_beyond_200_MB) {
  constexpr std::uintmax_t MB = 1 << 20;
  const auto grow = [](const Version& version, std::uintmax_t bytes) {
    fs::resize_file(version.File, bytes);  // takes no room on the disk
  };
  At({2026, 11, 20}, 9, 0);
  Keep(Job(), Content("of the 20th"));
  grow(VersionsOf(Job()).front(), 100 * MB);
  At({2026, 11, 21}, 9, 0);
  Keep(TempPath("other.ovd"), Content("of the 21st"));
  grow(VersionsOf(TempPath("other.ovd")).front(), 90 * MB);
  At({2026, 11, 22}, 9, 0);
  Keep(Job(), Content("of the 22nd"));  // 190 MB and a bit
  EXPECT_EQ(VersionsOf(Job()).size(), 2U);
  grow(VersionsOf(Job()).front(), 20 * MB);
  At({2026, 11, 23}, 9, 0);
  Keep("", Content("of the 23rd"));  // 210 MB and a bit: that of the 20th goes
  EXPECT_EQ(VersionsOf(Job()).size(), 2U);
  EXPECT_EQ(VersionsOf(Job()).front().Time.Day.Day, 22);
  EXPECT_EQ(VersionsOf(TempPath("other.ovd")).front().Time.Day.Day, 21);

  // By a clock that was set back the new one is the oldest, and stays.
  grow(VersionsOf(TempPath("other.ovd")).front(), 190 * MB);
  At({2025, 1, 1}, 9, 0);
  Keep(TempPath("third.ovd"), Content("set back"));
  EXPECT_EQ(ReadVersion(VersionsOf(TempPath("third.ovd")).front().File), Content("set back"));
}

}  // namespace

}  // namespace orvane
