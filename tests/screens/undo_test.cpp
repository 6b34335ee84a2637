// Steps taken back and done again, by keys and by the menu.
#include <QMenu>

#include "project/changes.h"
#include "project/history.h"
#include "project/lifecycle.h"
#include "project/project_file.h"
#include "project/rules/accessory_rules.h"
#include "tests/screens/detail_fixture.h"
#include "ui/controls/eliding_label.h"

namespace orvane::test {
namespace {

class UndoTest : public DetailTest {
 protected:
  void Undo() {
    Press(Qt::Key_Z, Qt::ControlModifier);
    Settle();
  }
  void Redo() {
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    Settle();
  }
  std::string Caption(const char* entry) { return FromQt(Entry(entry).text()); }
  // Three purlins on a pattern, the cursor in that cell.
  void ShowPurlins(int row = 1, int column = 1) {
    for (const char* mark : {"P1", "P2", "P3"}) {
      Put("Z", mark, "Z14012", 6000, 2).PatternName = "Butt";
    }
    Show(row, column);
  }
};

TEST_F(UndoTest, Keys_typed_into_a_cell_are_taken_back_in_one_and_done_again) {
  ShowPurlins(2, 3);
  Retype("7250");
  EXPECT_EQ(Caption("mnuEditUndo"), "&Undo Length of P2");
  const int drawn = Sheet().DrawCount();
  Undo();
  EXPECT_EQ(Items.At(2).Length, 6000);
  EXPECT_TRUE(CursorAt(2, 3, "6000"));
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_GT(Sheet().DrawCount(), drawn);
  EXPECT_EQ(Caption("mnuEditUndo"), "&Undo");
  EXPECT_EQ(Caption("mnuEditRedo"), "&Redo Length of P2");
  Redo();
  EXPECT_EQ(Items.At(2).Length, 7250);
  EXPECT_TRUE(CursorAt(2, 3, "7250"));
  Press(Qt::Key_Z, Qt::ControlModifier);
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Items.At(2).Length, 7250);
}

TEST_F(UndoTest, It_goes_to_the_section_and_the_cell_of_the_step) {
  ShowPurlins(2, 5);
  Retype("north");
  Press(Qt::Key_Up);
  Press(Qt::Key_Tab);
  ASSERT_EQ(Sections().Row(), 1);
  Undo();
  EXPECT_TRUE(CursorAt(2, 5, ""));
  EXPECT_EQ(Items.At(2).Notes, "");
}

TEST_F(UndoTest, The_holes_stand_as_they_stood_before_the_step) {
  ShowPurlins(1, 3);
  const std::vector<int> holes = HolesOf(1);
  ASSERT_FALSE(holes.empty());
  const std::string before = ProjectText();
  Retype("4000");
  ASSERT_NE(HolesOf(1), holes);
  Undo();
  EXPECT_EQ(HolesOf(1), holes);
  EXPECT_EQ(ProjectText(), before);
}

TEST_F(UndoTest, A_cell_is_taken_back_without_its_refusal) {
  ShowPurlins(2, 1);
  Retype("P1");  // another section's mark: leaving the cell would be refused
  Undo();
  EXPECT_TRUE(CursorAt(2, 1, "P2"));
  EXPECT_EQ(Items.At(2).Mark, "P2");
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(UndoTest, A_cell_that_was_left_or_saved_is_taken_back_by_its_step_and_done_again) {
  ShowPurlins(2, 3);
  Retype("7250");
  platform.Chosen.push_back(TempPath("job.ovd"));
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  Undo();
  EXPECT_EQ(Items.At(2).Length, 6000);
  EXPECT_EQ(Caption("mnuEditRedo"), "&Redo Length of P2");
  Redo();
  EXPECT_EQ(Items.At(2).Length, 7250);
  // Another area's step comes first, whatever stands in the cell behind it.
  Choose("cboPattern", "Butt 1 Sag Bar");
  Settle();
  Undo();
  EXPECT_EQ(Items.At(2).PatternName, "Butt");
  EXPECT_EQ(Items.At(2).Length, 7250);
  Undo();
  EXPECT_EQ(Items.At(2).Length, 6000);
}

TEST_F(UndoTest, A_product_chosen_and_saved_is_taken_back_once) {
  ShowPurlins(1, 2);
  Choose("cboEdit", "Z19014");
  Settle();
  platform.Chosen.push_back(TempPath("job.ovd"));
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  Undo();
  EXPECT_EQ(Items.At(1).Product, "Z14012");
  EXPECT_EQ(Caption("mnuEditUndo"), "&Undo");
  EXPECT_EQ(Caption("mnuEditRedo"), "&Redo Product of P1");
}

TEST_F(UndoTest, Letters_that_a_list_waits_with_go_first) {
  ShowPurlins(1, 2);
  Type("Z2");
  ASSERT_TRUE(Find<PlainCombo>("cboEdit").Typed().Pending());
  Undo();
  EXPECT_FALSE(Find<PlainCombo>("cboEdit").Typed().Pending());
  EXPECT_EQ(ProductBox().currentText(), "Z14012");
  EXPECT_EQ(Items.At(1).Product, "Z14012");
}

TEST_F(UndoTest, A_deleted_section_comes_back_where_it_stood) {
  ShowPurlins(2, 1);
  const std::string before = ProjectText();
  dialogs.ExpectBox("Remove mark P2?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  ASSERT_EQ(Marks(), (std::vector<std::string>{"P1", "P3"}));
  EXPECT_EQ(Caption("mnuEditUndo"), "&Undo Delete of P2");
  Undo();
  EXPECT_EQ(ProjectText(), before);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(2, 1, "P2"));
  EXPECT_EQ(Sheet().ShownRow(), 2);
  Redo();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"P1", "P3"}));
  EXPECT_TRUE(CursorAt(2, 1, "P3"));
  EXPECT_FALSE(HolesOf(2).empty()) << "the section that came under the cursor is looked at";
}

