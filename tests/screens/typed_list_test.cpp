// Names typed over a list: what the letters choose, and the list by itself, driven by keys.
#include <QAbstractItemView>
#include <QAccessible>
#include <QImage>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include "core/model.h"
#include "tests/screens/screen_fixture.h"
#include "tests/support/patience.h"
#include "ui/controls/plain_combo.h"
#include "ui/controls/refused_look.h"
#include "ui/controls/typed_letters.h"

namespace orvane::test {
namespace {

// The letters, without a control.

const QStringList Butts = {"Custom", "Butt Single Holes", "Butt", "Butt 1 Sag Bar",
                           "Butt 1 Sag Bar Pair"};

TypedLetters Letters(const QStringList& names, const QString& typed) {
  TypedLetters letters;
  letters.SetNames(names);
  for (const QChar letter : typed) letters.Type(letter);
  return letters;
}

TEST(TypedLettersTest, What_letters_fit_and_choose) {
  struct Case {
    const char* Typed;
    int First;
    int Count;
    int Choice;
    const char* Rest;
    const char* Reason;
  };
  const std::vector<Case> cases = {
      {"c", 0, 1, 0, "ustom", ""},
      {"b", 1, 4, -1, "utt Single Holes", "4 entries begin with \"b\""},
      {"BUTT", 1, 4, 2, " Single Holes", ""},  // a whole name, though others begin with it
      {"butt ", 1, 3, -1, "Single Holes", "3 entries begin with \"butt \""},
      {"butt s", 1, 1, 1, "ingle Holes", ""},
      {"butt 1", 3, 2, -1, " Sag Bar", "2 entries begin with \"butt 1\""},
      {"butt 1 sag bar", 3, 2, 3, "", ""},
      {"butt 1 sag bar p", 4, 1, 4, "air", ""},
      {"buttx", -1, 0, -1, "", "No entry begins with \"buttx\""},
      {"", -1, 0, -1, "", ""},
      {" ", -1, 0, -1, "", ""},  // a blank begins no name
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Typed);
    const TypedLetters letters = Letters(Butts, c.Typed);
    EXPECT_EQ(letters.First(), c.First);
    EXPECT_EQ(letters.Count(), c.Count);
    EXPECT_EQ(letters.Choice(), c.Choice);
    EXPECT_EQ(FromQt(letters.Rest()), c.Rest);
    EXPECT_EQ(FromQt(letters.Reason()), c.Reason);
    EXPECT_EQ(letters.NothingFits(), std::string(c.Typed) == "buttx");
  }
}

TEST(TypedLettersTest, Letters_are_taken_back_one_by_one) {
  TypedLetters letters = Letters(Butts, "buttx");
  ASSERT_TRUE(letters.NothingFits());
  EXPECT_TRUE(letters.TakeBack());
  EXPECT_EQ(FromQt(letters.Letters()), "butt");
  EXPECT_EQ(letters.Choice(), 2);
  for (int left = 4; left > 0; --left) EXPECT_TRUE(letters.TakeBack());
  EXPECT_FALSE(letters.Pending());
  EXPECT_FALSE(letters.TakeBack());
  letters.Type(QStringLiteral("\U0001F642"));
  EXPECT_TRUE(letters.TakeBack());
  EXPECT_FALSE(letters.Pending());
}

TEST(TypedLettersTest, Outer_blanks_of_names_do_not_count_and_case_decides_between_equal_names) {
  EXPECT_EQ(Letters({"  Spaced out ", "Other"}, "spaced out").Choice(), 0);
  EXPECT_EQ(Letters({"AB", "ab", "abc"}, "ab").Choice(), 1);
  EXPECT_EQ(Letters({"AB", "Ab", "abc"}, "ab").Choice(), -1);
  EXPECT_EQ(Letters({"ab", "ab"}, "a").Choice(), -1);
  EXPECT_EQ(Letters({"ab", "ab"}, "ab").Choice(), 0);
}

// The list by itself, between two fields.

class TypedListTest : public ::testing::Test {
 protected:
  TypedListTest() {
    auto* column = new QVBoxLayout(&window);
    for (QWidget* part : {static_cast<QWidget*>(&before), static_cast<QWidget*>(&list),
                          static_cast<QWidget*>(&after)}) {
      column->addWidget(part);
    }
    list.setAccessibleName("Products");
    FillWith({"Z14012", "Z21514", "Z21516", "Z24516", "Z24520"});
    list.SelectQuietly(0);
    QObject::connect(&list, &QComboBox::activated, [this] { chosen.push_back(list.Text()); });
    window.resize(300, 120);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, Patience));
    list.setFocus(Qt::TabFocusReason);
  }

  void FillWith(const std::vector<std::string>& names) {
    Table<std::string> entries;
    for (const std::string& name : names) entries.Append(name);
    list.Fill(entries);
  }
  static void Type(const std::string& text) {
    QTest::keyClicks(QApplication::focusWidget(), ToQt(text));
  }
  static void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, held);
  }
  QAbstractItemView& Opened() {
    QAbstractItemView* view = list.view();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(view->window(), Patience));
    return *view;
  }
  std::string Typed() const { return FromQt(list.Typed().Letters()); }
  std::string Told(QAccessible::Text what) {
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&list);
    return reader == nullptr ? "no reader" : FromQt(reader->text(what));
  }

  QWidget window;
  QLineEdit before;
  PlainCombo list;
  QLineEdit after;
  std::vector<std::string> chosen;
};

