// What shows only beside the other sections and the accessory lines.
#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"
#include "output/accessory_rows.h"
#include "output/design_accepted.h"
#include "output/design_check.h"
#include "output/design_content.h"

namespace orvane {

namespace {

void CheckMarks(const JobView& job, FindingList& findings) {
  std::unordered_map<std::string, int> bearers;
  for (int row = 1; row <= job.Items.UBound(); ++row) {
    ++bearers[std::string(Trim(job.Items.At(row).Mark))];
  }
  for (int row = 1; row <= job.Items.UBound(); ++row) {
    const std::string mark(Trim(job.Items.At(row).Mark));
    if (mark.empty() || bearers.at(mark) < 2) continue;
    Finding& finding =
        findings.Add(DesignRule::MarkTwice, Counted(bearers.at(mark), "section") + " have the mark",
                     "one section a mark");
    finding.Row = row;
    finding.Mark = job.Items.At(row).Mark;
  }
}

void CheckAlike(const JobView& job, FindingList& findings) {
  std::unordered_map<std::string, int> first;
  for (int row = 1; row <= job.Items.UBound(); ++row) {
    const Item& item = job.Items.At(row);
    // One that nothing has been entered of but its mark isn't a section yet.
    if (item.Product.empty() && item.Length == 0) continue;
    const auto [alike, isFirst] = first.try_emplace(ContentBesideMark(item), row);
    if (isFirst) continue;
    const std::string& mark = job.Items.At(alike->second).Mark;
    Finding& finding = findings.Add(
        DesignRule::SectionsAlike,
        "the same as " + (Trim(mark).empty() ? "row " + DecimalText(alike->second) : mark) +
            " but for mark and quantity",
        "one mark for both");
    finding.Row = row;
    finding.Mark = item.Mark;
  }
}

void CheckSleeves(const JobView& job, FindingList& findings) {
  std::unordered_set<std::string> products;
  for (int row = 1; row <= job.Items.UBound(); ++row) products.insert(job.Items.At(row).Product);
  for (const AccLine2& line : job.AccLines2) {
    if (line.AccIndex != PurlinSleeveRow || line.Values.Empty()) continue;
    const std::string& product = line.Values.At(1);
    if (products.contains(product)) continue;
    Finding& finding = findings.Add(DesignRule::SleeveWithoutProduct,
                                    "sleeve of " + product + ", which no section is made of", "");
    finding.Mark = line.Mark;
  }
}

}  // namespace

std::vector<Finding> CheckAcross(const JobView& job) {
  FindingList findings;
  CheckMarks(job, findings);
  CheckAlike(job, findings);
  CheckSleeves(job, findings);
  std::vector<Finding> sorted = findings.Sorted();
  for (Finding& finding : sorted) {
    MarkAccepted(finding, finding.Row == 0 ? nullptr : &job.Items.At(finding.Row));
  }
  return sorted;
}

}  // namespace orvane
