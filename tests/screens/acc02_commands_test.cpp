// The commands of the table of a type 2 accessory: adding, deleting, clearing, OK, Cancel.
#include <QMenu>
#include <QMenuBar>

#include "tests/screens/acc02_fixture.h"

namespace orvane::test {
namespace {

class Acc02CommandsTest : public Acc02Test {
 protected:
  void PutThree() {
    PutLine(PurlinSleeves, "A1", 1, {"Z14012", "600"});
    PutLine(PurlinSleeves, "A2", 2, {"Z17012", "610"});
    PutLine(PurlinSleeves, "A3", 3, {"Z20012", "620"});
  }
  const std::vector<Texts> Three = {
      {"A1", "1", "Z14012", "600"}, {"A2", "2", "Z17012", "610"}, {"A3", "3", "Z20012", "620"}};
  const Texts Blank = {"", "", "", ""};

  // One accessory's lines, a neighbour of it in the catalogue on both sides.
  void PutNeighbours() {
    PutLine(SplicePlates, "S1", 7, {"Z14012", "2.0", "300"});
    AccLine1 line;
    line.AccIndex = 5;
    line.ParamIndex = 1;
    line.Qty = 3;
    AccLines1.Append(line);
  }
  void ExpectNeighbours() {
    EXPECT_EQ(Stored(SplicePlates), (std::vector<Texts>{{"S1", "7", "Z14012", "2.0", "300"}}));
    EXPECT_EQ(AccUsed.At(SplicePlates), True);
    EXPECT_EQ(AccLines1.UBound(), 1);
  }
};

// Add.

TEST_F(Acc02CommandsTest, Add_gives_an_empty_line_at_the_bottom_and_edits_its_mark) {
  PutThree();
  InDialog(PurlinSleeves, [](FrmAcc02& form) {
    ClickButton(form, 4);
    EXPECT_EQ(Grid(form).Rows(), 5);
    ExpectEditing(form, 4, 1, "");
    Keys("A4");
    Trigger(form, "mnuLine(0)");
    ExpectEditing(form, 5, 1, "");
    EXPECT_EQ(Cells(form).at(3), (Texts{"A4", "", "", ""}));
    for (int i = 0; i < 30; ++i) ClickButton(form, 4);
    ExpectEditing(form, 35, 1, "");
    EXPECT_TRUE(Grid(form).viewport()->rect().contains(Grid(form).CellRect(35, 1)));
  });
}

TEST_F(Acc02CommandsTest, Add_writes_the_open_editor_to_its_cell_first) {
  PutThree();
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    Click(form, 2, 4);
    Keys("999");
    Trigger(form, "mnuLine(0)");
    EXPECT_EQ(Cells(form),
              (std::vector<Texts>{Three.at(0), {"A2", "2", "Z17012", "999"}, Three.at(2), Blank}));
  });
}

TEST_F(Acc02CommandsTest, Alt_and_A_adds_from_every_place_though_the_menu_underlines_it_too) {
  InDialog(VcrAssemblies, [this](FrmAcc02& form) {
    int rows = 1;
    for (const int column : {1, 2, 8}) {
      Click(form, 1, column);
      Key(Qt::Key_A, Qt::AltModifier);
      ++rows;
      ExpectEditing(form, rows, 1, "");
      EXPECT_EQ(Grid(form).Rows(), rows + 1);
    }
    Grid(form).setFocus();
    Key(Qt::Key_A, Qt::AltModifier);
    ExpectEditing(form, ++rows, 1, "");
    Button(form, 3).setFocus();
    Key(Qt::Key_A, Qt::AltModifier);
    ExpectEditing(form, ++rows, 1, "");
    for (const Texts& row : Cells(form)) EXPECT_EQ(row, Texts(9));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  });
}

// Delete.

TEST_F(Acc02CommandsTest, Delete_moves_the_lines_below_up_and_drops_what_was_being_typed) {
  PutThree();
  for (const bool byMenu : {false, true}) {
    InDialog(PurlinSleeves, [&](FrmAcc02& form) {
      Click(form, 1, 3);
      Keys("typed");
      if (byMenu) {
        Trigger(form, "mnuLine(1)");
      } else {
        ClickButton(form, 5);
      }
      ExpectNoEditor(form);
      EXPECT_EQ(Cells(form), (std::vector<Texts>{Three.at(1), Three.at(2)}));
      EXPECT_EQ(Grid(form).Row(), 1);
      EXPECT_EQ(Focus(), "MSFlexGrid1");
    });
  }
}

