// What a reader of the screen would call the controls of a window.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QLineEdit>
#include <QScrollBar>
#include <QWidget>
#include <string>
#include <vector>

#include "ui/platform/qt_text.h"

namespace orvane::test {

inline std::string SpokenName(QWidget& control) {
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&control);
  return told == nullptr ? "" : FromQt(told->text(QAccessible::Name));
}

// Class and objectName of each control in sight that takes the keys or the mouse and has no name.
inline std::vector<std::string> UnnamedControls(const QWidget& window) {
  std::vector<std::string> unnamed;
  for (QWidget* control : window.findChildren<QWidget*>()) {
    const bool isUsed =
        control->focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(control) != nullptr;
    // What stands in a window of its own is that one's; fields within others speak by those.
    const bool isOwn = control->window() == &window && control->focusProxy() == nullptr;
    if (!isUsed || !isOwn || !control->isVisible() || !SpokenName(*control).empty()) continue;
    if (control->objectName().startsWith("qt_")) continue;
    unnamed.push_back(std::string(control->metaObject()->className()) + " " +
                      FromQt(control->objectName()));
  }
  return unnamed;
}

}  // namespace orvane::test
