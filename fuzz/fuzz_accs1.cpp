// Any bytes as accs1.csv: the tables of each accessory stay in step.
#include "core/catalogues.h"
#include "fuzz/fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  fuzz::CheckCatalogueReader(LoadAccessories1, data, size);
  if (AccDefs.UBound() != AccType1Count) fuzz::Fail("the count differs from the rows");
  for (const AccDef& row : AccDefs) {
    if (row.IsType1 != True || row.ParamTexts.UBound() != row.ParamNames.UBound()) {
      fuzz::Fail("an accessory whose tables are out of step");
    }
  }
  return 0;
}
