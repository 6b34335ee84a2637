// What differs between two jobs, field by field in the words of the screens: for the list and the
// sheets of "Compare with", the revision list, and the companion. Which section and which line is
// which is told by project/job_difference.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/job.h"
#include "project/job_difference.h"

namespace orvane {

// What a difference belongs to.
enum class ComparedThing { Project, Section, Accessory };

// What of a section it is, for who shows its place on the sheet.
enum class ComparedPart { Whole, Length, MitreLeft, MitreRight, Hole, Notch };

// One field of one thing that has changed, or a thing that came or went as a whole.
struct ComparedLine {
  ComparedThing Of = ComparedThing::Project;
  Paired What = Paired::Changed;
  int Before = 0;     // row of the section or of the accessory line in the earlier job; 0 for none
  int After = 0;      // in the later job
  std::string Name;   // the section's mark, or the accessory's name with its line's mark or size
  std::string Field;  // what has changed; empty for what came or went
  std::string Old;    // what it was; empty for nothing
  std::string New;    // what it is
  ComparedPart Part = ComparedPart::Whole;
  int PartBefore = 0;  // row of the hole or the notch; 0 for none
  int PartAfter = 0;
};

struct JobComparison {
  std::vector<ComparedLine> Lines;  // project, sections, accessories; none for equal jobs
  std::string Words;                // how much it is, as Described
};

// Compares what people entered. A hole placed by hand is told by its distance from the left-hand
// end, a notch by its code and position: one that was moved has gone and come. A mark of an
// accessory in use is told where no line of that accessory differs, which it follows. Reads nothing
// but the jobs and the catalogue's names. A number that no file could hold raises "Overflow".
JobComparison CompareJobs(const JobView& before, const JobView& after);

// "added", "changed", "renamed" or "removed".
std::string_view WordOf(Paired what);

// The differences as lines of text: "section", "accessory" or "project", the word, then name,
// field, old and new text, with a tab between each two. A text's own tabs and line ends are blanks.
std::string ComparisonText(const JobComparison& comparison);

}  // namespace orvane
