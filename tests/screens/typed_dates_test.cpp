// Dates typed into the project details as people type them.
#include <gtest/gtest.h>

#include "tests/screens/dialog_fixture.h"
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
  EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
  auto* picker = form.findChild<QDateEdit*>("DTPicker1");
  picker->setFocus(Qt::TabFocusReason);
  picker->setSelectedSection(QDateTimeEdit::DaySection);
  for (const char key : keys) QTest::keyClick(picker, key);
  QTest::keyClick(picker, Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
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

}  // namespace

}  // namespace orvane::test
