#include "drawing/table_grid.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "drawing/text_flow.h"

namespace orvane {

namespace {

double NumberOf(const TableValue& value) {
  if (const auto* number = std::get_if<int>(&value)) return *number;
  if (const auto* text = std::get_if<std::string>(&value)) return ParseDouble(*text);
  throw RuntimeError(Failure::TypeMismatch);
}

// A bare number means twips here too.
// Heights and widths below 0 are taken as 0.
double SizeOf(const TableValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  const Length length = text ? Length(*text) : Length(NumberOf(value));
  return std::max(length.Mm(), 0.0);
}

std::string TextOf(const TableValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return OneLine(*text);
  if (const auto* number = std::get_if<int>(&value)) return DecimalText(*number);
  throw RuntimeError(Failure::TypeMismatch);
}

Rgb ColorOf(const TableValue& value) {
  if (const auto* color = std::get_if<Rgb>(&value)) return *color;
  throw RuntimeError(Failure::TypeMismatch);
}

int CountOf(const TableValue& value) {
  return std::max<int>(Whole(NumberOf(value)), 0);
}

// Rows or columns from the first up to, not including, the last.
struct Range {
  std::size_t First = 0;
  std::size_t Last = 0;
};

Range RangeOf(int number, std::size_t count) {
  if (number == 0) return {0, count};
  const auto at = static_cast<std::size_t>(number);
  if (number < 0 || at > count) throw RuntimeError(Failure::SubscriptOutOfRange);
  return {at - 1, at};
}

// The columns side by side, those without a width in equal shares of what is left.
void SpreadColumns(TableGrid& grid, double left, double room) {
  double taken = 0;
  int open = 0;
  for (const GridColumn& column : grid.Columns) {
    if (column.Width < 0) ++open;
    taken += std::max(column.Width, 0.0);
  }
  double at = left;
  for (GridColumn& column : grid.Columns) {
    if (column.Width < 0) column.Width = std::max(room - taken, 0.0) / open;
    column.Left = at;
    at += column.Width;
  }
  grid.Right = at;
}

// Each merged cell ends at the latest where the next one or the row ends.
void JoinCells(TableGrid& grid) {
  const std::size_t columns = grid.Columns.size();
  for (std::size_t row = 0; row < grid.Rows.size(); ++row) {
    GridCell* cells = grid.Cells.data() + row * columns;
    for (std::size_t column = 0; column < columns; ++column) {
      const auto wanted = std::min(column + static_cast<std::size_t>(cells[column].Span), columns);
      std::size_t next = column + 1;
      while (next < wanted && !cells[next].Merged) cells[next++].Span = 0;
      cells[column].Span = static_cast<int>(next - column);
      column = next - 1;
    }
  }
}

}  // namespace

void TableSettings::Forget() {
  rows_ = 0;
  columns_ = 0;
  entries_.clear();
}

void TableSettings::Set(TableSetting setting, int row, int column, const TableValue& value) {
  Entry entry;
  entry.Row = row;
  entry.Column = column;
  switch (setting) {
    case TableSetting::Rows:
      rows_ = CountOf(value);
      return;
    case TableSetting::Columns:
      columns_ = CountOf(value);
      return;
    case TableSetting::RowHeight:
      entry.What = Kind::RowHeight;
      entry.Number = SizeOf(value);
      break;
    case TableSetting::RuleAbove:
      entry.What = Kind::RuleAbove;
      entry.Number = SizeOf(value);
      break;
    case TableSetting::RuleBelow:
      entry.What = Kind::RuleBelow;
      entry.Number = SizeOf(value);
      break;
    case TableSetting::ColumnWidth:
      entry.What = Kind::ColumnWidth;
      entry.Number = SizeOf(value);
      break;
    case TableSetting::CellText:
      entry.What = Kind::CellText;
      entry.Text = TextOf(value);
      break;
    case TableSetting::CellTextColor:
      entry.What = Kind::CellTextColor;
      entry.Color = ColorOf(value);
      break;
    case TableSetting::FontSize:
      entry.What = Kind::FontSize;
      entry.Number = NumberOf(value);
      break;
    case TableSetting::Bold:
      entry.What = Kind::Bold;
      entry.Number = NumberOf(value);
      break;
  }
  entries_.push_back(std::move(entry));
}

void TableSettings::SetAlignment(int row, int column, CellAlignment alignment) {
  Entry entry;
  entry.What = Kind::Alignment;
  entry.Row = row;
  entry.Column = column;
  entry.Alignment = alignment;
  entries_.push_back(std::move(entry));
}

void TableSettings::SetMerge(int row, int column, int columns) {
  Entry entry;
  entry.What = Kind::Merge;
  entry.Row = row;
  entry.Column = column;
  entry.Span = std::max(columns, 1);
  entries_.push_back(std::move(entry));
}

void TableSettings::Apply(Entry& entry, TableGrid& grid) {
  const bool ofRow = entry.What == Kind::RowHeight || entry.What == Kind::RuleAbove ||
                     entry.What == Kind::RuleBelow;
  const bool ofColumn = entry.What == Kind::ColumnWidth;
  const Range rows = RangeOf(ofColumn ? 0 : entry.Row, grid.Rows.size());
  const Range columns = RangeOf(ofRow ? 0 : entry.Column, grid.Columns.size());
  if (ofRow) {
    for (std::size_t row = rows.First; row < rows.Last; ++row) {
      GridRow& target = grid.Rows[row];
      if (entry.What == Kind::RowHeight) target.Height = entry.Number;
      if (entry.What == Kind::RuleAbove) target.RuleAbove = entry.Number;
      if (entry.What == Kind::RuleBelow) target.RuleBelow = entry.Number;
    }
    return;
  }
  if (ofColumn) {
    for (std::size_t column = columns.First; column < columns.Last; ++column) {
      grid.Columns[column].Width = entry.Number;
    }
    return;
  }
  const bool one = rows.Last - rows.First == 1 && columns.Last - columns.First == 1;
  for (std::size_t row = rows.First; row < rows.Last; ++row) {
    for (std::size_t column = columns.First; column < columns.Last; ++column) {
      GridCell& cell = grid.Cells[row * grid.Columns.size() + column];
      if (entry.What == Kind::CellText) cell.Text = one ? std::move(entry.Text) : entry.Text;
      if (entry.What == Kind::CellTextColor) cell.Color = entry.Color;
      if (entry.What == Kind::FontSize) cell.Type.Size = entry.Number;
      if (entry.What == Kind::Bold) cell.Type.Bold = entry.Number != 0;
      if (entry.What == Kind::Alignment) cell.Alignment = entry.Alignment;
      if (entry.What == Kind::Merge) {
        cell.Span = entry.Span;
        cell.Merged = true;
        cell.Alignment = CellAlignment::Centre;
      }
    }
  }
}

TableGrid TableSettings::Grid(const Font& font, Rgb color, double left, double room) {
  TableGrid grid;
  grid.Rows.resize(static_cast<std::size_t>(rows_));
  grid.Columns.resize(static_cast<std::size_t>(columns_));
  GridCell cell;
  cell.Type = font;
  cell.Color = color;
  grid.Cells.resize(grid.Rows.size() * grid.Columns.size(), cell);
  // Merged cells first: an alignment of their own holds, whenever it was given.
  for (const bool merges : {true, false}) {
    for (Entry& entry : entries_) {
      if ((entry.What == Kind::Merge) == merges) Apply(entry, grid);
    }
  }
  SpreadColumns(grid, left, room);
  JoinCells(grid);
  return grid;
}

}  // namespace orvane
