// A dialog without a default button: Enter in a field presses nothing.
#pragma once

#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcutEvent>
#include <QVBoxLayout>

#include "ui/platform/dialog_place.h"

namespace orvane {

// Acts at once when its key is pressed, and once when it is held down. The toolkit's own button
// shows itself pressed for a tenth of a second first, and what is typed meanwhile would go to the
// field before it.
class PlainButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Shortcut) return QPushButton::event(event);
    const auto& shortcut = *static_cast<QShortcutEvent*>(event);
    if (shortcut.isAmbiguous()) return QPushButton::event(event);
    // From the first press on, as the button's key may have changed before.
    setShortcutAutoRepeat(shortcut.shortcutId(), false);
    click();
    return true;
  }
};

// Enter presses the button that has the focus, as the blank does, but not when it is held down, be
// it since a field before; Escape closes the dialog. Its buttons are made by AddButton, so that
// none becomes the default by itself. It comes back where it was left.
class PlainDialog : public QDialog {
 protected:
  explicit PlainDialog(QWidget* parent) : QDialog(parent) { KeepPlace(*this); }

  // A button of this dialog; the caller puts it into the layout.
  QPushButton* AddButton(const QString& name, const QString& caption) {
    auto* button = new PlainButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
  }

  // The dialog's own layout from top to bottom, with room to breathe at any size of text.
  QVBoxLayout* AddLayout() {
    const int line = fontMetrics().height();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(line, line, line, line);
    layout->setSpacing(line * 3 / 4);
    return layout;
  }

  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (enter && button != nullptr) {
      if (!event->isAutoRepeat()) button->click();
      return;
    }
    QDialog::keyPressEvent(event);
  }
};

}  // namespace orvane
