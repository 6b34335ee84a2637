// A list of sections made into a job.
#pragma once

#include "core/catalogues.h"
#include "tools/batch_desktop.h"
#include "tools/batch_options.h"

namespace orvane {

// Why the options' list can't be made into their job: that one is there already, or is the list,
// the settings or a file of the catalogue; empty if it can. Looks at the disk.
std::string ImportFault(const BatchOptions& options);

// Reads the list, tells each row that the program would refuse or ask about, and writes a new job
// of the others; nothing is written when there are such rows and they may not be passed over. Gives
// the exit code.
int ImportList(const BatchOptions& options, const CatalogueTables& catalogues, Console& console);

}  // namespace orvane
