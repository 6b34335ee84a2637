// Two jobs compared.
#pragma once

#include <iosfwd>

#include "core/catalogues.h"
#include "tools/batch_desktop.h"
#include "tools/batch_options.h"

namespace orvane {

// Reads the two jobs of the options, the earlier one first, and writes a line to `out` for each
// field in which they differ (ComparisonText); how much it is goes to the console. Gives the exit
// code.
int CompareFiles(const BatchOptions& options, const CatalogueTables& catalogues, Console& console,
                 std::ostream& out);

}  // namespace orvane
