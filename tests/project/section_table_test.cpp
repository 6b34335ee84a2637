// Sections as tables of texts, and what headings name.
#include "project/section_list/section_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/csv.h"
#include "core/model.h"
#include "project/section_list/list_columns.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using SectionTableTest = test::SystemTest;

TEST_F(SectionTableTest, Each_section_is_a_row_under_the_headings) {
  Item item;
  item.SectionType = "Z";
  item.Mark = "P1";
  item.Product = "Z14012";
  item.Length = 7250;
  item.Quantity = 12;
  item.Notes = "sleeved, ''left''";
  item.PatternName = "Butt 1 Sag Bar";
  item.SagBarDia = 14;
  item.MitreLeft = 22.5F;
  item.MitreRight = -5;
  Items.Append(item);
  Item beam;
  beam.SectionType = "E";
  beam.Mark = "EB1";
  beam.Pitch = "22.5";
  Items.Append(beam);
  EXPECT_EQ(SectionTable({1, 2}),
            (std::vector<CsvRow>{{"Mark", "Product", "Length", "Qty", "Notes", "Punching",
                                  "Sag bars", "Pitch", "Mitre left", "Mitre right"},
                                 {"P1", "Z14012", "7250", "12", "sleeved, ''left''",
                                  "Butt 1 Sag Bar", "14", "", "22.5", "-5.0"},
                                 {"EB1", "", "0", "0", "", "", "", "22.5", "0.0", "0.0"}}));
}

TEST_F(SectionTableTest, Rows_come_as_they_are_asked_for) {
  for (const char* mark : {"P1", "P2", "P3"}) test::AppendItem(mark);
  const std::vector<CsvRow> table = SectionTable({3, 1});
  ASSERT_EQ(table.size(), 3U);
  EXPECT_EQ(table[1].front(), "P3");
  EXPECT_EQ(table[2].front(), "P1");
  EXPECT_EQ(SectionTable({}).size(), 1U);
}

TEST_F(SectionTableTest, No_text_is_taken_for_a_formula_and_no_angle_for_a_text) {
  Item& item = test::AppendItem("=1+1");
  item.Notes = "-see sheet 2";
  item.MitreLeft = -45;
  const CsvRow row = SectionTable({1}).at(1);
  EXPECT_EQ(row.at(MarkColumn - 1), "'=1+1");
  EXPECT_EQ(row.at(NotesColumn - 1), "'-see sheet 2");
  EXPECT_EQ(row.at(MitreLeftColumn - 1), "-45.0");
}

TEST_F(SectionTableTest, A_list_file_is_UTF_8_with_its_mark) {
  Item& item = test::AppendItem("P1", "V", 3000);
  item.Product = "VCR";
  item.Quantity = 2;
  item.Notes = "caf\xC3\xA9, \xC3\x98 12";
  EXPECT_EQ(SectionListFile(),
            "\xEF\xBB\xBF"
            "Mark,Product,Length,Qty,Notes,Punching,Sag bars,Pitch,Mitre left,Mitre right\r\n"
            "P1,VCR,3000,2,\"caf\xC3\xA9, \xC3\x98 12\",,,,0.0,0.0\r\n");
}

TEST(ListColumns, Headings_are_known_by_the_names_that_people_give_them) {
  const std::vector<std::pair<int, std::vector<std::string>>> names = {
      {MarkColumn, {"Mark", "MARK", " mark ", "Mark:"}},
      {ProductColumn, {"Product", "Section", "section"}},
      {LengthColumn, {"Length", "LENGTH (MM)", "Length (mm)", "Length [mm]"}},
      {QuantityColumn, {"Qty", "Qty.", "Quantity", "No. off", "No.Off", "NO OFF"}},
      {NotesColumn, {"Notes", "Remarks"}},
      {PunchingColumn, {"Punching", "Pattern"}},
      {SagBarsColumn, {"Sag bars", "Sag-bars", "SAG BARS (mm)", "sag_bars"}},
      {PitchColumn, {"Pitch"}},
      {MitreLeftColumn, {"Mitre left", "MITRE LEFT"}},
      {MitreRightColumn, {"Mitre right"}},
      {0, {"", " ", "Weight", "Marks", "P1", "(Mark)", "M\xC3\xA4rk"}},
  };
  for (const auto& [column, headings] : names) {
    for (const std::string& heading : headings) {
      EXPECT_EQ(ListColumnNamed(heading), column) << heading;
    }
  }
}

TEST(ListColumns, A_heading_in_metres_is_told_from_one_in_millimetres) {
  EXPECT_TRUE(IsInMetres("Length (m)"));
  EXPECT_TRUE(IsInMetres("Length [ M ]"));
  EXPECT_FALSE(IsInMetres("Length (mm)"));
  EXPECT_FALSE(IsInMetres("Length"));
  EXPECT_FALSE(IsInMetres("(m)"));
}

}  // namespace

}  // namespace orvane
