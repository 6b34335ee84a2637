// One accessory's sheet: its picture, and a table of what the project uses of it.
#pragma once

#include "core/model.h"
#include "drawing/print_surface.h"
#include "drawing/sheet_source.h"

namespace orvane {

enum class AccessoryType { One = 1, Two = 2 };

// Draws the sheet of an accessory with the rows of its dialog: for type 1 a row for
// each parameter with the number off in column 1, for type 2 a row for each line. `openDocument`
// starts a new document, `closeDocument` ends it. "File not found" for a picture that isn't there,
// "Division by zero" for one that leaves the table no row.
void DrawAccessorySheet(PrintSurface& surface, const SheetSource& source, const AccDef& accessory,
                        AccessoryType type, const TextRows& rows, bool openDocument,
                        bool closeDocument);
// The same from the present values of the system.
void DrawAccessorySheet(PrintSurface& surface, const AccDef& accessory, AccessoryType type,
                        const TextRows& rows, bool openDocument, bool closeDocument);

// Picture and table alone.
void DrawAccessoryDetail(PrintSurface& surface, const SheetSource& source, const AccDef& accessory,
                         AccessoryType type, const TextRows& rows);

}  // namespace orvane
