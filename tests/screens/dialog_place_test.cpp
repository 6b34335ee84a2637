// Where the editing dialogs stand on the screen: each where it was left, and always within reach.
#include <QScreen>

#include "tests/screens/detail_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {
namespace {

struct PlacedDialog {
  const char* Name;
  const char* Entry;  // of the section menu
};

class DialogPlaceTest : public DetailTest {
 protected:
  // Opens the dialog, runs the action on it and closes it.
  void InDialog(const PlacedDialog& placed, const std::function<void(QWidget&)>& action) {
    dialogs.ExpectDialog(placed.Name, [action](QWidget& dialog) {
      EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog, Patience));
      action(dialog);
      dialog.close();
    });
    Entry(placed.Entry).trigger();
    Settle();
    BackToMain();
  }
  static QRect Room() { return QGuiApplication::primaryScreen()->availableGeometry(); }

  const std::vector<PlacedDialog> Dialogs = {{"frmAddHoles", "mnuSection(10)"},
                                             {"frmAddHoles", "mnuSection(11)"},
                                             {"frmMitres", "mnuSection(13)"},
                                             {"frmNotches", "mnuSection(14)"}};
};

TEST_F(DialogPlaceTest, A_dialog_opens_where_it_was_closed) {
  PutCustom({500});
  Show();
  for (const PlacedDialog& placed : Dialogs) {
    SCOPED_TRACE(placed.Entry);
    for (const QPoint& place :
         {Room().topLeft() + QPoint(31, 47), Room().topLeft() + QPoint(11, 23)}) {
      InDialog(placed, [&](QWidget& dialog) { dialog.move(place); });
      InDialog(placed, [&](QWidget& dialog) { EXPECT_EQ(dialog.pos(), place); });
    }
  }
}

TEST_F(DialogPlaceTest, A_dialog_that_is_too_large_for_the_screen_scrolls) {
  PutCustom({500});
  const QFont former = QApplication::font();
  QFont large = former;
  large.setPointSize(30);
  QApplication::setFont(large);
  Show();
  for (const PlacedDialog& placed : Dialogs) {
    SCOPED_TRACE(placed.Entry);
    InDialog(placed, [&](QWidget& dialog) {
      EXPECT_TRUE(Room().contains(dialog.geometry())) << dialog.width() << " x " << dialog.height();
      if (placed.Name == std::string("frmNotches")) return;  // its table keeps Tab
      auto* ok = dialog.findChild<QPushButton*>("SSCommand2(0)");
      ASSERT_NE(ok, nullptr);
      // Reached by the keys it comes into sight.
      for (int press = 0; press < 80 && QApplication::focusWidget() != ok; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      }
      ASSERT_EQ(QApplication::focusWidget(), ok);
      EXPECT_TRUE(dialog.rect().contains(QRect(ok->mapTo(&dialog, QPoint()), ok->size())));
    });
  }
  QApplication::setFont(former);
}

TEST_F(DialogPlaceTest, Every_dialog_comes_back_where_it_was_left_ten_times) {
  Show();
  const std::vector<PlacedDialog> others = {{"frmProjectDetails", "mnuProject(5)"},
                                            {"frmMaxDims", "mnuProject(7)"},
                                            {"frmAbout", "mnuHelp(1)"},
                                            {"frmRegistration", "mnuHelp(3)"}};
  const QPoint place = Room().topLeft() + QPoint(37, 53);
  for (const PlacedDialog& placed : others) {
    SCOPED_TRACE(placed.Name);
    InDialog(placed, [&](QWidget& dialog) { dialog.move(place); });
    for (int round = 0; round < 10; ++round) {
      InDialog(placed, [&](QWidget& dialog) { EXPECT_EQ(dialog.pos(), place) << round; });
    }
  }
}

// The part of the main window's sheet that shows the elevation and the chain of gaps below it, on
// the screen: from the sheet's own figures, mm.
QRect ElevationOnScreen(const SheetView& sheet) {
  const QRectF paper = sheet.PaperPlace();
  const double scale = sheet.PixelsPerMm();
  const QRectF place(paper.left() + (LeftMargin + 45) * scale, paper.top() + 92 * scale,
                     paper.width() - (LeftMargin + 45 + RightMargin) * scale, 43 * scale);
  const QRect aligned = place.toAlignedRect();
  return {sheet.viewport()->mapToGlobal(aligned.topLeft()), aligned.size()};
}

TEST_F(DialogPlaceTest, The_first_place_of_the_dialog_for_holes_leaves_the_elevation_in_sight) {
  ForgetPlaces();
  PutCustom({500});
  Show();
  main->resize(main->minimumSizeHint());
  main->move(Room().topLeft());
  QCoreApplication::processEvents();
  const QRect elevation = ElevationOnScreen(Sheet());
  ASSERT_FALSE(elevation.isEmpty());
  InDialog(Dialogs.front(), [&](QWidget& dialog) {
    EXPECT_FALSE(dialog.frameGeometry().intersects(elevation))
        << dialog.x() << "," << dialog.y() << " " << dialog.width() << "," << dialog.height()
        << " over " << elevation.x() << "," << elevation.y() << " " << elevation.width() << ","
        << elevation.height();
    EXPECT_TRUE(Room().contains(dialog.frameGeometry()));
  });
}

TEST_F(DialogPlaceTest, A_dialog_left_beyond_the_screen_comes_back_onto_it) {
  PutCustom({500});
  Show();
  for (const PlacedDialog& placed : Dialogs) {
    SCOPED_TRACE(placed.Entry);
    for (const QPoint& place :
         {Room().topLeft() - QPoint(5000, 40), Room().bottomRight() + QPoint(30, 3000)}) {
      InDialog(placed, [&](QWidget& dialog) { dialog.move(place); });
      InDialog(placed, [&](QWidget& dialog) {
        EXPECT_TRUE(Room().contains(dialog.frameGeometry()))
            << dialog.x() << "," << dialog.y() << " " << dialog.width() << "," << dialog.height();
      });
    }
  }
}

TEST_F(DialogPlaceTest, Each_dialog_has_a_place_of_its_own) {
  PutCustom({500});
  Show();
  const QPoint one = Room().topLeft() + QPoint(15, 15);
  const QPoint other = Room().topLeft() + QPoint(60, 70);
  InDialog(Dialogs.at(2), [&](QWidget& dialog) { dialog.move(one); });
  InDialog(Dialogs.at(3), [&](QWidget& dialog) { dialog.move(other); });
  InDialog(Dialogs.at(2), [&](QWidget& dialog) { EXPECT_EQ(dialog.pos(), one); });
  InDialog(Dialogs.at(3), [&](QWidget& dialog) { EXPECT_EQ(dialog.pos(), other); });
}

}  // namespace
}  // namespace orvane::test
