// What the person at the screen waits for: the time from a key stroke to the repainted window, and
// from the start of the program to its usable window. Takes the place of a person by real key
// events on windows that no display shows.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest/QTest>
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/bare_sheet.h"
#include "core/catalogues.h"
#include "core/model.h"
#include "core/program_folder.h"
#include "core/settings.h"
#include "core/settings_file.h"
#include "drawing/draw_section.h"
#include "drawing/page_surface.h"
#include "holes/hole_list.h"
#include "project/rules/section_columns.h"
#include "ui/dialogs/frm_project_details.h"
#include "ui/frm_main.h"
#include "ui/platform/qt_desktop.h"
#include "ui/platform/qt_font_metrics.h"
#include "ui/platform/qt_text.h"
#include "ui/sheet_view.h"

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

// A section of that many holes: the pattern's ends, and holes by hand between them, of all kinds.
void AddSectionOfHoles(int holes) {
  Item item;
  item.SectionType = "Z";
  item.Mark = "P1";
  item.Product = SectionDims.At(1).Product;
  item.Length = 7250;
  item.Quantity = 4;
  item.Notes = "Sleeves at every rafter";
  item.MitreLeft = 10;
  item.Notches.Append({"TR1", 20, 60, 0});
  item.PatternName = "Sleeved 2 Sag Bars";
  item.SagBarDia = 14;
  Items.Append(item);
  RebuildHoles(Int16(Items.UBound()), item.PatternName);
  Item& added = Items.At(Items.UBound());
  for (int more = 1; added.HoleCount() < holes; ++more) {
    Hole hole;
    hole.XPos = Int16(300 + more * 150);
    hole.Kind = CustomKind;
    hole.BF = more % 4 == 1 ? "y" : "n";
    hole.W1 = more % 4 == 2 ? "y" : more % 4 == 3 ? "60" : "n";
    hole.W2 = more % 4 == 0 ? "y" : "n";
    hole.TF = "n";
    hole.Diameter = more % 3 == 0 ? 14 : 18;
    hole.SlotLength = more % 5 == 0 ? 30 : 0;
    if (more % 7 == 0) hole.CounterSunk = CounterSunkMark;
    added.Holes.Append(hole);
    ++added.CustomHoleCount;
  }
  SortHoles(Int16(Items.UBound()));
}

double Percentile95(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times.empty() ? 0 : times.at((times.size() - 1) * 95 / 100);
}

// The program's desktop, with a data folder of its own.
class BenchDesktop : public QtDesktop {
 public:
  BenchDesktop() : QtDesktop(std::make_unique<MemorySettings>()) {}
  std::string UserDataFolder() override { return FromQt(folder_.path()); }

 private:
  QTemporaryDir folder_;
};

