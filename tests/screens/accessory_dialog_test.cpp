// The accessory list: its pop-up, and which dialog it opens.
#include <filesystem>

#include "core/program_folder.h"
#include "project/lifecycle.h"
#include "project/project_file.h"
#include "tests/screens/accessories_fixture.h"

namespace orvane::test {
namespace {

using Texts = std::vector<std::string>;

class AccessoryDialogTest : public AccessoriesTest {
 protected:
  // A click presses the button of a dialog.
  static void PressOk(QWidget& form) {
    const std::string name = form.objectName() == "frmAcc01" ? "SSCommand2(0)" : "cmdButton(0)";
    QTest::mouseClick(&Find<QPushButton>(form, name), Qt::LeftButton);
  }
  static QLineEdit& Quantity(QWidget& form, int size) {
    return Find<QLineEdit>(form, "txtQty(" + std::to_string(size) + ")");
  }
  static void TypeQuantity(QWidget& form, int size, const std::string& text) {
    Quantity(form, size).setFocus();
    Quantity(form, size).selectAll();
    QTest::keyClick(&Quantity(form, size), Qt::Key_Delete);
    QTest::keyClicks(&Quantity(form, size), ToQt(text));
  }
  static void Nothing(QWidget&) {}

  // A program's folder that lacks the pictures.
  void LoseThePictures() {
    ProgramFolder = TempPath("program");
    std::filesystem::create_directories(ProgramFolder);
  }
};

// Which dialog opens.

TEST_F(AccessoryDialogTest, A_double_click_opens_the_dialog_of_the_entrys_type) {
  for (const int index : {PurlinCleats, HalfSleeves, PurlinSleeves, 22}) {
    SCOPED_TRACE(index);
    CurrentAcc = 0;
    InDialogOf(index, [&](QWidget& form) {
      EXPECT_EQ(FromQt(form.objectName()), index <= 5 ? "frmAcc01" : "frmAcc02");
      EXPECT_TRUE(form.isModal());
      EXPECT_EQ(CurrentAcc, index);
      EXPECT_EQ(FromQt(form.windowTitle()), AccDefs.At(index).Name);
    });
  }
}

TEST_F(AccessoryDialogTest, The_border_between_the_types_is_that_of_the_catalogue) {
  AccType1Count = 3;
  AccType2Count = 19;
  InDialogOf(3, [](QWidget& form) { EXPECT_EQ(FromQt(form.objectName()), "frmAcc01"); });
  InDialogOf(4, [](QWidget& form) { EXPECT_EQ(FromQt(form.objectName()), "frmAcc02"); });
}

TEST_F(AccessoryDialogTest, A_double_click_beside_the_entries_opens_nothing) {
  List().clear();
  List().addItem("  The only one");
  List().setCurrentRow(0);
  CurrentAcc = 7;
  const QPoint beside = List().visualItemRect(List().item(0)).bottomLeft() + QPoint(5, 20);
  QTest::mouseDClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, beside);
  Settle();
  EXPECT_EQ(CurrentAcc, 7);
}

TEST_F(AccessoryDialogTest, Without_a_selection_nothing_opens_and_no_mark_changes) {
  AccUsed.At(1) = True;
  AccDialogResult = "OK";
  CurrentAcc = 4;
  List().setFocus(Qt::MouseFocusReason);
  ASSERT_TRUE(List().selectedItems().isEmpty());
  List().EditAccessories();
  Settle();
  EXPECT_EQ(CurrentAcc, 0);
  EXPECT_EQ(Marked(), std::vector<int>{});
  EXPECT_EQ(AccDialogResult, "OK");
}

TEST_F(AccessoryDialogTest, Enter_on_the_list_opens_the_dialog_of_the_selected_entry) {
  ClickEntry(Bolts);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    InDialog(
        "frmAcc01", [&] { Press(key); }, [](QWidget&) { EXPECT_EQ(CurrentAcc, Bolts); });
    EXPECT_EQ(Focus(), "lstAccessories");
  }
  InDialog(
      "frmAcc01", [&] { Press(Qt::Key_Enter, Qt::KeypadModifier); }, Nothing);
}

