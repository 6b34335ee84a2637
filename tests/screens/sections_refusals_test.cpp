#include "tests/screens/sections_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {
namespace {

class SectionsRefusals : public SectionsTest {
 protected:
  // Row 2 is the one that is edited.
  void PutFour() {
    Items.Clear();
    Put("Z", "A1", "Z14012", 6000, 1);
    Put("Z", "B1", "Z14012", 6100, 2);
    Put("Z", "C1", "Z14012", 6200, 3);
    Put("V", "D1", "VCR", 2000, 4);
  }
  // Leaves the cell by Tab and foresees nothing: it may be left.
  void TabIsAllowed(int row, int column) {
    Press(Qt::Key_Tab);
    Settle();
    EXPECT_EQ(Sections().Row(), row);
    EXPECT_EQ(Sections().Col(), column);
  }
};

// What is refused.
struct Refusal {
  std::string Name;
  int Column;
  std::string Text;
  std::string Message;
};

const Refusal Refusals[] = {
    {"duplicate mark", 1, "A1", "Error - Duplicate Mark"},
    {"no length", 3, "0", "Invalid length"},
    {"length too great", 3, "15001", "Length exceeds maximum for section (15000)"},
};

// How a cell of row 2 is left, and where the cursor then stands when nothing is refused; a column
// of 0 is the column that it was in.
struct Way {
  std::string Name;
  std::function<void(SectionsRefusals&)> Leave;
  int Row;
  int Column;
};

class SectionsRefusalsByWay : public SectionsRefusals {
 protected:
  std::vector<Way> Ways(int column) {
    std::vector<Way> ways = {
        {"Tab", [this](auto&) { Press(Qt::Key_Tab); }, 2, column + 1},
        {"Return", [this](auto&) { Press(Qt::Key_Return); }, 2, column + 1},
        {"Enter", [this](auto&) { Press(Qt::Key_Enter, Qt::KeypadModifier); }, 2, column + 1},
        {"Up", [this](auto&) { Press(Qt::Key_Up); }, 1, column},
        {"Down", [this](auto&) { Press(Qt::Key_Down); }, 3, column},
        {"click in the row", [this](auto&) { ClickCell(Sections(), 2, 5); }, 2, 5},
        {"click in another row", [this](auto&) { ClickCell(Sections(), 3, 4); }, 3, 4},
        {"click on a product", [this](auto&) { ClickCell(Sections(), 1, 2); }, 1, 2},
        {"click on a rail's product", [this](auto&) { ClickCell(Sections(), 4, 2); }, 4, 1},
        {"click on a letter", [this](auto&) { ClickCell(Sections(), 1, 0); }, 1, 1},
    };
    if (column > 1) {
      ways.push_back({"Shift+Tab", [this](auto&) { Press(Qt::Key_Backtab, Qt::ShiftModifier); }, 2,
                      column - 1});
    }
    return ways;
  }
};

TEST_F(SectionsRefusalsByWay, Every_way_is_refused_once_and_passes_at_the_second_try) {
  for (const Refusal& refusal : Refusals) {
    SCOPED_TRACE(refusal.Name);
    for (const Way& way : Ways(refusal.Column)) {
      SCOPED_TRACE(way.Name);
      PutFour();
      Show(2, refusal.Column);
      Retype(refusal.Text);
      ASSERT_TRUE(CursorAt(2, refusal.Column, refusal.Text));

      const std::size_t told = dialogs.Boxes().size();
      ExpectRefusal(refusal.Message);
      way.Leave(*this);
      Settle();
      EXPECT_EQ(dialogs.Boxes().size(), told + 1);
      EXPECT_TRUE(CursorAt(2, refusal.Column, refusal.Text));
      EXPECT_EQ(FromQt(Editor().selectedText()), refusal.Text);
      EXPECT_EQ(refusal.Column == 1 ? Items.At(2).Mark : std::to_string(Items.At(2).Length),
                refusal.Text);

      way.Leave(*this);
      Settle();
      EXPECT_EQ(dialogs.Boxes().size(), told + 1);
      EXPECT_TRUE(CursorAt(way.Row, way.Column, Cell(way.Row, way.Column)));
      EXPECT_TRUE(GridShowsItems());
    }
  }
}

TEST_F(SectionsRefusals, Another_control_is_refused_once_and_reached_at_the_second_try) {
  for (const Refusal& refusal : Refusals) {
    SCOPED_TRACE(refusal.Name);
    PutFour();
    Show(2, refusal.Column);
    Retype(refusal.Text);
    ExpectRefusal(refusal.Message);
    QTest::mouseClick(Find<QListWidget>("lstAccessories").viewport(), Qt::LeftButton);
    Settle();
    EXPECT_TRUE(CursorAt(2, refusal.Column, refusal.Text));
    QTest::mouseClick(Find<QListWidget>("lstAccessories").viewport(), Qt::LeftButton);
    Settle();
    EXPECT_EQ(Focus(), "lstAccessories");
    // Back in the grid the work goes on.
    ClickCell(Sections(), 3, 4);
    EXPECT_TRUE(CursorAt(3, 4, "3"));
  }
}

TEST_F(SectionsRefusals, A_combo_box_that_was_clicked_closes_its_list_for_the_refusal) {
  PutFour();
  Show(2, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  QTest::mouseClick(&Patterns(), Qt::LeftButton);
  Settle();
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_TRUE(CursorAt(2, 3, "0"));
  EXPECT_EQ(Items.At(2).PatternName, "");
  Retype("6000");
  Choose("cboPattern", "Butt");
  Settle();
  EXPECT_EQ(Items.At(2).PatternName, "Butt");
}

TEST_F(SectionsRefusals, Adding_and_duplicating_settle_the_cell_first_and_add_no_row_when_refused) {
  struct Adding {
    std::string Name;
    std::function<void()> Press;
    std::string Letter;
    std::string Mark;
  };
  for (const Refusal& refusal : Refusals) {
    SCOPED_TRACE(refusal.Name);
    const std::string mark = refusal.Column == 1 ? "A1" : "B1";
    for (const Adding& adding :
         std::vector<Adding>{{"button", [this] { Click("SSCommand1(9)"); }, "V", ""},
                             {"menu", [this] { Section(1); }, "E", ""},
                             {"duplicate", [this] { Section(DuplicateEntry); }, "Z", mark + "A"}}) {
      SCOPED_TRACE(adding.Name);
      PutFour();
      Show(2, refusal.Column);
      Retype(refusal.Text);
      ExpectRefusal(refusal.Message);
      adding.Press();
      Settle();
      EXPECT_EQ(Items.UBound(), 4);
      EXPECT_EQ(Sections().Rows(), 5);
      EXPECT_TRUE(CursorAt(2, refusal.Column, refusal.Text));

      adding.Press();
      Settle();
      ASSERT_EQ(Items.UBound(), 5);
      EXPECT_EQ(Items.At(5).SectionType, adding.Letter);
      EXPECT_TRUE(CursorAt(5, 1, adding.Mark));
      // The row that was left is as it was.
      EXPECT_EQ(Items.At(2).SectionType, "Z");
      EXPECT_EQ(Items.At(2).Product, "Z14012");
      EXPECT_EQ(Items.At(2).Mark, mark);
      EXPECT_TRUE(GridShowsItems());
    }
  }
}

TEST_F(SectionsRefusals, A_text_change_makes_the_next_leaving_count_again) {
  PutFour();
  Show(2, 3);
  Retype("0");
  for (int time = 0; time < 3; ++time) {
    ExpectRefusal("Invalid length");
    Press(Qt::Key_Down);
    Settle();
    ASSERT_TRUE(CursorAt(2, 3, "0"));
    Press(Qt::Key_End);
    Type("0");
    Press(Qt::Key_Backspace);
  }
  Retype("500");
  Press(Qt::Key_Down);
  Settle();
  EXPECT_TRUE(CursorAt(3, 3, "6200"));
}

TEST_F(SectionsRefusals, A_dropped_character_is_no_text_change) {
  PutFour();
  Show(2, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Tab);
  Settle();
  Type("x");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(2, 4, "2"));
}

TEST_F(SectionsRefusals, The_next_cell_is_validated_although_its_text_is_the_same) {
  PutFour();
  Show(2, 3);
  Press(Qt::Key_Delete);
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Up);
  Settle();
  Press(Qt::Key_Up);
  Settle();
  ASSERT_TRUE(CursorAt(1, 3, "6000"));
  Press(Qt::Key_Delete);
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Down);
  Settle();
  EXPECT_TRUE(CursorAt(1, 3, ""));
  Press(Qt::Key_Down);
  Settle();
  ASSERT_TRUE(CursorAt(2, 3, ""));
  // Untouched this time: still no length.
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Down);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, ""));
}

