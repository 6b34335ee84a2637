#include "project/rules/section_columns.h"

#include <optional>
#include <string>
#include <vector>

#include "core/model.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using Refusal = std::optional<std::string>;

class SectionColumnsTest : public test::SystemTest {
 protected:
};

// The columns themselves.

struct ShownColumn {
  std::string Heading;
  int Share;
  CellSide Side;
  CellEdit Edit;
};

// From left to right.
const std::vector<ShownColumn> ShownColumns = {
    // clang-format off
    {"",            350,  CellSide::Left,  CellEdit::None},
    {"Mark",        1000, CellSide::Left,  CellEdit::Text},
    {"Product",     1200, CellSide::Left,  CellEdit::Choice},
    {"Length (mm)", 600,  CellSide::Right, CellEdit::Digits},
    {"Qty",         450,  CellSide::Right, CellEdit::Digits},
    {"Notes",       2000, CellSide::Left,  CellEdit::Text},
    // clang-format on
};

TEST_F(SectionColumnsTest, The_six_columns_stand_in_their_order_with_their_widths_and_editors) {
  test::AppendItem("A", "T");
  ASSERT_EQ(SectionColumns, static_cast<int>(ShownColumns.size()));
  for (int column = 0; column < SectionColumns; ++column) {
    SCOPED_TRACE(column);
    const ShownColumn& expected = ShownColumns.at(static_cast<std::size_t>(column));
    const SectionColumn& actual = SectionColumnAt(column);
    EXPECT_EQ(actual.Heading, expected.Heading);
    EXPECT_EQ(actual.Width.Share, expected.Share);
    EXPECT_EQ(actual.Side, expected.Side);
    EXPECT_EQ(SectionCellEdit(1, column), expected.Edit);
  }
}

TEST_F(SectionColumnsTest, The_product_of_a_rail_is_edited_in_no_way_its_other_cells_are) {
  for (const std::string letter : {"V", "R", "", "M"}) {
    SCOPED_TRACE(letter);
    Items.Clear();
    test::AppendItem("A", letter);
    for (int column = 0; column < SectionColumns; ++column) {
      const CellEdit shown = ShownColumns.at(static_cast<std::size_t>(column)).Edit;
      EXPECT_EQ(SectionCellEdit(1, column), column == ProductColumn ? CellEdit::None : shown);
    }
  }
}

TEST_F(SectionColumnsTest, Cells_that_are_not_there_are_not_edited) {
  test::AppendItem("A");
  for (const std::int16_t row : {std::int16_t{-1}, std::int16_t{0}, std::int16_t{2}}) {
    EXPECT_EQ(SectionCellEdit(row, MarkColumn), CellEdit::None);
  }
  for (const int column : {-1, SectionColumns}) {
    EXPECT_EQ(SectionCellEdit(1, column), CellEdit::None);
    EXPECT_EQ(test::ErrorOf([column] { SectionColumnAt(column); }), "Subscript out of range");
  }
}

// What the grid shows.

TEST_F(SectionColumnsTest, Each_column_shows_its_field_with_numbers_in_plain_digits) {
  test::AppendItem("other");
  Item& item = test::AppendItem("P 1", "C", 12000);
  item.Product = "C20020";
  item.Quantity = -5;
  item.Notes = "both ends";
  EXPECT_EQ(ItemText(2, 0), "C");
  EXPECT_EQ(ItemText(2, 1), "P 1");
  EXPECT_EQ(ItemText(2, 2), "C20020");
  EXPECT_EQ(ItemText(2, 3), "12000");
  EXPECT_EQ(ItemText(2, 4), "-5");
  EXPECT_EQ(ItemText(2, 5), "both ends");
  EXPECT_EQ(ItemText(1, 1), "other");
}

TEST_F(SectionColumnsTest, A_new_row_shows_its_zeros) {
  test::AppendItem("", "Z", 0);
  EXPECT_EQ(ItemText(1, LengthColumn), "0");
  EXPECT_EQ(ItemText(1, QuantityColumn), "0");
}

TEST_F(SectionColumnsTest, Rows_and_columns_that_are_not_there_show_nothing) {
  test::AppendItem("A");
  for (int column = LetterColumn; column < SectionColumns; ++column) {
    EXPECT_EQ(ItemText(0, column), "");
    EXPECT_EQ(ItemText(-1, column), "");
    EXPECT_EQ(ItemText(2, column), "");
  }
  EXPECT_EQ(ItemText(1, -1), "");
  EXPECT_EQ(ItemText(1, SectionColumns), "");
}

