// What the views of paper share: the desk that sheets lie on, zooming by wheel and keys, moving by
// the mouse.
#pragma once

#include <QAbstractScrollArea>
#include <QColor>
#include <QPainter>
#include <QPoint>
#include <QPointF>
#include <QRectF>

namespace orvane {

// The wheel with Ctrl zooms around what lies under the pointer, the keys + and - around the middle;
// 1 shows the true size and 0 fits. Paper larger than the view is moved by the mouse's left or
// middle button.
class DeskView : public QAbstractScrollArea {
 public:
  // What one millimetre of the paper takes, in the toolkit's device-independent pixels; 0 without
  // paper.
  virtual double PixelsPerMm() const = 0;

  // Fits the paper into the view.
  virtual void Fit() = 0;
  // Zooms so that the point of the viewport stays where it is on the paper.
  void ZoomBy(double factor, QPointF around);
  // One step in or out around the middle.
  void ZoomIn();
  void ZoomOut();
  // As large as it is printed, as far as the screen tells its own size.
  void ShowTrueSize();
  // Zooms or moves the paper by its key; false for a key that does neither.
  bool TakeKey(const QKeyEvent& key);

 protected:
  static constexpr double DeskEdge = 12;        // pixels of the desk that show around the paper
  static constexpr int ShadowReach = 6;         // pixels
  static constexpr double LeastScale = 0.2;     // pixels to the millimetre
  static constexpr double GreatestScale = 100;  // a metre of screen for a centimetre

  explicit DeskView(QWidget* parent);

  // A scale of its own, kept within the limits, with that point of the viewport staying where it is
  // on the paper.
  virtual void SetScale(double pixelsPerMm, QPointF around) = 0;
  // Something that shows has changed.
  virtual void Repaint() { viewport()->update(); }
  // A key that zooms; false for any other.
  virtual bool ZoomKey(int key);
  // A key that moves the paper; false for any other.
  virtual bool MoveKey(const QKeyEvent& key) = 0;

  QColor DeskColor() const;
  // Blank paper and its shadow, in the painter's own pixels, of which `ratio` make one pixel of the
  // toolkit.
  static void PaintPaper(QPainter& painter, const QRectF& paper, double ratio);
  // The pointer's shape for the present state.
  void ShowHand();
  QPointF Middle() const { return QRectF(viewport()->rect()).center(); }

  bool viewportEvent(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool Scrollable() const;

  bool dragging_ = false;
  QPoint dragged_;  // where the pointer was last
};

}  // namespace orvane
