// The greatest memory that the companion takes while it writes the sheets of a job as a PDF. A
// process counts what its parent held when it was started, so this one has to stay small and is a
// program of its own.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>

#include "bench/bench_support.h"
#include "core/catalogues.h"
#include "core/files.h"
#include "core/model.h"
#include "holes/hole_list.h"
#include "project/project_file.h"

namespace {

using namespace orvane;

constexpr int HolesEach = 12;
constexpr double KilobytesPerMegabyte = 1024;

// A job of that many sections of a product of the catalogue, their holes placed by hand so that
// they don't depend on it.
void WriteJob(const std::string& path, int sections) {
  bench::FillTables(sections, HolesEach);
  LoadSectionDims(ORVANE_CATALOGUE "/dims.csv");
  std::string product;
  for (const SectionDim& dim : SectionDims) {
    if (product.empty() && dim.SectionType == "Z") product = dim.Product;
  }
  for (int row = 1; row <= sections; ++row) {
    Items.At(row).Product = product;
    Items.At(row).PatternName = CustomPattern;
    ConvertHolesToCustom(Int16(row));
  }
  WriteWholeFile(path, ProjectText());
  Items.Clear();
}

// The companion's greatest resident set, megabytes; 0 if it failed.
double PeakOf(std::array<std::string, 7> arguments) {
  std::array<char*, 8> pointers{};
  for (std::size_t i = 0; i < arguments.size(); ++i) pointers[i] = arguments[i].data();
  pid_t process = 0;
  int status = 0;
  rusage usage{};
  if (posix_spawn(&process, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0 ||
      wait4(process, &status, 0, &usage) != process || status != 0) {
    return 0;
  }
  return static_cast<double>(usage.ru_maxrss) / KilobytesPerMegabyte;
}

double OwnPeak() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / KilobytesPerMegabyte;
}

void CompanionSheets(benchmark::State& state) {
  const std::string name = "memory-" + std::to_string(state.range(0));
  const std::string path = bench::TempPath(name + ".ovd");
  const std::string out = std::filesystem::path(path).parent_path().string();
  WriteJob(path, static_cast<int>(state.range(0)));
  double peak = 0;
  for (auto _ : state) {
    peak =
        PeakOf({ORVANE_COMPANION, "--catalogue", ORVANE_CATALOGUE, "--out", out, "--sheets", path});
  }
  if (peak == 0) state.SkipWithError("the companion failed");
  if (OwnPeak() >= peak) state.SkipWithError("this program has become larger than the companion");
  state.counters["peak_MB"] = peak;
  state.counters["PDF_MB"] =
      static_cast<double>(std::filesystem::file_size(bench::TempPath(name + "-sheets.pdf"))) / 1e6;
}
BENCHMARK(CompanionSheets)
    ->Arg(1)
    ->Arg(100)
    ->Arg(1000)
    ->Iterations(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
