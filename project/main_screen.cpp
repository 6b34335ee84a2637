#include "project/main_screen.h"

#include <stdexcept>

namespace orvane {

namespace {

MainScreen* installedMainScreen = nullptr;  // not owned

}  // namespace

void InstallMainScreen(MainScreen& screen) {
  installedMainScreen = &screen;
}

void UninstallMainScreen() {
  installedMainScreen = nullptr;
}

MainScreen& TheMainScreen() {
  if (installedMainScreen == nullptr) throw std::logic_error("no main screen installed");
  return *installedMainScreen;
}

}  // namespace orvane
