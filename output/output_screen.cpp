#include "output/output_screen.h"

#include <stdexcept>

namespace orvane {

namespace {

OutputScreen* installedScreen = nullptr;  // not owned

}  // namespace

void InstallOutputScreen(OutputScreen& screen) {
  installedScreen = &screen;
}

void UninstallOutputScreen() {
  installedScreen = nullptr;
}

OutputScreen& TheOutputScreen() {
  if (installedScreen == nullptr) throw std::logic_error("no output screen installed");
  return *installedScreen;
}

}  // namespace orvane
