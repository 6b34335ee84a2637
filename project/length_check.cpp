#include "project/length_check.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "core/desktop.h"
#include "core/model.h"

namespace orvane {

namespace {

// The position of the hole farthest from the left-hand end; none without holes.
std::optional<std::int16_t> LastHolePosition(const Item& item) {
  std::optional<std::int16_t> last;
  for (const Hole& hole : item.Holes) {
    last = std::max(last.value_or(hole.XPos), hole.XPos);
  }
  return last;
}

// The last row whose section ends before its last hole; 0 for none.
int RowShorterThanItsHoles() {
  int found = 0;
  for (int row = 1; row <= Items.UBound(); ++row) {
    const Item& item = Items.At(row);
    const std::optional<std::int16_t> last = LastHolePosition(item);
    if (last && *last > item.Length) found = row;
  }
  return found;
}

}  // namespace

bool CheckLength() {
  const int row = RowShorterThanItsHoles();
  if (row == 0) return true;
  const Item& item = Items.At(row);
  const std::string text = item.Mark + " : " + item.Product +
                           " Length shorter than last hole position " + "\r" + "Quit anyway?";
  return TheDesktop().ShowMessageBox(text, "Warning", Buttons::YesNo, Icon::None) != Answer::No;
}

}  // namespace orvane
