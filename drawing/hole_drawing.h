// The holes on the elevation, the chain of their dimensions, the legend and the list of slots.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/model.h"
#include "drawing/sheet.h"

namespace orvane {

// Everything about the holes of a section; called last by DrawSection. Draws nothing for a section
// without depth, length or holes.
void DrawHoles(Sheet& sheet);

// The marks of one hole row; returns the new running position, mm of the section.
double DrawHole(Sheet& sheet, double runningPosition, const Hole& hole);

// Where the marks of that row of the section's holes are drawn, or those of one line of it; nothing
// for a row without such a mark.
std::optional<PagePlace> PlaceOfHole(const Sheet& sheet, int row, std::string_view line = {});

// The dimension of the gap in front of a hole; returns the new label row.
std::int16_t DrawHoleGap(const Sheet& sheet, std::int16_t labelRow, double runningPosition,
                         const Hole& hole);

bool IsOdd(std::int16_t number);

}  // namespace orvane
