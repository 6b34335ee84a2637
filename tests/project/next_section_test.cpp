#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/model.h"
#include "project/history.h"
#include "project/project_file.h"
#include "project/sections.h"
#include "tests/project/history_fixture.h"

namespace orvane::test {

namespace {

class NextSection : public HistoryFixture {
 protected:
  static std::string MarkBehindOf(const std::vector<std::string>& marks) {
    Items.Clear();
    for (const std::string& mark : marks) Items.At(AddSectionRow("Z")).Mark = mark;
    return Items.At(NextSectionRow(1)).Mark;
  }
};

}  // namespace

TEST_F(NextSection, Is_like_the_one_before_but_for_mark_quantity_and_notes) {
  const std::int16_t row = AddSectionRow("E");
  Item& beam = Items.At(row);
  beam.Mark = "EB-A";
  beam.Product = "E17016";
  beam.Length = 7200;
  beam.Quantity = 4;
  beam.Notes = "north side";
  beam.DateText = "today";
  beam.PatternName = "Butt 1 Sag Bar";
  beam.SagBarDia = 14;
  beam.Pitch = "10";
  beam.MitreLeft = 45;
  beam.JointingPieces = 3;
  beam.Notches.Append({"TL1", 10, 20, 0});
  ProjectDirty = False;
  ASSERT_EQ(NextSectionRow(row), 2);
  const Item& next = Items.At(2);
  EXPECT_EQ(next.SectionType, "E");
  EXPECT_EQ(next.Product, "E17016");
  EXPECT_EQ(next.Length, 7200);
  EXPECT_EQ(next.PatternName, "Butt 1 Sag Bar");
  EXPECT_EQ(next.SagBarDia, 14);
  EXPECT_EQ(next.Pitch, "10");
  EXPECT_EQ(next.Mark, "EB-B");
  EXPECT_EQ(next.Quantity, 0);
  EXPECT_EQ(next.Notes, "");
  EXPECT_EQ(next.DateText, "");
  EXPECT_EQ(next.MitreLeft, 0);
  EXPECT_EQ(next.JointingPieces, 0);
  EXPECT_EQ(next.NotchCount(), 0);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(NextSection, Of_a_custom_one_has_no_holes) {
  const std::int16_t row = AddPurlin("P1");
  Items.At(row).PatternName = "Custom";
  Hole hole;
  hole.XPos = 100;
  hole.Kind = CustomKind;
  Items.At(row).Holes.Append(hole);
  const std::int16_t next = NextSectionRow(row);
  EXPECT_EQ(Items.At(next).PatternName, "Custom");
  EXPECT_EQ(Items.At(next).HoleCount(), 0);
}

TEST_F(NextSection, Passes_over_marks_that_are_taken_blanks_apart) {
  EXPECT_EQ(MarkBehindOf({"P1"}), "P2");
  EXPECT_EQ(MarkBehindOf({"P1", "P2", "P3 "}), "P4");
  EXPECT_EQ(MarkBehindOf({"P09", "P11"}), "P10");
  EXPECT_EQ(MarkBehindOf({" P99 "}), "P100");
  EXPECT_EQ(MarkBehindOf({"Z"}), "AA");
  EXPECT_EQ(MarkBehindOf({""}), "");
  EXPECT_EQ(MarkBehindOf({"", ""}), "");
}

TEST_F(NextSection, Is_one_step) {
  AddPurlin("P1");
  const std::string before = ProjectText();
  CurrentItem = 1;
  NextSectionRow(1);
  EXPECT_EQ(StepToUndo(), "Next section of P1");
  const std::string after = ProjectText();
  EXPECT_EQ(Undo().Row, 1);
  EXPECT_EQ(ProjectText(), before);
  EXPECT_EQ(Redo().Row, 2);
  EXPECT_EQ(ProjectText(), after);
}

TEST_F(NextSection, There_is_none_behind_no_section) {
  EXPECT_EQ(NextSectionRow(0), 0);
  EXPECT_EQ(Items.UBound(), 0);
}

}  // namespace orvane::test
