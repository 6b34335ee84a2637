// Windows metafile pictures, placeable and plain, read into shapes.
#pragma once

#include <string_view>

#include "drawing/document.h"

namespace orvane {

// The picture in the bytes of a metafile. Records that don't draw are passed over. Bytes that are
// no metafile, or that end inside a record, raise a RuntimeError; nothing in them is trusted.
Picture ReadMetafile(std::string_view bytes);

}  // namespace orvane
