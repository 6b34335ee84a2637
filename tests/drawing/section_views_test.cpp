#include "drawing/section_views.h"

#include "drawing/off_gauge_place.h"
#include "drawing/section_view_parts.h"
#include "tests/drawing/section_views_fixture.h"

namespace orvane::test {

namespace {

using Lines = std::vector<std::string>;

const SectionDim ZDim = Z20016();

Item Mitred(const std::string& mark, const std::string& type) {
  Item item = SectionOf(mark, type, 6000);
  item.MitreLeft = 10;
  return item;
}

class SectionViews : public SectionViewsTest {
 protected:
  // The sheet of some Z section, for what doesn't ask which.
  Sheet PlainSheet() {
    Items.Clear();
    Items.Append(SectionOf("P1", "Z", 6000));
    return TheSheet(ZDim, 6000);
  }

  // The text block alone, as a section of a letter that has no views draws it before its mitres.
  Lines TextBlockOf(const Item& item) {
    Items.Clear();
    Items.Append(item);
    surface.Forget();
    DrawViews(ZDim, 6000);
    Lines lines;
    for (const std::string& line : surface.Lines()) {
      if (line == "FontSize 7") break;
      if (line.starts_with("Text ") || line.starts_with("Current")) lines.push_back(line);
    }
    return lines;
  }
};

TEST_F(SectionViews, Without_depth_or_length_nothing_is_drawn_and_the_state_stays) {
  Items.Append(Mitred("P1", "Z"));
  DrawingWidth = 4;
  const auto draw = [&](const SectionDim& dim, double length) {
    Sheet sheet = TheSheet(dim, length);
    EXPECT_EQ(sheet.DrawingWidth, 0);
    sheet.SectionViewLeft = 1;
    sheet.ElevationLeft = 2;
    sheet.LengthScale = 3;
    DrawSectionViews(sheet);
    EXPECT_EQ(sheet.SectionViewLeft, 1);
    EXPECT_EQ(sheet.ElevationLeft, 2);
    EXPECT_EQ(sheet.LengthScale, 3);
  };
  SectionDim dim = ZDim;
  for (const double depth : {0.0, -200.0}) {
    dim.Dim3 = depth;
    draw(dim, 6000);
  }
  for (const double length : {0.0, -0.0, -1.0}) draw(ZDim, length);
  EXPECT_EQ(surface.Lines(), Lines{});
  EXPECT_EQ(DrawingWidth, 4);
}

TEST_F(SectionViews, Any_depth_and_length_above_0_is_drawn) {
  Items.Append(SectionOf("P1", "Z", 1));
  DrawViews(ProductOf("Z", "Z1", {.Dim3 = 0.5}), 0.5);
  EXPECT_EQ(LinesOf("DrawRectangle 55mm"), Lines{"DrawRectangle 55mm 100mm 55.05mm 100.05mm"});
}

TEST_F(SectionViews, The_text_block_tells_mark_quantity_product_and_notes) {
  LeftMargin = 20;
  TopMargin = 5;
  Item item = SectionOf("P 1", "Z", 6000, -3);
  item.Notes = "  Hot dip  ";
  EXPECT_EQ(
      TextBlockOf(item),
      (Lines{
          "CurrentX 25mm",       "CurrentY 20mm",     "Text \"Mark:  \"", "CurrentX 45mm",
          "Text \"P 1\"",        "CurrentX 25mm",     "CurrentY 25mm",    "Text \"No. Off:  \"",
          "CurrentX 45mm",       "Text \"-3\"",       "CurrentX 25mm",    "CurrentY 30mm",
          "Text \"Section:  \"", "CurrentX 45mm",     "Text \"Z20016\"",  "CurrentX 25mm",
          "CurrentY 35mm",       "Text \"Notes:  \"", "CurrentX 45mm",    "Text \"Hot dip\"",
      }));
}

TEST_F(SectionViews, Notes_of_blanks_give_no_notes_line) {
  for (const char* notes : {"", "   "}) {
    Item item = SectionOf("P1", "Z", 6000);
    item.Notes = notes;
    const Lines lines = TextBlockOf(item);
    ASSERT_EQ(lines.size(), 15U);
    EXPECT_EQ(lines.back(), "Text \"Z20016\"");
  }
}

TEST_F(SectionViews, Long_notes_stay_one_line) {
  const std::string notes(300, 'n');
  Item item = SectionOf("P1", "Z", 6000);
  item.Notes = notes;
  EXPECT_EQ(TextBlockOf(item).back(), "Text \"" + notes + "\"");
}

TEST_F(SectionViews, The_edge_is_drawn_thick_and_all_else_thin) {
  Sheet sheet = PlainSheet();
  sheet.SectionViewLeft = 24;
  surface.FontSize(7);
  surface.Forget();
  DrawSectionEdge(sheet, 100, 50, 150, 250, EdgeSide::None, 3, 999);
  EXPECT_EQ(surface.Lines(),
            (Lines{"PenWidth 0.4mm", "DrawLine 34mm 105mm 39mm 125mm", "PenWidth 0.1mm"}));
}

struct EdgeCase {
  EdgeSide Side;
  PageLine First, Second;  // the extension lines
  bool Upright;
  double At, From, To;  // of the dimension
};

TEST_F(SectionViews, An_edge_has_its_dimension_on_the_side_and_at_the_offset_asked_for) {
  Sheet sheet = PlainSheet();
  sheet.SectionViewLeft = 24;
  surface.FontSize(7);
  // From (34, 105) to (39, 125), offset 3.
  const EdgeCase cases[] = {
      {EdgeSide::Left, {24, 105, 29, 105}, {24, 125, 29, 125}, true, 26, 105, 125},
      {EdgeSide::Right, {44, 105, 39, 105}, {44, 125, 39, 125}, true, 42, 105, 125},
      {EdgeSide::Top, {34, 94, 34, 100}, {39, 94, 39, 100}, false, 96, 34, 39},
      {EdgeSide::Bottom, {34, 116, 34, 110}, {39, 116, 39, 110}, false, 114, 34, 39},
  };
  for (const EdgeCase& each : cases) {
    SheetLines want;
    want.Edge(34, 105, 39, 125);
    for (const PageLine& line : {each.First, each.Second}) {
      want.Line(line.X1, line.Y1, line.X2, line.Y2);
    }
    if (each.Upright) {
      want.Upright(each.At, each.From, each.To, "62.5");
    } else {
      want.Level(each.From, each.To, each.At, "62.5");
    }
    surface.Forget();
    DrawSectionEdge(sheet, 100, 50, 150, 250, each.Side, 3, 62.5);
    ExpectSameSheet(surface.Lines(), want.Lines());
  }
}

TEST_F(SectionViews, An_edge_that_runs_up_or_left_hands_its_dimension_the_top_or_left_end_first) {
  Sheet sheet = PlainSheet();
  sheet.SectionViewLeft = 24;
  surface.FontSize(7);
  surface.Forget();
  DrawSectionEdge(sheet, 100, 250, 100, 50, EdgeSide::Right, 0, 200);
  SheetLines up;
  up.Edge(34, 125, 34, 105).Line(41, 125, 36, 125).Line(41, 105, 36, 105);
  up.Upright(39, 105, 125, "200");
  ExpectSameSheet(surface.Lines(), up.Lines());

  surface.Forget();
  DrawSectionEdge(sheet, 150, 50, 100, 50, EdgeSide::Bottom, 0, 50);
  SheetLines left;
  left.Edge(39, 105, 34, 105).Line(39, 113, 39, 107).Line(34, 113, 34, 107);
  left.Level(34, 39, 111, "50");
  ExpectSameSheet(surface.Lines(), left.Lines());
}

TEST_F(SectionViews, The_key_stands_in_the_top_right_corner) {
  // 16840 / 56.7 - 10 - 20 = 267.001763668430..., and 10 + 20.
  const Point origin = KeyOrigin(PlainSheet());
  EXPECT_NEAR(origin.X, 267.00176366843, 1e-9);
  EXPECT_EQ(origin.Y, 30);
  RightMargin = 5;
  TopMargin = 12;
  EXPECT_NEAR(KeyOrigin(PlainSheet()).X, 272.00176366843, 1e-9);
  EXPECT_EQ(KeyOrigin(PlainSheet()).Y, 32);
}

class KeyEdges : public SectionViews {
 protected:
  KeyEdges() : page_(metrics, 297 * 56.7) {}

