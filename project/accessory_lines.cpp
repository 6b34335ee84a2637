#include "project/accessory_lines.h"

#include <algorithm>
#include <tuple>

namespace orvane {

namespace {

template <class Line>
void RemoveLinesOf(std::int16_t accIndex, Table<Line>& lines) {
  const auto end = std::remove_if(lines.begin(), lines.end(),
                                  [&](const Line& line) { return line.AccIndex == accIndex; });
  lines.Resize(static_cast<int>(end - lines.begin()));
}

template <class Line, class Field>
void SortLinesBy(Field Line::*second, Table<Line>& lines) {
  std::stable_sort(lines.begin(), lines.end(), [second](const Line& a, const Line& b) {
    return std::tie(a.AccIndex, a.*second) < std::tie(b.AccIndex, b.*second);
  });
}

}  // namespace

std::vector<std::int16_t> AccessoriesInUse() {
  std::vector<std::int16_t> rows;
  // A job may have more flags than there are accessories.
  for (int row = 1; row <= std::min(AccUsed.UBound(), AccDefs.UBound()); ++row) {
    if (AccUsed.At(row) != False) rows.push_back(Int16(row));
  }
  return rows;
}

bool IsBeyondCatalogue(const AccLine1& line) {
  return line.AccIndex != 0 && (line.AccIndex < 1 || line.AccIndex > AccType1Count);
}

bool IsBeyondCatalogue(const AccLine2& line) {
  return line.AccIndex != 0 &&
         (line.AccIndex <= AccType1Count || line.AccIndex > AccType1Count + AccType2Count);
}

void ClearAccLines(std::int16_t Type, std::int16_t AccIndex) {
  if (Type == 1) RemoveLinesOf(AccIndex, AccLines1);
  if (Type == 2) RemoveLinesOf(AccIndex, AccLines2);
  AccUsed.At(AccIndex) = False;
}

void SortAccLines(std::int16_t Type) {
  if (Type == 1) SortLinesBy(&AccLine1::ParamIndex, AccLines1);
  if (Type == 2) SortLinesBy(&AccLine2::Mark, AccLines2);
}

}  // namespace orvane
