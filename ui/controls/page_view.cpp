#include "ui/controls/page_view.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "ui/platform/guard.h"
#include "ui/platform/page_painter.h"

namespace orvane {

namespace {

// A ring stands this far off what it goes round, and is never smaller: a hole at a small scale is.
constexpr double RingGap = 1.5;     // mm of the page
constexpr double LeastRing = 16;    // device-independent pixels
constexpr double RoundCorner = 10;  // of a ring around something long
constexpr double StrongRingPen = 2.5;
constexpr double QuietRingPen = 2;
// Seen on white paper, of which the screen's sheet is made in light and dark.
constexpr QColor StrongRing(200, 16, 32);
constexpr QColor QuietRing(150, 86, 0);

}  // namespace

PageView::PageView(QWidget* parent) : DeskView(parent) {
  setFocusPolicy(Qt::ClickFocus);
  SettleScrollBars();
}

void PageView::ShowPage(const Page* page) {
  page_ = page;
  SettleScrollBars();
  Repaint();
}

void PageView::ShowRings(std::vector<PageRing> rings) {
  if (rings == rings_) return;
  rings_ = std::move(rings);
  viewport()->update();
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
    PaintRings(painter);
  });
}

// Over the page, which is painted no further for it.
void PageView::PaintRings(QPainter& painter) const {
  const QRectF paper = PaperPlace();
  if (rings_.empty() || paper.isEmpty()) return;
  const double scale = PixelsPerMm();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(paper);
  for (const PageRing& ring : rings_) {
    QRectF place = ring.Place.adjusted(-RingGap, -RingGap, RingGap, RingGap);
    place = QRectF(paper.topLeft() + place.topLeft() * scale, place.size() * scale);
    const QSizeF size = place.size().expandedTo(QSizeF(LeastRing, LeastRing));
    const QPointF centre = place.center();
    place = QRectF(centre - QPointF(size.width(), size.height()) / 2, size);
    painter.setPen(ring.IsStrong ? QPen(StrongRing, StrongRingPen)
                                 : QPen(QuietRing, QuietRingPen, Qt::DashLine));
    const double corner = std::max(std::min(size.width(), size.height()) / 2, RoundCorner);
    painter.drawRoundedRect(place, corner, corner);
  }
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
