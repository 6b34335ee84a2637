// The hole dialog when it adds: its parts, the sets of pictures, the keyboard, what is
// stored and what follows on list and sheet.
#include "tests/screens/hole_dialog_fixture.h"

namespace orvane::test {
namespace {

class AddHolesTest : public HoleDialogTest {};

// The way in.

TEST_F(AddHolesTest, A_standard_pattern_and_none_are_refused) {
  PutSection("Z", "Butt");
  PutSection("Z");
  const std::string refusal = "Punching pattern must be 'Custom'";
  for (const int row : {1, 2}) {
    Show(row);
    for (const char* entry : {"mnuSection(10)", "mnuSection(11)", "mnuCHPUI(0)", "mnuCHPUI(1)"}) {
      dialogs.ExpectBox(refusal);
      Entry(entry).trigger();
      Settle();
      EXPECT_EQ(HoleDialogMode, 0) << entry;
    }
  }
}

TEST_F(AddHolesTest, Without_a_section_the_entries_are_refused) {
  for (const char* entry : {"mnuSection(10)", "mnuSection(11)"}) {
    dialogs.ExpectBox("Punching pattern must be 'Custom'");
    Entry(entry).trigger();
    Settle();
  }
}

TEST_F(AddHolesTest, Every_road_opens_its_mode) {
  ShowSection("Z", {500});
  struct Road {
    std::function<void()> Open;
    std::int16_t Mode;
    const char* Title;
    const char* Label;
  };
  const char* absolute = "Add Custom Holes (Abs. X)";
  const char* relative = "Add Custom Holes (Rel. X)";
  const char* fromEnd = "Absolute X position from LH end";
  const char* fromLast = "Relative X position from last hole";
  const std::vector<Road> roads = {
      {[this] { Click("cmdHoles(0)"); }, 2, absolute, fromEnd},
      {[this] { Click("cmdHoles(1)"); }, 3, relative, fromLast},
      {[this] { Entry("mnuCHPUI(0)").trigger(); }, 2, absolute, fromEnd},
      {[this] { Entry("mnuCHPUI(1)").trigger(); }, 3, relative, fromLast},
      {[this] { Entry("mnuSection(10)").trigger(); }, 2, absolute, fromEnd},
      {[this] { Entry("mnuSection(11)").trigger(); }, 3, relative, fromLast},
  };
  for (const Road& road : roads) {
    dialogs.ExpectDialog("frmAddHoles", [&](QWidget& window) {
      EXPECT_EQ(HoleDialogMode, road.Mode);
      EXPECT_TRUE(window.isModal());
      EXPECT_EQ(FromQt(window.windowTitle()), road.Title);
      EXPECT_EQ(FromQt(Find<QLabel>(window, "lblX").text()), road.Label);
      EXPECT_EQ(FromQt(Find<QPushButton>(window, "SSCommand2(0)").text()), "&Add");
      EXPECT_EQ(FromQt(Find<QPushButton>(window, "SSCommand2(1)").text()), "&Close");
      QTest::mouseClick(&Find<QPushButton>(window, "SSCommand2(1)"), Qt::LeftButton);
      EXPECT_FALSE(window.isVisible());
    });
    road.Open();
    Settle();
    BackToMain();
  }
  EXPECT_EQ(HolesOf(1), std::vector<int>{500});
}

// The parts.

TEST_F(AddHolesTest, Captions_and_labels_stand_as_they_are_known) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    EXPECT_EQ(FromQt(Find<QGroupBox>(dialog, "fraDiameter").title()), "Hole diameter(s)");
    EXPECT_EQ(FromQt(Button(dialog, "optDia(0)").text()), "18mm");
    EXPECT_EQ(FromQt(Button(dialog, "optDia(1)").text()), "14mm");
    EXPECT_EQ(FromQt(Find<QGroupBox>(dialog, "SSPanelOffGauge").title()),
              "Single off-gauge hole details:");
    EXPECT_EQ(FromQt(Button(dialog, "SSRibbon2(0)").text()), "Web");
    EXPECT_EQ(FromQt(Button(dialog, "SSRibbon2(1)").text()), "Top flange");
    EXPECT_EQ(FromQt(Button(dialog, "SSRibbon2(2)").text()), "Bottom flange");
    EXPECT_EQ(FromQt(Sunk(dialog).text()), "Countersunk");
    EXPECT_EQ(FromQt(Button(dialog, "SSCommand1").text()), "Info");
    std::vector<std::string> labels;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
      labels.push_back(FromQt(label->text()) + ">" + FromQt(label->buddy()->objectName()));
    }
    EXPECT_EQ(labels, (std::vector<std::string>{"Absolute X position from LH end>txtXpos",
                                                "Y position >txtYPos", "Slot length >txtSlotLen"}));
  });
}

