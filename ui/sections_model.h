// What the sections grid shows: the rows of Items as they stand, under the texts being typed.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ui/controls/flex_grid.h"

namespace orvane {

// Nothing is copied out of Items, so that many sections cost nothing. A typed text that its record
// shows otherwise, such as an emptied length, stands above the record until the grid is filled
// anew.
class SectionsModel : public FlexGridModel {
 public:
  explicit SectionsModel(QObject* parent);

  // The columns' widths in proportion to each other.
  static std::vector<int> WidthShares();

  std::string CellText(int row, int column) const override;
  int DataRows() const override { return rows_; }

  // The cell shows this typed text.
  void SetTyped(int row, int column, const std::string& text);
  // The cell shows its record again, which has changed.
  void ShowRecord(int row, int column);

  // Follows rows appended to Items, and shows them.
  void FollowAppended();
  // Shows Items afresh.
  void Refill();

 private:
  std::map<std::pair<int, int>, std::string> typed_;
  int rows_ = 0;
};

}  // namespace orvane
