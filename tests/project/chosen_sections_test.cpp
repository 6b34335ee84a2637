// What is done to several sections as one step.
#include "project/rules/chosen_sections.h"

#include <numeric>

#include "core/runtime_error.h"
#include "holes/hole_list.h"
#include "project/project_file.h"
#include "project/sections.h"
#include "tests/project/history_fixture.h"

namespace orvane::test {
namespace {

using Marks = std::vector<std::string>;
using Rows = std::vector<int>;

class ChosenSections : public HistoryFixture {
 protected:
  ChosenSections() {
    for (const char* mark : {"P1", "P2", "P3", "P4", "P5"}) AddPurlin(mark);
    ChoosePattern(2, "Butt");
    ChoosePattern(4, "Butt");
    ProjectDirty = False;
  }

  static Marks MarksNow() {
    Marks marks;
    for (const Item& item : Items) marks.push_back(item.Mark);
    return marks;
  }
  // Gaps of 30, 0 and 30 where the least is 40 mm at 1:10: the two short ones are to be paid by the
  // one of 0, which has nothing to give.
  static void SpoilGaps(int row) {
    MinHoleSep = 4;
    DrawingWidth = 180;
    Item& item = Items.At(row);
    item.Length = 60;
    item.PatternName = CustomPattern;
    item.Holes.Clear();
    Hole hole;
    hole.XPos = 30;
    hole.Kind = CustomKind;
    item.Holes.Append(hole);
    item.Holes.Append(hole);
  }
  // Taken back the job is what it was, and done again what it became.
  static void ExpectOneStep(const std::string& before, const std::string& name) {
    const std::string after = ProjectText();
    EXPECT_EQ(StepToUndo(), name);
    EXPECT_EQ(ProjectDirty, True);
    Undo();
    EXPECT_EQ(ProjectText(), before);
    Redo();
    EXPECT_EQ(ProjectText(), after);
  }
};

TEST_F(ChosenSections, Rows_are_deleted_in_one_step_and_the_others_keep_their_order) {
  const std::string before = ProjectText();
  EXPECT_EQ(DeleteSectionRows({1, 3, 4}, ChangeKind::DeleteSections), (Rows{2, 5}));
  EXPECT_EQ(MarksNow(), (Marks{"P2", "P5"}));
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_GT(Items.At(1).HoleCount(), 0);
  ExpectOneStep(before, "Delete sections");
  EXPECT_EQ(DeleteSectionRows({1, 2}, ChangeKind::CutSections), Rows{});
  EXPECT_TRUE(Items.Empty());
  EXPECT_EQ(StepToUndo(), "Cut sections");
}

TEST_F(ChosenSections, Copies_are_appended_in_order_as_each_alone_would_be) {
  const std::string before = ProjectText();
  EXPECT_EQ(DuplicateSectionRows({2, 5}), 6);
  EXPECT_EQ(MarksNow(), (Marks{"P1", "P2", "P3", "P4", "P5", "P2A", "P5A"}));
  const std::string together = ProjectText();
  ExpectOneStep(before, "Duplicate sections");
  EXPECT_NE(Items.At(6).Serial, Items.At(2).Serial);
  Undo();
  DuplicateRow(2);
  DuplicateRow(5);
  EXPECT_EQ(ProjectText(), together);
}

TEST_F(ChosenSections, Opposite_hands_are_appended_in_order_as_each_alone_would_be) {
  Items.At(2).MitreLeft = 10;
  Items.At(4).Holes.At(1).XPos = 77;
  BeginHistory();
  const std::string before = ProjectText();
  EXPECT_EQ(OppositeHandSectionRows({2, 4}), 6);
  EXPECT_EQ(MarksNow(), (Marks{"P1", "P2", "P3", "P4", "P5", "P2X", "P4X"}));
  EXPECT_EQ(Items.At(6).MitreRight, -10);
  EXPECT_EQ(Items.At(7).Holes.At(Items.At(7).HoleCount()).XPos, 6000 - 77);
  const std::string together = ProjectText();
  ExpectOneStep(before, "Opposite hands");
  Undo();
  CreateOppHandRow(2);
  CreateOppHandRow(4);
  EXPECT_EQ(ProjectText(), together);
}

TEST_F(ChosenSections, An_error_at_one_copy_names_it_and_adds_none) {
  SpoilGaps(3);
  const std::string before = ProjectText();
  EXPECT_EQ(ErrorOf([] {
              DuplicateSectionRows({2, 3, 5});
            }),
            "P3: Division by zero\rNothing was added.");
  EXPECT_EQ(ErrorOf([] {
              OppositeHandSectionRows({2, 3});
            }),
            "P3: Division by zero\rNothing was added.");
  EXPECT_EQ(ProjectText(), before);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ChosenSections, Copies_beyond_the_numbers_of_rows_are_not_made) {
  Items.Resize(32766);
  EXPECT_EQ(ErrorOf([] { DuplicateSectionRows({1, 2}); }), "Overflow\rNothing was added.");
  EXPECT_EQ(Items.UBound(), 32766);
}

TEST_F(ChosenSections, Patterns_become_holes_by_hand_in_one_step) {
  ChoosePattern(2, "Butt 1 Sag Bar");
  ASSERT_EQ(Items.At(2).SagBarDia, 14);
  const int holes = Items.At(2).HoleCount();
  ASSERT_GT(holes, 0);
  ProjectDirty = False;
  const std::string before = ProjectText();
  EXPECT_EQ(ConvertSectionRows({2, 4}), "");
  for (const int row : {2, 4}) {
    SCOPED_TRACE(row);
    EXPECT_EQ(Items.At(row).PatternName, CustomPattern);
    EXPECT_EQ(Items.At(row).SagBarDia, 0);
    EXPECT_EQ(Items.At(row).CustomHoleCount, Items.At(row).HoleCount());
    for (const Hole& hole : Items.At(row).Holes) EXPECT_EQ(hole.Kind, CustomKind);
  }
  EXPECT_EQ(Items.At(2).HoleCount(), holes);
  EXPECT_EQ(Items.At(3).PatternName, "");
  ExpectOneStep(before, "Convert sections to custom");
}

TEST_F(ChosenSections, Gaps_that_fail_are_told_and_the_conversion_goes_on) {
  SpoilGaps(3);
  for (Hole& hole : Items.At(3).Holes) hole.Kind = PatternKind;
  EXPECT_EQ(ConvertSectionRows({3, 4}), "P3: Division by zero");
  EXPECT_EQ(Items.At(3).Holes.At(1).Kind, CustomKind);
  EXPECT_EQ(Items.At(4).PatternName, CustomPattern);
}

}  // namespace
}  // namespace orvane::test
