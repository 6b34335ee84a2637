// A job of sixty purlins by as few keys as may be: each key counts, with what is held beside it.
#include <QClipboard>
#include <QGuiApplication>

#include "tests/screens/sections_fixture.h"
#include "ui/controls/flex_grid.h"

namespace orvane::test {
namespace {

constexpr int SixtyMarks = 60;

class SixtyMarksTest : public SectionsTest {
 protected:
  void Stroke(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    ++strokes;
    Press(key, held);
    RunQueued();
  }
  void Strokes(const std::string& digits) {
    for (const char digit : digits) Stroke(static_cast<Qt::Key>(Qt::Key_0 + (digit - '0')));
  }

  int strokes = 0;
};

TEST_F(SixtyMarksTest, A_further_purlin_takes_three_keys_and_one_of_another_length_eight) {
  Put("Z", "P1", "Z14012", 6000, 12).PatternName = "Butt 1 Sag Bar";
  Show(1, 4);
  for (int mark = 2; mark <= SixtyMarks; ++mark) {
    strokes = 0;
    Stroke(Qt::Key_Return, Qt::ControlModifier);
    Strokes("14");
    const bool other = mark % 10 == 0;
    if (other) {
      Stroke(Qt::Key_Backtab);
      Strokes("5250");
    }
    EXPECT_EQ(strokes, other ? 8 : 3);
  }
  Settle();
  ASSERT_EQ(Items.UBound(), SixtyMarks);
  for (int row = 2; row <= SixtyMarks; ++row) {
    SCOPED_TRACE(row);
    EXPECT_EQ(Items.At(row).Mark, "P" + DecimalText(row));
    EXPECT_EQ(Items.At(row).Quantity, 14);
    EXPECT_EQ(Items.At(row).Length, row < 10 ? 6000 : 5250);
    EXPECT_EQ(Items.At(row).PatternName, "Butt 1 Sag Bar");
    EXPECT_GT(Items.At(row).HoleCount(), 0);
  }
}

TEST_F(SixtyMarksTest, A_list_of_a_spreadsheet_takes_two_keys_in_all) {
  Show();
  QString list = "Mark\tProduct\tLength\tQty\tPunching\n";
  for (int mark = 1; mark <= SixtyMarks; ++mark) {
    list += QString("P%1\tZ14012\t%2\t14\tButt 1 Sag Bar\n").arg(mark).arg(6000 + mark);
  }
  QGuiApplication::clipboard()->setText(list);
  dialogs.ExpectDialog("frmImport", [this](QWidget& form) {
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
    Stroke(Qt::Key_Return);
  });
  Stroke(Qt::Key_V, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(strokes, 2);
  ASSERT_EQ(Items.UBound(), SixtyMarks);
  for (int row = 1; row <= SixtyMarks; ++row) {
    EXPECT_EQ(Items.At(row).Mark, "P" + DecimalText(row));
    EXPECT_EQ(Items.At(row).Length, 6000 + row);
    EXPECT_GT(Items.At(row).HoleCount(), 0);
  }
}

}  // namespace
}  // namespace orvane::test
