#include "output/page_room.h"

#include "core/model.h"
#include "core/numbers.h"
#include "core/runtime_error.h"
#include "drawing/draw_section.h"
#include "holes/hole_list.h"

namespace orvane {

PageRoom::PageRoom(const PrintSurface& surface)
    : former_(DrawingWidth), new_(PrepareDrawingWidth(surface)) {}

PageRoom::~PageRoom() {
  if (new_ && !kept_) DrawingWidth = former_;
}

void MakeHolesAfresh(Item& section) {
  if (section.PatternName == CustomPattern) {
    AdjustHoleSpacing(section);
  } else {
    RebuildHoles(section, section.PatternName);
  }
}

void FitHolesToPage(const PrintSurface& surface, std::int16_t ItemIndex) {
  PageRoom room(surface);
  if (room.IsNew()) AdjustHoleSpacing(ItemIndex);
  room.Keep();
}

void FitAllHolesToPage(const PrintSurface& surface, bool always) {
  PageRoom room(surface);
  room.Keep();
  if (!room.IsNew() && !always) return;
  for (int row = 1; row <= Items.UBound(); ++row) {
    try {
      AdjustHoleSpacing(Int16(row));
    } catch (const RuntimeError&) {
      continue;
    }
  }
}

}  // namespace orvane
