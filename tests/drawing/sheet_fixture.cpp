#include "tests/drawing/sheet_fixture.h"

namespace orvane::test {

SheetTest::SheetTest() {
  LeftMargin = 10;
  RightMargin = 10;
  TopMargin = 10;
  BottomMargin = 10;
  MinHoleSep = 4;
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