TEST_F(Acc02CommandsTest, Delete_drops_a_choice_too) {
  PutLine(SplicePlates, "S1", 1, {"", "2.0", ""});
  PutLine(SplicePlates, "S2", 2, {"", "2.4", ""});
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 4);
    Keys("3");
    Trigger(form, "mnuLine(1)");
    EXPECT_EQ(Cells(form), (std::vector<Texts>{{"S2", "2", "", "2.4", ""}}));
  });
}

TEST_F(Acc02CommandsTest, The_key_of_Delete_held_down_takes_one_line) {
  PutThree();
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    Grid(form).setFocus();
    for (const bool held : {false, true, true}) {
      qt_sendShortcutOverrideEvent(QApplication::focusWidget(), 0, Qt::Key_D, Qt::AltModifier, "d",
                                   held);
    }
    EXPECT_EQ(Cells(form), (std::vector<Texts>{Three.at(1), Three.at(2)}));
    // Pressed anew it takes another one.
    Key(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(Cells(form), (std::vector<Texts>{Three.at(2)}));
  });
}

TEST_F(Acc02CommandsTest, Delete_on_the_last_line_takes_it_off_without_moving_anything) {
  PutThree();
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    Click(form, 3, 1);
    ClickButton(form, 5);
    EXPECT_EQ(Cells(form), (std::vector<Texts>{Three.at(0), Three.at(1)}));
    EXPECT_EQ(Grid(form).Row(), 2);
    Key(Qt::Key_Return);
    ExpectEditing(form, 2, 1, "A2");
  });
}

TEST_F(Acc02CommandsTest, Deleting_the_single_line_leaves_none_and_OK_clears_the_accessory) {
  PutLine(PurlinSleeves, "A1", 1, {"Z14012", "600"});
  PutNeighbours();
  InDialog(PurlinSleeves, [](FrmAcc02& form) {
    ClickButton(form, 5);
    EXPECT_EQ(Grid(form).Rows(), 1);
    EXPECT_EQ(Grid(form).Row(), 0);
    // Nothing is left to delete, nor to edit.
    ClickButton(form, 5);
    EXPECT_EQ(Grid(form).Rows(), 1);
    Grid(form).setFocus();
    Key(Qt::Key_Return);
    Keys("x");
    ExpectNoEditor(form);
    ClickButton(form, 0);
  });
  EXPECT_TRUE(Stored(PurlinSleeves).empty());
  EXPECT_EQ(AccUsed.At(PurlinSleeves), False);
  ExpectNeighbours();
}

TEST_F(Acc02CommandsTest, Add_works_again_in_a_table_without_lines) {
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    ClickButton(form, 5);
    ClickButton(form, 4);
    ExpectEditing(form, 1, 1, "");
    EXPECT_EQ(Cells(form), std::vector<Texts>{Blank});
  });
}

// Clear.

TEST_F(Acc02CommandsTest, Clear_leaves_one_empty_line_and_stores_nothing_before_OK) {
  PutThree();
  PutNeighbours();
  for (const bool byMenu : {false, true}) {
    InDialog(PurlinSleeves, [&](FrmAcc02& form) {
      Click(form, 1, 1);
      Keys("typed");
      if (byMenu) {
        Trigger(form, "mnuLine(2)");
      } else {
        ClickButton(form, 1);
      }
      ExpectNoEditor(form);
      EXPECT_EQ(Cells(form), std::vector<Texts>{Blank});
      EXPECT_EQ(Stored(PurlinSleeves), Three);
      ClickButton(form, 3);
    });
    EXPECT_EQ(Stored(PurlinSleeves), Three);
    EXPECT_EQ(AccUsed.At(PurlinSleeves), True);
  }
  InDialog(PurlinSleeves, [](FrmAcc02& form) {
    form.ClearAll();
    ClickButton(form, 0);
  });
  EXPECT_TRUE(Stored(PurlinSleeves).empty());
  EXPECT_EQ(AccUsed.At(PurlinSleeves), False);
  EXPECT_EQ(AccDialogResult, "OK");
  ExpectNeighbours();
}

// OK.

