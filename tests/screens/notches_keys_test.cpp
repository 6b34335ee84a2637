// The keys of the notches' table: between its cells, on the list of codes, and into it.
#include <QAbstractItemView>
#include <QWheelEvent>

#include "tests/screens/notches_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {
namespace {

TEST_F(NotchesTest, Tab_and_Enter_move_right_and_with_Shift_left_and_stop_at_the_ends) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter}) {
      SCOPED_TRACE(key);
      Click(form, 2, 1);
      for (const int column : {2, 3, 4, 4}) {
        Key(key);
        ExpectEditing(form, 2, column, ThreeTexts.at(1).at(static_cast<std::size_t>(column - 1)));
      }
      const Qt::Key back = key == Qt::Key_Tab ? Qt::Key_Backtab : key;
      for (const int column : {3, 2, 1, 1}) {
        Key(back, Qt::ShiftModifier);
        ExpectEditing(form, 2, column, ThreeTexts.at(1).at(static_cast<std::size_t>(column - 1)));
      }
    }
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Cells(form), ThreeTexts);
  });
}

TEST_F(NotchesTest, Up_and_Down_move_the_row_in_both_editors_and_never_change_a_code) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    for (int column = 1; column <= 4; ++column) {
      Click(form, 1, column);
      for (const auto& [key, row] : std::vector<std::pair<Qt::Key, int>>{{Qt::Key_Up, 1},
                                                                         {Qt::Key_Down, 2},
                                                                         {Qt::Key_Down, 3},
                                                                         {Qt::Key_Down, 3},
                                                                         {Qt::Key_Up, 2}}) {
        Key(key);
        ExpectEditing(form, row, column,
                      ThreeTexts.at(static_cast<std::size_t>(row - 1))
                          .at(static_cast<std::size_t>(column - 1)));
      }
    }
    Click(form, 1, 1);
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown})
      Key(key);
    EXPECT_EQ(Cells(form), ThreeTexts);
  });
}

TEST_F(NotchesTest, Page_Up_and_Page_Down_move_by_the_rows_in_sight_and_stop_at_the_ends) {
  std::vector<Notch> many;
  for (int row = 1; row <= 40; ++row) many.push_back({"T2", static_cast<float>(row), 10, 100});
  ShowOne(many);
  InDialog([this](QWidget& form) {
    for (const int column : {1, 2}) {
      Click(form, 1, column);
      const int page = Grid(form).viewport()->height() / Grid(form).rowHeight(0) - 1;
      ASSERT_GT(page, 1);
      const auto expectRow = [&](int row) {
        ExpectEditing(form, row, column, column == 1 ? "T2" : std::to_string(row));
        EXPECT_TRUE(Grid(form).viewport()->rect().contains(Grid(form).CellRect(row, column)));
      };
      Key(Qt::Key_PageDown);
      expectRow(1 + page);
      Key(Qt::Key_PageDown);
      expectRow(1 + 2 * page);
      Key(Qt::Key_PageUp);
      expectRow(1 + page);
      for (int times = 0; times < 40; ++times) Key(Qt::Key_PageDown);
      expectRow(40);
      for (int times = 0; times < 40; ++times) Key(Qt::Key_PageUp);
      expectRow(1);
    }
  });
}

TEST_F(NotchesTest, Typing_begins_the_current_cell_of_the_table_at_rest) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Grid(form).setFocus();
    ASSERT_EQ(Focus(), "MSFlexGrid1");
    for (const char* letter : {"r", "3"}) Keys(letter);
    ExpectEditing(form, 1, 1, "TL1");
    Key(Qt::Key_Return);
    Click(form, 1, 1);
    ExpectEditing(form, 1, 1, "R3");
    EXPECT_EQ(Cells(form).at(0), (Texts{"R3", "12.5", "0.1", "40"}));
    // Behind Delete the keys rest in the table again.
    Click(form, 2, 3);
    Key(Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&form] { return Grid(form).Rows() == 3; }));
    ASSERT_EQ(Focus(), "MSFlexGrid1");
    for (const char* letter : {"7", "5"}) Keys(letter);
    EXPECT_EQ(Focus(), "txtEdit");
    EXPECT_EQ(Cells(form),
              (std::vector<Texts>{{"R3", "12.5", "0.1", "40"}, {"R3", "7", "75", "9"}}));
  });
}

TEST_F(NotchesTest, OK_leads_back_to_a_code_that_was_left_undecided) {
  ShowOne();
  InDialog([this](QWidget& form) {
    Keys("t");  // TL1, T2 and TR1 begin so
    Click(form, 1, 2);
    Keys("20");
    Key(Qt::Key_Tab);
    Keys("30");
    Key(Qt::Key_Tab);
    Keys("400");
    Ok(form);
    ASSERT_TRUE(form.isVisible());
    ExpectEditing(form, 1, 1, "");
    EXPECT_EQ(FromQt(Codes(form).toolTip()), "3 entries begin with \"t\"");
    EXPECT_EQ(Stored(), std::vector<Texts>{});
    Keys("t2");
    Ok(form);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"T2", "20", "30", "400"}}));
}

TEST_F(NotchesTest, Delete_at_rest_empties_the_code_of_the_current_row) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 1, 1);
    ClickButton(form, "cmdNotch(1)");  // leaves the table at rest on the second notch
    ExpectNoEditor(form);
    Key(Qt::Key_Delete);
    ExpectEditing(form, 1, 1, "");
  });
}

