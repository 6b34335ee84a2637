// The floating editors of the sections grid: placing, keys, typing, leaving.
#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/model.h"
#include "core/runtime_error.h"
#include "holes/hole_list.h"
#include "project/changes.h"
#include "project/rules/section_columns.h"
#include "ui/platform/busy.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"
#include "ui/sections_grid.h"
#include "ui/sections_model.h"

namespace orvane {

namespace {

// The frame of the text editor: coloured while the cursor is in it, so that it tells whether typing
// goes there.
class CellFrame : public QFrame {
 public:
  CellFrame(const QLineEdit& editor, QWidget* parent) : QFrame(parent), editor_(editor) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(editor_.hasFocus() ? palette().color(QPalette::Highlight) : QColor(Qt::gray));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  const QLineEdit& editor_;
};

// A panel of that name over the grid, hidden, with the one control that it holds.
QFrame* MakePanel(QFrame* panel, const char* name, QWidget* control) {
  panel->setObjectName(name);
  panel->setFrameShape(QFrame::NoFrame);
  control->setParent(panel);
  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(control);
  panel->hide();
  return panel;
}

// A change of the kind that the column's cells make.
void ChangeCell(int row, int column, const std::function<void()>& action) {
  Change(SectionColumnAt(column).Kind.value(), Int16(row), action);
}

// True while the toolkit takes the focus away only for a while: a menu or list is open, a box is
// shown, another program is in front.
bool OnlyAWhile(const QFocusEvent& event) {
  return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason ||
         event.reason() == Qt::ActiveWindowFocusReason ||
         QApplication::activePopupWidget() != nullptr ||
         QApplication::activeModalWidget() != nullptr;
}

}  // namespace

void SectionsGrid::MakeEditors() {
  txtEdit_ = new QLineEdit;
  txtEdit_->setObjectName("txtEdit");
  txtEdit_->setFrame(false);
  // The cell under it is white with black text in a dark desktop too.
  QPalette paper = txtEdit_->palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  txtEdit_->setPalette(paper);
  sspEditText_ = MakePanel(new CellFrame(*txtEdit_, grid_->viewport()), "sspEditText", txtEdit_);
  sspEditText_->layout()->setContentsMargins(1, 1, 1, 1);

  cboEdit_ = new PlainCombo;
  cboEdit_->setObjectName("cboEdit");
  cboEdit_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  sspEditCombo_ = MakePanel(new QFrame(grid_->viewport()), "sspEditCombo", cboEdit_);

  txtEdit_->installEventFilter(this);
  cboEdit_->installEventFilter(this);
  // The quiet door is setText; only what a person types or pastes comes here.
  connect(txtEdit_, &QLineEdit::textEdited, this,
          [this](const QString& text) { Guard([&] { TextTyped(FromQt(text)); }); });
  connect(cboEdit_, &QComboBox::activated, this, [this] { Guard([&] { ProductChosen(); }); });
}

// Placing.

void SectionsGrid::GridEnterCell() {
  const int row = grid_->Row();
  const int column = grid_->Col();
  if (row == 0) return;
  if (row != EditRow_ || column != EditCol_) EditError_ = false;
  const CellEdit edit = SectionCellEdit(Int16(row), column);
  if (edit == CellEdit::None) {
    // Delete and Sort may bring a rail's product under the cursor. Nothing was typed into it.
    EditRow_ = 0;
    EditCol_ = 0;
    MoveTo(row, PassOver(row, column));
    return;
  }
  const bool product = edit == CellEdit::Choice;
  EditPrevCol_ = column;
  EditCol_ = column;
  EditRow_ = row;
  const std::string text = grid_->TextMatrix(row, column);
  QWidget* shown = product ? sspEditCombo_ : sspEditText_;
  QWidget* hidden = product ? sspEditText_ : sspEditCombo_;
  if (product) {
    cboEdit_->SelectQuietly(FindComboIndex(cboEdit_->Entries(), text));
  } else {
    txtEdit_->setText(ToQt(text));
    txtEdit_->setAlignment(model_->AlignmentOf(column));
    txtEdit_->selectAll();
  }
  PlaceEditor();
  shown->show();
  shown->raise();
  if (product) {
    cboEdit_->setFocus();
  } else {
    txtEdit_->setFocus();
  }
  // Hidden only now: a control that is hidden with the focus in it gives it to anybody.
  hidden->hide();
}

// Keeps the editor over its cell; out of sight it is parked there, with its focus and its text.
void SectionsGrid::PlaceEditor() {
  if (EditRow_ == 0 || EditCol_ == 0) return;
  const QRect cell = grid_->CellRect(EditRow_, EditCol_);
  const bool choice = SectionColumnAt(EditCol_).Edit == CellEdit::Choice;
  (choice ? sspEditCombo_ : sspEditText_)->setGeometry(cell);
}

void SectionsGrid::ForgetEditors() {
  // Also behind a message box, whose window is the active one still.
  const QWidget* focus = window()->focusWidget();
  if (focus != nullptr && grid_->viewport()->isAncestorOf(focus)) setFocus();
  sspEditText_->hide();
  sspEditCombo_->hide();
  EditCol_ = 0;
  EditRow_ = 0;
  EditError_ = false;
  typed_ = false;
}

// Keys.

bool SectionsGrid::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  // A box inside a change of focus would come while the mouse button is down.
  if (event->type() == QEvent::FocusOut) {
    GuardFocusChange([&] {
      sspEditText_->update();
      if (!GridBusy_ && LosesFocus(*static_cast<QFocusEvent*>(event))) EditorLeft(watched);
    });
    return QWidget::eventFilter(watched, event);
  }
  Guard([&] {
    if (event->type() == QEvent::KeyPress) {
      const auto& key = *static_cast<QKeyEvent*>(event);
      taken = GridBusy_ || refusing_ || EditorKey(key) ||
              (watched == txtEdit_ ? DropsCharacter(key) : PlainCombo::ChoosesByKey(key));
    } else if (event->type() == QEvent::InputMethod && watched == txtEdit_) {
      taken = !TakesCharacters(static_cast<QInputMethodEvent*>(event)->commitString());
    } else if (event->type() == QEvent::FocusIn) {
      sspEditText_->update();
    }
  });
  return taken || QWidget::eventFilter(watched, event);
}

