// The accessory list of the main window: its entries, its marks, what its focus means.
#include <QContextMenuEvent>
#include <QImage>
#include <QWheelEvent>

#include "tests/screens/sections_fixture.h"
#include "tests/support/patience.h"
#include "ui/accessory_chooser.h"

namespace orvane::test {
namespace {

class AccessoryChooserTest : public SectionsTest {
 protected:
  AccessoryChooser& List() { return Find<AccessoryChooser>("lstAccessories"); }

  std::vector<std::string> Entries() {
    std::vector<std::string> entries;
    for (int at = 0; at < List().count(); ++at) entries.push_back(FromQt(List().item(at)->text()));
    return entries;
  }

  QPoint PlaceOf(int entry) { return List().visualItemRect(List().item(entry)).center(); }

  // What the list shows of an entry behind its mark.
  QImage NameOf(int entry) {
    const QRect whole = List().visualItemRect(List().item(entry));
    const int mark = List().fontMetrics().horizontalAdvance("* ") + 6;
    return List().viewport()->grab(whole.adjusted(mark, 0, 0, 0)).toImage();
  }
};

std::vector<std::string> Unmarked() {
  std::vector<std::string> entries;
  for (const AccDef& accessory : AccDefs) entries.push_back("  " + accessory.Name);
  return entries;
}

TEST_F(AccessoryChooserTest, The_list_holds_the_whole_catalogue_in_its_order_without_marks) {
  EXPECT_EQ(AccType1Count, 5);
  EXPECT_EQ(AccType2Count, 17);
  const std::vector<std::string> entries = Entries();
  ASSERT_EQ(entries.size(), 22U);
  EXPECT_EQ(entries.at(0), "  Purlin and rail cleats");
  EXPECT_EQ(entries.at(4), "  Half sleeves");
  EXPECT_EQ(entries.at(5), "  Purlin sleeves");
  EXPECT_EQ(entries.at(21), "  Loose washer plates");
  EXPECT_EQ(entries, Unmarked());
}

TEST_F(AccessoryChooserTest, Filling_the_list_again_doesnt_double_it) {
  List().FillAccessoryList();
  EXPECT_EQ(Entries(), Unmarked());
}

TEST_F(AccessoryChooserTest, SetAccUsage_marks_what_the_project_uses_and_nothing_else) {
  AccUsed.At(1) = True;
  AccUsed.At(3) = True;
  main->SetAccUsage();
  std::vector<std::string> expected = Unmarked();
  expected.at(0) = "* Purlin and rail cleats";
  expected.at(2) = "* Bolts with nut and washers";
  EXPECT_EQ(Entries(), expected);

  AccUsed.At(1) = False;
  main->SetAccUsage();
  expected.at(0) = "  Purlin and rail cleats";
  EXPECT_EQ(Entries(), expected);
}

TEST_F(AccessoryChooserTest, ClearAccUsage_blanks_every_mark_whatever_the_flags_say) {
  AccUsed.At(1) = True;
  AccUsed.At(22) = True;
  main->SetAccUsage();
  ASSERT_NE(Entries(), Unmarked());
  main->ClearAccUsage();
  EXPECT_EQ(Entries(), Unmarked());
  EXPECT_EQ(AccUsed.At(1), True);
}

TEST_F(AccessoryChooserTest, Marking_isnt_a_change_of_the_project) {
  ASSERT_EQ(ProjectDirty, False);
  AccUsed.At(1) = True;
  main->SetAccUsage();
  main->ClearAccUsage();
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(AccessoryChooserTest, A_name_doesnt_move_when_its_mark_comes) {
  const QImage before = NameOf(0);
  ASSERT_FALSE(before.isNull());
  AccUsed.At(1) = True;
  main->SetAccUsage();
  EXPECT_EQ(NameOf(0), before);
}

TEST_F(AccessoryChooserTest, The_mark_is_drawn_in_front_of_the_name) {
  const QRect entry = List().visualItemRect(List().item(0));
  const QImage before = List().viewport()->grab(entry).toImage();
  AccUsed.At(1) = True;
  main->SetAccUsage();
  EXPECT_NE(List().viewport()->grab(entry).toImage(), before);
}

TEST_F(AccessoryChooserTest, The_start_doesnt_give_the_list_the_focus_or_change_the_project) {
  EXPECT_NE(Focus(), "lstAccessories");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(AccessoryChooserTest, A_click_on_the_list_makes_the_project_changed_whatever_follows) {
  QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(2));
  EXPECT_EQ(Focus(), "lstAccessories");
  EXPECT_EQ(List().currentRow(), 2);
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(Entries(), Unmarked());
}

TEST_F(AccessoryChooserTest, Only_a_real_arrival_of_the_user_counts) {
  struct Arrival {
    Qt::FocusReason Reason;
    Boolean Changes;
  };
  const std::vector<Arrival> arrivals = {
      {Qt::MouseFocusReason, True},         {Qt::TabFocusReason, True},
      {Qt::BacktabFocusReason, True},       {Qt::ShortcutFocusReason, True},
      {Qt::ActiveWindowFocusReason, False}, {Qt::PopupFocusReason, False},
      {Qt::OtherFocusReason, False},        {Qt::MenuBarFocusReason, False},
  };
  for (const Arrival& arrival : arrivals) {
    main->centralWidget()->setFocus();
    ASSERT_NE(Focus(), "lstAccessories");
    ProjectDirty = False;
    List().setFocus(arrival.Reason);
    ASSERT_EQ(Focus(), "lstAccessories");
    EXPECT_EQ(ProjectDirty, arrival.Changes) << "reason " << arrival.Reason;
  }
}

TEST_F(AccessoryChooserTest, The_way_back_from_a_message_box_isnt_an_arrival) {
  QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(0));
  ASSERT_EQ(Focus(), "lstAccessories");
  ProjectDirty = False;
  dialogs.ExpectBox("Punching pattern must be 'Custom'");
  main->Run(Command::HolesAbsolute);
  Settle();
  main->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(main.get(), Patience));
  EXPECT_EQ(Focus(), "lstAccessories");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(AccessoryChooserTest, Turning_the_wheel_over_the_list_isnt_an_arrival) {
  const QPoint place = PlaceOf(0);
  QWheelEvent wheel(place, List().viewport()->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(List().viewport(), &wheel);
  EXPECT_NE(Focus(), "lstAccessories");
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(List().focusPolicy(), Qt::ClickFocus);
}

TEST_F(AccessoryChooserTest,
       Moving_through_the_sections_never_changes_the_project_through_the_list) {
  Put("Z", "Z1", "Z14012", 3000);
  Put("V", "V1", "VCR", 2000);
  Show(1, 1);
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Up, Qt::Key_Backtab}) {
    Press(key);
    EXPECT_NE(Focus(), "lstAccessories");
  }
  ClickCell(Sections(), 2, 5);
  ClickCell(Sections(), 1, 2);
  EXPECT_NE(Focus(), "lstAccessories");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(AccessoryChooserTest, Typed_letters_lead_to_the_name_behind_the_mark) {
  AccUsed.At(7) = True;
  main->SetAccUsage();
  QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(0));
  struct Step {
    std::string Typed;
    std::string Name;
  };
  // Each behind an Esc, which ends the letters before.
  const std::vector<Step> steps = {
      {"h", "Half sleeves"},
      {"splice", "Splice plates"},
      {"e", "Eaves beam cleats"},
      {"eaves br", "Eaves braces"},
      {"eaves s", "Eaves struts"},
      {"sag bars (sp", "Sag bars (spring fix)"},
      {"sag bars (sx", "Sag bars (screw fix)"},  // as far as the letters fitted
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.Typed);
    Press(Qt::Key_Escape);
    Type(step.Typed);
    ASSERT_NE(List().currentItem(), nullptr);
    EXPECT_EQ(FromQt(List().currentItem()->text().mid(2)), step.Name);
    EXPECT_EQ(List().selectedItems(), QList<QListWidgetItem*>{List().currentItem()});
  }
}

TEST_F(AccessoryChooserTest, The_right_button_selects_the_entry_under_the_pointer) {
  List().setCurrentRow(0);
  const auto menus = MenusOpenedBy([this] {
    QTest::mousePress(List().viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf(2));
  });
  EXPECT_EQ(menus.size(), 1U);
  EXPECT_EQ(List().currentRow(), 2);
  EXPECT_TRUE(List().item(2)->isSelected());
  EXPECT_FALSE(List().item(0)->isSelected());
}

TEST_F(AccessoryChooserTest, The_right_button_beside_the_entries_leaves_the_selection) {
  List().clear();
  List().addItem("  The only one");
  List().setCurrentRow(0);
  const QPoint beside = List().visualItemRect(List().item(0)).bottomLeft() + QPoint(5, 20);
  ASSERT_EQ(List().itemAt(beside), nullptr);
  const auto menus = MenusOpenedBy(
      [&] { QTest::mousePress(List().viewport(), Qt::RightButton, Qt::NoModifier, beside); });
  EXPECT_EQ(menus.size(), 1U);
  EXPECT_EQ(List().currentRow(), 0);
  EXPECT_TRUE(List().item(0)->isSelected());
}

}  // namespace
}  // namespace orvane::test
