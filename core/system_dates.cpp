#include "core/system_dates.h"

#include <cctype>
#include <chrono>
#include <cstdlib>
#include <ctime>

#ifdef _WIN32
#include <windows.h>

#include <array>

#include "core/files.h"
#else
#include <langinfo.h>

#include <clocale>
#endif

namespace orvane {

namespace {

constexpr const char* PlainDateForm = "dd/MM/yyyy";

// How dates are written where, each country by its two letters, with its language in front where
// only that one differs. What isn't named here writes dd/MM/yyyy.
struct CountriesOfForm {
  std::string_view Form;
  std::string_view Countries;
};
constexpr CountriesOfForm DateForms[] = {
    {"dd.MM.yyyy", " AZ BA BY CH DE EE FI GE KG KZ LI LU MD MG MK NO PL RO RU SK TJ TM UA "},
    {"d.M.yyyy", " AL CZ XK "},
    {"d.MM.yyyy", " BG "},
    {"dd. MM. yyyy", " SI "},
    {"dd.MM.yyyy.", " HR ME RS "},
    {"dd-MM-yyyy", " AW CW DK NL SR TR nl_BE "},
    {"yyyy-MM-dd", " AT CA HU LK LT SE de_BE en_DK "},
    {"yyyy.MM.dd.", " LV "},
    {"yyyy.MM.dd", " MN "},
    {"yyyy/MM/dd", " GH IR "},
    {"MM/dd/yyyy", " PH US "},
    {"yyyy年MM月dd日", " CN HK JP TW "},
    {"yyyy년 MM월 dd일", " KR "},
};

}  // namespace

#ifdef _WIN32

std::string SystemShortDateForm() {
  std::array<wchar_t, 80> form{};
  const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SSHORTDATE, form.data(),
                                     static_cast<int>(form.size()));
  return length == 0 ? PlainDateForm : PathText(form.data());
}

#else

std::string SystemShortDateForm() {
  // The first of these that is set names the country for dates.
  std::string name;
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (name.empty() && value != nullptr) name = value;
  }
  if (name.empty() || name == "C" || name == "POSIX" || name.rfind("C.", 0) == 0) {
    return PlainDateForm;
  }
  const locale_t country = newlocale(LC_TIME_MASK, name.c_str(), nullptr);
  if (country == nullptr) return DateFormOfCountry(name);
  const std::string form = PatternOfDateForm(nl_langinfo_l(D_FMT, country));
  freelocale(country);
  return CanBeProjectDateForm(form) ? form : PlainDateForm;
}

#endif

std::string DateFormOfCountry(std::string_view localeName) {
  localeName = localeName.substr(0, localeName.find_first_of(".@"));
  const std::size_t bar = localeName.find('_');
  if (bar == std::string_view::npos) return PlainDateForm;
  // The entry for one language of a country goes before the country's own.
  for (const std::string_view place : {localeName, localeName.substr(bar + 1)}) {
    const std::string entry = " " + std::string(place) + " ";
    for (const CountriesOfForm& row : DateForms) {
      if (row.Countries.find(entry) != std::string_view::npos) return std::string(row.Form);
    }
  }
  return PlainDateForm;
}

std::string PatternOfDateForm(std::string_view form) {
  std::string pattern;
  while (!form.empty()) {
    if (form.front() != '%') {
      const bool letter = std::isalpha(static_cast<unsigned char>(form.front())) != 0;
      pattern += letter ? "'" + std::string(1, form.front()) + "'" : std::string(1, form.front());
      form.remove_prefix(1);
      continue;
    }
    form.remove_prefix(1);
    const bool unpadded = !form.empty() && form.front() == '-';
    if (unpadded) form.remove_prefix(1);
    switch (form.empty() ? '\0' : form.front()) {
      case 'd':
        pattern += unpadded ? "d" : "dd";
        break;
      case 'e':
        pattern += "d";
        break;
      case 'm':
        pattern += unpadded ? "M" : "MM";
        break;
      case 'y':
        pattern += "yy";
        break;
      case 'Y':
        pattern += "yyyy";
        break;
      default:
        return PlainDateForm;
    }
    form.remove_prefix(1);
  }
  return pattern;
}

Moment LocalMoment() {
  // The clock of whole seconds alone may still be in the second before.
  return LocalMoment(std::chrono::system_clock::now());
}

Moment LocalMoment(std::chrono::system_clock::time_point time) {
  const std::time_t now = std::chrono::system_clock::to_time_t(time);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return {{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday},
          local.tm_hour,
          local.tm_min,
          local.tm_sec};
}

}  // namespace orvane
