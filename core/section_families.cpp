#include "core/section_families.h"

#include <cstddef>

namespace orvane {

const SectionFamily* FamilyOf(std::string_view letter) {
  for (const SectionFamily& family : SectionFamilies) {
    if (family.Letter == letter) return &family;
  }
  return nullptr;
}

int FamilyNumber(std::string_view letter) {
  for (std::size_t at = 0; at < SectionFamilies.size(); ++at) {
    if (SectionFamilies.at(at).Letter == letter) return static_cast<int>(at) + 1;
  }
  return 0;
}

}  // namespace orvane
