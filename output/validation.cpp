#include "output/validation.h"

#include <algorithm>

#include "core/desktop.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "output/accessory_rows.h"
#include "project/error_names.h"

namespace orvane {

namespace {

// "Item 2: P1", how messages and lines name a section.
std::string ItemText(std::int16_t index, std::string_view mark) {
  return "Item " + ShortestText(index) + ": " + std::string(mark);
}

// Whose ends can lap in a sleeve.
constexpr PerFamily<bool> CanBeSleeved = {
    {{"Z", true}, {"E", false}, {"C", false}, {"V", false}, {"R", false}, {"T", false}}};
static_assert(NamesEachFamily(CanBeSleeved), "CanBeSleeved needs one row for each section family");

bool NeedsSleeves(const Item& item) {
  const bool* canBe = FactOf(CanBeSleeved, item.SectionType);
  const auto contains = [&item](std::string_view word) {
    return item.PatternName.find(word) != std::string::npos;
  };
  return canBe != nullptr && *canBe && (contains("Sleeved") || contains("Slvd"));
}

// Sleeves count whatever their number.
bool HasSleeves(const std::string& product) {
  return std::any_of(AccLines2.begin(), AccLines2.end(), [&product](const AccLine2& line) {
    if (line.AccIndex != PurlinSleeveRow) return false;
    bool fits = false;
    InNameOfAccessory(PurlinSleeveRow, line.Mark, [&] { fits = line.Values.At(1) == product; });
    return fits;
  });
}

bool GoOnWithoutSleeves(std::int16_t index, const std::string& mark) {
  const std::string question = ItemText(index, mark) +
                               " requires sleeves and none were found\r"
                               "Do you wish to continue with the export?";
  const Answer answer =
      TheDesktop().ShowMessageBox(question, "Checking Data", Buttons::YesNo, Icon::None);
  return answer == Answer::Yes;
}

}  // namespace

Table<std::string> ExportErrors;

bool CheckExportData() {
  ExportErrors.Clear();
  for (int row = 1; row <= Items.UBound(); ++row) {
    const std::int16_t index = Int16(row);
    const Item& item = Items.At(row);
    if (item.Mark.empty()) AddExportError(index, item.Mark, "No mark");
    if (item.Length == 0) AddExportError(index, item.Mark, "Zero length");
    if (item.Quantity == 0) AddExportError(index, item.Mark, "Zero quantity");
    if (NeedsSleeves(item) && !HasSleeves(item.Product) && !GoOnWithoutSleeves(index, item.Mark)) {
      AddExportError(index, item.Mark, "No sleeves");
      return false;
    }
  }
  return ExportErrors.Empty();
}

void AddExportError(std::int16_t index, std::string_view mark, std::string_view word) {
  ExportErrors.Append(ItemText(index, mark).append(1, ' ').append(word));
}

}  // namespace orvane
