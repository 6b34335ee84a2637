// The sign of a cell whose value can't stay as it is: a small dark triangle in its upper right
// corner. It is told by its shape, on white and on grey, and cells are of these in a dark desktop
// too. The reason is the cell's tip.
#pragma once

#include <QPainter>
#include <QRect>
#include <QWidget>

namespace orvane {

// Paints the sign into the corner of that cell, as large as the painter's font asks for.
void PaintFaultSign(QPainter& painter, const QRect& cell);

// The same over an editor that covers its cell. It lets the mouse through.
class FaultSign : public QWidget {
 public:
  explicit FaultSign(QWidget* parent);
  void ShowOver(const QRect& cell);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvane
