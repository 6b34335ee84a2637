#include "ui/controls/dialog_place.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <map>

#include "ui/platform/guard.h"

namespace orvane {

namespace {

struct DialogPlace {
  QPoint Corner;  // upper left, of the window's frame
  QSize Frame;    // what the frame adds to the dialog's size
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

class PlaceKeeper : public QObject {
 public:
  explicit PlaceKeeper(QDialog& dialog) : QObject(&dialog), dialog_(dialog) {
    dialog.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    Guard([&] {
      // What the window system does to a window that is minimized isn't meant.
      if (event->spontaneous()) return;
      if (event->type() == QEvent::Show) Restore();
      if (event->type() == QEvent::Hide) Remember();
    });
    return QObject::eventFilter(watched, event);
  }

 private:
  void Restore() {
    const auto found = Places.find(dialog_.objectName());
    if (found == Places.end()) return;
    const QPoint corner = found->second.Corner;
    const QSize size = dialog_.size() + found->second.Frame;
    // The screen may be gone by now.
    const QScreen* screen = QGuiApplication::screenAt(QRect(corner, size).center());
    if (screen == nullptr) screen = dialog_.screen();
    dialog_.move(MovedInto(screen->availableGeometry(), corner, size));
  }

  void Remember() {
    Places[dialog_.objectName()] = {dialog_.pos(), dialog_.frameGeometry().size() - dialog_.size()};
  }

  QDialog& dialog_;
};

}  // namespace

void KeepPlace(QDialog& dialog) {
  new PlaceKeeper(dialog);  // goes with the dialog
}

}  // namespace orvane
