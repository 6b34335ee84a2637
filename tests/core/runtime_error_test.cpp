#include "core/runtime_error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/files.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;

const std::vector<std::pair<Failure, std::string>> Failures = {
    {Failure::FileNotFound, "File not found"},
    {Failure::PathNotFound, "Path not found"},
    {Failure::PermissionDenied, "Permission denied"},
    {Failure::DiskFull, "Disk full"},
    {Failure::InputPastEndOfFile, "Input past end of file"},
    {Failure::TypeMismatch, "Type mismatch"},
    {Failure::Overflow, "Overflow"},
    {Failure::DivisionByZero, "Division by zero"},
    {Failure::SubscriptOutOfRange, "Subscript out of range"}};

TEST(RuntimeErrors, Each_failure_has_its_fixed_description_and_a_number_of_its_own) {
  std::set<int> numbers;
  for (const auto& [failure, description] : Failures) {
    const RuntimeError error(failure);
    EXPECT_EQ(error.Description(), description);
    EXPECT_EQ(DescriptionOf(failure), description);
    EXPECT_EQ(std::string(error.what()), description);
    EXPECT_EQ(error.Number(), static_cast<int>(failure));
    EXPECT_GT(error.Number(), 0);
    EXPECT_LT(error.Number(), SystemErrorBase);
    numbers.insert(error.Number());
  }
  EXPECT_EQ(numbers.size(), Failures.size());
}

TEST(RuntimeErrors, A_description_may_say_where_it_happened) {
  const RuntimeError error(Failure::TypeMismatch, "Type mismatch (row 3, column 4)");
  EXPECT_EQ(error.Number(), static_cast<int>(Failure::TypeMismatch));
  EXPECT_EQ(error.Description(), "Type mismatch (row 3, column 4)");
}

class SystemErrors : public orvane::test::SystemTest {};

TEST_F(SystemErrors, SystemError_uses_the_fixed_descriptions_where_they_fit) {
  const std::string file = TempFile("here.txt", "");
  struct Case {
    int Code;
    std::string Path;
    Failure Expected;
  };
  const std::vector<Case> cases = {
      {ENOENT, TempPath("gone.txt"), Failure::FileNotFound},
      {ENOENT, TempPath("gone/gone.txt"), Failure::PathNotFound},
      {ENOENT, "gone.txt", Failure::FileNotFound},
      {ENOENT, "", Failure::FileNotFound},
      {ENOENT, file + "/gone.txt", Failure::PathNotFound},
      {ENOTDIR, file + "/gone.txt", Failure::PathNotFound},
      {EACCES, file, Failure::PermissionDenied},
      {EPERM, file, Failure::PermissionDenied},
      {ENOSPC, file, Failure::DiskFull},
  };
  for (const Case& c : cases) {
    const RuntimeError error = SystemError(c.Code, c.Path);
    EXPECT_EQ(error.Description(), DescriptionOf(c.Expected)) << c.Code << ' ' << c.Path;
    EXPECT_EQ(error.Number(), static_cast<int>(c.Expected)) << c.Code << ' ' << c.Path;
  }
}

TEST_F(SystemErrors, SystemError_gives_the_operating_systems_text_for_the_rest) {
  for (const int code : {EISDIR, EROFS, EMFILE, EIO}) {
    const RuntimeError error = SystemError(code, "a");
    EXPECT_EQ(error.Description(), std::strerror(code));
    EXPECT_EQ(error.Number(), SystemErrorBase + code);
  }
}

}  // namespace
