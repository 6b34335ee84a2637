// How far holes are from what is cut and from each other, mm.
#pragma once

#include <span>

#include "output/design_check_section.h"

namespace orvane {

// True for a hole that the section's pattern makes.
bool IsPatternHole(const CheckedSection& section, int row);

// The marks of the first hole among marks that stand hole by hole.
std::span<const HoleMark> MarksOfOneHole(std::span<const HoleMark> marks);

// The whole hole lies on the part that it is punched in. Where the catalogue doesn't tell the gauge
// it is as wide as the part at most.
bool IsOnItsPart(const HoleMark& mark);

// From the middle of a hole's, or a slot's nearer, round to the cut of an end; negative beyond it.
double DistanceToEnd(const CheckedSection& section, const HoleMark& mark, bool isLeft);
// Where the hole's middle is when it only just touches that cut.
double LimitAtEnd(const CheckedSection& section, const HoleMark& mark, bool isLeft);

// From the line between the middles of a slot's rounds, or the middle of a hole, to a notch; 0
// within it, and without end for a flange that it leaves alone.
double DistanceToNotch(const HoleMark& mark, const NotchPlace& notch);

// Between those lines of two holes in one part; without end where their places across it can't be
// compared.
double DistanceBetween(const HoleMark& one, const HoleMark& other);

}  // namespace orvane
