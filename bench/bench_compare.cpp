// What it costs to compare two jobs of 10,000 sections, and to add one up.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "bench/bench_support.h"
#include "core/model.h"
#include "core/numbers.h"
#include "holes/hole_list.h"
#include "output/cutting_list.h"
#include "output/job_compare.h"
#include "project/job.h"

namespace orvane {

namespace {

constexpr int Sections = 10000;
constexpr int HolesOfSection = 12;

// The open job, and the same in the other order of rows.
Job TurnedJob() {
  bench::FillTables(Sections, HolesOfSection);
  Job job;
  job.Details = txtProject;
  job.ProjectDate = DTPicker1;
  job.AccUsed = AccUsed;
  for (int row = Sections; row >= 1; --row) job.Items.Append(Items.At(row));
  return job;
}

void CompareWith(benchmark::State& state, const Job& other, std::size_t lines) {
  for (auto _ : state) {
    const JobComparison comparison = CompareJobs(ViewOf(other), OpenJob());
    if (comparison.Lines.size() != lines) state.SkipWithError("other differences");
  }
}

void CompareEqualJobs(benchmark::State& state) {
  CompareWith(state, TurnedJob(), 0);
}

// All holes by hand on both sides, one of each section another, and so is each length.
void CompareChangedJobs(benchmark::State& state) {
  Job other = TurnedJob();
  const auto byHand = [](Table<Item>& items) {
    for (Item& item : items) {
      item.PatternName = CustomPattern;
      for (Hole& hole : item.Holes) hole.Kind = CustomKind;
    }
  };
  byHand(other.Items);
  byHand(Items);
  for (Item& item : other.Items) {
    item.Length = Int16(item.Length + 1);
    item.Holes.At(1).Diameter += 2;
  }
  CompareWith(state, other, std::size_t{2} * Sections);
}

// No section has its mark any more.
void CompareRenamedJobs(benchmark::State& state) {
  Job other = TurnedJob();
  for (Item& item : other.Items) item.Mark += "X";
  // Sections that are alike in all but the mark may pair crosswise.
  CompareWith(state, other, Sections);
}

// What can't be left out: the sections of both jobs by their marks, and each pair looked at.
void FloorOfCompare(benchmark::State& state) {
  const Job other = TurnedJob();
  for (auto _ : state) {
    const auto byMark = [](const Table<Item>& items) {
      std::vector<const Item*> rows;
      rows.reserve(static_cast<std::size_t>(items.UBound()));
      for (const Item& item : items) rows.push_back(&item);
      std::sort(rows.begin(), rows.end(),
                [](const Item* a, const Item* b) { return a->Mark < b->Mark; });
      return rows;
    };
    const std::vector<const Item*> before = byMark(other.Items);
    const std::vector<const Item*> after = byMark(Items);
    int differences = 0;
    for (std::size_t at = 0; at < before.size(); ++at) {
      const Item& a = *before.at(at);
      const Item& b = *after.at(at);
      const bool same =
          a.Mark == b.Mark && a.SectionType == b.SectionType && a.Product == b.Product &&
          a.Length == b.Length && a.Quantity == b.Quantity && a.Notes == b.Notes &&
          a.PatternName == b.PatternName && a.Pitch == b.Pitch && a.SagBarDia == b.SagBarDia &&
          a.MitreLeft == b.MitreLeft && a.MitreRight == b.MitreRight;
      if (!same) ++differences;
      for (int hole = 1; hole <= a.Holes.UBound(); ++hole) {
        if (a.Holes.At(hole).Kind == CustomKind) ++differences;
      }
    }
    if (differences != 0) state.SkipWithError("there are differences");
  }
}

void AddUpCuttingList(benchmark::State& state) {
  bench::FillTables(Sections, HolesOfSection);
  for (auto _ : state) benchmark::DoNotOptimize(CuttingListOf(OpenJob()));
}

// The holes of all sections made afresh on copies.
void FloorOfCuttingList(benchmark::State& state) {
  bench::FillTables(Sections, HolesOfSection);
  for (auto _ : state) {
    for (const Item& item : Items) {
      Item section = item;
      RebuildHoles(section, section.PatternName);
      benchmark::DoNotOptimize(section);
    }
  }
}

}  // namespace

BENCHMARK(CompareEqualJobs)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareChangedJobs)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareRenamedJobs)->Unit(benchmark::kMillisecond);
BENCHMARK(FloorOfCompare)->Unit(benchmark::kMillisecond);
BENCHMARK(AddUpCuttingList)->Unit(benchmark::kMillisecond);
BENCHMARK(FloorOfCuttingList)->Unit(benchmark::kMillisecond);

}  // namespace orvane
