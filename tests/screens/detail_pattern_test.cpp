// The pattern of a section: choosing it, its sag bars, the question about custom holes, converting
// it to custom holes.
#include "tests/screens/detail_fixture.h"

namespace orvane::test {
namespace {

using DetailPatternTest = DetailTest;

const std::string Question = "Selecting a standard pattern will remove custom holes, continue?";

// Choosing.

TEST_F(DetailPatternTest, A_chosen_pattern_is_stored_punched_and_drawn_in_the_current_row_alone) {
  PutSection("Z");
  PutSection("Z");
  PutSection("Z");
  Show(2);
  const int draws = Sheet().DrawCount();
  Choose("cboPattern", "Butt");
  // A0 and A6 with the pair's spacing of 60 on 3000 mm.
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 92, 2908, 2968}));
  EXPECT_EQ(Items.At(2).PatternName, "Butt");
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_EQ(ProjectDirty, True);
  for (const int other : {1, 3}) {
    EXPECT_EQ(Items.At(other).PatternName, "");
    EXPECT_EQ(HolesOf(other), std::vector<int>{});
  }
}

TEST_F(DetailPatternTest, Holes_of_a_pattern_come_sorted_with_their_gaps) {
  // The codes of the channel's pattern stand in the order A0 C3 A6; here they are turned round.
  PunchPatterns.Append({"Z", "Turned", "A6 C3 A0", False, False});
  PutSection("Z");
  Show();
  Choose("cboPattern", "Turned");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 92, 1465, 1535, 2908, 2968}));
  EXPECT_EQ(Items.At(1).Holes.At(3).RelX, 1465 - 92);
  EXPECT_EQ(Items.At(1).Holes.At(0).RelX, 3000 - 2968);
}

TEST_F(DetailPatternTest, Letters_typed_before_the_focus_came_back_are_no_part_of_the_search) {
  PutSection("Z");
  Show();
  auto& patterns = Find<QComboBox>("cboPattern");
  patterns.setFocus();
  QTest::keyClicks(&patterns, "cust");
  Sections().setFocus();
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  patterns.setFocus();
  QTest::keyClicks(&patterns, "butt s");
  Press(Qt::Key_Return);
  EXPECT_EQ(Items.At(1).PatternName, "Butt Single Holes");
}

TEST_F(DetailPatternTest, The_name_is_stored_without_its_outer_blanks) {
  PunchPatterns.Append({"Z", "  Spaced out ", "B0 B6", False, False});
  PutSection("Z");
  Show();
  Choose("cboPattern", "  Spaced out ");
  EXPECT_EQ(Items.At(1).PatternName, "Spaced out");
}

TEST_F(DetailPatternTest, Custom_over_a_standard_pattern_drops_its_holes_without_asking) {
  PutSection("Z", "Butt");
  Show();
  ASSERT_EQ(Items.At(1).HoleCount(), 4);
  Choose("cboPattern", "Custom");
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(HoleList().Rows(), 1);
  EXPECT_TRUE(Shown("SSpanelCustom"));
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(DetailPatternTest, Custom_over_a_standard_pattern_keeps_the_custom_holes) {
  Item& item = PutSection("Z", "Butt");
  PutHole(item, 700, "C");
  Show();
  ASSERT_EQ(HolesOf(1), (std::vector<int>{32, 92, 700, 2908, 2968}));
  Choose("cboPattern", "Custom");
  EXPECT_EQ(HolesOf(1), std::vector<int>{700});
  EXPECT_EQ(HoleTexts(1),
            (std::vector<std::string>{"700", "700", "n", "y", "y", "n", "18", "", ""}));
}

TEST_F(DetailPatternTest, Custom_without_holes_changes_to_a_pattern_without_asking) {
  PutSection("Z");
  Show();
  Choose("cboPattern", "Custom");
  ASSERT_EQ(Items.At(1).PatternName, "Custom");
  Choose("cboPattern", "Butt");
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_EQ(Items.At(1).HoleCount(), 4);
  EXPECT_FALSE(Shown("SSpanelCustom"));
}

TEST_F(DetailPatternTest, The_arrow_keys_on_the_closed_list_choose_too) {
  PutSection("Z", "Butt");
  Show();
  Pattern().setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Up);
  EXPECT_EQ(Items.At(1).PatternName, "Butt Single Holes");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 2968}));
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(DetailPatternTest, Choosing_the_same_entry_again_is_no_change_and_no_question) {
  PutCustom({500});
  PutSection("Z", " Butt ");
  Show(1);
  Choose("cboPattern", "Custom");
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(HolesOf(1), std::vector<int>{500});
  ClickCell(Sections(), 2, 1);
  Choose("cboPattern", "Butt");
  EXPECT_EQ(ProjectDirty, False);
}

