// Names typed in the main window: products, patterns and pitches, commands given in the middle of a
// word, and the search in the accessory list.
#include <QLabel>

#include "project/lifecycle.h"
#include "tests/screens/detail_fixture.h"
#include "ui/accessory_chooser.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

class TypedNames : public DetailTest {
 protected:
  PlainCombo& Products() { return Find<PlainCombo>("cboEdit"); }
  AccessoryChooser& Accessories() { return Find<AccessoryChooser>("lstAccessories"); }
  std::string AccessoryTyped() { return FromQt(Find<QLabel>("lblTyped").text()); }
  std::string AccessorySelected() {
    const QList<QListWidgetItem*> selected = Accessories().selectedItems();
    return selected.isEmpty() ? "" : FromQt(selected.front()->text().mid(2));
  }
  std::string CellRefusal(int row) { return FromQt(Sections().Model().RefusalOfCell(row, 2)); }
  void Export() {
    Press(Qt::Key_E, Qt::ControlModifier);
    Settle();
  }
  bool ExportStarted() const {
    return !platform.OpenDialogs.empty() || !platform.SaveDialogs.empty();
  }
  // Two sections that the export has nothing against.
  void PutTwo() {
    Put("Z", "A1", "Z14012", 6000);
    Put("Z", "B1", "Z14012", 6000);
  }
};

// Products.

TEST_F(TypedNames, A_product_typed_letter_by_letter_is_the_one_typed) {
  PutTwo();
  Show(1, 2);
  for (const char* letter : {"Z", "2", "4", "5", "2", "0"}) {
    Type(letter);
    Settle();  // whatever the program does between two keys
    EXPECT_EQ(Items.At(1).Product, "Z14012");
  }
  EXPECT_EQ(ProjectDirty, False);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  EXPECT_EQ(Items.At(1).Product, "Z24520");
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(TypedNames, Enter_and_Tab_stay_in_a_product_cell_that_is_open_to_doubt) {
  PutTwo();
  Show(1, 2);
  Type("z245");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab}) {
    Press(key);
    EXPECT_TRUE(CursorAt(1, 2, "Z14012"));
    EXPECT_EQ(FromQt(Products().Typed().Letters()), "z245");
    EXPECT_EQ(FromQt(Products().toolTip()), "4 entries begin with \"z245\"");
  }
  Press(Qt::Key_Backspace);
  EXPECT_FALSE(IsFieldRefused(Products()));
  Press(Qt::Key_Escape);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(TypedNames, An_arrow_leaves_the_letters_in_the_last_row_too) {
  PutTwo();
  Show(2, 2);
  Type("z24520");
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(2, 2, "Z24520"));
  EXPECT_EQ(Items.At(2).Product, "Z24520");
  Type("z24");
  Press(Qt::Key_PageDown);
  EXPECT_TRUE(CursorAt(2, 2, "Z24520"));
  EXPECT_EQ(FromQt(Products().toolTip()), "4 entries begin with \"z24\"");
}

TEST_F(TypedNames, Up_and_Down_leave_the_product_cell_by_the_rule_of_leaving) {
  PutTwo();
  Show(1, 2);
  Type("z24520");
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
  EXPECT_EQ(Items.At(1).Product, "Z24520");
  EXPECT_EQ(Items.At(2).Product, "Z14012");
  Type("z24");
  Press(Qt::Key_Up);
  EXPECT_TRUE(CursorAt(1, 2, "Z24520"));
  EXPECT_EQ(Items.At(2).Product, "Z14012");
  EXPECT_FALSE(IsFieldRefused(Products()));
  EXPECT_EQ(CellRefusal(2), "4 entries begin with \"z24\"");
  const QAbstractItemModel& model = *Sections().model();
  EXPECT_EQ(FromQt(model.data(model.index(1, 2), Qt::ToolTipRole).toString()), CellRefusal(2));
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
  EXPECT_EQ(CellRefusal(2), "");
}

TEST_F(TypedNames, A_click_on_another_cell_leaves_the_product_cell) {
  PutTwo();
  Show(1, 2);
  Type("z24520");
  ClickCell(Sections(), 2, 3);
  EXPECT_TRUE(CursorAt(2, 3, "6000"));
  EXPECT_EQ(Items.At(1).Product, "Z24520");
  ClickCell(Sections(), 2, 2);
  Type("z9");
  ClickCell(Sections(), 1, 1);
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
  EXPECT_EQ(Items.At(2).Product, "Z14012");
  EXPECT_EQ(CellRefusal(2), "No entry begins with \"z9\"");
}

