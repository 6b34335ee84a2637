// The one check that the export makes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/model.h"

namespace orvane {

// The lines of the last check; started afresh by each run.
extern Table<std::string> ExportErrors;

// True if the export may go on. Asks whether to go on for each sleeved purlin without sleeves of
// its product; a No ends the check at once.
bool CheckExportData();

// Appends one line, such as "Item 2: P1 Zero length".
void AddExportError(std::int16_t index, std::string_view mark, std::string_view word);

}  // namespace orvane
