// The entry point. It takes no arguments; the program's folder is that of the executable.
#include <QApplication>
#include <QDir>
#include <cstdlib>

#include "core/desktop.h"
#include "core/program_folder.h"
#include "project/job_lock.h"
#include "ui/platform/end_watch.h"
#include "ui/platform/qt_desktop.h"
#include "ui/platform/qt_text.h"
#include "ui/start_up.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  orvane::PrepareApplication();
  orvane::QtDesktop desktop(orvane::UserSettings());
  orvane::InstallDesktop(desktop);
  orvane::ProgramFolder =
      orvane::FromQt(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
  orvane::StartUp start;
  start.Run();
  if (start.Main() == nullptr) return EXIT_FAILURE;  // its reason was shown
  const orvane::EndWatch watch([&start] { start.Main()->KeepForRecovery(); }, orvane::DropJobLock);
  return QApplication::exec();
}
