// The fitting of holes to a page: gaps between holes are drawn at least MinHoleSep apart on paper,
// so they depend on the room for the elevation, and a page with another room makes them stale.
#pragma once

#include <cstdint>

#include "core/model.h"
#include "drawing/print_surface.h"

namespace orvane {

// The room on the pages of a surface, settled in DrawingWidth for the time of a drawing. Who makes
// one spaces the holes that it draws (AdjustHoleSpacing) if the room is new, and keeps it once that
// is done. A new room that isn't kept, because an error or the user ended it, is put back: the next
// drawing then finds it new again and spaces what this one left.
class PageRoom {
 public:
  explicit PageRoom(const PrintSurface& surface);
  ~PageRoom();
  PageRoom(const PageRoom&) = delete;
  PageRoom& operator=(const PageRoom&) = delete;

  // The room is another than before, so that all gaps that were worked out are stale.
  bool IsNew() const { return new_; }
  void Keep() { kept_ = true; }

 private:
  std::int16_t former_;
  bool new_;
  bool kept_ = false;
};

// Makes the holes of a section's pattern afresh, or works out the gaps of those placed by hand, as
// a sheet shows them in the room and with the separation that hold now, whatever they were when its
// job was saved. Raises the errors of the hole engine.
void MakeHolesAfresh(Item& section);

// Works out the gaps of that row of Items for the pages of the surface, where their room is new.
// Gaps that can't be worked out raise the error of AdjustHoleSpacing and leave the former room.
void FitHolesToPage(const PrintSurface& surface, std::int16_t ItemIndex);

// The same for all rows, whatever the room was, when `always` is set (another MinHoleSep,
// a job just opened). A
// row whose gaps can't be worked out keeps its former ones: that is told when it is looked at.
void FitAllHolesToPage(const PrintSurface& surface, bool always);

}  // namespace orvane
