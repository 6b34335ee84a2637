#include "project/accessory_rules.h"

namespace orvane {

bool IsType1Accessory(std::int16_t AccIndex) {
  return AccIndex >= 1 && AccIndex <= AccType1Count;
}

TextRows AccessoryRows(std::int16_t) {
  return {};
}

void StoreType1Lines(std::int16_t, const TextRows&) {}

void StoreType2Lines(std::int16_t, const TextRows&) {}

std::optional<AccessoryRefusal> ValidateAccessory(std::int16_t, const TextRows&) {
  return std::nullopt;
}

}  // namespace orvane
