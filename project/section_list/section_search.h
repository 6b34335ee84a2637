// Sections found by a text that they hold.
#pragma once

#include <string_view>
#include <vector>

namespace orvane {

struct FoundSection {
  int Row = 0;     // of Items
  int Column = 0;  // the first of its cells that holds the text

  friend bool operator==(const FoundSection&, const FoundSection&) = default;
};

// The sections that hold the text anywhere in their mark, product, length or notes, in their order.
// The letters A to Z are found in either case. An empty text finds none.
std::vector<FoundSection> SectionsWith(std::string_view text);

}  // namespace orvane
