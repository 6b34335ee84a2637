#include "core/disk.h"

#include <cerrno>
#include <filesystem>
#include <limits>

#include "core/files.h"

#ifdef _WIN32
#include <windows.h>
// (after windows.h, which they need)
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <share.h>
#include <sys/stat.h>

#include <algorithm>
#include <system_error>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace orvane {

namespace {

Disk* installedDisk = nullptr;  // not owned

#ifndef _WIN32

// Makes a call again for as long as a signal interrupts it; gives what it gave, and 0 or its error.
template <class Call>
DiskResult Retried(const Call& call) {
  for (;;) {
    errno = 0;
    const auto value = call();
    if (value != -1) return {0, value};
    if (errno != EINTR) return {errno, value};
  }
}

#endif

}  // namespace

#ifdef _WIN32

namespace {

DiskResult Ended(bool done) {
  return {done ? 0 : errno, 0};
}

}  // namespace

DiskResult Disk::OpenOld(const std::string& path) {
  std::error_code error;
  const auto kind = std::filesystem::status(NativePath(path), error).type();
  if (kind == std::filesystem::file_type::not_found) return {ENOENT};
  if (kind == std::filesystem::file_type::directory) return {EISDIR};
  if (error) return {error.default_error_condition().value()};
  if (kind != std::filesystem::file_type::regular) return {NoFileError};
  int file = -1;
  const errno_t opened = _wsopen_s(&file, NativePath(path).c_str(),
                                   _O_WRONLY | _O_BINARY | _O_NOINHERIT, _SH_DENYNO, 0);
  return {opened, file};
}

DiskResult Disk::Create(const std::string& path, bool) {
  int file = -1;
  const errno_t opened = _wsopen_s(&file, NativePath(path).c_str(),
                                   _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                                   _SH_DENYNO, _S_IREAD | _S_IWRITE);
  return {opened, file};
}

DiskResult Disk::Write(std::int64_t file, std::string_view bytes) {
  const auto most = static_cast<std::size_t>(std::numeric_limits<int>::max());
  const int written = _write(static_cast<int>(file), bytes.data(),
                             static_cast<unsigned>(std::min(bytes.size(), most)));
  return {written < 0 ? errno : 0, written};
}

DiskResult Disk::CopyRights(std::int64_t, std::int64_t) {
  return {};
}

DiskResult Disk::Sync(std::int64_t file) {
  return Ended(_commit(static_cast<int>(file)) == 0 || errno == EINVAL);
}

DiskResult Disk::Close(std::int64_t file) {
  return Ended(_close(static_cast<int>(file)) == 0);
}

DiskResult Disk::Move(const std::string& from, const std::string& to) {
  if (MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(),
                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
    return {};
  }
  const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
  return {error.default_error_condition().value()};
}

DiskResult Disk::SyncFolder(const std::string&) {
  return {};  // the move has written it through
}

DiskResult Disk::Remove(const std::string& path) {
  return Ended(_wremove(NativePath(path).c_str()) == 0);
}

long long ProcessId() {
  return _getpid();
}

#else

DiskResult Disk::OpenOld(const std::string& path) {
  // Looked at before it is opened, because opening alone can set a device to work, and once more
  // when it is, because another file may bear the name by then.
  struct stat state {};
  if (stat(path.c_str(), &state) != 0) return {errno};
  if (S_ISDIR(state.st_mode)) return {EISDIR};
  if (!S_ISREG(state.st_mode)) return {NoFileError};
  const DiskResult file =
      Retried([&] { return open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); });
  if (file.Error != 0) return file;
  if (fstat(static_cast<int>(file.Value), &state) == 0 && S_ISREG(state.st_mode)) return file;
  (void)Close(file.Value);
  return {NoFileError};
}

DiskResult Disk::Create(const std::string& path, bool isPrivate) {
  return Retried([&] {
    return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, isPrivate ? 0600 : 0666);
  });
}

DiskResult Disk::Write(std::int64_t file, std::string_view bytes) {
  return Retried([&] { return write(static_cast<int>(file), bytes.data(), bytes.size()); });
}

DiskResult Disk::CopyRights(std::int64_t from, std::int64_t to) {
  struct stat state {};
  if (fstat(static_cast<int>(from), &state) != 0) return {errno};
  // The owner first, because a change of owner takes rights away. Only root may give a file to
  // somebody else; the group can still be one of the user's own.
  const auto handle = static_cast<int>(to);
  if (fchown(handle, state.st_uid, state.st_gid) != 0) {
    const auto sameOwner = static_cast<uid_t>(-1);
    if (fchown(handle, sameOwner, state.st_gid) != 0) errno = 0;
  }
  constexpr mode_t Rights = 07777;
  if (fchmod(handle, state.st_mode & Rights) == 0) return {};
  const bool unknownHere = errno == EPERM || errno == ENOTSUP || errno == ENOSYS || errno == EINVAL;
  return {unknownHere ? 0 : errno};
}

DiskResult Disk::Sync(std::int64_t file) {
  const DiskResult result = Retried([&] { return fsync(static_cast<int>(file)); });
  const bool nothing = result.Error == EINVAL || result.Error == ENOTSUP;
  return nothing ? DiskResult{} : result;
}

DiskResult Disk::Close(std::int64_t file) {
  // Never a second time: an interrupted call has given the handle away already.
  const bool closed = close(static_cast<int>(file)) == 0 || errno == EINTR;
  return {closed ? 0 : errno};
}

DiskResult Disk::Move(const std::string& from, const std::string& to) {
  return Retried([&] { return rename(from.c_str(), to.c_str()); });
}

DiskResult Disk::SyncFolder(const std::string& folder) {
  const std::string path = folder.empty() ? "." : folder;
  const DiskResult opened =
      Retried([&] { return open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
  if (opened.Error == EACCES || opened.Error == EPERM) return {};
  if (opened.Error != 0) return opened;
  const DiskResult result = Disk::Sync(opened.Value);
  (void)Disk::Close(opened.Value);
  return result;
}

DiskResult Disk::Remove(const std::string& path) {
  return Retried([&] { return unlink(path.c_str()); });
}

long long ProcessId() {
  return getpid();
}

#endif

void InstallDisk(Disk& disk) {
  installedDisk = &disk;
}

void UninstallDisk() {
  installedDisk = nullptr;
}

Disk& TheDisk() {
  static Disk system;
  return installedDisk != nullptr ? *installedDisk : system;
}

}  // namespace orvane
