// What the tests of laid-out pages share.
#pragma once

#include <string>
#include <vector>

#include "drawing/page_surface.h"
#include "drawing/recording_surface.h"
#include "tests/support/fixture.h"

namespace orvane::test {

// A shape in one line, millimetres to three decimals:
//   line x1 y1 x2 y2 pen width
//   rectangle | ellipse left top width height pen width [fill]
//   arc left top width height from start span degrees pen width [fill]
//   polygon x,y x,y ... pen width [fill]
//   text "..." x y size [bold] [font name] [colour] [narrowed scale] [angle degrees]
//       [clip left top width height]
//   picture left top width height
// Colours are named where they aren't black; a fill is "fill r,g,b".
std::string Described(const Shape& shape);

// A surface on A4 landscape with margins of 10 mm, and characters that can be counted.
class PageTest : public SystemTest {
 protected:
  PlainFontMetrics metrics;
  PageSurface surface{metrics};

  // The shapes of a page, counted from 1, a line each.
  std::vector<std::string> ShapesOf(std::size_t page) const;
  // The same for those that begin with that word.
  std::vector<std::string> ShapesOf(std::size_t page, const std::string& kind) const;
  // The texts of a page alone.
  std::vector<std::string> TextsOf(std::size_t page) const;
  std::size_t PageCount() const { return surface.Result().Pages.size(); }
};

using Lines = std::vector<std::string>;

}  // namespace orvane::test
