// Starting the help as a separate program.
#pragma once

#include <string>

namespace orvane {

// The command of the platform that has the compiled help's own viewer: "hh.exe ", the file.
std::string HelpCommand(const std::string& file);

// Starts the viewer on the compiled help file, detached, and does not wait for it: the command
// above on Windows; elsewhere the first compiled-help viewer installed, and without one the pages
// of the same help in the browser. If nothing starts, a RuntimeError says so.
void StartHelp(const std::string& file);

}  // namespace orvane
