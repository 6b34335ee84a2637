// The C library with a decimal comma, for the tests of what must not depend on it.
#pragma once

#include <functional>
#include <string>

namespace orvane::test {

// Runs the action while the C library works in a German locale, which is made afresh in `folder` (a
// path that doesn't exist yet) with the system's own localedef, so that the test doesn't hang on
// what a machine has installed. Fails the test, without running the action, if the library then
// doesn't print a comma. The locale before comes back in every case.
void WithDecimalComma(const std::string& folder, const std::function<void()>& action);

}  // namespace orvane::test
