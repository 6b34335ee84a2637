// The table of a type 2 accessory cell by cell: clicks, keys, what reaches a cell and when.
#include <QAbstractItemView>
#include <QClipboard>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QMenu>
#include <QScrollBar>

#include "core/runtime_error.h"
#include "tests/screens/acc02_fixture.h"
#include "tests/support/patience.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

class Acc02EditingTest : public Acc02Test {
 protected:
  void SetUp() override {
    Acc02Test::SetUp();
    PutLine(SplicePlates, "A1", 1, {"Z14012", "2.0", "300"});
    PutLine(SplicePlates, "A2", 2, {"Z17012", "2.4", "310"});
    PutLine(SplicePlates, "A3", 3, {"Z20012", "3.0", "320"});
  }
  const std::vector<Texts> Three = {{"A1", "1", "Z14012", "2.0", "300"},
                                    {"A2", "2", "Z17012", "2.4", "310"},
                                    {"A3", "3", "Z20012", "3.0", "320"}};
  std::string TextOf(int row, int column) const {
    return Three.at(static_cast<std::size_t>(row - 1)).at(static_cast<std::size_t>(column - 1));
  }
  void ExpectEditingOne(QWidget& form, int row, int column) {
    ExpectEditing(form, row, column, TextOf(row, column));
  }
};

TEST_F(Acc02EditingTest, A_click_lays_the_right_editor_exactly_on_the_cell_with_its_text) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    for (int row = 1; row <= 3; ++row) {
      for (int column = 1; column <= 5; ++column) {
        Click(form, row, column);
        ExpectEditingOne(form, row, column);
        EXPECT_EQ(Focus(), column == 4 ? "cboEdit(4)" : "txtEdit");
      }
    }
    EXPECT_EQ(Cells(form), Three);
  });
}

TEST_F(Acc02EditingTest, A_click_writes_what_was_typed_to_its_own_cell_first) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 3);
    Keys("C15015");
    Click(form, 2, 5);
    EXPECT_EQ(Cells(form).at(0), (Texts{"A1", "1", "C15015", "2.0", "300"}));
    EXPECT_EQ(Cells(form).at(1), Three.at(1));
    ExpectEditingOne(form, 2, 5);
  });
}

TEST_F(Acc02EditingTest, A_typed_text_reaches_its_cell_on_leaving_and_not_before) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 3);
    Keys("C15015");
    EXPECT_EQ(Cells(form), Three);
    // The focus goes to a button.
    Button(form, 3).setFocus();
    EXPECT_EQ(Cells(form).at(0).at(2), "C15015");
  });
}

TEST_F(Acc02EditingTest, A_choice_reaches_its_cell_on_leaving_too) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 2, 4);
    Choose(Choices(form, 4), 2);
    EXPECT_EQ(Cells(form), Three);
    Click(form, 2, 5);
    EXPECT_EQ(Cells(form).at(1), (Texts{"A2", "2", "Z17012", "3.0", "310"}));
  });
}

TEST_F(Acc02EditingTest, A_cell_that_is_passed_over_keeps_a_text_outside_the_list) {
  PutLine(SplicePlates, "A4", 4, {"Z30012", " 2.7", "330"});
  PutLine(SplicePlates, "A5", 5, {"Z30012", " 2.4 ", "330"});
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 4, 4);
    EXPECT_EQ(Choices(form, 4).currentIndex(), -1);
    Key(Qt::Key_Down);
    // Blanks apart it stands in the list.
    ExpectEditing(form, 5, 4, "2.4");
    Key(Qt::Key_Tab);
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(SplicePlates).at(3), (Texts{"A4", "4", "Z30012", " 2.7", "330"}));
  EXPECT_EQ(Stored(SplicePlates).at(4), (Texts{"A5", "5", "Z30012", " 2.4 ", "330"}));
}

TEST_F(Acc02EditingTest, An_empty_choice_cell_shows_no_entry_after_another_row_showed_one) {
  PutLine(SplicePlates, "A4", 4, {});
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 4);
    Click(form, 4, 4);
    ExpectEditing(form, 4, 4, "");
    EXPECT_EQ(Choices(form, 4).currentIndex(), -1);
  });
}

TEST_F(Acc02EditingTest, A_click_on_a_heading_row_or_on_column_0_does_nothing) {
  PutLine(VcrAssemblies, "V1", 1, {"1", "0"});
  for (const std::int16_t accessory : {SplicePlates, VcrAssemblies}) {
    InDialog(accessory, [this](FrmAcc02& form) {
      QHeaderView& heading = *Grid(form).horizontalHeader();
      for (const int y : {heading.height() / 4, heading.height() * 3 / 4}) {
        QTest::mouseClick(heading.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(30, y));
      }
      Click(form, 1, 0);
      ExpectEditing(form, 1, 1, Grid(form).TextMatrix(1, 1));
      Click(form, 1, 2);
      const std::string text = FromQt(Text(form).text());
      QTest::mouseClick(heading.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 5));
      Click(form, 1, 0);
      ExpectEditing(form, 1, 2, text);
    });
  }
}

