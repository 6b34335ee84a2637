#include "tests/catalogue/shipped_catalogue.h"

#include <utility>

#include "core/program_folder.h"
#include "core/text.h"

namespace orvane::test {

namespace {

Texts Split(std::string_view text, char separator) {
  Texts parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

}  // namespace

std::string ShippedBytes(const std::string& name) {
  return BytesOf(ProgramFolder + "/" + name);
}

Texts LinesOf(const std::string& name) {
  Texts lines = Split(ShippedBytes(name), '\n');
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

std::vector<Texts> RowsOf(const std::string& name, std::string_view tags) {
  std::vector<Texts> rows;
  for (const std::string& line : LinesOf(name)) {
    Texts cells = Split(line, ',');
    const std::string tag = UpperCase(Trim(cells.front()));
    if (tag.size() == 1 && tags.find(tag) != std::string_view::npos) {
      rows.push_back(std::move(cells));
    }
  }
  return rows;
}

std::vector<SectionDim> ProductsOf(std::string_view letter) {
  std::vector<SectionDim> products;
  for (const SectionDim& row : SectionDims) {
    if (row.SectionType == letter) products.push_back(row);
  }
  return products;
}

std::set<double> DepthsOf(std::string_view letter) {
  std::set<double> depths;
  for (const SectionDim& row : ProductsOf(letter)) depths.insert(row.Dim3);
  return depths;
}

std::vector<PunchPattern> PatternsOf(std::string_view letter) {
  std::vector<PunchPattern> patterns;
  for (const PunchPattern& row : PunchPatterns) {
    if (row.SectionType == letter) patterns.push_back(row);
  }
  return patterns;
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

void ExpectPlainName(std::string_view name) {
  EXPECT_FALSE(name.empty());
  EXPECT_EQ(name, Trim(name));
  EXPECT_EQ(name.find_first_of(",\""), std::string_view::npos) << name;
}

}  // namespace orvane::test