TEST_F(UndoTest, A_sort_is_taken_back_and_what_was_left_undecided_goes_with_its_section) {
  Put("Z", "P1", "Z14012", 9000);
  Put("Z", "P2", "Z14012", 8000);
  Show(1, 2);
  Type("Z9");  // nothing begins so
  Press(Qt::Key_Down);
  Section(SortByLengthEntry);
  Settle();
  ASSERT_EQ(Marks(), (std::vector<std::string>{"P2", "P1"}));
  auto& model = static_cast<FlexGridModel&>(*Sections().model());
  EXPECT_EQ(model.FirstRefusedCell(), (std::pair{2, 2}));
  Undo();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"P1", "P2"}));
  EXPECT_EQ(model.FirstRefusedCell(), (std::pair{1, 2}));
}

TEST_F(UndoTest, An_added_section_goes_and_comes_again) {
  ShowPurlins(1, 1);
  Add("E");
  ASSERT_EQ(Items.UBound(), 4);
  Type("E9");
  Undo();
  EXPECT_EQ(Items.At(4).Mark, "");
  Undo();
  EXPECT_EQ(Items.UBound(), 3);
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
  Redo();
  Redo();
  EXPECT_EQ(Items.UBound(), 4);
  EXPECT_TRUE(CursorAt(4, 1, "E9"));
  EXPECT_TRUE(Shown("cboPitch"));
}

TEST_F(UndoTest, A_pattern_and_sag_bars_show_as_they_were) {
  ShowPurlins(1, 1);
  Choose("cboPattern", "Butt 1 Sag Bar");
  Settle();
  ASSERT_TRUE(Shown("fraSagBars"));
  QTest::mouseClick(&SagBarOption(0), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
  Settle();
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  Undo();
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  EXPECT_EQ(ShownOption(), "Threaded (14mm)");
  Undo();
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_EQ(FromQt(Pattern().currentText()), "Butt");
  EXPECT_FALSE(Shown("fraSagBars"));
}

TEST_F(UndoTest, A_removed_hole_comes_back_and_the_cursor_stays_in_the_hole_list) {
  PutCustom({500, 900, 1400});
  Show();
  HoleList().setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  Press(Qt::Key_Delete);
  Settle();
  ASSERT_EQ(ListedHoles(), (std::vector<std::string>{"500", "1400"}));
  Undo();
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"500", "900", "1400"}));
  EXPECT_TRUE(HoleList().hasFocus());
  // The mark stays, for whoever goes on there.
  Press(Qt::Key_Delete);
  Settle();
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"500", "1400"}));
}

