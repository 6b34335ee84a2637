// Windows metafile pictures, placeable and plain, read into shapes.
#pragma once

#include <string_view>

#include "drawing/document.h"

namespace orvane {

// The picture in the bytes of a metafile. Records that don't draw are passed over; where nothing is
// left of what they should have shown (a picture made of bitmaps alone), that raises a
// RuntimeError. So do bytes that are no metafile, or that end inside a record; nothing in them is
// trusted.
Picture ReadMetafile(std::string_view bytes);

}  // namespace orvane
