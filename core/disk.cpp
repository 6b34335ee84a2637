#include "core/disk.h"

#include <cerrno>
#include <filesystem>
#include <limits>

#include "core/text.h"

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
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#endif

namespace orvane {

namespace {

Disk* installedDisk = nullptr;  // not owned

#ifndef _WIN32

// What a call of the system gave, and 0 or its error.
DiskResult ResultOf(std::int64_t value) {
  return {value != -1 ? 0 : errno, value};
}

#endif

}  // namespace

bool NamesDevice(std::string_view path) {
  std::string_view name = path.substr(path.find_last_of("\\/:") + 1);
  name = name.substr(0, name.find('.'));
  while (!name.empty() && name.back() == ' ') name.remove_suffix(1);
  const std::string upper = UpperCase(name);
  for (const std::string_view device : {"CON", "PRN", "AUX", "NUL"}) {
    if (upper == device) return true;
  }
  const bool numbered = upper.size() == 4 && upper.back() >= '1' && upper.back() <= '9';
  return numbered && (upper.starts_with("COM") || upper.starts_with("LPT"));
}

#ifdef _WIN32

namespace {

std::wstring Wide(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end())).wstring();
}

// The path as the system's calls take it. A longer one than they have room for is taken whole by a
// form of its own, which only a path from the root on has: \\?\C:\..., \\?\UNC\server\...
std::wstring SystemPath(const std::string& path) {
  constexpr std::size_t room = 240;  // less than the 260, for names that are put behind
  const std::wstring whole = Wide(WholePath(path));
  if (whole.size() < room || whole.starts_with(L"\\\\?\\")) return Wide(path);
  return whole.starts_with(L"\\\\") ? L"\\\\?\\UNC" + whole.substr(1) : L"\\\\?\\" + whole;
}

// The error of the last call of the system.
DiskResult LastError() {
  const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
  return {error.default_error_condition().value()};
}

DiskResult Ended(bool done) {
  return {done ? 0 : errno, 0};
}

}  // namespace