TEST_F(AddHolesTest, Each_letter_shows_its_own_set_at_one_place_with_its_first_button_selected) {
  struct Set {
    const char* Letter;
    std::vector<int> Codes;
    const char* First;
    const char* Diameter;
  };
  const std::vector<int> all = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
  const std::vector<Set> sets = {
      {"Z", all, "rbnZ(0)", "optDia(0)"},
      {"C", all, "rbnC(0)", "optDia(0)"},
      {"E", {0, 4, 6, 9, 10, 12, 13}, "rbnE(0)", "optDia(0)"},
      {"V", {0}, "rbnV(0)", "optDia(0)"},
      {"R", {3}, "rbnR(3)", "optDia(0)"},
      {"T", {0, 2, 3, 4, 5, 6}, "rbnT(0)", "optDia(1)"},
  };
  std::vector<QPoint> places;
  for (const Set& set : sets) {
    SCOPED_TRACE(set.Letter);
    ShowSection(set.Letter);
    InAbsolute([&](FrmAddHoles& dialog) {
      for (const std::string& letter : AllLetters) {
        EXPECT_EQ(Find<QWidget>(dialog, "pnl" + letter).isVisible(), letter == set.Letter);
      }
      places.push_back(Find<QWidget>(dialog, std::string("pnl") + set.Letter).pos());
      EXPECT_EQ(CodesOf(dialog, set.Letter), set.Codes);
      EXPECT_EQ(Checked(dialog, std::string("rbn") + set.Letter), set.First);
      EXPECT_EQ(Checked(dialog, "optDia"), set.Diameter);
      EXPECT_FALSE(Find<QWidget>(dialog, "SSPanelOffGauge").isVisible());
      EXPECT_EQ(Checked(dialog, "SSRibbon2"), "SSRibbon2(0)");
      EXPECT_EQ(X(dialog).text(), "");
      EXPECT_EQ(FromQt(Slot(dialog).text()), "0");
      EXPECT_FALSE(Sunk(dialog).isChecked());
      EXPECT_EQ(Focus(), "txtXpos");
    });
  }
  for (const QPoint& place : places) EXPECT_EQ(place, places.front());
}

// As a file may hold one.
TEST_F(AddHolesTest, A_letter_that_is_no_familys_shows_no_set_and_is_offered_18_mm) {
  Put("Q", "Q1", "", 3000).PatternName = "Custom";
  Show(Items.UBound());
  InAbsolute([&](FrmAddHoles& dialog) {
    for (const std::string& letter : AllLetters) {
      EXPECT_FALSE(Find<QWidget>(dialog, "pnl" + letter).isVisible()) << letter;
    }
    EXPECT_EQ(dialog.FindPattern(), -1);
    dialog.SelectPattern("Q", 0);
    EXPECT_EQ(dialog.FindPattern(), -1);
    EXPECT_EQ(Checked(dialog, "optDia"), "optDia(0)");
    Store(dialog, "100");
  });
  ASSERT_EQ(Items.At(1).Holes.UBound(), 1);
  EXPECT_EQ(LinesOf(Items.At(1).Holes.At(1)), "n|n|n|n");
}

