// What the logic needs of the person and the platform, on the toolkit.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "ui/platform/apart_thread.h"

namespace orvane {

class QtDesktop : public Desktop {
 public:
  explicit QtDesktop(std::unique_ptr<SettingsStore> settings) : settings_(std::move(settings)) {}

  // A carriage return in the text ends a line. A box without a title of its own bears the
  // application's name. "No" is the answer by default of a box with Yes and No, and that of Escape.
  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override;
  int Choose(const std::string& text, const std::string& title,
             const std::vector<std::string>& answers) override;
  std::optional<std::string> ShowOpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> ShowFolderDialog(const std::string& title,
                                              const std::string& initialFolder) override;
  std::optional<std::string> ShowSaveDialog(const FileDialog& dialog) override;
  void ProcessEvents() override;
  std::string ShortDateForm() const override;
  SettingsStore& Settings() override { return *settings_; }
  void RunApart(std::function<void()> action) override { apart_.Run(std::move(action)); }
  void FinishApart() override { apart_.Finish(); }
  std::string Compress(std::string_view bytes) override;
  std::string Decompress(std::string_view bytes) override;
  void ShowHelp(const std::string& file) override;
  std::string UserDataFolder() override;
  LaidLock LayLock(const std::string& path, LockOfOthers others) override;
  Moment Now() const override;

 private:
  std::unique_ptr<SettingsStore> settings_;
  ApartThread apart_;
};

// The user's own store: the registry where there is one, else the settings file.
std::unique_ptr<SettingsStore> UserSettings();

}  // namespace orvane