TEST_F(AccessoryDialogTest, A_key_that_is_held_down_opens_nothing_and_clears_nothing) {
  Put1(Bolts, 1, 5);
  ClickEntry(Bolts);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Delete}) {
    QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&List(), &held);
    EXPECT_TRUE(held.isAccepted());
  }
  Settle();
  EXPECT_EQ(Lines1(), Texts{"3/1/5/0"});
}

TEST_F(AccessoryDialogTest, The_keyboard_alone_leads_to_an_accessory_and_back) {
  QTest::keyClick(main.get(), Qt::Key_C, Qt::AltModifier);
  ASSERT_EQ(Focus(), "lstAccessories");
  // Whoever comes by the keyboard sees where he is.
  EXPECT_EQ(List().selectedItems(), QList<QListWidgetItem*>{List().item(0)});
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  InDialog(
      "frmAcc01", [&] { Press(Qt::Key_Return); },
      [&](QWidget& form) {
        EXPECT_EQ(FromQt(form.windowTitle()), "Bolts with nut and washers");
        EXPECT_EQ(Focus(), "txtQty(1)");
        Type("12");
        Press(Qt::Key_Return);
        Type("8");
        QTest::keyClick(&form, Qt::Key_O, Qt::AltModifier);
      });
  EXPECT_EQ(Lines1(), (Texts{"3/1/12/0", "3/2/8/0"}));
  EXPECT_EQ(EntryOf(Bolts), "* Bolts with nut and washers");
  EXPECT_EQ(Focus(), "lstAccessories");
}

TEST_F(AccessoryDialogTest, Coming_by_the_keyboard_leaves_the_entry_that_is_selected) {
  ClickEntry(4);
  main->centralWidget()->setFocus();
  QTest::keyClick(main.get(), Qt::Key_C, Qt::AltModifier);
  EXPECT_EQ(List().currentRow(), 3);
}

// The one mark.

TEST_F(AccessoryDialogTest, OK_with_a_number_marks_the_entry_and_nothing_else) {
  // A flag without its mark tells whether more than the one entry is rewritten.
  AccUsed.At(2) = True;
  InDialogOf(Bolts, [](QWidget& form) {
    TypeQuantity(form, 2, "5");
    PressOk(form);
  });
  EXPECT_EQ(AccDialogResult, "OK");
  EXPECT_EQ(Marked(), std::vector<int>{Bolts});
  EXPECT_EQ(EntryOf(Bolts), "* Bolts with nut and washers");
  EXPECT_EQ(AccUsed.At(Bolts), True);
}

TEST_F(AccessoryDialogTest, OK_without_a_number_takes_the_mark_and_the_lines) {
  Put1(Bolts, 1, 5);
  ASSERT_EQ(Marked(), std::vector<int>{Bolts});
  InDialogOf(Bolts, [](QWidget& form) {
    TypeQuantity(form, 1, "");
    PressOk(form);
  });
  EXPECT_EQ(EntryOf(Bolts), "  Bolts with nut and washers");
  EXPECT_EQ(AccUsed.At(Bolts), False);
  EXPECT_EQ(AccLines1.UBound(), 0);
}

