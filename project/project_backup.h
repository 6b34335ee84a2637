// The copy of a file's former content, which saving keeps beside it.
#pragma once

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

// Copies the content of `path` to PATH.bak, synced and then put in place in one step, so that
// nobody loses work by a save that fails half-way. Only an ordinary file that reads back whole, an
// old or odd one too, is copied, lest a half-written file replace a good backup; one that opens but
// was cut is copied where no backup stands yet, since saving it is how the rest of it would be
// lost. What goes wrong is passed over: a missing backup must not stop the saving.
void KeepProjectBackup(const std::string& path);

}  // namespace orvane
