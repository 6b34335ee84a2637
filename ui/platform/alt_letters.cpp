#include "ui/platform/alt_letters.h"

#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace orvane {

namespace {

bool IsAltLetter(const QKeyEvent& key) {
  const Qt::KeyboardModifiers held =
      key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  return held == Qt::AltModifier && !key.text().isEmpty() && key.text().front().isPrint();
}

class AltLetters : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const bool isField = qobject_cast<QLineEdit*>(watched) != nullptr ||
                         qobject_cast<QAbstractSpinBox*>(watched) != nullptr;
    if (!isField || !IsAltLetter(*static_cast<QKeyEvent*>(event))) return false;
    // Past the field: what it stands in may have a use for the key.
    QWidget* around = static_cast<QWidget*>(watched)->parentWidget();
    if (around != nullptr) QCoreApplication::sendEvent(around, event);
    return true;
  }
};

}  // namespace

void KeepAltFromTyping() {
  auto* application = QCoreApplication::instance();
  application->installEventFilter(new AltLetters(application));  // goes with the application
}

}  // namespace orvane