// Puts the cursor back into the grid where no cell is edited; true when there was a row for it.
bool SectionsGrid::EnterGrid() {
  if (!hasFocus() || grid_->Rows() < 2) return false;
  const Busy busy(GridBusy_);
  if (grid_->Row() == 0 || grid_->Col() < MarkColumn) Select(std::max(1, grid_->Row()), MarkColumn);
  GridEnterCell();
  return true;
}

void SectionsGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2: {
      bool entered = false;
      Guard([&] { entered = EnterGrid(); });
      if (entered) return;
      break;
    }
    default:
      break;
  }
  QWidget::keyPressEvent(event);
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

// The keys of both editors; true when the key was one of them.
bool SectionsGrid::EditorKey(const QKeyEvent& key) {
  const int row = grid_->Row();
  const int column = grid_->Col();
  const int lastRow = grid_->Rows() - 1;
  const bool shift = key.modifiers().testFlag(Qt::ShiftModifier);
  if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;

  int toRow = row;
  int toColumn = column;
  switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (shift || key.key() == Qt::Key_Backtab) {
        if (column > MarkColumn) --toColumn;
      } else if (column < SectionColumns - 1) {
        ++toColumn;
      }
      break;
    case Qt::Key_Up:
      if (row > 1) --toRow;
      break;
    case Qt::Key_Down:
      if (row < lastRow) ++toRow;
      break;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
      const int page =
          std::max(1, grid_->viewport()->height() / std::max(1, grid_->rowHeight(0)) - 1);
      toRow = std::clamp(key.key() == Qt::Key_PageUp ? row - page : row + page, 1, lastRow);
      break;
    }
    default:
      return false;
  }
  if (toRow != row || toColumn != column) {
    const Busy busy(GridBusy_);
    MoveTo(toRow, toColumn);
  }
  return true;
}

