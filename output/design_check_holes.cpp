// What the check says of where a hole is: along the section, and across the part it is punched in.
#include <algorithm>
#include <cmath>
#include <span>

#include "core/numbers.h"
#include "output/design_check_geometry.h"
#include "output/design_check_section.h"
#include "project/rules/custom_holes.h"

namespace orvane {

namespace {

// A hole, and of a slot the round hole in its middle.
double HalfRound(const Hole& hole) {
  return std::max(0.0, static_cast<double>(hole.Diameter)) / 2;
}
double HalfLength(const Hole& hole) {
  return std::max(HalfRound(hole), static_cast<double>(hole.SlotLength) / 2);
}

bool IsWithin(double x, double half, double length) {
  return x - half >= -CheckSlack && x + half <= length + CheckSlack;
}

std::string EndName(bool isLeft) {
  return isLeft ? "left-hand end" : "right-hand end";
}

// True if the hole reaches beyond an end.
bool CheckEnds(const CheckedSection& section, int row, FindingList& findings) {
  const Hole& hole = section.Section.Holes.At(row);
  const double length = section.Section.Length;
  const double half = HalfLength(hole);
  if (IsWithin(hole.XPos, half, length)) return false;
  const bool isSlot = IsWithin(hole.XPos, HalfRound(hole), length);
  const bool isLeft = hole.XPos - half < -CheckSlack;
  findings.AddAtHole(
      isSlot ? DesignRule::SlotOverEdge : DesignRule::HoleBeyondEnd, row,
      HoleName(hole) + (isSlot ? " runs over the " : " reaches beyond the ") + EndName(isLeft),
      InMm(half, length - half));
  return true;
}

// The pattern is told once, not hole by hole.
void CheckPatternLength(const CheckedSection& section, FindingList& findings) {
  const Item& item = section.Section;
  int beyond = 0, first = 0;
  for (int row = 1; row <= item.Holes.UBound(); ++row) {
    const Hole& hole = item.Holes.At(row);
    if (!IsPatternHole(section, row) || IsWithin(hole.XPos, HalfLength(hole), item.Length))
      continue;
    if (++beyond == 1) first = row;
  }
  if (beyond == 0 && !section.PatternOverflows) return;
  const std::string what = "pattern " + item.PatternName + " puts " +
                           (beyond == 0 ? "holes" : Counted(beyond, "hole")) + " beyond the ends";
  Finding& finding = findings.Add(DesignRule::PatternTooLong, what, "a longer section");
  if (first == 0) return;
  finding.Hole = first;
  finding.Place = item.Holes.At(first).XPos;
}

// The marks of one hole, which stand behind each other.
using Marks = std::span<const HoleMark>;

// The mark as a round hole, for what is told of slots apart.
HoleMark WithoutSlot(HoleMark mark) {
  mark.HalfSlot = 0;
  return mark;
}

void AddCut(const CheckedSection& section, const HoleMark& mark, bool isSlot, DesignRule rule,
            const std::string& where, std::string limit, FindingList& findings) {
  const Hole& hole = section.Section.Holes.At(mark.Hole);
  findings
      .AddAtHole(isSlot ? DesignRule::SlotOverEdge : rule, mark.Hole,
                 HoleName(hole) + (isSlot ? " runs over " : " lies in ") + where, std::move(limit))
      .Line = HoleLineNames.at(static_cast<std::size_t>(mark.Line));
}

bool IsCut(const HoleMark& mark, double distance) {
  return IsOnItsPart(mark) && distance < mark.Radius - CheckSlack;
}

// One finding for a hole: the limit is that of the line which must move the farthest.
bool CheckMitre(const CheckedSection& section, Marks marks, bool isLeft, FindingList& findings) {
  const EndCut& cut = isLeft ? section.LeftEnd : section.RightEnd;
  if (!cut.IsMitre) return false;
  const HoleMark* farthest = nullptr;
  bool isSlot = true;
  for (const HoleMark& mark : marks) {
    if (!IsCut(mark, DistanceToEnd(section, mark, isLeft))) continue;
    isSlot = isSlot && !IsCut(mark, DistanceToEnd(section, WithoutSlot(mark), isLeft));
    const auto limit = [&](const HoleMark& of) { return LimitAtEnd(section, of, isLeft); };
    const bool isFarther = farthest == nullptr || (isLeft ? limit(mark) > limit(*farthest)
                                                          : limit(mark) < limit(*farthest));
    if (isFarther) farthest = &mark;
  }
  if (farthest == nullptr) return false;
  const std::string limit = InMm(LimitAtEnd(section, *farthest, isLeft));
  AddCut(section, *farthest, isSlot, DesignRule::HoleInMitre,
         isLeft ? "the left-hand mitre" : "the right-hand mitre",
         isLeft ? "from " + limit + " on" : "up to " + limit, findings);
  return true;
}

bool CheckNotch(const CheckedSection& section, Marks marks, const NotchPlace& notch,
                FindingList& findings) {
  const HoleMark* first = nullptr;
  bool isSlot = true;
  for (const HoleMark& mark : marks) {
    if (!IsCut(mark, DistanceToNotch(mark, notch))) continue;
    isSlot = isSlot && !IsCut(mark, DistanceToNotch(WithoutSlot(mark), notch));
    if (first == nullptr) first = &mark;
  }
  if (first == nullptr) return false;
  AddCut(section, *first, isSlot, DesignRule::HoleInNotch,
         "notch " + section.Section.Notches.At(notch.Notch).Code,
         "clear of " + InMm(notch.Left, notch.Right), findings);
  return true;
}

void CheckCuts(const CheckedSection& section, Marks marks, FindingList& findings) {
  if (CheckMitre(section, marks, true, findings)) return;
  if (CheckMitre(section, marks, false, findings)) return;
  for (const NotchPlace& notch : section.Notches) {
    if (CheckNotch(section, marks, notch, findings)) return;
  }
}

std::string_view MeasuredFrom(const HoleMark& mark) {
  return mark.Part.EdgeOn ? " across" : " from the bottom";
}

void CheckPart(const CheckedSection& section, const HoleMark& mark, FindingList& findings) {
  if (IsOnItsPart(mark)) return;
  const Hole& hole = section.Section.Holes.At(mark.Hole);
  const std::string_view line = HoleLineNames.at(static_cast<std::size_t>(mark.Line));
  const std::string part = "the " + std::string(mark.Part.Name);
  std::string limit = "at most " + InMm(mark.Part.High - mark.Part.Low);
  if (mark.Part.High - mark.Part.Low >= 2 * mark.Radius) {
    limit = InMm(mark.Part.Low + mark.Radius, mark.Part.High - mark.Radius) +
            std::string(MeasuredFrom(mark));
  }
  std::string what = HoleName(hole);
  if (!mark.AtGauge) what += " off gauge by " + LineTextOf(hole, mark.Line);
  what += " isn't on " + part;
  if (mark.AtGauge && mark.Across) what += ", at " + InMm(*mark.Across);
  findings
      .AddAtHole(mark.AtGauge ? DesignRule::HoleOffPart : DesignRule::OffGaugeOutside, mark.Hole,
                 std::move(what), std::move(limit))
      .Line = line;
}

void CheckDistanceText(const CheckedSection& section, int row, int line, FindingList& findings) {
  const Hole& hole = section.Section.Holes.At(row);
  const std::string& text = LineTextOf(hole, line);
  const ReadLine read = LineOf(text);
  if (read.Kind != LineText::OffGauge) return;
  const std::string_view name = HoleLineNames.at(static_cast<std::size_t>(line));
  constexpr int lineW2 = 2;
  std::string what = HoleName(hole) + " off gauge by " + text;
  if (line == lineW2) {
    findings
        .AddAtHole(DesignRule::OffGaugeInW2, row, what + " in W2, which the sheet gives no letter",
                   "W1, BF or TF")
        .Line = name;
  } else if (!(read.Distance > 0)) {
    findings.AddAtHole(DesignRule::OffGaugeZero, row, std::move(what), "above 0 mm").Line = name;
  } else if (section.Height > 0 && PartOffGauge(section.Section, section.Dim, line).Name.empty()) {
    findings
        .AddAtHole(DesignRule::OffGaugeOutside, row, what + " has no part to be measured on",
                   "the standard gauge")
        .Line = name;
  }
}

}  // namespace

void CheckHolePlaces(const CheckedSection& section, FindingList& findings) {
  const Item& item = section.Section;
  if (item.Length <= 0) return;
  CheckPatternLength(section, findings);
  std::vector<bool> told(static_cast<std::size_t>(item.Holes.UBound()) + 1);
  for (int row = 1; row <= item.Holes.UBound(); ++row) {
    const Hole& hole = item.Holes.At(row);
    const auto at = static_cast<std::size_t>(row);
    told.at(at) = IsPatternHole(section, row) ? !IsWithin(hole.XPos, HalfLength(hole), item.Length)
                                              : CheckEnds(section, row, findings);
  }
  const Marks all = section.Marks;
  for (std::size_t first = 0; first < all.size();) {
    const Marks marks = MarksOfOneHole(all.subspan(first));
    if (!told.at(static_cast<std::size_t>(marks.front().Hole))) {
      CheckCuts(section, marks, findings);
    }
    first += marks.size();
  }
}

void CheckHoleLines(const CheckedSection& section, FindingList& findings) {
  for (int row = 1; row <= section.Section.Holes.UBound(); ++row) {
    for (int line = 0; line < HoleLineCount; ++line) {
      CheckDistanceText(section, row, line, findings);
    }
  }
  for (const HoleMark& mark : section.Marks) {
    const bool isDistance = mark.AtGauge || *mark.Across > 0;
    if (isDistance) CheckPart(section, mark, findings);
  }
}

}  // namespace orvane