// The question.

TEST_F(DetailPatternTest, Yes_removes_the_custom_holes_and_goes_on) {
  PutCustom({500, 900});
  Show();
  ASSERT_EQ(ListedHoles(), (std::vector<std::string>{"500", "900"}));
  dialogs.ExpectBox(Question, "Punching Pattern", QMessageBox::Yes);
  Choose("cboPattern", "Butt");
  Settle();
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 92, 2908, 2968}));
  for (const Hole& hole : Items.At(1).Holes) EXPECT_EQ(hole.Kind, "S");
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_EQ(HoleList().Rows(), 1);
  EXPECT_FALSE(Shown("SSpanelCustom"));
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(dialogs.Boxes().size(), 1U);
}

class DetailAnswerTest : public DetailTest, public ::testing::WithParamInterface<Qt::Key> {};

// The key that answers the box: No's own, the default of Return, Escape.
TEST_P(DetailAnswerTest, Any_answer_but_Yes_leaves_everything_as_it_was) {
  PutCustom({500, 900});
  Show();
  Items.At(1).SagBarDia = 18;
  const std::string before = RecordText(Items.At(1));
  const int draws = Sheet().DrawCount();
  dialogs.ExpectDialog("MessageBox", [](QWidget& window) {
    auto& box = dynamic_cast<QMessageBox&>(window);
    EXPECT_EQ(FromQt(box.text()), Question);
    EXPECT_EQ(box.windowTitle(), "Punching Pattern");
    EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
    if (GetParam() == Qt::Key_N) {
      QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
    } else {
      QTest::keyClick(&box, GetParam());
    }
  });
  Choose("cboPattern", "Butt");
  Settle();
  EXPECT_EQ(Pattern().currentIndex(), 0);
  EXPECT_EQ(RecordText(Items.At(1)), before);
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"500", "900"}));
  EXPECT_TRUE(Shown("SSpanelCustom"));
  EXPECT_FALSE(Shown("fraSagBars"));
  EXPECT_EQ(Sheet().DrawCount(), draws);
  // The list's text was edited for a moment.
  EXPECT_EQ(ProjectDirty, True);
}

INSTANTIATE_TEST_SUITE_P(AllKeys, DetailAnswerTest,
                         ::testing::Values(Qt::Key_N, Qt::Key_Return, Qt::Key_Escape));

TEST_F(DetailPatternTest, The_question_comes_again_after_a_No) {
  PutCustom({500});
  Show();
  dialogs.ExpectBox(Question, "Punching Pattern", QMessageBox::No);
  Choose("cboPattern", "Butt");
  Settle();
  dialogs.ExpectBox(Question, "Punching Pattern", QMessageBox::Yes);
  Choose("cboPattern", "Butt");
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
}

// Sag bars.

TEST_F(DetailPatternTest, A_sag_bar_pattern_on_a_fresh_row_begins_with_14) {
  PutSection("Z");
  Show();
  Choose("cboPattern", "Butt 1 Sag Bar");
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  EXPECT_EQ(ShownOption(), "Threaded (14mm)");
  // A0, D3, A6: the sag bar's hole in the middle of 3000 mm.
  EXPECT_EQ(SizesOf(1),
            (std::vector<HoleSize>{{32, 18}, {92, 18}, {1500, 14}, {2908, 18}, {2968, 18}}));
}

TEST_F(DetailPatternTest, A_sag_bar_pattern_keeps_18) {
  PutSection("Z", "Butt 1 Sag Bar", 18);
  Show();
  Choose("cboPattern", "Butt 2 Sag Bars");
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(ShownOption(), "Spring Fix (18mm)");
}

