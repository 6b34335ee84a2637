#include "ui/controls/page_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "ui/platform/guard.h"
#include "ui/platform/page_painter.h"

namespace orvane {

namespace {

// The desk that a sheet lies on: a shade deeper than the window around it, in every theme.
constexpr int DeskDepth = 112;   // percent
constexpr double DeskEdge = 12;  // pixels of the desk that show around the paper
constexpr int ShadowReach = 6;   // pixels
constexpr int ShadowDepth = 14;  // opacity of each of its layers, of 255

constexpr double ZoomStep = 1.25;      // by a key, or one notch of the wheel
constexpr double WheelNotch = 120;     // angle of a notch, eighths of a degree
constexpr double LeastScale = 0.2;     // pixels to the millimetre
constexpr double GreatestScale = 100;  // a metre of screen for a centimetre
constexpr double MmPerInch = 25.4;

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::ClickFocus);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  SettleScrollBars();
}

void PageView::ShowPage(const Page* page) {
  page_ = page;
  SettleScrollBars();
  Repaint();
}

// Place and scale.

double PageView::FittedScale() const {
  const double width = viewport()->width() - 2 * DeskEdge;
  const double height = viewport()->height() - 2 * DeskEdge;
  return std::max(std::min(width / page_->Width, height / page_->Height), LeastScale);
}

double PageView::PixelsPerMm() const {
  if (page_ == nullptr || !(page_->Width > 0) || !(page_->Height > 0)) return 0;
  return fitted_ ? FittedScale() : scale_;
}

QRectF PageView::PaperPlace() const {
  const double scale = PixelsPerMm();
  if (scale == 0) return {};
  const QSizeF paper(page_->Width * scale, page_->Height * scale);
  const auto start = [](double paperSize, int viewSize, const QScrollBar& bar) {
    if (paperSize + 2 * DeskEdge <= viewSize) return (viewSize - paperSize) / 2;
    return DeskEdge - bar.value();
  };
  return {QPointF(start(paper.width(), viewport()->width(), *horizontalScrollBar()),
                  start(paper.height(), viewport()->height(), *verticalScrollBar())),
          paper};
}

void PageView::Fit() {
  fitted_ = true;
  SettleScrollBars();
  Repaint();
}

void PageView::ZoomBy(double factor, QPointF around) {
  const double scale = PixelsPerMm();
  if (scale > 0) SetScale(scale * factor, around);
}

void PageView::SetScale(double pixelsPerMm, QPointF around) {
  const double former = PixelsPerMm();
  if (former == 0) return;
  const QPointF onPaper = (around - PaperPlace().topLeft()) / former;
  fitted_ = false;
  scale_ = std::clamp(pixelsPerMm, LeastScale, GreatestScale);
  SettleScrollBars();
  // A bar that has come or gone has changed the view's size by now.
  const QPointF moved = PaperPlace().topLeft() + onPaper * scale_ - around;
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(moved.x()));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(moved.y()));
  Repaint();
}

// A page that is fitted needs no bars, and they must not come and go with the size that they take.
void PageView::SettleScrollBars() {
  const bool fits = fitted_ || PixelsPerMm() == 0;
  const Qt::ScrollBarPolicy policy = fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
  setHorizontalScrollBarPolicy(policy);
  setVerticalScrollBarPolicy(policy);
  const auto settle = [&](QScrollBar& bar, double paperSize, int viewSize) {
    const double whole = paperSize * PixelsPerMm() + 2 * DeskEdge;
    bar.setRange(0, fits ? 0 : std::max(qCeil(whole) - viewSize, 0));
    bar.setPageStep(viewSize);
    bar.setSingleStep(std::max(viewSize / 20, 1));
  };
  // Twice: the one bar may take the room that lets the other one come.
  for (int round = 0; round < 2; ++round) {
    settle(*horizontalScrollBar(), page_ == nullptr ? 0 : page_->Width, viewport()->width());
    settle(*verticalScrollBar(), page_ == nullptr ? 0 : page_->Height, viewport()->height());
  }
  ShowHand();
}

bool PageView::Scrollable() const {
  return horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
}

