// The contract summary of a large job and a run of accessory sheets, laid out as the preview waits
// for them; the floor is a copy of the same shapes.
#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bench/bench_support.h"
#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/model.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "drawing/page_surface.h"
#include "output/output_screen.h"
#include "output/reports.h"
#include "ui/platform/qt_font_metrics.h"

namespace {

using namespace orvane;

constexpr int HolesEach = 12;
constexpr int LinesEach = 10;  // of a type 2 accessory

// A preview that is gone as soon as it would be shown.
class BenchScreen : public OutputScreen {
 public:
  void ShowExportErrors() override {}
  PrintSurface& PreviewSurface() override {
    if (!surface_) {
      surface_ = std::make_unique<PageSurface>(SheetMetrics());
      PreparePreview(*surface_);
    }
    return *surface_;
  }
  void ShowPreview(const std::string&, const LayOutAgain&) override {
    Shown = surface_->TakeResult();
    surface_.reset();
  }
  void DropPreview() override { surface_.reset(); }
  bool GoesOn(int, int) override { return true; }

  Document Shown;

 private:
  std::unique_ptr<PageSurface> surface_;
};

void PrintSummary() {
  PrintContractSummary();
  PrintAccessoryReport();
}

void FillJob(int sections) {
  bench::FillTables(sections, HolesEach);
  LoadPageSetup();
  LoadDrawingSettings();
}

// That many accessories, those of the catalogue over and over, with all sizes and ten lines each.
void FillAccessories(int accessories) {
  FillJob(1);
  ProgramFolder = ORVANE_CATALOGUE;
  AccDefs.Clear();
  LoadAccessoryCatalogues();
  const Table<AccDef> shipped = AccDefs;
  AccDefs.Clear();
  AccUsed.Clear();
  for (int row = 1; row <= accessories; ++row) {
    const AccDef& accessory = shipped.At(1 + (row - 1) % shipped.UBound());
    AccDefs.Append(accessory);
    AccUsed.Append(True);
    if (accessory.IsType1 != False) {
      for (int size = 1; size <= accessory.ParamCount(); ++size) {
        AccLines1.Append({Int16(row), Int16(size), Int16(10 * size), 0});
      }
      continue;
    }
    for (int number = 1; number <= LinesEach; ++number) {
      AccLine2 line;
      line.AccIndex = Int16(row);
      line.Mark = "M" + std::to_string(number);
      line.NoOff = Int16(number);
      for (int value = 3; value <= accessory.ParamCount(); ++value) line.Values.Append("1250");
      AccLines2.Append(std::move(line));
    }
  }
}

void LayOut(benchmark::State& state, const std::function<void()>& command) {
  BenchScreen screen;
  InstallOutputScreen(screen);
  for (auto _ : state) {
    command();
    benchmark::DoNotOptimize(screen.Shown.Pages.data());
  }
  if (screen.Shown.Pages.empty()) state.SkipWithError("nothing was laid out");
  state.counters["pages"] = static_cast<double>(screen.Shown.Pages.size());
  UninstallOutputScreen();
}

void CopyShapes(benchmark::State& state, const std::function<void()>& command) {
  BenchScreen screen;
  InstallOutputScreen(screen);
  command();
  for (auto _ : state) {
    std::vector<Page> pages = screen.Shown.Pages;
    benchmark::DoNotOptimize(pages.data());
  }
  UninstallOutputScreen();
}

void LayOutSummary(benchmark::State& state) {
  FillJob(static_cast<int>(state.range(0)));
  LayOut(state, PrintSummary);
}
BENCHMARK(LayOutSummary)->Arg(100)->Arg(5000)->Unit(benchmark::kMillisecond);

void FloorOfLayOutSummary(benchmark::State& state) {
  FillJob(static_cast<int>(state.range(0)));
  CopyShapes(state, PrintSummary);
}
BENCHMARK(FloorOfLayOutSummary)->Arg(100)->Arg(5000)->Unit(benchmark::kMillisecond);

void LayOutAccessorySheets(benchmark::State& state) {
  FillAccessories(static_cast<int>(state.range(0)));
  LayOut(state, PrintAllAccessorySheets);
}
BENCHMARK(LayOutAccessorySheets)->Arg(100)->Unit(benchmark::kMillisecond);

void FloorOfLayOutAccessorySheets(benchmark::State& state) {
  FillAccessories(static_cast<int>(state.range(0)));
  CopyShapes(state, PrintAllAccessorySheets);
}
BENCHMARK(FloorOfLayOutAccessorySheets)->Arg(100)->Unit(benchmark::kMillisecond);

}  // namespace
