// What happens to the table of sections when one is added, duplicated, mirrored, sorted or deleted:
// the table halves of the commands of the same name on the screen, each a change of its kind. Rows
// are rows of Items.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/model.h"

namespace orvane {

// The table half of AddSection: appends a blank row of that section letter, with the fixed product
// of its family if it has one, sets ProjectDirty and returns the new row.
std::int16_t AddSectionRow(std::string_view SectionType);

// Appends the section that comes behind another one in a list of marks, for a row of at least 1,
// and returns the new row; 0 for a row below 1: of the same family, with its product, pattern, sag
// bars, pitch and length, a mark counted up to the first that no section bears, blanks at both ends
// apart, no quantity and no notes. A section without a mark, or with one that can't be counted up,
// gives none. Holes are the pattern's alone, which the look at the new row makes. Sets
// ProjectDirty.
std::int16_t NextSectionRow(std::int16_t ItemIndex);

// The table half of Duplicate, for a row of at least 1: appends a copy with "A" behind its mark,
// sorts its holes and adjusts their gaps, sets ProjectDirty and returns the new row; 0 for a row
// below 1. Gaps that can't be adjusted raise their error; the copy then stays appended, and
// ProjectDirty as it was.
std::int16_t DuplicateRow(std::int16_t ItemIndex);

// The table half of CreateOppHand, for a row of at least 1: appends the section turned end for end,
// with "X" behind its mark, sets ProjectDirty and returns the new row; 0 for a row below 1. An
// error leaves the row appended as far as it came, and ProjectDirty as it was.
std::int16_t CreateOppHandRow(std::int16_t ItemIndex);

// What these two make of a copy of a section, wherever it stands: without a serial, its holes
// sorted and their gaps adjusted. An error leaves the copy as far as it came.
void MakeDuplicate(Item& copy);
void MakeOppositeHand(const Item& source, Item& copy);

// True when pattern holes of the section stand otherwise than its pattern puts them, as they do in
// an opposite hand whose pattern isn't symmetric, until they are made afresh. False for row 0, and
// for a pattern that can't be made afresh.
bool ShowsMirroredPattern(std::int16_t ItemIndex);

// The table half of DeleteItem: takes the row out; those behind it move up by one. ProjectDirty
// stays: the grid, which has a row less then, sets it.
void DeleteItemRow(std::int16_t ItemIndex);

enum class SortKey { Mark = 1, Product = 2, Length = 3 };

// The table half of SortItems: sorts all rows by the key, texts by character code; rows of equal
// keys keep their order. "Sort by Section" is the product, whose name begins with its family's
// letters. Returns the row that each section stood in before, in the order in which they stand now.
// ProjectDirty stays: the grid sets it where one of its texts changes.
std::vector<int> SortItemRows(SortKey Key);

// The table half of NewProject: empties the sections, the accessory lines and the project details,
// sets every flag of AccUsed false (as many as the catalogues have accessories), CurrentItem 0,
// ProjectFileName empty and the project date to `today`. ProjectDirty stays; the command sets it
// last.
void NewProjectTables(const Date& today);

}  // namespace orvane
