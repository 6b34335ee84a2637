#include "project/section_serial.h"

#include "core/model.h"

namespace orvane {

std::int32_t SerialOf(std::int16_t ItemIndex) {
  static std::int32_t last = 0;
  Item& item = Items.At(ItemIndex);
  if (item.Serial == 0) item.Serial = ++last;
  return item.Serial;
}

}  // namespace orvane
