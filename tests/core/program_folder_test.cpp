#include "core/program_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/fixture.h"

namespace {

using namespace orvane;

class ProgramFolders : public orvane::test::SystemTest {
 protected:
  // The program's folder with the given files in it, folders made as needed.
  std::string ProgramWith(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
      std::filesystem::create_directories(
          std::filesystem::path(TempPath("program/" + file)).parent_path());
      TempFile("program/" + file, file);
    }
    ProgramFolder = TempPath("program");
    return ProgramFolder;
  }
};

TEST_F(ProgramFolders, ProgramPath_joins_the_programs_folder_and_a_backslash_led_name) {
  const std::string folder = ProgramWith({"dims.csv", "Drawings/clip.wmf"});
  EXPECT_EQ(ProgramPath("\\dims.csv"), folder + "/dims.csv");
  EXPECT_EQ(ProgramPath("\\Drawings\\clip.wmf"), folder + "/Drawings/clip.wmf");
  EXPECT_EQ(ProgramPath("dims.csv"), folder + "/dims.csv");
}

TEST_F(ProgramFolders, ProgramPath_looks_each_part_up_without_regard_to_case) {
  const std::string folder = ProgramWith({"DIMS.CSV", "drawings/DRG015.WMF", "lintaro.chm"});
  EXPECT_EQ(ProgramPath("\\dims.csv"), folder + "/DIMS.CSV");
  EXPECT_EQ(ProgramPath("\\Drawings\\drg015.wmf"), folder + "/drawings/DRG015.WMF");
  EXPECT_EQ(ProgramPath("\\drawings\\drg015.wmf"), folder + "/drawings/DRG015.WMF");
  EXPECT_EQ(ProgramPath("\\Lintaro.chm"), folder + "/lintaro.chm");
}

TEST_F(ProgramFolders, ProgramPath_takes_the_exact_name_first_then_the_first_in_sorted_order) {
  const std::string folder = ProgramWith({"dims.csv", "DIMS.csv", "Punch.csv", "PUNCH.csv",
                                          "punch.CSV", "Drawings/b.wmf", "DRAWINGS/a.wmf"});
  EXPECT_EQ(ProgramPath("\\dims.csv"), folder + "/dims.csv");
  EXPECT_EQ(ProgramPath("\\DIMS.csv"), folder + "/DIMS.csv");
  // By character code, capitals come first.
  EXPECT_EQ(ProgramPath("\\punch.csv"), folder + "/PUNCH.csv");
  // A folder is settled before what it holds is looked at.
  EXPECT_EQ(ProgramPath("\\drawings\\B.WMF"), folder + "/DRAWINGS/B.WMF");
}

TEST_F(ProgramFolders, ProgramPath_gives_a_name_that_is_not_there_as_it_stands) {
  const std::string folder = ProgramWith({"drawings/clip.wmf"});
  EXPECT_EQ(ProgramPath("\\Accs1.csv"), folder + "/Accs1.csv");
  EXPECT_EQ(ProgramPath("\\Drawings\\None.wmf"), folder + "/drawings/None.wmf");
  EXPECT_EQ(ProgramPath("\\Gone\\clip.wmf"), folder + "/Gone/clip.wmf");
  ProgramFolder = TempPath("nowhere");
  EXPECT_EQ(ProgramPath("\\dims.csv"), TempPath("nowhere") + "/dims.csv");
}

TEST_F(ProgramFolders, ProgramPath_translates_backslashes_of_the_suffix_only) {
  ProgramWith({"x\\y/dims.csv"});
  ProgramFolder = TempPath("program/x\\y");
  EXPECT_EQ(ProgramPath("\\DIMS.csv"), TempPath("program/x\\y") + "/dims.csv");
}

TEST_F(ProgramFolders, ProgramPath_takes_a_folder_that_ends_in_a_slash) {
  const std::string folder = ProgramWith({"dims.csv"});
  ProgramFolder += "/";
  EXPECT_EQ(ProgramPath("\\dims.csv"), folder + "/dims.csv");
}

TEST_F(ProgramFolders, ProgramPath_finds_names_with_letters_beyond_ASCII) {
  const std::string folder = ProgramWith({"Drawings/Caf\xC3\xA9.WMF"});
  EXPECT_EQ(ProgramPath("\\drawings\\caf\xC3\xA9.wmf"), folder + "/Drawings/Caf\xC3\xA9.WMF");
}

}  // namespace
