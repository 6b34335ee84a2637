// Any bytes as one of the five files of a catalogue, the first of them telling which: the check
// comes to its end, every finding says where it is and what, and the tables are what they were.
#include <array>
#include <string>
#include <string_view>

#include "core/model.h"
#include "fuzz/fuzz_support.h"
#include "output/catalogue_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  constexpr std::array<std::string_view, 5> names = {"\\dims.csv", "\\punch.csv", "\\accs1.csv",
                                                     "\\accs2.csv", "\\check.csv"};
  // So that products have patterns, and accessories of type 2 those of type 1 before them.
  constexpr std::array<std::string_view, 5> others = {
      "Z,Z1,140,65,60,1.2,16,16,40,60,40,2.69,60,3\n", "Z,Butt,A0 D3 A6,S,\n",
      "A,Cleats,acc01,110,0,35,Y\nI,Cleat,CL\n", "A,Sleeves,acc06,130,0,40,Sleeve\nP,Product\n",
      "R,pitch,Y,2,,\n"};
  if (size == 0) return 0;
  const std::size_t fuzzed = data[0] % names.size();
  const std::string text(data + 1, data + size);
  const auto read = [&](std::string_view name) {
    for (std::size_t at = 0; at < names.size(); ++at) {
      if (names.at(at) == name) return at == fuzzed ? text : std::string(others.at(at));
    }
    fuzz::Fail("a file that the catalogue hasn't got");
  };
  const auto picture = [](std::string_view name) { return std::string(name.substr(0, 3)); };
  for (const CatalogueFinding& finding : CheckCatalogue({read, picture})) {
    if (finding.File.empty() || finding.What.empty()) fuzz::Fail("a finding without words");
    if (finding.Row < 0 || finding.Column < 0) fuzz::Fail("a finding at no place");
    if (finding.Row == 0 && finding.Column != 0) fuzz::Fail("a column of no row");
  }
  if (!SectionDims.Empty() || !PunchPatterns.Empty() || !AccDefs.Empty()) {
    fuzz::Fail("tables that were changed");
  }
  return 0;
}
