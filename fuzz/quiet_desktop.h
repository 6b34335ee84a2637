// What the fuzz targets share: a desktop that nobody sits at, and an input as a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/desktop.h"
#include "core/settings_file.h"

namespace orvane::fuzz {

// Counts the message boxes and keeps the text of the last one; refuses every question.
class QuietDesktop : public Desktop {
 public:
  int Boxes = 0;
  std::string LastText;

  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override;
  std::optional<std::string> ShowOpenDialog(const FileDialog&) override { return std::nullopt; }
  std::optional<std::string> ShowSaveDialog(const FileDialog&) override { return std::nullopt; }
  void ProcessEvents() override {}
  std::string ShortDateForm() const override { return "dd/MM/yyyy"; }
  SettingsStore& Settings() override { return settings_; }
  std::string UserDataFolder() override { return {}; }
  void ShowHelp(const std::string&) override {}
  Moment Now() const override { return {{2024, 3, 5}, 14, 7, 9}; }

 private:
  MemorySettings settings_;
};

// The path of a file in memory that holds the input; it is the same file at each call.
std::string InputFile(const std::uint8_t* data, std::size_t size);

// Ends the run with a text, which the fuzzer takes for a finding.
[[noreturn]] void Fail(const char* finding);

// Runs one of the catalogue readers on the input and holds it to what every reader promises: true
// without a word, or false with one message that names the file and says why.
void CheckCatalogueReader(bool (*load)(const std::string& path), const std::uint8_t* data,
                          std::size_t size);

}  // namespace orvane::fuzz
