// What tells a section from all others of a run of the program. Its row is another after a sort or
// a deletion, and its mark while it is typed.
#pragma once

#include <cstdint>

namespace orvane {

// The serial of that row of Items, which it gets when it is first asked for.
std::int32_t SerialOf(std::int16_t ItemIndex);

}  // namespace orvane
