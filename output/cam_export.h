// The CAM file, which drives the production line.
#pragma once

#include <string>

#include "core/model.h"
#include "output/factory_text.h"

namespace orvane {

// How an export ended; a screen has no use for it, the companion tells it by its exit code.
enum class ExportOutcome {
  Done,       // "CAM export complete" was shown
  Nothing,    // neither sections nor accessory lines: ended silently
  Refused,    // the check refused it; its lines were shown
  Cancelled,  // no file was chosen
  Failed,     // an error stopped the CAM file; its description was shown
};

// The command "Export CAM File": checks the project, asks for a file, rebuilds the holes of all
// sections that have a pattern, and writes the CAM file and the accessory list beside it.
void ExportCAM();
ExportOutcome RunExport();

// The CAM file of the model as it stands; `created` is the moment of export.
FactoryFile CamFile(const Moment& created);

// Distance of a vertical cladding rail's hole from its end, mm: the cleat's own distance less the
// end allowance, rounded. An unknown cleat code raises an error that names it and the mark of the
// line.
std::int16_t VcrInset(const std::string& cleatCode, const std::string& allowance,
                      const std::string& mark);

}  // namespace orvane
