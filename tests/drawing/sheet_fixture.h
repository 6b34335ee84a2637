// What the tests of the sheets share.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/model.h"
#include "drawing/recording_surface.h"
#include "tests/support/fixture.h"

namespace orvane::test {

// A recording surface on A4 landscape (16840 x 11907 twips) with margins of 10 mm, so that
// ElevationLeft is 55 mm and DrawingWidth whole(16840 / 56.7 - 55 - 10 - 4) = 228 mm.
class SheetTest : public SystemTest {
 protected:
  SheetTest();
  ~SheetTest() override;

  // Gives the sheets a logo of that size, mm, in the place of the program's own.
  static void SetLogo(double width, double height);

  PlainFontMetrics metrics;
  RecordingSurface surface{metrics};

  // The recorded lines behind the first `from` of them, joined by line ends.
  std::string Recorded(std::size_t from = 0) const;
  // The recorded lines that begin with that operation.
  std::vector<std::string> LinesOf(const std::string& operation) const;

 private:
  std::shared_ptr<const Picture> logo_;
};

}  // namespace orvane::test
