#include "ui/platform/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include "ui/platform/icon_drawing.h"
#include "ui/platform/qt_text.h"

// The pictures lie in a library: without this call the linker would leave them out. It must stand
// outside every namespace.
static void KeepPictures() {
  Q_INIT_RESOURCE(icons);
}

namespace orvane {

namespace {

// The colours that the drawings are made in. Ink becomes the desktop's colour of text; the accent
// reads well on light and dark grounds and stays there. Elsewhere all is ink: under the pointer the
// ground may be the desktop's highlight, which is often of the accent's own colour.
constexpr QRgb Ink = qRgb(0x20, 0x20, 0x20);
constexpr QRgb Accent = qRgb(0x2E, 0x86, 0xDE);

// How much of the ink is left, the rest being ground, where nothing can be chosen.
constexpr double DimmedInk = 0.4;

QByteArray ReadPicture(std::string_view name) {
  KeepPictures();
  QFile file(":/icons/" + ToQt(name) + ".svg");
  if (name.empty() || !file.exists() || !file.open(QIODevice::ReadOnly)) return {};
  return file.readAll();
}

QColor Mixed(const QColor& ink, const QColor& ground) {
  const auto mix = [](int of, int with) { return qRound(DimmedInk * of + (1 - DimmedInk) * with); };
  return {mix(ink.red(), ground.red()), mix(ink.green(), ground.green()),
          mix(ink.blue(), ground.blue())};
}

QColor InkOf(QIcon::Mode mode) {
  const QPalette palette = QGuiApplication::palette();
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  switch (mode) {
    case QIcon::Disabled:
      return Mixed(text, palette.color(QPalette::Active, QPalette::Window));
    case QIcon::Selected:
      return palette.color(QPalette::Active, QPalette::HighlightedText);
    default:
      return text;
  }
}

// A colour of the drawings in the colours of the moment.
QColor Inked(const QColor& color, QIcon::Mode mode) {
  const bool inked = color.rgb() == Ink || (color.rgb() == Accent && mode != QIcon::Normal);
  return inked ? InkOf(mode) : color;
}

// Draws a picture afresh at the size, scaling and colours of the moment.
class PictureEngine : public QIconEngine {
 public:
  PictureEngine(IconDrawing picture, bool inked) : picture_(std::move(picture)), inked_(inked) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    PaintIconDrawing(*painter, QRectF(rect), picture_,
                     [&](const QColor& color) { return inked_ ? Inked(color, mode) : color; });
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new PictureEngine(*this); }

 private:
  IconDrawing picture_;
  bool inked_;
};

QIcon MakeIcon(std::string_view name, bool inked) {
  const QByteArray picture = ReadPicture(name);
  return picture.isEmpty() ? QIcon() : QIcon(new PictureEngine(ReadIconDrawing(picture), inked));
}

}  // namespace

QIcon LineIcon(std::string_view name) {
  return MakeIcon(name, true);
}

QIcon ProgramIcon() {
  return MakeIcon("program", false);
}

}  // namespace orvane
