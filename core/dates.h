// Dates and moments, their text forms, and the clock's interface.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

// A calendar day. The default is the date "never set".
struct Date {
  int Year = 1899;
  int Month = 12;  // 1..12
  int Day = 30;    // 1..31

  friend bool operator==(const Date&, const Date&) = default;
};

// A day with the time of day, local time.
struct Moment {
  Date Day;
  int Hour = 0;    // 0..23
  int Minute = 0;  // 0..59
  int Second = 0;  // 0..59
};

// Where the logic takes the present moment from; tests hold it still.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual Moment Now() const = 0;
};

// True for a day of the Gregorian calendar in the years 1 to 9999.
bool IsDate(const Date& date);

// "dd/mm/yy", the factory files' form: "05/03/24".
std::string ShortYearText(const Date& date);

// "dd/mm/yyyy": "05/03/2024".
std::string FullYearText(const Date& date);

// "ddd mmm dd yyyy hh:nn:ss", the factory files' moment of creation, with English names and 24
// hours: "Tue Mar 05 2024 14:07:09".
std::string CreatedText(const Moment& moment);

// A moment for a person's eyes: the date as in ProjectDateText, two blanks, hours, minutes and
// seconds.
std::string MomentText(const Moment& moment, std::string_view shortForm);

// The project file's date line. `shortForm` is the system's short date form as a pattern of d, dd,
// M, MM, yy, yyyy and separators, text in single quotes standing for itself. The year is written
// with four digits whatever the form says, since two would come back in the wrong century; a form
// with month or day names, with a comma, which the file's reader would take for the end of the
// line, or that doesn't read back its own dates is replaced by dd/MM/yyyy.
std::string ProjectDateText(const Date& date, std::string_view shortForm);

// The form that it writes in: `shortForm` with four digits of year, or dd/MM/yyyy in its place.
std::string ProjectDateForm(std::string_view shortForm);

// Whether ProjectDateText writes in that form, but for the digits of its year.
bool CanBeProjectDateForm(std::string_view shortForm);

// Reads a date line: in the form that ProjectDateText writes, then in the system's own short form
// with a two-digit year meant as 20xx. A job from another office has its form: yyyy-MM-dd,
// dd.MM.yyyy, dd/MM/yyyy and MM/dd/yyyy are tried in this order, then the same with two-digit
// years; the first that gives a day of the calendar counts. None if no form fits.
std::optional<Date> ParseProjectDate(std::string_view text, std::string_view shortForm);

// Reads "YYYY-MM-DDTHH:MM:SS"; none if the text has another form or names no moment.
std::optional<Moment> ParseMoment(std::string_view text);

}  // namespace orvane
