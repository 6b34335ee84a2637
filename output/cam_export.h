// The CAM file, which drives the production line, and the command that writes it.
#pragma once

#include "core/dates.h"
#include "output/factory_text.h"

namespace orvane {

// How an export ended; a screen has no use for it, the companion tells it by its exit code.
enum class ExportOutcome {
  Done,        // "CAM export complete" was shown, and below it the files that were written
  ListFailed,  // an error stopped the accessory list: its description was shown, and then that the
               // list failed
  Nothing,     // neither sections nor accessory lines: ended silently
  Refused,     // the check refused it; its lines were shown
  Cancelled,   // no file was chosen
  Failed,      // an error stopped the export; its description was shown
};

// The command "Export CAM File": checks the project, asks for a file, makes the holes of all
// sections but those of the pattern "Custom" afresh, and writes the CAM file and the accessory list
// beside it. The fresh holes stay in the model; ProjectDirty stays as it is. An error ends it and
// shows its description; each file is then whole, the new one or the former.
void ExportCAM();
ExportOutcome RunExport();

// The CAM file of the model as it stands; `created` is the moment of export.
FactoryFile CamFile(const Moment& created);

}  // namespace orvane
