// "Type 1 Accessories": its keys, what it stores, its print.
#include <QClipboard>

#include "tests/screens/acc01_fixture.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

// Keys.

TEST_F(Acc01Test, A_field_takes_digits_alone) {
  InDialogOf(Bolts, [this](QWidget& form) {
    Type("1a-2. 3,e+x");
    EXPECT_EQ(Qty(form, 1).text(), "123");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Qty(form, 1).text(), "12");
    // A key that is dropped doesn't drop what is selected either.
    Qty(form, 1).selectAll();
    Type("x");
    EXPECT_EQ(Qty(form, 1).text(), "12");
    Press(Qt::Key_Home);
    Type("7");
    EXPECT_EQ(Qty(form, 1).text(), "712");
  });
}

TEST_F(Acc01Test, A_quantity_is_pasted_as_it_was_copied_or_not_at_all) {
  InDialogOf(Bolts, [this](QWidget& form) {
    Type("19");
    QGuiApplication::clipboard()->setText("2 pcs, 3");
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Qty(form, 1).text(), "19");
    EXPECT_TRUE(IsFieldRefused(Qty(form, 1)));
    QGuiApplication::clipboard()->setText("240\r\n");
    Press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(Qty(form, 1).text(), "240");
    EXPECT_FALSE(IsFieldRefused(Qty(form, 1)));
  });
}

TEST_F(Acc01Test, Return_moves_to_the_next_field_as_Tab_does_and_presses_nothing) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
    SCOPED_TRACE(key);
    InDialogOf(HalfSleeves, [&](QWidget& form) {
      Qty(form, 2).setText("17");
      ASSERT_EQ(Focus(), "txtQty(1)");
      Press(key);
      EXPECT_EQ(Focus(), "txtQty(2)");
      EXPECT_EQ(Qty(form, 2).selectedText(), "17");
      Press(key);
      EXPECT_EQ(Focus(), "SSCommand2(0)");
      EXPECT_TRUE(form.isVisible());
      EXPECT_EQ(AccDialogResult, "Cancelled");
    });
  }
  EXPECT_EQ(AccLines1.UBound(), 0);
}

TEST_F(Acc01Test, Return_held_down_presses_nothing) {
  InDialogOf(HalfSleeves, [this](QWidget& form) {
    Press(Qt::Key_Return);
    for (int times = 0; times < 5; ++times) {
      QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
      QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
    }
    EXPECT_EQ(Focus(), "txtQty(2)");
    EXPECT_TRUE(form.isVisible());
  });
}

TEST_F(Acc01Test, Return_held_down_in_the_last_field_comes_to_OK_and_doesnt_press_it) {
  Put1(HalfSleeves, 1, 5);
  InDialogOf(HalfSleeves, [this](QWidget& form) {
    Enter(form, 2, "9");
    Press(Qt::Key_Return);
    ASSERT_EQ(Focus(), "SSCommand2(0)");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, "\r", true);
      QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
      EXPECT_TRUE(form.isVisible());
    }
  });
  EXPECT_EQ(Lines1(), Texts{"5/1/5/0"});
}

TEST_F(Acc01Test, Letters_outside_the_first_plane_are_no_digits_either) {
  InDialogOf(HalfSleeves, [](QWidget& form) {
    // A digit of the mathematical alphabets, and a full-width one.
    for (const char16_t* typed : {u"\U0001D7D7", u"\uFF19"}) {
      QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf16(typed));
      QCoreApplication::sendEvent(&Qty(form, 1), &key);
    }
    EXPECT_EQ(Qty(form, 1).text(), "");
  });
}

TEST_F(Acc01Test, The_fields_and_buttons_are_reached_by_Tab_in_order) {
  AccDefs.At(HalfSleeves).HasParamColumn = True;
  InDialogOf(HalfSleeves, [this](QWidget&) {
    for (const char* name :
         {"txtQty(1)", "txtParam(1)", "txtQty(2)", "txtParam(2)", "SSCommand2(0)", "SSCommand2(1)",
          "SSCommand2(2)", "SSCommand2(3)", "txtQty(1)"}) {
      EXPECT_EQ(Focus(), name);
      Press(Qt::Key_Tab);
    }
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focus(), "SSCommand2(3)");
  });
}

