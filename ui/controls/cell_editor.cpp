#include "ui/controls/cell_editor.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFrame>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/catalogues.h"
#include "core/numbers.h"
#include "ui/controls/fault_sign.h"
#include "ui/controls/refused_look.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr int FirstCell = 1;  // the column behind the fixed one

// The frame of the field or list: coloured while the cursor is in it, so that it tells whether
// typing goes there.
class CellFrame : public QFrame {
 public:
  CellFrame(const QWidget& editor, QWidget* parent) : QFrame(parent), editor_(editor) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(editor_.hasFocus() ? palette().color(QPalette::Highlight) : QColor(Qt::gray));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  const QWidget& editor_;
};

// True while the toolkit takes the focus away only for a while: a menu or list is open, a box is
// shown, another program is in front.
bool OnlyAWhile(const QFocusEvent& event) {
  return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason ||
         event.reason() == Qt::ActiveWindowFocusReason ||
         QApplication::activePopupWidget() != nullptr ||
         QApplication::activeModalWidget() != nullptr;
}

// With one of these a key is a command. Shift is part of typing.
bool IsCommand(const QKeyEvent& key) {
  return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

// With Ctrl and Alt together some keyboards type a third letter.
bool TypesThirdLetter(const QKeyEvent& key) {
  constexpr Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::AltModifier;
  return (key.modifiers() & both) == both;
}

bool IsControl(QChar c) {
  return c < u' ' || c == u'\u007F';
}

}  // namespace

CellEditor::CellEditor(FlexGrid& grid, QWidget& home, CellTable table, const QString& textPanel)
    : grid_(grid),
      home_(home),
      table_(std::move(table)),
      txtEdit_(new PlainField),
      textPanel_(new CellFrame(*txtEdit_, grid.viewport())),
      faultSign_(new FaultSign(grid.viewport())) {
  txtEdit_->setObjectName("txtEdit");
  txtEdit_->setFrame(false);
  txtEdit_->setPalette(CellColours(txtEdit_->palette()));
  Connect(*textPanel_, textPanel, *txtEdit_);
  // The quiet door is setText; only what a person types or pastes comes here.
  connect(txtEdit_, &QLineEdit::textEdited, this,
          [this](const QString& text) { Guard([&] { Changed(FromQt(text)); }); });
  home.installEventFilter(this);
  grid.Scrolled = [this] { Place(); };
  connect(&grid.Model(), &QAbstractItemModel::dataChanged, this,
          [this](const QModelIndex& first, const QModelIndex& last) {
            if (grid_.IsAmong(EditRow_, EditCol_, first, last)) ShowCoveredCell();
          });
}

PlainCombo& CellEditor::AddChoices(int column, const QString& panel, const QString& name) {
  auto* list = new PlainCombo;
  list->setObjectName(name);
  list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  auto* frame = new CellFrame(*list, grid_.viewport());
  Connect(*frame, panel, *list);
  // An entry that is chosen again counts too: the cell may hold a text that the list hasn't.
  connect(list, &QComboBox::activated, this, [this, list] {
    chosen_ = true;
    Guard([&] {
      Changed(list->Text());
      // Of a choice made by leaving it is told behind the leaving.
      if (!list->hasFocus()) WriteBack();
    });
  });
  // The list moves on with the cursor; the cell left bears its look.
  list->LeftUndecided = [this](const QString& reason) {
    if (EditRow_ > 0) grid_.Model().RefuseCell(EditRow_, EditCol_, reason);
  };
  list->RefusalEnded = [this] { grid_.Model().AcceptCell(EditRow_, EditCol_); };
  choices_[column] = {frame, list};
  return *list;
}

PlainCombo* CellEditor::ChoicesOf(int column) const {
  const auto found = choices_.find(column);
  return found == choices_.end() ? nullptr : found->second.List;
}

// The control in its panel over the grid, hidden, its keys watched.
void CellEditor::Connect(QFrame& panel, const QString& name, QWidget& control) {
  constexpr int margin = 1;  // shows the panel's frame
  panel.setObjectName(name);
  control.setParent(&panel);
  auto* layout = new QVBoxLayout(&panel);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->addWidget(&control);
  control.installEventFilter(this);
  panel.hide();
}

std::string CellEditor::Text() const {
  return openChoices_ != nullptr ? openChoices_->Text() : FromQt(txtEdit_->text());
}

void CellEditor::ShowText(const std::string& text) {
  txtEdit_->setText(ToQt(text));
  txtEdit_->end(false);
}

