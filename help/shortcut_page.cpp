// Writes the help's page of shortcuts from the program's table of commands:
//   orvane_shortcut_page FILE
// Every entry of the table that a person can reach by a key stands in it, so that the page can't
// fall behind the program.
#include <cctype>
#include <cstddef>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "ui/commands.h"

namespace orvane {

namespace {

std::string Escaped(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    default:
      return {c};
  }
}

std::string Escaped(std::string_view text) {
  std::string html;
  for (const char c : text) html += Escaped(c);
  return html;
}

struct CaptionParts {
  std::string Html;   // the letter of the key underlined
  std::string Plain;  // as it reads, escaped
  char Letter = 0;    // in upper case; 0 for none
};

// A doubled "&" in a caption stands for itself.
CaptionParts PartsOf(std::string_view caption) {
  CaptionParts parts;
  for (std::size_t at = 0; at < caption.size(); ++at) {
    const bool mark = caption[at] == '&' && at + 1 < caption.size();
    if (mark) ++at;
    const std::string letter = Escaped(caption[at]);
    const bool underlined = mark && caption[at] != '&' && parts.Letter == 0;
    parts.Plain += letter;
    parts.Html += underlined ? "<u>" + letter + "</u>" : letter;
    if (underlined) {
      parts.Letter = static_cast<char>(std::toupper(static_cast<unsigned char>(caption[at])));
    }
  }
  return parts;
}

// Several keys of one entry are parted by semicolons.
std::string Key(std::string_view keys) {
  if (keys.empty()) return "";
  const std::size_t end = keys.find("; ");
  const std::string first = "<kbd>" + Escaped(keys.substr(0, end)) + "</kbd>";
  return end == std::string_view::npos ? first : first + " or " + Key(keys.substr(end + 2));
}

std::string AltKey(char letter) {
  return Key(std::string("Alt+") + letter);
}

std::string Row(const std::vector<std::string>& cells) {
  std::string row = "<tr>";
  for (const std::string& cell : cells) row += "<td>" + cell + "</td>";
  return row + "</tr>\n";
}

std::string TableStart(const std::vector<std::string>& headings) {
  std::string html = "<table>\n<tr>";
  for (const std::string& heading : headings) html += "<th>" + heading + "</th>";
  return html + "</tr>\n";
}

// All menu entries that have a shortcut, menu by menu.
std::string ShortcutTable() {
  std::string html = TableStart({"Shortcut", "What it does", "Menu"});
  for (const BarMenu& menu : BarMenus) {
    for (const CommandEntry& entry : CommandsOf(menu.Where)) {
      if (entry.Shortcut.empty()) continue;
      html += Row({Key(entry.Shortcut), PartsOf(entry.Caption).Plain, PartsOf(menu.Caption).Plain});
    }
  }
  return html + "</table>\n";
}

// One menu: every entry with the letters that lead to it and its shortcut. What is filled at run
// time, and the separators, have no caption here.
std::string MenuTable(const BarMenu& menu) {
  const CaptionParts bar = PartsOf(menu.Caption);
  std::string html = "<h3>" + bar.Plain + "</h3>\n";
  html += "<p>" + AltKey(bar.Letter) + " opens this menu.</p>\n";
  html += TableStart({"Entry", "Letter in the menu", "Shortcut"});
  for (const CommandEntry& entry : CommandsOf(menu.Where)) {
    if (entry.Caption.empty()) continue;
    const CaptionParts caption = PartsOf(entry.Caption);
    const std::string letter = caption.Letter == 0 ? "" : Key(std::string(1, caption.Letter));
    html += Row({caption.Html, letter, Key(entry.Shortcut)});
  }
  return html + "</table>\n";
}

std::string ToolbarTable() {
  std::string html = TableStart({"Button", "What it does", "Key"});
  for (const CommandEntry& entry : CommandsOf(Place::SSCommand1)) {
    const CaptionParts caption = PartsOf(entry.Caption);
    html += Row(
        {caption.Html, Escaped(entry.ToolTip), caption.Letter == 0 ? "" : AltKey(caption.Letter)});
  }
  return html + "</table>\n";
}

std::string Page() {
  std::string html =
      "<!DOCTYPE html>\n"
      "<html lang=\"en\">\n"
      "<head>\n"
      "<meta charset=\"us-ascii\">\n"
      "<meta http-equiv=\"X-UA-Compatible\" content=\"IE=edge\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<title>Keys and shortcuts</title>\n"
      "<link rel=\"stylesheet\" href=\"style.css\">\n"
      "</head>\n"
      "<body>\n"
      "<p class=\"top\"><a href=\"index.html\">Contents</a></p>\n"
      "<h1>Keys and shortcuts</h1>\n"
      "<p>Every entry of the menus can be reached without the mouse. A shortcut works at once; a "
      "menu opens "
      "by <kbd>Alt</kbd> and its letter, and its entries by their underlined letters.</p>\n"
      "<h2>Moving about</h2>\n"
      "<ul>\n"
      "<li><kbd>Alt+N</kbd> leads to the list of punching patterns, <kbd>Alt+C</kbd> to the "
      "accessory list. <kbd>Tab</kbd> leads back into the grid.</li>\n"
      "<li><kbd>F6</kbd> goes round: the list of sections, the detail panel, its list of holes, "
      "the sheet. "
      "<kbd>Shift+F6</kbd> goes the other way. What shows nothing is passed by.</li>\n"
      "<li>The keys that move the cursor in the list of sections are told in <a "
      "href=\"sections-grid.html#keys\">Sections grid</a>, those of the sheet in <a "
      "href=\"main-window.html#drawing\">Drawing area</a>.</li>\n"
      "</ul>\n"
      "<h2>Shortcuts</h2>\n";
  html += ShortcutTable();
  html += "<h2>Menus</h2>\n";
  for (const BarMenu& menu : BarMenus) html += MenuTable(menu);
  html += "<h2>Toolbar</h2>\n";
  html += ToolbarTable();
  return html + "</body>\n</html>\n";
}

}  // namespace

}  // namespace orvane

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: orvane_shortcut_page FILE\n";
    return 2;
  }
  std::ofstream file(argv[1], std::ios::binary);
  file << orvane::Page();
  file.close();
  if (!file) {
    std::cerr << argv[1] << " can't be written\n";
    return 1;
  }
  return 0;
}