TEST_F(AccessoryDialogTest, Leaving_without_a_change_rewrites_no_mark) {
  AccUsed.At(Bolts) = True;
  AccUsed.At(PurlinSleeves) = True;
  ASSERT_EQ(Marked(), std::vector<int>{});
  InDialogOf(Bolts, [](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
  InDialogOf(PurlinSleeves, [](QWidget& form) { form.close(); });
  EXPECT_EQ(AccDialogResult, "Cancelled");
  EXPECT_EQ(Marked(), std::vector<int>{});
}

TEST_F(AccessoryDialogTest, A_type_2_dialog_left_with_OK_takes_the_mark_of_an_empty_table) {
  AccUsed.At(PurlinSleeves) = True;
  main->SetAccUsage();
  InDialogOf(PurlinSleeves, [](QWidget& form) { PressOk(form); });
  EXPECT_EQ(AccUsed.At(PurlinSleeves), False);
  EXPECT_EQ(Marked(), std::vector<int>{});
}

TEST_F(AccessoryDialogTest, OK_is_a_change_though_the_list_had_the_focus_before_the_save) {
  ClickEntry(Bolts);
  ProjectDirty = False;
  InDialog(
      "frmAcc01", [&] { Press(Qt::Key_Return); },
      [](QWidget& form) {
        TypeQuantity(form, 1, "5");
        PressOk(form);
      });
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(AccessoryDialogTest, A_look_into_a_dialog_is_no_further_change) {
  ClickEntry(Bolts);
  ProjectDirty = False;
  InDialog(
      "frmAcc01", [&] { Press(Qt::Key_Return); }, Nothing);
  EXPECT_EQ(Focus(), "lstAccessories");
  EXPECT_EQ(ProjectDirty, False);
}

// The pop-up.

TEST_F(AccessoryDialogTest, The_right_button_opens_the_pop_up_with_its_two_entries) {
  const auto menus = MenusOpenedBy([this] { RightClickEntry(2); });
  EXPECT_EQ(menus, (std::vector<Texts>{{"Edit", "Clear"}}));
  EXPECT_EQ(FromQt(Popup().title()), "AccPopup");
  EXPECT_EQ(List().currentRow(), 1);
  EXPECT_FALSE(Entry("mnuAccPUI(0)").icon().isNull());
  EXPECT_FALSE(Entry("mnuAccPUI(1)").icon().isNull());
}

TEST_F(AccessoryDialogTest, The_right_button_counts_as_an_arrival) {
  ASSERT_EQ(ProjectDirty, False);
  MenusOpenedBy([this] { RightClickEntry(2); });
  EXPECT_EQ(Focus(), "lstAccessories");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(AccessoryDialogTest, The_pop_up_closed_again_leaves_all_as_it_was) {
  Put1(Bolts, 1, 5);
  ClickEntry(Bolts);
  ProjectDirty = False;
  EXPECT_EQ(MenusOpenedBy([this] { RightClickEntry(Bolts); }).size(), 1U);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Lines1(), Texts{"3/1/5/0"});
  EXPECT_EQ(Marked(), std::vector<int>{Bolts});
}

TEST_F(AccessoryDialogTest, The_right_button_twice_opens_the_pop_up_and_no_dialog) {
  const auto menus = MenusOpenedBy([this] {
    QTest::mouseDClick(List().viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf(2));
  });
  EXPECT_EQ(menus, (std::vector<Texts>{{"Edit", "Clear"}}));
}

TEST_F(AccessoryDialogTest, The_menu_key_opens_the_pop_up_under_the_selected_entry) {
  ClickEntry(4);
  struct MenuKey {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
  };
  for (const MenuKey& key :
       {MenuKey{Qt::Key_Menu, Qt::NoModifier}, MenuKey{Qt::Key_F10, Qt::ShiftModifier}}) {
    Press(key.Key, key.Modifiers);
    ASSERT_TRUE(Popup().isVisible());
    const QPoint under = List().visualItemRect(List().item(3)).bottomLeft();
    EXPECT_EQ(Popup().pos().x(), List().viewport()->mapToGlobal(under).x());
    // On a screen that ends below it, it opens upwards.
    EXPECT_LE(Popup().pos().y(), List().viewport()->mapToGlobal(under).y());
    QTest::keyClick(&Popup(), Qt::Key_Escape);
    EXPECT_FALSE(Popup().isVisible());
  }
}

TEST_F(AccessoryDialogTest, The_wish_for_a_menu_by_the_keyboard_opens_it_once) {
  ClickEntry(1);
  const auto menus = MenusOpenedBy([this] {
    Press(Qt::Key_Menu);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(3, 3),
                            List().mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(&List(), &event);
  });
  EXPECT_EQ(menus, (std::vector<Texts>{{"Edit", "Clear"}}));
  const auto wished = MenusOpenedBy([this] {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(3, 3),
                            List().mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(List().viewport(), &event);
  });
  EXPECT_EQ(wished, (std::vector<Texts>{{"Edit", "Clear"}}));
}

TEST_F(AccessoryDialogTest, Edit_opens_the_dialog_of_the_entry_pointed_at) {
  ClickEntry(1);
  InDialog(
      "frmAcc01",
      [this] {
        RightClickEntry(Bolts);
        ChooseFromPopup(0);
      },
      [](QWidget& form) {
        EXPECT_EQ(CurrentAcc, Bolts);
        TypeQuantity(form, 1, "3");
        PressOk(form);
      });
  EXPECT_EQ(Lines1(), Texts{"3/1/3/0"});
  EXPECT_EQ(Marked(), std::vector<int>{Bolts});
}

TEST_F(AccessoryDialogTest, Clear_takes_the_lines_of_a_type_1_accessory_at_once) {
  Put1(PurlinCleats, 1, 4);
  Put1(Bolts, 1, 5);
  Put1(Bolts, 2, 6);
  Put1(HalfSleeves, 1, 7);
  Put2(PurlinSleeves, "A", 1);
  // By the flags of all entries anew, not the one alone.
  AccUsed.At(2) = True;
  RightClickEntry(Bolts);
  ChooseFromPopup(1);
  Settle();
  EXPECT_EQ(Lines1(), (Texts{"1/1/4/0", "5/1/7/0"}));
  EXPECT_EQ(LinesOfType2(), Texts{"6/A/1"});
  EXPECT_EQ(AccUsed.At(Bolts), False);
  EXPECT_EQ(Marked(), (std::vector<int>{1, 2, 5, 6}));
  EXPECT_EQ(Entries().size(), 22U);
}

TEST_F(AccessoryDialogTest, Clear_takes_the_lines_of_a_type_2_accessory) {
  Put2(PurlinSleeves, "A", 1);
  Put2(SplicePlates, "B", 2);
  Put1(Bolts, 1, 5);
  RightClickEntry(PurlinSleeves);
  ChooseFromPopup(1);
  EXPECT_EQ(LinesOfType2(), Texts{"7/B/2"});
  EXPECT_EQ(Lines1(), Texts{"3/1/5/0"});
  EXPECT_EQ(Marked(), (std::vector<int>{Bolts, SplicePlates}));
}

TEST_F(AccessoryDialogTest, Clear_on_an_accessory_without_lines_changes_nothing_visible) {
  Put1(PurlinCleats, 1, 4);
  const Texts before = Entries();
  RightClickEntry(Bolts);
  ChooseFromPopup(1);
  EXPECT_EQ(Entries(), before);
  EXPECT_EQ(AccUsed.At(Bolts), False);
  EXPECT_EQ(Lines1(), Texts{"1/1/4/0"});
}

TEST_F(AccessoryDialogTest, Clear_without_a_selection_does_nothing) {
  Put1(PurlinCleats, 1, 4);
  ASSERT_TRUE(List().selectedItems().isEmpty());
  ProjectDirty = False;
  List().ClearAccessory();
  EXPECT_EQ(Lines1(), Texts{"1/1/4/0"});
  EXPECT_EQ(Marked(), std::vector<int>{PurlinCleats});
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(AccessoryDialogTest, Clear_is_a_change_though_the_list_had_the_focus_before_the_save) {
  Put1(Bolts, 1, 4);
  ClickEntry(Bolts);
  ProjectDirty = False;
  RightClickEntry(Bolts);
  ChooseFromPopup(1);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(AccessoryDialogTest, Delete_clears_the_selected_accessory) {
  Put1(Bolts, 1, 4);
  Put1(HalfSleeves, 1, 7);
  ClickEntry(Bolts);
  ProjectDirty = False;
  Press(Qt::Key_Delete);
  EXPECT_EQ(Lines1(), Texts{"5/1/7/0"});
  EXPECT_EQ(Marked(), std::vector<int>{HalfSleeves});
  EXPECT_EQ(ProjectDirty, True);
  // The list stays where it is.
  EXPECT_EQ(List().currentRow(), Bolts - 1);
  Press(Qt::Key_Delete, Qt::ShiftModifier);
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Lines1(), Texts{"5/1/7/0"});
}

// Errors.

TEST_F(AccessoryDialogTest, A_missing_picture_stops_the_opening_with_the_systems_text) {
  Put1(PurlinCleats, 1, 4);
  Put2(PurlinSleeves, "A", 1);
  LoseThePictures();
  AccDialogResult = "OK";
  main->ClearAccUsage();
  for (const int index : {PurlinCleats, PurlinSleeves}) {
    SCOPED_TRACE(index);
    dialogs.ExpectBox("File not found: " + ProgramFolder + "/Drawings/" +
                      AccDefs.At(index).DrawingFile + ".wmf");
    DoubleClickEntry(index);
    Settle();
    BackToMain();
    EXPECT_EQ(AccDialogResult, "Cancelled");
    EXPECT_EQ(Marked(), std::vector<int>{});
  }
  EXPECT_EQ(Lines1(), Texts{"1/1/4/0"});
  EXPECT_EQ(LinesOfType2(), Texts{"6/A/1"});
  // One without a picture opens all the same.
  InDialogOf(Bolts, Nothing);
}

TEST_F(AccessoryDialogTest, An_error_of_the_pop_up_is_told_in_a_box) {
  LoseThePictures();
  dialogs.ExpectBox("File not found: " + ProgramFolder + "/Drawings/acc01.wmf");
  RightClickEntry(PurlinCleats);
  ChooseFromPopup(0);
  Settle();
  BackToMain();
  // The flags may be fewer than the catalogue's rows.
  AccUsed.Resize(2);
  dialogs.ExpectBox("Subscript out of range");
  RightClickEntry(Bolts);
  ChooseFromPopup(1);
  Settle();
  BackToMain();
}

TEST_F(AccessoryDialogTest, Errors_of_the_keys_are_told_in_a_box) {
  LoseThePictures();
  ClickEntry(PurlinCleats);
  dialogs.ExpectBox("File not found: " + ProgramFolder + "/Drawings/acc01.wmf");
  Press(Qt::Key_Return);
  Settle();
  BackToMain();
}

// The life of the project.

TEST_F(AccessoryDialogTest, A_new_project_has_no_accessories_and_no_marks) {
  Put1(Bolts, 1, 4);
  Put2(PurlinSleeves, "A", 1);
  ProjectDirty = False;
  ExpectDetails();
  main->Run(Command::New);
  Settle();
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccLines2.UBound(), 0);
  ASSERT_EQ(AccUsed.UBound(), 22);
  for (const Boolean used : AccUsed) EXPECT_EQ(used, False);
  EXPECT_EQ(Marked(), std::vector<int>{});
}

TEST_F(AccessoryDialogTest, An_opened_project_brings_its_lines_and_marks) {
  Put1(Bolts, 1, 4);
  Put2(SplicePlates, "A", 1);
  const std::string path = TempPath("job.ovd");
  WriteProjectFile(path);
  AccLines1.Clear();
  AccLines2.Clear();
  for (Boolean& used : AccUsed) used = False;
  AccUsed.At(1) = True;
  main->SetAccUsage();
  ProjectDirty = False;
  OpenFile(path);
  Settle();
  EXPECT_EQ(Marked(), (std::vector<int>{Bolts, SplicePlates}));
  EXPECT_EQ(Lines1(), Texts{"3/1/4/0"});
  EXPECT_EQ(LinesOfType2(), Texts{"7/A/1"});
}

TEST_F(AccessoryDialogTest, The_list_alone_with_the_focus_brings_the_save_prompt_at_the_exit) {
  Put("Z", "Z1", "Z14012", 3000);
  Show();
  ASSERT_EQ(ProjectDirty, False);
  ClickEntry(Bolts);
  dialogs.ExpectBox("Save changes to current project?", "Exit", QMessageBox::No);
  EXPECT_TRUE(EndsProgram([this] { main->close(); }));
}

}  // namespace
}  // namespace orvane::test
