// The detail panel: what shows for which section, pitch and jointing pieces, and that looking at a
// section changes nothing.
#include <QHelpEvent>
#include <QMouseEvent>
#include <QSplitter>
#include <QToolTip>
#include <QWheelEvent>

#include "tests/screens/detail_fixture.h"

namespace orvane::test {
namespace {

using DetailPanelTest = DetailTest;

const std::string Always = "SSPanelPunching";

// What shows.

struct PanelRow {
  std::string Letter;
  std::string Pattern;
  std::int16_t SagBarDia;
  std::string Parts;
};

TEST_F(DetailPanelTest, Each_letter_shows_its_parts) {
  const std::vector<PanelRow> rows = {
      {"Z", "", 0, Always},
      {"Z", "", 14, Always + " fraSagBars"},
      {"C", "", 0, Always},
      {"C", "", 18, Always + " fraSagBars"},
      {"E", "", 0, Always + " lblPitch cboPitch"},
      {"R", "", 0, Always + " lblJointing txtJointing"},
      {"V", "", 0, Always},
      {"T", "", 0, Always},
      // A diameter that a pattern has left shows for any letter.
      {"T", "", 14, Always + " fraSagBars"},
      {"V", "", 18, Always + " fraSagBars"},
      {"E", "", 18, Always + " fraSagBars lblPitch cboPitch"},
      {"R", "", 14, Always + " fraSagBars lblJointing txtJointing"},
      // The hole list shows with "Custom" alone, which knows no sag bars.
      {"Z", "Custom", 0, Always + " SSpanelCustom"},
      {"E", "Custom", 0, Always + " SSpanelCustom lblPitch cboPitch"},
      {"R", "Custom", 0, Always + " SSpanelCustom lblJointing txtJointing"},
      {"Z", "Butt", 0, Always},
      {"Z", "Butt 1 Sag Bar", 14, Always + " fraSagBars"},
  };
  for (const PanelRow& row : rows) PutSection(row.Letter, row.Pattern, row.SagBarDia);
  Show();
  for (int at = 1; at <= Items.UBound(); ++at) {
    ClickCell(Sections(), at, 5);
    const PanelRow& row = rows.at(static_cast<std::size_t>(at) - 1);
    EXPECT_EQ(ShownParts(), row.Parts)
        << row.Letter << " with \"" << row.Pattern << "\" and " << row.SagBarDia;
  }
}

TEST_F(DetailPanelTest, Captions_are_as_they_stand) {
  EXPECT_EQ(Find<QGroupBox>("fraSagBars").title(), "Sag bars");
  EXPECT_EQ(SagBarOption(0).text(), "Spring Fix (18mm)");
  EXPECT_EQ(SagBarOption(1).text(), "Threaded (14mm)");
  EXPECT_EQ(Find<QLabel>("lblPitch").text(), "Pitch");
  EXPECT_EQ(Find<QLabel>("lblJointing").text(), "No. off jointing pieces");
  EXPECT_EQ(Find<QAbstractButton>("cmdHoles(0)").text(), "Holes (&Absolute X)");
  EXPECT_EQ(Find<QAbstractButton>("cmdHoles(1)").text(), "Holes (&Relative X)");
  std::vector<std::string> texts;
  for (const QLabel* label : Find("SSpanelCustom").findChildren<QLabel*>()) {
    texts.push_back(FromQt(label->text()));
  }
  EXPECT_EQ(texts, std::vector<std::string>{" Custom hole positions:"});
}

TEST_F(DetailPanelTest, The_panels_parts_hold_what_belongs_to_them) {
  EXPECT_TRUE(Find("SSPanelPunching").isAncestorOf(&Pattern()));
  EXPECT_TRUE(Find("SSpanelCustom").isAncestorOf(&HoleList()));
  EXPECT_TRUE(Find("SSpanelCustom").isAncestorOf(&Find("cmdHoles(0)")));
  EXPECT_TRUE(Find("SSpanelCustom").isAncestorOf(&Find("cmdHoles(1)")));
  EXPECT_TRUE(Find("fraSagBars").isAncestorOf(&SagBarOption(0)));
  EXPECT_TRUE(Find("fraSagBars").isAncestorOf(&SagBarOption(1)));
}

TEST_F(DetailPanelTest, The_panel_lies_under_the_sections_grid) {
  PutSection("Z", "Custom");
  Show();
  const QRect grid = OnScreen("MSFlexGrid1");
  EXPECT_GE(OnScreen("SSPanelPunching").top(), grid.bottom());
  EXPECT_GE(OnScreen("SSpanelCustom").top(), grid.bottom());
}

TEST_F(DetailPanelTest, Pitches_are_offered_in_their_order) {
  const Table<std::string> entries = Pitch().Entries();
  EXPECT_EQ(std::vector<std::string>(entries.begin(), entries.end()),
            (std::vector<std::string>{"0", "5", "10", "15", "22.5", "30"}));
}

TEST_F(DetailPanelTest, Patterns_are_Custom_and_those_of_the_letter_in_the_files_order) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> lists = {
      {"E",
       {"Custom", "Eaves Beam", "Eaves Beam 1 Sag Bar", "Eaves Beam 2 Sag Bars",
        "Eaves Beam Flange Fixed", "Eaves Beam Soffit Thirds", "Eaves Beam Csk"}},
      {"C",
       {"Custom", "Joist", "Joist Web Pairs", "Joist 1 Tie", "Joist 2 Ties", "Joist 3 Ties",
        "Joist Csk", "Edge Beam 1 Trimmer", "Edge Beam 2 Trimmers", "Edge Beam 3 Trimmers",
        "Edge Beam 5 Trimmers", "Edge Beam 2 Bays", "Channel 1 Sag Bar", "Channel 2 Sag Bar Pairs",
        "Channel Sleeved"}},
      {"V", {"Custom", "VCR Cleats", "VCR Cleats and Middle", "VCR Cleats Csk"}},
      {"R", {"Custom", "Cleader Slotted", "Cleader 1 Fixing", "Cleader 3 Fixings", "Cleader Csk"}},
      {"T", {"Custom", "Top Hat Ends", "Top Hat Ends Csk"}},
  };
  for (const auto& [letter, names] : lists) PutSection(letter);
  Show();
  for (int at = 1; at <= Items.UBound(); ++at) {
    ClickCell(Sections(), at, 1);
    const Table<std::string> entries = Pattern().Entries();
    EXPECT_EQ(std::vector<std::string>(entries.begin(), entries.end()),
              lists.at(static_cast<std::size_t>(at) - 1).second);
  }
}

TEST_F(DetailPanelTest, A_row_shows_the_pattern_that_equals_its_own_blanks_apart) {
  struct Shown {
    std::string Pattern;
    int Index;
    std::string Text;
  };
  // The names of Z in the file: "Butt Single Holes", "Butt", ...
  const std::vector<Shown> rows = {
      {"Butt", 2, "Butt"},     {"  Butt Single Holes ", 1, "Butt Single Holes"},
      {"Custom", 0, "Custom"}, {"No such pattern", -1, ""},
      {"butt", -1, ""},        {"", -1, ""},
      {"Joist", -1, ""},  // of another letter
  };
  for (const Shown& row : rows) PutSection("Z", row.Pattern);
  Show();
  for (int at = 1; at <= Items.UBound(); ++at) {
    const Shown& row = rows.at(static_cast<std::size_t>(at) - 1);
    ClickCell(Sections(), at, 5);
    EXPECT_EQ(Pattern().currentIndex(), row.Index) << row.Pattern;
    EXPECT_EQ(Pattern().Text(), row.Text);
    EXPECT_EQ(Items.At(at).PatternName, row.Pattern);
  }
}

TEST_F(DetailPanelTest, Stored_diameters_select_their_option_and_any_other_becomes_14) {
  const std::vector<std::string> patterns = {"Butt 1 Sag Bar", ""};
  for (const std::string& pattern : patterns) {
    for (const std::int16_t stored : std::vector<std::int16_t>{18, 14, 16, 1}) {
      SCOPED_TRACE(pattern + " " + std::to_string(stored));
      Items.Clear();
      PutSection("Z", pattern, stored);
      Show();
      EXPECT_EQ(ShownOption(), stored == 18 ? "Spring Fix (18mm)" : "Threaded (14mm)");
      EXPECT_EQ(Items.At(1).SagBarDia, stored == 18 ? 18 : 14);
    }
  }
  Items.Clear();
  PutSection("Z", "", 0);
  Show();
  EXPECT_FALSE(Shown("fraSagBars"));
  EXPECT_EQ(Items.At(1).SagBarDia, 0);
}

TEST_F(DetailPanelTest, Going_from_row_to_row_leaves_nothing_of_the_row_before) {
  PutSection("E", "Custom");
  PutSection("R", "Cleader Slotted");
  PutSection("Z", "Butt 1 Sag Bar", 18);
  PutSection("C", "Custom");
  PutSection("V");
  Show();
  EXPECT_EQ(ShownParts(), Always + " SSpanelCustom lblPitch cboPitch");
  Press(Qt::Key_Down);
  EXPECT_EQ(ShownParts(), Always + " lblJointing txtJointing");
  Press(Qt::Key_Down);
  EXPECT_EQ(ShownParts(), Always + " fraSagBars");
  Press(Qt::Key_Down);
  EXPECT_EQ(ShownParts(), Always + " SSpanelCustom");
  Press(Qt::Key_Down);
  EXPECT_EQ(ShownParts(), Always);
}

TEST_F(DetailPanelTest, No_part_moves_when_another_comes_or_goes) {
  PutSection("E", "Custom");
  PutSection("R", "Custom");
  PutSection("Z", "Butt 1 Sag Bar", 18);
  PutSection("E", "Eaves Beam 1 Sag Bar", 18);
  PutSection("Z", "Custom");
  Show();
  const QRect pattern = OnScreen("cboPattern");
  const QRect pitch = OnScreen("cboPitch");
  const QRect holes = OnScreen("MSFlexGrid2");
  const QRect grid = OnScreen("MSFlexGrid1");
  const QRect list = OnScreen("lstAccessories");
  ClickCell(Sections(), 3, 1);
  const QRect sagBars = OnScreen("fraSagBars");
  for (int row = 1; row <= 5; ++row) {
    ClickCell(Sections(), row, 1);
    Settle();
    EXPECT_EQ(OnScreen("cboPattern"), pattern) << row;
    EXPECT_EQ(OnScreen("MSFlexGrid1"), grid) << row;
    EXPECT_EQ(OnScreen("lstAccessories"), list) << row;
    EXPECT_EQ(OnScreen("cboPitch"), pitch) << row;
    EXPECT_EQ(OnScreen("MSFlexGrid2"), holes) << row;
    EXPECT_EQ(OnScreen("fraSagBars"), sagBars) << row;
  }
}

// Without a section.

TEST_F(DetailPanelTest, Nothing_of_the_panel_shows_without_a_section) {
  EXPECT_EQ(ShownParts(), "");
  PutSection("R", "Custom").JointingPieces = 3;
  Show();
  ASSERT_EQ(ShownParts(), Always + " SSpanelCustom lblJointing txtJointing");
  dialogs.ExpectBox("Remove mark R1?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(ShownParts(), "");
  EXPECT_EQ(Pattern().currentIndex(), -1);
  EXPECT_EQ(Jointing().text(), "");
}

TEST_F(DetailPanelTest, A_new_project_shows_nothing_of_the_old_one) {
  PutCustom({500});
  Show();
  ExpectDetails([this] { EXPECT_EQ(ShownParts(), ""); });
  main->Run(Command::New);
  Settle();
  EXPECT_EQ(ShownParts(), "");
  EXPECT_EQ(Pattern().currentIndex(), -1);
  EXPECT_EQ(HoleList().Rows(), 1);
}

TEST_F(DetailPanelTest, Choices_without_a_section_do_nothing) {
  for (const char* name : {"cboPattern", "cboPitch"}) {
    emit Find<PlainCombo>(name).activated(0);
  }
  emit Jointing().textEdited("7");
  SagBarOption(0).click();
  EXPECT_EQ(RecordText(Items.At(0)), RecordText(Item{}));
  EXPECT_EQ(Sheet().DrawCount(), 0);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_TRUE(dialogs.Boxes().empty());
}

// Looking changes nothing.

TEST_F(DetailPanelTest, Showing_a_row_never_changes_its_choices_or_the_flag) {
  for (const std::string& letter : AllLetters) {
    Item& item = PutSection(letter, "No longer in the catalogue");
    item.Pitch = "7";
    item.JointingPieces = 4;
  }
  PutSection("E", "Eaves Beam").Pitch = "22.5";
  PutSection("R", "Cleader Slotted").JointingPieces = 2;
  const Table<Item> before = Items;
  Show();
  for (int row = Items.UBound(); row >= 1; --row) ClickCell(Sections(), row, 1);
  for (int row = 1; row <= Items.UBound(); ++row) {
    EXPECT_EQ(Items.At(row).PatternName, before.At(row).PatternName) << row;
    EXPECT_EQ(Items.At(row).Pitch, before.At(row).Pitch) << row;
    EXPECT_EQ(Items.At(row).JointingPieces, before.At(row).JointingPieces) << row;
  }
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPanelTest, A_new_section_has_no_pattern_and_leaves_the_row_before_alone) {
  Item& item = PutSection("E", "Eaves Beam 1 Sag Bar", 18);
  item.Pitch = "15";
  PutSection("R", "Custom").JointingPieces = 3;
  Show(1);
  const std::string first = RecordText(Items.At(1));
  const std::string second = RecordText(Items.At(2));
  Add("Z");
  EXPECT_EQ(Pattern().currentIndex(), -1);
  EXPECT_EQ(Items.At(3).PatternName, "");
  EXPECT_EQ(ShownParts(), Always);
  EXPECT_EQ(RecordText(Items.At(1)), first);
  EXPECT_EQ(RecordText(Items.At(2)), second);
}

TEST_F(DetailPanelTest, ClearDetailPanel_empties_the_controls_and_not_the_record) {
  Item& item = PutSection("R", "Custom");
  item.JointingPieces = 6;
  PutHole(item, 500, "C");
  PutHole(item, 900, "C");
  Show();
  ASSERT_EQ(Jointing().text(), "6");
  Pitch().SelectQuietly(2);
  const std::string before = RecordText(Items.At(1));
  main->ClearDetailPanel();
  EXPECT_EQ(Pattern().currentIndex(), -1);
  EXPECT_EQ(Pitch().currentIndex(), -1);
  EXPECT_EQ(HoleList().Rows(), 1);
  EXPECT_EQ(Jointing().text(), "");
  EXPECT_FALSE(Shown("SSpanelCustom"));
  EXPECT_EQ(RecordText(Items.At(1)), before);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPanelTest, A_row_of_E_shows_its_pitch_and_one_of_R_its_jointing_pieces) {
  PutSection("E").Pitch = "22.5";
  PutSection("E").Pitch = " 5 ";
  PutSection("E").Pitch = "7";
  PutSection("R").JointingPieces = 12;
  PutSection("R");
  Show();
  EXPECT_EQ(Pitch().Text(), "22.5");
  Press(Qt::Key_Down);
  EXPECT_EQ(Pitch().Text(), "5");
  Press(Qt::Key_Down);
  EXPECT_EQ(Pitch().currentIndex(), -1);
  EXPECT_EQ(Items.At(3).Pitch, "7");
  Press(Qt::Key_Down);
  EXPECT_EQ(Jointing().text(), "12");
  Press(Qt::Key_Down);
  EXPECT_EQ(Jointing().text(), "0");
}

TEST_F(DetailPanelTest, After_a_sort_the_panel_shows_the_section_that_now_stands_in_the_row) {
  Item& last = PutSection("E");
  last.Mark = "B";
  last.Pitch = "30";
  Item& first = PutSection("E", "Eaves Beam");
  first.Mark = "A";
  first.Pitch = "10";
  Show(1);
  ASSERT_EQ(Pitch().Text(), "30");
  Section(SortByMarkEntry);
  Settle();
  EXPECT_EQ(Pitch().Text(), "10");
  EXPECT_EQ(Pattern().Text(), "Eaves Beam");
}

// Pitch and jointing pieces.

TEST_F(DetailPanelTest, Choosing_a_pitch_stores_and_redraws_and_leaves_holes_and_flag) {
  PutSection("E", "Eaves Beam");
  PutSection("E", "Eaves Beam").Pitch = "5";
  Show(1);
  const std::vector<int> holes = HolesOf(1);
  const int draws = Sheet().DrawCount();
  Choose("cboPitch", "22.5");
  EXPECT_EQ(Items.At(1).Pitch, "22.5");
  EXPECT_EQ(Items.At(2).Pitch, "5");
  EXPECT_EQ(HolesOf(1), holes);
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPanelTest, Jointing_pieces_take_the_number_prefix_halves_to_the_even_neighbour) {
  struct Typing {
    std::string Text;
    std::int16_t Pieces;
  };
  PutSection("R", "Cleader Slotted").JointingPieces = 9;
  Show();
  const std::vector<int> holes = HolesOf(1);
  for (const Typing& typing : std::vector<Typing>{
           {"2.5", 2}, {"3.5", 4}, {"abc", 0}, {"7 off", 7}, {"-2", -2}, {"32767", 32767}}) {
    Click("txtJointing");
    Press(Qt::Key_A, Qt::ControlModifier);
    Type(typing.Text);
    EXPECT_EQ(Items.At(1).JointingPieces, typing.Pieces) << typing.Text;
    EXPECT_EQ(Jointing().text(), ToQt(typing.Text));
  }
  EXPECT_EQ(HolesOf(1), holes);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPanelTest, Emptied_jointing_pieces_are_none_and_each_key_redraws) {
  PutSection("R").JointingPieces = 25;
  Show();
  const int draws = Sheet().DrawCount();
  Click("txtJointing");
  Press(Qt::Key_End);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Items.At(1).JointingPieces, 2);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Items.At(1).JointingPieces, 0);
  EXPECT_EQ(Sheet().DrawCount(), draws + 2);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPanelTest, Jointing_pieces_beyond_16_bits_tell_Overflow_and_keep_the_value) {
  PutSection("R");
  Show();
  Click("txtJointing");
  Press(Qt::Key_A, Qt::ControlModifier);
  Type("3276");
  EXPECT_EQ(Items.At(1).JointingPieces, 3276);
  dialogs.ExpectBox("Overflow");
  Type("8");
  Settle();
  EXPECT_EQ(Items.At(1).JointingPieces, 3276);
  EXPECT_EQ(dialogs.Boxes(), std::vector<std::string>{"Overflow"});
}