TEST_F(Acc02CommandsTest, OK_with_an_empty_table_clears_lines_and_flag) {
  InDialog(PurlinSleeves, [](FrmAcc02& form) {
    AccUsed.At(PurlinSleeves) = True;
    ClickButton(form, 0);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_TRUE(Stored(PurlinSleeves).empty());
  EXPECT_EQ(AccUsed.At(PurlinSleeves), False);
  EXPECT_EQ(AccDialogResult, "OK");
}

TEST_F(Acc02CommandsTest, OK_stores_trimmed_marks_numbers_and_the_values_as_they_stand) {
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    TypeInto(form, 1, 1, "  A 1 ");
    TypeInto(form, 1, 2, "05");
    TypeInto(form, 1, 3, " Z14012  ");
    TypeInto(form, 1, 4, "600mm");
    ClickButton(form, 0);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Stored(PurlinSleeves), (std::vector<Texts>{{"A 1", "5", " Z14012  ", "600mm"}}));
  EXPECT_EQ(AccLines2.At(1).AccIndex, PurlinSleeves);
  EXPECT_EQ(AccLines2.At(1).ValueCount(), 2);
  EXPECT_EQ(AccUsed.At(PurlinSleeves), True);
  EXPECT_EQ(AccDialogResult, "OK");
}

TEST_F(Acc02CommandsTest, Nine_columns_give_seven_values) {
  InDialog(VcrAssemblies, [](FrmAcc02& form) {
    Keys("V1");
    for (const char* text : {"5", "3", "2", "3000", "10", "12.5", "kt33", "kt41"}) {
      Key(Qt::Key_Tab);
      Keys(text);
    }
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(VcrAssemblies),
            (std::vector<Texts>{{"V1", "5", "3", "2", "3000", "10", "12.5", "KT33", "KT41"}}));
  EXPECT_EQ(AccLines2.At(1).ValueCount(), 7);
}

TEST_F(Acc02CommandsTest, Lines_come_back_sorted_by_mark_by_character_code) {
  PutNeighbours();
  InDialog(PurlinSleeves, [](FrmAcc02& form) {
    bool first = true;
    for (const char* mark : {"B2", "a1", "A9", "A10"}) {
      if (!first) ClickButton(form, 4);
      first = false;
      Keys(mark);
    }
    ClickButton(form, 0);
  });
  InDialog(PurlinSleeves, [](FrmAcc02& form) {
    Texts marks;
    for (const Texts& row : Cells(form)) marks.push_back(row.at(0));
    EXPECT_EQ(marks, (Texts{"A10", "A9", "B2", "a1"}));
  });
  ExpectNeighbours();
}

TEST_F(Acc02CommandsTest, A_line_without_a_mark_is_dropped_without_a_word) {
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    TypeInto(form, 1, 1, "   ");
    TypeInto(form, 1, 2, "5");
    TypeInto(form, 1, 3, "Z14012");
    TypeInto(form, 1, 4, "600");
    ClickButton(form, 4);
    Keys("A2");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(PurlinSleeves), (std::vector<Texts>{{"A2", "0", "", ""}}));
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(Acc02CommandsTest, The_last_typed_cell_is_stored_whatever_way_OK_is_given) {
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { ClickButton(form, 0); },
      [](QWidget& form) { Button(form, 0).click(); },
      [](QWidget&) { Key(Qt::Key_O, Qt::AltModifier); },
      [](QWidget& form) { Trigger(form, "mnuAcc(0)"); },
  };
  std::int16_t number = 10;
  for (const auto& ok : ways) {
    ++number;
    InDialog(SplicePlates, [&](FrmAcc02& form) {
      TypeInto(form, 1, 1, "A1");
      TypeInto(form, 1, 2, std::to_string(number));
      ok(form);
      EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
    });
    EXPECT_EQ(Stored(SplicePlates).at(0).at(1), std::to_string(number));
    EXPECT_EQ(AccDialogResult, "OK");
  }
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 4);
    Keys("3");
    Trigger(form, "mnuAcc(0)");
  });
  EXPECT_EQ(Stored(SplicePlates).at(0).at(3), "3.0");
}

TEST_F(Acc02CommandsTest, Nothing_is_stored_while_the_dialog_is_open) {
  PutThree();
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    TypeInto(form, 1, 1, "Z9");
    ClickButton(form, 4);
    Keys("B1");
    ClickButton(form, 4);
    EXPECT_EQ(Stored(PurlinSleeves), Three);
  });
  EXPECT_EQ(Stored(PurlinSleeves), Three);
}

