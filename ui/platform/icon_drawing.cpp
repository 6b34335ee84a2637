#include "ui/platform/icon_drawing.h"

#include <QHash>
#include <QLinearGradient>
#include <QPainter>
#include <QRegularExpression>
#include <QStringList>
#include <QTransform>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>

#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

[[noreturn]] void Refuse(const QString& what) {
  throw RuntimeError(Failure::TypeMismatch, "Drawing of an icon: " + FromQt(what));
}

double NumberIn(const QString& text) {
  bool is = false;
  const double number = text.toDouble(&is);
  if (!is) Refuse(text);
  return number;
}

// Numbers that stand apart by blanks, commas or the sign of the next.
QList<double> NumbersIn(const QString& text) {
  static const QRegularExpression number("-?[0-9.]+");
  QList<double> numbers;
  for (auto found = number.globalMatch(text); found.hasNext();) {
    numbers.append(NumberIn(found.next().captured()));
  }
  return numbers;
}

// How many numbers a command of a path takes each time.
qsizetype NumbersOf(char command) {
  switch (command) {
    case 'M':
    case 'L':
      return 2;
    case 'H':
    case 'V':
      return 1;
    case 'C':
      return 6;
    case 'A':
      return 7;
    case 'Z':
      return 0;
    default:
      Refuse(QString("path command ") + command);
  }
}

// An arc from where the path stands, by its radii and its end. The middle follows from both ends:
// of the two ellipses that go through them the flags choose one, and the way around it.
void ArcTo(QPainterPath& path, double rx, double ry, bool large, bool clockwise, QPointF to) {
  const QPointF from = path.currentPosition();
  const QPointF half = (from - to) / 2;
  // Radii that are too short to reach grow until they do.
  const double reach = std::hypot(half.x() / rx, half.y() / ry);
  rx *= std::max(1.0, reach);
  ry *= std::max(1.0, reach);
  const double across = std::pow(rx * half.y(), 2) + std::pow(ry * half.x(), 2);
  const double off = std::sqrt(std::max(0.0, rx * rx * ry * ry / across - 1));
  const double side = large != clockwise ? off : -off;
  const QPointF aside(side * rx * half.y() / ry, -side * ry * half.x() / rx);
  const QPointF middle = (from + to) / 2 + aside;
  const auto angleOf = [&](QPointF point) {
    return std::atan2((point.y() - middle.y()) / ry, (point.x() - middle.x()) / rx);
  };
  double span = angleOf(to) - angleOf(from);
  if (clockwise && span < 0) span += 2 * Pi;
  if (!clockwise && span > 0) span -= 2 * Pi;
  // The toolkit counts its angles upwards.
  const double degrees = -180 / Pi;
  path.arcTo(QRectF(middle - QPointF(rx, ry), middle + QPointF(rx, ry)), angleOf(from) * degrees,
             span * degrees);
}

void Draw(QPainterPath& path, char command, const QList<double>& n) {
  const QPointF at = path.currentPosition();
  switch (command) {
    case 'M':
      return path.moveTo(n[0], n[1]);
    case 'L':
      return path.lineTo(n[0], n[1]);
    case 'H':
      return path.lineTo(n[0], at.y());
    case 'V':
      return path.lineTo(at.x(), n[0]);
    case 'C':
      return path.cubicTo(n[0], n[1], n[2], n[3], n[4], n[5]);
    case 'A':
      if (n[2] != 0) Refuse("turned arc");
      return ArcTo(path, n[0], n[1], n[3] != 0, n[4] != 0, {n[5], n[6]});
    default:
      return path.closeSubpath();
  }
}

QPainterPath PathOf(const QString& text) {
  static const QRegularExpression part("([A-Za-z])([^A-Za-z]*)");
  QPainterPath path;
  for (auto found = part.globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    char command = match.captured(1).front().toLatin1();
    const QList<double> numbers = NumbersIn(match.captured(2));
    const qsizetype step = NumbersOf(command);
    if (step == 0 ? !numbers.isEmpty() : numbers.isEmpty() || numbers.size() % step != 0) {
      Refuse("path " + match.captured());
    }
    if (step == 0) Draw(path, command, {});
    for (qsizetype at = 0; at < numbers.size(); at += step) {
      Draw(path, command, numbers.mid(at, step));
      if (command == 'M') command = 'L';  // further points are lines
    }
  }
  return path;
}

// What a group hands down to what it holds.
struct Ink {
  QString Fill = "#000000";
  QString Stroke = "none";
  double Width = 1;
  QString Dashes;
  bool Round = false;
};

class Reader {
 public:
  explicit Reader(const QByteArray& svg) : xml_(svg) {}

  IconDrawing Read() {
    try {
      xml_.readNextStartElement();
      if (xml_.name() != u"svg") Refuse("no svg");
      const QList<double> box = NumbersIn(Text("viewBox"));
      if (box.size() != 4) Refuse("viewBox");
      drawing_.ViewBox = QRectF(box[0], box[1], box[2], box[3]);
      ReadGroup(Inherited({}));
    } catch (const RuntimeError& error) {
      const auto line = static_cast<double>(xml_.lineNumber());
      throw RuntimeError(error.Number(), error.Description() + ", line " + FormatNumber(line, 0));
    }
    return drawing_;
  }

