// Names typed in the cells of the dialogs' tables: the codes of notches and the choices of a type 2
// accessory.
#include <QToolTip>

#include "tests/screens/acc02_fixture.h"
#include "tests/screens/notches_fixture.h"
#include "tests/support/patience.h"
#include "ui/controls/plain_combo.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

class TypedCodes : public NotchesTest {};

std::string RefusalIn(FlexGrid& grid, int row, int column) {
  return FromQt(grid.Model().RefusalOfCell(row, column));
}

TEST_F(TypedCodes, A_code_is_chosen_when_it_is_typed_in_full_or_one_is_left) {
  ShowOne();
  InDialog([this](QWidget& form) {
    Click(form, 1, 1);
    Keys("tr");
    EXPECT_EQ(Cells(form).front().at(0), "");
    Key(Qt::Key_Tab);
    ExpectEditing(form, 1, 2, "");
    EXPECT_EQ(Cells(form).front().at(0), "TR1");
    for (const char* size : {"20", "30", "400"}) {
      Keys(size);
      Key(Qt::Key_Tab);
    }
    Click(form, 1, 1);
    Keys("b2");
    Ok(form);  // leaves the cell
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"B2", "20", "30", "400"}}));
}

TEST_F(TypedCodes, Enter_and_Tab_stay_and_Down_leaves_where_several_codes_fit) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 1, 1);
    Keys("b");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
      Key(key);
      ExpectEditing(form, 1, 1, "TL1");
      EXPECT_EQ(FromQt(Codes(form).toolTip()), "3 entries begin with \"b\"");
    }
    Key(Qt::Key_Down);
    ExpectEditing(form, 2, 1, "B2");
    EXPECT_FALSE(IsFieldRefused(Codes(form)));
    EXPECT_EQ(RefusalIn(Grid(form), 1, 1), "3 entries begin with \"b\"");
    EXPECT_EQ(Cells(form), ThreeTexts);
    Keys("br");
    Key(Qt::Key_Up);
    ExpectEditing(form, 1, 1, "TL1");
    EXPECT_EQ(Cells(form).at(1).at(0), "BR1");
    EXPECT_EQ(RefusalIn(Grid(form), 1, 1), "");
  });
}

TEST_F(TypedCodes, Escape_takes_the_letters_back_before_it_closes_the_dialog) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 1, 1);
    Keys("bx");
    EXPECT_TRUE(IsFieldRefused(Codes(form)));
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    ExpectEditing(form, 1, 1, "TL1");
    EXPECT_FALSE(IsFieldRefused(Codes(form)));
    EXPECT_EQ(Cells(form), ThreeTexts);
  });
}

TEST_F(TypedCodes, A_row_that_goes_takes_its_letters_and_its_refusal_along) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 2, 1);
    Keys("b");
    Click(form, 1, 1);
    ASSERT_NE(RefusalIn(Grid(form), 2, 1), "");
    Keys("r3");
    ClickButton(form, "cmdNotch(1)");
    QCoreApplication::processEvents();
    EXPECT_EQ(Cells(form), (std::vector<Texts>{ThreeTexts.at(1), ThreeTexts.at(2)}));
    EXPECT_NE(RefusalIn(Grid(form), 1, 1), "");
    EXPECT_EQ(RefusalIn(Grid(form), 2, 1), "");
    ClickButton(form, "cmdNotch(2)");
    EXPECT_EQ(RefusalIn(Grid(form), 1, 1), "");
  });
}

TEST_F(TypedCodes, Delete_empties_a_code_with_its_letters_and_Escape_takes_it_back) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 2, 1);
    Keys("zz");
    Key(Qt::Key_Delete);
    ExpectEditing(form, 2, 1, "");
    EXPECT_EQ(Cells(form).at(1).at(0), "");
    EXPECT_FALSE(IsFieldRefused(Codes(form)));
    Key(Qt::Key_Escape);
    ExpectEditing(form, 2, 1, "B2");
    EXPECT_EQ(Cells(form), ThreeTexts);
    Key(Qt::Key_Delete);
    Ok(form);
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{ThreeTexts.at(0), ThreeTexts.at(2)}));
}

