// The columns of the sections grid, one table that everything about a column is read from: what it
// is called, how it is shown and edited, what a text does to the record, and what is refused. Rows
// are rows of Items.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/cell_edit.h"
#include "core/model.h"
#include "project/changes.h"

namespace orvane {

// The columns that something asks for by name. Column 0 is fixed.
constexpr int LetterColumn = 0;
constexpr int MarkColumn = 1;
constexpr int ProductColumn = 2;
constexpr int LengthColumn = 3;
constexpr int QuantityColumn = 4;
constexpr int NotesColumn = 5;

// Their number.
extern const int SectionColumns;

// Which side of its cell a column's text stands at.
enum class CellSide { Left, Right };

// A column's width as its share of all shares. It has no default, so that no column goes without.
struct WidthShare {
  explicit constexpr WidthShare(int share, int figures = 0) : Share(share), Figures(figures) {}
  int Share;
  int Figures;  // digits that the column has room for at least; 0 for a column of texts
};

// What became of a text.
enum class Typed {
  Taken,    // the record holds it
  Refused,  // the record keeps its value, and the cell is to show it again: a length beyond 16
            // bits, a product that isn't to be had
  Overflow  // a quantity beyond 16 bits: the same, and "Overflow" is to be shown
};

// True when another section than the one that is edited bears that mark, blanks at both ends apart.
using MarkInUse = std::function<bool(std::string_view mark)>;

struct SectionColumn {
  std::string_view Heading;
  WidthShare Width;
  CellSide Side;
  // What the column shows of a section, numbers in plain digits.
  std::string (*Text)(const Item& item);
  CellEdit Edit;
  // The sections whose cell is edited in that way, by their letter; none for all of them.
  bool (*EditedFor)(std::string_view SectionType);
  // The change that editing makes. There is one exactly if the column is edited.
  std::optional<ChangeKind> Kind;
  // Puts a text into the record. There is one exactly if the column is edited.
  Typed (*Take)(Item& item, std::string_view text);
  // Why the cell may not be left with that text; no procedure for a column that may always be left.
  std::optional<std::string> (*Refusal)(const Item& item, std::string_view text,
                                        const MarkInUse& inUse);
  // What a section lacks whose cell is empty, or 0; empty for a column that may stay so, and for
  // one whose refusal says it.
  std::string_view Missing;
};

// The row of a column, 0 to SectionColumns - 1; "Subscript out of range" beyond.
const SectionColumn& SectionColumnAt(int column);

// What the grid shows of a section in that column. Empty for a column or a row that isn't there:
// the grid may paint while the table changes under it.
std::string ItemText(std::int16_t ItemIndex, int column);

// How that cell is edited; not at all for a column or a row that isn't there.
CellEdit SectionCellEdit(std::int16_t ItemIndex, int column);

// True for a section whose product is chosen from a list: Z, E, C and T. VCR and cleader rails come
// in one only.
bool HasProductChoice(std::string_view SectionType);

// Takes a text typed into Mark, Length, Quantity or Notes into the record, as each key stroke does;
// a length or quantity by number prefix, rounded. Another column or row changes nothing and is
// Taken. These procedures name no change: whoever calls them makes it one of the column's kind.
Typed TakeTypedText(std::int16_t ItemIndex, int column, std::string_view text);

// Takes an entry chosen from the cell's list into the record. True if the record is another then; a
// cell without a list, and a text that the list doesn't have, change nothing.
bool TakeChosenText(std::int16_t ItemIndex, int column, std::string_view text);

// Gives a cell with a list back what it held before an entry was chosen: nothing, or a product that
// the catalogue doesn't have. Another column changes nothing.
void PutBackText(std::int16_t ItemIndex, int column, std::string_view text);

// Why a section can't go to the factory with what its cell holds: what the cell may not be left
// with, and what it may be left with as long as the section isn't finished, an empty mark, no
// product, a quantity of 0 or less. None for a cell that is in order, and for a column that isn't
// there.
std::optional<std::string> CellFault(const Item& item, int column, const MarkInUse& inUse);

// The refusal of a cell that is left, by the text of its editor; none if it may be left. Marks are
// compared with all other rows, blanks at both ends apart, and an empty one is no duplicate; a
// length must be above 0 and at most MaxDims of the section's family. Both look at the text, not at
// the record.
std::optional<std::string> CellRefusal(std::int16_t ItemIndex, int column, std::string_view text);

// A row of texts for a section, by column; what isn't there, and a row's missing end, isn't given.
using SectionTexts = std::vector<std::optional<std::string>>;

struct TakenCell {
  enum class Result {
    NotGiven,  // there was no text for it
    Same,      // the record holds it already
    Changed,   // the record holds it now
    Refused    // the record keeps its value
  };
  Result What = Result::NotGiven;
  std::string Reason;  // of a refusal
};

// What became of each cell, one for each column.
struct TakenRow {
  std::vector<TakenCell> Cells;
  bool IsRefused() const;  // a cell of it is
  bool IsChanged() const;  // a cell of it is
};

// Takes a row of texts into a section as if each was put into its cell and the cell left, with what
// the grid refuses and how it says so; but a cell that is refused keeps its former value. The
// letter isn't edited: the section must have its own before, since products and lengths go by it.
// `inUse` tells of the marks beside the section; it needn't stand in Items.
TakenRow TakeRow(Item& item, const SectionTexts& texts, const MarkInUse& inUse);

// The same for a row of Items, whose other rows hold the marks in use; "Subscript out of range" for
// a row that isn't there.
TakenRow TakeRow(std::int16_t ItemIndex, const SectionTexts& texts);

}  // namespace orvane
