// The CAM file's blocks that are made from accessory lines.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/model.h"
#include "output/factory_text.h"

namespace orvane {

// All accessory blocks: vertical cladding rails, C-channels, sleeves by product, sleeves of fixed
// sizes. Each kind is a pass of its own over its list, so that its blocks stand together. A value
// that a block needs and its line lacks raises "Subscript out of range" before a line of the block
// is written. Errors have the accessory's name and the mark of the line in front.
void WriteAccessoryBlocks(FactoryWriter& out);

// A rail or a channel that is made for an accessory, as its block of the CAM file has it. Each of
// its holes is punched in both web rows.
struct RailBlock {
  std::string Mark;
  std::string Product;
  std::string Quantity;       // as it was entered: perhaps no number
  std::int16_t Length = 0;    // mm
  std::vector<double> Holes;  // distances from the left-hand end, mm
};
constexpr int RailHoleDiameter = 14;  // mm
constexpr int RailHoleLines = 2;      // holes at each distance

// The rails of a VCR assembly: as drawn, then of opposite hand, the rail turned end for end; only
// those of which there are any. The channel of a C-channel line. The same errors as above, without
// a name.
std::vector<RailBlock> VcrBlocksOf(const AccLine2& line);
RailBlock ChannelBlockOf(const AccLine2& line);

// Distance of a vertical cladding rail's hole from its end, mm: the cleat's own distance less the
// end allowance, rounded. An unknown cleat code raises an error that names it.
std::int16_t VcrInset(const std::string& cleatCode, const std::string& allowance);

}  // namespace orvane
