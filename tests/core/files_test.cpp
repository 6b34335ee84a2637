#include "core/files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>

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
};

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

TEST_F(Files, A_private_folder_is_the_users_alone) {
  using std::filesystem::perms;
  const std::string path = TempPath("data/recovery");
  MakePrivateFolder(path);
  EXPECT_EQ(std::filesystem::status(path).permissions(), perms::owner_all);
  // What somebody has set since then holds.
  Mode(path, 0750);
  MakePrivateFolder(path);
  EXPECT_EQ(std::filesystem::status(path).permissions(),
            perms::owner_all | perms::group_read | perms::group_exec);
  TempFile("file", "");
  EXPECT_EQ(ErrorOf([&] { MakePrivateFolder(TempPath("file/recovery")); }), "Path not found");
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