TEST_F(Acc02EditingTest, Tab_and_Enter_go_right_and_with_Shift_left_and_stop_at_the_ends) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter}) {
      SCOPED_TRACE(key);
      Click(form, 2, 1);
      for (const int column : {2, 3, 4, 5, 5}) {
        Key(key);
        ExpectEditingOne(form, 2, column);
      }
      const Qt::Key back = key == Qt::Key_Tab ? Qt::Key_Backtab : key;
      for (const int column : {4, 3, 2, 1, 1}) {
        Key(back, Qt::ShiftModifier);
        ExpectEditingOne(form, 2, column);
      }
    }
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Cells(form), Three);
  });
}

TEST_F(Acc02EditingTest, Up_and_Down_go_through_the_rows_in_both_editors_and_stop_at_the_ends) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    for (int column = 1; column <= 5; ++column) {
      Click(form, 1, column);
      for (const auto& step : std::vector<std::pair<Qt::Key, int>>{{Qt::Key_Up, 1},
                                                                   {Qt::Key_Down, 2},
                                                                   {Qt::Key_Down, 3},
                                                                   {Qt::Key_Down, 3},
                                                                   {Qt::Key_Up, 2},
                                                                   {Qt::Key_PageUp, 1},
                                                                   {Qt::Key_PageDown, 3}}) {
        Key(step.first);
        ExpectEditingOne(form, step.second, column);
      }
    }
    EXPECT_EQ(Cells(form), Three);
  });
}

TEST_F(Acc02EditingTest, Up_never_enters_the_second_heading_row) {
  PutLine(VcrAssemblies, "V1", 2, {"1", "1", "3000", "", "", "KT31", "KT41"});
  InDialog(VcrAssemblies, [this](FrmAcc02& form) {
    for (const int column : {1, 5, 8}) {
      Click(form, 1, column);
      Key(Qt::Key_Up);
      EXPECT_EQ(Grid(form).Row(), 1);
      EXPECT_TRUE(Grid(form).viewport()->rect().contains(Grid(form).CellRect(1, column)));
    }
    EXPECT_EQ(Cells(form),
              (std::vector<Texts>{{"V1", "2", "1", "1", "3000", "", "", "KT31", "KT41"}}));
  });
}

TEST_F(Acc02EditingTest, Keys_write_to_the_cell_that_they_leave) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 2, 3);
    Keys("P");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Cells(form).at(1).at(2), "P");
    Keys("3");
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Cells(form).at(1).at(3), "3.0");
    Keys("Q");
    Key(Qt::Key_Down);
    EXPECT_EQ(Cells(form).at(1).at(2), "Q");
    Keys("R");
    Key(Qt::Key_Up);
    EXPECT_EQ(Cells(form).at(2).at(2), "R");
    EXPECT_EQ(Cells(form),
              (std::vector<Texts>{
                  Three.at(0), {"A2", "2", "Q", "3.0", "310"}, {"A3", "3", "R", "3.0", "320"}}));
  });
}

TEST_F(Acc02EditingTest, The_closed_list_changes_by_letters_alone) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 2, 4);
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End}) Key(key);
    QWheelEvent turn(QPointF(5, 5), Choices(form, 4).mapToGlobal(QPointF(5, 5)), QPoint(),
                     QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Choices(form, 4), &turn);
    ExpectEditing(form, 2, 4, "2.4");
    Keys("3");
    ExpectEditing(form, 2, 4, "2.4");
    Key(Qt::Key_Return);
    Click(form, 2, 4);
    ExpectEditing(form, 2, 4, "3.0");
  });
}

TEST_F(Acc02EditingTest, Alt_and_Down_opens_the_list_and_its_own_arrows_choose) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 4);
    Key(Qt::Key_Down, Qt::AltModifier);
    QAbstractItemView* list = Choices(form, 4).view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window(), Patience));
    EXPECT_TRUE(Find<QWidget>(form, "sspEditCombo(4)").isVisible());
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([list] { return !list->isVisible(); }));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Cells(form).at(0), (Texts{"A1", "1", "Z14012", "2.4", "300"}));
    ExpectEditingOne(form, 1, 5);
  });
}

