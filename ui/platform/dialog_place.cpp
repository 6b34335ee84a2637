#include "ui/platform/dialog_place.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "ui/platform/guard.h"

namespace orvane {

namespace {

// Where a window stood: its own upper left corner, and the frame around it. The frame's corner
// alone wouldn't do: window managers differ in what they take it for while they put a frame around
// a window.
struct DialogPlace {
  QPoint Corner;
  QMargins Frame;
};

// Where the dialogs were closed last, by their objectNames.
std::map<QString, DialogPlace> Places;

// The corner that lets a window of that size lie in the room; of one that is too large the title
// stays in reach.
QPoint MovedInto(const QRect& room, const QPoint& corner, const QSize& size) {
  const int right = room.left() + room.width() - size.width();
  const int bottom = room.top() + room.height() - size.height();
  return {std::max(room.left(), std::min(corner.x(), right)),
          std::max(room.top(), std::min(corner.y(), bottom))};
}

QMargins FrameOf(const QWidget& widget) {
  const QWindow* window = widget.window()->windowHandle();
  return window == nullptr ? QMargins() : window->frameMargins();
}

// The corner of a window of that size below, left of, above or right of what is to stay in sight;
// where none of these has the room, the one that hides least of it.
QPoint PlaceBeside(const QRect& inSight, const QRect& room, const QSize& size) {
  const QPoint middle = QRect(QPoint(), size).center();
  const int x = inSight.center().x() - middle.x();
  const int y = inSight.center().y() - middle.y();
  const std::array<QPoint, 4> corners = {{{x, inSight.bottom() + 1},
                                          {inSight.left() - size.width(), y},
                                          {x, inSight.top() - size.height()},
                                          {inSight.right() + 1, y}}};
  const auto hidden = [&](const QPoint& corner) {
    const QSize over = inSight.intersected(QRect(corner, size)).size();
    return over.width() * over.height();
  };
  QPoint best = MovedInto(room, corners.front(), size);
  for (const QPoint& corner : corners) {
    const QPoint moved = MovedInto(room, corner, size);
    if (hidden(moved) < hidden(best)) best = moved;
  }
  return best;
}

class PlaceKeeper : public QObject {
 public:
  explicit PlaceKeeper(QDialog& dialog) : QObject(&dialog), dialog_(dialog) {
    dialog.installEventFilter(this);
  }

  void KeepInSight(const QRect& place) { inSight_ = place; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    Guard([&] {
      if (watched == dialog_.windowHandle()) {
        if (event->type() == QEvent::Expose) Settle();
        return;
      }
      // What the window system does to a window that is minimized isn't meant.
      if (watched != &dialog_ || event->spontaneous()) return;
      if (event->type() == QEvent::Show) Restore();
      if (event->type() == QEvent::Hide) Remember();
    });
    return QObject::eventFilter(watched, event);
  }

 private:
  void Restore() {
    const auto found = Places.find(dialog_.objectName());
    if (found != Places.end()) {
      const QMargins& frame = found->second.Frame;
      const QRect outer = QRect(found->second.Corner, dialog_.size()).marginsAdded(frame);
      // The screen may be gone by now.
      const QScreen* screen = QGuiApplication::screenAt(outer.center());
      if (screen == nullptr) screen = dialog_.screen();
      Put(MovedInto(screen->availableGeometry(), outer.topLeft(), outer.size()), frame);
      return;
    }
    if (dialog_.parentWidget() == nullptr) return;
    // Its frame will be like that of the window that it belongs to.
    const QWidget& owner = *dialog_.parentWidget()->window();
    const QMargins frame = FrameOf(owner);
    const QSize outer = dialog_.size().grownBy(frame);
    const QRect room = dialog_.screen()->availableGeometry();
    if (!inSight_.isEmpty()) return Put(PlaceBeside(inSight_, room, outer), frame);
    QRect place(QPoint(), outer);
    place.moveCenter(owner.frameGeometry().center());
    Put(MovedInto(room, place.topLeft(), outer), frame);
  }

  // Brings the window there with its frame, whose corner is given. The window system hasn't put the
  // frame around it yet, so it is the window itself that is placed.
  void Put(const QPoint& corner, const QMargins& frame) {
    put_ = corner + QPoint(frame.left(), frame.top());
    dialog_.setGeometry(QRect(*put_, dialog_.size()));
    dialog_.windowHandle()->installEventFilter(this);
  }

  // Some window managers put a new window's frame where the window was to be. Asked once more for
  // the same place they bring it there.
  void Settle() {
    if (!put_ || !dialog_.windowHandle()->isExposed()) return;
    const QPoint corner = *put_;
    put_.reset();
    dialog_.windowHandle()->setPosition(corner);
  }

  void Remember() {
    const QWindow* window = dialog_.windowHandle();
    if (window == nullptr) return;
    put_.reset();
    Places[dialog_.objectName()] = {window->position(), window->frameMargins()};
  }

  QDialog& dialog_;
  QRect inSight_;
  std::optional<QPoint> put_;  // where the window was put, until it is on the screen
};

}  // namespace

void KeepPlace(QDialog& dialog) {
  new PlaceKeeper(dialog);  // goes with the dialog
}

void ForgetPlaces() {
  Places.clear();
}

void KeepInSight(QDialog& dialog, const QRect& place) {
  for (QObject* child : dialog.children()) {
    if (auto* keeper = dynamic_cast<PlaceKeeper*>(child)) keeper->KeepInSight(place);
  }
}

}  // namespace orvane
