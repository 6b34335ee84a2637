#include "project/history.h"

#include <string>
#include <vector>

#include "core/runtime_error.h"
#include "project/project_file.h"
#include "project/rules/accessory_rules.h"
#include "project/rules/section_columns.h"
#include "project/section_serial.h"
#include "project/sections.h"
#include "tests/project/history_fixture.h"

namespace orvane {
namespace {

class HistoryTest : public test::HistoryFixture {
 protected:
  static std::vector<std::string> Marks() {
    std::vector<std::string> marks;
    for (const Item& item : Items) marks.push_back(item.Mark);
    return marks;
  }
};

using Marks3 = std::vector<std::string>;

// What is a step.

TEST_F(HistoryTest, A_job_begins_without_steps_and_unchanged) {
  EXPECT_EQ(StepToUndo(), "");
  EXPECT_EQ(StepToRedo(), "");
  EXPECT_FALSE(IsChangedSinceSaved());
  RestoredStep restored;
  EXPECT_FALSE(UndoStep(restored));
  EXPECT_FALSE(RedoStep(restored));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(HistoryTest, All_keys_typed_into_one_cell_are_one_step) {
  AddPurlin("P4");
  TypeCell(1, LengthColumn, "7250");
  EXPECT_EQ(Items.At(1).Length, 7250);
  EXPECT_EQ(StepToUndo(), "Length of P4");
  const RestoredStep restored = Undo();
  EXPECT_EQ(restored.Kind, ChangeKind::Length);
  EXPECT_EQ(restored.Row, 1);
  EXPECT_FALSE(restored.Redone);
  EXPECT_FALSE(restored.RowsMoved);
  EXPECT_EQ(Items.At(1).Length, 6000);
  EXPECT_EQ(StepToRedo(), "Length of P4");
  EXPECT_TRUE(Redo().Redone);
  EXPECT_EQ(Items.At(1).Length, 7250);
  EXPECT_EQ(StepToRedo(), "");
}

TEST_F(HistoryTest, A_cell_typed_again_after_it_was_left_is_another_step) {
  AddPurlin("P4");
  TypeCell(1, NotesColumn, "a");
  TypeCell(1, NotesColumn, "ab");
  Undo();
  EXPECT_EQ(Items.At(1).Notes, "a");
  Undo();
  EXPECT_EQ(Items.At(1).Notes, "");
}

TEST_F(HistoryTest, Keys_that_lead_back_to_what_stood_there_are_no_step) {
  AddPurlin("P4");
  MarkSaved();
  EndStep();
  TypeKeys(1, MarkColumn, "P4");  // over "P" it comes back to "P4"
  EXPECT_FALSE(IsChangedSinceSaved());
  EXPECT_EQ(StepToUndo(), "Quantity of P4");
}

TEST_F(HistoryTest, A_change_that_changes_nothing_is_no_step_and_keeps_what_was_taken_back) {
  AddPurlin("P4");
  Undo();
  ASSERT_EQ(StepToRedo(), "Quantity of P4");
  Change(ChangeKind::Mitres, 1, [] {});
  Change(ChangeKind::GridTexts);
  EXPECT_EQ(StepToRedo(), "Quantity of P4");
  EXPECT_EQ(StepToUndo(), "Length of P4");
}

TEST_F(HistoryTest, A_look_is_no_step) {
  AddPurlin("P4");
  MarkSaved();
  LookAt(1);
  EXPECT_EQ(StepToUndo(), "Quantity of P4");
  EXPECT_FALSE(IsChangedSinceSaved());
}

TEST_F(HistoryTest, A_step_taken_while_the_next_key_comes_is_recorded_before_it) {
  AddPurlin("P4");
  // A drawing lets pending events run before the history has had its turn.
  bool typed = false;
  const ChangeFollower follower([&](const ChangeNotice& change) {
    if (typed || change.Kind != ChangeKind::Length) return;
    typed = true;
    Change(ChangeKind::Notes, 1, [] { Items.At(1).Notes = "x"; });
  });
  BeginHistory();
  Change(ChangeKind::Length, 1, [] { Items.At(1).Length = 100; });
  EXPECT_EQ(StepToUndo(), "Notes of P4");
  Undo();
  EXPECT_EQ(Items.At(1).Notes, "");
  EXPECT_EQ(Items.At(1).Length, 100);
  EXPECT_EQ(StepToUndo(), "Length of P4");
}

TEST_F(HistoryTest, A_change_that_failed_is_a_step_of_what_it_changed) {
  AddPurlin("P4");
  EXPECT_EQ(test::ErrorOf([] {
              Change(ChangeKind::Product, 1, [] {
                Items.At(1).Product = "Z20018";
                throw RuntimeError(Failure::Overflow);
              });
            }),
            "Overflow");
  EXPECT_EQ(StepToUndo(), "Product of P4");
  Undo();
  EXPECT_EQ(Items.At(1).Product, "Z14012");
}

TEST_F(HistoryTest, A_new_step_ends_what_was_taken_back) {
  AddPurlin("P4");
  Undo();
  TypeCell(1, NotesColumn, "x");
  EXPECT_EQ(StepToRedo(), "");
  RestoredStep restored;
  EXPECT_FALSE(RedoStep(restored));
}

TEST_F(HistoryTest, Undo_and_redo_set_the_flag) {
  AddPurlin("P4");
  ProjectDirty = False;
  Undo();
  EXPECT_EQ(ProjectDirty, True);
  ProjectDirty = False;
  Redo();
  EXPECT_EQ(ProjectDirty, True);
}

// Sections that come, go and move.

TEST_F(HistoryTest, A_deleted_section_comes_back_with_all_that_it_held) {
  AddPurlin("P1");
  AddPurlin("P2");
  AddPurlin("P3");
  ChoosePattern(2, "Butt 1 Sag Bar");
  ASSERT_GT(Items.At(2).HoleCount(), 0);
  const std::string before = ProjectText();
  const std::int32_t serial = SerialOf(2);
  CurrentItem = 2;
  DeleteItemRow(2);
  EXPECT_EQ(StepToUndo(), "Delete of P2");
  const RestoredStep restored = Undo();
  EXPECT_TRUE(restored.RowsMoved);
  EXPECT_EQ(restored.Row, 2);
  EXPECT_EQ(restored.FormerRows, (std::vector<int>{1, 0, 2}));
  EXPECT_EQ(ProjectText(), before);
  EXPECT_EQ(SerialOf(2), serial);
  EXPECT_EQ(StepToRedo(), "Delete of P2");
  EXPECT_EQ(Redo().FormerRows, (std::vector<int>{1, 3}));
  EXPECT_EQ(Marks(), (Marks3{"P1", "P3"}));
}

TEST_F(HistoryTest, An_added_section_goes_and_the_cursor_returns) {
  AddPurlin("P1");
  AddPurlin("P2");
  CurrentItem = 1;
  DuplicateRow(1);
  EXPECT_EQ(StepToUndo(), "Duplicate of P1");
  const RestoredStep back = Undo();
  EXPECT_EQ(back.Row, 1);
  EXPECT_EQ(Marks(), (Marks3{"P1", "P2"}));
  const RestoredStep again = Redo();
  EXPECT_EQ(again.Row, 3);
  EXPECT_EQ(Marks(), (Marks3{"P1", "P2", "P1A"}));
  AddSectionRow("C");
  EXPECT_EQ(StepToUndo(), "Add section");
}

TEST_F(HistoryTest, A_sort_is_taken_back_in_one) {
  AddPurlin("P3");
  AddPurlin("P1");
  AddPurlin("P2");
  SortItemRows(SortKey::Mark);
  EXPECT_EQ(Marks(), (Marks3{"P1", "P2", "P3"}));
  EXPECT_EQ(StepToUndo(), "Sort");
  EXPECT_EQ(Undo().FormerRows, (std::vector<int>{3, 1, 2}));
  EXPECT_EQ(Marks(), (Marks3{"P3", "P1", "P2"}));
  EXPECT_EQ(Redo().FormerRows, (std::vector<int>{2, 3, 1}));
  EXPECT_EQ(Marks(), (Marks3{"P1", "P2", "P3"}));
}

TEST_F(HistoryTest, The_last_section_comes_back_into_an_empty_job) {
  AddPurlin("P1");
  DeleteItemRow(1);
  EXPECT_TRUE(Items.Empty());
  EXPECT_EQ(Undo().FormerRows, std::vector<int>{0});
  EXPECT_EQ(Marks(), Marks3{"P1"});
  Redo();
  EXPECT_TRUE(Items.Empty());
}

// Accessories and details.

TEST_F(HistoryTest, The_lines_and_the_flag_of_an_accessory_come_back) {
  TextRows rows;
  rows.Resize(1);
  rows.At(1).Resize(2);
  rows.At(1).At(1) = "5";
  StoreType1Lines(1, rows);
  ASSERT_EQ(AccLines1.UBound(), 1);
  ASSERT_EQ(AccUsed.At(1), True);
  EXPECT_EQ(StepToUndo(), "Accessory of " + AccDefs.At(1).Name);
  EXPECT_TRUE(Undo().Accessories);
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccUsed.At(1), False);
  Redo();
  EXPECT_EQ(AccLines1.At(1).Qty, 5);
  ClearAccessory(1);
  EXPECT_EQ(AccUsed.At(1), False);
  Undo();
  EXPECT_EQ(AccUsed.At(1), True);
}

TEST_F(HistoryTest, One_opening_of_the_project_details_is_one_step) {
  EndStep();
  Change(ChangeKind::ProjectDetails, 0, [] { txtProject.at(1) = "P"; });
  Change(ChangeKind::ProjectDetails, 0, [] { txtProject.at(1) = "P7"; });
  Change(ChangeKind::ProjectDetails, 0, [] { DTPicker1 = Date{2026, 3, 9}; });
  EndStep();
  Change(ChangeKind::ProjectDetails, 0, [] { txtProject.at(4) = "J. Doe"; });
  Undo();
  EXPECT_EQ(txtProject.at(4), "");
  EXPECT_EQ(txtProject.at(1), "P7");
  EXPECT_EQ(StepToUndo(), "Project details");
  EXPECT_TRUE(Undo().Details);
  EXPECT_EQ(txtProject.at(1), "");
  EXPECT_EQ(DTPicker1, Date());
  Redo();
  EXPECT_EQ(txtProject.at(1), "P7");
  EXPECT_EQ(DTPicker1, (Date{2026, 3, 9}));
}

// Changed since saved.

TEST_F(HistoryTest, A_job_is_changed_until_its_steps_are_taken_back_to_the_saved_one) {
  AddPurlin("P4");
  EXPECT_TRUE(IsChangedSinceSaved());
  MarkSaved();
  EXPECT_FALSE(IsChangedSinceSaved());
  TypeCell(1, NotesColumn, "x");
  EXPECT_TRUE(IsChangedSinceSaved());
  Undo();
  EXPECT_FALSE(IsChangedSinceSaved());
  Undo();
  EXPECT_TRUE(IsChangedSinceSaved());
  Redo();
  EXPECT_FALSE(IsChangedSinceSaved());
  // The way to the saved state is gone.
  Undo();
  TypeCell(1, NotesColumn, "y");
  EXPECT_TRUE(IsChangedSinceSaved());
  Undo();
  EXPECT_TRUE(IsChangedSinceSaved());
}

TEST_F(HistoryTest, Keys_typed_behind_a_save_are_a_step_of_their_own) {
  AddPurlin("P4");
  EndStep();
  TypeKeys(1, NotesColumn, "a");
  MarkSaved();
  TypeKeys(1, NotesColumn, "ab");
  EXPECT_TRUE(IsChangedSinceSaved());
  Undo();
  EXPECT_EQ(Items.At(1).Notes, "a");
  EXPECT_FALSE(IsChangedSinceSaved());
}

TEST_F(HistoryTest, Another_job_begins_a_history_of_its_own) {
  AddPurlin("P4");
  Change(ChangeKind::NewProject, 0, [] { NewProjectTables(Date{2026, 1, 1}); });
  EXPECT_EQ(StepToUndo(), "");
  EXPECT_FALSE(IsChangedSinceSaved());
  // What is typed into the details of a new job can be taken back.
  Change(ChangeKind::ProjectDetails, 0, [] { txtProject.at(1) = "P"; });
  Change(ChangeKind::ProjectReplaced);
  EXPECT_EQ(StepToUndo(), "Project details");
}

TEST_F(HistoryTest, A_failed_opening_is_a_step_that_brings_the_job_back) {
  AddPurlin("P4");
  txtProject.at(1) = "J7";
  BeginHistory();
  const std::string before = ProjectText();
  EXPECT_EQ(test::ErrorOf([] {
              Change(ChangeKind::OpenProject, 0, [] {
                Items.Clear();
                test::AppendItem("Q1");
                test::AppendItem("Q2");
                txtProject.at(1) = "another";
                AccUsed.At(1) = True;
                throw RuntimeError(Failure::TypeMismatch);
              });
            }),
            "Type mismatch");
  EXPECT_TRUE(IsChangedSinceSaved());
  EXPECT_EQ(StepToUndo(), "Open project");
  const RestoredStep restored = Undo();
  EXPECT_EQ(ProjectText(), before);
  EXPECT_TRUE(restored.RowsMoved);
  EXPECT_TRUE(restored.Details);
  EXPECT_TRUE(restored.Accessories);
  EXPECT_EQ(restored.FormerRows, std::vector<int>{0});
  EXPECT_FALSE(IsChangedSinceSaved());
}

// What lies between the steps.

TEST_F(HistoryTest, Undo_leads_to_the_records_as_they_stood_just_before_the_step) {
  AddPurlin("P1");
  ChoosePattern(1, "Butt 1 Sag Bar");
  MarkSaved();
  // As a file of another room has them, which the showing of the section makes afresh.
  Items.At(1).Holes.Clear();
  BeginHistory();
  LookAt(1);
  const std::string before = ProjectText();
  ASSERT_GT(Items.At(1).HoleCount(), 0);
  TypeCell(1, NotesColumn, "x");
  Undo();
  EXPECT_EQ(ProjectText(), before);
}

TEST_F(HistoryTest, What_a_look_made_of_another_row_goes_and_comes_with_the_steps_around_it) {
  AddPurlin("P1");
  AddPurlin("P2");
  ChoosePattern(1, "Butt 1 Sag Bar");
  Items.At(1).Holes.Clear();
  BeginHistory();
  const std::string first = ProjectText();
  TypeCell(2, NotesColumn, "one");
  LookAt(1);
  const std::string looked = ProjectText();
  TypeCell(2, NotesColumn, "two");
  const std::string last = ProjectText();
  Undo();
  EXPECT_EQ(ProjectText(), looked);
  Undo();
  EXPECT_EQ(ProjectText(), first);
  LookAt(1);  // is put back before the next step is done again
  Redo();
  Redo();
  EXPECT_EQ(ProjectText(), last);
}

TEST_F(HistoryTest, Tables_filled_behind_its_back_begin_it_afresh) {
  AddPurlin("P1");
  Items.Clear();
  test::AppendItem("A");
  test::AppendItem("B");
  Change(ChangeKind::Notes, 2, [] { Items.At(2).Notes = "x"; });
  EXPECT_EQ(StepToUndo(), "Notes of B");
  Undo();
  EXPECT_EQ(StepToUndo(), "");
  EXPECT_EQ(Marks(), (Marks3{"A", "B"}));
  EXPECT_TRUE(IsChangedSinceSaved()) << "nobody knows whether a file holds them";
}

TEST_F(HistoryTest, Tables_that_were_saved_are_saved_whoever_filled_them) {
  AddPurlin("P1");
  Items.Clear();
  test::AppendItem("A");
  test::AppendItem("B");
  MarkSaved();
  EXPECT_FALSE(IsChangedSinceSaved());
  Change(ChangeKind::Notes, 2, [] {});
  EXPECT_FALSE(IsChangedSinceSaved());
}

TEST_F(HistoryTest, Tables_filled_behind_its_back_are_led_nowhere) {
  AddPurlin("P1");
  Items.Clear();
  test::AppendItem("A");
  test::AppendItem("B");
  RestoredStep restored;
  EXPECT_FALSE(UndoStep(restored));
  EXPECT_EQ(Marks(), (Marks3{"A", "B"}));
  Items.Clear();
  test::AppendItem("C");
  test::AppendItem("D");
  Change(ChangeKind::Notes, 2, [] { Items.At(2).Notes = "x"; });
  Items.At(2) = Item();  // another section in the step's row
  EXPECT_FALSE(UndoStep(restored));
  EXPECT_EQ(StepToUndo(), "");
}

// What it may take.

TEST_F(HistoryTest, The_oldest_steps_go_when_they_take_too_much) {
  AddPurlin("P1");
  const std::string note(std::size_t{1} << 20, 'x');
  for (int step = 0; step < 140; ++step) {
    Change(ChangeKind::Notes, 1, [&] { Items.At(1).Notes = note + DecimalText(step); });
    EndStep();
  }
  EXPECT_LE(HistoryBytes(), MostHistoryBytes);
  EXPECT_LT(StepsToUndo(), 130);
  EXPECT_GT(StepsToUndo(), 100);
  EXPECT_TRUE(IsChangedSinceSaved());
  while (StepToUndo() != "") Undo();
  EXPECT_TRUE(IsChangedSinceSaved()) << "the state that was saved can't be reached any more";
}

TEST_F(HistoryTest, The_last_twenty_steps_stay_whatever_they_take) {
  AddPurlin("P1");
  const std::string note(std::size_t{10} << 20, 'x');
  for (int step = 0; step < 25; ++step) {
    Change(ChangeKind::Notes, 1, [&] { Items.At(1).Notes = note + DecimalText(step); });
    EndStep();
  }
  EXPECT_EQ(StepsToUndo(), LeastSteps);
  for (int step = 0; step < LeastSteps; ++step) Undo();
  EXPECT_EQ(Items.At(1).Notes, note + "4");
}

// Telling.

TEST_F(HistoryTest, Whoever_shows_it_is_told_when_it_is_another) {
  int told = 0;
  BeginHistory([&] { ++told; });
  EXPECT_EQ(told, 1);
  AddSectionRow("Z");
  EXPECT_EQ(told, 2);
  Undo();
  EXPECT_EQ(told, 3);
  MarkSaved();
  EXPECT_EQ(told, 4);
}

TEST_F(HistoryTest, Without_a_history_nothing_is_kept_and_nothing_is_changed) {
  EndHistory();
  AddPurlin("P1");
  EXPECT_EQ(StepToUndo(), "");
  EXPECT_FALSE(IsChangedSinceSaved());
  RestoredStep restored;
  EXPECT_FALSE(UndoStep(restored));
  EXPECT_FALSE(RedoStep(restored));
  MarkSaved();
  EXPECT_EQ(HistoryBytes(), 0U);
}

}  // namespace
}  // namespace orvane
