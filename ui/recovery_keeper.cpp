#include "ui/recovery_keeper.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <filesystem>
#include <optional>
#include <thread>
#include <utility>

#include "core/desktop.h"
#include "core/file_lock.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "project/history.h"
#include "project/left_unsaved.h"
#include "project/saving.h"
#include "ui/platform/pace.h"

namespace orvane {

namespace {

// A copy has two seconds to be written in, after which no more than five have gone since the step.
constexpr int WriteAfterMs = 3000;

// A folder without a copy is of no use to anybody after that time.
constexpr std::chrono::hours EmptyFor{1};

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
  Pace Copying{[] { return Pace::Seconds(std::chrono::steady_clock::now().time_since_epoch()); },
               [](Pace::Seconds rest) { std::this_thread::sleep_for(rest); }};
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

  void Keep(const JobState& state, const std::string& path, const std::string& known,
            const Moment& now) {
    try {
      if (!IsThere()) MakeFolder(now);
      Copying.Begin();
      KeepCopy(Folder, path, known, TextOfState(state, [this] { Copying.Rest(); }));
      Error.clear();
    } catch (const std::exception& error) {
      Error = error.what();
    }
    Busy = false;
  }

  // Takes the copy away; but one that is all that is left of what the user did stays for the next
  // start.
  void Drop() {
    if (Folder.empty()) return;
    if (TakeLost()) return LeaveFolder();
    DropCopy(Folder);
  }
  void Remove() {
    if (Folder.empty()) return;
    if (TakeLost()) return LeaveFolder();
    const std::string folder = Folder;
    DropCopy(folder);  // behind the lock another program may look for it
    LeaveFolder();
    RemoveRecoveryFolder(folder);
  }
  void LeaveFolder() {
    Lock.reset();
    Folder.clear();
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
  Finish();
}

// Waits for what is written, which hurries then.
void RecoveryKeeper::Finish() {
  copies_->Copying.Hurry(true);
  TheDesktop().FinishApart();
  copies_->Copying.Hurry(false);
}

void RecoveryKeeper::NoteChange() {
  if (copies_->DataFolder.empty()) return;
  if (!IsChangedSinceSaved()) return Drop();
  if (!timer_.isActive()) timer_.start();
}

void RecoveryKeeper::Write() {
  timer_.stop();
  // A disk that is slower than the fingers has one copy at a time to write.
  isWanted_ = copies_->Busy.exchange(true);
  if (isWanted_) return;
  isWritten_ = true;
  auto keep = [this, copies = copies_, state = StateNow(), path = PathOfJob(), known = KnownMark(),
               now = TheDesktop().Now()] {
    copies->Keep(state, path, known, now);
    QMetaObject::invokeMethod(this, [this, error = copies->Error] { Told(error); });
  };
  TheDesktop().RunApart(std::move(keep));
}

void RecoveryKeeper::Told(const std::string& error) {
  // What wasn't written is tried again, and what has come meanwhile is written at once.
  if (IsChangedSinceSaved() && std::exchange(isWanted_, false)) Write();
  if (IsChangedSinceSaved() && !error.empty() && !timer_.isActive()) timer_.start();
  if (error.empty() != isTold_) return;
  isTold_ = !error.empty();
  tell_(isTold_ ? "No recovery copy of the job can be written: " + error
                : "Recovery copies of the job are written again");
}

void RecoveryKeeper::Drop() {
  timer_.stop();
  isWanted_ = false;
  isTold_ = false;  // the line has gone with the job that it was told of
  if (!std::exchange(isWritten_, false)) return;
  TheDesktop().RunApart([copies = copies_] { copies->Drop(); });
}

bool RecoveryKeeper::WriteNow() {
  Finish();
  if (copies_->DataFolder.empty() || !IsChangedSinceSaved()) return false;
  Write();
  Finish();
  return copies_->Error.empty();
}

void RecoveryKeeper::End() {
  timer_.stop();
  TheDesktop().RunApart([copies = copies_] { copies->Remove(); });
  Finish();
  copies_->DataFolder.clear();
}

std::vector<LeftJob> RecoveryKeeper::TakeLeft() {
  std::vector<LeftJob> left;
  if (copies_->DataFolder.empty()) return left;
  Finish();
  for (const std::string& folder : RecoveryFolders(copies_->DataFolder)) {
    if (folder == copies_->Folder) continue;
    const auto made = WrittenAt(folder);  // before a lock is written there
    LaidLock laid = LockOf(folder);
    // A disk that takes no lock doesn't hide what was left there.
    if (laid.Holder) continue;
    if (std::optional<LeftJob> job = CopyIn(folder)) {
      left.push_back(std::move(*job));
      taken_[folder] = std::move(laid.Lock);
      continue;
    }
    laid.Lock.reset();
    // One that has just been made gets its copy.
    if (made && std::chrono::system_clock::now() - *made > EmptyFor) RemoveRecoveryFolder(folder);
  }
  std::stable_sort(left.begin(), left.end(), [](const LeftJob& one, const LeftJob& other) {
    return one.Written > other.Written;
  });
  return left;
}

void RecoveryKeeper::RemoveLeft(const LeftJob& job) {
  // The copy goes first: behind the lock another program may look for it.
  DropCopy(job.Folder);
  taken_.erase(job.Folder);
  RemoveRecoveryFolder(job.Folder);
}

}  // namespace orvane