TEST_F(SectionsRefusals, A_length_may_equal_the_maximum_of_its_family_and_no_more) {
  for (int family = 1; family <= 6; ++family) MaxDims.At(family) = 1000.0 * family;
  const std::string letters = "ZECVRT";
  for (int family = 1; family <= 6; ++family) {
    Items.Clear();
    const std::string letter(1, letters.at(static_cast<std::size_t>(family) - 1));
    SCOPED_TRACE(letter);
    Put(letter, "A1", "", 500);
    Show(1, 3);
    const std::string most = std::to_string(family) + "000";
    Retype(std::to_string(family) + "001");
    ExpectRefusal("Length exceeds maximum for section (" + most + ")");
    Press(Qt::Key_Tab);
    Settle();
    EXPECT_TRUE(CursorAt(1, 3, std::to_string(family) + "001"));
    Retype(most);
    TabIsAllowed(1, 4);
    EXPECT_EQ(Items.At(1).Length, family * 1000);
  }
}

TEST_F(SectionsRefusals, The_shipped_maximum_lengths_hold) {
  const std::vector<std::pair<std::string, int>> shipped = {
      {"Z", 15000}, {"E", 15000}, {"C", 15000}, {"V", 3050}, {"R", 3050}, {"T", 4000}};
  for (const auto& [letter, most] : shipped) {
    SCOPED_TRACE(letter);
    Items.Clear();
    Put(letter, "A1", "", 500);
    Show(1, 3);
    Retype(std::to_string(most + 1));
    ExpectRefusal("Length exceeds maximum for section (" + std::to_string(most) + ")");
    Press(Qt::Key_Down, Qt::NoModifier);
    Press(Qt::Key_Tab);
    Settle();
    Retype(std::to_string(most));
    TabIsAllowed(1, 4);
  }
}