 private:
  QString Text(const char* name) const { return xml_.attributes().value(name).toString(); }
  bool Has(const char* name) const { return xml_.attributes().hasAttribute(name); }
  double Number(const char* name) const { return Has(name) ? NumberIn(Text(name)) : 0; }

  Ink Inherited(Ink ink) const {
    if (Has("fill")) ink.Fill = Text("fill");
    if (Has("stroke")) ink.Stroke = Text("stroke");
    if (Has("stroke-width")) ink.Width = Number("stroke-width");
    if (Has("stroke-dasharray")) ink.Dashes = Text("stroke-dasharray");
    if (Has("stroke-linecap")) ink.Round = Text("stroke-linecap") == "round";
    return ink;
  }

  void ReadGroup(const Ink& ink) {
    while (xml_.readNextStartElement()) ReadElement(Inherited(ink));
    if (xml_.hasError()) Refuse(xml_.errorString());
  }

  void ReadElement(const Ink& ink) {
    const QString name = xml_.name().toString();
    if (name == "g") return ReadGroup(ink);
    if (name == "defs") return ReadDefinitions();
    QPainterPath path;
    if (name == "path") {
      path = PathOf(Text("d"));
    } else if (name == "circle") {
      const double radius = Number("r");
      path.addEllipse(QPointF(Number("cx"), Number("cy")), radius, radius);
    } else if (name == "rect") {
      const QRectF place(Number("x"), Number("y"), Number("width"), Number("height"));
      path.addRoundedRect(place, Number("rx"), Number("rx"));
    } else {
      Refuse("element " + name);
    }
    path.setFillRule(Qt::WindingFill);
    if (Has("transform")) path = Turned(path, Text("transform"));
    drawing_.Shapes.push_back({path, PenOf(ink), BrushOf(ink.Fill)});
    xml_.skipCurrentElement();
  }

  static QPainterPath Turned(const QPainterPath& path, const QString& transform) {
    const QList<double> n = NumbersIn(transform);
    if (!transform.startsWith("matrix(") || n.size() != 6) Refuse(transform);
    return QTransform(n[0], n[1], n[2], n[3], n[4], n[5]).map(path);
  }

  static QColor ColorOf(const QString& text) {
    const QColor color(text);
    if (!color.isValid()) Refuse("colour " + text);
    return color;
  }

  static QPen PenOf(const Ink& ink) {
    if (ink.Stroke == "none") return Qt::NoPen;
    QPen pen(ColorOf(ink.Stroke), ink.Width, Qt::SolidLine, ink.Round ? Qt::RoundCap : Qt::FlatCap,
             ink.Round ? Qt::RoundJoin : Qt::MiterJoin);
    if (!ink.Dashes.isEmpty()) {
      QList<qreal> dashes;  // in widths of the pen
      for (const double length : NumbersIn(ink.Dashes)) dashes.append(length / ink.Width);
      pen.setDashPattern(dashes);
    }
    return pen;
  }

  QBrush BrushOf(const QString& fill) const {
    if (fill == "none") return Qt::NoBrush;
    if (!fill.startsWith("url(#")) return ColorOf(fill);
    const QString name = fill.mid(5).chopped(1);
    if (!gradients_.contains(name)) Refuse(fill);
    return gradients_.value(name);
  }

  void ReadDefinitions() {
    while (xml_.readNextStartElement()) {
      if (xml_.name() != u"linearGradient") Refuse("definition " + xml_.name().toString());
      QLinearGradient gradient(Number("x1"), Number("y1"), Number("x2"), Number("y2"));
      gradient.setCoordinateMode(QGradient::ObjectMode);
      const QString name = Text("id");
      while (xml_.readNextStartElement()) {
        gradient.setColorAt(Number("offset"), ColorOf(Text("stop-color")));
        xml_.skipCurrentElement();
      }
      gradients_.insert(name, gradient);
    }
  }

  QXmlStreamReader xml_;
  IconDrawing drawing_;
  QHash<QString, QBrush> gradients_;
};

}  // namespace

IconDrawing ReadIconDrawing(const QByteArray& svg) {
  return Reader(svg).Read();
}

void PaintIconDrawing(QPainter& painter, const QRectF& place, const IconDrawing& drawing,
                      const std::function<QColor(QColor)>& colorOf) {
  const QRectF& box = drawing.ViewBox;
  const double scale = std::min(place.width() / box.width(), place.height() / box.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(place.center());
  painter.scale(scale, scale);
  painter.translate(-box.center());
  for (const IconShape& shape : drawing.Shapes) {
    QPen pen = shape.Stroke;
    if (pen.style() != Qt::NoPen) pen.setColor(colorOf(pen.color()));
    QBrush inside = shape.Inside;
    if (inside.style() == Qt::SolidPattern) inside.setColor(colorOf(inside.color()));
    painter.setPen(pen);
    painter.setBrush(inside);
    painter.drawPath(shape.Outline);
  }
  painter.restore();
}

}  // namespace orvane
