// Shows the pages of a document below one another, at any zoom.
#pragma once

#include <QAbstractSlider>
#include <QPixmap>
#include <QRectF>
#include <QSize>
#include <functional>
#include <map>
#include <set>
#include <vector>

#include "drawing/document.h"
#include "ui/controls/desk_view.h"

namespace orvane {

enum class PageZoom { FitPage, FitWidth, Free };

// Only what is in sight is painted, so that a document may have any number of pages. At first a
// whole page is fitted into the view. Besides the keys of every desk, 2 fits the width; the page
// keys and the blank go on by a view, or by a page while a page is fitted, with Ctrl always by a
// page; Home and End go to the document's ends, the arrow keys move by a little. Pages are counted
// from 1.
class DocumentPages : public DeskView {
 public:
  explicit DocumentPages(QWidget* parent = nullptr);

  // Shows the document from its first page on, or nothing. It stays the caller's and must neither
  // change nor go before another is shown.
  void ShowDocument(const Document* document);

  // The page in sight, or the one of several that was gone to; 0 without pages.
  int CurrentPage() const { return current_; }
  int PageCount() const { return static_cast<int>(tops_.size()); }
  // Brings a page into sight; the number is kept within those that there are.
  void GoTo(int page);

  PageZoom Zoom() const { return zoom_; }
  double PixelsPerMm() const override;
  void Fit() override { SetZoom(PageZoom::FitPage); }
  void FitWidth() { SetZoom(PageZoom::FitWidth); }

  // Another page is the current one, or the zoom is another.
  std::function<void()> Changed;

  // Where a page lies in the viewport, in the toolkit's device-independent pixels.
  QRectF PaperPlace(int page) const;
  // How often a page was painted afresh, for whoever measures or tests it.
  int PaintCount() const { return paintCount_; }

 protected:
  void SetScale(double pixelsPerMm, QPointF around) override;
  void Repaint() override;
  bool ZoomKey(int key) override;
  bool MoveKey(const QKeyEvent& key) override;
  void scrollContentsBy(int dx, int dy) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // A point of a page, mm.
  struct Spot {
    int Page = 0;
    QPointF OnPaper;
  };

  const Page& PageAt(int page) const;
  double HeightAbove(int page) const;  // of the pages in front of it, mm
  double TopOf(int page) const;        // pixels from the top of the desk
  double WholeHeight() const;          // of the desk, pixels
  double WholeWidth() const;
  double FittedScale(PageZoom zoom) const;
  int PageBelow(double height) const;  // the first that ends below that height of the desk
  int PageInSight() const;

  void SetZoom(PageZoom zoom);
  void Settle();
  Spot SpotAt(QPointF point) const;
  void Place(const Spot& spot, QPointF at);
  void SetCurrent(int page);
  void Turn(int pages);
  void TurnView(QAbstractSlider::SliderAction action, int pages, bool wholePages);

  void Forget();
  QPixmap Painted();
  void PaintOne(QPainter& canvas, int page, double ratio, QSize size);
  const QPixmap& Tile(int page, QSize paper, double ratio);

  const Document* document_ = nullptr;
  std::vector<double> tops_;  // of each page, mm below the first one's without the gaps
  double paperHeight_ = 0;    // of all pages, mm
  double widest_ = 0;
  double highest_ = 0;

  PageZoom zoom_ = PageZoom::FitPage;
  double scale_ = 1;  // pixels to the millimetre
  int current_ = 0;
  bool settling_ = false;

  // Pages as they were painted last, with their shadows, and those that couldn't be.
  std::map<int, QPixmap> tiles_;
  std::set<int> failed_;
  double tileScale_ = 0;  // pixels of the device to the millimetre
  int paintCount_ = 0;
};

}  // namespace orvane