TEST_F(Acc02EditingTest, Number_off_takes_digits_alone_and_the_other_columns_any_character) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 2);
    Keys("1a-2 .b");
    Key(Qt::Key_Left);
    Key(Qt::Key_Backspace);
    Keys("7");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Cells(form).at(0).at(1), "72");
    Keys("1a-2 .b");
    Click(form, 1, 1);
    Keys("M 1/x");
    Click(form, 1, 5);
    Keys("12.5 mm");
    Click(form, 2, 1);
    EXPECT_EQ(Cells(form).at(0), (Texts{"M 1/x", "72", "1a-2 .b", "2.0", "12.5 mm"}));
  });
}

TEST_F(Acc02EditingTest, A_number_off_is_pasted_as_it_was_copied_or_not_at_all) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 2);
    QApplication::clipboard()->setText("12 off");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(form).text(), "1");
    EXPECT_TRUE(IsFieldRefused(Text(form)));
    QApplication::clipboard()->setText("12.0");
    Key(Qt::Key_V, Qt::ControlModifier);
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(SplicePlates).at(0), (Texts{"A1", "12", "Z14012", "2.0", "300"}));
}

// A cell copied from a spreadsheet ends with a line end.
TEST_F(Acc02EditingTest, Line_ends_of_a_pasted_text_do_not_reach_a_cell) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    const auto paste = [this, &form](int column, const char* text) {
      QApplication::clipboard()->setText(text);
      Click(form, 1, column);
      Key(Qt::Key_V, Qt::ControlModifier);
    };
    paste(1, "A9\r\n");
    paste(3, "Z14012\nZ17012\r\n\r\n");
    paste(5, "300\r310\t320");
    Click(form, 2, 1);
    EXPECT_EQ(Cells(form).at(0), (Texts{"A9", "1", "Z14012 Z17012", "2.0", "300 310 320"}));
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(SplicePlates).at(2), (Texts{"A9", "1", "Z14012 Z17012", "2.0", "300 310 320"}));
}

TEST_F(Acc02EditingTest, A_number_off_takes_no_letters_outside_the_first_plane_either) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 2);
    // A digit of the mathematical alphabets, a full-width one, and an invisible letter.
    for (const char16_t* typed : {u"\U0001D7D7", u"\uFF19", u"\u200E"}) {
      QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf16(typed));
      QCoreApplication::sendEvent(&Text(form), &key);
    }
    EXPECT_EQ(Text(form).text(), "1");
  });
}

TEST_F(Acc02EditingTest, What_an_input_method_refused_leaves_nothing_behind) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 2);
    const QString before = Text(form).displayText();
    QInputMethodEvent composing("\u3042", {});
    QCoreApplication::sendEvent(&Text(form), &composing);
    QInputMethodEvent done;
    done.setCommitString("4\u30425");
    QCoreApplication::sendEvent(&Text(form), &done);
    EXPECT_EQ(Text(form).text(), "45");
    EXPECT_EQ(Text(form).displayText(), "45");
  });
}

TEST_F(Acc02EditingTest, A_letter_chooses_in_a_cell_whose_text_is_outside_the_list) {
  PutLine(SplicePlates, "A4", 4, {"Z30012", "9.9", "330"});
  PutLine(SplicePlates, "A5", 5, {"Z30012", "", "330"});
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    for (const int row : {4, 5}) {
      Click(form, row, 4);
      Keys("2.0");
      Key(Qt::Key_Tab);
      EXPECT_EQ(Cells(form).at(static_cast<std::size_t>(row) - 1).at(3), "2.0");
    }
  });
}

TEST_F(Acc02EditingTest, Alt_and_A_in_an_open_list_closes_it_and_adds) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 4);
    Key(Qt::Key_Down, Qt::AltModifier);
    QAbstractItemView* list = Choices(form, 4).view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window(), Patience));
    QTest::keyClick(list, Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([list] { return !list->isVisible(); }));
    ExpectEditing(form, 4, 1, "");
    EXPECT_EQ(Cells(form).at(0), Three.at(0));
  });
}

TEST_F(Acc02EditingTest, Escape_in_an_open_list_closes_the_list_alone) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 4);
    Key(Qt::Key_Down, Qt::AltModifier);
    QAbstractItemView* list = Choices(form, 4).view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window(), Patience));
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([list] { return !list->isVisible(); }));
    EXPECT_TRUE(form.isVisible());
    ExpectEditingOne(form, 1, 4);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Cells(form), Three);
  });
}

TEST_F(Acc02EditingTest, The_key_of_Add_held_down_adds_one_line) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 1);
    Key(Qt::Key_A, Qt::AltModifier);
    for (int times = 0; times < 3; ++times) {
      QKeyEvent held(QEvent::KeyPress, Qt::Key_A, Qt::AltModifier, "a", true);
      QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
    }
    EXPECT_EQ(Grid(form).Rows() - 1, 4);
    ExpectEditing(form, 4, 1, "");
  });
}

