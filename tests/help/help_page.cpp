#include "tests/help/help_page.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "tests/support/fixture.h"

namespace orvane::test {

namespace {

struct Entity {
  std::string_view Name;
  std::string_view Text;
};

// All that the pages use.
constexpr Entity Entities[] = {
    {"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&nbsp;", " "}};

// The entity at that place, and how long it is there.
Entity EntityAt(std::string_view text, std::size_t at) {
  for (const Entity& entity : Entities) {
    if (text.substr(at, entity.Name.size()) == entity.Name) return entity;
  }
  throw std::runtime_error("unknown entity: " + std::string(text.substr(at, 12)));
}

std::string WithoutEntities(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '&') {
      plain += text[at];
      continue;
    }
    const Entity entity = EntityAt(text, at);
    plain += entity.Text;
    at += entity.Name.size() - 1;
  }
  return plain;
}

}  // namespace

std::filesystem::path HelpFolder() {
  return std::filesystem::path(ORVANE_PROGRAM_DIR) / "help";
}

std::vector<std::string> HelpPages() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(HelpFolder())) {
    if (entry.path().extension() == ".html") names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string PageSource(const std::string& name) {
  return BytesOf((HelpFolder() / name).string());
}

std::vector<Tag> TagsOf(std::string_view html) {
  std::vector<Tag> tags;
  for (std::size_t at = html.find('<'); at != std::string_view::npos;) {
    const std::size_t end = html.find('>', at);
    if (end == std::string_view::npos) throw std::runtime_error("a tag without its end");
    Tag tag;
    tag.Body = html.substr(at + 1, end - at - 1);
    tag.Name = tag.Body.substr(0, tag.Body.find_first_of(" \n"));
    std::transform(tag.Name.begin(), tag.Name.end(), tag.Name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    at = html.find('<', end);
    tag.Text = html.substr(end + 1, at == std::string_view::npos ? at : at - end - 1);
    tags.push_back(std::move(tag));
  }
  return tags;
}

std::string AttributeOf(const Tag& tag, std::string_view name) {
  const std::string start = " " + std::string(name) + "=\"";
  const std::size_t at = tag.Body.find(start);
  if (at == std::string::npos) return "";
  const std::size_t value = at + start.size();
  return tag.Body.substr(value, tag.Body.find('"', value) - value);
}

std::string TextOf(std::string_view html) {
  std::string text = WithoutEntities(html.substr(0, html.find('<')));
  for (const Tag& tag : TagsOf(html)) {
    if (tag.Name == "br") text += '\n';
    text += WithoutEntities(tag.Text);
  }
  return text;
}

std::vector<std::string> ElementsOf(std::string_view html, std::string_view start) {
  const std::string opening = "<" + std::string(start);
  const std::string closing = "</" + std::string(start.substr(0, start.find(' '))) + ">";
  std::vector<std::string> elements;
  std::size_t at = html.find(opening);
  while (at != std::string_view::npos) {
    const char behind = html.at(at + opening.size());
    const std::size_t content = html.find('>', at) + 1;
    const std::size_t end = html.find(closing, content);
    if (end == std::string_view::npos) throw std::runtime_error(closing + " is missing");
    if (behind == '>' || behind == ' ') elements.emplace_back(html.substr(content, end - content));
    at = html.find(opening, content);
  }
  return elements;
}

std::vector<std::vector<std::string>> TableRows(std::string_view html) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& row : ElementsOf(html, "tr")) {
    std::vector<std::string> cells;
    for (const std::string_view kind : {"th", "td"}) {
      for (const std::string& cell : ElementsOf(row, kind)) cells.push_back(TextOf(cell));
    }
    rows.push_back(std::move(cells));
  }
  return rows;
}

}  // namespace orvane::test
