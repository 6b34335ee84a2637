// A section as the design check sees it: what is left of it behind mitres and notches, and its
// holes on the parts that they are punched in. Lengths are mm from the left-hand end, heights mm
// from the bottom of the elevation.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"
#include "output/design_finding.h"
#include "project/job.h"

namespace orvane {

// Less than a saw or a punch can tell, and more than sums of floats are out by, mm.
constexpr double CheckSlack = 0.001;

// What two edges of a part across the section are.
enum class PartEdge { Bend, Free };

// A flat part of the section that holes are punched in.
struct CheckedPart {
  std::string_view Name;  // "web", "top flange"; empty for a part that the section hasn't got
  double Low = 0;         // its edges, in the measure that holes across it have, mm
  double High = 0;
  PartEdge LowEdge = PartEdge::Bend;
  PartEdge HighEdge = PartEdge::Bend;
  // Seen edge-on in the elevation, at this height: a flange, or a top hat's leaning side.
  std::optional<double> EdgeOn;
  // Where holes at the standard gauge lie across it; none where the catalogue doesn't tell.
  std::optional<double> Gauge;
};

// What a line text asks for.
enum class LineText { None, AtGauge, OffGauge };
struct ReadLine {
  LineText Kind = LineText::None;
  double Distance = 0;  // off gauge: mm, 0 for what is no number
};
ReadLine LineOf(std::string_view text);

// The four lines of a hole in the order of HoleLineNames.
constexpr int HoleLineCount = 4;
const std::string& LineTextOf(const Hole& hole, int line);

// The parts that the lines of that family are punched in; a part without a name where there is
// none, and for a section of no family.
CheckedPart PartAtGauge(const Item& item, const SectionDim& dim, int line);
CheckedPart PartOffGauge(const Item& item, const SectionDim& dim, int line);

// A hole or slot in one part.
struct HoleMark {
  int Hole = 0;  // row of Holes
  int Line = 0;  // 0 for "BF" and so on
  CheckedPart Part;
  double X = 0;
  double Radius = 0;
  double HalfSlot = 0;           // from the middle to the middle of an end's round; 0 for a hole
  bool AtGauge = true;           // else off gauge
  std::optional<double> Across;  // its middle across the part

  double Left() const { return X - HalfSlot - Radius; }
  double Right() const { return X + HalfSlot + Radius; }
};

// An end that a mitre cuts: the cut leaves X at the bottom and at the top.
struct EndCut {
  bool IsMitre = false;
  double AtBottom = 0;
  double AtTop = 0;
};

// A notch's place in the elevation. Where it reaches the bottom or the top it takes the flange
// there.
struct NotchPlace {
  int Notch = 0;  // row of Notches
  double Left = 0, Right = 0, Low = 0, High = 0;
};

struct CheckedSection {
  int Row = 0;
  Item Section;  // with its pattern's holes made afresh
  bool PatternKnown = true;
  bool PatternOverflows = false;  // its holes have no place within 16 bits
  bool ProductKnown = true;
  SectionDim Dim;
  double Height = 0;  // of the elevation; 0 without a product
  EndCut LeftEnd, RightEnd;
  std::vector<NotchPlace> Notches;  // of those with a place and a size
  std::vector<HoleMark> Marks;
};

CheckedSection SeenByCheck(const JobView& job, int row);
// Its notches that have a place; called by the above.
void PlaceNotches(CheckedSection& section);

// "18 mm hole", "18x28 slot"
std::string HoleName(const Hole& hole);
// The rules, by topic.
void CheckRecord(const CheckedSection& section, FindingList& findings);
void CheckMitres(const CheckedSection& section, FindingList& findings);
void CheckNotches(const CheckedSection& section, FindingList& findings);
void CheckHolePlaces(const CheckedSection& section, FindingList& findings);
void CheckHoleLines(const CheckedSection& section, FindingList& findings);
void CheckHolePairs(const CheckedSection& section, FindingList& findings);
void CheckDistances(const CheckedSection& section, FindingList& findings);

}  // namespace orvane
