#include "tests/project/lifecycle_fixture.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "core/files.h"
#include "core/model.h"
#include "project/lifecycle.h"
#include "project/recent_files.h"
#include "project/recovery.h"

namespace orvane::test {

namespace {

const std::string ShortFolder = "@/";

void Replace(std::string& text, const std::string& what, const std::string& with) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

}  // namespace

void EventLog::Add(const std::string& entry) {
  const std::string shown = Shortened(entry);
  Entries.push_back(shown);
  const auto action = On.find(shown);
  if (action != On.end()) action->second();
}

std::string EventLog::Shortened(std::string text) const {
  if (!Folder.empty()) Replace(text, Folder, ShortFolder);
  return text;
}

void ScriptedMainScreen::DisplayItems() {
  CurrentItem = 0;
  log_.Add("DisplayItems");
}

void ScriptedMainScreen::GoTo(const TextPlace& place) {
  const std::array names = {"details", "section", "accessory line"};
  log_.Add(std::string("GoTo ") + names.at(static_cast<std::size_t>(place.Where)) + " " +
           std::to_string(place.Row) + ", " + std::to_string(place.Column));
}

bool LoggedSettings::Store(SettingsRoot root, const std::string& key, const std::string& name,
                           const std::string& text) {
  log_.Add("store " + name + "=" + text);
  return store_.Store(root, key, name, text);
}

Answer LoggedDesktop::ShowMessageBox(const std::string& text, const std::string& title,
                                     Buttons buttons, Icon icon) {
  log_.Add(buttons == Buttons::Ok ? "tell " + text : "ask " + title);
  return ScriptedDesktop::ShowMessageBox(text, title, buttons, icon);
}

int LoggedDesktop::Choose(const std::string& text, const std::string& title,
                          const std::vector<std::string>& answers) {
  log_.Add("choose " + title);
  return ScriptedDesktop::Choose(text, title, answers);
}

std::optional<std::string> LoggedDesktop::ShowOpenDialog(const FileDialog& dialog) {
  log_.Add("open dialog");
  return ScriptedDesktop::ShowOpenDialog(dialog);
}

std::optional<std::string> LoggedDesktop::ShowSaveDialog(const FileDialog& dialog) {
  log_.Add("save dialog");
  return ScriptedDesktop::ShowSaveDialog(dialog);
}

std::string LoggedDesktop::UserDataFolder() {
  log_.Add("user's data folder");
  return HasNoDataFolder ? std::string() : ScriptedDesktop::UserDataFolder();
}

LifecycleTest::LifecycleTest() {
  NotFullyRead = False;
  RecentFiles.fill("");
  log.Folder = TempPath("");
  person.DataFolder = TempPath("data");
  std::filesystem::create_directory(person.DataFolder);
  person.Store = &settings;
  InstallDesktop(person);
  InstallMainScreen(window);
}

LifecycleTest::~LifecycleTest() {
  UninstallMainScreen();
  InstallDesktop(desktop);
  RecentFiles.fill("");
}

std::string LifecycleTest::Path(const std::string& shortPath) {
  std::string path = shortPath;
  Replace(path, ShortFolder, log.Folder);
  return path;
}

void LifecycleTest::WriteSmallProject(const std::string& path) {
  std::ofstream file(path, std::ios::binary);
  file << Joined(SmallProjectLines());
  EXPECT_TRUE(file.good()) << path;
}

void LifecycleTest::HoldEarlierProject(const std::string& path, Boolean dirty) {
  FillEarlierProject();
  ProjectFileName = path;
  ProjectDirty = dirty;
  CurrentItem = 1;
}

Log LifecycleTest::Events() {
  Log events;
  events.swap(log.Entries);
  return events;
}

Log LifecycleTest::Recent() const {
  Log paths;
  for (std::string path : RecentFiles) {
    Replace(path, log.Folder, ShortFolder);
    paths.push_back(path);
  }
  return paths;
}

Log LifecycleTest::Recovered() {
  Log names;
  for (const std::string& folder : RecoveryFolders(person.DataFolder)) {
    names.push_back(FileName(folder));
  }
  return names;
}

Log StoredRecent(const std::vector<std::string>& paths) {
  Log entries;
  for (std::size_t at = 0; at < RecentFiles.size(); ++at) {
    const std::string path = at < paths.size() ? paths.at(at) : std::string();
    entries.push_back("store Recent" + std::to_string(at + 1) + "=" + path);
  }
  entries.emplace_back("ShowRecentFiles");
  return entries;
}

Log Chain(const std::vector<Log>& parts) {
  Log whole;
  for (const Log& part : parts) whole.insert(whole.end(), part.begin(), part.end());
  return whole;
}

}  // namespace orvane::test