void PageView::ShowHand() {
  if (!Scrollable()) return viewport()->unsetCursor();
  viewport()->setCursor(dragging_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
}

// Painting.

void PageView::Repaint() {
  painting_ = QPixmap();
  viewport()->update();
}

// The blank paper on the desk, in the device's own pixels. It is kept, since the shadow, of many
// layers, takes longer than most pages.
const QPixmap& PageView::Desk(QSize size, const QRectF& paper, double ratio) {
  const QColor color = palette().color(QPalette::Window).darker(DeskDepth);
  if (desk_.size() == size && paper == deskPaper_ && color == deskColor_) return desk_;
  desk_ = QPixmap(size);
  deskPaper_ = paper;
  deskColor_ = color;
  desk_.fill(color);
  if (paper.isEmpty()) return desk_;
  QPainter painter(&desk_);
  painter.setPen(Qt::NoPen);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(0, 0, 0, ShadowDepth));
  for (int layer = 1; layer <= ShadowReach; ++layer) {
    const double reach = layer * ratio / 2;
    painter.drawRoundedRect(paper.adjusted(-reach, 0, reach, 2 * reach), reach, reach);
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(paper, Qt::white);
  return desk_;
}

// The whole view in the device's own pixels.
QPixmap PageView::Painted() {
  const double ratio = viewport()->devicePixelRatioF();
  const QRectF place = PaperPlace();
  const QPointF corner = (place.topLeft() * ratio).toPoint();
  const QRectF paper(corner, QSizeF((place.size() * ratio).toSize()));
  QPixmap pixmap = Desk((QSizeF(viewport()->size()) * ratio).toSize(), paper, ratio);
  if (!paper.isEmpty()) {
    QPainter painter(&pixmap);
    painter.setClipRect(paper);
    PaintPage(painter, *page_, corner, PixelsPerMm() * ratio, PaintDevice::Screen);
  }
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

void PageView::paintEvent(QPaintEvent*) {
  GuardFocusChange([this] {
    if (painting_.isNull() || painting_.devicePixelRatio() != viewport()->devicePixelRatioF()) {
      // Something to show even if the painting fails, which would otherwise ask for the next one.
      painting_ = QPixmap(1, 1);
      painting_.setDevicePixelRatio(viewport()->devicePixelRatioF());
      painting_.fill(Qt::transparent);
      painting_ = Painted();
      ++paintCount_;
    }
    QPainter painter(viewport());
    painter.drawPixmap(QPointF(0, 0), painting_);
  });
}

bool PageView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ScreenChangeInternal) {
    Repaint();
  }
  return QAbstractScrollArea::viewportEvent(event);
}

void PageView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Repaint();
}

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  SettleScrollBars();
  Repaint();
}

void PageView::scrollContentsBy(int, int) {
  Repaint();
}

// Mouse and keys.

void PageView::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  ZoomBy(std::pow(ZoomStep, event->angleDelta().y() / WheelNotch), event->position());
  event->accept();
}

void PageView::mousePressEvent(QMouseEvent* event) {
  const bool moves = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
  if (!moves || !Scrollable()) return QAbstractScrollArea::mousePressEvent(event);
  dragging_ = true;
  dragged_ = event->position().toPoint();
  ShowHand();
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return QAbstractScrollArea::mouseMoveEvent(event);
  const QPoint now = event->position().toPoint();
  const QPoint way = now - dragged_;
  dragged_ = now;
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - way.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() - way.y());
}

void PageView::mouseReleaseEvent(QMouseEvent* event) {
  dragging_ = false;
  ShowHand();
  QAbstractScrollArea::mouseReleaseEvent(event);
}

bool PageView::ZoomKey(int key) {
  const QPointF middle = QRectF(viewport()->rect()).center();
  switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:  // the plus key without Shift
      ZoomBy(ZoomStep, middle);
      return true;
    case Qt::Key_Minus:
      ZoomBy(1 / ZoomStep, middle);
      return true;
    case Qt::Key_0:
      Fit();
      return true;
    case Qt::Key_1:
      SetScale(logicalDpiX() / MmPerInch, middle);
      return true;
    default:
      return false;
  }
}

void PageView::keyPressEvent(QKeyEvent* event) {
  const auto others = Qt::AltModifier | Qt::MetaModifier;
  if (!(event->modifiers() & others) && ZoomKey(event->key())) return event->accept();
  switch (event->key()) {
    case Qt::Key_PageUp:
      return verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub);
    case Qt::Key_PageDown:
      return verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
    case Qt::Key_Home:
      return verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
    case Qt::Key_End:
      return verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

}  // namespace orvane
