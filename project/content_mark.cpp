#include "project/content_mark.h"

#include <functional>

#include "core/numbers.h"

namespace orvane {

ContentMark MarkOf(std::string_view bytes) {
  return {bytes.size(), std::hash<std::string_view>()(bytes)};
}

std::string MarkText(const ContentMark& mark) {
  return DecimalText(static_cast<long long>(mark.Size)) + " " +
         DecimalText(static_cast<long long>(mark.Hash));
}

}  // namespace orvane
