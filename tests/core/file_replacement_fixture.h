// Files in a folder of the test's own, their rights and their names.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/fixture.h"

namespace orvane::test {

using Names = std::vector<std::string>;

class FileReplacements : public SystemTest {
 protected:
  std::string Folder(const std::string& name, unsigned mode = 0755) {
    std::string path = TempPath(name);
    std::filesystem::create_directories(path);
    Mode(path, mode);
    return path;
  }
  static void Mode(const std::string& path, unsigned mode) {
    std::filesystem::permissions(path, std::filesystem::perms(mode));
  }
  static unsigned ModeOf(const std::string& path) {
    return static_cast<unsigned>(std::filesystem::status(path).permissions());
  }
  Names NamesIn(const std::string& folder) {
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

}  // namespace orvane::test
