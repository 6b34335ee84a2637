#include "tests/drawing/sheet_fixture.h"

#include "drawing/pictures.h"

namespace orvane::test {

SheetTest::SheetTest() : logo_(frmDrawings().imgLogo) {
  LeftMargin = 10;
  RightMargin = 10;
  TopMargin = 10;
  BottomMargin = 10;
  MinHoleSep = 4;
}

SheetTest::~SheetTest() {
  frmDrawings().imgLogo = logo_;
}

void SheetTest::SetLogo(double width, double height) {
  frmDrawings().imgLogo =
      std::make_shared<const Picture>(Picture{.Width = width, .Height = height, .Shapes = {}});
}

std::string SheetTest::Recorded(std::size_t from) const {
  std::string text;
  for (std::size_t at = from; at < surface.Lines().size(); ++at) {
    text += surface.Lines().at(at) + "\n";
  }
  return text;
}

std::vector<std::string> SheetTest::LinesOf(const std::string& operation) const {
  std::vector<std::string> lines;
  for (const std::string& line : surface.Lines()) {
    if (line == operation || line.rfind(operation + " ", 0) == 0) lines.push_back(line);
  }
  return lines;
}

}  // namespace orvane::test
