#include "output/design_finding.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "core/csv.h"
#include "core/numbers.h"
#include "core/text.h"

namespace orvane {

namespace {

// Where a finding of that rule stands among others.
std::size_t RankOf(const Finding& finding) {
  const std::optional<DesignRule> rule = RuleNamed(finding.Rule);
  return rule ? RowOf(*rule) : DesignRules.size();
}

CsvRow FieldsOf(const Finding& finding) {
  return {finding.Mark,
          finding.Grade == FindingGrade::CannotBeMade ? "can't be made" : "advice",
          std::string(finding.Rule),
          PlaceText(finding),
          std::string(finding.Line),
          finding.What,
          finding.Limit,
          finding.Source,
          finding.Accepted};
}

}  // namespace

bool IsOpenFinding(const Finding& finding) {
  return finding.Accepted.empty();
}

std::string_view GradeWords(const Finding& finding) {
  return finding.Grade == FindingGrade::CannotBeMade ? "Can't be made: " : "Consider: ";
}

bool IsOpenFault(const Finding& finding) {
  return finding.Grade == FindingGrade::CannotBeMade && IsOpenFinding(finding);
}

int SectionsThatCannotBeMade(const std::vector<Finding>& findings) {
  std::unordered_set<int> rows;
  for (const Finding& finding : findings) {
    if (finding.Row > 0 && IsOpenFault(finding)) rows.insert(finding.Row);
  }
  return static_cast<int>(rows.size());
}

std::string InMm(double value) {
  constexpr double tenths = 10;
  constexpr double farBeyondAll = 1e9;  // whose tenths nobody sees
  if (std::abs(value) > farBeyondAll) return ShortestText(value) + " mm";
  return ShortestText(Nearest(value * tenths) / tenths) + " mm";
}

std::string InMm(double from, double to) {
  const std::string text = InMm(from);
  return text.substr(0, text.rfind(' ')) + " to " + InMm(to);
}

std::string PlaceText(const Finding& finding) {
  if (!finding.Place) return {};
  return finding.PlaceEnd ? InMm(*finding.Place, *finding.PlaceEnd) : InMm(*finding.Place);
}

std::string FindingLine(const Finding& finding) {
  std::string line = finding.Mark;
  const std::string place = PlaceText(finding);
  if (!place.empty()) line += (line.empty() ? "at " : " at ") + place;
  line += (line.empty() ? "" : ": ") + finding.What;
  std::string reason = finding.Limit;
  if (!finding.Source.empty()) reason += (reason.empty() ? "" : "; ") + finding.Source;
  return reason.empty() ? line : line + " (" + reason + ")";
}

std::string FindingsText(const std::vector<Finding>& findings, std::string_view front) {
  std::string text;
  for (const Finding& finding : findings) {
    const CsvRow fields = FieldsOf(finding);
    text += front;
    for (std::size_t at = 0; at < fields.size(); ++at) {
      text.append(at == 0 ? "" : "\t").append(FieldText(fields.at(at)));
    }
    text += '\n';
  }
  return text;
}

std::string FindingsCsv(const std::vector<Finding>& findings) {
  std::vector<CsvRow> rows = {
      {"Mark", "Grade", "Rule", "Place", "Line", "What", "Limit", "Source", "Accepted"}};
  for (const Finding& finding : findings) {
    CsvRow& row = rows.emplace_back();
    for (const std::string& field : FieldsOf(finding)) row.push_back(GuardedText(field));
  }
  return CsvText(rows, ',');
}

void SortFindings(std::vector<Finding>& findings) {
  // Those of accessory lines stand behind the sections.
  const auto key = [](const Finding& finding) {
    return std::tuple(finding.Row == 0, finding.Row, RankOf(finding), finding.Place.value_or(0),
                      finding.Hole, finding.Notch);
  };
  std::stable_sort(findings.begin(), findings.end(),
                   [&](const Finding& a, const Finding& b) { return key(a) < key(b); });
}

Finding& FindingList::Add(DesignRule rule, std::string what, std::string limit) {
  const std::size_t row = RowOf(rule);
  const RuleInUse& inUse = TheRules.at(row);
  if (!inUse.Used) return dropped_ = Finding();
  Finding finding;
  finding.Grade = DesignRules.at(row).Grade;
  finding.Rule = DesignRules.at(row).Name;
  if (section_ != nullptr) {
    finding.Row = row_;
    finding.Mark = section_->Mark;
  }
  finding.What = std::move(what);
  finding.Limit = std::move(limit);
  finding.Source = inUse.Source;
  return findings_.emplace_back(std::move(finding));
}

Finding& FindingList::AddAtHole(DesignRule rule, int hole, std::string what, std::string limit) {
  Finding& finding = Add(rule, std::move(what), std::move(limit));
  finding.Hole = hole;
  finding.Place = section_->Holes.At(hole).XPos;
  return finding;
}

std::vector<Finding> FindingList::Sorted() {
  SortFindings(findings_);
  return std::move(findings_);
}

}  // namespace orvane
