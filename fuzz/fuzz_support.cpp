#include "fuzz/fuzz_support.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "core/headless_desktop.h"
#include "core/model.h"

namespace orvane::fuzz {

namespace {

// Counts the message boxes and keeps the text of the last one.
class CountingDesktop : public HeadlessDesktop {
 public:
  int Boxes = 0;
  std::string LastText;

  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override {
    ++Boxes;
    LastText = text;
    return HeadlessDesktop::ShowMessageBox(text, title, buttons, icon);
  }
};

}  // namespace

std::string InputFile(const std::uint8_t* data, std::size_t size) {
  static const int file = memfd_create("input", 0);
  if (file < 0 || ftruncate(file, 0) != 0 ||
      pwrite(file, data, size, 0) != static_cast<ssize_t>(size)) {
    Fail("the input can't be written");
  }
  return "/proc/self/fd/" + std::to_string(file);
}

void Fail(const char* finding) {
  (void)std::fprintf(stderr, "finding: %s\n", finding);
  std::abort();
}

void CheckCatalogueReader(bool (*load)(const std::string& path), const std::uint8_t* data,
                          std::size_t size) {
  CountingDesktop desktop;
  InstallDesktop(desktop);
  ResetModel();
  const std::string path = InputFile(data, size);
  const bool loaded = load(path);
  if (loaded && desktop.Boxes != 0) Fail("a message although the file was read");
  if (!loaded && desktop.Boxes != 1) Fail("a failed file without one message");
  const std::string start = "Error loading data from " + path + "\r";
  if (!loaded && (desktop.LastText.compare(0, start.size(), start) != 0 ||
                  desktop.LastText.size() == start.size())) {
    Fail("a message that doesn't say why");
  }
}

}  // namespace orvane::fuzz
