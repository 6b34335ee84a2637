// The companion: projects in, factory files out, on the libraries that the program itself runs on.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace orvane {

// What the companion ends with; of several jobs' codes the highest counts.
constexpr int ExitDone = 0;
constexpr int ExitRefused = 1;  // the check refused the export
constexpr int ExitUsage = 2;    // the command line can't be followed; nothing was done
constexpr int ExitFault = 3;    // a file can't be read or written, or holds what can't be exported

// Does what the arguments behind the program's name ask for. Help and version go to `out`, all else
// to `err`. Works inside the folder of the results: the process's current folder changes.
int RunCompanion(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace orvane
