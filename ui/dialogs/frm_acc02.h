// "Type 2 Accessories": a table of marked lines with the accessory's own columns, under its
// picture.
#pragma once

#include <cstdint>

#include "ui/dialogs/acc02_table.h"
#include "ui/platform/plain_dialog.h"

class QMenuBar;

namespace orvane {

// Edits the lines of an accessory, a row of AccDefs. A picture that can't be loaded raises its
// error out of the constructor.
class FrmAcc02 : public PlainDialog {
 public:
  explicit FrmAcc02(std::int16_t AccIndex, QWidget* parent = nullptr);

  // Makes a cell of the table the current one.
  void GoTo(int row, int column) { table_->GoTo(row, column); }

  // Whether the table may be stored. A refusal is told, and its row becomes the current one.
  bool AccValidate();
  // Stores the table and closes; a number beyond 16 bits raises "Overflow" and changes nothing.
  void UpdateAcc();
  void ClearAll();
  // The table as it stands, saved or not, to the platform's printers.
  void PrintAcc();

  // The choices of a cleat column that go with the end marks, character codes. The catalogue gives
  // the columns their choices, so that nothing calls it.
  void FillVCRCleatCombo(int column, int firstEndMark, int secondEndMark);

 protected:
  bool HasChanges() override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildMenus();
  void BuildLayout();
  void Ok();
  void AddLine();
  void DeleteLine();
  // Whether the key was that of "&Add".
  bool AddKey(const QKeyEvent& key);

  const std::int16_t accIndex_;
  QMenuBar* menus_ = nullptr;
  Acc02Table* table_ = nullptr;
};

}  // namespace orvane
