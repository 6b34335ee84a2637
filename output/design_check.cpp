#include "output/design_check.h"

#include <utility>

#include "output/design_accepted.h"
#include "output/design_check_section.h"

namespace orvane {

std::vector<Finding> CheckSection(const JobView& job, int row) {
  const CheckedSection section = SeenByCheck(job, row);
  FindingList findings(section.Row, section.Section);
  CheckRecord(section, findings);
  CheckMitres(section, findings);
  CheckNotches(section, findings);
  CheckHolePlaces(section, findings);
  CheckHoleLines(section, findings);
  CheckHolePairs(section, findings);
  CheckDistances(section, findings);
  std::vector<Finding> sorted = findings.Sorted();
  MarkAccepted(sorted, &job.Items.At(row));
  return sorted;
}

std::vector<Finding> CheckJob(const JobView& job) {
  std::vector<Finding> findings = CheckAcross(job);
  for (int row = 1; row <= job.Items.UBound(); ++row) {
    for (Finding& finding : CheckSection(job, row)) findings.push_back(std::move(finding));
  }
  SortFindings(findings);
  return findings;
}

}  // namespace orvane