void CellEditor::Open(int row, int column) {
  Commit();
  grid_.Model().AcceptCell(row, column);
  const std::string text = grid_.TextMatrix(row, column);
  QFrame* former = openPanel_;
  QWidget* control = txtEdit_;
  openPanel_ = textPanel_;
  openChoices_ = nullptr;
  if (table_.EditOf(row, column) == CellEdit::Choice) {
    const Choices& choices = choices_.at(column);
    control = openChoices_ = choices.List;
    openPanel_ = choices.Panel;
    ShowEntry(text);
  } else {
    AcceptField(*txtEdit_);  // what was refused was the former cell's
    TakePastedAs(table_.EditOf(row, column));
    txtEdit_->setText(ToQt(text));
    txtEdit_->setAlignment(grid_.Model().AlignmentOf(column));
    txtEdit_->selectAll();
  }
  openedText_ = txtEdit_->text();
  formerText_ = text;
  chosen_ = false;
  EditRow_ = row;
  EditCol_ = column;
  TellName();
  openPanel_->setGeometry(grid_.CellRect(EditRow_, EditCol_));
  openPanel_->show();
  openPanel_->raise();
  ShowCoveredCell();
  control->setFocus();
  // Hidden only now: a control that is hidden with the focus in it gives it to anybody.
  if (former != nullptr && former != openPanel_) former->hide();
}

void CellEditor::SetNote(const QString& note) {
  if (note == note_) return;
  note_ = note;
  if (EditRow_ > 0) TellName();
}

// Where the cursor is, for readers of the screen.
void CellEditor::TellName() {
  QWidget* control = openChoices_;
  if (control == nullptr) control = txtEdit_;
  const std::string cell = grid_.TextMatrix(0, EditCol_) + ", row " + DecimalText(EditRow_);
  control->setAccessibleName(note_.isEmpty() ? ToQt(cell) : ToQt(cell) + ", " + note_);
}

// A text that the open list hasn't selects nothing.
void CellEditor::ShowEntry(const std::string& text) {
  openChoices_->SelectQuietly(FindComboIndex(openChoices_->Entries(), text));
}

void CellEditor::OpenAgain(int row, int column) {
  const std::string former = formerText_;
  Open(row, column);
  formerText_ = former;
}

// Keeps the control over its cell while the grid moves under it; out of sight it is parked there,
// with its focus and its text.
void CellEditor::Place() {
  if (EditRow_ == 0) return;
  openPanel_->setGeometry(grid_.CellRect(EditRow_, EditCol_));
  ShowCoveredCell();
}

// The control covers the sign of its cell and catches the mouse that would be told the cell's tip.
void CellEditor::ShowCoveredCell() {
  if (openPanel_ != nullptr) openPanel_->setToolTip(grid_.TipOf(EditRow_, EditCol_));
  if (EditRow_ == 0 || grid_.Model().FaultOf(EditRow_, EditCol_).empty()) {
    faultSign_->hide();
  } else {
    faultSign_->ShowOver(grid_.CellRect(EditRow_, EditCol_));
  }
}

void CellEditor::SettleChoice() {
  if (openChoices_ != nullptr) openChoices_->Leave();
}

void CellEditor::ShowRefusal(const QString& reason) {
  if (openChoices_ != nullptr) openChoices_->ShowRefusal(reason);
}

void CellEditor::Commit() {
  SettleChoice();
  WriteBack();
}

// Typed letters stay as they are.
void CellEditor::WriteBack() {
  if (table_.TakesAtOnce || EditRow_ == 0) return;
  if (openChoices_ != nullptr) {
    // A text that the list doesn't have stays as long as nothing is chosen for it.
    if (std::exchange(chosen_, false)) table_.Take(EditRow_, EditCol_, Text());
  } else if (txtEdit_->text() != openedText_) {
    openedText_ = txtEdit_->text();
    table_.Take(EditRow_, EditCol_, Text());
  }
}

void CellEditor::Changed(const std::string& text) {
  if (table_.TakesAtOnce && grid_.Row() > 0) table_.Take(grid_.Row(), grid_.Col(), text);
}

void CellEditor::Forget() {
  if (openChoices_ != nullptr) openChoices_->DropLetters();
  EditRow_ = 0;
  EditCol_ = 0;
}

