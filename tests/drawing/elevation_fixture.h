// What the tests of holes, notches and mitres share.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/model.h"
#include "drawing/sheet.h"
#include "tests/drawing/sheet_fixture.h"

namespace orvane::test {

// One section, row 1 of Items, whose sheet has ElevationLeft 55 mm and, up to 2280 mm of length,
// LengthScale 0.1, so that a length along it of 1000 mm stands at 155 mm on the page.
class ElevationTest : public SheetTest {
 protected:
  ElevationTest();

  Item& TheItem() { return Items.At(1); }
  // Gives the section a family, with the dimensions below, and a length.
  void MakeSection(const std::string& letter, std::int16_t length = 2000);

  // Z, C and E: a web of 140, gauges 45, 55, 40, flanges 66 and 60, lips 16 and 18.
  // V: a web of 100 that lies flat, 60 wide, gauges 35, 27, 38.
  // R: 150 deep, gauges 45 from the top, 40 from the bottom.
  // T: a crown of 60, sides that reach 50 (80 in the column that other families have the bottom
  // flange in), lips 20 and 25, gauge 30.
  SectionDim dim;

  // The sheet of the section as it and the margins now stand, on the fixture's surface or another.
  Sheet TheSheet() { return TheSheet(surface); }
  Sheet TheSheet(PrintSurface& page);
  std::optional<double> LengthScale;  // of the sheets, in the place of what is worked out

  // What the surface was asked for since the last look.
  std::string Taken();

  // The lines that the primitives record for these arguments, mm.
  static std::string Centred(const std::string& text, double x, double y, double points = 7);
  static std::string Dimension(double x1, double y1, double x2, double y2, const std::string& value,
                               double points = 7);
  static std::string Dashed(double x1, double y1, double x2, double y2);

 private:
  SheetSource source_;
};

// "n" lines but for the given ones; a hole of 18 mm.
Hole HoleOn(const std::string& BF, const std::string& W1, const std::string& W2,
            const std::string& TF, float diameter = 18, float slotLength = 0);

// The same at a place: its position, its true gap and its drawn one.
Hole Placed(Hole hole, std::int16_t XPos, double RelX, double DrawGap);

// Two recordings that differ in no more than the noise of floats: numbers in them, lengths
// included, to a millionth.
void ExpectNear(const std::string& actual, const std::string& expected);

}  // namespace orvane::test
