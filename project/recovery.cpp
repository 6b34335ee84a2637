#include "project/recovery.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "core/desktop.h"
#include "core/disk.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/text.h"
#include "project/content_mark.h"
#include "project/job.h"
#include "project/packed_records.h"
#include "project/project_file.h"
#include "project/unfit_texts.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

// A copy and what is told of it, the mark of its file and its path in two lines, are called
// job1.ovd and job1.path, the next one job2 if its path is another: so no copy ever stands beside
// the path of another job.
constexpr std::string_view CopyName = "job";
constexpr std::string_view CopyEnding = ".ovd";
constexpr std::string_view PathEnding = ".path";

fs::path FolderOfCopies(const std::string& dataFolder) {
  return NativePath(dataFolder) / "recovery";
}

std::string NameOf(const std::string& folder, int number, std::string_view ending) {
  const std::string name = std::string(CopyName) + DecimalText(number) + std::string(ending);
  return PathText(NativePath(folder) / name);
}

// The number of a copy by its file's name; 0 for another file.
int NumberOf(const std::string& name) {
  if (name.size() <= CopyName.size() + CopyEnding.size() || name.rfind(CopyName, 0) != 0 ||
      name.compare(name.size() - CopyEnding.size(), CopyEnding.size(), CopyEnding) != 0) {
    return 0;
  }
  const std::string digits =
      name.substr(CopyName.size(), name.size() - CopyName.size() - CopyEnding.size());
  constexpr std::size_t mostDigits = 9;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (digits.size() > mostDigits || !std::all_of(digits.begin(), digits.end(), isDigit)) return 0;
  return static_cast<int>(Val(digits));
}

std::vector<fs::path> Entries(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    entries.push_back(at->path());
  }
  std::sort(entries.begin(), entries.end());
  return entries;
}

// The number of the last copy in the folder; 0 for none.
int LastCopy(const std::string& folder) {
  int last = 0;
  for (const fs::path& entry : Entries(NativePath(folder))) {
    last = std::max(last, NumberOf(PathText(entry.filename())));
  }
  return last;
}

