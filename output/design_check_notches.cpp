// Where notches are, and what the check says of them.
#include <algorithm>
#include <array>
#include <limits>

#include "core/numbers.h"
#include "output/design_check_section.h"
#include "output/section_blocks.h"

namespace orvane {

namespace {

enum class Along { LeftEnd, Inside, RightEnd };
enum class Across { Bottom, Inside, Top };

// Where a notch of that code is: at an end or inside the length, at an edge or inside the depth.
// What is inside has its position from the left-hand end, or from the bottom.
struct NotchCode {
  std::string_view Code;
  Along X;
  Across Y;
};

constexpr std::array<NotchCode, 8> NotchTable = {{
    {"TL1", Along::LeftEnd, Across::Top},
    {"T2", Along::Inside, Across::Top},
    {"TR1", Along::RightEnd, Across::Top},
    {"BL1", Along::LeftEnd, Across::Bottom},
    {"B2", Along::Inside, Across::Bottom},
    {"BR1", Along::RightEnd, Across::Bottom},
    {"L3", Along::LeftEnd, Across::Inside},
    {"R3", Along::RightEnd, Across::Inside},
}};

// None for a code that nobody knows: nothing is drawn of it either.
const NotchCode* CodeOf(const Notch& notch) {
  for (const NotchCode& code : NotchTable) {
    if (code.Code == notch.Code) return &code;
  }
  return nullptr;
}

bool HasSize(const Notch& notch) {
  return notch.Size1 > 0 && notch.Size2 > 0;
}

// The factory file bears the position of a notch inside the length where it is above 0 alone. A
// purlin's is counted from its other end there, so that 0 is a position of its.
bool HasPlace(const NotchCode& code, const Item& item, const Notch& notch) {
  if (code.X != Along::Inside || notch.Size3 > 0) return true;
  return notch.Size3 == 0 && GoesEndForEnd(item.SectionType);
}

NotchPlace PlaceOf(const NotchCode& code, const Notch& notch, double length, double height) {
  NotchPlace place;
  switch (code.X) {
    case Along::LeftEnd:
      place.Left = 0;
      break;
    case Along::Inside:
      place.Left = notch.Size3;
      break;
    case Along::RightEnd:
      place.Left = length - notch.Size2;
      break;
  }
  place.Right = place.Left + notch.Size2;
  switch (code.Y) {
    case Across::Bottom:
      place.Low = 0;
      break;
    case Across::Inside:
      place.Low = notch.Size3;
      break;
    case Across::Top:
      place.Low = height - notch.Size1;
      break;
  }
  place.High = place.Low + notch.Size1;
  return place;
}

// A notch that goes right through leaves nothing of the section, or makes two of it.
bool FitsAcross(const NotchPlace& place, double height) {
  return place.Low >= -CheckSlack && place.High <= height + CheckSlack &&
         place.High - place.Low < height - CheckSlack;
}

bool FitsAlong(const NotchPlace& place, double length) {
  return place.Left >= -CheckSlack && place.Right <= length + CheckSlack &&
         place.Right - place.Left < length - CheckSlack;
}

std::string NotchName(const CheckedSection& section, int row) {
  return "notch " + section.Section.Notches.At(row).Code;
}

Finding& AddAtNotch(const CheckedSection& section, FindingList& findings, DesignRule rule, int row,
                    std::string what, std::string limit) {
  Finding& finding =
      findings.Add(rule, NotchName(section, row) + " " + std::move(what), std::move(limit));
  finding.Notch = row;
  const Notch& notch = section.Section.Notches.At(row);
  const NotchCode* code = CodeOf(notch);
  if (code == nullptr || !HasPlace(*code, section.Section, notch)) return finding;
  const NotchPlace place = PlaceOf(*code, notch, section.Section.Length, section.Height);
  finding.Place = place.Left;
  if (notch.Size2 > 0) finding.PlaceEnd = place.Right;
  return finding;
}

// A notch that sticks out although it isn't too large stands at a wrong place: that is told then.
void AddTooLarge(const CheckedSection& section, FindingList& findings, int row, double size,
                 std::string_view measure, bool hasPosition, double room) {
  const double position = section.Section.Notches.At(row).Size3;
  const std::string at = hasPosition ? " at " + InMm(position) : "";
  const bool isMisplaced = hasPosition && size < room - CheckSlack;
  AddAtNotch(section, findings, DesignRule::NotchTooLarge, row,
             "is " + InMm(size) + std::string(measure) + at,
             isMisplaced ? "at " + InMm(0, room - size) : "less than " + InMm(room));
}

void CheckOne(const CheckedSection& section, int row, FindingList& findings) {
  const Notch& notch = section.Section.Notches.At(row);
  const NotchCode* code = CodeOf(notch);
  if (code == nullptr) return;
  if (!HasSize(notch)) {
    AddAtNotch(section, findings, DesignRule::NotchWithoutSize, row,
               "is " + InMm(notch.Size1) + " deep and " + InMm(notch.Size2) + " wide", "above 0");
    return;
  }
  if (!HasPlace(*code, section.Section, notch)) {
    AddAtNotch(section, findings, DesignRule::NotchWithoutPlace, row,
               "has the position " + InMm(notch.Size3), "above 0");
    return;
  }
  const double length = section.Section.Length;
  const NotchPlace place = PlaceOf(*code, notch, length, section.Height);
  if (section.Height > 0 && !FitsAcross(place, section.Height)) {
    AddTooLarge(section, findings, row, notch.Size1, " deep", code->Y == Across::Inside,
                section.Height);
  } else if (length > 0 && !FitsAlong(place, length)) {
    AddTooLarge(section, findings, row, notch.Size2, " wide", code->X == Along::Inside, length);
  }
}

bool Overlap(const NotchPlace& one, const NotchPlace& other) {
  return std::min(one.Right, other.Right) - std::max(one.Left, other.Left) > CheckSlack &&
         std::min(one.High, other.High) - std::max(one.Low, other.Low) > CheckSlack;
}

// Two that leave nothing between them from the bottom to the top, though they may only touch.
bool CutThrough(const NotchPlace& one, const NotchPlace& other, double height) {
  return std::min(one.Right, other.Right) - std::max(one.Left, other.Left) > CheckSlack &&
         std::max(one.Low, other.Low) - std::min(one.High, other.High) <= CheckSlack &&
         std::min(one.Low, other.Low) <= CheckSlack &&
         std::max(one.High, other.High) >= height - CheckSlack;
}

// From left to right, each against those that reach to it from before.
void CheckPairs(const CheckedSection& section, FindingList& findings) {
  std::vector<NotchPlace> places = section.Notches;
  std::stable_sort(places.begin(), places.end(),
                   [](const NotchPlace& a, const NotchPlace& b) { return a.Left < b.Left; });
  std::vector<NotchPlace> before;
  for (const NotchPlace& place : places) {
    std::erase_if(before, [&](const NotchPlace& other) { return other.Right <= place.Left; });
    const auto other = std::find_if(before.begin(), before.end(), [&](const NotchPlace& candidate) {
      return Overlap(candidate, place) || CutThrough(candidate, place, section.Height);
    });
    if (other != before.end()) {
      const std::string_view how =
          CutThrough(*other, place, section.Height) ? "leaves nothing beside " : "overlaps ";
      AddAtNotch(section, findings, DesignRule::NotchesOverlap, place.Notch,
                 std::string(how) + NotchName(section, other->Notch) + " of " +
                     InMm(other->Left, other->Right),
                 "");
    }
    before.push_back(place);
  }
}

}  // namespace

void PlaceNotches(CheckedSection& section) {
  const double length = section.Section.Length;
  if (length <= 0 || section.Height <= 0) return;
  for (int row = 1; row <= section.Section.Notches.UBound(); ++row) {
    const Notch& notch = section.Section.Notches.At(row);
    const NotchCode* code = CodeOf(notch);
    if (code == nullptr || !HasSize(notch) || !HasPlace(*code, section.Section, notch)) continue;
    NotchPlace place = PlaceOf(*code, notch, length, section.Height);
    if (!FitsAcross(place, section.Height) || !FitsAlong(place, length)) continue;
    place.Notch = row;
    section.Notches.push_back(place);
  }
}

void CheckNotches(const CheckedSection& section, FindingList& findings) {
  for (int row = 1; row <= section.Section.Notches.UBound(); ++row) {
    CheckOne(section, row, findings);
  }
  CheckPairs(section, findings);
}

}  // namespace orvane
