#include "ui/platform/help_viewer.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <array>
#include <functional>

#include "core/files.h"
#include "core/program_folder.h"
#include "core/runtime_error.h"
#include "ui/platform/guard.h"
#include "ui/platform/help_pages.h"
#include "ui/platform/help_window.h"
#include "ui/platform/qt_text.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace orvane {

namespace {

// Starts a program that goes on without us; what it says on its output is nobody's business.
bool Detach(QProcess& program) {
  program.setStandardOutputFile(QProcess::nullDevice());
  program.setStandardErrorFile(QProcess::nullDevice());
  return program.startDetached();
}

#ifdef Q_OS_WIN

bool StartViewer(const std::string& file) {
  const QString command = ToQt(HelpCommand(file));
  QProcess viewer;
  viewer.setProgram(command.section(' ', 0, 0));
  // As it stands, without the quotes that the toolkit would put around a path with blanks: the
  // viewer takes the rest of the command for the file.
  viewer.setNativeArguments(command.section(' ', 1));
  return Detach(viewer);
}

#else

// The compiled-help viewers in the order in which they are tried.
constexpr std::array<const char*, 2> Viewers = {"kchmviewer", "xchm"};

bool StartViewer(const std::string& file) {
  if (!IsRegularFile(file)) return false;
  for (const char* name : Viewers) {
    const QString path = QStandardPaths::findExecutable(name);
    if (path.isEmpty()) continue;
    QProcess viewer;
    viewer.setProgram(path);
    viewer.setArguments({ToQt(file)});
    if (geteuid() == 0) {
      // The first viewer's page engine refuses to start its sandbox for the administrator.
      QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
      environment.insert("QTWEBENGINE_DISABLE_SANDBOX", "1");
      viewer.setProcessEnvironment(environment);
    }
    if (Detach(viewer)) return true;
  }
  return false;
}

#endif

#ifndef Q_OS_WIN

// Opens the page in the browser and gives true; a desktop that then has none, as the opener's own
// end tells, gets `orElse`. The opener may last as long as the browser.
bool OpenInBrowser(const QString& page, const std::function<void()>& orElse) {
  const QString opener = QStandardPaths::findExecutable("xdg-open");
  if (opener.isEmpty()) return false;
  // No window's child: with it a browser that is still open would end.
  auto* program = new QProcess;
  program->setStandardOutputFile(QProcess::nullDevice());
  program->setStandardErrorFile(QProcess::nullDevice());
  QObject::connect(program, &QProcess::finished, qApp,
                   [program, orElse](int code, QProcess::ExitStatus status) {
                     program->deleteLater();
                     if (code != 0 || status != QProcess::NormalExit) Guard(orElse);
                   });
  QObject::connect(program, &QProcess::errorOccurred, qApp,
                   [program, orElse](QProcess::ProcessError error) {
                     if (error != QProcess::FailedToStart) return;
                     program->deleteLater();
                     Guard(orElse);
                   });
  program->start(opener, {QUrl::fromLocalFile(page).toString()});
  return true;
}

#endif

}  // namespace

std::string HelpCommand(const std::string& file) {
  return "hh.exe " + file;
}

void StartHelp(const std::string& file, const std::string& window) {
  if (StartViewer(file)) return;
  const QString folder = ToQt(ProgramPath("\\help"));
  const QString index = folder + "/index.html";
  if (!QFileInfo(index).isFile()) {
    throw RuntimeError(Failure::FileNotFound,
                       "The help can't be shown: no viewer for " + file + " was found");
  }
  const auto showOwn = [folder, page = HelpPageOf(ToQt(window))] { ShowHelpWindow(folder, page); };
#ifndef Q_OS_WIN
  if (OpenInBrowser(folder + "/" + HelpPageOf(ToQt(window)), showOwn)) return;
#endif
  showOwn();
}

}  // namespace orvane
