#include "drawing/notches_and_mitres.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/numbers.h"
#include "drawing/length.h"
#include "drawing/primitives.h"

namespace orvane {

namespace {

constexpr double DashMm = 0.5;  // of every mitre and notch; shortened to whole twips

void DrawDashedMm(const Sheet& sheet, const Point& from, const Point& to) {
  DrawDashedLine(sheet.Surface, from.X * TwipsPerMm, from.Y * TwipsPerMm, to.X * TwipsPerMm,
                 to.Y * TwipsPerMm, WholeTwips(DashMm).Twips(), sheet.Source.Tell);
}

// Mitres.

enum class End { Left, Right };

// A mitre line, for one sign of the angle at one end.
struct MitreLine {
  float Item::*Mitre;
  End At;
  int Sign;
  // How far its two points stand off the end, as shares of the offset, which bears the angle's
  // sign.
  int BottomShare, TopShare;
};

constexpr std::array<MitreLine, 4> MitreLines = {{
    // clang-format off
    {&Item::MitreLeft,  End::Left,  +1,  0, +1},
    {&Item::MitreLeft,  End::Left,  -1, -1,  0},
    {&Item::MitreRight, End::Right, +1, -1,  0},
    {&Item::MitreRight, End::Right, -1,  0, +1},
    // clang-format on
}};

void DrawMitres(const Sheet& sheet) {
  const Item& item = sheet.Section;
  PrintSurface& surface = sheet.Surface;
  if (item.MitreLeft != 0 || item.MitreRight != 0) DrawRowLabel(sheet, "Mitres", MitreBand.Row);
  PenWidthMm(surface, ThinPen);

  const double depth = sheet.Depth;
  const double height = CrossScale * sheet.Height;
  for (const MitreLine& line : MitreLines) {
    const double mitre = item.*line.Mitre;
    if (!(mitre * line.Sign > 0)) continue;
    const double end = line.At == End::Left ? sheet.ElevationLeft : ElevationX(sheet, sheet.Length);
    const double offset = std::tan(DegToRad(mitre)) * height * sheet.LengthScale / CrossScale;
    // The saw cuts the web, so the value is its depth's, also where the elevation shows another.
    const double value = std::tan(DegToRad(mitre)) * depth;
    const Point bottom = {end + line.BottomShare * offset, height + ViewTop};
    const Point top = {end + line.TopShare * offset, ViewTop};
    DrawDashedMm(sheet, bottom, top);
    // The dimension begins at the left one of the two.
    if (line.Sign > 0) {
      DrawMitreDimension(surface, bottom.X, top.X, value);
    } else {
      DrawMitreDimension(surface, top.X, bottom.X, -value);
    }
  }
}

// Notches.

enum class Across { FromLeftEnd, Inside, FromRightEnd };
enum class Edge { Top, LowInEnd, Bottom };
enum class Beside { Right, Left };
enum class Under { Below, Above };

// How a notch is drawn. Its outline runs from the lower left corner up, to the right, down and
// back: the sides are left, upper, right and lower. A side on the section's outline is not dashed.
struct NotchRule {
  std::string_view Code;
  Across X;
  Edge Y;
  std::array<bool, 4> Dashed;
  Beside Size1;   // where the depth is written: away from the section's end
  Under Size2;    // and the width: towards the web
  bool HasSize3;  // the distance from the bottom is written too
  bool InChain;
};

constexpr bool Yes = true;
constexpr bool No = false;

constexpr std::array<NotchRule, 8> NotchRules = {{
    // clang-format off
    //                                        dashed sides: 0    1    2    3    Size1          Size2         Size3 chain
    {"TL1", Across::FromLeftEnd,  Edge::Top,      {{No,  No,  Yes, Yes}}, Beside::Right, Under::Below, No,  No},
    {"T2",  Across::Inside,       Edge::Top,      {{Yes, No,  Yes, Yes}}, Beside::Right, Under::Below, No,  Yes},
    {"TR1", Across::FromRightEnd, Edge::Top,      {{Yes, No,  No,  Yes}}, Beside::Left,  Under::Below, No,  No},
    {"L3",  Across::FromLeftEnd,  Edge::LowInEnd, {{No,  Yes, Yes, Yes}}, Beside::Right, Under::Below, Yes, No},
    {"R3",  Across::FromRightEnd, Edge::LowInEnd, {{Yes, Yes, No,  Yes}}, Beside::Left,  Under::Below, Yes, No},
    {"BL1", Across::FromLeftEnd,  Edge::Bottom,   {{No,  Yes, Yes, No}},  Beside::Right, Under::Above, No,  No},
    {"B2",  Across::Inside,       Edge::Bottom,   {{Yes, Yes, Yes, No}},  Beside::Right, Under::Above, No,  Yes},
    {"BR1", Across::FromRightEnd, Edge::Bottom,   {{Yes, Yes, No,  No}},  Beside::Left,  Under::Above, No,  No},
    // clang-format on
}};

// The sizes widened, and the notch's place on the page.
struct NotchSizes {
  double Size1, Size2, Size3;
};

std::pair<double, double> LeftAndRight(const Sheet& sheet, Across across, const NotchSizes& notch) {
  switch (across) {
    case Across::FromLeftEnd:
      break;
    case Across::Inside:
      return {ElevationX(sheet, notch.Size3), ElevationX(sheet, notch.Size2 + notch.Size3)};
    case Across::FromRightEnd: {
      const double right = ElevationX(sheet, sheet.Length);
      return {right - notch.Size2 * sheet.LengthScale, right};
    }
  }
  return {sheet.ElevationLeft, ElevationX(sheet, notch.Size2)};
}

std::pair<double, double> LowerAndUpper(Edge edge, const NotchSizes& notch, double depth) {
  switch (edge) {
    case Edge::Top:
      break;
    case Edge::LowInEnd:
      return {ViewTop + CrossScale * (depth - notch.Size3),
              ViewTop + CrossScale * (depth - notch.Size3 - notch.Size1)};
    case Edge::Bottom:
      return {ViewTop + CrossScale * depth, ViewTop + CrossScale * (depth - notch.Size1)};
  }
  return {ViewTop + CrossScale * notch.Size1, ViewTop};
}

PagePlace PlaceOf(const Sheet& sheet, const NotchRule& rule, const Notch& notch) {
  const NotchSizes sizes = {notch.Size1, notch.Size2, notch.Size3};
  const auto [left, right] = LeftAndRight(sheet, rule.X, sizes);
  const auto [lower, upper] = LowerAndUpper(rule.Y, sizes, sheet.Depth);
  return {left, upper, right, lower};
}

void DrawNotch(const Sheet& sheet, const NotchRule& rule, const Notch& notch) {
  PrintSurface& surface = sheet.Surface;
  const double depth = sheet.Depth;
  const auto [left, upper, right, lower] = PlaceOf(sheet, rule, notch);

  const std::array<Point, 4> corners = {
      {{left, lower}, {left, upper}, {right, upper}, {right, lower}}};
  for (std::size_t side = 0; side < corners.size(); ++side) {
    if (!rule.Dashed.at(side)) continue;
    DrawDashedMm(sheet, corners.at(side), corners.at((side + 1) % corners.size()));
  }

  // Half the value's size, and a little air.
  constexpr double twipsPerTwoMm = 2 * TwipsPerMm;
  const double besideGap = surface.TextWidth(FormatNumber(notch.Size1, 0)) / twipsPerTwoMm + 0.5;
  const double underGap = surface.TextHeight(FormatNumber(notch.Size2, 0)) / twipsPerTwoMm + 0.2;
  const double x = rule.Size1 == Beside::Right ? right + besideGap : left - besideGap;
  const double y = rule.Size2 == Under::Below ? lower + underGap : upper - underGap;
  DrawDimension(surface, x, upper, x, lower, ShortestText(notch.Size1));
  DrawDimension(surface, left, y, right, y, ShortestText(notch.Size2));
  if (rule.HasSize3) {
    DrawDimension(surface, x, lower, x, ViewTop + CrossScale * depth, ShortestText(notch.Size3));
  }
}

}  // namespace

void DrawNotchesAndMitres(const Sheet& sheet) {
  DrawMitres(sheet);

  Table<MiddleNotch> middle;
  for (const Notch& notch : sheet.Section.Notches) {
    for (const NotchRule& rule : NotchRules) {
      if (rule.Code != notch.Code) continue;
      DrawNotch(sheet, rule, notch);
      if (rule.InChain) middle.Append({notch.Size3, notch.Size2});
    }
  }
  DrawNotchChain(sheet, middle);
}

std::optional<PagePlace> PlaceOfNotch(const Sheet& sheet, const Notch& notch) {
  for (const NotchRule& rule : NotchRules) {
    if (rule.Code == notch.Code) return PlaceOf(sheet, rule, notch);
  }
  return std::nullopt;
}

void DrawMitreDimension(PrintSurface& surface, double x1, double x2, double value) {
  PenWidthMm(surface, ThinPen);
  DrawLineMm(surface, x1, MitreBand.Top, x1, MitreBand.Bottom);
  DrawLineMm(surface, x2, MitreBand.Top, x2, MitreBand.Bottom);
  DrawDimension(surface, x1, MitreBand.Row, x2, MitreBand.Row, FormatNumber(value, 0));
}

void DrawNotchChain(const Sheet& sheet, Table<MiddleNotch> notches) {
  if (notches.Empty()) return;
  PrintSurface& surface = sheet.Surface;
  DrawRowLabel(sheet, "Notches", NotchBand.Row);
  std::stable_sort(notches.begin(), notches.end(), [](const MiddleNotch& a, const MiddleNotch& b) {
    return a.Position < b.Position;
  });

  // The clear distances up to each notch; its own width is given at the notch.
  double run = 0;
  for (const MiddleNotch& notch : notches) {
    const double from = ElevationX(sheet, run);
    const double to = ElevationX(sheet, notch.Position);
    DrawLineMm(surface, from, NotchBand.Top, from, NotchBand.Bottom);
    DrawLineMm(surface, to, NotchBand.Top, to, NotchBand.Bottom);
    // Sizes of 32 bits: their difference has no more digits than they have.
    DrawDimension(surface, from, NotchBand.Row, to, NotchBand.Row,
                  ShortestText(Float32(notch.Position - run)));
    run = notch.Position + notch.Width;
  }
}

}  // namespace orvane
