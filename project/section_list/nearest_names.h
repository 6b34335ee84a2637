// The names of the catalogue that are nearest to one that it hasn't got.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// Up to three of the names, the nearest first and of equals in their order: those that fewer than
// half of the text's letters, put in, left out or changed, lead to. Case and blanks don't count.
std::vector<std::string> NearestNames(std::string_view text, const std::vector<std::string>& names);

// Why a name that is none of those isn't taken, with the nearest of them.
std::string NotInTheList(std::string_view text, const std::vector<std::string>& names);

}  // namespace orvane
