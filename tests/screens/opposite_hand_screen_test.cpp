// The opposite hand of a section, made in the window.
#include <QLabel>

#include "core/catalogues.h"
#include "holes/hole_list.h"
#include "output/cam_export.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

constexpr int OppositeHandEntry = 7;
constexpr int ConvertEntry = 12;

using Texts = std::vector<std::string>;
using Positions = std::vector<int>;

class OppositeHandScreen : public SectionsTest {
 protected:
  void SetUp() override {
    SectionsTest::SetUp();
    // Holes at 32 mm and at a third of the length; none of the right-hand end.
    PunchPattern pattern;
    pattern.SectionType = "Z";
    pattern.Name = "Lopsided";
    pattern.Codes = "B0 D2";
    pattern.HasSagBars = True;
    PunchPatterns.Append(pattern);
  }

  // Row 1 of the grid, shown with the cursor on its mark.
  Item& ShowOne(const std::string& pattern) {
    Item& item = Put("Z", "A1", "Z14012", 3000, 2);
    item.PatternName = pattern;
    item.Notes = "north";
    Show();
    return Items.At(1);
  }
  void CreateOppHand() {
    Section(OppositeHandEntry);
    Settle();
  }
  bool NoteShown() { return Find<QLabel>("lblMirrored").isVisible(); }
  bool PanelShowsHoles() { return Shown("SSpanelCustom"); }

  const Positions PatternsOrder = {32, 1000};
  const Positions Mirrored = {2000, 2968};
};

TEST_F(OppositeHandScreen, On_an_empty_grid_the_command_does_nothing) {
  CreateOppHand();
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(Sections().Rows(), 1);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_TRUE(NoEditor());
}

TEST_F(OppositeHandScreen, The_new_row_is_the_last_and_shows_letter_mark_product_length_and_so_on) {
  ShowOne("Custom");
  Put("C", "B1", "C14016", 4000);
  Put("T", "C1", "T061", 3500);
  Show();
  CreateOppHand();
  ASSERT_EQ(Items.UBound(), 4);
  EXPECT_EQ(Sections().Rows(), 5);
  EXPECT_TRUE(RowShows(4, {"Z", "A1X", "Z14012", "3000", "2", "north"}));
  EXPECT_TRUE(RowShows(1, {"Z", "A1", "Z14012", "3000", "2", "north"}));
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(Marks(), (Texts{"A1", "B1", "C1", "A1X"}));
  // Every row has the same height, as the new one has.
  EXPECT_EQ(Sections().CellRect(4, 1).height(), Sections().CellRect(1, 1).height());
}

TEST_F(OppositeHandScreen, The_cursor_stands_on_the_new_mark_and_the_new_sheet_shows) {
  ShowOne("Lopsided");
  ClickCell(Sections(), 1, 5);
  CreateOppHand();
  EXPECT_TRUE(CursorAt(2, 1, "A1X"));
  EXPECT_EQ(Editor().selectedText(), "A1X");
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_EQ(FromQt(Patterns().currentText()), "Lopsided");
}