TEST_F(SectionsRefusals, A_maximum_with_a_fraction_is_told_rounded_half_up) {
  MaxDims.At(1) = 3050.5;
  Put("Z", "A1", "Z14012", 500);
  Show(1, 3);
  Retype("3051");
  ExpectRefusal("Length exceeds maximum for section (3051)");
  Press(Qt::Key_Tab);
  Settle();
  Retype("3050");
  TabIsAllowed(1, 4);
}

TEST_F(SectionsRefusals, A_length_is_judged_by_the_text_of_the_editor) {
  PutFour();
  Show(2, 3);
  Retype("015001");
  ExpectRefusal("Length exceeds maximum for section (15000)");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "015001"));
  Retype("015000");
  TabIsAllowed(2, 4);
  EXPECT_EQ(Items.At(2).Length, 15000);
}

TEST_F(SectionsRefusals, Marks_are_compared_trimmed_and_exactly) {
  struct Pair {
    std::string Stored;
    std::string Typed;
    bool Duplicate;
  };
  for (const Pair& pair : std::vector<Pair>{{"A1", "A1", true},
                                            {"A1", " A1", true},
                                            {"A1", "A1  ", true},
                                            {" A1 ", "A1", true},
                                            {"A1 ", " A1", true},
                                            {"A1", "a1", false},
                                            {"A1", "A 1", false},
                                            {"A1", "A", false},
                                            {"", "", false},
                                            {"  ", "  ", false},
                                            {"", "   ", false},
                                            {"\tA1", "A1", false},
                                            {"\xC2\xA0"
                                             "A1",
                                             "A1", false}}) {
    SCOPED_TRACE("stored \"" + pair.Stored + "\", typed \"" + pair.Typed + "\"");
    for (const int other : {1, 3}) {
      PutFour();
      Items.At(1).Mark = "X1";
      Items.At(other).Mark = pair.Stored;
      Show(2, 1);
      Press(Qt::Key_Delete);  // of the whole text, which is selected
      Paste(pair.Typed);
      if (pair.Duplicate) ExpectRefusal("Error - Duplicate Mark");
      Press(Qt::Key_Tab);
      Settle();
      EXPECT_EQ(Sections().Col(), pair.Duplicate ? 1 : 2);
      EXPECT_EQ(Items.At(2).Mark, pair.Typed);
    }
  }
}

