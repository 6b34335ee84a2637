// What a file replacement does where it can't, or mustn't, do it all: rights of another file, files
// that keep their place, what dead programs left.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>

#include "core/disk.h"
#include "core/file_replacement.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "tests/core/file_replacement_fixture.h"
#include "tests/support/failing_disk.h"

namespace {

using namespace orvane;
using orvane::test::AsOrdinaryUser;
using orvane::test::BytesOf;
using orvane::test::FailingDisk;
using orvane::test::Fault;
using orvane::test::FileReplacements;
using orvane::test::ForEachFault;
using orvane::test::Names;
namespace fs = std::filesystem;

// --- Rights of another file

TEST_F(FileReplacements, Takes_the_permissions_of_the_file_that_it_is_told) {
  const std::string secret = TempFile("secret.txt", "x");
  Mode(secret, 0600);
  const std::string path = TempPath("a.txt");
  ReplaceWholeFile(path, "new", secret);
  EXPECT_EQ(ModeOf(path), 0600U);
  Mode(path, 0644);
  ReplaceWholeFile(path, "newer", secret);
  EXPECT_EQ(ModeOf(path), 0600U);
}

TEST_F(FileReplacements, A_copy_of_a_private_file_is_private_all_the_time) {
  const std::string secret = TempFile("secret.txt", "x");
  Mode(secret, 0600);
  const std::string path = TempPath("a.txt");
  FileReplacement file(path, secret);
  file.Write("new");
  EXPECT_EQ(ModeOf(path + "." + DecimalText(getpid()) + ".tmp"), 0600U);
}

// --- Where no file can take the place

TEST_F(FileReplacements, A_folder_that_takes_no_file_is_an_error_of_its_own) {
  const std::string shut = Folder("shut");
  const std::string inside = TempFile("shut/a.txt", "old");
  const std::string locked = TempFile("shut/locked.txt", "old");
  Mode(inside, 0666);
  Mode(locked, 0444);
  Mode(shut, 0555);
  const auto ended = [](const std::string& path) -> std::string {
    try {
      ReplaceWholeFile(path, "new");
    } catch (const NoFileBeside& error) {
      return "no place: " + error.Description();
    } catch (const RuntimeError& error) {
      return error.Description();
    }
    return "replaced";
  };
  EXPECT_EQ(AsOrdinaryUser([&] { return ended(inside); }), "no place: Permission denied");
  // A file that may not be written, or isn't there yet, has no place to be written in either.
  EXPECT_EQ(AsOrdinaryUser([&] { return ended(locked); }), "Permission denied");
  EXPECT_EQ(AsOrdinaryUser([&] { return ended(shut + "/new.txt"); }), "Permission denied");
  Mode(shut, 0755);
}

TEST_F(FileReplacements, Names_of_one_file_are_seen) {
  const std::string path = TempFile("a.txt", "old");
  EXPECT_FALSE(HasOtherNames(path));
  EXPECT_FALSE(HasOtherNames(TempPath("gone.txt")));
  fs::create_hard_link(path, TempPath("b.txt"));
  fs::create_symlink("a.txt", TempPath("link.txt"));
  EXPECT_TRUE(HasOtherNames(path));
  EXPECT_TRUE(HasOtherNames(TempPath("link.txt")));
}

TEST_F(FileReplacements, Written_over_a_file_keeps_its_names_its_links_and_its_rights) {
  const std::string path = TempFile("a.txt", "the old text");
  Mode(path, 0640);
  fs::create_hard_link(path, TempPath("b.txt"));
  fs::create_symlink("a.txt", TempPath("link.txt"));
  for (const std::string fresh : {"new", "a text that is longer than the old one", ""}) {
    const Overwriting done = OverwriteWholeFile(TempPath("link.txt"), fresh, BytesOf(path));
    EXPECT_FALSE(done.Error.has_value());
    EXPECT_EQ(BytesOf(path), fresh);
    EXPECT_EQ(BytesOf(TempPath("b.txt")), fresh);
  }
  EXPECT_TRUE(fs::is_symlink(TempPath("link.txt")));
  EXPECT_EQ(ModeOf(path), 0640U);
}

TEST_F(FileReplacements, A_fault_while_a_file_is_written_over_brings_the_former_content_back) {
  const std::string path = TempPath("a.txt");
  const std::string former = "what stood there before";
  std::string told;
  bool holdsFormer = false;
  int lost = 0;
  const auto write = [&] {
    const Overwriting done = OverwriteWholeFile(path, "new", former);
    told = done.Error ? done.Error->Description() : "";
    holdsFormer = done.HoldsFormer;
  };
  ForEachFault([&] { TempFile("a.txt", former); }, write,
               [&](const Fault& fault, const FailingDisk& disk) {
                 const std::string where = TextOf(fault, disk);
                 // An interrupted closing has closed.
                 const bool closed = fault.Error == EINTR && disk.Calls.back() == "close";
                 if (fault.Heals() || closed) {
                   EXPECT_EQ(told, "") << where;
                   EXPECT_EQ(BytesOf(path), "new") << where;
                   return;
                 }
                 EXPECT_NE(told, "") << where;
                 // By a disk that is broken for good nothing comes back; that is said.
                 EXPECT_TRUE(holdsFormer || fault.Stays) << where;
                 if (!holdsFormer) {
                   ++lost;
                 } else {
                   EXPECT_EQ(BytesOf(path), former) << where;
                 }
               });
  EXPECT_GT(lost, 0);
}

TEST_F(FileReplacements, Only_what_stands_there_is_written_over) {
  const std::string folder = Folder("f");
  const Overwriting done = OverwriteWholeFile(folder + "/a.txt", "new", "old");
  ASSERT_TRUE(done.Error.has_value());
  EXPECT_EQ(done.Error->Description(), "File not found");
  EXPECT_TRUE(done.HoldsFormer);
  EXPECT_EQ(NamesIn(folder), Names{});
}

// --- What dead programs leave

// A number that no program has: that of a child which has ended and was asked how.
std::string NumberOfTheDead() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return DecimalText(child);
}

