#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <system_error>

#include "core/runtime_error.h"
#include "core/text.h"

namespace orvane {

namespace {

// Significant digits that the system shows of a float.
template <class Float>
constexpr int SignificantDigits = sizeof(Float) == sizeof(float) ? 7 : 15;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The length of the number that `text` begins with, its sign included; 0 when it begins with none.
std::size_t NumberLength(std::string_view text) {
  std::size_t i = 0;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  std::size_t digits = 0;
  for (; i < text.size() && IsDigit(text[i]); ++i) ++digits;
  if (i < text.size() && text[i] == '.') {
    ++i;
    for (; i < text.size() && IsDigit(text[i]); ++i) ++digits;
  }
  if (digits == 0) return 0;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t exponent = i + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    if (exponent < text.size() && IsDigit(text[exponent])) {
      while (exponent < text.size() && IsDigit(text[exponent])) ++exponent;
      i = exponent;
    }
  }
  return i;
}

// Whether a number that the conversion called out of range is too small rather than too large: its
// first significant digit stands behind the point, the exponent counted in.
bool IsTooSmall(std::string_view number) {
  const std::size_t mark = number.find_first_of("eE");
  const std::string_view mantissa = number.substr(0, mark);
  const std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return true;
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  // The decimal place of the first significant digit: 0 for units, -1 for tenths.
  long long place = first < point ? static_cast<long long>(point - first) - 1
                                  : -static_cast<long long>(first - point);
  if (mark != std::string_view::npos) {
    std::string_view exponent = number.substr(mark + 1);
    const bool negative = exponent.front() == '-';
    if (negative || exponent.front() == '+') exponent.remove_prefix(1);
    long long size = 0;
    const auto result = std::from_chars(exponent.data(), exponent.data() + exponent.size(), size);
    // An exponent of more digits than a text has outweighs every place, and is too large to add.
    constexpr long long beyondAll = std::numeric_limits<long long>::max() / 2;
    if (result.ec != std::errc() || size > beyondAll) return negative;
    place += negative ? -size : size;
  }
  return place < 0;
}

// `number` is known to have the form of a number.
template <class Float>
Float Convert(std::string_view number) {
  if (number.front() == '+') number.remove_prefix(1);  // from_chars refuses the sign
  Float value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (!IsTooSmall(number)) throw RuntimeError(Failure::Overflow);
    value = 0;
  }
  return value;
}

// Whether the trimmed text is one number from end to end.
bool IsOneNumber(std::string_view trimmed) {
  return !trimmed.empty() && NumberLength(trimmed) == trimmed.size();
}

template <class Float>
Float ParseStrict(std::string_view text) {
  const std::string_view number = Trim(text);
  if (!IsOneNumber(number)) throw RuntimeError(Failure::TypeMismatch);
  return Convert<Float>(number);
}

// A magnitude that is a whole number small enough for all of its digits to be significant: most of
// what a project holds, and much cheaper to print than a float.
template <class Float>
bool IsShortWhole(Float magnitude) {
  constexpr Float limit = SignificantDigits<Float> == 7 ? Float(1e7) : Float(1e15);
  return magnitude < limit && magnitude == std::floor(magnitude);
}

template <class Integer>
void AppendInteger(std::string& out, Integer value) {
  std::array<char, 24> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  out.append(buffer.data(), end);
}

// A magnitude whose text needs no exponent, and whose last significant digit stands at least two
// places behind the point: nearly all that a sheet measures and that isn't whole.
template <class Float>
bool IsCommon(Float magnitude) {
  constexpr Float limit = SignificantDigits<Float> == 7 ? Float(1e5) : Float(1e13);
  return magnitude >= Float(1e-3) && magnitude < limit;
}

// The shortest text of a common magnitude, in less time than its digits take when they are asked
// for by number: the shortest text that reads back as the magnitude, cut behind the last
// significant digit and rounded there. False, with nothing appended, for an exact half, and where
// the rounding reaches the point.
//
// It does not matter that the digits are rounded twice. If the half at the cut lay between the
// magnitude and the text that reads back as it, the half would read back as it too, and would be
// the shorter or the nearer text.
template <class Float>
bool AppendCommon(std::string& out, Float magnitude) {
  std::array<char, 48> buffer;
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                  std::chars_format::fixed)
                        .ptr;
  char* cut = std::find_if(buffer.data(), end, [](char c) { return c != '0' && c != '.'; });
  int digits = 0;
  for (; cut != end; ++cut) {
    if (*cut != '.' && ++digits > SignificantDigits<Float>) break;
  }
  if (cut != end) {
    const bool half = *cut == '5' && cut + 1 == end;
    const bool up = *cut >= '5';
    while (cut[-1] == (up ? '9' : '0')) --cut;
    if (half || cut[-1] == '.') return false;
    if (up) ++cut[-1];
  }
  out.append(buffer.data(), cut);
  return true;
}

// Shortest text of a magnitude (not negative). What isn't finite has no text.
template <class Float>
void AppendMagnitude(std::string& out, Float magnitude) {
  if (!std::isfinite(magnitude)) throw RuntimeError(Failure::Overflow);
  if (IsShortWhole(magnitude)) {
    AppendInteger(out, static_cast<long long>(magnitude));
    return;
  }
  if (IsCommon(magnitude) && AppendCommon(out, magnitude)) return;
  std::array<char, 48> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                 std::chars_format::general, SignificantDigits<Float>)
                       .ptr;
  std::replace(buffer.data(), end, 'e', 'E');
  out.append(buffer.data(), end);
}

