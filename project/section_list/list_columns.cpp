#include "project/section_list/list_columns.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"
#include "project/rules/mitre_rules.h"

namespace orvane {

namespace {

template <int Column>
std::string GridText(const Item& item) {
  return SectionColumnAt(Column).Text(item);
}

std::string PunchingText(const Item& item) {
  return item.PatternName;
}

std::string SagBarsText(const Item& item) {
  return item.SagBarDia > 0 ? ShortestText(item.SagBarDia) : std::string();
}

std::string PitchText(const Item& item) {
  return item.Pitch;
}

std::string MitreLeftText(const Item& item) {
  return MitreText(item.MitreLeft);
}

std::string MitreRightText(const Item& item) {
  return MitreText(item.MitreRight);
}

struct ListColumn {
  std::string_view Heading;
  std::string (*Text)(const Item& item);
  // Other headings that people write, as PlainHeading leaves them.
  std::array<std::string_view, 2> OtherNames;
};

constexpr std::array<ListColumn, ListColumnsEnd> Columns = {{
    // clang-format off
    {"",            GridText<LetterColumn>,   {"", ""}},
    {"Mark",        GridText<MarkColumn>,     {"", ""}},
    {"Product",     GridText<ProductColumn>,  {"SECTION", ""}},
    {"Length",      GridText<LengthColumn>,   {"", ""}},
    {"Qty",         GridText<QuantityColumn>, {"QUANTITY", "NOOFF"}},
    {"Notes",       GridText<NotesColumn>,    {"REMARKS", ""}},
    {"Punching",    PunchingText,             {"PATTERN", ""}},
    {"Sag bars",    SagBarsText,              {"", ""}},
    {"Pitch",       PitchText,                {"", ""}},
    {"Mitre left",  MitreLeftText,            {"", ""}},
    {"Mitre right", MitreRightText,           {"", ""}},
    // clang-format on
}};

constexpr bool IsCalled(int column, std::string_view heading) {
  return Columns.at(static_cast<std::size_t>(column)).Heading == heading;
}
static_assert(IsCalled(MarkColumn, "Mark") && IsCalled(ProductColumn, "Product") &&
                  IsCalled(LengthColumn, "Length") && IsCalled(QuantityColumn, "Qty") &&
                  IsCalled(NotesColumn, "Notes") && IsCalled(PunchingColumn, "Punching") &&
                  IsCalled(SagBarsColumn, "Sag bars") && IsCalled(PitchColumn, "Pitch") &&
                  IsCalled(MitreLeftColumn, "Mitre left") &&
                  IsCalled(MitreRightColumn, "Mitre right"),
              "the columns stand where their names say");

const ListColumn& ColumnAt(int column) {
  if (column < 0 || column >= ListColumnsEnd) throw RuntimeError(Failure::SubscriptOutOfRange);
  return Columns.at(static_cast<std::size_t>(column));
}

// The unit behind a heading, "m" of "Length (m)", and where its bracket opens.
std::size_t BracketOf(std::string_view heading) {
  const std::size_t open = heading.find_first_of("([");
  return open == 0 ? std::string_view::npos : open;
}

// Letters and digits alone, in capitals, without what stands between brackets behind them.
std::string PlainHeading(std::string_view heading) {
  std::string plain;
  for (const char c : UpperCase(heading.substr(0, BracketOf(heading)))) {
    // A letter beyond ASCII stays: a heading that has one is none of ours.
    const bool left = std::string_view(" \t\r\n.:_-").find(c) != std::string_view::npos;
    if (!left) plain += c;
  }
  // All lengths are millimetres.
  constexpr std::string_view Unit = "MM";
  if (plain.size() > Unit.size() && plain.ends_with(Unit)) plain.resize(plain.size() - Unit.size());
  return plain;
}

}  // namespace

std::string_view ListHeading(int column) {
  return ColumnAt(column).Heading;
}

std::string ListText(const Item& item, int column) {
  return ColumnAt(column).Text(item);
}

void CopyListed(const Item& from, Item& to) {
  to.Mark = from.Mark;
  to.Product = from.Product;
  to.Length = from.Length;
  to.Quantity = from.Quantity;
  to.Notes = from.Notes;
  to.PatternName = from.PatternName;
  to.SagBarDia = from.SagBarDia;
  to.Pitch = from.Pitch;
  to.MitreLeft = from.MitreLeft;
  to.MitreRight = from.MitreRight;
}

Item ListedCopy(const Item& from) {
  Item copy;
  copy.SectionType = from.SectionType;
  CopyListed(from, copy);
  return copy;
}

int ListColumnNamed(std::string_view heading) {
  const std::string plain = PlainHeading(heading);
  if (plain.empty()) return 0;
  for (int column = 1; column < ListColumnsEnd; ++column) {
    const ListColumn& own = ColumnAt(column);
    const auto& others = own.OtherNames;
    const bool named = PlainHeading(own.Heading) == plain ||
                       std::find(others.begin(), others.end(), plain) != others.end();
    if (named) return column;
  }
  return 0;
}

bool IsInMetres(std::string_view heading) {
  const std::size_t open = BracketOf(heading);
  if (open == std::string_view::npos) return false;
  const std::string_view unit = Trim(heading.substr(open + 1));
  return UpperCase(Trim(unit.substr(0, unit.find_first_of(")]")))) == "M";
}

}  // namespace orvane