TEST_F(TypedListTest, Nothing_is_chosen_while_letters_are_typed) {
  Type("Z24520");
  EXPECT_EQ(Typed(), "Z24520");
  EXPECT_EQ(list.Text(), "Z14012");
  EXPECT_TRUE(chosen.empty());
  Press(Qt::Key_Return);
  EXPECT_EQ(chosen, std::vector<std::string>{"Z24520"});
  EXPECT_EQ(Typed(), "");
  EXPECT_TRUE(list.hasFocus());
}

// The toolkit's own search forgets its letters after this time; here a list is given none at all,
// and much later ones are the same to it.
TEST_F(TypedListTest, Letters_belong_together_at_any_pace) {
  const int former = QApplication::keyboardInputInterval();
  QApplication::setKeyboardInputInterval(0);
  for (const char* letter : {"z", "2", "4", "5", "2", "0"}) {
    Type(letter);
    QCoreApplication::processEvents();
  }
  QApplication::setKeyboardInputInterval(former);
  Press(Qt::Key_Tab);
  EXPECT_EQ(list.Text(), "Z24520");
  EXPECT_TRUE(after.hasFocus());
}

TEST_F(TypedListTest, Tab_and_leaving_choose_the_only_entry_left) {
  Type("z2452");
  Press(Qt::Key_Tab);
  EXPECT_EQ(list.Text(), "Z24520");
  EXPECT_TRUE(after.hasFocus());
  list.setFocus(Qt::TabFocusReason);
  Type("z21514");
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(list.Text(), "Z21514");
  EXPECT_TRUE(before.hasFocus());
  list.setFocus(Qt::TabFocusReason);
  Type("z1");
  after.setFocus(Qt::MouseFocusReason);
  QCoreApplication::processEvents();
  EXPECT_EQ(list.Text(), "Z14012");
  EXPECT_EQ(chosen, (std::vector<std::string>{"Z24520", "Z21514", "Z14012"}));
}

TEST_F(TypedListTest, Enter_and_Tab_stay_with_letters_that_leave_it_open) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab}) {
    Press(Qt::Key_Escape);
    Type("z21");
    EXPECT_FALSE(IsFieldRefused(list));
    Press(key);
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(Typed(), "z21");
    EXPECT_EQ(list.Text(), "Z14012");
    EXPECT_TRUE(IsFieldRefused(list));
    EXPECT_EQ(FromQt(list.toolTip()), "2 entries begin with \"z21\"");
  }
  // The next letter goes on.
  Type("516");
  EXPECT_FALSE(IsFieldRefused(list));
  Press(Qt::Key_Return);
  EXPECT_EQ(chosen, std::vector<std::string>{"Z21516"});
}

