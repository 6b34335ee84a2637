// The sign in the corner of a cell whose value the grid's rules refuse.
#include <QImage>
#include <QPixmap>

#include "core/model.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

constexpr int Corner = 3;  // pixels of the sign from its corner, well inside it

class SectionsFaults : public SectionsTest {
 protected:
  // Whether the cell shows a dark corner, an editor that lies over it included.
  bool HasSign(int row, int column) {
    const QImage cell = Sections().viewport()->grab(Sections().CellRect(row, column)).toImage();
    const QColor corner = cell.pixelColor(cell.width() - Corner, Corner - 1);
    const QColor beside = cell.pixelColor(cell.width() - Corner, cell.height() - Corner);
    return corner.lightness() < 80 && beside.lightness() > 150;
  }
  // All cells with a sign, as "2 Mark".
  std::vector<std::string> Signs() {
    std::vector<std::string> signs;
    for (int row = 1; row < Sections().Rows(); ++row) {
      for (int column = 0; column < Sections().Cols(); ++column) {
        if (HasSign(row, column)) signs.push_back(std::to_string(row) + " " + Cell(0, column));
      }
    }
    return signs;
  }
  using Cells = std::vector<std::string>;
};

TEST_F(SectionsFaults, A_duplicate_that_was_refused_shows_on_both_rows_once_its_row_is_left) {
  Put("Z", "P1", "Z14012", 6000);
  Put("Z", "P2", "Z14012", 6000);
  Show(2, 1);
  Retype("P1");
  ExpectRefusal("Error - Duplicate Mark");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_EQ(Signs(), Cells{});
  // The second Tab passes, and the row is the current one still.
  Press(Qt::Key_Tab);
  ASSERT_EQ(Sections().Col(), 2);
  EXPECT_EQ(Signs(), Cells{});
  Press(Qt::Key_Up);
  ASSERT_EQ(Sections().Row(), 1);
  EXPECT_EQ(Signs(), (Cells{"1 Mark", "2 Mark"}));
  EXPECT_EQ(Tip(Sections(), 1, 1), "<span>Error - Duplicate Mark</span>");
  EXPECT_EQ(Tip(Sections(), 2, 1), "<span>Error - Duplicate Mark</span>");
  // Backgrounds stay as they are.
  EXPECT_EQ(Colour(1, 1), 0xE0E0E0U);
  EXPECT_EQ(Colour(2, 1), 0xFFFFFFU);
}

TEST_F(SectionsFaults, Mending_one_mark_of_a_duplicate_takes_both_signs_at_the_stroke) {
  Put("Z", "P1", "Z14012", 6000);
  Put("Z", "P1", "Z14012", 6000);
  Show(1, 3);
  ASSERT_EQ(Signs(), (Cells{"1 Mark", "2 Mark"}));
  // Over the editor of its cell too.
  ClickCell(Sections(), 1, 1);
  ASSERT_EQ(Focus(), "txtEdit");
  EXPECT_EQ(Signs(), (Cells{"1 Mark", "2 Mark"}));
  EXPECT_EQ(FromQt(Find("sspEditText").toolTip()), "<span>Error - Duplicate Mark</span>");
  Press(Qt::Key_End);
  Type("A");
  EXPECT_EQ(Signs(), Cells{});
  EXPECT_EQ(Find("sspEditText").toolTip(), "");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Signs(), Cells{});
  Type("B");
  Press(Qt::Key_Down);
  EXPECT_EQ(Signs(), Cells{});
}

TEST_F(SectionsFaults, A_section_that_is_being_entered_has_no_sign_before_it_is_left) {
  Add("Z");
  Add("Z");
  EXPECT_EQ(Signs(), (Cells{"1 Mark", "1 Product", "1 Length (mm)", "1 Qty"}));
  EXPECT_EQ(Tip(Sections(), 1, 1), "<span>No mark</span>");
  EXPECT_EQ(Tip(Sections(), 1, 2), "<span>No product</span>");
  EXPECT_EQ(Tip(Sections(), 1, 3), "<span>Invalid length</span>");
  EXPECT_EQ(Tip(Sections(), 1, 4), "<span>Invalid quantity</span>");
  EXPECT_EQ(Tip(Sections(), 1, 5), "");
  EXPECT_EQ(Tip(Sections(), 2, 4), "");
  // A cladding rail comes with its product.
  Add("V");
  Type("V1");
  Press(Qt::Key_Tab);
  Type("2900");
  Press(Qt::Key_Tab);
  Type("12");
  Press(Qt::Key_Up);
  EXPECT_EQ(Signs().back(), "2 Qty");
}