// Of typed characters a length and a quantity take digits alone. What edits the text passes, and so
// does what comes from the clipboard.
bool SectionsGrid::DropsCharacter(const QKeyEvent& key) const {
  // With Alt a letter is still typed into a field, and Ctrl with Alt types a third letter.
  if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier) {
    return false;
  }
  return !TakesCharacters(key.text());
}

bool SectionsGrid::TakesCharacters(const QString& typed) const {
  if (SectionCellEdit(Int16(grid_->Row()), grid_->Col()) != CellEdit::Digits) return true;
  return std::none_of(typed.begin(), typed.end(),
                      [](QChar c) { return c.isPrint() && (c < u'0' || c > u'9'); });
}

// Typing.

void SectionsGrid::TextTyped(const std::string& text) {
  EditError_ = false;
  const int row = grid_->Row();
  const int column = grid_->Col();
  if (row < 1) return;
  Typed result = Typed::Taken;
  bool taken = false;
  try {
    ChangeCell(row, column, [&] {
      model_->SetTyped(row, column, text);
      result = TakeTypedText(Int16(row), column, text);
      if (result != Typed::Taken) {
        model_->ShowRecord(row, column);
        txtEdit_->setText(ToQt(grid_->TextMatrix(row, column)));
        txtEdit_->end(false);
      }
      typed_ = taken = true;
      if (column == LengthColumn) RebuildHoles(Int16(row), detail_->ShownPattern());
    });
  } catch (const std::exception&) {
    if (!taken) throw;
    // A length half typed may be too short for its holes: the sheet keeps its last state, and
    // leaving the cell draws again and tells.
  }
  if (result == Typed::Overflow) throw RuntimeError(Failure::Overflow);
}

void SectionsGrid::ProductChosen() {
  const int row = grid_->Row();
  if (row < 1) return;
  const int column = grid_->Col();
  const std::string text = cboEdit_->Text();
  if (ItemText(Int16(row), column) == text) return;
  ChangeCell(row, column, [&] {
    TakeChosenText(Int16(row), column, text);
    RebuildHoles(Int16(row), detail_->ShownPattern());
  });
}

// Leaving.

// Validates the cell that is left; false when it was refused.
bool SectionsGrid::LeaveCell() {
  if (EditCol_ == 0 || EditRow_ == 0 || EditError_) return true;
  if (SectionColumnAt(EditCol_).Edit == CellEdit::Choice) return true;
  const auto refusal = CellRefusal(Int16(EditRow_), EditCol_, FromQt(txtEdit_->text()));
  if (!refusal) return true;
  Refuse(*refusal);
  return false;
}

// The cursor goes back at once. The box comes when the press or the change of focus that led here
// is over, since both would go on behind it.
void SectionsGrid::Refuse(const std::string& message) {
  EditError_ = true;
  refusing_ = true;
  grid_->SetCurrent(EditRow_, EditCol_);
  QTimer::singleShot(0, this, [this, message] {
    refusing_ = false;
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

bool SectionsGrid::SettleEditor() {
  if (refusing_ || !LeaveCell()) return false;
  EditCol_ = 0;
  EditRow_ = 0;
  return true;
}

// True when the focus goes to another control of the window for good. A move inside the grid
// validates by itself.
bool SectionsGrid::LosesFocus(const QFocusEvent& event) const {
  if (OnlyAWhile(event) || refusing_) return false;
  const QWidget* now = QApplication::focusWidget();
  return now != nullptr && now != this && !isAncestorOf(now);
}

void SectionsGrid::EditorLeft(const QObject* editor) {
  if (editor == cboEdit_) {
    sspEditCombo_->hide();
    return;
  }
  if (LeaveCell()) DrawTyped();
}

// Holes and sheet of a row that was typed into, with its errors told.
void SectionsGrid::DrawTyped() {
  if (!typed_) return;
  typed_ = false;
  const int row = grid_->Row();
  if (row < 1) return;
  detail_->RebuildShownHoles(Int16(row));
}

}  // namespace orvane
