// A table's settings, and the rows, columns and cells that they come to.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "drawing/document.h"
#include "drawing/font_metrics.h"
#include "drawing/print_surface.h"

namespace orvane {

struct GridRow {
  double Height = 0;     // mm; 0 for a row that grows with its texts
  double RuleAbove = 0;  // widths, mm; 0 for none
  double RuleBelow = 0;
};

struct GridColumn {
  double Width = -1;  // mm; negative for one that was given none
  double Left = 0;    // mm on the page
};

struct GridCell {
  std::string Text;  // one line
  Font Type;
  Rgb Color;
  CellAlignment Alignment = CellAlignment::Left;
  int Span = 1;         // columns that it takes in; 0 for a cell that another one has taken in
  bool Merged = false;  // a merge begins here, if only over one column
};

struct TableGrid {
  std::vector<GridRow> Rows;  // counted from 0 here
  std::vector<GridColumn> Columns;
  std::vector<GridCell> Cells;  // row by row
  double Right = 0;             // mm on the page

  const GridCell& At(std::size_t row, std::size_t column) const {
    return Cells.at(row * Columns.size() + column);
  }
  double RightOf(std::size_t column) const {
    return Columns.at(column).Left + Columns.at(column).Width;
  }
  // Width of a cell with those that it takes in.
  double WidthOf(std::size_t row, std::size_t column) const {
    const auto span = static_cast<std::size_t>(At(row, column).Span);
    return RightOf(column + span - 1) - Columns.at(column).Left;
  }
};

// Settings in the order in which they were given; a row or column of 0 means all of them.
class TableSettings {
 public:
  void Forget();

  // "Type mismatch" for a value that the setting can't have.
  void Set(TableSetting setting, int row, int column, const TableValue& value);
  void SetAlignment(int row, int column, CellAlignment alignment);
  // The cell takes in the ones right of it, as far as the table and the next merged cell allow; its
  // text is centred unless it is aligned otherwise.
  void SetMerge(int row, int column, int columns);

  // The table that they make, from `left` to the right; a column that was given no width shares
  // what the others leave of `room`. The cells have that font and colour where they were given
  // none. A row or column that the table doesn't have raises "Subscript out of range".
  TableGrid Grid(const Font& font, Rgb color, double left, double room);

 private:
  enum class Kind {
    RowHeight,
    RuleAbove,
    RuleBelow,
    ColumnWidth,
    CellText,
    CellTextColor,
    FontSize,
    Bold,
    Alignment,
    Merge
  };

  struct Entry {
    Kind What = Kind::CellText;
    int Row = 0;
    int Column = 0;
    double Number = 0;  // lengths in mm
    std::string Text;
    Rgb Color;
    CellAlignment Alignment = CellAlignment::Left;
    int Span = 1;
  };

  static void Apply(Entry& entry, TableGrid& grid);

  int rows_ = 0;
  int columns_ = 0;
  std::vector<Entry> entries_;
};

}  // namespace orvane
