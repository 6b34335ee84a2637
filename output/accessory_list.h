// The accessory list, a readable text in fixed columns, written beside the CAM file.
#pragma once

#include <string>

#include "core/model.h"
#include "output/factory_text.h"

namespace orvane {

enum class ListOutcome { NotNeeded, Written, Failed };

// Writes the list of the accessories in use beside the CAM file named by `camPath`; it isn't needed
// if no accessory is in use. Shows the description of any error itself.
ListOutcome ExportAccList(const std::string& camPath);

// The list's file: the CAM file's whole path up to and including its first point, then "xac", which
// is where the works look for it. So a folder name with a point in it cuts the name there. Without
// any point, ".xac" is added.
std::string AccListPath(const std::string& camPath);

// The accessory list of the model as it stands. Empty second and third values of the accessory in
// row 9 become "0" in the model too.
FactoryFile AccListFile(const Moment& created);

}  // namespace orvane
