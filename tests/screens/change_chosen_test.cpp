// One value for all chosen sections: of the current cell, and chosen in a dialog.
#include <QCheckBox>

#include "core/catalogues.h"
#include "project/history.h"
#include "project/project_file.h"
#include "tests/screens/chosen_fixture.h"
#include "ui/controls/plain_combo.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

class ChangeChosen : public ChosenTest {
 protected:
  void Fill() {
    Press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    Settle();
  }
  // Foresees the dialog, and opens it by its entry.
  void Change(const std::function<void(QDialog&)>& work) {
    dialogs.ExpectDialog("frmChange",
                         [=](QWidget& dialog) { work(dynamic_cast<QDialog&>(dialog)); });
    Entry("mnuEditChange").trigger();
    Settle();
  }
  static QLineEdit& Field(QDialog& dialog, const char* name) {
    return *dialog.findChild<QLineEdit*>(name);
  }
  static PlainCombo& List(QDialog& dialog, const char* name) {
    return *dialog.findChild<PlainCombo*>(name);
  }
  static bool IsTicked(QDialog& dialog, const char* name) {
    return dialog.findChild<QCheckBox*>(name)->isChecked();
  }
  static void TypeInto(QDialog& dialog, const char* name, const std::string& text) {
    QTest::keyClicks(&Field(dialog, name), ToQt(text));
  }
  static void Choose(QDialog& dialog, const char* name, const std::string& entry) {
    PlainCombo& list = List(dialog, name);
    QTest::keyClicks(&list, ToQt(entry));
    QTest::keyClick(&list, Qt::Key_Return);
  }
  static void PressOk(QDialog& dialog) { dialog.findChild<QPushButton*>("cmdOk")->click(); }
};

TEST_F(ChangeChosen, Filling_puts_the_current_cell_into_the_chosen_rows_as_one_step) {
  ShowPurlins(4, 2, 3);
  Retype("7250");
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  ASSERT_EQ(Chosen(), (std::vector<int>{2, 3, 4}));
  const int row = Sections().Row();
  ASSERT_EQ(row, 2);
  Fill();
  for (const int filled : {2, 3, 4}) EXPECT_EQ(Items.At(filled).Length, 7250);
  EXPECT_EQ(Items.At(1).Length, 6000);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(2, 3, "7250"));
  EXPECT_EQ(Chosen(), (std::vector<int>{2, 3, 4})) << "they stay chosen";
  Press(Qt::Key_Z, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Items.At(2).Length, 7250);
  EXPECT_EQ(Items.At(3).Length, 6000);
}

TEST_F(ChangeChosen, Marks_are_not_filled) {
  ShowPurlins(3, 1, 1);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  dialogs.ExpectBox("Each section has a mark of its own");
  Fill();
  EXPECT_EQ(Items.At(2).Mark, "P2");
}

TEST_F(ChangeChosen, With_one_row_there_is_nothing_to_fill) {
  ShowPurlins(3, 1, 3);
  Fill();
  EXPECT_FALSE(IsChangedSinceSaved());
}