TEST_F(NotchesTest, A_third_letter_at_rest_begins_the_cell_as_any_other) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 1, 2);
    ClickButton(form, "cmdNotch(1)");
    ExpectNoEditor(form);
    QTest::keyClick(QApplication::focusWidget(), '7', Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(FromQt(Text(form).text()), "7");
  });
}

TEST_F(NotchesTest, Typing_at_rest_in_a_table_without_rows_begins_nothing) {
  ShowOne({Three.front()});
  InDialog([this](QWidget& form) {
    Click(form, 1, 1);
    Key(Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&form] { return Grid(form).Rows() == 1; }));
    Keys("75");
    Key(Qt::Key_Return);
    ExpectNoEditor(form);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Cells(form), std::vector<Texts>{});
  });
}

TEST_F(NotchesTest, A_buttons_key_acts_before_what_is_typed_behind_it) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 1, 3);
    Keys("60");
    Key(Qt::Key_A, Qt::AltModifier);  // "&Add"
    Keys("t2");
    ExpectEditing(form, 4, 1, "");
    Key(Qt::Key_Return);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    ExpectEditing(form, 4, 1, "T2");
    EXPECT_EQ(Cells(form).at(0), (Texts{"TL1", "12.5", "60", "40"}));
  });
}

TEST_F(NotchesTest, From_the_grid_itself_a_key_leads_into_its_current_cell) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Grid(form).setFocus();
    EXPECT_EQ(Focus(), "MSFlexGrid1");
    Key(Qt::Key_Return);
    ExpectEditing(form, 1, 1, "TL1");
    Click(form, 3, 2);
    Key(Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&form] { return Grid(form).Rows() == 3; }));
    EXPECT_EQ(Focus(), "MSFlexGrid1");
    Key(Qt::Key_Down);
    ExpectEditing(form, 2, 2, "20");
  });
}

TEST_F(NotchesTest, No_key_that_moves_in_a_list_chooses_another_code_with_whatever_it_is_held) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    for (const Qt::KeyboardModifier held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier,
                                            Qt::ShiftModifier, Qt::KeypadModifier}) {
      // Without a command key a page is a way to another row.
      const bool pages = held == Qt::ShiftModifier || held == Qt::KeypadModifier;
      for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown}) {
        SCOPED_TRACE(static_cast<int>(held) + key);
        Click(form, 2, 1);
        Key(key, held);
        EXPECT_EQ(Cells(form), ThreeTexts);
        const int row = pages && key == Qt::Key_PageUp     ? 1
                        : pages && key == Qt::Key_PageDown ? 3
                                                           : 2;
        ExpectEditing(form, row, 1, ThreeTexts.at(static_cast<std::size_t>(row - 1)).front());
      }
    }
    for (const Qt::KeyboardModifier held :
         {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
      Click(form, 2, 1);
      Key(Qt::Key_Up, held);
      EXPECT_EQ(Cells(form), ThreeTexts);
      ExpectEditing(form, 2, 1, "B2");
    }
    for (const Qt::KeyboardModifier held : {Qt::ControlModifier, Qt::MetaModifier}) {
      Click(form, 2, 1);
      Key(Qt::Key_Down, held);
      EXPECT_EQ(Cells(form), ThreeTexts);
      ExpectEditing(form, 2, 1, "B2");
    }
    EXPECT_FALSE(Codes(form).view()->isVisible());
  });
}

TEST_F(NotchesTest, Alt_and_Down_and_F4_open_the_list_of_codes_and_Enter_takes_one) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 2, 1);
    Key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Codes(form).view()->window(), Patience));
    QTest::keyClick(Codes(form).view(), Qt::Key_Up);
    QTest::keyClick(Codes(form).view(), Qt::Key_Return);
    EXPECT_EQ(Cells(form).at(1).front(), "BL1");
    Key(Qt::Key_F4);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Codes(form).view()->window(), Patience));
    // Escape closes the list alone.
    QTest::keyClick(Codes(form).view(), Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Cells(form).at(1).front(), "BL1");
  });
}

TEST_F(NotchesTest, A_turn_of_the_wheel_over_the_list_of_codes_chooses_none) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 2, 1);
    const QPointF at = Codes(form).rect().center();
    QWheelEvent turn(at, Codes(form).mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Codes(form), &turn);
    EXPECT_EQ(Cells(form), ThreeTexts);
    ExpectEditing(form, 2, 1, "B2");
  });
}

TEST_F(NotchesTest, Without_an_editor_Tab_goes_round_the_table_and_the_buttons) {
  ShowOne(Three);
  InDialog([](QWidget& form) {
    ClickButton(form, "cmdNotch(1)");
    Texts stops;
    for (int i = 0; i < 7; ++i) {
      stops.push_back(Focus());
      Key(Qt::Key_Tab);
    }
    EXPECT_EQ(stops, (Texts{"MSFlexGrid1", "cmdNotch(0)", "cmdNotch(1)", "cmdNotch(2)",
                            "SSCommand2(0)", "SSCommand2(1)", "MSFlexGrid1"}));
  });
}

TEST_F(NotchesTest, An_editor_bears_the_name_of_its_column_and_its_row) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 2, 1);
    EXPECT_EQ(Codes(form).accessibleName(), "Code, row 2");
    Click(form, 1, 2);
    EXPECT_EQ(Text(form).accessibleName(), "Depth, row 1");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(form).accessibleName(), "Width, row 1");
    Key(Qt::Key_Tab);
    Key(Qt::Key_Down);
    EXPECT_EQ(Text(form).accessibleName(), "Position, row 2");
  });
}

}  // namespace
}  // namespace orvane::test
