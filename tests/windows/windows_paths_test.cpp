// Files of Windows by the paths that people have there: with backslashes, drives and the net's,
// longer than the system's old calls take, in folders of users whose names aren't English, and of
// devices.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/disk.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/runtime_error.h"

namespace {

using namespace orvane;
namespace fs = std::filesystem;

class WindowsPaths : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    folder_ = PathText(fs::temp_directory_path()) + "orvane-" + std::to_string(ProcessId()) + test;
    fs::create_directories(NativePath(folder_));
  }
  void TearDown() override {
    std::error_code error;
    fs::remove_all(fs::path(L"\\\\?\\" + NativePath(folder_).wstring()), error);
  }
  std::string folder_;
};

void ExpectKeeps(const std::string& path) {
  ReplaceWholeFile(path, "first");
  EXPECT_EQ(ReadWholeFile(path), "first") << path;
  ReplaceWholeFile(path, "second");
  EXPECT_EQ(ReadWholeFile(path), "second") << path;
  EXPECT_FALSE(OverwriteWholeFile(path, "third", "second").Error) << path;
  EXPECT_EQ(ReadWholeFile(path), "third") << path;
}

TEST_F(WindowsPaths, Backslashes_slashes_and_drives_lead_to_a_file) {
  ASSERT_EQ(folder_.substr(1, 2), ":\\");
  ExpectKeeps(folder_ + "\\one.ovd");
  ExpectKeeps(folder_ + "/two.ovd");
  EXPECT_EQ(FileName(folder_ + "\\one.ovd"), "one.ovd");
  EXPECT_EQ(FolderOfPath(folder_ + "\\one.ovd"), folder_ + "\\");
  EXPECT_EQ(AbsolutePath(folder_ + "\\one.ovd"), folder_ + "\\one.ovd");
}

TEST_F(WindowsPaths, The_folder_of_a_user_may_have_any_name) {
  const std::string user = folder_ + "\\Jürgen Łęcki 建筑";
  fs::create_directories(NativePath(user));
  ExpectKeeps(user + "\\Stützen №1.ovd");
  EXPECT_EQ(FileName(user + "\\Stützen №1.ovd"), "Stützen №1.ovd");
}

TEST_F(WindowsPaths, A_path_may_be_longer_than_260_letters) {
  std::string deep = folder_;
  while (deep.size() < 400) {
    deep += "\\a folder of the office";
    ASSERT_TRUE(fs::create_directory(fs::path(L"\\\\?\\" + NativePath(deep).wstring()))) << deep;
  }
  ExpectKeeps(deep + "\\job.ovd");
  EXPECT_TRUE(fs::exists(fs::path(L"\\\\?\\" + NativePath(deep + "\\job.ovd").wstring())));
}

TEST_F(WindowsPaths, A_path_of_the_net_is_taken_apart_like_others) {
  const std::string path = "\\\\server\\jobs\\north\\shed.ovd";
  EXPECT_EQ(FileName(path), "shed.ovd");
  EXPECT_EQ(FolderOfPath(path), "\\\\server\\jobs\\north\\");
  EXPECT_EQ(AbsolutePath(path), path);
  EXPECT_THROW(ReadWholeFile("\\\\no-such-server\\jobs\\shed.ovd"), RuntimeError);
}

TEST_F(WindowsPaths, Nothing_is_saved_into_a_device) {
  EXPECT_THROW(ReplaceWholeFile(folder_ + "\\NUL.ovd", "lost"), RuntimeError);
  EXPECT_THROW(ReplaceWholeFile("con", "lost"), RuntimeError);
  EXPECT_THROW(ReadWholeFile(folder_ + "\\nul"), RuntimeError);
  EXPECT_TRUE(fs::is_empty(NativePath(folder_)));
}

TEST_F(WindowsPaths, A_folder_is_no_file_and_a_missing_one_is_told) {
  EXPECT_THROW(ReplaceWholeFile(folder_, "text"), RuntimeError);
  try {
    ReadWholeFile(folder_ + "\\none\\job.ovd");
    ADD_FAILURE() << "a file was read that isn't there";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(), RuntimeError(Failure::PathNotFound).Description());
  }
}

}  // namespace