TEST_F(AddHolesTest, Each_button_bears_its_lines_as_tip_and_accessible_name) {
  const std::vector<std::string> names = {
      "W1, W2", "BF, W1, W2, TF", "BF, TF", "TF",         "W2",         "W1",     "BF",
      "W2, TF", "W1, TF",         "BF, W2", "BF, W1, W2", "W1, W2, TF", "BF, W1", "Off Gauge"};
  for (const std::string& letter : AllLetters) {
    ShowSection(letter);
    InAbsolute([&](FrmAddHoles& dialog) {
      for (const int code : CodesOf(dialog, letter)) {
        const std::string& name = names.at(static_cast<std::size_t>(code));
        PictureRadio& button = Picture(dialog, letter, code);
        EXPECT_EQ(FromQt(button.toolTip()), name) << letter << code;
        EXPECT_EQ(FromQt(button.accessibleName()), name) << letter << code;
        // A caption on the one alone, pictures on all.
        EXPECT_EQ(FromQt(button.text()), code == 13 ? "Off Gauge" : "") << letter << code;
        EXPECT_GE(button.Picture().Outline.size(), 3U) << letter << code;
      }
    });
  }
}

TEST_F(AddHolesTest, A_picture_marks_each_line_of_its_code_where_the_sheet_has_it) {
  // Parts of a Z section: web in the middle, top flange to the right, bottom flange to the left.
  ShowSection("Z");
  const std::vector<std::string> lines = {"nyyn", "yyyy", "ynny", "nnny", "nnyn", "nynn", "ynnn",
                                          "nnyy", "nyny", "ynyn", "yyyn", "nyyy", "yynn"};
  InAbsolute([&](FrmAddHoles& dialog) {
    for (int code = 0; code < 13; ++code) {
      std::string marked = "nnnn";
      for (const QPointF& mark : Picture(dialog, "Z", code).Picture().Marks) {
        if (mark.y() == 1 && mark.x() < 0.5) marked.at(0) = 'y';
        if (mark.x() == 0.5 && mark.y() > 0.5 && mark.y() < 1) marked.at(1) = 'y';
        if (mark.x() == 0.5 && mark.y() > 0 && mark.y() < 0.5) marked.at(2) = 'y';
        if (mark.y() == 0 && mark.x() > 0.5) marked.at(3) = 'y';
      }
      EXPECT_EQ(marked, lines.at(static_cast<std::size_t>(code))) << code;
      EXPECT_TRUE(Picture(dialog, "Z", code).Picture().Rings.empty()) << code;
    }
    EXPECT_TRUE(Picture(dialog, "Z", 13).Picture().Marks.empty());
    EXPECT_EQ(Picture(dialog, "Z", 13).Picture().Rings.size(), 1U);
  });
}

TEST_F(AddHolesTest, FindPattern_gives_the_index_of_the_selected_button) {
  for (const std::string& letter : AllLetters) {
    ShowSection(letter);
    InAbsolute([&](FrmAddHoles& dialog) {
      for (const int code : CodesOf(dialog, letter)) {
        ClickOn(Picture(dialog, letter, code));
        EXPECT_EQ(dialog.FindPattern(), code) << letter;
        dialog.SelectPattern(letter, CodesOf(dialog, letter).front());
        dialog.SelectPattern(letter, code);
        EXPECT_EQ(dialog.FindPattern(), code) << letter;
        EXPECT_EQ(Find<QWidget>(dialog, "SSPanelOffGauge").isVisible(), code == 13) << letter;
      }
      // A set without such a button keeps its choice.
      const int last = dialog.FindPattern();
      dialog.SelectPattern(letter, 14);
      EXPECT_EQ(dialog.FindPattern(), last);
    });
  }
}

// The keyboard.