template <class Float>
std::string Shortest(Float value) {
  std::string text;
  if (value < 0) text += '-';
  AppendMagnitude(text, std::fabs(value));
  return text;
}

template <class Float>
void AppendForm(std::string& out, Float value) {
  out += value < 0 ? '-' : ' ';
  AppendMagnitude(out, std::fabs(value));
  out += ' ';
}

template <class Float>
std::string Format(Float value, int decimals) {
  const Float magnitude = std::fabs(value);
  std::string text;
  if (IsShortWhole(magnitude)) {
    if (value < 0) text += '-';
    AppendInteger(text, static_cast<long long>(magnitude));
    if (decimals > 0) text.append(1, '.').append(static_cast<std::size_t>(decimals), '0');
    return text;
  }
  if (!std::isfinite(value)) throw RuntimeError(Failure::Overflow);

  // The value's decimal text, as "d.ddddE+xx": its digits, and the place of the first one.
  constexpr int precision = SignificantDigits<Float>;
  std::array<char, 48> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                 std::chars_format::scientific, precision - 1)
                       .ptr;
  std::string digits(1, buffer[0]);
  digits.append(buffer.data() + 2, precision - 1);
  const char* exponent = buffer.data() + precision + 2;
  if (*exponent == '+') ++exponent;
  int place = 0;
  std::from_chars(exponent, end, place);

  // Keep the digits down to the last decimal asked for, and round on the next one.
  const int kept = place + 1 + decimals;
  if (kept < 0) {
    digits = "0";
  } else if (kept < precision) {
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits.resize(static_cast<std::size_t>(kept));
    digits.insert(0, 1, '0');  // takes a carry out of the first digit
    if (up) {
      std::size_t i = digits.size() - 1;
      for (; digits[i] == '9'; --i) digits[i] = '0';
      ++digits[i];
    }
  } else {
    digits.append(static_cast<std::size_t>(kept - precision), '0');
  }
  const std::size_t tail = static_cast<std::size_t>(decimals);
  if (digits.size() <= tail) digits.insert(0, tail + 1 - digits.size(), '0');
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - tail - 1));

  if (value < 0 && digits.find_first_not_of('0') != std::string::npos) text += '-';
  text.append(digits, 0, digits.size() - tail);
  if (tail > 0) text.append(1, '.').append(digits, digits.size() - tail);
  return text;
}

}  // namespace

double Val(std::string_view text) {
  const std::size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return 0;
  const std::string_view number = text.substr(start);
  const std::size_t length = NumberLength(number);
  return length == 0 ? 0 : Convert<double>(number.substr(0, length));
}

bool IsNumber(std::string_view text) {
  return IsOneNumber(Trim(text));
}

double ParseDouble(std::string_view text) {
  return ParseStrict<double>(text);
}

float ParseFloat(std::string_view text) {
  return ParseStrict<float>(text);
}

std::int16_t ParseInt16(std::string_view text) {
  return Whole(ParseStrict<double>(text));
}

int TakeDigits(std::string_view& text, std::size_t most) {
  int value = -1;
  for (; most > 0 && !text.empty() && IsDigit(text.front()); --most) {
    value = std::max(value, 0) * 10 + (text.front() - '0');
    text.remove_prefix(1);
  }
  return value;
}

double Nearest(double value) {
  // nearbyint rounds a half to the even neighbour in the default rounding mode, which nothing
  // changes.
  return std::nearbyint(value);
}

std::int16_t Whole(double value) {
  const double rounded = Nearest(value);
  if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
        rounded <= std::numeric_limits<std::int16_t>::max())) {
    throw RuntimeError(Failure::Overflow);
  }
  return static_cast<std::int16_t>(rounded);
}

std::int16_t Int16(long long value) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    throw RuntimeError(Failure::Overflow);
  }
  return static_cast<std::int16_t>(value);
}

float Float32(double value) {
  // What is not a number fails the comparison too.
  if (!(std::fabs(value) <= std::numeric_limits<float>::max())) {
    throw RuntimeError(Failure::Overflow);
  }
  return static_cast<float>(value);
}

double Divide(double dividend, double divisor) {
  if (divisor == 0) throw RuntimeError(Failure::DivisionByZero);
  return dividend / divisor;
}

std::string FormatNumber(double value, int decimals) {
  return Format(value, decimals);
}
std::string FormatNumber(float value, int decimals) {
  return Format(value, decimals);
}

std::string ShortestText(double value) {
  return Shortest(value);
}
std::string ShortestText(float value) {
  return Shortest(value);
}

std::string ShortestText(std::int16_t value) {
  return DecimalText(value);
}

std::string DecimalText(long long value) {
  std::string text;
  AppendInteger(text, value);
  return text;
}

std::string Counted(long long count, std::string_view noun) {
  return DecimalText(count).append(" ").append(noun).append(count == 1 ? "" : "s");
}

std::string PaddedText(long long value, std::size_t width) {
  std::string digits = DecimalText(value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

void AppendFileNumber(std::string& out, double value) {
  AppendForm(out, value);
}
void AppendFileNumber(std::string& out, float value) {
  AppendForm(out, value);
}

void AppendFileNumber(std::string& out, std::int16_t value) {
  out += value < 0 ? '-' : ' ';
  AppendInteger(out, std::abs(static_cast<int>(value)));
  out += ' ';
}

}  // namespace orvane