TEST_F(UndoTest, A_field_outside_the_tables_takes_its_own_keys_back) {
  PutSection("R");
  Show();
  Jointing().setFocus(Qt::TabFocusReason);
  Jointing().selectAll();
  Type("12");
  ASSERT_EQ(Items.At(1).JointingPieces, 12);
  Undo();
  EXPECT_TRUE(Jointing().hasFocus());
  EXPECT_EQ(Items.At(1).JointingPieces, 0);
  EXPECT_EQ(FromQt(Jointing().text()), "0");
  Redo();
  EXPECT_EQ(Items.At(1).JointingPieces, 12);
}

TEST_F(UndoTest, A_field_whose_keys_are_a_step_takes_that_back) {
  PutSection("R");
  Show();
  Jointing().setFocus(Qt::TabFocusReason);
  Jointing().selectAll();
  Type("12");
  Press(Qt::Key_Return);
  Undo();
  EXPECT_EQ(Items.At(1).JointingPieces, 0);
  EXPECT_EQ(FromQt(Jointing().text()), "0");
  EXPECT_EQ(Caption("mnuEditUndo"), "&Undo");
  Redo();
  EXPECT_EQ(Items.At(1).JointingPieces, 12);
  EXPECT_EQ(FromQt(Jointing().text()), "12");
}

TEST_F(UndoTest, Steps_from_before_another_separation_have_the_gaps_of_today) {
  Item& custom = PutCustom({3000, 3030});
  custom.Product = "Z14012";
  custom.Length = 6000;
  Show(1, 5);
  Type("x");
  const double former = Items.At(1).Holes.At(2).DrawGap;
  MinHoleSep = 9;
  Change(ChangeKind::Registration);
  const double spaced = Items.At(1).Holes.At(2).DrawGap;
  ASSERT_NE(spaced, former);
  Undo();
  EXPECT_EQ(Items.At(1).Notes, "");
  EXPECT_EQ(Items.At(1).Holes.At(2).DrawGap, spaced);
}

TEST_F(UndoTest, A_failed_opening_is_taken_back_on_the_screen_too) {
  ShowPurlins(2, 5);
  Type("x");
  const std::string before = ProjectText();
  const std::string torn = TempFile("torn.ovd", "v1.07:7\r\n\"J\"\r\n\"C\"\r\n");
  dialogs.ExpectBox("Input past end of file");
  OpenFile(torn);
  Settle();
  ASSERT_NE(ProjectText(), before);
  Undo();
  EXPECT_EQ(ProjectText(), before);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(FromQt(Find<QLineEdit>(*details, "txtProject(1)").text()), "");
  const auto& name = Find<ElidingLabel>("lblFilename(1)");
  EXPECT_EQ(FromQt(name.ShownText()), "None");
  Redo();
  EXPECT_EQ(FromQt(name.toolTip()), "None (not fully read)");
}

TEST_F(UndoTest, Of_two_failed_openings_the_first_ones_pieces_stay_pieces) {
  ShowPurlins();
  const std::string own = TempPath("own.ovd");
  platform.Chosen.push_back(own);
  Press(Qt::Key_S, Qt::ControlModifier);
  const std::string before = ProjectText();
  const std::string torn = TempFile("torn.ovd", "v1.07:7\r\n\"J\"\r\n\"C\"\r\n");
  const std::string other = TempFile("other.ovd", "v1.07:7\r\n\"K\"\r\n\"C\"\r\n");
  for (const std::string& path : {torn, other}) {
    dialogs.ExpectBox("Input past end of file");
    OpenFile(path);
    Settle();
  }
  Undo();
  const auto& name = Find<ElidingLabel>("lblFilename(1)");
  EXPECT_EQ(FromQt(name.toolTip()), own + " (not fully read)");
  platform.Chosen.push_back(std::nullopt);
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(platform.Chosen.empty());  // it has asked for a file
  EXPECT_EQ(BytesOf(own), before);
  Undo();
  EXPECT_EQ(ProjectText(), before);
  EXPECT_EQ(FromQt(name.toolTip()), own);
}

