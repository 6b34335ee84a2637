#include "ui/platform/guard.h"

#include <QCoreApplication>
#include <QTimer>
#include <string>

#include "core/desktop.h"

namespace orvane {

void ShowError(const std::exception& error) {
  TheDesktop().Message(error.what());
}

void ShowErrorLater(const std::exception& error) {
  QTimer::singleShot(0, QCoreApplication::instance(), [text = std::string(error.what())] {
    Guard([&text] { TheDesktop().Message(text); });
  });
}

}  // namespace orvane
