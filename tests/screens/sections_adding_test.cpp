#include <QHeaderView>

#include "core/catalogues.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

class SectionsAdding : public SectionsTest {
 protected:
  static std::vector<std::string> EntriesOf(const QComboBox& combo) {
    std::vector<std::string> entries;
    for (int index = 0; index < combo.count(); ++index) {
      entries.push_back(FromQt(combo.itemText(index)));
    }
    return entries;
  }
  static std::vector<std::string> ProductsOf(const std::string& letter) {
    std::vector<std::string> products;
    for (const SectionDim& dim : SectionDims) {
      if (dim.SectionType == letter) products.push_back(dim.Product);
    }
    return products;
  }
  static std::vector<std::string> PatternsOf(const std::string& letter) {
    std::vector<std::string> names = {"Custom"};
    for (const PunchPattern& pattern : PunchPatterns) {
      if (pattern.SectionType == letter) names.push_back(pattern.Name);
    }
    return names;
  }
};

TEST_F(SectionsAdding, The_grid_starts_with_its_heading_alone) {
  EXPECT_EQ(Sections().Rows(), 1);
  EXPECT_EQ(Sections().Cols(), 6);
  std::vector<std::string> headings;
  for (int column = 0; column < Sections().Cols(); ++column) headings.push_back(Cell(0, column));
  EXPECT_EQ(headings,
            (std::vector<std::string>{"", "Mark", "Product", "Length (mm)", "Qty", "Notes"}));
  EXPECT_EQ(Sections().Row(), 0);
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_TRUE(NoEditor());
  EXPECT_NE(Focus(), "MSFlexGrid1");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionsAdding, Keys_and_clicks_on_the_empty_grid_do_nothing) {
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}) Press(key);
  QTest::mouseClick(Sections().viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
  QTest::mouseClick(Sections().horizontalHeader(), Qt::LeftButton);
  Settle();
  EXPECT_EQ(Sections().Row(), 0);
  EXPECT_TRUE(NoEditor());
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(ProjectDirty, False);
}

struct AddedSection {
  std::string Letter;
  std::string Product;
  int Products;  // rows of the product list
  bool Pitch;
  bool Jointing;
};

const AddedSection AddedSections[] = {
    {"Z", "", 35, false, false},   {"E", "", 15, true, false},   {"C", "", 47, false, false},
    {"V", "VCR", 1, false, false}, {"R", "CLR", 1, false, true}, {"T", "", 9, false, false},
};

TEST_F(SectionsAdding, AddSection_gives_a_blank_row_of_its_letter_with_the_cursor_on_its_mark) {
  int row = 0;
  for (const AddedSection& added : AddedSections) {
    SCOPED_TRACE(added.Letter);
    ProjectDirty = False;
    Add(added.Letter);
    ++row;
    ASSERT_EQ(Items.UBound(), row);
    const Item& item = Items.At(row);
    EXPECT_EQ(item.SectionType, added.Letter);
    EXPECT_EQ(item.Product, added.Product);
    EXPECT_EQ(item.Mark, "");
    EXPECT_EQ(item.Length, 0);
    EXPECT_EQ(item.Quantity, 0);
    EXPECT_EQ(item.HoleCount(), 0);
    EXPECT_EQ(item.Holes.UBound(), 0);
    EXPECT_EQ(item.PatternName, "");
    EXPECT_TRUE(RowShows(row, {added.Letter, "", added.Product, "0", "0", ""}));
    EXPECT_TRUE(GridShowsItems());
    EXPECT_TRUE(CursorAt(row, 1, ""));
    EXPECT_TRUE(main->isEnabled());
    EXPECT_EQ(ProjectDirty, True);

    EXPECT_EQ(ProductBox().count(), added.Products);
    EXPECT_EQ(EntriesOf(ProductBox()), ProductsOf(added.Letter));
    EXPECT_EQ(EntriesOf(Patterns()), PatternsOf(added.Letter));
    EXPECT_EQ(Patterns().currentIndex(), -1);
    EXPECT_EQ(Find<QComboBox>("cboPitch").currentIndex(), -1);
    EXPECT_EQ(Find<FlexGrid>("MSFlexGrid2").Rows(), 1);
    EXPECT_TRUE(Shown("SSPanelPunching"));
    EXPECT_FALSE(Shown("SSpanelCustom"));
    EXPECT_FALSE(Shown("fraSagBars"));
    EXPECT_EQ(Shown("cboPitch"), added.Pitch);
    EXPECT_EQ(Shown("lblPitch"), added.Pitch);
    EXPECT_EQ(Shown("txtJointing"), added.Jointing);
    EXPECT_EQ(Shown("lblJointing"), added.Jointing);
    EXPECT_EQ(Sheet().ShownRow(), row);
  }
}

