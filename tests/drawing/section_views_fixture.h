// What the tests of the two views share.
#pragma once

#include <string>
#include <vector>

#include "core/model.h"
#include "drawing/sheet.h"
#include "tests/drawing/sheet_fixture.h"
#include "tests/drawing/sheet_lines.h"

namespace orvane::test {

// The dimensions that sheets draw, mm.
struct Dims {
  double Dim3 = 0, Dim4 = 0, Dim5 = 0, Dim7 = 0, Dim8 = 0, Dim9 = 0, Dim10 = 0, Dim11 = 0;
};
SectionDim ProductOf(const std::string& type, const std::string& name, const Dims& dims);
// The product of most sections here: 200 deep, flanges of 65 and 60, lips of 16 and 18.
SectionDim Z20016();

Item SectionOf(const std::string& mark, const std::string& type, int length, int quantity = 1);
Item EavesBeamOf(const std::string& mark, int length, const std::string& pitch);

class SectionViewsTest : public SheetTest {
 protected:
  // The sheet of row 1 of Items as the margins now stand, on the fixture's surface or another.
  Sheet TheSheet(const SectionDim& dim, double length) { return TheSheet(surface, dim, length); }
  Sheet TheSheet(PrintSurface& page, const SectionDim& dim, double length);
  // Draws the views of row 1.
  void DrawViews(const SectionDim& dim, double length);

  // Draws the item's views and gives what was recorded before the notches and mitres; fails the
  // test if those are not what it ends with.
  std::vector<std::string> Views(const Item& item, const SectionDim& dim);

  // The three lines of the text block that every section has, with the fonts around them.
  static SheetLines TextBlock(const std::string& mark, const std::string& quantity,
                              const std::string& product);

 private:
  SheetSource source_;
};

}  // namespace orvane::test