TEST_F(AddHolesTest, The_dialog_is_worked_by_the_keyboard_alone) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    Type("1000");
    // Enter presses Add.
    Press(Qt::Key_Return);
    EXPECT_EQ(HolesOf(1), std::vector<int>{1000});
    EXPECT_EQ(X(dialog).text(), "");
    EXPECT_EQ(Focus(), "txtXpos");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "rbnZ(0)");
    Press(Qt::Key_Right);
    EXPECT_EQ(Focus(), "rbnZ(1)");
    EXPECT_EQ(Checked(dialog, "rbnZ"), "rbnZ(1)");
    Press(Qt::Key_Down);
    EXPECT_EQ(Checked(dialog, "rbnZ"), "rbnZ(8)");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "optDia(0)");
    Press(Qt::Key_Right);
    EXPECT_EQ(Checked(dialog, "optDia"), "optDia(1)");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "txtSlotLen");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "chkCounterSunk");
    Press(Qt::Key_Space);
    EXPECT_TRUE(Sunk(dialog).isChecked());
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "SSCommand1");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "SSCommand2(0)");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "SSCommand2(1)");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "txtXpos");
    Type("2000");
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    ASSERT_EQ(HolesOf(1), (std::vector<int>{1000, 2000}));
    const Hole& hole = Items.At(1).Holes.At(2);
    EXPECT_EQ(LinesOf(hole), "n|y|n|y");
    EXPECT_EQ(hole.Diameter, 14);
    EXPECT_EQ(hole.CounterSunk, "*");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
}

TEST_F(AddHolesTest, The_details_of_a_hole_off_gauge_lie_on_Tabs_way_behind_the_pictures) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    dialog.SelectPattern("Z", 13);
    std::vector<std::string> stops;
    for (int i = 0; i < 5; ++i) {
      stops.push_back(Focus());
      Press(Qt::Key_Tab);
    }
    EXPECT_EQ(stops, (std::vector<std::string>{"txtXpos", "rbnZ(13)", "txtYPos", "SSRibbon2(0)",
                                               "optDia(0)"}));
  });
}

TEST_F(AddHolesTest, Enter_elsewhere_stores_nothing) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    X(dialog).setText("1000");
    for (const char* name : {"txtSlotLen", "optDia(0)", "chkCounterSunk"}) {
      Find<QWidget>(dialog, name).setFocus();
      Press(Qt::Key_Return);
      EXPECT_TRUE(dialog.isVisible()) << name;
      EXPECT_EQ(Items.At(1).HoleCount(), 0) << name;
    }
  });
}

TEST_F(AddHolesTest, Enter_on_a_picture_presses_Add) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles&) {
    int position = 1000;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      Type(std::to_string(position));
      Press(Qt::Key_Tab);
      Press(Qt::Key_Right);
      QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, "\r", true);
      QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
      Press(key);
      EXPECT_EQ(Focus(), "txtXpos");
      position += 500;
    }
  });
  EXPECT_EQ(HolesOf(1), (std::vector<int>{1000, 1500}));
  EXPECT_EQ(LinesOf(Items.At(1).Holes.At(1)), "y|y|y|y");  // the second picture
  EXPECT_EQ(LinesOf(Items.At(1).Holes.At(2)), "y|n|n|y");  // the third
}

TEST_F(AddHolesTest, The_Y_position_takes_digits_and_Backspace_and_Enter_goes_on) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    ClickOn(Picture(dialog, "Z", 13));
    Y(dialog).setFocus();
    Type("a1.2-,e x");
    EXPECT_EQ(FromQt(Y(dialog).text()), "12");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(FromQt(Y(dialog).text()), "1");
    Type("5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Focus(), "SSRibbon2(0)");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Items.At(1).HoleCount(), 0);
  });
}

// What is stored.

