// The views of the families, each as it stands in its table of edges. A closing or extension
// line is drawn in the thin pen that the dimension before it left.
#include <array>
#include <cmath>
#include <initializer_list>
#include <memory>
#include <string>

#include "core/numbers.h"
#include "core/section_families.h"
#include "core/text.h"
#include "drawing/primitives.h"
#include "drawing/section_view_parts.h"
#include "drawing/section_views.h"

namespace orvane {

namespace {

using enum EdgeSide;

constexpr std::size_t ZWeb = 2;  // row of the web in ZEdges

std::array<SectionEdge, 5> ZEdges(const SectionDim& dim) {
  const double depth = dim.Dim3;
  const double right = dim.Dim5 + dim.Dim4;
  return {{
      // clang-format off
      // from                  to                  side    offset                      value
      {right, 0,               right, dim.Dim7,    Right,  0,                          dim.Dim7},
      {dim.Dim5, 0,            right, 0,           Top,    0,                          dim.Dim4},
      {dim.Dim5, 0,            dim.Dim5, depth,    Left,   CrossScale * dim.Dim5 + 5,  depth},
      {0, depth,               dim.Dim5, depth,    Bottom, 0,                          dim.Dim5},
      {0, depth - dim.Dim8,    0, depth,           Left,   0,                          dim.Dim8},
      // clang-format on
  }};
}

std::array<SectionEdge, 5> CEdges(const SectionDim& dim) {
  const double depth = dim.Dim3;
  return {{
      // clang-format off
      // from                         to                     side    offset  value
      {dim.Dim4, 0,                   dim.Dim4, dim.Dim7,    Right,  0,      dim.Dim7},
      {0, 0,                          dim.Dim4, 0,           None,   0,      0},
      {0, 0,                          0, depth,              Left,   0,      depth},
      {0, depth,                      dim.Dim5, depth,       Bottom, 0,      dim.Dim5},
      {dim.Dim5, depth - dim.Dim8,    dim.Dim5, depth,       Right,  0,      dim.Dim8},
      // clang-format on
  }};
}

// The edges that stand for a family in the key of off-gauge holes; none for one without a key.
using KeyEdges = std::array<SectionEdge, 5> (*)(const SectionDim& dim);

constexpr PerFamily<KeyEdges> EdgesOfKeys = {{
    {"Z", ZEdges},
    {"E", CEdges},  // without its pitch: the key tells which side is which
    {"C", CEdges},
    {"V", nullptr},
    {"R", nullptr},
    {"T", nullptr},
}};
static_assert(NamesEachFamily(EdgesOfKeys), "EdgesOfKeys needs one row for each section family");

// The gauges of a channel's open side, beyond its top flange.
void DrawChannelGauges(const Sheet& sheet) {
  const double x = SectionX(sheet, sheet.Dim.Dim4) + 10;
  const double inner = sheet.SectionViewLeft - 2;
  DrawGaugeColumn(sheet, x, {x - 3, inner, inner, x - 3}, x + 2);
}

// The top flange of an eaves beam, which follows the roof.
struct Slope {
  double Degrees, Radians;
  double Cos, Sin;
  double FlangeX, FlangeY;  // far end of the flange, mm of the page
  double LipX, LipY;        // end of its lip
};

Slope SlopeOf(const Sheet& sheet) {
  Slope slope{};
  slope.Degrees = Val(Trim(sheet.Section.Pitch));
  slope.Radians = DegToRad(slope.Degrees);
  slope.Cos = std::cos(slope.Radians);
  slope.Sin = std::sin(slope.Radians);
  slope.FlangeX = SectionX(sheet, slope.Cos * sheet.Dim.Dim4);
  slope.FlangeY = SectionY(-slope.Sin * sheet.Dim.Dim4);
  slope.LipX = slope.FlangeX + CrossScale * slope.Sin * sheet.Dim.Dim7;
  slope.LipY = SectionY(-slope.Sin * sheet.Dim.Dim4 + slope.Cos * sheet.Dim.Dim7);
  return slope;
}

// A dimension's value as it is measured and written along the slope, sizes in mm.
struct SlopedValue {
  std::string Text;
  double WidthTwips, HeightTwips;
  double Width, Height;
};

SlopedValue Measured(PrintSurface& surface, double value) {
  const std::string text = ShortestText(value);
  const double width = surface.TextWidth(text);
  const double height = surface.TextHeight(text);
  return {text, width, height, width / TwipsPerMm, height / TwipsPerMm};
}

// Turned about the top left corner of its white box, which stands at (x, y).
void DrawSlopedValue(PrintSurface& surface, const SlopedValue& value, const Slope& slope, double x,
                     double y) {
  surface.BrushStyle(Brush::Solid);
  surface.BrushColor(White);
  surface.PenColor(White);
  surface.TextAngle(Whole(10 * slope.Degrees));
  surface.TextBox(value.Text, Length::OfMm(x), Length::OfMm(y), value.WidthTwips, value.HeightTwips,
                  true);
  surface.TextAngle(0);
  surface.PenColor(Black);
}

// Of the lip, set off along the slope.
void DrawLipDimension(const Sheet& sheet, const Slope& slope) {
  const double c = slope.Cos;
  const double n = slope.Sin;
  const Point first{slope.FlangeX + 5 * c, slope.FlangeY - 5 * n};
  const Point second{slope.LipX + 5 * c, slope.LipY - 5 * n};
  const std::initializer_list<PageLine> lines = {
      // clang-format off
      {slope.LipX + 2 * c,    slope.LipY - 2 * n,    slope.LipX + 7 * c,    slope.LipY - 7 * n},
      {slope.FlangeX + 2 * c, slope.FlangeY - 2 * n, slope.FlangeX + 7 * c, slope.FlangeY - 7 * n},
      {first.X,               first.Y,               second.X,              second.Y},
      // clang-format on
  };
  DrawPageLines(sheet.Surface, lines);
  DrawArrowHead(sheet.Surface, HalfPi, first.X, first.Y);
  DrawArrowHead(sheet.Surface, ThreeHalfPi, second.X, second.Y);

  const SlopedValue value = Measured(sheet.Surface, sheet.Dim.Dim7);
  const double e = value.Width / 2;
  const double f = (CrossScale * sheet.Dim.Dim7 - value.Height) / 2;
  DrawSlopedValue(sheet.Surface, value, slope, first.X - c * e + n * f, first.Y + c * f + n * e);
}

// Of the flange, above it.
void DrawFlangeDimension(const Sheet& sheet, const Slope& slope) {
  const double c = slope.Cos;
  const double n = slope.Sin;
  const double left = sheet.SectionViewLeft;
  const Point first{left - 5 * n, ViewTop - 5 * c};
  const Point second{slope.FlangeX - 5 * n, slope.FlangeY - 5 * c};
  const std::initializer_list<PageLine> lines = {
      // clang-format off
      {left - 2 * n,          ViewTop - 2 * c,       left - 7 * n,          ViewTop - 7 * c},
      {slope.FlangeX - 2 * n, slope.FlangeY - 2 * c, slope.FlangeX - 7 * n, slope.FlangeY - 7 * c},
      {first.X,               first.Y,               second.X,              second.Y},
      // clang-format on
  };
  DrawPageLines(sheet.Surface, lines);
  DrawArrowHead(sheet.Surface, slope.Radians + Pi, first.X, first.Y);
  DrawArrowHead(sheet.Surface, slope.Radians, second.X, second.Y);

  const SlopedValue value = Measured(sheet.Surface, sheet.Dim.Dim4);
  const double e = (CrossScale * sheet.Dim.Dim4 - value.Width) / 2;
  const double f = value.Height / 2;
  DrawSlopedValue(sheet.Surface, value, slope, first.X + c * e - n * f, first.Y - c * f - n * e);
}

// The roof's pitch over the flange.
void DrawPitch(const Sheet& sheet, const Slope& slope) {
  constexpr std::string_view degreeMark = "\xC2\xBA";  // a raised small o
  const double level = slope.FlangeY - 8;
  sheet.Surface.BrushStyle(Brush::Transparent);
  DrawPageLines(sheet.Surface,
                {
                    {sheet.SectionViewLeft, level, SectionX(sheet, sheet.Dim.Dim5), level},
                    {sheet.SectionViewLeft, level, slope.FlangeX,
                     slope.FlangeY - CrossScale * slope.Sin * sheet.Dim.Dim4 - 8},
                });
  sheet.Surface.DrawArc(Length::OfMm(sheet.SectionViewLeft), Length::OfMm(level), Length::OfMm(4),
                        0, slope.Radians);
  DrawCentredText(sheet.Surface, std::string(Trim(sheet.Section.Pitch)).append(degreeMark),
                  slope.FlangeX + 1.5, slope.FlangeY - 9.5);
}

}  // namespace

void DrawZViews(const Sheet& sheet) {
  const SectionDim& dim = sheet.Dim;
  const double web = SectionX(sheet, dim.Dim5);
  const std::array<SectionEdge, 5> edges = ZEdges(dim);
  for (std::size_t at = 0; at < edges.size(); ++at) {
    DrawSectionEdge(sheet, edges.at(at));
    // Closes the upper extension of the web's dimension, over the room of the bottom flange.
    if (at == ZWeb) DrawLineMm(sheet.Surface, sheet.SectionViewLeft - 7, ViewTop, web - 2, ViewTop);
  }

  PenWidthMm(sheet.Surface, ThinPen);
  const double x = SectionX(sheet, dim.Dim5 + dim.Dim4) + 10;
  DrawGaugeColumn(sheet, x, {x - 3, web - 2, web - 2, web + 2}, x + 2);

  DrawElevation(sheet, ViewTop, sheet.Bottom, {SectionY(dim.Dim7)});
  // The lower lip lies on the far side, so that its line is hidden.
  const double hidden = SectionY(sheet.Depth - dim.Dim8) * TwipsPerMm;
  PenWidthMm(sheet.Surface, ThinPen);
  DrawDashedLine(sheet.Surface, sheet.ElevationLeft * TwipsPerMm, hidden,
                 ElevationX(sheet, sheet.Length) * TwipsPerMm, hidden, WholeTwips(1).Twips(),
                 sheet.Source.Tell);
  DrawLengthDimension(sheet, sheet.Length, ViewTop);
}

void DrawCViews(const Sheet& sheet) {
  const SectionDim& dim = sheet.Dim;
  for (const SectionEdge& edge : CEdges(dim)) DrawSectionEdge(sheet, edge);

  PenWidthMm(sheet.Surface, ThinPen);
  DrawChannelGauges(sheet);
  DrawPageLines(
      sheet.Surface,
      {
          {SectionX(sheet, 0), FlangeBand.Top, SectionX(sheet, 0), FlangeBand.Bottom},
          {SectionX(sheet, dim.Dim4), FlangeBand.Top, SectionX(sheet, dim.Dim4), FlangeBand.Bottom},
          {SectionX(sheet, dim.Dim4 / 2), FlangeBand.Top, SectionX(sheet, dim.Dim4 / 2),
           FlangeCentreEnd},
      });
  DrawHalvedFlange(sheet, dim.Dim4, FlangeBand.Row);

  DrawElevation(sheet, ViewTop, sheet.Bottom,
                {SectionY(dim.Dim7), SectionY(sheet.Depth - dim.Dim8)});
  DrawLengthDimension(sheet, sheet.Length, ViewTop);
}

void DrawEavesViews(const Sheet& sheet) {
  const SectionDim& dim = sheet.Dim;
  const Slope slope = SlopeOf(sheet);
  const double depth = sheet.Depth;
  const double flangeX = slope.Cos * dim.Dim4;
  const double flangeY = -slope.Sin * dim.Dim4;
  const double lipX = flangeX + slope.Sin * dim.Dim7;
  const double lipY = flangeY + slope.Cos * dim.Dim7;
  const SectionEdge edges[] = {
      // clang-format off
      // from                         to                  side   offset  value
      {flangeX, flangeY,              lipX, lipY,         None,  0,      0},
      {0, 0,                          flangeX, flangeY,   None,  0,      0},
      {0, 0,                          0, depth,           Left,  0,      depth},
      {0, depth,                      dim.Dim5, depth,    None,  0,      0},
      {dim.Dim5, depth - dim.Dim8,    dim.Dim5, depth,    Right, 0,      dim.Dim8},
      // clang-format on
  };
  for (const SectionEdge& edge : edges) DrawSectionEdge(sheet, edge);

  PenWidthMm(sheet.Surface, ThinPen);
  DrawChannelGauges(sheet);
  DrawLipDimension(sheet, slope);
  DrawFlangeDimension(sheet, slope);
  const double below = sheet.Bottom;
  DrawPageLines(sheet.Surface, {
                                   {SectionX(sheet, 0), below + ChainBand.Top, SectionX(sheet, 0),
                                    below + ChainBand.Bottom},
                                   {SectionX(sheet, dim.Dim5), below + ChainBand.Top,
                                    SectionX(sheet, dim.Dim5), below + ChainBand.Bottom},
                                   {SectionX(sheet, dim.Dim5 / 2), below - 2,
                                    SectionX(sheet, dim.Dim5 / 2), below + ChainBand.Bottom},
                               });
  DrawHalvedFlange(sheet, dim.Dim5, below + ChainBand.Row);
  if (slope.Degrees > 0) DrawPitch(sheet, slope);

  DrawElevation(sheet, slope.FlangeY, sheet.Bottom, {slope.LipY, SectionY(depth - dim.Dim8)});
  DrawLengthDimension(sheet, sheet.Length, slope.FlangeY);
}

void DrawVViews(const Sheet& sheet) {
  const SectionDim& dim = sheet.Dim;
  const double depth = sheet.Depth;
  const SectionEdge edges[] = {
      // clang-format off
      // from              to                           side    offset  value
      {0, 0,               dim.Dim7, 0,                 Top,    0,      dim.Dim7},
      {0, 0,               0, dim.Dim4,                 Left,   7,      dim.Dim4},
      {0, dim.Dim4,        depth, dim.Dim4,             Bottom, 0,      depth},
      {depth, dim.Dim4,    depth, dim.Dim4 - dim.Dim8,  Right,  0,      dim.Dim8},
      // clang-format on
  };
  for (const SectionEdge& edge : edges) DrawSectionEdge(sheet, edge);

  PenWidthMm(sheet.Surface, ThinPen);
  const double x = sheet.SectionViewLeft - 5;
  const double start = sheet.SectionViewLeft - 1;
  DrawGaugeColumn(sheet, x, {start, start, start, start}, x);

  DrawElevation(sheet, ViewTop, sheet.Bottom, {});
  const Length lip = WholeTwips(SectionY(dim.Dim4 - dim.Dim8));
  sheet.Surface.DrawLine(WholeTwips(sheet.ElevationLeft), lip,
                         WholeTwips(ElevationX(sheet, sheet.Length)), lip);
  DrawLengthDimension(sheet, sheet.Length, ViewTop);
}

void DrawRailViews(const Sheet& sheet) {
  const SectionDim& dim = sheet.Dim;
  const double depth = sheet.Depth;
  const SectionEdge edges[] = {
      // clang-format off
      // from          to                  side    offset                  value
      {dim.Dim5, 0,    dim.Dim5, depth,    Left,   CrossScale * dim.Dim5,  depth},
      {0, depth,       dim.Dim5, depth,    Bottom, 0,                      dim.Dim5},
      // clang-format on
  };
  for (const SectionEdge& edge : edges) DrawSectionEdge(sheet, edge);

  PenWidthMm(sheet.Surface, ThinPen);
  const double web = SectionX(sheet, dim.Dim5);
  const double x = web + 5;
  const double row = SectionY(depth - dim.Dim11);
  DrawPageLines(sheet.Surface, {
                                   {sheet.SectionViewLeft - 2, ViewTop, web - 2, ViewTop},
                                   {web - 2, row, x + 2, row},
                                   {web + 2, sheet.Bottom, x + 2, sheet.Bottom},
                               });
  DrawDimension(sheet.Surface, x, row, x, sheet.Bottom, dim.Dim11);

  DrawElevation(sheet, ViewTop, sheet.Bottom, {});
  DrawLengthDimension(sheet, sheet.Length, ViewTop);

  const std::shared_ptr<const Picture> detail = sheet.Source.LoadPicture("\\drawings\\drg015.wmf");
  const double proportion = Divide(detail->Width, detail->Height);
  const double left = RailDetail.Left + Nearest((sheet.PageWidth - RailDetailPage) / 2);
  sheet.Surface.DrawPicture(detail, Length::OfMm(left), Length::OfMm(RailDetail.Top),
                            Length::OfMm(RailDetail.Width),
                            Length::OfMm(Divide(RailDetail.Width, proportion)));
}

void DrawTopHatViews(const Sheet& sheet) {
  const SectionDim& dim = sheet.Dim;
  const double reach = dim.Dim4;
  const double rise = TopHatLean() * reach;  // of a sloping side
  const double crown = rise + dim.Dim7;      // its upper end, from the top
  const double foot = crown + dim.Dim3;      // its lower end
  const double overall = 2 * crown + dim.Dim3;
  const SectionEdge edges[] = {
      // clang-format off
      // from                 to                    side   offset  value
      {reach, 0,              reach, dim.Dim7,      None,  0,      0},
      {0, crown,              reach, dim.Dim7,      None,  0,      0},
      {0, crown,              0, foot,              Left,  0,      dim.Dim3},
      {0, foot,               reach, rise + foot,   None,  0,      0},
      {reach, rise + foot,    reach, overall,       None,  0,      0},
      // clang-format on
  };
  for (const SectionEdge& edge : edges) DrawSectionEdge(sheet, edge);

  PenWidthMm(sheet.Surface, ThinPen);
  const double right = SectionX(sheet, reach);
  DrawPageLines(sheet.Surface,
                {
                    {SectionX(sheet, 0), FlangeBand.Top, SectionX(sheet, 0), SectionY(dim.Dim7)},
                    {right, FlangeBand.Top, right, FlangeBand.Bottom},
                });
  DrawDimension(sheet.Surface, SectionX(sheet, 0), FlangeBand.Row, right, FlangeBand.Row, reach);

  const double x = right + 5;
  const double upper = SectionY(dim.Dim9);
  const double lower = SectionY(sheet.Depth - dim.Dim9);
  DrawPageLines(sheet.Surface, {
                                   {right + 2, ViewTop, right + 7, ViewTop},
                                   {right - 2, upper, right + 7, upper},
                               });
  DrawDimension(sheet.Surface, x, ViewTop, x, upper, dim.Dim9);
  DrawPageLines(sheet.Surface, {
                                   {right - 2, lower, right + 7, lower},
                                   {right + 2, sheet.Bottom, right + 7, sheet.Bottom},
                               });
  DrawDimension(sheet.Surface, x, lower, x, sheet.Bottom, dim.Dim9);

  // Hole centres: a tick of 5 mm square across the middle of each sloping side.
  const double tickX = 2.5 * std::sin(DegToRad(10));
  const double tickY = 2.5 * std::cos(DegToRad(10));
  const double middle = SectionX(sheet, reach / 2);
  const double upperSide = SectionY(rise / 2 + dim.Dim7);
  const double lowerSide = SectionY(1.5 * rise + dim.Dim7 + dim.Dim3);
  DrawPageLines(sheet.Surface,
                {
                    {middle - tickX, upperSide - tickY, middle + tickX, upperSide + tickY},
                    {middle + tickX, lowerSide - tickY, middle - tickX, lowerSide + tickY},
                });

  // The last line is the lower lip's own, from the catalogue. The view beside it takes the upper
  // lip for both, since the two hardly differ at its scale.
  DrawElevation(
      sheet, ViewTop, SectionY(overall),
      {SectionY(dim.Dim7), SectionY(crown), SectionY(foot), SectionY(overall - dim.Dim8)});
  DrawLengthDimension(sheet, sheet.Length, ViewTop);
}

void DrawKeyEdges(const Sheet& sheet) {
  const KeyEdges* edges = FactOf(EdgesOfKeys, sheet.Section.SectionType);
  if (edges == nullptr || *edges == nullptr) return;
  for (const SectionEdge& edge : (*edges)(sheet.Dim)) {
    DrawKeyEdge(sheet, edge.X1, edge.Y1, edge.X2, edge.Y2);
  }
}

}  // namespace orvane