TEST_F(DetailPatternTest, A_pattern_without_sag_bars_and_Custom_set_none) {
  for (const char* pattern : {"Butt", "Custom"}) {
    Items.Clear();
    PutSection("Z", "Butt 1 Sag Bar", 18);
    Show();
    ASSERT_TRUE(Shown("fraSagBars"));
    Choose("cboPattern", pattern);
    EXPECT_EQ(Items.At(1).SagBarDia, 0) << pattern;
    EXPECT_FALSE(Shown("fraSagBars")) << pattern;
  }
}

TEST_F(DetailPatternTest, The_first_pattern_of_the_name_decides_whichever_letter_it_has) {
  PunchPatterns.Insert(1, {"Z", "Joist", "B0", True, False});
  PutSection("C");
  Show();
  Choose("cboPattern", "Joist");
  EXPECT_EQ(ShownOption(), "Threaded (14mm)");
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  // The holes are those of its own letter's pattern, B0 and B6.
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 2968}));
}

TEST_F(DetailPatternTest,
       A_top_hat_can_get_sag_bars_by_the_name_of_its_pattern_and_keeps_showing_them) {
  PunchPatterns.Insert(1, {"Z", "Top Hat Ends", "B0", True, False});
  PutSection("T");
  PutSection("T");
  Show();
  Choose("cboPattern", "Top Hat Ends");
  EXPECT_EQ(ShownOption(), "Threaded (14mm)");
  ClickCell(Sections(), 2, 1);
  EXPECT_EQ(ShownOption(), "");
  ClickCell(Sections(), 1, 1);
  EXPECT_EQ(ShownOption(), "Threaded (14mm)");
}

TEST_F(DetailPatternTest, Without_any_pattern_loaded_Custom_leaves_the_sag_bars) {
  PunchPatterns.Clear();
  PutSection("Z", "", 18);
  Show();
  ASSERT_EQ(Pattern().count(), 1);
  Choose("cboPattern", "Custom");
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(ShownOption(), "Spring Fix (18mm)");
}

TEST_F(DetailPatternTest, An_option_changes_the_sag_bar_holes_alone_and_not_the_flag) {
  PutSection("Z", "Butt 1 Sag Bar", 14);
  Show();
  const int draws = Sheet().DrawCount();
  QTest::mouseClick(&SagBarOption(0), Qt::LeftButton);
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(SizesOf(1),
            (std::vector<HoleSize>{{32, 18}, {92, 18}, {1500, 18}, {2908, 18}, {2968, 18}}));
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
  QTest::mouseClick(&SagBarOption(1), Qt::LeftButton);
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  EXPECT_EQ(SizesOf(1),
            (std::vector<HoleSize>{{32, 18}, {92, 18}, {1500, 14}, {2908, 18}, {2968, 18}}));
  EXPECT_EQ(Sheet().DrawCount(), draws + 2);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPatternTest, The_arrow_keys_choose_an_option_too) {
  PutSection("Z", "Butt 1 Sag Bar", 18);
  Show();
  SagBarOption(0).setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  EXPECT_EQ(Items.At(1).SagBarDia, 14);
  EXPECT_EQ(ShownOption(), "Threaded (14mm)");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPatternTest, Showing_another_diameter_isnt_choosing_it) {
  PutSection("Z", "Butt 1 Sag Bar", 18);
  PutSection("Z", "Butt 1 Sag Bar", 14);
  Show();
  for (const int row : {2, 1, 2}) ClickCell(Sections(), row, 1);
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(Items.At(2).SagBarDia, 14);
}

// No choice.

TEST_F(DetailPatternTest, The_handler_without_a_selection_empties_the_pattern_and_nothing_else) {
  PutSection("Z", "Butt 1 Sag Bar", 18);
  Show();
  const std::vector<int> holes = HolesOf(1);
  const int draws = Sheet().DrawCount();
  Pattern().SelectQuietly(-1);
  EXPECT_EQ(Items.At(1).PatternName, "Butt 1 Sag Bar");
  emit Pattern().activated(-1);
  EXPECT_EQ(Items.At(1).PatternName, "");
  EXPECT_EQ(Items.At(1).SagBarDia, 0);
  EXPECT_EQ(HolesOf(1), holes);
  EXPECT_EQ(Sheet().DrawCount(), draws);
}

