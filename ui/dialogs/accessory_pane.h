// What the two accessory dialogs share: the picture, and the print of their sheet.
#pragma once

#include <QWidget>
#include <memory>

#include "drawing/accessory_sheet.h"
#include "drawing/document.h"

namespace orvane {

// Where a picture stands on a surface of that size, mm: in its proportions, as large as the surface
// lets it be within an edge of 5 mm, and in the middle. Without width or height on a surface that
// is all edge.
Box PicturePlaceOn(const Picture& picture, double surfaceWidth, double surfaceHeight);

// Bears the name VSPrinter1: the accessory's picture on white, as large as the pane lets it be, in
// its proportions.
class AccessoryPicture : public QWidget {
 public:
  // Loads the accessory's picture; raises the error of the file. The accessory must have one.
  AccessoryPicture(std::int16_t AccIndex, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize SizeInLines(int lines) const;

  std::shared_ptr<const Picture> picture_;
};

// "None" stands for no picture.
bool HasPicture(std::int16_t AccIndex);

// "&Print" of the dialogs: the sheet of CurrentAcc with those rows, on the hidden surface
// VSPrinter2, to the platform's printers. Errors are raised.
void PrintAccessorySheet(QWidget* parent, AccessoryType type, const TextRows& rows);

}  // namespace orvane
