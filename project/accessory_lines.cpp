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