TEST_F(AddHolesTest, Each_button_stores_its_lines) {
  const std::vector<std::string> lines = {"n|y|y|n", "y|y|y|y", "y|n|n|y", "n|n|n|y", "n|n|y|n",
                                          "n|y|n|n", "y|n|n|n", "n|n|y|y", "n|y|n|y", "y|n|y|n",
                                          "y|y|y|n", "n|y|y|y", "y|y|n|n"};
  for (const std::string& letter : AllLetters) {
    SCOPED_TRACE(letter);
    ShowSection(letter);
    InAbsolute([&](FrmAddHoles& dialog) {
      int x = 100;
      for (const int code : CodesOf(dialog, letter)) {
        if (code == 13) continue;
        ClickOn(Picture(dialog, letter, code));
        Store(dialog, std::to_string(x));
        const Item& item = Items.At(Items.UBound());
        ASSERT_EQ(item.Holes.At(item.HoleCount()).XPos, x);
        EXPECT_EQ(LinesOf(item.Holes.At(item.HoleCount())),
                  lines.at(static_cast<std::size_t>(code)));
        EXPECT_EQ(item.Holes.At(item.HoleCount()).Diameter, letter == "T" ? 14 : 18);
        x += 100;
      }
    });
  }
}

TEST_F(AddHolesTest, A_hole_off_gauge_is_stored_on_the_line_of_its_button) {
  for (const std::string letter : {"Z", "C", "E"}) {
    SCOPED_TRACE(letter);
    ShowSection(letter);
    InAbsolute([&](FrmAddHoles& dialog) {
      ClickOn(Picture(dialog, letter, 13));
      Retype(Y(dialog), "60");
      Store(dialog, "500");
      ClickOn(Button(dialog, "SSRibbon2(1)"));
      Store(dialog, "600");
      ClickOn(Button(dialog, "SSRibbon2(2)"));
      Store(dialog, "700");
      const Table<Hole>& holes = Items.At(Items.UBound()).Holes;
      ASSERT_EQ(holes.UBound(), 3);
      EXPECT_EQ(LinesOf(holes.At(1)), "n|60|n|n");
      EXPECT_EQ(LinesOf(holes.At(2)), "n|n|n|60");
      EXPECT_EQ(LinesOf(holes.At(3)), "60|n|n|n");
    });
  }
}

TEST_F(AddHolesTest, Without_a_button_selected_the_hole_is_listed_and_lies_on_no_line) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    PictureRadio& first = Picture(dialog, "Z", 0);
    first.group()->setExclusive(false);
    first.setChecked(false);
    ASSERT_EQ(dialog.FindPattern(), -1);
    Store(dialog, "500");
  });
  EXPECT_EQ(LinesOf(Items.At(1).Holes.At(1)), "n|n|n|n");
  EXPECT_EQ(HoleTexts(1),
            (std::vector<std::string>{"500", "500", "n", "n", "n", "n", "18", "", ""}));
}

TEST_F(AddHolesTest, A_slot_cant_be_countersunk) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    ClickOn(Sunk(dialog));
    Store(dialog, "500");
    EXPECT_EQ(Items.At(1).Holes.At(1).CounterSunk, "*");
    Slot(dialog).setFocus();
    Slot(dialog).selectAll();
    Type("28");
    EXPECT_FALSE(Sunk(dialog).isEnabled());
    EXPECT_TRUE(Sunk(dialog).isChecked());
    Store(dialog, "600");
    EXPECT_EQ(Items.At(1).Holes.At(2).SlotLength, 28);
    EXPECT_EQ(Items.At(1).Holes.At(2).CounterSunk, "");
    // Cleared, it shows 0 at once, and what is typed next takes its place.
    Slot(dialog).setFocus();
    Slot(dialog).selectAll();
    Press(Qt::Key_Delete);
    EXPECT_EQ(FromQt(Slot(dialog).text()), "0");
    EXPECT_EQ(FromQt(Slot(dialog).selectedText()), "0");
    EXPECT_TRUE(Sunk(dialog).isEnabled());
    Type("9999");
    EXPECT_EQ(FromQt(Slot(dialog).text()), "9999");
    EXPECT_FALSE(Sunk(dialog).isEnabled());
    Store(dialog, "700");
    EXPECT_EQ(Items.At(1).Holes.At(3).SlotLength, 9999);
    Slot(dialog).setText("-5");
    EXPECT_EQ(FromQt(Slot(dialog).text()), "0");
    EXPECT_TRUE(Sunk(dialog).isEnabled());
  });
}

