// What the tests of the hole dialog share: the dialog opened as a person opens it, and its
// controls.
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

#include "tests/screens/detail_fixture.h"
#include "ui/controls/picture_radio.h"
#include "ui/dialogs/frm_add_holes.h"

namespace orvane::test {

extern const std::string BadPosition;  // the refusal

class HoleDialogTest : public DetailTest {
 protected:
  // Puts a section of 3000 mm with those custom holes on the screen.
  Item& ShowSection(const std::string& letter, const std::vector<std::int16_t>& positions = {});

  // Opens the dialog by the button or the entry, runs the action on it, and closes it if the action
  // left it open.
  void InAbsolute(const std::function<void(FrmAddHoles&)>& action);
  void InRelative(const std::function<void(FrmAddHoles&)>& action);
  void InEdit(int customRow, const std::function<void(FrmAddHoles&)>& action);
  // The same, opened by any other hand.
  void InDialog(const std::function<void()>& open, std::function<void(FrmAddHoles&)> action);

  // Controls of the dialog.
  static QLineEdit& X(FrmAddHoles& dialog) { return Find<QLineEdit>(dialog, "txtXpos"); }
  static QLineEdit& Slot(FrmAddHoles& dialog) { return Find<QLineEdit>(dialog, "txtSlotLen"); }
  static QLineEdit& Y(FrmAddHoles& dialog) { return Find<QLineEdit>(dialog, "txtYPos"); }
  static QCheckBox& Sunk(FrmAddHoles& dialog) { return Find<QCheckBox>(dialog, "chkCounterSunk"); }
  static QAbstractButton& Button(FrmAddHoles& dialog, const std::string& name) {
    return Find<QAbstractButton>(dialog, name);
  }
  static PictureRadio& Picture(FrmAddHoles& dialog, const std::string& letter, int code);
  // The codes of the buttons that a set has.
  static std::vector<int> CodesOf(FrmAddHoles& dialog, const std::string& letter);
  // objectName of the one checked button of an array with indices from 0; empty for none.
  static std::string Checked(FrmAddHoles& dialog, const std::string& array);

  // A person's hands.
  static void Retype(QLineEdit& field, const std::string& text);
  static void ClickOn(QAbstractButton& button);
  // Types a position and presses Add or Update.
  void Store(FrmAddHoles& dialog, const std::string& x);
  // The same with the refusal foreseen and answered.
  void StoreRefused(FrmAddHoles& dialog, const std::string& x);

  static std::string LinesOf(const Hole& hole);
};

}  // namespace orvane::test
