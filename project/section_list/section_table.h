// Sections as a table of texts: for spreadsheets, by the clipboard and in list files.
#pragma once

#include <string>
#include <vector>

#include "core/csv.h"

namespace orvane {

// A heading row (Mark, Product, Length, Qty, Notes, Punching, Sag bars, Pitch, Mitre left, Mitre
// right) and one row for each of those rows of Items, in their order. A spreadsheet takes none of
// the texts for a formula (GuardedText). Holes placed by hand and notches are in no such table.
std::vector<CsvRow> SectionTable(const std::vector<int>& rows);

// All sections as the bytes of a list file: fields between commas, UTF-8 with a mark in front, by
// which spreadsheets know it.
std::string SectionListFile();

}  // namespace orvane
