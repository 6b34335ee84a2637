// A monkey at the keyboard: seeded random keys, clicks and commands on every screen, with the
// invariants of the model looked at after each. ORVANE_MONKEY_EVENTS and ORVANE_MONKEY_SEED choose
// a longer or another run.
#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>
#include <random>
#include <utility>

#include "core/settings.h"
#include "tests/screens/screen_fixture.h"

namespace orvane::test {

namespace {

constexpr int UsualEvents = 2000;
constexpr unsigned UsualSeed = 20240305;

int FromEnvironment(const char* name, int usual) {
  bool good = false;
  const int value = qEnvironmentVariableIntValue(name, &good);
  return good && value > 0 ? value : usual;
}

class MonkeyTest : public ScreenTest {
 protected:
  void SetUp() override {
    // The monkey answers the windows itself.
    dialogs.Stop();
    ScreenTest::SetUp();
    Arm();
  }

  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  bool Chance(int percent) { return Pick(100) < percent; }

  // A random key for whatever has the focus.
  void Key(QWidget& window) {
    QWidget* focus = QApplication::focusWidget();
    // Keys sent past a modal window would do what no person can.
    if (focus == nullptr || !window.isAncestorOf(focus)) focus = &window;
    static const std::vector<Qt::Key> keys = {
        Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Up,
        Qt::Key_Down,   Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Home,     Qt::Key_End,
        Qt::Key_Delete, Qt::Key_Escape,  Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Backspace,
        Qt::Key_F4,     Qt::Key_Space};
    static const std::string letters = "0123456789 0123456789abcPZx-.";
    // The keys of the menus and the keys that choose in closed lists.
    if (Chance(6)) {
      const Qt::Key key = keys[static_cast<std::size_t>(Pick(static_cast<int>(keys.size())))];
      const Qt::KeyboardModifier with = Chance(50) ? Qt::AltModifier : Qt::ControlModifier;
      QTest::keyClick(focus, key, with);
      return;
    }
    if (Chance(55)) {
      QTest::keyClick(focus,
                      letters[static_cast<std::size_t>(Pick(static_cast<int>(letters.size())))]);
    } else {
      const Qt::Key key = keys[static_cast<std::size_t>(Pick(static_cast<int>(keys.size())))];
      QTest::keyClick(focus, key, Chance(15) ? Qt::ShiftModifier : Qt::NoModifier);
    }
  }

  // A click somewhere on a visible control of a window.
  void ClickIn(QWidget& window) {
    QList<QWidget*> targets;
    for (QWidget* child : window.findChildren<QWidget*>()) {
      if (child->isVisibleTo(&window) && child->isEnabled() && !child->size().isEmpty()) {
        targets.push_back(child);
      }
    }
    if (targets.isEmpty()) return;
    QWidget* target = targets[Pick(static_cast<int>(targets.size()))];
    // The month sheet of a date field and the like live in windows of their own.
    if (target->window() != &window) return;
    const QPoint place(Pick(target->width()), Pick(target->height()));
    QTest::mouseClick(target, Chance(15) ? Qt::RightButton : Qt::LeftButton, Qt::NoModifier, place);
  }

  // An entry of a menu or of the toolbar; the exit is left alone, since it ends the run.
  void Entry() {
    const std::vector<CommandEntry>& table = CommandTable();
    const CommandEntry& entry =
        table[static_cast<std::size_t>(Pick(static_cast<int>(table.size())))];
    if (entry.What == Command::Exit || entry.What == Command::None) return;
    if (Items.UBound() > 60 && entry.What != Command::Delete) return;
    main->Run(entry.What, entry.What == Command::Recent ? 1 + Pick(5) : 0);
  }

  // Answers a modal window: keys and clicks in it, then a button.
  void Answer(QWidget& window) {
    for (int strokes = Pick(4); strokes > 0; --strokes) {
      if (QApplication::activeModalWidget() != &window) return;
      Key(window);
    }
    if (QApplication::activeModalWidget() != &window) return;
    const QList<QAbstractButton*> buttons = window.findChildren<QAbstractButton*>();
    QList<QAbstractButton*> shown;
    for (QAbstractButton* button : buttons) {
      if (button->isVisible() && button->isEnabled()) shown.push_back(button);
    }
    auto* dialog = qobject_cast<QDialog*>(&window);
    if (shown.isEmpty() || Chance(20)) {
      if (dialog != nullptr) dialog->reject();
    } else {
      QTest::mouseClick(shown[Pick(static_cast<int>(shown.size()))], Qt::LeftButton);
    }
    if (QApplication::activeModalWidget() == &window && dialog != nullptr && ++held_ > 3) {
      dialog->reject();
      held_ = 0;
    }
  }

