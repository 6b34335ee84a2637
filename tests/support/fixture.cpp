#include "tests/support/fixture.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "core/catalogues.h"
#include "core/program_folder.h"
#include "core/runtime_error.h"
#include "core/settings.h"

namespace orvane::test {

namespace {

std::filesystem::path NewFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "orvane-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  // Open to the unprivileged user of AsOrdinaryUser, as an ordinary folder would be.
  std::filesystem::permissions(name, std::filesystem::perms(0755));
  return name;
}

constexpr unsigned NobodyId = 65534;

// How a child of AsOrdinaryUser ends, as its exit code.
enum class ChildEnd { Done, NoResult, Exception, FailedTest };

}  // namespace

SystemTest::SystemTest() {
  ResetModel();
  SettingsLossTold = False;
  InstallDesktop(desktop);
  ProgramFolder = ORVANE_SOURCE_DIR "/catalogue";
}

SystemTest::~SystemTest() {
  UninstallDesktop();
  std::error_code ignored;
  if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

std::string SystemTest::TempPath(const std::string& name) {
  if (folder_.empty()) folder_ = NewFolder();
  return (folder_ / name).string();
}

std::string SystemTest::TempFile(const std::string& name, std::string_view bytes) {
  std::string path = TempPath(name);
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  EXPECT_TRUE(file.good()) << path;
  return path;
}

void SystemTest::LoadShippedCatalogues() {
  ProgramFolder = ORVANE_SOURCE_DIR "/catalogue";
  ASSERT_TRUE(LoadAccessoryCatalogues());
  ASSERT_TRUE(LoadSectionCatalogues());
}

std::string ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    EXPECT_FALSE(error.Description().empty());
    return error.Description();
  }
  ADD_FAILURE() << "no error was raised";
  return "";
}

std::string OutcomeOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Description();
  }
  return "";
}

Item& AppendItem(const std::string& mark, const std::string& letter, std::int16_t length) {
  Item item;
  item.Mark = mark;
  item.SectionType = letter;
  item.Product = letter + "-product";
  item.Length = length;
  return Items.Append(item);
}

std::vector<std::string> LinesOfType2() {
  std::vector<std::string> lines;
  for (const AccLine2& line : AccLines2) {
    lines.push_back(std::to_string(line.AccIndex) + "/" + line.Mark + "/" +
                    std::to_string(line.NoOff));
  }
  return lines;
}

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string AsOrdinaryUser(const std::function<std::string()>& action) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    // Nothing may get out of here, or the child would go on with the parent's tests.
    ChildEnd end = ChildEnd::NoResult;
    try {
      if (getuid() != 0 || (setgid(NobodyId) == 0 && setuid(NobodyId) == 0)) {
        const std::string result = action();
        const auto size = static_cast<ssize_t>(result.size());
        if (write(ends[1], result.data(), result.size()) == size) end = ChildEnd::Done;
      }
      if (::testing::Test::HasFailure()) end = ChildEnd::FailedTest;
    } catch (...) {
      end = ChildEnd::Exception;
    }
    _exit(static_cast<int>(end));
  }
  close(ends[1]);
  std::string result;
  std::array<char, 4096> buffer{};
  for (ssize_t got = 0; (got = read(ends[0], buffer.data(), buffer.size())) > 0;) {
    result.append(buffer.data(), static_cast<std::size_t>(got));
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  EXPECT_EQ(code, static_cast<int>(ChildEnd::Done))
      << "the child "
      << (code == static_cast<int>(ChildEnd::NoResult)     ? "gave no result"
          : code == static_cast<int>(ChildEnd::Exception)  ? "threw an exception"
          : code == static_cast<int>(ChildEnd::FailedTest) ? "failed the test"
                                                           : "died");
  return result;
}

}  // namespace orvane::test
