// The pictures of the hole dialog's buttons: a family's cross-section with the holes of a set of
// lines on it.
#pragma once

#include <string_view>

#include "ui/controls/picture_radio.h"

namespace orvane {

// The picture of a hole code (HoleLines, OffGaugeCode) for sections of that letter: a mark for each
// line that has a hole, an open ring for the hole off gauge. Empty for a text that is no family's
// letter.
RadioPicture HolePicture(std::string_view letter, int code);

}  // namespace orvane
