#include "core/file_replacement.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "core/files.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "tests/core/file_replacement_fixture.h"
#include "tests/support/failing_disk.h"

namespace {

using namespace orvane;
using orvane::test::AsOrdinaryUser;
using orvane::test::BytesOf;
using orvane::test::ErrorOf;
using orvane::test::FailingDisk;
using orvane::test::Fault;
using orvane::test::FileReplacements;
using orvane::test::ForEachFault;
using orvane::test::Names;
using orvane::test::OutcomeOf;
namespace fs = std::filesystem;

TEST_F(FileReplacements, Leaves_the_new_text_and_nothing_else) {
  const std::string folder = Folder("f");
  ReplaceWholeFile(folder + "/a.txt", "one");
  EXPECT_EQ(BytesOf(folder + "/a.txt"), "one");
  ReplaceWholeFile(folder + "/a.txt", std::string_view("t\0wo", 4));
  EXPECT_EQ(BytesOf(folder + "/a.txt"), std::string("t\0wo", 4));
  EXPECT_EQ(NamesIn(folder), (Names{"a.txt"}));
}

TEST_F(FileReplacements, Pieces_of_any_size_stand_in_the_file_in_their_order) {
  const std::string path = TempPath("a.txt");
  std::string all;
  {
    FileReplacement file(path);
    for (const std::size_t size : {1U, 65535U, 1U, 65536U, 65537U, 0U, 200000U, 7U}) {
      const std::string piece(size, static_cast<char>('a' + all.size() % 26));
      file.Write(piece);
      all += piece;
    }
    EXPECT_FALSE(fs::exists(path));
    file.Commit();
  }
  EXPECT_EQ(BytesOf(path), all);
}

TEST_F(FileReplacements, One_that_is_not_committed_leaves_the_former_file_or_none) {
  const std::string folder = Folder("f");
  TempFile("f/a.txt", "old");
  {
    FileReplacement over(folder + "/a.txt");
    over.Write("new");
    FileReplacement fresh(folder + "/b.txt");
    fresh.Write(std::string(100000, 'x'));
  }
  EXPECT_EQ(BytesOf(folder + "/a.txt"), "old");
  EXPECT_EQ(NamesIn(folder), (Names{"a.txt"}));
}

TEST_F(FileReplacements, Never_writes_into_the_old_file) {
  const std::string path = TempFile("a.txt", "old");
  fs::create_hard_link(path, TempPath("old.txt"));
  ReplaceWholeFile(path, "new");
  EXPECT_EQ(BytesOf(path), "new");
  EXPECT_EQ(BytesOf(TempPath("old.txt")), "old");
}

TEST_F(FileReplacements, Keeps_the_permissions_of_the_old_file) {
  const std::string path = TempFile("a.txt", "old");
  for (const unsigned mode : {0600U, 0640U, 0664U}) {
    Mode(path, mode);
    ReplaceWholeFile(path, "new");
    EXPECT_EQ(ModeOf(path), mode);
  }
}

TEST_F(FileReplacements, A_new_file_gets_the_usual_permissions) {
  const mode_t before = umask(027);
  ReplaceWholeFile(TempPath("a.txt"), "new");
  umask(before);
  EXPECT_EQ(ModeOf(TempPath("a.txt")), 0640U);
}

TEST_F(FileReplacements, What_replaces_a_private_file_is_private_all_the_time) {
  const std::string path = TempFile("a.txt", "old");
  Mode(path, 0600);
  FileReplacement file(path);
  file.Write("new");
  const std::string fresh = path + "." + DecimalText(getpid()) + ".tmp";
  EXPECT_EQ(ModeOf(fresh), 0600U);
  file.Commit();
  EXPECT_EQ(ModeOf(path), 0600U);
}

TEST_F(FileReplacements, Keeps_owner_and_group_where_the_system_lets) {
  if (getuid() != 0) GTEST_SKIP() << "only root may give files away";
  const std::string path = TempFile("a.txt", "old");
  ASSERT_EQ(chown(path.c_str(), 1234, 4321), 0);
  Mode(path, 0640);
  ReplaceWholeFile(path, "new");
  struct stat state {};
  ASSERT_EQ(stat(path.c_str(), &state), 0);
  EXPECT_EQ(state.st_uid, 1234U);
  EXPECT_EQ(state.st_gid, 4321U);
  EXPECT_EQ(ModeOf(path), 0640U);
}

TEST_F(FileReplacements, Follows_a_link_and_keeps_it) {
  const std::string kept = Folder("kept");
  const std::string path = TempFile("kept/a.txt", "old");
  const std::string link = TempPath("link.txt");
  fs::create_symlink("kept/a.txt", link);
  fs::create_symlink(link, TempPath("again.txt"));
  ReplaceWholeFile(TempPath("again.txt"), "new");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_TRUE(fs::is_symlink(TempPath("again.txt")));
  EXPECT_EQ(BytesOf(path), "new");
  EXPECT_EQ(NamesIn(kept), (Names{"a.txt"}));
}

TEST_F(FileReplacements, A_link_to_a_file_that_is_not_there_yet_gets_its_file) {
  Folder("kept");
  const std::string link = TempPath("link.txt");
  fs::create_symlink("kept/a.txt", link);
  ReplaceWholeFile(link, "new");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(BytesOf(TempPath("kept/a.txt")), "new");
}

TEST_F(FileReplacements, Links_that_lead_nowhere_are_told) {
  fs::create_symlink("b.txt", TempPath("a.txt"));
  fs::create_symlink("a.txt", TempPath("b.txt"));
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(TempPath("a.txt"), "x"); }), std::strerror(ELOOP));
  fs::create_symlink("gone/a.txt", TempPath("c.txt"));
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(TempPath("c.txt"), "x"); }), "Path not found");
}

