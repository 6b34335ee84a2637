#include "drawing/sheet_places.h"

#include <algorithm>

#include "core/catalogues.h"
#include "drawing/hole_drawing.h"
#include "drawing/notches_and_mitres.h"
#include "drawing/sheet_layout.h"
#include "drawing/sheet_source.h"

namespace orvane {

namespace {

// How far beyond an end something is still pointed at, mm of the page: what lies further off isn't
// on the paper.
constexpr double BeyondEnd = 5;

PagePlace PlaceOfStretch(const Sheet& sheet, double from, double to) {
  const auto x = [&](double along) {
    return std::clamp(ElevationX(sheet, along), sheet.ElevationLeft - BeyondEnd,
                      ElevationX(sheet, sheet.Length) + BeyondEnd);
  };
  return {x(std::min(from, to)), ViewTop, x(std::max(from, to)), sheet.Bottom};
}

}  // namespace

std::optional<PagePlace> PlaceOnSheet(const Sheet& sheet, const SheetThing& thing) {
  if (!HasViews(sheet)) return std::nullopt;
  if (thing.Hole > sheet.Section.Holes.UBound()) return std::nullopt;
  if (thing.Notch > sheet.Section.Notches.UBound()) return std::nullopt;
  if (thing.Hole > 0) return PlaceOfHole(sheet, thing.Hole, thing.Line);
  if (thing.Notch > 0) return PlaceOfNotch(sheet, sheet.Section.Notches.At(thing.Notch));
  return PlaceOfStretch(sheet, thing.From, thing.To);
}

std::optional<PagePlace> PlaceOnSheet(PrintSurface& surface, const PageMargins& margins,
                                      const Item& section, const SheetThing& thing) {
  const SectionDim dim = GetSectionDim(section.Product);
  SheetSource source;
  source.Margins = margins;
  return PlaceOnSheet(SheetOf(surface, source, section, dim, section.Length), thing);
}

}  // namespace orvane
