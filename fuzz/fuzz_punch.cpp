// Any bytes as punch.csv: every row kept has a name and codes, both trimmed.
#include "core/catalogues.h"
#include "core/text.h"
#include "fuzz/fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  fuzz::CheckCatalogueReader(LoadPunchPatterns, data, size);
  for (const PunchPattern& row : PunchPatterns) {
    if (row.Name.empty() || row.Name != Trim(row.Name)) fuzz::Fail("a faulty name");
    if (row.Codes.empty() || row.Codes != Trim(row.Codes)) fuzz::Fail("faulty codes");
    if (UpperCase(row.SectionType).find_first_not_of("EZCRVT") != std::string::npos) {
      fuzz::Fail("a row of an unknown letter");
    }
  }
  return 0;
}