TEST_F(FileReplacements, Leaves_files_alone_that_bear_the_name_it_would_use) {
  const std::string folder = Folder("f");
  TempFile("f/a.txt", "old");
  const std::string fresh = "a.txt." + DecimalText(getpid()) + ".tmp";
  TempFile("f/" + fresh, "someone else's");
  Folder("f/" + fresh + ".tmp");
  fs::create_symlink("elsewhere", folder + "/" + fresh + ".tmp.tmp");
  ReplaceWholeFile(folder + "/a.txt", "new");
  EXPECT_EQ(BytesOf(folder + "/a.txt"), "new");
  EXPECT_EQ(BytesOf(folder + "/" + fresh), "someone else's");
  EXPECT_EQ(NamesIn(folder), (Names{"a.txt", fresh, fresh + ".tmp", fresh + ".tmp.tmp"}));
}

TEST_F(FileReplacements, A_killed_program_leaves_a_file_of_its_own_number_and_the_old_one) {
  const std::string folder = Folder("f");
  const std::string path = folder + "/a.txt";
  const std::string fresh = "a.txt." + DecimalText(getpid()) + ".tmp";
  // A child that is killed in the middle of the write leaves its file behind.
  const pid_t child = fork();
  if (child == 0) {
    (void)std::signal(SIGXFSZ, SIG_DFL);
    const rlimit limit{1000, 1000};
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_FSIZE, &limit);
    setrlimit(RLIMIT_CORE, &noCore);
    OutcomeOf([&] { ReplaceWholeFile(path, std::string(5000, 'x')); });
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  const std::string leftover = "a.txt." + DecimalText(child) + ".tmp";
  EXPECT_EQ(NamesIn(folder), (Names{leftover}));
  // Another process's leftover is not in the way of the next one's file.
  ASSERT_NE(leftover, fresh);
  ReplaceWholeFile(path, "new");
  EXPECT_EQ(BytesOf(path), "new");
  EXPECT_EQ(NamesIn(folder), (Names{"a.txt", leftover}));
}

TEST_F(FileReplacements, A_name_as_long_as_the_disk_takes_is_written_too) {
  const std::string folder = Folder("f");
  // 255 bytes: letters of two bytes each, so that a cut at any byte would break one.
  std::string name = "x";
  while (name.size() < 251) name += "\xC3\xBC";
  name += ".xov";
  ASSERT_EQ(name.size(), 255U);
  ReplaceWholeFile(folder + "/" + name, "one");
  ReplaceWholeFile(folder + "/" + name, "two");
  EXPECT_EQ(BytesOf(folder + "/" + name), "two");
  EXPECT_EQ(NamesIn(folder), (Names{name}));
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(folder + "/y" + name, "x"); }),
            std::strerror(ENAMETOOLONG));
}

TEST_F(FileReplacements, A_pipe_a_folder_and_a_device_are_told_and_not_waited_for) {
  const std::string folder = Folder("f");
  const std::string pipe = folder + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  fs::create_symlink("pipe", folder + "/link");
  fs::create_symlink("/dev/full", folder + "/full");
  Folder("f/folder");
  TempFile("f/folder/a.txt", "in it");
  for (const char* name : {"pipe", "link", "full"}) {
    EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(folder + "/" + name, "x"); }), "Not a regular file")
        << name;
  }
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(folder + "/folder", "x"); }), std::strerror(EISDIR));
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(folder + "/folder/", "x"); }), std::strerror(EISDIR));
  EXPECT_TRUE(fs::is_fifo(pipe));
  EXPECT_EQ(NamesIn(folder), (Names{"folder", "full", "link", "pipe"}));
  EXPECT_EQ(NamesIn(folder + "/folder"), (Names{"a.txt"}));
}

TEST_F(FileReplacements, A_missing_folder_and_an_empty_path_are_told) {
  const std::string folder = Folder("f");
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(folder + "/gone/a.txt", "x"); }), "Path not found");
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(folder + "/gone/", "x"); }), "Path not found");
  EXPECT_EQ(ErrorOf([] { ReplaceWholeFile("", "x"); }), "File not found");
  EXPECT_EQ(NamesIn(folder), Names{});
}

