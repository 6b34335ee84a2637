#include "core/file_replacement.h"

#include <cerrno>
#include <charconv>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "core/disk.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

// What is gathered before it is written, in bytes: a PDF comes in pieces of a few letters.
constexpr std::size_t BufferSize = 65536;

// Where a path leads in the end, even if nothing stands there yet.
std::string Followed(const std::string& path) {
  constexpr int MostLinks = 40;  // as the system follows; more go in a circle
  fs::path target = NativePath(path);
  std::error_code error;
  for (int links = 0; links < MostLinks && fs::is_symlink(target, error); ++links) {
    const fs::path led = fs::read_symlink(target, error);
    if (error) break;
    target = target.parent_path() / led;  // an absolute one stands for itself
  }
  return PathText(target);
}

RuntimeError ErrorOf(int error, const std::string& target) {
  if (error == NoFileError) return RuntimeError(SystemErrorBase, "Not a regular file");
  return SystemError(error, target);
}

// Gives the error, 0 for none.
int WriteAll(std::int64_t file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DiskResult written = Again([&] { return TheDisk().Write(file, bytes); });
    if (written.Error != 0) return written.Error;
    // Nothing taken and no error is a disk that would take nothing for ever.
    if (written.Value <= 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written.Value));
  }
  return 0;
}

// How far a file that is written over in its place came.
enum class Reached { Nothing, Changed };

// The same of a whole file that stands there. What it held and is longer goes last: a disk that is
// full has room for as much as stood there before.
int WriteOver(const std::string& target, std::string_view bytes, Reached& reached) {
  const DiskResult file = Again([&] { return TheDisk().OpenOld(target); });
  if (file.Error != 0) return file.Error;
  reached = Reached::Changed;
  int error = WriteAll(file.Value, bytes);
  if (error == 0) error = Again([&] { return TheDisk().CutOff(file.Value); }).Error;
  if (error == 0) error = Again([&] { return TheDisk().Sync(file.Value); }).Error;
  const int closed = TheDisk().Close(file.Value).Error;
  return error != 0 ? error : closed;
}

// The number of the program that has left a file of that name beside one called `name`, as
// CreateFresh calls them; none if it isn't called so.
std::optional<long long> WriterOf(std::string_view leftover, std::string_view name) {
  constexpr std::string_view ending = ".tmp";
  if (!leftover.starts_with(name)) return std::nullopt;
  leftover.remove_prefix(name.size());
  if (!leftover.starts_with('.') || !leftover.ends_with(ending)) return std::nullopt;
  while (leftover.ends_with(ending)) leftover.remove_suffix(ending.size());
  if (leftover.size() < 2) return std::nullopt;
  leftover.remove_prefix(1);
  long long number = 0;
  const char* end = leftover.data() + leftover.size();
  const auto read = std::from_chars(leftover.data(), end, number);
  const bool whole = read.ec == std::errc() && read.ptr == end && number > 0;
  return whole ? std::optional(number) : std::nullopt;
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path, const std::string& rightsOf)
    : path_(path), target_(Followed(path)), rightsOf_(rightsOf) {
  std::error_code unknown;
  if (FileName(target_).empty() && !fs::is_directory(NativePath(target_), unknown)) Check(ENOENT);
  const DiskResult old = Again([&] { return TheDisk().OpenOld(target_); });
  if (old.Error == 0) old_ = old.Value;
  if (old.Error != ENOENT) Check(old.Error);
  if (old_ >= 0 && rightsOf_.empty()) rightsOf_ = target_;
  try {
    CreateFresh();
  } catch (...) {
    CloseOld();
    throw;
  }
}

FileReplacement::~FileReplacement() {
  if (file_ >= 0) (void)TheDisk().Close(file_);
  if (!fresh_.empty()) (void)Again([&] { return TheDisk().Remove(fresh_); });
  CloseOld();
}

void FileReplacement::Write(std::string_view bytes) {
  if (buffer_.size() + bytes.size() > BufferSize) {
    WriteThrough(std::exchange(buffer_, {}));
    if (bytes.size() > BufferSize) return WriteThrough(bytes);
  }
  buffer_.append(bytes);
}

