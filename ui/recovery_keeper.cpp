#include "ui/recovery_keeper.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <optional>
#include <utility>

#include "core/desktop.h"
#include "core/file_lock.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "project/history.h"
#include "project/saving.h"

namespace orvane {

namespace {

// A copy has two seconds to be written in, after which no more than five have gone since the step.
constexpr int WriteAfterMs = 3000;

LaidLock LockOf(const std::string& folder) {
  return TheDesktop().LayLock(folder + "/lock", LockOfOthers::Stands);
}

// Raises what the disk has against a file in that folder: a lock that can't be laid doesn't tell.
void TryDisk(const std::string& folder) {
  ReplaceWholeFile(folder + "/try", "A file\n");
}

}  // namespace

struct RecoveryKeeper::Copies {
  std::string DataFolder;
  std::string Folder;  // of this program; empty until its first copy
  std::shared_ptr<FileLock> Lock;
  std::atomic<bool> Busy = false;
  std::string Error;  // of the last copy; read when it is over

  // Somebody may have tidied up.
  bool IsThere() const {
    std::error_code unknown;
    return !Folder.empty() && std::filesystem::is_directory(NativePath(Folder), unknown);
  }

  // Another program that looks for what was left may hold a new folder for a moment, and remove it.
  // One that takes no lock mustn't stay: on a full disk there would be more of them at each step.
  void MakeFolder(const Moment& now) {
    constexpr int mostTries = 5;
    for (int tries = 1; tries <= mostTries; ++tries) {
      std::string folder = MakeRecoveryFolder(DataFolder, now);
      LaidLock laid = LockOf(folder);
      if (laid.Lock) {
        Folder = std::move(folder);
        Lock = std::move(laid.Lock);
        return;
      }
      if (laid.Holder) continue;
      try {
        TryDisk(folder);
        RemoveRecoveryFolder(folder);
      } catch (const std::exception&) {
        RemoveRecoveryFolder(folder);
        if (tries == mostTries) throw;
      }
    }
    throw RuntimeError(Failure::PermissionDenied);
  }

  void Keep(const JobState& state, const std::string& path, const Moment& now) {
    try {
      if (!IsThere()) MakeFolder(now);
      KeepCopy(Folder, path, TextOfState(state));
      Error.clear();
    } catch (const std::exception& error) {
      Error = error.what();
    }
    Busy = false;
  }
};

RecoveryKeeper::RecoveryKeeper(std::function<void(const std::string&)> tell, QObject* parent)
    : QObject(parent), tell_(std::move(tell)), copies_(std::make_shared<Copies>()) {
  copies_->DataFolder = TheDesktop().UserDataFolder();
  timer_.setObjectName("RecoveryTimer");
  timer_.setSingleShot(true);
  timer_.setInterval(WriteAfterMs);
  connect(&timer_, &QTimer::timeout, this, [this] { Write(); });
}

RecoveryKeeper::~RecoveryKeeper() {
  TheDesktop().FinishApart();
}

void RecoveryKeeper::NoteChange() {
  if (copies_->DataFolder.empty()) return;
  if (!IsChangedSinceSaved()) return Drop();
  if (!timer_.isActive()) timer_.start();
}

void RecoveryKeeper::Write() {
  timer_.stop();
  // A disk that is slower than the fingers has one copy at a time to write.
  if (copies_->Busy.exchange(true)) return timer_.start();
  isWritten_ = true;
  const auto keep = [this, copies = copies_, state = StateNow(), path = PathOfJob(),
                     now = TheDesktop().Now()] {
    copies->Keep(state, path, now);
    QMetaObject::invokeMethod(this, [this, error = copies->Error] { Told(error); });
  };
  TheDesktop().RunApart(keep);
}

void RecoveryKeeper::Told(const std::string& error) {
  if (error.empty() != isTold_) return;
  isTold_ = !error.empty();
  tell_(isTold_ ? "No recovery copy of the job can be written: " + error
                : "Recovery copies of the job are written again");
}

void RecoveryKeeper::Drop() {
  timer_.stop();
  if (!std::exchange(isWritten_, false)) return;
  TheDesktop().RunApart([copies = copies_] {
    if (!copies->Folder.empty()) DropCopy(copies->Folder);
  });
}

bool RecoveryKeeper::WriteNow() {
  if (copies_->DataFolder.empty() || !IsChangedSinceSaved()) return false;
  timer_.stop();
  TheDesktop().FinishApart();
  Write();
  TheDesktop().FinishApart();
  return copies_->Error.empty();
}

void RecoveryKeeper::End() {
  timer_.stop();
  TheDesktop().RunApart([copies = copies_] {
    if (copies->Folder.empty()) return;
    copies->Lock.reset();
    RemoveRecoveryFolder(copies->Folder);
    copies->Folder.clear();
  });
  TheDesktop().FinishApart();
  copies_->DataFolder.clear();
}

std::vector<LeftJob> RecoveryKeeper::TakeLeft() {
  std::vector<LeftJob> left;
  if (copies_->DataFolder.empty()) return left;
  TheDesktop().FinishApart();
  for (const std::string& folder : RecoveryFolders(copies_->DataFolder)) {
    if (folder == copies_->Folder) continue;
    std::shared_ptr<FileLock> lock = LockOf(folder).Lock;
    if (!lock) continue;
    if (std::optional<LeftJob> job = CopyIn(folder)) {
      left.push_back(std::move(*job));
      taken_[folder] = std::move(lock);
    } else {
      lock.reset();
      RemoveRecoveryFolder(folder);
    }
  }
  std::stable_sort(left.begin(), left.end(), [](const LeftJob& one, const LeftJob& other) {
    return one.Written > other.Written;
  });
  return left;
}

void RecoveryKeeper::RemoveLeft(const LeftJob& job) {
  taken_.erase(job.Folder);
  RemoveRecoveryFolder(job.Folder);
}

}  // namespace orvane
