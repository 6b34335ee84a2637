// The stores that need no registry: one in memory, and one as a readable text file.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "core/settings_store.h"

namespace orvane {

// Forgets everything when it goes.
class MemorySettings : public SettingsStore {
 public:
  std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                   const std::string& name) override;
  bool Store(SettingsRoot root, const std::string& key, const std::string& name,
             const std::string& text) override;

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

// A text file of the form
//
//     [SOFTWARE\Lintaro\Settings\PageSetup]
//     LeftMargin=10
//
// in UTF-8, sections and values in the order in which they came. Carriage return, line feed and
// backslash in a value are written \r, \n and \\. The file is read afresh at each query and
// at each store, and replaced as a whole: what a second running program stored before stays. Of two
// stores at the same moment the later one may lose the other's value. Lines that are neither are
// kept where they stand.
class FileSettings : public SettingsStore {
 public:
  explicit FileSettings(std::string path) : path_(std::move(path)) {}

  // Missing folders of the path are made at the first store.
  std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                   const std::string& name) override;
  bool Store(SettingsRoot root, const std::string& key, const std::string& name,
             const std::string& text) override;

 private:
  std::string path_;
};

// Where the user's settings file lies: "Lintaro/settings.txt" in XDG_CONFIG_HOME if that names an
// absolute folder, else in ".config" of the home folder. Empty if neither is known.
std::string UserSettingsPath();

}  // namespace orvane