// The focus.

TEST_F(DetailPanelTest, A_part_that_goes_with_the_focus_in_it_doesnt_hand_it_to_the_accessories) {
  PutSection("E").Pitch = "5";
  PutSection("R");
  Show();
  Pitch().setFocus(Qt::MouseFocusReason);
  ASSERT_EQ(Focus(), "cboPitch");
  ClickCell(Sections(), 2, 1);
  Settle();
  EXPECT_TRUE(CursorAt(2, 1, "R2"));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPanelTest, The_focus_of_the_sag_bars_goes_to_the_pattern_when_they_go) {
  PutSection("Z", "Butt 1 Sag Bar", 18);
  Show();
  QTest::mouseClick(&SagBarOption(1), Qt::LeftButton);
  ASSERT_EQ(Focus(), "optSagBars(1)");
  Section(12);  // convert to custom
  EXPECT_FALSE(Shown("fraSagBars"));
  EXPECT_EQ(Focus(), "cboPattern");
}

TEST_F(DetailPanelTest, The_wheel_over_a_closed_list_chooses_nothing) {
  PutSection("E", "Eaves Beam").Pitch = "10";
  Show();
  const std::string before = RecordText(Items.At(1));
  for (PlainCombo* list : {&Pattern(), &Pitch()}) {
    const QPoint place = list->rect().center();
    QWheelEvent wheel(place, list->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(list, &wheel);
  }
  EXPECT_EQ(Pattern().Text(), "Eaves Beam");
  EXPECT_EQ(Pitch().Text(), "10");
  EXPECT_EQ(RecordText(Items.At(1)), before);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(DetailPanelTest, Tab_comes_to_the_sag_bars_that_the_section_has) {
  PutSection("Z", "Butt 1 Sag Bar", 14);
  PutSection("Z", "Butt 1 Sag Bar", 18);
  for (const int row : {1, 2, 1}) {
    Show(row);
    Pattern().setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), row == 1 ? "optSagBars(1)" : "optSagBars(0)");
  }
}

TEST_F(DetailPanelTest, A_pattern_whose_name_is_cut_off_is_told_whole_to_a_resting_mouse) {
  // An office may name its patterns as it likes.
  const std::string name = "Sleeved both ends, holes for two rows of sag bars, staggered";
  PunchPattern pattern = PunchPatterns.At(1);
  pattern.SectionType = "Z";
  pattern.Name = name;
  PunchPatterns.Append(pattern);
  PutSection("Z", name, 14);
  PutSection("Z", "Butt");
  const auto told = [this] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->inherits("QTipLabel")) window->hide();
    }
    const QPoint place = Pattern().rect().center();
    QHelpEvent rest(QEvent::ToolTip, place, Pattern().mapToGlobal(place));
    QCoreApplication::sendEvent(&Pattern(), &rest);
    return QToolTip::isVisible() ? FromQt(QToolTip::text()) : "";
  };
  Show(1);
  main->resize(main->minimumSizeHint());
  Find<QSplitter>("SSSplitter1").setSizes({1, 2000});
  Settle();
  EXPECT_EQ(told(), "<span>" + name + "</span>");
  Show(2);
  EXPECT_EQ(told(), "");
}

}  // namespace
}  // namespace orvane::test
