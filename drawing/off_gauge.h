// Holes off the standard gauges: their letters, the key section and the table of positions.
#pragma once

#include <cstdint>
#include <string>

#include "core/model.h"
#include "core/table.h"
#include "drawing/off_gauge_place.h"
#include "drawing/sheet.h"

namespace orvane {

// One position with off-gauge holes.
struct OffGaugeHole {
  std::int16_t XPos = 0;  // mm
  double DrawX = 0;       // where it is drawn, mm of the section
  double Bottom = 0;      // distances on the flanges and the web, mm; 0 for none
  double Top = 0;
  double Web1 = 0;
  double Web2 = 0;
};

// Adds the hole to the last row, or to a new one for a new position.
void AddOffGauge(Table<OffGaugeHole>& list, const Hole& hole, double drawX);

// The letter of a row of the list; empty beyond "Z".
std::string OffGaugeLetter(int row);

// The small cross-section whose letters the table uses; nothing for a family without one.
void DrawOffGaugeKey(const Sheet& sheet);
// A column for each row of the list; nothing for an empty one.
void DrawOffGaugeTable(const Sheet& sheet, const Table<OffGaugeHole>& list);

}  // namespace orvane
