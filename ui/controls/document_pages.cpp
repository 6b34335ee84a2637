#include "ui/controls/document_pages.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/platform/guard.h"
#include "ui/platform/page_painter.h"

namespace orvane {

namespace {

constexpr double PageGap = 16;  // pixels between two pages

// A page of more pixels than that isn't kept, but painted as far as it is in sight.
constexpr double MostTilePixels = 8e6;

// What the scroll bars count up to; some thousand pages at the greatest zoom.
constexpr double FarthestScroll = 1e9;

}  // namespace

DocumentPages::DocumentPages(QWidget* parent) : DeskView(parent) {
  setFocusPolicy(Qt::StrongFocus);
  Settle();
}

void DocumentPages::ShowDocument(const Document* document) {
  document_ = document;
  tops_.clear();
  paperHeight_ = widest_ = highest_ = 0;
  if (document != nullptr) {
    for (const Page& page : document->Pages) {
      tops_.push_back(paperHeight_);
      paperHeight_ += page.Height;
      widest_ = std::max(widest_, page.Width);
      highest_ = std::max(highest_, page.Height);
    }
  }
  current_ = 0;
  zoom_ = PageZoom::FitPage;
  Repaint();
  Settle();
  GoTo(1);
}

// Place and scale.

const Page& DocumentPages::PageAt(int page) const {
  return document_->Pages.at(static_cast<std::size_t>(page) - 1);
}

double DocumentPages::HeightAbove(int page) const {
  return tops_.at(static_cast<std::size_t>(page) - 1);
}

double DocumentPages::TopOf(int page) const {
  return DeskEdge + HeightAbove(page) * scale_ + (page - 1) * PageGap;
}

double DocumentPages::WholeHeight() const {
  return 2 * DeskEdge + paperHeight_ * scale_ + (PageCount() - 1) * PageGap;
}

double DocumentPages::WholeWidth() const {
  return 2 * DeskEdge + widest_ * scale_;
}

double DocumentPages::PixelsPerMm() const {
  return PageCount() == 0 || !(widest_ > 0) || !(highest_ > 0) ? 0 : scale_;
}

double DocumentPages::FittedScale(PageZoom zoom) const {
  const double across = (viewport()->width() - 2 * DeskEdge) / widest_;
  const double down = (viewport()->height() - 2 * DeskEdge) / highest_;
  const double scale = zoom == PageZoom::FitWidth ? across : std::min(across, down);
  return std::clamp(scale, LeastScale, GreatestScale);
}

QRectF DocumentPages::PaperPlace(int page) const {
  const QSizeF paper(PageAt(page).Width * scale_, PageAt(page).Height * scale_);
  const double deskWidth = std::max<double>(WholeWidth(), viewport()->width());
  const double spare = std::max(viewport()->height() - WholeHeight(), 0.0);
  return {QPointF((deskWidth - paper.width()) / 2 - horizontalScrollBar()->value(),
                  TopOf(page) + spare / 2 - verticalScrollBar()->value()),
          paper};
}

int DocumentPages::PageBelow(double height) const {
  int first = 1;
  int last = PageCount();
  while (first < last) {
    const int middle = (first + last) / 2;
    if (TopOf(middle) + PageAt(middle).Height * scale_ > height) {
      last = middle;
    } else {
      first = middle + 1;
    }
  }
  return first;
}

// The page at a line of the view that goes down with the scroll bar, so that each page has its
// turn, the first and the last too, however many are in sight.
int DocumentPages::PageInSight() const {
  if (PageCount() == 0) return 0;
  const QScrollBar& bar = *verticalScrollBar();
  const double way = bar.maximum() == 0 ? 0 : static_cast<double>(bar.value()) / bar.maximum();
  return PageBelow(bar.value() + way * viewport()->height());
}

DocumentPages::Spot DocumentPages::SpotAt(QPointF point) const {
  const int page = PageBelow(verticalScrollBar()->value() + point.y());
  return {page, (point - PaperPlace(page).topLeft()) / scale_};
}

// Scrolls so that the spot lies at that point of the viewport, as far as there is desk.
void DocumentPages::Place(const Spot& spot, QPointF at) {
  const QPointF moved = PaperPlace(spot.Page).topLeft() + spot.OnPaper * scale_ - at;
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(moved.x()));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(moved.y()));
}

