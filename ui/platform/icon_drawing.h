// The drawings of icons, read from the part of SVG that they are made in: paths of M, L, H, V, C, A
// and Z in absolute coordinates, circles, rectangles, groups, one matrix, a gradient from edge to
// edge. The program's own files hold nothing else, so that it needs no library for them.
#pragma once

#include <QBrush>
#include <QByteArray>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <functional>
#include <vector>

class QPainter;

namespace orvane {

// One shape of a drawing, in the drawing's own units.
struct IconShape {
  QPainterPath Outline;
  QPen Stroke;
  QBrush Inside;
};

struct IconDrawing {
  QRectF ViewBox;
  std::vector<IconShape> Shapes;
};

// Raises a RuntimeError with the line for what isn't well-formed or isn't known.
IconDrawing ReadIconDrawing(const QByteArray& svg);

// Paints it as large as it fits into the middle of the place. Each plain colour is what `colorOf`
// makes of the drawing's own.
void PaintIconDrawing(QPainter& painter, const QRectF& place, const IconDrawing& drawing,
                      const std::function<QColor(QColor)>& colorOf);

}  // namespace orvane
