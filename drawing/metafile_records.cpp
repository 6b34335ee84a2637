#include "drawing/metafile_records.h"

#include "core/runtime_error.h"

namespace orvane {

void RefusePicture() {
  throw RuntimeError(Failure::TypeMismatch, "Invalid picture");
}

void MetafileRecord::Need(std::size_t words) const {
  if (bytes_.size() / 2 < words) RefusePicture();
}

std::uint16_t MetafileRecord::Word(std::size_t at) const {
  Need(at + 1);
  // The low byte comes first.
  return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes_[2 * at]) |
                                    static_cast<unsigned char>(bytes_[2 * at + 1]) << 8);
}

std::int16_t MetafileRecord::Number(std::size_t at) const {
  return static_cast<std::int16_t>(Word(at));
}

std::size_t MetafileRecord::Count(std::size_t at) const {
  if (Number(at) < 0) RefusePicture();
  return Word(at);
}

std::string_view MetafileRecord::Bytes(std::size_t at, std::size_t count) const {
  Need(at + (count + 1) / 2);
  return bytes_.substr(2 * at, count);
}

std::string_view MetafileRecord::BytesFrom(std::size_t at) const {
  Need(at);
  return bytes_.substr(2 * at);
}

Rgb MetafileRecord::Color(std::size_t at) const {
  const std::uint16_t redAndGreen = Word(at);
  return {static_cast<std::uint8_t>(redAndGreen & 0xFF),
          static_cast<std::uint8_t>(redAndGreen >> 8),
          static_cast<std::uint8_t>(Word(at + 1) & 0xFF)};
}

Point MetafileRecord::YX(std::size_t at) const {
  return {static_cast<double>(Number(at + 1)), static_cast<double>(Number(at))};
}

Point MetafileRecord::XY(std::size_t at) const {
  return {static_cast<double>(Number(at)), static_cast<double>(Number(at + 1))};
}

MetafileBytes::Entry MetafileBytes::TakeRecord() {
  const MetafileRecord head = TakeWords(3);
  // The size counts the head too.
  const std::size_t words = head.Word(0) + (std::size_t{head.Word(1)} << 16);
  if (words < 3) RefusePicture();
  return {head.Word(2), TakeWords(words - 3)};
}

std::string_view MetafileBytes::Take(std::size_t bytes) {
  if (left_.size() < bytes) throw RuntimeError(Failure::InputPastEndOfFile);
  const std::string_view taken = left_.substr(0, bytes);
  left_.remove_prefix(bytes);
  return taken;
}

}  // namespace orvane