TEST_F(TypedListTest, A_letter_that_nothing_fits_stays_and_is_refused_until_it_is_taken_back) {
  Type("z3");
  EXPECT_EQ(Typed(), "z3");
  EXPECT_TRUE(IsFieldRefused(list));
  EXPECT_EQ(FromQt(list.toolTip()), "No entry begins with \"z3\"");
  // The digits of a product behind it lead to none.
  Type("24520");
  EXPECT_TRUE(IsFieldRefused(list));
  EXPECT_EQ(FromQt(list.ShownText()), "z324520");
  for (int behind = 0; behind < 5; ++behind) Press(Qt::Key_Backspace);
  EXPECT_TRUE(IsFieldRefused(list));
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Typed(), "z");
  EXPECT_FALSE(IsFieldRefused(list));
  EXPECT_EQ(FromQt(list.toolTip()), "");
  Type("9");
  Press(Qt::Key_Return);
  Press(Qt::Key_Down);
  EXPECT_EQ(Typed(), "z9");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(IsFieldRefused(list));
  EXPECT_EQ(FromQt(list.ShownText()), "Z14012");
  EXPECT_TRUE(chosen.empty());
}

TEST_F(TypedListTest, Any_other_leaving_shows_the_old_entry_refused_until_the_list_is_entered) {
  std::vector<std::string> told;
  int ended = 0;
  list.LeftUndecided = [&](const QString& reason) { told.push_back(FromQt(reason)); };
  list.RefusalEnded = [&] { ++ended; };
  Type("z24");
  after.setFocus(Qt::MouseFocusReason);
  QCoreApplication::processEvents();
  EXPECT_EQ(FromQt(list.ShownText()), "Z14012");
  EXPECT_EQ(Typed(), "");
  EXPECT_TRUE(IsFieldRefused(list));
  EXPECT_EQ(told, std::vector<std::string>{"2 entries begin with \"z24\""});
  EXPECT_EQ(FromQt(list.toolTip()), told.front());
  EXPECT_EQ(ended, 0);
  list.setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(IsFieldRefused(list));
  EXPECT_EQ(ended, 1);
  EXPECT_TRUE(chosen.empty());
}

TEST_F(TypedListTest, A_command_leaves_the_list_without_moving_the_focus) {
  EXPECT_EQ(list.Leave(), ListLeft::Untouched);
  Type("z24");
  EXPECT_EQ(list.Leave(), ListLeft::Undecided);
  EXPECT_TRUE(IsFieldRefused(list));
  EXPECT_EQ(list.Text(), "Z14012");
  Type("z2452");
  EXPECT_FALSE(IsFieldRefused(list));
  EXPECT_EQ(list.Leave(), ListLeft::Chosen);
  EXPECT_EQ(list.Text(), "Z24520");
  EXPECT_TRUE(list.hasFocus());
}

TEST_F(TypedListTest, A_choice_by_leaving_is_told_before_the_next_command_works) {
  Type("z2452");
  after.setFocus(Qt::MouseFocusReason);
  EXPECT_TRUE(chosen.empty());  // not in the middle of the change of focus
  EXPECT_EQ(list.Leave(), ListLeft::Untouched);
  EXPECT_EQ(chosen, std::vector<std::string>{"Z24520"});
  QCoreApplication::processEvents();
  EXPECT_EQ(chosen.size(), 1U);
}

TEST_F(TypedListTest, An_arrow_takes_the_entry_shown) {
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right}) {
    list.SelectQuietly(0);
    Type("z24");
    Press(key);
    EXPECT_EQ(list.Text(), "Z24516");
    EXPECT_EQ(Typed(), "");
  }
  Press(Qt::Key_Down);
  EXPECT_EQ(list.Text(), "Z24520");
}

TEST_F(TypedListTest, Escape_acts_on_the_open_list_first_and_on_the_letters_next) {
  Type("z24");
  Press(Qt::Key_Down, Qt::AltModifier);
  QAbstractItemView& view = Opened();
  EXPECT_EQ(view.currentIndex().row(), 3);
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_FALSE(view.isVisible());
  EXPECT_EQ(Typed(), "z24");
  list.setFocus();
  Press(Qt::Key_Escape);
  EXPECT_EQ(Typed(), "");
  EXPECT_EQ(list.Text(), "Z14012");
  EXPECT_TRUE(chosen.empty());
}

