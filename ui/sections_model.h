// What the sections grid shows: the rows of Items as they stand, under the texts being typed.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "project/rules/section_faults.h"
#include "ui/controls/flex_grid.h"

namespace orvane {

// The characters of a column's numbers, kept by row, so that the longest is known without a look at
// all of them. 16 bits give no more than six.
class FigureLengths {
 public:
  void Clear();
  // Rows count from 1; one behind the last is appended.
  void Set(int row, std::size_t length);
  int Longest() const;

 private:
  std::vector<std::size_t> lengths_;
  std::array<int, 7> rows_{};  // that have a number of so many characters
};

// Nothing is copied out of Items, so that many sections cost nothing. A typed text that its record
// shows otherwise, such as an emptied length, stands above the record until the grid is filled
// anew.
class SectionsModel : public FlexGridModel {
 public:
  explicit SectionsModel(QObject* parent);

  // The columns' widths in proportion to each other.
  static std::vector<int> WidthShares();
  // The digits that they have room for at least.
  static std::vector<int> LeastFigures();

  std::string CellText(int row, int column) const override;
  int DataRows() const override { return rows_; }
  int LongestFigure(int column) const override;
  std::string FaultOf(int row, int column) const override;

  // The cell shows this typed text.
  void SetTyped(int row, int column, const std::string& text);
  // The cell shows its record again, which has changed.
  void ShowRecord(int row, int column);

  // A value of that row is another.
  void FollowRow(int row);
  // The cursor is on that row now, 0 for none.
  void EnterRow(int row);
  // The rule for lengths is another.
  void FollowLimits();
  // Follows rows appended to Items, and shows them.
  void FollowAppended();
  // Shows Items afresh.
  void Refill();

 private:
  void FollowFigures(int row);
  void ColumnChanged(int column);

  std::map<std::pair<int, int>, std::string> typed_;
  std::map<int, FigureLengths> figures_;  // of the columns that hold numbers
  SectionFaults faults_;
  int rows_ = 0;
};

}  // namespace orvane
