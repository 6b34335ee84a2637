// The dialog of the company's details, the margins and the separation of holes.
#include <QtTest/QTest>

#include <QApplication>
#include <QClipboard>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <array>

#include "tests/screens/dialog_fixture.h"
#include "ui/controls/refused_look.h"
#include "ui/dialogs/frm_registration.h"

namespace orvane {

namespace {

using test::DialogTest;

class Registration : public DialogTest {
 protected:
  Registration() {
    LoadPageSetup();
    LoadDrawingSettings();
  }

  static QLineEdit& Text1(QWidget& form, int index) {
    return Find<QLineEdit>(form, "Text1(" + std::to_string(index) + ")");
  }
  static QPushButton& Continue(QWidget& form) { return Find<QPushButton>(form, "SSCommand1"); }

  // Types a text over what the field holds.
  static void Retype(QWidget& form, int index, const std::string& text) {
    Text1(form, index).setFocus();
    Text1(form, index).selectAll();
    QTest::keyClick(&Text1(form, index), Qt::Key_Delete);
    QTest::keyClicks(&Text1(form, index), ToQt(text));
  }

  std::vector<std::string> StoredMargins() {
    const std::string key = "\\Settings\\PageSetup";
    return {Stored(key, "LeftMargin"), Stored(key, "RightMargin"), Stored(key, "TopMargin"),
            Stored(key, "BottomMargin")};
  }
};

TEST_F(Registration, Frm_registration_has_its_texts_fields_and_one_button) {
  FrmRegistration form;
  EXPECT_EQ(form.windowTitle(), "Registration Details");
  EXPECT_EQ(LabelTexts(form).front(),
            "Please enter your company details. These will appear on the drawings and reports:");
  const std::array<const char*, 7> captions = {"Company Name",
                                               "Address Details",
                                               "Left",
                                               "Right",
                                               "Top",
                                               "Bottom",
                                               "Minimum separation of holes on drawings (mm)"};
  auto* frame = form.findChild<QGroupBox*>();
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->title(), "Preferred margins for drawings (mm)");
  for (int index = 0; index < 7; ++index) {
    EXPECT_EQ(CaptionOf(form, Text1(form, index)), captions.at(static_cast<std::size_t>(index)));
    EXPECT_EQ(frame->isAncestorOf(&Text1(form, index)), index >= 2 && index <= 5) << index;
  }
  EXPECT_EQ(ButtonCaptions(form), (std::vector<std::string>{"Continue"}));
}

// The job table is 282 mm wide, and A4 297. A channel of 351 has its bottom at 135.1 mm and its
// legend to 161.2; the strip begins at 210 - 18 - 12 = 180 mm less the margin.
TEST_F(Registration, A_quiet_note_tells_which_margins_leave_the_strip_its_room) {
  SectionDim channel;
  channel.SectionType = "C";
  channel.Dim3 = 351;
  SectionDims.Append(channel);
  FrmRegistration form;
  form.show();
  auto& note = Find<QLabel>(form, "lblMargins");
  EXPECT_FALSE(note.isVisible());
  Retype(form, 2, "15");
  Retype(form, 5, "18");
  EXPECT_FALSE(note.isVisible());
  Retype(form, 2, "16");
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(
      note.text(),
      "The strip at the foot of the drawings leaves A4 paper: left margins of 0 to 15 mm fit.");
  Retype(form, 2, "15");
  Retype(form, 5, "19");
  EXPECT_EQ(
      note.text(),
      "The strip at the foot of the drawings runs into the deepest of them: bottom margins of 2 "
      "to 18 mm fit.");
  // With 1 mm it stands on the contact line, which is at the paper's edge then.
  Retype(form, 5, "2");
  EXPECT_FALSE(note.isVisible());
  Retype(form, 5, "1");
  EXPECT_EQ(note.text(),
            "The strip at the foot of the drawings runs into the line below it: bottom margins of "
            "2 to 18 mm fit.");
  Retype(form, 5, "19");
  // Nothing is refused.
  QTest::mouseClick(&Continue(form), Qt::LeftButton);
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_EQ(BottomMargin, 19);
}

// Its detail stands at 125 mm and is 75 / 1.8 = 41.7 mm high at most.
TEST_F(Registration, The_detail_of_a_rail_has_to_stay_clear_of_the_strip_too) {
  SectionDim rail;
  rail.SectionType = "R";
  rail.Dim3 = 120;
  SectionDims.Append(rail);
  BottomMargin = 14;
  FrmRegistration form;
  form.show();
  EXPECT_TRUE(Find<QLabel>(form, "lblMargins").text().contains("2 to 13 mm"));
}

TEST_F(Registration, Both_notes_stand_there_for_margins_of_the_settings_too) {
  LeftMargin = -5;
  BottomMargin = 200;
  FrmRegistration form;
  form.show();
  EXPECT_EQ(Find<QLabel>(form, "lblMargins").text().count("\n"), 1);
}

TEST_F(Registration, At_a_first_start_the_fields_show_the_defaults) {
  FrmRegistration form;
  const std::array<const char*, 7> texts = {"", "", "10", "10", "10", "10", "4"};
  for (int index = 0; index < 7; ++index) {
    EXPECT_EQ(Text1(form, index).text(), texts.at(static_cast<std::size_t>(index))) << index;
  }
}

TEST_F(Registration, The_fields_show_the_present_values_numbers_without_decimals) {
  CompanyName = "Smith & Sons";
  CompanyDetails = "1 Mill Lane, Hull";
  LeftMargin = 0;
  RightMargin = 32767;
  TopMargin = -5;
  BottomMargin = 7;
  MinHoleSep = 4.5;
  FrmRegistration form;
  // 4.5 rounds away from zero.
  const std::array<const char*, 7> texts = {
      "Smith & Sons", "1 Mill Lane, Hull", "0", "32767", "-5", "7", "5"};
  for (int index = 0; index < 7; ++index) {
    EXPECT_EQ(Text1(form, index).text(), texts.at(static_cast<std::size_t>(index))) << index;
  }
}

TEST_F(Registration, Number_fields_take_digits_blanks_and_backspace_and_swallow_the_rest) {
  FrmRegistration form;
  ShowActive(form);
  for (int index = 2; index <= 6; ++index) {
    Retype(form, index, "1a.-2 ,+eE/:");
    EXPECT_EQ(Text1(form, index).text(), "12 ") << index;
    QTest::keyClick(&Text1(form, index), Qt::Key_Backspace);
    QTest::keyClick(&Text1(form, index), Qt::Key_Backspace);
    EXPECT_EQ(Text1(form, index).text(), "1") << index;
    Retype(form, index, "0123456789");
    EXPECT_EQ(Text1(form, index).text(), "0123456789") << index;
  }
}

TEST_F(Registration, A_swallowed_key_leaves_a_selection_and_the_cursor_alone) {
  FrmRegistration form;
  ShowActive(form);
  Text1(form, 2).setFocus();
  Text1(form, 2).selectAll();
  QTest::keyClick(&Text1(form, 2), 'x');
  EXPECT_EQ(Text1(form, 2).text(), "10");
  EXPECT_EQ(Text1(form, 2).selectedText(), "10");
  QTest::keyClick(&Text1(form, 2), Qt::Key_Home);
  QTest::keyClick(&Text1(form, 2), Qt::Key_Right);
  QTest::keyClick(&Text1(form, 2), '.');
  QTest::keyClick(&Text1(form, 2), '5');
  EXPECT_EQ(Text1(form, 2).text(), "150");
}

TEST_F(Registration, A_number_field_takes_a_pasted_number_whole_or_not_at_all) {
  FrmRegistration form;
  ShowActive(form);
  const auto paste = [&form](int index, const char* text) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&Text1(form, index), Qt::Key_V, Qt::ControlModifier);
  };
  for (int index = 2; index <= 6; ++index) {
    Retype(form, index, "7");
    paste(index, "a1.5 mm");
    EXPECT_EQ(Text1(form, index).text(), "7") << index;
    EXPECT_TRUE(IsFieldRefused(Text1(form, index))) << index;
    paste(index, " 8 mm\n");
    EXPECT_EQ(Text1(form, index).text(), "8") << index;
    EXPECT_FALSE(IsFieldRefused(Text1(form, index))) << index;
  }
}

