// Notches of a section as its table editor shows and stores them.
#pragma once

#include <cstdint>
#include <string>

#include "core/table.h"

namespace orvane {

// The codes that a notch can have, in the order of the list: T is the top flange, B the bottom
// flange, L and R the ends.
extern const Table<std::string> NotchCodes;

// Columns of the editor, counted from 0; column 0 marks the row.
constexpr int NotchCodeColumn = 1;
constexpr int NotchDepthColumn = 2;
constexpr int NotchWidthColumn = 3;
constexpr int NotchPositionColumn = 4;
constexpr int NotchColumns = 5;

// A row of texts, one for each column.
using NotchTexts = Table<std::string>;
NotchTexts BlankNotch();
// The text of a column, and its place to put one.
const std::string& NotchText(const NotchTexts& row, int column);
void SetNotchText(NotchTexts& row, int column, std::string text);

// The notches of a row of Items, one blank row when it has none.
Table<NotchTexts> NotchRows(std::int16_t ItemIndex);

// Replaces the notches of a row of Items by those rows that have a code, in their order. Nothing is
// refused: text that is no number counts as 0, a code may come twice. "Overflow" for a size beyond
// 32 bits; the section is left as it was then. One change, which leaves ProjectDirty as it is.
void StoreNotches(std::int16_t ItemIndex, const Table<NotchTexts>& rows);

}  // namespace orvane
