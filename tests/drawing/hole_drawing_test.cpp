#include "drawing/hole_drawing.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "holes/hole_list.h"
#include "tests/drawing/elevation_fixture.h"

namespace orvane {
namespace {

using test::HoleOn;
using test::Placed;
using Lines = std::vector<std::string>;

// A Z section of 2000 mm at 1:10 both ways: from 55 to 255 mm, views down to 114 mm, the legend on
// 138 mm around 155 mm.
class HoleDrawingTest : public test::ElevationTest {
 protected:
  // Adds a hole behind the last one, its true gap and its drawn one alike unless another is given.
  void Add(Hole hole, std::int16_t XPos, double DrawGap = -1) {
    Item& item = TheItem();
    const int last = item.Holes.UBound();
    const double gap = XPos - (last > 0 ? item.Holes.At(last).XPos : 0);
    item.Holes.Append(Placed(std::move(hole), XPos, gap, DrawGap < 0 ? gap : DrawGap));
    item.Holes.At(0) = Placed({}, item.Length, item.Length - XPos, item.Length - XPos);
  }

  void Draw() {
    sheet.emplace(TheSheet());
    DrawHoles(*sheet);
  }
  std::string Drawn() {
    Draw();
    return Taken();
  }

  std::optional<Sheet> sheet;  // the sheet drawn last

  Lines Texts() const { return LinesOf("Text"); }

