#include "ui/sheet_view.h"

#include <QPainter>

#include "ui/platform/guard.h"

namespace orvane {

namespace {

// The desk that a sheet lies on: a shade deeper than the window around it, in every theme.
constexpr int DeskDepth = 112;  // percent

}  // namespace

SheetView::SheetView(QWidget* parent) : QWidget(parent) {
  setObjectName("VSPrinter1");
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void SheetView::DrawSection(int ItemIndex) {
  if (ItemIndex < 1) return;
  shownRow_ = ItemIndex;
  ++drawCount_;
}

void SheetView::Clear() {
  shownRow_ = 0;
}

void SheetView::ApplyMargins() {}

void SheetView::paintEvent(QPaintEvent*) {
  Guard([this] {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window).darker(DeskDepth));
  });
}

}  // namespace orvane
