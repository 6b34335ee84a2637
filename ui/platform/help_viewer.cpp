#include "ui/platform/help_viewer.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <array>

#include "core/files.h"
#include "core/program_folder.h"
#include "core/runtime_error.h"
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

bool OpenPages() {
  const QString pages = ToQt(ProgramPath("\\help\\index.html"));
  return QFileInfo(pages).isFile() && QDesktopServices::openUrl(QUrl::fromLocalFile(pages));
}

}  // namespace

std::string HelpCommand(const std::string& file) {
  return "hh.exe " + file;
}

void StartHelp(const std::string& file) {
  if (StartViewer(file) || OpenPages()) return;
  throw RuntimeError(Failure::FileNotFound,
                     "The help can't be shown: no viewer for " + file + " was found");
}

}  // namespace orvane
