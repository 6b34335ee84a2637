#include "project/project_recovery.h"

#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

#include "core/desktop.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "project/project_file.h"
#include "project/unfit_texts.h"

namespace orvane {

namespace {

// The first name for a recovered project that is free in the folder; a link that leads nowhere
// takes its name too.
std::filesystem::path FreeRecoveryPath(const std::filesystem::path& folder, const Moment& now) {
  const std::string name = "recovered-" + PaddedText(now.Day.Year, 4) + "-" +
                           PaddedText(now.Day.Month, 2) + "-" + PaddedText(now.Day.Day, 2) + "-" +
                           PaddedText(now.Hour, 2) + PaddedText(now.Minute, 2) +
                           PaddedText(now.Second, 2);
  std::filesystem::path path = folder / (name + ".ovd");
  std::error_code missing;
  for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(path, missing));
       ++number) {
    path = folder / (name + "-" + DecimalText(number) + ".ovd");
  }
  return path;
}

}  // namespace

bool KeepRecoveredProject() {
  try {
    const std::string text = ProjectText();
    const std::string folder = TheDesktop().UserDataFolder();
    if (folder.empty()) return false;
    ReplaceWholeFile(PathText(FreeRecoveryPath(NativePath(folder), TheDesktop().Now())), text);
    // One that doesn't open can still be mended by hand.
    return FitOf(text, OpenJob()) != FileFit::Broken;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace orvane
