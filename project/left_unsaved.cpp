#include "project/left_unsaved.h"

#include <atomic>
#include <exception>
#include <filesystem>
#include <optional>
#include <vector>

#include "core/desktop.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "project/history.h"
#include "project/project_file.h"
#include "project/recovery.h"
#include "project/versions.h"

namespace orvane {

namespace {

std::string copiedText;
std::vector<std::string> copyFolders;  // of the open job
std::atomic<bool> isLost = false;
std::optional<std::string> givenUpText;  // empty for a job that can't be written down

std::string TextIfAny() {
  try {
    return ProjectText();
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace

std::string KeepUnsaved(const std::string& jobPath) {
  if (!KeepsVersions() || !IsChangedSinceSaved()) return {};
  try {
    const std::string text = ProjectText();
    if (text == copiedText) return {};
    // What saves have handed over goes before it, in the same folder.
    TheDesktop().FinishApart();
    KeepVersion(VersionOf(jobPath, VersionKind::LeftUnsaved, text));
    isLost = false;
    return {};
  } catch (const std::exception& error) {
    isLost = true;
    return givenUpText == TextIfAny() ? std::string() : error.what();
  }
}

bool TakeLost() {
  return isLost.exchange(false);
}

void MarkCopied(const std::string& copy) {
  copiedText = ProjectText();
  copyFolders.push_back(PathText(NativePath(copy).parent_path()));
}

void MarkGivenUp() {
  givenUpText = TextIfAny();
}

void ForgetCopies() {
  copiedText.clear();
  copyFolders.clear();
  givenUpText.reset();
}

void RemoveCopies() {
  for (const std::string& folder : copyFolders) RemoveRecoveryFolder(folder);
  isLost = false;
  ForgetCopies();
}

}  // namespace orvane
