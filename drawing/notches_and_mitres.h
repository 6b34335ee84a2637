// Mitred ends and notches on the elevation.
#pragma once

#include <cstdint>

#include "core/model.h"
#include "core/table.h"
#include "drawing/print_surface.h"

namespace orvane {

// Both, in the order in which the elevation shows them; called last by DrawSectionViews, whose
// drawing state it uses.
void DrawNotchesAndMitres(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim,
                          double length);

void DrawMitreDimension(PrintSurface& surface, double x1, double x2, double value);

// A notch along the length: its position and its width, mm.
struct MiddleNotch {
  double Position = 0;
  double Width = 0;
};

void DrawNotchChain(PrintSurface& surface, std::int16_t ItemIndex, Table<MiddleNotch> notches);

}  // namespace orvane