TEST_F(Acc02EditingTest, From_the_table_itself_keys_and_typing_lead_into_the_current_cell) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Grid(form).setFocus();
    EXPECT_EQ(Focus(), "MSFlexGrid1");
    Key(Qt::Key_Return);
    ExpectEditingOne(form, 1, 1);
    for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_F2, Qt::Key_Up, Qt::Key_Down}) {
      Grid(form).setFocus();
      Key(key);
      ExpectEditingOne(form, 1, 1);
    }
    Grid(form).setFocus();
    Keys("X9");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Cells(form).at(0).at(0), "X9");
    Click(form, 2, 4);
    Grid(form).setFocus();
    Keys("3");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Cells(form).at(1).at(3), "3.0");
    // What a number off doesn't take opens the cell and is dropped.
    Click(form, 3, 2);
    Grid(form).setFocus();
    Keys("x");
    ExpectEditingOne(form, 3, 2);
  });
}

TEST_F(Acc02EditingTest, An_editor_bears_the_name_of_its_column_and_its_row) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 2, 2);
    EXPECT_EQ(Text(form).accessibleName(), "No.Off, row 2");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(form).accessibleName(), "Product, row 2");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Choices(form, 4).accessibleName(), "Thickness, row 2");
    Key(Qt::Key_Down);
    EXPECT_EQ(Choices(form, 4).accessibleName(), "Thickness, row 3");
  });
}

TEST_F(Acc02EditingTest, Scrolling_takes_the_open_editor_along_with_its_focus_and_text) {
  for (int i = 0; i < 40; ++i) PutLine(SplicePlates, "B" + std::to_string(i), 0, {});
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 2, 3);
    Keys("typed");
    Grid(form).verticalScrollBar()->setValue(Grid(form).verticalScrollBar()->maximum());
    EXPECT_EQ(Find<QWidget>(form, "SSPanelEdit").geometry(), Grid(form).CellRect(2, 3));
    EXPECT_EQ(Focus(), "txtEdit");
    Key(Qt::Key_Down);
    EXPECT_EQ(Cells(form).at(1).at(2), "typed");
    ExpectEditingOne(form, 3, 3);
    EXPECT_TRUE(Grid(form).viewport()->rect().contains(Grid(form).CellRect(3, 3)));
  });
}

TEST_F(Acc02EditingTest, An_error_behind_a_click_is_told_and_the_dialog_stays) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Grid(form).CellPressed = [](int, int, Qt::MouseButton, QPoint) {
      throw RuntimeError(Failure::SubscriptOutOfRange);
    };
    dialogs.ExpectBox("Subscript out of range");
    Click(form, 1, 1);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Cells(form), Three);
  });
}

TEST_F(Acc02EditingTest, The_cleat_choices_by_end_marks_replace_those_of_the_column) {
  const Texts all = {"KT31", "KT33", "KT36", "KT39", "KT41"};
  const Texts two = {"KT39", "KT41"};
  struct Case {
    int Column, First, Second;
    Texts Expected;
  };
  // 88 is the mark X.
  const std::vector<Case> cases = {
      {9, 65, 65, all}, {9, 65, 88, all}, {9, 88, 65, two}, {9, 88, 88, two},
      {8, 65, 65, all}, {8, 88, 65, all}, {8, 65, 88, two}, {8, 88, 88, two},
      {9, 87, 0, all},  {9, 89, 0, all},  {8, 0, 87, all},  {8, 0, 89, all},
  };
  InDialog(VcrAssemblies, [&cases](FrmAcc02& form) {
    for (const Case& one : cases) {
      form.FillVCRCleatCombo(one.Column, one.First, one.Second);
      Texts texts;
      for (int at = 0; at < Choices(form, one.Column).count(); ++at) {
        texts.push_back(FromQt(Choices(form, one.Column).itemText(at)));
      }
      EXPECT_EQ(texts, one.Expected) << one.Column << " " << one.First << " " << one.Second;
    }
    // No other column has such a list.
    EXPECT_EQ(ErrorOf([&form] { form.FillVCRCleatCombo(7, 65, 65); }), "Subscript out of range");
  });
}

TEST_F(Acc02EditingTest, No_action_on_the_screen_fills_the_cleat_choices_by_end_marks) {
  PutLine(VcrAssemblies, "V1", 2, {"1", "1", "3000", "X", "X", "", ""});
  InDialog(VcrAssemblies, [this](FrmAcc02& form) {
    Click(form, 1, 6);
    Keys("X");
    for (const int column : {8, 9}) {
      Click(form, 1, column);
      EXPECT_EQ(Choices(form, column).count(), 5);
    }
    ClickButton(form, 4);
    EXPECT_EQ(Choices(form, 9).count(), 5);
  });
}

}  // namespace
}  // namespace orvane::test
