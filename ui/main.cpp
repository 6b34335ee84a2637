// The entry point. It takes one job to be opened, as a double click on its file gives it; the
// program's folder is that of the executable.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <cstdlib>
#include <string>

#include "core/desktop.h"
#include "core/program_folder.h"
#include "project/job_lock.h"
#include "ui/platform/end_watch.h"
#include "ui/platform/qt_desktop.h"
#include "ui/platform/qt_text.h"
#include "ui/start_up.h"

namespace {

// The job that was named, with its whole path; empty for none. A command line that can't be
// followed is told, and ends the program.
std::string JobNamed(const QApplication& application) {
  QCommandLineParser line;
  line.setApplicationDescription("Details cold-rolled steel sections.");
  line.addHelpOption();
  line.addVersionOption();
  line.addPositionalArgument("job", "The job to be opened, a file that ends in .ovd.", "[JOB.ovd]");
  line.process(application);
  const QStringList jobs = line.positionalArguments();
  if (jobs.size() > 1) line.showHelp(EXIT_FAILURE);
  if (jobs.isEmpty()) return {};
  const QString path = QFileInfo(jobs.front()).absoluteFilePath();
  return orvane::FromQt(QDir::toNativeSeparators(path));
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  orvane::PrepareApplication();
  const std::string job = JobNamed(application);
  orvane::QtDesktop desktop(orvane::UserSettings());
  orvane::InstallDesktop(desktop);
  orvane::ProgramFolder =
      orvane::FromQt(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
  orvane::StartUp start;
  start.Run(job);
  if (start.Main() == nullptr) return EXIT_FAILURE;  // its reason was shown
  const orvane::EndWatch watch([&start] { start.Main()->KeepForRecovery(); }, orvane::DropJobLock);
  return QApplication::exec();
}
