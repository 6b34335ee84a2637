#include "drawing/hole_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "core/numbers.h"
#include "core/table.h"
#include "drawing/drawing_state.h"
#include "drawing/elevation.h"
#include "drawing/length.h"
#include "drawing/off_gauge.h"
#include "drawing/primitives.h"
#include "drawing/section_views.h"

namespace orvane {

namespace {

constexpr float SmallHole = 14;  // mm; every other diameter counts as 18

bool IsSmall(const Hole& hole) {
  return hole.Diameter == SmallHole;
}

void FitLengthScale(const PrintSurface& surface, const Item& item) {
  DrawingWidth = DrawingWidthOf(surface.PageWidth());
  LengthScale = LengthScaleOf(DrawingWidth, item.Length);
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

struct LineRules {
  std::string Hole::*Line;
  // A hole at the standard gauge: on most sections, on a top hat, on a cleader rail.
  MarkRule Standard, StandardT, StandardR;
  // A hole off gauge: on most sections, on a cleader rail.
  MarkRule Number, NumberR;
};

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

// A number on the bottom flange behind a "y" of the same row keeps that one's height, deliberately:
// the dialogs make no such rows.
constexpr std::array<LineRules, 4> HoleLines = {{
    // clang-format off
    //          "y": most             T                     R                     number: most          R
    {&Hole::BF, {Flange, AsItStands}, {Web, Dim9},          {Flange, AsItStands}, {Flange, AsItStands}, {Flange, AsItStands}},
    {&Hole::W1, {Web, Dim11},         {Slope, LowerSlope},  {Web, Dim11},         {Web, Number},        {Web, Number}},
    {&Hole::W2, {Web, DepthLessDim9}, {Slope, UpperSlope},  {Web, DepthLessDim9}, {Web, Number},        {Web, Number}},
    {&Hole::TF, {Flange, Depth},      {Web, DepthLessDim9}, {Web, Dim11},         {Flange, Depth},      {Web, Number}},
    // clang-format on
}};

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

// One mark, at a length along the section as drawn and a height on the page.

void DrawFlangeMark(PrintSurface& surface, const Hole& hole, double along, double y) {
  // Deliberately twice as long as the hole: seen edge-on, it has to stay visible at a small scale.
  const double reach = hole.Diameter + static_cast<double>(hole.SlotLength) / 2;
  constexpr double halfHeight = 0.75;
  surface.BrushStyle(Brush::DiagonalHatch);
  surface.BrushColor(Black);
  surface.DrawRectangle(Length::OfMm(ElevationX(along - reach)), Length::OfMm(y - halfHeight),
                        Length::OfMm(ElevationX(along + reach)), Length::OfMm(y + halfHeight));
  surface.BrushColor(White);
}

void SetHoleBrush(PrintSurface& surface, const Hole& hole) {
  surface.BrushColor(IsSmall(hole) ? Grey : White);
  surface.BrushStyle(IsSmall(hole) ? Brush::Solid : Brush::Transparent);
}

void DrawWebMark(PrintSurface& surface, const Hole& hole, double along, double y) {
  const double radius = CrossScale * hole.Diameter / 2;
  if (hole.SlotLength == 0) {
    surface.DrawCircle(Length::OfMm(ElevationX(along)), Length::OfMm(y), Length::OfMm(radius));
    return;
  }
  const double reach = (static_cast<double>(hole.SlotLength) - hole.Diameter) / 2;
  const double left = ElevationX(along - reach);
  const double right = ElevationX(along + reach);
  surface.DrawArc(Length::OfMm(left), Length::OfMm(y), Length::OfMm(radius), HalfPi, ThreeHalfPi);
  surface.DrawArc(Length::OfMm(right), Length::OfMm(y), Length::OfMm(radius), ThreeHalfPi, HalfPi);
  DrawLineMm(surface, left, y - radius, right, y - radius);
  DrawLineMm(surface, left, y + radius, right, y + radius);
}

void DrawSlopeMark(PrintSurface& surface, const Hole& hole, double along, double y) {
  const double x = ElevationX(along);
  const double halfWidth = CrossScale * hole.Diameter / 2;
  const double halfHeight = CrossScale * hole.Diameter * TopHatLean() / 2;
  surface.DrawEllipse(Length::OfMm(x - halfWidth), Length::OfMm(y - halfHeight),
                      Length::OfMm(x + halfWidth), Length::OfMm(y + halfHeight));
}

void DrawCentreLines(PrintSurface& surface, const Hole& hole, double along, double y) {
  constexpr double beyond = 1.5;
  const double x = ElevationX(along);
  const double reach = static_cast<double>(hole.SlotLength) / 2;
  DrawLineMm(surface, x, y - beyond, x, y + beyond);
  DrawLineMm(surface, ElevationX(along - reach) - beyond, y, ElevationX(along + reach) + beyond, y);
  if (hole.CounterSunk != CounterSunkMark) return;
  constexpr double arm = 1.1;
  DrawLineMm(surface, x - arm, y - arm, x + arm, y + arm);
  DrawLineMm(surface, x - arm, y + arm, x + arm, y - arm);
}

void DrawMark(PrintSurface& surface, MarkKind kind, const Hole& hole, double along, double y) {
  if (kind == MarkKind::Flange) {
    DrawFlangeMark(surface, hole, along, y);
    return;
  }
  SetHoleBrush(surface, hole);
  if (kind == MarkKind::Web) {
    DrawWebMark(surface, hole, along, y);
  } else {
    DrawSlopeMark(surface, hole, along, y);
  }
  surface.BrushColor(White);
  surface.BrushStyle(Brush::Transparent);
  DrawCentreLines(surface, hole, along, y);
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
    PenWidthMm(surface, ThinPen);
    surface.PenStyle(0);
    surface.PenColor(Black);
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

void DrawSlotList(PrintSurface& surface, const HoleKinds& kinds) {
  if (kinds.SmallSlots.empty() && kinds.OtherSlots.empty()) return;
  constexpr double listTop = 68.8;
  WriteTextAt(surface, "Slots: ", ElevationLeft, listTop);
  for (const float length : kinds.SmallSlots) surface.Text("14x" + ShortestText(length) + "  ");
  for (const float length : kinds.OtherSlots) surface.Text("18x" + ShortestText(length) + "  ");
}

void DrawOffGaugeLetters(PrintSurface& surface, const Table<OffGaugeHole>& list) {
  constexpr double letterRow = 95;
  DrawRowLabel(surface, "Off-gauge", letterRow);
  for (int row = 1; row <= list.UBound(); ++row) {
    DrawCentredText(surface, OffGaugeLetter(row), ElevationX(list.At(row).DrawX), letterRow);
  }
}

}  // namespace

void DrawHoles(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim) {
  const Item& item = Items.At(ItemIndex);
  if (!(dim.Dim3 > 0) || item.Length <= 0 || item.HoleCount() <= 0) return;
  FitLengthScale(surface, item);

  HoleLabelRow = 1;
  HoleKinds kinds;
  Table<OffGaugeHole> offGauge;
  double runningPosition = 0;
  for (const Hole& hole : item.Holes) {
    if (IsOffGauge(hole)) AddOffGauge(offGauge, hole, runningPosition + hole.DrawGap);
    runningPosition = DrawHole(surface, ItemIndex, dim, runningPosition, hole);
    AddKind(kinds, hole);
  }
  // Row 0 ends the list: its gap is the one up to the section's end.
  HoleLabelRow =
      DrawHoleGap(surface, ItemIndex, dim, HoleLabelRow, runningPosition, item.Holes.At(0));

  if (!offGauge.Empty()) DrawOffGaugeLetters(surface, offGauge);
  constexpr double legendDrop = 24;
  DrawLegend(surface, kinds, ElevationLeft + LengthScale * item.Length / 2,
             ViewBottom(item.SectionType, dim) + legendDrop);
  DrawSlotList(surface, kinds);
  if (!offGauge.Empty()) {
    DrawOffGaugeKey(surface, ItemIndex, dim);
    DrawOffGaugeTable(surface, ItemIndex, dim, offGauge);
  }
}

double DrawHole(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim,
                double runningPosition, const Hole& hole) {
  const Item& item = Items.At(ItemIndex);
  FitLengthScale(surface, item);
  const double depth = DrawnDepth(item.SectionType, dim);
  const double along = runningPosition + hole.DrawGap;
  PenWidthMm(surface, ThinPen);
  surface.PenStyle(0);
  surface.PenColor(Black);

  std::int16_t height = 0;
  bool marked = false;
  const auto mark = [&](const MarkRule& rule, double number) {
    height = Whole(HeightOf(rule.Height, dim, depth, number, height));
    DrawMark(surface, rule.Kind, hole, along, CrossScale * (depth - height) + ViewTop);
    marked = true;
  };
  for (const LineRules& line : HoleLines) {
    if (hole.*line.Line != "y") continue;
    mark(item.SectionType == "T"   ? line.StandardT
         : item.SectionType == "R" ? line.StandardR
                                   : line.Standard,
         0);
  }
  for (const LineRules& line : HoleLines) {
    const double number = Val(hole.*line.Line);
    if (number > 0) mark(item.SectionType == "R" ? line.NumberR : line.Number, number);
  }

  if (marked) {
    HoleLabelRow = DrawHoleGap(surface, ItemIndex, dim, HoleLabelRow, runningPosition, hole);
  }
  return along;
}

std::int16_t DrawHoleGap(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim,
                         std::int16_t labelRow, double runningPosition, const Hole& hole) {
  // A second mark at a position has no gap of its own.
  if (hole.RelX == 0) return labelRow;
  const double bottom = ViewBottom(Items.At(ItemIndex).SectionType, dim);
  surface.FontName("Arial");
  surface.FontSize(7);
  PenWidthMm(surface, ThinPen);
  surface.PenStyle(0);
  surface.PenColor(Black);

  const double start = ElevationX(runningPosition);
  const double end = ElevationX(runningPosition + hole.DrawGap);
  if (runningPosition == 0) {
    DrawLineMm(surface, ElevationLeft, bottom + 2, ElevationLeft, bottom + 8);
  }
  DrawLineMm(surface, end, bottom + 2, end, bottom + 8);

  const std::string value = FormatNumber(hole.RelX, 0);
  const double width = surface.TextWidth(value) / TwipsPerMm;
  const double gap = LengthScale * hole.DrawGap;
  const double row = bottom + (width > gap ? 10 : 6);
  if (width <= gap / 2) DrawLineMm(surface, start, row, end, row);
  DrawCentredText(surface, value, ElevationX(runningPosition + hole.DrawGap / 2), row);

  if (runningPosition == hole.XPos) return labelRow;
  const double below = IsOdd(labelRow) ? 4.5 : 8;
  DrawCentredText(surface, ShortestText(hole.XPos), end, row + below);
  return Int16(labelRow + 1);
}

bool IsOdd(std::int16_t number) {
  const double half = number / 2.0;
  return half - std::floor(half) > 0.0001;
}

}  // namespace orvane
