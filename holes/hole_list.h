// Keeps an item's list of holes: pattern holes removed and made afresh while custom holes survive,
// sorted by position, with true and drawn gaps. The procedures take the row of Items; those that
// make holes take a section itself too, for a copy of one that is only looked at.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/desktop.h"
#include "core/model.h"

namespace orvane {

// Keeps only the rows of kind "C", in their order; row 0 becomes blank.
void RemoveStandardHoles(std::int16_t ItemIndex);
void RemoveStandardHoles(Item& item);

// Sorts rows 1.. by XPos, ascending; rows of equal XPos keep their order, so that a pair of holes
// at one position keeps the order of its creation.
void SortHoles(std::int16_t ItemIndex);
void SortHoles(Item& item);

// Works out RelX and DrawGap of every hole, and makes row 0 the end sentinel: XPos is the item's
// length, RelX and DrawGap the gap to the right-hand end. Changes nothing for an item without holes
// or length, or before a section has been drawn (DrawingWidth 0). When short gaps must be widened
// and the gaps that should pay for it add up to 0, "Division by zero"; the widened gaps then stay.
void AdjustHoleSpacing(std::int16_t ItemIndex);
void AdjustHoleSpacing(Item& item);

// The sequence by which a section's holes are made afresh: RemoveStandardHoles, ExpandPattern,
// SortHoles, AdjustHoleSpacing. An error ends it and is raised.
void RebuildHoles(std::int16_t ItemIndex, std::string_view PatternName);
void RebuildHoles(Item& item, std::string_view PatternName);
// The same, but an error of a step is told, and the next goes on with the list as it then stands.
void RebuildHoles(std::int16_t ItemIndex, std::string_view PatternName, const Teller& tell);

// The table half of DeleteCustomHole: takes out the CustomRow-th hole of kind "C" and adjusts the
// gaps. Does nothing if either argument is below 1 or there is no such hole; true when a hole went.
bool DeleteCustomHoleRow(std::int16_t ItemIndex, int CustomRow);

// The table half of ConvertToCustom: all holes become custom ones. Does nothing if ItemIndex is
// below 1.
void ConvertHolesToCustom(std::int16_t ItemIndex);

// The table half of FillHoleGrid: what the hole grid shows, one row of nine texts for each hole of
// kind "C", in list order: Xpos, Rel X, BF, W1, W2, TF, Dia, Slot (empty for a round hole), C. Rel
// X counts from the previous hole of any kind.
Table<Table<std::string>> HoleGridRows(std::int16_t ItemIndex);

}  // namespace orvane
