// A row of texts taken into a section by the rules of the grid's cells.
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/model.h"
#include "core/text.h"
#include "project/rules/section_columns.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using Result = TakenCell::Result;

class SectionRowTest : public test::SystemTest {
 protected:
  SectionRowTest() {
    for (const char* product : {"Z14012", "Z14014"}) SectionDims.Append({"Z", product});
    SectionDims.Append({"C", "C20020"});
    for (int family = 1; family <= 6; ++family) MaxDims.At(family) = 15000;
  }

  static Item Section(const std::string& mark, const std::string& letter = "Z") {
    Item item;
    item.SectionType = letter;
    item.Mark = mark;
    item.Product = letter == "V" ? "VCR" : letter == "C" ? "C20020" : "Z14012";
    item.Length = 6000;
    item.Quantity = 4;
    item.Notes = "as drawn";
    return item;
  }
  static bool NoMark(std::string_view) { return false; }

  // The cells' results as letters: "-" not given, "=" same, "+" changed, "!" refused.
  static std::string Results(const TakenRow& row) {
    std::string results;
    for (const TakenCell& cell : row.Cells) {
      const std::string_view letters = "-=+!";
      results += letters.at(static_cast<std::size_t>(cell.What));
    }
    return results;
  }
  static std::string ReasonOf(const TakenRow& row, int column) {
    return row.Cells.at(static_cast<std::size_t>(column)).Reason;
  }
  // What becomes of one cell of a purlin, without other sections.
  static TakenCell TakeOne(Item& item, int column, const std::string& text) {
    SectionTexts texts(static_cast<std::size_t>(column) + 1);
    texts.back() = text;
    return TakeRow(item, texts, NoMark).Cells.at(static_cast<std::size_t>(column));
  }
};