TEST_F(SectionsRefusals, A_mark_is_no_duplicate_of_itself) {
  PutFour();
  Show(2, 1);
  Retype("B1");
  TabIsAllowed(2, 2);
}

TEST_F(SectionsRefusals, An_untouched_duplicate_is_refused_as_well) {
  PutFour();
  Items.At(3).Mark = "A1";
  Show(3, 1);
  ExpectRefusal("Error - Duplicate Mark");
  Press(Qt::Key_Up);
  Settle();
  EXPECT_TRUE(CursorAt(3, 1, "A1"));
}

TEST_F(SectionsRefusals, Product_quantity_and_notes_are_left_whatever_they_hold) {
  Put("Z", "A1", "", 6000, -7);
  Show(1, 2);
  TabIsAllowed(1, 3);
  TabIsAllowed(1, 4);
  TabIsAllowed(1, 5);
  Press(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_TRUE(CursorAt(1, 4, "-7"));
}

TEST_F(SectionsRefusals, Opening_a_menu_or_another_window_is_no_leaving) {
  PutFour();
  Show(2, 3);
  Retype("0");
  const auto menus = MenusOpenedBy(
      [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::AltModifier); });
  EXPECT_EQ(menus.size(), 1U);
  // The first Escape closed the menu, this one leaves the menu bar.
  Press(Qt::Key_Escape);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));

  QWidget other;
  other.setWindowTitle("Another program");
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other, Patience));
  RunQueued();
  EXPECT_EQ(FromQt(Editor().text()), "0");
  main->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(main.get(), Patience));
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Up);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
}

TEST_F(SectionsRefusals, A_press_that_was_refused_doesnt_drag_the_cursor_along) {
  PutFour();
  Show(2, 3);
  Retype("0");
  QWidget* viewport = Sections().viewport();
  ExpectRefusal("Invalid length");
  QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, Sections().CellRect(3, 4).center());
  Settle();
  // The release went to the box.
  for (const int row : {1, 4}) QTest::mouseMove(viewport, Sections().CellRect(row, 4).center());
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
  QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, Sections().CellRect(4, 4).center());
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
}

TEST_F(SectionsRefusals, Keys_typed_ahead_of_the_refusal_stay_in_the_refused_cell) {
  PutFour();
  Show(2, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Tab);
  // The cursor is back before the box shows.
  EXPECT_EQ(Sections().Row(), 2);
  EXPECT_EQ(Sections().Col(), 3);
  Settle();
  Type("5");
  EXPECT_TRUE(CursorAt(2, 3, "5"));
  TabIsAllowed(2, 4);
}

TEST_F(SectionsRefusals, A_refusal_is_a_plain_box) {
  PutFour();
  Show(2, 3);
  Retype("0");
  dialogs.ExpectDialog("MessageBox", [](QWidget& window) {
    auto& box = dynamic_cast<QMessageBox&>(window);
    EXPECT_EQ(FromQt(box.text()), "Invalid length");
    EXPECT_EQ(FromQt(box.windowTitle()), "Orvane Detailing System");
    EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(2, 3, "0"));
}

TEST_F(SectionsRefusals, A_refusal_never_comes_over_a_dialog_that_was_opened_before_its_box) {
  Put("Z", "A1", "Z14012", 6000);
  Put("Z", "A2", "Z14012", 6000);
  Show(1, 3);
  Retype("0");
  // The keys come faster than the box.
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::Cancel);
  Press(Qt::Key_Tab);
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  BackToMain();
  EXPECT_TRUE(CursorAt(1, 3, "0"));
  // It was never told, so leaving the cell is refused again.
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Tab);
  Settle();

  Retype("00");
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
  ExpectDetails();
  Press(Qt::Key_Tab);
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  EXPECT_TRUE(Items.Empty());
  BackToMain();

  Put("Z", "A1", "Z14012", 0);
  Show(1, 3);
  ExpectDetails();
  Press(Qt::Key_Tab);
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  EXPECT_TRUE(Items.Empty());
}

}  // namespace
}  // namespace orvane::test