TEST_F(TypedCodes, Escape_acts_on_list_letters_cell_and_dialog_in_this_order) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    ClickButton(form, "cmdNotch(0)");  // a row more: something is changed
    Click(form, 1, 1);
    Keys("t2");
    Key(Qt::Key_Left);  // takes the entry shown, and stays in the cell
    EXPECT_EQ(Cells(form).at(0).at(0), "T2");
    Keys("b");
    Key(Qt::Key_F4);
    QWidget& view = *Codes(form).view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view.window(), Patience));
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(view.isVisible());
    const auto& codes = dynamic_cast<const PlainCombo&>(Codes(form));
    EXPECT_EQ(FromQt(codes.Typed().Letters()), "b");
    Codes(form).setFocus();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(codes.Typed().Pending());
    EXPECT_EQ(Cells(form).at(0).at(0), "T2");
    // One that is held down does no more.
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, "", true);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
    EXPECT_EQ(Cells(form).at(0).at(0), "T2");
    Key(Qt::Key_Escape);
    ExpectEditing(form, 1, 1, "TL1");
    dialogs.ExpectBox("Discard the changes?", "", QMessageBox::No);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return form.isActiveWindow(); }));
    dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Stored(), ThreeTexts);
}

TEST_F(TypedCodes, The_tip_of_a_cell_left_open_tells_the_reason) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 2, 1);
    Keys("b");
    Click(form, 1, 2);
    FlexGrid& grid = Grid(form);
    const QPoint place = grid.CellRect(2, 1).center();
    QHelpEvent rests(QEvent::ToolTip, place, grid.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(grid.viewport(), &rests);
    EXPECT_NE(FromQt(QToolTip::text()).find("3 entries begin with"), std::string::npos);
    QToolTip::hideText();
  });
}

class TypedChoices : public Acc02Test {
 protected:
  void SetUp() override {
    Acc02Test::SetUp();
    PutLine(SplicePlates, "A1", 1, {"Z14012", "2.0", "300"});
    PutLine(SplicePlates, "A2", 2, {"Z17012", "3.0", "310"});
  }
};

TEST_F(TypedChoices, A_choice_is_taken_by_Tab_by_Down_by_a_click_and_by_OK) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 4);
    Keys("3");
    EXPECT_EQ(Cells(form).at(0).at(3), "2.0");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Cells(form).at(0).at(3), "3.0");
    Click(form, 1, 4);
    Keys("2.0");
    Key(Qt::Key_Down);
    EXPECT_EQ(Cells(form).at(0).at(3), "2.0");
    Keys("2.4");
    Click(form, 1, 1);
    EXPECT_EQ(Cells(form).at(1).at(3), "2.4");
    Click(form, 2, 4);
    Keys("3");
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(SplicePlates), (std::vector<Texts>{{"A1", "1", "Z14012", "2.0", "300"},
                                                      {"A2", "2", "Z17012", "3.0", "310"}}));
}

TEST_F(TypedChoices, Escape_takes_a_cell_back_and_Delete_empties_a_choice) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 1, 3);
    Keys("Z24520");
    Key(Qt::Key_Escape);
    ExpectEditing(form, 1, 3, "Z14012");
    EXPECT_TRUE(form.isVisible());
    Key(Qt::Key_Tab);
    EXPECT_EQ(Cells(form).at(0).at(2), "Z14012");
    Key(Qt::Key_Delete);
    ExpectEditing(form, 1, 4, "");
    Key(Qt::Key_Escape);
    ExpectEditing(form, 1, 4, "2.0");
    Key(Qt::Key_Delete);
    Key(Qt::Key_Down);
    EXPECT_EQ(Cells(form).at(0).at(3), "");
    // A text is edited by Delete as ever.
    Click(form, 2, 5);
    Key(Qt::Key_Delete);
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(SplicePlates), (std::vector<Texts>{{"A1", "1", "Z14012", "", "300"},
                                                      {"A2", "2", "Z17012", "3.0", ""}}));
}

TEST_F(TypedChoices, Letters_that_leave_the_choice_open_change_nothing_and_hold_OK_back) {
  InDialog(SplicePlates, [this](FrmAcc02& form) {
    Click(form, 2, 4);
    Keys("2.");
    Key(Qt::Key_Return);
    ExpectEditing(form, 2, 4, "3.0");
    EXPECT_EQ(FromQt(Choices(form, 4).toolTip()), "2 entries begin with \"2.\"");
    Click(form, 1, 1);
    EXPECT_EQ(RefusalIn(Grid(form), 2, 4), "2 entries begin with \"2.\"");
    EXPECT_EQ(Cells(form).at(1).at(3), "3.0");
    ClickButton(form, 0);
    ASSERT_TRUE(form.isVisible());
    ExpectEditing(form, 2, 4, "3.0");
    EXPECT_EQ(FromQt(Choices(form, 4).toolTip()), "2 entries begin with \"2.\"");
    EXPECT_EQ(Stored(SplicePlates).at(1), (Texts{"A2", "2", "Z17012", "3.0", "310"}));
    Keys("2.0");
    ClickButton(form, 0);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Stored(SplicePlates).at(1), (Texts{"A2", "2", "Z17012", "2.0", "310"}));
}

}  // namespace
}  // namespace orvane::test
