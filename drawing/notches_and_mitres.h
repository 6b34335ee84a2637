// Mitred ends and notches on the elevation.
#pragma once

#include <optional>

#include "core/model.h"
#include "core/table.h"
#include "drawing/print_surface.h"
#include "drawing/sheet.h"

namespace orvane {

// Both, in the order in which the elevation shows them; called last by DrawSectionViews.
void DrawNotchesAndMitres(const Sheet& sheet);

// Where a notch is drawn; nothing for a code that isn't one.
std::optional<PagePlace> PlaceOfNotch(const Sheet& sheet, const Notch& notch);

void DrawMitreDimension(PrintSurface& surface, double x1, double x2, double value);

// A notch along the length: its position and its width, mm.
struct MiddleNotch {
  double Position = 0;
  double Width = 0;
};

void DrawNotchChain(const Sheet& sheet, Table<MiddleNotch> notches);

}  // namespace orvane
