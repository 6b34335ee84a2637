// A sheet as the toolkit's own shapes in a device's units, ready to be painted: the floor of
// everything that paints sheets.
#pragma once

#include <QBrush>
#include <QFont>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <variant>
#include <vector>

#include "drawing/document.h"

namespace orvane::bench {

// Works all sizes out when it is made, so that painting does nothing but hand them on: pens,
// brushes and fonts where they change, and the shapes.
class BareSheet {
 public:
  BareSheet(const Page& page, double unitsPerMm);
  void Paint(QPainter& painter) const;

 private:
  struct Ellipse {
    QRectF Place;
  };
  struct Letters {
    QPointF Base;
    QString Text;
    double WidthScale = 1;
    double Angle = 0;  // degrees, counter-clockwise about TopLeft
    QPointF TopLeft;
  };
  using Step = std::variant<QPen, QBrush, QFont, QLineF, QRectF, Ellipse, QPainterPath, Letters>;

  // Where the shapes of the page, or of a picture on it, come to lie.
  struct Frame {
    double Left = 0;
    double Top = 0;
    double Across = 1;
    double Down = 1;

    QPointF Of(const Point& point) const;
    QRectF Of(const Box& box) const;
    double Scale() const;
  };

  void AddAll(const std::vector<Shape>& shapes, const Frame& frame);
  void Add(const LineShape& line, const Frame& frame);
  void Add(const RectangleShape& rectangle, const Frame& frame);
  void Add(const EllipseShape& ellipse, const Frame& frame);
  void Add(const ArcShape& arc, const Frame& frame);
  void Add(const PolygonShape& polygon, const Frame& frame);
  void Add(const TextShape& text, const Frame& frame);
  void Add(const PictureShape& picture, const Frame& frame);
  void SetPen(const Pen& pen, const Frame& frame);
  void SetPen(const QPen& pen);
  void SetFill(const Fill& fill);

  std::vector<Step> steps_;
  QPen pen_;
  QBrush brush_;
  QFont font_;
};

}  // namespace orvane::bench
