#include "core/desktop.h"

#include <exception>
#include <stdexcept>

#include "core/runtime_error.h"

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

void Desktop::ShowError(const std::string& /*file*/, const std::string& description) {
  Message(description);
}

void Desktop::RunApart(std::function<void()> action) {
  try {
    action();
  } catch (const std::exception&) {
    // As a thread of its own would lose it.
    return;
  }
}

std::optional<std::string> Desktop::ShowFolderDialog(const std::string& /*title*/,
                                                     const std::string& /*initialFolder*/) {
  return std::nullopt;
}

LaidLock Desktop::LayLock(const std::string& /*path*/, LockOfOthers /*others*/) {
  return {};
}

void TellInMessageBox(const std::string& description) {
  TheDesktop().ShowError({}, description);
}

bool Tell(const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (const RuntimeError& error) {
    TheDesktop().ShowError(error.File(), error.Description());
  } catch (const std::exception& error) {
    TheDesktop().ShowError({}, error.what());
  }
  return false;
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
