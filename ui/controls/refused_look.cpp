#include "ui/controls/refused_look.h"

#include <QEvent>
#include <QPolygon>

namespace orvane {

namespace {

constexpr QRgb RefusedOnLight = 0xffc01818;
constexpr QRgb RefusedOnDark = 0xffff8a80;
constexpr int FrameWidth = 2;  // device-independent pixels, as all here
constexpr int WaveStep = 3;
constexpr int WaveHeight = 2;

// Lies over the whole field and lets everything through but the paint.
class RefusedMark : public QWidget {
 public:
  explicit RefusedMark(QWidget& field) : QWidget(&field), field_(field) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    field.installEventFilter(this);
  }

  void Put(const QString& reason) {
    if (isHidden()) {
      ownTip_ = field_.toolTip();
      ownDescription_ = field_.accessibleDescription();
    }
    field_.setToolTip(reason);
    field_.setAccessibleDescription(reason);
    setGeometry(field_.rect());
    show();
    raise();
  }

  void Take() {
    if (isHidden()) return;
    hide();
    field_.setToolTip(ownTip_);
    field_.setAccessibleDescription(ownDescription_);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize) setGeometry(field_.rect());
    return QWidget::eventFilter(watched, event);
  }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    PaintRefusedLook(painter, rect(), field_.palette().color(QPalette::Base));
  }

 private:
  QWidget& field_;
  QString ownTip_;
  QString ownDescription_;
};

RefusedMark* MarkOf(const QWidget& field) {
  for (QObject* child : field.children()) {
    if (auto* mark = dynamic_cast<RefusedMark*>(child)) return mark;
  }
  return nullptr;
}

}  // namespace

void RefuseField(QWidget& field, const QString& reason) {
  RefusedMark* mark = MarkOf(field);
  if (mark == nullptr) {
    mark = new RefusedMark(field);  // the field's own child
    mark->hide();
  }
  mark->Put(reason);
}

void AcceptField(QWidget& field) {
  if (RefusedMark* mark = MarkOf(field)) mark->Take();
}

bool IsFieldRefused(const QWidget& field) {
  const RefusedMark* mark = MarkOf(field);
  return mark != nullptr && !mark->isHidden();
}

QString RefusalOf(const QWidget& field) {
  return IsFieldRefused(field) ? field.toolTip() : QString();
}

void PaintRefusedLook(QPainter& painter, const QRect& place, const QColor& ground) {
  const bool dark = ground.lightness() < 128;
  painter.save();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(dark ? RefusedOnDark : RefusedOnLight), FrameWidth, Qt::SolidLine,
                      Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(
      place.adjusted(FrameWidth / 2, FrameWidth / 2, -FrameWidth / 2, -FrameWidth / 2));
  QPolygon wave;
  const int low = place.bottom() - FrameWidth - 1;
  bool up = false;
  for (int x = place.left() + FrameWidth; x <= place.right() - FrameWidth; x += WaveStep) {
    wave << QPoint(x, up ? low - WaveHeight : low);
    up = !up;
  }
  painter.setPen(QPen(QColor(dark ? RefusedOnDark : RefusedOnLight), 1));
  painter.drawPolyline(wave);
  painter.restore();
}

}  // namespace orvane
