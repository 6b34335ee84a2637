// Catalogues of 5,000 rows, read at start-up, each beside the floor of reading and splitting its
// bytes.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include "bench/bench_support.h"
#include "core/catalogues.h"
#include "core/files.h"

namespace {

using namespace orvane;

constexpr int Rows = 5000;

std::string DimsText() {
  std::string text = "Type,Product,D3,D4,D5,D6,D7,D8,D9,D10,D11,D12,D13,D14\r\n";
  for (int row = 1; row <= Rows; ++row) {
    text += "Z,Z" + std::to_string(row) + ",200,65,60,0,20,18,45.5,109.5,45,0,75,0\r\n";
  }
  return text;
}

std::string PunchText() {
  std::string text;
  for (int row = 1; row <= Rows; ++row) {
    text += "Z,Pattern " + std::to_string(row) + ",A0 D2 D4 A6,S,\r\n";
  }
  return text;
}

std::string Accs1Text() {
  std::string text;
  for (int row = 1; row <= Rows / 5; ++row) {
    text += "A,Accessory " + std::to_string(row) + ",acc01,90,0,35,Y\r\n";
    for (int param = 1; param <= 4; ++param)
      text += "I,Long text of a part,P" + std::to_string(param) + "\r\n";
  }
  return text;
}

std::string Accs2Text() {
  std::string text;
  for (int row = 1; row <= Rows / 5; ++row) {
    text += "A,Accessory " + std::to_string(row) +
            ",acc01,90,0,35,OPTION\r\nG,Ends,2\r\nP,Left\r\nO,KT31\r\nP,Right\r\n";
  }
  return text;
}

struct Catalogue {
  const char* Name;
  std::string (*Text)();
  bool (*Load)(const std::string& path);
};
constexpr Catalogue Catalogues[] = {{"dims.csv", DimsText, LoadSectionDims},
                                    {"punch.csv", PunchText, LoadPunchPatterns},
                                    {"accs1.csv", Accs1Text, LoadAccessories1},
                                    {"accs2.csv", Accs2Text, LoadAccessories2}};

void LoadCatalogue(benchmark::State& state) {
  const Catalogue& catalogue = Catalogues[state.range(0)];
  state.SetLabel(catalogue.Name);
  bench::FillTables(0, 4);
  const std::string path = bench::TempPath(catalogue.Name);
  WriteWholeFile(path, catalogue.Text());
  for (auto _ : state) {
    AccDefs.Clear();
    AccType1Count = AccType2Count = 0;
    if (!catalogue.Load(path)) state.SkipWithError("the catalogue was not read");
  }
}
BENCHMARK(LoadCatalogue)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

void FloorOfLoadCatalogue(benchmark::State& state) {
  const Catalogue& catalogue = Catalogues[state.range(0)];
  state.SetLabel(catalogue.Name);
  const std::string path = bench::TempPath(catalogue.Name);
  WriteWholeFile(path, catalogue.Text());
  for (auto _ : state) {
    const std::string text = ReadWholeFile(path);
    const auto fields = bench::SplitFields(text);
    benchmark::DoNotOptimize(fields.data());
  }
}
BENCHMARK(FloorOfLoadCatalogue)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

}  // namespace