  void Arm() {
    QTimer::singleShot(0, &timer_, [this] { Look(); });
  }

  void Look() {
    QTimer::singleShot(1, &timer_, [this] { Look(); });
    if (QWidget* popup = QApplication::activePopupWidget()) {
      QTest::keyClick(popup, Chance(50) ? Qt::Key_Down : Qt::Key_Escape);
      if (QApplication::activePopupWidget() == popup && Chance(60)) {
        QTest::keyClick(popup, Chance(40) ? Qt::Key_Return : Qt::Key_Escape);
      }
      return;
    }
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr || !window->isVisible() || window == answering_) return;
    // A window may open another one while it is answered.
    QWidget* const outer = std::exchange(answering_, window);
    Answer(*window);
    answering_ = outer;
  }

  // What must hold after every event.
  void CheckInvariants() {
    const FlexGrid& grid = Sections();
    ASSERT_EQ(grid.Rows(), Items.UBound() + 1);
    ASSERT_LE(CurrentItem, Items.UBound());
    ASSERT_LE(grid.Row(), Items.UBound());
    if (CurrentItem > 0) {
      ASSERT_EQ(grid.Model().GreyRow(), CurrentItem);
    }
    for (int row = 1; row <= Items.UBound(); ++row) {
      const Item& item = Items.At(row);
      ASSERT_EQ(grid.TextMatrix(row, 0), item.SectionType);
      ASSERT_EQ(grid.TextMatrix(row, 1), item.Mark);
      ASSERT_EQ(grid.TextMatrix(row, 2), item.Product);
      ASSERT_EQ(Val(grid.TextMatrix(row, 3)) == item.Length, true) << grid.TextMatrix(row, 3);
      ASSERT_EQ(Val(grid.TextMatrix(row, 4)) == item.Quantity, true) << grid.TextMatrix(row, 4);
      ASSERT_EQ(grid.TextMatrix(row, 5), item.Notes);
      ASSERT_EQ(item.HoleCount, item.Holes.UBound());
      ASSERT_EQ(item.NotchCount, item.Notches.UBound());
      int custom = 0;
      for (int hole = 1; hole <= item.HoleCount; ++hole) {
        if (item.Holes.At(hole).Kind == CustomKind) ++custom;
        if (hole == 1) continue;
        ASSERT_LE(item.Holes.At(hole - 1).XPos, item.Holes.At(hole).XPos);
      }
      ASSERT_EQ(custom, item.CustomHoleCount);
    }
    if (Focus() == "txtEdit" || Focus() == "cboEdit") {
      const std::string panel = Focus() == "txtEdit" ? "sspEditText" : "sspEditCombo";
      ASSERT_EQ(Find(panel).geometry(), grid.CellRect(grid.Row(), grid.Col()));
    }
    auto& list = Find<QListWidget>("lstAccessories");
    ASSERT_EQ(list.count(), AccDefs.UBound());
  }

  std::mt19937 random_{static_cast<unsigned>(FromEnvironment("ORVANE_MONKEY_SEED", UsualSeed))};

 private:
  QObject timer_;
  QWidget* answering_ = nullptr;
  int held_ = 0;
};

TEST_F(MonkeyTest, Random_keys_clicks_and_commands_leave_the_model_in_order) {
  // The exit would end the run.
  ScreenTest::Entry("mnuProject(15)").setEnabled(false);
  Find<QAbstractButton>("SSCommand1(0)").setEnabled(false);
  const std::string job = TempPath("monkey.ovd");
  platform.AnyFile = [this, job]() -> std::optional<std::string> {
    if (Chance(20)) return std::nullopt;
    return job;
  };
  const int events = FromEnvironment("ORVANE_MONKEY_EVENTS", UsualEvents);
  for (int event = 1; event <= events; ++event) {
    SCOPED_TRACE("event " + std::to_string(event));
    const int kind = Pick(100);
    if (kind < 60) {
      Key(*main);
    } else if (kind < 85) {
      ClickIn(*main);
    } else {
      Entry();
    }
    QCoreApplication::processEvents();
    if (event % 7 == 0) QTest::qWait(2);
    while (QApplication::activePopupWidget() != nullptr ||
           QApplication::activeModalWidget() != nullptr) {
      QTest::qWait(2);
    }
    if (!main->isVisible()) {
      main->show();
      main->activateWindow();
    }
    CheckInvariants();
    if (HasFatalFailure()) return;
  }
}

}  // namespace

}  // namespace orvane::test
