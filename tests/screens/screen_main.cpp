// The tests' own main: one application without a display for all tests of a program.
#include <gtest/gtest.h>

#include <QApplication>

#include "ui/platform/alt_letters.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setApplicationName("Orvane Detailing System");
  QApplication::setQuitOnLastWindowClosed(false);
  orvane::KeepAltFromTyping();
  return RUN_ALL_TESTS();
}
