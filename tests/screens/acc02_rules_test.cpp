// What OK refuses in the tables of the three accessories with rules of their own.
#include "tests/screens/acc02_fixture.h"

namespace orvane::test {
namespace {

// A refusal with its title, the row that is current then, and the cell that is opened, 0 for none.
struct Refusal {
  std::string Text;
  std::string Title;
  int Row = 1;
  int Column = 0;
};

const std::string VcrNumbers = "'No. Rqd' should equal 'No. As Drawn' + 'No. Opp. Hand'";
const std::string VcrLength = "Maximum length for VCR section is 3050";
const std::string ApexPitch = "Tubular apex ties only suitable if pitch <= 25deg";
const std::string SagCentres = "Please enter EITHER purlin OR rail centres";

class Acc02RulesTest : public Acc02Test {
 protected:
  void SetUp() override {
    Acc02Test::SetUp();
    MaxDims.At(4) = 3050;
  }
  // Types the table by keys.
  static void TypeTable(FrmAcc02& form, const std::vector<Texts>& rows) {
    bool first = true;
    for (const Texts& row : rows) {
      if (!first) ClickButton(form, 4);
      first = false;
      // Behind Clear the table is at rest.
      if (Focus() == "MSFlexGrid1") Key(Qt::Key_Return);
      bool mark = true;
      for (const std::string& text : row) {
        if (!mark) Key(Qt::Key_Tab);
        mark = false;
        Keys(text);
      }
    }
  }
  void ExpectRefused(std::int16_t accessory, const std::vector<Texts>& rows,
                     const Refusal& refusal) {
    PutLine(accessory, "OLD", 1, {});
    const std::vector<Texts> before = Stored(accessory);
    const std::size_t boxes = dialogs.Boxes().size();
    InDialog(accessory, [&](FrmAcc02& form) {
      ClickButton(form, 1);
      Grid(form).setFocus();
      TypeTable(form, rows);
      dialogs.ExpectBox(refusal.Text, refusal.Title);
      ClickButton(form, 0);
      WaitUntilActive(form);
      EXPECT_TRUE(form.isVisible());
      EXPECT_EQ(AccDialogResult, "Cancelled");
      EXPECT_EQ(Stored(accessory), before);
      // The table stays as it was typed.
      std::vector<Texts> typed = rows;
      for (Texts& row : typed) row.resize(static_cast<std::size_t>(Grid(form).Cols() - 1));
      EXPECT_EQ(Cells(form), typed);
      EXPECT_EQ(Grid(form).Row(), refusal.Row);
      EXPECT_EQ(Grid(form).Model().GreyRow(), refusal.Row);
      if (refusal.Column == 0) {
        ExpectNoEditor(form);
      } else {
        ExpectEditing(form, refusal.Row, refusal.Column,
                      rows.at(static_cast<std::size_t>(refusal.Row - 1))
                          .at(static_cast<std::size_t>(refusal.Column - 1)));
      }
    });
    EXPECT_EQ(dialogs.Boxes().size(), boxes + 1);
    AccLines2.Clear();
  }
  void ExpectStored(std::int16_t accessory, const std::vector<Texts>& rows) {
    AccLines2.Clear();
    InDialog(accessory, [&](FrmAcc02& form) {
      TypeTable(form, rows);
      ClickButton(form, 0);
      EXPECT_FALSE(form.isVisible());
    });
    EXPECT_EQ(Stored(accessory).size(), rows.size());
    EXPECT_EQ(AccDialogResult, "OK");
  }
};

TEST_F(Acc02RulesTest, VCR_numbers_as_drawn_and_opposite_hand_must_make_the_number_required) {
  ExpectRefused(VcrAssemblies, {{"V1", "5", "3", "1", "3000"}}, {VcrNumbers, "VCR Assembly"});
  ExpectRefused(VcrAssemblies, {{"V1", "5", "3", "3", "3000"}}, {VcrNumbers, "VCR Assembly"});
  ExpectStored(VcrAssemblies, {{"V1", "5", "3", "2", "3000"}});
  ExpectStored(VcrAssemblies, {{"V1", "5", "5", "", "3000"}, {"V2", "2", "", "2", ""}});
}

TEST_F(Acc02RulesTest, A_VCR_length_equal_to_the_limit_passes_and_1_mm_more_does_not) {
  ExpectStored(VcrAssemblies, {{"V1", "2", "1", "1", "3050"}});
  ExpectRefused(VcrAssemblies, {{"V1", "2", "1", "1", "3051"}}, {VcrLength, "VCR Assembly"});
}

TEST_F(Acc02RulesTest, The_limit_of_a_VCR_is_told_without_decimals) {
  MaxDims.At(4) = 2999.5;
  ExpectRefused(VcrAssemblies, {{"V1", "2", "1", "1", "3000"}},
                {"Maximum length for VCR section is 3000", "VCR Assembly"});
}

TEST_F(Acc02RulesTest, The_numbers_of_a_VCR_are_looked_at_before_its_length) {
  ExpectRefused(VcrAssemblies, {{"V1", "5", "3", "1", "9999"}}, {VcrNumbers, "VCR Assembly"});
}

TEST_F(Acc02RulesTest, A_pitch_of_exactly_25_passes_and_more_is_refused_with_its_cell_opened) {
  ExpectStored(ApexTies, {{"T1", "2", "Z14012", "1500", "25"}});
  for (const char* pitch : {"26", "25.1"}) {
    ExpectRefused(ApexTies, {{"T1", "2", "Z14012", "1500", pitch}},
                  {ApexPitch, "Tubular apex ties", 1, 5});
  }
}

TEST_F(Acc02RulesTest, Sag_bars_take_one_of_the_two_centres_and_both_open_column_4) {
  ExpectStored(ScrewSagBars, {{"S1", "2", "Z14012", "1200", ""}});
  ExpectStored(ScrewSagBars, {{"S1", "2", "Z14012", "", "1200"}});
  ExpectStored(ScrewSagBars, {{"S1", "2", "Z14012", "1200", "0"}});
  ExpectStored(ScrewSagBars, {{"S1", "2", "Z14012", "", ""}});
  ExpectRefused(ScrewSagBars, {{"S1", "2", "Z14012", "1200", "1300"}},
                {SagCentres, "Sag bars (screw fix)", 1, 4});
}

TEST_F(Acc02RulesTest, The_first_faulty_row_alone_is_told_and_becomes_the_current_one) {
  ExpectRefused(VcrAssemblies,
                {{"V1", "2", "1", "1", "100"}, {"V2", "2", "1", "1", "4000"}, {"V3", "9"}},
                {VcrLength, "VCR Assembly", 2});
  ExpectRefused(ApexTies,
                {{"T1", "1", "", "", "10"}, {"T2", "1", "", "", "30"}, {"T3", "1", "", "", "40"}},
                {ApexPitch, "Tubular apex ties", 2, 5});
  ExpectRefused(ScrewSagBars, {{"S1", "1", "", "1", ""}, {"S2", "1", "", "2", "2"}},
                {SagCentres, "Sag bars (screw fix)", 2, 4});
}

TEST_F(Acc02RulesTest, The_rules_bind_lines_without_a_mark_too) {
  ExpectRefused(VcrAssemblies, {{"", "5", "3", "1"}}, {VcrNumbers, "VCR Assembly"});
  ExpectRefused(ApexTies, {{"", "", "", "", "26"}}, {ApexPitch, "Tubular apex ties", 1, 5});
}

TEST_F(Acc02RulesTest, A_refusal_counts_what_is_still_in_the_editor) {
  PutLine(ApexTies, "T1", 1, {"Z14012", "1500", "20"});
  InDialog(ApexTies, [this](FrmAcc02& form) {
    TypeInto(form, 1, 5, "30");
    dialogs.ExpectBox(ApexPitch, "Tubular apex ties");
    Trigger(form, "mnuAcc(0)");
    WaitUntilActive(form);
    ExpectEditing(form, 1, 5, "30");
    // The user mends it and goes on.
    Keys("24");
    Key(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
  });
  EXPECT_EQ(Stored(ApexTies), (std::vector<Texts>{{"T1", "1", "Z14012", "1500", "24"}}));
}

TEST_F(Acc02RulesTest, Behind_a_refused_VCR_the_keys_lead_back_into_its_row) {
  InDialog(VcrAssemblies, [this](FrmAcc02& form) {
    TypeTable(form, {{"V1", "1", "1", "0"}, {"V2", "5", "3", "1"}, {"V3", "1", "1"}});
    dialogs.ExpectBox(VcrNumbers, "VCR Assembly");
    Key(Qt::Key_O, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return dialogs.Boxes().size() == 1; }));
    ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeModalWidget() == &form; }));
    WaitUntilActive(form);
    EXPECT_EQ(Focus(), "MSFlexGrid1");
    Key(Qt::Key_Return);
    ExpectEditing(form, 2, 3, "3");
  });
}

