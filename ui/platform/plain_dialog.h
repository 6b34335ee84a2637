// What all dialogs share: their buttons, what Enter and Escape do in them, and where they stand.
#pragma once

#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcutEvent>
#include <QVBoxLayout>

#include "core/desktop.h"
#include "ui/platform/content_area.h"
#include "ui/platform/dialog_place.h"
#include "ui/platform/guard.h"
#include "ui/platform/help_key.h"

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
// it since a field before; from any other field it presses the one button that goes on, where the
// dialog has one. Escape and the frame's button close the dialog, after a question if something was
// changed in it that closing would lose. Its buttons are made by AddButton, so that
// none becomes the default by itself. It comes back where it was left.
class PlainDialog : public QDialog {
 public:
  void reject() override {
    bool closes = false;
    Guard([&] { closes = !HasChanges() || MayDiscard(); });
    if (closes) Cancel();
  }

 protected:
  explicit PlainDialog(QWidget* parent) : QDialog(parent) {
    KeepPlace(*this);
    GiveHelpKey(*this);
  }

  // A button of this dialog; the caller puts it into the layout.
  QPushButton* AddButton(const QString& name, const QString& caption) {
    auto* button = new PlainButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
  }

  // The dialog's own layout from top to bottom, with room to breathe at any size of text. Where the
  // screen is too small for it all, it scrolls. A menu bar belongs to the layout of the dialog,
  // which stands around it.
  QVBoxLayout* AddLayout() {
    const int line = fontMetrics().height();
    auto* content = new QWidget;
    auto* around = new QVBoxLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    around->addWidget(new ContentArea(*content, this));
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(line, line, line, line);
    layout->setSpacing(line * 3 / 4);
    return layout;
  }

  // The one button that goes on. Without one, Enter in a field presses nothing.
  void PressByEnter(QPushButton& button) {
    goesOn_ = &button;
    button.setDefault(true);
  }

  // Whether something was changed that closing the dialog would lose.
  virtual bool HasChanges() { return false; }
  // Closes without a question, as the button of that name does.
  void Cancel() { QDialog::reject(); }

  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool held = event->modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (button == nullptr && !held) button = goesOn_;
    if (enter && button != nullptr) {
      if (!event->isAutoRepeat()) button->click();
      return;
    }
    // One that has just closed a list or taken a cell back does no second thing while it is held.
    if (event->key() == Qt::Key_Escape && event->isAutoRepeat()) return;
    QDialog::keyPressEvent(event);
  }

 private:
  static bool MayDiscard() {
    return TheDesktop().ShowMessageBox("Discard the changes?", "", Buttons::YesNo, Icon::None) ==
           Answer::Yes;
  }

  QPushButton* goesOn_ = nullptr;
};

}  // namespace orvane
