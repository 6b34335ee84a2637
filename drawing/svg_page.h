// A page as an SVG picture in true millimetres.
#pragma once

#include <string>
#include <string_view>

#include "drawing/document.h"

namespace orvane {

// The whole text of the file, UTF-8. A unit of it is a millimetre of the paper, and text stays
// text: in Arial where the shapes say so, or in what has its metrics. The metrics are those that
// the page was laid out by. Characters that no XML may hold are left out.
std::string SvgOfPage(const Page& page, std::string_view title, const FontMetrics& metrics);

}  // namespace orvane
