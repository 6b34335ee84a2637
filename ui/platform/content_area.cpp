#include "ui/platform/content_area.h"

#include <QLayout>
#include <QScreen>
#include <algorithm>

namespace orvane {

ContentArea::ContentArea(QWidget& content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(&content);
}

// What the screen leaves for the content of its window.
QSize ContentArea::Room() const {
  QSize room = screen()->availableGeometry().size() - WindowFrame;
  const QLayout* around = window()->layout();
  const QWidget* menus = around == nullptr ? nullptr : around->menuBar();
  if (menus != nullptr) room.rheight() -= menus->sizeHint().height();
  return room;
}

QSize ContentArea::minimumSizeHint() const {
  if (widget() == nullptr) return QScrollArea::minimumSizeHint();  // while the window goes
  return widget()->minimumSizeHint().boundedTo(Room());
}

bool ContentArea::hasHeightForWidth() const {
  return widget() != nullptr && widget()->hasHeightForWidth();
}

int ContentArea::heightForWidth(int width) const {
  if (!hasHeightForWidth()) return -1;
  return std::min(widget()->heightForWidth(width), Room().height());
}

QSize ContentArea::sizeHint() const {
  return widget() == nullptr ? QScrollArea::sizeHint() : widget()->sizeHint();
}

}  // namespace orvane
