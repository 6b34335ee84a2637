#include "core/dates.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

namespace {

constexpr std::array<std::string_view, 12> MonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7> DayNames = {"Sun", "Mon", "Tue", "Wed",
                                                      "Thu", "Fri", "Sat"};

// The form that every machine can write and read back.
constexpr std::string_view NumericForm = "dd/MM/yyyy";

bool IsLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month) {
  constexpr std::array<int, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return days[static_cast<std::size_t>(month - 1)] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

// 0 for Sunday. The day's number is counted from the years, then taken modulo 7; the first of
// January of the year 1 was a Monday.
int DayOfWeek(const Date& date) {
  const int years = date.Year - 1;
  int days = years * 365 + years / 4 - years / 100 + years / 400;
  for (int month = 1; month < date.Month; ++month) days += DaysInMonth(date.Year, month);
  return (days + date.Day) % 7;
}

// One piece of a pattern: a run of one pattern letter, or text that stands for itself.
struct Piece {
  char Letter = 0;  // d, M or y; 0 for text
  std::size_t Count = 0;
  std::string Text;
};

// Takes the next piece off the front of a pattern that isn't empty.
Piece NextPiece(std::string_view& pattern) {
  Piece piece;
  const char first = pattern.front();
  if (first == 'd' || first == 'M' || first == 'y') {
    piece.Letter = first;
    piece.Count = std::min(pattern.find_first_not_of(first), pattern.size());
    pattern.remove_prefix(piece.Count);
  } else if (first == '\'') {
    const std::size_t close = std::min(pattern.find('\'', 1), pattern.size());
    piece.Text = close == 1 ? "'" : std::string(pattern.substr(1, close - 1));
    pattern.remove_prefix(std::min(close + 1, pattern.size()));
  } else {
    piece.Text = first;
    pattern.remove_prefix(1);
  }
  return piece;
}

std::string FormatDate(const Date& date, std::string_view pattern) {
  std::string text;
  while (!pattern.empty()) {
    const Piece piece = NextPiece(pattern);
    switch (piece.Letter) {
      case 'd':
        text += PaddedText(date.Day, piece.Count);
        break;
      case 'M':
        text += PaddedText(date.Month, piece.Count);
        break;
      case 'y':
        text += piece.Count >= 3 ? PaddedText(date.Year, 4) : PaddedText(date.Year % 100, 2);
        break;
      default:
        text += piece.Text;
    }
  }
  return text;
}

// Takes an English three-letter month name off the front of the text; -1 if there is none.
int TakeMonthName(std::string_view& text) {
  for (std::size_t month = 0; month < MonthNames.size(); ++month) {
    if (text.substr(0, 3) == MonthNames[month]) {
      text.remove_prefix(3);
      return static_cast<int>(month) + 1;
    }
  }
  return -1;
}

std::optional<Date> ParseDate(std::string_view text, std::string_view pattern) {
  Date date{0, 0, 0};  // no day, unless the pattern names all three parts
  while (!pattern.empty()) {
    const Piece piece = NextPiece(pattern);
    int* part = nullptr;
    if (piece.Letter == 'd') {
      date.Day = TakeDigits(text, 2);
      part = &date.Day;
    } else if (piece.Letter == 'M') {
      date.Month = piece.Count == 3 ? TakeMonthName(text) : TakeDigits(text, 2);
      part = &date.Month;
    } else if (piece.Letter == 'y') {
      const std::size_t before = text.size();
      date.Year = TakeDigits(text, piece.Count >= 3 ? 4 : 2);
      // A year of four digits must have them all, or "24" would be the year 24.
      if (piece.Count >= 3 && before - text.size() != 4) return std::nullopt;
      if (piece.Count < 3 && date.Year >= 0) date.Year += 2000;
      part = &date.Year;
    } else if (text.substr(0, piece.Text.size()) == piece.Text) {
      text.remove_prefix(piece.Text.size());
    } else {
      return std::nullopt;
    }
    if (part != nullptr && *part < 0) return std::nullopt;
  }
  if (!text.empty() || !IsDate(date)) return std::nullopt;
  return date;
}

// Whether a pattern names a day, a month and a year once each, all as numbers, and holds nothing
// that the project file's reader would stumble over.
bool IsPlainNumeric(std::string_view pattern) {
  int days = 0;
  int months = 0;
  int years = 0;
  while (!pattern.empty()) {
    const Piece piece = NextPiece(pattern);
    if (piece.Letter != 0 && piece.Letter != 'y' && piece.Count > 2) return false;
    days += piece.Letter == 'd' ? 1 : 0;
    months += piece.Letter == 'M' ? 1 : 0;
    years += piece.Letter == 'y' ? 1 : 0;
    if (piece.Text.find_first_of(",\"\r\n0123456789") != std::string::npos) return false;
  }
  return days == 1 && months == 1 && years == 1;
}

// The short form with its year widened to four digits; none where it can't serve.
std::optional<std::string> WideForm(std::string_view shortForm) {
  if (!IsPlainNumeric(shortForm)) return std::nullopt;
  std::string form;
  bool quoted = false;
  for (std::size_t i = 0; i < shortForm.size(); ++i) {
    if (shortForm[i] == '\'') quoted = !quoted;
    if (shortForm[i] != 'y' || quoted) {
      form += shortForm[i];
    } else if (i + 1 == shortForm.size() || shortForm[i + 1] != 'y') {
      form += "yyyy";
    }
  }
  // A form may run its numbers together, or begin or end with a blank, which the reader drops: what
  // it doesn't give back can't be stored in it.
  constexpr Date sample{2033, 1, 2};
  const std::string text = FormatDate(sample, form);
  const bool readsBack = Trim(text) == text && ParseDate(text, form) == sample;
  return readsBack ? std::optional(form) : std::nullopt;
}

}  // namespace

