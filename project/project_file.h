// The project file: one value a line, no keys, the reader depending on the order. One description
// of the layout drives the writer and the reader.
#pragma once

#include <string>

#include "core/model.h"

namespace orvane {

// The whole text of the open project. A value that has no text in its field raises "Overflow",
// before any file has been touched.
std::string ProjectText();

// The table half of SaveProject: builds the text, keeps the former content of a file that reads
// back whole as PATH.bak, then replaces what the file held. Raises the system's error; a backup
// that can't be made stops nothing.
void WriteProjectFile(const std::string& path);

// The table half of OpenFile: reads a project into the model. An error up to the end of the type 1
// accessory lines is raised, and the model then holds what was read until then. Behind them an
// error, end of file above all, ends the reading without a word: files from before type 2
// accessories end there.
void ReadProjectFile(const std::string& path);

}  // namespace orvane
