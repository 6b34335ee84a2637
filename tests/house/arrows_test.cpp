// The table of the arrows (arrows.txt) against what the house's files include, and against the
// picture in README.md.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvane {

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

// What each folder may include besides itself: named by its row, and with all that those may
// include.
struct Arrows {
  std::map<std::string, std::set<std::string>> Named;
  std::map<std::string, std::set<std::string>> Seen;
  Lines Faults;  // rows that name a folder that doesn't stand above them
};

Arrows ArrowsOf(const Lines& lines) {
  Arrows arrows;
  for (const std::string& line : lines) {
    if (line.empty() || line.front() == '#') continue;
    const std::size_t colon = std::min(line.find(':'), line.size());
    const std::string folder = line.substr(0, colon);
    std::istringstream rest(line.substr(std::min(colon + 1, line.size())));
    std::set<std::string> named;
    std::set<std::string> seen;
    for (std::string other; rest >> other;) {
      const auto above = arrows.Seen.find(other);
      if (above == arrows.Seen.end()) {
        arrows.Faults.push_back(folder + " names " + other);
        continue;
      }
      named.insert(other);
      seen.insert(other);
      seen.insert(above->second.begin(), above->second.end());
    }
    if (arrows.Seen.count(folder) != 0) arrows.Faults.push_back(folder + " stands there twice");
    arrows.Named[folder] = named;
    arrows.Seen[folder] = seen;
  }
  return arrows;
}

std::string FolderOf(const std::string& file) {
  const std::size_t slash = file.rfind('/');
  return slash == std::string::npos ? std::string() : file.substr(0, slash);
}

// The quoted includes of a file that its folder may not see.
Lines IncludesRunningBack(const Arrows& arrows, const std::string& file, const Lines& lines) {
  const std::string folder = FolderOf(file);
  const auto row = arrows.Seen.find(folder);
  if (row == arrows.Seen.end()) return {file + " lies in a folder without a row"};
  constexpr std::string_view start = "#include \"";
  Lines found;
  for (const std::string& line : lines) {
    if (line.compare(0, start.size(), start) != 0) continue;
    const std::string name = line.substr(start.size(), line.find('"', start.size()) - start.size());
    const std::string other = FolderOf(name);
    if (other != folder && row->second.count(other) == 0) found.push_back(file + ": " + name);
  }
  return found;
}

// A header and its source are one unit, named without the ending.
std::string UnitOf(const std::string& file) {
  return file.substr(0, file.rfind('.'));
}

using Units = std::map<std::string, std::set<std::string>>;  // each with those that it includes

void AddIncludes(Units& units, const std::string& file, const Lines& lines) {
  constexpr std::string_view start = "#include \"";
  std::set<std::string>& others = units[UnitOf(file)];
  for (const std::string& line : lines) {
    if (line.compare(0, start.size(), start) != 0) continue;
    const std::string name = line.substr(start.size(), line.find('"', start.size()) - start.size());
    if (UnitOf(name) != UnitOf(file)) others.insert(UnitOf(name));
  }
}

// The units that lead back to themselves. Those that include nothing but what is left already are
// taken away, again and again; the same from the other end, so that nothing is left beside circles
// but what joins two of them.
std::set<std::string> UnitsInCircles(Units units) {
  for (bool fewer = true; fewer;) {
    fewer = false;
    std::set<std::string> included;
    for (const auto& [unit, others] : units) included.insert(others.begin(), others.end());
    for (auto at = units.begin(); at != units.end();) {
      auto& others = at->second;
      for (auto other = others.begin(); other != others.end();) {
        other = units.count(*other) == 0 ? others.erase(other) : std::next(other);
      }
      const bool stays = !others.empty() && included.count(at->first) != 0;
      if (!stays) fewer = true;
      at = stays ? std::next(at) : units.erase(at);
    }
  }
  std::set<std::string> left;
  for (const auto& [unit, others] : units) left.insert(unit);
  return left;
}

