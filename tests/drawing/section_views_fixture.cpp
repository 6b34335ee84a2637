#include "tests/drawing/section_views_fixture.h"

#include "core/numbers.h"
#include "drawing/notches_and_mitres.h"
#include "drawing/section_views.h"

namespace orvane::test {

SectionDim ProductOf(const std::string& type, const std::string& name, const Dims& dims) {
  SectionDim dim;
  dim.SectionType = type;
  dim.Product = name;
  dim.Dim3 = dims.Dim3;
  dim.Dim4 = dims.Dim4;
  dim.Dim5 = dims.Dim5;
  dim.Dim7 = dims.Dim7;
  dim.Dim8 = dims.Dim8;
  dim.Dim9 = dims.Dim9;
  dim.Dim10 = dims.Dim10;
  dim.Dim11 = dims.Dim11;
  return dim;
}

SectionDim Z20016() {
  return ProductOf("Z", "Z20016",
                   {.Dim3 = 200,
                    .Dim4 = 65,
                    .Dim5 = 60,
                    .Dim7 = 16,
                    .Dim8 = 18,
                    .Dim9 = 40,
                    .Dim10 = 120,
                    .Dim11 = 40});
}

Item SectionOf(const std::string& mark, const std::string& type, int length, int quantity) {
  Item item;
  item.Mark = mark;
  item.SectionType = type;
  item.Length = Int16(length);
  item.Quantity = Int16(quantity);
  return item;
}

Item EavesBeamOf(const std::string& mark, int length, const std::string& pitch) {
  Item item = SectionOf(mark, "E", length);
  item.Pitch = pitch;
  return item;
}

Sheet SectionViewsTest::TheSheet(PrintSurface& page, const SectionDim& dim, double length) {
  source_ = PresentSource();
  return SheetOf(page, source_, Items.At(1), dim, length);
}

void SectionViewsTest::DrawViews(const SectionDim& dim, double length) {
  DrawSectionViews(TheSheet(dim, length));
}

std::vector<std::string> SectionViewsTest::Views(const Item& item, const SectionDim& dim) {
  Items.Clear();
  Items.Append(item);
  surface.Forget();
  DrawViews(dim, item.Length);
  const std::vector<std::string> all = surface.Lines();

  surface.Forget();
  DrawNotchesAndMitres(TheSheet(dim, item.Length));
  const std::vector<std::string> last = surface.Lines();
  if (all.size() < last.size()) {
    ADD_FAILURE() << "the notches and mitres are not at the end";
    return all;
  }
  const auto end = all.end() - static_cast<std::ptrdiff_t>(last.size());
  EXPECT_EQ(std::vector<std::string>(end, all.end()), last);
  return {all.begin(), end};
}

SheetLines SectionViewsTest::TextBlock(const std::string& mark, const std::string& quantity,
                                       const std::string& product) {
  SheetLines lines;
  lines.Says("PenColor 0,0,0").Says("FontName \"Arial\"").Says("FontSize 12");
  lines.Entry(25, "Mark:  ", 35, mark);
  lines.Entry(30, "No. Off:  ", 35, quantity);
  lines.Entry(35, "Section:  ", 35, product);
  return lines;
}

}  // namespace orvane::test
