// Texts that are wider than their room.
#pragma once

#include "drawing/document.h"
#include "drawing/font_metrics.h"

namespace orvane {

// Gets a text into `room` mm along its own line, and returns how wide it is then, mm. One that fits
// stays as it is. A wider one is set narrower, down to 60 %, then smaller too, down to 60 %, on the
// baseline that it had, and only then cut, with an ellipsis for what is missing: cut without a sign
// a mark would read as another mark. Where not even that has room it stands alone, over the edge.
//
// The text's font, ascent and top left corner have to be there; the corner's X stays.
double FitText(TextShape& text, const FontMetrics& metrics, double room);

}  // namespace orvane