TEST_F(SectionColumnsTest, The_product_is_chosen_for_Z_E_C_and_T_alone) {
  for (const std::string letter : {"Z", "E", "C", "T"}) EXPECT_TRUE(HasProductChoice(letter));
  for (const std::string letter : {"V", "R", "", "z", "M"}) {
    EXPECT_FALSE(HasProductChoice(letter)) << letter;
  }
}

// Typing.

struct TypedNumber {
  std::string Text;
  bool Taken = true;
  int Value = 0;
};

// The field holds 6000 before each.
const std::vector<TypedNumber> TypedNumbers = {
    // clang-format off
    {"1",        true,  1},
    {"12",       true,  12},
    {"",         true,  0},
    {" 7 ",      true,  7},
    {"abc",      true,  0},
    {"12abc",    true,  12},
    {"12.5",     true,  12},  // halves to the even neighbour
    {"13.5",     true,  14},
    {"-5",       true,  -5},
    {"1e3",      true,  1000},
    {"9999",     true,  9999},
    {"32767",    true,  32767},
    {"32767.4",  true,  32767},
    {"32767.5",  false, 6000},
    {"32768",    false, 6000},
    {"99999",    false, 6000},
    {"1e999",    false, 6000},
    {"-32768",   true,  -32768},
    {"-32769",   false, 6000},
    // clang-format on
};

TEST_F(SectionColumnsTest, A_typed_length_is_taken_by_number_prefix_or_keeps_its_value) {
  for (const TypedNumber& typed : TypedNumbers) {
    SCOPED_TRACE(typed.Text);
    Items.Clear();
    test::AppendItem("A", "Z", 6000).Quantity = 3;
    const Typed expected = typed.Taken ? Typed::Taken : Typed::Refused;
    EXPECT_EQ(TakeTypedText(1, LengthColumn, typed.Text), expected);
    EXPECT_EQ(Items.At(1).Length, typed.Value);
    EXPECT_EQ(Items.At(1).Quantity, 3);
  }
}

TEST_F(SectionColumnsTest, A_typed_quantity_is_taken_likewise_but_tells_its_overflow) {
  for (const TypedNumber& typed : TypedNumbers) {
    SCOPED_TRACE(typed.Text);
    Items.Clear();
    test::AppendItem("A", "Z", 3000).Quantity = 6000;
    const Typed expected = typed.Taken ? Typed::Taken : Typed::Overflow;
    EXPECT_EQ(TakeTypedText(1, QuantityColumn, typed.Text), expected);
    EXPECT_EQ(Items.At(1).Quantity, typed.Value);
    EXPECT_EQ(Items.At(1).Length, 3000);
  }
}

TEST_F(SectionColumnsTest, Typing_99999_leaves_9999_in_the_record) {
  test::AppendItem("A", "Z", 0);
  for (const std::string text : {"9", "99", "999", "9999"}) {
    EXPECT_EQ(TakeTypedText(1, LengthColumn, text), Typed::Taken);
  }
  EXPECT_EQ(TakeTypedText(1, LengthColumn, "99999"), Typed::Refused);
  EXPECT_EQ(ItemText(1, LengthColumn), "9999");
}

TEST_F(SectionColumnsTest, A_mark_and_a_note_are_taken_as_they_are_typed) {
  test::AppendItem("A");
  test::AppendItem("B").Notes = "stays";
  EXPECT_EQ(TakeTypedText(1, MarkColumn, " A1, \"x\" "), Typed::Taken);
  EXPECT_EQ(TakeTypedText(1, NotesColumn, "12 ø "), Typed::Taken);
  EXPECT_EQ(Items.At(1).Mark, " A1, \"x\" ");
  EXPECT_EQ(Items.At(1).Notes, "12 ø ");
  EXPECT_EQ(Items.At(2).Mark, "B");
  EXPECT_EQ(Items.At(2).Notes, "stays");
}

TEST_F(SectionColumnsTest, A_mark_that_is_a_duplicate_is_taken_all_the_same) {
  test::AppendItem("A");
  test::AppendItem("B");
  EXPECT_EQ(TakeTypedText(2, MarkColumn, "A"), Typed::Taken);
  EXPECT_EQ(Items.At(2).Mark, "A");
}

