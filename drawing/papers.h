// The paper that pages are laid out on.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace orvane {

// Millimetres, in portrait.
struct Paper {
  double Width = 210;
  double Height = 297;

  friend bool operator==(const Paper&, const Paper&) = default;
};

struct NamedPaper {
  std::string_view Name;
  Paper Size;
};

// Those that sheets and reports have been looked at on.
constexpr std::array<NamedPaper, 4> Papers = {{
    {"A4", {210, 297}},
    {"A3", {297, 420}},
    {"Letter", {215.9, 279.4}},
    {"Tabloid", {279.4, 431.8}},
}};

// The paper of that name; A4 is the first.
constexpr std::optional<Paper> PaperNamed(std::string_view name) {
  for (const NamedPaper& paper : Papers) {
    if (paper.Name == name) return paper.Size;
  }
  return {};
}

// Sheets need that much of a paper: the short side of an A4, the long one of a Letter.
constexpr Paper LeastPaper{210, 279.4};

}  // namespace orvane