TEST_F(SectionsAdding, The_section_menu_adds_the_same_sections) {
  const std::vector<std::string> letters = {"Z", "E", "C", "V", "R", "T"};
  for (int index = 0; index < 6; ++index) {
    Section(index);
    Settle();
    ASSERT_EQ(Items.UBound(), index + 1);
    EXPECT_EQ(Items.At(index + 1).SectionType, letters.at(static_cast<std::size_t>(index)));
    EXPECT_TRUE(CursorAt(index + 1, 1, ""));
  }
}

TEST_F(SectionsAdding, A_mark_can_be_typed_at_once_after_adding) {
  Click("SSCommand1(6)");
  Type("A1");
  EXPECT_EQ(Items.At(1).Mark, "A1");
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
}

TEST_F(SectionsAdding, AddSection_clears_the_detail_panel_and_leaves_the_row_before_it_alone) {
  Item& eaves = Put("E", "E1", "E20020", 5000, 4);
  eaves.Pitch = "10";
  eaves.PatternName = "Custom";
  PutHole(eaves, 1000, "C");
  Item& rail = Put("R", "R1", "CLR", 3000, 2);
  rail.JointingPieces = 3;
  rail.PatternName = "Cleader Slotted";
  Show();
  ASSERT_EQ(Find<FlexGrid>("MSFlexGrid2").Rows(), 2);

  for (const std::string letter : {"V", "R", "E"}) {
    SCOPED_TRACE(letter);
    ClickCell(Sections(), letter == "R" ? 2 : 1, 4);
    Add(letter);
    EXPECT_EQ(Items.At(1).SectionType, "E");
    EXPECT_EQ(Items.At(1).Product, "E20020");
    EXPECT_EQ(Items.At(1).Pitch, "10");
    EXPECT_EQ(Items.At(1).PatternName, "Custom");
    EXPECT_EQ(HolesOf(1), (std::vector<int>{1000}));
    EXPECT_EQ(Items.At(2).JointingPieces, 3);
    EXPECT_EQ(Items.At(2).PatternName, "Cleader Slotted");
    EXPECT_EQ(Patterns().currentIndex(), -1);
    EXPECT_EQ(Find<QComboBox>("cboPitch").currentIndex(), -1);
    EXPECT_EQ(Find<FlexGrid>("MSFlexGrid2").Rows(), 1);
    EXPECT_TRUE(GridShowsItems());
  }
  EXPECT_EQ(Items.UBound(), 5);
}

TEST_F(SectionsAdding, A_new_row_may_stay_empty_as_long_as_its_length_is_not_left) {
  Add("Z");
  Add("Z");
  Press(Qt::Key_Up);
  EXPECT_TRUE(CursorAt(1, 1, ""));
  Press(Qt::Key_Tab);
  EXPECT_TRUE(CursorAt(1, 2, ""));
  Press(Qt::Key_Down);
  EXPECT_TRUE(CursorAt(2, 2, ""));
  Settle();
  EXPECT_EQ(Items.At(1).Length, 0);
  EXPECT_EQ(Items.At(2).Length, 0);
}

