#include "project/recent_files.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "core/settings.h"
#include "core/text.h"
#include "project/main_screen.h"

namespace orvane {

namespace {

constexpr std::size_t MostCaptionChars = 50;

// Entries as the settings number them, from 1.
constexpr int FirstEntry = 1;

}  // namespace

std::array<std::string, 5> RecentFiles;

void AddRecent(const std::string& path) {
  if (path == RecentFiles.front()) return;
  std::string added = path;  // the path may be an entry of the list itself
  std::rotate(RecentFiles.begin(), RecentFiles.end() - 1, RecentFiles.end());
  RecentFiles.front() = std::move(added);
  int number = FirstEntry;
  for (const std::string& entry : RecentFiles) StoreRecentFile(number++, entry);
  BuildRecent();
}

void LoadRecent() {
  int number = FirstEntry;
  for (std::string& entry : RecentFiles) entry = RecentFile(number++);
  BuildRecent();
}

void BuildRecent() {
  TheMainScreen().ShowRecentFiles();
}

std::string RecentCaption(const std::string& path) {
  if (CharCount(path) <= MostCaptionChars) return path;
  return std::string("...").append(LastChars(path, MostCaptionChars));
}

}  // namespace orvane
