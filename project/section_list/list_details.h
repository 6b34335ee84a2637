// What a list says of a section beside the grid's cells: punching, sag bars, pitch and mitres, by
// the rules of the detail panel and of the mitres. An empty text says nothing.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/model.h"
#include "project/section_list/planned_cell.h"

namespace orvane {

// Takes a text of the column, PunchingColumn or behind it, into a section that has its letter, and
// tells in the cell what became of it. The pattern goes before the sag bars, which are those of a
// pattern; its holes are not made. A pattern that isn't in the list is refused without the nearest
// names, whose search costs a long list more than all else.
void TakeDetail(Item& item, int column, std::string_view text, PlannedCell& cell);

// True when that pattern would take from the row of Items the holes that were placed by hand.
bool RemovesHolesByHand(std::int16_t ItemIndex, std::string_view patternText);

}  // namespace orvane
