// How two jobs differ in what people entered, for who chooses between two versions of one.
#pragma once

#include <string>

#include "project/job.h"

namespace orvane {

// What came to a job, what stayed and isn't as it was, and what went.
struct JobDifference {
  int SectionsAdded = 0;
  int SectionsChanged = 0;
  int SectionsRemoved = 0;
  bool Details = false;         // one of the project's, or its date
  int AccessoryLines = 0;       // that came, went or hold something else, of both types
  bool AccessoryFlags = false;  // an accessory is marked as used, or no longer

  friend bool operator==(const JobDifference&, const JobDifference&) = default;
};

// What leads from one job to a later one. A section is told by its mark: of several that bear the
// same one, or none, those with the same content are one section, then the others in their order.
// What is left is told by its content: a section that got another mark has changed. What the system
// works out is no difference: a pattern's holes, whose pattern and length are compared; the gaps
// between holes, their count, and the order of holes, of sections and of lines. Nor is what a
// project file doesn't keep, such as the blanks around a detail. A number that no file could hold
// raises "Overflow".
JobDifference DifferenceOf(const JobView& before, const JobView& after);

// It in a line: "2 sections added, 1 changed, 3 removed; project details; 4 accessory lines". The
// flags, which follow the lines as a rule, are told where no line differs. "nothing" for none.
std::string Described(const JobDifference& difference);

}  // namespace orvane
