// What the tests of the main window's state share: the program ended and started again, and what
// it has stored.
#pragma once

#include <QScreen>
#include <QSplitter>
#include <optional>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "project/sections.h"
#include "tests/screens/screen_fixture.h"

namespace orvane::test {

inline constexpr int FrameWidth = 2;  // of a window without a display

using Stored = std::vector<std::optional<std::string>>;

class WindowStateTest : public ScreenTest {
 protected:
  void SetUp() override { ScreenTest::SetUp(); }

  // The program ended and started again.
  void Restart() {
    main.reset();
    details.reset();
    StartMain();
  }

  void Store(const std::string& state, int width, int height, int top, int left) {
    StoreScreenSetting("State", state);
    StoreScreenSetting("Width", DecimalText(width));
    StoreScreenSetting("Height", DecimalText(height));
    StoreScreenSetting("Top", DecimalText(top));
    StoreScreenSetting("Left", DecimalText(left));
  }

  // State, Width, Height, Top, Left as they stand in the store.
  Stored InStore() {
    Stored values;
    for (const char* name : {"State", "Width", "Height", "Top", "Left"}) {
      values.push_back(
          platform.Settings().Query(TheSettingsRoot, SettingsKey + "\\Settings\\Screen", name));
    }
    return values;
  }

  Stored Present(const std::string& state) {
    return {state, DecimalText(main->width()), DecimalText(main->height()), DecimalText(main->y()),
            DecimalText(main->x())};
  }

  static void DragBar(QSplitter& splitter, int bar, QPoint by) {
    QSplitterHandle* handle = splitter.handle(bar);
    const QPoint from = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(handle, from + by);
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, from + by);
  }

  QRect Free() { return main->screen()->availableGeometry(); }
  // A size that fits the window and the screen, and isn't the first one.
  QSize SomeSize() { return main->minimumSizeHint() + QSize(3, 5); }

  // A section shorter than its last hole.
  void AddTooShort() {
    const std::int16_t row = AddSectionRow("Z");
    Item& item = Items.At(row);
    item.Mark = "P1";
    item.Product = "Z15";
    item.Length = 1000;
    item.Holes.Append(Hole{}).XPos = 1001;
    ProjectDirty = False;
  }
  void ExpectTooShort(QMessageBox::StandardButton answer) {
    dialogs.ExpectBox("P1 : Z15 Length shorter than last hole position \nQuit anyway?", "Warning",
                      answer);
  }
  void ExpectSaveQuestion(QMessageBox::StandardButton answer) {
    dialogs.ExpectBox("Save changes to current project?", "Exit", answer);
  }
};

}  // namespace orvane::test
