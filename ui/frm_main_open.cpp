// Jobs that come to the main window from outside: named when the program is started, dropped, or
// chosen on the page that it begins with.
#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <optional>

#include "core/files.h"
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

void FrmMain::OpenSample(const std::string& path) {
  Guard([&] {
    if (MayReplaceProject()) OpenCopy(ReadWholeFile(path), {});
  });
}

void FrmMain::BuildStart() {
  start_ = new StartPage([this](Command command, int number) { Run(command, number); },
                         [this](const std::string& path) { OpenSample(path); }, sheet_->viewport());
  auto* over = new QVBoxLayout(sheet_->viewport());
  over->setContentsMargins(0, 0, 0, 0);
  over->addWidget(start_);
}

// What is kept with the program can be changed before there is a job.
void FrmMain::LeaveStart(const ChangeNotice& change) {
  const ChangeSubject subject = RuleOf(change.Kind).Subject;
  if (subject != ChangeSubject::Settings && subject != ChangeSubject::Nothing) EndStart();
}

void FrmMain::EndStart() {
  if (start_->isHidden()) return;
  // Hidden with the cursor in it, it would hand that on to the next field of the window.
  if (start_->isAncestorOf(focusWidget())) centralWidget()->setFocus();
  start_->hide();
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
