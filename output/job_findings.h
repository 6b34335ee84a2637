// What the design check finds in the open job, kept up with its changes: the section that is worked
// on at once, all others a slice at a time, so that no key waits for thousands of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "output/design_check.h"
#include "project/changes.h"

namespace orvane {

// How much is open, for a line that counts it.
struct FindingCounts {
  int Faults = 0;  // sections that can't be made, and accessory lines
  int Advice = 0;  // findings of advice

  friend bool operator==(const FindingCounts&, const FindingCounts&) = default;
};

class JobFindings {
 public:
  // A change is over. Of one section it is looked at at once; otherwise all are due. True if
  // anything may be found otherwise than before.
  bool Follow(const ChangeNotice& change);
  // All sections are due: what they are looked at by has changed.
  void StartAfresh();
  // Something of that row, or with 0 of an accessory line, was accepted, or is open again: so it is
  // of all sections of its mark that are alike.
  void LookAgain(int row);

  // Looks at that many sections more, at the end at all beside one another. True when there is
  // nothing left to do.
  bool Step(int sections);
  // Does all that is left.
  void Finish();
  bool IsDone() const;
  // Every section has been looked at, and the counts are the job's.
  bool AreAllLookedAt() const { return next_ > static_cast<int>(sections_.size()); }

  // Of that row of Items, the open ones that can't be made first, those that are accepted last. One
  // that isn't looked at yet is looked at for it; what shows only beside the others is as it was
  // found last. Empty for a row that isn't there.
  std::vector<Finding> Of(int row);
  // Of all rows that have been looked at, in their order, accessory lines behind them.
  std::vector<Finding> All() const;
  FindingCounts Counts() const;

 private:
  // What one section shows by itself.
  struct Looked {
    std::vector<Finding> Findings;
    bool IsFault = false;  // one of them is open and can't be made
    int Advice = 0;        // that are open
  };

  const Looked& LookAt(int row);
  void LookAfresh(int row);

  std::vector<std::optional<Looked>> sections_;  // row by row, from row 1; none until looked at
  int next_ = 1;                                 // no row before it is due
  std::vector<Finding> across_;
  bool isAcrossDue_ = false;
};

// What stands in a line: "Check: 2 can't be made, 3 to consider".
std::string CountsLine(const FindingCounts& counts);

// What is open of those of one section, in a short line: "Can't be made: 18 mm hole reaches beyond
// the right-hand end, at 5995 mm (and 2 more)"; empty where nothing is.
std::string OpenLine(const std::vector<Finding>& findings);

}  // namespace orvane
