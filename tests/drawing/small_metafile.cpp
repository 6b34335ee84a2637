#include "tests/drawing/small_metafile.h"

namespace orvane::test {

std::string SmallMetafile(std::uint16_t width, std::uint16_t height) {
  std::string bytes;
  std::uint16_t checksum = 0;
  const auto word = [&](std::uint16_t value) {
    bytes += static_cast<char>(value & 0xFF);
    bytes += static_cast<char>(value >> 8);
    checksum = static_cast<std::uint16_t>(checksum ^ value);
  };
  // Key, handle, box, units an inch, reserved, checksum.
  word(0xCDD7);
  word(0x9AC6);
  word(0);
  word(0);
  word(0);
  word(width);
  word(height);
  word(1000);
  word(0);
  word(0);
  word(checksum);
  // Header of 9 words: type, its size, version, size of the file in words, objects, the longest
  // record, members; then the record that ends the file.
  for (const int value : {1, 9, 0x0300, 12, 0, 0, 3, 0, 0, 3, 0, 0}) {
    word(static_cast<std::uint16_t>(value));
  }
  return bytes;
}

}  // namespace orvane::test
