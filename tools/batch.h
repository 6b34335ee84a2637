// The companion: projects in, factory files out, on the libraries that the program itself runs on.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace orvane {

// Does what the arguments behind the program's name ask for. Help and version go to `out`, all else
// to `err`. Works inside the folder of the results: the process's current folder changes.
int RunCompanion(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace orvane
