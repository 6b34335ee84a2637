#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

// What a move of the cursor brings up to date.
class SectionsRefresh : public SectionsTest {
 protected:
  // A purlin with the single end holes: 32 from both ends.
  Item& PutPurlin(const std::string& mark, std::int16_t length = 6000) {
    Item& item = Put("Z", mark, "Z14012", length);
    item.PatternName = "Butt Single Holes";
    return item;
  }
};

TEST_F(SectionsRefresh, The_current_row_is_grey_behind_its_fixed_column_and_no_other) {
  for (const std::string mark : {"A1", "B1", "C1", "D1"}) PutPurlin(mark);
  Show();
  for (const int current : {1, 4, 2, 3}) {
    ClickCell(Sections(), current, 5);
    for (int row = 1; row <= 4; ++row) {
      for (int column = 1; column <= 5; ++column) {
        EXPECT_EQ(Colour(row, column), row == current ? 0xE0E0E0U : 0xFFFFFFU)
            << row << "," << column << " with the cursor in row " << current;
      }
    }
    EXPECT_EQ(CurrentItem, current);
  }
}

TEST_F(SectionsRefresh, Each_move_rebuilds_the_pattern_holes_and_spares_the_custom_ones) {
  Item& item = PutPurlin("A1");
  PutHole(item, 2222, "S");
  PutHole(item, 3333, "C");
  Show();
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 3333, 5968}));
  Items.At(1).Holes.At(1).XPos = 40;
  Press(Qt::Key_Tab);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 3333, 5968}));
  EXPECT_EQ(Items.At(1).CustomHoleCount, 1);
  Items.At(1).Holes.At(1).XPos = 40;
  ClickCell(Sections(), 1, 5);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 3333, 5968}));
}

TEST_F(SectionsRefresh,
       Without_a_pattern_selected_a_move_leaves_the_custom_holes_alone_in_the_list) {
  Item& item = Put("Z", "A1", "Z14012", 6000);
  PutHole(item, 100, "S");
  PutHole(item, 200, "C");
  Show();
  EXPECT_EQ(Patterns().currentIndex(), -1);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{200}));
  PutHole(Items.At(1), 300, "S");
  Press(Qt::Key_Tab);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{200}));
}

TEST_F(SectionsRefresh, A_pattern_that_the_catalogue_doesnt_know_stays_in_the_record) {
  PutPurlin("A1").PatternName = "Old Butt";
  Items.At(1).SagBarDia = 18;
  PutPurlin("B1");
  Show();
  Press(Qt::Key_Down);
  Press(Qt::Key_Up);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Patterns().currentIndex(), -1);
  EXPECT_EQ(Items.At(1).PatternName, "Old Butt");
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsRefresh, Each_move_draws_the_sheet_of_the_current_row) {
  PutPurlin("A1");
  PutPurlin("B1");
  Show();
  EXPECT_EQ(Sheet().ShownRow(), 1);
  int draws = Sheet().DrawCount();
  Press(Qt::Key_Tab);
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
  EXPECT_EQ(Sheet().ShownRow(), 1);
  draws = Sheet().DrawCount();
  Press(Qt::Key_Down);
  EXPECT_GT(Sheet().DrawCount(), draws);
  EXPECT_EQ(Sheet().ShownRow(), 2);
}

TEST_F(SectionsRefresh, A_typed_length_moves_the_holes_and_the_sheet_at_each_stroke) {
  PutPurlin("A1");
  Show(1, 3);
  const int draws = Sheet().DrawCount();
  Retype("4");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{-28, 32}));
  Type("0");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{8, 32}));
  Type("0");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 368}));
  Type("0");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 3968}));
  EXPECT_GE(Sheet().DrawCount(), draws + 4);
}

TEST_F(SectionsRefresh, Each_stroke_that_changed_the_record_draws_the_sheet) {
  PutPurlin("A1");
  for (const int column : {1, 4, 5}) {
    SCOPED_TRACE(column);
    Show(1, column);
    const int draws = Sheet().DrawCount();
    Type("7");
    EXPECT_EQ(Sheet().DrawCount(), draws + 1);
  }
}

TEST_F(SectionsRefresh, A_rebuild_that_fails_while_typing_is_told_on_leaving_only) {
  // Room on the sheet as after a drawing. On 32 mm the two holes stand at 0 and 32, so that the one
  // gap between them is too short for the paper and none is left to pay for it.
  DrawingWidth = 180;
  PutPurlin("A1");
  Show(1, 3);
  Retype("32");
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, "32"));
  EXPECT_EQ(Items.At(1).Length, 32);
  // The room is what this test takes it to be, whatever a drawing made of it.
  DrawingWidth = 180;
  dialogs.ExpectBox("A1: Division by zero");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(1, 4, "1"));
}

