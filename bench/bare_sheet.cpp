#include "bench/bare_sheet.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "core/model.h"
#include "drawing/length.h"
#include "ui/platform/qt_font_metrics.h"

namespace orvane::bench {

namespace {

constexpr double ThinnestLine = 0.02;  // mm
constexpr double TwipsPerPoint = 20;

QColor ColorOf(Rgb color) {
  return {color.Red, color.Green, color.Blue};
}

double DegreesOf(double radians) {
  return radians * 180 / Pi;
}

struct StepPainter {
  QPainter& Device;

  void operator()(const QPen& pen) const { Device.setPen(pen); }
  void operator()(const QBrush& brush) const { Device.setBrush(brush); }
  void operator()(const QFont& font) const { Device.setFont(font); }
  void operator()(const QLineF& line) const { Device.drawLine(line); }
  void operator()(const QRectF& rectangle) const { Device.drawRect(rectangle); }
  void operator()(const QPainterPath& path) const { Device.drawPath(path); }
  template <class Ellipse>
  auto operator()(const Ellipse& ellipse) const -> decltype(ellipse.Place, void()) {
    Device.drawEllipse(ellipse.Place);
  }
  template <class Letters>
  auto operator()(const Letters& letters) const -> decltype(letters.Text, void()) {
    if (letters.Angle == 0 && letters.WidthScale == 1) {
      return Device.drawText(letters.Base, letters.Text);
    }
    const QTransform upright = Device.transform();
    Device.translate(letters.TopLeft);
    Device.rotate(-letters.Angle);
    Device.scale(letters.WidthScale, 1);
    Device.drawText(letters.Base - letters.TopLeft, letters.Text);
    Device.setTransform(upright);
  }
};

}  // namespace

QPointF BareSheet::Frame::Of(const Point& point) const {
  return {Left + point.X * Across, Top + point.Y * Down};
}

QRectF BareSheet::Frame::Of(const Box& box) const {
  return {Of(Point{box.Left, box.Top}), QSizeF(box.Width * Across, box.Height * Down)};
}

double BareSheet::Frame::Scale() const {
  return std::sqrt(Across * Down);
}

BareSheet::BareSheet(const Page& page, double unitsPerMm) {
  AddAll(page.Shapes, {0, 0, unitsPerMm, unitsPerMm});
}

void BareSheet::Paint(QPainter& painter) const {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  const StepPainter stepPainter{painter};
  for (const Step& step : steps_) std::visit(stepPainter, step);
}

void BareSheet::AddAll(const std::vector<Shape>& shapes, const Frame& frame) {
  for (const Shape& shape : shapes) {
    std::visit([&](const auto& one) { Add(one, frame); }, shape);
  }
}

void BareSheet::Add(const LineShape& line, const Frame& frame) {
  if (!line.Stroke.Visible) return;
  SetPen(line.Stroke, frame);
  steps_.emplace_back(QLineF(frame.Of(line.From), frame.Of(line.To)));
}

void BareSheet::Add(const RectangleShape& rectangle, const Frame& frame) {
  SetPen(rectangle.Stroke, frame);
  SetFill(rectangle.Inside);
  steps_.emplace_back(frame.Of(rectangle.Place));
}

void BareSheet::Add(const EllipseShape& ellipse, const Frame& frame) {
  SetPen(ellipse.Stroke, frame);
  SetFill(ellipse.Inside);
  steps_.emplace_back(Ellipse{frame.Of(ellipse.Place)});
}

void BareSheet::Add(const ArcShape& arc, const Frame& frame) {
  const QRectF place = frame.Of(arc.Place);
  QPainterPath line;
  line.arcMoveTo(place, DegreesOf(arc.Start));
  line.arcTo(place, DegreesOf(arc.Start), DegreesOf(arc.Span));
  QPainterPath whole = line;
  if (arc.Pie) whole.lineTo(place.center());
  whole.closeSubpath();
  if (arc.Inside.Visible) {
    SetPen({0, Black, false}, frame);
    SetFill(arc.Inside);
    steps_.emplace_back(whole);
  }
  if (!arc.Stroke.Visible) return;
  SetPen(arc.Stroke, frame);
  SetFill({});
  steps_.emplace_back(arc.StrokeAll ? whole : line);
}

void BareSheet::Add(const PolygonShape& polygon, const Frame& frame) {
  SetPen(polygon.Stroke, frame);
  SetFill(polygon.Closed ? polygon.Inside : Fill{});
  QPainterPath path;
  path.setFillRule(polygon.Winding ? Qt::WindingFill : Qt::OddEvenFill);
  for (const auto& ring : polygon.Rings) {
    QPolygonF corners;
    for (const Point& point : ring) corners.append(frame.Of(point));
    path.addPolygon(corners);
    if (polygon.Closed) path.closeSubpath();
  }
  steps_.emplace_back(path);
}

void BareSheet::Add(const TextShape& text, const Frame& frame) {
  if (text.Side != TextSide::Left || text.Behind.Visible) {
    throw std::logic_error("the floor paints no such text");
  }
  const double unitsPerTwip = frame.Scale() / TwipsPerMm;
  QFont font = SheetFont(text.Type);
  font.setPixelSize(std::max(qRound(text.Type.Size * TwipsPerPoint * unitsPerTwip), 1));
  if (font != font_) steps_.emplace_back(font_ = font);
  SetPen(QPen(ColorOf(text.Color)));
  const QPointF topLeft = frame.Of(text.TopLeft);
  steps_.emplace_back(Letters{topLeft + QPointF(0, text.Ascent * frame.Down), SheetText(text.Text),
                              text.WidthScale, text.Angle, topLeft});
}

void BareSheet::Add(const PictureShape& picture, const Frame& frame) {
  const QRectF place = frame.Of(picture.Place);
  AddAll(picture.Content->Shapes,
         {place.left(), place.top(), place.width() / picture.Content->Width,
          place.height() / picture.Content->Height});
}

void BareSheet::SetPen(const Pen& pen, const Frame& frame) {
  if (!pen.Visible) return SetPen(QPen(Qt::NoPen));
  SetPen(QPen(ColorOf(pen.Color), std::max(pen.Width, ThinnestLine) * frame.Scale(), Qt::SolidLine,
              Qt::FlatCap, Qt::MiterJoin));
}

void BareSheet::SetPen(const QPen& pen) {
  if (!steps_.empty() && pen == pen_) return;
  steps_.emplace_back(pen_ = pen);
}

void BareSheet::SetFill(const Fill& fill) {
  const QBrush brush = fill.Visible ? QBrush(ColorOf(fill.Color)) : QBrush(Qt::NoBrush);
  if (!steps_.empty() && brush == brush_) return;
  steps_.emplace_back(brush_ = brush);
}

}  // namespace orvane::bench
