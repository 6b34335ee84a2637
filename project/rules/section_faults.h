// Which cells of the sections bear the sign of a fault, and why: a refusal is told once, in a box,
// and the value can stay; the sign stays with it. A section that is being entered is only on its
// way: it has none before its row is left. What a key stroke costs here doesn't grow with the
// number of sections. Rows are rows of Items.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace orvane {

class SectionFaults {
 public:
  // Where signs may have come or gone, or have another reason.
  struct Moved {
    bool Own = false;     // on the row itself
    bool Others = false;  // on the marks of other rows
  };

  // Looks at all sections afresh, none of which is being entered: after a project was opened, or
  // rows have changed their places.
  void Refill();
  // The cursor is on that row now, 0 for none; the row that it was on before has been left. A row
  // behind the last one known is new: it has no sign until it is left.
  Moved Enter(int row);
  // The section holds another value.
  Moved Changed(int row);
  // The reason for the sign of a cell; none for a cell without one.
  std::optional<std::string> Of(int row, int column) const;

 private:
  std::optional<std::string> Fault(int row, int column) const;
  std::string& CountedMark(int row);
  bool Count(int row);
  bool Withdraw(int row);

  std::vector<std::string> marks_;                // of each row as it was left, trimmed
  std::unordered_map<std::string, int> bearers_;  // rows that were left with that mark
  int entered_ = 0;                               // row that the cursor is on, 0 for none
  std::vector<bool> signs_;  // of that row, by column: had one on arrival, not mended yet
};

}  // namespace orvane
