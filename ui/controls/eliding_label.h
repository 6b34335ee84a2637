// A label for a text that may be too long for its place, such as a path: it shows the beginning and
// the end, and the whole of it as its tip.
#pragma once

#include <QLabel>

namespace orvane {

// text() is always the whole text. It is shown as it stands, never as markup.
class ElidingLabel : public QLabel {
 public:
  explicit ElidingLabel(QWidget* parent = nullptr);

  void ShowText(const QString& text);
  // What there is room for, with "\u2026" in the place of its middle.
  QString ShownText() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvane
