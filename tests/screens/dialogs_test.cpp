// The about box, the details of the project and the list of export errors.
#include <QtTest/QTest>

#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QWheelEvent>
#include <array>
#include <regex>

#include "output/validation.h"
#include "tests/screens/dialog_fixture.h"
#include "ui/controls/refused_look.h"
#include "ui/dialogs/frm_about.h"
#include "ui/dialogs/frm_errors.h"
#include "ui/dialogs/frm_project_details.h"

namespace orvane {

namespace {

using test::DialogTest;
using test::TestDesktop;

// The about box.

class About : public DialogTest {};

TEST_F(About, Frm_about_tells_program_version_rights_and_sales) {
  const FrmAbout form;
  EXPECT_EQ(form.windowTitle(), "About Orvane Detail System");
  const std::vector<std::string> lines = LabelTexts(form);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines.at(0), "Orvane Detailing System");
  EXPECT_TRUE(std::regex_match(lines.at(1), std::regex("Version [0-9]+\\.[0-9]+\\.[0-9]+")))
      << lines.at(1);
  EXPECT_EQ(lines.at(2), "(c) Lintaro. All rights reserved.");
  EXPECT_EQ(lines.at(3), "sales@lintaro.example");
  EXPECT_EQ(ButtonCaptions(form), (std::vector<std::string>{"OK"}));
}

TEST_F(About, Frm_about_waits_until_its_button_its_keys_or_its_frame_close_it) {
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { QTest::keyClick(&form, Qt::Key_Return); },
      [](QWidget& form) { QTest::keyClick(&form, Qt::Key_Enter); },
      [](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); },
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Space); },
      [](QWidget& form) { QTest::mouseClick(&Find(form, "SSCommand1"), Qt::LeftButton); },
      [](QWidget& form) { form.close(); },
  };
  for (std::size_t way = 0; way < ways.size(); ++way) {
    SCOPED_TRACE(way);
    bool wasShown = false;
    dialogs.ExpectDialog("frmAbout", [&](QWidget& form) {
      wasShown = form.isVisible() && form.isModal();
      ways.at(way)(form);
    });
    FrmAbout().exec();
    EXPECT_TRUE(wasShown);
    EXPECT_TRUE(dialogs.Done());
  }
}

// The details of the project.

class ProjectDetails : public DialogTest {
 protected:
  static QLineEdit& Field(QWidget& form, int index) {
    return Find<QLineEdit>(form, "txtProject(" + std::to_string(index) + ")");
  }
  static QDateEdit& Picker(QWidget& form) { return Find<QDateEdit>(form, "DTPicker1"); }
};

// The machine's short date form as the test has it.
class FormDesktop : public TestDesktop {
 public:
  std::string Form;
  std::string ShortDateForm() const override { return Form; }
};

TEST_F(ProjectDetails, Frm_project_details_has_its_fields_in_order_and_one_button) {
  FrmProjectDetails form;
  EXPECT_EQ(form.windowTitle(), "Project Details");
  const std::vector<std::pair<std::string, QWidget*>> expected = {
      {"Job No.", &Field(form, 1)},  {"Customer", &Field(form, 2)}, {"Project", &Field(form, 3)},
      {"Designer", &Field(form, 4)}, {"Date", &Picker(form)},       {"Orvane No.", &Field(form, 0)},
  };
  auto* fields = form.findChild<QFormLayout*>();
  ASSERT_NE(fields, nullptr);
  ASSERT_EQ(fields->rowCount(), 6);
  for (int row = 0; row < 6; ++row) {
    const auto& [label, field] = expected.at(static_cast<std::size_t>(row));
    EXPECT_EQ(fields->itemAt(row, QFormLayout::FieldRole)->widget(), field);
    auto* caption = qobject_cast<QLabel*>(fields->labelForField(field));
    ASSERT_NE(caption, nullptr);
    EXPECT_EQ(FromQt(caption->text()), label);
    EXPECT_EQ(caption->buddy(), field);
  }
  EXPECT_EQ(ButtonCaptions(form), (std::vector<std::string>{"&Close"}));
}