void CellEditor::Close() {
  Forget();
  // Also behind a message box, whose window is the active one still.
  const QWidget* focus = home_.window()->focusWidget();
  if (focus != nullptr && grid_.viewport()->isAncestorOf(focus)) home_.setFocus();
  Hide();
}

void CellEditor::Hide() {
  faultSign_->hide();
  if (openPanel_ != nullptr) openPanel_->hide();
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  switch (event->type()) {
    case QEvent::FocusIn:
      if (openPanel_ != nullptr) openPanel_->update();
      break;
    case QEvent::FocusOut:
      if (openPanel_ != nullptr) openPanel_->update();
      // A box inside a change of focus would come while the mouse button is down.
      if (watched != &home_) {
        GuardFocusChange([&] { FocusLost(*static_cast<QFocusEvent*>(event)); });
      }
      break;
    case QEvent::KeyPress:
      Guard([&] { taken = KeyPressed(watched, *static_cast<QKeyEvent*>(event)); });
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      taken = OpensMenu(watched, *static_cast<QMouseEvent*>(event));
      break;
    case QEvent::ContextMenu:
      // The press has opened the table's menu already. By its key the field's own opens.
      taken = watched != &home_ && grid_.MenuAsked &&
              static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Mouse;
      break;
    case QEvent::InputMethod:
      if (watched == txtEdit_) {
        Guard([&] { taken = DropsComposed(*static_cast<QInputMethodEvent*>(event)); });
      }
      break;
    default:
      break;
  }
  return taken;
}

bool CellEditor::KeyPressed(const QObject* watched, const QKeyEvent& key) {
  if (table_.Ignores && table_.Ignores()) return true;
  if (watched == &home_) return BeginsBy(key);
  if (key.key() == Qt::Key_Escape && !IsCommand(key)) return TakesBackBy(key);
  if (openChoices_ != nullptr && watched == openChoices_ && openChoices_->HoldsCursor(key)) {
    return true;
  }
  if (MovesBy(key) || EmptiesBy(key)) return true;
  return watched == txtEdit_ ? DropsCharacter(key) : PlainCombo::ChoosesByKey(key);
}

// The right button opens the menu of a table that has one, as on the cells around it.
bool CellEditor::OpensMenu(const QObject* watched, const QMouseEvent& press) {
  if (watched == &home_ || press.button() != Qt::RightButton || !grid_.MenuAsked) return false;
  Guard([&] { grid_.MenuAsked(press.globalPosition().toPoint()); });
  return true;
}

// Ctrl with Home and End: the first and the last row.
bool CellEditor::MovesToEnd(const QKeyEvent& key) {
  const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
  const bool first = key.key() == Qt::Key_Home;
  if (!table_.GoesToEnds || held != Qt::ControlModifier) return false;
  if (!first && key.key() != Qt::Key_End) return false;
  const int row = first ? 1 : std::max(1, grid_.Rows() - 1);
  if (row != grid_.Row()) table_.MoveTo(row, grid_.Col());
  return true;
}

// The keys that move, the same in the field and in the lists; true when the key was one of them.
bool CellEditor::MovesBy(const QKeyEvent& key) {
  if (MovesToEnd(key)) return true;
  if (IsCommand(key)) return false;
  const int row = grid_.Row();
  const int column = grid_.Col();
  const int lastRow = std::max(1, grid_.Rows() - 1);
  const bool back = key.key() == Qt::Key_Backtab || key.modifiers().testFlag(Qt::ShiftModifier);
  int toRow = row;
  int toColumn = column;
  switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      toColumn = NextEdited(row, column, back ? -1 : 1);
      break;
    case Qt::Key_Up:
      toRow = std::max(1, row - 1);
      break;
    case Qt::Key_Down:
      toRow = std::min(lastRow, row + 1);
      break;
    case Qt::Key_PageUp:
      toRow = std::max(1, row - grid_.PageRows());
      break;
    case Qt::Key_PageDown:
      toRow = std::min(lastRow, row + grid_.PageRows());
      break;
    default:
      return false;
  }
  if (toRow != row || toColumn != column) {
    table_.MoveTo(toRow, toColumn);
  } else {
    // The key leaves a list, in the last row too.
    SettleChoice();
  }
  return true;
}

// One press does one thing: it drops the letters that a list waits with, else it takes the cell
// back, else it is for whoever stands around the table. A key held down does no second one.
bool CellEditor::TakesBackBy(const QKeyEvent& key) {
  if (key.isAutoRepeat()) return true;
  if (openChoices_ != nullptr && openChoices_->Typed().Pending()) return false;
  return TakesBack();
}

