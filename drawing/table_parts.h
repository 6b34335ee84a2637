// Tables that are wider than their room, in parts below one another.
#pragma once

#include <vector>

#include "drawing/print_surface.h"
#include "drawing/table_grid.h"

namespace orvane {

constexpr double TablePartGap = 2;  // mm between two parts

// The table as it is where it is no wider than its room. Else as many of its columns as have room,
// from the left side of the room on, where the table's title begins too, and the others in further
// parts below; each part has the first column, which tells what its rows are, and one other at
// least. Where the parts, from `top` mm down, are higher than the room, all of them are smaller,
// down to 60 %: in columns, rows and letters. Parts that are higher even so run on.
//
// A text over several columns stays in the part where it begins.
std::vector<TableGrid> TableParts(const TableGrid& grid, const SheetRoom& room, double top);

}  // namespace orvane
