#include "core/program_folder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "core/files.h"
#include "core/text.h"

namespace orvane {

namespace {

// The name of an entry of `folder` that equals `name` but for the case of its letters; `name`
// itself when it stands there as it is, or when nothing matches.
std::string EntryLike(const std::filesystem::path& folder, const std::string& name) {
  std::error_code error;
  std::vector<std::string> matches;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    std::string found = PathText(entry->path().filename());
    if (found == name) return name;
    if (UpperCase(found) == UpperCase(name)) matches.push_back(std::move(found));
  }
  return matches.empty() ? name : *std::min_element(matches.begin(), matches.end());
}

}  // namespace

std::string ProgramFolder;

std::string ProgramPath(std::string_view suffix) {
  return PathInFolder(ProgramFolder, suffix);
}

std::string PathInFolder(const std::string& folder, std::string_view suffix) {
  std::filesystem::path path = NativePath(folder);
  while (!suffix.empty()) {
    if (suffix.front() == '\\') suffix.remove_prefix(1);
    const std::size_t end = std::min(suffix.find('\\'), suffix.size());
    const std::string name = EntryLike(path, std::string(suffix.substr(0, end)));
    path /= NativePath(name);
    suffix.remove_prefix(end);
  }
  return PathText(path);
}

}  // namespace orvane
