// The content of a window, which scrolls where the screen is too small for it: with large letters
// on a small laptop a window that can't shrink would hide its lower and right parts for good.
#pragma once

#include <QScrollArea>

namespace orvane {

// What the frame around a window takes of the screen, about, device-independent pixels.
constexpr QSize WindowFrame(8, 36);

// To be the central widget of a main window, or to fill a dialog. As long as the screen has the
// room the window can't be made smaller than the content needs.
class ContentArea : public QScrollArea {
 public:
  ContentArea(QWidget& content, QWidget* parent);

  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;
  // Wrapped texts make the content higher as it gets narrower.
  bool hasHeightForWidth() const override;
  int heightForWidth(int width) const override;

 private:
  QSize Room() const;
};

}  // namespace orvane
