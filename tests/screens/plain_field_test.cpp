// Fields of one line: what a click selects, and what a paste brings in.
#include "ui/controls/plain_field.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>

#include "tests/screens/dialog_fixture.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

// A neighbour, which has the focus, and the field beside it.
class PlainFieldTest : public DialogTest {
 protected:
  PlainFieldTest() {
    auto* line = new QHBoxLayout(&window);
    line->addWidget(&neighbour);
    line->addWidget(&field);
    neighbour.setFixedWidth(150);
    field.setFixedWidth(150);
  }
  void SetUp() override {
    ShowActive(window);
    neighbour.setFocus();
  }

  void Click(const QPoint& place) {
    QTest::mouseClick(&field, Qt::LeftButton, Qt::NoModifier, place);
    // The next click is one of its own, not the second half of a double click.
    QTest::mouseMove(&neighbour, QPoint(2, 2));
    QTest::mouseClick(&window, Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
  }
  QPoint Behind() const { return {field.width() - 6, field.height() / 2}; }
  QPoint Before() const { return {4, field.height() / 2}; }

  void PasteBy(Qt::Key key, Qt::KeyboardModifiers modifiers, const std::string& text) {
    QApplication::clipboard()->setText(ToQt(text));
    QTest::keyClick(&field, key, modifiers);
  }
  void PasteByMenu(const std::string& text) {
    QApplication::clipboard()->setText(ToQt(text));
    QContextMenuEvent event(QContextMenuEvent::Mouse, Behind(), field.mapToGlobal(Behind()));
    QApplication::sendEvent(&field, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions()) {
      if (!action->text().startsWith("&Paste")) continue;
      QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                        menu->actionGeometry(action).center());
    }
    RunQueued();
    WaitUntilActive(window);
  }
  // Whether the field took it.
  bool Drop(const std::string& text) {
    QMimeData data;
    data.setText(ToQt(text));
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(Behind(), actions, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(Behind(), actions, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &drop);
    return drop.isAccepted();
  }
  std::string Text() const { return FromQt(field.text()); }

  QWidget window;
  QLineEdit neighbour;
  PlainField field;
};

TEST_F(PlainFieldTest, A_click_into_it_selects_its_text_wherever_it_falls) {
  for (const bool before : {true, false}) {
    field.setText("0.0");
    neighbour.setFocus();
    Click(before ? Before() : Behind());
    EXPECT_EQ(field.selectedText(), "0.0");
    QTest::keyClicks(&field, "10");
    EXPECT_EQ(Text(), "10");
  }
}

TEST_F(PlainFieldTest, A_further_click_sets_the_cursor) {
  field.setText("123");
  Click(Behind());
  ASSERT_EQ(field.selectedText(), "123");
  Click(Behind());
  EXPECT_EQ(field.selectedText(), "");
  EXPECT_EQ(field.cursorPosition(), 3);
  QTest::keyClicks(&field, "4");
  EXPECT_EQ(Text(), "1234");
}

TEST_F(PlainFieldTest, The_mouse_that_was_dragged_selects_what_it_passed) {
  field.setText("1234567890");
  QTest::mousePress(&field, Qt::LeftButton, Qt::NoModifier, Before());
  const QPoint start = field.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  const QPoint middle = start + QPoint(field.fontMetrics().horizontalAdvance("12345"), 0);
  QMouseEvent move(QEvent::MouseMove, middle, field.mapToGlobal(middle), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&field, &move);
  QTest::mouseRelease(&field, Qt::LeftButton, Qt::NoModifier, middle);
  EXPECT_EQ(field.selectedText(), "12345");
}

TEST_F(PlainFieldTest, A_text_is_put_in_at_the_cursor_as_one_line) {
  field.setText("ad");
  field.setFocus();
  field.setCursorPosition(1);
  PasteBy(Qt::Key_V, Qt::ControlModifier, "b\tc\r\n");
  EXPECT_EQ(Text(), "ab cd");
  field.selectAll();
  PasteBy(Qt::Key_Insert, Qt::ShiftModifier, "P1\nP2\n\n");
  EXPECT_EQ(Text(), "P1 P2");
  field.selectAll();
  PasteByMenu("P3\n");
  EXPECT_EQ(Text(), "P3");
  field.clear();
  EXPECT_TRUE(Drop("P4\r"));
  EXPECT_EQ(Text(), "P4");
}

TEST_F(PlainFieldTest, An_empty_paste_takes_nothing_away) {
  field.setText("P1");
  field.setFocus();
  field.selectAll();
  PasteBy(Qt::Key_V, Qt::ControlModifier, "\n");
  EXPECT_EQ(Text(), "P1");
}

TEST_F(PlainFieldTest, A_number_takes_the_place_of_the_whole_by_every_way) {
  field.TakePastedNumber(NumberForm::Whole);
  field.setFocus();
  field.setText("12");
  field.setCursorPosition(2);
  PasteBy(Qt::Key_V, Qt::ControlModifier, "6150.0");
  EXPECT_EQ(Text(), "6150");
  PasteBy(Qt::Key_Insert, Qt::ShiftModifier, " 70 mm\r\n");
  EXPECT_EQ(Text(), "70");
  PasteByMenu("80\n");
  EXPECT_EQ(Text(), "80");
  EXPECT_TRUE(Drop("90"));
  EXPECT_EQ(Text(), "90");
}

TEST_F(PlainFieldTest, What_is_no_such_number_changes_nothing_and_says_why) {
  field.TakePastedNumber(NumberForm::Whole);
  field.setToolTip("mm");
  field.setFocus();
  field.setText("12");
  PasteBy(Qt::Key_V, Qt::ControlModifier, "3 pcs");
  EXPECT_EQ(Text(), "12");
  EXPECT_TRUE(IsFieldRefused(field));
  EXPECT_EQ(FromQt(field.toolTip()), "\"3 pcs\" wasn't pasted: it isn't a number");
  QTest::keyClicks(&field, "3");
  EXPECT_FALSE(IsFieldRefused(field));
  EXPECT_EQ(FromQt(field.toolTip()), "mm");
  field.setText("12");
  PasteBy(Qt::Key_Insert, Qt::ShiftModifier, "-3.5");
  EXPECT_EQ(Text(), "12");
  PasteByMenu("1,5");
  EXPECT_EQ(Text(), "12");
  EXPECT_FALSE(Drop("6.150")) << "what is refused stays where it came from";
  EXPECT_EQ(Text(), "12");
  EXPECT_TRUE(IsFieldRefused(field));
  neighbour.setFocus();
  EXPECT_FALSE(IsFieldRefused(field));
}

TEST_F(PlainFieldTest, A_field_of_signed_numbers_takes_one_sign_and_one_point) {
  field.TakePastedNumber(NumberForm::Signed);
  field.setFocus();
  for (const std::string text : {"-3.5", "+12", "0.125"}) {
    PasteBy(Qt::Key_V, Qt::ControlModifier, text);
    EXPECT_EQ(Text(), text);
  }
  for (const std::string text : {"--3", "1.2.3", "3-", "1,5"}) {
    PasteBy(Qt::Key_V, Qt::ControlModifier, text);
    EXPECT_EQ(Text(), "0.125") << text;
  }
}

TEST_F(PlainFieldTest, A_field_that_is_only_read_takes_nothing) {
  field.setText("12");
  field.setReadOnly(true);
  field.setFocus();
  PasteBy(Qt::Key_V, Qt::ControlModifier, "70");
  EXPECT_EQ(Text(), "12");
  EXPECT_FALSE(IsFieldRefused(field));
}

}  // namespace
}  // namespace orvane::test
