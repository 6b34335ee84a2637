#include "fuzz/quiet_desktop.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "core/model.h"

namespace orvane::fuzz {

Answer QuietDesktop::ShowMessageBox(const std::string& text, const std::string&, Buttons buttons,
                                    Icon) {
  ++Boxes;
  LastText = text;
  return buttons == Buttons::Ok ? Answer::Ok : Answer::No;
}

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
  QuietDesktop desktop;
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
