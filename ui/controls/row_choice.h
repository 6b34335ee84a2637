// Which rows of a grid are chosen. A choice is made around one row, the current one, which belongs
// to it as long as there is a choice: a stretch of rows begins there and is drawn out to another
// row, above or below, and further rows may have been chosen before it. Rows count from 1.
#pragma once

#include <vector>

namespace orvane {

class RowChoice {
 public:
  bool Empty() const { return at_ == 0; }
  int Count() const { return static_cast<int>(Rows().size()); }
  bool Has(int row) const;
  // In ascending order, each once.
  std::vector<int> Rows() const;
  // The row that the choice is made around, 0 without one; and the other end of its stretch.
  int At() const { return at_; }
  int End() const { return end_; }

  // That row alone.
  void Begin(int row);
  // Rows 1 to `last`, around one of them.
  void All(int last, int at);
  // The stretch reaches to that row; rows chosen beside it go, or stay.
  enum class Others { Go, Stay };
  void StretchTo(int row, Others others = Others::Go);
  // A further row, around which the choice is made from now on.
  void Add(int row);
  // The row isn't chosen any more. If the choice was made around it, it is made around the next one
  // below, or above where there is none; without any row left the choice is empty.
  void Remove(int row);

 private:
  std::vector<int> others_;  // beside the stretch, ascending; some may lie in it
  int at_ = 0;               // 0 for no choice
  int end_ = 0;
};

}  // namespace orvane