class Window {
 public:
  Window() {
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
  QLineEdit& Editor() { return *main_->findChild<QLineEdit*>("txtEdit"); }
  SheetView& Sheet() { return *main_->findChild<SheetView*>("VSPrinter1"); }

  // Shows the job with the first row's cell of that column in the editor; false if the editor
  // doesn't come.
  bool Edit(int column) {
    main_->DisplayItems();
    main_->SelectFirstItem();
    for (int tab = 1; tab < column; ++tab)
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCoreApplication::processEvents();
    return QApplication::focusWidget() == &Editor();
  }

 private:
  BenchDesktop desktop_;
  std::unique_ptr<FrmProjectDetails> details_;
  std::unique_ptr<FrmMain> main_;
};

// Times `step` up to the end of the painting that it causes, at each turn; it gives false when
// nothing was painted. What `prepare` does before it isn't timed.
template <class Step, class Prepare>
void TimeSteps(benchmark::State& state, const Step& step, const Prepare& prepare) {
  std::vector<double> times;
  for (auto _ : state) {
    prepare();
    QElapsedTimer timer;
    timer.start();
    const bool painted = step();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    if (!painted) {
      state.SkipWithError("nothing was painted");
      return;
    }
    times.push_back(seconds);
    state.SetIterationTime(seconds);
  }
  state.counters["p95_ms"] = Percentile95(times) * 1000;
}

template <class Step>
void TimeSteps(benchmark::State& state, const Step& step) {
  TimeSteps(state, step, [] {});
}

// Keys typed into the first row of a column, over and over.
void TypeKeys(benchmark::State& state, Window& window, int column, const std::string& keys) {
  if (!window.Edit(column)) return state.SkipWithError("the editor has no focus");
  QLineEdit& editor = window.Editor();
  const SheetView& sheet = window.Sheet();
  std::size_t at = 0;
  TimeSteps(state, [&] {
    if (at % keys.size() == 0) editor.selectAll();
    const int before = sheet.PaintCount();
    QTest::keyClick(&editor, keys[at++ % keys.size()]);
    QCoreApplication::processEvents();
    return sheet.PaintCount() > before;
  });
}

void KeyStrokes(benchmark::State& state, int column, const std::string& keys) {
  Window window;
  FillSections(static_cast<int>(state.range(0)));
  TypeKeys(state, window, column, keys);
}

void BM_MarkKeyStroke(benchmark::State& state) {
  KeyStrokes(state, 1, "AB12");
}
void BM_LengthKeyStroke(benchmark::State& state) {
  KeyStrokes(state, 3, "7250");
}

// The same while copies for recovery are written one behind the other.
void BM_LengthKeyStrokeWhileCopying(benchmark::State& state) {
  Window window;
  FillSections(static_cast<int>(state.range(0)));
  // A key makes the next one due at once, and each that is over is followed by another.
  window.Main().findChild<QTimer*>("RecoveryTimer")->setInterval(0);
  TypeKeys(state, window, 3, "7250");
}

// A key of a text that is looked for, to the sheet of the section that holds it.
void BM_FindKeyStroke(benchmark::State& state) {
  Window window;
  FillSections(static_cast<int>(state.range(0)));
  if (!window.Edit(3)) return state.SkipWithError("the editor has no focus");
  QTest::keyClick(&window.Editor(), Qt::Key_F, Qt::ControlModifier);
  auto* field = window.Main().findChild<QLineEdit*>("txtFind");
  if (field == nullptr || !field->hasFocus()) return state.SkipWithError("no field to find in");
  const std::string keys = DecimalText(state.range(0));
  const SheetView& sheet = window.Sheet();
  std::size_t at = 0;
  TimeSteps(state, [&] {
    if (at % keys.size() == 0) field->selectAll();
    const int before = sheet.PaintCount();
    QTest::keyClick(field, keys[at++ % keys.size()]);
    QCoreApplication::processEvents();
    return sheet.PaintCount() > before;
  });
}

// The live sheet of one section of that many holes.
void BM_SheetKeyStroke(benchmark::State& state) {
  Window window;
  Items.Clear();
  AddSectionOfHoles(static_cast<int>(state.range(0)));
  if (Items.At(1).HoleCount() != state.range(0)) state.SkipWithError("the section lacks holes");
  TypeKeys(state, window, 3, "7250");
  state.counters["ratio"] = window.Sheet().devicePixelRatioF();
  state.counters["width"] = window.Sheet().viewport()->width();
  state.counters["height"] = window.Sheet().viewport()->height();
}

// The floor of the same: a field to type into over a view that paints the same shapes straight in
// its pixels.
class BareView : public QWidget {
 public:
  BareView(const Page& page, QSize size) : page_(page) { setFixedSize(size); }
  int PaintCount() const { return paintCount_; }

 protected:
  void paintEvent(QPaintEvent*) override {
    const double ratio = devicePixelRatioF();
    QPixmap pixmap((QSizeF(size()) * ratio).toSize());
    pixmap.fill(Qt::white);
    const double unitsPerMm =
        std::min(pixmap.width() / page_.Width, pixmap.height() / page_.Height);
    // Its sizes are worked out at the first time only.
    if (!sheet_) sheet_ = std::make_unique<bench::BareSheet>(page_, unitsPerMm);
    {
      QPainter painter(&pixmap);
      sheet_->Paint(painter);
    }
    pixmap.setDevicePixelRatio(ratio);
    QPainter(this).drawPixmap(0, 0, pixmap);
    ++paintCount_;
  }