TEST_F(TypedListTest, Letters_lead_in_the_open_list_too) {
  Press(Qt::Key_F4);
  QAbstractItemView& view = Opened();
  QTest::keyClicks(&view, "z2");
  EXPECT_EQ(view.currentIndex().row(), 1);
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_TRUE(view.isVisible());
  EXPECT_TRUE(IsFieldRefused(list));
  QTest::keyClicks(&view, "4");
  EXPECT_EQ(view.currentIndex().row(), 3);
  QTest::keyClick(&view, Qt::Key_Down);  // the entry shown
  EXPECT_EQ(Typed(), "");
  EXPECT_EQ(view.currentIndex().row(), 3);
  QTest::keyClick(&view, Qt::Key_Down);
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_FALSE(view.isVisible());
  EXPECT_EQ(chosen, std::vector<std::string>{"Z24520"});
}

TEST_F(TypedListTest, A_refused_list_keeps_its_look_when_it_is_opened) {
  Type("z24");
  Press(Qt::Key_Return);
  Press(Qt::Key_F4);
  QAbstractItemView& view = Opened();
  EXPECT_EQ(view.currentIndex().row(), 3);
  EXPECT_TRUE(IsFieldRefused(list));
  QTest::keyClick(&view, Qt::Key_Escape);
}

TEST_F(TypedListTest, The_mouse_chooses_in_the_open_list_whatever_is_typed) {
  Type("z24");
  Press(Qt::Key_F4);
  QAbstractItemView& view = Opened();
  const QPoint place = view.visualRect(view.model()->index(2, 0)).center();
  QTest::mouseMove(view.viewport(), place);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
  EXPECT_EQ(chosen, std::vector<std::string>{"Z21516"});
  EXPECT_EQ(Typed(), "");
  EXPECT_FALSE(IsFieldRefused(list));
}

TEST_F(TypedListTest, Keys_held_with_Alt_or_Ctrl_type_nothing) {
  QTest::keyClick(&list, Qt::Key_Z, Qt::AltModifier);
  QTest::keyClick(&list, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Typed(), "");
  EXPECT_EQ(list.Text(), "Z14012");
}

TEST_F(TypedListTest, The_box_shows_the_letters_with_the_rest_marked_behind_them) {
  EXPECT_EQ(FromQt(list.ShownText()), "Z14012");
  const auto marked = [this] {
    const QColor mark = list.palette().color(QPalette::Highlight);
    const QImage shown = list.grab().toImage();
    int count = 0;
    for (int x = 0; x < shown.width(); ++x) {
      for (int y = 0; y < shown.height(); ++y) count += shown.pixelColor(x, y) == mark ? 1 : 0;
    }
    return count;
  };
  const int before = marked();
  Type("z2");
  EXPECT_EQ(FromQt(list.ShownText()), "z21514");
  const int four = marked();
  EXPECT_GT(four, before + 100);
  Type("151");
  EXPECT_LT(marked(), four);  // less is left behind more letters
  EXPECT_GT(marked(), before);
}

TEST_F(TypedListTest, Readers_of_the_screen_are_told_name_value_and_reason) {
  EXPECT_EQ(Told(QAccessible::Name), "Products");
  EXPECT_EQ(Told(QAccessible::Value), "Z14012");
  Type("z24");
  EXPECT_EQ(Told(QAccessible::Value), "z24516");
  Press(Qt::Key_Return);
  EXPECT_EQ(Told(QAccessible::Description), "2 entries begin with \"z24\"");
  Type("52");
  Press(Qt::Key_Return);
  EXPECT_EQ(Told(QAccessible::Value), "Z24520");
  EXPECT_EQ(Told(QAccessible::Description), "");
}

