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

// A pattern's string, code by code: how many it has, and the next of them, which is taken off the
// front together with the separator behind it.
int CodeCount(std::string_view codes);
std::string_view TakeCode(std::string_view& codes);

// What the code table says of a code. One that it hasn't got adds no holes.
struct CodeFacts {
  bool IsKnown = false;
  bool TakesSagBars = false;      // its holes have the diameter of Item.SagBarDia
  bool TakesPairSpacing = false;  // its second hole stands at the product's Dim13
};
CodeFacts FactsOf(std::string_view code);

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