TEST_F(Acc02RulesTest, Every_other_accessory_passes_with_any_texts) {
  ExpectStored(SplicePlates, {{"S1", "5", "3", "", "99999"}});
  ExpectStored(PurlinSleeves, {{"P1", "5", "26", "1"}});
}

TEST_F(Acc02RulesTest, An_emptied_or_blank_table_passes) {
  for (const std::int16_t accessory : {VcrAssemblies, ApexTies, ScrewSagBars}) {
    PutLine(accessory, "OLD", 1, {});
    InDialog(accessory, [](FrmAcc02& form) {
      ClickButton(form, 5);
      EXPECT_TRUE(form.AccValidate());
      ClickButton(form, 0);
      EXPECT_FALSE(form.isVisible());
    });
    EXPECT_TRUE(Stored(accessory).empty());
    EXPECT_EQ(AccUsed.At(accessory), False);
    InDialog(accessory, [](FrmAcc02& form) { EXPECT_TRUE(form.AccValidate()); });
  }
}

TEST_F(Acc02RulesTest, The_heading_rows_never_fail_a_rule) {
  AccDef& accessory = AccDefs.At(VcrAssemblies);
  accessory.ParamNames.At(2) = "7 off";
  accessory.ParamNames.At(5) = "99999 Length";
  accessory.Groups.At(1).Title = "9 numbers";
  ExpectStored(VcrAssemblies, {{"V1", "2", "1", "1", "3000"}});
  EXPECT_TRUE(dialogs.Boxes().empty());
}

}  // namespace
}  // namespace orvane::test
