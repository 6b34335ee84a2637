// Tables that are wider than their room, in parts below one another.
#pragma once

#include <vector>

#include "drawing/print_surface.h"
#include "drawing/table_grid.h"

namespace orvane {

constexpr double TablePartGap = 2;  // mm between two parts

// The table as it is where it is no wider than its room. Else it stands in as few parts as have
// room, each with as many of its columns as the others: the first up to the right side of the room,
// the others below its left edge. Each part has the first column, which tells what its rows are,
// and one other at least. Where the parts, from `top` mm down, are higher than the room, all of
// them are smaller, down to 60 %: in columns, rows and letters. If they are higher even so, columns
// get narrower, down to 35 %, and at last rows lower, down to 50 %, the least for such letters.
// Parts that are higher still run on.
//
// A text over several columns stays in the part where it begins.
std::vector<TableGrid> TableParts(const TableGrid& grid, const SheetRoom& room, double top);

}  // namespace orvane
