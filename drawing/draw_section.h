// One section's fabrication sheet.
#pragma once

#include <cstdint>

#include "core/model.h"
#include "drawing/print_surface.h"
#include "drawing/sheet_source.h"

namespace orvane {

// Draws the sheet of a row of Items; nothing for a row below 1. `openDocument` starts a new
// document, `closeDocument` ends it; a sheet of a longer document has neither or one. Leaves the
// room for the elevation in DrawingWidth, where the hole engine reads it. Lets no events run: who
// keeps a window alive does that behind each sheet. `tell` takes the errors that leave the sheet
// going on.
void DrawSection(PrintSurface& surface, std::int16_t ItemIndex, bool openDocument,
                 bool closeDocument, const Teller& tell = TellInMessageBox);

// The same sheet of any section, in the table or not, from what the source holds. Reads the
// catalogue beside it, changes no value of the system, and may run on any thread as long as the
// source does what it says there.
void DrawSection(PrintSurface& surface, const SheetSource& source, const Item& section,
                 bool openDocument, bool closeDocument);

// Sets DrawingWidth to the room on a landscape page of that surface with the present margins; true
// if that changed it, so that gaps between holes that were worked out before (AdjustHoleSpacing)
// have to be worked out anew. Called before holes are made or drawn for a screen, a run or a batch,
// so that the very first sheet has its gaps.
bool PrepareDrawingWidth(const PrintSurface& surface);

}  // namespace orvane
