// Doing what a plan says.
#pragma once

#include <cstdint>
#include <vector>

#include "project/changes.h"
#include "project/section_list/section_plan.h"

namespace orvane {

// Does it as one change of that kind, and gives the rows of Items that are new or changed, in the
// order of the list; without any there is no change. Rows that are refused or left out are passed
// over, and so are patterns that are held back. Holes are made afresh where the length, the
// product, the pattern or the sag bars are others, as the panel makes them; one that fails keeps
// what it has, and tells when its section is looked at. The job must stand as it did when the plan
// was made.
std::vector<int> ApplyPlan(const SectionPlan& plan, ChangeKind kind);

}  // namespace orvane
