#include "core/desktop.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/headless_desktop.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;

class Desktops : public orvane::test::SystemTest {
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

TEST_F(Desktops, Message_is_a_plain_box_without_title_or_icon) {
  TheDesktop().Message("Overflow");
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text, "Overflow");
  EXPECT_EQ(desktop.Boxes[0].Title, "");
  EXPECT_EQ(desktop.Boxes[0].Choice, Buttons::Ok);
  EXPECT_EQ(desktop.Boxes[0].Sign, Icon::None);
}

TEST_F(Desktops, one_without_a_person_closes_what_it_is_asked_and_keeps_nothing) {
  HeadlessDesktop headless;
  EXPECT_EQ(headless.ShowMessageBox("t", "", Buttons::Ok, Icon::Stop), Answer::Ok);
  EXPECT_EQ(headless.ShowMessageBox("t", "", Buttons::YesNo, Icon::None), Answer::No);
  EXPECT_EQ(headless.ShowMessageBox("t", "", Buttons::YesNoCancel, Icon::None), Answer::Cancel);
  EXPECT_EQ(headless.ShowOpenDialog({}), std::nullopt);
  EXPECT_EQ(headless.ShowSaveDialog({}), std::nullopt);
  EXPECT_EQ(headless.ShortDateForm(), "dd/MM/yyyy");
  EXPECT_EQ(headless.UserDataFolder(), "");
  EXPECT_EQ(headless.Now().Day, (Date{2024, 3, 5}));
  EXPECT_EQ(headless.Now().Second, 9);
  EXPECT_EQ(headless.Settings().Query(SettingsRoot::LocalMachine, "key", "name"), std::nullopt);
  EXPECT_TRUE(headless.Settings().Store(SettingsRoot::LocalMachine, "key", "name", "text"));
  EXPECT_EQ(headless.Settings().Query(SettingsRoot::LocalMachine, "key", "name"), "text");
}

TEST_F(Desktops, the_installed_desktop_is_the_one_in_use) {
  EXPECT_EQ(&TheDesktop(), &desktop);
  EXPECT_EQ(&TheDesktop().Settings(), &desktop.Values);
}

TEST_F(Desktops, asking_without_an_installed_desktop_is_an_error_of_the_program) {
  UninstallDesktop();
  try {
    TheDesktop();
    FAIL() << "a desktop was given";
  } catch (const std::logic_error& error) {
    EXPECT_STREQ(error.what(), "no desktop installed");
  }
  InstallDesktop(desktop);
  EXPECT_EQ(&TheDesktop(), &desktop);
}

TEST_F(Desktops, Tell_shows_an_error_in_a_plain_box_and_leaves_what_was_done_before_it) {
  int done = 0;
  EXPECT_FALSE(Tell([&] {
    done = 1;
    throw RuntimeError(Failure::Overflow);
  }));
  EXPECT_EQ(done, 1);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text, "Overflow");
  EXPECT_EQ(desktop.Boxes[0].Title, "");
  EXPECT_EQ(desktop.Boxes[0].Sign, Icon::None);
}

TEST_F(Desktops, Tell_says_nothing_of_an_action_that_went_well) {
  int done = 0;
  EXPECT_TRUE(Tell([&] { done = 1; }));
  EXPECT_EQ(done, 1);
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(Desktops, ProgramPath_joins_the_programs_folder_and_a_backslash_led_name) {
  const std::string folder = ProgramWith({"dims.csv", "Drawings/clip.wmf"});
  EXPECT_EQ(ProgramPath("\\dims.csv"), folder + "/dims.csv");
  EXPECT_EQ(ProgramPath("\\Drawings\\clip.wmf"), folder + "/Drawings/clip.wmf");
  EXPECT_EQ(ProgramPath("dims.csv"), folder + "/dims.csv");
}

TEST_F(Desktops, ProgramPath_looks_each_part_up_without_regard_to_case) {
  const std::string folder = ProgramWith({"DIMS.CSV", "drawings/DRG015.WMF", "lintaro.chm"});
  EXPECT_EQ(ProgramPath("\\dims.csv"), folder + "/DIMS.CSV");
  EXPECT_EQ(ProgramPath("\\Drawings\\drg015.wmf"), folder + "/drawings/DRG015.WMF");
  EXPECT_EQ(ProgramPath("\\drawings\\drg015.wmf"), folder + "/drawings/DRG015.WMF");
  EXPECT_EQ(ProgramPath("\\Lintaro.chm"), folder + "/lintaro.chm");
}

TEST_F(Desktops, ProgramPath_takes_the_exact_name_first_then_the_first_in_sorted_order) {
  const std::string folder = ProgramWith({"dims.csv", "DIMS.csv", "Punch.csv", "PUNCH.csv",
                                          "punch.CSV", "Drawings/b.wmf", "DRAWINGS/a.wmf"});
  EXPECT_EQ(ProgramPath("\\dims.csv"), folder + "/dims.csv");
  EXPECT_EQ(ProgramPath("\\DIMS.csv"), folder + "/DIMS.csv");
  // By character code, capitals come first.
  EXPECT_EQ(ProgramPath("\\punch.csv"), folder + "/PUNCH.csv");
  // A folder is settled before what it holds is looked at.
  EXPECT_EQ(ProgramPath("\\drawings\\B.WMF"), folder + "/DRAWINGS/B.WMF");
}

TEST_F(Desktops, ProgramPath_gives_a_name_that_is_not_there_as_it_stands) {
  const std::string folder = ProgramWith({"drawings/clip.wmf"});
  EXPECT_EQ(ProgramPath("\\Accs1.csv"), folder + "/Accs1.csv");
  EXPECT_EQ(ProgramPath("\\Drawings\\None.wmf"), folder + "/drawings/None.wmf");
  EXPECT_EQ(ProgramPath("\\Gone\\clip.wmf"), folder + "/Gone/clip.wmf");
  ProgramFolder = TempPath("nowhere");
  EXPECT_EQ(ProgramPath("\\dims.csv"), TempPath("nowhere") + "/dims.csv");
}

TEST_F(Desktops, ProgramPath_translates_backslashes_of_the_suffix_only) {
  ProgramWith({"x\\y/dims.csv"});
  ProgramFolder = TempPath("program/x\\y");
  EXPECT_EQ(ProgramPath("\\DIMS.csv"), TempPath("program/x\\y") + "/dims.csv");
}

TEST_F(Desktops, ProgramPath_takes_a_folder_that_ends_in_a_slash) {
  const std::string folder = ProgramWith({"dims.csv"});
  ProgramFolder += "/";
  EXPECT_EQ(ProgramPath("\\dims.csv"), folder + "/dims.csv");
}

TEST_F(Desktops, ProgramPath_finds_names_with_letters_beyond_ASCII) {
  const std::string folder = ProgramWith({"Drawings/Caf\xC3\xA9.WMF"});
  EXPECT_EQ(ProgramPath("\\drawings\\caf\xC3\xA9.wmf"), folder + "/Drawings/Caf\xC3\xA9.WMF");
}

}  // namespace
