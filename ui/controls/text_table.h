// A grid of texts that are edited cell by cell and kept until the whole is stored: the tables of
// the dialogs.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "core/model.h"
#include "ui/controls/cell_editor.h"
#include "ui/controls/flex_grid.h"

namespace orvane {

// Rows of texts under headings; column 0 only marks the row.
class TextRowsModel : public FlexGridModel {
 public:
  // `firstColumn` is the column that a row's first text belongs to, 0 or 1. Rows are made as long
  // as the headings; without any, one empty row stands ready.
  TextRowsModel(std::vector<std::string> headings, TextRows rows, int firstColumn, QObject* parent);

  const TextRows& Texts() const { return rows_; }
  std::string CellText(int row, int column) const override;
  int DataRows() const override { return rows_.UBound(); }

  void SetText(int row, int column, std::string text);
  void Append();
  void Remove(int row);
  // Leaves one empty row.
  void Clear();

 private:
  Table<std::string> BlankRow() const;
  int PlaceOf(int column) const { return column + 1 - firstColumn_; }

  const int firstColumn_;
  TextRows rows_;
};

// Whether two tables hold the same texts.
bool SameTexts(const TextRows& one, const TextRows& other);

// When a cell takes what is typed into it.
enum class CellTakes { AtOnce, OnLeaving };

class TextTable : public FlexGrid {
 public:
  // The model goes with the table. `editOf` tells how a column is edited, `textPanel` is the name
  // of the field's panel.
  TextTable(TextRowsModel* model, std::function<CellEdit(int column)> editOf, CellTakes takes,
            const QString& textPanel, QWidget* parent);

  // The rows, without what an open cell hasn't taken yet.
  const TextRows& Texts() const { return texts_.Texts(); }
  // Has the open cell take what was typed. Whoever reads the rows does this first.
  void Commit() { editor_.Commit(); }

  // Whether the rows, with what an open cell takes now, differ from those that the table was made
  // with.
  bool HasChanges();
  // True when a list was left undecided: the cursor is put there, once, with the reason. Who prints
  // the rows asks first.
  bool LeadsToUndecided();

  // Makes a cell the current one and opens it.
  void GoTo(int row, int column);
  void GoToFirst();
  // Makes a row the current one, without an open cell.
  void ShowRow(int row);

  // The commands on rows. An open cell is dropped with what it hasn't taken, before rows move under
  // it; a new row's first cell is opened.
  void AddRow();
  void RemoveRow();
  void ClearRows();

 protected:
  CellEditor& Editor() { return editor_; }

 private:
  CellTable Cells(std::function<CellEdit(int column)> editOf, CellTakes takes);
  void MakeCurrent(int row, int column);
  void CloseEditor();

  TextRowsModel& texts_;
  const TextRows madeWith_;
  CellEditor editor_;
};

}  // namespace orvane
