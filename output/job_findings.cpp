#include "output/job_findings.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/model.h"
#include "core/numbers.h"

namespace orvane {

namespace {

bool IsOpenAdvice(const Finding& finding) {
  return IsOpenFinding(finding) && finding.Grade == FindingGrade::Advice;
}

// The less, the more it matters.
int Weight(const Finding& finding) {
  if (!IsOpenFinding(finding)) return 2;
  return finding.Grade == FindingGrade::CannotBeMade ? 0 : 1;
}

}  // namespace

bool JobFindings::Follow(const ChangeNotice& change) {
  const ChangeRule& rule = RuleOf(change.Kind);
  // What a look makes of a section the check makes itself.
  if (rule.By == ChangeBy::Look) return false;
  switch (rule.Subject) {
    case ChangeSubject::Section:
      LookAfresh(change.Row);
      return true;
    case ChangeSubject::Accessory:
      isAcrossDue_ = true;
      return true;
    case ChangeSubject::SectionList:
    case ChangeSubject::Sections:
    case ChangeSubject::WholeJob:
    case ChangeSubject::Settings:
      StartAfresh();
      return true;
    case ChangeSubject::Details:
    case ChangeSubject::Nothing:
      break;
  }
  return false;
}

void JobFindings::StartAfresh() {
  sections_.clear();
  sections_.resize(static_cast<std::size_t>(Items.UBound()));
  next_ = 1;
  // Its rows are others'.
  across_.clear();
  isAcrossDue_ = true;
}

void JobFindings::LookAgain(int row) {
  isAcrossDue_ = true;
  if (row < 1 || row > Items.UBound()) return;
  for (int other = 1; other <= Items.UBound(); ++other) {
    if (Items.At(other).Mark == Items.At(row).Mark) LookAfresh(other);
  }
}

void JobFindings::LookAfresh(int row) {
  isAcrossDue_ = true;
  if (row < 1 || row > static_cast<int>(sections_.size())) return;
  sections_.at(static_cast<std::size_t>(row) - 1).reset();
  LookAt(row);
}

const JobFindings::Looked& JobFindings::LookAt(int row) {
  std::optional<Looked>& looked = sections_.at(static_cast<std::size_t>(row) - 1);
  if (looked) return *looked;
  looked.emplace();
  looked->Findings = CheckSection(OpenJob(), row);
  const auto& findings = looked->Findings;
  looked->IsFault = std::any_of(findings.begin(), findings.end(), IsOpenFault);
  looked->Advice = static_cast<int>(std::count_if(findings.begin(), findings.end(), IsOpenAdvice));
  return *looked;
}

bool JobFindings::Step(int sections) {
  if (static_cast<int>(sections_.size()) != Items.UBound()) StartAfresh();
  const int count = Items.UBound();
  for (; next_ <= count && sections > 0; ++next_, --sections) LookAt(next_);
  if (next_ <= count) return false;
  if (isAcrossDue_) across_ = CheckAcross(OpenJob());
  isAcrossDue_ = false;
  return true;
}

void JobFindings::Finish() {
  if (static_cast<int>(sections_.size()) != Items.UBound()) StartAfresh();
  Step(Items.UBound() + 1);
}

bool JobFindings::IsDone() const {
  return AreAllLookedAt() && !isAcrossDue_;
}

std::vector<Finding> JobFindings::Of(int row) {
  if (static_cast<int>(sections_.size()) != Items.UBound()) StartAfresh();
  if (row < 1 || row > Items.UBound()) return {};
  std::vector<Finding> findings = LookAt(row).Findings;
  // They stand in the order of the rows, those of accessory lines behind them.
  auto beside = std::partition_point(across_.begin(), across_.end(), [row](const Finding& finding) {
    return finding.Row != 0 && finding.Row < row;
  });
  for (; beside != across_.end() && beside->Row == row; ++beside) findings.push_back(*beside);
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding& a, const Finding& b) { return Weight(a) < Weight(b); });
  return findings;
}

std::vector<Finding> JobFindings::All() const {
  std::vector<Finding> all = across_;
  for (const std::optional<Looked>& looked : sections_) {
    if (looked) all.insert(all.end(), looked->Findings.begin(), looked->Findings.end());
  }
  SortFindings(all);
  return all;
}

FindingCounts JobFindings::Counts() const {
  FindingCounts counts;
  for (const std::optional<Looked>& looked : sections_) {
    if (!looked) continue;
    counts.Advice += looked->Advice;
    if (looked->IsFault) ++counts.Faults;
  }
  int counted = 0;  // the row that was counted last
  for (const Finding& finding : across_) {
    if (IsOpenAdvice(finding)) ++counts.Advice;
    if (!IsOpenFault(finding) || finding.Row == counted) continue;
    counted = finding.Row;
    const bool isSection = counted >= 1 && counted <= static_cast<int>(sections_.size());
    const auto at = static_cast<std::size_t>(counted) - 1;
    if (isSection && sections_.at(at) && sections_.at(at)->IsFault) continue;
    ++counts.Faults;
  }
  return counts;
}

std::string CountsLine(const FindingCounts& counts) {
  if (counts == FindingCounts{}) return "Check: nothing open";
  std::string line = "Check: ";
  if (counts.Faults > 0) line += DecimalText(counts.Faults) + " can't be made";
  if (counts.Faults > 0 && counts.Advice > 0) line += ", ";
  if (counts.Advice > 0) line += DecimalText(counts.Advice) + " to consider";
  return line;
}

std::string OpenLine(const std::vector<Finding>& findings) {
  const auto open = std::count_if(findings.begin(), findings.end(), IsOpenFinding);
  if (open == 0) return {};
  const auto first =
      std::min_element(findings.begin(), findings.end(),
                       [](const Finding& a, const Finding& b) { return Weight(a) < Weight(b); });
  std::string line(GradeWords(*first));
  line += first->What;
  const std::string place = PlaceText(*first);
  if (!place.empty()) line += ", at " + place;
  if (open > 1) line += " (and " + DecimalText(open - 1) + " more)";
  return line;
}

}  // namespace orvane
