#include "drawing/off_gauge.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "drawing/page_surface.h"
#include "drawing/sheet_frame.h"
#include "tests/drawing/elevation_fixture.h"

namespace orvane {
namespace {

using test::HoleOn;
using Lines = std::vector<std::string>;

// Which holes are off gauge, and the list of them.

Hole At(std::int16_t XPos, Hole hole) {
  hole.XPos = XPos;
  return hole;
}

TEST(OffGaugeListTest, A_number_above_zero_on_a_flange_or_the_first_web_row_is_off_gauge) {
  EXPECT_TRUE(IsOffGauge(HoleOn("30", "n", "n", "n")));
  EXPECT_TRUE(IsOffGauge(HoleOn("n", "30", "n", "n")));
  EXPECT_TRUE(IsOffGauge(HoleOn("n", "n", "n", "30")));
  EXPECT_TRUE(IsOffGauge(HoleOn("0.5", "n", "n", "n")));
  EXPECT_TRUE(IsOffGauge(HoleOn("n", " 0.5mm", "n", "n")));
  EXPECT_TRUE(IsOffGauge(HoleOn("n", "n", "n", "0.5")));
  EXPECT_FALSE(IsOffGauge(HoleOn("n", "n", "30", "n")));
  EXPECT_FALSE(IsOffGauge(HoleOn("y", "y", "y", "y")));
  EXPECT_FALSE(IsOffGauge(HoleOn("0", "-4", "n", "")));
  EXPECT_FALSE(IsOffGauge(HoleOn("inf", "nan", "n", "n")));
}

TEST(OffGaugeListTest, Each_position_has_a_row_with_its_place_and_distances) {
  Table<OffGaugeHole> list;
  AddOffGauge(list, At(500, HoleOn("30", "y", "55", "40.5")), 480.5);
  AddOffGauge(list, At(900, HoleOn("n", "62", "n", "n")), 860);
  ASSERT_EQ(list.UBound(), 2);
  EXPECT_EQ(list.At(1).XPos, 500);
  EXPECT_EQ(list.At(1).DrawX, 480.5);
  EXPECT_EQ(list.At(1).Bottom, 30);
  EXPECT_EQ(list.At(1).Top, 40.5);
  EXPECT_EQ(list.At(1).Web1, 0);  // "y" is at the gauge, and the second web row is not looked at
  EXPECT_EQ(list.At(1).Web2, 0);
  EXPECT_EQ(list.At(2).XPos, 900);
  EXPECT_EQ(list.At(2).DrawX, 860);
  EXPECT_EQ(list.At(2).Bottom, 0);
  EXPECT_EQ(list.At(2).Top, 0);
  EXPECT_EQ(list.At(2).Web1, 62);
  EXPECT_EQ(list.At(2).Web2, 0);
}

TEST(OffGaugeListTest, Holes_at_one_position_share_its_row) {
  Table<OffGaugeHole> list;
  AddOffGauge(list, At(500, HoleOn("30", "40", "n", "n")), 480);
  AddOffGauge(list, At(500, HoleOn("35", "90", "n", "n")), 480);
  AddOffGauge(list, At(500, HoleOn("n", "n", "n", "45")), 480);
  ASSERT_EQ(list.UBound(), 1);
  EXPECT_EQ(list.At(1).Bottom, 35);
  EXPECT_EQ(list.At(1).Top, 45);
  EXPECT_EQ(list.At(1).Web1, 40);
  EXPECT_EQ(list.At(1).Web2, 90);
}

TEST(OffGaugeListTest, A_third_distance_on_the_web_replaces_the_second) {
  Table<OffGaugeHole> list;
  for (const char* distance : {"40", "90", "70"}) {
    AddOffGauge(list, At(500, HoleOn("n", distance, "n", "n")), 480);
  }
  EXPECT_EQ(list.At(1).Web1, 40);
  EXPECT_EQ(list.At(1).Web2, 70);
}

TEST(OffGaugeListTest, A_position_that_is_place_zero_begins_a_row_too) {
  Table<OffGaugeHole> list;
  AddOffGauge(list, At(0, HoleOn("30", "n", "n", "n")), 0);
  EXPECT_EQ(list.UBound(), 1);
}

TEST(OffGaugeListTest, Letters_end_at_Z) {
  EXPECT_EQ(OffGaugeLetter(1), "A");
  EXPECT_EQ(OffGaugeLetter(2), "B");
  EXPECT_EQ(OffGaugeLetter(26), "Z");
  EXPECT_EQ(OffGaugeLetter(27), "");
  EXPECT_EQ(OffGaugeLetter(1000), "");
}

// Key and table on a page of 297 mm, so that the key's origin is at 297 - 10 - 20 = 267 mm and
// 10 + 20 = 30 mm.
class OffGaugeTest : public test::ElevationTest {
 protected:
  OffGaugeTest() {
    page.FontSize(10);
    page.Forget();
  }

