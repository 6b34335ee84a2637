// The hole dialog when it edits: which hole, what it shows of it, what Update stores.
#include "tests/screens/hole_dialog_fixture.h"

namespace orvane::test {
namespace {

class EditHoleTest : public HoleDialogTest {
 protected:
  // A section with one custom hole of those lines at 500.
  Hole& ShowHole(const std::string& letter, const std::vector<std::string>& lines) {
    ShowSection(letter, {500});
    Hole& hole = Items.At(Items.UBound()).Holes.At(1);
    hole.BF = lines.at(0);
    hole.W1 = lines.at(1);
    hole.W2 = lines.at(2);
    hole.TF = lines.at(3);
    return hole;
  }
};

TEST_F(EditHoleTest, The_dialog_bears_its_captions_and_the_position_stands_selected) {
  ShowSection("Z", {500});
  InEdit(1, [&](FrmAddHoles& dialog) {
    EXPECT_EQ(HoleDialogMode, 1);
    EXPECT_EQ(FromQt(dialog.windowTitle()), "Edit Custom Holes");
    EXPECT_EQ(FromQt(Find<QLabel>(dialog, "lblX").text()), "Absolute X position from LH end");
    EXPECT_EQ(FromQt(Button(dialog, "SSCommand2(0)").text()), "&Update");
    EXPECT_EQ(FromQt(Button(dialog, "SSCommand2(1)").text()), "&Cancel");
    EXPECT_EQ(Focus(), "txtXpos");
    EXPECT_EQ(FromQt(X(dialog).selectedText()), "500");
    Type("750");
    Press(Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(HolesOf(1), std::vector<int>{750});
  EXPECT_EQ(Items.At(1).HoleCount(), 1);
  EXPECT_EQ(Items.At(1).CustomHoleCount, 1);
}

TEST_F(EditHoleTest, Edit_does_nothing_without_a_hole_selected) {
  ShowSection("Z", {500});
  ASSERT_EQ(HoleList().Row(), 0);
  const std::string before = RecordText(Items.At(1));
  Entry("mnuCHPUI(2)").trigger();
  Settle();
  EXPECT_EQ(RecordText(Items.At(1)), before);
  EXPECT_EQ(HoleDialogMode, 0);
  ShowSection("Z");
  Entry("mnuCHPUI(2)").trigger();
  Settle();
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(EditHoleTest, The_hole_is_counted_among_the_custom_ones) {
  Item& item = ShowSection("Z", {500, 900});
  item.Holes.Insert(2, item.Holes.At(1));
  item.Holes.At(2).Kind = "S";
  item.Holes.At(2).XPos = 700;
  InEdit(2, [&](FrmAddHoles& dialog) {
    EXPECT_EQ(FromQt(X(dialog).text()), "900");
    Store(dialog, "300");
  });
  EXPECT_EQ(HolesOf(1), (std::vector<int>{300, 500, 700}));
  EXPECT_EQ(Items.At(1).Holes.At(3).Kind, "S");
  EXPECT_EQ(Items.At(1).Holes.At(1).Kind, "C");
}

TEST_F(EditHoleTest, Each_combination_selects_its_button) {
  const std::vector<std::vector<std::string>> lines = {
      {"n", "y", "y", "n"}, {"y", "y", "y", "y"}, {"y", "n", "n", "y"}, {"n", "n", "n", "y"},
      {"n", "n", "y", "n"}, {"n", "y", "n", "n"}, {"y", "n", "n", "n"}, {"n", "n", "y", "y"},
      {"n", "y", "n", "y"}, {"y", "n", "y", "n"}, {"y", "y", "y", "n"}, {"n", "y", "y", "y"},
      {"y", "y", "n", "n"}};
  for (const std::string letter : {"Z", "C"}) {
    for (int code = 0; code < 13; ++code) {
      ShowHole(letter, lines.at(static_cast<std::size_t>(code)));
      InEdit(1, [&](FrmAddHoles& dialog) {
        EXPECT_EQ(Checked(dialog, "rbn" + letter),
                  "rbn" + letter + "(" + std::to_string(code) + ")");
        EXPECT_FALSE(Find<QWidget>(dialog, "SSPanelOffGauge").isVisible());
      });
    }
  }
}

TEST_F(EditHoleTest, Tab_comes_to_what_the_hole_has_and_the_arrows_choose_from_there) {
  Hole& hole = ShowHole("Z", {"y", "n", "n", "n"});
  hole.Diameter = 14;
  InEdit(1, [&](FrmAddHoles& dialog) {
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "rbnZ(6)");
    Press(Qt::Key_Left);
    EXPECT_EQ(Checked(dialog, "rbnZ"), "rbnZ(5)");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "optDia(1)");
    Press(Qt::Key_Left);
    EXPECT_EQ(Checked(dialog, "optDia"), "optDia(0)");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focus(), "rbnZ(5)");
  });
}

TEST_F(EditHoleTest, Where_no_picture_is_chosen_Tab_comes_to_the_first_and_the_blank_chooses_it) {
  ShowHole("E", {"n", "n", "n", "y"});
  InEdit(1, [&](FrmAddHoles& dialog) {
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "rbnE(0)");
    EXPECT_EQ(dialog.FindPattern(), -1);
    Press(Qt::Key_Space);
    EXPECT_EQ(dialog.FindPattern(), 0);
  });
}

TEST_F(EditHoleTest, A_hole_off_gauge_shows_its_panel_its_line_and_its_distance) {
  struct Row {
    std::vector<std::string> Lines;
    const char* Ribbon;
    const char* Distance;
  };
  const std::vector<Row> rows = {{{"n", "60", "n", "n"}, "SSRibbon2(0)", "60"},
                                 {{"n", "n", "n", "30"}, "SSRibbon2(1)", "30"},
                                 {{"25", "n", "n", "n"}, "SSRibbon2(2)", "25"}};
  for (const std::string letter : {"Z", "C", "E"}) {
    for (const Row& row : rows) {
      Hole& hole = ShowHole(letter, row.Lines);
      const std::string before = LinesOf(hole);
      InEdit(1, [&](FrmAddHoles& dialog) {
        EXPECT_EQ(dialog.FindPattern(), 13);
        EXPECT_TRUE(Find<QWidget>(dialog, "SSPanelOffGauge").isVisible());
        EXPECT_EQ(Checked(dialog, "SSRibbon2"), row.Ribbon);
        EXPECT_EQ(FromQt(Y(dialog).text()), row.Distance);
        Store(dialog, "600");
      });
      EXPECT_EQ(LinesOf(Items.At(Items.UBound()).Holes.At(1)), before);
      EXPECT_EQ(HolesOf(Items.UBound()), std::vector<int>{600});
    }
  }
}

TEST_F(EditHoleTest, Diameter_slot_and_countersink_show_as_stored) {
  struct Row {
    float Diameter, SlotLength;
    const char* CounterSunk;
    const char* Option;
    const char* SlotText;
    bool Ticked, Enabled;
  };
  const std::vector<Row> rows = {
      {14, 0, "*", "optDia(1)", "0", true, true},
      {18, 28.5F, "", "optDia(0)", "28.5", false, false},
      {0, 0, " ", "optDia(0)", "0", false, true},
      {14.5F, 30, "*", "optDia(0)", "30", true, false},
  };
  for (const Row& row : rows) {
    Hole& hole = ShowHole("Z", {"n", "y", "y", "n"});
    hole.Diameter = row.Diameter;
    hole.SlotLength = row.SlotLength;
    hole.CounterSunk = row.CounterSunk;
    InEdit(1, [&](FrmAddHoles& dialog) {
      EXPECT_EQ(Checked(dialog, "optDia"), row.Option);
      EXPECT_EQ(FromQt(Slot(dialog).text()), row.SlotText);
      EXPECT_EQ(Sunk(dialog).isChecked(), row.Ticked);
      EXPECT_EQ(Sunk(dialog).isEnabled(), row.Enabled);
    });
  }
}

TEST_F(EditHoleTest, Update_stores_every_field) {
  ShowHole("Z", {"n", "y", "y", "n"});
  const int draws = Sheet().DrawCount();
  InEdit(1, [&](FrmAddHoles& dialog) {
    ClickOn(Picture(dialog, "Z", 2));
    ClickOn(Button(dialog, "optDia(1)"));
    ClickOn(Sunk(dialog));
    Store(dialog, "620");
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(HoleTexts(1),
            (std::vector<std::string>{"620", "620", "y", "n", "n", "y", "14", "", "*"}));
  EXPECT_EQ(Sheet().DrawCount(), draws + 1);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
}

TEST_F(EditHoleTest, A_hole_may_be_put_on_another) {
  ShowSection("Z", {500, 900});
  InEdit(1, [&](FrmAddHoles& dialog) { Store(dialog, "900"); });
  EXPECT_EQ(HolesOf(1), (std::vector<int>{900, 900}));
}

TEST_F(EditHoleTest, The_ends_hold_here_too_by_the_rounded_value) {
  ShowSection("Z", {500});
  InEdit(1, [&](FrmAddHoles& dialog) {
    StoreRefused(dialog, "23.4");
    StoreRefused(dialog, "2977");
    StoreRefused(dialog, "40000");
    Store(dialog, "23.6");
  });
  EXPECT_EQ(HolesOf(1), std::vector<int>{24});
}

TEST_F(EditHoleTest, Cancel_Escape_and_the_windows_button_store_nothing) {
  ShowSection("Z", {500});
  const std::string before = RecordText(Items.At(1));
  const std::vector<std::function<void(FrmAddHoles&)>> ways = {
      [](FrmAddHoles& dialog) { ClickOn(Button(dialog, "SSCommand2(1)")); },
      [](FrmAddHoles& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
      [](FrmAddHoles& dialog) { dialog.close(); },
  };
  for (const auto& leave : ways) {
    InEdit(1, [&](FrmAddHoles& dialog) {
      Retype(X(dialog), "700");
      ClickOn(Picture(dialog, "Z", 1));
      ClickOn(Button(dialog, "optDia(1)"));
      Retype(Slot(dialog), "30");
      leave(dialog);
      EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(RecordText(Items.At(1)), before);
  }
}

TEST_F(EditHoleTest, A_hole_that_no_button_shows_keeps_its_lines_when_it_is_moved) {
  // An eaves beam has no button for the top flange.
  ShowHole("E", {"n", "n", "n", "y"});
  InEdit(1, [&](FrmAddHoles& dialog) {
    EXPECT_EQ(dialog.FindPattern(), -1);
    Store(dialog, "600");
  });
  EXPECT_EQ(LinesOf(Items.At(1).Holes.At(1)), "n|n|n|y");
  EXPECT_EQ(HolesOf(1), std::vector<int>{600});
  InEdit(1, [&](FrmAddHoles& dialog) {
    ClickOn(Picture(dialog, "E", 6));
    Store(dialog, "600");
  });
  EXPECT_EQ(LinesOf(Items.At(1).Holes.At(1)), "y|n|n|n");
}

TEST_F(EditHoleTest, A_hole_off_gauge_on_a_family_without_that_button_keeps_its_lines) {
  ShowHole("T", {"n", "40", "n", "n"});
  InEdit(1, [&](FrmAddHoles& dialog) {
    EXPECT_EQ(dialog.FindPattern(), -1);
    EXPECT_FALSE(Find<QWidget>(dialog, "SSPanelOffGauge").isVisible());
    Store(dialog, "600");
  });
  EXPECT_EQ(LinesOf(Items.At(1).Holes.At(1)), "n|40|n|n");
}

TEST_F(EditHoleTest, Shift_F10_on_the_list_leads_to_Edit_by_the_keyboard) {
  ShowSection("Z", {500, 900});
  HoleList().setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  Press(Qt::Key_F10, Qt::ShiftModifier);
  auto& popup = Find<QMenu>("mnuCHPU");
  ASSERT_TRUE(popup.isVisible());
  dialogs.ExpectDialog("frmAddHoles", [&](QWidget& window) {
    EXPECT_EQ(FromQt(Find<QLineEdit>(window, "txtXpos").text()), "900");
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  for (int entry = 0; entry < 3; ++entry) QTest::keyClick(&popup, Qt::Key_Down);
  QTest::keyClick(&popup, Qt::Key_Return);
  Settle();
}

TEST_F(EditHoleTest, Enter_on_the_list_edits_the_marked_hole_and_leads_back_to_it) {
  ShowSection("Z", {500, 900, 1300});
  HoleList().setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
    InDialog([&] { Press(enter, enter == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier); },
             [&](FrmAddHoles& dialog) {
               EXPECT_EQ(HoleDialogMode, 1);
               EXPECT_EQ(FromQt(X(dialog).text()), "900");
               QTest::keyClick(&dialog, Qt::Key_Escape);
             });
    EXPECT_EQ(Focus(), "MSFlexGrid2");
    EXPECT_EQ(HoleList().Row(), 2);
  }
}

TEST_F(EditHoleTest, Enter_does_nothing_held_down_or_without_a_hole) {
  ShowSection("Z", {500});
  HoleList().setFocus(Qt::TabFocusReason);
  QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QCoreApplication::sendEvent(&HoleList(), &again);
  Press(Qt::Key_Delete);
  ASSERT_EQ(Items.At(1).HoleCount(), 0);
  Press(Qt::Key_Return);
  Settle();
  EXPECT_EQ(HoleDialogMode, 0);
}

TEST_F(EditHoleTest, A_double_click_edits_the_hole_under_it) {
  ShowSection("Z", {500, 900, 1300});
  const auto doubleClick = [this](Qt::MouseButton button, QPoint place) {
    QWidget* view = HoleList().viewport();
    QTest::mouseClick(view, button, Qt::NoModifier, place);
    QTest::mouseDClick(view, button, Qt::NoModifier, place);
  };
  InDialog([&] { doubleClick(Qt::LeftButton, HoleList().CellRect(3, 4).center()); },
           [&](FrmAddHoles& dialog) {
             EXPECT_EQ(FromQt(X(dialog).text()), "1300");
             Store(dialog, "700");
           });
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"500", "700", "900"}));
  EXPECT_EQ(HoleList().Row(), 2);
  // The cursor stays with the section.
  EXPECT_EQ(Focus(), "txtEdit");
  doubleClick(Qt::LeftButton, QPoint(5, HoleList().CellRect(3, 0).bottom() + 5));
  Settle();
  EXPECT_EQ(HoleList().Row(), 0);
}

// The mark.

TEST_F(EditHoleTest, The_mark_goes_with_the_hole_that_an_edit_moves) {
  ShowSection("Z", {500, 900, 1300});
  HoleList().setFocus(Qt::TabFocusReason);
  InDialog([this] { Press(Qt::Key_Return); }, [&](FrmAddHoles& dialog) { Store(dialog, "1600"); });
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"900", "1300", "1600"}));
  EXPECT_EQ(HoleList().Row(), 3);
  EXPECT_EQ(HoleList().Model().GreyRow(), 3);
  // So the next key acts on it, and on no other.
  InDialog([this] { Press(Qt::Key_Return); }, [&](FrmAddHoles& dialog) { Store(dialog, "100"); });
  EXPECT_EQ(HoleList().Row(), 1);
  Press(Qt::Key_Delete);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{900, 1300}));
}

