#include "core/pasted_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

namespace {

constexpr std::string_view NoBreakSpace = "\xC2\xA0";
constexpr std::string_view NarrowNoBreakSpace = "\xE2\x80\xAF";
constexpr std::size_t ThousandsDigits = 3;

// The text without the blanks of every kind that a copy brings at its ends.
std::string_view WithoutBlanks(std::string_view text) {
  for (bool more = true; more;) {
    more = false;
    for (const std::string_view blank :
         {std::string_view(" "), std::string_view("\t"), std::string_view("\r"),
          std::string_view("\n"), NoBreakSpace, NarrowNoBreakSpace}) {
      if (text.starts_with(blank)) {
        text.remove_prefix(blank.size());
        more = true;
      } else if (text.ends_with(blank)) {
        text.remove_suffix(blank.size());
        more = true;
      }
    }
  }
  return text;
}

// The text without its unit, which may stand once, before or behind it.
std::string_view WithoutUnit(std::string_view text) {
  constexpr std::size_t UnitSize = 2;
  const auto isUnit = [](std::string_view part) { return UpperCase(part) == "MM"; };
  if (text.size() <= UnitSize) return text;
  if (isUnit(text.substr(text.size() - UnitSize))) {
    text.remove_suffix(UnitSize);
  } else if (isUnit(text.substr(0, UnitSize))) {
    text.remove_prefix(UnitSize);
  }
  return WithoutBlanks(text);
}

// No field of the records holds it.
bool IsTooLarge(std::string_view digits) {
  constexpr std::string_view greatest = "32767";
  while (digits.starts_with('0')) digits.remove_prefix(1);
  return digits.size() > greatest.size() || (digits.size() == greatest.size() && digits > greatest);
}

bool AreDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The number without its unit if that is metres, written with a decimal point; empty for any other.
std::string InMetres(std::string_view number) {
  constexpr std::size_t MostDigits = 12;  // of anything that is a length
  const std::string upper = UpperCase(number);
  std::string_view rest = upper;
  for (const std::string_view unit : {"METRES", "METERS", "METRE", "METER", "M"}) {
    if (!rest.ends_with(unit)) continue;
    rest = WithoutBlanks(rest.substr(0, rest.size() - unit.size()));
    std::string metres(rest);
    std::replace(metres.begin(), metres.end(), ',', '.');
    const bool plain =
        metres.size() <= MostDigits && metres.find_first_not_of(".0123456789") == std::string::npos;
    return plain && IsNumber(metres) ? metres : std::string();
  }
  return {};
}

// What parts the digits of a number, between groups of them.
constexpr std::array<std::string_view, 6> Dividers = {
    " ", NoBreakSpace, NarrowNoBreakSpace, "\xE2\x80\x89", ",", "."};

struct DividedDigits {
  std::vector<std::string_view> Groups;
  std::vector<std::string_view> Between;  // one fewer
  bool Whole = true;                      // nothing but digits and dividers
};

DividedDigits Divided(std::string_view number) {
  DividedDigits parts;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < number.size();) {
    const auto divides = [&](std::string_view sign) { return number.substr(at).starts_with(sign); };
    const auto sign = std::find_if(Dividers.begin(), Dividers.end(), divides);
    if (sign == Dividers.end()) {
      parts.Whole = parts.Whole && AreDigits(number.substr(at, 1));
      ++at;
      continue;
    }
    parts.Groups.push_back(number.substr(begin, at - begin));
    parts.Between.push_back(*sign);
    at += sign->size();
    begin = at;
  }
  parts.Groups.push_back(number.substr(begin));
  return parts;
}

bool IsPointOrComma(std::string_view sign) {
  return sign == "," || sign == ".";
}

// The first `count` groups are a number of thousands: up to three digits, then three each time,
// behind the same sign.
bool AreThousands(const DividedDigits& parts, std::size_t count) {
  const std::string_view first = parts.Groups.front();
  if (first.empty() || first.size() > ThousandsDigits || first.front() == '0') return false;
  for (std::size_t at = 1; at < count; ++at) {
    if (parts.Groups[at].size() != ThousandsDigits || parts.Between[at - 1] != parts.Between[0]) {
      return false;
    }
  }
  return true;
}

PastedNumber Refusal(std::string_view text, std::string_view reason) {
  // A whole page that was copied by mistake doesn't make a tip of a page.
  constexpr std::size_t MostShown = 20;
  std::string shown = PastedLine(text);
  if (CharCount(shown) > MostShown) shown = std::string(FirstChars(shown, MostShown)) + "...";
  return {"", "\"" + shown + "\" wasn't pasted: " + std::string(reason)};
}

}  // namespace

