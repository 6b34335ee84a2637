// What a file holds, told apart from what it held before without keeping it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvane {

struct ContentMark {
  std::size_t Size = 0;
  std::size_t Hash = 0;

  friend bool operator==(const ContentMark&, const ContentMark&) = default;
};

ContentMark MarkOf(std::string_view bytes);

// A mark as a text. It is compared by this program alone: one of another version may make another
// text of the same bytes, which then count as others.
std::string MarkText(const ContentMark& mark);

}  // namespace orvane
