// What the operating system says of the present moment and of the form of dates.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"

namespace orvane {

// The present moment in local time.
Moment LocalMoment();

// The system's short date form as a pattern of d, dd, M, MM, yy and yyyy; "dd/MM/yyyy" where no
// country is set or its form has other parts.
std::string SystemShortDateForm();

// A date form of the C library, such as "%d.%m.%y", as such a pattern.
std::string PatternOfDateForm(std::string_view form);

}  // namespace orvane
