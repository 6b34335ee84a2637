// Any bytes as check.csv: whatever was read, each rule has a distance within its limits where it
// knows one, and a source; the check goes on with them.
#include "fuzz/fuzz_support.h"
#include "output/design_check_rules.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  fuzz::CheckCatalogueReader(LoadCheckRules, data, size);
  for (const DesignRuleRow& row : DesignRules) {
    const RuleInUse& rule = TheRules.at(RowOf(row.Rule));
    if (!(rule.Times >= 0 && rule.Times <= 100)) fuzz::Fail("a distance beyond its limits");
    if (row.Times == 0 && rule.Times != 0) fuzz::Fail("a distance of a rule that knows none");
    if (rule.Source.empty()) fuzz::Fail("a rule without a source");
  }
  return 0;
}