// The library's own takes a path of the net for one of the current drive.
std::string WholePath(const std::string& path) {
  const std::wstring given = Wide(path);
  std::wstring whole(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
  const auto room = static_cast<DWORD>(whole.size());
  whole.resize(GetFullPathNameW(given.c_str(), room, whole.data(), nullptr));
  const std::u8string text = std::filesystem::path(whole).u8string();
  return whole.empty() ? path : std::string(text.begin(), text.end());
}

DiskResult Disk::OpenToRead(const std::string& path) {
  if (NamesDevice(path)) return {EACCES};
  int file = -1;
  const errno_t opened = _wsopen_s(&file, SystemPath(path).c_str(),
                                   _O_RDONLY | _O_BINARY | _O_NOINHERIT, _SH_DENYNO, 0);
  return {opened, file};
}

DiskResult Disk::Read(std::int64_t file, char* bytes, std::size_t size) {
  const auto most = static_cast<std::size_t>(std::numeric_limits<int>::max());
  const int read =
      _read(static_cast<int>(file), bytes, static_cast<unsigned>(std::min(size, most)));
  return {read < 0 ? errno : 0, read};
}

DiskResult Disk::OpenOld(const std::string& path) {
  if (NamesDevice(path)) return {NoFileError};
  const DWORD kind = GetFileAttributesW(SystemPath(path).c_str());
  if (kind == INVALID_FILE_ATTRIBUTES) return LastError();
  if ((kind & FILE_ATTRIBUTE_DIRECTORY) != 0) return {EISDIR};
  if ((kind & FILE_ATTRIBUTE_DEVICE) != 0) return {NoFileError};
  int file = -1;
  const errno_t opened = _wsopen_s(&file, SystemPath(path).c_str(),
                                   _O_WRONLY | _O_BINARY | _O_NOINHERIT, _SH_DENYNO, 0);
  return {opened, file};
}

DiskResult Disk::Create(const std::string& path, bool) {
  int file = -1;
  const errno_t opened = _wsopen_s(&file, SystemPath(path).c_str(),
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

DiskResult Disk::CutOff(std::int64_t file) {
  const auto handle = static_cast<int>(file);
  const std::int64_t at = _telli64(handle);
  if (at < 0) return {errno};
  return {_chsize_s(handle, at)};
}

DiskResult Disk::CopyRights(const std::string&, std::int64_t) {
  return {};
}

DiskResult Disk::Sync(std::int64_t file) {
  return Ended(_commit(static_cast<int>(file)) == 0 || errno == EINVAL);
}

DiskResult Disk::Close(std::int64_t file) {
  return Ended(_close(static_cast<int>(file)) == 0);
}

DiskResult Disk::Move(const std::string& from, const std::string& to) {
  if (MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(),
                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
    return {};
  }
  return LastError();
}

DiskResult Disk::SyncFolder(const std::string&) {
  return {};  // the move has written it through
}

DiskResult Disk::Remove(const std::string& path) {
  return Ended(_wremove(SystemPath(path).c_str()) == 0);
}

long long ProcessId() {
  return _getpid();
}

bool IsRunning(long long processId) {
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(processId));
  if (process == nullptr) return GetLastError() == ERROR_ACCESS_DENIED;
  const bool running = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  CloseHandle(process);
  return running;
}

bool IsAbandoned(const std::string& path) {
  // Nobody gets it who would share it with nobody, as long as another has it open.
  int file = -1;
  if (_wsopen_s(&file, SystemPath(path).c_str(), _O_RDWR | _O_BINARY, _SH_DENYRW, 0) != 0) {
    return false;
  }
  (void)_close(file);
  return true;
}

#else

std::string WholePath(const std::string& path) {
  return std::filesystem::absolute(path).string();
}

DiskResult Disk::OpenToRead(const std::string& path) {
  return ResultOf(open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

DiskResult Disk::Read(std::int64_t file, char* bytes, std::size_t size) {
  return ResultOf(read(static_cast<int>(file), bytes, size));
}

DiskResult Disk::OpenOld(const std::string& path) {
  // Looked at before it is opened, because opening alone can set a device to work, and once more
  // when it is, because another file may bear the name by then.
  struct stat state {};
  if (stat(path.c_str(), &state) != 0) return {errno};
  if (S_ISDIR(state.st_mode)) return {EISDIR};
  if (!S_ISREG(state.st_mode)) return {NoFileError};
  const DiskResult file =
      ResultOf(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (file.Error != 0) return file;
  if (fstat(static_cast<int>(file.Value), &state) == 0 && S_ISREG(state.st_mode)) return file;
  (void)Close(file.Value);
  return {NoFileError};
}

DiskResult Disk::Create(const std::string& path, bool isPrivate) {
  const DiskResult file = ResultOf(
      open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, isPrivate ? 0600 : 0666));
  // Who sweeps up behind dead programs asks for this lock (IsAbandoned). A disk without locks is
  // no error.
  if (file.Error == 0) (void)flock(static_cast<int>(file.Value), LOCK_EX | LOCK_NB);
  return file;
}

DiskResult Disk::Write(std::int64_t file, std::string_view bytes) {
  return ResultOf(write(static_cast<int>(file), bytes.data(), bytes.size()));
}

DiskResult Disk::CutOff(std::int64_t file) {
  const auto handle = static_cast<int>(file);
  const DiskResult at = ResultOf(lseek(handle, 0, SEEK_CUR));
  return at.Error != 0 ? at : ResultOf(ftruncate(handle, at.Value));
}

DiskResult Disk::CopyRights(const std::string& from, std::int64_t to) {
  struct stat state {};
  if (stat(from.c_str(), &state) != 0) return {errno};
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
  const DiskResult result = ResultOf(fsync(static_cast<int>(file)));
  const bool nothing = result.Error == EINVAL || result.Error == ENOTSUP;
  return nothing ? DiskResult{} : result;
}

DiskResult Disk::Close(std::int64_t file) {
  // Never a second time: an interrupted call has given the handle away already.
  const bool closed = close(static_cast<int>(file)) == 0 || errno == EINTR;
  return {closed ? 0 : errno};
}

DiskResult Disk::Move(const std::string& from, const std::string& to) {
  return ResultOf(rename(from.c_str(), to.c_str()));
}

DiskResult Disk::SyncFolder(const std::string& folder) {
  const std::string path = folder.empty() ? "." : folder;
  const DiskResult opened = ResultOf(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.Error == EACCES || opened.Error == EPERM) return {};
  if (opened.Error != 0) return opened;
  const DiskResult result = Disk::Sync(opened.Value);
  (void)Disk::Close(opened.Value);
  return result;
}

DiskResult Disk::Remove(const std::string& path) {
  return ResultOf(unlink(path.c_str()));
}

long long ProcessId() {
  return getpid();
}

bool IsRunning(long long processId) {
  return kill(static_cast<pid_t>(processId), 0) == 0 || errno == EPERM;
}

bool IsAbandoned(const std::string& path) {
  const int file = open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (file == -1) return false;
  struct stat state {};
  const bool own = fstat(file, &state) == 0 && S_ISREG(state.st_mode) && state.st_uid == geteuid();
  const bool unused = own && flock(file, LOCK_EX | LOCK_NB) == 0;
  (void)close(file);
  return unused;
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
