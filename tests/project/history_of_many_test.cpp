// Steps that are done to several sections at once.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/model.h"
#include "project/changes.h"
#include "project/project_file.h"
#include "project/sections.h"
#include "tests/project/history_fixture.h"

namespace orvane::test {

namespace {

class HistoryOfMany : public HistoryFixture {
 protected:
  HistoryOfMany() {
    for (const char* mark : {"P1", "P2", "P3", "P4"}) AddPurlin(mark);
    ChoosePattern(2, "Butt 1 Sag Bar");
  }
};

// The second section goes, the third gets a note, and one is appended.
void ChangeAll(const std::vector<ChangeKind>& kinds) {
  for (const ChangeKind kind : kinds) {
    Change(kind, 2, [] {
      Items.Remove(2);
      Items.At(2).Notes = "primed";
      Item item = Items.At(1);
      item.Serial = 0;
      item.Mark = "P9";
      Items.Append(std::move(item));
    });
  }
}

}  // namespace

TEST_F(HistoryOfMany, Sections_that_go_change_and_come_at_once_are_one_step) {
  const std::string before = ProjectText();
  CurrentItem = 4;
  ChangeAll({ChangeKind::ImportSections});
  const std::string after = ProjectText();
  EXPECT_EQ(StepToUndo(), "Import sections");
  const RestoredStep back = Undo();
  EXPECT_EQ(ProjectText(), before);
  EXPECT_TRUE(back.Several);
  EXPECT_EQ(back.Row, 4);
  EXPECT_EQ(back.FormerRows, (std::vector<int>{1, 0, 2, 3}));
  const RestoredStep again = Redo();
  EXPECT_EQ(ProjectText(), after);
  EXPECT_EQ(again.Row, 2);
  EXPECT_EQ(again.FormerRows, (std::vector<int>{1, 3, 4, 0}));
}

TEST_F(HistoryOfMany, A_change_of_what_sections_hold_moves_no_row) {
  const std::string before = ProjectText();
  Change(ChangeKind::ChangeSections, 1, [] {
    for (Item& item : Items) item.Length = 5000;
  });
  const RestoredStep back = Undo();
  EXPECT_TRUE(back.Several);
  EXPECT_FALSE(back.RowsMoved);
  EXPECT_EQ(ProjectText(), before);
  Redo();
  for (const Item& item : Items) EXPECT_EQ(item.Length, 5000);
}

TEST_F(HistoryOfMany, The_cursor_comes_to_sections_that_are_back) {
  CurrentItem = 3;
  Change(ChangeKind::DeleteSections, 2, [] {
    Items.Remove(3);
    Items.Remove(2);
  });
  EXPECT_EQ(StepToUndo(), "Delete sections");
  EXPECT_EQ(Undo().Row, 2);
  EXPECT_EQ(Items.UBound(), 4);
}

// Drawing works out gaps in the section that it draws, which is no change that anybody is told.
TEST_F(HistoryOfMany, What_drawing_made_of_a_section_comes_back_with_it) {
  CurrentItem = 2;
  ASSERT_GT(Items.At(2).HoleCount(), 0);
  Items.At(2).Holes.At(1).DrawGap = 77;
  const std::string before = ProjectText();
  Change(ChangeKind::CutSections, 2, [] { Items.Remove(2); });
  Undo();
  EXPECT_EQ(Items.At(2).Holes.At(1).DrawGap, 77);
  EXPECT_EQ(ProjectText(), before);
}

}  // namespace orvane::test