TEST_F(SectionsAdding, All_data_rows_have_one_height) {
  Put("Z", "A1", "Z14012", 6000);
  Show();
  Add("V");
  Section(DuplicateEntry);
  Settle();
  ASSERT_EQ(Items.UBound(), 3);
  EXPECT_GT(Sections().rowHeight(0), 0);
  EXPECT_EQ(Sections().rowHeight(1), Sections().rowHeight(0));
  EXPECT_EQ(Sections().rowHeight(2), Sections().rowHeight(0));
}

TEST_F(SectionsAdding, Duplicate_appends_a_deep_copy_with_an_A_behind_its_mark) {
  Item& source = Put("Z", "B1", "Z19018", 6000, 7);
  source.Notes = "north bay";
  source.MitreLeft = 5;
  source.PatternName = "Custom";
  PutHole(source, 4000, "C");
  PutHole(source, 1000, "C");
  source.Notches.Append({"TL1", 10, 20, 0});
  Put("Z", "C1", "Z14012", 5000, 1);
  Show(1, 4);
  Section(DuplicateEntry);
  Settle();

  ASSERT_EQ(Items.UBound(), 3);
  EXPECT_TRUE(RowShows(3, {"Z", "B1A", "Z19018", "6000", "7", "north bay"}));
  EXPECT_TRUE(CursorAt(3, 1, "B1A"));
  EXPECT_EQ(FromQt(Editor().selectedText()), "B1A");
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(HolesOf(3), (std::vector<int>{1000, 4000}));
  EXPECT_EQ(Items.At(3).PatternName, "Custom");
  EXPECT_EQ(FromQt(Patterns().currentText()), "Custom");
  EXPECT_EQ(Find<FlexGrid>("MSFlexGrid2").Rows(), 3);
  EXPECT_EQ(Items.At(3).MitreLeft, 5.0F);
  Items.At(3).Notches.At(1).Size1 = 99;
  EXPECT_EQ(Items.At(1).Notches.At(1).Size1, 10.0F);
}

TEST_F(SectionsAdding, Duplicating_a_row_twice_gives_one_mark_twice_and_only_its_cell_reports_it) {
  Put("Z", "B1", "Z14012", 6000);
  Show();
  Section(DuplicateEntry);
  Settle();
  ClickCell(Sections(), 1, 1);
  Section(DuplicateEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"B1", "B1A", "B1A"}));
  EXPECT_TRUE(CursorAt(3, 1, "B1A"));

  ExpectRefusal("Error - Duplicate Mark");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(3, 1, "B1A"));
}

TEST_F(SectionsAdding, Duplicating_a_row_without_a_mark_marks_the_copy_A) {
  Add("T");
  Section(DuplicateEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"", "A"}));
}

TEST_F(SectionsAdding, Duplicating_takes_what_was_typed_so_far) {
  Add("Z");
  Type("P1");
  Section(DuplicateEntry);
  Settle();
  EXPECT_EQ(Marks(), (std::vector<std::string>{"P1", "P1A"}));
  EXPECT_TRUE(CursorAt(2, 1, "P1A"));
}

TEST_F(SectionsAdding, The_copy_of_a_patterned_row_shows_its_pattern) {
  Item& source = Put("Z", "B1", "Z14012", 6000);
  source.PatternName = "Butt 1 Sag Bar";
  source.SagBarDia = 18;
  Show();
  Section(DuplicateEntry);
  Settle();
  EXPECT_EQ(FromQt(Patterns().currentText()), "Butt 1 Sag Bar");
  EXPECT_EQ(Items.At(2).SagBarDia, 18);
  EXPECT_TRUE(Shown("fraSagBars"));
  // 32 and 92 from both ends, the sag bar in the middle.
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 92, 3000, 5908, 5968}));
}

}  // namespace
}  // namespace orvane::test
