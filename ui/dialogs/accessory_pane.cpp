#include "ui/dialogs/accessory_pane.h"

#include <QPainter>
#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "core/model.h"
#include "drawing/page_surface.h"
#include "drawing/pictures.h"
#include "output/reports.h"
#include "project/error_names.h"
#include "ui/platform/guard.h"
#include "ui/platform/page_painter.h"
#include "ui/platform/printing.h"
#include "ui/platform/qt_font_metrics.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr double PictureEdge = 5;  // mm, on each side of the picture
constexpr double MmPerInch = 25.4;

// Lines of text that the picture's longer side is as long as, at first and at least. At first the
// smallest letters of the widest picture can be read.
constexpr int FirstPictureLines = 34;
constexpr int LeastPictureLines = 10;

}  // namespace

Box PicturePlaceOn(const Picture& picture, double surfaceWidth, double surfaceHeight) {
  const double width = std::max(surfaceWidth - 2 * PictureEdge, 0.0);
  const double height = std::max(surfaceHeight - 2 * PictureEdge, 0.0);
  const double scale = std::min(width / picture.Width, height / picture.Height);
  Box place;
  place.Width = picture.Width * scale;
  place.Height = picture.Height * scale;
  place.Left = (width - place.Width) / 2 + PictureEdge;
  place.Top = (height - place.Height) / 2 + PictureEdge;
  return place;
}

AccessoryPicture::AccessoryPicture(std::int16_t AccIndex, QWidget* parent)
    : QWidget(parent),
      picture_(LoadDrawing("\\Drawings\\" + AccDefs.At(AccIndex).DrawingFile + ".wmf")) {
  setObjectName("VSPrinter1");
  setAccessibleName(ToQt("Picture of " + AccDefs.At(AccIndex).Name));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize AccessoryPicture::SizeInLines(int lines) const {
  const double longer = fontMetrics().lineSpacing() * lines;
  const double shape = picture_->Width / picture_->Height;
  // A very long or high picture doesn't make the pane a slit.
  const double other = longer * std::clamp(shape > 1 ? 1 / shape : shape, 0.6, 1.0);
  return (shape > 1 ? QSizeF(longer, other) : QSizeF(other, longer)).toSize();
}

QSize AccessoryPicture::sizeHint() const {
  return SizeInLines(FirstPictureLines);
}

QSize AccessoryPicture::minimumSizeHint() const {
  return SizeInLines(LeastPictureLines);
}

// White as paper, on a dark desktop too: the picture brings its own colours.
void AccessoryPicture::paintEvent(QPaintEvent*) {
  Guard([&] {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setClipRect(rect());
    const double unitsPerMm = logicalDpiX() / MmPerInch;
    Page page;
    page.Width = width() / unitsPerMm;
    page.Height = height() / unitsPerMm;
    const Box place = PicturePlaceOn(*picture_, page.Width, page.Height);
    if (place.Width > 0 && place.Height > 0) page.Shapes.push_back(PictureShape{picture_, place});
    painter.save();
    PaintPage(painter, page, QPointF(0, 0), unitsPerMm, PaintDevice::Screen);
    painter.restore();
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  });
}

bool HasPicture(std::int16_t AccIndex) {
  return AccDefs.At(AccIndex).DrawingFile != "None";
}

void PrintAccessorySheet(QWidget* parent, AccessoryType type, const TextRows& rows) {
  const auto drawOn = [&](const Paper& paper) {
    PageSurface VSPrinter2(SheetMetrics(), paper);
    PreparePreview(VSPrinter2);
    InNameOfAccessory(CurrentAcc, {}, [&] {
      DrawAccessorySheet(VSPrinter2, AccDefs.At(CurrentAcc), type, rows, true, true);
    });
    return std::optional(VSPrinter2.TakeResult());
  };
  PrintDocument(*drawOn({}), parent, ToQt(AccDefs.At(CurrentAcc).Name), drawOn);
}

}  // namespace orvane
