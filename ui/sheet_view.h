// The drawing area of the main window: the fabrication sheet of one section.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "drawing/page_surface.h"
#include "drawing/sheet_places.h"
#include "project/changes.h"
#include "ui/controls/page_view.h"

namespace orvane {

// A thing of the section shown that a ring points at; a strong one, or a quiet one.
struct SheetPointer {
  SheetThing Thing;
  bool IsStrong = false;
};

// Bears the name VSPrinter1.
class SheetView : public PageView {
 public:
  explicit SheetView(QWidget* parent = nullptr);

  // Shows the sheet of that row of Items as it stands now; does nothing for row 0. When the page
  // gives the elevation another room than the one stored (none at the start of the program), the
  // gaps between the row's holes are worked out anew first. An error of the drawing is raised; the
  // view then keeps the sheet that it shows, if it is the same section's. One that leaves the sheet
  // going on is the look's that is under way. Behind a sheet that is shown pending events run.
  void DrawSection(int ItemIndex);
  // Shows nothing.
  void Clear();
  // Takes over the margins of the sheets, for the next sheet drawn, and works out DrawingWidth;
  // where it or MinHoleSep isn't what it was, all sections' gaps between holes too.
  void ApplyMargins();

  // Rings around these of the section shown, in the place of those before. Only the screen has
  // them.
  void PointAt(const std::vector<SheetPointer>& pointers);

  // Another sheet, or the same one afresh, or nothing is shown from now on.
  std::function<void()> Shown;

  // Where the elevation with the marks and dimensions of its holes lies on the screen, as far as it
  // is in sight; empty without a sheet.
  QRect ElevationPlace() const;
  // The row of Items whose sheet is shown; 0 for none.
  int ShownRow() const { return shownRow_; }
  // How often a sheet was asked for, for whoever measures or tests it.
  int DrawCount() const { return drawCount_; }

 private:
  // Draws what a change has made different.
  void Follow(const ChangeNotice& change);
  // Readers of the screen hear what is shown.
  void Tell();

  // The sheet shown, and one to draw the next sheet on: they change places, so that an error leaves
  // the former alone and no memory is taken at a key stroke.
  std::unique_ptr<PageSurface> shown_;
  std::unique_ptr<PageSurface> spare_;
  double separation_ = 0;    // MinHoleSep that the gaps were worked out with
  bool spacedAnew_ = false;  // all holes, for another room or separation, since the job was begun
  int shownRow_ = 0;
  int drawCount_ = 0;
  const ChangeFollower follower_{[this](const ChangeNotice& change) { Follow(change); }};
};

}  // namespace orvane
