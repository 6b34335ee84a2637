#include "project/rules/custom_holes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"

namespace orvane {

namespace {

// What the lines are on a section, in the order of HoleLineNames, from the bottom up. They bear the
// names of a purlin's; a top hat and a cleader rail have other parts in their places.
using LineMeanings = std::array<std::string_view, HoleLineNames.size()>;
// clang-format off
//                                       BF               W1                     W2                     TF
constexpr LineMeanings PurlinLines  = {"bottom flange", "lower row of the web", "upper row of the web", "top flange"};
constexpr LineMeanings RailLines    = {"flange",        "web",                  "web",                  "web"};
constexpr LineMeanings TopHatLines  = {"lower lip",     "lower sloping side",   "upper sloping side",   "upper lip"};
// clang-format on

// Codes for which there is a button, ascending.
constexpr std::array AllCodes = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
constexpr std::array EavesCodes = {0, 4, 6, 9, 10, 12, 13};
constexpr std::array VcrCodes = {0};
constexpr std::array RailCodes = {3};
constexpr std::array TopHatCodes = {0, 2, 3, 4, 5, 6};

struct FamilyHoles {
  std::span<const int> Codes;
  LineMeanings Lines;
  bool ThinBolts;  // punched for the thinner bolt as a rule
};

constexpr PerFamily<FamilyHoles> HolesByHand = {{
    {"Z", {AllCodes, PurlinLines, false}},
    {"E", {EavesCodes, PurlinLines, false}},
    {"C", {AllCodes, PurlinLines, false}},
    {"V", {VcrCodes, PurlinLines, false}},
    {"R", {RailCodes, RailLines, false}},
    {"T", {TopHatCodes, TopHatLines, true}},
}};
static_assert(NamesEachFamily(HolesByHand), "HolesByHand needs one row for each section family");

// The fields of the four lines, in the order of HoleLines.
constexpr std::array<std::string Hole::*, 4> LineFields = {&Hole::BF, &Hole::W1, &Hole::W2,
                                                           &Hole::TF};

// The fields that can make a hole one off gauge; the first of them above 0 decides.
struct OffGaugeField {
  OffGaugeLine Line;
  std::string Hole::*Field;
};
constexpr std::array<OffGaugeField, 3> OffGaugeFields = {{
    {OffGaugeLine::Web, &Hole::W1},
    {OffGaugeLine::TopFlange, &Hole::TF},
    {OffGaugeLine::BottomFlange, &Hole::BF},
}};

const OffGaugeField* OffGaugeFieldOf(const Hole& hole) {
  for (const OffGaugeField& line : OffGaugeFields) {
    if (Val(hole.*line.Field) > 0) return &line;
  }
  return nullptr;
}

bool HasCode(int code) {
  return code >= 0 && code < static_cast<int>(HoleLines.size());
}

std::string_view LinesOf(int code) {
  return HoleLines.at(static_cast<std::size_t>(code));
}

// A number too large to be read is a position far beyond any section.
double TypedPosition(std::string_view text) {
  try {
    return Val(text);
  } catch (const RuntimeError&) {
    return std::numeric_limits<double>::infinity();
  }
}

bool KeepsItsDistance(const Item& item, double position, int separation) {
  for (const Hole& hole : item.Holes) {
    if (!(std::abs(position - hole.XPos) >= separation)) return false;
  }
  return true;
}

std::string LimitsText(std::string_view diameter, bool is18mm) {
  const HoleLimits limits = LimitsOf(is18mm);
  return std::string(diameter) + " holes: at least " + DecimalText(limits.Edge) +
         " mm from each end and " + DecimalText(limits.Separation) + " mm from the next hole.\r";
}

}  // namespace

std::vector<int> HoleCodes(std::string_view letter) {
  const FamilyHoles* own = FactOf(HolesByHand, letter);
  if (own == nullptr) return {};
  return {own->Codes.begin(), own->Codes.end()};
}

bool UsesThinBolts(std::string_view letter) {
  const FamilyHoles* own = FactOf(HolesByHand, letter);
  return own != nullptr && own->ThinBolts;
}

std::string HoleCodeName(int code) {
  std::string name;
  if (!HasCode(code)) return name;
  for (std::size_t line = 0; line < HoleLineNames.size(); ++line) {
    if (LinesOf(code).at(line) != 'y') continue;
    if (!name.empty()) name += ", ";
    name += HoleLineNames.at(line);
  }
  return name;
}

int HoleCodeOf(const Hole& hole) {
  if (OffGaugeFieldOf(hole) != nullptr) return OffGaugeCode;
  std::string lines;
  for (const auto field : LineFields) lines += Trim(hole.*field);
  const auto found = std::find(HoleLines.begin(), HoleLines.end(), lines);
  return found == HoleLines.end() ? NoLines : static_cast<int>(found - HoleLines.begin());
}

OffGaugeText OffGaugeOf(const Hole& hole) {
  const OffGaugeField* line = OffGaugeFieldOf(hole);
  if (line == nullptr) return {};
  return {line->Line, hole.*line->Field};
}

HoleLimits LimitsOf(bool is18mm) {
  return is18mm ? HoleLimits{24, 19} : HoleLimits{18, 15};
}

std::optional<std::int16_t> HolePosition(std::int16_t ItemIndex, std::int16_t Mode,
                                         const HoleEntry& entry) {
  const Item& item = Items.At(ItemIndex);
  const HoleLimits limits = LimitsOf(entry.Is18mm);
  const bool offGauge = entry.Code == OffGaugeCode;
  const double typed = TypedPosition(entry.XPos);
  double position = typed;

  if (Mode == AddAbsolute) {
    // The value as typed: 23.6 is too close to an end although it would be rounded to 24.
    if (typed < limits.Edge || item.Length - typed < limits.Edge) return std::nullopt;
    if (!offGauge && !KeepsItsDistance(item, typed, limits.Separation)) return std::nullopt;
  } else if (Mode == AddRelative) {
    if (!offGauge && typed < limits.Separation) return std::nullopt;
    // Row 0 of an empty list is no hole: it can still hold the section's end.
    if (item.HoleCount() > 0) position += item.Holes.At(item.HoleCount()).XPos;
  }

  // No section is longer than 16 bits can tell, so that a position beyond them lies beyond its end.
  using Limits = std::numeric_limits<std::int16_t>;
  if (!(position >= Limits::min() && position <= Limits::max())) return std::nullopt;
  const std::int16_t X = Whole(position);
  if (item.Length - X < limits.Edge || X < limits.Edge) return std::nullopt;
  return X;
}

Hole CustomHole(const HoleEntry& entry, std::int16_t XPos) {
  Hole hole;
  hole.XPos = XPos;
  hole.Kind = CustomKind;
  for (const auto field : LineFields) hole.*field = "n";
  hole.Diameter = entry.Is18mm ? 18 : 14;
  hole.SlotLength = Float32(Val(entry.SlotLen));
  if (entry.CounterSunk) hole.CounterSunk = CounterSunkMark;

  if (entry.Code == OffGaugeCode) {
    for (const OffGaugeField& line : OffGaugeFields) {
      if (line.Line == entry.YLine) hole.*line.Field = FormatNumber(Val(entry.YPos), 0);
    }
  } else if (HasCode(entry.Code)) {
    for (std::size_t line = 0; line < LineFields.size(); ++line) {
      if (LinesOf(entry.Code).at(line) == 'y') hole.*LineFields.at(line) = "y";
    }
  }
  return hole;
}

void CopyHoleLines(const Hole& from, Hole& to) {
  for (const auto field : LineFields) to.*field = from.*field;
}

int CustomHoleRow(std::int16_t ItemIndex, int CustomRow) {
  if (ItemIndex < 1 || CustomRow < 1) return 0;
  const Item& item = Items.At(ItemIndex);
  int customs = 0;
  for (int row = 1; row <= item.Holes.UBound(); ++row) {
    if (item.Holes.At(row).Kind == CustomKind && ++customs == CustomRow) return row;
  }
  return 0;
}

int SortedCustomRow(std::int16_t ItemIndex, int CustomRow) {
  const int own = CustomHoleRow(ItemIndex, CustomRow);
  if (own == 0) return 0;
  const Table<Hole>& holes = Items.At(ItemIndex).Holes;
  int sorted = 1;
  for (int row = 1; row <= holes.UBound(); ++row) {
    if (row == own || holes.At(row).Kind != CustomKind) continue;
    // Holes of one position keep their order.
    const bool before = holes.At(row).XPos < holes.At(own).XPos ||
                        (holes.At(row).XPos == holes.At(own).XPos && row < own);
    if (before) ++sorted;
  }
  return sorted;
}

void AppendCustomHole(std::int16_t ItemIndex, Hole hole) {
  Item& item = Items.At(ItemIndex);
  Int16(item.Holes.UBound() + 1);  // one hole more than 16 bits count is refused
  const std::int16_t customs = Int16(item.CustomHoleCount + 1);
  item.Holes.Append(std::move(hole));
  item.CustomHoleCount = customs;
}

void ReplaceCustomHole(std::int16_t ItemIndex, int CustomRow, Hole hole) {
  const int row = CustomHoleRow(ItemIndex, CustomRow);
  if (row > 0) Items.At(ItemIndex).Holes.At(row) = std::move(hole);
}

std::string HoleInfo(std::string_view letter) {
  std::string text = LimitsText("18mm", true) + LimitsText("14mm", false);
  const std::vector<int> codes = HoleCodes(letter);
  if (std::find(codes.begin(), codes.end(), OffGaugeCode) != codes.end()) {
    text += "An off-gauge hole may lie beside another hole.\r";
  }
  const FamilyHoles* own = FactOf(HolesByHand, letter);
  const LineMeanings& meanings = own == nullptr ? PurlinLines : own->Lines;
  for (std::size_t line = 0; line < HoleLineNames.size(); ++line) {
    text += "\r";
    text += HoleLineNames.at(line);
    text += ": ";
    text += meanings.at(line);
  }
  return text;
}

}  // namespace orvane
