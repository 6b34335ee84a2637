// Opening, saving and exporting a job of 10,000 sections of 12 holes, each beside the floor of what
// it can't do without: the same bytes read and split, the same figures formatted by straight code,
// one durable write.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "bench/bench_support.h"
#include "core/disk.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/headless_desktop.h"
#include "core/model.h"
#include "holes/hole_list.h"
#include "output/cam_export.h"
#include "project/history.h"
#include "project/main_screen.h"
#include "project/project_file.h"
#include "project/saving.h"
#include "project/versions.h"

namespace {

using namespace orvane;

constexpr int Sections = 10000;
constexpr int HolesEach = 12;
constexpr Moment Created = {{2024, 3, 5}, 14, 7, 9};

// Straight formatting of numbers, with none of the system's procedures.
template <class Number>
void Digits(std::string& out, Number value) {
  std::array<char, 32> buffer;
  char* end = nullptr;
  if constexpr (std::is_integral_v<Number>) {
    end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  } else {
    const int digits = sizeof(Number) == sizeof(float) ? 7 : 15;
    end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                        std::chars_format::general, digits)
              .ptr;
  }
  out.append(buffer.data(), end);
}

template <class Number>
void NumberLine(std::string& out, Number value) {
  out += value < 0 ? '-' : ' ';
  if constexpr (std::is_integral_v<Number>) {
    Digits(out, std::abs(static_cast<int>(value)));
  } else {
    Digits(out, std::fabs(value));
  }
  out += " \r\n";
}

void Plain(std::string& out, const std::string& text) {
  (out += text) += "\r\n";
}
void Quoted(std::string& out, const std::string& text) {
  ((out += '"') += text) += "\"\r\n";
}

// The job's project file by straight code.
std::string StraightProjectText() {
  std::string out;
  Plain(out, "v1.07:" + txtProject[0]);
  for (std::size_t i = 1; i < txtProject.size(); ++i) Quoted(out, txtProject[i]);
  Plain(out, "05/03/2024");
  NumberLine(out, Items.UBound());
  for (const Item& item : Items) {
    Quoted(out, item.Mark);
    Plain(out, item.SectionType);
    Plain(out, item.Product);
    NumberLine(out, item.Length);
    NumberLine(out, item.Quantity);
    NumberLine(out, item.MitreLeft);
    NumberLine(out, item.MitreRight);
    Quoted(out, item.Notes);
    Plain(out, item.DateText);
    NumberLine(out, item.HoleCount());
    for (int row = 0; row <= item.HoleCount(); ++row) {
      const Hole& hole = item.Holes.At(row);
      NumberLine(out, hole.XPos);
      Plain(out, hole.Kind);
      Plain(out, hole.BF);
      Plain(out, hole.W1);
      Plain(out, hole.W2);
      Plain(out, hole.TF);
      NumberLine(out, hole.Diameter);
      NumberLine(out, hole.SlotLength);
      Plain(out, hole.CounterSunk);
      NumberLine(out, hole.RelX);
      NumberLine(out, hole.DrawGap);
    }
    NumberLine(out, item.NotchCount());
    Quoted(out, item.PatternName);
    NumberLine(out, item.CustomHoleCount);
    Plain(out, item.Pitch);
    NumberLine(out, item.JointingPieces);
    NumberLine(out, item.SagBarDia);
  }
  out += " 0 \r\n 0 \r\n";
  for (const Boolean flag : AccUsed) NumberLine(out, flag);
  return out;
}

// The job's CAM file by straight code; its purlins have whole-number diameters and neither slots
// nor notches.
std::string StraightCamText() {
  std::string out =
      "COLDCAM 5.3\r\n* Job Number: J100\r\n* Customer:   Customer\r\n* Project:    Shed\r\n"
      "* Designer:   AB\r\n* Date:       05/03/24\r\n*\r\n"
      "* Created:    Tue Mar 05 2024 14:07:09\r\n\r\n";
  for (const Item& item : Items) {
    Plain(out, "PURLIN");
    Plain(out, item.Mark);
    Plain(out, item.Product);
    Digits(out, static_cast<int>(item.Quantity)), out += "\r\n";
    Digits(out, static_cast<int>(item.Length)), out += "\r\n";
    Digits(out, static_cast<int>(item.HoleCount())), out += "\r\n";
    for (int row = 1; row <= item.HoleCount(); ++row) {
      const Hole& hole = item.Holes.At(row);
      const std::size_t start = out.size();
      Digits(out, item.Length - hole.XPos);
      out.append(start + 10 - out.size(), ' ');
      ((((((out += hole.BF) += ' ') += hole.W1) += ' ') += hole.W2) += ' ') += hole.TF;
      out += ' ';
      Digits(out, static_cast<int>(hole.Diameter));
      out.append(start + 41 - out.size(), ' ');
      out += "\r\n";
    }
    out += "0.0 0.0\r\n0\r\n\r\n";
  }
  return out;
}

void RebuildAll() {
  for (int row = 1; row <= Items.UBound(); ++row) {
    RebuildHoles(Int16(row), Items.At(row).PatternName);
  }
}

void OpenProject(benchmark::State& state) {
  bench::FillTables(Sections, HolesEach);
  const std::string path = bench::TempPath("open.ovd");
  WriteWholeFile(path, ProjectText());
  for (auto _ : state) {
    state.PauseTiming();
    Items.Clear();
    state.ResumeTiming();
    ReadProjectFile(path);
  }
  if (Items.UBound() != Sections) state.SkipWithError("sections are missing");
}
BENCHMARK(OpenProject)->Unit(benchmark::kMillisecond);

