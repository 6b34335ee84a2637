#include "ui/platform/page_painter.h"

#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <type_traits>
#include <vector>

#include "core/model.h"
#include "core/numbers.h"
#include "drawing/length.h"
#include "drawing/painting.h"
#include "ui/platform/qt_font_metrics.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// Beyond this a corner is cut off instead of mitred, in widths of the line.
constexpr double MitreLimit = 10;
// Letters higher than this on a screen are painted smaller: font engines fail at them.
constexpr double HighestLetter = 2000;  // pixels
// What rounding may take off the edge of a bar on a screen, and more.
constexpr double Hair = 1e-4;  // pixels

QColor ColorOf(Rgb color) {
  return {color.Red, color.Green, color.Blue};
}

// One unit of the painter is a twip here, so that fonts have whole sizes.
QPointF TwipsOf(Point point) {
  return {point.X * TwipsPerMm, point.Y * TwipsPerMm};
}

QRectF TwipsOf(const Box& box) {
  return {box.Left * TwipsPerMm, box.Top * TwipsPerMm, box.Width * TwipsPerMm,
          box.Height * TwipsPerMm};
}

QPolygonF TwipsOf(const std::vector<Point>& ring) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(ring.size()));
  for (const Point& point : ring) polygon.append(TwipsOf(point));
  return polygon;
}

double DegreesOf(double radians) {
  return radians * 180 / Pi;
}

class Painting {
 public:
  Painting(QPainter& painter, QPointF corner, double unitsPerTwip, PaintDevice device)
      : painter_(painter), corner_(corner), scale_(unitsPerTwip), device_(device) {}

  void PaintAll(const std::vector<Shape>& shapes) {
    for (const Shape& shape : shapes) {
      std::visit([this](const auto& one) { Paint(one); }, shape);
    }
  }

 private:
  void Paint(const LineShape& line) {
    if (!line.Stroke.Visible) return;
    const QPointF from = TwipsOf(line.From);
    const QPointF to = TwipsOf(line.To);
    const bool straight = from.x() == to.x() || from.y() == to.y();
    if (straight && device_ == PaintDevice::Screen) return PaintStraight(line.Stroke, from, to);
    SetPen(line.Stroke);
    painter_.drawLine(from, to);
  }

  // A level or upright line on a screen: a bar that begins on a whole pixel.
  void PaintStraight(const Pen& pen, QPointF from, QPointF to) {
    const double width = WidthOf(pen);
    QRectF bar = QRectF(from, to).normalized();
    if (from.x() == to.x()) {
      bar.setLeft(Crisp(from.x(), corner_.x(), width) - width / 2);
      bar.setWidth(width);
    } else {
      bar.setTop(Crisp(from.y(), corner_.y(), width) - width / 2);
      bar.setHeight(width);
    }
    PaintBar(bar, ColorOf(pen.Color));
  }

  // A hair larger, so that what ends between two pixels covers the first of them whole.
  void PaintBar(const QRectF& bar, const QColor& color) {
    const double hair = Hair / scale_;
    painter_.fillRect(bar.adjusted(-hair, -hair, hair, hair), color);
  }

  void Paint(const RectangleShape& rectangle) {
    const QRectF place = TwipsOf(rectangle.Place);
    if (device_ == PaintDevice::Screen) return PaintBars(rectangle, place);
    SetPen(rectangle.Stroke);
    SetFill(rectangle.Inside);
    painter_.drawRect(place);
  }

  // A rectangle on a screen: its four edges as bars, mitred corners and all.
  void PaintBars(const RectangleShape& rectangle, const QRectF& place) {
    const double width = rectangle.Stroke.Visible ? WidthOf(rectangle.Stroke) : 0;
    const QRectF middle(
        QPointF(Crisp(place.left(), corner_.x(), width), Crisp(place.top(), corner_.y(), width)),
        QPointF(Crisp(place.right(), corner_.x(), width),
                Crisp(place.bottom(), corner_.y(), width)));
    if (rectangle.Inside.Visible) PaintBar(middle, ColorOf(rectangle.Inside.Color));
    if (!rectangle.Stroke.Visible) return;
    const QColor color = ColorOf(rectangle.Stroke.Color);
    const double half = width / 2;
    const QRectF outer = middle.adjusted(-half, -half, half, half);
    for (const double top : {outer.top(), outer.bottom() - width}) {
      PaintBar(QRectF(outer.left(), top, outer.width(), width), color);
    }
    for (const double left : {outer.left(), outer.right() - width}) {
      PaintBar(QRectF(left, outer.top(), width, outer.height()), color);
    }
  }