TEST_F(SectionsRefresh, Combos_follow_the_letter_of_the_row) {
  PutPurlin("A1");
  Put("C", "B1", "19014", 6000).PatternName = "Joist";
  Show();
  EXPECT_EQ(ProductBox().count(), 35);
  EXPECT_EQ(FromQt(Patterns().itemText(1)), "Butt Single Holes");
  Press(Qt::Key_Down);
  EXPECT_EQ(ProductBox().count(), 47);
  EXPECT_EQ(FromQt(Patterns().itemText(1)), "Joist");
  EXPECT_EQ(FromQt(Patterns().currentText()), "Joist");
  Press(Qt::Key_Up);
  EXPECT_EQ(FromQt(Patterns().currentText()), "Butt Single Holes");
}

TEST_F(SectionsRefresh, Eaves_beams_show_their_pitch_and_cleader_rails_their_pieces) {
  Put("E", "A1", "E20020", 6000).Pitch = "10";
  Put("E", "B1", "E20020", 6000).Pitch = "15";
  Put("R", "C1", "CLR", 3000).JointingPieces = 3;
  Put("R", "D1", "CLR", 3000).JointingPieces = 0;
  Put("E", "E1", "E20020", 6000).Pitch = "7";
  Show();
  auto& pitch = Find<QComboBox>("cboPitch");
  auto& pieces = Find<QLineEdit>("txtJointing");
  EXPECT_EQ(FromQt(pitch.currentText()), "10");
  Press(Qt::Key_Down);
  EXPECT_EQ(FromQt(pitch.currentText()), "15");
  EXPECT_TRUE(Shown("cboPitch"));
  EXPECT_FALSE(Shown("txtJointing"));
  Press(Qt::Key_Down);
  EXPECT_EQ(FromQt(pieces.text()), "3");
  EXPECT_TRUE(Shown("txtJointing"));
  EXPECT_FALSE(Shown("cboPitch"));
  Press(Qt::Key_Down);
  EXPECT_EQ(FromQt(pieces.text()), "0");
  Press(Qt::Key_Down);
  EXPECT_EQ(pitch.currentIndex(), -1);
  // Showing wrote nothing.
  EXPECT_EQ(Items.At(1).Pitch, "10");
  EXPECT_EQ(Items.At(3).JointingPieces, 3);
  EXPECT_EQ(Items.At(5).Pitch, "7");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsRefresh, The_hole_list_shows_the_custom_holes_of_the_row) {
  Item& first = Put("Z", "A1", "Z14012", 6000);
  first.PatternName = "Custom";
  PutHole(first, 1000, "C");
  PutHole(first, 2500, "C");
  Put("Z", "B1", "Z14012", 6000).PatternName = "Custom";
  Show();
  auto& holes = Find<FlexGrid>("MSFlexGrid2");
  EXPECT_EQ(holes.Rows(), 3);
  EXPECT_EQ(holes.TextMatrix(2, 0), "2500");
  EXPECT_TRUE(Shown("SSpanelCustom"));
  Press(Qt::Key_Down);
  EXPECT_EQ(holes.Rows(), 1);
  EXPECT_TRUE(Shown("SSpanelCustom"));
  Press(Qt::Key_Up);
  EXPECT_EQ(holes.Rows(), 3);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{1000, 2500}));
}

TEST_F(SectionsRefresh, Moving_and_showing_never_change_the_project) {
  PutPurlin("A1");
  Put("E", "B1", "E20020", 6000).PatternName = "Eaves Beam 1 Sag Bar";
  Items.At(2).SagBarDia = 14;
  Item& custom = Put("R", "C1", "CLR", 3000);
  custom.PatternName = "Custom";
  PutHole(custom, 50, "C");
  Put("V", "D1", "VCR", 2000).PatternName = "VCR Cleats";
  Show();
  for (int step = 0; step < 3; ++step) {
    for (int column = 0; column < 5; ++column) Press(Qt::Key_Tab);
    Press(Qt::Key_Down);
    for (int column = 0; column < 5; ++column) Press(Qt::Key_Tab, Qt::ShiftModifier);
  }
  for (int row = 1; row <= 4; ++row) {
    for (int column = 0; column <= 5; ++column) ClickCell(Sections(), row, column);
  }
  Settle();
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Items.At(2).PatternName, "Eaves Beam 1 Sag Bar");
  EXPECT_EQ(Items.At(2).SagBarDia, 14);
  EXPECT_EQ(Items.At(3).PatternName, "Custom");
  EXPECT_EQ(Items.At(4).PatternName, "VCR Cleats");
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(SectionsRefresh, Leaving_the_editor_for_another_control_rebuilds_and_draws_what_was_typed) {
  PutPurlin("A1");
  Show(1, 5);
  Type("x");
  const int draws = Sheet().DrawCount();
  Items.At(1).Holes.At(1).XPos = 40;
  Find("lstAccessories").setFocus(Qt::MouseFocusReason);
  Settle();
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 5968}));
  EXPECT_GT(Sheet().DrawCount(), draws);
}

}  // namespace
}  // namespace orvane::test
