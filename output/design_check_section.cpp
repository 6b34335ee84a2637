#include "output/design_check_section.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/catalogues.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/section_families.h"
#include "core/text.h"
#include "drawing/length.h"
#include "drawing/primitives.h"
#include "drawing/sheet.h"
#include "holes/hole_coding.h"
#include "holes/hole_list.h"

namespace orvane {

namespace {

// The parts of the families.

// How far a part reaches, and where its standard gauge lies.
using Measure = double (*)(const Item& item, const SectionDim& dim);

double Zero(const Item&, const SectionDim&) {
  return 0;
}
double Height(const Item& item, const SectionDim& dim) {
  return ViewHeight(item.SectionType, dim);
}
double LowerGauge(const Item&, const SectionDim& dim) {
  return dim.Dim11;
}
double UpperGauge(const Item& item, const SectionDim& dim) {
  return Height(item, dim) - dim.Dim9;
}
double FirstGauge(const Item&, const SectionDim& dim) {
  return dim.Dim9;
}
template <double SectionDim::*Dim>
double Of(const Item&, const SectionDim& dim) {
  return dim.*Dim;
}
template <double SectionDim::*Dim>
double HalfOf(const Item&, const SectionDim& dim) {
  return dim.*Dim / 2;
}
// Of a top hat, whose sides lean.
double UpperLipBottom(const Item& item, const SectionDim& dim) {
  return Height(item, dim) - dim.Dim7;
}
double SideWidth(const Item&, const SectionDim& dim) {
  return dim.Dim4 * std::hypot(1.0, TopHatLean());
}
double SideMiddle(const Item& item, const SectionDim& dim) {
  return SideWidth(item, dim) / 2;
}
double LowerSideHeight(const Item&, const SectionDim& dim) {
  return dim.Dim8 + TopHatLean() * dim.Dim4 / 2;
}
double UpperSideHeight(const Item& item, const SectionDim& dim) {
  return Height(item, dim) - dim.Dim7 - TopHatLean() * dim.Dim4 / 2;
}

constexpr auto Bend = PartEdge::Bend;
constexpr auto Free = PartEdge::Free;

// A part: its edges and what they are, its height where it is seen edge-on, and the standard gauge
// where the catalogue tells it: of flanges it is the middle, as their dimensions show it, and a
// purlin's have none.
struct PartRule {
  std::string_view Name;
  Measure Low = nullptr, High = nullptr;
  PartEdge LowEdge = Bend, HighEdge = Bend;
  Measure EdgeOn = nullptr;
  Measure Gauge = nullptr;
};

using Parts = std::array<PartRule, HoleLineCount>;  // of BF, W1, W2 and TF

// Measured across from the web on a flange, from the bottom on a web. A flange without a lip has a
// free edge, which the dimension of the lip tells.
// clang-format off
constexpr Parts ZParts = {{
    {"bottom flange",      Zero, Of<&SectionDim::Dim5>, Bend, Bend, Zero,   nullptr},
    {"web",                Zero, Height,                   Bend, Bend, nullptr, LowerGauge},
    {"web",                Zero, Height,                   Bend, Bend, nullptr, UpperGauge},
    {"top flange",         Zero, Of<&SectionDim::Dim4>, Bend, Bend, Height, nullptr},
}};
constexpr Parts CParts = {{
    {"bottom flange",      Zero, Of<&SectionDim::Dim5>, Bend, Bend, Zero,   HalfOf<&SectionDim::Dim5>},
    ZParts[1],
    ZParts[2],
    {"top flange",         Zero, Of<&SectionDim::Dim4>, Bend, Bend, Height, HalfOf<&SectionDim::Dim4>},
}};
constexpr Parts EParts = {{CParts[0], CParts[1], CParts[2], ZParts[3]}};
constexpr Parts VParts = {{
    {"flat",               Zero, Of<&SectionDim::Dim3>, Bend, Bend, Zero,   nullptr},
    ZParts[1],
    ZParts[2],
    {"upper lip",          Zero, Of<&SectionDim::Dim7>, Bend, Free, Height, nullptr},
}};
constexpr Parts RParts = {{
    {"flange",             Zero, Of<&SectionDim::Dim5>, Bend, Free, Zero,    nullptr},
    {"web",                Zero, Height,                   Bend, Free, nullptr, LowerGauge},
    {"web",                Zero, Height,                   Bend, Free, nullptr, UpperGauge},
    {"web",                Zero, Height,                   Bend, Free, nullptr, LowerGauge},
}};
constexpr Parts TParts = {{
    {"lower lip",          Zero, Of<&SectionDim::Dim8>, Free, Bend, nullptr, FirstGauge},
    {"lower sloping side", Zero, SideWidth,                Bend, Bend, LowerSideHeight, SideMiddle},
    {"upper sloping side", Zero, SideWidth,                Bend, Bend, UpperSideHeight, SideMiddle},
    {"upper lip",          UpperLipBottom, Height,         Bend, Free, nullptr, UpperGauge},
}};
// clang-format on

struct FamilyParts {
  const Parts* Of = nullptr;
  bool OffGauge =
      true;  // its lines can hold distances: those of a top hat have nothing to begin at
};

constexpr PerFamily<FamilyParts> PartsOfFamilies = {{
    {"Z", {&ZParts}},
    {"E", {&EParts}},
    {"C", {&CParts}},
    {"V", {&VParts}},
    {"R", {&RParts}},
    {"T", {&TParts, false}},
}};
static_assert(NamesEachFamily(PartsOfFamilies),
              "PartsOfFamilies needs one row for each section family");

// The lip at a flange's far edge, by line; where there is none the edge is free.
double LipOf(const SectionDim& dim, int line) {
  return line == 0 ? dim.Dim8 : dim.Dim7;
}

CheckedPart PartOf(const PartRule& rule, const Item& item, const SectionDim& dim, int line) {
  CheckedPart part;
  part.Name = rule.Name;
  part.Low = rule.Low(item, dim);
  part.High = rule.High(item, dim);
  part.LowEdge = rule.LowEdge;
  part.HighEdge = rule.HighEdge;
  if (rule.EdgeOn != nullptr) part.EdgeOn = rule.EdgeOn(item, dim);
  if (rule.Gauge != nullptr) part.Gauge = rule.Gauge(item, dim);
  const bool isFlange = part.EdgeOn && (line == 0 || line == HoleLineCount - 1);
  if (isFlange && !(LipOf(dim, line) > 0)) part.HighEdge = Free;
  return part;
}

constexpr std::array<std::string Hole::*, HoleLineCount> LineFields = {&Hole::BF, &Hole::W1,
                                                                       &Hole::W2, &Hole::TF};

// The section.

const PunchPattern* PatternOf(const Item& item) {
  for (const PunchPattern& pattern : PunchPatterns) {
    if (pattern.SectionType == item.SectionType && Trim(pattern.Name) == item.PatternName) {
      return &pattern;
    }
  }
  return nullptr;
}

// The holes as the export makes them: those placed by hand, and the pattern's afresh. Gaps belong
// to a sheet.
void MakeHoles(CheckedSection& section) {
  Item& item = section.Section;
  if (item.PatternName == CustomPattern) return;
  RemoveStandardHoles(item);
  if (item.PatternName.empty()) return;
  section.PatternKnown = PatternOf(item) != nullptr;
  try {
    ExpandPattern(item.PatternName, item);
  } catch (const RuntimeError&) {
    section.PatternOverflows = true;
  }
  SortHoles(item);
}

// The cuts. No saw cuts along the section; steeper angles than this stand for all of them.
constexpr double SteepestCut = 89.99;

EndCut CutOf(double end, double inwards, double angle, bool topGoesFirst, double height) {
  EndCut cut{angle != 0, end, end};
  if (!cut.IsMitre) return cut;
  const double offset = std::tan(DegToRad(std::min(std::abs(angle), SteepestCut))) * height;
  // A positive angle cuts the top back at the left end, and the bottom at the right one.
  (topGoesFirst == (angle > 0) ? cut.AtTop : cut.AtBottom) += inwards * offset;
  return cut;
}

void PlaceMarks(CheckedSection& section) {
  const Item& item = section.Section;
  for (int row = 1; row <= item.Holes.UBound(); ++row) {
    const Hole& hole = item.Holes.At(row);
    for (int line = 0; line < HoleLineCount; ++line) {
      const ReadLine read = LineOf(LineTextOf(hole, line));
      if (read.Kind == LineText::None) continue;
      HoleMark mark;
      mark.Hole = row;
      mark.Line = line;
      mark.AtGauge = read.Kind == LineText::AtGauge;
      mark.Part = mark.AtGauge ? PartAtGauge(item, section.Dim, line)
                               : PartOffGauge(item, section.Dim, line);
      if (mark.Part.Name.empty()) continue;
      mark.X = hole.XPos;
      mark.Radius = std::max(0.0, static_cast<double>(hole.Diameter)) / 2;
      mark.HalfSlot = std::max(0.0, static_cast<double>(hole.SlotLength) / 2 - mark.Radius);
      mark.Across = mark.AtGauge ? mark.Part.Gauge : read.Distance;
      section.Marks.push_back(mark);
    }
  }
}

}  // namespace

ReadLine LineOf(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  if (trimmed.empty() || trimmed == "n") return {};
  if (trimmed == "y") return {LineText::AtGauge};
  try {
    return {LineText::OffGauge, Val(trimmed)};
  } catch (const RuntimeError&) {  // a number beyond all sections
    return {LineText::OffGauge, std::numeric_limits<double>::max()};
  }
}

const std::string& LineTextOf(const Hole& hole, int line) {
  return hole.*LineFields.at(static_cast<std::size_t>(line));
}

CheckedPart PartAtGauge(const Item& item, const SectionDim& dim, int line) {
  const FamilyParts* parts = FactOf(PartsOfFamilies, item.SectionType);
  if (parts == nullptr) return {};
  return PartOf(parts->Of->at(static_cast<std::size_t>(line)), item, dim, line);
}

CheckedPart PartOffGauge(const Item& item, const SectionDim& dim, int line) {
  const FamilyParts* parts = FactOf(PartsOfFamilies, item.SectionType);
  // The sheet has no letter for W2.
  if (parts == nullptr || !parts->OffGauge || line == 2) return {};
  return PartAtGauge(item, dim, line);
}

CheckedSection SeenByCheck(const JobView& job, int row) {
  CheckedSection section;
  section.Row = row;
  section.Section = job.Items.At(row);
  Item& item = section.Section;
  const int product = FindSectionDim(item.Product);
  section.ProductKnown = product > 0;
  if (product > 0) {
    section.Dim = SectionDims.At(product);
    section.Height = std::max(0.0, ViewHeight(item.SectionType, section.Dim));
  }
  MakeHoles(section);
  section.LeftEnd = CutOf(0, +1, item.MitreLeft, true, section.Height);
  section.RightEnd = CutOf(item.Length, -1, item.MitreRight, false, section.Height);
  if (section.Height > 0) PlaceMarks(section);
  PlaceNotches(section);
  return section;
}

std::string HoleName(const Hole& hole) {
  const std::string diameter = ShortestText(hole.Diameter);
  if (!(hole.SlotLength > 0)) return diameter + " mm hole";
  return diameter + "x" + ShortestText(hole.SlotLength) + " slot";
}

}  // namespace orvane