TEST_F(SectionsFaults, Each_cell_is_mended_by_itself) {
  Put("Z", "", "", 0, 0);
  Put("Z", "P2", "Z14012", 6000);
  Show(1, 1);
  ASSERT_EQ(Signs(), (Cells{"1 Mark", "1 Product", "1 Length (mm)", "1 Qty"}));
  Type("P1");
  EXPECT_EQ(Signs(), (Cells{"1 Product", "1 Length (mm)", "1 Qty"}));
  Press(Qt::Key_Tab);
  EXPECT_EQ(Signs(), (Cells{"1 Product", "1 Length (mm)", "1 Qty"}));
  Type("Z14012");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Signs(), (Cells{"1 Length (mm)", "1 Qty"}));
  // Too long now, where it was none, and never in order on the way.
  Paste("16000");
  EXPECT_EQ(Signs(), (Cells{"1 Length (mm)", "1 Qty"}));
  EXPECT_EQ(FromQt(Find("sspEditText").toolTip()),
            "<span>Length exceeds maximum for section (15000)</span>");
  Retype("6000");
  Press(Qt::Key_Tab);
  Retype("4");
  EXPECT_EQ(Signs(), Cells{});
}

TEST_F(SectionsFaults, Signs_go_with_their_sections_when_rows_are_sorted_deleted_and_opened) {
  Put("Z", "P3", "Z14012", 6000, 0);
  Put("Z", "P1", "Z14012", 6000);
  Put("Z", "P1", "Z14012", 6000);
  Show(2, 1);
  EXPECT_EQ(Signs(), (Cells{"1 Qty", "2 Mark", "3 Mark"}));
  Section(SortByMarkEntry);
  Settle();
  EXPECT_EQ(Signs(), (Cells{"1 Mark", "2 Mark", "3 Qty"}));
  ASSERT_EQ(Sections().Row(), 2);
  dialogs.ExpectBox("Remove mark P1?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(Signs(), Cells{"2 Qty"});
}

TEST_F(SectionsFaults, A_maximum_that_is_lowered_shows_at_the_lengths_beyond_it) {
  Put("Z", "P1", "Z14012", 9000);
  Put("Z", "P2", "Z14012", 6000);
  Show(2, 1);
  EXPECT_EQ(Signs(), Cells{});
  dialogs.ExpectDialog("frmMaxDims", [&](QWidget& dialog) {
    auto& z = Find<QLineEdit>(dialog, "txtMaxDims(1)");
    z.setFocus();
    z.selectAll();
    QTest::keyClicks(&z, "8000");
    QTest::mouseClick(&Find<QAbstractButton>(dialog, "SSCommand2(1)"), Qt::LeftButton);
  });
  Entry("mnuProject(7)").trigger();
  Settle();
  EXPECT_EQ(Signs(), Cells{"1 Length (mm)"});
  EXPECT_EQ(Tip(Sections(), 1, 3), "<span>Length exceeds maximum for section (8000)</span>");
}

TEST_F(SectionsFaults, The_sign_is_seen_in_a_dark_desktop_and_its_reason_read_aloud) {
  const QPalette former = QApplication::palette();
  QPalette dark(QColor(0x31, 0x36, 0x3b));
  QApplication::setPalette(dark);
  Put("Z", "P1", "Z14012", 6000, 0);
  Put("Z", "P2", "Z14012", 6000, 0);
  Show(1, 1);
  EXPECT_EQ(Signs(), (Cells{"1 Qty", "2 Qty"}));
  const QAbstractItemModel& model = *Sections().model();
  EXPECT_EQ(model.data(model.index(1, 4), Qt::AccessibleDescriptionRole), "Invalid quantity");
  QApplication::setPalette(former);
}

}  // namespace
}  // namespace orvane::test