TEST_F(Acc02CommandsTest, A_number_off_above_the_limit_is_told_and_no_stored_line_is_lost) {
  PutThree();
  PutNeighbours();
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    TypeInto(form, 1, 1, "B1");
    TypeInto(form, 2, 2, "32768");
    dialogs.ExpectBox("Overflow");
    ClickButton(form, 0);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(AccDialogResult, "Cancelled");
    EXPECT_EQ(Stored(PurlinSleeves), Three);
    EXPECT_EQ(AccUsed.At(PurlinSleeves), True);
    EXPECT_EQ(Cells(form),
              (std::vector<Texts>{
                  {"B1", "1", "Z14012", "600"}, {"A2", "32768", "Z17012", "610"}, Three.at(2)}));
  });
  EXPECT_EQ(Stored(PurlinSleeves), Three);
  EXPECT_EQ(AccDialogResult, "Cancelled");
  ExpectNeighbours();
}

TEST_F(Acc02CommandsTest, The_greatest_number_off_passes) {
  PutThree();
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    TypeInto(form, 2, 2, "32767");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(PurlinSleeves).at(1), (Texts{"A2", "32767", "Z17012", "610"}));
}

// The ways out.

TEST_F(Acc02CommandsTest, Every_other_way_out_is_Cancelled_and_changes_nothing) {
  PutThree();
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { ClickButton(form, 3); },
      [](QWidget&) { Key(Qt::Key_C, Qt::AltModifier); },
      [](QWidget& form) { Trigger(form, "mnuAcc(2)"); },
      [this](QWidget&) {
        dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
        Key(Qt::Key_Escape);
      },
      [this](QWidget& form) {
        dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
        form.close();
      },
  };
  for (const auto& leave : ways) {
    AccDialogResult = "OK";
    InDialog(PurlinSleeves, [&](FrmAcc02& form) {
      Click(form, 1, 3);
      Keys("typed");
      ClickButton(form, 4);
      leave(form);
      EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
    });
    EXPECT_EQ(AccDialogResult, "Cancelled");
    EXPECT_EQ(Stored(PurlinSleeves), Three);
    EXPECT_EQ(AccUsed.At(PurlinSleeves), True);
  }
}

TEST_F(Acc02CommandsTest, The_menus_open_by_their_keys_and_run_their_entries) {
  PutThree();
  InDialog(PurlinSleeves, [this](FrmAcc02& form) {
    Click(form, 2, 1);
    Key(Qt::Key_L, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_D);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }));
    EXPECT_EQ(Cells(form), (std::vector<Texts>{Three.at(0), Three.at(2)}));
    // The menu that shares its key with a button.
    Find<QMenu>(form, "mnuAcc");
    auto* bar = form.findChild<QMenuBar*>();
    bar->setFocus();
    QTest::keyClick(bar, Qt::Key_A);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), "mnuAcc");
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_U);
    EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
  });
  EXPECT_EQ(Stored(PurlinSleeves), (std::vector<Texts>{Three.at(0), Three.at(2)}));
}

TEST_F(Acc02CommandsTest, A_whole_table_is_made_and_changed_by_keys_alone) {
  InDialog(VcrAssemblies, [](FrmAcc02& form) {
    const std::vector<Texts> lines = {{"V2", "5", "3", "2", "3000", "10", "", "kt31", "kt41"},
                                      {"V1", "4", "4", "0", "2500", "", "15", "", "kt36"},
                                      {"V3", "1", "0", "1", "1800", "", "", "kt33", ""}};
    bool first = true;
    for (const Texts& line : lines) {
      if (!first) Key(Qt::Key_A, Qt::AltModifier);
      first = false;
      bool mark = true;
      for (const std::string& text : line) {
        if (!mark) Key(Qt::Key_Return);
        mark = false;
        if (!text.empty()) Keys(text);
      }
    }
    // The line in the middle: its length; the last one goes, and comes back as another.
    Key(Qt::Key_Up);
    for (int i = 0; i < 4; ++i) Key(Qt::Key_Backtab, Qt::ShiftModifier);
    ExpectEditing(form, 2, 5, "2500");
    Keys("2600");
    Key(Qt::Key_Down);
    Key(Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&form] { return Grid(form).Rows() == 3; }));
    Key(Qt::Key_A, Qt::AltModifier);
    Keys("V0");
    Key(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
  });
  EXPECT_EQ(Stored(VcrAssemblies),
            (std::vector<Texts>{{"V0", "0", "", "", "", "", "", "", ""},
                                {"V1", "4", "4", "0", "2600", "", "15", "", "KT36"},
                                {"V2", "5", "3", "2", "3000", "10", "", "KT31", "KT41"}}));
}

}  // namespace
}  // namespace orvane::test
