#include "project/section_list/list_details.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"
#include "project/rules/mitre_rules.h"
#include "project/rules/section_details.h"
#include "project/section_list/list_columns.h"
#include "project/section_list/nearest_names.h"

namespace orvane {

namespace {

using Result = PlannedCell::Result;

// Why the text isn't taken; none if it is.
using Refusal = std::optional<std::string>;

Refusal TakePunching(Item& item, std::string_view text) {
  const std::optional<std::string> pattern = PatternNamed(item.SectionType, text);
  if (!pattern) return NotInTheList(text, {});
  item.PatternName = Trim(*pattern);
  SetSagBarsOfPattern(item, *pattern);
  return std::nullopt;
}

struct SagBarText {
  std::string_view Text;  // in capitals, without blanks
  int Diameter;           // mm, 0 for none
};

// What the panel calls them, and what people write.
constexpr std::array<SagBarText, 10> SagBarTexts = {{{"18", 18},
                                                     {"18MM", 18},
                                                     {"SPRINGFIX", 18},
                                                     {"SPRINGFIX(18MM)", 18},
                                                     {"14", 14},
                                                     {"14MM", 14},
                                                     {"THREADED", 14},
                                                     {"THREADED(14MM)", 14},
                                                     {"0", 0},
                                                     {"NONE", 0}}};

Refusal TakeSagBars(Item& item, std::string_view text) {
  std::string plain = UpperCase(text);
  plain.erase(std::remove(plain.begin(), plain.end(), ' '), plain.end());
  const auto said = std::find_if(SagBarTexts.begin(), SagBarTexts.end(),
                                 [&](const SagBarText& each) { return each.Text == plain; });
  if (said == SagBarTexts.end()) return "Sag bars are of 18 mm (spring fix) or 14 mm (threaded)";
  if (said->Diameter > 0 && item.SagBarDia <= 0) return "The pattern has no sag bars";
  if (said->Diameter == 0 && item.SagBarDia > 0) return "The pattern has sag bars";
  item.SagBarDia = Int16(said->Diameter);
  return std::nullopt;
}

// An angle as people write it: a sign of degrees behind it, a comma for the point.
std::string AngleText(std::string_view text) {
  constexpr std::string_view Degrees = "\xC2\xB0";
  text = Trim(text);
  if (text.ends_with(Degrees)) text = Trim(text.substr(0, text.size() - Degrees.size()));
  std::string angle(text);
  std::replace(angle.begin(), angle.end(), ',', '.');
  return angle;
}

// A number of so many letters is no angle, and may be none that is held.
bool IsAngle(const std::string& text) {
  constexpr std::size_t MostLetters = 16;
  return text.size() <= MostLetters && IsNumber(text) &&
         text.find_first_of("eE") == std::string::npos;
}

Refusal TakePitch(Item& item, std::string_view text) {
  if (!HasPitch(item.SectionType)) return "A section of this family has no pitch";
  const std::string angle = AngleText(text);
  std::string list;
  for (const std::string& pitch : Pitches) {
    if (IsAngle(angle) && Val(angle) == Val(pitch)) {
      item.Pitch = pitch;
      return std::nullopt;
    }
    list += (list.empty() ? "" : ", ") + pitch;
  }
  return "Not in the list: " + list;
}

Refusal TakeMitre(float& mitre, std::string_view text) {
  const std::string angle = AngleText(text);
  if (!IsAngle(angle)) return "It isn't a number";
  // What the box would make of it, the person who types it sees at once.
  if (std::abs(Val(angle)) > MaxMitre) {
    return "A mitre is at most " + FormatNumber(MaxMitre, 0) + " degrees either way";
  }
  mitre = Float32(Val(LeftMitreText(angle)));
  return std::nullopt;
}

Refusal Take(Item& item, int column, std::string_view text) {
  switch (column) {
    case PunchingColumn:
      return TakePunching(item, text);
    case SagBarsColumn:
      return TakeSagBars(item, text);
    case PitchColumn:
      return TakePitch(item, text);
    case MitreLeftColumn:
      return TakeMitre(item.MitreLeft, text);
    case MitreRightColumn:
      return TakeMitre(item.MitreRight, text);
    default:
      return std::nullopt;
  }
}

}  // namespace

void TakeDetail(Item& item, int column, std::string_view text, PlannedCell& cell) {
  if (Trim(text).empty()) return;
  const std::string former = ListText(item, column);
  cell.Text = Trim(text);
  if (cell.Text == Trim(former)) {
    cell.What = Result::Same;
    return;
  }
  if (Refusal refusal = Take(item, column, text)) {
    cell.What = Result::Refused;
    cell.Reason = std::move(*refusal);
    return;
  }
  cell.Text = ListText(item, column);
  cell.What = cell.Text == former ? Result::Same : Result::Changed;
}

bool RemovesHolesByHand(std::int16_t ItemIndex, std::string_view patternText) {
  const std::optional<std::string> pattern =
      PatternNamed(Items.At(ItemIndex).SectionType, patternText);
  if (!pattern) return false;
  // The place in the panel's list, of which 0 is "Custom".
  return RemovesCustomHoles(ItemIndex, Trim(*pattern) == CustomPattern ? 0 : 1);
}

}  // namespace orvane
