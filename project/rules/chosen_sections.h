// What is done to several sections at once: the table halves of the commands on chosen rows, each
// one change and so one step. Rows are rows of Items in ascending order, each once and at least
// one; with a single row the commands are those of project/sections.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "project/changes.h"

namespace orvane {

// Takes the rows out in one pass; the others keep their order. `kind` is DeleteSections or
// CutSections. Returns the row that each section which stays stood in before.
std::vector<int> DeleteSectionRows(const std::vector<int>& rows, ChangeKind kind);

// Appends a copy of each, in their order, as DuplicateRow and CreateOppHandRow make them, and
// returns the first new row. All of them are made before one is appended: an error at one, such as
// gaps that can't be adjusted, adds none, and is raised with the section's name and that nothing
// was added. So is "Overflow" when the rows beyond have no number in 16 bits.
std::int16_t DuplicateSectionRows(const std::vector<int>& rows);
std::int16_t OppositeHandSectionRows(const std::vector<int>& rows);

// Turns the holes of each into ones placed by hand, and its pattern into "Custom". As with a single
// section an error, such as gaps that can't be adjusted, stops nothing: the holes are converted all
// the same. Returns a line for each such error, with the section's name, the later ones of many
// counted; empty for none.
std::string ConvertSectionRows(const std::vector<int>& rows);

}  // namespace orvane
