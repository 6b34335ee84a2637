#include "project/rules/section_columns.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/numbers.h"
#include "core/pasted_text.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"
#include "project/rules/section_details.h"

namespace orvane {

namespace {

// What the columns show.

std::string LetterText(const Item& item) {
  return item.SectionType;
}

std::string MarkText(const Item& item) {
  return item.Mark;
}

std::string ProductText(const Item& item) {
  return item.Product;
}

std::string LengthText(const Item& item) {
  return DecimalText(item.Length);
}

std::string QuantityText(const Item& item) {
  return DecimalText(item.Quantity);
}

std::string NotesText(const Item& item) {
  return item.Notes;
}

// What a text does to the record.

// A number into its field; false when 16 bits can't hold it, and the field then stays.
bool TakeNumber(std::string_view text, std::int16_t& field) {
  try {
    field = Whole(Val(text));
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

Typed TakeMark(Item& item, std::string_view text) {
  item.Mark = text;
  return Typed::Taken;
}

Typed TakeProduct(Item& item, std::string_view text) {
  const std::optional<std::string> product = ProductNamed(item.SectionType, text);
  if (!product) return Typed::Refused;
  item.Product = *product;
  return Typed::Taken;
}

Typed TakeLength(Item& item, std::string_view text) {
  return TakeNumber(text, item.Length) ? Typed::Taken : Typed::Refused;
}

Typed TakeQuantity(Item& item, std::string_view text) {
  return TakeNumber(text, item.Quantity) ? Typed::Taken : Typed::Overflow;
}

Typed TakeNotes(Item& item, std::string_view text) {
  item.Notes = text;
  return Typed::Taken;
}

// What is refused on leaving.

std::optional<std::string> MarkRefusal(const Item&, std::string_view text, const MarkInUse& inUse) {
  const std::string_view mark = Trim(text);
  if (mark.empty() || !inUse(mark)) return std::nullopt;
  return "Error - Duplicate Mark";
}

std::optional<std::string> LengthRefusal(const Item& item, std::string_view text,
                                         const MarkInUse&) {
  const double length = Val(text);
  if (length <= 0) return "Invalid length";

  const int family = FamilyNumber(item.SectionType);
  if (family == 0) return std::nullopt;  // no section letter, so no limit of its family
  const double maximum = MaxDims.At(family);
  if (length > maximum) {
    return "Length exceeds maximum for section (" + FormatNumber(maximum, 0) + ")";
  }
  return std::nullopt;
}

// The table.

constexpr auto Left = CellSide::Left;
constexpr auto Right = CellSide::Right;
using enum CellEdit;

constexpr std::array Columns = {
    // clang-format off
    //            heading        width                side   shows         edited  for               change                takes         refuses        missing
    SectionColumn{"",            WidthShare(350),     Left,  LetterText,   None,   nullptr,          std::nullopt,         nullptr,      nullptr,       ""},
    SectionColumn{"Mark",        WidthShare(1000),    Left,  MarkText,     Text,   nullptr,          ChangeKind::Mark,     TakeMark,     MarkRefusal,   "No mark"},
    SectionColumn{"Product",     WidthShare(1200),    Left,  ProductText,  Choice, HasProductChoice, ChangeKind::Product,  TakeProduct,  nullptr,       "No product"},
    SectionColumn{"Length (mm)", WidthShare(600, 5),  Right, LengthText,   Digits, nullptr,          ChangeKind::Length,   TakeLength,   LengthRefusal, ""},
    SectionColumn{"Qty",         WidthShare(450, 4),  Right, QuantityText, Digits, nullptr,          ChangeKind::Quantity, TakeQuantity, nullptr,       "Invalid quantity"},
    SectionColumn{"Notes",       WidthShare(2000),    Left,  NotesText,    Text,   nullptr,          ChangeKind::Notes,    TakeNotes,    nullptr,       ""},
    // clang-format on
};

constexpr bool IsNamed(int column, std::string_view heading) {
  return Columns.at(static_cast<std::size_t>(column)).Heading == heading;
}

static_assert(std::all_of(Columns.begin(), Columns.end(),
                          [](const SectionColumn& column) {
                            const bool edited = column.Edit != None;
                            return edited == (column.Take != nullptr) &&
                                   edited == column.Kind.has_value();
                          }),
              "a column is edited exactly if something takes what is typed, as a change of a kind");
static_assert(std::all_of(Columns.begin(), Columns.end(),
                          [](const SectionColumn& column) {
                            return column.Width.Share > 0 && column.Text != nullptr;
                          }),
              "a column has a width and shows something");
static_assert(IsNamed(LetterColumn, "") && IsNamed(MarkColumn, "Mark") &&
                  IsNamed(ProductColumn, "Product") && IsNamed(LengthColumn, "Length (mm)") &&
                  IsNamed(QuantityColumn, "Qty") && IsNamed(NotesColumn, "Notes"),
              "the columns with a name stand where the name says");

// Going by it.

bool IsItem(int row) {
  return row >= 1 && row <= Items.UBound();
}

bool IsColumn(int column) {
  return column >= 0 && column < static_cast<int>(Columns.size());
}

CellEdit EditOf(const SectionColumn& column, std::string_view letter) {
  return column.EditedFor == nullptr || column.EditedFor(letter) ? column.Edit : None;
}

MarkInUse MarksBeside(int ItemIndex) {
  return [ItemIndex](std::string_view mark) {
    for (int row = 1; row <= Items.UBound(); ++row) {
      if (row != ItemIndex && Trim(Items.At(row).Mark) == mark) return true;
    }
    return false;
  };
}

TakenCell RefusedCell(std::string reason) {
  return {TakenCell::Result::Refused, std::move(reason)};
}

// A text into a cell that no hand has typed it into. The grid has no words for what its editors
// don't let happen, another letter or a product that isn't in the list; these are the cell's own.
TakenCell TakeCell(const SectionColumn& column, Item& item, std::string_view text,
                   const MarkInUse& inUse) {
  using enum TakenCell::Result;
  const std::string former = column.Text(item);
  const CellEdit edit = EditOf(column, item.SectionType);
  const EnteredText entered = TextToEnter(text, edit == Text ? TextForm::Quoted : TextForm::Any);
  text = entered.Text;
  // A product that the list lacks stays as long as nothing else is chosen.
  if ((edit == None || edit == Choice) && Trim(text) == Trim(former)) return {Same, {}};
  if (edit == None) return RefusedCell("Can't be changed");
  if (column.Refusal != nullptr) {
    if (std::optional<std::string> refusal = column.Refusal(item, text, inUse)) {
      return RefusedCell(std::move(*refusal));
    }
  }
  if (column.Take(item, text) != Typed::Taken) {
    return RefusedCell(edit == Choice ? "Not in the list" : DescriptionOf(Failure::Overflow));
  }
  return {column.Text(item) == former ? Same : Changed, {}};
}

// The same for a number that no rule can read.
TakenCell TakeAnyCell(const SectionColumn& column, Item& item, std::string_view text,
                      const MarkInUse& inUse) {
  try {
    return TakeCell(column, item, text, inUse);
  } catch (const RuntimeError& error) {
    return RefusedCell(error.Description());
  }
}

bool HasCell(const std::vector<TakenCell>& cells, TakenCell::Result what) {
  return std::any_of(cells.begin(), cells.end(),
                     [what](const TakenCell& cell) { return cell.What == what; });
}

}  // namespace

constinit const int SectionColumns = static_cast<int>(Columns.size());

const SectionColumn& SectionColumnAt(int column) {
  if (!IsColumn(column)) throw RuntimeError(Failure::SubscriptOutOfRange);
  return Columns.at(static_cast<std::size_t>(column));
}

std::string ItemText(std::int16_t ItemIndex, int column) {
  if (!IsItem(ItemIndex) || !IsColumn(column)) return {};
  return SectionColumnAt(column).Text(Items.At(ItemIndex));
}

CellEdit SectionCellEdit(std::int16_t ItemIndex, int column) {
  if (!IsItem(ItemIndex) || !IsColumn(column)) return None;
  return EditOf(SectionColumnAt(column), Items.At(ItemIndex).SectionType);
}

bool HasProductChoice(std::string_view SectionType) {
  const SectionFamily* family = FamilyOf(SectionType);
  return family != nullptr && family->FixedProduct.empty();
}

Typed TakeTypedText(std::int16_t ItemIndex, int column, std::string_view text) {
  const CellEdit edit = SectionCellEdit(ItemIndex, column);
  if (edit != Text && edit != Digits) return Typed::Taken;
  return SectionColumnAt(column).Take(Items.At(ItemIndex), text);
}

bool TakeChosenText(std::int16_t ItemIndex, int column, std::string_view text) {
  if (SectionCellEdit(ItemIndex, column) != Choice) return false;
  const std::string former = ItemText(ItemIndex, column);
  SectionColumnAt(column).Take(Items.At(ItemIndex), text);
  return ItemText(ItemIndex, column) != former;
}

void PutBackText(std::int16_t ItemIndex, int column, std::string_view text) {
  if (column == ProductColumn) Items.At(ItemIndex).Product = text;
}

std::optional<std::string> CellFault(const Item& item, int column, const MarkInUse& inUse) {
  if (!IsColumn(column)) return std::nullopt;
  const SectionColumn& own = SectionColumnAt(column);
  const std::string text = own.Text(item);
  if (own.Refusal != nullptr) {
    if (std::optional<std::string> refusal = own.Refusal(item, text, inUse)) return refusal;
  }
  const bool empty = own.Edit == Digits ? Val(text) <= 0 : Trim(text).empty();
  if (!empty || own.Missing.empty()) return std::nullopt;
  return std::string(own.Missing);
}

std::optional<std::string> CellRefusal(std::int16_t ItemIndex, int column, std::string_view text) {
  if (!IsColumn(column) || SectionColumnAt(column).Refusal == nullptr) return std::nullopt;
  return SectionColumnAt(column).Refusal(Items.At(ItemIndex), text, MarksBeside(ItemIndex));
}

bool TakenRow::IsRefused() const {
  return HasCell(Cells, TakenCell::Result::Refused);
}

bool TakenRow::IsChanged() const {
  return HasCell(Cells, TakenCell::Result::Changed);
}

TakenRow TakeRow(Item& item, const SectionTexts& texts, const MarkInUse& inUse) {
  TakenRow row;
  for (std::size_t at = 0; at < Columns.size(); ++at) {
    const bool given = at < texts.size() && texts[at].has_value();
    row.Cells.push_back(given ? TakeAnyCell(Columns[at], item, *texts[at], inUse) : TakenCell());
  }
  return row;
}

TakenRow TakeRow(std::int16_t ItemIndex, const SectionTexts& texts) {
  if (!IsItem(ItemIndex)) throw RuntimeError(Failure::SubscriptOutOfRange);
  return TakeRow(Items.At(ItemIndex), texts, MarksBeside(ItemIndex));
}

}  // namespace orvane