TEST_F(ProjectDetails, Tab_runs_through_the_fields_in_the_order_of_the_form) {
  FrmProjectDetails form;
  ShowActive(form);
  std::vector<std::string> stops;
  for (int stop = 0; stop < 7; ++stop) {
    stops.push_back(Focus());
    Press(Qt::Key_Tab);
  }
  EXPECT_EQ(stops, (std::vector<std::string>{"txtProject(1)", "txtProject(2)", "txtProject(3)",
                                             "txtProject(4)", "DTPicker1", "txtProject(0)",
                                             "SSCommand1"}));
  EXPECT_EQ(Focus(), "txtProject(1)");
}

TEST_F(ProjectDetails, A_date_before_2002_is_one_never_set_and_becomes_today_at_the_start) {
  const Date today{2024, 3, 5};
  const std::vector<std::pair<Date, Date>> cases = {
      {{1899, 12, 30}, today},        {{2000, 1, 1}, today},
      {{2001, 12, 31}, today},        {{2002, 1, 1}, {2002, 1, 1}},
      {{2002, 1, 2}, {2002, 1, 2}},   {{2031, 7, 9}, {2031, 7, 9}},
      {{1999, 12, 31}, today},        {{9999, 12, 31}, {9999, 12, 31}},
      {{2010, 1, 31}, {2010, 1, 31}},
  };
  for (const auto& [before, after] : cases) {
    SCOPED_TRACE(FullYearText(before));
    DTPicker1 = before;
    FrmProjectDetails form;
    EXPECT_EQ(DTPicker1, after);
    EXPECT_EQ(FromQt(Picker(form).text()), FullYearText(after));
  }
}

TEST_F(ProjectDetails, A_date_before_2002_from_a_file_is_kept_and_shown) {
  FrmProjectDetails form;
  for (const Date& date : {Date{1995, 6, 15}, Date{2001, 12, 31}, Date{1752, 9, 1}}) {
    DTPicker1 = date;
    form.Refresh();
    form.show();
    form.hide();
    EXPECT_EQ(DTPicker1, date);
    EXPECT_EQ(FromQt(Picker(form).text()), FullYearText(date));
  }
}

TEST_F(ProjectDetails, A_date_that_the_field_cannot_show_is_not_changed_by_showing_it) {
  FrmProjectDetails form;
  DTPicker1 = {50, 1, 1};
  form.Refresh();
  ShowActive(form);
  EXPECT_EQ(DTPicker1, (Date{50, 1, 1}));
}

