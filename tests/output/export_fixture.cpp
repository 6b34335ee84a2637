#include "tests/output/export_fixture.h"

#include <algorithm>
#include <filesystem>

#include "core/settings.h"
#include "output/validation.h"

namespace orvane::test {

Answer TracingDesktop::ShowMessageBox(const std::string& text, const std::string& title,
                                      Buttons buttons, Icon icon) {
  const bool plain = title.empty() && buttons == Buttons::Ok && icon == Icon::None;
  trace_.push_back((plain ? "message: " : title + ": ") + text);
  return ScriptedDesktop::ShowMessageBox(text, title, buttons, icon);
}

std::optional<std::string> TracingDesktop::ShowOpenDialog(const FileDialog& dialog) {
  trace_.emplace_back("open dialog");
  return ScriptedDesktop::ShowOpenDialog(dialog);
}

std::optional<std::string> TracingDesktop::ShowSaveDialog(const FileDialog& dialog) {
  trace_.emplace_back("save dialog");
  return ScriptedDesktop::ShowSaveDialog(dialog);
}

void TracingScreen::ShowExportErrors() {
  trace_.emplace_back("error list");
  for (const std::string& line : ExportErrors) trace_.push_back(line);
}

ExportRunTest::ExportRunTest() {
  InstallDesktop(user);
  InstallOutputScreen(window);
  AddAccessories();
  // What the tests' sections are made of, so that the check has nothing to say of them.
  SectionDim product;
  product.SectionType = "C";
  product.Product = "X20018";
  product.Dim3 = 200;
  product.Dim4 = product.Dim5 = 65;
  product.Dim9 = product.Dim11 = 45;
  product.Dim10 = 110;
  product.Dim13 = 75;
  SectionDims.Append(product);
  PunchPattern sleeved;
  sleeved.SectionType = "Z";
  sleeved.Name = "2 Row Sleeved";
  sleeved.Codes = "B0 B6";
  PunchPatterns.Append(sleeved);
}

ExportOutcome ExportRunTest::Export(const std::optional<std::string>& chosen) {
  trace.clear();
  user.Chosen = {chosen};
  return RunExport();
}

void ExportRunTest::AddChannel() {
  Items.Append(MakeItem("C", "C1", 900));
}

void ExportRunTest::AddListedAccessory() {
  AccLines1.Append(MakeLine1(1, 2, 7));
  AccUsed.At(1) = True;
}

std::string ExportRunTest::CamDirectorySetting() {
  return user.Values.Query(TheSettingsRoot, "SOFTWARE\\Lintaro\\Settings", "CAMDirectory")
      .value_or("not stored");
}

std::string ExportRunTest::Complete(const TextList& names) {
  std::string line = "message: CAM export complete";
  for (const std::string& name : names) line += "\r" + TempPath(name);
  return line;
}

std::string ExportRunTest::ListFailed() {
  return "message: CAM file written, accessory list failed\r" + TempPath("a.xov");
}

TextList ExportRunTest::Files() {
  TextList names;
  const std::filesystem::path folder = std::filesystem::path(TempPath("x")).parent_path();
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace orvane::test
