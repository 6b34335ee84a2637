// A metafile that shows nothing, for the tests of what is placed where.
#pragma once

#include <cstdint>
#include <string>

namespace orvane::test {

// The bytes of a placeable metafile of that size in 1000ths of an inch, both below 32768.
std::string SmallMetafile(std::uint16_t width, std::uint16_t height);

}  // namespace orvane::test
