#include "project/job_lock.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

namespace {

JobLock held;  // the open job's

bool IsHeld(const std::string& path) {
  return held.Lock != nullptr && held.Path == path;
}

// "2 hours"; the largest unit of which there is a whole one.
std::string AgeText(long long seconds) {
  struct Unit {
    long long Seconds;
    const char* Name;
  };
  constexpr Unit Units[] = {{24 * 60 * 60, " day"}, {60 * 60, " hour"}, {60, " minute"}};
  for (const Unit& unit : Units) {
    const long long count = seconds / unit.Seconds;
    if (count > 0) return DecimalText(count) + unit.Name + (count == 1 ? "" : "s");
  }
  return "less than a minute";
}

// Who has the job open, line by line.
std::string Described(const LockHolder& holder, const std::string& job) {
  std::string text = FileName(job) + " is open already, for " + AgeText(holder.Seconds) + " now.\r";
  const auto tell = [&text](const char* what, const std::string& value) {
    if (!value.empty()) text.append("\r").append(what).append(value);
  };
  tell("User:  ", holder.User);
  tell("Computer:  ", holder.Computer);
  tell("Program:  ", holder.Program);
  return text + "\r\r";
}

}  // namespace

std::string LockPathOf(const std::string& job) {
  namespace fs = std::filesystem;
  std::error_code unknown;
  fs::path path = fs::weakly_canonical(NativePath(job), unknown);
  // A path of Windows' net would be taken for one of the current drive.
  const bool ofTheNet = job.starts_with("\\\\");
  if (unknown || ofTheNet) path = NativePath(AbsolutePath(job));
  return PathText(path.parent_path() / NativePath("." + PathText(path.filename()) + ".lock"));
}

LockedOpening LockToOpen(const std::string& job) {
  if (!IsRegularFile(job)) return {};
  const std::string path = LockPathOf(job);
  if (IsHeld(path)) return {OpenAs::Job, {path, nullptr}};
  LaidLock laid = TheDesktop().LayLock(path, LockOfOthers::Stands);
  if (laid.Holder) {
    const std::vector<std::string> answers = {"Open a copy", "Open all the same", "Cancel"};
    const int answer = TheDesktop().Choose(
        Described(*laid.Holder, job) +
            "Two people who save one job lose each other's changes. A copy has no file until you "
            "save it.",
        "Open Project", answers);
    if (answer == 0) return {OpenAs::Copy, {}};
    if (answer != 1) return {OpenAs::Nothing, {}};
    laid = TheDesktop().LayLock(path, LockOfOthers::Replaced);
  }
  return {OpenAs::Job, {path, std::move(laid.Lock)}};
}

std::optional<JobLock> LockToSave(const std::string& job) {
  const std::string path = LockPathOf(job);
  if (IsHeld(path)) return JobLock{path, nullptr};
  LaidLock laid = TheDesktop().LayLock(path, LockOfOthers::Stands);
  if (laid.Holder && held.Path != path) {
    const std::vector<std::string> answers = {"Save all the same", "Cancel"};
    const int answer =
        TheDesktop().Choose(Described(*laid.Holder, job) + "Saving puts this project in its place.",
                            "Save Project", answers);
    if (answer != 0) return std::nullopt;
    laid = TheDesktop().LayLock(path, LockOfOthers::Replaced);
  }
  return JobLock{path, std::move(laid.Lock)};
}

void HoldJobLock(JobLock lock) {
  if (lock.Lock == nullptr && IsHeld(lock.Path)) return;
  held = std::move(lock);
}

void DropJobLock() {
  held = {};
}

bool LayJobLockAgain(const std::string& job) {
  if (Trim(job).empty()) return true;
  const std::string path = LockPathOf(job);
  if (IsHeld(path)) return true;
  LaidLock laid = TheDesktop().LayLock(path, LockOfOthers::Stands);
  // With none that is known here the next save asks: nobody has been asked about that holder yet.
  if (laid.Holder) {
    DropJobLock();
    return false;
  }
  HoldJobLock({path, std::move(laid.Lock)});
  return true;
}

}  // namespace orvane
