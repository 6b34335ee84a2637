// Editing in the sections grid: what typing, choosing and leaving do to a section.
#include <QApplication>
#include <QFocusEvent>
#include <QTimer>
#include <algorithm>
#include <exception>
#include <functional>
#include <utility>

#include "core/desktop.h"
#include "core/model.h"
#include "core/runtime_error.h"
#include "holes/hole_list.h"
#include "project/changes.h"
#include "project/rules/section_columns.h"
#include "project/section_look.h"
#include "ui/platform/busy.h"
#include "ui/platform/guard.h"
#include "ui/sections_grid.h"
#include "ui/sections_model.h"

namespace orvane {

namespace {

// A change of the kind that the column's cells make.
void ChangeCell(int row, int column, const std::function<void()>& action) {
  Change(SectionColumnAt(column).Kind.value(), Int16(row), action);
}

}  // namespace

CellTable SectionsGrid::Cells() {
  CellTable cells;
  cells.EditOf = [](int row, int column) { return SectionCellEdit(Int16(row), column); };
  cells.Take = [this](int row, int column, const std::string& text) {
    if (editor_.IsChoice()) {
      EntryChosen(row, column, text);
    } else {
      TextTyped(row, column, text);
    }
  };
  cells.GoesToEnds = true;
  cells.PutBack = [this](int row, int column, const std::string& text) {
    EntryPutBack(row, column, text);
  };
  cells.MoveTo = [this](int row, int column) {
    const Busy busy(GridBusy_);
    MoveTo(row, column);
  };
  cells.Enter = [this] { return EnterGrid(); };
  cells.Left = [this] { EditorLeft(); };
  cells.Ignores = [this] { return GridBusy_ || refusing_; };
  return cells;
}

// Placing.

void SectionsGrid::GridEnterCell() {
  const int row = grid_->Row();
  const int column = grid_->Col();
  FollowCursor();
  if (row == 0) return;
  if (row != editor_.EditRow() || column != editor_.EditCol()) {
    EditError_ = false;
    EndStep();
  }
  if (SectionCellEdit(Int16(row), column) == CellEdit::None) {
    // Delete and Sort may bring a rail's product under the cursor. Nothing was typed into it.
    editor_.Forget();
    MoveTo(row, PassOver(row, column));
    return;
  }
  EditPrevCol_ = column;
  if (row == editor_.EditRow() && column == editor_.EditCol()) {
    editor_.OpenAgain(row, column);
  } else {
    editor_.Open(row, column);
  }
}

void SectionsGrid::ForgetEditors() {
  editor_.Close();
  EditError_ = false;
  refusing_ = false;
  typed_ = false;
}

// Puts the cursor back into the grid where no cell is edited; true when there was a row for it.
bool SectionsGrid::EnterGrid() {
  if (!hasFocus() || grid_->Rows() < 2) return false;
  const Busy busy(GridBusy_);
  if (grid_->Row() == 0 || grid_->Col() < MarkColumn) Select(std::max(1, grid_->Row()), MarkColumn);
  GridEnterCell();
  return true;
}

void SectionsGrid::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  if (event->reason() != Qt::TabFocusReason && event->reason() != Qt::BacktabFocusReason) return;
  Guard([&] { EnterGrid(); });
}

bool SectionsGrid::focusNextPrevChild(bool next) {
  bool entered = false;
  Guard([&] { entered = EnterGrid(); });
  return entered || QWidget::focusNextPrevChild(next);
}

// Typing.

void SectionsGrid::TextTyped(int row, int column, const std::string& text) {
  EditError_ = false;
  Typed result = Typed::Taken;
  std::exception_ptr refused;
  // A length half typed may be too short for its holes: the sheet keeps its last state, and leaving
  // the cell draws again and tells.
  LookAtSection(Int16(row), [&] {
    bool taken = false;
    try {
      ChangeCell(row, column, [&] {
        model_->SetTyped(row, column, text);
        result = TakeTypedText(Int16(row), column, text);
        if (result != Typed::Taken) {
          model_->ShowRecord(row, column);
          editor_.ShowText(grid_->TextMatrix(row, column));
        }
        typed_ = taken = true;
        if (column == LengthColumn) RebuildHoles(Int16(row), detail_->ShownPattern());
      });
    } catch (const std::exception&) {
      if (taken) throw;
      refused = std::current_exception();
    }
  });
  if (refused) std::rethrow_exception(refused);
  if (result == Typed::Overflow) throw RuntimeError(Failure::Overflow);
}

