// Shows a page of a document as a sheet of paper on a desk, at any zoom.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QRectF>
#include <QSize>
#include <vector>

#include "drawing/document.h"
#include "ui/controls/desk_view.h"

namespace orvane {

// Points at a place of the page. It is seen on the screen only, never on paper or in a file.
struct PageRing {
  QRectF Place;           // what it goes round, mm of the page
  bool IsStrong = false;  // a full line; else a broken one, in a quieter colour

  friend bool operator==(const PageRing&, const PageRing&) = default;
};

// The page is fitted into the view until it is zoomed: by the wheel with Ctrl, around what lies
// under the pointer, or by the keys + and -; 1 shows it in its true size and 0 fits it again. A
// page larger than the view is moved by the mouse's left or middle button, the wheel, the scroll
// bars, the arrow and page keys, Home and End. Zoom and place stay when another page is shown.
//
// It takes the focus by a click only.
class PageView : public DeskView {
 public:
  explicit PageView(QWidget* parent = nullptr);

  // Shows the page, or nothing. The page stays the caller's and must not go before another is
  // shown; one that has changed is shown again.
  void ShowPage(const Page* page);

  // Rings around places of the page, painted over it, until others are given.
  void ShowRings(std::vector<PageRing> rings);
  const std::vector<PageRing>& Rings() const { return rings_; }

  // Where the paper lies in the viewport, in the toolkit's device-independent pixels. An empty
  // rectangle without a page.
  QRectF PaperPlace() const;
  double PixelsPerMm() const final;

  bool IsFitted() const { return fitted_; }
  void Fit() override;

  // How often a page was painted afresh, for whoever measures or tests it.
  int PaintCount() const { return paintCount_; }

 protected:
  void SetScale(double pixelsPerMm, QPointF around) override;
  void Repaint() override;
  bool MoveKey(const QKeyEvent& key) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  double FittedScale() const;
  void SettleScrollBars();
  const QPixmap& Desk(QSize size, const QRectF& paper, double ratio);
  QPixmap Painted();
  void PaintRings(QPainter& painter) const;

  const Page* page_ = nullptr;
  std::vector<PageRing> rings_;
  bool fitted_ = true;
  double scale_ = 1;  // pixels to the millimetre, while it isn't fitted
  QPixmap painting_;  // the whole viewport as it was painted last; null when it has to be again
  // The desk below it as it was painted last, and what it depends on.
  QPixmap desk_;
  QRectF deskPaper_;
  QColor deskColor_;
  int paintCount_ = 0;
};

}  // namespace orvane
