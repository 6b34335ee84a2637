#include "output/design_check_geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvane {

namespace {

constexpr double Endless = std::numeric_limits<double>::infinity();

// The share of a distance along the section that is left of it across the cut.
double ShareAcross(const CheckedSection& section, const EndCut& cut) {
  return section.Height / std::hypot(section.Height, cut.AtTop - cut.AtBottom);
}

double CutAt(const CheckedSection& section, const EndCut& cut, double height) {
  return cut.AtBottom + (cut.AtTop - cut.AtBottom) * height / section.Height;
}

// A distance along the section is one across the cut, but for a hole that is seen edge-on: its
// flange or side is cut square.
struct CutBeside {
  double X = 0;
  double Share = 1;
};

CutBeside CutBesideOf(const CheckedSection& section, const HoleMark& mark, bool isLeft) {
  const EndCut& cut = isLeft ? section.LeftEnd : section.RightEnd;
  if (mark.Part.EdgeOn) return {CutAt(section, cut, *mark.Part.EdgeOn)};
  return {CutAt(section, cut, mark.Across.value_or(0)), ShareAcross(section, cut)};
}

// Between two stretches of one line; 0 where they meet.
double Gap(double low, double high, double otherLow, double otherHigh) {
  return std::max({0.0, low - otherHigh, otherLow - high});
}

}  // namespace

bool IsPatternHole(const CheckedSection& section, int row) {
  return section.Section.PatternName != CustomPattern &&
         section.Section.Holes.At(row).Kind == PatternKind;
}

std::span<const HoleMark> MarksOfOneHole(std::span<const HoleMark> marks) {
  std::size_t count = 0;
  while (count < marks.size() && marks[count].Hole == marks.front().Hole) ++count;
  return marks.first(count);
}

bool IsOnItsPart(const HoleMark& mark) {
  const double width = mark.Part.High - mark.Part.Low;
  if (!mark.Across) return 2 * mark.Radius <= width + CheckSlack;
  return *mark.Across - mark.Radius >= mark.Part.Low - CheckSlack &&
         *mark.Across + mark.Radius <= mark.Part.High + CheckSlack;
}

double DistanceToEnd(const CheckedSection& section, const HoleMark& mark, bool isLeft) {
  const CutBeside cut = CutBesideOf(section, mark, isLeft);
  const double along = isLeft ? mark.X - mark.HalfSlot - cut.X : cut.X - mark.X - mark.HalfSlot;
  return along * cut.Share;
}

double LimitAtEnd(const CheckedSection& section, const HoleMark& mark, bool isLeft) {
  const CutBeside cut = CutBesideOf(section, mark, isLeft);
  const double reach = mark.HalfSlot + mark.Radius / cut.Share;
  return isLeft ? cut.X + reach : cut.X - reach;
}

double DistanceToNotch(const HoleMark& mark, const NotchPlace& notch) {
  const double along = Gap(mark.X - mark.HalfSlot, mark.X + mark.HalfSlot, notch.Left, notch.Right);
  if (mark.Part.EdgeOn) {
    const double height = *mark.Part.EdgeOn;
    const bool isCut = height >= notch.Low - CheckSlack && height <= notch.High + CheckSlack;
    return isCut ? along : Endless;
  }
  const double height = mark.Across.value_or(0);
  return std::hypot(along, Gap(height, height, notch.Low, notch.High));
}

double DistanceBetween(const HoleMark& one, const HoleMark& other) {
  const double along = Gap(one.X - one.HalfSlot, one.X + one.HalfSlot, other.X - other.HalfSlot,
                           other.X + other.HalfSlot);
  if (one.Across && other.Across) return std::hypot(along, *one.Across - *other.Across);
  const bool sameLine = one.Line == other.Line && one.AtGauge && other.AtGauge;
  return sameLine ? along : Endless;
}

}  // namespace orvane