// Errors.

// A hole at the left-hand end and a least separation longer than the rest of the section: the only
// gap that could pay for widening that one is 0.
constexpr std::int16_t ShortLength = 400;
constexpr double WideSeparation = 50;

TEST_F(DetailPatternTest, An_error_of_a_choice_is_shown_and_the_next_step_goes_on) {
  Item& item = PutSection("Z", "Butt 1 Sag Bar", 18);
  item.Length = ShortLength;
  PutHole(item, 0, "C");
  Show();
  MinHoleSep = WideSeparation;
  const int draws = Sheet().DrawCount();
  dialogs.ExpectBox("Z1: Division by zero");
  Choose("cboPattern", "Custom");
  Settle();
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(Items.At(1).SagBarDia, 0);
  EXPECT_EQ(ListedHoles(), std::vector<std::string>{"0"});
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
}

TEST_F(DetailPatternTest, An_error_of_a_sag_bar_choice_is_shown_and_the_next_step_goes_on) {
  Item& item = PutSection("Z", "", 14);
  item.Length = ShortLength;
  PutHole(item, 0, "C");
  Show();
  MinHoleSep = WideSeparation;
  const int draws = Sheet().DrawCount();
  dialogs.ExpectBox("Z1: Division by zero");
  QTest::mouseClick(&SagBarOption(0), Qt::LeftButton);
  Settle();
  EXPECT_EQ(Items.At(1).SagBarDia, 18);
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
}

// Converting.

constexpr int ConvertEntry = 12;

TEST_F(DetailPatternTest, Converting_makes_all_holes_custom_as_they_stand) {
  PutSection("Z", "Butt 1 Sag Bar", 18);
  Show();
  const std::vector<HoleSize> sizes = SizesOf(1);
  const int draws = Sheet().DrawCount();
  Section(ConvertEntry);
  EXPECT_EQ(SizesOf(1), sizes);
  EXPECT_EQ(sizes.size(), 5U);
  for (const Hole& hole : Items.At(1).Holes) {
    EXPECT_EQ(hole.Kind, "C");
    EXPECT_EQ(hole.CounterSunk, " ");
  }
  EXPECT_EQ(Items.At(1).CustomHoleCount, 5);
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(Items.At(1).SagBarDia, 0);
  EXPECT_EQ(Pattern().currentIndex(), 0);
  EXPECT_EQ(ShownParts(), "SSPanelPunching SSpanelCustom");
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"32", "92", "1500", "2908", "2968"}));
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(DetailPatternTest, Converting_a_section_without_holes_still_makes_it_custom) {
  PutSection("Z");
  Show();
  Section(ConvertEntry);
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
  EXPECT_EQ(Pattern().currentIndex(), 0);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(DetailPatternTest, Converting_stores_the_name_where_Custom_is_selected_already) {
  PutCustom({500});
  Show();
  ASSERT_EQ(Pattern().currentIndex(), 0);
  Items.At(1).PatternName = "Something else";
  Section(ConvertEntry);
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
}

TEST_F(DetailPatternTest, Converting_without_a_section_does_nothing) {
  Section(ConvertEntry);
  EXPECT_EQ(RecordText(Items.At(0)), RecordText(Item{}));
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(ShownParts(), "");
}

// Adding holes.

TEST_F(DetailPatternTest, Holes_can_be_added_to_Custom_alone) {
  const std::string refusal = "Punching pattern must be 'Custom'";
  for (const int entry : {10, 11}) {
    dialogs.ExpectBox(refusal);
    Section(entry);
    Settle();
  }
  PutSection("Z", "Butt");
  Show();
  for (const int entry : {10, 11}) {
    dialogs.ExpectBox(refusal);
    Section(entry);
    Settle();
  }
  EXPECT_EQ(dialogs.Boxes().size(), 4U);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 92, 2908, 2968}));
  EXPECT_EQ(ProjectDirty, False);
}

}  // namespace
}  // namespace orvane::test
