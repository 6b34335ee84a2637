#include "core/section_families.h"

#include <cstddef>

namespace orvane {

int MaxDimsRow(std::string_view letter) {
  for (std::size_t at = 0; at < SectionFamilies.size(); ++at) {
    if (SectionFamilies.at(at).Letter == letter) return static_cast<int>(at) + 1;
  }
  return 0;
}

}  // namespace orvane