TEST_F(Registration, A_number_longer_than_its_field_is_not_pasted_cut_off) {
  FrmRegistration form;
  ShowActive(form);
  const int longest = Text1(form, 2).maxLength();
  Retype(form, 2, "7");
  QApplication::clipboard()->setText(QString(longest + 1, '1'));
  QTest::keyClick(&Text1(form, 2), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Text1(form, 2).text(), "7");
  EXPECT_TRUE(IsFieldRefused(Text1(form, 2)));
}

TEST_F(Registration, The_company_fields_take_every_character) {
  FrmRegistration form;
  ShowActive(form);
  for (int index = 0; index <= 1; ++index) {
    Retype(form, index, "a.-1 ,+E/:\"");
    EXPECT_EQ(Text1(form, index).text(), "a.-1 ,+E/:\"") << index;
  }
}

TEST_F(Registration, Leaving_the_separation_brings_it_between_3_and_9) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"12", "9"}, {"2", "3"}, {"9", "9"}, {"3", "3"}, {"10", "9"},
      {"0", "3"},  {"", "3"},  {" ", "3"}, {"5", "5"}, {"4.5", "9"},  // typed without its point: 45
  };
  FrmRegistration form;
  ShowActive(form);
  for (const auto& [typed, left] : cases) {
    Retype(form, 6, typed);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "SSCommand1");
    EXPECT_EQ(FromQt(Text1(form, 6).text()), left) << typed;
  }
}

