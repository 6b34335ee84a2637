// One sheet laid out and recorded, and 1,000 sheets as a PDF, each beside its floor: the same
// shapes or lines copied, the same shapes painted by the bare toolkit straight in device units.
#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QString>
#include <QtGlobal>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/bare_sheet.h"
#include "bench/bench_support.h"
#include "core/model.h"
#include "core/settings.h"
#include "drawing/draw_section.h"
#include "drawing/page_surface.h"
#include "drawing/recording_surface.h"
#include "holes/hole_list.h"
#include "ui/platform/document_output.h"
#include "ui/platform/qt_font_metrics.h"

namespace {

using namespace orvane;

constexpr int HolesEach = 12;
constexpr int PdfResolution = 1200;  // dots to the inch, as the system's
constexpr double MmPerInch = 25.4;

// The job's sections with the gaps that their sheets need.
void FillSheets(int sections, int holes) {
  bench::FillTables(sections, holes);
  LoadPageSetup();
  LoadDrawingSettings();
  PrepareDrawingWidth(PageSurface(SheetMetrics()));
  for (int row = 1; row <= sections; ++row) AdjustHoleSpacing(Int16(row));
}

// The page of one sheet.
Page SheetOf(int row) {
  PageSurface surface(SheetMetrics());
  DrawSection(surface, Int16(row), true, true);
  return surface.Result().Pages.at(0);
}

bool HasHoles(benchmark::State& state, int holes) {
  if (Items.At(1).HoleCount() != holes) state.SkipWithError("the section lacks holes");
  return Items.At(1).HoleCount() == holes;
}

void LayOutSheet(benchmark::State& state) {
  const int holes = static_cast<int>(state.range(0));
  FillSheets(1, holes);
  if (!HasHoles(state, holes)) return;
  PageSurface surface(SheetMetrics());
  for (auto _ : state) {
    DrawSection(surface, 1, true, true);
    benchmark::DoNotOptimize(surface.Result().Pages.data());
  }
  state.counters["shapes"] = static_cast<double>(surface.Result().Pages.at(0).Shapes.size());
}
BENCHMARK(LayOutSheet)->Arg(12)->Arg(40)->Unit(benchmark::kMicrosecond);

void FloorOfLayOutSheet(benchmark::State& state) {
  const int holes = static_cast<int>(state.range(0));
  FillSheets(1, holes);
  if (!HasHoles(state, holes)) return;
  const Page page = SheetOf(1);
  std::vector<Shape> shapes;
  for (auto _ : state) {
    shapes.clear();
    for (const Shape& shape : page.Shapes) shapes.push_back(shape);
    benchmark::DoNotOptimize(shapes.data());
  }
}
BENCHMARK(FloorOfLayOutSheet)->Arg(12)->Arg(40)->Unit(benchmark::kMicrosecond);

void RecordSheet(benchmark::State& state) {
  const int holes = static_cast<int>(state.range(0));
  FillSheets(1, holes);
  if (!HasHoles(state, holes)) return;
  RecordingSurface surface(SheetMetrics());
  for (auto _ : state) {
    surface.Forget();
    DrawSection(surface, 1, true, true);
    benchmark::DoNotOptimize(surface.Lines().data());
  }
  state.counters["lines"] = static_cast<double>(surface.Lines().size());
}
BENCHMARK(RecordSheet)->Arg(12)->Arg(40)->Unit(benchmark::kMicrosecond);

void FloorOfRecordSheet(benchmark::State& state) {
  const int holes = static_cast<int>(state.range(0));
  FillSheets(1, holes);
  if (!HasHoles(state, holes)) return;
  RecordingSurface surface(SheetMetrics());
  DrawSection(surface, 1, true, true);
  std::vector<std::string> lines;
  for (auto _ : state) {
    lines.clear();
    for (const std::string& line : surface.Lines()) lines.push_back(line);
    benchmark::DoNotOptimize(lines.data());
  }
}
BENCHMARK(FloorOfRecordSheet)->Arg(12)->Arg(40)->Unit(benchmark::kMicrosecond);

void CountBytes(benchmark::State& state, const std::string& path) {
  state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
}

// As the companion does it: holes made afresh, sheets drawn, each page written as it comes.
void SheetsToPdf(benchmark::State& state) {
  const int sections = static_cast<int>(state.range(0));
  FillSheets(sections, HolesEach);
  const std::string path = bench::TempPath("sheets.pdf");
  for (auto _ : state) {
    PdfOutput pdf(path, "Sheets");
    PageSurface surface(SheetMetrics());
    surface.PageDone = [&](const Page& page) { pdf.Write(page); };
    for (int row = 1; row <= sections; ++row) {
      RebuildHoles(Int16(row), Items.At(row).PatternName);
      DrawSection(surface, Int16(row), row == 1, row == sections);
    }
    pdf.Finish();
    if (pdf.PageCount() != sections) state.SkipWithError("sheets are missing");
  }
  CountBytes(state, path);
}
BENCHMARK(SheetsToPdf)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

// The shapes are there beforehand, in the writer's own units.
void FloorOfSheetsToPdf(benchmark::State& state) {
  const int sections = static_cast<int>(state.range(0));
  FillSheets(sections, HolesEach);
  std::vector<bench::BareSheet> sheets;
  for (int row = 1; row <= sections; ++row) {
    sheets.emplace_back(SheetOf(row), PdfResolution / MmPerInch);
  }
  QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF());
  layout.setMode(QPageLayout::FullPageMode);
  const std::string path = bench::TempPath("floor.pdf");
  for (auto _ : state) {
    QSaveFile file(QString::fromStdString(path));
    bool written = file.open(QIODevice::WriteOnly);
    {
      QPdfWriter writer(&file);
      writer.setResolution(PdfResolution);
      writer.setPageLayout(layout);
      QPainter painter(&writer);
      for (std::size_t i = 0; i < sheets.size(); ++i) {
        if (i > 0) written = writer.newPage() && written;
        sheets[i].Paint(painter);
      }
      written = painter.end() && written;
    }
    if (!file.commit() || !written) state.SkipWithError("the floor's file can't be written");
  }
  CountBytes(state, path);
}
BENCHMARK(FloorOfSheetsToPdf)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
