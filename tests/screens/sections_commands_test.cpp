#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

class SectionsCommands : public SectionsTest {
 protected:
  void PutThree() {
    Put("Z", "A1", "Z14012", 6000, 1);
    Put("C", "B1", "19014", 5000, 2);
    Put("Z", "C1", "Z16512", 4000, 3);
  }
  void Delete(const std::string& mark, QMessageBox::StandardButton answer = QMessageBox::Yes) {
    dialogs.ExpectBox("Remove mark " + mark + "?", "", answer);
    Section(DeleteEntry);
    Settle();
  }
};

TEST_F(SectionsCommands, DeleteItem_asks_and_No_changes_nothing) {
  PutThree();
  Show(2, 4);
  Delete("B1", QMessageBox::No);
  EXPECT_EQ(Marks(), (std::vector<std::string>{"A1", "B1", "C1"}));
  EXPECT_TRUE(CursorAt(2, 4, "2"));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsCommands, No_is_the_default_of_the_question_and_the_answer_of_Escape) {
  PutThree();
  Show();
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
    dialogs.ExpectDialog("MessageBox", [key](QWidget& window) {
      auto& box = dynamic_cast<QMessageBox&>(window);
      EXPECT_EQ(FromQt(box.text()), "Remove mark A1?");
      EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
      EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
      EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
      QTest::keyClick(&box, key);
    });
    Section(DeleteEntry);
    Settle();
    EXPECT_EQ(Items.UBound(), 3);
  }
}

TEST_F(SectionsCommands, DeleteItem_takes_the_row_out_and_those_behind_it_move_up) {
  PutThree();
  Show(2, 4);
  Delete("B1");
  EXPECT_EQ(Marks(), (std::vector<std::string>{"A1", "C1"}));
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(2, 4, "3"));
  EXPECT_EQ(Sheet().ShownRow(), 2);
  // A row less is a change of the grid's text.
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(SectionsCommands, Deleting_the_last_row_of_several_moves_to_the_row_that_is_then_the_last) {
  PutThree();
  Show(3, 3);
  Delete("C1");
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(2, 3, "5000"));
}

TEST_F(SectionsCommands, After_a_delete_panel_combos_and_sheet_are_those_of_the_row_now_current) {
  Put("Z", "A1", "Z14012", 6000).PatternName = "Butt 1 Sag Bar";
  Items.At(1).SagBarDia = 18;
  Item& eaves = Put("E", "B1", "E20020", 5000);
  eaves.Pitch = "22.5";
  eaves.PatternName = "Custom";
  PutHole(eaves, 700, "C");
  Item& rail = Put("R", "C1", "CLR", 3000);
  rail.JointingPieces = 4;
  Show(1, 1);
  ASSERT_TRUE(Shown("fraSagBars"));

  const int draws = Sheet().DrawCount();
  Delete("A1");
  EXPECT_TRUE(CursorAt(1, 1, "B1"));
  EXPECT_EQ(FromQt(Patterns().currentText()), "Custom");
  EXPECT_EQ(ProductBox().count(), 15);
  EXPECT_FALSE(Shown("fraSagBars"));
  EXPECT_TRUE(Shown("cboPitch"));
  EXPECT_EQ(FromQt(Find<QComboBox>("cboPitch").currentText()), "22.5");
  EXPECT_TRUE(Shown("SSpanelCustom"));
  EXPECT_EQ(Find<FlexGrid>("MSFlexGrid2").TextMatrix(1, 0), "700");
  EXPECT_EQ(Sheet().ShownRow(), 1);
  EXPECT_GT(Sheet().DrawCount(), draws);

  Delete("B1");
  EXPECT_TRUE(CursorAt(1, 1, "C1"));
  EXPECT_EQ(Patterns().currentIndex(), -1);
  EXPECT_TRUE(Shown("txtJointing"));
  EXPECT_EQ(FromQt(Find<QLineEdit>("txtJointing").text()), "4");
  EXPECT_FALSE(Shown("cboPitch"));
  // Nothing of the showing reached a record.
  EXPECT_EQ(Items.At(1).PatternName, "");
  EXPECT_EQ(Items.At(1).JointingPieces, 4);
}

