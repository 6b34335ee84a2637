#include "ui/controls/plain_field.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolTip>

#include "ui/controls/refused_look.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

PlainField::PlainField(QWidget* parent) : QLineEdit(parent) {
  connect(this, &QLineEdit::textChanged, this, [this] { AcceptField(*this); });
}

// Typing.

std::optional<QString> PlainField::Entered(const QString& text) {
  const EnteredText entered = TextToEnter(FromQt(text), form_);
  if (entered.Refusal.empty()) return ToQt(entered.Text);
  Refuse(ToQt(entered.Refusal));
  return std::nullopt;
}

void PlainField::inputMethodEvent(QInputMethodEvent* event) {
  const QString& composed = event->commitString();
  const std::optional<QString> entered = composed.isEmpty() ? composed : Entered(composed);
  if (entered == composed) return QLineEdit::inputMethodEvent(event);
  // The event goes on without what isn't taken, as it also ends the composing.
  QInputMethodEvent taken(event->preeditString(), event->attributes());
  taken.setCommitString(entered.value_or(QString()), event->replacementStart(),
                        event->replacementLength());
  QLineEdit::inputMethodEvent(&taken);
}

// Pasting.

void PlainField::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Paste)) {
    const QString typed = event->text();
    const std::optional<QString> entered = isReadOnly() ? typed : Entered(typed);
    if (entered == typed) return QLineEdit::keyPressEvent(event);
    event->accept();
    if (entered) insert(*entered);
    return;
  }
  event->accept();
  // The one of the keys that asks for what is selected elsewhere.
  const bool selection = event->key() == Qt::Key_Insert &&
                         event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
  Guard([&] { PasteFrom(selection ? QClipboard::Selection : QClipboard::Clipboard); });
}

void PlainField::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (QAction* paste : menu->actions()) {
    if (!paste->text().startsWith(tr("&Paste"))) continue;
    disconnect(paste, &QAction::triggered, nullptr, nullptr);
    connect(paste, &QAction::triggered, this,
            [this] { Guard([this] { PasteFrom(QClipboard::Clipboard); }); });
  }
  menu->popup(event->globalPos());
}

void PlainField::dropEvent(QDropEvent* event) {
  // Of its own text a person moves a part; that is no paste.
  if (isReadOnly() || event->source() == this) return QLineEdit::dropEvent(event);
  Guard([&] {
    QDragLeaveEvent over;  // takes away the mark of the place
    dragLeaveEvent(&over);
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    // What is refused must not be taken away where it comes from.
    if (TakePasted(event->mimeData()->text())) {
      event->acceptProposedAction();
    } else {
      event->ignore();
    }
  });
}

void PlainField::PasteFrom(QClipboard::Mode mode) {
  TakePasted(QApplication::clipboard()->text(mode));
}

// False if nothing came in.
bool PlainField::TakePasted(const QString& pasted) {
  if (isReadOnly()) return false;
  if (!number_) {
    const std::optional<QString> line = Entered(ToQt(PastedLine(FromQt(pasted))));
    if (line && !line->isEmpty()) insert(*line);
    return line && !line->isEmpty();
  }
  const PastedNumber number = NumberToPaste(FromQt(pasted), *number_);
  if (!number.Refusal.empty()) {
    Refuse(ToQt(number.Refusal));
    return false;
  }
  const QString figures = ToQt(number.Text);
  if (figures.isEmpty()) return false;
  // Cut off it would be another number.
  if (figures.size() > maxLength()) {
    Refuse("\"" + figures + "\" wasn't pasted: it has too many figures");
    return false;
  }
  selectAll();
  insert(figures);
  return true;
}

void PlainField::Refuse(const QString& reason) {
  RefuseField(*this, reason);
  QToolTip::showText(mapToGlobal(rect().bottomLeft()), reason, this);
}

// Clicks.

void PlainField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  clickedInto_ = event->reason() == Qt::MouseFocusReason;
}

void PlainField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  clickedInto_ = false;
  if (event->reason() != Qt::PopupFocusReason) AcceptField(*this);
}

void PlainField::mousePressEvent(QMouseEvent* event) {
  pressedAt_ = event->position().toPoint();
  QLineEdit::mousePressEvent(event);
}

void PlainField::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const bool middle = event->button() == Qt::MiddleButton;
  if (middle && QApplication::clipboard()->supportsSelection()) {
    Guard([&] {
      setCursorPosition(cursorPositionAt(place));
      PasteFrom(QClipboard::Selection);
    });
  } else {
    QLineEdit::mouseReleaseEvent(event);
  }
  const bool dragged = (place - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
  const bool selects = clickedInto_ && event->button() == Qt::LeftButton && !dragged;
  clickedInto_ = false;
  if (selects && !hasSelectedText()) selectAll();
}

}  // namespace orvane
