// Turns a punching pattern's code string into holes for a section of a given length.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/model.h"

namespace orvane {

// Appends the holes of the named pattern to Items(ItemIndex): the first row of PunchPatterns with
// the item's section letter and that name. A pattern that isn't found (the ordinary case for
// "Custom"), an empty string and an unknown code add nothing. It doesn't clear the list, sort it or
// fill the gaps. A position beyond 16 bits raises "Overflow".
void ExpandPattern(std::string_view PatternName, std::int16_t ItemIndex);
// The same for a section wherever it stands, a copy of a row among them.
void ExpandPattern(std::string_view PatternName, Item& item);

// Appends one hole to Items(ItemIndex) and returns X. For pattern holes only: CustomHoleCount
// stays.
std::int16_t AddHole(std::int16_t ItemIndex, std::int16_t X, std::string_view Kind,
                     std::string_view BF, std::string_view W1, std::string_view W2,
                     std::string_view TF, std::int16_t Diameter, std::int16_t SlotLength = 0,
                     Boolean Starred = False);
std::int16_t AddHole(Item& item, std::int16_t X, std::string_view Kind, std::string_view BF,
                     std::string_view W1, std::string_view W2, std::string_view TF,
                     std::int16_t Diameter, std::int16_t SlotLength = 0, Boolean Starred = False);

}  // namespace orvane
