// Jobs that come to the main window from outside: named when the program is started, or dropped.
#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <optional>

#include "project/lifecycle.h"
#include "ui/frm_main.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// The one job that is dragged; none for anything else: of several nobody knows which is meant.
std::optional<std::string> JobDragged(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return std::nullopt;
  const QString path = urls.front().toLocalFile();
  if (QFileInfo(path).suffix().compare("ovd", Qt::CaseInsensitive) != 0) return std::nullopt;
  return FromQt(QDir::toNativeSeparators(path));
}

}  // namespace

void FrmMain::OpenGiven(const std::string& path) {
  Guard([&] {
    if (MayReplaceProject()) OpenFile(path);
  });
}

// The file stays where it is, whatever the program that it comes from proposes.
bool FrmMain::TakesDrag(QDropEvent& event) {
  if (!JobDragged(*event.mimeData())) return false;
  event.setDropAction(Qt::CopyAction);
  event.accept();
  return true;
}

void FrmMain::dragEnterEvent(QDragEnterEvent* event) {
  TakesDrag(*event);
}

void FrmMain::dropEvent(QDropEvent* event) {
  const std::optional<std::string> job = JobDragged(*event->mimeData());
  if (!job || !TakesDrag(*event)) return;
  // Behind the drop: the program that it comes from waits for its end, and a question may come.
  QTimer::singleShot(0, this, [this, path = *job] {
    activateWindow();
    OpenGiven(path);
  });
}

}  // namespace orvane
