// The CAM file's blocks that are made from accessory lines.
#pragma once

#include <cstdint>
#include <string>

#include "output/factory_text.h"

namespace orvane {

// All accessory blocks: vertical cladding rails, C-channels, sleeves by product, sleeves of fixed
// sizes. Each kind is a pass of its own over its list, so that its blocks stand together. A value
// that a block needs and its line lacks raises "Subscript out of range" before a line of the block
// is written. Errors have the accessory's name and the mark of the line in front.
void WriteAccessoryBlocks(FactoryWriter& out);

// Distance of a vertical cladding rail's hole from its end, mm: the cleat's own distance less the
// end allowance, rounded. An unknown cleat code raises an error that names it.
std::int16_t VcrInset(const std::string& cleatCode, const std::string& allowance);

}  // namespace orvane
