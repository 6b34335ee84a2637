#include "core/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;
using orvane::test::AsOrdinaryUser;
using orvane::test::BytesOf;
using orvane::test::ErrorOf;
using orvane::test::OutcomeOf;

class Files : public orvane::test::SystemTest {
 protected:
  std::string Folder(const std::string& name, unsigned mode = 0755) {
    std::string path = TempPath(name);
    std::filesystem::create_directories(path);
    Mode(path, mode);
    return path;
  }
  static void Mode(const std::string& path, unsigned mode) {
    std::filesystem::permissions(path, std::filesystem::perms(mode));
  }
  static unsigned ModeOf(const std::string& path) {
    return static_cast<unsigned>(std::filesystem::status(path).permissions());
  }
  std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

using Names = std::vector<std::string>;

// --- Reading

TEST_F(Files, A_whole_file_is_read_byte_by_byte) {
  const std::string odd("\0\r\n\x1A\xFF\xEF\xBB\xBF", 8);
  for (const std::string& bytes :
       {std::string(), std::string("a"), odd, std::string(4095, 'x'), std::string(4096, 'x'),
        std::string(4097, 'x'), std::string(1000000, 'x') + odd}) {
    EXPECT_EQ(ReadWholeFile(TempFile("a", bytes)), bytes) << bytes.size();
  }
}

TEST_F(Files, A_file_whose_size_the_system_does_not_tell_is_read_to_its_end) {
  // A file of the process table has the size 0 and more than one page of text.
  const std::string text = ReadWholeFile("/proc/self/smaps");
  EXPECT_GT(text.size(), 4096U);
  EXPECT_EQ(text.back(), '\n');
  EXPECT_EQ(ReadWholeFile("/dev/null"), "");
}

TEST_F(Files, A_device_without_an_end_is_refused) {
  EXPECT_EQ(ErrorOf([] { ReadWholeFile("/dev/zero"); }), std::strerror(EFBIG));
}

TEST_F(Files, A_file_that_tells_more_than_a_GiB_is_refused_before_memory_is_asked_for) {
  const std::string path = TempFile("a.txt", "");
  // A file of holes, which takes no room on the disk.
  std::filesystem::resize_file(path, (std::uintmax_t{1} << 30) + 1);
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(path); }), std::strerror(EFBIG));
  std::filesystem::resize_file(path, std::uintmax_t{1} << 40);
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(path); }), std::strerror(EFBIG));
}

TEST_F(Files, What_cannot_be_read_raises_the_systems_description) {
  const std::string file = TempFile("a.txt", "x");
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(TempPath("gone.txt")); }), "File not found");
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(TempPath("gone/a.txt")); }), "Path not found");
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(file + "/a.txt"); }), "Path not found");
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(Folder("folder.txt")); }), std::strerror(EISDIR));
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(""); }), "File not found");
}

TEST_F(Files, A_file_without_the_right_to_read_it_is_Permission_denied) {
  const std::string file = TempFile("a.txt", "x");
  Mode(file, 0);
  EXPECT_EQ(AsOrdinaryUser([&] { return OutcomeOf([&] { ReadWholeFile(file); }); }),
            "Permission denied");
}

// --- Writing in place

TEST_F(Files, WriteWholeFile_replaces_what_the_file_held) {
  const std::string path = TempFile("a.txt", "a longer text than the new one");
  WriteWholeFile(path, std::string_view("x\r\n\0y", 5));
  EXPECT_EQ(BytesOf(path), std::string("x\r\n\0y", 5));
  WriteWholeFile(path, "");
  EXPECT_EQ(BytesOf(path), "");
  WriteWholeFile(TempPath("new.txt"), "new");
  EXPECT_EQ(BytesOf(TempPath("new.txt")), "new");
}

TEST_F(Files, WriteWholeFile_writes_through_to_the_file_itself) {
  const std::string path = TempFile("a.txt", "old");
  std::filesystem::create_hard_link(path, TempPath("same.txt"));
  WriteWholeFile(path, "new");
  EXPECT_EQ(BytesOf(TempPath("same.txt")), "new");
}

