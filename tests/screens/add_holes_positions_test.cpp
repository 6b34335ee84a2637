// The hole dialog when it adds: positions refused and taken.
#include "tests/screens/hole_dialog_fixture.h"

namespace orvane::test {
namespace {

class HolePositionTest : public HoleDialogTest {};

TEST_F(HolePositionTest, The_edge_distance_of_14_mm_holds_at_both_ends) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    ClickOn(Button(dialog, "optDia(1)"));
    StoreRefused(dialog, "17");
    Store(dialog, "18");
    StoreRefused(dialog, "2983");
    Store(dialog, "2982");
  });
  EXPECT_EQ(HolesOf(1), (std::vector<int>{18, 2982}));
}

TEST_F(HolePositionTest, The_edge_distance_of_18_mm_holds_at_both_ends) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    StoreRefused(dialog, "23");
    StoreRefused(dialog, "23.6");
    Store(dialog, "24");
    StoreRefused(dialog, "2977");
    Store(dialog, "2976");
  });
  EXPECT_EQ(HolesOf(1), (std::vector<int>{24, 2976}));
}

TEST_F(HolePositionTest, The_separation_holds_on_gauge_and_not_off_gauge) {
  ShowSection("Z", {1000});
  InAbsolute([&](FrmAddHoles& dialog) {
    StoreRefused(dialog, "1018");
    StoreRefused(dialog, "982");
    ClickOn(Button(dialog, "optDia(1)"));
    StoreRefused(dialog, "1014");
    ClickOn(Picture(dialog, "Z", 13));
    Retype(Y(dialog), "70");
    Store(dialog, "1014");
    ClickOn(Picture(dialog, "Z", 0));
    ClickOn(Button(dialog, "optDia(0)"));
    Store(dialog, "981");
    Store(dialog, "1033");
  });
  EXPECT_EQ(HolesOf(1), (std::vector<int>{981, 1000, 1014, 1033}));
}

TEST_F(HolePositionTest, Relative_positions_count_from_the_hole_that_stands_last) {
  ShowSection("Z");
  InRelative([&](FrmAddHoles& dialog) {
    Store(dialog, "500");
    StoreRefused(dialog, "18");
    Store(dialog, "100");
    Store(dialog, "19");
  });
  EXPECT_EQ(HolesOf(1), (std::vector<int>{500, 600, 619}));
}

TEST_F(HolePositionTest, A_list_emptied_again_counts_from_the_left_hand_end) {
  ShowSection("Z", {500});
  ClickCell(HoleList(), 1, 0);
  Entry("mnuCHPUI(3)").trigger();
  ASSERT_EQ(Items.At(1).HoleCount(), 0);
  InRelative([&](FrmAddHoles& dialog) {
    StoreRefused(dialog, "18");
    Store(dialog, "23.6");
  });
  EXPECT_EQ(HolesOf(1), std::vector<int>{24});
}

TEST_F(HolePositionTest, A_relative_position_too_near_the_end_is_refused) {
  ShowSection("Z", {2970});
  InRelative([&](FrmAddHoles& dialog) {
    ClickOn(Button(dialog, "optDia(1)"));
    StoreRefused(dialog, "15");
  });
  EXPECT_EQ(HolesOf(1), std::vector<int>{2970});
}

TEST_F(HolePositionTest, What_is_no_number_and_what_is_beyond_all_limits_gives_the_one_message) {
  ShowSection("Z");
  for (const char* typed : {"abc", "", "-500", "40000", "1E999"}) {
    InAbsolute([&](FrmAddHoles& dialog) { StoreRefused(dialog, typed); });
    InRelative([&](FrmAddHoles& dialog) { StoreRefused(dialog, typed); });
  }
}

TEST_F(HolePositionTest, After_a_refusal_the_position_is_ready_to_be_typed_again) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    StoreRefused(dialog, "5");
    EXPECT_EQ(FromQt(X(dialog).text()), "5");
    EXPECT_EQ(FromQt(X(dialog).selectedText()), "5");
  });
}

TEST_F(HolePositionTest, A_Y_position_is_pasted_by_either_key) {
  ShowSection("Z");
  InAbsolute([&](FrmAddHoles& dialog) {
    ClickOn(Picture(dialog, "Z", 13));
    const auto paste = [&](const char* text, Qt::Key key, Qt::KeyboardModifier held) {
      QApplication::clipboard()->setText(text);
      QTest::mouseClick(&Y(dialog), Qt::LeftButton);
      QTest::keyClick(&Y(dialog), key, held);
      return FromQt(Y(dialog).text());
    };
    EXPECT_EQ(paste("45", Qt::Key_V, Qt::ControlModifier), "45");
    EXPECT_EQ(paste("70.0", Qt::Key_Insert, Qt::ShiftModifier), "70");
    EXPECT_EQ(paste("-5", Qt::Key_V, Qt::ControlModifier), "70");
    EXPECT_NE(FromQt(Y(dialog).toolTip()).find("no sign is taken here"), std::string::npos);
  });
}

TEST_F(HolePositionTest, A_click_into_the_slot_length_replaces_its_nought) {
  ShowSection("Z");
  InAbsolute([](FrmAddHoles& dialog) {
    QTest::mouseClick(&Slot(dialog), Qt::LeftButton, Qt::NoModifier,
                      QPoint(4, Slot(dialog).height() / 2));
    QTest::keyClicks(&Slot(dialog), "28");
    EXPECT_EQ(FromQt(Slot(dialog).text()), "28");
  });
}

}  // namespace
}  // namespace orvane::test
