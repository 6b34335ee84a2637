#include "output/catalogue_finding.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

int FaultsIn(const std::vector<CatalogueFinding>& findings) {
  return static_cast<int>(std::count_if(
      findings.begin(), findings.end(),
      [](const CatalogueFinding& finding) { return finding.Grade() == CatalogueGrade::Fault; }));
}

std::string CatalogueCountLine(const std::vector<CatalogueFinding>& findings) {
  if (findings.empty()) return "nothing is found";
  const int faults = FaultsIn(findings);
  return faults > 0 ? Counted(faults, "fault")
                    : Counted(static_cast<long long>(findings.size()), "finding");
}

std::string PlaceText(const CatalogueFinding& finding) {
  if (finding.Row == 0) return {};
  std::string text = "row " + DecimalText(finding.Row);
  if (finding.Column > 0) text += ", column " + DecimalText(finding.Column);
  return text;
}

std::string_view GradeText(CatalogueGrade grade) {
  return grade == CatalogueGrade::Fault ? "fault" : "advice";
}

std::string CatalogueFindingsText(const std::vector<CatalogueFinding>& findings) {
  const auto number = [](int value) { return value == 0 ? std::string() : DecimalText(value); };
  std::string text;
  for (const CatalogueFinding& finding : findings) {
    text.append(finding.File).append("\t").append(number(finding.Row)).append("\t");
    text.append(number(finding.Column)).append("\t").append(GradeText(finding.Grade()));
    text.append("\t").append(CatalogueRules.at(RowOf(finding.Rule)).Name).append("\t");
    text.append(FieldText(finding.What)).append("\n");
  }
  return text;
}

}  // namespace orvane
