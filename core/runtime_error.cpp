#include "core/runtime_error.h"

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

RuntimeError ErrorInFile(const std::string& file, const RuntimeError& error) {
  RuntimeError same = error;
  same.file_ = std::make_shared<const std::string>(file);
  return same;
}

RuntimeError NamedError(const std::string& name, const RuntimeError& error) {
  const RuntimeError named(error.Number(), name + ": " + error.Description());
  return error.File().empty() ? named : ErrorInFile(error.File(), named);
}

}  // namespace orvane
