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
  if (country == nullptr) return PlainDateForm;
  const std::string form = nl_langinfo_l(D_FMT, country);
  freelocale(country);
  return PatternOfDateForm(form);
}

#endif

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
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
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
