// The design check in the window: the line under the sheet, rings, the count at the foot, and the
// list that stays open beside the work.
#include <QAbstractItemModel>
#include <QCheckBox>
#include <QLabel>
#include <QToolButton>
#include <QTreeView>

#include "output/design_accepted.h"
#include "tests/screens/sections_fixture.h"
#include "tests/support/patience.h"

namespace orvane::test {
namespace {

using Texts = std::vector<std::string>;

class CheckScreen : public SectionsTest {
 protected:
  void SetUp() override {
    SectionsTest::SetUp();
    KeepAcceptedIn(platform.DataFolder);
    // The first and the third are right; the second lacks its quantity, and one of its holes,
    // placed by hand, its centre at 5995 of 6000 mm, reaches beyond the end.
    for (const char* mark : {"P1", "P2", "P3"}) {
      Item& item = Put("Z", mark, "Z14012", 6000, 2);
      item.PatternName = "Custom";
      PutHole(item, 2000, std::string(CustomKind));
    }
    Items.At(1).Notes = "first";
    Items.At(3).Notes = "last";
    Items.At(2).Quantity = 0;
    PutHole(Items.At(2), 5995, std::string(CustomKind));
  }
  void TearDown() override {
    SectionsTest::TearDown();
    KeepAcceptedIn("");
  }

  // The check of the whole job comes in a pause of the hands.
  void WaitForCount(const std::string& line) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return Count() == line; }, Patience)) << Count();
  }
  std::string Count() { return FromQt(Find<QToolButton>("cmdCheck").text()); }
  std::string Line() {
    auto& label = Find<QLabel>("lblCheck");
    return label.isVisible() ? FromQt(label.text()) : "";
  }

  QDialog& Dialog() { return Find<QDialog>("frmCheck"); }
  QTreeView& List() { return Find<QTreeView>("lvwFindings"); }
  // What stands in the list, row by row, without limits and sources.
  Texts Rows() {
    Texts rows;
    const QAbstractItemModel& model = *List().model();
    for (int row = 0; row < model.rowCount(); ++row) {
      std::string text;
      for (const int column : {0, 1, 2, 5}) {
        const std::string cell = FromQt(model.index(row, column).data().toString());
        if (!cell.empty()) text += (text.empty() ? "" : " | ") + cell;
      }
      rows.push_back(text);
    }
    return rows;
  }
  // A window that belongs to another one counts as active with it.
  static void WaitForActive(const QWidget& window) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }, Patience));
  }
  void OpenList() {
    Press(Qt::Key_F7);
    WaitForActive(Dialog());
  }
  void ClickRow(int row) {
    const QRect place = List().visualRect(List().model()->index(row, 0));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
  }
};

const std::string BeyondEnd = "18 mm hole reaches beyond the right-hand end";

TEST_F(CheckScreen, The_line_under_the_sheet_tells_the_worst_of_the_selected_section) {
  Show(1);
  EXPECT_EQ(Line(), "");
  Press(Qt::Key_Down);
  EXPECT_EQ(Line(), "Can't be made: quantity 0 (and 1 more)");
  const std::string tip = FromQt(Find<QLabel>("lblCheck").toolTip());
  EXPECT_NE(tip.find("quantity 0"), std::string::npos);
  EXPECT_NE(tip.find(BeyondEnd), std::string::npos);
  Press(Qt::Key_Down);
  EXPECT_EQ(Line(), "");
}

TEST_F(CheckScreen, Each_key_in_a_cell_is_followed) {
  Show(2, 4);
  Retype("3");
  EXPECT_EQ(Line(), "Can't be made: " + BeyondEnd + ", at 5995 mm");
  ClickCell(Sections(), 2, 3);
  Retype("6002");
  EXPECT_EQ(Line(), "Can't be made: " + BeyondEnd + ", at 5995 mm");
  Retype("6100");
  // Far enough for all the rules: one and a half times 18 mm are 27.
  EXPECT_EQ(Line(), "");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Line(), "Can't be made: " + BeyondEnd + ", at 5995 mm");
}

TEST_F(CheckScreen, Places_are_ringed_on_the_sheet) {
  Show(1);
  EXPECT_TRUE(Sheet().Rings().empty());
  Press(Qt::Key_Down);
  // The quantity is nowhere along the section.
  ASSERT_EQ(Sheet().Rings().size(), 1U);
  EXPECT_TRUE(Sheet().Rings().front().IsStrong);
  // The elevation begins 45 mm behind the left margin. The last gap is 5 of 6000 mm, and widened to
  // the least separation on paper.
  const QRectF ring = Sheet().Rings().front().Place;
  EXPECT_NEAR(ring.center().x(), LeftMargin + 45 + DrawingWidth - MinHoleSep, 0.01);
  Press(Qt::Key_Down);
  EXPECT_TRUE(Sheet().Rings().empty());
}

TEST_F(CheckScreen, What_is_only_advised_is_ringed_quietly) {
  Items.At(1).Holes.At(1).XPos = 20;  // 18 mm hole: 27 to the end are advised
  Show(1);
  EXPECT_EQ(Line().substr(0, 10), "Consider: ");
  ASSERT_EQ(Sheet().Rings().size(), 1U);
  EXPECT_FALSE(Sheet().Rings().front().IsStrong);
}

