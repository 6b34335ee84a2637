// Any bytes as dims.csv: every row kept has a product and a known letter.
#include "core/catalogues.h"
#include "core/text.h"
#include "fuzz/fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  fuzz::CheckCatalogueReader(LoadSectionDims, data, size);
  for (const SectionDim& row : SectionDims) {
    const std::string tag = UpperCase(Trim(row.SectionType));
    if (tag.size() != 1 || std::string("EZCMVRT").find(tag) == std::string::npos) {
      fuzz::Fail("a row of an unknown letter");
    }
    if (row.SectionType == "M") fuzz::Fail("a mezzanine row that isn't a channel");
    if (Trim(row.Product).empty()) fuzz::Fail("a row without a product");
  }
  return 0;
}
