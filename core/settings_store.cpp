#include "core/settings_store.h"

namespace orvane {

SettingsRoot TheSettingsRoot = SettingsRoot::LocalMachine;

const std::string SettingsKey = "SOFTWARE\\Lintaro";

}  // namespace orvane
