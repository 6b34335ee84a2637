#include "tests/support/decimal_comma.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>

namespace orvane::test {

namespace {

const std::string LocaleName = "de_DE.UTF-8";

// Makes the locale as a folder of its own name; true when localedef was content.
bool MakeLocale(const std::string& folder) {
  std::filesystem::create_directories(folder);
  std::string target = folder + "/" + LocaleName;
  std::array<std::string, 5> words = {"localedef", "-i", "de_DE", "-f", "UTF-8"};
  std::array<char*, 7> arguments{};
  for (std::size_t at = 0; at < words.size(); ++at) arguments.at(at) = words.at(at).data();
  arguments.at(5) = target.data();

  pid_t child = 0;
  if (posix_spawnp(&child, "localedef", nullptr, nullptr, arguments.data(), environ) != 0) {
    return false;
  }
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Puts the C library's locale and where it looks for locales back to what they were.
class LocaleKeeper {
 public:
  LocaleKeeper() : locale_(std::setlocale(LC_ALL, nullptr)) {
    if (const char* path = std::getenv("LOCPATH")) path_ = path;
  }
  ~LocaleKeeper() {
    if (path_) {
      setenv("LOCPATH", path_->c_str(), 1);
    } else {
      unsetenv("LOCPATH");
    }
    (void)std::setlocale(LC_ALL, locale_.c_str());
  }
  LocaleKeeper(const LocaleKeeper&) = delete;
  LocaleKeeper& operator=(const LocaleKeeper&) = delete;

 private:
  std::string locale_;
  std::optional<std::string> path_;
};

}  // namespace

void WithDecimalComma(const std::string& folder, const std::function<void()>& action) {
  ASSERT_TRUE(MakeLocale(folder)) << "localedef, of the package locales, made no " << LocaleName;
  const LocaleKeeper keeper;
  setenv("LOCPATH", folder.c_str(), 1);
  ASSERT_NE(std::setlocale(LC_ALL, LocaleName.c_str()), nullptr);
  std::array<char, 8> printed{};
  (void)std::snprintf(printed.data(), printed.size(), "%.1f", 1.5);
  ASSERT_STREQ(printed.data(), "1,5");
  action();
}

}  // namespace orvane::test
