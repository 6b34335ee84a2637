#include "drawing/draw_section.h"

#include <algorithm>

#include "core/catalogues.h"
#include "drawing/hole_drawing.h"
#include "drawing/section_views.h"
#include "drawing/sheet.h"
#include "drawing/sheet_frame.h"

namespace orvane {

namespace {

// Who draws a sheet: only a row of the table leaves its room behind for the hole engine.
enum class Room { Kept, Left };

void DrawPage(PrintSurface& surface, const SheetSource& source, const Item& section,
              bool closeDocument, Room room) {
  const SectionDim dim = GetSectionDim(section.Product);
  DrawSheetFrame(surface, source, section.SectionType);
  Sheet sheet = SheetOf(surface, source, section, dim, section.Length);
  if (room == Room::Left && HasViews(sheet)) DrawingWidth = sheet.DrawingWidth;
  DrawSectionViews(sheet);
  DrawHoles(sheet);

  if (closeDocument) {
    surface.EndDoc();
  } else {
    surface.NewPage();
  }
}

}  // namespace

void DrawSection(PrintSurface& surface, std::int16_t ItemIndex, bool openDocument,
                 bool closeDocument, const Teller& tell) {
  if (ItemIndex < 1) return;
  SheetSource source = PresentSource();
  source.Tell = tell;
  if (openDocument) StartSheets(surface, source.Margins);
  DrawPage(surface, source, Items.At(ItemIndex), closeDocument, Room::Left);
}

void DrawSection(PrintSurface& surface, const SheetSource& source, const Item& section,
                 bool openDocument, bool closeDocument) {
  if (openDocument) StartSheets(surface, source.Margins);
  DrawPage(surface, source, section, closeDocument, Room::Kept);
}

bool PrepareDrawingWidth(const PrintSurface& surface) {
  // Sheets are landscape, whichever way the page stands before the first of them.
  const double width = std::max(surface.PageWidth(), surface.PageHeight());
  const std::int16_t room = DrawingWidthOf(width, PresentMargins());
  if (room == DrawingWidth) return false;
  DrawingWidth = room;
  return true;
}

}  // namespace orvane
