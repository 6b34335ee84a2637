// Breaking a text into lines, for tables and flowing text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drawing/font_metrics.h"

namespace orvane {

// The text as one line: a line end in it becomes a blank.
std::string OneLine(std::string_view text);

// Size of the text in that font, whole twips.
double TextTwips(const FontMetrics& metrics, const Font& font, std::string_view text);
double LineTwips(const FontMetrics& metrics, const Font& font);

// Adds the text in lines no wider than `room` twips, broken at blanks, which then vanish. A word
// that is wider than the room by itself is a line of its own, whole: it is for whoever places it to
// get it in. One empty line for an empty text. The lines are parts of `text`, which must stay.
void AddWrappedLines(std::vector<std::string_view>& lines, const FontMetrics& metrics,
                     const Font& font, std::string_view text, double room);

}  // namespace orvane
