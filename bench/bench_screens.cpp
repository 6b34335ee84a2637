// What the person at the screen waits for: the time from a key stroke to the repainted window, and
// from the start of the program to its usable window. Takes the place of a person by real key
// events on windows that no display shows.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest/QTest>
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "core/catalogues.h"
#include "core/model.h"
#include "core/settings.h"
#include "core/settings_file.h"
#include "holes/hole_list.h"
#include "ui/frm_main.h"
#include "ui/frm_project_details.h"
#include "ui/platform/qt_desktop.h"

namespace orvane {

namespace {

constexpr const char* FullChild = "--start-full";
constexpr const char* BareChild = "--start-bare";
std::string program;

// A job of that many sections of all families, as a detailer would have it.
void FillSections(int count) {
  Items.Clear();
  for (int row = 1; row <= count; ++row) {
    Item item;
    item.SectionType = "Z";
    item.Mark = "P" + DecimalText(row);
    item.Product = SectionDims.At(1).Product;
    item.Length = 6000;
    item.Quantity = 4;
    item.PatternName = "Sleeved 2 Sag Bars";
    item.SagBarDia = 14;
    Items.Append(std::move(item));
    RebuildHoles(Int16(row), "Sleeved 2 Sag Bars");
  }
}

double Percentile95(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times.empty() ? 0 : times.at((times.size() - 1) * 95 / 100);
}

class Window {
 public:
  Window() : desktop_(std::make_unique<MemorySettings>()) {
    ResetModel();
    InstallDesktop(desktop_);
    ProgramFolder = ORVANE_SOURCE_DIR "/catalogue";
    LoadAccessoryCatalogues();
    LoadMaxDims();
    LoadPageSetup();
    LoadDrawingSettings();
    details_ = std::make_unique<FrmProjectDetails>();
    main_ = std::make_unique<FrmMain>(*details_);
    main_->Load();
    main_->resize(1920, 1080);
    main_->show();
    main_->activateWindow();
    (void)QTest::qWaitForWindowActive(main_.get());
  }
  ~Window() {
    main_.reset();
    details_.reset();
    UninstallDesktop();
  }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  FrmMain& Main() { return *main_; }

 private:
  QtDesktop desktop_;
  std::unique_ptr<FrmProjectDetails> details_;
  std::unique_ptr<FrmMain> main_;
};

// The keys of one column, typed into the middle of the job; each is timed up to the end of the
// painting that it caused.
void KeyStrokes(benchmark::State& state, int column, const std::string& keys) {
  Window window;
  FillSections(static_cast<int>(state.range(0)));
  DrawingWidth = 212;
  window.Main().DisplayItems();
  window.Main().SelectFirstItem();
  auto* editor = window.Main().findChild<QLineEdit*>("txtEdit");
  for (int tab = 1; tab < column; ++tab) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QCoreApplication::processEvents();
  if (QApplication::focusWidget() != editor) {
    state.SkipWithError("the editor has no focus");
    return;
  }
  std::vector<double> times;
  std::size_t at = 0;
  for (auto _ : state) {
    if (at % keys.size() == 0) editor->selectAll();
    QElapsedTimer timer;
    timer.start();
    QTest::keyClick(editor, keys[at++ % keys.size()]);
    QCoreApplication::processEvents();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    times.push_back(seconds);
    state.SetIterationTime(seconds);
  }
  state.counters["p95_ms"] = Percentile95(times) * 1000;
}

void BM_MarkKeyStroke(benchmark::State& state) {
  KeyStrokes(state, 1, "AB12");
}
void BM_LengthKeyStroke(benchmark::State& state) {
  KeyStrokes(state, 3, "7250");
}

// Down and up through the rows: validation, row change, detail panel, hole rebuild, editor.
void BM_RowMove(benchmark::State& state) {
  Window window;
  FillSections(static_cast<int>(state.range(0)));
  DrawingWidth = 212;
  window.Main().DisplayItems();
  window.Main().SelectFirstItem();
  std::vector<double> times;
  bool down = true;
  for (auto _ : state) {
    QElapsedTimer timer;
    timer.start();
    QTest::keyClick(QApplication::focusWidget(), down ? Qt::Key_Down : Qt::Key_Up);
    QCoreApplication::processEvents();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    times.push_back(seconds);
    state.SetIterationTime(seconds);
    down = !down;
  }
  state.counters["p95_ms"] = Percentile95(times) * 1000;
}

// The start as a process of its own, up to the first painted, active window.
void StartProcess(benchmark::State& state, const char* child) {
  for (auto _ : state) {
    std::string first = program;
    std::string second = child;
    char* arguments[] = {first.data(), second.data(), nullptr};
    pid_t process = 0;
    int status = 0;
    if (posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        waitpid(process, &status, 0) != process || status != 0) {
      state.SkipWithError("the window's process failed");
      return;
    }
  }
}
void BM_StartBareWindow(benchmark::State& state) {
  StartProcess(state, BareChild);
}
void BM_StartProgram(benchmark::State& state) {
  StartProcess(state, FullChild);
}

BENCHMARK(BM_MarkKeyStroke)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LengthKeyStroke)
    ->Arg(1000)
    ->Arg(10000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RowMove)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StartBareWindow)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(BM_StartProgram)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(20);

// The floor: a window with a grid of the sections' columns and nothing else.
void ShowBareWindow() {
  QMainWindow window;
  QStandardItemModel model(100, 6);
  auto* grid = new QTableView;
  grid->setModel(&model);
  window.setCentralWidget(grid);
  window.resize(1280, 700);
  window.show();
  (void)QTest::qWaitForWindowExposed(&window);
  QCoreApplication::processEvents();
}

void ShowWholeWindow() {
  Window window;
  QCoreApplication::processEvents();
}

}  // namespace

}  // namespace orvane

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  orvane::program = QCoreApplication::applicationFilePath().toStdString();
  if (argc == 2 && std::strcmp(argv[1], orvane::BareChild) == 0) {
    orvane::ShowBareWindow();
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], orvane::FullChild) == 0) {
    orvane::ShowWholeWindow();
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
