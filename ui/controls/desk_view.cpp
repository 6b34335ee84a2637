#include "ui/controls/desk_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>

namespace orvane {

namespace {

// A shade deeper than the window around it, in every theme.
constexpr int DeskDepth = 112;   // percent
constexpr int ShadowDepth = 14;  // opacity of each of its layers, of 255

constexpr double ZoomStep = 1.25;   // by a key, or one notch of the wheel
constexpr double WheelNotch = 120;  // angle of a notch, eighths of a degree
constexpr double MmToTheInch = 25.4;

}  // namespace

DeskView::DeskView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

// Zooming.

void DeskView::ZoomBy(double factor, QPointF around) {
  const double scale = PixelsPerMm();
  if (scale > 0) SetScale(scale * factor, around);
}

void DeskView::ZoomIn() {
  ZoomBy(ZoomStep, Middle());
}

void DeskView::ZoomOut() {
  ZoomBy(1 / ZoomStep, Middle());
}

void DeskView::ShowTrueSize() {
  if (PixelsPerMm() > 0) SetScale(logicalDpiX() / MmToTheInch, Middle());
}

bool DeskView::ZoomKey(int key) {
  switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:  // the plus key without Shift
      ZoomIn();
      return true;
    case Qt::Key_Minus:
      ZoomOut();
      return true;
    case Qt::Key_0:
      Fit();
      return true;
    case Qt::Key_1:
      ShowTrueSize();
      return true;
    default:
      return false;
  }
}

// Painting.

QColor DeskView::DeskColor() const {
  return palette().color(QPalette::Window).darker(DeskDepth);
}

void DeskView::PaintPaper(QPainter& painter, const QRectF& paper, double ratio) {
  painter.setPen(Qt::NoPen);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(0, 0, 0, ShadowDepth));
  for (int layer = 1; layer <= ShadowReach; ++layer) {
    const double reach = layer * ratio / 2;
    painter.drawRoundedRect(paper.adjusted(-reach, 0, reach, 2 * reach), reach, reach);
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(paper, Qt::white);
}

bool DeskView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ScreenChangeInternal) {
    Repaint();
  }
  return QAbstractScrollArea::viewportEvent(event);
}

void DeskView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Repaint();
}

void DeskView::scrollContentsBy(int, int) {
  Repaint();
}

// Mouse and keys.

bool DeskView::Scrollable() const {
  return horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
}

void DeskView::ShowHand() {
  if (!Scrollable()) return viewport()->unsetCursor();
  viewport()->setCursor(dragging_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
}

void DeskView::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  // A touchpad tells of fingers that only rest on it, or go sideways: no zoom is asked for then.
  const int angle = event->angleDelta().y();
  if (angle != 0) ZoomBy(std::pow(ZoomStep, angle / WheelNotch), event->position());
  event->accept();
}

void DeskView::mousePressEvent(QMouseEvent* event) {
  const bool moves = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
  if (!moves || !Scrollable()) return QAbstractScrollArea::mousePressEvent(event);
  dragging_ = true;
  dragged_ = event->position().toPoint();
  ShowHand();
}

void DeskView::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return QAbstractScrollArea::mouseMoveEvent(event);
  const QPoint now = event->position().toPoint();
  const QPoint way = now - dragged_;
  dragged_ = now;
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - way.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() - way.y());
}

void DeskView::mouseReleaseEvent(QMouseEvent* event) {
  dragging_ = false;
  ShowHand();
  QAbstractScrollArea::mouseReleaseEvent(event);
}

bool DeskView::TakeKey(const QKeyEvent& key) {
  const auto others = Qt::AltModifier | Qt::MetaModifier;
  if (!(key.modifiers() & others) && ZoomKey(key.key())) return true;
  return MoveKey(key);
}

void DeskView::keyPressEvent(QKeyEvent* event) {
  if (TakeKey(*event)) return event->accept();
  QAbstractScrollArea::keyPressEvent(event);
}

}  // namespace orvane
