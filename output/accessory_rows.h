// The accessories that the outputs know by their row in AccDefs, whatever the catalogue calls them.
// The catalogue files that ship keep them in these rows.
#pragma once

#include <cstdint>

namespace orvane {

// Type 1: sleeves of fixed products, one parameter for each size.
constexpr std::int16_t DeepSleeveRow = 4;
constexpr std::int16_t HalfSleeveRow = 5;

// Type 2. The first value of a purlin sleeve is the product that it fits.
constexpr std::int16_t PurlinSleeveRow = 6;
// Asks for a CAM file although no block is ever written for it, so that a job of these alone still
// gives the line its header.
constexpr std::int16_t HeaderOnlyRow = 7;
constexpr std::int16_t VcrAssemblyRow = 8;
// Its first value joins the first column of the accessory list.
constexpr std::int16_t JoinedColumnRow = 9;
constexpr std::int16_t CChannelRow = 21;

}  // namespace orvane
