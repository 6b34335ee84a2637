// Starting the help as a separate program.
#pragma once

#include <string>

namespace orvane {

// The command of the platform that has the compiled help's own viewer: "hh.exe ", the file.
std::string HelpCommand(const std::string& file);

// Starts the viewer on the compiled help file, detached, and does not wait for it: the command
// above on Windows; elsewhere the first compiled-help viewer installed, and without one the page of
// the same help that tells about the window of that objectName, in the browser. Where no viewer and
// no browser starts, a window of our own shows that page. Without the pages a RuntimeError says so.
void StartHelp(const std::string& file, const std::string& window);

}  // namespace orvane
