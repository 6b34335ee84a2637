// The check of the sections' lengths against their holes.
#pragma once

namespace orvane {

// The check at exit: asks whether to quit anyway when a section is shorter than its last hole; of
// several only the last is told. False if the user answers No. A hole at the very end is no fault.
bool CheckLength();

}  // namespace orvane
