// What the sections grid shows of a section, what a text typed into it does to the record, and what
// is refused. Rows are rows of Items.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {

// Columns of the sections grid. Column 0 is fixed.
constexpr int LetterColumn = 0;
constexpr int MarkColumn = 1;
constexpr int ProductColumn = 2;
constexpr int LengthColumn = 3;
constexpr int QuantityColumn = 4;
constexpr int NotesColumn = 5;
constexpr int SectionColumns = 6;

// What the grid shows of a section in that column, numbers in plain digits. Empty for a column or a
// row that isn't there: the grid may paint while the table changes under it.
std::string ItemText(std::int16_t ItemIndex, int column);

// True for a section whose product is chosen from a list: Z, E, C and T. VCR and cleader rails come
// in one only.
bool HasProductChoice(std::string_view SectionType);

// What became of a typed text.
enum class Typed {
  Taken,    // the record holds it
  Refused,  // too large for a length: the record keeps its value, the cell is to show it again
  Overflow  // too large for a quantity: the same, and "Overflow" is to be shown
};

// Takes a text typed into Mark, Length, Quantity or Notes into the record, as each key stroke does;
// a length or quantity by number prefix, rounded. Another column or row changes nothing and is
// Taken. ProjectDirty stays; the grid, whose text has changed, sets it.
Typed TakeTypedText(std::int16_t ItemIndex, int column, std::string_view text);

// The refusal of a cell that is left, by the text of its editor; none if it may be left. Marks are
// compared with all other rows, blanks at both ends apart, and an empty one is no duplicate; a
// length must be above 0 and at most MaxDims of the section's family. Both look at the text, not at
// the record.
std::optional<std::string> CellRefusal(std::int16_t ItemIndex, int column, std::string_view text);

// The check at exit: asks whether to quit anyway when a section is shorter than its last hole; of
// several only the last is told. False if the user answers No. A hole at the very end is no fault.
bool CheckLength();

}  // namespace orvane
