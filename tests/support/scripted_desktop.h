// A desktop that answers by script and keeps what it was shown.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/headless_desktop.h"
#include "core/settings_file.h"

namespace orvane::test {

struct ShownBox {
  std::string Text;
  std::string Title;
  Buttons Choice = Buttons::Ok;
  Icon Sign = Icon::None;
};

// A question with answers of its own.
struct ShownChoice {
  std::string Text;
  std::string Title;
  std::vector<std::string> Answers;
};

// Takes the next file that a script's person chooses; fails the test if none was foreseen.
std::optional<std::string> NextChosen(std::deque<std::optional<std::string>>& chosen);

// A question that the script doesn't foresee fails the test and is answered by Cancel (or No).
class ScriptedDesktop : public HeadlessDesktop {
 public:
  // The script.
  std::deque<Answer> Answers;                     // for the boxes with a choice, in order
  std::deque<std::string> Choices;                // for those with answers of their own, in order
  std::deque<std::optional<std::string>> Chosen;  // for the file dialogs, in order; none cancels
  Moment Present{{2024, 3, 5}, 14, 7, 9};
  std::string DateForm = "dd/MM/yyyy";
  MemorySettings Values;
  std::string DataFolder;  // the user's data folder; asking for it while empty fails the test
  SettingsStore* Store = &Values;  // the store in use; a test may put another
  bool LaysLocks = false;          // no lock can be laid without it
  // Those who hold a lock, by its path. One of another computer goes when it is replaced.
  std::map<std::string, LockHolder> LockHolders;
  std::string ThisComputer = "here";

  // What happened.
  std::vector<ShownBox> Boxes;
  std::vector<ShownChoice> ChoiceBoxes;
  std::vector<FileDialog> OpenDialogs;
  std::vector<FileDialog> SaveDialogs;
  int EventRuns = 0;
  mutable int ClockReads = 0;
  std::vector<std::string> HelpFiles;
  // The locks that stand by now. They may outlive the desktop.
  std::shared_ptr<std::set<std::string>> Locks = std::make_shared<std::set<std::string>>();

  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override;
  int Choose(const std::string& text, const std::string& title,
             const std::vector<std::string>& answers) override;
  std::optional<std::string> ShowOpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> ShowSaveDialog(const FileDialog& dialog) override;
  void ProcessEvents() override { ++EventRuns; }
  std::string ShortDateForm() const override { return DateForm; }
  SettingsStore& Settings() override { return *Store; }
  std::string UserDataFolder() override;
  LaidLock LayLock(const std::string& path, LockOfOthers others) override;
  void ShowHelp(const std::string& file) override { HelpFiles.push_back(file); }
  Moment Now() const override;
};

}  // namespace orvane::test
