// What a reader of the screen is told: names of the controls, cells and their editors, and what the
// sheet shows. The names of the dialogs' controls are looked at wherever a test opens one.
#include "tests/screens/accessible_names.h"

#include <QAccessibleInterface>

#include "tests/screens/sections_fixture.h"

namespace orvane::test {

namespace {

class AccessibleNames : public SectionsTest {
 protected:
  static QAccessibleInterface& Told(QWidget& control) {
    return *QAccessible::queryAccessibleInterface(&control);
  }
};

using Names = std::vector<std::string>;

TEST_F(AccessibleNames, Every_control_of_the_main_window_has_one) {
  EXPECT_EQ(UnnamedControls(*main), Names());
  Put("E", "A1", "E23020", 6000).PatternName = "Eaves Beam 1 Sag Bar";
  Show(1, 2);
  EXPECT_EQ(UnnamedControls(*main), Names());
  QTest::keyClick(main.get(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(UnnamedControls(*main), Names());
}

TEST_F(AccessibleNames, The_editor_of_a_cell_is_called_by_its_column_and_row) {
  Put("Z", "A1", "Z14012", 6000);
  Show(1, 1);
  EXPECT_EQ(SpokenName(Find("txtEdit")), "Mark, row 1");
  EXPECT_EQ(FromQt(Told(Find("txtEdit")).text(QAccessible::Value)), "A1");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_EQ(SpokenName(Find("cboEdit")), "Product, row 1");
  EXPECT_EQ(FromQt(Told(Find("cboEdit")).text(QAccessible::Value)), "Z14012");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_EQ(SpokenName(Find("txtEdit")), "Length (mm), row 1");
}

TEST_F(AccessibleNames, The_grid_tells_its_cells_under_the_headings_of_their_columns) {
  Put("Z", "A1", "Z14012", 6000);
  Put("C", "B1", "C10012", 2500);
  Show(2, 1);
  QAccessibleTableInterface* table = Told(Sections()).tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->rowCount(), 2);
  EXPECT_EQ(FromQt(table->columnDescription(3)), "Length (mm)");
  EXPECT_EQ(FromQt(table->cellAt(1, 3)->text(QAccessible::Name)), "2500");
  EXPECT_EQ(FromQt(table->cellAt(0, 1)->text(QAccessible::Name)), "A1");
}

TEST_F(AccessibleNames, The_sheet_tells_what_it_shows) {
  EXPECT_EQ(SpokenName(Find("VSPrinter1")), "Fabrication sheet");
  EXPECT_EQ(FromQt(Told(Find("VSPrinter1")).text(QAccessible::Description)), "empty");
  Item& section = Put("Z", "A1", "Z14012", 6000);
  section.Quantity = 4;
  Show(1, 1);
  EXPECT_EQ(FromQt(Told(Find("VSPrinter1")).text(QAccessible::Description)),
            "Z Purlin/Rail A1, Z14012, 6000 mm, 4 off, no holes, no notches, square ends");
  main->ClearDrawing();
  EXPECT_EQ(FromQt(Told(Find("VSPrinter1")).text(QAccessible::Description)), "empty");
}

}  // namespace

}  // namespace orvane::test
