#include "ui/controls/page_view.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "ui/platform/guard.h"
#include "ui/platform/page_painter.h"

namespace orvane {

PageView::PageView(QWidget* parent) : DeskView(parent) {
  setFocusPolicy(Qt::ClickFocus);
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

// Painting.

void PageView::Repaint() {
  painting_ = QPixmap();
  viewport()->update();
}

// The blank paper on the desk, in the device's own pixels. It is kept, since the shadow, of many
// layers, takes longer than most pages.
const QPixmap& PageView::Desk(QSize size, const QRectF& paper, double ratio) {
  const QColor color = DeskColor();
  if (desk_.size() == size && paper == deskPaper_ && color == deskColor_) return desk_;
  desk_ = QPixmap(size);
  deskPaper_ = paper;
  deskColor_ = color;
  desk_.fill(color);
  if (paper.isEmpty()) return desk_;
  QPainter painter(&desk_);
  PaintPaper(painter, paper, ratio);
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

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  SettleScrollBars();
  Repaint();
}

bool PageView::MoveKey(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_PageUp:
      verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub);
      return true;
    case Qt::Key_PageDown:
      verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
      return true;
    case Qt::Key_Home:
      verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
      return true;
    case Qt::Key_End:
      verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
      return true;
    default:
      return false;
  }
}

}  // namespace orvane
