#include "project/error_names.h"

#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"

namespace orvane {

std::string NameOfSection(std::int16_t ItemIndex) {
  if (ItemIndex >= 1 && ItemIndex <= Items.UBound()) {
    const std::string mark(Trim(Items.At(ItemIndex).Mark));
    if (!mark.empty()) return mark;
  }
  return "Item " + ShortestText(ItemIndex);
}

std::string NameOfAccessory(std::int16_t accessory, std::string_view mark) {
  const bool known = accessory >= 1 && accessory <= AccDefs.UBound();
  std::string name = known ? AccDefs.At(accessory).Name : "Accessory " + ShortestText(accessory);
  const std::string trimmed(Trim(mark));
  if (!trimmed.empty()) name.append(1, ' ').append(trimmed);
  return name;
}

void InNameOfSection(std::int16_t ItemIndex, const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    throw NamedError(NameOfSection(ItemIndex), error);
  }
}

void InNameOfAccessory(std::int16_t accessory, std::string_view mark,
                       const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    throw NamedError(NameOfAccessory(accessory, mark), error);
  }
}

}  // namespace orvane
