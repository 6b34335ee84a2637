#include "ui/platform/guard.h"

#include <QCoreApplication>
#include <QTimer>
#include <string>

namespace orvane {

void ShowErrorLater(const std::exception& error) {
  QTimer::singleShot(0, QCoreApplication::instance(), [text = std::string(error.what())] {
    Guard([&text] { TheDesktop().Message(text); });
  });
}

}  // namespace orvane
