#include "core/pasted_text.h"

#include <algorithm>
#include <cstddef>
#include <utility>

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

PastedNumber Refusal(std::string_view text, std::string_view reason) {
  // A whole page that was copied by mistake doesn't make a tip of a page.
  constexpr std::size_t MostShown = 20;
  std::string shown = PastedLine(text);
  if (CharCount(shown) > MostShown) shown = std::string(FirstChars(shown, MostShown)) + "...";
  return {"", "\"" + shown + "\" wasn't pasted: " + std::string(reason)};
}

}  // namespace

std::string PastedLine(std::string_view text) {
  while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
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

}  // namespace orvane