TEST_F(Files, What_cannot_be_written_raises_the_systems_description) {
  const std::string file = TempFile("a.txt", "x");
  EXPECT_EQ(ErrorOf([&] { WriteWholeFile(TempPath("gone/a.txt"), "x"); }), "Path not found");
  EXPECT_EQ(ErrorOf([&] { WriteWholeFile(file + "/a.txt", "x"); }), "Path not found");
  EXPECT_EQ(ErrorOf([&] { WriteWholeFile(Folder("folder"), "x"); }), std::strerror(EISDIR));
  EXPECT_EQ(ErrorOf([&] { WriteWholeFile("", "x"); }), "File not found");
}

TEST_F(Files, A_full_disk_is_seen_whether_it_shows_at_the_write_or_at_the_flush) {
  EXPECT_EQ(ErrorOf([] { WriteWholeFile("/dev/full", "x"); }), "Disk full");
  EXPECT_EQ(ErrorOf([] { WriteWholeFile("/dev/full", std::string(1000000, 'x')); }), "Disk full");
}

TEST_F(Files, A_device_without_anything_to_sync_can_be_written) {
  WriteWholeFile("/dev/null", "x");
  EXPECT_EQ(ReadWholeFile("/dev/null"), "");
}

TEST_F(Files, A_read_only_folder_or_file_is_Permission_denied) {
  const std::string folder = Folder("readonly", 0555);
  const std::string file = TempFile("readonly.txt", "old");
  Mode(file, 0444);
  EXPECT_EQ(AsOrdinaryUser([&] { return OutcomeOf([&] { WriteWholeFile(folder + "/a", "x"); }); }),
            "Permission denied");
  EXPECT_EQ(AsOrdinaryUser([&] { return OutcomeOf([&] { WriteWholeFile(file, "x"); }); }),
            "Permission denied");
  EXPECT_EQ(BytesOf(file), "old");
  Mode(folder, 0755);
}

// --- Replacing

TEST_F(Files, ReplaceWholeFile_leaves_the_new_text_and_nothing_else) {
  const std::string folder = Folder("f");
  ReplaceWholeFile(folder + "/a.txt", "one");
  EXPECT_EQ(BytesOf(folder + "/a.txt"), "one");
  ReplaceWholeFile(folder + "/a.txt", std::string_view("t\0wo", 4));
  EXPECT_EQ(BytesOf(folder + "/a.txt"), std::string("t\0wo", 4));
  EXPECT_EQ(NamesIn(folder), (Names{"a.txt"}));
}

TEST_F(Files, ReplaceWholeFile_never_writes_into_the_old_file) {
  const std::string path = TempFile("a.txt", "old");
  std::filesystem::create_hard_link(path, TempPath("old.txt"));
  ReplaceWholeFile(path, "new");
  EXPECT_EQ(BytesOf(path), "new");
  EXPECT_EQ(BytesOf(TempPath("old.txt")), "old");
}

TEST_F(Files, ReplaceWholeFile_keeps_the_permissions_of_the_old_file) {
  const std::string path = TempFile("a.txt", "old");
  for (const unsigned mode : {0600U, 0640U, 0664U}) {
    Mode(path, mode);
    ReplaceWholeFile(path, "new");
    EXPECT_EQ(ModeOf(path), mode);
  }
}

TEST_F(Files, ReplaceWholeFile_follows_a_link_and_keeps_it) {
  const std::string kept = Folder("kept");
  const std::string path = TempFile("kept/a.txt", "old");
  const std::string link = TempPath("link.txt");
  std::filesystem::create_symlink("kept/a.txt", link);
  ReplaceWholeFile(link, "new");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(BytesOf(path), "new");
  EXPECT_EQ(NamesIn(kept), (Names{"a.txt"}));
}

TEST_F(Files, ReplaceWholeFile_leaves_files_alone_that_bear_the_name_it_would_use) {
  const std::string folder = Folder("f");
  TempFile("f/a.txt", "old");
  const std::string fresh = "a.txt." + DecimalText(getpid()) + ".tmp";
  TempFile("f/" + fresh, "someone else's");
  Folder("f/" + fresh + ".tmp");
  ReplaceWholeFile(folder + "/a.txt", "new");
  EXPECT_EQ(BytesOf(folder + "/a.txt"), "new");
  EXPECT_EQ(BytesOf(folder + "/" + fresh), "someone else's");
  EXPECT_EQ(NamesIn(folder), (Names{"a.txt", fresh, fresh + ".tmp"}));
}