TEST_F(SectionColumnsTest, Other_columns_and_rows_take_nothing) {
  test::AppendItem("A");
  for (const int column : {LetterColumn, ProductColumn, SectionColumns, -1}) {
    EXPECT_EQ(TakeTypedText(1, column, "7"), Typed::Taken);
  }
  for (const std::int16_t row : {std::int16_t{0}, std::int16_t{2}, std::int16_t{-1}}) {
    EXPECT_EQ(TakeTypedText(row, MarkColumn, "7"), Typed::Taken);
  }
  EXPECT_EQ(Items.At(0).Mark, "");
  ASSERT_EQ(Items.UBound(), 1);
  EXPECT_EQ(Items.At(1).Mark, "A");
  EXPECT_EQ(Items.At(1).SectionType, "Z");
  EXPECT_EQ(Items.At(1).Product, "Z-product");
  EXPECT_EQ(Items.At(1).Length, 3000);
  EXPECT_EQ(Items.At(1).Quantity, 0);
  EXPECT_EQ(Items.At(1).Notes, "");
}

TEST_F(SectionColumnsTest, Typing_leaves_the_flag_to_the_grid) {
  test::AppendItem("A");
  TakeTypedText(1, MarkColumn, "B");
  TakeTypedText(1, LengthColumn, "1");
  EXPECT_EQ(ProjectDirty, False);
}

// Choosing.

TEST_F(SectionColumnsTest, A_chosen_product_reaches_the_record_once) {
  SectionDims.Append({"Z", "Z14012"});
  SectionDims.Append({"Z", "Z14014"});
  test::AppendItem("A").Product = "Z14012";
  test::AppendItem("B").Product = "Z14012";
  EXPECT_FALSE(TakeChosenText(1, ProductColumn, "Z14012"));
  EXPECT_TRUE(TakeChosenText(1, ProductColumn, "Z14014"));
  EXPECT_EQ(Items.At(1).Product, "Z14014");
  EXPECT_FALSE(TakeChosenText(1, ProductColumn, "Z14014"));
  EXPECT_EQ(Items.At(2).Product, "Z14012");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionColumnsTest, The_lists_own_text_takes_the_place_of_one_with_blanks_around_it) {
  SectionDims.Append({"Z", "Z14012"});
  test::AppendItem("A").Product = " Z14012 ";
  EXPECT_TRUE(TakeChosenText(1, ProductColumn, "Z14012"));
  EXPECT_EQ(Items.At(1).Product, "Z14012");
}

TEST_F(SectionColumnsTest, What_no_list_has_and_cells_without_one_take_no_choice) {
  SectionDims.Append({"Z", "Z14012"});
  SectionDims.Append({"C", "C20020"});
  SectionDims.Append({"V", "VCR2"});
  test::AppendItem("A");
  test::AppendItem("V", "V").Product = "VCR";
  for (const std::string text : {"C20020", "Z14013", "z14012", "", " "}) {
    EXPECT_FALSE(TakeChosenText(1, ProductColumn, text)) << text;
  }
  EXPECT_EQ(Items.At(1).Product, "Z-product");
  EXPECT_FALSE(TakeChosenText(2, ProductColumn, "VCR2"));
  EXPECT_EQ(Items.At(2).Product, "VCR");
  for (const int column : {LetterColumn, MarkColumn, LengthColumn, NotesColumn, -1}) {
    EXPECT_FALSE(TakeChosenText(1, column, "7"));
  }
  EXPECT_FALSE(TakeChosenText(3, ProductColumn, "Z14012"));
  EXPECT_EQ(Items.At(1).Mark, "A");
  EXPECT_EQ(Items.At(1).Length, 3000);
}

// What is refused.

