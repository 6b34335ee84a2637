// The desktop without a person, a screen or a platform: every answer is a default. Who has more to
// say, such as the companion on standard error, derives from it.
#pragma once

#include "core/desktop.h"
#include "core/settings_file.h"

namespace orvane {

class HeadlessDesktop : public Desktop {
 public:
  // Nothing is shown. The answer is that of a box closed without a button.
  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override;
  // The last answer.
  int Choose(const std::string& text, const std::string& title,
             const std::vector<std::string>& answers) override;
  // Both are cancelled.
  std::optional<std::string> ShowOpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> ShowSaveDialog(const FileDialog& dialog) override;
  // There are none.
  void ProcessEvents() override {}
  // "dd/MM/yyyy".
  std::string ShortDateForm() const override;
  // Each setting's default until one is stored; forgotten with the desktop.
  SettingsStore& Settings() override { return settings_; }
  // Empty: what would be kept there is not.
  std::string UserDataFolder() override { return {}; }
  // No viewer is started.
  void ShowHelp(const std::string& file) override;
  // 5 March 2024, 14:07:09, whenever it is asked: two runs over one job make equal files.
  Moment Now() const override;

 private:
  MemorySettings settings_;
};

}  // namespace orvane
