// The project's accessory lines against the catalogues, and the two list operations on them that
// all accessory dialogs share, parts of the changes that those make.
#pragma once

#include <cstdint>
#include <vector>

#include "core/model.h"

namespace orvane {

// The accessories in use, rows of AccDefs: those whose flag is set.
std::vector<std::int16_t> AccessoriesInUse();

// True for a line of an accessory that the catalogue of its type hasn't got; such a line is kept,
// and nothing else is done with it. A line of no accessory, 0, isn't one.
bool IsBeyondCatalogue(const AccLine1& line);
bool IsBeyondCatalogue(const AccLine2& line);

// Takes every line of that accessory out of AccLines1 (Type 1) or AccLines2 (Type 2), the others
// keeping their order, and sets AccUsed(AccIndex) false.
void ClearAccLines(std::int16_t Type, std::int16_t AccIndex);

// Sorts AccLines1 by AccIndex, then ParamIndex; AccLines2 by AccIndex, then Mark by character code.
// Lines of equal keys keep their order.
void SortAccLines(std::int16_t Type);

}  // namespace orvane