TEST_F(TypedNames, Leaving_for_another_control_chooses_the_product_too) {
  PutTwo();
  Show(1, 2);
  Type("z24520");
  Press(Qt::Key_N, Qt::AltModifier);
  Settle();
  EXPECT_EQ(Focus(), "cboPattern");
  EXPECT_EQ(Items.At(1).Product, "Z24520");
}

// Commands.

TEST_F(TypedNames, A_command_settles_the_product_first) {
  PutTwo();
  Show(1, 2);
  Type("z24520");
  Section(DuplicateEntry);
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z24520");
  EXPECT_EQ(Items.At(3).Product, "Z24520");
  EXPECT_TRUE(CursorAt(3, 1, "A1A"));
  Press(Qt::Key_Tab);
  Type("z2");
  Click("SSCommand1(6)");
  Settle();
  EXPECT_EQ(Items.UBound(), 4);
  EXPECT_EQ(Items.At(3).Product, "Z24520");
  EXPECT_EQ(CellRefusal(3), "12 entries begin with \"z2\"");
}

TEST_F(TypedNames, Export_and_printing_go_to_the_product_left_open_and_start_at_the_next_try) {
  PutTwo();
  Show(2, 2);
  Type("z24");
  Export();
  EXPECT_FALSE(ExportStarted());
  EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
  EXPECT_TRUE(IsFieldRefused(Products()));
  platform.Chosen.push_back(std::nullopt);
  Export();
  EXPECT_TRUE(ExportStarted());
  // The same when the cell was left by a click before.
  Type("z24");
  ClickCell(Sections(), 1, 1);
  Section(DuplicateEntry);
  for (const char* entry : {"mnuOutput(0)", "mnuOutput(1)", "mnuOutput(4)"}) {
    Entry(entry).trigger();  // no preview opens
    Settle();
    EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
    Type("z24");
    ClickCell(Sections(), 1, 1);
  }
}

TEST_F(TypedNames, A_refusal_goes_with_its_row_and_its_project) {
  PutTwo();
  Put("Z", "C1", "Z14012", 6000);
  Show(3, 2);
  Type("z24");
  Press(Qt::Key_Up);
  Press(Qt::Key_Up);
  dialogs.ExpectBox("Remove mark A1?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  BackToMain();
  EXPECT_NE(CellRefusal(2), "");
  EXPECT_EQ(CellRefusal(3), "");
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
  ExpectDetails();
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(CellRefusal(2), "");
}

TEST_F(TypedNames, A_refusal_goes_with_its_section_when_the_rows_are_sorted) {
  PutSection("Z", "Butt").Mark = "D1";
  Put("Z", "C1", "Z14012", 6000);
  Put("Z", "A1", "Z14012", 6000);
  Show();
  Pattern().setFocus(Qt::TabFocusReason);
  Type("butt 1");
  ClickCell(Sections(), 2, 2);
  Type("z24");
  Section(SortByMarkEntry);  // A1, C1, D1
  Settle();
  EXPECT_EQ(CellRefusal(1), "");
  EXPECT_NE(CellRefusal(2), "");
  // The cursor's cell is still the same section's, and nobody has come into it.
  EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
  EXPECT_TRUE(IsFieldRefused(Products()));
  ClickCell(Sections(), 1, 1);
  EXPECT_FALSE(IsFieldRefused(Pattern()));
  ClickCell(Sections(), 3, 1);
  EXPECT_TRUE(IsFieldRefused(Pattern()));
  Export();
  EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
  Export();
  EXPECT_EQ(Sections().Row(), 3);
  EXPECT_EQ(Focus(), "cboPattern");
  EXPECT_FALSE(ExportStarted());
}

TEST_F(TypedNames, A_refused_cell_keeps_the_cursor_and_the_export_still_goes_to_the_product) {
  PutTwo();
  Show(2, 2);
  Type("z24");
  ClickCell(Sections(), 1, 3);
  Type("0");
  dialogs.ExpectBox("Invalid length");
  Export();
  EXPECT_FALSE(ExportStarted());
  EXPECT_TRUE(CursorAt(1, 3, "0"));
  EXPECT_NE(CellRefusal(2), "");
  Type("6000");
  Export();
  EXPECT_FALSE(ExportStarted());
  EXPECT_TRUE(CursorAt(2, 2, "Z14012"));
}

TEST_F(TypedNames, New_drops_letters_once_it_can_no_longer_be_cancelled) {
  PutTwo();
  Show(1, 2);
  ProjectDirty = True;
  Type("z24520");
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::Cancel);
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  BackToMain();
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_EQ(FromQt(Products().Typed().Letters()), "z24520");
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
  ExpectDetails();
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_FALSE(Products().Typed().Pending());
}

