#include "bench/bench_support.h"

#include <filesystem>

#include "core/headless_desktop.h"
#include "core/model.h"
#include "holes/hole_list.h"

namespace orvane::bench {

namespace {

// Codes that give `holes` holes: the end pairs first, then four at a time, so that the count is
// exact and the short gaps between the pairs must be widened.
std::string Codes(int holes) {
  std::string codes;
  for (int made = 0; made < holes; made += 4) {
    codes += codes.empty() ? "A0 A6" : made % 8 == 4 ? " E1 E5" : " F2 F4 F7 F8";
  }
  return codes;
}

}  // namespace

void FillTables(int sections, int holes) {
  ResetModel();
  InstallStillDesktop();
  for (int row = 1; row <= 100; ++row) {
    SectionDim dim;
    dim.SectionType = "Z";
    dim.Product = "Z" + std::to_string(10000 + row);
    dim.Dim3 = 200;
    dim.Dim4 = 65;
    dim.Dim5 = 60;
    dim.Dim7 = 18;
    dim.Dim8 = 18;
    dim.Dim9 = 42;
    dim.Dim10 = 116;
    dim.Dim11 = 42;
    dim.Dim13 = 75;
    SectionDims.Append(dim);
  }
  for (int row = 1; row <= 60; ++row) {
    PunchPattern pattern;
    pattern.SectionType = "Z";
    pattern.Name = "Pattern " + std::to_string(row);
    pattern.Codes = Codes(holes);
    PunchPatterns.Append(pattern);
  }
  AccType1Count = 5;
  AccType2Count = 17;
  AccDefs.Resize(AccType1Count + AccType2Count);
  AccUsed.Resize(AccDefs.UBound());
  DrawingWidth = 180;
  MinHoleSep = 4;
  DTPicker1 = {2024, 3, 5};
  txtProject = {"1234", "J100", "Customer", "Shed", "AB"};

  Items.Reserve(sections);
  for (int row = 1; row <= sections; ++row) {
    Item item;
    item.Mark = "Z" + std::to_string(row);
    item.SectionType = "Z";
    item.Product = "Z" + std::to_string(10001 + row % 100);
    item.Length = Int16(3000 + row % 7001);
    item.Quantity = Int16(1 + row % 40);
    item.Notes = "Bay " + std::to_string(row % 17);
    item.PatternName = "Pattern " + std::to_string(1 + row % 60);
    item.SagBarDia = 18;
    Items.Append(item);
    RebuildHoles(Int16(row), item.PatternName);
  }
}

std::string TempPath(const std::string& name) {
  static const std::filesystem::path folder = [] {
    std::filesystem::path made = std::filesystem::temp_directory_path() / "orvane-bench";
    std::filesystem::create_directories(made);
    return made;
  }();
  return (folder / name).string();
}

std::vector<std::string_view> SplitFields(std::string_view text) {
  std::vector<std::string_view> fields;
  fields.reserve(text.size() / 4);  // roughly: fields are short
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at;
    while (end < text.size() && text[end] != ',' && text[end] != '\r' && text[end] != '\n') ++end;
    fields.push_back(text.substr(at, end - at));
    at = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
  }
  return fields;
}

void InstallStillDesktop() {
  static HeadlessDesktop desktop;
  InstallDesktop(desktop);
}

}  // namespace orvane::bench
