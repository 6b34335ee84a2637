// Which rows of an earlier and of a later table are the same thing, for who compares two jobs: one
// rule for sections, accessory lines, holes and notches.
#pragma once

#include <string>
#include <vector>

namespace orvane {

// A row with what it is known by, a mark or a place, and all else that it holds.
struct PairEntry {
  int Row = 0;
  std::string Key;
  std::string Content;
};

// What became of a row.
enum class Paired {
  Changed,  // its key is the same, its content isn't
  Renamed,  // its content is the same, its key isn't
  Added,
  Removed
};

// Rows of the earlier and of the later table; 0 where there is none.
struct RowPair {
  Paired What = Paired::Changed;
  int Before = 0;
  int After = 0;

  friend bool operator==(const RowPair&, const RowPair&) = default;
};

// The rows that differ, in the order of the later table; those that have gone stand behind, in the
// order of the earlier one. Rows that are alike in key and content are one, wherever they stand:
// order is no difference. Of those left, rows of equal keys are one in their order, then rows of
// equal content.
std::vector<RowPair> PairsOf(std::vector<PairEntry> before, std::vector<PairEntry> after);

}  // namespace orvane