TEST_F(ChangeChosen, The_dialog_changes_what_is_ticked_in_all_of_them) {
  ShowPurlins(4, 1, 4);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Change([](QDialog& dialog) {
    TypeInto(dialog, "txtLength", "5000");
    EXPECT_TRUE(IsTicked(dialog, "chkLength")) << "what is typed is meant";
    Choose(dialog, "cboPattern", "Butt 1 Sag Bar");
    EXPECT_TRUE(IsTicked(dialog, "chkPattern"));
    EXPECT_FALSE(IsTicked(dialog, "chkNotes"));
    PressOk(dialog);
  });
  for (const int row : {1, 2}) {
    EXPECT_EQ(Items.At(row).Length, 5000);
    EXPECT_EQ(Items.At(row).PatternName, "Butt 1 Sag Bar");
    EXPECT_EQ(Items.At(row).Quantity, 2);
  }
  EXPECT_EQ(Items.At(3).Length, 6000);
  EXPECT_EQ(StepToUndo(), "Change sections");
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(ChangeChosen, Lengths_are_added_to_and_notes_replaced_in) {
  ShowPurlins(2, 1, 4);
  Items.At(1).Notes = "north bay";
  Items.At(2).Notes = "north end";
  Press(Qt::Key_A, Qt::ControlModifier);
  Change([](QDialog& dialog) {
    Choose(dialog, "cboLengthBy", "Add");
    TypeInto(dialog, "txtLength", "-10");
    Choose(dialog, "cboNotesBy", "Replace");
    EXPECT_TRUE(Field(dialog, "txtNotesFrom").isVisible());
    // Every way can be read.
    for (const char* name : {"cboLengthBy", "cboNotesBy"}) {
      PlainCombo& ways = List(dialog, name);
      const int text = ways.fontMetrics().horizontalAdvance("Replace");
      EXPECT_GT(ways.width(), text) << name;
    }
    TypeInto(dialog, "txtNotesFrom", "north");
    TypeInto(dialog, "txtNotes", "south");
    PressOk(dialog);
  });
  EXPECT_EQ(Items.At(1).Length, 5990);
  EXPECT_EQ(Items.At(1).Notes, "south bay");
  EXPECT_EQ(Items.At(2).Notes, "south end");
}

TEST_F(ChangeChosen, A_field_that_cannot_be_taken_keeps_the_dialog) {
  ShowPurlins(2, 1, 4);
  Change([](QDialog& dialog) {
    dialog.findChild<QCheckBox*>("chkProduct")->click();
    TypeInto(dialog, "txtLength", "6.5");
    PressOk(dialog);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(IsFieldRefused(List(dialog, "cboProduct")));
    EXPECT_TRUE(IsFieldRefused(Field(dialog, "txtLength")));
    dialog.findChild<QPushButton*>("cmdCancel")->click();
  });
  EXPECT_EQ(Items.At(1).Length, 6000);
}

TEST_F(ChangeChosen, What_is_left_is_named) {
  ShowPurlins(2, 1, 4);
  Put("C", "C1", "C14012", 5000, 1);
  main->DisplayItems();
  main->SelectFirstItem();
  Press(Qt::Key_A, Qt::ControlModifier);
  const std::string other = SectionDims.At(2).Product;
  Change([&](QDialog& dialog) {
    dialogs.ExpectBox("Left as they are:\nC1: Its family has no product " + other);
    Choose(dialog, "cboProduct", other);
    PressOk(dialog);
  });
  EXPECT_EQ(Items.At(1).Product, other);
  EXPECT_EQ(Items.At(3).Product, "C14012");
}

TEST_F(ChangeChosen, Holes_placed_by_hand_are_asked_about_once) {
  ShowPurlins(3, 1, 4);
  for (const int row : {1, 2}) {
    Items.At(row).PatternName = "Custom";
    Hole hole;
    hole.XPos = 100;
    hole.Kind = CustomKind;
    Items.At(row).Holes.Append(hole);
    Items.At(row).CustomHoleCount = 1;
  }
  main->DisplayItems();
  main->SelectFirstItem();
  Press(Qt::Key_A, Qt::ControlModifier);
  const std::string question =
      "2 sections have holes placed by hand, which the pattern would take the place of.\nRemove "
      "them?";
  const auto choose = [&](QMessageBox::StandardButton answer) {
    Change([&](QDialog& dialog) {
      dialogs.ExpectBox(question, "", answer);
      if (answer == QMessageBox::No) {
        dialogs.ExpectBox(
            "Left as they are:\nP1: It has holes placed by hand\nP2: It has holes placed by hand");
      }
      Choose(dialog, "cboPattern", "Butt");
      PressOk(dialog);
    });
  };
  choose(QMessageBox::Cancel);
  EXPECT_FALSE(IsChangedSinceSaved());
  choose(QMessageBox::No);
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  choose(QMessageBox::Yes);
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_EQ(Items.At(2).PatternName, "Butt");
}

}  // namespace
}  // namespace orvane::test
