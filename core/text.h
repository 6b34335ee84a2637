// Text of the system: UTF-8 in std::string; blanks are U+0020 and nothing else.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvane {

// The text without the blanks at both ends. Tabs, line ends and other white space stay.
std::string_view Trim(std::string_view text);

// The text with the letters a to z in upper case; all else stays.
std::string UpperCase(std::string_view text);

// Characters: counted and cut by code point, never inside a letter.

std::size_t CharCount(std::string_view text);
std::string_view FirstChars(std::string_view text, std::size_t count);
std::string_view LastChars(std::string_view text, std::size_t count);

// The text with a blank for each control character, which would end a line or a field of one.
std::string FieldText(std::string text);

// Encodings.

bool IsUtf8(std::string_view bytes);

// The byte-order mark that some programs put in front of UTF-8.
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

// The bytes of a text file as UTF-8, a byte-order mark in front dropped: as they stand when all of
// them are valid UTF-8, else read as Windows-1252, in which every byte is one character. A file
// that holds letters of UTF-8 and breaks off within one was cut there: it is UTF-8 up to that
// letter.
std::string DecodeText(std::string bytes);

// UTF-8 text in the single-byte code page of the factory files, Windows-1252: one byte a character,
// "?" for a character that the page lacks. A letter and the mark that belongs on it, as some
// systems copy texts, are the one letter that the page has for both. A control character becomes a
// blank: a text of the job must never add a line to the file, nor steer what reads it.
std::string FactoryText(std::string_view text);

// The bytes followed by blanks and then cut to exactly `width`; for text that is encoded already,
// so that one byte is one column.
std::string PadRight(std::string_view bytes, std::size_t width);

}  // namespace orvane