bool IsDate(const Date& date) {
  return date.Year >= 1 && date.Year <= 9999 && date.Month >= 1 && date.Month <= 12 &&
         date.Day >= 1 && date.Day <= DaysInMonth(date.Year, date.Month);
}

std::string ShortYearText(const Date& date) {
  return FormatDate(date, "dd/MM/yy");
}

std::string FullYearText(const Date& date) {
  return FormatDate(date, "dd/MM/yyyy");
}

std::string CreatedText(const Moment& moment) {
  std::string text(DayNames.at(static_cast<std::size_t>(DayOfWeek(moment.Day))));
  text.append(1, ' ').append(MonthNames.at(static_cast<std::size_t>(moment.Day.Month - 1)));
  text.append(1, ' ').append(FormatDate(moment.Day, "dd yyyy"));
  text.append(1, ' ').append(PaddedText(moment.Hour, 2));
  text.append(1, ':').append(PaddedText(moment.Minute, 2));
  text.append(1, ':').append(PaddedText(moment.Second, 2));
  return text;
}

std::string ProjectDateText(const Date& date, std::string_view shortForm) {
  return FormatDate(date, ProjectDateForm(shortForm));
}

std::string ProjectDateForm(std::string_view shortForm) {
  return WideForm(shortForm).value_or(std::string(NumericForm));
}

bool CanBeProjectDateForm(std::string_view shortForm) {
  return WideForm(shortForm).has_value();
}

std::optional<Date> ParseProjectDate(std::string_view text, std::string_view shortForm) {
  text = Trim(text);
  const std::string own = ProjectDateForm(shortForm);
  // An office that writes the month first writes it first with two digits of year too.
  std::string brief = own;
  brief.erase(std::min(brief.find("yyyy"), brief.size() - 2), 2);
  for (const std::string_view form :
       {std::string_view(own), shortForm, std::string_view(brief), std::string_view("yyyy-MM-dd"),
        std::string_view("dd.MM.yyyy"), NumericForm, std::string_view("MM/dd/yyyy"),
        std::string_view("yy-MM-dd"), std::string_view("dd.MM.yy"), std::string_view("dd/MM/yy"),
        std::string_view("MM/dd/yy")}) {
    if (const auto date = ParseDate(text, form)) return date;
  }
  return std::nullopt;
}

std::string MomentText(const Moment& moment, std::string_view shortForm) {
  return ProjectDateText(moment.Day, shortForm) + "  " + PaddedText(moment.Hour, 2) + ":" +
         PaddedText(moment.Minute, 2) + ":" + PaddedText(moment.Second, 2);
}

std::optional<Moment> ParseMoment(std::string_view text) {
  if (text.size() != 19 || text[10] != 'T' || text[13] != ':' || text[16] != ':') {
    return std::nullopt;
  }
  const auto day = ParseDate(text.substr(0, 10), "yyyy-MM-dd");
  if (!day) return std::nullopt;
  Moment moment{*day};
  const auto part = [text](std::size_t at) {
    std::string_view digits = text.substr(at, 2);
    const int value = TakeDigits(digits, 2);
    return digits.empty() ? value : -1;
  };
  moment.Hour = part(11);
  moment.Minute = part(14);
  moment.Second = part(17);
  const bool valid = moment.Hour >= 0 && moment.Hour < 24 && moment.Minute >= 0 &&
                     moment.Minute < 60 && moment.Second >= 0 && moment.Second < 60;
  return valid ? std::optional(moment) : std::nullopt;
}

}  // namespace orvane