// False when the cell holds what it held.
bool CellEditor::TakesBack() {
  if (EditRow_ == 0) return false;
  const std::string text = grid_.TextMatrix(EditRow_, EditCol_);
  if (openChoices_ != nullptr) {
    const bool another = std::exchange(chosen_, false) && Text() != formerText_;
    if (!another && text == formerText_) return false;
    ShowEntry(formerText_);
    const auto& putBack = table_.PutBack ? table_.PutBack : table_.Take;
    if (text != formerText_) putBack(EditRow_, EditCol_, formerText_);
    return true;
  }
  if (Text() == formerText_) return false;
  txtEdit_->setText(ToQt(formerText_));
  txtEdit_->selectAll();
  Changed(formerText_);
  WriteBack();
  return true;
}

bool CellEditor::EmptiesBy(const QKeyEvent& key) {
  if (!table_.DeleteEmpties || openChoices_ == nullptr || EditRow_ == 0) return false;
  if (key.key() != Qt::Key_Delete || IsCommand(key)) return false;
  openChoices_->SelectQuietly(-1);
  grid_.Model().AcceptCell(EditRow_, EditCol_);
  chosen_ = true;
  Changed({});
  return true;
}

// The next column that is edited in that row; the column itself when there is none.
int CellEditor::NextEdited(int row, int column, int step) const {
  for (int to = column + step; to >= FirstCell && to < grid_.Cols(); to += step) {
    if (table_.EditOf(row, to) != CellEdit::None) return to;
  }
  return column;
}

// From the table at rest the keys lead back into it, and typing begins the current cell.
bool CellEditor::BeginsBy(const QKeyEvent& key) {
  const bool typed = !key.text().isEmpty() && key.text().front().isPrint();
  if (IsCommand(key) && !(typed && TypesThirdLetter(key))) return false;
  const bool empties = table_.DeleteEmpties && key.key() == Qt::Key_Delete;
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
    case Qt::Key_Up:
    case Qt::Key_Down:
      break;
    default:
      if (!typed && !empties) return false;
      break;
  }
  if (!table_.Enter()) return false;
  if (empties) EmptiesBy(key);
  if (typed && EditRow_ > 0) {
    QKeyEvent again(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat());
    QWidget* control = openChoices_;
    if (control == nullptr) control = txtEdit_;
    QCoreApplication::sendEvent(control, &again);
  }
  return true;
}

void CellEditor::TakePastedAs(CellEdit edit) {
  if (edit == CellEdit::Digits) return txtEdit_->TakePastedNumber(NumberForm::Whole);
  if (edit == CellEdit::Number) return txtEdit_->TakePastedNumber(NumberForm::Signed);
  txtEdit_->TakeText(edit == CellEdit::Plain ? TextForm::Plain : TextForm::Quoted);
}

// Of typed characters a cell may take digits alone. What edits the text passes.
bool CellEditor::TakesCharacters(const QString& typed) const {
  if (table_.EditOf(grid_.Row(), grid_.Col()) != CellEdit::Digits) return true;
  return std::all_of(typed.begin(), typed.end(),
                     [](QChar c) { return IsControl(c) || IsDigit(c); });
}

bool CellEditor::DropsCharacter(const QKeyEvent& key) const {
  if (key.modifiers().testFlag(Qt::ControlModifier) && !TypesThirdLetter(key)) return false;
  return !TakesCharacters(key.text());
}

// The same of what an input method has composed, letter by letter. The event goes on without what
// isn't taken, as it also ends the composing.
bool CellEditor::DropsComposed(const QInputMethodEvent& composed) {
  QString taken = composed.commitString();
  if (TakesCharacters(taken)) return false;
  taken.removeIf([](QChar c) { return !IsDigit(c); });
  QInputMethodEvent rest(composed.preeditString(), composed.attributes());
  rest.setCommitString(taken, composed.replacementStart(), composed.replacementLength());
  QCoreApplication::sendEvent(txtEdit_, &rest);
  return true;
}

void CellEditor::FocusLost(const QFocusEvent& event) {
  if (table_.Ignores && table_.Ignores()) return;
  WriteBack();
  if (!table_.Left || OnlyAWhile(event)) return;
  const QWidget* now = QApplication::focusWidget();
  if (now != nullptr && now != &home_ && !home_.isAncestorOf(now)) table_.Left();
}

}  // namespace orvane
