#include "project/section_list/apply_plan.h"

#include <algorithm>
#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "holes/hole_list.h"
#include "project/section_list/list_columns.h"

namespace orvane {

namespace {

bool IsChanged(const PlannedSection& row, int column) {
  return row.At(column).What == PlannedCell::Result::Changed;
}

bool MovesHoles(const PlannedSection& row) {
  return IsChanged(row, LengthColumn) || IsChanged(row, ProductColumn) ||
         IsChanged(row, PunchingColumn) || IsChanged(row, SagBarsColumn);
}

void Remake(int row) {
  RebuildHoles(Int16(row), Items.At(row).PatternName, [](const std::string&) {});
}

// The section as it will be, over one that stands there.
void Overwrite(int at, const PlannedSection& row) {
  Item& item = Items.At(at);
  CopyListed(row.After, item);
  if (row.RemovedHoles > 0 && IsChanged(row, PunchingColumn)) item.Holes.Clear();
  if (MovesHoles(row)) Remake(at);
}

}  // namespace

std::vector<int> ApplyPlan(const SectionPlan& plan, ChangeKind kind) {
  std::vector<int> rows;
  int last = Items.UBound();
  for (const PlannedSection& row : plan.Rows) {
    if (row.What == PlannedSection::Result::New) rows.push_back(++last);
    if (row.What == PlannedSection::Result::Changed) rows.push_back(row.Row);
  }
  if (rows.empty()) return rows;
  Change(kind, Int16(rows.front()), [&] {
    Items.Reserve(Int16(last));
    for (const PlannedSection& row : plan.Rows) {
      if (row.What == PlannedSection::Result::Changed) Overwrite(row.Row, row);
      if (row.What != PlannedSection::Result::New) continue;
      Items.Append(row.After);
      if (!row.After.PatternName.empty()) Remake(Items.UBound());
    }
  });
  return rows;
}

}  // namespace orvane
