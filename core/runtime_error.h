// The one exception of the system: a failure at run time that a handler shows by its description.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

namespace orvane {

// What can fail at run time. The values are the numbers shown behind "ERROR #"; they are the
// system's own. A failure that only the operating system can name bears SystemErrorBase plus its
// error code.
enum class Failure {
  FileNotFound = 1,
  PathNotFound = 2,
  PermissionDenied = 3,
  DiskFull = 4,
  InputPastEndOfFile = 5,
  TypeMismatch = 6,
  Overflow = 7,
  DivisionByZero = 8,
  SubscriptOutOfRange = 9,
};

constexpr int SystemErrorBase = 1000;

// The fixed English description of a failure, such as "Type mismatch".
std::string DescriptionOf(Failure failure);

class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(Failure failure);
  // `description` replaces the fixed text, for an error that can say where it happened.
  RuntimeError(Failure failure, const std::string& description);
  RuntimeError(int number, const std::string& description);

  int Number() const { return number_; }
  std::string Description() const { return what(); }
  // The path of the file that it is an error of, as far as that is known; else empty.
  std::string File() const { return file_ ? *file_ : ""; }

 private:
  friend RuntimeError ErrorInFile(const std::string& file, const RuntimeError& error);

  int number_;
  std::shared_ptr<const std::string> file_;  // shared, so that copying the error can't fail
};

// The same failure, as one of the file.
RuntimeError ErrorInFile(const std::string& file, const RuntimeError& error);

// The same failure with a name in front of its description: "P4: Division by zero".
RuntimeError NamedError(const std::string& name, const RuntimeError& error);

}  // namespace orvane
