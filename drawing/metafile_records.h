// The bytes of a metafile, taken apart record by record. Every access is checked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "drawing/document.h"

namespace orvane {

// Raises the error for bytes that are no metafile.
[[noreturn]] void RefusePicture();

// The words of a record behind its function number; what asks for one behind the last is refused.
class MetafileRecord {
 public:
  explicit MetafileRecord(std::string_view bytes) : bytes_(bytes) {}

  // Refuses a record that has fewer words.
  void Need(std::size_t words) const;

  std::uint16_t Word(std::size_t at) const;
  std::int16_t Number(std::size_t at) const;
  // A number of things, which can't be negative.
  std::size_t Count(std::size_t at) const;
  // That many bytes from a word on; they fill whole words.
  std::string_view Bytes(std::size_t at, std::size_t count) const;
  // All bytes from a word on.
  std::string_view BytesFrom(std::size_t at) const;
  // Two words: red, green, blue and a byte that says nothing of the colour.
  Rgb Color(std::size_t at) const;
  // Two words, Y before X, as most records have them.
  Point YX(std::size_t at) const;
  // Two words, X before Y, as the corners of polygons are.
  Point XY(std::size_t at) const;

 private:
  std::string_view bytes_;
};

// What is left of a file. Taking more than that raises "Input past end of file".
class MetafileBytes {
 public:
  explicit MetafileBytes(std::string_view bytes) : left_(bytes) {}

  bool BeginsWith(std::string_view bytes) const { return left_.substr(0, bytes.size()) == bytes; }
  // Words that aren't a record of their own.
  MetafileRecord TakeWords(std::size_t words) { return MetafileRecord(Take(2 * words)); }

  struct Entry {
    std::uint16_t Function = 0;
    MetafileRecord Record;
  };
  Entry TakeRecord();

 private:
  std::string_view Take(std::size_t bytes);

  std::string_view left_;
};

}  // namespace orvane
