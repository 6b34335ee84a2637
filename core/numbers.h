// Every conversion between text and number, and every rounding of the system. Nothing else rounds,
// parses or formats a number; nothing here depends on the locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvane {

// Booleans of the tables and files are 16-bit integers.
using Boolean = std::int16_t;
constexpr Boolean True = -1;
constexpr Boolean False = 0;
constexpr Boolean ToBoolean(bool condition) {
  return condition ? True : False;
}

// Text to number.

// A number is: one sign or none, digits with at most one point among or around them, and an
// exponent ("E" or "e", a sign or none, digits). No grouping, no hexadecimal, no words.

// Number-prefix conversion for what people type and what settings and dimension columns hold:
// leading blanks are skipped, reading stops at the first character that can't belong to a number,
// and 0 stands for no number at all. A value too large for a 64-bit float raises "Overflow".
double Val(std::string_view text);

// True when the whole text, blanks at both ends apart, is one number.
bool IsNumber(std::string_view text);

// Strict conversions for stored numbers: the text, blanks at both ends apart, must be one number
// from end to end, else "Type mismatch". ParseInt16 sends a fraction through Whole. A value beyond
// the type raises "Overflow".
double ParseDouble(std::string_view text);
float ParseFloat(std::string_view text);
std::int16_t ParseInt16(std::string_view text);

// Takes a number of one to `most` digits off the front of the text, for texts of parts such as
// dates; -1 if it doesn't begin with a digit. `most` is at most 9, so that the number fits.
int TakeDigits(std::string_view& text, std::size_t most);

// Rounding and limits.

// The only door from a float to a 16-bit field: to the nearest whole number, an exact half to the
// even neighbour. Beyond -32768..32767, and for what is not a number, "Overflow".
std::int16_t Whole(double value);

// The only door from wider whole numbers to a 16-bit field; "Overflow" beyond its limits.
std::int16_t Int16(long long value);

// To the nearest whole number, an exact half to the even neighbour, without the limits of a field.
double Nearest(double value);

// The only door to a 32-bit float field; "Overflow" beyond its limits.
float Float32(double value);

// A division that fails as the system's do: a zero divisor raises "Division by zero".
double Divide(double dividend, double divisor);

// Number to text.

// The forms "0" (no decimals) and "0.0" (one): rounded half away from zero on the value's decimal
// text (15 significant digits of a 64-bit float, 7 of a 32-bit one), so that 0.15 becomes 0.2
// although its binary value is a little less. A zero bears no sign.
std::string FormatNumber(double value, int decimals);
std::string FormatNumber(float value, int decimals);

// Shortest decimal text: up to 15 or 7 significant digits, trailing zeros dropped, "0.5" with its
// zero, an exponent such as "E-14" beyond the plain range (below 0.0001, or more digits before the
// point than are significant). A zero bears no sign.
std::string ShortestText(double value);
std::string ShortestText(float value);
std::string ShortestText(std::int16_t value);

// A whole number in plain digits: row numbers, error numbers.
std::string DecimalText(long long value);

// A count with the noun that it counts: "1 section", "3 sections".
std::string Counted(long long count, std::string_view noun);

// The same of a number that isn't negative, zeros put in front up to `width` digits; more digits
// than that stay.
std::string PaddedText(long long value, std::size_t width);

// The number form of project files, appended to `out`: a blank or a minus sign, the shortest text
// of the magnitude, a blank behind it.
void AppendFileNumber(std::string& out, double value);
void AppendFileNumber(std::string& out, float value);
void AppendFileNumber(std::string& out, std::int16_t value);

}  // namespace orvane