  std::string TakenFromPage() {
    std::string text;
    for (const std::string& line : page.Lines()) text += line + "\n";
    page.Forget();
    return text;
  }
  std::string Key() {
    DrawOffGaugeKey(TheSheet(page));
    return TakenFromPage();
  }
  std::string TableOf(const Table<OffGaugeHole>& list) {
    DrawOffGaugeTable(TheSheet(page), list);
    return TakenFromPage();
  }
  // The straight lines that are 0.4 mm wide, and all others.
  Lines EdgesOfKey() {
    Lines edges;
    bool object = false;
    DrawOffGaugeKey(TheSheet(page));
    for (const std::string& line : page.Lines()) {
      if (line.rfind("PenWidth ", 0) == 0) object = line == "PenWidth 0.4mm";
      if (object && line.rfind("DrawLine ", 0) == 0) edges.push_back(line);
    }
    page.Forget();
    return edges;
  }
  // What the key shows behind its edges.
  std::string MeasuresOfKey() {
    const std::string key = Key();
    return key.substr(key.rfind("PenWidth 0.4mm\n"));
  }

  static OffGaugeHole Row(double bottom, double top, double web1, double web2) {
    return {0, 0, bottom, top, web1, web2};
  }

  RecordingSurface page{metrics, 56.7 * 297};
};

TEST_F(OffGaugeTest, The_key_of_Z_has_its_five_edges) {
  EXPECT_EQ(EdgesOfKey(), (Lines{
                              "DrawLine 279.6mm 30mm 279.6mm 31.6mm",
                              "DrawLine 273mm 30mm 279.6mm 30mm",
                              "DrawLine 273mm 30mm 273mm 44mm",
                              "DrawLine 267mm 44mm 273mm 44mm",
                              "DrawLine 267mm 42.2mm 267mm 44mm",
                          }));
}

TEST_F(OffGaugeTest, The_key_of_Z_measures_web_top_and_bottom) {
  const std::string measures = MeasuresOfKey();
  // In the 10 points that the legend left. The ticks cross the section's lines at the middle of the
  // web, and at two thirds of the flanges from it: 0.1 * 2 * 66 / 3 = 4.4 and 0.1 * 60 / 3 = 2.
  EXPECT_EQ(measures.substr(measures.find("PenWidth 0.1mm")),
            "PenWidth 0.1mm\n" + Dimension(276, 37, 276, 44, "w", 10) +
                "DrawLine 268.5mm 37mm 277.5mm 37mm\n"
                "PenWidth 0.1mm\n" +
                Dimension(273, 27, 277.4, 27, "t", 10) +
                "DrawLine 277.4mm 25.5mm 277.4mm 34.5mm\n"
                "PenWidth 0.1mm\n" +
                Dimension(269, 47, 273, 47, "b", 10) + "DrawLine 269mm 39.5mm 269mm 48.5mm\n");
}

TEST_F(OffGaugeTest, The_key_of_C_has_its_five_edges) {
  MakeSection("C");
  EXPECT_EQ(EdgesOfKey(), (Lines{
                              "DrawLine 273.6mm 30mm 273.6mm 31.6mm",
                              "DrawLine 267mm 30mm 273.6mm 30mm",
                              "DrawLine 267mm 30mm 267mm 44mm",
                              "DrawLine 267mm 44mm 273mm 44mm",
                              "DrawLine 273mm 42.2mm 273mm 44mm",
                          }));
}

TEST_F(OffGaugeTest, The_key_of_C_measures_web_top_and_bottom) {
  MakeSection("C");
  const std::string measures = MeasuresOfKey();
  EXPECT_EQ(measures.substr(measures.find("PenWidth 0.1mm")),
            "PenWidth 0.1mm\n" + Dimension(264, 37, 264, 44, "w", 10) +
                "DrawLine 262.5mm 37mm 271.5mm 37mm\n"
                "PenWidth 0.1mm\n" +
                Dimension(267, 27, 271.4, 27, "t", 10) +
                "DrawLine 271.4mm 25.5mm 271.4mm 34.5mm\n"
                "PenWidth 0.1mm\n" +
                Dimension(267, 47, 271, 47, "b", 10) + "DrawLine 271mm 39.5mm 271mm 48.5mm\n");
}

TEST_F(OffGaugeTest, The_key_of_an_eaves_beam_is_that_of_C_without_pitch_and_t) {
  MakeSection("C");
  const Lines edges = EdgesOfKey();
  MakeSection("E");
  TheItem().Pitch = "10";
  EXPECT_EQ(EdgesOfKey(), edges);
  const std::string measures = MeasuresOfKey();
  EXPECT_EQ(measures.substr(measures.find("PenWidth 0.1mm")),
            "PenWidth 0.1mm\n" + Dimension(264, 37, 264, 44, "w", 10) +
                "DrawLine 262.5mm 37mm 271.5mm 37mm\n"
                "PenWidth 0.1mm\n" +
                Dimension(267, 47, 271, 47, "b", 10) + "DrawLine 271mm 39.5mm 271mm 48.5mm\n");
}

TEST_F(OffGaugeTest, Other_families_have_no_key) {
  for (const char* family : {"V", "R", "T", "", "X"}) {
    MakeSection(family);
    EXPECT_EQ(Key(), "") << family;
  }
}

TEST_F(OffGaugeTest, The_key_follows_page_width_and_margins) {
  // 200 - 25 - 20 = 155 mm, 15 + 20 = 35 mm.
  RightMargin = 25;
  TopMargin = 15;
  RecordingSurface narrow(metrics, 56.7 * 200);
  DrawOffGaugeKey(TheSheet(narrow));
  const Lines& lines = narrow.Lines();
  EXPECT_NE(std::find(lines.begin(), lines.end(), "DrawLine 161mm 35mm 161mm 49mm"), lines.end());
}

TEST_F(OffGaugeTest, The_table_is_recorded_line_by_line) {
  Table<OffGaugeHole> list;
  list.Append(Row(0, 25.5, 40, 90));
  list.Append(Row(30, 0, 62, 0));
  // Two letters: the left edge at 267 - 30 - 2 * 15 = 207 mm, 197 mm from the margin.
  EXPECT_EQ(TableOf(list),
            "CurrentX 207mm\n"
            "CurrentY 25mm\n"
            "Text \"Off-gauge hole Y dims.\"\n"
            "CurrentY 30mm\n"
            "StartTable\n"
            "TableIndent 197mm\n"
            "TableOnOnePage\n"
            "TableCell 2 0 0 3\n"
            "TableCell 1 0 0 4\n"
            "TableCell 7 0 0 \"5mm\"\n"
            "TableCell 13 0 0 \"15mm\"\n"
            "TableAlignment 0 0 centre 6\n"
            "TableCell 18 1 2 \"A\"\n"
            "TableCell 18 1 3 \"B\"\n"
            "TableCell 18 2 1 \"w\"\n"
            "TableCell 18 2 2 \"40,90\"\n"
            "TableCell 18 2 3 \"62\"\n"
            "TableCell 18 3 1 \"b\"\n"
            "TableCell 18 3 2 \"\"\n"
            "TableCell 18 3 3 \"30\"\n"
            "TableCell 18 4 1 \"t\"\n"
            "TableCell 18 4 2 \"25.5\"\n"
            "TableCell 18 4 3 \"\"\n"
            "TableBorder 7\n"
            "EndTable\n");
}

TEST_F(OffGaugeTest, The_table_of_an_eaves_beam_ends_before_t) {
  MakeSection("E");
  Table<OffGaugeHole> list;
  list.Append(Row(30, 25, 40, 0));
  EXPECT_EQ(TableOf(list),
            "CurrentX 222mm\n"
            "CurrentY 25mm\n"
            "Text \"Off-gauge hole Y dims.\"\n"
            "CurrentY 30mm\n"
            "StartTable\n"
            "TableIndent 212mm\n"
            "TableOnOnePage\n"
            "TableCell 2 0 0 2\n"
            "TableCell 1 0 0 3\n"
            "TableCell 7 0 0 \"5mm\"\n"
            "TableCell 13 0 0 \"15mm\"\n"
            "TableAlignment 0 0 centre 6\n"
            "TableCell 18 1 2 \"A\"\n"
            "TableCell 18 2 1 \"w\"\n"
            "TableCell 18 2 2 \"40\"\n"
            "TableCell 18 3 1 \"b\"\n"
            "TableCell 18 3 2 \"30\"\n"
            "TableBorder 7\n"
            "EndTable\n");
}

TEST_F(OffGaugeTest, Other_families_have_the_table_with_all_rows) {
  for (const char* family : {"C", "V", "R", "T"}) {
    MakeSection(family);
    Table<OffGaugeHole> list;
    list.Append(Row(30, 25, 40, 0));
    const std::string table = TableOf(list);
    EXPECT_NE(table.find("TableCell 1 0 0 4\n"), std::string::npos) << family;
    EXPECT_NE(table.find("TableCell 18 4 2 \"25\"\n"), std::string::npos) << family;
  }
}

TEST_F(OffGaugeTest, A_hole_off_gauge_on_a_flange_alone_shows_0_on_the_web) {
  Table<OffGaugeHole> list;
  list.Append(Row(30, 0, 0, 0));
  EXPECT_NE(TableOf(list).find("TableCell 18 2 2 \"0\"\n"), std::string::npos);
}

TEST_F(OffGaugeTest, Many_letters_begin_the_table_left_of_the_paper) {
  Table<OffGaugeHole> list;
  list.Resize(16);
  // 267 - 30 - 16 * 15 = -3 mm.
  const std::string table = TableOf(list);
  EXPECT_EQ(table.substr(0, 15), "CurrentX -3mm\nC");
  EXPECT_NE(table.find("TableIndent -13mm\n"), std::string::npos);
  EXPECT_NE(table.find("TableCell 18 1 17 \"P\"\n"), std::string::npos);
}

TEST_F(OffGaugeTest, Without_rows_there_is_no_table) {
  EXPECT_EQ(TableOf({}), "");
}

// Four rows of 5 mm, 20 mm below the top margin: from one of 171 mm on they end below the paper.
TEST_F(OffGaugeTest, The_table_stays_on_its_page_whatever_the_top_margin) {
  Table<OffGaugeHole> list;
  list.Append(Row(30, 25, 40, 0));
  for (const int margin : {-30, 0, 150, 166, 170, 171, 180, 190, 250}) {
    TopMargin = Int16(margin);
    PageSurface sheet(metrics);
    ApplyPageMargins(sheet);
    sheet.StartDoc();
    DrawOffGaugeTable(TheSheet(sheet), list);
    sheet.EndDoc();
    ASSERT_EQ(sheet.Result().Pages.size(), 1U) << margin;
    std::vector<double> rows;
    for (const Shape& shape : sheet.Result().Pages.front().Shapes) {
      const auto* line = std::get_if<LineShape>(&shape);
      if (line != nullptr && line->From.Y == line->To.Y) rows.push_back(line->From.Y);
    }
    const double top = margin + 20;
    EXPECT_EQ(rows, (std::vector<double>{top, top + 5, top + 10, top + 15, top + 20})) << margin;
  }
}

}  // namespace
}  // namespace orvane
