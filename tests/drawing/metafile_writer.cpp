#include "tests/drawing/metafile_writer.h"

namespace orvane::test {

namespace {

void PutWord(std::string& out, int value) {
  out += static_cast<char>(value & 0xFF);
  out += static_cast<char>(value >> 8 & 0xFF);
}

}  // namespace

MetafileWriter& MetafileWriter::Record(std::uint16_t function, const std::vector<int>& words,
                                       std::string_view bytes) {
  const std::size_t size = 3 + words.size() + (bytes.size() + 1) / 2;
  PutWord(records_, static_cast<int>(size & 0xFFFF));
  PutWord(records_, static_cast<int>(size >> 16));
  PutWord(records_, function);
  for (const int word : words) PutWord(records_, word);
  records_ += bytes;
  if (bytes.size() % 2 != 0) records_ += '\0';
  return *this;
}

MetafileWriter& MetafileWriter::Text(std::string_view text, int x, int y) {
  std::string bytes(text);
  if (bytes.size() % 2 != 0) bytes += '\0';
  PutWord(bytes, y);
  PutWord(bytes, x);
  return Record(0x0521, {static_cast<int>(text.size())}, bytes);
}

MetafileWriter& MetafileWriter::Font(int slot, int height, int angle, int weight, bool italic,
                                     std::string_view name) {
  const std::string face = std::string(name) + '\0';
  Record(0x02FB, {height, 0, angle, angle, weight, italic ? 1 : 0, 0, 0, 0}, face);
  return Record(0x012D, {slot});
}

std::string MetafileWriter::Placeable(int left, int top, int right, int bottom,
                                      int unitsToTheInch) const {
  std::string header = "\xD7\xCD\xC6\x9A";
  for (const int word : {0, left, top, right, bottom, unitsToTheInch, 0, 0}) PutWord(header, word);
  int sum = 0;
  for (std::size_t at = 0; at < header.size(); at += 2) {
    sum ^= static_cast<unsigned char>(header[at]) | static_cast<unsigned char>(header[at + 1]) << 8;
  }
  PutWord(header, sum);
  return header + Plain();
}

std::string MetafileWriter::Plain() const {
  std::string file;
  const std::size_t words = 9 + records_.size() / 2 + 3;
  for (const int word : {1, 9, 0x0300, static_cast<int>(words & 0xFFFF),
                         static_cast<int>(words >> 16), 16, 0xFFFF, 0, 0}) {
    PutWord(file, word);
  }
  file += records_;
  for (const int word : {3, 0, 0}) PutWord(file, word);
  return file;
}

}  // namespace orvane::test
