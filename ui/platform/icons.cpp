#include "ui/platform/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

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
constexpr char Ink[] = "#202020";
constexpr char Accent[] = "#2E86DE";

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

// The drawing in the colours of the moment.
QByteArray Inked(QByteArray picture, QIcon::Mode mode) {
  const QByteArray ink = InkOf(mode).name().toLatin1();
  picture.replace(Ink, ink);
  if (mode != QIcon::Normal) picture.replace(Accent, ink);
  return picture;
}

// Draws a picture afresh at the size, scaling and colours of the moment.
class PictureEngine : public QIconEngine {
 public:
  PictureEngine(QByteArray picture, bool inked) : picture_(std::move(picture)), inked_(inked) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QSvgRenderer renderer(inked_ ? Inked(picture_, mode) : picture_);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(painter, QRectF(rect));
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
  QByteArray picture_;
  bool inked_;
};

QIcon MakeIcon(std::string_view name, bool inked) {
  const QByteArray picture = ReadPicture(name);
  return picture.isEmpty() ? QIcon() : QIcon(new PictureEngine(picture, inked));
}

}  // namespace

QIcon LineIcon(std::string_view name) {
  return MakeIcon(name, true);
}

QIcon ProgramIcon() {
  return MakeIcon("program", false);
}

}  // namespace orvane
