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

void TellInMessageBox(const std::string& description) {
  TheDesktop().Message(description);
}

bool Tell(const std::function<void()>& action, const Teller& tell) {
  try {
    action();
    return true;
  } catch (const std::exception& error) {
    tell(error.what());
    return false;
  }
}

}  // namespace orvane