TEST_F(OppositeHandScreen, It_sets_the_changed_flag) {
  ShowOne("Lopsided");
  EXPECT_EQ(ProjectDirty, False);
  CreateOppHand();
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OppositeHandScreen, Twice_on_a_row_gives_two_equal_marks_without_a_word_and_X_gives_XX) {
  ShowOne("Custom");
  CreateOppHand();
  // Another cell of row 1 is reached by a click: the mark that is left is no double.
  ClickCell(Sections(), 1, 1);
  CreateOppHand();
  EXPECT_EQ(Marks(), (Texts{"A1", "A1X", "A1X"}));
  // Leaving a cell that holds a double mark is refused once, making one is not.
  Retype("A2X");
  CreateOppHand();
  EXPECT_EQ(Marks(), (Texts{"A1", "A1X", "A2X", "A2XX"}));
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(OppositeHandScreen, The_holes_of_a_lopsided_pattern_stand_mirrored_until_the_next_move) {
  ShowOne("Lopsided");
  ASSERT_EQ(HolesOf(1), PatternsOrder);
  CreateOppHand();
  EXPECT_EQ(HolesOf(2), Mirrored);
  EXPECT_TRUE(NoteShown());

  // Into the next column of the same row: the rules of every move hold again.
  Press(Qt::Key_Tab);
  EXPECT_EQ(Sections().Col(), 2);
  EXPECT_EQ(HolesOf(2), PatternsOrder);
  EXPECT_FALSE(NoteShown());
  EXPECT_EQ(HolesOf(1), PatternsOrder);
}

TEST_F(OppositeHandScreen, Typing_the_new_mark_leaves_the_mirror_and_leaving_the_cell_ends_it) {
  ShowOne("Lopsided");
  CreateOppHand();
  Retype("B7");
  EXPECT_EQ(Items.At(2).Mark, "B7");
  EXPECT_EQ(HolesOf(2), Mirrored);
  EXPECT_TRUE(NoteShown());
  Press(Qt::Key_Return);
  EXPECT_EQ(HolesOf(2), PatternsOrder);
  EXPECT_FALSE(NoteShown());
}

TEST_F(OppositeHandScreen, A_mirror_left_for_another_row_is_gone_when_it_is_visited_again) {
  ShowOne("Lopsided");
  CreateOppHand();
  Press(Qt::Key_Up);
  EXPECT_EQ(Sheet().ShownRow(), 1);
  EXPECT_FALSE(NoteShown());
  // Nobody has made the holes of the row afresh yet.
  EXPECT_EQ(HolesOf(2), Mirrored);
  Press(Qt::Key_Down);
  EXPECT_EQ(HolesOf(2), PatternsOrder);
  EXPECT_FALSE(NoteShown());
}

TEST_F(OppositeHandScreen, Choosing_the_pattern_again_turns_the_holes_back) {
  ShowOne("Lopsided");
  CreateOppHand();
  Choose("cboPattern", "Lopsided");
  EXPECT_EQ(HolesOf(2), PatternsOrder);
  EXPECT_FALSE(NoteShown());
}

TEST_F(OppositeHandScreen, A_length_typed_turns_the_holes_back) {
  ShowOne("Lopsided");
  CreateOppHand();
  ClickCell(Sections(), 2, 3);
  Retype("6000");
  EXPECT_EQ(HolesOf(2), (Positions{32, 2000}));
  EXPECT_FALSE(NoteShown());
}

TEST_F(OppositeHandScreen, A_choice_of_sag_bars_turns_the_holes_back) {
  ShowOne("Lopsided");
  CreateOppHand();
  ASSERT_EQ(HolesOf(2), Mirrored);
  Click("optSagBars(0)");
  EXPECT_EQ(Items.At(2).SagBarDia, 18);
  EXPECT_EQ(HolesOf(2), PatternsOrder);
  EXPECT_FALSE(NoteShown());
}

TEST_F(OppositeHandScreen, An_export_turns_the_holes_back) {
  ShowOne("Lopsided");
  CreateOppHand();
  platform.Chosen.push_back(TempPath("job"));
  dialogs.ExpectBox("CAM export complete\n" + TempPath("job"));
  ExportCAM();
  Settle();
  EXPECT_EQ(HolesOf(2), PatternsOrder);
}

TEST_F(OppositeHandScreen, A_mirror_converted_to_custom_stays) {
  ShowOne("Lopsided");
  CreateOppHand();
  Section(ConvertEntry);
  Settle();
  EXPECT_EQ(HolesOf(2), Mirrored);
  EXPECT_EQ(Items.At(2).CustomHoleCount, 2);
  EXPECT_FALSE(NoteShown());
  Press(Qt::Key_Tab);
  EXPECT_EQ(HolesOf(2), Mirrored);
}

TEST_F(OppositeHandScreen, Custom_holes_keep_their_mirrored_places_through_every_move) {
  Item& item = Put("Z", "A1", "Z14012", 3000);
  item.PatternName = "Custom";
  for (const std::int16_t x : std::vector<std::int16_t>{100, 700, 2500}) PutHole(item, x, "C");
  Items.At(1).Holes.At(2).TF = "30";
  Items.At(1).Holes.At(3).CounterSunk = "*";
  Show();
  CreateOppHand();
  const Positions hand = {500, 2300, 2900};
  EXPECT_EQ(HolesOf(2), hand);
  EXPECT_FALSE(NoteShown());
  // The hole list shows them, the gap before the first counted from the left-hand end.
  ASSERT_TRUE(PanelShowsHoles());
  const auto& list = Find<FlexGrid>("MSFlexGrid2");
  ASSERT_EQ(list.Rows(), 4);
  EXPECT_EQ(list.TextMatrix(1, 0), "500");
  EXPECT_EQ(list.TextMatrix(1, 8), "*");
  EXPECT_EQ(list.TextMatrix(2, 0), "2300");
  EXPECT_EQ(list.TextMatrix(2, 1), "1800");
  EXPECT_EQ(list.TextMatrix(2, 5), "30");
  EXPECT_EQ(list.TextMatrix(3, 0), "2900");
  for (int column = 2; column <= 5; ++column) {
    Press(Qt::Key_Tab);
    EXPECT_EQ(HolesOf(2), hand);
  }
  EXPECT_EQ(Items.At(2).CustomHoleCount, 3);
  EXPECT_EQ(Items.At(2).Holes.At(0).XPos, 3000);
}

TEST_F(OppositeHandScreen, A_symmetric_pattern_shows_no_note) {
  ShowOne("Butt 1 Sag Bar");
  CreateOppHand();
  EXPECT_EQ(HolesOf(2), HolesOf(1));
  EXPECT_FALSE(NoteShown());
  EXPECT_TRUE(CursorAt(2, 1, "A1X"));
}

TEST_F(OppositeHandScreen, The_opposite_hand_of_a_mirror_that_stands_is_the_pattern_again) {
  ShowOne("Lopsided");
  CreateOppHand();
  ASSERT_TRUE(NoteShown());
  CreateOppHand();
  EXPECT_EQ(Items.At(3).Mark, "A1XX");
  EXPECT_EQ(HolesOf(3), PatternsOrder);
  EXPECT_FALSE(NoteShown());
}

TEST_F(OppositeHandScreen, The_note_tells_how_long_the_mirror_stands_and_how_to_keep_it) {
  const auto& note = Find<QLabel>("lblMirrored");
  EXPECT_EQ(note.text(), "Punching stands mirrored until the next move.");
  EXPECT_EQ(note.toolTip(), note.text() + "\nConvert it to custom to keep it");
  ShowOne("Lopsided");
  const QRect sheet = OnScreen("VSPrinter1");
  CreateOppHand();
  ASSERT_TRUE(note.isVisible());
  // Under the drawing, which keeps its place.
  EXPECT_EQ(OnScreen("VSPrinter1"), sheet);
  EXPECT_GT(OnScreen("lblMirrored").top(), sheet.bottom());
}

TEST_F(OppositeHandScreen, Mirrored_sections_that_are_deleted_or_replaced_take_the_note_with_them) {
  ShowOne("Lopsided");
  CreateOppHand();
  dialogs.ExpectBox("Remove mark A1X?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_FALSE(NoteShown());
  EXPECT_EQ(Items.UBound(), 1);

  BackToMain();
  CreateOppHand();
  ASSERT_TRUE(NoteShown());
  main->ClearDrawing();
  EXPECT_FALSE(NoteShown());
}

TEST_F(OppositeHandScreen, Mitres_and_notches_are_those_of_the_other_hand) {
  Item& item = Put("Z", "A1", "Z14012", 3000);
  item.PatternName = "Custom";
  item.MitreLeft = 10;
  item.MitreRight = -20;
  item.Notches.Append({"BL1", 5, 6, 7});
  Show();
  CreateOppHand();
  const Item& hand = Items.At(2);
  EXPECT_EQ(hand.MitreLeft, 20);
  EXPECT_EQ(hand.MitreRight, -10);
  ASSERT_EQ(hand.NotchCount(), 1);
  EXPECT_EQ(hand.Notches.At(1).Code, "BR1");
  EXPECT_EQ(hand.Notches.At(1).Size1, 5);
  EXPECT_EQ(hand.Notches.At(1).Size2, 6);
  EXPECT_EQ(hand.Notches.At(1).Size3, 0);
}

TEST_F(OppositeHandScreen, A_refused_cell_adds_no_row_and_leaves_its_section_alone) {
  Put("Z", "A1", "Z14012", 3000);
  Show(1, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  CreateOppHand();
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_TRUE(RowShows(1, {"Z", "A1", "Z14012", "0", "1", ""}));
  EXPECT_EQ(Sections().Row(), 1);
  EXPECT_EQ(Sections().Col(), 3);
  // Pressed again, it goes through, as leaving the cell would.
  BackToMain();
  CreateOppHand();
  EXPECT_EQ(Marks(), (Texts{"A1", "A1X"}));
  EXPECT_EQ(Items.At(1).SectionType, "Z");
  EXPECT_TRUE(CursorAt(2, 1, "A1X"));
}

TEST_F(OppositeHandScreen, An_error_shows_its_text_and_the_row_that_was_added_stays) {
  Item& item = Put("Z", "A1", "Z14012", 3000);
  item.PatternName = "Custom";
  Show();
  // A hole so far to the left of the section that the mirror leaves 16 bits.
  PutHole(Items.At(1), -32000, "C");
  dialogs.ExpectBox("Overflow");
  CreateOppHand();
  ASSERT_EQ(Items.UBound(), 2);
  EXPECT_EQ(Sections().Rows(), 3);
  EXPECT_EQ(Sections().Row(), 1);
}

}  // namespace
}  // namespace orvane::test
