#include "tests/output/print_fixture.h"

#include <algorithm>

#include "drawing/pictures.h"
#include "output/reports.h"
#include "project/section_look.h"

namespace orvane::test {

PrintSurface& PagedScreen::PreviewSurface() {
  if (!surface_) {
    surface_ = std::make_unique<PageSurface>(metrics_);
    PreparePreview(*surface_);
  }
  return *surface_;
}

void PagedScreen::ShowPreview(const std::string&, const LayOutAgain& again) {
  if (OtherPaper) {
    PageSurface other(metrics_, *OtherPaper);
    PreparePreview(other);
    OtherDocument.reset();
    if (again(other)) OtherDocument = other.TakeResult();
  }
  ShownDocument = surface_->TakeResult();
  surface_.reset();
}

PrintTest::PrintTest() : logo_(frmDrawings().imgLogo) {
  frmDrawings().imgLogo =
      std::make_shared<const Picture>(Picture{.Width = 60, .Height = 18, .Shapes = {}});
  ForgetSaid();
  LeftMargin = RightMargin = TopMargin = BottomMargin = 10;
  MinHoleSep = 4;
  SectionDim dim;
  dim.SectionType = "Z";
  dim.Product = "X20018";
  dim.Dim3 = 200;
  dim.Dim4 = 65;
  dim.Dim5 = 60;
  dim.Dim7 = dim.Dim8 = 18;
  dim.Dim9 = 45;
  dim.Dim10 = 110;
  dim.Dim11 = 45;
  dim.Dim13 = 75;
  SectionDims.Append(dim);
  PunchPattern pattern;
  pattern.SectionType = "Z";
  pattern.Name = "Pair";
  pattern.Codes = "C3";
  PunchPatterns.Append(pattern);
  AddAccessories();
  for (AccDef& accessory : AccDefs) {
    accessory.DrawingFile = "None";
    accessory.Value3 = 20;
  }
}

PrintTest::~PrintTest() {
  frmDrawings().imgLogo = logo_;
}

void PrintTest::AddPurlin(const std::string& mark, std::int16_t length) {
  Item item = MakeItem("Z", mark, length);
  item.PatternName = "Pair";
  Items.Append(item);
}

void PrintTest::AddCustomPurlin(const std::string& mark, std::int16_t length,
                                const std::vector<std::int16_t>& holes) {
  Item item = MakeItem("Z", mark, length);
  for (const std::int16_t x : holes) AddHoles(item, {MakeHole(x, 18)});
  item.CustomHoleCount = item.HoleCount();
  Items.Append(item);
}

void PrintTest::UseAccessory(int row) {
  AccUsed.At(row) = True;
  if (row <= AccType1Count) {
    AccLines1.Append(MakeLine1(row, 2, 7));
  } else {
    AccLines2.Append(MakeLine2(row, "M" + std::to_string(row), 3, {"1", "2", "3", "4", "5"}));
  }
}

TextList PrintTest::Drawn() {
  TextList lines = screen.Preview.Lines();
  screen.Preview.Forget();
  return lines;
}

TextList PrintTest::DrawnBy(const std::function<void(PrintSurface& surface)>& draw) {
  const PlainFontMetrics metrics;
  RecordingSurface surface(metrics);
  draw(surface);
  return surface.Lines();
}

std::size_t PrintTest::CountOf(const TextList& lines, const std::string& line) {
  return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
}

TextList TextsOn(const Page& page) {
  TextList texts;
  for (const Shape& shape : page.Shapes) {
    if (const auto* text = std::get_if<TextShape>(&shape)) texts.push_back(text->Text);
  }
  return texts;
}

}  // namespace orvane::test
