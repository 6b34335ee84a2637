#include "ui/controls/plain_combo.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "ui/platform/qt_text.h"

namespace orvane {

void PlainCombo::Fill(const Table<std::string>& entries) {
  const QSignalBlocker quiet(this);
  clear();
  for (const std::string& entry : entries) addItem(ToQt(entry));
  // The first entry added to an empty box selects itself.
  setCurrentIndex(-1);
}

void PlainCombo::SelectQuietly(int index) {
  const QSignalBlocker quiet(this);
  setCurrentIndex(index);
}

Table<std::string> PlainCombo::Entries() const {
  Table<std::string> entries;
  for (int at = 0; at < count(); ++at) entries.Append(FromQt(itemText(at)));
  return entries;
}

std::string PlainCombo::Text() const {
  return currentIndex() < 0 ? std::string() : FromQt(currentText());
}

// The list is left alone until a letter comes: it tells by itself where it opens.
void PlainCombo::SearchAfresh() {
  lastLetter_.invalidate();
  searchesAfresh_ = true;
}

bool PlainCombo::ChoosesByKey(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return true;
    case Qt::Key_Down:
      return (key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) != Qt::AltModifier;
    default:
      return false;
  }
}

void PlainCombo::focusInEvent(QFocusEvent* event) {
  SearchAfresh();
  QComboBox::focusInEvent(event);
}

void PlainCombo::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void PlainCombo::keyPressEvent(QKeyEvent* event) {
  const bool plain = !(event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
  const bool letter = plain && !event->text().isEmpty() && event->text().front().isPrint();
  const bool searching =
      lastLetter_.isValid() && !lastLetter_.hasExpired(QApplication::keyboardInputInterval());
  if (letter && event->key() == Qt::Key_Space && searching) {
    lastLetter_.start();
    view()->keyboardSearch(event->text());
    const int found = view()->currentIndex().row();
    if (found >= 0 && found != currentIndex()) {
      setCurrentIndex(found);
      emit activated(found);
    }
    event->accept();
    return;
  }
  if (letter) {
    // A search for nothing ends the former one.
    if (searchesAfresh_) view()->keyboardSearch({});
    searchesAfresh_ = false;
    lastLetter_.start();
  }
  QComboBox::keyPressEvent(event);
}

}  // namespace orvane
