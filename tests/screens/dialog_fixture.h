// What the tests of the dialogs share: the desktop and the script of the screens, without the main
// window.
#pragma once

#include <QLabel>
#include <QPushButton>

#include "tests/screens/screen_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {

class DialogTest : public ScreenTest {
 protected:
  void SetUp() override {}

  // Shows the window and gives it the keys.
  static void ShowActive(QWidget& window) {
    window.show();
    WaitUntilActive(window);
  }
  // Keys that press a button from anywhere work in the active window alone.
  static void WaitUntilActive(QWidget& window) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, Patience));
  }

  // A button that is pressed by its key of its own acts a moment later.
  static void WaitUntilHidden(const QWidget& window) {
    EXPECT_TRUE(QTest::qWaitFor([&window] { return !window.isVisible(); }));
  }

  // The texts of all labels that show one, in the order in which they were made.
  static std::vector<std::string> LabelTexts(const QWidget& window) {
    std::vector<std::string> texts;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      if (!label->text().isEmpty()) texts.push_back(FromQt(label->text()));
    }
    return texts;
  }

  // The caption of the label that leads to a field; empty if none does.
  static std::string CaptionOf(const QWidget& window, const QWidget& field) {
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      if (label->buddy() == &field) return FromQt(label->text());
    }
    return "";
  }

  static std::vector<std::string> ButtonCaptions(const QWidget& window) {
    std::vector<std::string> captions;
    for (const QPushButton* button : window.findChildren<QPushButton*>()) {
      captions.push_back(FromQt(button->text()));
    }
    return captions;
  }

  // A stored text below the root; "(none)" for a value that isn't there.
  std::string Stored(const std::string& key, const std::string& name) {
    return platform.Settings()
        .Query(SettingsRoot::LocalMachine, SettingsKey + key, name)
        .value_or("(none)");
  }
};

}  // namespace orvane::test