TEST_F(Files, ReplaceWholeFile_names_its_new_file_after_the_process_beside_the_old_one) {
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

TEST_F(Files, ReplaceWholeFile_writes_a_pipe_and_never_takes_its_name) {
  const std::string folder = Folder("f");
  const std::string pipe = folder + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  ReplaceWholeFile(pipe, "through");
  std::string got(20, '\0');
  const auto length = read(reader, got.data(), got.size());
  close(reader);
  ASSERT_EQ(length, 7);
  EXPECT_EQ(got.substr(0, 7), "through");
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
  EXPECT_EQ(NamesIn(folder), (Names{"pipe"}));
}

TEST_F(Files, ReplaceWholeFile_tells_the_error_of_a_device) {
  // As an ordinary user, who couldn't harm the system's device if the replacement went wrong.
  EXPECT_EQ(AsOrdinaryUser([] { return OutcomeOf([] { ReplaceWholeFile("/dev/full", "x"); }); }),
            "Disk full");
}

TEST_F(Files, A_failed_replacement_keeps_the_old_file_and_leaves_nothing_new) {
  const std::string folder = Folder("f");
  const std::string under = Folder("f/folder");
  TempFile("f/folder/a.txt", "in it");
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(under, "x"); }), std::strerror(EISDIR));
  EXPECT_EQ(ErrorOf([&] { ReplaceWholeFile(folder + "/gone/a.txt", "x"); }), "Path not found");

  EXPECT_EQ(NamesIn(folder), (Names{"folder"}));
  EXPECT_EQ(BytesOf(under + "/a.txt"), "in it");
}

TEST_F(Files, A_replacement_that_runs_out_of_room_keeps_the_old_file) {
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

TEST_F(Files, A_file_that_may_not_be_written_may_not_be_replaced) {
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

// --- Names

TEST_F(Files, Paths_go_to_the_platforms_own_type_and_back_as_UTF_8) {
  for (const std::string path : {"", "/", "a.ovd", "/home/u/caf\xC3\xA9.ovd", "a\\b/c"}) {
    EXPECT_EQ(PathText(NativePath(path)), path);
  }
  EXPECT_EQ(NativePath("/home/u/a.ovd").parent_path(), NativePath("/home/u"));
}

TEST_F(Files, IsRegularFile_is_true_for_ordinary_files_only) {
  EXPECT_TRUE(IsRegularFile(TempFile("a.txt", "")));
  EXPECT_FALSE(IsRegularFile(Folder("f")));
  EXPECT_FALSE(IsRegularFile("/dev/null"));
  EXPECT_FALSE(IsRegularFile(TempPath("gone")));
  EXPECT_FALSE(IsRegularFile(""));
}

TEST_F(Files, FileName_is_what_stands_behind_the_last_slash) {
  EXPECT_EQ(FileName("/home/u/a.ovd"), "a.ovd");
  EXPECT_EQ(FileName("a.ovd"), "a.ovd");
  EXPECT_EQ(FileName("/home/u/"), "");
  EXPECT_EQ(FileName(""), "");
  EXPECT_EQ(FileName("/home/u/caf\xC3\xA9.ovd"), "caf\xC3\xA9.ovd");
  // A backslash is a letter of a name where folders are parted by slashes.
  EXPECT_EQ(FileName("/home/u/a\\b.ovd"), "a\\b.ovd");
}

TEST_F(Files, FolderOfPath_goes_up_to_the_last_backslash_or_slash) {
  EXPECT_EQ(FolderOfPath("C:\\a\\b.ovd"), "C:\\a\\");
  EXPECT_EQ(FolderOfPath("C:\\a\\b"), "C:\\a\\");
  EXPECT_EQ(FolderOfPath("/a/b"), "/a/");
  EXPECT_EQ(FolderOfPath("/home/u/a.ovd"), "/home/u/");
  EXPECT_EQ(FolderOfPath("/b"), "/");
  EXPECT_EQ(FolderOfPath("C:\\a/b"), "C:\\a/");
  EXPECT_EQ(FolderOfPath("/a\\b"), "/a\\");
  EXPECT_EQ(FolderOfPath("/a/"), "/a/");
  EXPECT_EQ(FolderOfPath("b.ovd"), "");
  EXPECT_EQ(FolderOfPath(""), "");
}

}  // namespace
