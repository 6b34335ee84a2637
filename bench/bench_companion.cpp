// A folder of jobs through the companion, beside the same exports made one behind the other in this
// process: what the companion adds to a job, its start included, must be small and must not grow
// with their number.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>

#include "bench/bench_support.h"
#include "core/catalogues.h"
#include "core/files.h"
#include "core/model.h"
#include "core/program_folder.h"
#include "holes/hole_list.h"
#include "output/accessory_list.h"
#include "output/cam_export.h"
#include "project/project_file.h"

namespace {

using namespace orvane;
namespace fs = std::filesystem;

constexpr Moment Created = {{2026, 3, 2}, 8, 15, 0};

std::string JobPath(const std::string& folder, int number) {
  return folder + "/job" + std::to_string(10000 + number) + ".ovd";
}

// A fresh folder with that many copies of a sample job, beside one for the results.
std::string FolderOfJobs(int jobs) {
  const std::string folder = bench::TempPath("jobs");
  fs::remove_all(folder);
  fs::remove_all(folder + "-out");
  fs::create_directories(folder);
  fs::create_directories(folder + "-out");
  const std::string job = ReadWholeFile(ORVANE_CATALOGUE "/../samples/portal-shed.ovd");
  for (int number = 0; number < jobs; ++number) WriteWholeFile(JobPath(folder, number), job);
  return folder;
}

bool Runs(std::array<std::string, 9> arguments) {
  std::array<char*, 10> pointers{};
  for (std::size_t i = 0; i < arguments.size(); ++i) pointers[i] = arguments[i].data();
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  int status = 0;
  const bool ran =
      posix_spawn(&process, pointers[0], &quiet, nullptr, pointers.data(), environ) == 0 &&
      waitpid(process, &status, 0) == process && status == 0;
  posix_spawn_file_actions_destroy(&quiet);
  return ran;
}

void SetPerJob(benchmark::State& state) {
  using benchmark::Counter;
  state.counters["per_job"] = Counter(static_cast<double>(state.range(0)),
                                      Counter::kIsIterationInvariantRate | Counter::kInvert);
}

void Companion(benchmark::State& state) {
  const std::string folder = FolderOfJobs(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const bool done =
        Runs({ORVANE_COMPANION, "--catalogue", ORVANE_CATALOGUE, "--jobs",
              std::to_string(state.range(1)), "--out", folder + "-out", "--cam", folder});
    if (!done) state.SkipWithError("the companion failed");
  }
  SetPerJob(state);
}
BENCHMARK(Companion)
    ->ArgNames({"jobs", "at_a_time"})
    ->Args({250, 1})
    ->Args({500, 1})
    ->Args({1000, 1})
    ->Args({2000, 1})
    ->Args({2000, 4})
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// Each job read, its holes made afresh, and both of its factory files brought to the disk.
void FloorOfCompanion(benchmark::State& state) {
  const std::string folder = FolderOfJobs(static_cast<int>(state.range(0)));
  bench::InstallStillDesktop();
  ProgramFolder = ORVANE_CATALOGUE;
  LoadAccessoryCatalogues();
  LoadSectionCatalogues();
  for (auto _ : state) {
    for (int number = 0; number < state.range(0); ++number) {
      ReadProjectFile(JobPath(folder, number));
      for (int row = 1; row <= Items.UBound(); ++row) {
        if (Items.At(row).PatternName == CustomPattern) continue;
        RebuildHoles(Int16(row), Items.At(row).PatternName);
      }
      const std::string cam = folder + "-out/job" + std::to_string(number) + ".xov";
      WriteFactoryFile(cam, CamFile(Created));
      WriteFactoryFile(AccListPath(cam), AccListFile(Created));
    }
  }
  SetPerJob(state);
}
BENCHMARK(FloorOfCompanion)
    ->ArgName("jobs")
    ->Arg(250)
    ->Arg(2000)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
