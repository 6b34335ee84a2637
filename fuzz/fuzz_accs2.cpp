// Any bytes as accs2.csv: the tables of each accessory stay in step.
#include "core/catalogues.h"
#include "fuzz/fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  fuzz::CheckCatalogueReader(LoadAccessories2, data, size);
  if (AccDefs.UBound() != AccType2Count) fuzz::Fail("the count differs from the rows");
  for (const AccDef& row : AccDefs) {
    const int params = row.ParamNames.UBound();
    if (row.IsType1 != False || params < 2) {
      fuzz::Fail("an accessory whose parameters are out of step");
    }
    if (row.Options.UBound() != (params == 2 ? 0 : params)) fuzz::Fail("choices out of step");
  }
  return 0;
}
