// The program's own folder, and the files in it.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

// The program's own folder, which holds the catalogue files, the pictures and the help: the folder
// of the executable, not the current one. Set first thing; nothing is ever written there.
extern std::string ProgramFolder;

// The program's folder joined with a backslash-led suffix such as "\dims.csv" or
// "\Drawings\clip.wmf". The suffix's backslashes become the platform's separators, and each of its
// parts is looked up without regard to case: the exact name first, then the first match in sorted
// order, else the name as it stands.
std::string ProgramPath(std::string_view suffix);
// The same in another folder.
std::string PathInFolder(const std::string& folder, std::string_view suffix);

}  // namespace orvane