TEST_F(FileReplacements, One_that_runs_out_of_room_keeps_the_old_file) {
  const std::string folder = Folder("f", 0777);
  const std::string path = TempFile("f/a.txt", "old");
  Mode(path, 0666);
  const std::string outcome = AsOrdinaryUser([&] {
    // A limit on the size of files stands for the full disk; its signal would end the process.
    (void)std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    return OutcomeOf([&] { ReplaceWholeFile(path, std::string(5000, 'x')); });
  });
  EXPECT_EQ(outcome, std::strerror(EFBIG));
  EXPECT_EQ(BytesOf(path), "old");
  EXPECT_EQ(NamesIn(folder), (Names{"a.txt"}));
}

TEST_F(FileReplacements, A_file_that_may_not_be_written_may_not_be_replaced) {
  const std::string open = Folder("open", 0777);
  const std::string locked = TempFile("open/a.txt", "old");
  Mode(locked, 0444);
  const std::string shut = Folder("shut");
  const std::string inside = TempFile("shut/a.txt", "old");
  Mode(inside, 0666);
  Mode(shut, 0555);
  for (const std::string& path : {locked, inside, shut + "/new.txt"}) {
    EXPECT_EQ(AsOrdinaryUser([&] { return OutcomeOf([&] { ReplaceWholeFile(path, "new"); }); }),
              "Permission denied")
        << path;
  }
  Mode(shut, 0755);
  EXPECT_EQ(BytesOf(locked), "old");
  EXPECT_EQ(BytesOf(inside), "old");
  EXPECT_EQ(NamesIn(open), (Names{"a.txt"}));
  EXPECT_EQ(NamesIn(shut), (Names{"a.txt"}));
}

TEST_F(FileReplacements, A_folder_that_may_be_written_but_not_read_takes_files) {
  const std::string folder = Folder("drop", 0333);
  EXPECT_EQ(AsOrdinaryUser(
                [&] { return OutcomeOf([&] { ReplaceWholeFile(folder + "/a.txt", "new"); }); }),
            "");
  Mode(folder, 0755);
  EXPECT_EQ(NamesIn(folder), (Names{"a.txt"}));
}

TEST_F(FileReplacements, The_error_names_the_file_as_it_was_given) {
  fs::create_symlink("gone/a.txt", TempPath("c.txt"));
  try {
    ReplaceWholeFile(TempPath("c.txt"), "x");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.File(), TempPath("c.txt"));
  }
}

TEST_F(FileReplacements, Every_fault_leaves_the_old_file_or_the_new_one_and_is_told) {
  const std::string folder = Folder("f");
  const std::string path = folder + "/a.txt";
  const std::string fresh(200000, 'n');
  for (const std::string former : {"old", ""}) {
    std::string told;
    const auto prepare = [&] {
      fs::remove(path);
      if (!former.empty()) TempFile("f/a.txt", former);
    };
    const auto write = [&] {
      told = OutcomeOf([&] {
        FileReplacement file(path);
        file.Write("n");
        file.Write(std::string_view(fresh).substr(1));
        file.Commit();
      });
    };
    ForEachFault(prepare, write, [&](const Fault& fault, const FailingDisk& disk) {
      const std::string where = "call " + std::to_string(fault.Call) + ", " +
                                disk.Calls.at(static_cast<std::size_t>(fault.Call - 1)) + ": " +
                                std::strerror(fault.Error);
      // Closing the former file, which was only looked at, fails nobody.
      const bool looked = told.empty() && disk.Calls.back() == "sync folder";
      EXPECT_TRUE(!told.empty() || looked) << where;
      const bool isNew = disk.MovedBefore || looked;
      EXPECT_EQ(fs::exists(path) ? BytesOf(path) : "", isNew ? fresh : former) << where;
      EXPECT_EQ(NamesIn(folder), (isNew || !former.empty() ? Names{"a.txt"} : Names{})) << where;
    });
  }
}

TEST_F(FileReplacements, The_steps_are_in_the_order_that_a_power_cut_asks_for) {
  const std::string path = TempFile("a.txt", "old");
  FailingDisk disk(Fault{});
  ReplaceWholeFile(path, "new");
  EXPECT_EQ(disk.Calls, (Names{"open", "create", "write", "rights", "sync", "close", "close",
                               "move", "sync folder"}));
}

TEST_F(FileReplacements, A_disk_that_takes_a_few_bytes_at_a_time_gets_them_all) {
  const std::string path = TempPath("a.txt");
  FailingDisk disk(Fault{});
  disk.MostTaken = 3;
  ReplaceWholeFile(path, "ten bytes.");
  EXPECT_EQ(BytesOf(path), "ten bytes.");
}

TEST_F(FileReplacements, A_disk_that_takes_nothing_and_says_nothing_is_an_error) {
  const std::string path = TempFile("a.txt", "old");
  FailingDisk disk(Fault{});
  disk.MostTaken = 0;
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(path, "new"); }), std::strerror(EIO));
  EXPECT_EQ(BytesOf(path), "old");
}

}  // namespace
