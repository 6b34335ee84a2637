// How two jobs differ in what people entered, for who chooses between two versions of one.
#pragma once

#include <string>
#include <vector>

#include "project/job.h"
#include "project/pairing.h"

namespace orvane {

// What leads from one job to a later one, by rows of their tables. A section is told by its mark, a
// line by its accessory and its mark or size (PairsOf). What the system works out is no difference:
// a pattern's holes, whose pattern and length are compared; the gaps between holes, their count,
// and the order of holes, notches, sections and lines. Nor is what a project file doesn't keep,
// such as the blanks around a detail.
struct JobPairs {
  std::vector<RowPair> Sections;
  std::vector<RowPair> Lines1;  // of AccLines1
  std::vector<RowPair> Lines2;  // of AccLines2
  std::vector<int> Details;     // those that differ, 0 to 4; DateDetail is the project's date
  std::vector<int> Flags;       // rows of AccUsed; a job with fewer of them has no flag set there
};
constexpr int DateDetail = 5;

// A number that no file could hold raises "Overflow".
JobPairs PairsOf(const JobView& before, const JobView& after);

// How much came to a job, stayed and isn't as it was, and went.
struct JobDifference {
  int SectionsAdded = 0;
  int SectionsChanged = 0;
  int SectionsRenamed = 0;  // that bear another mark, all else alike
  int SectionsRemoved = 0;
  bool Details = false;         // one of the project's, or its date
  int AccessoryLines = 0;       // that came, went or hold something else, of both types
  bool AccessoryFlags = false;  // an accessory is marked as used, or no longer

  friend bool operator==(const JobDifference&, const JobDifference&) = default;
};

JobDifference DifferenceOf(const JobPairs& pairs);
JobDifference DifferenceOf(const JobView& before, const JobView& after);

// It in a line: "2 sections added, 1 changed, 1 renamed, 3 removed; project details; 4 accessory
// lines". The flags, which follow the lines as a rule, are told where no line differs. "nothing"
// for none.
std::string Described(const JobDifference& difference);

}  // namespace orvane
