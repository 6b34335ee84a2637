// The sections grid of the main window with its two floating editors: the order of events of
// adding, editing, duplicating, sorting and deleting sections.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "project/changes.h"
#include "project/history.h"
#include "project/sections.h"
#include "ui/controls/cell_editor.h"
#include "ui/controls/flex_grid.h"
#include "ui/controls/plain_combo.h"
#include "ui/controls/row_choice.h"
#include "ui/detail_panel.h"
#include "ui/sheet_view.h"

class QFocusEvent;
class QKeyEvent;

namespace orvane {

class SectionsModel;

class SectionsGrid : public QWidget {
  Q_OBJECT

 public:
  explicit SectionsGrid(QWidget* parent = nullptr);
  // The areas that a row change fills; given once, before the first command.
  void Connect(DetailPanel& detail, SheetView& sheet);

  // The control itself, MSFlexGrid1.
  FlexGrid& Grid() const { return *grid_; }

  // Commands; rows are rows of Items, and one that takes a row does nothing for a row below 1.
  void AddSection(const std::string& Letter);
  void NextSection(int ItemIndex);
  void Duplicate(int ItemIndex);
  void CreateOppHand(int ItemIndex);
  void DeleteItem(int ItemIndex);
  void SortItems(SortKey Key);

  // Runs a command on several rows, while no cell is edited, and shows the row that it gives; 0 for
  // the one that is current. After an error the current one is shown. Chosen rows stay so as long
  // as there are as many. False where the cell being edited was refused: then nothing is run.
  bool RunOnRows(const std::function<int()>& command);

  // The rows that commands work on, in ascending order: those that are chosen, always with the
  // current one, or that one alone; empty where there is no row. A choice lasts while the cursor
  // stays in its row, until something is typed there, and as long as no row comes, goes or moves.
  std::vector<int> ChosenRows() const;

  // The commands on the chosen rows. With a single one they are those above, ConvertToCustom of the
  // detail panel, and what these say; several are one step, in their order.
  void DuplicateChosen();
  void CreateOppHandChosen();
  void DeleteChosen();
  void ConvertChosen();

  // The clipboard. True if these had rows to do it with, chosen ones to copy or to cut, copied ones
  // to paste; else a text is to be dealt with. Cutting asks nothing, as it can be taken back.
  bool CopyRows();
  // Whether the cursor is in the grid.
  bool HasCursor() const;
  bool CutRows();
  bool PasteRows();
  // A text on the clipboard is pasted while the cursor is in the grid, or the grid is empty; true
  // if it was a block of rows and has been dealt with, else it goes into the cell.
  std::function<bool(const std::string& text)> PasteBlock;

  // Shows Items afresh, the heading and one row each, with CurrentItem 0 and no cell being edited.
  // `keepRow` leaves the current cell where it was, as far as there are rows.
  void DisplayItems(bool keepRow = false);
  void SelectFirstItem();
  // Hides both editors and forgets the cell edited, without validating it.
  void ForgetEditors();
  // Validates the cell being edited, as leaving it would, and forgets it; false when it was refused
  // and the cursor is back in it.
  bool SettleEditor();
  // Typed letters of a product choose it or are dropped, as leaving the cell would; the cursor
  // stays.
  void SettleProduct();
  // The letters of a product go, and nothing is chosen; false if there are none.
  bool DropLetters();
  // Shows what a step that was taken back or done again has touched, its section drawn as it
  // stands. The cursor comes into its cell, or stays in another area as long as no row moved.
  void ShowRestored(const RestoredStep& step, bool entersCell);
  // Makes a cell the current one as a click does.
  void GoTo(int row, int column);
  // The same without a cell being edited: the cursor stays where it is. Rows that aren't there are
  // nothing to look at. What goes wrong with the section stands in the line under the sheet.
  void LookAt(int row, int column);
  // The first row whose product was left undecided, 0 for none; and the cursor put there, with
  // which it counts as entered.
  int UndecidedRow() const;
  void EnterUndecided();
  // True while the sheet shows an opposite hand whose pattern isn't symmetric and stands mirrored.
  bool IsMirrorShown();
  // Places the right editor on the current cell.
  void GridEnterCell();

 signals:
  // The right button on the grid, after the row under it became the current one.
  void MenuAsked(QPoint globalPos);

 protected:
  // The focus rests here while no cell is edited; Tab leads from here back into the grid.
  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  // The keys that choose rows, before the editor of a cell has them.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // What the grid shows of a change, its own and others'.
  void Follow(const ChangeNotice& change);
  std::int16_t Append(const std::function<std::int16_t()>& append);
  bool EnterGrid();
  // Moving.
  bool MoveTo(int row, int column);
  int PassOver(int row, int column);
  void Select(int row, int column, ShownHoles holes = ShownHoles::Afresh);
  void GridRowChange(ShownHoles holes);
  void ForgetUndecided();
  bool ShowRow(int row, ShownHoles holes = ShownHoles::Afresh);
  void ShowCurrentRow(ShownHoles holes = ShownHoles::Afresh, bool entersCell = true);
  void EnterSlidCell();
  void MakeCurrent(std::int16_t row);
  void CellPressed(int row, int column, Qt::MouseButton button);

  // Choosing.
  void WatchChoice();
  bool FixedPressed(int row, Qt::KeyboardModifiers held);
  bool ChooseFurther(int row);
  bool ChoosesByKey(const QObject* watched, const QKeyEvent& key);
  bool StretchBy(const QKeyEvent& key);
  bool ChooseAll(const QObject* watched);
  RowChoice Choice() const;
  void Choose(RowChoice choice);
  void ChooseAppended(std::int16_t first, ShownHoles holes);
  void FollowCursor();
  void EndChoice();
  void TakeOut(const std::vector<int>& rows, ChangeKind kind);

  // Editing.
  CellTable Cells();
  void TextTyped(int row, int column, const std::string& text);
  void EntryChosen(int row, int column, const std::string& text);
  void EntryPutBack(int row, int column, const std::string& text);
  bool LeaveCell();
  void Refuse(const std::string& message);
  void DrawTyped();
  void EditorLeft();
  void FillSectionCombo(const std::string& Letter);

  SectionsModel* model_;
  FlexGrid* grid_;
  CellEditor editor_;
  PlainCombo* cboEdit_;
  DetailPanel* detail_ = nullptr;
  SheetView* sheet_ = nullptr;

  int EditPrevCol_ = 0;          // column of the last cell that an editor was placed on
  bool refusing_ = false;        // the box of a refusal is still to come
  bool EditError_ = false;       // the cell was refused; the next try to leave it passes
  bool GridBusy_ = false;        // a move or a command is under way: input is ignored
  std::string EditSectionType_;  // letter that cboEdit and cboPattern are filled for
  int mirroredRow_ = 0;          // opposite hand whose holes weren't made afresh yet; 0 for none
  bool typed_ = false;           // typed since the sheet was last drawn from a settled cell
  RowChoice choice_;             // made around the current row
  int choiceColumn_ = 0;         // that the cursor was in then
  const ChangeFollower follower_{[this](const ChangeNotice& change) { Follow(change); }};
};

}  // namespace orvane