// What stands beside a copy; none if it can't be read.
std::optional<std::string> ToldOfCopy(const std::string& folder, int number) {
  try {
    return ReadWholeFile(NameOf(folder, number, PathEnding));
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

// Whether a job's file is otherwise than that mark tells; one that can't be read is.
bool IsOtherThan(const std::string& path, const std::string& known) {
  if (path.empty() || !IsRegularFile(path)) return false;
  try {
    return MarkText(MarkOf(ReadWholeFile(path))) != known;
  } catch (const std::exception&) {
    return true;
  }
}

// The copy goes first: one without its path would be taken for a job without a name.
void RemoveCopy(const std::string& folder, int number) {
  TheDisk().Remove(NameOf(folder, number, CopyEnding));
  TheDisk().Remove(NameOf(folder, number, PathEnding));
}

std::string FolderName(const Moment& now) {
  return PaddedText(now.Day.Year, 4) + "-" + PaddedText(now.Day.Month, 2) + "-" +
         PaddedText(now.Day.Day, 2) + "-" + PaddedText(now.Hour, 2) + PaddedText(now.Minute, 2) +
         PaddedText(now.Second, 2);
}

}  // namespace

std::string MakeRecoveryFolder(const std::string& dataFolder, const Moment& now) {
  if (!fs::is_directory(NativePath(dataFolder))) throw RuntimeError(Failure::PathNotFound);
  const fs::path copies = FolderOfCopies(dataFolder);
  MakePrivateFolder(PathText(copies));
  const std::string name = FolderName(now);
  fs::path folder = copies / name;
  const auto isTaken = [&folder] {
    std::error_code unknown;
    return fs::exists(fs::symlink_status(folder, unknown));
  };
  std::error_code error;
  // Another program may take the name at the same moment.
  for (int number = 2; isTaken() || !fs::create_directory(folder, error); ++number) {
    if (!isTaken()) throw SystemError(error.default_error_condition().value(), PathText(folder));
    folder = copies / (name + "-" + DecimalText(number));
  }
  // A power cut mustn't take the folder of a copy that was brought to the disk.
  try {
    BringNameToDisk(PathText(copies));
    BringNameToDisk(PathText(folder));
  } catch (const RuntimeError&) {
    RemoveRecoveryFolder(PathText(folder));
    throw;
  }
  return PathText(folder);
}

std::vector<std::string> RecoveryFolders(const std::string& dataFolder) {
  std::vector<std::string> folders;
  for (const fs::path& entry : Entries(FolderOfCopies(dataFolder))) {
    std::error_code unknown;
    if (fs::is_directory(fs::symlink_status(entry, unknown))) folders.push_back(PathText(entry));
  }
  return folders;
}

void KeepCopy(const std::string& folder, const std::string& path, const std::string& known,
              const std::string& text) {
  const int last = LastCopy(folder);
  const std::string told = known + "\n" + path;
  if (last > 0 && ToldOfCopy(folder, last) == told) {
    ReplaceWholeFile(NameOf(folder, last, CopyEnding), text);
    return;
  }
  ReplaceWholeFile(NameOf(folder, last + 1, PathEnding), told);
  ReplaceWholeFile(NameOf(folder, last + 1, CopyEnding), text);
  if (last > 0) RemoveCopy(folder, last);
}

void DropCopy(const std::string& folder) {
  for (int last = LastCopy(folder); last > 0; --last) RemoveCopy(folder, last);
}

std::optional<LeftJob> CopyIn(const std::string& folder) {
  const int last = LastCopy(folder);
  if (last == 0) return std::nullopt;
  LeftJob job;
  job.Folder = folder;
  job.File = NameOf(folder, last, CopyEnding);
  // A job without a name is better than none.
  const std::string told = ToldOfCopy(folder, last).value_or("\n");
  const std::size_t end = std::min(told.find('\n'), told.size());
  job.Path = told.substr(std::min(end + 1, told.size()));
  const auto written = WrittenAt(job.File);
  if (!written) return std::nullopt;
  job.Written = *written;
  const auto saved = job.Path.empty() ? std::nullopt : WrittenAt(job.Path);
  job.IsOlder = saved && *saved > *written;
  job.IsChanged = IsOtherThan(job.Path, told.substr(0, end));
  return job;
}

void RemoveRecoveryFolder(const std::string& folder) {
  std::error_code stays;
  fs::remove_all(NativePath(folder), stays);
}

std::string TextOfState(const JobState& state, const std::function<void()>& between) {
  Job job;
  UnpackDetails(state.Details, RecordsOf(job));
  UnpackAccessories(state.Accessories, RecordsOf(job));
  // A section is unpacked when its turn comes, so that they don't all take their room at once.
  Item section;
  int unpacked = 0;
  const auto rowAt = [&](int row) -> const Item& {
    if (row == unpacked) return section;
    if (between) between();
    section = UnpackSection(state.Rows.at(static_cast<std::size_t>(row) - 1).Section);
    unpacked = row;
    return section;
  };
  const SectionRows sections(static_cast<int>(state.Rows.size()), rowAt);
  return ProjectText(
      {job.Details, job.ProjectDate, sections, job.AccLines1, job.AccLines2, job.AccUsed});
}

std::string KeepUnsavedProject(const std::string& path, const std::string& known) {
  std::string folder;
  try {
    const std::string text = ProjectText();
    const std::string dataFolder = TheDesktop().UserDataFolder();
    if (dataFolder.empty()) return {};
    folder = MakeRecoveryFolder(dataFolder, TheDesktop().Now());
    KeepCopy(folder, path, known, text);
    // One that doesn't open can still be mended by hand.
    if (FitOf(text, OpenJob()) == FileFit::Broken) return {};
    return NameOf(folder, LastCopy(folder), CopyEnding);
  } catch (const std::exception&) {
    if (!folder.empty()) RemoveRecoveryFolder(folder);
    return {};
  }
}

}  // namespace orvane
