#include "drawing/section_views.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "core/section_families.h"
#include "core/text.h"
#include "drawing/notches_and_mitres.h"
#include "drawing/off_gauge_place.h"
#include "drawing/primitives.h"
#include "drawing/section_view_parts.h"

namespace orvane {

namespace {

struct FamilyViews {
  void (*Draw)(const Sheet& sheet);
  bool TellsJointingPieces;  // in its block of text
};

constexpr PerFamily<FamilyViews> Views = {{
    {"Z", {DrawZViews, false}},
    {"E", {DrawEavesViews, false}},
    {"C", {DrawCViews, false}},
    {"V", {DrawVViews, false}},
    {"R", {DrawRailViews, true}},
    {"T", {DrawTopHatViews, false}},
}};
static_assert(NamesEachFamily(Views), "Views needs one row for each section family");

// What the sheet tells of the section in words, from the top of the page down.
void DrawTextBlock(const Sheet& sheet, const FamilyViews* family) {
  PrintSurface& surface = sheet.Surface;
  const Item& item = sheet.Section;
  const PageMargins& margins = sheet.Source.Margins;
  struct Entry {
    std::string_view Label;
    std::string Value;
    double Inset;  // of the value
  };
  std::vector<Entry> entries = {
      {"Mark:  ", item.Mark, ValueInset},
      {"No. Off:  ", ShortestText(item.Quantity), ValueInset},
      {"Section:  ", sheet.Dim.Product, ValueInset},
  };
  const std::string_view notes = Trim(item.Notes);
  if (!notes.empty()) entries.push_back({"Notes:  ", std::string(notes), ValueInset});
  if (family != nullptr && family->TellsJointingPieces) {
    entries.push_back(
        {"No. Req'd Jointing Piece:  ", ShortestText(item.JointingPieces), JointingValueInset});
  }

  surface.PenColor(Black);
  surface.FontName("Arial");
  surface.FontSize(12);
  const double right = OffGaugeLeft(sheet);
  const bool besideTable = right < sheet.PageWidth - margins.RightMargin;
  const SheetRoom room{.Right = besideTable ? right - TextGap : right};
  double y = margins.TopMargin + TextBlockDrop;
  for (const Entry& entry : entries) {
    WriteTextAt(surface, entry.Label, margins.LeftMargin + LabelInset, y);
    surface.CurrentX(Length::OfMm(margins.LeftMargin + entry.Inset));
    surface.Within(room);
    surface.Text(entry.Value);
    surface.Within({});
    y += TextBlockStep;
  }
  surface.FontSize(7);  // of every dimension on the sheet
}

}  // namespace

void DrawSectionViews(const Sheet& sheet) {
  if (!HasViews(sheet)) return;
  const FamilyViews* family = FactOf(Views, sheet.Section.SectionType);
  DrawTextBlock(sheet, family);
  if (family != nullptr) family->Draw(sheet);
  DrawNotchesAndMitres(sheet);
}

void DrawKeyEdge(const Sheet& sheet, double x1, double y1, double x2, double y2) {
  const Point origin = KeyOrigin(sheet);
  PenWidthMm(sheet.Surface, ObjectPen);
  DrawLineMm(sheet.Surface, origin.X + CrossScale * x1, origin.Y + CrossScale * y1,
             origin.X + CrossScale * x2, origin.Y + CrossScale * y2);
}

void DrawLengthDimension(const Sheet& sheet, double length, double baseY) {
  const double left = sheet.ElevationLeft;
  const double right = ElevationX(sheet, length);
  const double top = baseY - LengthBand.Top;
  const double row = baseY - LengthBand.Row;
  const double bottom = baseY - LengthBand.Bottom;
  PenWidthMm(sheet.Surface, ThinPen);
  DrawPageLines(sheet.Surface, {{left, top, left, bottom}, {right, top, right, bottom}});
  DrawDimension(sheet.Surface, left, row, right, row, length);
}

}  // namespace orvane