TEST_F(Registration, A_popup_or_another_program_does_not_count_as_leaving) {
  FrmRegistration form;
  ShowActive(form);
  Retype(form, 6, "12");
  for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent leave(QEvent::FocusOut, reason);
    QApplication::sendEvent(&Text1(form, 6), &leave);
    EXPECT_EQ(Text1(form, 6).text(), "12");
  }
}

TEST_F(Registration, The_margins_have_no_range) {
  FrmRegistration form;
  ShowActive(form);
  for (int index = 2; index <= 5; ++index) {
    Retype(form, index, "99999");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text1(form, index).text(), "99999");
  }
}

TEST_F(Registration, Continue_stores_everything_and_closes) {
  FrmRegistration form;
  ShowActive(form);
  Retype(form, 0, "  Smith & Sons  ");
  Retype(form, 1, " 1 Mill Lane ");
  Retype(form, 2, "500");
  Retype(form, 3, "0");
  Retype(form, 4, " 7 ");
  Retype(form, 5, "");
  Retype(form, 6, "6");
  QTest::mouseClick(&Continue(form), Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(CompanyName, "Smith & Sons");
  EXPECT_EQ(CompanyDetails, "1 Mill Lane");
  EXPECT_EQ(LeftMargin, 500);
  EXPECT_EQ(RightMargin, 0);
  EXPECT_EQ(TopMargin, 7);
  EXPECT_EQ(BottomMargin, 0);
  EXPECT_EQ(MinHoleSep, 6);
  EXPECT_EQ(Stored("\\Registration", "Company Name"), "Smith & Sons");
  EXPECT_EQ(Stored("\\Registration", "Company Details"), "1 Mill Lane");
  EXPECT_EQ(StoredMargins(), (std::vector<std::string>{"500", "0", "7", "0"}));
  EXPECT_EQ(Stored("\\Settings\\Drawings", "MinHoleSep"), "6");
}

TEST_F(Registration, Continue_without_an_entry_accepts_an_empty_company_name) {
  FrmRegistration form;
  ShowActive(form);
  Retype(form, 0, "   ");
  Continue(form).setFocus();
  Press(Qt::Key_Return);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(CompanyName, "");
  EXPECT_EQ(Stored("\\Registration", "Company Name"), "");
}

TEST_F(Registration, Continue_limits_the_separation_though_the_cursor_never_left_it) {
  FrmRegistration form;
  ShowActive(form);
  Retype(form, 6, "12");
  ASSERT_EQ(Focus(), "Text1(6)");
  Continue(form).click();
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(MinHoleSep, 9);
  EXPECT_EQ(Stored("\\Settings\\Drawings", "MinHoleSep"), "9");
}

TEST_F(Registration, What_was_not_touched_stays_as_it_was) {
  CompanyName = "Smith";
  CompanyDetails = "1 Mill Lane\nHull";
  TopMargin = -5;
  FrmRegistration form;
  ShowActive(form);
  QTest::mouseClick(&Continue(form), Qt::LeftButton);
  EXPECT_EQ(CompanyDetails, "1 Mill Lane\nHull");
  EXPECT_EQ(TopMargin, -5);
  EXPECT_EQ(StoredMargins(), (std::vector<std::string>{"10", "10", "-5", "10"}));
}

TEST_F(Registration, A_separation_with_a_fraction_comes_back_whole) {
  MinHoleSep = 4.5;
  FrmRegistration form;
  ShowActive(form);
  QTest::mouseClick(&Continue(form), Qt::LeftButton);
  EXPECT_EQ(MinHoleSep, 5);
}

TEST_F(Registration, A_margin_of_32767_is_taken_and_one_more_overflows_with_the_dialog_open) {
  FrmRegistration form;
  ShowActive(form);
  Retype(form, 0, "Smith");
  Retype(form, 4, "32768");
  dialogs.ExpectBox("Overflow");
  QTest::mouseClick(&Continue(form), Qt::LeftButton);
  EXPECT_TRUE(form.isVisible());
  // The company is stored already, no margin is.
  EXPECT_EQ(Stored("\\Registration", "Company Name"), "Smith");
  EXPECT_EQ(StoredMargins(), (std::vector<std::string>(4, "(none)")));
  EXPECT_EQ(TopMargin, 10);

  Retype(form, 4, "32767");
  QTest::mouseClick(&Continue(form), Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(StoredMargins(), (std::vector<std::string>{"10", "10", "32767", "10"}));
  EXPECT_EQ(TopMargin, 32767);
}

TEST_F(Registration, Escape_and_the_frame_store_nothing) {
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Escape); },
      [](QWidget& form) { form.close(); },
  };
  for (const auto& close : ways) {
    FrmRegistration form;
    ShowActive(form);
    Retype(form, 0, "Smith");
    Retype(form, 2, "20");
    Retype(form, 6, "8");
    close(form);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(CompanyName, "");
    EXPECT_EQ(LeftMargin, 10);
    EXPECT_EQ(MinHoleSep, 4);
    EXPECT_EQ(Stored("\\Registration", "Company Name"), "(none)");
    EXPECT_EQ(StoredMargins(), (std::vector<std::string>(4, "(none)")));
  }
}

TEST_F(Registration, Enter_presses_Continue_from_any_field) {
  for (int index = 0; index < 7; ++index) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      SCOPED_TRACE(index);
      FrmRegistration form;
      ShowActive(form);
      const std::string name = "Steel " + std::to_string(index) + std::to_string(key);
      Retype(form, 0, name);
      Retype(form, 6, "99");
      Text1(form, index).setFocus();
      Press(key);
      EXPECT_FALSE(form.isVisible());
      EXPECT_EQ(CompanyName, name);
      EXPECT_EQ(MinHoleSep, 9);
    }
  }
}

}  // namespace

}  // namespace orvane
