#include "output/design_check_rules.h"

namespace orvane {

RulesInUse ShippedRules() {
  RulesInUse rules;
  for (const DesignRuleRow& row : DesignRules) {
    rules.at(RowOf(row.Rule)) = {true, row.Times, std::string(row.Source)};
  }
  return rules;
}

RulesInUse TheRules = ShippedRules();

std::optional<DesignRule> RuleNamed(std::string_view name) {
  for (const DesignRuleRow& row : DesignRules) {
    if (row.Name == name) return row.Rule;
  }
  return std::nullopt;
}

}  // namespace orvane
