// Metafiles written record by record.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::test {

class MetafileWriter {
 public:
  // A record of that function; words from -32768 to 65535, and bytes behind them that are filled up
  // to whole words.
  MetafileWriter& Record(std::uint16_t function, const std::vector<int>& words,
                         std::string_view bytes = {});
  // TextOut: the text at that place.
  MetafileWriter& Text(std::string_view text, int x, int y);
  // CreateFontIndirect, then SelectObject of that slot.
  MetafileWriter& Font(int slot, int height, int angle, int weight, bool italic,
                       std::string_view name);

  // The whole file behind a placeable header of that box, in units of which so many make an inch.
  std::string Placeable(int left, int top, int right, int bottom, int unitsToTheInch) const;
  // The same 100 x 50 mm, a unit being 0.1 mm.
  std::string Placeable() const { return Placeable(0, 0, 1000, 500, 254); }
  // Without it.
  std::string Plain() const;

 private:
  std::string records_;
};

}  // namespace orvane::test
