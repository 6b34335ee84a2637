// What the tests of the notches' dialog share: the dialog opened as a person opens it, its
// controls, its cells and what is stored.
#pragma once

#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

#include "tests/screens/sections_fixture.h"
#include "ui/dialogs/frm_notches.h"

namespace orvane::test {

using Texts = std::vector<std::string>;

constexpr int NotchesEntry = 14;  // of the section menu

class NotchesTest : public SectionsTest {
 protected:
  // One section with the cursor on its mark.
  Item& ShowOne(const std::vector<Notch>& notches = {});

  // Opens the dialog by its menu entry, runs the action in it, and comes back to the main window.
  // An action that leaves it open is cancelled.
  void InDialog(const std::function<void(QWidget&)>& action);

  static FlexGrid& Grid(QWidget& form) { return Find<FlexGrid>(form, "MSFlexGrid1"); }
  static QLineEdit& Text(QWidget& form) { return Find<QLineEdit>(form, "txtEdit"); }
  static QComboBox& Codes(QWidget& form) { return Find<QComboBox>(form, "cboEdit"); }
  static QWidget& Panel(QWidget& form, int index) {
    return Find(form, "SSPanelEdit(" + std::to_string(index) + ")");
  }

  // A person's hands.
  static void ClickButton(QWidget& form, const std::string& name) {
    QTest::mouseClick(&Find<QPushButton>(form, name), Qt::LeftButton);
  }
  static void Ok(QWidget& form) { ClickButton(form, "SSCommand2(0)"); }
  void Click(QWidget& form, int row, int column) { ClickCell(Grid(form), row, column); }
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  static void Keys(const std::string& text) {
    QTest::keyClicks(QApplication::focusWidget(), ToQt(text));
  }

  // All cells behind the heading, columns 1 to 4.
  static std::vector<Texts> Cells(QWidget& form);
  // The stored notches as code and sizes.
  static std::vector<Texts> Stored();
  // Whether exactly the right editor lies on the cell, with the focus and that text.
  static void ExpectEditing(QWidget& form, int row, int column, const std::string& text);
  static void ExpectNoEditor(QWidget& form);

  const std::vector<Notch> Three = {
      {"TL1", 12.5F, 0.1F, 40}, {"B2", 20, 100, 1500}, {"R3", 7, 8, 9}};
  const std::vector<Texts> ThreeTexts = {
      {"TL1", "12.5", "0.1", "40"}, {"B2", "20", "100", "1500"}, {"R3", "7", "8", "9"}};
  const Texts Blank = {"", "", "", ""};
};

}  // namespace orvane::test
