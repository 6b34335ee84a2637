// The holes on the elevation, the chain of their dimensions, the legend and the list of slots.
#pragma once

#include <cstdint>

#include "core/model.h"
#include "drawing/print_surface.h"

namespace orvane {

// Everything about the holes of an item; called last by DrawSection. Draws nothing for a section
// without depth, length or holes.
void DrawHoles(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim);

// The marks of one hole row; returns the new running position, mm of the section.
double DrawHole(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim,
                double runningPosition, const Hole& hole);

// The dimension of the gap in front of a hole; returns the new label row.
std::int16_t DrawHoleGap(PrintSurface& surface, std::int16_t ItemIndex, const SectionDim& dim,
                         std::int16_t labelRow, double runningPosition, const Hole& hole);

bool IsOdd(std::int16_t number);

}  // namespace orvane
