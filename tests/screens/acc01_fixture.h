// What the tests of the type 1 dialog share: its controls, a person's hands in it, and a printer.
#pragma once

#include <QLabel>
#include <QPrinter>
#include <QProcess>

#include "tests/screens/accessories_fixture.h"
#include "tests/support/patience.h"
#include "ui/platform/printing.h"

namespace orvane::test {

using Texts = std::vector<std::string>;

class Acc01Test : public AccessoriesTest {
 protected:
  static QLineEdit& Qty(QWidget& form, int i) {
    return Find<QLineEdit>(form, "txtQty(" + std::to_string(i) + ")");
  }
  static QLineEdit& Param(QWidget& form, int i) {
    return Find<QLineEdit>(form, "txtParam(" + std::to_string(i) + ")");
  }
  static QLabel& Label(QWidget& form, const std::string& array, int i) {
    return Find<QLabel>(form, array + "(" + std::to_string(i) + ")");
  }
  static QPushButton& Button(QWidget& form, int index) {
    return Find<QPushButton>(form, "SSCommand2(" + std::to_string(index) + ")");
  }
  static void ClickButton(QWidget& form, int index) {
    QTest::mouseClick(&Button(form, index), Qt::LeftButton);
  }
  // The texts of a column of fields, hidden ones too.
  static Texts Quantities(QWidget& form) {
    Texts texts;
    for (int i = 1; i <= AccDefs.At(CurrentAcc).ParamCount(); ++i) {
      texts.push_back(FromQt(Qty(form, i).text()));
    }
    return texts;
  }
  // Clicks into the field and types over what it holds.
  void Enter(QWidget& form, int i, const std::string& text) {
    QTest::mouseClick(&Qty(form, i), Qt::LeftButton);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    Type(text);
  }
  // Texts of the labels of an array that are shown.
  static Texts Shown(QWidget& form, const std::string& array, int first, int last) {
    Texts texts;
    for (int i = first; i <= last; ++i) {
      const QLabel& label = Label(form, array, i);
      if (label.isVisible()) texts.push_back(FromQt(label.text()));
    }
    return texts;
  }
  static QRect PlaceIn(QWidget& form, const QWidget& control) {
    return {control.mapTo(&form, QPoint(0, 0)), control.size()};
  }

  // Gives the accessory so many sizes, named "C1" and so on.
  static void GiveSizes(int accIndex, int count, const std::string& text = "Size") {
    AccDef& accessory = AccDefs.At(accIndex);
    accessory.ParamNames.Clear();
    accessory.ParamTexts.Clear();
    for (int i = 1; i <= count; ++i) {
      accessory.ParamNames.Append("C" + std::to_string(i));
      accessory.ParamTexts.Append(text);
    }
  }

  // Prints into a file in place of asking for a printer; counts how often it was asked.
  void PrintInto(const std::string& path) {
    ReplacePrintDialog([this, path](QPrinter& printer, QWidget* parent) {
      ++asked;
      askedBy = FromQt(parent->objectName());
      jobName = FromQt(printer.docName());
      if (path.empty()) return false;
      printer.setOutputFileName(ToQt(path));
      return true;
    });
  }
  static std::string TextOfPdf(const std::string& path) {
    QProcess process;
    process.start("pdftotext", {"-raw", ToQt(path), "-"});
    EXPECT_TRUE(process.waitForFinished(Patience));
    return FromQt(QString::fromUtf8(process.readAllStandardOutput()));
  }
  void TearDown() override {
    ReplacePrintDialog({});
    AccessoriesTest::TearDown();
  }

  int asked = 0;
  std::string askedBy;
  std::string jobName;
};

}  // namespace orvane::test
