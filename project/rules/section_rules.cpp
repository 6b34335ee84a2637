#include "project/rules/section_rules.h"

#include <algorithm>

#include "core/desktop.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"

namespace orvane {

namespace {

bool IsItem(int row) {
  return row >= 1 && row <= Items.UBound();
}

// A typed number into its field; false when 16 bits can't hold it, and the field then stays.
bool TakeTypedNumber(std::string_view text, std::int16_t& field) {
  try {
    field = Whole(Val(text));
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

std::optional<std::string> MarkRefusal(std::int16_t ItemIndex, std::string_view text) {
  const std::string_view mark = Trim(text);
  if (mark.empty()) return std::nullopt;
  for (int row = 1; row <= Items.UBound(); ++row) {
    if (row != ItemIndex && Trim(Items.At(row).Mark) == mark) return "Error - Duplicate Mark";
  }
  return std::nullopt;
}

std::optional<std::string> LengthRefusal(std::int16_t ItemIndex, std::string_view text) {
  const double length = Val(text);
  if (length <= 0) return "Invalid length";

  const int family = FamilyNumber(Items.At(ItemIndex).SectionType);
  if (family == 0) return std::nullopt;  // no section letter, so no limit of its family
  const double maximum = MaxDims.At(family);
  if (length > maximum) {
    return "Length exceeds maximum for section (" + FormatNumber(maximum, 0) + ")";
  }
  return std::nullopt;
}

// The position of the hole farthest from the left-hand end; none without holes.
std::optional<std::int16_t> LastHolePosition(const Item& item) {
  std::optional<std::int16_t> last;
  for (const Hole& hole : item.Holes) {
    last = std::max(last.value_or(hole.XPos), hole.XPos);
  }
  return last;
}

// The last row whose section ends before its last hole; 0 for none.
int RowShorterThanItsHoles() {
  int found = 0;
  for (int row = 1; row <= Items.UBound(); ++row) {
    const Item& item = Items.At(row);
    const std::optional<std::int16_t> last = LastHolePosition(item);
    if (last && *last > item.Length) found = row;
  }
  return found;
}

}  // namespace

std::string ItemText(std::int16_t ItemIndex, int column) {
  if (!IsItem(ItemIndex)) return {};
  const Item& item = Items.At(ItemIndex);
  switch (column) {
    // clang-format off
    case LetterColumn:   return item.SectionType;
    case MarkColumn:     return item.Mark;
    case ProductColumn:  return item.Product;
    case LengthColumn:   return DecimalText(item.Length);
    case QuantityColumn: return DecimalText(item.Quantity);
    case NotesColumn:    return item.Notes;
    default:             return {};
      // clang-format on
  }
}

bool HasProductChoice(std::string_view SectionType) {
  const SectionFamily* family = FamilyOf(SectionType);
  return family != nullptr && family->FixedProduct.empty();
}

Typed TakeTypedText(std::int16_t ItemIndex, int column, std::string_view text) {
  if (!IsItem(ItemIndex)) return Typed::Taken;
  Item& item = Items.At(ItemIndex);
  switch (column) {
    case MarkColumn:
      item.Mark = text;
      return Typed::Taken;
    case LengthColumn:
      return TakeTypedNumber(text, item.Length) ? Typed::Taken : Typed::Refused;
    case QuantityColumn:
      return TakeTypedNumber(text, item.Quantity) ? Typed::Taken : Typed::Overflow;
    case NotesColumn:
      item.Notes = text;
      return Typed::Taken;
    default:
      return Typed::Taken;
  }
}

std::optional<std::string> CellRefusal(std::int16_t ItemIndex, int column, std::string_view text) {
  if (column == MarkColumn) return MarkRefusal(ItemIndex, text);
  if (column == LengthColumn) return LengthRefusal(ItemIndex, text);
  return std::nullopt;
}

bool CheckLength() {
  const int row = RowShorterThanItsHoles();
  if (row == 0) return true;
  const Item& item = Items.At(row);
  const std::string text = item.Mark + " : " + item.Product +
                           " Length shorter than last hole position " + "\r" + "Quit anyway?";
  return TheDesktop().ShowMessageBox(text, "Warning", Buttons::YesNo, Icon::None) != Answer::No;
}

}  // namespace orvane
