#include "project/left_unsaved.h"

#include <utility>

#include "core/runtime_error.h"
#include "project/history.h"
#include "project/project_file.h"
#include "project/versions.h"

namespace orvane {

namespace {

std::string copiedText;

}  // namespace

void KeepUnsaved(const std::string& jobPath) {
  if (!KeepsVersions() || !IsChangedSinceSaved()) return;
  const std::string copied = std::exchange(copiedText, {});
  try {
    std::string text = ProjectText();
    if (text == copied) return;
    KeepVersionApart(VersionOf(jobPath, VersionKind::LeftUnsaved, std::move(text)));
  } catch (const RuntimeError&) {
    // A number that no file holds: it could not be saved either, which was told then.
  }
}

void MarkCopied() {
  if (KeepsVersions()) copiedText = ProjectText();
}

}  // namespace orvane