void FileReplacement::Commit() {
  WriteThrough(std::exchange(buffer_, {}));
  if (!rightsOf_.empty()) {
    Check(Again([&] { return TheDisk().CopyRights(rightsOf_, file_); }).Error);
  }
  Check(Again([&] { return TheDisk().Sync(file_); }).Error);
  Check(TheDisk().Close(std::exchange(file_, -1)).Error);
  const bool over = old_ >= 0;
  CloseOld();
  const int moved = Again([&] { return TheDisk().Move(fresh_, target_); }).Error;
  if (over) CheckPlace(moved);
  Check(moved);
  fresh_.clear();
  const std::string folder = PathText(NativePath(target_).parent_path());
  Check(Again([&] { return TheDisk().SyncFolder(folder); }).Error);
}

// The process's own number keeps the name apart from what another program, or one that was killed,
// has left beside the file; the ending is added once more where even that name is in use. A name
// that the disk finds too long is cut.
void FileReplacement::CreateFresh() {
  const fs::path folder = NativePath(target_).parent_path();
  std::string name = FileName(target_);
  std::string ending = "." + DecimalText(ProcessId()) + ".tmp";
  for (;;) {
    const std::string fresh = PathText(folder / NativePath(name + ending));
    const DiskResult file = Again([&] { return TheDisk().Create(fresh, !rightsOf_.empty()); });
    if (file.Error == 0) {
      file_ = file.Value;
      fresh_ = fresh;
      return;
    }
    if (file.Error == EEXIST) {
      ending += ".tmp";
    } else if (file.Error == ENAMETOOLONG && CharCount(name) > 1) {
      name = FirstChars(name, CharCount(name) / 2);
    } else {
      if (old_ >= 0) CheckPlace(file.Error);
      Check(file.Error);
    }
  }
}

void FileReplacement::WriteThrough(std::string_view bytes) {
  Check(WriteAll(file_, bytes));
}

void FileReplacement::Check(int error) const {
  if (error != 0) throw ErrorInFile(path_, ErrorOf(error, target_));
}

void FileReplacement::CheckPlace(int error) const {
  if (error == EACCES || error == EPERM) {
    throw NoFileBeside(ErrorInFile(path_, ErrorOf(error, target_)));
  }
}

void FileReplacement::CloseOld() {
  if (old_ >= 0) (void)TheDisk().Close(std::exchange(old_, -1));
}

void ReplaceWholeFile(const std::string& path, std::string_view bytes,
                      const std::string& rightsOf) {
  FileReplacement replacement(path, rightsOf);
  replacement.Write(bytes);
  replacement.Commit();
}

Overwriting OverwriteWholeFile(const std::string& path, std::string_view bytes,
                               std::string_view former) {
  const std::string target = Followed(path);
  Reached reached = Reached::Nothing;
  const int error = WriteOver(target, bytes, reached);
  if (error == 0) return {};
  const bool holdsFormer = reached == Reached::Nothing || WriteOver(target, former, reached) == 0;
  return {ErrorInFile(path, ErrorOf(error, target)), holdsFormer};
}

void BringNameToDisk(const std::string& folder) {
  const std::string above = PathText(NativePath(folder).parent_path());
  const int error = Again([&] { return TheDisk().SyncFolder(above); }).Error;
  if (error != 0) throw SystemError(error, above);
}

bool HasOtherNames(const std::string& path) {
  std::error_code error;
  const auto names = fs::hard_link_count(NativePath(path), error);
  return !error && names > 1 && IsRegularFile(path);  // a folder has a name in each folder below it
}

void SweepLeftovers(const std::string& path, std::string_view ending) {
  const fs::path target = NativePath(Followed(path));
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  const std::string name = PathText(target.filename());
  if (name.empty()) return;
  std::error_code error;
  std::vector<std::string> leftovers;
  fs::directory_iterator entries(folder, error);
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    const std::string entry = PathText(entries->path().filename());
    std::optional<long long> writer = WriterOf(entry, name);
    if (!writer) writer = WriterOf(entry, name + std::string(ending));
    if (writer && !IsRunning(*writer)) leftovers.push_back(PathText(entries->path()));
  }
  for (const std::string& leftover : leftovers) {
    if (IsAbandoned(leftover)) (void)Again([&] { return TheDisk().Remove(leftover); });
  }
}

}  // namespace orvane