TEST_F(FileReplacements, What_dead_programs_left_is_swept_and_nothing_else) {
  const std::string folder = Folder("f");
  const std::string dead = NumberOfTheDead();
  const std::string own = DecimalText(getpid());
  for (const std::string name :
       {"a.ovd", "a.ovd.bak", "a.ovd.tmp", "a.ovd.x.tmp", "a.ovd.-5.tmp", "a.ovd.0.tmp"}) {
    TempFile("f/" + name, "stays");
  }
  TempFile("f/a.ovd." + own + ".tmp", "of a living program");
  TempFile("f/b.ovd." + dead + ".tmp", "another job's");
  TempFile("f/a.ovd." + dead, "no temporary file");
  TempFile("f/a.ovd.copy." + dead + ".tmp", "another file's");
  fs::create_symlink("a.ovd", folder + "/a.ovd." + dead + ".tmp.tmp.tmp");
  const Names kept = NamesIn(folder);
  TempFile("f/a.ovd." + dead + ".tmp", "swept");
  TempFile("f/a.ovd." + dead + ".tmp.tmp", "swept");
  TempFile("f/a.ovd.bak." + dead + ".tmp", "swept");
  SweepLeftovers(folder + "/a.ovd", ".bak");
  EXPECT_EQ(NamesIn(folder), kept);
}

TEST_F(FileReplacements, A_leftover_that_somebody_writes_or_that_is_somebody_elses_stays) {
  const std::string folder = Folder("f");
  const std::string dead = NumberOfTheDead();
  // A program on another computer, whose number means nothing here, holds its file.
  TempFile("f/a.ovd." + dead + ".tmp", "held");
  const int held = open((folder + "/a.ovd." + dead + ".tmp").c_str(), O_WRONLY);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  Names kept = {"a.ovd." + dead + ".tmp"};
  if (getuid() == 0) {
    TempFile("f/a.ovd.bak." + dead + ".tmp", "another user's");
    ASSERT_EQ(chown((folder + "/a.ovd.bak." + dead + ".tmp").c_str(), 1234, 1234), 0);
    kept.push_back("a.ovd.bak." + dead + ".tmp");
  }
  std::sort(kept.begin(), kept.end());
  SweepLeftovers(folder + "/a.ovd", ".bak");
  EXPECT_EQ(NamesIn(folder), kept);
  close(held);
}

TEST_F(FileReplacements, A_new_file_is_held_while_it_is_written) {
  const std::string path = TempPath("a.txt");
  FileReplacement file(path);
  EXPECT_FALSE(IsAbandoned(path + "." + DecimalText(getpid()) + ".tmp"));
  EXPECT_TRUE(IsAbandoned(TempFile("b.txt", "nobody's")));
}

TEST_F(FileReplacements, Beside_a_link_nothing_is_swept_but_beside_its_file) {
  Folder("kept");
  const std::string dead = NumberOfTheDead();
  TempFile("kept/a.txt", "x");
  TempFile("kept/a.txt." + dead + ".tmp", "swept");
  TempFile("link.txt." + dead + ".tmp", "stays");
  fs::create_symlink("kept/a.txt", TempPath("link.txt"));
  SweepLeftovers(TempPath("link.txt"));
  EXPECT_EQ(NamesIn(TempPath("kept")), (Names{"a.txt"}));
  EXPECT_TRUE(fs::exists(TempPath("link.txt." + dead + ".tmp")));
  SweepLeftovers(TempPath("gone/a.txt"));
  SweepLeftovers("");
}

}  // namespace
