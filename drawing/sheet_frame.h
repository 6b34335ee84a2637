// The strip along the bottom of every sheet, and the footer that sheets and reports share.
#pragma once

#include <string_view>

#include "drawing/print_surface.h"

namespace orvane {

// Logo, headings, title and job table. The kind is a section letter, or "a" for the sheet of the
// accessory CurrentAcc; another kind has no title.
void DrawSheetFrame(PrintSurface& surface, std::string_view kind);

// The contact line, and the registered user where there is one.
void SetSheetFooter(PrintSurface& surface);

// The margins of the settings; the footer stands 5 mm below the bottom margin's line.
void ApplyPageMargins(PrintSurface& surface);

}  // namespace orvane
