// What every sheet begins with: its document, and the strip along the bottom of the page; and the
// footer that sheets and reports share.
#pragma once

#include <string>
#include <string_view>

#include "core/model.h"
#include "drawing/print_surface.h"
#include "drawing/sheet_source.h"

namespace orvane {

// Begins a document of sheets: landscape, with those margins.
void StartSheets(PrintSurface& surface, const PageMargins& margins);

// Where the strip begins, mm from the top of the page.
double StripTop(const PrintSurface& surface, const SheetSource& source);

// Margins with which the strip stands on A4 paper, above the contact line and below all that a
// sheet of the catalogue's products shows: from the least to the greatest, whole mm. Right and top
// margin don't move it.
struct StripMargins {
  int LeastLeft = 0;
  int GreatestLeft = 0;
  int LeastBottom = 0;
  int GreatestBottom = 0;
};
StripMargins FittingStripMargins(const SheetSource& source);

// Logo, headings, title and job table. The kind is a section letter; another one has no title.
void DrawSheetFrame(PrintSurface& surface, const SheetSource& source, std::string_view kind);
// The same for the sheet of an accessory, the kind "a": its name is the title.
void DrawSheetFrame(PrintSurface& surface, const SheetSource& source, const AccDef& accessory);

// The contact line, and the registered user where there is one.
void SetSheetFooter(PrintSurface& surface, const std::string& CompanyName,
                    const std::string& CompanyDetails);

// The margins, by default those of the settings; the footer stands 5 mm below the bottom margin's
// line.
void ApplyPageMargins(PrintSurface& surface, const PageMargins& margins = PresentMargins());

}  // namespace orvane