void DocumentPages::SetZoom(PageZoom zoom) {
  const PageZoom former = std::exchange(zoom_, zoom);
  if (PixelsPerMm() == 0) return;
  const int page = current_;
  const QPointF top = QPointF(Middle().x(), DeskEdge);
  const Spot read =
      former == PageZoom::FitPage ? Spot{page, {PageAt(page).Width / 2, 0}} : SpotAt(top);
  Settle();
  if (zoom == PageZoom::FitPage) return GoTo(page);
  // What is being read goes on from the same line.
  Place(read, top);
  SetCurrent(read.Page);
  viewport()->update();
}

void DocumentPages::SetScale(double pixelsPerMm, QPointF around) {
  if (PixelsPerMm() == 0) return;
  const Spot spot = SpotAt(around);
  zoom_ = PageZoom::Free;
  scale_ = std::clamp(pixelsPerMm, LeastScale, GreatestScale);
  Settle();
  // A bar that has come or gone has changed the view's size by now.
  Place(spot, around);
  SetCurrent(PageInSight());
  viewport()->update();
}

// Scale and scroll bars for the present size of the view. The upright bar stands all the time: what
// it takes of the width must not depend on the scale, which may depend on the width.
void DocumentPages::Settle() {
  if (settling_) return;
  const QScopedValueRollback<bool> settling(settling_, true);
  const bool paper = PixelsPerMm() > 0;
  const bool whole = !paper || (zoom_ == PageZoom::FitPage && PageCount() == 1);
  setVerticalScrollBarPolicy(whole ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(zoom_ == PageZoom::Free ? Qt::ScrollBarAsNeeded
                                                       : Qt::ScrollBarAlwaysOff);
  if (paper && zoom_ != PageZoom::Free) scale_ = FittedScale(zoom_);
  const auto settle = [](QScrollBar& bar, double whole, int viewSize) {
    bar.setRange(0, std::max(qCeil(std::min(whole, FarthestScroll)) - viewSize, 0));
    bar.setPageStep(viewSize);
    bar.setSingleStep(std::max(viewSize / 20, 1));
  };
  // Twice: the level bar may take some of the height.
  for (int round = 0; round < 2; ++round) {
    settle(*horizontalScrollBar(), paper ? WholeWidth() : 0, viewport()->width());
    settle(*verticalScrollBar(), paper ? WholeHeight() : 0, viewport()->height());
  }
  ShowHand();
}

void DocumentPages::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  if (settling_) return;
  if (PixelsPerMm() == 0) {
    Settle();
  } else if (zoom_ == PageZoom::FitPage) {
    const int page = current_;
    Settle();
    GoTo(page);
  } else {
    const int page = current_;
    // Where a page's upper edge is after the way to it.
    const double top = DeskEdge;
    const Spot former = SpotAt(QPointF(event->oldSize().width() / 2.0, top));
    Settle();
    Place(former, QPointF(viewport()->width() / 2.0, top));
    SetCurrent(page);
  }
  viewport()->update();
}

// Going through the pages.

void DocumentPages::GoTo(int page) {
  if (PixelsPerMm() == 0) return SetCurrent(0);
  page = std::clamp(page, 1, PageCount());
  // A page that fits lies in the middle, a larger one begins at the top.
  const double spare = viewport()->height() - 2 * DeskEdge - PageAt(page).Height * scale_;
  const double above = zoom_ == PageZoom::FitPage ? std::max(spare / 2, 0.0) : 0;
  verticalScrollBar()->setValue(qRound(TopOf(page) - DeskEdge - above));
  SetCurrent(page);
  viewport()->update();
}

void DocumentPages::SetCurrent(int page) {
  current_ = page;
  if (Changed) Changed();
}

void DocumentPages::Turn(int pages) {
  GoTo(current_ + pages);
}

void DocumentPages::TurnView(QAbstractSlider::SliderAction action, int pages, bool wholePages) {
  if (wholePages || zoom_ == PageZoom::FitPage) return Turn(pages);
  verticalScrollBar()->triggerAction(action);
}

void DocumentPages::scrollContentsBy(int, int) {
  if (!settling_ && PixelsPerMm() > 0) SetCurrent(PageInSight());
  viewport()->update();
}

bool DocumentPages::ZoomKey(int key) {
  if (key != Qt::Key_2) return DeskView::ZoomKey(key);
  FitWidth();
  return true;
}

