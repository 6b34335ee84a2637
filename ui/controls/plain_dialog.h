// A dialog without a default button: Enter in a field presses nothing.
#pragma once

#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvane {

// Enter presses the button that has the focus, as the blank does; Escape closes the dialog. Its
// buttons are made by AddButton, so that none becomes the default by itself.
class PlainDialog : public QDialog {
 protected:
  explicit PlainDialog(QWidget* parent) : QDialog(parent) {}

  // A button of this dialog; the caller puts it into the layout.
  QPushButton* AddButton(const QString& name, const QString& caption) {
    auto* button = new QPushButton(caption, this);
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
      button->click();
      return;
    }
    QDialog::keyPressEvent(event);
  }
};

}  // namespace orvane
