// Where a thing of a section lies on its sheet, for whoever points at it on the screen. It stands
// on what draws it, and draws nothing itself.
#pragma once

#include <optional>
#include <string_view>

#include "core/model.h"
#include "drawing/print_surface.h"
#include "drawing/sheet.h"

namespace orvane {

// What is pointed at: a row of the section's holes, and of that row one line ("BF", "W1", "W2",
// "TF") or all; or a row of its notches; or a stretch of its length.
struct SheetThing {
  int Hole = 0;                // 0 for none
  std::string_view Line = {};  // empty for all
  int Notch = 0;               // 0 for none
  double From = 0;             // mm from the left-hand end, where there is neither
  double To = 0;
};

// Its rectangle on that sheet: of a hole where it is drawn, which widened gaps can shift; of a
// stretch over the whole height of the elevation, a little beyond an end where it lies there.
// Nothing for a section without views and for a thing that isn't drawn.
std::optional<PagePlace> PlaceOnSheet(const Sheet& sheet, const SheetThing& thing);
// The same on the sheet of that section, as a surface with that page and those margins shows it.
// "Overflow" where margins leave a room beyond 16 bits.
std::optional<PagePlace> PlaceOnSheet(PrintSurface& surface, const PageMargins& margins,
                                      const Item& section, const SheetThing& thing);

}  // namespace orvane
