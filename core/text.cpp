#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace orvane {

namespace {

// What Windows-1252 shows for the bytes 0x80 to 0x9F; 0 for the five that it leaves free. All other
// bytes are their own code point.
constexpr std::array<char32_t, 32> UpperControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr char32_t Invalid = 0xFFFFFFFF;

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The code point that begins at `at`, which moves behind it. An ill-formed sequence gives Invalid
// and moves on by one byte.
char32_t NextCodePoint(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  std::size_t length = 0;
  char32_t smallest = 0;
  char32_t point = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2, smallest = 0x80, point = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3, smallest = 0x800, point = lead & 0x0F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4, smallest = 0x10000, point = lead & 0x07;
  }
  bool valid = length != 0 && at + length <= text.size();
  for (std::size_t i = 1; valid && i < length; ++i) {
    valid = IsContinuation(text[at + i]);
    point = point << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3F);
  }
  if (!valid || point < smallest || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) {
    ++at;
    return Invalid;
  }
  at += length;
  return point;
}

void AppendUtf8(std::string& out, char32_t point) {
  const auto byte = [&out](char32_t bits) { out += static_cast<char>(bits); };
  if (point < 0x80) {
    byte(point);
  } else if (point < 0x800) {
    byte(0xC0 | point >> 6), byte(0x80 | (point & 0x3F));
  } else {
    byte(0xE0 | point >> 12), byte(0x80 | (point >> 6 & 0x3F)), byte(0x80 | (point & 0x3F));
  }
}

// A block of bytes is looked at as one, which processors do many at a time: jobs have megabytes.
bool IsAscii(std::string_view text) {
  constexpr std::size_t Block = 1024;
  for (; !text.empty(); text.remove_prefix(std::min(Block, text.size()))) {
    unsigned char bits = 0;
    for (const char c : text.substr(0, Block)) bits |= static_cast<unsigned char>(c);
    if (bits >= 0x80) return false;
  }
  return true;
}

// The letters of Windows-1252 that bear a mark: the mark's own code point, the letters that it
// stands behind, and what each becomes.
struct MarkedLetters {
  char32_t Mark;
  std::u32string_view Bare;
  std::u32string_view Marked;
};
constexpr std::array<MarkedLetters, 8> Marks = {{
    {0x0300, U"AEIOUaeiou", U"ÀÈÌÒÙàèìòù"},      // grave accent
    {0x0301, U"AEIOUYaeiouy", U"ÁÉÍÓÚÝáéíóúý"},  // acute accent
    {0x0302, U"AEIOUaeiou", U"ÂÊÎÔÛâêîôû"},      // circumflex
    {0x0303, U"ANOano", U"ÃÑÕãñõ"},              // tilde
    {0x0308, U"AEIOUYaeiouy", U"ÄËÏÖÜŸäëïöüÿ"},  // two points
    {0x030A, U"Aa", U"Åå"},                      // ring
    {0x030C, U"SZsz", U"ŠŽšž"},                  // hook
    {0x0327, U"Cc", U"Çç"},                      // cedilla
}};

// The letter with the mark on it; 0 where the code page has none.
char32_t Composed(char32_t letter, char32_t mark) {
  for (const MarkedLetters& row : Marks) {
    if (row.Mark != mark) continue;
    const std::size_t at = row.Bare.find(letter);
    return at == std::u32string_view::npos ? 0 : row.Marked[at];
  }
  return 0;
}

// Whether the bytes from `at` on are the beginning of a letter of UTF-8 whose rest is missing.
bool IsUnfinished(std::string_view bytes, std::size_t at) {
  const auto lead = static_cast<unsigned char>(bytes[at]);
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() - at >= length) return false;
  const std::string_view rest = bytes.substr(at + 1);
  return std::all_of(rest.begin(), rest.end(), IsContinuation);
}

// How many of the bytes are whole letters of UTF-8 when nothing but the last one is broken, and one
// beyond ASCII stands before it; else none.
std::size_t CutWithinLetter(std::string_view bytes) {
  bool beyondAscii = false;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t start = at;
    const char32_t point = NextCodePoint(bytes, at);
    if (point == Invalid) return beyondAscii && IsUnfinished(bytes, start) ? start : 0;
    beyondAscii = beyondAscii || point >= 0x80;
  }
  return 0;
}

char FactoryByte(char32_t point) {
  if (point < 0x20 || (point >= 0x7F && point < 0xA0)) return ' ';
  if (point < 0x80 || (point >= 0xA0 && point <= 0xFF)) return static_cast<char>(point);
  const auto found = std::find(UpperControls.begin(), UpperControls.end(), point);
  if (found == UpperControls.end()) return '?';
  return static_cast<char>(0x80 + (found - UpperControls.begin()));
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

std::string FieldText(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char letter) { return letter >= 0 && letter < ' '; }, ' ');
  return text;
}

std::size_t CharCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

std::string_view FirstChars(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  while (end < text.size() && (count > 0 || IsContinuation(text[end]))) {
    if (!IsContinuation(text[end])) --count;
    ++end;
  }
  return text.substr(0, end);
}

std::string_view LastChars(std::string_view text, std::size_t count) {
  std::size_t start = text.size();
  while (start > 0 && count > 0) {
    --start;
    if (!IsContinuation(text[start])) --count;
  }
  return text.substr(start);
}

bool IsUtf8(std::string_view bytes) {
  if (IsAscii(bytes)) return true;
  for (std::size_t at = 0; at < bytes.size();) {
    if (NextCodePoint(bytes, at) == Invalid) return false;
  }
  return true;
}

std::string DecodeText(std::string bytes) {
  // The mark is no text in any case, not even before bytes that break the encoding it announces.
  if (bytes.starts_with(Utf8Mark)) bytes.erase(0, Utf8Mark.size());
  if (IsUtf8(bytes)) return bytes;
  if (const std::size_t whole = CutWithinLetter(bytes)) return bytes.substr(0, whole);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool mapped = byte >= 0x80 && byte < 0xA0 && UpperControls[byte - 0x80U] != 0;
    AppendUtf8(text, mapped ? UpperControls[byte - 0x80U] : byte);
  }
  return text;
}

std::string FactoryText(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    char32_t point = NextCodePoint(text, at);
    std::size_t behind = at;
    if (behind < text.size()) {
      if (const char32_t marked = Composed(point, NextCodePoint(text, behind))) {
        point = marked;
        at = behind;
      }
    }
    bytes += FactoryByte(point);
  }
  return bytes;
}

std::string PadRight(std::string_view bytes, std::size_t width) {
  std::string padded(bytes.substr(0, width));
  padded.resize(width, ' ');
  return padded;
}

}  // namespace orvane
