// The hidden holder of the pictures that sheets show.
#pragma once

#include <memory>
#include <string_view>

#include "drawing/document.h"

namespace orvane {

// The logo and the accessory or detail picture loaded last; made at the first use.
struct Drawings {
  std::shared_ptr<const Picture> imgLogo;
  std::shared_ptr<const Picture> imgAcc;
};

// The holder; the logo is in it from the first use on.
Drawings& frmDrawings();

// Loads a metafile by its backslash-led path under the program's folder, such as
// "\drawings\drg015.wmf", into imgAcc and gives it back. "File not found: " and the path for a
// missing one, its own description for one that can't be read, and for a path that would leave the
// program's folder.
std::shared_ptr<const Picture> LoadDrawing(std::string_view suffix);

// The same without the holder, which belongs to the thread of the windows: for sheets drawn beside
// it.
std::shared_ptr<const Picture> ReadDrawing(std::string_view suffix);

// What stands in the place of a picture that can't be read: a crossed box with the name of its
// file, the last part of that path.
std::shared_ptr<const Picture> CrossedBox(std::string_view suffix);

}  // namespace orvane