 private:
  Page page_;
  std::unique_ptr<bench::BareSheet> sheet_;
  int paintCount_ = 0;
};

void BM_FloorOfSheetKeyStroke(benchmark::State& state) {
  QSize size;
  Page page;
  {
    Window window;
    Items.Clear();
    AddSectionOfHoles(static_cast<int>(state.range(0)));
    if (!window.Edit(1)) return state.SkipWithError("the editor has no focus");
    size = window.Sheet().viewport()->size();
    PageSurface surface(SheetMetrics());
    DrawSection(surface, 1, true, true);
    page = surface.Result().Pages.at(0);
  }
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* editor = new QLineEdit;
  auto* view = new BareView(page, size);
  layout->addWidget(editor);
  layout->addWidget(view);
  window.resize(1920, 1080);
  window.show();
  (void)QTest::qWaitForWindowExposed(&window);
  editor->setFocus();
  QObject::connect(editor, &QLineEdit::textEdited, view, [view] { view->update(); });
  TimeSteps(state, [&] {
    const int before = view->PaintCount();
    QTest::keyClick(editor, '7');
    QCoreApplication::processEvents();
    if (editor->text().size() > 4) editor->clear();
    return view->PaintCount() > before;
  });
}

// Down and up through the rows: validation, row change, detail panel, hole rebuild, sheet, editor.
void BM_RowMove(benchmark::State& state) {
  Window window;
  FillSections(static_cast<int>(state.range(0)));
  if (!window.Edit(1)) return state.SkipWithError("the editor has no focus");
  bool down = true;
  TimeSteps(state, [&] {
    const int before = window.Sheet().PaintCount();
    QTest::keyClick(QApplication::focusWidget(), down ? Qt::Key_Down : Qt::Key_Up);
    QCoreApplication::processEvents();
    down = !down;
    return window.Sheet().PaintCount() > before;
  });
}

// A key typed into the length, taken back: the section shown and drawn as it stood.
void BM_UndoKeyStroke(benchmark::State& state) {
  Window window;
  FillSections(static_cast<int>(state.range(0)));
  if (!window.Edit(3)) return state.SkipWithError("the editor has no focus");
  const auto type = [&] {
    window.Editor().selectAll();
    QTest::keyClick(&window.Editor(), '7');
    QCoreApplication::processEvents();
  };
  const auto undo = [&] {
    const int before = window.Sheet().PaintCount();
    QTest::keyClick(&window.Editor(), Qt::Key_Z, Qt::ControlModifier);
    QCoreApplication::processEvents();
    return window.Sheet().PaintCount() > before;
  };
  TimeSteps(state, undo, type);
}

// A block of that many sections with patterns pasted into an empty grid: read, planned, its preview
// painted and accepted, done, and the window painted again.
void BM_PasteBlock(benchmark::State& state) {
  Window window;
  std::string block = "Mark\tProduct\tLength\tQty\tPunching\n";
  for (int row = 1; row <= state.range(0); ++row) {
    block += "P" + DecimalText(row) + "\t" + SectionDims.At(1).Product + "\t6000\t4\t" +
             "Sleeved 2 Sag Bars\n";
  }
  QApplication::clipboard()->setText(ToQt(block));
  window.Main().DisplayItems();
  const auto paste = [&] {
    const int before = window.Sheet().PaintCount();
    QTimer::singleShot(0, [] {
      QWidget* preview = QApplication::activeModalWidget();
      preview->repaint();
      preview->findChild<QPushButton*>("cmdOk")->click();
    });
    window.Main().Run(Command::Paste);
    QCoreApplication::processEvents();
    return Items.UBound() == state.range(0) && window.Sheet().PaintCount() > before;
  };
  const auto takeBack = [&] {
    if (!Items.Empty()) window.Main().Run(Command::Undo);
    QCoreApplication::processEvents();
  };
  TimeSteps(state, paste, takeBack);
}

// Rows copied and pasted behind the others, with the patterns' holes, to the painted grid; the
// paste is taken back between two turns.
void BM_PasteRows(benchmark::State& state) {
  Window window;
  FillSections(static_cast<int>(state.range(0)));
  if (!window.Edit(MarkColumn)) return state.SkipWithError("no editor");
  auto& grid = *window.Main().findChild<SectionsGrid*>();
  auto& list = *window.Main().findChild<QTableView*>("MSFlexGrid1");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
  window.Main().Run(Command::Copy);
  bool pasted = false;
  const auto paste = [&] {
    window.Main().Run(Command::Paste);
    list.viewport()->repaint();
    pasted = Items.UBound() == 2 * static_cast<int>(state.range(0));
    return pasted && grid.ChosenRows().size() == static_cast<std::size_t>(state.range(0));
  };
  TimeSteps(state, paste, [&] {
    if (pasted) window.Main().Run(Command::Undo);
  });
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
BENCHMARK(BM_FindKeyStroke)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LengthKeyStrokeWhileCopying)
    ->Arg(1000)
    ->Arg(10000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SheetKeyStroke)->Arg(12)->Arg(40)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FloorOfSheetKeyStroke)
    ->Arg(12)
    ->Arg(40)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RowMove)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UndoKeyStroke)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PasteRows)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PasteBlock)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
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
