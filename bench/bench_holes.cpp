// The rebuild sequence of one section, which runs at every move of the grid's cell.
#include <benchmark/benchmark.h>

#include "bench/bench_support.h"
#include "core/model.h"
#include "holes/hole_list.h"

namespace {

using namespace orvane;

void RebuildOneSection(benchmark::State& state) {
  const int holes = static_cast<int>(state.range(0));
  bench::FillTables(1, holes);
  const std::string pattern = Items.At(1).PatternName;
  if (Items.At(1).HoleCount() != holes) state.SkipWithError("the section lacks holes");
  for (auto _ : state) {
    RebuildHoles(1, pattern);
    benchmark::DoNotOptimize(Items.At(1).Holes.At(holes).DrawGap);
  }
}
BENCHMARK(RebuildOneSection)->Arg(12)->Arg(40)->Arg(400)->Unit(benchmark::kMicrosecond);

}  // namespace
