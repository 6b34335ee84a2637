// The printing commands: each builds a document on the preview's surface and shows it. An error
// that stops one has the section's mark or the accessory's name in front; what leaves a sheet going
// on is said once, before the preview, unless it was said before.
#pragma once

#include <cstdint>
#include <vector>

#include "drawing/page_surface.h"

namespace orvane {

// Makes a new surface what the commands print on: landscape, the present margins, the header's font
// of 10 and the footer's of 7 points, which share one setting.
void PreparePreview(PageSurface& surface);

// One section's sheet; the row is one of Items.
void PrintCurrentDrawing(std::int16_t ItemIndex);

// The sheets of several, in that order, in one document: as PrintAllDrawings draws them, with which
// it shares the rest, too. At least two, each once.
bool PrintDrawings(const std::vector<int>& rows);

// The sheets of all sections, their holes made afresh, or those placed by hand spaced afresh.
// Nothing for a project without sections. A run that the user calls off shows nothing and leaves
// the tables as they were. In a run of several sheets a picture that can't be read is a crossed
// box, told before the preview; false if there was any.
bool PrintAllDrawings();

// The sheets of all accessories in use; "Nothing to print" without any. CurrentAcc is left at the
// last one. A run that is called off shows nothing and changes nothing. "Subscript out of range"
// for a number off of a size that the catalogue hasn't got. Missing pictures as above.
bool PrintAllAccessorySheets();

// The contract summary, up to the end of its sections table; nothing for a project without
// sections. The document stays open for the report that is always printed behind it.
void PrintContractSummary();

// The accessory tables, the document's end, and the preview; the same error for such a number off.
void PrintAccessoryReport();

}  // namespace orvane
