// What the check says of two holes in one part, and of distances that are less than our practice.
#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <tuple>

#include "core/numbers.h"
#include "output/design_check_geometry.h"
#include "output/design_check_section.h"
#include "project/rules/custom_holes.h"

namespace orvane {

namespace {

const RuleInUse& InUse(DesignRule rule) {
  return TheRules.at(RowOf(rule));
}

std::string TimesText(DesignRule rule) {
  return ShortestText(InUse(rule).Times) + " times the hole";
}

std::string_view LineName(const HoleMark& mark) {
  return HoleLineNames.at(static_cast<std::size_t>(mark.Line));
}

// Pairs.

bool IsSameHole(const HoleMark& one, const HoleMark& other) {
  return one.X == other.X && one.Radius == other.Radius && one.HalfSlot == other.HalfSlot &&
         one.Across == other.Across;
}

class PairCheck {
 public:
  PairCheck(const CheckedSection& section, FindingList& findings)
      : section_(section),
        findings_(findings),
        overlaps_(static_cast<std::size_t>(section.Section.Holes.UBound()) + 1),
        pitches_(overlaps_.size()) {
    for (const HoleMark& mark : section.Marks) {
      reach_ = std::max(reach_, 2 * mark.Radius * InUse(DesignRule::PitchDistance).Times);
    }
  }

  // Each against those that reach to it from the left, part by part.
  void Run() {
    std::vector<const HoleMark*> marks;
    for (const HoleMark& mark : section_.Marks) {
      if (mark.Radius > 0 && IsOnItsPart(mark)) marks.push_back(&mark);
    }
    std::stable_sort(marks.begin(), marks.end(), [](const HoleMark* a, const HoleMark* b) {
      return std::tuple(a->Part.Name, a->Left()) < std::tuple(b->Part.Name, b->Left());
    });
    std::vector<const HoleMark*> before;
    for (const HoleMark* mark : marks) {
      if (!before.empty() && before.back()->Part.Name != mark->Part.Name) before.clear();
      std::erase_if(before,
                    [&](const HoleMark* other) { return mark->Left() - other->Right() >= reach_; });
      if (!IsHidden(before, *mark)) before.push_back(mark);
    }
  }

 private:
  // Tells of the mark against those before. True if one of them stands for it in what comes behind:
  // it overlaps, and reaches as far.
  bool IsHidden(const std::vector<const HoleMark*>& before, const HoleMark& mark) {
    for (const HoleMark* other : before) {
      if (other->Hole == mark.Hole) continue;
      const double distance = DistanceBetween(*other, mark);
      if (distance < other->Radius + mark.Radius - CheckSlack) {
        AddOverlap(*other, mark);
        if (other->Right() >= mark.Right()) return true;
      } else {
        AddPitch(*other, mark, distance);
      }
    }
    return false;
  }

  std::string Beside(const HoleMark& other) const {
    return "the " + HoleName(section_.Section.Holes.At(other.Hole)) + " at " + InMm(other.X);
  }

  void AddOverlap(const HoleMark& other, const HoleMark& mark) {
    const auto at = static_cast<std::size_t>(mark.Hole);
    if (overlaps_.at(at)) return;
    overlaps_.at(at) = true;
    const std::string does = IsSameHole(other, mark) ? " coincides with " : " overlaps ";
    findings_
        .AddAtHole(DesignRule::HolesOverlap, mark.Hole,
                   HoleName(section_.Section.Holes.At(mark.Hole)) + does + Beside(other),
                   "at least " + InMm(other.Radius + mark.Radius) + " between their rounds")
        .Line = LineName(mark);
  }

