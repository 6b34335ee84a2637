#include "project/section_list/nearest_names.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "core/text.h"

namespace orvane {

namespace {

// Names are shorter; what is longer is some other text.
constexpr std::size_t LongestName = 64;
constexpr std::size_t MostNames = 3;

std::string Plain(std::string_view text) {
  std::string plain = UpperCase(text.substr(0, LongestName));
  plain.erase(std::remove(plain.begin(), plain.end(), ' '), plain.end());
  return plain;
}

// How many letters must be put in, left out or changed, by the usual table of two rows.
std::size_t Distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= from.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t changed = diagonal + (from[i - 1] == to[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::vector<std::string> NearestNames(std::string_view text,
                                      const std::vector<std::string>& names) {
  const std::string wanted = Plain(text);
  std::vector<std::pair<std::size_t, const std::string*>> found;
  for (const std::string& name : names) {
    const std::size_t distance = Distance(wanted, Plain(name));
    if (distance * 2 < wanted.size()) found.emplace_back(distance, &name);
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> nearest;
  for (const auto& [distance, name] : found) {
    if (nearest.size() == MostNames) break;
    if (std::find(nearest.begin(), nearest.end(), *name) == nearest.end()) nearest.push_back(*name);
  }
  return nearest;
}

std::string NotInTheList(std::string_view text, const std::vector<std::string>& names) {
  std::string reason;
  for (const std::string& name : NearestNames(text, names)) {
    reason += (reason.empty() ? "; nearest: " : ", ") + name;
  }
  return "Not in the list" + reason;
}

}  // namespace orvane