  const Hole web = HoleOn("n", "y", "n", "n");
  const Hole small = HoleOn("n", "y", "n", "n", 14);
};

TEST_F(HoleDrawingTest, A_section_with_a_web_and_a_flange_hole_is_recorded_line_by_line) {
  Add(web, 500);
  Add(HoleOn("n", "n", "n", "y", 14), 1300);
  const std::string pen = "PenWidth 0.1mm\nPenStyle 0\nPenColor 0,0,0\n";
  const std::string chain = "FontName \"Arial\"\nFontSize 7\n" + pen;
  EXPECT_EQ(Drawn(),
            // The web hole at 55 + 0.1 * 500 = 105 mm and 0.1 * (140 - 40) + 100 = 110 mm.
            pen +
                "BrushColor 255,255,255\n"
                "BrushStyle 1\n"
                "DrawCircle 105mm 110mm 0.9mm\n"
                "BrushColor 255,255,255\n"
                "BrushStyle 1\n"
                "DrawLine 105mm 108.5mm 105mm 111.5mm\n"
                "DrawLine 103.5mm 110mm 106.5mm 110mm\n" +
                // Its gap of 500, in the middle at 80 mm; its position in the first row.
                chain +
                "DrawLine 55mm 116mm 55mm 122mm\n"
                "DrawLine 105mm 116mm 105mm 122mm\n"
                "DrawLine 55mm 120mm 105mm 120mm\n" +
                Centred("500", 80, 120) + Centred("500", 105, 124.5) +
                // The flange hole at 185 mm on the top, 1.4 mm to both sides.
                pen +
                "BrushStyle 7\n"
                "BrushColor 0,0,0\n"
                "DrawRectangle 183.6mm 99.25mm 186.4mm 100.75mm\n"
                "BrushColor 255,255,255\n" +
                // Its gap of 800, middle at 145 mm; its position in the second row.
                chain +
                "DrawLine 185mm 116mm 185mm 122mm\n"
                "DrawLine 105mm 120mm 185mm 120mm\n" +
                Centred("800", 145, 120) + Centred("1300", 185, 128) +
                // The end: 700 from 185 to 255 mm, and the section's length in the first row.
                chain +
                "DrawLine 255mm 116mm 255mm 122mm\n"
                "DrawLine 185mm 120mm 255mm 120mm\n" +
                Centred("700", 220, 120) + Centred("2000", 255, 124.5) +
                // Holes of both diameters.
                "FontSize 10\n" + pen +
                "CurrentX 133mm\n"
                "CurrentY 136.8mm\n"
                "Text \"Holes:\"\n"
                "BrushStyle 1\n"
                "BrushColor 255,255,255\n"
                "DrawCircle 148mm 138.9mm 0.9mm\n"
                "CurrentX 150.5mm\n"
                "CurrentY 136.8mm\n"
                "Text \"18 Dia.\"\n"
                "BrushStyle 0\n"
                "BrushColor 128,128,128\n"
                "DrawCircle 168mm 138.9mm 0.7mm\n"
                "CurrentX 170.5mm\n"
                "CurrentY 136.8mm\n"
                "Text \"14 Dia.\"\n");
  EXPECT_EQ(sheet->HoleLabelRow, 4);
}

TEST_F(HoleDrawingTest, Nothing_is_drawn_without_depth_length_or_holes) {
  DrawingWidth = 77;
  const auto drawnOnSheet = [&] {
    Sheet bare = TheSheet();
    bare.LengthScale = 0.07;
    bare.HoleLabelRow = 9;
    DrawHoles(bare);
    EXPECT_EQ(DrawingWidth, 77);
    EXPECT_EQ(bare.LengthScale, 0.07);
    EXPECT_EQ(bare.HoleLabelRow, 9);
    return Taken();
  };
  EXPECT_EQ(drawnOnSheet(), "");  // no hole

  Add(web, 500);
  dim.Dim3 = 0;
  EXPECT_EQ(drawnOnSheet(), "");
  dim.Dim3 = -1;
  EXPECT_EQ(drawnOnSheet(), "");
  MakeSection("Z", 0);
  EXPECT_EQ(drawnOnSheet(), "");
  MakeSection("Z", -5);
  EXPECT_EQ(drawnOnSheet(), "");
}

TEST_F(HoleDrawingTest, The_scale_is_worked_out_again) {
  // 297.0 - 55 - 110 - 4 = 128 mm for 2560: 1:20.
  MakeSection("Z", 2560);
  RightMargin = 110;
  Add(web, 500);
  Drawn();
  EXPECT_EQ(sheet->DrawingWidth, 128);
  EXPECT_EQ(sheet->LengthScale, 0.05);
  Draw();
  EXPECT_EQ(LinesOf("DrawCircle"), Lines{"DrawCircle 80mm 110mm 0.9mm"});
}

TEST_F(HoleDrawingTest, Marks_stand_by_drawn_gaps_and_figures_state_the_true_ones) {
  Add(web, 500);
  Add(web, 510, 40);
  TheItem().Holes.At(0).DrawGap = 1460;
  Draw();
  EXPECT_EQ(LinesOf("DrawCircle"),
            (Lines{"DrawCircle 105mm 110mm 0.9mm", "DrawCircle 109mm 110mm 0.9mm"}));
  EXPECT_EQ(Texts(), (Lines{"Text \"500\"", "Text \"500\"", "Text \"10\"", "Text \"510\"",
                            "Text \"1490\"", "Text \"2000\"", "Text \"All Holes 18 Dia.\""}));
}

TEST_F(HoleDrawingTest, Gaps_that_the_hole_list_works_out_are_drawn_unrounded) {
  // 228 mm for 6000, so 4 mm of paper are 105.2631578947 of the section; the shortfall of
  // 35.2631578947 comes from 3000 and 2930 in proportion: the holes stand at 55 + 0.038 *
  // 2982.1602911156 = 168.3220910624 mm, and 4 mm behind that.
  MakeSection("Z", 6000);
  Add(web, 3000);
  Add(web, 3070);
  DrawingWidth = 228;
  AdjustHoleSpacing(1);
  Draw();
  std::string circles;
  for (const std::string& line : LinesOf("DrawCircle")) circles += line + "\n";
  test::ExpectNear(circles,
                   "DrawCircle 168.3220910624mm 110mm 0.9mm\n"
                   "DrawCircle 172.3220910624mm 110mm 0.9mm\n");
  EXPECT_EQ(Texts(), (Lines{"Text \"3000\"", "Text \"3000\"", "Text \"70\"", "Text \"3070\"",
                            "Text \"2930\"", "Text \"6000\"", "Text \"All Holes 18 Dia.\""}));
}

TEST_F(HoleDrawingTest, Positions_alternate_between_two_rows_in_every_run) {
  Add(web, 500);
  Add(web, 1000);
  Add(web, 1500);
  const std::string first = Drawn();
  // Below the value at 120 mm: 4.5, 8, 4.5, and 8 for the length.
  for (const std::string& total : {Centred("500", 105, 124.5), Centred("1000", 155, 128),
                                   Centred("1500", 205, 124.5), Centred("2000", 255, 128)}) {
    EXPECT_NE(first.find(total), std::string::npos) << total;
  }
  EXPECT_EQ(sheet->HoleLabelRow, 5);
  EXPECT_EQ(Drawn(), first);
}

TEST_F(HoleDrawingTest, Two_rows_at_one_position_are_both_marked_with_one_gap) {
  Add(web, 500);
  Add(HoleOn("n", "n", "y", "n"), 500);
  Draw();
  EXPECT_EQ(LinesOf("DrawCircle"),
            (Lines{"DrawCircle 105mm 110mm 0.9mm", "DrawCircle 105mm 104.5mm 0.9mm"}));
  EXPECT_EQ(Texts(), (Lines{"Text \"500\"", "Text \"500\"", "Text \"1500\"", "Text \"2000\"",
                            "Text \"All Holes 18 Dia.\""}));
}

TEST_F(HoleDrawingTest, A_hole_on_no_line_has_no_gap_but_shifts_what_follows) {
  Add(web, 500);
  Add(HoleOn("n", "n", "n", "n"), 800);
  Add(web, 1200);
  const std::string drawn = Drawn();
  EXPECT_NE(drawn.find("DrawCircle 175mm 110mm 0.9mm\n"), std::string::npos);
  // The next dimension spans its own gap alone, from 135 to 175 mm.
  EXPECT_NE(drawn.find("DrawLine 175mm 116mm 175mm 122mm\nDrawLine 135mm 120mm 175mm 120mm\n" +
                       Centred("400", 155, 120) + Centred("1200", 175, 128)),
            std::string::npos);
  EXPECT_EQ(drawn.find("DrawLine 135mm 116mm"), std::string::npos);
}

TEST_F(HoleDrawingTest, A_hole_at_the_sections_end_leaves_no_last_gap) {
  Add(web, 2000);
  Draw();
  EXPECT_EQ(Texts(), (Lines{"Text \"2000\"", "Text \"2000\"", "Text \"All Holes 18 Dia.\""}));
}

TEST_F(HoleDrawingTest, Holes_whose_gaps_are_not_known_yet_stand_at_the_left_end) {
  TheItem().Holes.Append(Placed(web, 500, 0, 0));
  TheItem().Holes.Append(Placed(web, 900, 0, 0));
  Draw();
  EXPECT_EQ(LinesOf("DrawCircle"),
            (Lines{"DrawCircle 55mm 110mm 0.9mm", "DrawCircle 55mm 110mm 0.9mm"}));
  EXPECT_EQ(Texts(), Lines{"Text \"All Holes 18 Dia.\""});
}

TEST_F(HoleDrawingTest, A_page_without_room_draws_all_holes_at_the_left_end) {
  RightMargin = 238;  // 297.0 - 55 - 238 - 4 = 0
  Add(web, 500);
  Draw();
  EXPECT_EQ(sheet->DrawingWidth, 0);
  EXPECT_EQ(LinesOf("DrawCircle"), Lines{"DrawCircle 55mm 110mm 0.9mm"});
}

TEST_F(HoleDrawingTest, Margins_wider_than_the_page_draw_mirrored) {
  RightMargin = 258;  // 20 mm short: 1:100 the other way
  Add(web, 500);
  Draw();
  EXPECT_EQ(sheet->DrawingWidth, -20);
  EXPECT_EQ(LinesOf("DrawCircle"), Lines{"DrawCircle 50mm 110mm 0.9mm"});
}

// The legend.

TEST_F(HoleDrawingTest, A_single_hole_of_18_is_told_without_circles) {
  Add(web, 500);
  const std::string drawn = Drawn();
  const std::string legend = "FontSize 10\n" + Centred("All Holes 18 Dia.", 155, 138, 10);
  EXPECT_EQ(drawn.substr(drawn.find("FontSize 10")), legend);
  EXPECT_EQ(drawn.find("Holes:"), std::string::npos);
}

TEST_F(HoleDrawingTest, Holes_of_14_alone_are_told_so) {
  Add(small, 500);
  Add(small, 900);
  const std::string drawn = Drawn();
  EXPECT_EQ(drawn.substr(drawn.find("FontSize 10")),
            "FontSize 10\n" + Centred("All Holes 14 Dia.", 155, 138, 10));
}

TEST_F(HoleDrawingTest, Every_other_diameter_counts_as_18_in_the_legend) {
  Add(HoleOn("n", "y", "n", "n", 14.5F), 500);
  Add(HoleOn("n", "y", "n", "n", 0), 900);
  Draw();
  EXPECT_EQ(Texts().back(), "Text \"All Holes 18 Dia.\"");
}

TEST_F(HoleDrawingTest, A_hole_on_no_line_still_counts_in_the_legend) {
  Add(web, 500);
  Add(HoleOn("n", "n", "n", "n", 14), 900);
  Draw();
  EXPECT_EQ(Texts().back(), "Text \"14 Dia.\"");
}

TEST_F(HoleDrawingTest, The_legend_stands_around_the_middle_of_the_drawn_length) {
  // 1:20, so the middle of 4560 is at 55 + 114 = 169 mm; a cleader rail's view ends at 115 mm.
  MakeSection("R", 4560);
  Add(web, 500);
  const std::string drawn = Drawn();
  EXPECT_EQ(drawn.substr(drawn.find("FontSize 10")),
            "FontSize 10\n" + Centred("All Holes 18 Dia.", 169, 139, 10));
}

// The list of slots.

TEST_F(HoleDrawingTest, Slots_alone_have_no_legend_of_holes) {
  Add(HoleOn("n", "y", "n", "n", 18, 28), 500);
  const std::string drawn = Drawn();
  EXPECT_EQ(drawn.substr(drawn.find("FontSize 10")),
            "FontSize 10\n"
            "CurrentX 55mm\nCurrentY 68.8mm\nText \"Slots: \"\nText \"18x28  \"\n");
}

TEST_F(HoleDrawingTest, Slot_lengths_are_listed_once_in_order_of_appearance_those_of_14_first) {
  Add(HoleOn("n", "y", "n", "n", 18, 28), 200);
  Add(HoleOn("n", "y", "n", "n", 14, 30), 400);
  Add(HoleOn("n", "y", "n", "n", 18, 22), 600);
  Add(HoleOn("n", "y", "n", "n", 18, 28), 800);
  Add(HoleOn("n", "y", "n", "n", 14, 22.4F), 1000);
  Add(HoleOn("n", "y", "n", "n", 14, 30), 1200);
  Add(web, 1400);
  const std::string drawn = Drawn();
  EXPECT_EQ(drawn.substr(drawn.find("FontSize 10")),
            "FontSize 10\n" + Centred("All Holes 18 Dia.", 155, 138, 10) +
                "CurrentX 55mm\nCurrentY 68.8mm\nText \"Slots: \"\n"
                "Text \"14x30  \"\nText \"14x22.4  \"\nText \"18x28  \"\nText \"18x22  \"\n");
}

// Holes off gauge.

TEST_F(HoleDrawingTest, Off_gauge_holes_have_letters_above_and_key_and_table_at_the_end) {
  Add(HoleOn("30", "n", "n", "n"), 500);
  Add(HoleOn("n", "50", "n", "n"), 1200);
  const std::string drawn = Drawn();
  // In 7 points: "Off-gauge" is 630 twips wide, 161 high.
  const std::string letters = "CurrentX " + ShortestText(54 - 630 / 56.7) +
                              "mm\n"
                              "CurrentY " +
                              ShortestText(95 - 161 / 113.4) +
                              "mm\n"
                              "Text \"Off-gauge\"\n" +
                              Centred("A", 105, 95) + Centred("B", 175, 95) + "FontSize 10\n";
  EXPECT_NE(drawn.find(letters), std::string::npos) << drawn;
  const std::size_t legend = drawn.find("Text \"All Holes 18 Dia.\"");
  const std::size_t key = drawn.find("Text \"w\"");
  const std::size_t table = drawn.find("Text \"Off-gauge hole Y dims.\"");
  ASSERT_NE(table, std::string::npos);
  EXPECT_LT(drawn.find(letters), legend);
  EXPECT_LT(legend, key);
  EXPECT_LT(key, table);
  EXPECT_TRUE(drawn.ends_with("TableBorder 7\nEndTable\n"));
}

TEST_F(HoleDrawingTest, Slots_are_listed_before_the_key) {
  Add(HoleOn("30", "n", "n", "n", 18, 28), 500);
  const std::string drawn = Drawn();
  EXPECT_LT(drawn.find("Text \"18x28  \""), drawn.find("Text \"w\""));
}

TEST_F(HoleDrawingTest, A_number_on_the_second_web_row_is_marked_but_not_off_gauge) {
  Add(HoleOn("n", "n", "55", "n"), 500);
  const std::string drawn = Drawn();
  EXPECT_NE(drawn.find("DrawCircle 105mm 108.5mm 0.9mm\n"), std::string::npos);
  EXPECT_EQ(drawn.find("Off-gauge"), std::string::npos);
  EXPECT_EQ(drawn.find("StartTable"), std::string::npos);
}

TEST_F(HoleDrawingTest, An_off_gauge_hole_beside_another_at_its_place_has_its_letter_there) {
  Add(web, 500);
  Add(HoleOn("30", "n", "n", "n"), 500);
  EXPECT_NE(Drawn().find(Centred("A", 105, 95)), std::string::npos);
}

TEST_F(HoleDrawingTest, Off_gauge_holes_at_one_position_share_a_letter) {
  Add(HoleOn("n", "40", "n", "n"), 500);
  Add(HoleOn("n", "90", "n", "n"), 500);
  Draw();
  const Lines texts = Texts();
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "Text \"A\""), 1);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "Text \"B\""), 0);
  EXPECT_EQ(LinesOf("TableCell 18 2 2"), Lines{"TableCell 18 2 2 \"40,90\""});
}

TEST_F(HoleDrawingTest, The_27th_off_gauge_position_has_no_letter) {
  MakeSection("Z", 15000);
  for (int i = 1; i <= 27; ++i) Add(HoleOn("30", "n", "n", "n"), Int16(i * 500));
  const std::string drawn = Drawn();
  // 228 mm for 15000: 0.0152 to one. The 26th at 55 + 0.0152 * 13000 = 252.6 mm, the last one 7.6
  // mm on.
  EXPECT_NE(drawn.find(Centred("Z", 252.6, 95) + Centred("", 260.2, 95)), std::string::npos);
  EXPECT_NE(drawn.find("TableCell 18 1 27 \"Z\"\nTableCell 18 1 28 \"\"\n"), std::string::npos);
}

}  // namespace
}  // namespace orvane
