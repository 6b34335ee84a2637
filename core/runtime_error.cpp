#include "core/runtime_error.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "core/files.h"

namespace orvane {

std::string DescriptionOf(Failure failure) {
  switch (failure) {
    case Failure::FileNotFound:
      return "File not found";
    case Failure::PathNotFound:
      return "Path not found";
    case Failure::PermissionDenied:
      return "Permission denied";
    case Failure::DiskFull:
      return "Disk full";
    case Failure::InputPastEndOfFile:
      return "Input past end of file";
    case Failure::TypeMismatch:
      return "Type mismatch";
    case Failure::Overflow:
      return "Overflow";
    case Failure::DivisionByZero:
      return "Division by zero";
    case Failure::SubscriptOutOfRange:
      return "Subscript out of range";
  }
  return "Unknown error";
}

RuntimeError::RuntimeError(Failure failure) : RuntimeError(failure, DescriptionOf(failure)) {}

RuntimeError::RuntimeError(Failure failure, const std::string& description)
    : RuntimeError(static_cast<int>(failure), description) {}

RuntimeError::RuntimeError(int number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

RuntimeError NamedError(const std::string& name, const RuntimeError& error) {
  return RuntimeError(error.Number(), name + ": " + error.Description());
}

RuntimeError SystemError(int code, const std::string& path) {
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

}  // namespace orvane
