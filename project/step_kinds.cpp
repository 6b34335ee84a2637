#include "project/step_kinds.h"

#include "project/error_names.h"

namespace orvane {

std::string NameOfChange(const ChangeNotice& change) {
  const ChangeRule& rule = RuleOf(change.Kind);
  std::string name(rule.Name);
  if (change.Row < 1 || change.Kind == ChangeKind::AddSection) return name;
  if (rule.Subject == ChangeSubject::Accessory) return name + " of " + NameOfAccessory(change.Row);
  return name + " of " + NameOfSection(change.Row);
}

}  // namespace orvane