  void AddPitch(const HoleMark& other, const HoleMark& mark, double distance) {
    const double least =
        2 * std::max(other.Radius, mark.Radius) * InUse(DesignRule::PitchDistance).Times;
    const auto at = static_cast<std::size_t>(mark.Hole);
    if (distance >= least - CheckSlack || pitches_.at(at)) return;
    pitches_.at(at) = true;
    findings_
        .AddAtHole(DesignRule::PitchDistance, mark.Hole,
                   HoleName(section_.Section.Holes.At(mark.Hole)) + " is " + InMm(distance) +
                       " from " + Beside(other),
                   "at least " + InMm(least) + ", " + TimesText(DesignRule::PitchDistance))
        .Line = LineName(mark);
  }

  const CheckedSection& section_;
  FindingList& findings_;
  std::vector<bool> overlaps_, pitches_;  // of holes that were told
  double reach_ = 0;                      // beyond which no pair is close
};

// Distances.

// The least of them for a hole, on whichever of its lines.
struct NearestEdge {
  double Distance = std::numeric_limits<double>::infinity();
  const HoleMark* Mark = nullptr;
  std::string To;
};

void Note(NearestEdge& nearest, double distance, const HoleMark& mark, std::string to) {
  if (distance >= nearest.Distance) return;
  nearest = {distance, &mark, std::move(to)};
}

void NoteCuts(const CheckedSection& section, const HoleMark& mark, NearestEdge& nearest) {
  for (const bool isLeft : {true, false}) {
    const bool isMitre = (isLeft ? section.LeftEnd : section.RightEnd).IsMitre;
    Note(nearest, DistanceToEnd(section, mark, isLeft), mark,
         std::string(isLeft ? "the left-hand " : "the right-hand ") + (isMitre ? "mitre" : "end"));
  }
  for (const NotchPlace& notch : section.Notches) {
    Note(nearest, DistanceToNotch(mark, notch), mark,
         "notch " + section.Section.Notches.At(notch.Notch).Code);
  }
}

void NoteEdges(const HoleMark& mark, PartEdge edge, NearestEdge& nearest) {
  if (!mark.Across) return;
  const std::string to = (edge == PartEdge::Bend ? "a bend of the " : "the edge of the ") +
                         std::string(mark.Part.Name);
  if (mark.Part.LowEdge == edge) Note(nearest, *mark.Across - mark.Part.Low, mark, to);
  if (mark.Part.HighEdge == edge) Note(nearest, mark.Part.High - *mark.Across, mark, to);
}

void AddDistance(const CheckedSection& section, DesignRule rule, const NearestEdge& nearest,
                 FindingList& findings) {
  if (nearest.Mark == nullptr) return;
  const HoleMark& mark = *nearest.Mark;
  const double least = 2 * mark.Radius * InUse(rule).Times;
  // A hole that is cut is told by a rule of its own.
  if (nearest.Distance >= least - CheckSlack || nearest.Distance < mark.Radius - CheckSlack) return;
  findings
      .AddAtHole(rule, mark.Hole,
                 HoleName(section.Section.Holes.At(mark.Hole)) + " is " + InMm(nearest.Distance) +
                     " from " + nearest.To,
                 "at least " + InMm(least) + ", " + TimesText(rule))
      .Line = LineName(mark);
}

}  // namespace

void CheckHolePairs(const CheckedSection& section, FindingList& findings) {
  PairCheck(section, findings).Run();
}

void CheckDistances(const CheckedSection& section, FindingList& findings) {
  if (section.Section.Length <= 0) return;
  const std::span<const HoleMark> all = section.Marks;
  for (std::size_t first = 0; first < all.size();) {
    const std::span<const HoleMark> marks = MarksOfOneHole(all.subspan(first));
    first += marks.size();
    NearestEdge cut, edge, bend;
    for (const HoleMark& mark : marks) {
      if (!IsOnItsPart(mark)) continue;
      NoteCuts(section, mark, cut);
      NoteEdges(mark, PartEdge::Free, edge);
      NoteEdges(mark, PartEdge::Bend, bend);
    }
    AddDistance(section, DesignRule::EndDistance, cut, findings);
    AddDistance(section, DesignRule::EdgeDistance, edge, findings);
    AddDistance(section, DesignRule::BendDistance, bend, findings);
  }
}

}  // namespace orvane
