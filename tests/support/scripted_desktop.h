// A desktop and an output screen that answer by script and keep what they were shown.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/headless_desktop.h"
#include "core/settings_file.h"
#include "drawing/recording_surface.h"
#include "output/output_screen.h"

namespace orvane::test {

struct ShownBox {
  std::string Text;
  std::string Title;
  Buttons Choice = Buttons::Ok;
  Icon Sign = Icon::None;
};

// A question that the script doesn't foresee fails the test and is answered by Cancel (or No).
class ScriptedDesktop : public HeadlessDesktop {
 public:
  // The script.
  std::deque<Answer> Answers;                     // for the boxes with a choice, in order
  std::deque<std::optional<std::string>> Chosen;  // for the file dialogs, in order; none cancels
  Moment Present{{2024, 3, 5}, 14, 7, 9};
  std::string DateForm = "dd/MM/yyyy";
  MemorySettings Values;
  std::string DataFolder;  // the user's data folder; asking for it while empty fails the test
  SettingsStore* Store = &Values;  // the store in use; a test may put another

  // What happened.
  std::vector<ShownBox> Boxes;
  std::vector<FileDialog> OpenDialogs;
  std::vector<FileDialog> SaveDialogs;
  int EventRuns = 0;
  mutable int ClockReads = 0;
  std::vector<std::string> HelpFiles;

  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override;
  std::optional<std::string> ShowOpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> ShowSaveDialog(const FileDialog& dialog) override;
  void ProcessEvents() override { ++EventRuns; }
  std::string ShortDateForm() const override { return DateForm; }
  SettingsStore& Settings() override { return *Store; }
  std::string UserDataFolder() override;
  void ShowHelp(const std::string& file) override { HelpFiles.push_back(file); }
  Moment Now() const override;

 private:
  std::optional<std::string> NextFile();
};

class ScriptedOutputScreen : public OutputScreen {
  PlainFontMetrics metrics_;

 public:
  std::vector<std::vector<std::string>> ErrorLists;  // the lines at each showing
  void ShowExportErrors() override;

  // What was drawn on the previews, operation by operation, all documents one behind the other.
  RecordingSurface Preview{metrics_};
  int Shown = 0;                           // previews shown
  int Dropped = 0;                         // and dropped
  std::vector<std::pair<int, int>> Steps;  // what was told of the progress
  int CalledOffAfter = -1;                 // the run is called off at that step; -1 for never
  PrintSurface& PreviewSurface() override { return Preview; }
  void ShowPreview() override { ++Shown; }
  void DropPreview() override { ++Dropped; }
  bool GoesOn(int done, int count) override;
};

}  // namespace orvane::test
