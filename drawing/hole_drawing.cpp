#include "drawing/hole_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/numbers.h"
#include "core/section_families.h"
#include "core/table.h"
#include "drawing/length.h"
#include "drawing/off_gauge.h"
#include "drawing/primitives.h"

namespace orvane {

namespace {

constexpr float SmallHole = 14;  // mm; every other diameter counts as 18

bool IsSmall(const Hole& hole) {
  return hole.Diameter == SmallHole;
}

// Where the marks of a hole row stand.

enum class MarkKind {
  Flange,  // seen edge-on
  Web,
  Slope,  // on a top hat's leaning side, seen at a slant
};

// The height of a mark, up from the bottom of the section.
enum class MarkHeight {
  AsItStands,  // 0, or what an earlier mark of the row left
  Dim11,
  DepthLessDim9,
  Dim9,
  Depth,
  LowerSlope,
  UpperSlope,
  Number,  // the line's own
};

struct MarkRule {
  MarkKind Kind;
  MarkHeight Height;
};

// The marks of one hole line: of a hole at the standard gauge, and of one off gauge.
struct LineRules {
  std::string_view Name;
  std::string Hole::*Line;
  MarkRule Standard, Number;
};
using HoleLines = std::array<LineRules, 4>;

constexpr auto Flange = MarkKind::Flange;
constexpr auto Web = MarkKind::Web;
constexpr auto Slope = MarkKind::Slope;
constexpr auto AsItStands = MarkHeight::AsItStands;
constexpr auto Dim9 = MarkHeight::Dim9;
constexpr auto Dim11 = MarkHeight::Dim11;
constexpr auto DepthLessDim9 = MarkHeight::DepthLessDim9;
constexpr auto Depth = MarkHeight::Depth;
constexpr auto LowerSlope = MarkHeight::LowerSlope;
constexpr auto UpperSlope = MarkHeight::UpperSlope;
constexpr auto Number = MarkHeight::Number;

// A number on the bottom flange behind a "y" of the same row keeps that one's height: the dialogs
// make no such rows.
constexpr HoleLines MostLines = {{
    // clang-format off
    //                "y"                   a number
    {"BF", &Hole::BF, {Flange, AsItStands}, {Flange, AsItStands}},
    {"W1", &Hole::W1, {Web, Dim11},         {Web, Number}},
    {"W2", &Hole::W2, {Web, DepthLessDim9}, {Web, Number}},
    {"TF", &Hole::TF, {Flange, Depth},      {Flange, Depth}},
    // clang-format on
}};
// A cleader rail has no top flange: what others have there lies on its web.
constexpr HoleLines RailLines = {{
    // clang-format off
    {"BF", &Hole::BF, {Flange, AsItStands}, {Flange, AsItStands}},
    {"W1", &Hole::W1, {Web, Dim11},         {Web, Number}},
    {"W2", &Hole::W2, {Web, DepthLessDim9}, {Web, Number}},
    {"TF", &Hole::TF, {Web, Dim11},         {Web, Number}},
    // clang-format on
}};
// A top hat has no flange seen edge-on: its outer rows are seen flat, those on its leaning sides at
// a slant. Numbers are marked as on most sections.
constexpr HoleLines TopHatLines = {{
    // clang-format off
    {"BF", &Hole::BF, {Web, Dim9},          {Flange, AsItStands}},
    {"W1", &Hole::W1, {Slope, LowerSlope},  {Web, Number}},
    {"W2", &Hole::W2, {Slope, UpperSlope},  {Web, Number}},
    {"TF", &Hole::TF, {Web, DepthLessDim9}, {Flange, Depth}},
    // clang-format on
}};

constexpr PerFamily<const HoleLines*> LinesOfFamilies = {{
    {"Z", &MostLines},
    {"E", &MostLines},
    {"C", &MostLines},
    {"V", &MostLines},
    {"R", &RailLines},
    {"T", &TopHatLines},
}};
static_assert(NamesEachFamily(LinesOfFamilies),
              "LinesOfFamilies needs one row for each section family");

const HoleLines& LinesOf(std::string_view sectionType) {
  const auto* lines = FactOf(LinesOfFamilies, sectionType);
  return lines == nullptr ? MostLines : **lines;
}

double HeightOf(MarkHeight height, const SectionDim& dim, double depth, double number,
                double asItStands) {
  switch (height) {
    case MarkHeight::AsItStands:
      break;
    case MarkHeight::Dim9:
      return dim.Dim9;
    case MarkHeight::Dim11:
      return dim.Dim11;
    case MarkHeight::DepthLessDim9:
      return depth - dim.Dim9;
    case MarkHeight::Depth:
      return depth;
    case MarkHeight::LowerSlope:
      return TopHatLean() * dim.Dim4 / 2 + dim.Dim7;
    case MarkHeight::UpperSlope:
      return depth - dim.Dim8 - TopHatLean() * dim.Dim5 / 2;
    case MarkHeight::Number:
      return number;
  }
  return asItStands;
}

// The pen of marks and dimensions.
void SetThinPen(PrintSurface& surface) {
  PenWidthMm(surface, ThinPen);
  surface.PenStyle(0);
  surface.PenColor(Black);
}

// The marks of a hole row, in the order in which they are drawn.
struct HoleMark {
  std::string_view Line;  // "BF", "W1", "W2" or "TF"
  MarkKind Kind = MarkKind::Web;
  double Y = 0;  // mm of the page
};
struct HoleMarks {
  std::array<HoleMark, 8> Marks;
  int Count = 0;
};

HoleMarks MarksOf(const Sheet& sheet, const Hole& hole) {
  HoleMarks marks;
  std::int16_t height = 0;
  const auto mark = [&](const LineRules& line, const MarkRule& rule, double number) {
    height = Whole(HeightOf(rule.Height, sheet.Dim, sheet.Depth, number, height));
    marks.Marks.at(static_cast<std::size_t>(marks.Count++)) = {
        line.Name, rule.Kind, CrossScale * (sheet.Depth - height) + ViewTop};
  };
  const HoleLines& lines = LinesOf(sheet.Section.SectionType);
  for (const LineRules& line : lines) {
    if (hole.*line.Line == "y") mark(line, line.Standard, 0);
  }
  for (const LineRules& line : lines) {
    const double number = Val(hole.*line.Line);
    if (number > 0) mark(line, line.Number, number);
  }
  return marks;
}

// One mark, at a length along the section as drawn and a height on the page.

constexpr double FlangeHalfHeight = 0.75;  // mm of the page

// Deliberately twice as long as the hole: seen edge-on, it has to stay visible at a small scale.
double FlangeReach(const Hole& hole) {
  return hole.Diameter + static_cast<double>(hole.SlotLength) / 2;
}

// The mark itself, without its centre lines.
PagePlace MarkExtent(const Sheet& sheet, const HoleMark& mark, const Hole& hole, double along) {
  const double x = ElevationX(sheet, along);
  const double radius = CrossScale * hole.Diameter / 2;
  if (mark.Kind == MarkKind::Flange) {
    const double reach = sheet.LengthScale * FlangeReach(hole);
    return {x - reach, mark.Y - FlangeHalfHeight, x + reach, mark.Y + FlangeHalfHeight};
  }
  const double slot =
      std::max(sheet.LengthScale * (static_cast<double>(hole.SlotLength) - hole.Diameter) / 2, 0.0);
  return {x - slot - radius, mark.Y - radius, x + slot + radius, mark.Y + radius};
}

void DrawFlangeMark(const Sheet& sheet, const Hole& hole, double along, double y) {
  PrintSurface& surface = sheet.Surface;
  const double reach = FlangeReach(hole);
  surface.BrushStyle(Brush::DiagonalHatch);
  surface.BrushColor(Black);
  surface.DrawRectangle(
      Length::OfMm(ElevationX(sheet, along - reach)), Length::OfMm(y - FlangeHalfHeight),
      Length::OfMm(ElevationX(sheet, along + reach)), Length::OfMm(y + FlangeHalfHeight));
  surface.BrushColor(White);
}

void SetHoleBrush(PrintSurface& surface, const Hole& hole) {
  surface.BrushColor(IsSmall(hole) ? Grey : White);
  surface.BrushStyle(IsSmall(hole) ? Brush::Solid : Brush::Transparent);
}

void DrawWebMark(const Sheet& sheet, const Hole& hole, double along, double y) {
  PrintSurface& surface = sheet.Surface;
  const double radius = CrossScale * hole.Diameter / 2;
  if (hole.SlotLength == 0) {
    surface.DrawCircle(Length::OfMm(ElevationX(sheet, along)), Length::OfMm(y),
                       Length::OfMm(radius));
    return;
  }
  const double reach = (static_cast<double>(hole.SlotLength) - hole.Diameter) / 2;
  const double left = ElevationX(sheet, along - reach);
  const double right = ElevationX(sheet, along + reach);
  surface.DrawArc(Length::OfMm(left), Length::OfMm(y), Length::OfMm(radius), HalfPi, ThreeHalfPi);
  surface.DrawArc(Length::OfMm(right), Length::OfMm(y), Length::OfMm(radius), ThreeHalfPi, HalfPi);
  DrawLineMm(surface, left, y - radius, right, y - radius);
  DrawLineMm(surface, left, y + radius, right, y + radius);
}

void DrawSlopeMark(const Sheet& sheet, const Hole& hole, double along, double y) {
  PrintSurface& surface = sheet.Surface;
  const double x = ElevationX(sheet, along);
  const double halfWidth = CrossScale * hole.Diameter / 2;
  const double halfHeight = CrossScale * hole.Diameter * TopHatLean() / 2;
  surface.DrawEllipse(Length::OfMm(x - halfWidth), Length::OfMm(y - halfHeight),
                      Length::OfMm(x + halfWidth), Length::OfMm(y + halfHeight));
}

void DrawCentreLines(const Sheet& sheet, const Hole& hole, double along, double y) {
  PrintSurface& surface = sheet.Surface;
  constexpr double beyond = 1.5;
  const double x = ElevationX(sheet, along);
  const double reach = static_cast<double>(hole.SlotLength) / 2;
  DrawLineMm(surface, x, y - beyond, x, y + beyond);
  DrawLineMm(surface, ElevationX(sheet, along - reach) - beyond, y,
             ElevationX(sheet, along + reach) + beyond, y);
  if (hole.CounterSunk != CounterSunkMark) return;
  constexpr double arm = 1.1;
  DrawLineMm(surface, x - arm, y - arm, x + arm, y + arm);
  DrawLineMm(surface, x - arm, y + arm, x + arm, y - arm);
}

void DrawMark(const Sheet& sheet, MarkKind kind, const Hole& hole, double along, double y) {
  if (kind == MarkKind::Flange) {
    DrawFlangeMark(sheet, hole, along, y);
    return;
  }
  PrintSurface& surface = sheet.Surface;
  SetHoleBrush(surface, hole);
  if (kind == MarkKind::Web) {
    DrawWebMark(sheet, hole, along, y);
  } else {
    DrawSlopeMark(sheet, hole, along, y);
  }
  surface.BrushColor(White);
  surface.BrushStyle(Brush::Transparent);
  DrawCentreLines(sheet, hole, along, y);
}

// What all holes of an item are, for the legend and the list of slots.

struct HoleKinds {
  bool SmallRound = false;
  bool OtherRound = false;
  // Distinct lengths, in the order in which they first appear; of 32 bits, so that their texts have
  // no more digits than was typed.
  std::vector<float> SmallSlots;
  std::vector<float> OtherSlots;
};

void AddKind(HoleKinds& kinds, const Hole& hole) {
  if (hole.SlotLength == 0) {
    (IsSmall(hole) ? kinds.SmallRound : kinds.OtherRound) = true;
    return;
  }
  std::vector<float>& lengths = IsSmall(hole) ? kinds.SmallSlots : kinds.OtherSlots;
  if (std::find(lengths.begin(), lengths.end(), hole.SlotLength) == lengths.end()) {
    lengths.push_back(hole.SlotLength);
  }
}

struct LegendEntry {
  double CircleX;  // from the legend's centre, mm
  double Radius;
  Brush Style;
  Rgb Color;
  double TextX;
  std::string_view Text;
};

constexpr std::array<LegendEntry, 2> LegendEntries = {{
    {-7, 0.9, Brush::Transparent, White, -4.5, "18 Dia."},
    {13, 0.7, Brush::Solid, Grey, 15.5, "14 Dia."},
}};

void DrawLegend(PrintSurface& surface, const HoleKinds& kinds, double centre, double row) {
  surface.FontSize(10);
  if (kinds.SmallRound && kinds.OtherRound) {
    constexpr double textRise = 1.2;
    constexpr double circleDrop = 0.9;
    SetThinPen(surface);
    WriteTextAt(surface, "Holes:", centre - 22, row - textRise);
    for (const LegendEntry& entry : LegendEntries) {
      surface.BrushStyle(entry.Style);
      surface.BrushColor(entry.Color);
      surface.DrawCircle(Length::OfMm(centre + entry.CircleX), Length::OfMm(row + circleDrop),
                         Length::OfMm(entry.Radius));
      WriteTextAt(surface, entry.Text, centre + entry.TextX, row - textRise);
    }
  } else if (kinds.SmallRound) {
    DrawCentredText(surface, "All Holes 14 Dia.", centre, row);
  } else if (kinds.OtherRound) {
    DrawCentredText(surface, "All Holes 18 Dia.", centre, row);
  }
}

void DrawSlotList(const Sheet& sheet, const HoleKinds& kinds) {
  if (kinds.SmallSlots.empty() && kinds.OtherSlots.empty()) return;
  PrintSurface& surface = sheet.Surface;
  WriteTextAt(surface, "Slots: ", sheet.ElevationLeft, SlotListRow);
  for (const float length : kinds.SmallSlots) surface.Text("14x" + ShortestText(length) + "  ");
  for (const float length : kinds.OtherSlots) surface.Text("18x" + ShortestText(length) + "  ");
}

void DrawOffGaugeLetters(const Sheet& sheet, const Table<OffGaugeHole>& list) {
  DrawRowLabel(sheet, "Off-gauge", OffGaugeLetterRow);
  for (int row = 1; row <= list.UBound(); ++row) {
    DrawCentredText(sheet.Surface, OffGaugeLetter(row), ElevationX(sheet, list.At(row).DrawX),
                    OffGaugeLetterRow);
  }
}

}  // namespace

void DrawHoles(Sheet& sheet) {
  const Item& item = sheet.Section;
  if (!HasViews(sheet) || item.HoleCount() <= 0) return;

  sheet.HoleLabelRow = 1;
  HoleKinds kinds;
  Table<OffGaugeHole> offGauge;
  double runningPosition = 0;
  for (const Hole& hole : item.Holes) {
    if (IsOffGauge(hole)) AddOffGauge(offGauge, hole, runningPosition + hole.DrawGap);
    runningPosition = DrawHole(sheet, runningPosition, hole);
    AddKind(kinds, hole);
  }
  // Row 0 ends the list: its gap is the one up to the section's end.
  sheet.HoleLabelRow = DrawHoleGap(sheet, sheet.HoleLabelRow, runningPosition, item.Holes.At(0));

  if (!offGauge.Empty()) DrawOffGaugeLetters(sheet, offGauge);
  DrawLegend(sheet.Surface, kinds, sheet.ElevationLeft + sheet.LengthScale * sheet.Length / 2,
             sheet.Bottom + LegendDrop);
  DrawSlotList(sheet, kinds);
  if (!offGauge.Empty()) {
    DrawOffGaugeKey(sheet);
    DrawOffGaugeTable(sheet, offGauge);
  }
}

std::optional<PagePlace> PlaceOfHole(const Sheet& sheet, int row, std::string_view line) {
  double along = 0;
  for (int i = 1; i <= row; ++i) along += sheet.Section.Holes.At(i).DrawGap;
  const Hole& hole = sheet.Section.Holes.At(row);
  const HoleMarks marks = MarksOf(sheet, hole);
  std::optional<PagePlace> place;
  for (int i = 0; i < marks.Count; ++i) {
    const HoleMark& mark = marks.Marks.at(static_cast<std::size_t>(i));
    if (!line.empty() && line != mark.Line) continue;
    const PagePlace marked = MarkExtent(sheet, mark, hole, along);
    if (!place) place = marked;
    place->Left = std::min(place->Left, marked.Left);
    place->Top = std::min(place->Top, marked.Top);
    place->Right = std::max(place->Right, marked.Right);
    place->Bottom = std::max(place->Bottom, marked.Bottom);
  }
  return place;
}

double DrawHole(Sheet& sheet, double runningPosition, const Hole& hole) {
  const double along = runningPosition + hole.DrawGap;
  SetThinPen(sheet.Surface);

  const HoleMarks marks = MarksOf(sheet, hole);
  for (int i = 0; i < marks.Count; ++i) {
    const HoleMark& mark = marks.Marks.at(static_cast<std::size_t>(i));
    DrawMark(sheet, mark.Kind, hole, along, mark.Y);
  }
  if (marks.Count > 0)
    sheet.HoleLabelRow = DrawHoleGap(sheet, sheet.HoleLabelRow, runningPosition, hole);
  return along;
}

std::int16_t DrawHoleGap(const Sheet& sheet, std::int16_t labelRow, double runningPosition,
                         const Hole& hole) {
  // A second mark at a position has no gap of its own.
  if (hole.RelX == 0) return labelRow;
  PrintSurface& surface = sheet.Surface;
  surface.FontName("Arial");
  surface.FontSize(7);
  SetThinPen(surface);

  const double start = ElevationX(sheet, runningPosition);
  const double end = ElevationX(sheet, runningPosition + hole.DrawGap);
  const double top = sheet.Bottom + ChainBand.Top;
  const double bottom = sheet.Bottom + ChainBand.Bottom;
  if (runningPosition == 0) {
    DrawLineMm(surface, sheet.ElevationLeft, top, sheet.ElevationLeft, bottom);
  }
  DrawLineMm(surface, end, top, end, bottom);

  const std::string value = FormatNumber(hole.RelX, 0);
  const double width = surface.TextWidth(value) / TwipsPerMm;
  const double gap = sheet.LengthScale * hole.DrawGap;
  const double row = sheet.Bottom + (width > gap ? NarrowGapRow : ChainBand.Row);
  if (width <= gap / 2) DrawLineMm(surface, start, row, end, row);
  DrawCentredText(surface, value, ElevationX(sheet, runningPosition + hole.DrawGap / 2), row);

  if (runningPosition == hole.XPos) return labelRow;
  const double below = IsOdd(labelRow) ? OddTotalDrop : EvenTotalDrop;
  DrawCentredText(surface, ShortestText(hole.XPos), end, row + below);
  return Int16(labelRow + 1);
}

bool IsOdd(std::int16_t number) {
  const double half = number / 2.0;
  return half - std::floor(half) > 0.0001;
}

}  // namespace orvane
