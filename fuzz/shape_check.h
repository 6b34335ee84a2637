// What the fuzz targets demand of the shapes that a drawing or a picture has become.
#pragma once

#include <vector>

#include "drawing/document.h"

namespace orvane::fuzz {

// Ends the run for a shape that no device could paint: a length that is no number, a size below 0,
// a text or polygon of nothing, a picture within a picture.
void CheckPicture(const Picture& picture);

// The same for a page, which may show pictures.
void CheckPage(const Page& page);

}  // namespace orvane::fuzz