TEST_F(SectionRowTest, A_whole_row_is_taken_into_a_new_section) {
  Item item;
  item.SectionType = "Z";
  const TakenRow row =
      TakeRow(item, {"Z", "P1", "Z14014", "7250", "12", "sleeved, \"left\""}, NoMark);
  EXPECT_EQ(Results(row), "=+++++");
  EXPECT_FALSE(row.IsRefused());
  EXPECT_TRUE(row.IsChanged());
  EXPECT_EQ(item.SectionType, "Z");
  EXPECT_EQ(item.Mark, "P1");
  EXPECT_EQ(item.Product, "Z14014");
  EXPECT_EQ(item.Length, 7250);
  EXPECT_EQ(item.Quantity, 12);
  EXPECT_EQ(item.Notes, "sleeved, ''left''");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(SectionRowTest, What_is_not_given_stays_at_the_end_and_in_the_middle) {
  Item item = Section("P1");
  const TakenRow row = TakeRow(item, {std::nullopt, "P2", std::nullopt, "500"}, NoMark);
  EXPECT_EQ(Results(row), "-+-+--");
  EXPECT_EQ(item.Mark, "P2");
  EXPECT_EQ(item.Product, "Z14012");
  EXPECT_EQ(item.Length, 500);
  EXPECT_EQ(item.Quantity, 4);
  EXPECT_EQ(item.Notes, "as drawn");
}

TEST_F(SectionRowTest,
       No_texts_at_all_change_nothing_and_texts_behind_the_last_column_are_left_out) {
  Item item = Section("P1");
  TakenRow row = TakeRow(item, {}, NoMark);
  EXPECT_EQ(Results(row), "------");
  EXPECT_FALSE(row.IsChanged());
  EXPECT_FALSE(row.IsRefused());
  SectionTexts texts(20, "9");
  for (std::size_t at = 0; at < 6; ++at) texts[at] = std::nullopt;
  row = TakeRow(item, texts, NoMark);
  EXPECT_EQ(Results(row), "------");
  EXPECT_EQ(item.Quantity, 4);
}

TEST_F(SectionRowTest, An_empty_text_is_a_text) {
  Item item = Section("P1");
  const TakenRow row = TakeRow(item, {std::nullopt, "", std::nullopt, "", "", ""}, NoMark);
  EXPECT_EQ(Results(row), "-+-!++");
  EXPECT_EQ(ReasonOf(row, LengthColumn), "Invalid length");
  EXPECT_EQ(item.Mark, "");
  EXPECT_EQ(item.Length, 6000);
  EXPECT_EQ(item.Quantity, 0);
  EXPECT_EQ(item.Notes, "");
}

TEST_F(SectionRowTest, What_a_row_shows_goes_back_into_it_unchanged) {
  for (const std::string letter : {"Z", "V", "Q"}) {
    SCOPED_TRACE(letter);
    Items.Clear();
    Items.Append(Section("P1", letter));
    SectionTexts texts;
    for (int column = 0; column < SectionColumns; ++column) texts.push_back(ItemText(1, column));
    const TakenRow row = TakeRow(std::int16_t{1}, texts);
    EXPECT_EQ(Results(row), "======");
    EXPECT_FALSE(row.IsChanged());
  }
}

// Each cell as the grid takes and refuses it, the record's value and the reason.
struct CellCase {
  int Column;
  std::string Text;
  Result What;
  std::string Shown;  // by the record afterwards
  std::string Reason;
};

const std::vector<CellCase> CellCases = {
    // clang-format off
    {LetterColumn,   "Z",        Result::Same,    "Z",        ""},
    {LetterColumn,   " Z ",      Result::Same,    "Z",        ""},
    {LetterColumn,   "C",        Result::Refused, "Z",        "Can't be changed"},
    {LetterColumn,   "",         Result::Refused, "Z",        "Can't be changed"},
    {MarkColumn,     "P1",       Result::Same,    "P1",       ""},
    {MarkColumn,     " P1",      Result::Changed, " P1",      ""},
    {MarkColumn,     "p1",       Result::Changed, "p1",       ""},
    {MarkColumn,     "A, \"b\"", Result::Changed, "A, ''b''", ""},  // a double quote would end it
    {ProductColumn,  "Z14012",   Result::Same,    "Z14012",   ""},
    {ProductColumn,  " Z14012 ", Result::Same,    "Z14012",   ""},
    {ProductColumn,  "Z14014",   Result::Changed, "Z14014",   ""},
    {ProductColumn,  " Z14014",  Result::Changed, "Z14014",   ""},  // the list's own text
    {ProductColumn,  "z14014",   Result::Refused, "Z14012",   "Not in the list"},
    {ProductColumn,  "Z1401",    Result::Refused, "Z14012",   "Not in the list"},
    {ProductColumn,  "C20020",   Result::Refused, "Z14012",   "Not in the list"},  // of channels
    {ProductColumn,  "",         Result::Refused, "Z14012",   "Not in the list"},
    {LengthColumn,   "6000",     Result::Same,    "6000",     ""},
    {LengthColumn,   "6000.4",   Result::Same,    "6000",     ""},
    {LengthColumn,   "12.5",     Result::Changed, "12",       ""},  // halves to the even neighbour
    {LengthColumn,   "13.5",     Result::Changed, "14",       ""},
    {LengthColumn,   " 70 mm",   Result::Changed, "70",       ""},
    {LengthColumn,   "15000",    Result::Changed, "15000",    ""},
    {LengthColumn,   "15001",    Result::Refused, "6000",     "Length exceeds maximum for section (15000)"},
    {LengthColumn,   "99999",    Result::Refused, "6000",     "Length exceeds maximum for section (15000)"},
    {LengthColumn,   "0",        Result::Refused, "6000",     "Invalid length"},
    {LengthColumn,   "-5",       Result::Refused, "6000",     "Invalid length"},
    {LengthColumn,   "long",     Result::Refused, "6000",     "Invalid length"},
    {LengthColumn,   "1e999",    Result::Refused, "6000",     "Overflow"},
    {QuantityColumn, "4",        Result::Same,    "4",        ""},
    {QuantityColumn, "0",        Result::Changed, "0",        ""},
    {QuantityColumn, "-7",       Result::Changed, "-7",       ""},
    {QuantityColumn, "3 pcs",    Result::Changed, "3",        ""},
    {QuantityColumn, "32767",    Result::Changed, "32767",    ""},
    {QuantityColumn, "32768",    Result::Refused, "4",        "Overflow"},
    {QuantityColumn, "1e999",    Result::Refused, "4",        "Overflow"},
    {NotesColumn,    "as drawn", Result::Same,    "as drawn", ""},
    {NotesColumn,    "12 \u00F8 ", Result::Changed, "12 \u00F8 ", ""},
    // clang-format on
};

TEST_F(SectionRowTest, Duplicate_marks_are_looked_for_behind_the_change_of_their_quotes) {
  Items.Append(Section("12''"));
  Items.Append(Section("P1"));
  const TakenRow row = TakeRow(std::int16_t{2}, {std::nullopt, "12\""});
  EXPECT_EQ(ReasonOf(row, MarkColumn), "Error - Duplicate Mark");
}

TEST_F(SectionRowTest, Each_cell_is_taken_or_refused_as_the_grid_does_and_in_its_words) {
  for (const CellCase& trial : CellCases) {
    SCOPED_TRACE(DecimalText(trial.Column) + " [" + trial.Text + "]");
    Items.Clear();
    Items.Append(Section("P1"));
    const TakenCell cell = TakeOne(Items.At(1), trial.Column, trial.Text);
    EXPECT_EQ(cell.What, trial.What);
    EXPECT_EQ(cell.Reason, trial.Reason);
    EXPECT_EQ(ItemText(1, trial.Column), trial.Shown);
    // The other cells are as they were.
    Items.Append(Section("P1"));
    for (int other = 0; other < SectionColumns; ++other) {
      if (other == trial.Column) continue;
      EXPECT_EQ(ItemText(1, other), ItemText(2, other)) << other;
    }
  }
}

TEST_F(SectionRowTest, A_refused_cell_keeps_its_value_and_the_others_are_taken) {
  Item item = Section("P1");
  const TakenRow row = TakeRow(item, {"C", "P2", "Z99999", "99999", "40000", "new"}, NoMark);
  EXPECT_EQ(Results(row), "!+!!!+");
  EXPECT_TRUE(row.IsRefused());
  EXPECT_TRUE(row.IsChanged());
  EXPECT_EQ(item.SectionType, "Z");
  EXPECT_EQ(item.Mark, "P2");
  EXPECT_EQ(item.Product, "Z14012");
  EXPECT_EQ(item.Length, 6000);
  EXPECT_EQ(item.Quantity, 4);
  EXPECT_EQ(item.Notes, "new");
}

TEST_F(SectionRowTest, A_rail_keeps_its_one_product) {
  Item item = Section("P1", "V");
  EXPECT_EQ(TakeOne(item, ProductColumn, "VCR").What, Result::Same);
  const TakenCell cell = TakeOne(item, ProductColumn, "Z14012");
  EXPECT_EQ(cell.What, Result::Refused);
  EXPECT_EQ(cell.Reason, "Can't be changed");
  EXPECT_EQ(item.Product, "VCR");
}

TEST_F(SectionRowTest, A_product_that_the_catalogue_lacks_stays_where_it_stood) {
  Item item = Section("P1");
  item.Product = "Z99999";
  EXPECT_EQ(TakeOne(item, ProductColumn, "Z99999").What, Result::Same);
  EXPECT_EQ(item.Product, "Z99999");
  item.Product = "";
  EXPECT_EQ(TakeOne(item, ProductColumn, " ").What, Result::Same);
  EXPECT_EQ(TakeOne(item, ProductColumn, "Z99999").What, Result::Refused);
  EXPECT_EQ(item.Product, "");
}

TEST_F(SectionRowTest, The_maximum_goes_by_the_sections_own_family) {
  MaxDims.At(4) = 3050;
  Item rail = Section("P1", "V");
  EXPECT_EQ(TakeOne(rail, LengthColumn, "3050").What, Result::Changed);
  EXPECT_EQ(TakeOne(rail, LengthColumn, "3051").Reason,
            "Length exceeds maximum for section (3050)");
  EXPECT_EQ(rail.Length, 3050);
  // A section of no family has no maximum but what its field holds.
  Item foreign = Section("P1", "Q");
  EXPECT_EQ(TakeOne(foreign, LengthColumn, "32767").What, Result::Changed);
  EXPECT_EQ(TakeOne(foreign, LengthColumn, "32768").Reason, "Overflow");
  EXPECT_EQ(foreign.Length, 32767);
}

TEST_F(SectionRowTest, A_mark_of_another_row_is_refused_its_own_is_not) {
  Items.Append(Section("P1"));
  Items.Append(Section("P2"));
  Items.Append(Section(""));
  struct Case {
    std::string Text;
    Result What;
  };
  for (const Case& trial : std::vector<Case>{{"P1", Result::Refused},
                                             {" P1 ", Result::Refused},
                                             {"p1", Result::Changed},
                                             {"", Result::Changed},
                                             {"P2", Result::Same}}) {
    SCOPED_TRACE(trial.Text);
    Items.At(2).Mark = "P2";
    const TakenRow row = TakeRow(std::int16_t{2}, {std::nullopt, trial.Text});
    EXPECT_EQ(row.Cells.at(MarkColumn).What, trial.What);
    EXPECT_EQ(ReasonOf(row, MarkColumn),
              trial.What == Result::Refused ? "Error - Duplicate Mark" : "");
    EXPECT_EQ(Items.At(2).Mark, trial.What == Result::Changed ? trial.Text : "P2");
  }
}

TEST_F(SectionRowTest, A_mark_that_stands_twice_already_is_refused_as_on_leaving_its_cell) {
  Items.Append(Section("P1"));
  Items.Append(Section("P1"));
  const TakenRow row = TakeRow(std::int16_t{2}, {std::nullopt, "P1"});
  EXPECT_EQ(ReasonOf(row, MarkColumn), "Error - Duplicate Mark");
}

// Rows that come at once are compared with each other before any of them stands in the job.
TEST_F(SectionRowTest, The_marks_in_use_may_be_those_of_rows_that_are_still_to_come) {
  Items.Append(Section("P1"));
  std::set<std::string, std::less<>> marks = {"P1"};
  const MarkInUse inUse = [&marks](std::string_view mark) { return marks.count(mark) > 0; };
  std::vector<Item> rows;
  std::string results;
  for (const std::string mark : {"P2", " P2", "P1", "P3 "}) {
    Item item = Section("");
    results += Results(TakeRow(item, {std::nullopt, mark}, inUse)) + " ";
    marks.insert(std::string(Trim(item.Mark)));
    rows.push_back(item);
  }
  EXPECT_EQ(results, "-+---- -!---- -!---- -+---- ");
  EXPECT_EQ(rows.at(0).Mark, "P2");
  EXPECT_EQ(rows.at(1).Mark, "");
  EXPECT_EQ(rows.at(2).Mark, "");
  EXPECT_EQ(rows.at(3).Mark, "P3 ");
  EXPECT_EQ(Items.UBound(), 1);
}

TEST_F(SectionRowTest, What_the_grid_does_not_edit_stays_with_the_section) {
  Item item = Section("P1");
  item.PatternName = "Butt";
  item.MitreLeft = 12.5F;
  item.Pitch = "10";
  item.SagBarDia = 14;
  item.Holes.Append({});
  TakeRow(item, {"Z", "P2", "Z14014", "500", "1", ""}, NoMark);
  EXPECT_EQ(item.PatternName, "Butt");
  EXPECT_EQ(item.MitreLeft, 12.5F);
  EXPECT_EQ(item.Pitch, "10");
  EXPECT_EQ(item.SagBarDia, 14);
  EXPECT_EQ(item.Holes.UBound(), 1);
}

TEST_F(SectionRowTest, A_row_that_is_not_there_takes_nothing) {
  Items.Append(Section("P1"));
  for (const std::int16_t row : {std::int16_t{-1}, std::int16_t{0}, std::int16_t{2}}) {
    EXPECT_EQ(test::ErrorOf([row] { TakeRow(row, {"Z", "P9"}); }), "Subscript out of range");
  }
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_EQ(Items.At(0).Mark, "");
  EXPECT_EQ(Items.At(1).Mark, "P1");
}

}  // namespace

}  // namespace orvane