TEST_F(AddHolesTest, After_each_hole_the_position_alone_is_emptied) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    ClickOn(Picture(dialog, "Z", 6));
    ClickOn(Button(dialog, "optDia(1)"));
    Retype(Slot(dialog), "30");
    Store(dialog, "2000");
    EXPECT_EQ(X(dialog).text(), "");
    EXPECT_EQ(Focus(), "txtXpos");
    EXPECT_EQ(Checked(dialog, "rbnZ"), "rbnZ(6)");
    EXPECT_EQ(Checked(dialog, "optDia"), "optDia(1)");
    EXPECT_EQ(FromQt(Slot(dialog).text()), "30");
    Type("1000");
    Press(Qt::Key_Return);
  });
  EXPECT_EQ(HolesOf(1), (std::vector<int>{1000, 2000}));
  EXPECT_EQ(LinesOf(Items.At(1).Holes.At(1)), "y|n|n|n");
}

TEST_F(AddHolesTest, List_and_sheet_follow_each_hole_behind_the_dialog) {
  ShowSection("Z");
  const int draws = Sheet().DrawCount();
  InAbsolute([&](FrmAddHoles& dialog) {
    Store(dialog, "2000");
    EXPECT_EQ(ListedHoles(), std::vector<std::string>{"2000"});
    EXPECT_EQ(Sheet().DrawCount(), draws + 1);
    Store(dialog, "1000");
    EXPECT_EQ(Sheet().DrawCount(), draws + 2);
    EXPECT_EQ(HoleTexts(1),
              (std::vector<std::string>{"1000", "1000", "n", "y", "y", "n", "18", "", ""}));
    EXPECT_EQ(HoleTexts(2),
              (std::vector<std::string>{"2000", "1000", "n", "y", "y", "n", "18", "", ""}));
  });
  EXPECT_EQ(Items.At(1).HoleCount(), 2);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 2);
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(ProjectDirty, False);
}

// Faults, and what a person is told.

TEST_F(AddHolesTest, Gaps_that_fail_are_told_and_the_hole_stands) {
  Item& item = ShowSection("Z", {24});
  item.Length = 48;
  MinHoleSep = 50;
  InAbsolute([&](FrmAddHoles& dialog) {
    ClickOn(Picture(dialog, "Z", 13));
    // Three gaps: 24, 0 and 24; the 0 alone is to pay for the others.
    dialogs.ExpectBox("Z1: Division by zero");
    Store(dialog, "24");
    EXPECT_EQ(HolesOf(1), (std::vector<int>{24, 24}));
    EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"24", "24"}));
    EXPECT_EQ(X(dialog).text(), "");
  });
}

TEST_F(AddHolesTest, Info_tells_the_limits_and_the_lines) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    // A carriage return ends a line of the box.
    dialogs.ExpectBox(
        "18mm holes: at least 24 mm from each end and 19 mm from the next hole.\n"
        "14mm holes: at least 18 mm from each end and 15 mm from the next hole.\n"
        "An off-gauge hole may lie beside another hole.\n\n"
        "BF: bottom flange\nW1: lower row of the web\nW2: upper row of the web\nTF: top flange");
    ClickOn(Button(dialog, "SSCommand1"));
    EXPECT_TRUE(dialog.isVisible());
  });
  EXPECT_EQ(Items.At(1).HoleCount(), 0);
}

}  // namespace
}  // namespace orvane::test
