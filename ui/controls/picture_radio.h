// A radio button that shows a picture: an outline with marks on it.
#pragma once

#include <QPointF>
#include <QRadioButton>
#include <vector>

namespace orvane {

// Points in a square of side 1, Y down.
struct RadioPicture {
  std::vector<QPointF> Outline;  // one line from point to point
  std::vector<QPointF> Marks;    // filled
  std::vector<QPointF> Rings;    // open, for a mark whose place is not settled
};

// The picture follows the palette and the size of the text, sharp at any scaling; a caption stands
// below it. Without an outline it is a tile with its caption alone. Of buttons in one exclusive
// group the arrow keys select the next.
class PictureRadio : public QRadioButton {
 public:
  explicit PictureRadio(RadioPicture picture, QWidget* parent = nullptr);

  const RadioPicture& Picture() const { return picture_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }
  void paintEvent(QPaintEvent* event) override;

 private:
  RadioPicture picture_;
};

}  // namespace orvane
