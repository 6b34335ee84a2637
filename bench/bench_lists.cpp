// What it costs to paste a block of 10,000 sections with their patterns, and to read it as a file.
#include <benchmark/benchmark.h>

#include <numeric>
#include <string>
#include <vector>

#include "bench/bench_support.h"
#include "core/csv.h"
#include "core/model.h"
#include "core/numbers.h"
#include "holes/hole_list.h"
#include "project/history.h"
#include "project/section_list/apply_plan.h"
#include "project/section_list/chosen_change.h"
#include "project/section_list/section_list.h"
#include "project/section_list/section_plan.h"

namespace orvane {

namespace {

constexpr int Sections = 10000;
constexpr int Holes = 12;

// The sections of the job as a spreadsheet copies them.
std::string BlockOfJob() {
  std::string block = "Mark\tProduct\tLength\tQty\tNotes\tPunching\n";
  for (int row = 1; row <= Sections; ++row) {
    const Item& item = Items.At(row);
    block += "P" + DecimalText(row) + "\t" + item.Product + "\t" + DecimalText(item.Length) +
             "\t4\tas drawn\t" + item.PatternName + "\n";
  }
  return block;
}

// The empty job with a history, and the limits that its sections keep.
class Job {
 public:
  Job() {
    bench::FillTables(Sections, Holes);
    for (int family = 1; family <= 6; ++family) MaxDims.At(family) = 15000;
    block_ = BlockOfJob();
    sections_ = Items;
    Items.Clear();
    BeginHistory();
  }
  ~Job() { EndHistory(); }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;

  const std::string& Block() const { return block_; }
  const Table<Item>& Rows() const { return sections_; }

 private:
  std::string block_;
  Table<Item> sections_;
};

SectionPlan PlanOfBlock(const std::string& block) {
  return PlanOf(ListOfBlock(block, MarkColumn), {}, 0);
}

// Text to plan: what the preview waits for.
void PlanBlock(benchmark::State& state) {
  const Job job;
  for (auto _ : state) {
    if (PlanOfBlock(job.Block()).Count(PlannedSection::Result::New) != Sections) {
      state.SkipWithError("rows are refused");
    }
  }
}

// Plan to sections with their holes, told to the history.
void ApplyBlock(benchmark::State& state) {
  const Job job;
  const SectionPlan plan = PlanOfBlock(job.Block());
  for (auto _ : state) {
    ApplyPlan(plan, ChangeKind::PasteSections);
    state.PauseTiming();
    RestoredStep restored;
    if (!UndoStep(restored)) state.SkipWithError("nothing was done");
    state.ResumeTiming();
  }
}

// What can't be left out: the same sections appended, their holes made, the state taken once.
void FloorOfApplyBlock(benchmark::State& state) {
  const Job job;
  for (auto _ : state) {
    Table<Item> rows;
    rows.Reserve(Sections);
    for (const Item& from : job.Rows()) {
      Item item;
      item.SectionType = from.SectionType;
      item.Mark = from.Mark;
      item.Product = from.Product;
      item.Length = from.Length;
      item.Quantity = from.Quantity;
      item.PatternName = from.PatternName;
      RebuildHoles(rows.Append(std::move(item)), from.PatternName);
    }
    benchmark::DoNotOptimize(rows);
  }
}

// One pattern for all sections, which have another before: worked out, done and told to the
// history.
void ChangePattern(benchmark::State& state) {
  const Job job;
  for (const Item& item : job.Rows()) Items.Append(item);
  std::vector<int> rows(Sections);
  std::iota(rows.begin(), rows.end(), 1);
  BeginHistory();
  ChosenChange change;
  change.Pattern = CustomPattern;
  ApplyPlan(PlanOfChange(rows, change, true), ChangeKind::ChangeSections);
  change.Pattern = job.Rows().At(1).PatternName;
  for (auto _ : state) {
    const SectionPlan plan = PlanOfChange(rows, change, true);
    if (plan.Count(PlannedSection::Result::Changed) != Sections) {
      state.SkipWithError("sections are left as they are");
    }
    ApplyPlan(plan, ChangeKind::ChangeSections);
    state.PauseTiming();
    RestoredStep restored;
    if (!UndoStep(restored)) state.SkipWithError("nothing was done");
    state.ResumeTiming();
  }
}

}  // namespace

BENCHMARK(ChangePattern)->Unit(benchmark::kMillisecond);
BENCHMARK(PlanBlock)->Unit(benchmark::kMillisecond);
BENCHMARK(ApplyBlock)->Unit(benchmark::kMillisecond);
BENCHMARK(FloorOfApplyBlock)->Unit(benchmark::kMillisecond);

}  // namespace orvane
