// Shows a page of a document as a sheet of paper on a desk, at any zoom.
#pragma once

#include <QAbstractScrollArea>
#include <QColor>
#include <QPixmap>
#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSize>

#include "drawing/document.h"

namespace orvane {

// The page is fitted into the view until it is zoomed: by the wheel with Ctrl, around what lies
// under the pointer, or by the keys + and -; 1 shows it in its true size and 0 fits it again. A
// page larger than the view is moved by the mouse's left or middle button, the wheel, the scroll
// bars, the arrow and page keys, Home and End. Zoom and place stay when another page is shown.
//
// It takes the focus by a click only.
class PageView : public QAbstractScrollArea {
 public:
  explicit PageView(QWidget* parent = nullptr);

  // Shows the page, or nothing. The page stays the caller's and must not go before another is
  // shown; one that has changed is shown again.
  void ShowPage(const Page* page);

  // Where the paper lies in the viewport, and what one millimetre of it takes there, both in the
  // toolkit's device-independent pixels. An empty rectangle and 0 without a page.
  QRectF PaperPlace() const;
  double PixelsPerMm() const;

  bool IsFitted() const { return fitted_; }
  void Fit();
  // Zooms so that the point of the viewport stays where it is on the paper.
  void ZoomBy(double factor, QPointF around);

  // How often a page was painted afresh, for whoever measures or tests it.
  int PaintCount() const { return paintCount_; }

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  double FittedScale() const;
  void SetScale(double pixelsPerMm, QPointF around);
  void SettleScrollBars();
  void Repaint();
  const QPixmap& Desk(QSize size, const QRectF& paper, double ratio);
  QPixmap Painted();
  bool ZoomKey(int key);
  bool Scrollable() const;
  void ShowHand();

  const Page* page_ = nullptr;
  bool fitted_ = true;
  double scale_ = 1;  // pixels to the millimetre, while it isn't fitted
  bool dragging_ = false;
  QPoint dragged_;    // where the pointer was last
  QPixmap painting_;  // the whole viewport as it was painted last; null when it has to be again
  // The desk below it as it was painted last, and what it depends on.
  QPixmap desk_;
  QRectF deskPaper_;
  QColor deskColor_;
  int paintCount_ = 0;
};

}  // namespace orvane
