// The dialog of the greatest lengths.
#include <QtTest/QTest>

#include <QApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <array>

#include "tests/screens/dialog_fixture.h"
#include "ui/dialogs/frm_max_dims.h"

namespace orvane {

namespace {

using test::DialogTest;

class MaxLengths : public DialogTest {
 protected:
  MaxLengths() { LoadMaxDims(); }

  static QLineEdit& Field(QWidget& form, int index) {
    return Find<QLineEdit>(form, "txtMaxDims(" + std::to_string(index) + ")");
  }
  static QPushButton& Button(QWidget& form, int index) {
    return Find<QPushButton>(form, "SSCommand2(" + std::to_string(index) + ")");
  }
  static void Retype(QWidget& form, int index, const std::string& text) {
    Field(form, index).setFocus();
    Field(form, index).selectAll();
    QTest::keyClick(&Field(form, index), Qt::Key_Delete);
    QTest::keyClicks(&Field(form, index), ToQt(text));
  }
  static std::vector<std::string> Texts(QWidget& form) {
    std::vector<std::string> texts;
    for (int index = 1; index <= 6; ++index) texts.push_back(FromQt(Field(form, index).text()));
    return texts;
  }
  static std::vector<double> Limits() { return {MaxDims.begin(), MaxDims.end()}; }
  std::vector<std::string> StoredLimits() {
    std::vector<std::string> texts;
    for (const char* name : {"Z", "E", "C", "V", "R", "T"}) {
      texts.push_back(Stored("\\Settings\\MaxDims", name));
    }
    return texts;
  }
  static void SetLimits() {
    for (int row = 1; row <= 6; ++row) MaxDims.At(row) = 1000 * row;
  }

  const std::vector<std::string> DefaultTexts = {"15000", "15000", "15000", "3050", "3050", "4000"};
  const std::vector<double> DefaultLimits = {15000, 15000, 15000, 3050, 3050, 4000};
  const std::vector<double> SetValues = {1000, 2000, 3000, 4000, 5000, 6000};
  const std::vector<std::string> NothingStored = std::vector<std::string>(6, "(none)");
};

TEST_F(MaxLengths, Frm_max_dims_has_its_texts_fields_and_buttons) {
  FrmMaxDims form;
  EXPECT_EQ(form.windowTitle(), "Set Max Dims");
  const std::array<const char*, 6> captions = {"Z section", "Eaves beam",   "Channel",
                                               "VCR",       "Cleader rail", "Top hat"};
  for (int index = 1; index <= 6; ++index) {
    EXPECT_EQ(CaptionOf(form, Field(form, index)),
              captions.at(static_cast<std::size_t>(index) - 1));
  }
  EXPECT_EQ(LabelTexts(form).size(), 7U);
  EXPECT_EQ(Find<QLabel>(form, "lblNote").text(), "Lengths in mm");
  EXPECT_EQ(ButtonCaptions(form), (std::vector<std::string>{"Apply &Defaults", "&OK", "&Cancel"}));
  for (int index = 0; index < 3; ++index) {
    EXPECT_EQ(FromQt(Button(form, index).text()),
              ButtonCaptions(form).at(static_cast<std::size_t>(index)));
  }
}

TEST_F(MaxLengths, At_a_first_start_the_fields_show_the_defaults) {
  FrmMaxDims form;
  EXPECT_EQ(Texts(form), DefaultTexts);
}

TEST_F(MaxLengths, The_fields_show_the_present_limits_without_decimals) {
  SetLimits();
  MaxDims.At(1) = 1234.5;
  MaxDims.At(6) = 0.4;
  FrmMaxDims form;
  EXPECT_EQ(Texts(form), (std::vector<std::string>{"1235", "2000", "3000", "4000", "5000", "0"}));
}

TEST_F(MaxLengths, Leaving_a_field_rewrites_it_as_the_number_it_begins_with) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"12.5abc", "13"}, {"x", "0"},     {"", "0"},      {"-3.5", "-4"}, {" 7 ", "7"},
      {"1e3", "1000"},   {"0042", "42"}, {"12.4", "12"}, {"1,5", "1"},   {"99999", "99999"},
  };
  FrmMaxDims form;
  ShowActive(form);
  for (int index = 1; index <= 6; ++index) {
    for (const auto& [typed, left] : cases) {
      Retype(form, index, typed);
      EXPECT_EQ(FromQt(Field(form, index).text()), typed);
      Press(Qt::Key_Tab);
      EXPECT_EQ(FromQt(Field(form, index).text()), left) << typed;
    }
  }
  EXPECT_EQ(Limits(), DefaultLimits);
}

TEST_F(MaxLengths, A_popup_or_another_program_does_not_count_as_leaving) {
  FrmMaxDims form;
  ShowActive(form);
  Retype(form, 2, "x");
  for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent leave(QEvent::FocusOut, reason);
    QApplication::sendEvent(&Field(form, 2), &leave);
    EXPECT_EQ(Field(form, 2).text(), "x");
  }
}

