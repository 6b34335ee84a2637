// What the files of a run would do to one another: found before anything is done, and in a time
// that grows with their number alone.
#pragma once

#include <string>
#include <vector>

#include "tools/batch_options.h"

namespace orvane {

// For each job why it isn't done: another one would write a file of the same name, or by a link in
// the folder of the results the same file. Empty for those that are. Letter case is no difference:
// where the factory files go to in the end, it often is none. Looks at the disk: `OutFolder` as it
// is meant in the current folder.
std::vector<std::string> ClashesOf(const BatchOptions& options);

// Which file of the command line or of the catalogues the run would destroy, as a text; empty if
// none. Looks at the disk: `OutFolder` as it is meant in the current folder.
std::string OverwriteFault(const BatchOptions& options);

}  // namespace orvane