TEST_F(SectionColumnsTest, A_mark_of_another_row_is_a_duplicate) {
  struct Case {
    std::string Other;  // stored in the row before and in the row behind
    std::string Text;
    bool Refused;
  };
  const std::vector<Case> cases = {
      {"A1", "A1", true},     {"A1", "A2", false},
      {"A1", "A", false},     {"A1", "a1", false},  // case tells marks apart
      {"A1", " A1", true},                          // blanks at the ends don't, on either side
      {"A1", "A1  ", true},   {" A1 ", "A1", true},
      {"A1 ", " A1", true},   {"A 1", "A1", false},
      {"A 1", "A  1", false}, {"A1", "A1\t", false},  // no other white space is a blank
      {"\tA1", "A1", false},  {"", "", false},        // empty marks are none
      {"  ", "", false},      {"", "   ", false},
      {"  ", "  ", false},
  };
  for (const Case& trial : cases) {
    SCOPED_TRACE("[" + trial.Other + "] [" + trial.Text + "]");
    const Refusal expected = trial.Refused ? Refusal("Error - Duplicate Mark") : std::nullopt;
    Items.Clear();
    test::AppendItem(trial.Other);
    test::AppendItem("own");
    EXPECT_EQ(CellRefusal(2, MarkColumn, trial.Text), expected);
    Items.Clear();
    test::AppendItem("own");
    test::AppendItem(trial.Other);
    EXPECT_EQ(CellRefusal(1, MarkColumn, trial.Text), expected);
  }
}

TEST_F(SectionColumnsTest, A_row_is_no_duplicate_of_itself_and_its_record_is_not_looked_at) {
  test::AppendItem("A1");
  test::AppendItem("B1");
  EXPECT_EQ(CellRefusal(1, MarkColumn, "A1"), std::nullopt);
  // The record holds the duplicate already, the editor something else.
  Items.At(2).Mark = "A1";
  EXPECT_EQ(CellRefusal(2, MarkColumn, "C1"), std::nullopt);
  EXPECT_EQ(CellRefusal(2, MarkColumn, "A1"), "Error - Duplicate Mark");
}

TEST_F(SectionColumnsTest, A_length_must_be_above_0) {
  test::AppendItem("A");
  MaxDims.At(1) = 12;
  for (const std::string text : {"", " ", "0", "0.0", "-5", "abc", "-0.1", "x12"}) {
    EXPECT_EQ(CellRefusal(1, LengthColumn, text), "Invalid length") << text;
  }
  for (const std::string text : {"1", "0.4", " 12", "12abc"}) {
    EXPECT_EQ(CellRefusal(1, LengthColumn, text), std::nullopt) << text;
  }
}

TEST_F(SectionColumnsTest, A_length_may_equal_the_maximum_of_its_family_and_no_more) {
  struct Case {
    std::string Letter;
    int Row;
    double Maximum;
    std::string Equal, Above, Message;
  };
  const std::vector<Case> cases = {
      // clang-format off
      {"Z", 1, 15000, "15000", "15001", "Length exceeds maximum for section (15000)"},
      {"E", 2, 14000, "14000", "14001", "Length exceeds maximum for section (14000)"},
      {"C", 3, 13000, "13000", "13001", "Length exceeds maximum for section (13000)"},
      {"V", 4, 3050,  "3050",  "3051",  "Length exceeds maximum for section (3050)"},
      {"R", 5, 3040,  "3040",  "3041",  "Length exceeds maximum for section (3040)"},
      {"T", 6, 4000,  "4000",  "4001",  "Length exceeds maximum for section (4000)"},
      {"Z", 1, 99.5,  "99.5",  "99.6",  "Length exceeds maximum for section (100)"},
      // clang-format on
  };
  for (const Case& trial : cases) {
    MaxDims.At(trial.Row) = trial.Maximum;
    Items.Clear();
    test::AppendItem("A", trial.Letter);
    EXPECT_EQ(CellRefusal(1, LengthColumn, trial.Equal), std::nullopt) << trial.Letter;
    EXPECT_EQ(CellRefusal(1, LengthColumn, trial.Above), trial.Message);
  }
}

TEST_F(SectionColumnsTest, A_section_of_no_family_has_no_maximum) {
  test::AppendItem("A", "Q");
  EXPECT_EQ(CellRefusal(1, LengthColumn, "32767"), std::nullopt);
  EXPECT_EQ(CellRefusal(1, LengthColumn, "0"), "Invalid length");
}

TEST_F(SectionColumnsTest, Other_columns_are_not_refused) {
  test::AppendItem("0");
  test::AppendItem("B");
  for (const int column : {LetterColumn, ProductColumn, QuantityColumn, NotesColumn}) {
    EXPECT_EQ(CellRefusal(2, column, "0"), std::nullopt);
    EXPECT_EQ(CellRefusal(2, column, ""), std::nullopt);
  }
}

}  // namespace

}  // namespace orvane