  void Paint(const EllipseShape& ellipse) {
    SetPen(ellipse.Stroke);
    SetFill(ellipse.Inside);
    painter_.drawEllipse(TwipsOf(ellipse.Place));
  }

  void Paint(const ArcShape& arc) {
    const QRectF place = TwipsOf(arc.Place);
    const double start = DegreesOf(arc.Start);
    const double span = DegreesOf(arc.Span);
    QPainterPath line;
    line.arcMoveTo(place, start);
    line.arcTo(place, start, span);
    QPainterPath whole = line;
    if (arc.Pie) whole.lineTo(place.center());
    whole.closeSubpath();
    if (arc.Inside.Visible) {
      SetPen({0, Black, false});
      SetFill(arc.Inside);
      painter_.drawPath(whole);
    }
    if (!arc.Stroke.Visible) return;
    SetPen(arc.Stroke);
    SetFill({});
    painter_.drawPath(arc.StrokeAll ? whole : line);
  }

  void Paint(const PolygonShape& polygon) {
    SetPen(polygon.Stroke);
    SetFill(polygon.Closed ? polygon.Inside : Fill{});
    const Qt::FillRule rule = polygon.Winding ? Qt::WindingFill : Qt::OddEvenFill;
    if (!polygon.Closed) {
      for (const auto& ring : polygon.Rings) painter_.drawPolyline(TwipsOf(ring));
    } else if (polygon.Rings.size() == 1) {
      painter_.drawPolygon(TwipsOf(polygon.Rings.front()), rule);
    } else {
      QPainterPath path;
      path.setFillRule(rule);
      for (const auto& ring : polygon.Rings) {
        path.addPolygon(TwipsOf(ring));
        path.closeSubpath();
      }
      painter_.drawPath(path);
    }
  }

  void Paint(const TextShape& text) {
    const QString letters = SheetText(text.Text);
    const double shrink = SetFont(text.Type);
    SetTextColor(text.Color);
    const bool byPoint = text.Side != TextSide::Left || text.Behind.Visible;
    if (byPoint || (text.Clipped && text.Angle != 0)) {
      PaintByPoint(text, letters, shrink);
    } else if (text.Clipped) {
      PaintClipped(text, letters, shrink);
    } else {
      PaintLetters(text, letters, shrink);
    }
  }

  // Drawn upwards from the base line, which lies the ascent below the top.
  void PaintLetters(const TextShape& text, const QString& letters, double shrink) {
    const QPointF topLeft = TwipsOf(text.TopLeft);
    const QPointF base(0, text.Ascent * TwipsPerMm);
    if (text.Angle == 0 && shrink == 1 && text.WidthScale == 1) {
      painter_.drawText(topLeft + base, letters);
      return;
    }
    const QTransform upright = painter_.transform();
    painter_.translate(topLeft);
    painter_.rotate(-text.Angle);
    painter_.scale(shrink * text.WidthScale, shrink);
    painter_.drawText(base, letters);
    painter_.setTransform(upright);
  }

  // A text of a picture: it hangs on its point by its left end, its middle or its right end, and
  // may be turned, clipped and have a box behind it.
  void PaintByPoint(const TextShape& text, const QString& letters, double shrink) {
    const FontMetrics& metrics = SheetMetrics();
    const double width = metrics.Width(text.Type, text.Text);
    const double base = text.Ascent * TwipsPerMm;
    const double left = text.Side == TextSide::Left     ? 0
                        : text.Side == TextSide::Middle ? -width / 2
                                                        : -width;
    painter_.save();
    if (text.Clipped) {
      painter_.setClipRect(TwipsOf(text.Clip), Qt::IntersectClip);
    }
    painter_.translate(TwipsOf(text.TopLeft));
    painter_.rotate(-text.Angle);
    painter_.scale(shrink * text.WidthScale, shrink);
    if (text.Behind.Visible) {
      painter_.fillRect(
          QRectF(left, base - metrics.Ascent(text.Type), width, metrics.Height(text.Type)),
          ColorOf(text.Behind.Color));
    }
    painter_.drawText(QPointF(left, base), letters);
    painter_.restore();
  }

