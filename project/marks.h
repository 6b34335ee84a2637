// Marks of sections, as detailers number them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvane {

// The mark behind this one, as it is counted by hand: the last group of digits goes up by one and
// keeps its width ("P09" gives "P10", "P99" gives "P100"), whatever stands behind it ("P1-A" gives
// "P2-A"). Without digits it is the last letters that do, as spreadsheets name columns ("EB-A"
// gives "EB-B", "EB-Z" gives "EB-AA"); of capitals they become capitals. A mark with neither, as an
// empty one, has no next, and gives an empty text. Letters beyond A to Z aren't counted with.
std::string MarkBehind(std::string_view mark);

// The first mark behind this one that is free; empty where none can be counted up.
std::string NextFreeMark(std::string_view mark,
                         const std::function<bool(const std::string& mark)>& isFree);

}  // namespace orvane
