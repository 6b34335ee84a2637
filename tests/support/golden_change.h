// Changes of a recording compared with the patches of tests/goldens.
#pragma once

#include <string>

#include "tests/support/golden.h"

namespace orvane::test {

// Fails the test unless tests/goldens/NAME makes the one recording of the other. A hunk begins at
// "@@"; its lines begin with " " (kept), "-" (gone) or "+" (new), "#" is a remark. Each hunk must
// fit in one place only, behind the one before. With ORVANE_PROMOTE=1 a patch that doesn't is
// rewritten, its opening remarks kept, and the test fails with what was changed.
void ExpectGoldenChange(const std::string& name, const GoldenLines& before,
                        const GoldenLines& after, const SameLines& same = EqualButForNoise);

// For the tests of the comparison itself.

// What ExpectGoldenChange does with a patch of that path: empty if it agrees, else what the failure
// says.
std::string CompareWithPatch(const std::string& path, const GoldenLines& before,
                             const GoldenLines& after, const SameLines& same, bool promote);

}  // namespace orvane::test