TEST_F(CheckScreen, The_foot_counts_what_the_whole_job_has) {
  EXPECT_FALSE(Shown("cmdCheck"));
  Show(1);
  EXPECT_TRUE(Shown("cmdCheck"));
  WaitForCount("Check: 1 can't be made");
  ClickCell(Sections(), 3, 1);
  Retype("P1");
  WaitForCount("Check: 3 can't be made");
}

TEST_F(CheckScreen, The_count_stays_while_a_new_section_is_typed) {
  Show(1);
  WaitForCount("Check: 1 can't be made");
  Add("Z");
  Type("P4");
  EXPECT_EQ(Count(), "Check: 1 can't be made");
  // Without product, length and quantity, and without holes.
  WaitForCount("Check: 2 can't be made, 1 to consider");
}

TEST_F(CheckScreen, The_count_opens_the_list_and_so_does_F7) {
  Show(1);
  Click("cmdCheck");
  WaitForActive(Dialog());
  EXPECT_FALSE(Dialog().isModal());
  EXPECT_EQ(Rows(), (Texts{"P2 | Can't be made: quantity 0",
                           "P2 | 5995 mm | Can't be made: " + BeyondEnd}));
  EXPECT_EQ(FromQt(Find<QLabel>("lblCounts").text()), "Check: 1 can't be made");
  QTest::keyClick(&List(), Qt::Key_Escape);
  EXPECT_FALSE(Dialog().isVisible());
  BackToMain();
  OpenList();
  EXPECT_TRUE(List().hasFocus());
}

TEST_F(CheckScreen, The_list_follows_the_changes_beside_it) {
  Show(2, 4);
  OpenList();
  BackToMain();
  Retype("3");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Rows().size() == 1; }, Patience));
  EXPECT_EQ(Rows(), (Texts{"P2 | 5995 mm | Can't be made: " + BeyondEnd}));
}

TEST_F(CheckScreen, A_click_shows_the_section_and_marks_the_hole) {
  Show(1);
  OpenList();
  ClickRow(1);
  EXPECT_EQ(Sections().Row(), 2);
  EXPECT_EQ(CurrentItem, 2);
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_EQ(Find<DetailPanel>("DetailPanel").MarkedHole(), 2);
  EXPECT_TRUE(Dialog().isActiveWindow());
}

TEST_F(CheckScreen, Enter_goes_to_the_hole_and_to_the_cell) {
  Show(1);
  OpenList();
  QTest::keyClick(&List(), Qt::Key_Down);
  QTest::keyClick(&List(), Qt::Key_Return);
  WaitForActive(*main);
  EXPECT_EQ(Sections().Row(), 2);
  EXPECT_EQ(Focus(), "MSFlexGrid2");
  OpenList();
  QTest::keyClick(&List(), Qt::Key_Up);
  QTest::keyClick(&List(), Qt::Key_Return);
  WaitForActive(*main);
  EXPECT_TRUE(CursorAt(2, 4, "0"));
}

TEST_F(CheckScreen, A_finding_is_accepted_with_a_word_and_opened_again) {
  Show(2);
  OpenList();
  // Without a word the cursor waits for one.
  QTest::keyClick(&Dialog(), Qt::Key_A, Qt::AltModifier);
  EXPECT_EQ(Focus(), "txtWord");
  EXPECT_EQ(Rows().size(), 2U);
  Type("to be told");
  Press(Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Rows().size() == 1; }, Patience));
  EXPECT_EQ(Rows(), (Texts{"P2 | 5995 mm | Can't be made: " + BeyondEnd}));
  EXPECT_EQ(Line(), "Can't be made: " + BeyondEnd + ", at 5995 mm");
  EXPECT_EQ(Focus(), "lvwFindings");
  Find<QCheckBox>("chkAccepted").setChecked(true);
  EXPECT_EQ(Rows(), (Texts{"P2 | Can't be made: quantity 0 | to be told",
                           "P2 | 5995 mm | Can't be made: " + BeyondEnd}));
  ClickRow(0);
  QTest::keyClick(&Dialog(), Qt::Key_O, Qt::AltModifier);
  const Texts open = {"P2 | Can't be made: quantity 0",
                      "P2 | 5995 mm | Can't be made: " + BeyondEnd};
  EXPECT_TRUE(QTest::qWaitFor([&] { return Rows() == open; }, Patience));
  EXPECT_EQ(Line(), "Can't be made: quantity 0 (and 1 more)");
}

TEST_F(CheckScreen, The_check_changes_nothing_of_the_job_and_is_no_step) {
  Show(2);
  const Boolean dirty = ProjectDirty;
  const std::string title = FromQt(main->windowTitle());
  OpenList();
  ClickRow(1);
  WaitForCount("Check: 1 can't be made");
  EXPECT_EQ(ProjectDirty, dirty);
  EXPECT_EQ(FromQt(main->windowTitle()), title);
  EXPECT_EQ(FromQt(Entry("mnuEditUndo").text()), "&Undo");
}

TEST_F(CheckScreen, Another_job_has_other_findings) {
  Show(2);
  WaitForCount("Check: 1 can't be made");
  ExpectDetails();
  Press(Qt::Key_N, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Line(), "");
  EXPECT_FALSE(Shown("cmdCheck"));
  EXPECT_TRUE(Sheet().Rings().empty());
}

}  // namespace
}  // namespace orvane::test
