// The pages of the help as the build laid them beside the program, taken apart for the tests.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::test {

// The folder of the pages.
std::filesystem::path HelpFolder();

// The names of the .html files in it, in order.
std::vector<std::string> HelpPages();

// The whole of a page as it stands.
std::string PageSource(const std::string& name);

struct Tag {
  std::string Name;  // in lower case; of a closing tag with the slash
  std::string Body;  // all between the angle brackets
  std::string Text;  // what stands between this tag and the next, as it stands
};

// All tags in order. A comment or a document type is a tag too.
std::vector<Tag> TagsOf(std::string_view html);

// The value of an attribute; empty without it.
std::string AttributeOf(const Tag& tag, std::string_view name);

// The text of html: tags left out, a line break for each <br>, entities in their own letters.
// Blanks stay as they are.
std::string TextOf(std::string_view html);

// What stands between each opening tag that begins with `start` and the closing tag of that name,
// as it stands: ElementsOf(page, "h3 class=\"message\"").
std::vector<std::string> ElementsOf(std::string_view html, std::string_view start);

// The texts of the cells of each row of all tables of a page, heading rows too.
std::vector<std::vector<std::string>> TableRows(std::string_view html);

}  // namespace orvane::test
