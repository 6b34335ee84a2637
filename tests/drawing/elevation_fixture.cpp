#include "tests/drawing/elevation_fixture.h"

#include <cmath>
#include <cstddef>
#include <string_view>

#include "core/numbers.h"
#include "drawing/primitives.h"

namespace orvane::test {

namespace {

class Scratch {
 public:
  explicit Scratch(double points) {
    surface.FontSize(points);
    surface.Forget();
  }
  std::string Text() const {
    std::string text;
    for (const std::string& line : surface.Lines()) text += line + "\n";
    return text;
  }

 private:
  PlainFontMetrics metrics_;

 public:
  RecordingSurface surface{metrics_};
};

std::string_view TakeToken(std::string_view& text) {
  const std::size_t end = text.find_first_of(" \n");
  const std::string_view token = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return token;
}

std::string_view WithoutUnit(std::string_view token) {
  if (token.size() > 2 && token.substr(token.size() - 2) == "mm") token.remove_suffix(2);
  return token;
}

}  // namespace

ElevationTest::ElevationTest() {
  Items.Append(Item());
  MakeSection("Z");
  surface.FontSize(7);
  surface.Forget();
}

void ElevationTest::MakeSection(const std::string& letter, std::int16_t length) {
  TheItem().SectionType = letter;
  TheItem().Length = length;
  dim = {};
  if (letter == "V") {
    dim.Dim3 = 100;
    dim.Dim4 = 60;
    dim.Dim9 = 35;
    dim.Dim10 = 27;
    dim.Dim11 = 38;
  } else if (letter == "R") {
    dim.Dim3 = 150;
    dim.Dim5 = 50;
    dim.Dim9 = 45;
    dim.Dim11 = 40;
  } else if (letter == "T") {
    dim.Dim3 = 60;
    dim.Dim4 = 50;
    dim.Dim5 = 80;
    dim.Dim7 = 20;
    dim.Dim8 = 25;
    dim.Dim9 = 30;
  } else {
    dim.Dim3 = 140;
    dim.Dim4 = 66;
    dim.Dim5 = 60;
    dim.Dim7 = 16;
    dim.Dim8 = 18;
    dim.Dim9 = 45;
    dim.Dim10 = 55;
    dim.Dim11 = 40;
  }
}

Sheet ElevationTest::TheSheet(PrintSurface& page) {
  source_ = PresentSource();
  Sheet sheet = SheetOf(page, source_, TheItem(), dim, TheItem().Length);
  if (LengthScale) sheet.LengthScale = *LengthScale;
  return sheet;
}

std::string ElevationTest::Taken() {
  std::string text = Recorded();
  surface.Forget();
  return text;
}

std::string ElevationTest::Centred(const std::string& text, double x, double y, double points) {
  Scratch scratch(points);
  DrawCentredText(scratch.surface, text, x, y);
  return scratch.Text();
}

std::string ElevationTest::Dimension(double x1, double y1, double x2, double y2,
                                     const std::string& value, double points) {
  Scratch scratch(points);
  DrawDimension(scratch.surface, x1, y1, x2, y2, value);
  return scratch.Text();
}

std::string ElevationTest::Dashed(double x1, double y1, double x2, double y2) {
  Scratch scratch(7);
  // Half a millimetre is 28 whole twips.
  DrawDashedLine(scratch.surface, x1 * 56.7, y1 * 56.7, x2 * 56.7, y2 * 56.7, 28);
  return scratch.Text();
}

Hole HoleOn(const std::string& BF, const std::string& W1, const std::string& W2,
            const std::string& TF, float diameter, float slotLength) {
  Hole hole;
  hole.Kind = "C";
  hole.BF = BF;
  hole.W1 = W1;
  hole.W2 = W2;
  hole.TF = TF;
  hole.Diameter = diameter;
  hole.SlotLength = slotLength;
  return hole;
}

Hole Placed(Hole hole, std::int16_t XPos, double RelX, double DrawGap) {
  hole.XPos = XPos;
  hole.RelX = RelX;
  hole.DrawGap = DrawGap;
  return hole;
}

void ExpectNear(const std::string& actual, const std::string& expected) {
  std::string_view actualLeft = actual;
  std::string_view expectedLeft = expected;
  while (!actualLeft.empty() && !expectedLeft.empty()) {
    const std::string_view one = TakeToken(actualLeft);
    const std::string_view other = TakeToken(expectedLeft);
    if (one == other) continue;
    const std::string_view oneNumber = WithoutUnit(one);
    const std::string_view otherNumber = WithoutUnit(other);
    const bool near = (one == oneNumber) == (other == otherNumber) && IsNumber(oneNumber) &&
                      IsNumber(otherNumber) &&
                      std::fabs(ParseDouble(oneNumber) - ParseDouble(otherNumber)) < 1e-6;
    if (!near) {
      EXPECT_EQ(actual, expected) << "differs at " << one << " against " << other;
      return;
    }
  }
  EXPECT_EQ(actualLeft, expectedLeft) << actual;
}

}  // namespace orvane::test
