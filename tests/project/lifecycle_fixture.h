// What the tests of the life of a project share: one log of all that the person in front of the
// screen sees and of all that is stored, in order.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "project/main_screen.h"
#include "tests/project/small_project.h"

namespace orvane::test {

using Log = std::vector<std::string>;

// Keeps the entries in order and runs what a test has hung on one of them, behind the entry. Paths
// in the test's own folder begin with "@/".
class EventLog {
 public:
  Log Entries;
  std::map<std::string, std::function<void()>> On;  // by the whole entry
  std::string Folder;                               // the test's own, with its separator

  void Add(const std::string& entry);

 private:
  std::string Shortened(std::string text) const;
};

// A main screen that keeps the calls: the procedure's name, with its text behind it.
class ScriptedMainScreen : public MainScreen {
 public:
  explicit ScriptedMainScreen(EventLog& log) : log_(log) {}

  void ForgetEditors() override { log_.Add("ForgetEditors"); }
  void DisplayItems() override;
  void ClearDetailPanel() override { log_.Add("ClearDetailPanel"); }
  void EmptyHoleList() override { log_.Add("EmptyHoleList"); }
  void SelectFirstItem() override { log_.Add("SelectFirstItem"); }
  void SetAccUsage() override { log_.Add("SetAccUsage"); }
  void ClearAccUsage() override { log_.Add("ClearAccUsage"); }
  void ShowFileName(const std::string& text) override { log_.Add("ShowFileName " + text); }
  void ShowRecentFiles() override { log_.Add("ShowRecentFiles"); }
  void ShowSectionErrors(const std::string& line) override {
    log_.Add("ShowSectionErrors " + line);
  }
  void ShowJobNote(const std::string& line) override {
    if (!line.empty()) log_.Add("ShowJobNote " + line);
    Note = line;
  }
  void ClearDrawing() override { log_.Add("ClearDrawing"); }
  void RefreshProjectDetails() override { log_.Add("RefreshProjectDetails"); }
  void ShowProjectDetails() override { log_.Add("ShowProjectDetails"); }
  void GoTo(const TextPlace& place) override;

  std::string Note;  // shown last

 private:
  EventLog& log_;
};

// Settings that keep what is stored, as "store NAME=TEXT".
class LoggedSettings : public SettingsStore {
 public:
  LoggedSettings(EventLog& log, SettingsStore& store) : log_(log), store_(store) {}

  std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                   const std::string& name) override {
    return store_.Query(root, key, name);
  }
  bool Store(SettingsRoot root, const std::string& key, const std::string& name,
             const std::string& text) override;

 private:
  EventLog& log_;
  SettingsStore& store_;
};

// The scripted desktop, with "ask TITLE" or "choose TITLE", "tell TEXT", "open dialog", "save
// dialog" and "user's data folder" in the log.
class LoggedDesktop : public ScriptedDesktop {
 public:
  explicit LoggedDesktop(EventLog& log) : log_(log) {}

  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override;
  int Choose(const std::string& text, const std::string& title,
             const std::vector<std::string>& answers) override;
  std::optional<std::string> ShowOpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> ShowSaveDialog(const FileDialog& dialog) override;
  std::string UserDataFolder() override;

  bool HasNoDataFolder = false;  // the folder is an empty text then

 private:
  EventLog& log_;
};

// A program that has started with nothing in its list of recent files and an empty data folder.
class LifecycleTest : public ProjectFileTest {
 protected:
  LifecycleTest();
  ~LifecycleTest() override;

  EventLog log;
  LoggedDesktop person{log};
  LoggedSettings settings{log, person.Values};
  ScriptedMainScreen window{log};

  // A path in the test's own folder, by its form in the log.
  std::string Path(const std::string& shortPath);
  std::string JobPath() { return Path("@/job.ovd"); }
  // A file of the small project under that path.
  void WriteSmallProject(const std::string& path);

  // Opens a project without the opening's traces: the earlier project, of mark "old mark", is in
  // the tables, under that name and with that flag.
  void HoldEarlierProject(const std::string& path, Boolean dirty);

  // The log since the last look, which is then empty.
  Log Events();

  // The recent files as the log writes them, and the names of the recovered projects.
  Log Recent() const;
  Log Recovered();
};

// The entries of a list of recent files that is stored and shown, its free entries left out.
Log StoredRecent(const std::vector<std::string>& paths);

// Logs one behind the other.
Log Chain(const std::vector<Log>& parts);

}  // namespace orvane::test