TEST_F(TypedNames, New_and_Open_drop_letters) {
  PutTwo();
  const std::string path = TempPath("two.ovd");
  Show(1, 2);
  platform.Chosen.push_back(path);
  ASSERT_TRUE(SaveProject(True));
  Type("z24");
  OpenFile(path);
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_FALSE(Products().Typed().Pending());
  EXPECT_EQ(CellRefusal(1), "");
  Press(Qt::Key_N, Qt::AltModifier);
  Settle();
  Type("butt");
  OpenFile(path);
  Settle();
  EXPECT_FALSE(Pattern().Typed().Pending());
  EXPECT_FALSE(IsFieldRefused(Pattern()));
  EXPECT_EQ(Items.At(1).PatternName, "");
}

TEST_F(TypedNames, The_end_of_the_program_settles_the_product_before_it_asks) {
  PutTwo();
  Show(1, 2);
  Type("z24520");
  dialogs.ExpectBox("Save changes to current project?", "Exit", QMessageBox::Cancel);
  Entry("mnuProject(15)").trigger();
  Settle();
  EXPECT_EQ(Items.At(1).Product, "Z24520");
}

// Patterns and pitches.

TEST_F(TypedNames, Typing_a_pattern_never_passes_another_one_through_the_record) {
  PutSection("Z", "Butt 2 Sag Bars", 18);
  Show();
  const int draws = Sheet().DrawCount();
  Pattern().setFocus(Qt::TabFocusReason);
  for (const QChar letter : QString("butt 1 sag bar")) {
    Type(FromQt(letter));
    Settle();
    EXPECT_EQ(Items.At(1).PatternName, "Butt 2 Sag Bars");
    EXPECT_EQ(Items.At(1).SagBarDia, 18);
  }
  EXPECT_EQ(Sheet().DrawCount(), draws);
  EXPECT_EQ(ProjectDirty, False);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Items.At(1).PatternName, "Butt 1 Sag Bar");
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(TypedNames, No_question_comes_in_the_middle_of_a_word) {
  PutCustom({500});
  Show();
  Pattern().setFocus(Qt::TabFocusReason);
  Type("butt s");
  Settle();
  EXPECT_EQ(HolesOf(1), std::vector<int>{500});
  dialogs.ExpectBox("Selecting a standard pattern will remove custom holes, continue?",
                    "Punching Pattern", QMessageBox::No);
  Press(Qt::Key_Return);
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  BackToMain();
  Pattern().setFocus(Qt::TabFocusReason);
  Type("butt s");
  dialogs.ExpectBox("Selecting a standard pattern will remove custom holes, continue?",
                    "Punching Pattern", QMessageBox::Yes);
  // Behind the change of focus, which the box would disturb.
  Find("lstAccessories").setFocus(Qt::MouseFocusReason);
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Butt Single Holes");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 2968}));
}

TEST_F(TypedNames, A_click_on_another_row_chooses_the_pattern_for_the_row_that_was_typed) {
  PutSection("Z", "Butt");
  PutSection("Z", "Butt");
  Show();
  Pattern().setFocus(Qt::TabFocusReason);
  Type("butt s");
  ClickCell(Sections(), 2, 1);
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Butt Single Holes");
  EXPECT_EQ(Items.At(2).PatternName, "Butt");
  EXPECT_EQ(Sections().Row(), 2);
}

TEST_F(TypedNames, A_pattern_left_open_keeps_its_look_for_its_row_and_stops_the_export) {
  PutSection("Z", "Butt");
  PutSection("Z", "Butt");
  Show();
  Pattern().setFocus(Qt::TabFocusReason);
  Type("butt 1");
  Press(Qt::Key_Return);
  EXPECT_EQ(Focus(), "cboPattern");
  EXPECT_EQ(FromQt(Pattern().Typed().Letters()), "butt 1");
  ClickCell(Sections(), 2, 1);
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_FALSE(IsFieldRefused(Pattern()));
  ClickCell(Sections(), 1, 1);
  EXPECT_EQ(FromQt(RefusalOf(Pattern())), "2 entries begin with \"butt 1\"");
  EXPECT_EQ(FromQt(Pattern().ShownText()), "Butt");
  ClickCell(Sections(), 2, 1);
  Export();
  EXPECT_FALSE(ExportStarted());
  EXPECT_EQ(Sections().Row(), 1);
  EXPECT_EQ(Focus(), "cboPattern");
  EXPECT_TRUE(IsFieldRefused(Pattern()));
  Type("butt 1 sag bar");
  Press(Qt::Key_Return);
  EXPECT_EQ(Items.At(1).PatternName, "Butt 1 Sag Bar");
  EXPECT_FALSE(IsFieldRefused(Pattern()));
}

