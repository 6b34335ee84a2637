// The examples in the help are pieces of the sample jobs' files and of the catalogue that ships.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "tests/help/help_page.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using test::AttributeOf;
using test::HelpPages;
using test::PageSource;
using test::Tag;
using test::TagsOf;

// Line feeds alone, and no blanks at the ends of lines, which a page can't show.
std::string Trimmed(const std::string& bytes) {
  std::string text;
  for (const char c : bytes) {
    if (c == '\r') continue;
    if (c == '\n') text.erase(text.find_last_not_of(' ') + 1);
    text += c;
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string ShippedFile(const std::string& name) {
  for (const std::string_view folder : {"/samples/", "/catalogue/"}) {
    const std::string path = ORVANE_SOURCE_DIR + std::string(folder) + name;
    if (std::filesystem::exists(path)) return test::BytesOf(path);
  }
  ADD_FAILURE() << "no file " << name;
  return "";
}

TEST(HelpSamples, Every_example_stands_in_the_file_that_it_names_as_whole_lines) {
  std::multiset<std::string> files;
  for (const std::string& page : HelpPages()) {
    for (const Tag& tag : TagsOf(PageSource(page))) {
      if (tag.Name != "pre") continue;
      const std::string name = AttributeOf(tag, "title");
      files.insert(name);
      const std::string example = Trimmed(test::TextOf(tag.Text));
      ASSERT_GT(example.size(), 10U) << page;
      EXPECT_EQ(example.front(), '\n') << page;
      EXPECT_EQ(example.back(), '\n') << page;
      EXPECT_NE(("\n" + Trimmed(ShippedFile(name))).find(example), std::string::npos)
          << page << " shows of " << name << ":" << example;
    }
  }
  EXPECT_EQ(files, (std::multiset<std::string>{
                       "portal-shed.xov", "portal-shed.xov", "portal-shed.xov", "portal-shed.xov",
                       "portal-shed.xov", "cladding.xov", "mezzanine.xov", "portal-shed.xac",
                       "portal-shed.xac", "portal-shed.xac", "dims.csv", "punch.csv", "accs1.csv",
                       "accs2.csv", "check.csv"}));
}

}  // namespace

}  // namespace orvane
