// What the tests of the accessory list and of the type 1 dialog share: the list with its entries,
// the pop-up, and the dialogs that it opens.
#pragma once

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

#include "tests/screens/sections_fixture.h"
#include "ui/accessory_chooser.h"

namespace orvane::test {

// Rows of the shipped catalogue.
constexpr int PurlinCleats = 1;   // five sizes with their long texts
constexpr int Bolts = 3;          // four sizes without long texts; no picture
constexpr int HalfSleeves = 5;    // two sizes; the last of type 1
constexpr int PurlinSleeves = 6;  // the first of type 2
constexpr int SplicePlates = 7;

class AccessoriesTest : public SectionsTest {
 protected:
  AccessoryChooser& List() { return Find<AccessoryChooser>("lstAccessories"); }
  QMenu& Popup() { return Find<QMenu>("mnuAccPU"); }

  std::vector<std::string> Entries() {
    std::vector<std::string> entries;
    for (int at = 0; at < List().count(); ++at) entries.push_back(FromQt(List().item(at)->text()));
    return entries;
  }
  std::string EntryOf(int accIndex) { return Entries().at(static_cast<std::size_t>(accIndex) - 1); }
  // The accessories whose entries are marked.
  std::vector<int> Marked() {
    std::vector<int> rows;
    int row = 0;
    for (const std::string& entry : Entries()) {
      ++row;
      if (entry.front() != ' ') rows.push_back(row);
    }
    return rows;
  }

  QPoint PlaceOf(int accIndex) { return List().visualItemRect(List().item(accIndex - 1)).center(); }
  void ClickEntry(int accIndex) {
    List().scrollToItem(List().item(accIndex - 1));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(accIndex));
  }
  // As the window system reports the second click of two.
  void DoubleClickEntry(int accIndex) {
    ClickEntry(accIndex);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(accIndex));
  }
  // Presses and releases the right button, with the wish for a menu that comes with it.
  void RightClickAt(QPoint place) {
    QWidget* view = List().viewport();
    QTest::mousePress(view, Qt::RightButton, Qt::NoModifier, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view->mapToGlobal(place));
    QCoreApplication::sendEvent(view, &event);
    QTest::mouseRelease(view, Qt::RightButton, Qt::NoModifier, place);
  }
  void RightClickEntry(int accIndex) {
    List().scrollToItem(List().item(accIndex - 1));
    RightClickAt(PlaceOf(accIndex));
  }
  // Clicks an entry of the open pop-up.
  void ChooseFromPopup(int index) {
    ASSERT_TRUE(Popup().isVisible());
    QAction& entry = Entry("mnuAccPUI(" + std::to_string(index) + ")");
    QTest::mouseClick(&Popup(), Qt::LeftButton, Qt::NoModifier,
                      Popup().actionGeometry(&entry).center());
    EXPECT_FALSE(Popup().isVisible());
  }

  // Lines of the project, past the screen; their accessory counts as used then, and is marked.
  void Put1(int accIndex, int paramIndex, int qty, int param = 0) {
    AccLines1.Append({Int16(accIndex), Int16(paramIndex), Int16(qty), Int16(param)});
    AccUsed.At(accIndex) = True;
    main->SetAccUsage();
  }
  void Put2(int accIndex, const std::string& mark, int noOff) {
    AccLine2 line;
    line.AccIndex = Int16(accIndex);
    line.Mark = mark;
    line.NoOff = Int16(noOff);
    AccLines2.Append(line);
    AccUsed.At(accIndex) = True;
    main->SetAccUsage();
  }
  // "AccIndex/ParamIndex/Qty/Param" of each line.
  static std::vector<std::string> Lines1() {
    std::vector<std::string> lines;
    for (const AccLine1& line : AccLines1) {
      lines.push_back(std::to_string(line.AccIndex) + "/" + std::to_string(line.ParamIndex) + "/" +
                      std::to_string(line.Qty) + "/" + std::to_string(line.Param));
    }
    return lines;
  }

  // Runs `open`, and the action in the dialog that it opens. One that is left open is
  // cancelled.
  void InDialog(const std::string& name, const std::function<void()>& open,
                const std::function<void(QWidget&)>& action) {
    bool ran = false;
    dialogs.ExpectDialog(name, [&](QWidget& form) {
      ran = true;
      form.activateWindow();
      EXPECT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
      action(form);
      for (const char* cancel : {"SSCommand2(3)", "cmdButton(3)"}) {
        auto* button = form.findChild<QPushButton*>(cancel);
        if (form.isVisible() && button != nullptr) button->click();
      }
    });
    open();
    Settle();
    EXPECT_TRUE(ran);
    BackToMain();
  }
  void InDialogOf(int accIndex, const std::function<void(QWidget&)>& action) {
    InDialog(
        accIndex <= AccType1Count ? "frmAcc01" : "frmAcc02", [&] { DoubleClickEntry(accIndex); },
        action);
  }
};

}  // namespace orvane::test