TEST_F(SectionsCommands, A_delete_that_brings_a_rail_under_the_product_cursor_passes_over_it) {
  Put("Z", "A1", "Z14012", 6000);
  Put("V", "B1", "VCR", 2000);
  Show(1, 2);
  ASSERT_TRUE(CursorAt(1, 2, "Z14012"));
  Delete("A1");
  EXPECT_TRUE(CursorAt(1, 3, "2000"));
  EXPECT_EQ(Items.At(1).Product, "VCR");
}

TEST_F(SectionsCommands, Deleting_the_only_row_leaves_the_heading_alone) {
  Item& item = Put("Z", "A1", "Z14012", 6000);
  item.PatternName = "Custom";
  PutHole(item, 700, "C");
  Show();
  Delete("A1");
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(Sections().Rows(), 1);
  EXPECT_EQ(Sections().Row(), 0);
  EXPECT_EQ(Sections().Model().GreyRow(), 0);
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_TRUE(NoEditor());
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(Sheet().ShownRow(), 0);
  for (const std::string part : {"SSPanelPunching", "SSpanelCustom", "fraSagBars", "cboPitch",
                                 "lblPitch", "txtJointing", "lblJointing"}) {
    EXPECT_FALSE(Shown(part)) << part;
  }
  EXPECT_EQ(Patterns().currentIndex(), -1);
  EXPECT_EQ(Find<FlexGrid>("MSFlexGrid2").Rows(), 1);

  Add("E");
  Type("E1");
  EXPECT_TRUE(CursorAt(1, 1, "E1"));
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(Shown("SSPanelPunching"));
}

TEST_F(SectionsCommands, DeleteItem_doesnt_validate_the_cell_that_is_being_edited) {
  PutThree();
  Show(2, 3);
  Retype("0");
  Delete("B1");
  EXPECT_TRUE(CursorAt(2, 3, "4000"));
  EXPECT_TRUE(GridShowsItems());
  // The row now current is validated by its own text.
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(2, 4, "3"));
}

TEST_F(SectionsCommands, The_mark_is_asked_about_as_typed_so_far) {
  PutThree();
  Show(1, 1);
  Retype("New");
  Delete("New", QMessageBox::No);
  EXPECT_EQ(Items.At(1).Mark, "New");
}

TEST_F(SectionsCommands, Sorting_by_mark_goes_by_character_code) {
  for (const std::string mark : {"A9", "a1", "A10", "B1",
                                 "\xC3\x84"
                                 "1"}) {
    Put("Z", mark, "Z14012", 6000);
  }
  Show();
  Section(SortByMarkEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"A10", "A9", "B1", "a1",
                                               "\xC3\x84"
                                               "1"}));
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(SectionsCommands, Sort_by_Section_means_the_product_and_not_the_letter) {
  Put("E", "1", "E20020", 6000);
  Put("Z", "2", "Z14012", 6000);
  Put("C", "3", "M18016", 6000);
  Put("C", "4", "19014", 6000);
  Show();
  Section(SortByProductEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"4", "1", "3", "2"}));
}

TEST_F(SectionsCommands, Sorting_by_length_keeps_equal_lengths_in_their_order) {
  Put("Z", "P", "Z14012", 1000);
  Put("Z", "Q", "Z14012", 500);
  Put("Z", "R", "Z14012", 1000);
  Show();
  Section(SortByLengthEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"Q", "P", "R"}));
  EXPECT_TRUE(CursorAt(1, 1, "Q"));
}

TEST_F(SectionsCommands, Lengths_sort_as_numbers) {
  Put("Z", "P", "Z14012", 1000);
  Put("Z", "Q", "Z14012", 900);
  Put("Z", "R", "Z14012", -5);
  Show();
  Section(SortByLengthEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"R", "Q", "P"}));
}

