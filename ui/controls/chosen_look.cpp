#include "ui/controls/chosen_look.h"

namespace orvane {

namespace {

constexpr int BarWidth = 5;  // device-independent pixels

}  // namespace

void TakeChosenLook(QStyleOptionViewItem& option) {
  option.backgroundBrush = option.palette.brush(QPalette::Highlight);
  const QColor text = option.palette.color(QPalette::HighlightedText);
  option.palette.setColor(QPalette::Text, text);
  option.palette.setColor(QPalette::WindowText, text);
  option.font.setBold(true);
}

// In the colour of the desktop's text, black on light and white on dark.
void PaintChosenBar(QPainter& painter, const QRect& cell, const QPalette& palette) {
  painter.fillRect(QRect(cell.topLeft(), QSize(BarWidth, cell.height())),
                   palette.color(QPalette::WindowText));
}

}  // namespace orvane
