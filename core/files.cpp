#include "core/files.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "core/disk.h"
#include "core/runtime_error.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace orvane {

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { (void)std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

FileHandle OpenToWrite(const std::string& path) {
  errno = 0;
#ifdef _WIN32
  FileHandle file(_wfopen(NativePath(path).c_str(), L"wb"));
#else
  FileHandle file(std::fopen(path.c_str(), "wb"));
#endif
  if (!file) throw SystemError(errno, path);
  return file;
}

// A file that is open for reading.
class FileToRead {
 public:
  explicit FileToRead(const std::string& path) : path_(path) {
    handle_ = Checked(Again([&] { return TheDisk().OpenToRead(path); }));
  }
  ~FileToRead() { (void)TheDisk().Close(handle_); }
  FileToRead(const FileToRead&) = delete;
  FileToRead& operator=(const FileToRead&) = delete;

  // The number of bytes read, 0 at the end.
  std::size_t Read(char* bytes, std::size_t size) const {
    return static_cast<std::size_t>(
        Checked(Again([&] { return TheDisk().Read(handle_, bytes, size); })));
  }

 private:
  std::int64_t Checked(const DiskResult& result) const {
    if (result.Error != 0) throw SystemError(result.Error, path_);
    return result.Value;
  }

  const std::string& path_;
  std::int64_t handle_ = -1;
};

// Asks the system to bring the file to the disk. A device or pipe has nothing to bring, and says so
// by EINVAL or ENOTSUP; that is no failure.
bool Sync(std::FILE* file) {
#ifdef _WIN32
  return _commit(_fileno(file)) == 0 || errno == EINVAL || errno == EBADF;
#else
  return fsync(fileno(file)) == 0 || errno == EINVAL || errno == ENOTSUP;
#endif
}

// The largest file that is read, in bytes. A text of the system is a thousandth of that; what
// claims to be larger is none, and its size must not be asked of the memory.
constexpr std::size_t LargestFile = std::size_t{1} << 30;

// What a pipe or a device may give beyond the size it told, in bytes: far more than any file of the
// system, and an end to a device that has none.
constexpr std::size_t LargestSurplus = std::size_t{64} << 20;

void WriteAndClose(FileHandle file, const std::string& path, std::string_view bytes) {
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fflush(file.get()) != 0 || !Sync(file.get())) {
    throw SystemError(errno, path);
  }
  if (std::fclose(file.release()) != 0) throw SystemError(errno, path);
}

}  // namespace

std::filesystem::path NativePath(const std::string& path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

std::string PathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

std::string ReadWholeFile(const std::string& path) {
  const FileToRead file(path);
  std::error_code unknown;
  const auto size = std::filesystem::file_size(NativePath(path), unknown);
  if (!unknown && size > LargestFile) throw SystemError(EFBIG, path);
  const std::size_t told = unknown ? 4095 : static_cast<std::size_t>(size);

  // One byte more than the size that the system tells, so that one call reads a file to its end.
  std::string bytes(told + 1, '\0');
  std::size_t length = 0;
  for (;;) {
    const std::size_t got = file.Read(bytes.data() + length, bytes.size() - length);
    if (got == 0) break;
    length += got;
    if (length < bytes.size()) continue;
    if (bytes.size() > told + LargestSurplus) throw SystemError(EFBIG, path);
    bytes.resize(bytes.size() * 2);
  }
  bytes.resize(length);
  return bytes;
}

void WriteWholeFile(const std::string& path, std::string_view bytes) {
  WriteAndClose(OpenToWrite(path), path, bytes);
}

std::string AbsolutePath(const std::string& path) {
  return path.empty() ? path : WholePath(path);
}

std::optional<std::chrono::system_clock::time_point> WrittenAt(const std::string& path) {
  std::error_code error;
  const auto written = std::filesystem::last_write_time(NativePath(path), error);
  if (error) return std::nullopt;
  return std::chrono::time_point_cast<std::chrono::system_clock::duration>(
      std::chrono::file_clock::to_sys(written));
}

void MakePrivateFolder(const std::string& path) {
  const std::filesystem::path folder = NativePath(path);
  std::error_code error;
  if (!std::filesystem::create_directories(folder, error)) {
    if (error) throw SystemError(error.default_error_condition().value(), path);
    return;
  }
  // A disk without permissions lets everybody look in anyway.
  std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
}

bool IsRegularFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(NativePath(path), error);
}

std::string FileName(const std::string& path) {
  return PathText(NativePath(path).filename());
}

std::string FolderOfPath(std::string_view path) {
  const std::size_t last = path.find_last_of("\\/");
  return last == std::string_view::npos ? std::string() : std::string(path.substr(0, last + 1));
}

namespace {

RuntimeError DescribedError(int code, const std::string& path) {
  switch (code) {
    case ENOENT: {
      const std::filesystem::path folder = NativePath(path).parent_path();
      std::error_code ignored;
      const bool folderMissing = !folder.empty() && !std::filesystem::is_directory(folder, ignored);
      return RuntimeError(folderMissing ? Failure::PathNotFound : Failure::FileNotFound);
    }
    case ENOTDIR:
      return RuntimeError(Failure::PathNotFound);
    case EACCES:
    case EPERM:
      return RuntimeError(Failure::PermissionDenied);
    case ENOSPC:
      return RuntimeError(Failure::DiskFull);
    default:
      return RuntimeError(SystemErrorBase + code, std::generic_category().message(code));
  }
}

}  // namespace

RuntimeError SystemError(int code, const std::string& path) {
  return ErrorInFile(path, DescribedError(code, path));
}

}  // namespace orvane
