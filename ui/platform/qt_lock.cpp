#include "ui/platform/qt_lock.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>
#include <algorithm>
#include <utility>

#include "core/disk.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

class QtFileLock : public FileLock {
 public:
  explicit QtFileLock(std::unique_ptr<QLockFile> file) : file_(std::move(file)) {}

 private:
  const std::unique_ptr<QLockFile> file_;
};

// What a lock file that stands there tells.
struct Standing {
  LockHolder Holder;
  bool OfThisComputer = false;
  bool IsDead = false;
};

Standing Look(const QLockFile& lock) {
  Standing standing;
  const QFileInfo file(lock.fileName());
  standing.Holder.User = FromQt(file.owner());
  standing.Holder.Seconds =
      std::max<qint64>(0, file.lastModified().secsTo(QDateTime::currentDateTime()));
  qint64 process = 0;
  QString computer;
  QString program;
  // One that somebody else has just begun to write tells nothing yet.
  if (!lock.getLockInfo(&process, &computer, &program)) return standing;
  standing.Holder.Computer = FromQt(computer);
  standing.Holder.Program = FromQt(program);
  standing.OfThisComputer = computer == QSysInfo::machineHostName();
  standing.IsDead = standing.OfThisComputer && !IsRunning(process);
  return standing;
}

}  // namespace

LaidLock LayLockFile(const std::string& path, LockOfOthers others) {
  // The holder may leave between the attempt and the look at what it left: a few attempts, then it
  // is as if none could be laid.
  constexpr int Attempts = 3;
  for (int attempt = 0; attempt < Attempts; ++attempt) {
    auto file = std::make_unique<QLockFile>(ToQt(path));
    // A job is open for as long as somebody works on it, days too: no age makes a lock a dead one.
    // The toolkit takes over that of a program of this computer that has ended.
    file->setStaleLockTime(0);
    if (file->tryLock(0)) return {std::make_unique<QtFileLock>(std::move(file)), {}};
    if (file->error() != QLockFile::LockFailedError) return {};
    if (!QFileInfo::exists(ToQt(path))) continue;
    const Standing standing = Look(*file);
    // A dead program's that may not be removed here: nobody has the job open.
    if (standing.IsDead) return {};
    const bool goes = others == LockOfOthers::Replaced && !standing.OfThisComputer;
    if (!goes || !QFile::remove(ToQt(path))) return {nullptr, standing.Holder};
  }
  return {};
}

}  // namespace orvane