TEST_F(EditHoleTest, The_mark_stays_on_its_hole_when_others_come_before_it) {
  ShowSection("Z", {500, 900, 1300});
  ClickCell(HoleList(), 2, 0);
  InAbsolute([&](FrmAddHoles& dialog) {
    Store(dialog, "300");
    EXPECT_EQ(HoleList().Row(), 3);
    Store(dialog, "1600");
    EXPECT_EQ(HoleList().Row(), 3);
    Store(dialog, "700");
    EXPECT_EQ(HoleList().Row(), 4);
  });
  EXPECT_EQ(HoleTexts(4).front(), "900");
  EXPECT_EQ(HoleList().Model().GreyRow(), 4);
  // Without a mark there is none afterwards.
  HoleList().SpacePressed(Qt::LeftButton);
  InAbsolute([&](FrmAddHoles& dialog) { Store(dialog, "100"); });
  EXPECT_EQ(HoleList().Row(), 0);
}

TEST_F(EditHoleTest, A_marked_hole_that_an_edit_takes_far_down_is_in_sight) {
  std::vector<std::int16_t> positions;
  for (int x = 100; x <= 2800; x += 100) positions.push_back(Int16(x));
  ShowSection("Z", positions);
  ClickCell(HoleList(), 1, 0);
  InDialog([this] { Entry("mnuCHPUI(2)").trigger(); },
           [&](FrmAddHoles& dialog) { Store(dialog, "2900"); });
  EXPECT_EQ(HoleList().Row(), 28);
  EXPECT_TRUE(HoleList().viewport()->rect().contains(HoleList().CellRect(28, 0)));
}

TEST_F(EditHoleTest, The_mark_goes_with_a_hole_whose_gaps_failed) {
  // Every gap is too short but that of 0 between two holes, which can't pay for the others.
  ShowSection("Z", {200, 250, 250}).Length = 400;
  MinHoleSep = 50;
  ClickCell(HoleList(), 1, 0);
  InDialog([this] { Entry("mnuCHPUI(2)").trigger(); },
           [&](FrmAddHoles& dialog) {
             dialogs.ExpectBox("Z1: Division by zero");
             Store(dialog, "300");
           });
  EXPECT_EQ(ListedHoles(), (std::vector<std::string>{"250", "250", "300"}));
  EXPECT_EQ(HoleList().Row(), 3);
}

}  // namespace
}  // namespace orvane::test
