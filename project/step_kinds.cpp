#include "project/step_kinds.h"

#include "project/error_names.h"

namespace orvane {

std::string NameOfChange(const ChangeNotice& change) {
  const ChangeRule& rule = RuleOf(change.Kind);
  std::string name(rule.Name);
  const bool ofMany = rule.Subject == ChangeSubject::Sections;
  if (change.Row < 1 || ofMany || change.Kind == ChangeKind::AddSection) return name;
  if (rule.Subject == ChangeSubject::Accessory) return name + " of " + NameOfAccessory(change.Row);
  return name + " of " + NameOfSection(change.Row);
}

}  // namespace orvane