TEST_F(TypedListTest, A_long_list_opens_with_a_scroll_bar_and_at_most_half_the_screen_high) {
  std::vector<std::string> names;
  for (int at = 100; at < 400; ++at) names.push_back("Z" + std::to_string(at));
  FillWith(names);
  Press(Qt::Key_F4);
  QAbstractItemView& view = Opened();
  EXPECT_LE(view.window()->height(), window.screen()->availableGeometry().height() / 2);
  EXPECT_GT(view.window()->height(), window.screen()->availableGeometry().height() / 3);
  EXPECT_TRUE(view.verticalScrollBar()->isVisible());
  // The box with the letters stays in sight.
  EXPECT_FALSE(view.window()->geometry().intersects(
      QRect(list.mapToGlobal(QPoint(0, 0)), list.size()).adjusted(0, 2, 0, -2)));
  QTest::keyClicks(&view, "z399");
  EXPECT_EQ(view.currentIndex().row(), 299);
  EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.currentIndex()).center()));
}

// The refused look.

TEST(RefusedLookTest, A_field_has_its_own_tip_and_description_back_afterwards) {
  QLineEdit field;
  field.setToolTip("Length");
  field.setAccessibleDescription("mm");
  RefuseField(field, "no number");
  RefuseField(field, "too long");
  EXPECT_TRUE(IsFieldRefused(field));
  EXPECT_EQ(FromQt(RefusalOf(field)), "too long");
  EXPECT_EQ(FromQt(field.toolTip()), "too long");
  EXPECT_EQ(FromQt(field.accessibleDescription()), "too long");
  AcceptField(field);
  AcceptField(field);
  EXPECT_FALSE(IsFieldRefused(field));
  EXPECT_EQ(FromQt(field.toolTip()), "Length");
  EXPECT_EQ(FromQt(field.accessibleDescription()), "mm");
  EXPECT_EQ(FromQt(RefusalOf(field)), "");
}

// The grey of a picture alone, as for who sees no colours.
TEST(RefusedLookTest, It_shows_in_light_and_dark_and_without_colour) {
  for (const QColor ground : {QColor(Qt::white), QColor(30, 30, 30)}) {
    QImage shown(80, 24, QImage::Format_RGB32);
    shown.fill(ground);
    QPainter painter(&shown);
    PaintRefusedLook(painter, shown.rect(), ground);
    painter.end();
    const QImage grey = shown.convertToFormat(QImage::Format_Grayscale8);
    const int paper = qGray(ground.rgb());
    const auto differs = [&](int x, int y) {
      return std::abs(qGray(grey.pixel(x, y)) - paper) >= 100;
    };
    for (int x = 0; x < 80; ++x) EXPECT_TRUE(differs(x, 0) && differs(x, 23)) << x;
    int wave = 0;
    for (int x = 4; x < 76; ++x) wave += differs(x, 18) ? 1 : 0;
    EXPECT_GT(wave, 10);  // it rises and falls,
    EXPECT_LT(wave, 60);  // unlike a frame
    EXPECT_FALSE(differs(40, 10));
  }
}

// The products that ship.

class ShippedProducts : public SystemTest {};

TEST_F(ShippedProducts, One_wrong_digit_never_ends_on_another_product_than_the_one_typed) {
  ASSERT_TRUE(LoadSectionCatalogues());
  QStringList names;
  for (const SectionDim& row : SectionDims) {
    if (row.SectionType == "Z") names.append(ToQt(row.Product));
  }
  ASSERT_EQ(names.size(), 35);
  int tried = 0;
  for (const QString& name : names) {
    for (int at = 1; at < name.size(); ++at) {
      for (QChar digit = u'0'; digit <= u'9'; digit = QChar(digit.unicode() + 1)) {
        if (name.at(at) == digit) continue;
        QString wrong = name;
        wrong[at] = digit;
        const int choice = Letters(names, wrong).Choice();
        if (choice >= 0) {
          EXPECT_EQ(FromQt(names.at(choice)), FromQt(wrong));
        }
        ++tried;
      }
    }
  }
  EXPECT_EQ(tried, 35 * 5 * 9);
}

}  // namespace
}  // namespace orvane::test
