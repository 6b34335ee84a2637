// Which holes are off the standard gauges, and where the sheet has their key and their table.
#pragma once

#include <string_view>

#include "core/model.h"
#include "drawing/print_surface.h"
#include "drawing/sheet.h"

namespace orvane {

constexpr double OffGaugeColumnWidth = 15;  // of the table, mm
constexpr double OffGaugeRowHeight = 5;

// True if the hole has a distance on a flange or the first web row.
bool IsOffGauge(const Hole& hole);

// The origin of the small cross-section that is the key, mm of the page.
Point KeyOrigin(const Sheet& sheet);

// The left edge of a table of that many letters in one piece, mm of the page: with many of them it
// is left of the paper.
double OffGaugeTableLeft(const Sheet& sheet, int letters);

// The rows of the table: the letters, "w", "b" and, but for an eaves beam, "t".
int OffGaugeRows(std::string_view sectionType);

// What the table has for room: it stands clear of the text block and of the key, and where it takes
// more than one part, of the list of slots.
SheetRoom OffGaugeRoom(const Sheet& sheet);

// Where a table of that many letters, or its first part, begins when it stands in that room, mm of
// the page.
double OffGaugeStart(const Sheet& sheet, int letters);

// Where the text block has to end for what a section has off gauge: the left edge of the table, or
// the right margin for a section without such holes.
double OffGaugeLeft(const Sheet& sheet);

}  // namespace orvane
