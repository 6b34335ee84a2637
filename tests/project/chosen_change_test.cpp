// One value for several sections.
#include "project/section_list/chosen_change.h"

#include <string>
#include <vector>

#include "project/history.h"
#include "project/project_file.h"
#include "project/section_list/apply_plan.h"
#include "tests/project/section_list_fixture.h"

namespace orvane {

namespace {

using Words = std::vector<std::string>;

class ChosenChangeTest : public test::SectionListTest {
 protected:
  ChosenChangeTest() {
    Put("P1", "Z14012", 6000, 4);
    Put("P2", "Z14012", 6100, 5);
    Put("E1", "E20016", 7000, 6);
  }

  // Makes it to those rows and gives what is left, without the reasons' lines of their own.
  std::string Make(const ChosenChange& change, const std::vector<int>& rows = {1, 2, 3},
                   bool mayRemoveHoles = false) {
    const SectionPlan plan = PlanOfChange(rows, change, mayRemoveHoles);
    ApplyPlan(plan, ChangeKind::ChangeSections);
    return LeftSections(plan);
  }
};

TEST_F(ChosenChangeTest, A_value_is_set_in_the_chosen_sections_alone) {
  ChosenChange change;
  change.Length = "6500";
  change.Quantity = "9";
  EXPECT_EQ(Make(change, {1, 3}), "");
  EXPECT_EQ(Job(), (Words{"Z P1 Z14012 6500 9 ", "Z P2 Z14012 6100 5 ", "E E1 E20016 6500 9 "}));
}

TEST_F(ChosenChangeTest, Lengths_are_added_to) {
  ChosenChange change;
  change.Length = "-50";
  change.ByLength = ChosenChange::LengthBy::Add;
  EXPECT_EQ(Make(change), "");
  EXPECT_EQ(Job(), (Words{"Z P1 Z14012 5950 4 ", "Z P2 Z14012 6050 5 ", "E E1 E20016 6950 6 "}));
}

TEST_F(ChosenChangeTest, A_length_that_one_of_them_may_not_have_leaves_it_whole) {
  ChosenChange change;
  change.Length = "-6000";
  change.ByLength = ChosenChange::LengthBy::Add;
  change.Notes = "cut";
  EXPECT_EQ(Make(change), "\rP1: Invalid length");
  EXPECT_EQ(Job(),
            (Words{"Z P1 Z14012 6000 4 ", "Z P2 Z14012 100 5 cut", "E E1 E20016 1000 6 cut"}));
  change.Length = "99999999999999999999";
  EXPECT_NE(Make(change, {2}), "");
  EXPECT_EQ(Items.At(2).Length, 100);
}

TEST_F(ChosenChangeTest, Notes_are_set_appended_to_and_replaced_in) {
  ChosenChange change;
  change.Notes = "primed";
  Make(change, {1, 2});
  EXPECT_EQ(Items.At(1).Notes, "primed");
  change.ByNotes = ChosenChange::NotesBy::Append;
  change.Notes = "north";
  Make(change);
  EXPECT_EQ(Items.At(1).Notes, "primed north");
  EXPECT_EQ(Items.At(3).Notes, "north");
  change.Notes = ", first";
  Make(change, {1});
  EXPECT_EQ(Items.At(1).Notes, "primed north, first");
  change.ByNotes = ChosenChange::NotesBy::Replace;
  change.NotesFrom = "north";
  change.Notes = "north-north";
  Make(change);
  EXPECT_EQ(Items.At(1).Notes, "primed north-north, first");
  EXPECT_EQ(Items.At(3).Notes, "north-north");
  change.NotesFrom = "";
  Make(change);
  EXPECT_EQ(Items.At(3).Notes, "north-north") << "nothing to replace";
}

TEST_F(ChosenChangeTest, Products_and_patterns_of_a_family_leave_the_others_as_they_are) {
  ChosenChange change;
  change.Product = "Z14014";
  EXPECT_EQ(Make(change), "\rE1: Its family has no product Z14014");
  change = {};
  change.Pattern = "Butt 1 Sag Bar";
  const std::string left = Make(change);
  EXPECT_EQ(left.substr(0, 5), "\rE1: ");
  EXPECT_EQ(left.find("P1"), std::string::npos);
  EXPECT_EQ(Items.At(1).Product, "Z14014");
  EXPECT_EQ(Items.At(1).PatternName, "Butt 1 Sag Bar");
  EXPECT_EQ(Items.At(2).PatternName, "Butt 1 Sag Bar");
  EXPECT_GT(Items.At(2).HoleCount(), 0) << "its holes are made";
  EXPECT_EQ(Items.At(3).PatternName, "");
}

TEST_F(ChosenChangeTest, Sag_bars_and_pitches_go_where_there_are_any) {
  ChosenChange change;
  change.Pattern = "Butt 1 Sag Bar";
  change.SagBars = "14";
  Make(change, {1});
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  change = {};
  change.SagBars = "18";
  EXPECT_EQ(Make(change, {1, 2}), "\rP2: The pattern has no sag bars");
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  change = {};
  change.Pitch = "10";
  EXPECT_EQ(Make(change),
            "\rP1: A section of this family has no pitch\rP2: A section of this family "
            "has no pitch");
  EXPECT_EQ(Items.At(3).Pitch, "10");
}

TEST_F(ChosenChangeTest, Holes_placed_by_hand_go_only_where_they_may) {
  Items.At(2).PatternName = "Custom";
  PutHole(Items.At(2), 100);
  ChosenChange change;
  change.Pattern = "Butt";
  const SectionPlan plan = PlanOfChange({1, 2}, change, false);
  EXPECT_EQ(HeldByHoles(plan), 1);
  EXPECT_EQ(Make(change, {1, 2}), "\rP2: It has holes placed by hand");
  EXPECT_EQ(Items.At(2).PatternName, "Custom");
  EXPECT_EQ(Items.At(2).HoleCount(), 1);
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_EQ(Make(change, {1, 2}, true), "");
  EXPECT_EQ(Items.At(2).PatternName, "Butt");
  for (const Hole& hole : Items.At(2).Holes) EXPECT_NE(hole.Kind, CustomKind);
}

TEST_F(ChosenChangeTest, It_is_one_step) {
  BeginHistory();
  const std::string before = ProjectText();
  ChosenChange change;
  change.Notes = "primed";
  Make(change);
  EXPECT_EQ(StepToUndo(), "Change sections");
  RestoredStep restored;
  ASSERT_TRUE(UndoStep(restored));
  EXPECT_EQ(ProjectText(), before);
  EXPECT_EQ(StepToUndo(), "");
  EndHistory();
}

TEST_F(ChosenChangeTest, A_cell_gives_what_it_shows_but_for_marks) {
  Items.At(1).Notes = "primed";
  EXPECT_EQ(ChangeFromCell(1, MarkColumn), std::nullopt);
  EXPECT_EQ(ChangeFromCell(1, LetterColumn), std::nullopt);
  EXPECT_EQ(ChangeFromCell(0, NotesColumn), std::nullopt);
  EXPECT_EQ(ChangeFromCell(1, ProductColumn)->Product, "Z14012");
  EXPECT_EQ(ChangeFromCell(1, LengthColumn)->Length, "6000");
  EXPECT_EQ(ChangeFromCell(1, QuantityColumn)->Quantity, "4");
  EXPECT_EQ(ChangeFromCell(1, NotesColumn)->Notes, "primed");
}

TEST_F(ChosenChangeTest, Of_many_that_are_left_twenty_are_named) {
  for (int more = 0; more < 22; ++more) Put("B", "E20016", 7000, 1);
  ChosenChange change;
  change.Product = "Z14014";
  std::vector<int> rows;
  for (int row = 1; row <= Items.UBound(); ++row) rows.push_back(row);
  const std::string left = Make(change, rows);
  EXPECT_NE(left.find("\rand 3 more"), std::string::npos) << left;
}

}  // namespace

}  // namespace orvane