TEST_F(ProjectDetails, Typing_takes_effect_at_once_in_its_own_field_and_never_marks_the_project) {
  FrmProjectDetails form;
  ShowActive(form);
  std::array<std::string, 5> expected;
  for (int index = 0; index < 5; ++index) {
    Field(form, index).setFocus();
    for (const char letter : {'A', 'b', ' ', '.', ';'}) {
      QTest::keyClick(&Field(form, index), letter);
      expected.at(static_cast<std::size_t>(index)) += letter;
      EXPECT_EQ(txtProject, expected);
    }
    QTest::keyClick(&Field(form, index), Qt::Key_Backspace);
    expected.at(static_cast<std::size_t>(index)).pop_back();
    EXPECT_EQ(txtProject, expected);
  }
  EXPECT_EQ(txtProject, (std::array<std::string, 5>{"Ab .", "Ab .", "Ab .", "Ab .", "Ab ."}));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ProjectDetails, What_the_file_cannot_hold_is_not_taken) {
  FrmProjectDetails form;
  ShowActive(form);
  for (int index = 1; index < 5; ++index) {
    QTest::keyClicks(&Field(form, index), "a\"b,");
    EXPECT_EQ(txtProject.at(static_cast<std::size_t>(index)), "a''b,");
    EXPECT_FALSE(IsFieldRefused(Field(form, index)));
  }
  // The number stands in the file without quotes.
  QTest::keyClicks(&Field(form, 0), "1\"2");
  EXPECT_EQ(txtProject.at(0), "1\"2");
  QTest::keyClick(&Field(form, 0), ',');
  EXPECT_EQ(txtProject.at(0), "1\"2");
  EXPECT_EQ(FromQt(RefusalOf(Field(form, 0))), "The project file can't hold a comma here");
  QTest::keyClick(&Field(form, 0), '5');
  EXPECT_EQ(txtProject.at(0), "1\"25");
  EXPECT_FALSE(IsFieldRefused(Field(form, 0)));
  QGuiApplication::clipboard()->setText("7,8");
  QTest::keyClick(&Field(form, 0), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(txtProject.at(0), "1\"25");
  EXPECT_EQ(FromQt(RefusalOf(Field(form, 0))), "The project file can't hold a comma here");
}

TEST_F(ProjectDetails, It_can_begin_at_another_field_once) {
  FrmProjectDetails form;
  form.BeginAt(4);
  ShowActive(form);
  EXPECT_EQ(form.focusWidget(), &Field(form, 4));
  form.hide();
  ShowActive(form);
  EXPECT_EQ(form.focusWidget(), &Field(form, 1));
}

TEST_F(ProjectDetails, A_typed_date_takes_effect_at_once_and_never_marks_the_project) {
  FrmProjectDetails form;
  ShowActive(form);
  Picker(form).setFocus();
  Picker(form).setSelectedSection(QDateTimeEdit::DaySection);
  Press(Qt::Key_Up);
  EXPECT_EQ(DTPicker1, (Date{2024, 3, 6}));
  Type("27112025");
  EXPECT_EQ(DTPicker1, (Date{2025, 11, 27}));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ProjectDetails, A_day_chosen_in_the_calendar_takes_effect) {
  FrmProjectDetails form;
  ShowActive(form);
  ASSERT_TRUE(Picker(form).calendarPopup());
  emit Picker(form).calendarWidget()->activated(QDate(2024, 3, 20));
  Picker(form).calendarWidget()->setSelectedDate(QDate(2024, 3, 20));
  emit Picker(form).calendarWidget()->clicked(QDate(2024, 3, 20));
  EXPECT_EQ(DTPicker1, (Date{2024, 3, 20}));
}

TEST_F(ProjectDetails, A_wheel_that_passes_over_the_date_leaves_it) {
  FrmProjectDetails form;
  ShowActive(form);
  ASSERT_EQ(Focus(), "txtProject(1)");
  QWheelEvent wheel(QPointF(5, 5), Picker(form).mapToGlobal(QPointF(5, 5)), QPoint(),
                    QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Picker(form), &wheel);
  EXPECT_EQ(DTPicker1, (Date{2024, 3, 5}));
}

TEST_F(ProjectDetails, The_date_is_shown_in_the_systems_form_with_a_year_of_four_digits) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"dd/MM/yyyy", "05/03/2024"},  {"dd.MM.yy", "05.03.2024"},   {"M/d/yy", "3/5/2024"},
      {"yyyy-MM-dd", "2024-03-05"},  {"d MMM yyyy", "05/03/2024"}, {"MM/yyyy", "05/03/2024"},
      {"dddd d/M/yy", "05/03/2024"}, {"", "05/03/2024"},
  };
  FormDesktop machine;
  InstallDesktop(machine);
  for (const auto& [systemForm, shown] : cases) {
    SCOPED_TRACE(systemForm);
    machine.Form = systemForm;
    FrmProjectDetails form;
    EXPECT_EQ(FromQt(Picker(form).text()), shown);
  }
  InstallDesktop(platform);
}

TEST_F(ProjectDetails, Every_way_of_closing_hides_the_form_and_keeps_what_was_typed) {
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { QTest::mouseClick(&Find(form, "SSCommand1"), Qt::LeftButton); },
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_C, Qt::AltModifier); },
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Escape); },
      [](QWidget& form) { form.close(); },
      [](QWidget& form) {
        Find(form, "SSCommand1").setFocus();
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
      },
  };
  FrmProjectDetails form;
  std::string typed;
  for (std::size_t way = 0; way < ways.size(); ++way) {
    SCOPED_TRACE(way);
    typed += "7";
    dialogs.ExpectDialog("frmProjectDetails", [&](QWidget& window) {
      WaitUntilActive(window);
      QTest::keyClick(&Field(window, 2), Qt::Key_End);
      QTest::keyClicks(&Field(window, 2), "7");
      ways.at(way)(window);
      WaitUntilHidden(window);
    });
    form.exec();
    EXPECT_TRUE(form.isHidden());
    EXPECT_EQ(txtProject.at(2), typed);
    EXPECT_EQ(FromQt(Field(form, 2).text()), typed);
  }
}

