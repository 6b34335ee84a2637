// Lintaro.chm was made, and holds the same pages as the folder beside it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/help/help_page.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

TEST(HelpCompiled, The_compiled_file_is_one_and_not_tiny) {
  if (ORVANE_HELP_COMPILED == 0) GTEST_SKIP() << "fp-utils isn't installed";
  const std::string bytes = test::BytesOf(std::string(ORVANE_PROGRAM_DIR) + "/Lintaro.chm");
  EXPECT_EQ(bytes.substr(0, 4), "ITSF");
  EXPECT_GT(bytes.size(), 40'000U);
}

TEST(HelpCompiled, It_holds_every_file_of_the_folder_byte_for_byte) {
  const std::string unpacked = ORVANE_HELP_UNPACKED;
  if (unpacked.empty()) GTEST_SKIP() << "fp-utils isn't installed";
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(test::HelpFolder())) {
    ++files;
    const std::string name = entry.path().filename().string();
    EXPECT_EQ(test::BytesOf(unpacked + "/" + name), test::BytesOf(entry.path().string())) << name;
  }
  EXPECT_GE(files, 20);
}

}  // namespace

}  // namespace orvane