TEST_F(TypedNames, A_pitch_is_typed_in_full_or_as_far_as_one_is_left) {
  PutSection("E", "Eaves Beam");
  Items.At(1).Pitch = "5";
  Show();
  for (const auto& [typed, pitch] : std::vector<std::pair<std::string, std::string>>{
           {"10", "10"}, {"2", "22.5"}, {"0", "0"}, {"3", "30"}, {"15", "15"}}) {
    Pitch().setFocus(Qt::TabFocusReason);
    Type(typed);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Items.At(1).Pitch, pitch);
  }
  Pitch().setFocus(Qt::TabFocusReason);
  Type("1");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focus(), "cboPitch");
  EXPECT_EQ(Items.At(1).Pitch, "15");
  EXPECT_EQ(FromQt(Pitch().toolTip()), "2 entries begin with \"1\"");
}

TEST_F(TypedNames, The_panels_own_buttons_settle_its_lists) {
  PutSection("Z", "Butt");
  Show();
  Choose("cboPattern", "Custom");
  Pattern().setFocus(Qt::TabFocusReason);
  Type("butt s");
  dialogs.ExpectBox("Punching pattern must be 'Custom'");
  Find<QAbstractButton>("cmdHoles(0)").click();
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Butt Single Holes");
}

// The accessory list.

TEST_F(TypedNames, Letters_over_the_accessories_are_shown_and_open_none_while_several_fit) {
  Press(Qt::Key_C, Qt::AltModifier);
  Settle();
  const std::string former = AccessorySelected();
  Type("eaves");
  EXPECT_EQ(AccessoryTyped(), "eaves");
  EXPECT_EQ(AccessorySelected(), "Eaves beam cleats");
  AccUsed.At(7) = True;
  main->SetAccUsage();
  Press(Qt::Key_Return);  // no dialog was foreseen
  Settle();
  EXPECT_TRUE(IsFieldRefused(Accessories()));
  EXPECT_EQ(AccessoryTyped(), "eaves");
  Press(Qt::Key_Delete);
  EXPECT_EQ(AccessoryTyped(), "eaves");
  Type(" q");
  EXPECT_EQ(FromQt(Accessories().toolTip()), "No entry begins with \"eaves q\"");
  Press(Qt::Key_Backspace);
  EXPECT_FALSE(IsFieldRefused(Accessories()));
  Press(Qt::Key_Escape);
  EXPECT_EQ(AccessoryTyped(), "");
  EXPECT_EQ(AccessorySelected(), former);
  Type("eaves");
  Find("cboPattern").setFocus(Qt::TabFocusReason);
  EXPECT_EQ(AccessorySelected(), former);
  EXPECT_TRUE(IsFieldRefused(Accessories()));
  Press(Qt::Key_C, Qt::AltModifier);
  Settle();
  EXPECT_FALSE(IsFieldRefused(Accessories()));
}

TEST_F(TypedNames, An_accessory_left_open_stops_the_export_and_the_new_project_drops_its_letters) {
  PutTwo();
  Show(1, 1);
  Press(Qt::Key_C, Qt::AltModifier);
  Settle();
  Type("eaves");
  Export();
  EXPECT_FALSE(ExportStarted());
  EXPECT_EQ(Focus(), "lstAccessories");
  EXPECT_TRUE(IsFieldRefused(Accessories()));
  EXPECT_EQ(AccessoryTyped(), "");
  Type("xyz");
  ClickCell(Sections(), 1, 1);
  Export();
  EXPECT_FALSE(ExportStarted());
  EXPECT_EQ(Focus(), "lstAccessories");
  platform.Chosen.push_back(std::nullopt);
  Export();
  EXPECT_TRUE(ExportStarted());
  Type("half");
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
  ExpectDetails();
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(AccessoryTyped(), "");
}

TEST_F(TypedNames, One_accessory_left_opens_by_Enter_and_an_arrow_takes_the_one_shown) {
  Press(Qt::Key_C, Qt::AltModifier);
  Settle();
  Type("eaves");
  Press(Qt::Key_Down);
  EXPECT_EQ(AccessoryTyped(), "");
  EXPECT_EQ(AccessorySelected(), "Eaves beam cleats");
  Press(Qt::Key_Down);
  EXPECT_NE(AccessorySelected(), "Eaves beam cleats");
  Type("splice");
  dialogs.ExpectDialog("frmAcc02", [](QWidget& form) {
    EXPECT_EQ(FromQt(form.windowTitle()), "Splice plates");
    QTest::keyClick(&form, Qt::Key_Escape);
  });
  Press(Qt::Key_Return);
  Settle();
  EXPECT_EQ(AccessoryTyped(), "");
  EXPECT_EQ(AccessorySelected(), "Splice plates");
}

}  // namespace
}  // namespace orvane::test