bool DocumentPages::MoveKey(const QKeyEvent& key) {
  const bool wholePages = key.modifiers() & Qt::ControlModifier;
  const bool back = key.modifiers() & Qt::ShiftModifier;
  switch (key.key()) {
    case Qt::Key_PageUp:
      TurnView(QScrollBar::SliderPageStepSub, -1, wholePages);
      return true;
    case Qt::Key_PageDown:
      TurnView(QScrollBar::SliderPageStepAdd, 1, wholePages);
      return true;
    case Qt::Key_Space:
      TurnView(back ? QScrollBar::SliderPageStepSub : QScrollBar::SliderPageStepAdd, back ? -1 : 1,
               wholePages);
      return true;
    case Qt::Key_Home:
      GoTo(1);
      return true;
    case Qt::Key_End:
      GoTo(PageCount());
      verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
      return true;
    default:
      return false;
  }
}

// Painting.

void DocumentPages::Repaint() {
  Forget();
  viewport()->update();
}

void DocumentPages::Forget() {
  tiles_.clear();
  failed_.clear();
}

// A page with its shadow on the desk, in the device's own pixels.
const QPixmap& DocumentPages::Tile(int page, QSize paper, double ratio) {
  const auto known = tiles_.find(page);
  if (known != tiles_.end()) return known->second;
  const int edge = qCeil(ShadowReach * ratio);
  QPixmap tile(paper + QSize(2 * edge, 2 * edge));
  tile.fill(DeskColor());
  QPainter painter(&tile);
  const QRectF place(QPointF(edge, edge), QSizeF(paper));
  PaintPaper(painter, place, ratio);
  painter.setClipRect(place);
  PaintPage(painter, PageAt(page), place.topLeft(), scale_ * ratio, PaintDevice::Screen);
  painter.end();
  ++paintCount_;
  return tiles_.emplace(page, std::move(tile)).first->second;
}

void DocumentPages::PaintOne(QPainter& canvas, int page, double ratio, QSize size) {
  const QRectF place = PaperPlace(page);
  const QPoint corner = (place.topLeft() * ratio).toPoint();
  const QSize paper = (place.size() * ratio).toSize();
  if (static_cast<double>(paper.width()) * paper.height() <= MostTilePixels) {
    const int edge = qCeil(ShadowReach * ratio);
    canvas.drawPixmap(corner - QPoint(edge, edge), Tile(page, paper, ratio));
    return;
  }
  const QRectF whole(corner, QSizeF(paper));
  canvas.save();
  // Only a little beyond the view: paper of a house's size is slow to clip.
  const QRectF around = QRectF(QPointF(), QSizeF(size)).adjusted(-100, -100, 100, 100);
  PaintPaper(canvas, whole.intersected(around), ratio);
  canvas.setClipRect(whole);
  PaintPage(canvas, PageAt(page), corner, scale_ * ratio, PaintDevice::Screen);
  canvas.restore();
  ++paintCount_;
}

// The whole view in the device's own pixels.
QPixmap DocumentPages::Painted() {
  const double ratio = viewport()->devicePixelRatioF();
  if (ratio * scale_ != tileScale_) Forget();
  tileScale_ = ratio * scale_;
  const QSize size = (QSizeF(viewport()->size()) * ratio).toSize();
  QPixmap pixmap(size);
  pixmap.fill(DeskColor());
  if (PixelsPerMm() > 0) {
    QPainter canvas(&pixmap);
    const int first = PageBelow(verticalScrollBar()->value());
    int page = first;
    for (; page <= PageCount() && PaperPlace(page).top() < viewport()->height(); ++page) {
      if (failed_.count(page) > 0) continue;
      // Marked until it is done: a page that can't be painted must not ask for the next try.
      failed_.insert(page);
      PaintOne(canvas, page, ratio, size);
      failed_.erase(page);
    }
    // What is far out of sight is let go.
    tiles_.erase(tiles_.begin(), tiles_.lower_bound(first - 1));
    tiles_.erase(tiles_.upper_bound(page), tiles_.end());
  }
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

void DocumentPages::paintEvent(QPaintEvent*) {
  GuardFocusChange([this] {
    QPainter painter(viewport());
    painter.drawPixmap(QPointF(0, 0), Painted());
  });
}

}  // namespace orvane
