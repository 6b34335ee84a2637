// What it costs to check a section while it is typed, and 10,000 of them.
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/bench_support.h"
#include "core/model.h"
#include "holes/hole_coding.h"
#include "holes/hole_list.h"
#include "output/design_check.h"
#include "project/job.h"

namespace orvane {

namespace {

constexpr int Sections = 10000;
constexpr int HolesOfSection = 12;

void CheckOneSection(benchmark::State& state) {
  bench::FillTables(100, static_cast<int>(state.range(0)));
  const JobView job = OpenJob();
  int row = 0;
  for (auto _ : state) {
    row = row % Items.UBound() + 1;
    benchmark::DoNotOptimize(CheckSection(job, row));
  }
}

void CheckWholeJob(benchmark::State& state) {
  bench::FillTables(Sections, HolesOfSection);
  for (auto _ : state) benchmark::DoNotOptimize(CheckJob(OpenJob()));
}

// Each section with a hole in the place of another: a finding for each, with its words.
void CheckFaultyJob(benchmark::State& state) {
  bench::FillTables(Sections, HolesOfSection);
  for (Item& item : Items) {
    Hole hole = item.Holes.At(1);
    hole.Kind = CustomKind;
    item.Holes.Append(hole);
  }
  for (auto _ : state) {
    if (CheckJob(OpenJob()).size() < Sections) state.SkipWithError("too few findings");
  }
}

void CheckAcrossJob(benchmark::State& state) {
  bench::FillTables(Sections, HolesOfSection);
  for (auto _ : state) benchmark::DoNotOptimize(CheckAcross(OpenJob()));
}

// What can't be left out: each section copied and its pattern's holes made afresh.
void FloorOfCheckWholeJob(benchmark::State& state) {
  bench::FillTables(Sections, HolesOfSection);
  for (auto _ : state) {
    for (const Item& item : Items) {
      Item copy = item;
      RemoveStandardHoles(copy);
      ExpandPattern(copy.PatternName, copy);
      SortHoles(copy);
      benchmark::DoNotOptimize(copy);
    }
  }
}

BENCHMARK(CheckOneSection)->Arg(12)->Arg(40)->Arg(400)->Unit(benchmark::kMicrosecond);
BENCHMARK(CheckWholeJob)->Unit(benchmark::kMillisecond);
BENCHMARK(CheckFaultyJob)->Unit(benchmark::kMillisecond);
BENCHMARK(CheckAcrossJob)->Unit(benchmark::kMillisecond);
BENCHMARK(FloorOfCheckWholeJob)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace orvane
