// What the check says of where a hole is: along the section, and across the part it is punched in.
#include <algorithm>
#include <cmath>

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

// The mark as it is, and as a round hole for what is told of slots apart.
HoleMark WithoutSlot(HoleMark mark) {
  mark.HalfSlot = 0;
  return mark;
}

void AddCut(const CheckedSection& section, const HoleMark& mark, DesignRule rule,
            const std::string& where, std::string limit, FindingList& findings) {
  const Hole& hole = section.Section.Holes.At(mark.Hole);
  const bool isSlot = rule == DesignRule::SlotOverEdge;
  Finding& finding = findings.AddAtHole(
      rule, mark.Hole, HoleName(hole) + (isSlot ? " runs over " : " lies in ") + where,
      std::move(limit));
  finding.Line = HoleLineNames.at(static_cast<std::size_t>(mark.Line));
}

bool CheckMitre(const CheckedSection& section, const HoleMark& mark, bool isLeft,
                FindingList& findings) {
  const EndCut& cut = isLeft ? section.LeftEnd : section.RightEnd;
  if (!cut.IsMitre || DistanceToEnd(section, mark, isLeft) >= mark.Radius - CheckSlack)
    return false;
  const bool isSlot = DistanceToEnd(section, WithoutSlot(mark), isLeft) >= mark.Radius - CheckSlack;
  const double limit = LimitAtEnd(section, mark, isLeft);
  AddCut(section, mark, isSlot ? DesignRule::SlotOverEdge : DesignRule::HoleInMitre,
         isLeft ? "the left-hand mitre" : "the right-hand mitre",
         isLeft ? "from " + InMm(limit) + " on" : "up to " + InMm(limit), findings);
  return true;
}

bool CheckNotch(const CheckedSection& section, const HoleMark& mark, const NotchPlace& notch,
                FindingList& findings) {
  if (DistanceToNotch(mark, notch) >= mark.Radius - CheckSlack) return false;
  const bool isSlot = DistanceToNotch(WithoutSlot(mark), notch) >= mark.Radius - CheckSlack;
  AddCut(section, mark, isSlot ? DesignRule::SlotOverEdge : DesignRule::HoleInNotch,
         "notch " + section.Section.Notches.At(notch.Notch).Code,
         "clear of " + InMm(notch.Left, notch.Right), findings);
  return true;
}

// One finding of the cuts for a hole: on which of its lines is what is to be mended, not counted.
bool CheckCuts(const CheckedSection& section, const HoleMark& mark, FindingList& findings) {
  if (!IsOnItsPart(mark)) return false;
  if (CheckMitre(section, mark, true, findings) || CheckMitre(section, mark, false, findings)) {
    return true;
  }
  return std::any_of(section.Notches.begin(), section.Notches.end(), [&](const NotchPlace& notch) {
    return CheckNotch(section, mark, notch, findings);
  });
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
  for (const HoleMark& mark : section.Marks) {
    const auto at = static_cast<std::size_t>(mark.Hole);
    if (!told.at(at)) told.at(at) = CheckCuts(section, mark, findings);
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
