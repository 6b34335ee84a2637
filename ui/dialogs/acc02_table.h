// The table of a type 2 accessory: marked lines in the accessory's own columns, edited cell by
// cell.
#pragma once

#include <QFrame>
#include <QLineEdit>
#include <cstdint>
#include <map>
#include <string>

#include "core/model.h"
#include "ui/controls/flex_grid.h"
#include "ui/controls/plain_combo.h"

namespace orvane {

// The rows of the table, one column for each of the accessory's parameters.
class Acc02Model : public FlexGridModel {
 public:
  // `rows` are those of AccessoryRows; without any, one empty row stands ready.
  Acc02Model(std::int16_t AccIndex, TextRows rows, QObject* parent);

  const TextRows& Rows() const { return rows_; }
  std::string CellText(int row, int column) const override;
  int DataRows() const override { return rows_.UBound(); }

  void SetText(int row, int column, std::string text);
  void Append();
  void Remove(int row);
  // Leaves one empty row.
  void Clear();

 private:
  Table<std::string> BlankRow() const;

  const int columns_;
  TextRows rows_;
};

// MSFlexGrid1 with its editors txtEdit and cboEdit. An editor's text goes to the cell that it was
// opened on when the cell is left, and at Commit.
class Acc02Table : public QWidget {
 public:
  Acc02Table(std::int16_t AccIndex, QWidget* parent);

  // Writes what the open editor holds to its cell. Whoever reads the rows does this first.
  void Commit();
  const TextRows& Rows() const { return model_->Rows(); }

  // The commands on lines.
  void AddLine();
  void DeleteLine();
  void ClearAll();

  // Makes a row current; its cell is opened for editing unless `column` is 0.
  void GoTo(int row, int column);

  // Replaces the choices of a column; "Subscript out of range" for a column without any.
  void FillChoices(int column, const Table<std::string>& texts);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildGrid(std::int16_t AccIndex);
  void BuildEditors(std::int16_t AccIndex);
  QFrame* MakePanel(const QString& name, QWidget* editor);

  void StartEditing(int row, int column);
  void PlaceEditor();
  void CloseEditor();

  // The choice list of a column; none for one that is typed freely.
  PlainCombo* ChoicesOf(int column) const;
  bool EditorKey(const QKeyEvent& key);
  bool GridKey(const QKeyEvent& key);
  bool DropsCharacter(const QKeyEvent& key) const;
  bool DropsComposed(const QInputMethodEvent& composed);
  bool TakesCharacters(const QString& typed) const;

  Acc02Model* model_ = nullptr;
  FlexGrid* MSFlexGrid1_ = nullptr;
  QFrame* SSPanelEdit_ = nullptr;
  QLineEdit* txtEdit_ = nullptr;
  std::map<int, QFrame*> sspEditCombo_;  // by the column that has choices
  std::map<int, PlainCombo*> cboEdit_;

  // The cell that an editor is open on, and the panel it is in; 0 and none while no cell is edited.
  int EditRow_ = 0;
  int EditCol_ = 0;
  QFrame* openPanel_ = nullptr;
  QString openedText_;   // what txtEdit was opened with
  bool chosen_ = false;  // the user chose an entry of the open list
};

}  // namespace orvane