std::string PastedLine(std::string_view text) {
  // Empty cells beside a cell that was copied are no part of its text.
  while (text.ends_with('\n') || text.ends_with('\r') || text.ends_with('\t')) {
    text.remove_suffix(1);
  }
  while (text.starts_with('\t')) text.remove_prefix(1);
  std::string line;
  line.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '\n' && at > 0 && text[at - 1] == '\r') continue;  // the blank stands already
    line += c == '\r' || c == '\n' || c == '\t' ? ' ' : c;
  }
  return line;
}

EnteredText TextToEnter(std::string_view text, TextForm form) {
  if (form == TextForm::Plain && text.find(',') != std::string_view::npos) {
    return {"", "The project file can't hold a comma here"};
  }
  std::string entered;
  entered.reserve(text.size());
  for (const char c : text) {
    if (c == '"' && form == TextForm::Quoted) {
      entered += "''";
    } else {
      entered += c;
    }
  }
  return {std::move(entered), ""};
}

PastedNumber NumberToPaste(std::string_view text, NumberForm form) {
  text = WithoutBlanks(text);
  const std::string_view number = WithoutUnit(text);
  if (number.empty()) return {};
  const bool sign = number.front() == '-' || number.front() == '+';
  const std::string_view magnitude = number.substr(sign ? 1 : 0);
  if (magnitude.find(',') != std::string_view::npos) {
    return Refusal(text, "a comma may divide thousands or a fraction");
  }
  const std::size_t point = magnitude.find('.');
  const std::string_view whole = magnitude.substr(0, point);
  const std::string_view fraction =
      point == std::string_view::npos ? std::string_view() : magnitude.substr(point + 1);
  if (whole.size() + fraction.size() == 0 || !AreDigits(whole) || !AreDigits(fraction)) {
    return Refusal(text, "it isn't a number");
  }
  if (sign && form != NumberForm::Signed) return Refusal(text, "no sign is taken here");
  if (form != NumberForm::Whole) return {std::string(number), ""};
  if (IsTooLarge(whole)) return Refusal(text, "it is larger than 32767");
  if (point == std::string_view::npos) return {std::string(whole), ""};
  if (fraction.size() == ThousandsDigits) {
    return Refusal(text, "the point may divide thousands");
  }
  if (whole.empty() || (fraction != "0" && fraction != "00")) {
    return Refusal(text, "only whole numbers are taken here");
  }
  return {std::string(whole), ""};
}

TableNumber NumberInTable(std::string_view text, ThreeDigits told) {
  const auto refused = [](std::string reason) { return TableNumber{"", std::move(reason)}; };
  const std::string_view number = WithoutUnit(WithoutBlanks(text));
  if (number.empty()) return {};
  if (const std::string metres = InMetres(number); !metres.empty()) {
    constexpr double MmPerMetre = 1000;
    return refused("Metres aren't taken here: in millimetres it is " +
                   ShortestText(Val(metres) * MmPerMetre));
  }
  if (number.front() == '-' || number.front() == '+') return refused("No sign is taken here");
  const DividedDigits parts = Divided(number);
  const std::size_t count = parts.Groups.size();
  if (!parts.Whole) return refused("It isn't a number");

  // Where the last comma or point stands, and whether it divides a fraction.
  const bool pointed = count > 1 && IsPointOrComma(parts.Between.back());
  bool fraction = pointed && !AreThousands(parts, count);
  const bool ambiguous = pointed && count == 2 && !fraction;
  if (ambiguous && told == ThreeDigits::NotTold) {
    return {"", "It may be thousands or a fraction", true};
  }
  if (ambiguous) fraction = told == ThreeDigits::Fraction;

  const std::size_t whole = fraction ? count - 1 : count;
  if (whole > 1 && !AreThousands(parts, whole)) return refused("It isn't a number");
  std::string digits;
  for (std::size_t at = 0; at < whole; ++at) digits += parts.Groups[at];
  if (digits.empty()) return refused("It isn't a number");
  TableNumber taken{"", "", ambiguous};
  if (fraction && parts.Groups.back().find_first_not_of('0') != std::string_view::npos) {
    taken.Refusal = "Only whole numbers are taken here";
  } else if (IsTooLarge(digits)) {
    taken.Refusal = "It is larger than 32767";
  } else {
    taken.Text = std::move(digits);
  }
  return taken;
}

}  // namespace orvane
