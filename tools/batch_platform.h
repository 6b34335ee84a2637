// What the companion asks of the operating system itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// The arguments behind the program's name, in UTF-8.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// The folder of the executable that runs; empty if the system can't tell.
std::string ExecutableFolder();

// Makes the console show the UTF-8 text that the companion writes.
void PrepareConsole();

// True if a person sees standard error as it is written.
bool ErrorsOnTerminal();

}  // namespace orvane
