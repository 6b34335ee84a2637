// How the companion ends.
#pragma once

namespace orvane {

// What the companion ends with; of several jobs' codes the highest counts.
constexpr int ExitDone = 0;
constexpr int ExitRefused = 1;  // the check refused the export
constexpr int ExitUsage = 2;    // the command line can't be followed; nothing was done
constexpr int ExitFault = 3;    // a file can't be read or written, or holds what can't be exported
constexpr int ExitCannotBeMade = 4;  // what was checked can't be made, or its catalogue has faults
constexpr int ExitDifferent = 5;     // the two jobs that were compared differ

}  // namespace orvane