TEST_F(ProjectDetails, Each_showing_starts_in_the_job_number_with_what_the_model_holds) {
  FrmProjectDetails form;
  ShowActive(form);
  Field(form, 4).setFocus();
  form.hide();
  QWidget between;
  ShowActive(between);
  txtProject = {"MN-7", "J100", "Acme", "Shed", "PQ"};
  DTPicker1 = {2023, 12, 1};
  ShowActive(form);
  EXPECT_EQ(Focus(), "txtProject(1)");
  EXPECT_EQ(Field(form, 1).selectedText(), "J100");
  for (int index = 0; index < 5; ++index) {
    EXPECT_EQ(FromQt(Field(form, index).text()), txtProject.at(static_cast<std::size_t>(index)));
  }
  EXPECT_EQ(Picker(form).text(), "01/12/2023");
}

TEST_F(ProjectDetails, Enter_presses_Close_from_any_field_but_not_when_it_is_held_down) {
  FrmProjectDetails form;
  for (const std::string name : {"txtProject(1)", "txtProject(2)", "txtProject(3)", "txtProject(4)",
                                 "txtProject(0)", "DTPicker1"}) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      SCOPED_TRACE(name);
      ShowActive(form);
      Find<QWidget>(form, name).setFocus();
      QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, "\r", true);
      QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
      EXPECT_TRUE(form.isVisible());
      Press(key);
      EXPECT_FALSE(form.isVisible());
    }
  }
}

// The list of export errors.

class Errors : public DialogTest {
 protected:
  Errors() { ExportErrors.Clear(); }
  ~Errors() override { ExportErrors.Clear(); }
};

TEST_F(Errors, Frm_errors_lists_the_lines_in_order_at_each_showing) {
  AddExportError(1, "", "No mark");
  AddExportError(1, "", "Zero length");
  AddExportError(12, "P1", "No sleeves");
  for (int showing = 0; showing < 2; ++showing) {
    const FrmErrors form;
    EXPECT_EQ(form.windowTitle(), "Validation Errors");
    const auto* list = form.findChild<QListWidget*>("List1");
    ASSERT_NE(list, nullptr);
    std::vector<std::string> lines;
    for (int row = 0; row < list->count(); ++row) lines.push_back(FromQt(list->item(row)->text()));
    EXPECT_EQ(lines, (std::vector<std::string>{"Item 1:  No mark", "Item 1:  Zero length",
                                               "Item 12: P1 No sleeves"}));
    EXPECT_EQ(ButtonCaptions(form), (std::vector<std::string>{"&Close"}));
    EXPECT_NE(form.findChild<QPushButton*>("SSCommand2"), nullptr);
  }
  EXPECT_EQ(ExportErrors.UBound(), 3);
}

TEST_F(Errors, Frm_errors_is_closed_by_its_button_its_keys_or_its_frame) {
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return); },
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Space); },
      [](QWidget& form) { QTest::keyClick(&Find(form, "List1"), Qt::Key_C, Qt::AltModifier); },
      [](QWidget& form) { QTest::keyClick(&Find(form, "List1"), Qt::Key_Escape); },
      [](QWidget& form) { QTest::mouseClick(&Find(form, "SSCommand2"), Qt::LeftButton); },
      [](QWidget& form) { form.close(); },
  };
  for (std::size_t way = 0; way < ways.size(); ++way) {
    SCOPED_TRACE(way);
    dialogs.ExpectDialog("frmErrors", [&](QWidget& form) {
      WaitUntilActive(form);
      ways.at(way)(form);
      WaitUntilHidden(form);
    });
    FrmErrors().exec();
    EXPECT_TRUE(dialogs.Done());
  }
}

}  // namespace

}  // namespace orvane
