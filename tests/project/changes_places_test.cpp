// Reads the sources: what is to be set, or called, at one place each is found nowhere else.
#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Files = std::set<std::string>;

// The sources of those folders in which the pattern is found.
Files FilesWith(const std::regex& pattern) {
  const std::filesystem::path root = ORVANE_SOURCE_DIR;
  Files found;
  for (const char* folder : {"core", "holes", "project", "drawing", "output", "ui"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::string kind = entry.path().extension().string();
      if (kind != ".cpp" && kind != ".h") continue;
      if (!std::regex_search(test::BytesOf(entry.path().string()), pattern)) continue;
      found.insert(entry.path().lexically_relative(root).generic_string());
    }
  }
  return found;
}

// A value is assigned, by itself or in a row of assignments.
Files FilesThatSet(const std::string& name) {
  return FilesWith(std::regex("\\b" + name + "\\s*=[^=]"));
}

TEST(Places, The_changed_flag_is_set_by_the_gate_and_cleared_where_a_project_is_saved_or_given_up) {
  EXPECT_EQ(FilesThatSet("ProjectDirty"),
            (Files{"core/model.cpp", "project/changes.cpp", "project/lifecycle.cpp"}));
}

TEST(Places, The_sheet_of_the_window_is_drawn_by_the_sheet_alone) {
  Files screens;
  for (const std::string& file : FilesWith(std::regex("\\bDrawSection\\("))) {
    if (file.compare(0, 3, "ui/") == 0) screens.insert(file);
  }
  EXPECT_EQ(screens, (Files{"ui/sheet_view.cpp", "ui/sheet_view.h"}));
}

TEST(Places, The_hole_dialogs_mode_and_the_accessory_worked_on_are_set_where_a_dialog_is_opened) {
  EXPECT_EQ(FilesThatSet("HoleDialogMode"), (Files{"core/model.cpp", "ui/detail_panel_holes.cpp"}));
  Files accessory = FilesThatSet("CurrentAcc");
  accessory.erase("output/reports.cpp");  // a run of accessory sheets goes through all of them
  EXPECT_EQ(accessory, (Files{"core/model.cpp", "ui/accessory_chooser.cpp"}));
  EXPECT_EQ(FilesThatSet("AccDialogResult"),
            (Files{"ui/dialogs/frm_acc01.cpp", "ui/dialogs/frm_acc02.cpp"}));
}

TEST(Places, The_section_worked_on_is_set_by_the_grid_and_by_the_commands_that_open_a_dialog) {
  EXPECT_EQ(FilesThatSet("CurrentItem"),
            (Files{"core/model.cpp", "project/lifecycle.cpp", "project/sections.cpp",
                   "ui/frm_main.cpp", "ui/sections_grid.cpp"}));
}

}  // namespace
}  // namespace orvane
