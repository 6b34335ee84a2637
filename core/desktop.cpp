#include "core/desktop.h"

#include <exception>
#include <stdexcept>

namespace orvane {

namespace {

Desktop* installedDesktop = nullptr;  // not owned

}  // namespace

void InstallDesktop(Desktop& desktop) {
  installedDesktop = &desktop;
}

void UninstallDesktop() {
  installedDesktop = nullptr;
}

Desktop& TheDesktop() {
  if (installedDesktop == nullptr) throw std::logic_error("no desktop installed");
  return *installedDesktop;
}

bool Tell(const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (const std::exception& error) {
    TheDesktop().Message(error.what());
    return false;
  }
}

}  // namespace orvane
