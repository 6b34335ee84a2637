// What it costs to remember each step of a job of 10,000 sections of 12 holes, and to take it back.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <string>

#include "bench/bench_support.h"
#include "core/model.h"
#include "core/numbers.h"
#include "project/changes.h"
#include "project/history.h"
#include "project/sections.h"

namespace orvane {

namespace {

constexpr int Sections = 10000;
constexpr int Holes = 12;

// The job with a history of its own.
class Job {
 public:
  Job() {
    bench::FillTables(Sections, Holes);
    for (int row = 1; row <= Items.UBound(); ++row)
      Items.At(row).Mark = "P" + DecimalText(row * 7919 % Sections);
    BeginHistory();
  }
  ~Job() { EndHistory(); }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
};

void TypeNote(const std::string& note) {
  Change(ChangeKind::Notes, Sections / 2, [&] { Items.At(Sections / 2).Notes = note; });
}

bool Undo() {
  RestoredStep restored;
  return UndoStep(restored);
}

// A key of a cell: the change itself costs nothing beside what the history makes of it.
void BM_TellKey(benchmark::State& state) {
  const Job job;
  int key = 0;
  for (auto _ : state) TypeNote(++key % 2 == 0 ? "note" : "note a");
}

// A step of its own, taken back.
void BM_UndoKey(benchmark::State& state) {
  const Job job;
  for (auto _ : state) {
    state.PauseTiming();
    TypeNote("note");
    EndStep();
    state.ResumeTiming();
    if (!Undo()) state.SkipWithError("nothing was taken back");
  }
}

// A command on the rows, and the same taken back, each timed apart.
template <class Command>
void TimeCommand(benchmark::State& state, const Command& command) {
  const Job job;
  const bool undo = state.range(0) != 0;
  for (auto _ : state) {
    if (undo) state.PauseTiming();
    command();
    if (undo) state.ResumeTiming();
    if (!undo) state.PauseTiming();
    if (!Undo()) state.SkipWithError("nothing was taken back");
    if (!undo) state.ResumeTiming();
  }
}

void BM_Sort(benchmark::State& state) {
  TimeCommand(state, [] { SortItemRows(SortKey::Mark); });
}
void BM_Delete(benchmark::State& state) {
  TimeCommand(state, [] { DeleteItemRow(Sections / 2); });
}
void BM_Duplicate(benchmark::State& state) {
  TimeCommand(state, [] { DuplicateRow(Sections / 2); });
}

// All rows are others: an export has made their holes afresh. They are told to the history with the
// step behind it.
void BM_AllRows(benchmark::State& state) {
  std::int16_t length = 5000;
  TimeCommand(state, [&] {
    TypeNote("one");
    EndStep();
    ++length;
    Change(ChangeKind::Export, 0, [&] {
      for (Item& item : Items) item.Length = length;
    });
    TypeNote("two");
    EndStep();
    if (!Undo()) return;
  });
}

// What the history adds to the job, and what a hundred sorts add to it.
void BM_Memory(benchmark::State& state) {
  for (auto _ : state) {
    bench::FillTables(Sections, Holes);
    const std::size_t before = mallinfo2().uordblks;
    BeginHistory();
    const std::size_t begun = mallinfo2().uordblks;
    for (int sort = 0; sort < 100; ++sort) {
      SortItemRows(sort % 2 == 0 ? SortKey::Mark : SortKey::Length);
      Items.At(1).Mark += "x";
    }
    const std::size_t sorted = mallinfo2().uordblks;
    state.counters["begun_MB"] = static_cast<double>(begun - before) / 1e6;
    state.counters["steps_MB"] = (static_cast<double>(sorted) - static_cast<double>(begun)) / 1e6;
    EndHistory();
  }
}

BENCHMARK(BM_TellKey)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_UndoKey)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Sort)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Delete)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Duplicate)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AllRows)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Memory)->Iterations(1);

}  // namespace

}  // namespace orvane