void FloorOfOpenProject(benchmark::State& state) {
  bench::FillTables(Sections, HolesEach);
  const std::string path = bench::TempPath("open.ovd");
  WriteWholeFile(path, ProjectText());
  for (auto _ : state) {
    const std::string text = ReadWholeFile(path);
    const auto fields = bench::SplitFields(text);
    benchmark::DoNotOptimize(fields.data());
  }
}
BENCHMARK(FloorOfOpenProject)->Unit(benchmark::kMillisecond);

// A new file at each turn, as the first save of a job; and a save over the former one, which is
// kept as a backup before.
void SaveProject(benchmark::State& state) {
  bench::FillTables(static_cast<int>(state.range(1)), HolesEach);
  const bool over = state.range(0) != 0;
  state.SetLabel(over ? "over a former file" : "new file");
  const std::string path = bench::TempPath("save.ovd");
  WriteProjectFile(path);
  for (auto _ : state) {
    if (!over) {
      state.PauseTiming();
      std::filesystem::remove(path);
      state.ResumeTiming();
    }
    WriteProjectFile(path);
  }
}
BENCHMARK(SaveProject)
    ->ArgsProduct({{0, 1}, {5000, Sections}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// A main window that nobody looks at.
class StillScreen : public MainScreen {
 public:
  void ForgetEditors() override {}
  void DisplayItems() override {}
  void ClearDetailPanel() override {}
  void EmptyHoleList() override {}
  void SelectFirstItem() override {}
  void SetAccUsage() override {}
  void ClearAccUsage() override {}
  void ShowFileName(const std::string&) override {}
  void ShowRecentFiles() override {}
  void ShowSectionErrors(const std::string&) override {}
  void ShowJobNote(const std::string&) override {}
  void ClearDrawing() override {}
  void RefreshProjectDetails() override {}
  void ShowProjectDetails() override {}
  void GoTo(const TextPlace&) override {}
};

// A desktop whose thread apart from the windows has its turn when it is waited for.
class LaterDesktop : public HeadlessDesktop {
 public:
  void RunApart(std::function<void()> action) override { handedOver_.push_back(std::move(action)); }
  void FinishApart() override {
    for (const auto& action : std::exchange(handedOver_, {})) action();
  }

 private:
  std::vector<std::function<void()>> handedOver_;
};

// What the user waits for at "Save" of a job that stands in its file: whether somebody else has
// changed it is looked at, a backup is made, and what is replaced is handed over as an earlier
// version.
void SaveCommand(benchmark::State& state) {
  bench::FillTables(static_cast<int>(state.range(0)), HolesEach);
  LaterDesktop desktop;
  StillScreen screen;
  InstallDesktop(desktop);
  InstallMainScreen(screen);
  const std::string path = bench::TempPath("command.ovd");
  KeepVersionsIn(bench::TempPath("data"));
  WriteProjectFile(path);
  ProjectFileName = path;
  BeginHistory();
  KnowContentOf(path);
  desktop.FinishApart();
  for (auto _ : state) {
    if (!orvane::SaveProject(False)) state.SkipWithError("it isn't saved");
    state.PauseTiming();
    desktop.FinishApart();
    state.ResumeTiming();
  }
  ForgetContent();
  EndHistory();
  ProjectFileName.clear();
  KeepVersionsIn({});
  UninstallMainScreen();
  bench::InstallStillDesktop();
}
BENCHMARK(SaveCommand)->Arg(5000)->Arg(Sections)->Unit(benchmark::kMillisecond)->UseRealTime();

// Puts a text in the place of a file by the straight steps: beside it, brought to the disk, moved
// over it, the folder brought to the disk.
void ReplaceStraight(const std::string& path, const std::string& text) {
  WriteWholeFile(path + ".new", text);
  std::filesystem::rename(path + ".new", path);
  TheDisk().SyncFolder(FolderOfPath(path));
}

// The same two: straight formatting, the new text split as a reader splits it, and one durable
// write; or the former file read, split and durably written to another name before.
void FloorOfSaveProject(benchmark::State& state) {
  bench::FillTables(static_cast<int>(state.range(1)), HolesEach);
  if (StraightProjectText() != ProjectText()) state.SkipWithError("the floor writes other figures");
  const bool over = state.range(0) != 0;
  state.SetLabel(over ? "over a former file" : "new file");
  const std::string path = bench::TempPath("floor.ovd");
  WriteWholeFile(path, StraightProjectText());
  for (auto _ : state) {
    const std::string text = StraightProjectText();
    const auto back = bench::SplitFields(text);
    benchmark::DoNotOptimize(back.data());
    if (over) {
      const std::string former = ReadWholeFile(path);
      const auto fields = bench::SplitFields(former);
      benchmark::DoNotOptimize(fields.data());
      ReplaceStraight(path + ".bak", former);
    } else {
      state.PauseTiming();
      std::filesystem::remove(path);
      state.ResumeTiming();
    }
    ReplaceStraight(path, text);
  }
}
BENCHMARK(FloorOfSaveProject)
    ->ArgsProduct({{0, 1}, {5000, Sections}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void ExportCamFile(benchmark::State& state) {
  bench::FillTables(Sections, HolesEach);
  const std::string path = bench::TempPath("export.xov");
  for (auto _ : state) {
    RebuildAll();
    WriteFactoryFile(path, CamFile(Created));
  }
}
BENCHMARK(ExportCamFile)->Unit(benchmark::kMillisecond)->UseRealTime();

void FloorOfExportCamFile(benchmark::State& state) {
  bench::FillTables(Sections, HolesEach);
  if (StraightCamText() != CamFile(Created).Text) {
    state.SkipWithError("the floor writes other figures");
  }
  const std::string path = bench::TempPath("floor.xov");
  for (auto _ : state) {
    RebuildAll();
    ReplaceWholeFile(path, StraightCamText());
  }
}
BENCHMARK(FloorOfExportCamFile)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
