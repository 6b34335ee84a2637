// What every sheet begins with: its document, and the strip along the bottom of the page; and the
// footer that sheets and reports share.
#pragma once

#include <string_view>

#include "drawing/print_surface.h"

namespace orvane {

// Begins a document of sheets: landscape, with the margins of the settings.
void StartSheets(PrintSurface& surface);

// Where the strip begins, mm from the top of the page.
double StripTop(const PrintSurface& surface);

// Logo, headings, title and job table. The kind is a section letter, or "a" for the sheet of the
// accessory CurrentAcc; another kind has no title.
void DrawSheetFrame(PrintSurface& surface, std::string_view kind);

// The contact line, and the registered user where there is one.
void SetSheetFooter(PrintSurface& surface);

// The margins of the settings; the footer stands 5 mm below the bottom margin's line.
void ApplyPageMargins(PrintSurface& surface);

}  // namespace orvane
