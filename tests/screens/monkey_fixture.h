// A monkey at the keyboard and the mouse: its hands for any window, and what it does on the main
// window. Each run has a seed of its own, which it prints; ORVANE_MONKEY_SEED runs one again,
// ORVANE_MONKEY_EVENTS makes it longer.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QPointer>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/screens/screen_fixture.h"

namespace orvane::test {

class MonkeyTest : public ScreenTest {
 protected:
  MonkeyTest();
  ~MonkeyTest() override;
  void SetUp() override;

  // Runs that many events, those inside dialogs counted with the others, and goes on until it is
  // enough, but not for ever. `checkAfter` runs after each of them, with the dialog in which it
  // happened or null for the main window; a fatal failure of it ends the run.
  void RunEvents(int events, const std::function<bool()>& enough,
                 std::function<void(QDialog*)> checkAfter);
  static int EventsWanted();
  // What a run has to be told to be the same again.
  std::string Replay() const;

  // How many events happened in each dialog, by its objectName.
  const std::map<std::string, int>& EventsInside() const { return inside_; }

 private:
  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  bool Chance(int percent) { return Pick(100) < percent; }
  template <class Item>
  const Item& OneOf(const std::vector<Item>& items) {
    return items.at(static_cast<std::size_t>(Pick(static_cast<int>(items.size()))));
  }

  // The hands. Each does one thing in a window.
  void Key(QWidget& window);
  void ClickIn(QWidget& window);
  void FillField(QWidget& window);
  void ClickGrid(QWidget& window);
  void ChooseEntry(QWidget& window);
  void TypeEntry(QComboBox& list);
  void ActInside(QWidget& window);
  void Replace(QLineEdit& field, const std::string& text);

  // On the main window.
  void ActOnMain();
  void RunEntry();
  void PrepareSection();
  void PrepareRow(int row, int pattern);
  void ChoosePattern(int entry);
  void OpenEditor();
  void OpenAccessory();

  // On whatever lies over it.
  void Look();
  void AnswerPopup(QWidget& popup);
  void AnswerBox(QWidget& window);
  void WorkIn(QDialog& dialog);
  void CloseDialog(QDialog& dialog);
  void PressAButton(QWidget& window);
  bool MayBeAnswered(const QWidget& window) const;

  int seed_;
  std::mt19937 random_;
  QObject timer_;
  std::function<void(QDialog*)> checkAfter_;
  int done_ = 0;
  std::vector<QPointer<QWidget>> answering_;  // windows that are being answered, inner ones last
  std::map<QDialog*, int> left_;              // events that a dialog still gets
  std::map<std::string, int> inside_;
  int held_ = 0;  // answers in a row that left a window open
};

}  // namespace orvane::test
