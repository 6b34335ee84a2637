// One whole recording for each family, worked out by hand. SectionViewLeft is 24 mm, ElevationLeft
// 55 mm, and the room for the elevation 228 mm, so that a section of 2280 mm or more ends at 283
// mm.
#include <cmath>

#include "core/files.h"
#include "core/program_folder.h"
#include "drawing/draw_section.h"
#include "drawing/page_surface.h"
#include "drawing/pictures.h"
#include "drawing/section_views.h"
#include "tests/drawing/section_views_fixture.h"
#include "tests/drawing/small_metafile.h"

namespace orvane::test {

namespace {

using Lines = std::vector<std::string>;

class SectionFamiliesViews : public SectionViewsTest {};

TEST_F(SectionFamiliesViews, A_Z_section) {
  const SectionDim dim = ProductOf("Z", "Z20016",
                                   {.Dim3 = 200,
                                    .Dim4 = 65,
                                    .Dim5 = 60,
                                    .Dim7 = 16,
                                    .Dim8 = 18,
                                    .Dim9 = 37.5,
                                    .Dim10 = 120,
                                    .Dim11 = 42.5});
  Item item = SectionOf("P1", "Z", 6000, 12);
  item.Notes = " Paint red ";

  SheetLines want = TextBlock("P1", "12", "Z20016");
  want.Entry(40, "Notes:  ", 35, "Paint red");
  want.Says("FontSize 7");
  // Top lip at x 24 + 0.1 * 125 = 36.5; dimension 5 mm to the right.
  want.Edge(36.5, 100, 36.5, 101.6);
  want.Line(43.5, 100, 38.5, 100).Line(43.5, 101.6, 38.5, 101.6);
  want.Upright(41.5, 100, 101.6, "16");
  // Top flange from x 30; dimension 6 mm above.
  want.Edge(30, 100, 36.5, 100);
  want.Line(30, 92, 30, 98).Line(36.5, 92, 36.5, 98);
  want.Level(30, 36.5, 94, "65");
  // Web; offset 6 + 5, so its dimension is 16 mm to the left.
  want.Edge(30, 100, 30, 120);
  want.Line(12, 100, 17, 100).Line(12, 120, 17, 120);
  want.Upright(14, 100, 120, "200");
  want.Line(17, 100, 28, 100);
  // Bottom flange.
  want.Edge(24, 120, 30, 120);
  want.Line(24, 128, 24, 122).Line(30, 128, 30, 122);
  want.Level(24, 30, 126, "60");
  // Bottom lip from 100 + 0.1 * 182.
  want.Edge(24, 118.2, 24, 120);
  want.Line(17, 118.2, 22, 118.2).Line(17, 120, 22, 120);
  want.Upright(19, 118.2, 120, "18");
  // Gauges at x 36.5 + 10, rows at 103.75 and 115.75.
  want.Pen(0.1);
  want.Line(43.5, 100, 48.5, 100);
  want.Line(28, 103.75, 48.5, 103.75);
  want.Line(28, 115.75, 48.5, 115.75);
  want.Line(32, 120, 48.5, 120);
  want.Upright(46.5, 100, 103.75, "37.5");
  want.Upright(46.5, 103.75, 115.75, "120");
  want.Upright(46.5, 115.75, 120, "42.5");
  // Elevation at 228 / 6000; the lower lip hidden behind the web.
  want.Pen(0.4).Says("BrushStyle 1").Rectangle(55, 100, 283, 120);
  want.Line(55, 101.6, 283, 101.6);
  // From 3118.5 to 16046.1 twips at 6701.94: 12927.6 / 112 = 115.425, so 115 dashes, their start
  // put off by 0.425 * 28 = 11.9 along and 0.2125 down, each 28 to 84 behind its own start.
  want.Pen(0.1);
  for (int at = 0; at < 115; ++at) {
    const double x = 3118.5 + 11.9 + 28 + 112.0 * at;
    want.Says("DrawLine " + ShortestText(x) + " 6702.1525 " + ShortestText(x + 56) + " 6702.1525");
  }
  want.LengthOver(100, 55, 283, "6000");

  ExpectSameSheet(Views(item, dim), want.Lines());
}

TEST_F(SectionFamiliesViews, A_C_section) {
  const SectionDim dim = ProductOf("C", "C22020",
                                   {.Dim3 = 220,
                                    .Dim4 = 65,
                                    .Dim5 = 60.5,
                                    .Dim7 = 15,
                                    .Dim8 = 17,
                                    .Dim9 = 40,
                                    .Dim10 = 140,
                                    .Dim11 = 45});
  const Item item = SectionOf("C1", "C", 2000, 1);

  SheetLines want = TextBlock("C1", "1", "C22020");
  want.Says("FontSize 7");
  // Top lip at x 24 + 6.5.
  want.Edge(30.5, 100, 30.5, 101.5);
  want.Line(37.5, 100, 32.5, 100).Line(37.5, 101.5, 32.5, 101.5);
  want.Upright(35.5, 100, 101.5, "15");
  // Top flange, its dimension below.
  want.Edge(24, 100, 30.5, 100);
  // Web.
  want.Edge(24, 100, 24, 122);
  want.Line(17, 100, 22, 100).Line(17, 122, 22, 122);
  want.Upright(19, 100, 122, "220");
  // Bottom flange.
  want.Edge(24, 122, 30.05, 122);
  want.Line(24, 130, 24, 124).Line(30.05, 130, 30.05, 124);
  want.Level(24, 30.05, 128, "60.5");
  // Bottom lip from 100 + 0.1 * 203.
  want.Edge(30.05, 120.3, 30.05, 122);
  want.Line(37.05, 120.3, 32.05, 120.3).Line(37.05, 122, 32.05, 122);
  want.Upright(35.05, 120.3, 122, "17");
  // Gauges at x 30.5 + 10. The last is drawn down to the bottom, whatever the catalogue says it is.
  want.Pen(0.1);
  want.Line(37.5, 100, 42.5, 100);
  want.Line(22, 104, 42.5, 104);
  want.Line(22, 118, 42.5, 118);
  want.Line(37.5, 122, 42.5, 122);
  want.Upright(40.5, 100, 104, "40");
  want.Upright(40.5, 104, 118, "140");
  want.Upright(40.5, 118, 122, "45");
  // The two halves of the top flange, each 3.25 mm on paper.
  want.Line(24, 92, 24, 98).Line(30.5, 92, 30.5, 98).Line(27.25, 92, 27.25, 102);
  want.Pen(0.1);
  want.Line(24, 94, 27.25, 94).Head(-1, 0, 24, 94).Head(1, 0, 27.25, 94);
  want.Line(27.25, 94, 30.5, 94).Head(-1, 0, 27.25, 94).Head(1, 0, 30.5, 94);
  want.CentredText("32.5", 25.625, 94).CentredText("32.5", 28.875, 94);
  // Elevation at 1:10, shorter than the room.
  want.Pen(0.4).Says("BrushStyle 1").Rectangle(55, 100, 255, 122);
  want.Line(55, 101.5, 255, 101.5).Line(55, 120.3, 255, 120.3);
  want.LengthOver(100, 55, 255, "2000");

  ExpectSameSheet(Views(item, dim), want.Lines());
}

// A pitch whose cosine is 0.8 and whose sine is 0.6.
constexpr const char* Pitch345 = "36.86989764584402";

const SectionDim EavesDim = ProductOf("E", "E20020",
                                      {.Dim3 = 200,
                                       .Dim4 = 70,
                                       .Dim5 = 60,
                                       .Dim7 = 20,
                                       .Dim8 = 18,
                                       .Dim9 = 45,
                                       .Dim10 = 110,
                                       .Dim11 = 45});

Item EavesBeam(const std::string& pitch) {
  Item item = SectionOf("E1", "E", 6000, 4);
  item.Pitch = pitch;
  return item;
}

// The web, the bottom flange and its lip, which no pitch touches, and the gauges.
void AddEavesRest(SheetLines& want) {
  want.Edge(24, 100, 24, 120);
  want.Line(17, 100, 22, 100).Line(17, 120, 22, 120);
  want.Upright(19, 100, 120, "200");
  want.Edge(24, 120, 30, 120);
  want.Edge(30, 118.2, 30, 120);
  want.Line(37, 118.2, 32, 118.2).Line(37, 120, 32, 120);
  want.Upright(35, 118.2, 120, "18");
  // Gauges at x 24 + 7 + 10.
  want.Pen(0.1);
  want.Line(38, 100, 43, 100);
  want.Line(22, 104.5, 43, 104.5);
  want.Line(22, 115.5, 43, 115.5);
  want.Line(38, 120, 43, 120);
  want.Upright(41, 100, 104.5, "45");
  want.Upright(41, 104.5, 115.5, "110");
  want.Upright(41, 115.5, 120, "45");
}

// The two halves of the bottom flange, below the view.
void AddEavesHalves(SheetLines& want) {
  want.Line(24, 122, 24, 128).Line(30, 122, 30, 128).Line(27, 118, 27, 128);
  want.Pen(0.1);
  want.Line(24, 126, 27, 126).Head(-1, 0, 24, 126).Head(1, 0, 27, 126);
  want.Line(27, 126, 30, 126).Head(-1, 0, 27, 126).Head(1, 0, 30, 126);
  want.CentredText("30", 25.5, 126).CentredText("30", 28.5, 126);
}

TEST_F(SectionFamiliesViews, An_eaves_beam_follows_the_roof) {
  SheetLines want = TextBlock("E1", "4", "E20020");
  want.Says("FontSize 7");
  // The flange reaches 56 along and 42 up: (29.6, 95.8); its lip another 12 along and 16 down:
  // (30.8, 97.4).
  want.Edge(29.6, 95.8, 30.8, 97.4);
  want.Edge(24, 100, 29.6, 95.8);
  AddEavesRest(want);
  // Lip, 5 mm off along the slope: 4 to the right, 3 up.
  want.Line(32.4, 96.2, 36.4, 93.2).Line(31.2, 94.6, 35.2, 91.6).Line(33.6, 92.8, 34.8, 94.4);
  want.Head(0, -1, 33.6, 92.8).Head(0, 1, 34.8, 94.4);
  // "20" is 140 by 161 twips, w = 2.469135802 and h = 2.839506173 mm; e = w / 2 = 1.234567901 and
  // f = (2 - h) / 2 = -0.4197530864. x = 33.6 - 0.8 e + 0.6 f, y = 92.8 + 0.8 f + 0.6 e.
  const double w = 140 / 56.7;
  const double h = 161 / 56.7;
  const double lipX = 33.6 - 0.4 * w + 0.3 * (2 - h);
  const double lipY = 92.8 + 0.4 * (2 - h) + 0.3 * w;
  EXPECT_NEAR(lipX, 32.360493827, 1e-9);
  EXPECT_NEAR(lipY, 93.204938272, 1e-9);
  want.Turned("20", lipX, lipY, 369);
  // Flange, 5 mm off square to the slope: 3 to the left, 4 up.
  want.Line(22.8, 98.4, 19.8, 94.4).Line(28.4, 94.2, 25.4, 90.2).Line(21, 96, 26.6, 91.8);
  want.Head(-0.8, 0.6, 21, 96).Head(0.8, -0.6, 26.6, 91.8);
  // e = (7 - w) / 2 = 2.265432099 and f = h / 2 = 1.419753086.
  // x = 21 + 0.8 e - 0.6 f, y = 96 - 0.8 f - 0.6 e.
  const double flangeX = 21 + 0.4 * (7 - w) - 0.3 * h;
  const double flangeY = 96 - 0.4 * h - 0.3 * (7 - w);
  EXPECT_NEAR(flangeX, 21.960493827, 1e-9);
  EXPECT_NEAR(flangeY, 93.504938272, 1e-9);
  want.Turned("70", flangeX, flangeY, 369);
  AddEavesHalves(want);
  // The pitch, 8 mm over the flange's far end: 87.8, and 4.2 above that.
  want.Says("BrushStyle 1").Line(24, 87.8, 30, 87.8).Line(24, 87.8, 29.6, 83.6);
  want.Says("DrawArc 24mm 87.8mm 4mm 0 0.643501108793284");
  want.CentredText("36.86989764584402\u00BA", 31.1, 86.3);
  // The elevation begins at the flange's far end.
  want.Pen(0.4).Says("BrushStyle 1").Rectangle(55, 95.8, 283, 120);
  want.Line(55, 97.4, 283, 97.4).Line(55, 118.2, 283, 118.2);
  want.LengthOver(95.8, 55, 283, "6000");

  ExpectSameSheet(Views(EavesBeam(Pitch345), EavesDim), want.Lines());
}

// The views without a pitch: c = 1, n = 0, so that T is 100 and the turned dimensions are level and
// plumb.
SheetLines FlatEavesBeam(SheetLines want) {
  want.Says("FontSize 7");
  want.Edge(31, 100, 31, 102);
  want.Edge(24, 100, 31, 100);
  AddEavesRest(want);
  want.Line(33, 102, 38, 102).Line(33, 100, 38, 100).Line(36, 100, 36, 102);
  want.Head(0, -1, 36, 100).Head(0, 1, 36, 102);
  want.Turned("20", 36 - 70 / 56.7, 100 + (2 - 161 / 56.7) / 2, 0);
  want.Line(24, 98, 24, 93).Line(31, 98, 31, 93).Line(24, 95, 31, 95);
  want.Head(-1, 0, 24, 95).Head(1, 0, 31, 95);
  want.Turned("70", 24 + (7 - 140 / 56.7) / 2, 95 - 80.5 / 56.7, 0);
  AddEavesHalves(want);
  want.Pen(0.4).Says("BrushStyle 1").Rectangle(55, 100, 283, 120);
  want.Line(55, 102, 283, 102).Line(55, 118.2, 283, 118.2);
  return want.LengthOver(100, 55, 283, "6000");
}

TEST_F(SectionFamiliesViews, An_eaves_beam_of_pitch_0_has_no_arc_and_no_level_line) {
  const SheetLines want = FlatEavesBeam(TextBlock("E1", "4", "E20020"));
  ExpectSameSheet(Views(EavesBeam("0"), EavesDim), want.Lines());
}

TEST_F(SectionFamiliesViews, A_pitch_that_is_no_number_counts_as_0) {
  const Lines flat = Views(EavesBeam("0"), EavesDim);
  for (const char* pitch : {"", "   ", "abc", "-"}) {
    EXPECT_EQ(Views(EavesBeam(pitch), EavesDim), flat) << pitch;
  }
}

TEST_F(SectionFamiliesViews, A_pitch_counts_up_to_its_first_letter_and_is_shown_trimmed) {
  Items.Append(EavesBeam(" 22.5 deg "));
  DrawViews(EavesDim, 6000);
  EXPECT_EQ(LinesOf("TextAngle"),
            (Lines{"TextAngle 225", "TextAngle 0", "TextAngle 225", "TextAngle 0"}));
  EXPECT_EQ(LinesOf("Text \"22.5 deg\u00BA\"").size(), 1U);
}

TEST_F(SectionFamiliesViews, The_turn_of_a_value_is_rounded_to_a_tenth_of_a_degree_ties_to_even) {
  struct Case {
    const char* Pitch;
    const char* Line;
  };
  for (const Case& each :
       {Case{"10", "TextAngle 100"}, Case{"10.04", "TextAngle 100"}, Case{"10.06", "TextAngle 101"},
        Case{"0.25", "TextAngle 2"}, Case{"0.75", "TextAngle 8"}}) {
    surface.Forget();
    Items.Clear();
    Items.Append(EavesBeam(each.Pitch));
    DrawViews(EavesDim, 6000);
    EXPECT_EQ(LinesOf("TextAngle").at(0), each.Line);
  }
}

TEST_F(SectionFamiliesViews, A_pitch_beyond_all_angles_is_an_overflow) {
  Items.Append(EavesBeam("3277"));
  EXPECT_EQ(ErrorOf([&] { DrawViews(EavesDim, 6000); }), "Overflow");
}

TEST_F(SectionFamiliesViews, A_roof_that_falls_has_no_pitch_shown) {
  Items.Append(EavesBeam("-10"));
  DrawViews(EavesDim, 6000);
  EXPECT_TRUE(LinesOf("DrawArc").empty());
  // T = 100 + sin 10 degrees * 7 = 101.2155372436686.
  const Lines frames = LinesOf("DrawRectangle 55mm");
  ASSERT_EQ(frames.size(), 1U);
  EXPECT_EQ(frames.at(0), "DrawRectangle 55mm 101.215537243669mm 283mm 120mm");
}

TEST_F(SectionFamiliesViews, A_vertical_cladding_rail_lies_on_its_side) {
  const SectionDim dim = ProductOf(
      "V", "VCR",
      {.Dim3 = 100, .Dim4 = 80, .Dim7 = 20, .Dim8 = 22, .Dim9 = 25, .Dim10 = 30, .Dim11 = 25});
  const Item item = SectionOf("V1", "V", 3000, 2);

  SheetLines want = TextBlock("V1", "2", "VCR");
  want.Says("FontSize 7");
  // Left lip.
  want.Edge(24, 100, 26, 100);
  want.Line(24, 92, 24, 98).Line(26, 92, 26, 98);
  want.Level(24, 26, 94, "20");
  // Web strip, offset 7.
  want.Edge(24, 100, 24, 108);
  want.Line(10, 100, 15, 100).Line(10, 108, 15, 108);
  want.Upright(12, 100, 108, "80");
  // Web.
  want.Edge(24, 108, 34, 108);
  want.Line(24, 116, 24, 110).Line(34, 116, 34, 110);
  want.Level(24, 34, 114, "100");
  // Right lip: the edge runs up, its dimension down.
  want.Edge(34, 108, 34, 105.8);
  want.Line(41, 108, 36, 108).Line(41, 105.8, 36, 105.8);
  want.Upright(39, 105.8, 108, "22");
  // Gauges at the left.
  want.Pen(0.1);
  for (const double y : {100.0, 102.5, 105.5, 108.0}) want.Line(23, y, 19, y);
  want.Upright(19, 100, 102.5, "25");
  want.Upright(19, 102.5, 105.5, "30");
  want.Upright(19, 105.5, 108, "25");
  // Elevation; its lip at 105.8 mm goes through whole twips: 3118.5, 5998.86, 16046.1 cut.
  want.Pen(0.4).Says("BrushStyle 1").Rectangle(55, 100, 283, 108);
  want.Says("DrawLine 3118 5998 16046 5998");
  want.LengthOver(100, 55, 283, "3000");

  ExpectSameSheet(Views(item, dim), want.Lines());
}

const SectionDim RailDim = ProductOf("R", "CLR", {.Dim3 = 120, .Dim5 = 60, .Dim11 = 50});

Item CleaderRail() {
  Item item = SectionOf("R1", "R", 3050, 3);
  item.Notes = "  ";
  item.JointingPieces = 7;
  return item;
}

TEST_F(SectionFamiliesViews, A_cleader_rail_with_its_detail_picture) {
  // A picture twice as wide as high, under the folder's other spelling.
  ProgramFolder = PathText(NativePath(TempFile("dims.csv", "")).parent_path());
  std::filesystem::create_directory(NativePath(ProgramFolder) / "Drawings");
  TempFile("Drawings/drg015.wmf", SmallMetafile(2000, 1000));

  SheetLines want = TextBlock("R1", "3", "CLR");
  want.Entry(40, "No. Req'd Jointing Piece:  ", 65, "7");
  want.Says("FontSize 7");
  // Web, offset 6, so its dimension is 11 mm to the left of x 30.
  want.Edge(30, 100, 30, 112);
  want.Line(17, 100, 22, 100).Line(17, 112, 22, 112);
  want.Upright(19, 100, 112, "120");
  // Flange.
  want.Edge(24, 112, 30, 112);
  want.Line(24, 120, 24, 114).Line(30, 120, 30, 114);
  want.Level(24, 30, 118, "60");
  want.Pen(0.1);
  want.Line(22, 100, 28, 100);
  // Gauge from the bottom, 100 + 0.1 * (120 - 50) = 107, at x 35.
  want.Line(28, 107, 37, 107).Line(32, 112, 37, 112);
  want.Upright(35, 107, 112, "50");
  want.Pen(0.4).Says("BrushStyle 1").Rectangle(55, 100, 283, 112);
  want.LengthOver(100, 55, 283, "3050");

  Lines recorded = Views(CleaderRail(), RailDim);
  ASSERT_FALSE(recorded.empty());
  const std::string picture = recorded.back();
  recorded.pop_back();
  ExpectSameSheet(recorded, want.Lines());
  ASSERT_NE(frmDrawings().imgAcc, nullptr);
  const Picture& detail = *frmDrawings().imgAcc;
  EXPECT_DOUBLE_EQ(detail.Width / detail.Height, 2);
  // 75 mm wide, so 37.5 mm high.
  EXPECT_EQ(picture, "DrawPicture picture " + ShortestText(detail.Width) + "x" +
                         ShortestText(detail.Height) + " 160mm 125mm 75mm 37.5mm");
}

// 61.5 mm between the middles of A3 and A4, 8.8 mm between those of A4 and Letter.
TEST_F(SectionFamiliesViews, The_rails_detail_keeps_its_place_to_the_middle_of_other_paper) {
  SectionDims.Append(RailDim);
  Item rail = CleaderRail();
  rail.Product = "CLR";
  Items.Append(rail);
  const auto placeOn = [](double width, double height) {
    const PlainFontMetrics metrics;
    PageSurface paper(metrics, {width, height});
    DrawSection(paper, 1, true, true);
    for (const Shape& shape : paper.Result().Pages.front().Shapes) {
      const auto* picture = std::get_if<PictureShape>(&shape);
      if (picture != nullptr && picture->Place.Width == 75) return picture->Place.Left;
    }
    return 0.0;
  };
  EXPECT_EQ(placeOn(210, 297), 160);
  EXPECT_EQ(placeOn(297, 420), 222);
  EXPECT_EQ(placeOn(215.9, 279.4), 151);
}

TEST_F(SectionFamiliesViews, A_missing_detail_picture_fails_behind_the_views) {
  ProgramFolder = PathText(NativePath(TempFile("dims.csv", "")).parent_path());
  Items.Append(CleaderRail());
  const std::string error = ErrorOf([&] { DrawViews(RailDim, 3050); });
  EXPECT_EQ(error.substr(0, 16), "File not found: ");
  EXPECT_NE(error.find("drg015.wmf"), std::string::npos) << error;
  EXPECT_EQ(LinesOf("Text").back(), "Text \"3050\"");
  EXPECT_EQ(desktop.Boxes.size(), 0U);
}

TEST_F(SectionFamiliesViews, A_top_hat_with_unequal_end_lips) {
  const SectionDim dim = ProductOf(
      "T", "T05010", {.Dim3 = 50, .Dim4 = 100, .Dim5 = 100, .Dim7 = 30, .Dim8 = 34, .Dim9 = 15});
  const Item item = SectionOf("T1", "T", 4000, 9);

  // A side rises 100 * tan 10 degrees = 17.6326980708465. The crown is at 47.6326980708465 and
  // 97.6326980708465, the overall depth B = 145.265396141693; D, by both lips, is 149.265396141693.
  const double crownTop = 104.76326980708465;
  const double crownEnd = 109.76326980708465;
  const double sideEnd = 111.5265396141693;
  const double overall = 114.5265396141693;
  const double bottom = 114.9265396141693;

  SheetLines want = TextBlock("T1", "9", "T05010");
  want.Says("FontSize 7");
  want.Edge(34, 100, 34, 103);
  want.Edge(24, crownTop, 34, 103);
  want.Edge(24, crownTop, 24, crownEnd);
  want.Line(17, crownTop, 22, crownTop).Line(17, crownEnd, 22, crownEnd);
  want.Upright(19, crownTop, crownEnd, "50");
  want.Edge(24, crownEnd, 34, sideEnd);
  want.Edge(34, sideEnd, 34, overall);
  want.Pen(0.1);
  // Width above, the left extension down to the lip's end.
  want.Line(24, 92, 24, 103).Line(34, 92, 34, 98);
  want.Level(24, 34, 94, "100");
  // Gauges, 1.5 mm from the top and from the bottom.
  want.Line(36, 100, 41, 100).Line(32, 101.5, 41, 101.5);
  want.Upright(39, 100, 101.5, "15");
  want.Line(32, 113.4265396141693, 41, 113.4265396141693).Line(36, bottom, 41, bottom);
  want.Upright(39, 113.4265396141693, bottom, "15");
  // Ticks: 2.5 * (0.173648177666930, 0.984807753012208) to either side of (29, 103.881634903542)
  // and of (29, 110.644904710627).
  want.Line(28.565879555832675, 101.4196155210118, 29.434120444167325, 106.3436542860728);
  want.Line(29.434120444167325, 108.1828853280965, 28.565879555832675, 113.1069240931575);
  // Elevation; its last line by the second lip: 100 + 0.1 * (B - 34).
  want.Pen(0.4).Says("BrushStyle 1").Rectangle(55, 100, 283, overall);
  for (const double y : {103.0, crownTop, crownEnd, 111.1265396141693}) {
    want.Line(55, y, 283, y);
  }
  want.LengthOver(100, 55, 283, "4000");

  ExpectSameSheet(Views(item, dim), want.Lines());
}

}  // namespace

}  // namespace orvane::test
