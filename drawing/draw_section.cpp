#include "drawing/draw_section.h"

#include <algorithm>

#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/model.h"
#include "drawing/drawing_state.h"
#include "drawing/hole_drawing.h"
#include "drawing/section_views.h"
#include "drawing/sheet_frame.h"

namespace orvane {

void DrawSection(PrintSurface& surface, std::int16_t ItemIndex, bool openDocument,
                 bool closeDocument) {
  if (ItemIndex < 1) return;
  if (openDocument) StartSheets(surface);

  const Item& item = Items.At(ItemIndex);
  const SectionDim dim = GetSectionDim(item.Product);
  const double length = item.Length;
  DrawSheetFrame(surface, item.SectionType);
  DrawSectionViews(surface, ItemIndex, dim, length);
  DrawHoles(surface, ItemIndex, dim);

  if (closeDocument) {
    surface.EndDoc();
  } else {
    surface.NewPage();
  }
  TheDesktop().ProcessEvents();
}

bool PrepareDrawingWidth(const PrintSurface& surface) {
  // Sheets are landscape, whichever way the page stands before the first of them.
  const std::int16_t width = DrawingWidthOf(std::max(surface.PageWidth(), surface.PageHeight()));
  if (width == DrawingWidth) return false;
  DrawingWidth = width;
  return true;
}

}  // namespace orvane
