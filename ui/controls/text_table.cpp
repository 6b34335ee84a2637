#include "ui/controls/text_table.h"

#include <algorithm>
#include <utility>

namespace orvane {

namespace {

constexpr int FirstTextColumn = 1;  // behind the one that marks the row

}  // namespace

// The rows.

TextRowsModel::TextRowsModel(std::vector<std::string> headings, TextRows rows, int firstColumn,
                             QObject* parent)
    : FlexGridModel(std::move(headings), parent),
      firstColumn_(firstColumn),
      rows_(std::move(rows)) {
  SetFixedColumns(1);
  for (Table<std::string>& row : rows_) row.Resize(BlankRow().UBound());
  if (rows_.Empty()) rows_.Append(BlankRow());
}

std::string TextRowsModel::CellText(int row, int column) const {
  if (row < 1 || row > rows_.UBound()) return {};
  if (column < firstColumn_ || column >= columnCount()) return {};
  return rows_.At(row).At(PlaceOf(column));
}

void TextRowsModel::SetText(int row, int column, std::string text) {
  rows_.At(row).At(PlaceOf(column)) = std::move(text);
  CellChanged(row, column);
}

void TextRowsModel::Append() {
  beginInsertRows({}, rows_.UBound(), rows_.UBound());
  rows_.Append(BlankRow());
  endInsertRows();
}

void TextRowsModel::Remove(int row) {
  beginRemoveRows({}, row - 1, row - 1);
  rows_.Remove(row);
  endRemoveRows();
  AcceptRow(row);
}

void TextRowsModel::Clear() {
  beginResetModel();
  rows_.Clear();
  rows_.Append(BlankRow());
  endResetModel();
  AcceptAllCells();
}

Table<std::string> TextRowsModel::BlankRow() const {
  Table<std::string> row;
  row.Resize(columnCount() - firstColumn_);
  return row;
}

bool SameTexts(const TextRows& one, const TextRows& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](const Table<std::string>& row, const Table<std::string>& with) {
                      return std::equal(row.begin(), row.end(), with.begin(), with.end());
                    });
}

// The table.

TextTable::TextTable(TextRowsModel* model, std::function<CellEdit(int column)> editOf,
                     CellTakes takes, const QString& textPanel, QWidget* parent)
    : FlexGrid(model, parent),
      texts_(*model),
      madeWith_(model->Texts()),
      editor_(*this, *this, Cells(std::move(editOf), takes), textPanel) {
  model->setParent(this);
  // The keys rest here while no cell is edited.
  setFocusPolicy(Qt::TabFocus);
  CellPressed = [this](int row, int column, Qt::MouseButton, QPoint) {
    if (column >= FirstTextColumn) GoTo(row, column);
  };
  MakeCurrent(1, FirstTextColumn);
}

CellTable TextTable::Cells(std::function<CellEdit(int column)> editOf, CellTakes takes) {
  CellTable cells;
  cells.EditOf = [editOf = std::move(editOf)](int, int column) { return editOf(column); };
  cells.Take = [this](int row, int column, const std::string& text) {
    texts_.SetText(row, column, text);
  };
  cells.TakesAtOnce = takes == CellTakes::AtOnce;
  cells.DeleteEmpties = true;
  cells.MoveTo = [this](int row, int column) { GoTo(row, column); };
  cells.Enter = [this] {
    if (texts_.DataRows() == 0) return false;
    GoTo(std::max(1, Row()), std::max(FirstTextColumn, Col()));
    return true;
  };
  return cells;
}

void TextTable::MakeCurrent(int row, int column) {
  SetCurrent(row, column);
  texts_.SetGreyRow(Row());
}

void TextTable::GoTo(int row, int column) {
  Commit();
  MakeCurrent(row, column);
  EnsureVisible(row, column);
  editor_.Open(row, column);
}

void TextTable::GoToFirst() {
  GoTo(1, FirstTextColumn);
}

bool TextTable::HasChanges() {
  Commit();
  return !SameTexts(madeWith_, Texts());
}

bool TextTable::LeadsToUndecided() {
  Commit();
  const auto [row, column] = texts_.FirstRefusedCell();
  if (row == 0) return false;
  const QString reason = texts_.RefusalOfCell(row, column);
  GoTo(row, column);
  editor_.ShowRefusal(reason);
  return true;
}

void TextTable::ShowRow(int row) {
  Commit();
  CloseEditor();
  MakeCurrent(row, std::max(FirstTextColumn, Col()));
  EnsureVisible(row, Col());
}

void TextTable::AddRow() {
  Commit();
  texts_.Append();
  GoTo(texts_.DataRows(), FirstTextColumn);
}

void TextTable::RemoveRow() {
  CloseEditor();
  const int row = Row();
  if (row < 1) return;
  const int column = Col();
  texts_.SetGreyRow(0);
  texts_.Remove(row);
  MakeCurrent(row, column);
}

void TextTable::ClearRows() {
  CloseEditor();
  texts_.Clear();
  MakeCurrent(1, FirstTextColumn);
}

// The keys come home, also from the button that was pressed.
void TextTable::CloseEditor() {
  editor_.Forget();
  setFocus();
  editor_.Hide();
}

}  // namespace orvane
