#include "ui/controls/fault_sign.h"

#include <QFontMetrics>
#include <QPolygon>
#include <algorithm>

namespace orvane {

namespace {

constexpr QRgb SignColour = 0xFF202020;
constexpr int LeastSign = 6;     // its sides, device-independent pixels
constexpr int SignsOfALine = 2;  // as many are as high as a line of text

int SizeOfSign(const QFontMetrics& metrics) {
  return std::max(LeastSign, metrics.height() / SignsOfALine);
}

}  // namespace

void PaintFaultSign(QPainter& painter, const QRect& cell) {
  const int size = SizeOfSign(painter.fontMetrics());
  const QPoint corner = cell.topRight() + QPoint(1, 0);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(SignColour));
  painter.drawPolygon(QPolygon({corner, corner - QPoint(size, 0), corner + QPoint(0, size)}));
  painter.restore();
}

FaultSign::FaultSign(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void FaultSign::ShowOver(const QRect& cell) {
  const int size = SizeOfSign(fontMetrics());
  setGeometry(cell.right() + 1 - size, cell.top(), size, size);
  show();
  raise();
}

void FaultSign::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(font());
  PaintFaultSign(painter, rect());
}

}  // namespace orvane
