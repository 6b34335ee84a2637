// The rules of the design check as a table, and the file check.csv by which an office switches them
// off and sets its own distances.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/text_file.h"

namespace orvane {

enum class FindingGrade {
  CannotBeMade,  // no machine punches, cuts or saws it as it stands
  Advice         // it can be made, and is worth a look
};

// Rows of DesignRules. A hole's rules stand before those of which it is the better known cause.
enum class DesignRule {
  ProductUnknown,
  PatternUnknown,
  LengthNotAboveZero,
  LengthOverMaximum,
  QuantityNotAboveZero,
  MarkTwice,
  PatternTooLong,
  MitresMeet,
  NotchWithoutSize,
  NotchWithoutPlace,
  NotchTooLarge,
  NotchesOverlap,
  HoleBeyondEnd,
  HoleInMitre,
  HoleInNotch,
  SlotOverEdge,
  HoleOffPart,
  OffGaugeZero,
  OffGaugeOutside,
  OffGaugeInW2,
  HolesOverlap,
  NoHoles,
  SleeveWithoutProduct,
  SectionsAlike,
  EndDistance,
  EdgeDistance,
  BendDistance,
  PitchDistance,
};

struct DesignRuleRow {
  DesignRule Rule;
  std::string_view Name;  // in check.csv, in lists and in what was accepted; never changes
  FindingGrade Grade;
  std::string_view What;    // what such a finding tells, in general
  double Times;             // the least distance, times the hole's diameter; 0 where none is meant
  std::string_view Source;  // where the limit comes from
};

// The distances are our own practice. They don't flag any pattern of the catalogue that ships on a
// section of a usual length: its narrowest are a top hat's lip, 15 mm to its bend and to its edge
// for 14 mm, a cleader rail's slot, 30 mm to the end for 18 mm, and the gauge of a VCR, 40 mm
// between holes of 18 mm.
inline constexpr std::string_view OwnPractice = "own practice";

// In the order in which findings of a section are told.
inline constexpr auto DesignRules = std::to_array<DesignRuleRow>({
    // clang-format off
    {DesignRule::ProductUnknown,       "product-unknown",        FindingGrade::CannotBeMade, "The catalogue hasn't got the product",              0, "dims.csv"},
    {DesignRule::PatternUnknown,       "pattern-unknown",        FindingGrade::CannotBeMade, "The catalogue hasn't got the pattern",              0, "punch.csv"},
    {DesignRule::LengthNotAboveZero,   "length-not-above-0",     FindingGrade::CannotBeMade, "The length isn't above 0",                          0, "the section"},
    {DesignRule::LengthOverMaximum,    "length-over-maximum",    FindingGrade::CannotBeMade, "The length is over the maximum",                    0, "maximum lengths"},
    {DesignRule::QuantityNotAboveZero, "quantity-not-above-0",   FindingGrade::CannotBeMade, "The quantity isn't above 0",                        0, "the section"},
    {DesignRule::MarkTwice,            "mark-twice",             FindingGrade::CannotBeMade, "Another section has the mark",                      0, "the job"},
    {DesignRule::PatternTooLong,       "pattern-too-long",       FindingGrade::CannotBeMade, "The pattern is longer than the section",            0, "the section"},
    {DesignRule::MitresMeet,           "mitres-meet",            FindingGrade::CannotBeMade, "The two mitres meet",                               0, "the section"},
    {DesignRule::NotchWithoutSize,     "notch-without-size",     FindingGrade::CannotBeMade, "A notch has no depth or no width",                  0, "the section"},
    {DesignRule::NotchWithoutPlace,    "notch-without-place",    FindingGrade::CannotBeMade, "A notch inside the length has no position",         0, "the CAM file"},
    {DesignRule::NotchTooLarge,        "notch-too-large",        FindingGrade::CannotBeMade, "A notch is larger than the section",                0, "the section"},
    {DesignRule::NotchesOverlap,       "notches-overlap",        FindingGrade::CannotBeMade, "Two notches overlap",                               0, "the section"},
    {DesignRule::HoleBeyondEnd,        "hole-beyond-end",        FindingGrade::CannotBeMade, "A hole reaches beyond an end",                      0, "the section"},
    {DesignRule::HoleInMitre,          "hole-in-mitre",          FindingGrade::CannotBeMade, "A hole lies where a mitre is cut",                  0, "the section"},
    {DesignRule::HoleInNotch,          "hole-in-notch",          FindingGrade::CannotBeMade, "A hole lies in a notch",                            0, "the section"},
    {DesignRule::SlotOverEdge,         "slot-over-edge",         FindingGrade::CannotBeMade, "A slot runs over an edge",                          0, "the section"},
    {DesignRule::HoleOffPart,          "hole-off-web",           FindingGrade::CannotBeMade, "A hole isn't on the part it is punched in",         0, "dims.csv"},
    {DesignRule::OffGaugeZero,         "off-gauge-0",            FindingGrade::CannotBeMade, "An off-gauge distance isn't above 0",               0, "the section"},
    {DesignRule::OffGaugeOutside,      "off-gauge-outside",      FindingGrade::CannotBeMade, "An off-gauge hole isn't on its flange or web",      0, "dims.csv"},
    {DesignRule::OffGaugeInW2,         "off-gauge-in-W2",        FindingGrade::CannotBeMade, "An off-gauge distance stands in W2",                0, "the sheet"},
    {DesignRule::HolesOverlap,         "holes-overlap",          FindingGrade::CannotBeMade, "Two holes overlap",                                 0, "the section"},
    {DesignRule::NoHoles,              "no-holes",               FindingGrade::Advice,       "The section has neither pattern nor hole",          0, "the section"},
    {DesignRule::SleeveWithoutProduct, "sleeve-without-product", FindingGrade::Advice,       "No section has the product of a sleeve",            0, "the job"},
    {DesignRule::SectionsAlike,        "sections-alike",         FindingGrade::Advice,       "Two sections differ in mark and quantity alone",    0, "the job"},
    {DesignRule::EndDistance,          "end-distance",           FindingGrade::Advice,       "A hole is close to an end or to what is cut",     1.5, OwnPractice},
    {DesignRule::EdgeDistance,         "edge-distance",          FindingGrade::Advice,       "A hole is close to the edge of its part",           1, OwnPractice},
    {DesignRule::BendDistance,         "bend-distance",          FindingGrade::Advice,       "A hole is close to a bend",                         1, OwnPractice},
    {DesignRule::PitchDistance,        "pitch",                  FindingGrade::Advice,       "Two holes are close to each other",                 2, OwnPractice},
    // clang-format on
});

constexpr std::size_t RowOf(DesignRule rule) {
  return static_cast<std::size_t>(rule);
}
constexpr bool StandInOrder() {
  for (std::size_t row = 0; row < DesignRules.size(); ++row) {
    if (RowOf(DesignRules.at(row).Rule) != row) return false;
  }
  return RowOf(DesignRule::PitchDistance) + 1 == DesignRules.size();
}
static_assert(StandInOrder(), "DesignRules needs one row for each rule, in their order");

// What an office has set of a rule.
struct RuleInUse {
  bool Used = true;
  double Times = 0;    // as above
  std::string Source;  // of the distance
};
using RulesInUse = std::array<RuleInUse, DesignRules.size()>;

// The rules as they ship, and as they are used now.
RulesInUse ShippedRules();
extern RulesInUse TheRules;

// The file of the catalogue by which an office sets them.
constexpr std::string_view CheckFile = "\\check.csv";

// Reads that file over the shipped rules, as the catalogues are read (core/catalogues): a row of
// the tag R sets one rule, in the cells behind it its name, Y or N, and for a distance how many
// times the hole's diameter it is, from 0 to 100, and where that comes from. All other rows are
// passed over. Without such a file the rules are as they ship, and nothing is told.
bool LoadCheckRules(const std::string& path);

// One such row, read over what is in use (core/catalogues).
bool ReadCheckRule(TextFile& file, const std::string& tag, std::string_view cell);

// The row of a rule of that name; none for another text.
std::optional<DesignRule> RuleNamed(std::string_view name);

}  // namespace orvane
