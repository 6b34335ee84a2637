#include "core/file_replacement.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

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

}  // namespace

FileReplacement::FileReplacement(const std::string& path) : path_(path), target_(Followed(path)) {
  std::error_code unknown;
  if (FileName(target_).empty() && !fs::is_directory(NativePath(target_), unknown)) Check(ENOENT);
  const DiskResult old = TheDisk().OpenOld(target_);
  if (old.Error == 0) old_ = old.Value;
  if (old.Error != ENOENT) Check(old.Error);
  try {
    CreateFresh();
  } catch (...) {
    CloseOld();
    throw;
  }
}

FileReplacement::~FileReplacement() {
  if (file_ >= 0) (void)TheDisk().Close(file_);
  if (!fresh_.empty()) (void)TheDisk().Remove(fresh_);
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
  if (old_ >= 0) Check(TheDisk().CopyRights(old_, file_).Error);
  Check(TheDisk().Sync(file_).Error);
  Check(TheDisk().Close(std::exchange(file_, -1)).Error);
  CloseOld();
  Check(TheDisk().Move(fresh_, target_).Error);
  fresh_.clear();
  Check(TheDisk().SyncFolder(PathText(NativePath(target_).parent_path())).Error);
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
    const DiskResult file = TheDisk().Create(fresh, old_ >= 0);
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
      Check(file.Error);
    }
  }
}

void FileReplacement::WriteThrough(std::string_view bytes) {
  while (!bytes.empty()) {
    const DiskResult written = TheDisk().Write(file_, bytes);
    Check(written.Error);
    // Nothing taken and no error is a disk that would take nothing for ever.
    if (written.Value <= 0) Check(EIO);
    bytes.remove_prefix(static_cast<std::size_t>(written.Value));
  }
}

void FileReplacement::Check(int error) const {
  if (error != 0) throw ErrorInFile(path_, ErrorOf(error, target_));
}

void FileReplacement::CloseOld() {
  if (old_ >= 0) (void)TheDisk().Close(std::exchange(old_, -1));
}

void ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  FileReplacement replacement(path);
  replacement.Write(bytes);
  replacement.Commit();
}

}  // namespace orvane
