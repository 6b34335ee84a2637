// The pages hang together: what is named exists, what exists is named, and every page reads well in
// the simplest viewer.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/help/help_page.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using test::AttributeOf;
using test::HelpPages;
using test::PageSource;
using test::Tag;
using test::TagsOf;

using Names = std::set<std::string>;

std::string ProjectSource(const std::string& name) {
  return test::BytesOf(std::string(ORVANE_SOURCE_DIR) + "/help/" + name);
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  for (const char c : text) {
    if (c == '\n') lines.push_back(line);
    line = c == '\n' ? "" : line + c;
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

// The lines of a section of the project file.
std::vector<std::string> ProjectSection(const std::string& heading) {
  std::vector<std::string> lines;
  bool inside = false;
  for (const std::string& line : LinesOf(ProjectSource("Lintaro.hhp"))) {
    if (!line.empty() && line.front() == '[') {
      inside = line == heading;
    } else if (inside && !line.empty()) {
      lines.push_back(line);
    }
  }
  return lines;
}

// What the contents or the index name.
std::vector<std::string> SiteMapTargets(const std::string& name) {
  std::vector<std::string> targets;
  for (const Tag& tag : TagsOf(ProjectSource(name))) {
    if (AttributeOf(tag, "name") == "Local") targets.push_back(AttributeOf(tag, "value"));
  }
  return targets;
}

Names AnchorsOf(const std::string& page) {
  Names anchors;
  for (const Tag& tag : TagsOf(PageSource(page))) {
    const std::string id = AttributeOf(tag, "id");
    if (!id.empty() && !anchors.insert(id).second)
      ADD_FAILURE() << page << " has #" << id << " twice";
  }
  return anchors;
}

std::string PageOf(const std::string& link, const std::string& from = "") {
  const std::string page = link.substr(0, link.find('#'));
  return page.empty() ? from : page;
}

// Expects that the page of a link stands in the folder, and its anchor in the page.
void ExpectTarget(const std::string& link, const std::string& from) {
  const std::string page = PageOf(link, from);
  if (page == "style.css") return;
  const std::vector<std::string> pages = HelpPages();
  const bool there = std::find(pages.begin(), pages.end(), page) != pages.end();
  ASSERT_TRUE(there) << from << " names " << link;
  const std::size_t mark = link.find('#');
  if (mark == std::string::npos) return;
  EXPECT_EQ(AnchorsOf(page).count(link.substr(mark + 1)), 1U) << from << " names " << link;
}

std::vector<std::string> LinksOf(const std::string& page) {
  std::vector<std::string> links;
  for (const Tag& tag : TagsOf(PageSource(page))) {
    for (const std::string_view name : {"href", "src"}) {
      const std::string link = AttributeOf(tag, name);
      if (!link.empty()) links.push_back(link);
    }
  }
  return links;
}

TEST(HelpLinks, The_project_file_names_all_files_of_the_help_and_no_other) {
  Names named;
  for (const std::string& line : ProjectSection("[FILES]")) {
    EXPECT_TRUE(named.insert(line).second) << line << " stands twice";
  }
  Names there;
  for (const auto& entry : std::filesystem::directory_iterator(test::HelpFolder())) {
    there.insert(entry.path().filename().string());
  }
  // For the program's own window of the help; the compiled file names them by themselves.
  for (const char* list : {"Lintaro.hhc", "Lintaro.hhk"}) EXPECT_EQ(there.erase(list), 1U) << list;
  EXPECT_EQ(named, there);
  EXPECT_EQ(there.count("index.html"), 1U);
}

TEST(HelpLinks, The_contents_hold_each_page_once) {
  std::vector<std::string> targets = SiteMapTargets("Lintaro.hhc");
  std::sort(targets.begin(), targets.end());
  EXPECT_EQ(targets, HelpPages());
}

TEST(HelpLinks, The_index_names_pages_and_anchors_that_exist) {
  const std::vector<std::string> targets = SiteMapTargets("Lintaro.hhk");
  EXPECT_GE(targets.size(), HelpPages().size());
  for (const std::string& target : targets) ExpectTarget(target, "Lintaro.hhk");
  Names named;
  for (const std::string& target : targets) named.insert(PageOf(target));
  const std::vector<std::string> pages = HelpPages();
  Names all(pages.begin(), pages.end());
  EXPECT_EQ(named, all);
}

TEST(HelpLinks, The_first_page_and_the_lists_of_the_project_are_named) {
  const std::vector<std::string> options = ProjectSection("[OPTIONS]");
  for (const std::string_view line :
       {"Compiled file=Lintaro.chm", "Contents file=Lintaro.hhc", "Index file=Lintaro.hhk",
        "Default topic=index.html", "Title=Orvane Detailing System"}) {
    EXPECT_EQ(std::count(options.begin(), options.end(), line), 1) << line;
  }
}

TEST(HelpLinks, Every_link_of_every_page_resolves) {
  int links = 0;
  for (const std::string& page : HelpPages()) {
    for (const std::string& link : LinksOf(page)) {
      ExpectTarget(link, page);
      ++links;
    }
  }
  EXPECT_GT(links, 100);
}

TEST(HelpLinks, Every_page_is_reached_from_the_first) {
  Names reached = {"index.html"};
  std::vector<std::string> open = {"index.html"};
  while (!open.empty()) {
    const std::string page = open.back();
    open.pop_back();
    for (const std::string& link : LinksOf(page)) {
      const std::string next = PageOf(link, page);
      if (next != "style.css" && reached.insert(next).second) open.push_back(next);
    }
  }
  const std::vector<std::string> pages = HelpPages();
  Names all(pages.begin(), pages.end());
  EXPECT_EQ(reached, all);
}

TEST(HelpLinks, Pages_are_plain_ascii) {
  for (const std::string& page : HelpPages()) {
    const std::string source = PageSource(page);
    const auto odd = std::find_if(source.begin(), source.end(), [](char c) {
      return c != '\n' &&
             (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) > 0x7E);
    });
    EXPECT_TRUE(odd == source.end()) << page << " at byte " << odd - source.begin();
    EXPECT_NE(source.find("<meta charset=\"us-ascii\">"), std::string::npos) << page;
  }
}

// Old viewers mend nothing: what is opened is closed, in order.
TEST(HelpLinks, Elements_of_a_page_are_closed_in_order) {
  const Names alone = {"!doctype", "meta", "link", "br"};
  for (const std::string& page : HelpPages()) {
    std::vector<std::string> open;
    for (const Tag& tag : TagsOf(PageSource(page))) {
      if (alone.count(tag.Name) > 0) continue;
      if (tag.Name.front() != '/') {
        open.push_back("/" + tag.Name);
        continue;
      }
      ASSERT_FALSE(open.empty()) << page << ": <" << tag.Name << "> without a start";
      ASSERT_EQ(open.back(), tag.Name) << page;
      open.pop_back();
    }
    EXPECT_TRUE(open.empty()) << page << " lacks <" << open.back() << ">";
  }
}

TEST(HelpLinks, Each_page_has_one_heading_and_a_title_of_its_own) {
  Names titles;
  for (const std::string& page : HelpPages()) {
    const std::string source = PageSource(page);
    EXPECT_EQ(test::ElementsOf(source, "h1").size(), 1U) << page;
    const std::vector<std::string> title = test::ElementsOf(source, "title");
    ASSERT_EQ(title.size(), 1U) << page;
    EXPECT_TRUE(titles.insert(title.front()).second) << page << ": " << title.front();
    EXPECT_NO_THROW(test::TextOf(source)) << page;  // every entity is a known one
  }
}

}  // namespace

}  // namespace orvane
