#include "holes/hole_list.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/desktop.h"
#include "holes/hole_coding.h"

namespace orvane {

namespace {

// The drawing never goes above 1:10.
constexpr double GreatestScale = 0.1;

bool IsCustom(const Hole& hole) {
  return hole.Kind == CustomKind;
}

// Moves the holes so that each row gets the one that stood at row from.At(row). Rows that change
// places form rings: each is walked once, its first hole held aside.
void MoveRows(Table<Hole>& holes, Table<int>& from) {
  for (int start = 1; start <= holes.UBound(); ++start) {
    if (from.At(start) == start) continue;
    Hole held = std::move(holes.At(start));
    int row = start;
    while (from.At(row) != start) {
      holes.At(row) = std::move(holes.At(from.At(row)));
      row = std::exchange(from.At(row), row);
    }
    holes.At(row) = std::move(held);
    from.At(row) = row;
  }
}

Table<std::string> GridRow(const Hole& hole) {
  Table<std::string> cells;
  cells.Reserve(9);
  cells.Append(ShortestText(hole.XPos));
  cells.Append(ShortestText(hole.RelX));
  cells.Append(hole.BF);
  cells.Append(hole.W1);
  cells.Append(hole.W2);
  cells.Append(hole.TF);
  cells.Append(ShortestText(hole.Diameter));
  cells.Append(hole.SlotLength > 0 ? ShortestText(hole.SlotLength) : std::string());
  cells.Append(hole.CounterSunk);
  return cells;
}

// `run` runs one step of the sequence.
template <class Run>
void RunSteps(Item& item, std::string_view patternName, const Run& run) {
  run([&] { RemoveStandardHoles(item); });
  run([&] { ExpandPattern(patternName, item); });
  run([&] { SortHoles(item); });
  run([&] { AdjustHoleSpacing(item); });
}

}  // namespace

void RemoveStandardHoles(std::int16_t ItemIndex) {
  RemoveStandardHoles(Items.At(ItemIndex));
}

void RemoveStandardHoles(Item& item) {
  Table<Hole>& holes = item.Holes;
  int kept = 0;
  for (int row = 1; row <= holes.UBound(); ++row) {
    if (!IsCustom(holes.At(row))) continue;
    ++kept;
    if (kept < row) holes.At(kept) = std::move(holes.At(row));
  }
  holes.Resize(kept);
  holes.At(0) = Hole{};
  item.CustomHoleCount = Int16(kept);
}

void SortHoles(std::int16_t ItemIndex) {
  SortHoles(Items.At(ItemIndex));
}

void SortHoles(Item& item) {
  Table<Hole>& holes = item.Holes;
  const auto before = [](const Hole& a, const Hole& b) { return a.XPos < b.XPos; };
  // Most lists come in order: a pattern's codes go from left to right.
  if (std::is_sorted(holes.begin(), holes.end(), before)) return;

  // Row numbers are sorted in place of the holes, so that each of the large records moves once. The
  // number decides between equal positions.
  Table<int> from;
  from.Resize(holes.UBound());
  std::iota(from.begin(), from.end(), 1);
  std::sort(from.begin(), from.end(), [&](int a, int b) {
    return std::pair(holes.At(a).XPos, a) < std::pair(holes.At(b).XPos, b);
  });
  MoveRows(holes, from);
}

void AdjustHoleSpacing(std::int16_t ItemIndex) {
  AdjustHoleSpacing(Items.At(ItemIndex));
}

void AdjustHoleSpacing(Item& item) {
  Table<Hole>& holes = item.Holes;
  const int last = holes.UBound();
  if (last == 0 || DrawingWidth == 0 || item.Length <= 0) return;

  const double length = item.Length;
  const double scale = std::min(DrawingWidth / length, GreatestScale);
  const double minGap = MinHoleSep / scale;  // the least separation on paper, in mm of the section

  // True gaps, the one to the right-hand end in row 0.
  double previous = 0;
  for (Hole& hole : holes) {
    hole.RelX = hole.XPos - previous;
    previous = hole.XPos;
  }
  holes.At(0).RelX = length - previous;
  holes.At(0).XPos = item.Length;

  // Short gaps are widened; all others, gaps of 0 and below among them, are to pay for it.
  double shortfall = 0;
  double pool = 0;
  int count = 0;
  for (int row = 0; row <= last; ++row) {
    Hole& hole = holes.At(row);
    const double gap = hole.RelX;
    if (gap > 0 && gap < minGap) {
      hole.DrawGap = minGap;
      shortfall = minGap + shortfall - gap;
    } else {
      hole.DrawGap = gap;
      pool += gap;
      ++count;
    }
  }
  if (!(shortfall > 0 && count > 0)) return;

  // Each pays in proportion. A gap that falls below minGap by this is not widened again: a
  // second pass would take from gaps that have paid already, and might never end. A widened gap is
  // known by its DrawGap differing from its RelX.
  for (int row = 0; row <= last; ++row) {
    Hole& hole = holes.At(row);
    if (hole.DrawGap == hole.RelX) hole.DrawGap = hole.RelX - Divide(shortfall * hole.RelX, pool);
  }
}

void RebuildHoles(std::int16_t ItemIndex, std::string_view PatternName) {
  RebuildHoles(Items.At(ItemIndex), PatternName);
}

void RebuildHoles(Item& item, std::string_view PatternName) {
  RunSteps(item, PatternName, [](const auto& step) { step(); });
}

void RebuildHoles(std::int16_t ItemIndex, std::string_view PatternName, const Teller& tell) {
  RunSteps(Items.At(ItemIndex), PatternName, [&tell](const auto& step) { Tell(step, tell); });
}

bool DeleteCustomHoleRow(std::int16_t ItemIndex, int CustomRow) {
  if (ItemIndex < 1 || CustomRow < 1) return false;
  Item& item = Items.At(ItemIndex);
  int customs = 0;
  int row = 0;
  while (customs < CustomRow) {
    if (++row > item.Holes.UBound()) return false;
    if (IsCustom(item.Holes.At(row))) ++customs;
  }
  item.Holes.Remove(row);
  item.CustomHoleCount = Int16(item.CustomHoleCount - 1);
  // Without holes there is no gap to the end either.
  if (item.Holes.Empty()) item.Holes.Clear();
  AdjustHoleSpacing(ItemIndex);
  return true;
}

void ConvertHolesToCustom(std::int16_t ItemIndex) {
  if (ItemIndex < 1) return;
  Item& item = Items.At(ItemIndex);
  for (Hole& hole : item.Holes) hole.Kind = CustomKind;
  item.CustomHoleCount = item.HoleCount();
}

Table<Table<std::string>> HoleGridRows(std::int16_t ItemIndex) {
  const Item& item = Items.At(ItemIndex);
  Table<Table<std::string>> rows;
  for (const Hole& hole : item.Holes) {
    if (IsCustom(hole)) rows.Append(GridRow(hole));
  }
  return rows;
}

}  // namespace orvane
