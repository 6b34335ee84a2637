#include "ui/accessory_pane.h"

#include "core/model.h"
#include "drawing/pictures.h"

namespace orvane {

AccessoryPicture::AccessoryPicture(std::int16_t, QWidget* parent) : QWidget(parent) {
  setObjectName("VSPrinter1");
}

QSize AccessoryPicture::sizeHint() const {
  return QWidget::sizeHint();
}

void AccessoryPicture::paintEvent(QPaintEvent*) {}

bool HasPicture(std::int16_t AccIndex) {
  return AccDefs.At(AccIndex).DrawingFile != "None";
}

void PrintAccessorySheet(QWidget*, AccessoryType, const TextRows&) {}

}  // namespace orvane
