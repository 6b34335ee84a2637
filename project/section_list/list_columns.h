// The columns of section lists: the cells of the sections grid under its own column numbers, and
// behind them what the detail panel and the mitres show of a section.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/model.h"
#include "project/rules/section_columns.h"

namespace orvane {

constexpr int PunchingColumn = 6;
constexpr int SagBarsColumn = 7;
constexpr int PitchColumn = 8;
constexpr int MitreLeftColumn = 9;
constexpr int MitreRightColumn = 10;

// Behind the last one. Column 0, the letter's, is in no list: the product tells the family.
constexpr int ListColumnsEnd = 11;

// What a list calls a column; "Subscript out of range" for one that isn't there.
std::string_view ListHeading(int column);

// What a list shows of a section: numbers in plain digits, mitres with one decimal place, the
// diameter of sag bars and nothing without them.
std::string ListText(const Item& item, int column);

// Gives a section all that a list may say of it.
void CopyListed(const Item& from, Item& to);
// A section of the same family with all that, without holes and notches, which no list holds.
Item ListedCopy(const Item& from);

// The column that a heading names, in any case, whatever blanks, points, underscores and dashes it
// has, and without what stands between brackets behind it, such as a unit: Mark, Product or
// Section, Length, Qty or Quantity or No. off, Notes or Remarks, Punching or Pattern, Sag bars,
// Pitch, Mitre left, Mitre right. 0 for any other text.
int ListColumnNamed(std::string_view heading);

// True for a heading that gives metres as its unit, "Length (m)".
bool IsInMetres(std::string_view heading);

}  // namespace orvane
