#include "ui/controls/content_area.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>

namespace orvane {

ContentArea::ContentArea(QWidget& content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(&content);
}

QSize ContentArea::minimumSizeHint() const {
  if (widget() == nullptr) return QScrollArea::minimumSizeHint();  // while the window goes
  QSize room = screen()->availableGeometry().size() - WindowFrame;
  if (const auto* main = qobject_cast<const QMainWindow*>(window())) {
    if (const QWidget* menu = main->menuWidget()) room.rheight() -= menu->sizeHint().height();
  }
  return widget()->minimumSizeHint().boundedTo(room);
}

QSize ContentArea::sizeHint() const {
  return widget() == nullptr ? QScrollArea::sizeHint() : widget()->sizeHint();
}

}  // namespace orvane
