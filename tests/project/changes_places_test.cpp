// Reads the sources: what is to be set, or called, at one place each is found nowhere else.
#include <cctype>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Files = std::set<std::string>;

// The sources of the house by their names, tests and tools left out.
std::map<std::string, std::string> Sources() {
  const std::filesystem::path root = ORVANE_SOURCE_DIR;
  std::map<std::string, std::string> sources;
  for (const char* folder : {"core", "holes", "project", "drawing", "output", "ui"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::string kind = entry.path().extension().string();
      if (kind != ".cpp" && kind != ".h") continue;
      sources[entry.path().lexically_relative(root).generic_string()] =
          test::BytesOf(entry.path().string());
    }
  }
  return sources;
}

bool IsPartOfAName(char letter) {
  return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

// Whether the sign stands behind that whole name in the text, blanks between them apart; "==" is
// no "=".
bool HasNameBefore(std::string_view text, std::string_view name, char sign) {
  for (std::size_t at = text.find(name); at != std::string_view::npos;
       at = text.find(name, at + 1)) {
    if (at > 0 && IsPartOfAName(text[at - 1])) continue;
    const std::size_t next = text.find_first_not_of(" \n", at + name.size());
    if (next == std::string_view::npos || text[next] != sign) continue;
    if (sign != '=' || text[next + 1] != '=') return true;
  }
  return false;
}

Files FilesWith(std::string_view name, char sign) {
  Files found;
  for (const auto& [file, text] : Sources()) {
    if (HasNameBefore(text, name, sign)) found.insert(file);
  }
  return found;
}

Files FilesThatSet(std::string_view name) {
  return FilesWith(name, '=');
}

TEST(Places, The_search_knows_an_assignment) {
  EXPECT_TRUE(HasNameBefore("  ProjectDirty = True;", "ProjectDirty", '='));
  EXPECT_TRUE(HasNameBefore("a; ProjectDirty=\n True", "ProjectDirty", '='));
  EXPECT_TRUE(HasNameBefore("typed = CurrentItem = row;", "CurrentItem", '='));
  EXPECT_FALSE(HasNameBefore("if (ProjectDirty == False) return;", "ProjectDirty", '='));
  EXPECT_FALSE(HasNameBefore("formerProjectDirty = ProjectDirty;", "ProjectDirty", '='));
  EXPECT_FALSE(HasNameBefore("ProjectDirtyMark = 1;", "ProjectDirty", '='));
}

TEST(Places, The_changed_flag_is_set_by_the_gate_and_cleared_where_a_project_is_saved_or_given_up) {
  EXPECT_EQ(FilesThatSet("ProjectDirty"), (Files{"core/model.cpp", "project/changes.cpp",
                                                 "project/lifecycle.cpp", "project/saving.cpp"}));
}

TEST(Places, The_sheet_of_the_window_is_drawn_by_the_sheet_alone) {
  Files screens;
  for (const std::string& file : FilesWith("DrawSection", '(')) {
    if (file.compare(0, 3, "ui/") == 0) screens.insert(file);
  }
  screens.erase("ui/dialogs/frm_compare.cpp");  // on a surface of its own, of two jobs beside this
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
                   "ui/frm_main_edit.cpp", "ui/sections_grid.cpp"}));
}

}  // namespace
}  // namespace orvane
