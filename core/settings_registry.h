// The settings store of Windows: the system registry. The user's branch is read first, then the
// machine's; written is the user's. Compiled there alone.
#pragma once

#include "core/settings_store.h"

namespace orvane {

class RegistrySettings : public SettingsStore {
 public:
  std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                   const std::string& name) override;
  bool Store(SettingsRoot root, const std::string& key, const std::string& name,
             const std::string& text) override;
};

}  // namespace orvane
