// Dates typed into the project details as people type them.
#include <gtest/gtest.h>

#include "tests/screens/dialog_fixture.h"
#include "tests/support/patience.h"
#include "ui/dialogs/frm_project_details.h"

namespace orvane::test {

namespace {

class TypedDates : public DialogTest {};

// Types the date with the keys of a person who comes by Tab, and leaves the field.
Date Typed(const std::string& keys) {
  DTPicker1 = {2024, 3, 5};
  FrmProjectDetails form;
  form.show();
  form.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&form, Patience));
  auto* picker = form.findChild<QDateEdit*>("DTPicker1");
  picker->setFocus(Qt::TabFocusReason);
  picker->setSelectedSection(QDateTimeEdit::DaySection);
  for (const char key : keys) QTest::keyClick(picker, key);
  QTest::keyClick(picker, Qt::Key_Tab);
  EXPECT_NE(QApplication::focusWidget(), picker) << keys;
  form.close();
  return DTPicker1;
}

TEST_F(TypedDates, With_separators_and_without_and_with_two_digits_of_the_year) {
  struct Case {
    std::string Keys;
    Date Expected;
  };
  const std::vector<Case> cases = {
      {"15/11/2024", {2024, 11, 15}}, {"15112024", {2024, 11, 15}}, {"6/4/2026", {2026, 4, 6}},
      {"06/04/26", {2026, 4, 6}},     {"060426", {2026, 4, 6}},     {"6/4/26", {2026, 4, 6}},
      {"06.04.2026", {2026, 4, 6}},   {"1/2/2030", {2030, 2, 1}},   {"31-12-2025", {2025, 12, 31}},
      {"1/12/25", {2025, 12, 1}},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(FullYearText(Typed(each.Keys)), FullYearText(each.Expected)) << each.Keys;
  }
}

// The details with the cursor in the designer's field, one Tab before the date.
class WayThroughTheDate : public DialogTest {
 protected:
  WayThroughTheDate() {
    DTPicker1 = {2024, 3, 5};
    txtProject = {};
  }
  void SetUp() override {
    form = std::make_unique<FrmProjectDetails>();
    ShowActive(*form);
    for (int stop = 0; stop < 3; ++stop) Press(Qt::Key_Tab);
    ASSERT_EQ(Focus(), "txtProject(4)");
  }
  QDateTimeEdit::Section Part() { return Find<QDateEdit>(*form, "DTPicker1").currentSection(); }
  void ExpectDate(const Date& expected) {
    EXPECT_EQ(FullYearText(DTPicker1), FullYearText(expected));
  }

  std::unique_ptr<FrmProjectDetails> form;
};

TEST_F(WayThroughTheDate, One_Tab_passes_the_date_and_what_is_typed_behind_it_is_the_number) {
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "DTPicker1");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "txtProject(0)");
  Type("4711");
  EXPECT_EQ(txtProject.at(0), "4711");
  ExpectDate({2024, 3, 5});
}

TEST_F(WayThroughTheDate, One_Shift_Tab_passes_the_date_backwards) {
  for (int stop = 0; stop < 2; ++stop) Press(Qt::Key_Tab);
  ASSERT_EQ(Focus(), "txtProject(0)");
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Focus(), "DTPicker1");
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Focus(), "txtProject(4)");
  Type("AB");
  EXPECT_EQ(txtProject.at(4), "AB");
  ExpectDate({2024, 3, 5});
}

TEST_F(WayThroughTheDate, Left_and_Right_go_between_its_parts_and_stop_at_the_outer_ones) {
  Press(Qt::Key_Tab);
  const auto day = QDateTimeEdit::DaySection;
  const auto month = QDateTimeEdit::MonthSection;
  const auto year = QDateTimeEdit::YearSection;
  EXPECT_EQ(Part(), day);
  const std::vector<std::pair<Qt::Key, QDateTimeEdit::Section>> way = {
      {Qt::Key_Left, day},   {Qt::Key_Right, month}, {Qt::Key_Right, year}, {Qt::Key_Right, year},
      {Qt::Key_Left, month}, {Qt::Key_Left, day},    {Qt::Key_Right, month}};
  for (const auto& [key, part] : way) {
    Press(key);
    EXPECT_EQ(Part(), part);
    EXPECT_EQ(Focus(), "DTPicker1");
  }
  ExpectDate({2024, 3, 5});
  Type("11");
  ExpectDate({2024, 11, 5});
}

TEST_F(WayThroughTheDate, A_part_typed_by_one_digit_is_taken_when_an_arrow_or_Tab_leaves_it) {
  // Each digit could be the first of two, so that the picker doesn't go on by itself.
  Press(Qt::Key_Tab);
  Type("2");
  Press(Qt::Key_Right);
  ExpectDate({2024, 3, 2});
  Type("1");
  Press(Qt::Key_Right);
  ExpectDate({2024, 1, 2});
  Type("27");
  Press(Qt::Key_Left);
  ExpectDate({2027, 1, 2});
  Press(Qt::Key_Left);
  Type("1");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "txtProject(0)");
  ExpectDate({2027, 1, 1});
}

}  // namespace

}  // namespace orvane::test
