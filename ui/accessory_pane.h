// What the two accessory dialogs share: the picture, and the print of their sheet.
#pragma once

#include <QWidget>
#include <memory>

#include "drawing/accessory_sheet.h"
#include "drawing/document.h"

namespace orvane {

// Bears the name VSPrinter1: the accessory's picture on white, as large as the pane lets it be, in
// its proportions.
class AccessoryPicture : public QWidget {
 public:
  // Loads the accessory's picture; raises the error of the file. The accessory must have one.
  AccessoryPicture(std::int16_t AccIndex, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::shared_ptr<const Picture> picture_;
};

// "None" stands for no picture.
bool HasPicture(std::int16_t AccIndex);

// "&Print" of the dialogs: the sheet of CurrentAcc with those rows, on the hidden surface
// VSPrinter2, to the platform's printers. Errors are raised.
void PrintAccessorySheet(QWidget* parent, AccessoryType type, const TextRows& rows);

}  // namespace orvane
