#include "ui/platform/guard.h"

#include <QCoreApplication>
#include <QTimer>
#include <string>

namespace orvane {

void ShowErrorLater(const std::exception& error) {
  ShowLater(error.what());
}

void ShowLater(const std::string& text) {
  if (text.empty()) return;
  QTimer::singleShot(0, QCoreApplication::instance(),
                     [text] { Guard([&text] { TheDesktop().Message(text); }); });
}

}  // namespace orvane