void SectionsGrid::EntryChosen(int row, int column, const std::string& text) {
  if (ItemText(Int16(row), column) == text) return;
  // The cell goes on being edited: its leaving tells here too.
  LookAtSection(Int16(row), [&] {
    ChangeCell(row, column, [&] {
      TakeChosenText(Int16(row), column, text);
      RebuildHoles(Int16(row), detail_->ShownPattern());
    });
  });
}

void SectionsGrid::EntryPutBack(int row, int column, const std::string& text) {
  LookAtSection(Int16(row), [&] {
    ChangeCell(row, column, [&] {
      PutBackText(Int16(row), column, text);
      RebuildHoles(Int16(row), detail_->ShownPattern());
    });
  });
}

// Leaving.

// Validates the cell that is left; false when it was refused.
bool SectionsGrid::LeaveCell() {
  editor_.SettleChoice();
  if (editor_.EditRow() == 0 || EditError_) return true;
  const auto refusal = CellRefusal(Int16(editor_.EditRow()), editor_.EditCol(), editor_.Text());
  if (!refusal) return true;
  Refuse(*refusal);
  return false;
}

// The cursor goes back at once. The box comes when the press or the change of focus that led here
// is over, since both would go on behind it.
void SectionsGrid::Refuse(const std::string& message) {
  EditError_ = true;
  refusing_ = true;
  grid_->SetCurrent(editor_.EditRow(), editor_.EditCol());
  QTimer::singleShot(0, this, [this, message] {
    // A command that came in between has dropped the cell, or has opened a dialog, which the box
    // would cover: then the cell is refused when it is left again.
    if (!std::exchange(refusing_, false)) return;
    if (QApplication::activeModalWidget() != nullptr) {
      EditError_ = false;
      return;
    }
    // A list that the press opened would lie over the box.
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    Guard([&] {
      {
        const Busy busy(GridBusy_);
        TheDesktop().Message(message);
      }
      grid_->EnsureVisible(grid_->Row(), grid_->Col());
      GridEnterCell();
    });
  });
}

bool SectionsGrid::DropLetters() {
  if (!cboEdit_->Typed().Pending()) return false;
  cboEdit_->DropLetters();
  return true;
}

void SectionsGrid::SettleProduct() {
  editor_.SettleChoice();
}

void SectionsGrid::EnterUndecided() {
  const auto [row, column] = model_->FirstRefusedCell();
  const QString reason = model_->RefusalOfCell(row, column);
  GoTo(row, column);
  // A refused cell keeps the cursor. Who is led to the product sees why.
  if (row == editor_.EditRow() && column == editor_.EditCol()) editor_.ShowRefusal(reason);
}

bool SectionsGrid::SettleEditor() {
  if (refusing_ || !LeaveCell()) return false;
  editor_.Forget();
  return true;
}

void SectionsGrid::EditorLeft() {
  if (editor_.IsChoice()) {
    // What is typed over it is a choice by now, and what that brings up is said below.
    editor_.SettleChoice();
    editor_.Hide();
  } else if (LeaveCell()) {
    DrawTyped();
  } else {
    return;
  }
  EndStep();
  // A box in the middle of the change of focus would come while the mouse button is down.
  ShowLater(ErrorsToSay());
}

// Holes and sheet of a row that was typed into; who calls it says what is left to say.
void SectionsGrid::DrawTyped() {
  if (!typed_) return;
  typed_ = false;
  const std::int16_t row = Int16(grid_->Row());
  LookAtSection(row, [&] {
    if (row >= 1) detail_->RebuildShownHoles(row);
  });
}

}  // namespace orvane
