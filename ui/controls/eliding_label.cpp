#include "ui/controls/eliding_label.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include "ui/platform/guard.h"

namespace orvane {

namespace {

// What stays readable of a path at the least: so many characters; its tip tells the rest.
constexpr int LeastCharacters = 4;

}  // namespace

ElidingLabel::ElidingLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void ElidingLabel::ShowText(const QString& text) {
  setText(text);
  setToolTip(text);
}

QString ElidingLabel::ShownText() const {
  return fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
}

QSize ElidingLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 2, fontMetrics().height()};
}

QSize ElidingLabel::minimumSizeHint() const {
  const int least = fontMetrics().averageCharWidth() * LeastCharacters;
  return {text().isEmpty() ? least : qMin(least, sizeHint().width()), fontMetrics().height()};
}

void ElidingLabel::paintEvent(QPaintEvent*) {
  Guard([this] {
    QPainter painter(this);
    style()->drawItemText(&painter, rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter),
                          palette(), isEnabled(), ShownText(), foregroundRole());
  });
}

}  // namespace orvane