TEST_F(SectionsCommands, After_a_sort_the_row_number_stays_and_everything_shows_its_section) {
  Item& eaves = Put("E", "B1", "E20020", 5000);
  eaves.Pitch = "10";
  eaves.PatternName = "Eaves Beam";
  Item& rail = Put("R", "A1", "CLR", 3000);
  rail.JointingPieces = 3;
  Show(1, 4);
  ASSERT_EQ(FromQt(Find<QComboBox>("cboPitch").currentText()), "10");

  Section(SortByMarkEntry);
  Settle();
  EXPECT_TRUE(CursorAt(1, 4, "1"));
  EXPECT_EQ(Cell(1, 0), "R");
  EXPECT_TRUE(Shown("txtJointing"));
  EXPECT_EQ(FromQt(Find<QLineEdit>("txtJointing").text()), "3");
  EXPECT_FALSE(Shown("cboPitch"));
  EXPECT_EQ(Patterns().currentIndex(), -1);
  EXPECT_EQ(ProductBox().count(), 1);
  EXPECT_EQ(Sheet().ShownRow(), 1);
  EXPECT_EQ(Colour(1, 1), 0xE0E0E0U);
  EXPECT_EQ(Colour(2, 1), 0xFFFFFFU);

  Section(SortByLengthEntry);
  Settle();
  ClickCell(Sections(), 2, 1);
  Section(SortByMarkEntry);
  Settle();
  EXPECT_TRUE(CursorAt(2, 1, "B1"));
  EXPECT_EQ(FromQt(Find<QComboBox>("cboPitch").currentText()), "10");
  EXPECT_EQ(FromQt(Patterns().currentText()), "Eaves Beam");
  EXPECT_EQ(Items.At(2).Pitch, "10");
  EXPECT_EQ(Items.At(1).JointingPieces, 3);
}

TEST_F(SectionsCommands, A_sort_validates_nothing_and_forgets_the_text_of_the_editor) {
  PutThree();
  Show(3, 1);
  Retype("A0");
  Section(SortByMarkEntry);
  Settle();
  // A0 went up to row 1; the editor on row 3 holds that row's mark, which is no duplicate.
  EXPECT_EQ(Marks(), (std::vector<std::string>{"A0", "A1", "B1"}));
  EXPECT_TRUE(CursorAt(3, 1, "B1"));
  Press(Qt::Key_Up);
  EXPECT_TRUE(CursorAt(2, 1, "A1"));
}

TEST_F(SectionsCommands, A_sort_while_a_refusable_length_is_typed_tells_nothing) {
  PutThree();
  Show(1, 3);
  Retype("0");
  Section(SortByLengthEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"A1", "C1", "B1"}));
  EXPECT_TRUE(CursorAt(1, 3, "0"));
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Down);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
}

TEST_F(SectionsCommands, A_refill_shows_the_records_again_where_a_cell_had_kept_its_typed_text) {
  Put("Z", "A1", "Z14012", 6000);
  Put("Z", "B1", "Z14012", 7000);
  Show(1, 4);
  Press(Qt::Key_Delete);
  ASSERT_EQ(Cell(1, 4), "");
  ClickCell(Sections(), 2, 4);
  EXPECT_EQ(Cell(1, 4), "");
  ProjectDirty = False;
  Section(SortByMarkEntry);
  Settle();
  EXPECT_EQ(Cell(1, 4), "0");
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(SectionsCommands, A_sort_that_changes_no_text_leaves_the_project_unchanged) {
  PutThree();
  Show();
  Section(SortByMarkEntry);
  Settle();
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsCommands, A_sort_of_one_row_does_nothing) {
  Put("Z", "A1", "Z14012", 6000);
  Show(1, 3);
  const int draws = Sheet().DrawCount();
  Section(SortByLengthEntry);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "6000"));
  EXPECT_EQ(Sheet().DrawCount(), draws);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsCommands, Commands_without_a_row_do_nothing) {
  // Duplicate, convert, mitres, notches, the three sorts, delete.
  for (const int entry : {7, 8, 12, 13, 14, 16, 17, 18, 20}) {
    SCOPED_TRACE(entry);
    Section(entry);
    Settle();
    EXPECT_EQ(Items.UBound(), 0);
    EXPECT_EQ(Sections().Rows(), 1);
    EXPECT_TRUE(NoEditor());
    EXPECT_EQ(ProjectDirty, False);
  }
  for (const int entry : {10, 11}) {
    dialogs.ExpectBox("Punching pattern must be 'Custom'");
    Section(entry);
    Settle();
  }
}

TEST_F(SectionsCommands, DisplayItems_shows_the_table_and_selects_nothing) {
  PutThree();
  Show(2, 4);
  Put("V", "D1", "VCR", 2000, 9);
  main->DisplayItems();
  Settle();
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(NoEditor());
}

TEST_F(SectionsCommands, A_row_that_is_clicked_after_DisplayItems_is_shown_afresh) {
  PutThree();
  Show(2, 1);
  main->DisplayItems();
  Settle();
  ClickCell(Sections(), 2, 1);
  EXPECT_TRUE(CursorAt(2, 1, "B1"));
  EXPECT_EQ(Colour(2, 5), 0xE0E0E0U);
}

}  // namespace
}  // namespace orvane::test
