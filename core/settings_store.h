// Where settings are kept: text values under keys. The settings themselves are core/settings.
#pragma once

#include <optional>
#include <string>

namespace orvane {

// The hive that all keys lie under.
enum class SettingsRoot { LocalMachine };

// The settings root in use, application-wide; set at start-up.
extern SettingsRoot TheSettingsRoot;

// All keys lie under this one, "SOFTWARE\Lintaro".
extern const std::string SettingsKey;

// A store of text values by key and name. Keys and names are told apart by their exact text.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // The stored text, which may be empty; none when the key or the value is missing or can't be
  // read.
  virtual std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                           const std::string& name) = 0;
  // False when the text could not be stored.
  virtual bool Store(SettingsRoot root, const std::string& key, const std::string& name,
                     const std::string& text) = 0;
};

}  // namespace orvane