  void PaintClipped(const TextShape& text, const QString& letters, double shrink) {
    const QRectF clip = TwipsOf(text.Clip);
    const QPointF topLeft = TwipsOf(text.TopLeft);
    const FontMetrics& metrics = SheetMetrics();
    const double end = topLeft.x() + text.WidthScale * metrics.Width(text.Type, text.Text);
    const bool fits = topLeft.x() >= clip.left() && end <= clip.right() &&
                      topLeft.y() >= clip.top() &&
                      topLeft.y() + metrics.Height(text.Type) <= clip.bottom();
    if (fits) {
      PaintLetters(text, letters, shrink);
      return;
    }
    painter_.save();
    painter_.setClipRect(clip, Qt::IntersectClip);
    PaintLetters(text, letters, shrink);
    painter_.restore();
  }

  void Paint(const PictureShape& shape) {
    if (!shape.Content || depth_ == DeepestPicture) return;
    const Picture& picture = *shape.Content;
    if (!(picture.Width > 0) || !(picture.Height > 0)) return;
    const double across = shape.Place.Width / picture.Width;
    const double down = shape.Place.Height / picture.Height;
    const double scale = scale_;
    const QTransform upright = painter_.transform();
    painter_.translate(shape.Place.Left * TwipsPerMm, shape.Place.Top * TwipsPerMm);
    painter_.scale(across, down);
    scale_ *= std::sqrt(std::fabs(across * down));
    ++depth_;
    Forget();
    PaintAll(picture.Shapes);
    --depth_;
    scale_ = scale;
    painter_.setTransform(upright);
    Forget();
  }

  // Pen, brush and font are only handed on when they change: devices write each of them down.

  void SetPen(const Pen& pen) {
    if (!penSet_ || pen != pen_) {
      penSet_ = true;
      pen_ = pen;
      PutPen();
    }
    if (textColored_) PutPen();
  }

  // The width as painted, twips.
  double WidthOf(const Pen& pen) const {
    const double thinnest =
        device_ == PaintDevice::Screen ? 1 / scale_ : ThinnestOnPaper * TwipsPerMm;
    return std::max(pen.Width * TwipsPerMm, thinnest);
  }

  void PutPen() {
    textColored_ = false;
    if (!pen_.Visible) return painter_.setPen(Qt::NoPen);
    QPen pen(ColorOf(pen_.Color), WidthOf(pen_), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    pen.setMiterLimit(MitreLimit);
    painter_.setPen(pen);
  }

  void SetFill(const Fill& fill) {
    if (fillSet_ && fill == fill_) return;
    fillSet_ = true;
    fill_ = fill;
    painter_.setBrush(fill.Visible ? QBrush(ColorOf(fill.Color)) : QBrush(Qt::NoBrush));
  }

  // Texts take the painter's pen for their colour.
  void SetTextColor(Rgb color) {
    if (textColored_ && color == textColor_) return;
    textColored_ = true;
    textColor_ = color;
    painter_.setPen(ColorOf(color));
  }

  // How much smaller than asked for the font has to be painted.
  double SetFont(const Font& font) {
    if (!fontSet_ || font != font_) {
      fontSet_ = true;
      font_ = font;
      painter_.setFont(QtFont(font));
    }
    const double height = painter_.font().pixelSize() * scale_;
    return device_ == PaintDevice::Screen && height > HighestLetter ? HighestLetter / height : 1;
  }

  const QFont& QtFont(const Font& font) {
    for (const auto& [known, made] : fonts_) {
      if (known == font) return made;
    }
    return fonts_.emplace_back(font, SheetFont(font)).second;
  }

  void Forget() {
    penSet_ = false;
    fillSet_ = false;
  }

  // Moves the middle of a level or upright line so that one of its edges falls between two pixels;
  // in a picture, which may be stretched, it stays.
  double Crisp(double twips, double corner, double width) const {
    if (depth_ > 0) return twips;
    const double half = width / 2 * scale_;
    const double edge = Nearest(twips * scale_ + corner - half);
    return (edge + half - corner) / scale_;
  }

  QPainter& painter_;
  QPointF corner_;
  double scale_;  // units of the device to the twip
  PaintDevice device_;
  int depth_ = 0;

  bool penSet_ = false;
  Pen pen_;
  bool fillSet_ = false;
  Fill fill_;
  bool textColored_ = false;
  Rgb textColor_;
  bool fontSet_ = false;
  Font font_;
  std::vector<std::pair<Font, QFont>> fonts_;
};

}  // namespace

void PaintPage(QPainter& painter, const Page& page, QPointF corner, double unitsPerMm,
               PaintDevice device) {
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.translate(corner);
  const double unitsPerTwip = unitsPerMm / TwipsPerMm;
  painter.scale(unitsPerTwip, unitsPerTwip);
  Painting(painter, corner, unitsPerTwip, device).PaintAll(page.Shapes);
  painter.restore();
}

}  // namespace orvane
