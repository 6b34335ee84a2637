// What the tests of the table of a type 2 accessory share: the dialog opened on lines of the
// project, and a person's hands in it.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

#include "tests/screens/dialog_fixture.h"
#include "ui/dialogs/frm_acc02.h"

namespace orvane::test {

// Rows of the shipped catalogue.
constexpr std::int16_t PurlinSleeves = 6;  // Mark, No.Off, Product, Length
constexpr std::int16_t SplicePlates = 7;   // Mark, No.Off, Product, Thickness (choices), Length
constexpr std::int16_t VcrAssemblies = 8;  // nine columns in groups, choices in 8 and 9
constexpr std::int16_t ApexTies = 10;      // Mark, No.Off, Purlin, Apex Crs, Pitch
constexpr std::int16_t ScrewSagBars = 11;  // Mark, No.Off, Section, Purlin Crs, Rail Crs
constexpr std::int16_t DoorJambKits = 20;  // Mark, No.Off, Opening, Height, Hand; no picture

using Texts = std::vector<std::string>;

class Acc02Test : public DialogTest {
 protected:
  void SetUp() override;

  // A line of the project past the screen: the mark, the number off and the values.
  static void PutLine(std::int16_t accIndex, const std::string& mark, std::int16_t noOff,
                      const Texts& values);
  // The project's lines of an accessory, each as its mark, number off and values.
  static std::vector<Texts> Stored(std::int16_t accIndex);
  // Gives an accessory of the catalogue these columns behind "Mark" and "No.Off", without groups
  // and choices.
  static AccDef& Reshape(std::int16_t accIndex, const Texts& columns);
  static void GiveChoices(AccDef& accessory, int column, const Texts& texts);

  // Opens the dialog and runs the action in it; one that leaves it open is cancelled.
  void InDialog(std::int16_t accIndex, const std::function<void(FrmAcc02&)>& action);

  static FlexGrid& Grid(QWidget& form) { return Find<FlexGrid>(form, "MSFlexGrid1"); }
  static QLineEdit& Text(QWidget& form) { return Find<QLineEdit>(form, "txtEdit"); }
  static QComboBox& Choices(QWidget& form, int column) {
    return Find<QComboBox>(form, "cboEdit(" + std::to_string(column) + ")");
  }
  static QPushButton& Button(QWidget& form, int index) {
    return Find<QPushButton>(form, "cmdButton(" + std::to_string(index) + ")");
  }
  static void ClickButton(QWidget& form, int index) {
    QTest::mouseClick(&Button(form, index), Qt::LeftButton);
  }
  static void Trigger(QWidget& form, const std::string& entry) {
    Find<QAction>(form, entry).trigger();
  }
  void Click(QWidget& form, int row, int column) { ClickCell(Grid(form), row, column); }
  // Puts a text into a cell by a click and typing.
  void TypeInto(QWidget& form, int row, int column, const std::string& text);
  static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  static void Keys(const std::string& text);

  // All cells behind the fixed column.
  static std::vector<Texts> Cells(QWidget& form);
  // Whether exactly the right editor lies on the cell, with the focus and that text.
  static void ExpectEditing(QWidget& form, int row, int column, const std::string& text);
  static void ExpectNoEditor(QWidget& form);
};

}  // namespace orvane::test
