#include "core/files.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "core/runtime_error.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace orvane {

namespace {

std::filesystem::path NativePath(const std::string& path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

enum class Use { Read, Write };

FileHandle Open(const std::string& path, Use use) {
  errno = 0;
#ifdef _WIN32
  FileHandle file(_wfopen(NativePath(path).c_str(), use == Use::Read ? L"rb" : L"wb"));
#else
  FileHandle file(std::fopen(path.c_str(), use == Use::Read ? "rb" : "wb"));
#endif
  if (!file) throw SystemError(errno, path);
  return file;
}

// Asks the system to bring the file to the disk. A device or pipe has nothing to bring, and says so
// by EINVAL or ENOTSUP; that is no failure.
bool Sync(std::FILE* file) {
#ifdef _WIN32
  return _commit(_fileno(file)) == 0 || errno == EINVAL || errno == EBADF;
#else
  return fsync(fileno(file)) == 0 || errno == EINVAL || errno == ENOTSUP;
#endif
}

}  // namespace

std::string ReadWholeFile(const std::string& path) {
  const FileHandle file = Open(path, Use::Read);
  std::error_code unknown;
  const auto size = std::filesystem::file_size(NativePath(path), unknown);

  // One byte more than the size that the system tells, so that one call reads a file to its end.
  std::string bytes(unknown ? 4096 : static_cast<std::size_t>(size) + 1, '\0');
  std::size_t length = 0;
  for (;;) {
    errno = 0;
    const std::size_t got = std::fread(bytes.data() + length, 1, bytes.size() - length, file.get());
    if (std::ferror(file.get()) != 0) throw SystemError(errno, path);
    length += got;
    if (length < bytes.size()) break;
    bytes.resize(bytes.size() * 2);
  }
  bytes.resize(length);
  return bytes;
}

void WriteWholeFile(const std::string& path, std::string_view bytes) {
  FileHandle file = Open(path, Use::Write);
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fflush(file.get()) != 0 || !Sync(file.get())) {
    throw SystemError(errno, path);
  }
  if (std::fclose(file.release()) != 0) throw SystemError(errno, path);
}

void ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  const std::string fresh = path + ".tmp";
  std::error_code error;
  try {
    WriteWholeFile(fresh, bytes);
    std::filesystem::rename(NativePath(fresh), NativePath(path), error);
    if (error) throw SystemError(error.value(), path);
  } catch (const RuntimeError&) {
    if (IsRegularFile(fresh)) std::filesystem::remove(NativePath(fresh), error);
    throw;
  }
}

bool IsRegularFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(NativePath(path), error);
}

std::string FileName(const std::string& path) {
  const std::u8string name = NativePath(path).filename().u8string();
  return std::string(name.begin(), name.end());
}

}  // namespace orvane