  // The key on a page of exactly 297 mm, so that its origin is (267, 30).
  Lines Key(const std::string& type) {
    page_.Forget();
    Items.Clear();
    Items.Append(SectionOf("P1", type, 6000));
    DrawKeyEdges(TheSheet(page_, dim_, 6000));
    return page_.Lines();
  }

 private:
  RecordingSurface page_;
  SectionDim dim_ =
      ProductOf("", "", {.Dim3 = 200, .Dim4 = 65, .Dim5 = 60, .Dim7 = 16, .Dim8 = 18});
};

TEST_F(KeyEdges, Of_a_Z_section_are_its_five_without_dimensions) {
  SheetLines want;
  want.Pen(0.4).Line(279.5, 30, 279.5, 31.6);
  want.Pen(0.4).Line(273, 30, 279.5, 30);
  want.Pen(0.4).Line(273, 30, 273, 50);
  want.Pen(0.4).Line(267, 50, 273, 50);
  want.Pen(0.4).Line(267, 48.2, 267, 50);
  ExpectSameSheet(Key("Z"), want.Lines());
}

TEST_F(KeyEdges, Of_a_channel_and_of_an_eaves_beam_show_no_pitch) {
  SheetLines want;
  want.Pen(0.4).Line(273.5, 30, 273.5, 31.6);
  want.Pen(0.4).Line(267, 30, 273.5, 30);
  want.Pen(0.4).Line(267, 30, 267, 50);
  want.Pen(0.4).Line(267, 50, 273, 50);
  want.Pen(0.4).Line(273, 48.2, 273, 50);
  ExpectSameSheet(Key("C"), want.Lines());
  ExpectSameSheet(Key("E"), want.Lines());
}

TEST_F(KeyEdges, Of_other_families_are_none) {
  for (const char* type : {"V", "R", "T", "Q", ""}) EXPECT_EQ(Key(type), Lines{}) << type;
}

TEST_F(SectionViews, The_length_is_dimensioned_24_mm_over_its_base) {
  Sheet sheet = PlainSheet();
  sheet.ElevationLeft = 55;
  sheet.LengthScale = 0.04;
  surface.FontSize(7);
  surface.Forget();
  DrawLengthDimension(sheet, 5000, 95.5);
  SheetLines want;
  want.Pen(0.1).Line(55, 69.5, 55, 93.5).Line(255, 69.5, 255, 93.5);
  want.Level(55, 255, 71.5, "5000");
  ExpectSameSheet(surface.Lines(), want.Lines());
}

TEST_F(SectionViews, A_section_is_as_deep_as_its_web_and_a_top_hat_as_its_sides_and_lips) {
  const SectionDim dim =
      ProductOf("", "", {.Dim3 = 50, .Dim4 = 100, .Dim5 = 70, .Dim7 = 30, .Dim8 = 34});
  for (const char* type : {"Z", "C", "E", "V", "R", "Q", ""}) {
    EXPECT_EQ(DrawnDepth(type, dim), 50) << type;
  }
  // 30 + 50 + 34 + 2 * 17.6326980708465.
  EXPECT_NEAR(DrawnDepth("T", dim), 149.265396141693, 1e-10);
}

TEST_F(SectionViews, Both_views_end_at_the_depth_and_those_of_a_cladding_rail_at_its_width) {
  const SectionDim dim =
      ProductOf("", "", {.Dim3 = 50, .Dim4 = 100, .Dim5 = 70, .Dim7 = 30, .Dim8 = 34});
  for (const char* type : {"Z", "C", "E", "R", "Q"}) EXPECT_EQ(ViewBottom(type, dim), 105) << type;
  EXPECT_EQ(ViewBottom("V", dim), 110);
  EXPECT_NEAR(ViewBottom("T", dim), 114.9265396141693, 1e-10);
}

TEST_F(SectionViews, Another_letter_draws_neither_view_but_its_text_and_its_mitres) {
  SheetLines want = TextBlock("X", "1", "Z20016");
  want.Says("FontSize 7");
  const Item item = Mitred("X", "Q");
  ExpectSameSheet(Views(item, ZDim), want.Lines());
  EXPECT_EQ(LinesOf("Text \"Mitres\"").size(), 1U);
}

TEST_F(SectionViews, Mitres_and_notches_come_last) {
  const Item item = Mitred("P1", "Z");
  const Lines views = Views(item, ZDim);
  EXPECT_EQ(views.at(views.size() - 2), "Text \"6000\"");
  // What the fixture found behind the views.
  EXPECT_EQ(LinesOf("Text \"Mitres\"").size(), 1U);
}

TEST_F(SectionViews, Values_are_the_catalogues_numbers_as_they_stand) {
  SectionDim dim = ZDim;
  dim.Dim3 = 203.25;
  dim.Dim4 = 64.5;
  dim.Dim9 = 0.1 + 0.2;
  Views(SectionOf("P1", "Z", 6000), dim);
  surface.Forget();
  DrawViews(dim, 6000);
  for (const char* value : {"203.25", "64.5", "0.3"}) {
    EXPECT_EQ(LinesOf("Text \"" + std::string(value) + "\"").size(), 1U) << value;
  }
}

TEST_F(SectionViews, A_sheet_does_not_depend_on_the_one_before_it) {
  const Item z = SectionOf("P1", "Z", 6000);
  const Item e = EavesBeamOf("E1", 900, "15");
  const Lines first = Views(z, ZDim);
  const Lines second = Views(e, ZDim);
  EXPECT_NE(first, second);
  EXPECT_EQ(Views(z, ZDim), first);
  EXPECT_EQ(Views(e, ZDim), second);
}

TEST_F(SectionViews, Without_room_a_section_is_drawn_backwards_and_nothing_fails) {
  LeftMargin = 200;
  RightMargin = 200;
  Views(SectionOf("P1", "C", 1520), ZDim);
  EXPECT_EQ(TheSheet(ZDim, 1520).DrawingWidth, -152);  // 297.0018 - 245 - 200 - 4
  surface.Forget();
  DrawViews(ZDim, 1520);
  EXPECT_EQ(LinesOf("DrawRectangle 245mm"), Lines{"DrawRectangle 245mm 100mm 93mm 120mm"});
}

// What holds for the pens and brushes of all sheets, whatever the family.
TEST_F(SectionViews, Outlines_are_thick_with_a_transparent_brush_and_only_white_boxes_are_white) {
  for (const char* type : {"Z", "C", "E", "V", "T"}) {
    Item item = SectionOf("P1", type, 6000);
    item.Pitch = "10";
    const Lines lines = Views(item, ZDim);
    std::string pen;
    std::string color;
    std::string brush;
    int outlines = 0;
    for (const std::string& line : lines) {
      if (line.starts_with("PenWidth ")) pen = line;
      if (line.starts_with("PenColor ")) color = line;
      if (line.starts_with("BrushStyle ")) brush = line;
      const bool inMm = line.ends_with("mm");
      if (line.starts_with("DrawRectangle ")) {
        EXPECT_EQ(color, inMm ? "PenColor 0,0,0" : "PenColor 255,255,255");
        EXPECT_EQ(brush, inMm ? "BrushStyle 1" : "BrushStyle 0");
        if (inMm) {
          EXPECT_EQ(pen, "PenWidth 0.4mm");
          ++outlines;
        }
      } else if (line.starts_with("DrawLine ") || line.starts_with("Polygon ") ||
                 line.starts_with("DrawArc ")) {
        EXPECT_EQ(color, "PenColor 0,0,0") << line;
      }
    }
    EXPECT_EQ(outlines, 1) << type;
  }
}

}  // namespace

}  // namespace orvane::test
