// The copy of a file's former content, which saving keeps beside it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

enum class ProjectContent {
  Whole,  // reads to its end: the sections, the accessory lines, a flag for every accessory
  // Whole as it was written, by an older program or with another catalogue: it ends behind the type
  // 1 lines, or has fewer or more flags than the present catalogue has accessories.
  Old,
  // Reads to the last flag, but one of them is neither -1 nor 0, or what stands behind them is no
  // flag. Nothing is missing, but somebody or something else has written in it.
  Odd,
  // Opens without a word, but its last line has no line end, or what stands behind the type 1 lines
  // doesn't read: a count, a block or a flag that isn't complete. It was cut, or has a comma in a
  // plain text.
  Cut,
  Broken,  // doesn't open
};

// Whether the bytes of a project file would read back whole with the present catalogues. Changes no
// table. Blank lines at the end are nothing.
ProjectContent CheckProjectContent(const std::string& bytes);

// A backup is called as its file, with this behind it.
constexpr std::string_view BackupEnding = ".bak";

// What a file holds that a save is about to replace, and where that is kept.
struct FormerContent {
  std::optional<std::string> Bytes;  // none of a file that isn't there or can't be read
  std::string KeptAs;   // the path under which the bytes stand whole; empty for nowhere
  std::string Trouble;  // why it isn't kept although it should be
};

// Reads what a file holds that is about to be replaced. Nothing is raised.
FormerContent ReadFormerContent(const std::string& path);

// Whether KeepFormerContent would copy that content of `path`, unless the disk fails.
bool MakesBackup(const std::string& path, const std::string& bytes);

// Copies that content of `path` to PATH.bak, with its permissions, synced and then put in place in
// one step. Only an ordinary file that reads back whole, an old or odd one too, is copied, lest a
// half-written file replace a good backup; one that opens but was cut is copied where no backup
// stands yet, since saving it is how the rest of it would be lost. A link, a folder or whatever
// else bears the backup's name is left alone. Nothing is raised: a missing backup alone must not
// stop the saving.
void KeepFormerContent(const std::string& path, FormerContent& former);

}  // namespace orvane