Lines LinesOf(const fs::path& path) {
  std::ifstream file(path);
  EXPECT_TRUE(file.is_open()) << path;
  Lines lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

Arrows TheArrows() {
  return ArrowsOf(LinesOf(fs::path(ORVANE_SOURCE_DIR) / "arrows.txt"));
}

bool IsSource(const fs::path& path) {
  return path.extension() == ".h" || path.extension() == ".cpp";
}

// The C++ files of the folders that the table knows, and of every folder in them.
Lines Sources(const Arrows& arrows) {
  const fs::path top = ORVANE_SOURCE_DIR;
  std::set<std::string> rooms;
  for (const auto& [folder, named] : arrows.Named) rooms.insert(folder.substr(0, folder.find('/')));
  Lines files;
  for (const std::string& room : rooms) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(top / room)) {
      if (IsSource(entry.path())) files.push_back(entry.path().lexically_relative(top).string());
    }
  }
  return files;
}

// The arrows of a picture such as
//
//     core <- holes <- project <- output <- ui, tools
//                   <- drawing <-
//
// as pairs of a folder and one that it includes. An arrow of the second line that has no name
// beside it points to, or comes from, the name that stands there beside the arrow above it.
using Pairs = std::set<std::pair<std::string, std::string>>;

std::string NameBefore(const std::string& line, std::size_t arrow) {
  std::size_t end = arrow;
  while (end > 0 && line[end - 1] == ' ') --end;
  std::size_t begin = end;
  while (begin > 0 && std::isalpha(static_cast<unsigned char>(line[begin - 1])) != 0) --begin;
  return line.substr(begin, end - begin);
}

Lines NamesBehind(const std::string& line, std::size_t arrow) {
  const std::string text = line.substr(arrow + 2, line.find('<', arrow + 2) - arrow - 2);
  std::istringstream rest(text);
  Lines names;
  for (std::string name; std::getline(rest, name, ',');) {
    const std::size_t first = name.find_first_not_of(' ');
    if (first == std::string::npos) continue;
    names.push_back(name.substr(first, name.find_last_not_of(' ') - first + 1));
  }
  return names;
}

Pairs ArrowsOfPicture(const std::string& upper, const std::string& lower) {
  Pairs pairs;
  for (const std::string& line : {upper, lower}) {
    for (std::size_t at = line.find("<-"); at != std::string::npos; at = line.find("<-", at + 2)) {
      std::string before = NameBefore(line, at);
      Lines behind = NamesBehind(line, at);
      if (before.empty() && upper.compare(at, 2, "<-") == 0) before = NameBefore(upper, at);
      if (behind.empty() && upper.compare(at, 2, "<-") == 0) behind = NamesBehind(upper, at);
      for (const std::string& name : behind) pairs.emplace(name, before);
    }
  }
  return pairs;
}

// The program's rooms, those of the picture: a folder in a room counts as the room.
Pairs ArrowsOfRooms(const Arrows& arrows) {
  const std::set<std::string> rooms = {"core",   "holes", "project", "drawing",
                                       "output", "ui",    "tools"};
  Pairs pairs;
  for (const auto& [folder, named] : arrows.Named) {
    const std::string room = folder.substr(0, folder.find('/'));
    if (rooms.count(room) == 0) continue;
    for (const std::string& other : named) {
      const std::string left = other.substr(0, other.find('/'));
      if (left != room) pairs.emplace(room, left);
    }
  }
  return pairs;
}

// --- The table and the files

TEST(Arrows, Each_row_names_only_folders_above_it) {
  const Arrows arrows = TheArrows();
  EXPECT_EQ(arrows.Faults, Lines{});
  EXPECT_EQ(arrows.Seen.at("core"), std::set<std::string>{});
  EXPECT_EQ(arrows.Seen.at("drawing"), (std::set<std::string>{"core", "holes"}));
}

TEST(Arrows, No_include_runs_back) {
  const Arrows arrows = TheArrows();
  const Lines files = Sources(arrows);
  ASSERT_GT(files.size(), 300U);
  for (const std::string& file : files) {
    EXPECT_EQ(IncludesRunningBack(arrows, file, LinesOf(fs::path(ORVANE_SOURCE_DIR) / file)),
              Lines{});
  }
}

TEST(Arrows, No_file_includes_itself_by_way_of_others) {
  Units units;
  for (const std::string& file : Sources(TheArrows())) {
    AddIncludes(units, file, LinesOf(fs::path(ORVANE_SOURCE_DIR) / file));
  }
  ASSERT_GT(units.size(), 120U);
  EXPECT_EQ(UnitsInCircles(units), std::set<std::string>{});
}

