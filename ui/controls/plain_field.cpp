#include "ui/controls/plain_field.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QFocusEvent>
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

// Pasting.

void PlainField::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Paste)) return QLineEdit::keyPressEvent(event);
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
    const QString line = ToQt(PastedLine(FromQt(pasted)));
    if (!line.isEmpty()) insert(line);
    return !line.isEmpty();
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