TEST_F(MaxLengths, Apply_defaults_only_fills_the_fields) {
  SetLimits();
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { QTest::mouseClick(&Button(form, 0), Qt::LeftButton); },
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_D, Qt::AltModifier); },
  };
  for (const auto& apply : ways) {
    FrmMaxDims form;
    ShowActive(form);
    Retype(form, 4, "77");
    apply(form);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Texts(form) == DefaultTexts; }));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Limits(), SetValues);
    EXPECT_EQ(StoredLimits(), NothingStored);
  }
}

TEST_F(MaxLengths, Apply_defaults_then_cancel_changes_nothing) {
  SetLimits();
  FrmMaxDims form;
  ShowActive(form);
  QTest::mouseClick(&Button(form, 0), Qt::LeftButton);
  QTest::mouseClick(&Button(form, 2), Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(Limits(), SetValues);
  EXPECT_EQ(StoredLimits(), NothingStored);
}

TEST_F(MaxLengths, Apply_defaults_then_ok_stores_them) {
  SetLimits();
  FrmMaxDims form;
  ShowActive(form);
  QTest::mouseClick(&Button(form, 0), Qt::LeftButton);
  QTest::mouseClick(&Button(form, 1), Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(Limits(), DefaultLimits);
  EXPECT_EQ(StoredLimits(), DefaultTexts);
}

TEST_F(MaxLengths, Ok_takes_every_field_stores_and_closes) {
  FrmMaxDims form;
  ShowActive(form);
  for (int index = 1; index <= 6; ++index) Retype(form, index, std::to_string(9000 + index));
  QTest::mouseClick(&Button(form, 1), Qt::LeftButton);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(Limits(), (std::vector<double>{9001, 9002, 9003, 9004, 9005, 9006}));
  EXPECT_EQ(StoredLimits(),
            (std::vector<std::string>{"9001", "9002", "9003", "9004", "9005", "9006"}));
}

TEST_F(MaxLengths, Ok_by_its_key_rewrites_the_field_that_was_never_left) {
  FrmMaxDims form;
  ShowActive(form);
  Retype(form, 3, "1234.5mm");
  ASSERT_EQ(Focus(), "txtMaxDims(3)");
  Press(Qt::Key_O, Qt::AltModifier);
  WaitUntilHidden(form);
  EXPECT_EQ(MaxDims.At(3), 1235);
  EXPECT_EQ(Stored("\\Settings\\MaxDims", "C"), "1235");
}

TEST_F(MaxLengths, A_number_beyond_all_bounds_is_told_on_leaving_and_stays) {
  FrmMaxDims form;
  ShowActive(form);
  Retype(form, 1, "1E400");
  dialogs.ExpectBox("Overflow");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_EQ(Field(form, 1).text(), "1E400");
  EXPECT_EQ(Focus(), "txtMaxDims(2)");
}

TEST_F(MaxLengths, A_number_beyond_all_bounds_is_told_once_by_ok_which_then_stores_nothing) {
  FrmMaxDims form;
  ShowActive(form);
  Retype(form, 2, "1E400");
  dialogs.ExpectBox("Overflow");
  Press(Qt::Key_O, Qt::AltModifier);
  Settle();
  test::RunQueued();  // a second box would come now
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(Focus(), "txtMaxDims(2)");
  EXPECT_EQ(Limits(), DefaultLimits);
  EXPECT_EQ(StoredLimits(), NothingStored);
}

TEST_F(MaxLengths, Every_way_of_cancelling_changes_nothing_and_says_nothing) {
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { QTest::mouseClick(&Button(form, 2), Qt::LeftButton); },
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_C, Qt::AltModifier); },
      [](QWidget& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Escape); },
      [](QWidget& form) { form.close(); },
  };
  for (std::size_t way = 0; way < ways.size(); ++way) {
    SCOPED_TRACE(way);
    FrmMaxDims form;
    ShowActive(form);
    Retype(form, 5, "800");
    Retype(form, 6, "1E400");
    ways.at(way)(form);
    WaitUntilHidden(form);
    Settle();
    EXPECT_EQ(Limits(), DefaultLimits);
    EXPECT_EQ(StoredLimits(), NothingStored);
  }
}

TEST_F(MaxLengths, Enter_presses_the_button_that_has_the_focus_and_OK_from_any_field) {
  SetLimits();
  for (int index = 1; index <= 6; ++index) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      SCOPED_TRACE(index);
      FrmMaxDims form;
      ShowActive(form);
      const int length = 7000 + index + (key == Qt::Key_Enter ? 100 : 0);
      Field(form, index).setText(QString::number(length));
      Field(form, index).setFocus();
      Press(key);
      EXPECT_FALSE(form.isVisible());
      EXPECT_EQ(MaxDims.At(index), length);
    }
  }
  FrmMaxDims form;
  ShowActive(form);
  Button(form, 0).setFocus();
  Press(Qt::Key_Return);
  EXPECT_EQ(Texts(form), DefaultTexts);
  Button(form, 2).setFocus();
  Press(Qt::Key_Enter);
  EXPECT_FALSE(form.isVisible());
}

}  // namespace

}  // namespace orvane
