#include "output/design_check_rules.h"

#include <filesystem>
#include <system_error>

#include "core/catalogues.h"
#include "core/files.h"
#include "core/runtime_error.h"
#include "core/text.h"

namespace orvane {

namespace {

constexpr double MostTimes = 100;

[[noreturn]] void Refuse(const std::string& why) {
  throw RuntimeError(Failure::TypeMismatch, why);
}

bool ReadUsed(TextFile& file) {
  const std::string cell = UpperCase(Trim(file.ReadField()));
  if (cell != "Y" && cell != "N") Refuse("Y or N must stand here");
  return cell == "Y";
}

// The cell of a rule that knows no distance must be empty: whoever writes a figure there expects
// something of it.
double ReadTimes(TextFile& file, bool isDistance) {
  if (!isDistance) {
    if (!Trim(file.ReadField()).empty()) Refuse("This rule has no distance to be set");
    return 0;
  }
  const double times = file.ReadDouble();
  if (!(times >= 0 && times <= MostTimes)) Refuse("A number from 0 to 100 must stand here");
  return times;
}

}  // namespace

RulesInUse ShippedRules() {
  RulesInUse rules;
  for (const DesignRuleRow& row : DesignRules) {
    rules.at(RowOf(row.Rule)) = {true, row.Times, std::string(row.Source)};
  }
  return rules;
}

RulesInUse TheRules = ShippedRules();

bool ReadCheckRule(TextFile& file, const std::string& tag, std::string_view /*cell*/) {
  if (tag != "R") return false;
  const std::string name(Trim(file.ReadField()));
  const std::optional<DesignRule> rule = RuleNamed(name);
  if (!rule) Refuse("There is no rule " + name);
  const DesignRuleRow& row = DesignRules.at(RowOf(*rule));
  const bool isDistance = row.Times > 0;
  RuleInUse read;
  read.Used = ReadUsed(file);
  read.Times = ReadTimes(file, isDistance);
  const std::string_view source = Trim(file.ReadField());
  read.Source = isDistance && !source.empty() ? source : row.Source;
  file.ReadRestOfLine();
  TheRules.at(RowOf(*rule)) = read;
  return true;
}

bool LoadCheckRules(const std::string& path) {
  TheRules = ShippedRules();
  std::error_code unknown;
  if (!std::filesystem::exists(NativePath(path), unknown) && !unknown) return true;
  return LoadCatalogue(path, ReadCheckRule);
}

std::optional<DesignRule> RuleNamed(std::string_view name) {
  for (const DesignRuleRow& row : DesignRules) {
    if (row.Name == name) return row.Rule;
  }
  return std::nullopt;
}

}  // namespace orvane