TEST_F(Acc01Test, Enter_presses_the_button_that_has_the_focus) {
  InDialogOf(HalfSleeves, [this](QWidget& form) {
    Type("4");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    Press(Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Lines1(), Texts{"5/1/4/0"});
}

// OK.

TEST_F(Acc01Test, OK_stores_a_line_for_each_number_sorted_by_size) {
  InDialogOf(PurlinCleats, [this](QWidget& form) {
    Enter(form, 3, "7");
    Enter(form, 1, "5");
    EXPECT_EQ(AccLines1.UBound(), 0);
    ClickButton(form, 0);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Lines1(), (Texts{"1/1/5/0", "1/3/7/0"}));
  EXPECT_EQ(AccUsed.At(PurlinCleats), True);
  EXPECT_EQ(AccDialogResult, "OK");
}

TEST_F(Acc01Test, OK_leaves_the_lines_of_other_accessories) {
  Put1(PurlinCleats, 1, 5);
  Put1(HalfSleeves, 2, 6);
  Put1(Bolts, 4, 1);
  Put2(PurlinSleeves, "A", 3);
  InDialogOf(Bolts, [this](QWidget& form) {
    Enter(form, 4, "2");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Lines1(), (Texts{"1/1/5/0", "3/4/2/0", "5/2/6/0"}));
  EXPECT_EQ(LinesOfType2(), Texts{"6/A/3"});
}

TEST_F(Acc01Test, OK_with_all_numbers_empty_clears_the_accessory) {
  Put1(Bolts, 1, 5);
  Put1(Bolts, 2, 6);
  InDialogOf(Bolts, [](QWidget& form) {
    ClickButton(form, 1);
    ClickButton(form, 0);
  });
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccUsed.At(Bolts), False);
  EXPECT_EQ(EntryOf(Bolts), "  Bolts with nut and washers");
}

TEST_F(Acc01Test, A_number_of_0_is_no_line) {
  InDialogOf(Bolts, [this](QWidget& form) {
    Enter(form, 1, "0");
    Enter(form, 2, "00");
    Enter(form, 3, "007");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Lines1(), Texts{"3/3/7/0"});
}

TEST_F(Acc01Test, A_number_beyond_16_bits_is_told_and_loses_nothing) {
  Put1(Bolts, 1, 5);
  Put1(Bolts, 2, 6);
  InDialogOf(Bolts, [this](QWidget& form) {
    Enter(form, 1, "7");
    Enter(form, 2, "32768");
    dialogs.ExpectBox("Overflow");
    ClickButton(form, 0);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Quantities(form), (Texts{"7", "32768", "", ""}));
    EXPECT_EQ(Lines1(), (Texts{"3/1/5/0", "3/2/6/0"}));
    EXPECT_EQ(AccDialogResult, "Cancelled");
    ClickButton(form, 3);
  });
  EXPECT_EQ(Lines1(), (Texts{"3/1/5/0", "3/2/6/0"}));
  EXPECT_EQ(AccUsed.At(Bolts), True);
  EXPECT_EQ(EntryOf(Bolts), "* Bolts with nut and washers");

  InDialogOf(Bolts, [this](QWidget& form) {
    Enter(form, 2, "32767");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Lines1(), (Texts{"3/1/5/0", "3/2/32767/0"}));
}

TEST_F(Acc01Test, The_value_column_is_shown_stored_and_cleared_where_an_accessory_has_it) {
  AccDefs.At(Bolts).HasParamColumn = True;
  Put1(Bolts, 2, 6, 140);
  InDialogOf(Bolts, [this](QWidget& form) {
    EXPECT_TRUE(Param(form, 4).isVisible());
    EXPECT_EQ(Param(form, 2).text(), "140");
    EXPECT_EQ(Param(form, 1).text(), "");
    Enter(form, 1, "3");
    Press(Qt::Key_Return);
    EXPECT_EQ(Focus(), "txtParam(1)");
    Type("2x5");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Lines1(), (Texts{"3/1/3/25", "3/2/6/140"}));
  InDialogOf(Bolts, [](QWidget& form) {
    ClickButton(form, 1);
    EXPECT_EQ(Quantities(form), (Texts{"", "", "", ""}));
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(Param(form, i).text(), "");
  });
  EXPECT_EQ(Lines1(), (Texts{"3/1/3/25", "3/2/6/140"}));
}

TEST_F(Acc01Test, Without_the_value_column_its_fields_neither_show_nor_store) {
  Put1(Bolts, 2, 6, 140);
  InDialogOf(Bolts, [](QWidget& form) {
    EXPECT_EQ(Param(form, 2).text(), "");
    Param(form, 2).setText("99");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Lines1(), Texts{"3/2/6/0"});
}

// Clear and Cancel.

TEST_F(Acc01Test, Clear_empties_the_fields_and_stores_nothing) {
  Put1(Bolts, 1, 5);
  InDialogOf(Bolts, [this](QWidget& form) {
    Enter(form, 2, "9");
    QTest::keyClick(&form, Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Qty(form, 1).text().isEmpty(); }));
    EXPECT_EQ(Quantities(form), (Texts{"", "", "", ""}));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Lines1(), Texts{"3/1/5/0"});
    EXPECT_EQ(AccUsed.At(Bolts), True);
  });
}

TEST_F(Acc01Test, Clear_followed_by_Cancel_changes_nothing) {
  Put1(Bolts, 1, 5);
  InDialogOf(Bolts, [](QWidget& form) {
    ClickButton(form, 1);
    ClickButton(form, 3);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Lines1(), Texts{"3/1/5/0"});
  EXPECT_EQ(AccUsed.At(Bolts), True);
  EXPECT_EQ(EntryOf(Bolts), "* Bolts with nut and washers");
  InDialogOf(Bolts, [](QWidget& form) { EXPECT_EQ(Quantities(form).at(0), "5"); });
}

TEST_F(Acc01Test, Nothing_is_asked_where_nothing_was_changed_and_No_goes_back_to_the_fields) {
  Put1(Bolts, 1, 5);
  InDialogOf(Bolts, [this](QWidget& form) {
    Enter(form, 1, "77");
    dialogs.ExpectBox("Discard the changes?", "", QMessageBox::No);
    Press(Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Quantities(form).at(0), "77");
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return form.isActiveWindow(); }));
    Enter(form, 1, "5");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Lines1(), Texts{"3/1/5/0"});
}

TEST_F(Acc01Test, Every_way_out_but_OK_is_Cancel) {
  Put1(Bolts, 1, 5);
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { ClickButton(form, 3); },
      [this](QWidget&) {
        dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
        Press(Qt::Key_Escape);
      },
      [this](QWidget& form) {
        dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
        form.close();
      },
      [](QWidget& form) { QTest::keyClick(&form, Qt::Key_C, Qt::AltModifier); },
  };
  for (const auto& way : ways) {
    AccDialogResult = "OK";
    InDialogOf(Bolts, [&](QWidget& form) {
      EXPECT_EQ(AccDialogResult, "Cancelled");
      Enter(form, 1, "77");
      way(form);
      EXPECT_TRUE(QTest::qWaitFor([&] { return !form.isVisible(); }));
    });
    EXPECT_EQ(AccDialogResult, "Cancelled");
    EXPECT_EQ(Lines1(), Texts{"3/1/5/0"});
  }
}

// Print.

TEST_F(Acc01Test, Print_prints_what_the_fields_show_saved_or_not) {
  const std::string path = TempPath("sheet.pdf");
  PrintInto(path);
  Put1(HalfSleeves, 2, 5);
  InDialogOf(HalfSleeves, [this](QWidget& form) {
    Enter(form, 1, "12");
    Enter(form, 2, "0");
    QTest::keyClick(&form, Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return asked > 0; }));
    EXPECT_TRUE(form.isVisible());
    ClickButton(form, 3);
  });
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(askedBy, "frmAcc01");
  EXPECT_EQ(jobName.rfind("Half sleeves", 0), 0U) << jobName;
  EXPECT_EQ(Lines1(), Texts{"5/2/5/0"});
  const std::string text = TextOfPdf(path);
  EXPECT_NE(text.find("Descripton"), std::string::npos) << text;
  EXPECT_NE(text.find("Half sleeve 90 long"), std::string::npos) << text;
  EXPECT_NE(text.find("KHL90"), std::string::npos) << text;
  EXPECT_NE(text.find("12"), std::string::npos) << text;
  // A size without a number has no line.
  EXPECT_EQ(text.find("KHL190"), std::string::npos) << text;
}

TEST_F(Acc01Test, A_print_that_is_called_off_leaves_the_dialog_as_it_is) {
  PrintInto("");
  InDialogOf(HalfSleeves, [this](QWidget& form) {
    Enter(form, 1, "12");
    ClickButton(form, 2);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Quantities(form), (Texts{"12", ""}));
  });
  EXPECT_EQ(asked, 1);
}

TEST_F(Acc01Test, A_print_that_fails_is_told_and_leaves_the_dialog_open) {
  ReplacePrintDialog([](QPrinter&, QWidget*) -> bool {
    throw RuntimeError(SystemErrorBase, "No printer is installed");
  });
  InDialogOf(HalfSleeves, [this](QWidget& form) {
    Enter(form, 1, "12");
    dialogs.ExpectBox("No printer is installed");
    ClickButton(form, 2);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Quantities(form), (Texts{"12", ""}));
  });
}

}  // namespace
}  // namespace orvane::test
