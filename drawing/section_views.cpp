#include "drawing/section_views.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"
#include "drawing/drawing_state.h"
#include "drawing/elevation.h"
#include "drawing/notches_and_mitres.h"
#include "drawing/primitives.h"
#include "drawing/section_view_parts.h"

namespace orvane {

namespace {

struct FamilyViews {
  std::string_view Letter;
  void (*Draw)(const SectionView& view);
};

constexpr FamilyViews Families[] = {
    {"Z", DrawZViews}, {"C", DrawCViews},    {"E", DrawEavesViews},
    {"V", DrawVViews}, {"R", DrawRailViews}, {"T", DrawTopHatViews},
};

void SetDrawingState(const PrintSurface& surface, double length) {
  SectionViewLeft = LeftMargin + SectionViewInset;
  ElevationLeft = LeftMargin + ElevationInset;
  DrawingWidth = DrawingWidthOf(surface.PageWidth());
  LengthScale = LengthScaleOf(DrawingWidth, length);
}

// What the sheet tells of the section in words, from the top of the page down.
void DrawTextBlock(PrintSurface& surface, const Item& item, const SectionDim& dim) {
  struct Entry {
    std::string_view Label;
    std::string Value;
    double ValueInset;  // from the left margin, mm
  };
  std::vector<Entry> entries = {
      {"Mark:  ", item.Mark, 25},
      {"No. Off:  ", ShortestText(item.Quantity), 25},
      {"Section:  ", dim.Product, 25},
  };
  const std::string_view notes = Trim(item.Notes);
  if (!notes.empty()) entries.push_back({"Notes:  ", std::string(notes), 25});
  if (item.SectionType == "R") {
    entries.push_back({"No. Req'd Jointing Piece:  ", ShortestText(item.JointingPieces), 55});
  }

  surface.PenColor(Black);
  surface.FontName("Arial");
  surface.FontSize(12);
  double y = TopMargin + 15;
  for (const Entry& entry : entries) {
    WriteTextAt(surface, entry.Label, LeftMargin + 5, y);
    surface.CurrentX(Length::OfMm(LeftMargin + entry.ValueInset));
    surface.Text(entry.Value);
    y += 5;
  }
  surface.FontSize(7);  // of every dimension on the sheet
}

}  // namespace

double DrawnDepth(std::string_view sectionType, const SectionDim& dim) {
  if (sectionType != "T") return dim.Dim3;
  return dim.Dim7 + dim.Dim3 + dim.Dim8 + 2 * TopHatLean() * dim.Dim4;
}

double ViewBottom(std::string_view sectionType, const SectionDim& dim) {
  return SectionY(sectionType == "V" ? dim.Dim4 : DrawnDepth(sectionType, dim));
}

void DrawSectionViews(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim,
                      double length) {
  if (!(dim.Dim3 > 0) || !(length > 0)) return;
  const Item& item = Items.At(ItemIndex);
  SetDrawingState(surface, length);
  DrawTextBlock(surface, item, dim);
  const SectionView view{surface,
                         dim,
                         item.Pitch,
                         length,
                         DrawnDepth(item.SectionType, dim),
                         ViewBottom(item.SectionType, dim)};
  for (const FamilyViews& family : Families) {
    if (family.Letter == item.SectionType) family.Draw(view);
  }
  DrawNotchesAndMitres(surface, ItemIndex, dim, length);
}

void DrawSectionEdge(PrintSurface& surface, double x1, double y1, double x2, double y2,
                     EdgeSide side, double offset, double value) {
  const double left = SectionX(x1);
  const double right = SectionX(x2);
  const double top = SectionY(y1);
  const double bottom = SectionY(y2);
  PenWidthMm(surface, ObjectPen);
  DrawLineMm(surface, left, top, right, bottom);

  PenWidthMm(surface, ThinPen);
  if (side == EdgeSide::None) return;
  const double outward = side == EdgeSide::Left || side == EdgeSide::Top ? -1 : 1;
  // The dimension's first end is the top or left one, whichever way the edge runs.
  if (side == EdgeSide::Left || side == EdgeSide::Right) {
    const double outer = left + outward * (offset + 7);
    const double inner = left + outward * (offset + 2);
    const double x = left + outward * (offset + 5);
    DrawLineMm(surface, outer, top, inner, top);
    DrawLineMm(surface, outer, bottom, inner, bottom);
    DrawDimension(surface, x, std::min(top, bottom), x, std::max(top, bottom), value);
  } else {
    const double outer = top + outward * (offset + 8);
    const double inner = top + outward * (offset + 2);
    const double y = top + outward * (offset + 6);
    DrawLineMm(surface, left, outer, left, inner);
    DrawLineMm(surface, right, outer, right, inner);
    DrawDimension(surface, std::min(left, right), y, std::max(left, right), y, value);
  }
}

void DrawKeyEdge(PrintSurface& surface, double x1, double y1, double x2, double y2) {
  const Point origin = KeyOrigin(surface);
  PenWidthMm(surface, ObjectPen);
  DrawLineMm(surface, origin.X + CrossScale * x1, origin.Y + CrossScale * y1,
             origin.X + CrossScale * x2, origin.Y + CrossScale * y2);
}

Point KeyOrigin(PrintSurface& surface) {
  return {surface.PageWidth() / TwipsPerMm - RightMargin - 20, TopMargin + 20.0};
}

void DrawLengthDimension(PrintSurface& surface, double length, double baseY) {
  const double right = ElevationX(length);
  PenWidthMm(surface, ThinPen);
  DrawPageLines(surface, {
                             {ElevationLeft, baseY - 26, ElevationLeft, baseY - 2},
                             {right, baseY - 26, right, baseY - 2},
                         });
  DrawDimension(surface, ElevationLeft, baseY - 24, right, baseY - 24, length);
}

}  // namespace orvane
