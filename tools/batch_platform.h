// What the companion asks of the operating system itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/dates.h"

namespace orvane {

// The arguments behind the program's name, in UTF-8.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// The folder of the executable that runs; empty if the system can't tell.
std::string ExecutableFolder();

// The present moment in local time.
Moment LocalMoment();

// The system's short date form as a pattern of d, dd, M, MM, yy and yyyy; "dd/MM/yyyy" where no
// country is set or its form has other parts.
std::string SystemShortDateForm();

// A date form of the C library, such as "%d.%m.%y", as such a pattern.
std::string PatternOfDateForm(std::string_view form);

// Makes the console show the UTF-8 text that the companion writes.
void PrepareConsole();

// True if a person sees standard error as it is written.
bool ErrorsOnTerminal();

}  // namespace orvane