TEST_F(UndoTest, Accessories_and_details_come_back) {
  ShowPurlins();
  TextRows rows;
  rows.Resize(1);
  rows.At(1).Resize(2);
  rows.At(1).At(1) = "5";
  StoreType1Lines(1, rows);
  auto& list = Find<QListWidget>("lstAccessories");
  main->SetAccUsage();
  ASSERT_TRUE(list.item(0)->text().startsWith("*"));
  dialogs.ExpectDialog("frmProjectDetails", [this](QWidget& dialog) {
    Find<QLineEdit>(dialog, "txtProject(0)").setFocus();
    Type("4711");
    dialog.close();
  });
  Entry("mnuProject(5)").trigger();
  Settle();
  ASSERT_EQ(txtProject.at(0), "4711");
  BackToMain();
  Undo();
  EXPECT_EQ(txtProject.at(0), "");
  EXPECT_EQ(FromQt(Find<QLineEdit>(*details, "txtProject(0)").text()), "");
  Undo();
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_FALSE(list.item(0)->text().startsWith("*"));
}

TEST_F(UndoTest, The_title_loses_its_star_when_the_steps_lead_back_to_what_was_saved) {
  ShowPurlins(1, 5);
  Type("x");
  platform.Chosen.push_back(TempPath("job.ovd"));
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(FromQt(main->windowTitle()), "job.ovd - Orvane Detailing System");
  Undo();
  EXPECT_EQ(FromQt(main->windowTitle()), "job.ovd* - Orvane Detailing System");
  Redo();
  EXPECT_EQ(FromQt(main->windowTitle()), "job.ovd - Orvane Detailing System");
  Type("y");
  EXPECT_EQ(FromQt(main->windowTitle()), "job.ovd* - Orvane Detailing System");
  Undo();
  EXPECT_EQ(FromQt(main->windowTitle()), "job.ovd - Orvane Detailing System");
  Undo();
  EXPECT_EQ(FromQt(main->windowTitle()), "job.ovd* - Orvane Detailing System");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(UndoTest, The_menu_does_it_too_and_an_ampersand_of_a_mark_is_no_key) {
  ShowPurlins(1, 1);
  Retype("A&B");
  EXPECT_EQ(Caption("mnuEditUndo"), "&Undo Mark of A&&B");
  Entry("mnuEditUndo").trigger();
  Settle();
  EXPECT_EQ(Items.At(1).Mark, "P1");
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
  Entry("mnuEditRedo").trigger();
  Settle();
  EXPECT_EQ(Items.At(1).Mark, "A&B");
}

TEST_F(UndoTest, Without_a_step_nothing_happens) {
  ShowPurlins(1, 1);
  Undo();
  Redo();
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
  EXPECT_EQ(ProjectDirty, False);
}

// An opposite hand of a pattern that isn't symmetric, in row 2.
class UndoOfHand : public UndoTest {
 protected:
  void SetUp() override {
    UndoTest::SetUp();
    PunchPattern pattern;
    pattern.SectionType = "Z";
    pattern.Name = "Lopsided";
    pattern.Codes = "B0 D2";
    PunchPatterns.Append(pattern);
    Put("Z", "P1", "Z14012", 3000).PatternName = "Lopsided";
    Show();
    Section(7);  // "Create Opposite Hand"
    Settle();
    ASSERT_EQ(HolesOf(2), Mirrored);
    ASSERT_TRUE(Noted());
  }
  bool Noted() { return Find("lblMirrored").isVisible(); }

  const std::vector<int> Mirrored = {2000, 2968};
};

TEST_F(UndoOfHand, A_mirrored_section_done_again_stands_mirrored) {
  Undo();
  ASSERT_EQ(Items.UBound(), 1);
  EXPECT_FALSE(Noted());
  Redo();
  EXPECT_EQ(HolesOf(2), Mirrored);
  EXPECT_TRUE(Noted());
}

TEST_F(UndoOfHand, The_note_of_a_mirrored_pattern_comes_back_with_it) {
  Type("H1");
  Press(Qt::Key_Tab);
  Settle();
  ASSERT_NE(HolesOf(2), Mirrored);
  ASSERT_FALSE(Noted());
  Undo();
  EXPECT_EQ(HolesOf(2), Mirrored);
  EXPECT_TRUE(Noted());
}

}  // namespace
}  // namespace orvane::test
