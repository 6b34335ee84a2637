#include "ui/controls/picture_radio.h"

#include <QPainter>
#include <QPolygonF>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "ui/platform/guard.h"

namespace orvane {

namespace {

// Measures of the picture as parts of the height of a line of text.
constexpr double TileSide = 4.8;
constexpr double TileMargin = 0.4;
constexpr double OutlinePen = 0.14;
constexpr double MarkRadius = 0.28;
constexpr double CornerRadius = 0.3;
constexpr double CaptionRoom = 1.2;

QColor Blend(const QColor& over, const QColor& ground, double share) {
  const auto mix = [share](int a, int b) { return qRound(share * a + (1 - share) * b); };
  return {mix(over.red(), ground.red()), mix(over.green(), ground.green()),
          mix(over.blue(), ground.blue())};
}

}  // namespace

PictureRadio::PictureRadio(RadioPicture picture, QWidget* parent)
    : QRadioButton(parent), picture_(std::move(picture)) {
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PictureRadio::sizeHint() const {
  const double line = fontMetrics().height();
  const bool bare = picture_.Outline.empty();
  double width = bare ? 0 : TileSide * line;
  double height = bare ? CaptionRoom * line / 2 : TileSide * line;
  if (!text().isEmpty()) {
    width = std::max(width, fontMetrics().horizontalAdvance(text()) + 2 * TileMargin * line);
    height += CaptionRoom * line;
  }
  return {qRound(width), qRound(height)};
}

void PictureRadio::paintEvent(QPaintEvent* /*event*/) {
  Guard([&] {
    const double line = fontMetrics().height();
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette().color(group, QPalette::Text);
    const QColor ground = palette().color(group, QPalette::Base);
    const QColor accent = palette().color(group, QPalette::Highlight);
    const bool lifted = underMouse() || isDown();

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    // The tile: the choice shows by its ground and its frame alike, so that it doesn't hang on
    // colour alone.
    QColor tile = ground;
    if (isChecked()) {
      tile = Blend(accent, ground, 0.22);
    } else if (lifted) {
      tile = Blend(accent, ground, 0.1);
    }
    const double frame = isChecked() ? std::max(2.0, line * 0.14) : 1.0;
    const QRectF whole = QRectF(rect()).adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2);
    painter.setPen(QPen(isChecked() ? accent : Blend(ink, ground, 0.35), frame));
    painter.setBrush(tile);
    painter.drawRoundedRect(whole, CornerRadius * line, CornerRadius * line);
    if (hasFocus()) {
      const double inset = frame + 1.5;
      painter.setPen(QPen(ink, 1, Qt::DotLine));
      painter.setBrush(Qt::NoBrush);
      painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                              CornerRadius * line / 2, CornerRadius * line / 2);
    }

    if (picture_.Outline.empty()) {
      painter.setPen(ink);
      painter.drawText(rect(), static_cast<int>(Qt::AlignCenter), text());
      return;
    }

    // The picture in the middle of what the caption leaves.
    QRectF room = rect();
    if (!text().isEmpty()) {
      room.setBottom(room.bottom() - CaptionRoom * line);
      painter.setPen(ink);
      painter.drawText(
          QRectF(0, room.bottom() - TileMargin * line / 2, width(), CaptionRoom * line),
          static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextHideMnemonic), text());
    }
    const double side =
        std::min(room.width(), room.height()) - 2 * (TileMargin + MarkRadius) * line;
    const QPointF corner(room.center().x() - side / 2, room.center().y() - side / 2);
    const auto place = [&](const QPointF& point) { return corner + point * side; };

    QPolygonF outline;
    for (const QPointF& point : picture_.Outline) outline << place(point);
    painter.setPen(QPen(ink, OutlinePen * line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(outline);

    // A rim of the ground sets the marks off from the outline.
    const double radius = MarkRadius * line;
    for (const QPointF& mark : picture_.Marks) {
      painter.setPen(QPen(tile, OutlinePen * line / 2));
      painter.setBrush(accent);
      painter.drawEllipse(place(mark), radius, radius);
    }
    for (const QPointF& ring : picture_.Rings) {
      painter.setPen(QPen(accent, OutlinePen * line));
      painter.setBrush(tile);
      painter.drawEllipse(place(ring), radius, radius);
    }
  });
}

}  // namespace orvane
