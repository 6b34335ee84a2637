// What the operating system says of the present moment and of the form of dates.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "core/dates.h"

namespace orvane {

// The present moment in local time; and another one.
Moment LocalMoment();
Moment LocalMoment(std::chrono::system_clock::time_point time);

// The system's short date form as a pattern of d, dd, M, MM, yy and yyyy. Where the country that is
// set isn't installed, or its form has other parts, it is that of DateFormOfCountry.
std::string SystemShortDateForm();

// The date form of the country that a locale's name holds, such as "de_DE.UTF-8", without asking
// the system; "dd/MM/yyyy" for a name without a country and for one that isn't known.
std::string DateFormOfCountry(std::string_view localeName);

// A date form of the C library, such as "%d.%m.%y", as such a pattern.
std::string PatternOfDateForm(std::string_view form);

}  // namespace orvane
