// The two list operations on the project's accessory lines that all accessory dialogs share, parts
// of the changes that those make.
#pragma once

#include <cstdint>

#include "core/model.h"

namespace orvane {

// Takes every line of that accessory out of AccLines1 (Type 1) or AccLines2 (Type 2), the others
// keeping their order, and sets AccUsed(AccIndex) false.
void ClearAccLines(std::int16_t Type, std::int16_t AccIndex);

// Sorts AccLines1 by AccIndex, then ParamIndex; AccLines2 by AccIndex, then Mark by character code.
// Lines of equal keys keep their order.
void SortAccLines(std::int16_t Type);

}  // namespace orvane
