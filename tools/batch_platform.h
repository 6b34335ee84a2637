// What the companion asks of the operating system itself.
#pragma once

#include <string>
#include <vector>

#include "core/dates.h"

namespace orvane {

// The arguments behind the program's name, in UTF-8.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// The folder of the executable that runs; empty if the system can't tell.
std::string ExecutableFolder();

// The present moment in local time.
Moment LocalMoment();

// True if a person sees standard error as it is written.
bool ErrorsOnTerminal();

}  // namespace orvane