TEST(Arrows, Each_row_is_a_folder) {
  for (const auto& [folder, named] : TheArrows().Named) {
    EXPECT_TRUE(fs::is_directory(fs::path(ORVANE_SOURCE_DIR) / folder)) << folder;
  }
}

TEST(Arrows, The_picture_in_the_README_is_that_of_the_table) {
  const Lines readme = LinesOf(fs::path(ORVANE_SOURCE_DIR) / "README.md");
  const auto upper = std::find_if(readme.begin(), readme.end(), [](const std::string& line) {
    return line.rfind("    core <- ", 0) == 0;
  });
  ASSERT_NE(upper, readme.end());
  ASSERT_NE(upper + 1, readme.end());
  Pairs drawn = ArrowsOfRooms(TheArrows());
  // The one arrow that the picture leaves to the words below it: the companion's pages.
  EXPECT_EQ(drawn.erase({"tools", "ui"}), 1U);
  // What a room sees through its left neighbour anyway is no arrow of the picture.
  drawn.erase({"ui", "drawing"});
  EXPECT_EQ(ArrowsOfPicture(*upper, *(upper + 1)), drawn);
}

// --- The test itself finds what it is for

const Lines SmallTable = {"# a comment", "", "core:", "holes: core", "drawing: holes"};

TEST(Arrows, A_row_that_looks_back_or_stands_twice_is_a_fault) {
  EXPECT_EQ(ArrowsOf(SmallTable).Faults, Lines{});
  EXPECT_EQ(ArrowsOf({"core: holes", "holes: core"}).Faults, Lines{"core names holes"});
  EXPECT_EQ(ArrowsOf({"core: core"}).Faults, Lines{"core names core"});
  EXPECT_EQ(ArrowsOf({"core:", "core:"}).Faults, Lines{"core stands there twice"});
}

TEST(Arrows, An_include_that_runs_back_is_found) {
  const Arrows arrows = ArrowsOf(SmallTable);
  const Lines lines = {"#include <vector>", "#include \"core/model.h\"", "#include \"holes/a.h\"",
                       "#include \"drawing/b.h\"", "#include \"project/c.h\""};
  EXPECT_EQ(IncludesRunningBack(arrows, "drawing/x.cpp", lines),
            Lines{"drawing/x.cpp: project/c.h"});
  EXPECT_EQ(IncludesRunningBack(arrows, "holes/x.h", lines),
            (Lines{"holes/x.h: drawing/b.h", "holes/x.h: project/c.h"}));
  EXPECT_EQ(IncludesRunningBack(arrows, "core/x.cpp", lines),
            (Lines{"core/x.cpp: holes/a.h", "core/x.cpp: drawing/b.h", "core/x.cpp: project/c.h"}));
  EXPECT_EQ(IncludesRunningBack(arrows, "core/more/x.cpp", lines),
            Lines{"core/more/x.cpp lies in a folder without a row"});
}

TEST(Arrows, A_circle_of_files_is_found) {
  Units units;
  AddIncludes(units, "core/a.h", {"#include <map>", "#include \"core/b.h\""});
  AddIncludes(units, "core/a.cpp", {"#include \"core/a.h\""});
  AddIncludes(units, "core/b.h", {"#include \"core/c.h\""});
  AddIncludes(units, "core/c.h", {});
  AddIncludes(units, "core/d.cpp", {"#include \"core/a.h\""});
  EXPECT_EQ(UnitsInCircles(units), std::set<std::string>{});
  AddIncludes(units, "core/c.cpp", {"#include \"core/a.h\""});
  EXPECT_EQ(UnitsInCircles(units), (std::set<std::string>{"core/a", "core/b", "core/c"}));
}

TEST(Arrows, A_picture_is_read_by_its_columns) {
  EXPECT_EQ(
      ArrowsOfPicture("  a <- b <- cc <- e <- f, g", "         <- dd <-"),
      (Pairs{
          {"b", "a"}, {"cc", "b"}, {"e", "cc"}, {"f", "e"}, {"g", "e"}, {"dd", "b"}, {"e", "dd"}}));
  EXPECT_EQ(ArrowsOfPicture("a <- b", "").size(), 1U);
}

}  // namespace

}  // namespace orvane
