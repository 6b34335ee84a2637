// What the help says of menus, toolbar and keys agrees with the program's table of commands.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/help/help_page.h"
#include "ui/commands.h"

namespace orvane {

namespace {

using test::ElementsOf;
using test::HelpPages;
using test::PageSource;
using Row = std::vector<std::string>;

// No caption of the table holds a doubled "&".
std::string Plain(std::string_view caption) {
  std::string plain(caption);
  plain.erase(std::remove(plain.begin(), plain.end(), '&'), plain.end());
  return plain;
}

std::string LetterOf(std::string_view caption) {
  const std::size_t mark = caption.find('&');
  if (mark == std::string_view::npos) return "";
  std::string letter(caption.substr(mark + 1, 1));
  if (letter.front() >= 'a' && letter.front() <= 'z') {
    letter.front() = static_cast<char>(letter.front() - 'a' + 'A');
  }
  return letter;
}

// As the page tells several keys of one entry.
std::string Keys(std::string_view shortcuts) {
  std::string keys(shortcuts);
  const std::size_t end = keys.find("; ");
  return end == std::string::npos ? keys : keys.replace(end, 2, " or ");
}

bool Holds(const std::vector<Row>& rows, const Row& row) {
  return std::find(rows.begin(), rows.end(), row) != rows.end();
}

TEST(HelpShortcuts, The_page_lists_every_menu_entry_that_has_a_shortcut) {
  const std::vector<Row> rows = test::TableRows(PageSource("shortcuts.html"));
  int shortcuts = 0;
  for (const BarMenu& menu : BarMenus) {
    for (const CommandEntry& entry : CommandsOf(menu.Where)) {
      if (entry.Shortcut.empty()) continue;
      ++shortcuts;
      EXPECT_TRUE(Holds(rows, {Keys(entry.Shortcut), Plain(entry.Caption), Plain(menu.Caption)}))
          << entry.Caption;
    }
  }
  EXPECT_GE(shortcuts, 16);
}

TEST(HelpShortcuts, The_page_lists_every_menu_entry_with_the_letter_that_leads_to_it) {
  const std::vector<Row> rows = test::TableRows(PageSource("shortcuts.html"));
  for (const BarMenu& menu : BarMenus) {
    for (const CommandEntry& entry : CommandsOf(menu.Where)) {
      if (entry.Caption.empty()) continue;
      EXPECT_TRUE(
          Holds(rows, {Plain(entry.Caption), LetterOf(entry.Caption), Keys(entry.Shortcut)}))
          << entry.Caption;
    }
  }
}

TEST(HelpShortcuts, The_page_lists_every_button_with_its_tip) {
  const std::vector<Row> rows = test::TableRows(PageSource("shortcuts.html"));
  for (const CommandEntry& entry : CommandsOf(Place::SSCommand1)) {
    const std::string letter = LetterOf(entry.Caption);
    EXPECT_TRUE(Holds(rows, {Plain(entry.Caption), std::string(entry.ToolTip),
                             letter.empty() ? "" : "Alt+" + letter}))
        << entry.Caption;
  }
}

TEST(HelpShortcuts, The_page_has_no_row_beyond_the_table) {
  std::size_t expected = 1 + 6 + 1;  // heading rows
  for (const BarMenu& menu : BarMenus) {
    for (const CommandEntry& entry : CommandsOf(menu.Where)) {
      expected += (entry.Caption.empty() ? 0U : 1U) + (entry.Shortcut.empty() ? 0U : 1U);
    }
  }
  expected += CommandsOf(Place::SSCommand1).size();
  EXPECT_EQ(test::TableRows(PageSource("shortcuts.html")).size(), expected);
}

TEST(HelpShortcuts, Shortcuts_that_other_pages_name_are_those_of_the_table) {
  std::set<std::string> known;
  for (const CommandEntry& entry : CommandTable()) {
    const std::string_view keys = entry.Shortcut;
    const std::size_t end = keys.find("; ");
    known.emplace(keys.substr(0, end));
    if (end != std::string_view::npos) known.emplace(keys.substr(end + 2));
  }
  int named = 0;
  for (const std::string& page : HelpPages()) {
    for (const std::string& key : ElementsOf(PageSource(page), "kbd")) {
      if (key.rfind("Ctrl+", 0) != 0) continue;
      ++named;
      EXPECT_EQ(known.count(key), 1U) << page << ": " << key;
    }
  }
  EXPECT_GE(named, 4);
}

// The first job names its shortcuts beside the entries that they stand for.
TEST(HelpShortcuts, The_first_job_names_the_right_shortcuts) {
  struct Named {
    std::string_view Shortcut;
    Command What;
  };
  const std::string page = PageSource("first-job.html");
  for (const Named& named : {Named{"Ctrl+N", Command::New}, Named{"Ctrl+1", Command::AddSection},
                             Named{"Ctrl+S", Command::Save}, Named{"Ctrl+E", Command::ExportCam}}) {
    const auto& table = CommandTable();
    const auto entry = std::find_if(table.begin(), table.end(), [&](const CommandEntry& each) {
      return each.What == named.What && each.Where != Place::SSCommand1;
    });
    ASSERT_TRUE(entry != table.end()) << named.Shortcut;
    EXPECT_EQ(entry->Shortcut, named.Shortcut);
    const std::size_t at = page.find("<kbd>" + std::string(named.Shortcut) + "</kbd>");
    ASSERT_NE(at, std::string::npos) << named.Shortcut;
    EXPECT_NE(page.substr(at, 90).find("<b>" + Plain(entry->Caption) + "</b>"), std::string::npos)
        << named.Shortcut;
  }
}

TEST(HelpShortcuts, The_page_of_the_main_window_names_every_entry_and_button) {
  std::string text;
  for (const Row& row : test::TableRows(PageSource("main-window.html"))) {
    // Line ends of the source are blanks to the reader.
    std::string first = row.at(0);
    std::replace(first.begin(), first.end(), '\n', ' ');
    text += ", " + first;
  }
  text += ",";
  for (const CommandEntry& entry : CommandTable()) {
    if (entry.Caption.empty() || entry.Where == Place::mnuCHPUI ||
        entry.Where == Place::mnuAccPUI) {
      continue;
    }
    EXPECT_NE(text.find(", " + Plain(entry.Caption) + ","), std::string::npos) << entry.Caption;
  }
}

}  // namespace

}  // namespace orvane
