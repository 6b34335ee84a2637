// The editor laid over one cell of a grid: a text field, or the list of a column's choices. It
// places itself, moves by keys, lets through what a cell may be typed, and tells its table what the
// user did. What the cells mean is the table's.
#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <string>

#include "core/cell_edit.h"
#include "ui/controls/flex_grid.h"
#include "ui/controls/plain_combo.h"
#include "ui/controls/plain_field.h"

class QFocusEvent;
class QFrame;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

namespace orvane {

class FaultSign;

// What a table tells its editor, and is told by it. Rows count from 1, column 0 is fixed.
struct CellTable {
  // How a cell is edited. The keys pass over one that isn't.
  std::function<CellEdit(int row, int column)> EditOf;
  // The user has given a cell this text, by typing, pasting or choosing.
  std::function<void(int row, int column, const std::string& text)> Take;
  // Esc gives a list's cell back what it held, which the list may not have. May be missing: then
  // Take does it too.
  std::function<void(int row, int column, const std::string& text)> PutBack;
  // It is told at each stroke and choice; else once, when the cell is left and at Commit.
  bool TakesAtOnce = true;
  // Ctrl with Home and with End leads to the first and to the last row.
  bool GoesToEnds = false;
  // Delete empties a closed list's cell.
  bool DeleteEmpties = false;
  // A key leads to another cell. The table makes it the current one and opens it, or refuses.
  std::function<void(int row, int column)> MoveTo;
  // A key leads from the table at rest into its current cell; false if there is none to open.
  std::function<bool()> Enter;
  // The focus has gone out of the table for good: neither for a menu or a list nor for a box or
  // another program. May be missing.
  std::function<void()> Left;
  // True while keys are dropped. May be missing.
  std::function<bool()> Ignores;
};

// To be a member of its table, so that it is gone before the controls are. Its text field is called
// txtEdit.
class CellEditor : public QObject {
 public:
  // Esc in an open cell takes it back to what it held when the cursor came to it; where nothing is
  // to be taken back the key goes on. While no cell is edited the focus rests on `home`, which is
  // the grid or stands around it. From there Enter, F2, Up, Down and typing lead into the current
  // cell.
  CellEditor(FlexGrid& grid, QWidget& home, CellTable table, const QString& textPanel);

  // The list for a column, in a panel of its own; to be filled by the table.
  PlainCombo& AddChoices(int column, const QString& panel, const QString& name);
  // The list of a column; none for one without.
  PlainCombo* ChoicesOf(int column) const;

  // The cell being edited; 0 for none.
  int EditRow() const { return EditRow_; }
  int EditCol() const { return EditCol_; }
  // True when the control that was opened last is a list.
  bool IsChoice() const { return openChoices_ != nullptr; }
  // What that control holds.
  std::string Text() const;
  // Puts another text into the field, the cursor at its end. The table isn't told.
  void ShowText(const std::string& text);

  // Opens a cell with its text selected, or its entry chosen in the list, and takes the focus. The
  // cell opened before is committed.
  void Open(int row, int column);
  // The same for the open cell, which was refused: Esc still leads to what it held before.
  void OpenAgain(int row, int column);
  // What is typed over the open list chooses or is dropped, as leaving the cell would have it.
  void SettleChoice();
  // Gives the open list the look of one that was left undecided, for whoever leads a person there.
  void ShowRefusal(const QString& reason);
  // What readers of the screen are told behind the name of the open cell; empty for nothing.
  void SetNote(const QString& note);
  // Settles it, and tells the table what the open cell holds, if it is to be told on leaving and it
  // was changed.
  void Commit();
  // No cell is edited any more, and none is committed; the control stays, without typed letters.
  void Forget();
  // Forgets the cell and hides its control; the focus goes home if the control has it.
  void Close();
  void Hide();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Choices {
    QFrame* Panel = nullptr;
    PlainCombo* List = nullptr;
  };

  void Connect(QFrame& panel, const QString& name, QWidget& control);
  void Place();
  void ShowEntry(const std::string& text);
  void TellName();
  void ShowCoveredCell();
  void Changed(const std::string& text);
  void WriteBack();
  bool KeyPressed(const QObject* watched, const QKeyEvent& key);
  bool OpensMenu(const QObject* watched, const QMouseEvent& press);
  bool MovesToEnd(const QKeyEvent& key);
  bool MovesBy(const QKeyEvent& key);
  bool TakesBackBy(const QKeyEvent& key);
  bool TakesBack();
  bool EmptiesBy(const QKeyEvent& key);
  bool BeginsBy(const QKeyEvent& key);
  int NextEdited(int row, int column, int step) const;
  void TakePastedAs(CellEdit edit);
  bool TakesCharacters(const QString& typed) const;
  bool DropsCharacter(const QKeyEvent& key) const;
  bool DropsComposed(const QInputMethodEvent& composed);
  void FocusLost(const QFocusEvent& event);

  FlexGrid& grid_;
  QWidget& home_;
  const CellTable table_;
  PlainField* txtEdit_;
  QFrame* textPanel_;
  std::map<int, Choices> choices_;  // by column
  FaultSign* faultSign_;            // of the cell under the control

  int EditRow_ = 0;
  int EditCol_ = 0;
  QFrame* openPanel_ = nullptr;        // of the control opened last
  PlainCombo* openChoices_ = nullptr;  // that control, if it is a list
  QString note_;                       // behind the cell's name
  QString openedText_;                 // what the field was opened with
  std::string formerText_;             // what the cell held when the cursor came to it
  bool chosen_ = false;                // the user chose an entry of the open list
};

}  // namespace orvane
