#include "drawing/metafile.h"

#include <algorithm>
#include <cmath>

#include "core/runtime_error.h"
#include "tests/drawing/metafile_writer.h"
#include "tests/drawing/page_fixture.h"

namespace orvane::test {
namespace {

// The functions of the records that the tests write.
enum Function {
  SaveState = 0x001E,
  RestoreState = 0x0127,
  SetBackgroundMode = 0x0102,
  SetFillMode = 0x0106,
  SetBackgroundColor = 0x0201,
  SetWindowOrigin = 0x020B,
  SetWindowExtents = 0x020C,
  OffsetWindowOrigin = 0x020F,
  ScaleWindowExtents = 0x0410,
  IntersectClip = 0x0416,
  OffsetClip = 0x0220,
  SelectClip = 0x012C,
  CreatePen = 0x02FA,
  CreateBrush = 0x02FC,
  CreatePatternBrush = 0x0142,
  CreatePalette = 0x00F7,
  CreateRegion = 0x06FF,
  SelectObject = 0x012D,
  DeleteObject = 0x01F0,
  MoveTo = 0x0214,
  LineTo = 0x0213,
  Polyline = 0x0325,
  Polygon = 0x0324,
  PolyPolygon = 0x0538,
  Rectangle = 0x041B,
  RoundRectangle = 0x061C,
  Ellipse = 0x0418,
  Arc = 0x0817,
  Chord = 0x0830,
  Pie = 0x081A,
  StretchBitmap = 0x0F43,
};

// The shapes of a file of 100 x 50 mm, a unit being 0.1 mm.
Lines ShapesOf(const MetafileWriter& file) {
  Lines lines;
  for (const Shape& shape : ReadMetafile(file.Placeable()).Shapes) {
    lines.push_back(Described(shape));
  }
  return lines;
}

// A file that draws in the thinnest black lines and fills nothing, in slots 0 and 1.
MetafileWriter LinesAlone() {
  MetafileWriter file;
  file.Record(CreatePen, {0, 0, 0, 0, 0}).Record(CreateBrush, {1, 0, 0, 0});
  file.Record(SelectObject, {0}).Record(SelectObject, {1});
  return file;
}

TEST(Metafile, A_placeable_one_is_as_large_as_its_box) {
  // 1440 units to the inch: 2880 x 720 units are 2 x 0.5 inches.
  const Picture picture = ReadMetafile(MetafileWriter().Placeable(100, 200, 2980, 920, 1440));
  EXPECT_DOUBLE_EQ(picture.Width, 50.8);
  EXPECT_DOUBLE_EQ(picture.Height, 12.7);
  EXPECT_TRUE(picture.Shapes.empty());
}

TEST(Metafile, A_plain_one_is_as_large_as_its_window_in_twips) {
  MetafileWriter file;
  file.Record(SetWindowExtents, {0, 1440}).Record(SetWindowExtents, {720, 2880});
  file.Record(MoveTo, {720, 1440}).Record(LineTo, {0, 2880});
  const Picture picture = ReadMetafile(file.Plain());
  EXPECT_DOUBLE_EQ(picture.Width, 50.8);
  EXPECT_DOUBLE_EQ(picture.Height, 12.7);
  ASSERT_EQ(picture.Shapes.size(), 1U);
  EXPECT_EQ(Described(picture.Shapes[0]), "line 25.4 12.7 50.8 0 pen 0");
}

TEST(Metafile, The_box_is_the_window_until_the_file_sets_one) {
  MetafileWriter file;
  file.Record(MoveTo, {200, 100}).Record(LineTo, {220, 200});
  file.Record(SetWindowOrigin, {0, 0}).Record(SetWindowExtents, {40, 200});
  file.Record(LineTo, {40, 100});
  // 10 units to the millimetre: the box is 20 x 4 mm.
  const Picture picture = ReadMetafile(file.Placeable(100, 200, 300, 240, 254));
  EXPECT_EQ(Described(picture.Shapes.at(0)), "line 0 0 10 2 pen 0");
  // The position 200, 220 counted in the new window, to 100, 40.
  EXPECT_EQ(Described(picture.Shapes.at(1)), "line 20 22 10 4 pen 0");
}

TEST(Metafile, Windows_may_be_shifted_scaled_and_upside_down) {
  MetafileWriter file = LinesAlone();
  const auto corner = [&] { file.Record(MoveTo, {0, 0}).Record(LineTo, {100, 200}); };
  file.Record(SetWindowOrigin, {500, 0}).Record(SetWindowExtents, {-500, 1000});
  corner();
  file.Record(OffsetWindowOrigin, {0, 100});
  corner();
  // Half as many units across, a quarter down: each is as much larger.
  file.Record(SetWindowOrigin, {0, 0}).Record(ScaleWindowExtents, {-4, 1, 2, 1});
  corner();
  EXPECT_EQ(ShapesOf(file),
            (Lines{"line 0 50 20 40 pen 0", "line -10 50 10 40 pen 0", "line 0 0 40 40 pen 0"}));
}

TEST(Metafile, A_window_without_extent_is_not_set) {
  MetafileWriter file = LinesAlone();
  file.Record(SetWindowExtents, {0, 1000}).Record(SetWindowExtents, {500, 0});
  file.Record(ScaleWindowExtents, {1, 0, 1, 1}).Record(ScaleWindowExtents, {0, 1, 1, 1});
  file.Record(ScaleWindowExtents, {1, 1, 1, 32767}).Record(LineTo, {100, 200});
  EXPECT_EQ(ShapesOf(file), Lines{"line 0 0 20 10 pen 0"});
}

TEST(Metafile, Pens_have_width_and_colour_or_none) {
  MetafileWriter file;
  const auto draw = [&](int slot) {
    file.Record(SelectObject, {slot}).Record(MoveTo, {0, 0}).Record(LineTo, {0, 10});
  };
  file.Record(CreatePen, {0, 5, 0, 0x2010, 0x30});
  file.Record(CreatePen, {1, 0, 0, 0xFF, 0});  // dashed
  file.Record(CreatePen, {5, 5, 0, 0, 0});     // none
  file.Record(CreatePen, {6, -20, 0, 0, 0});   // inside the frame
  for (const int slot : {0, 1, 2, 3}) draw(slot);
  EXPECT_EQ(ShapesOf(file), (Lines{"line 0 0 1 0 pen 0.5 16,32,48", "chain 0,0 1,0 pen 0 255,0,0",
                                   "line 0 0 1 0 pen 2"}));
}

// Dashes of 3 mm, dots of half a millimetre, gaps of 1; a pen broader than a dot stretches them
// all.
TEST(Metafile, Dashed_and_dotted_pens_draw_pieces) {
  const auto line = [](int style, int width, int length) {
    MetafileWriter file;
    file.Record(CreatePen, {style, width, 0, 0, 0}).Record(SelectObject, {0});
    file.Record(LineTo, {0, length});
    return ShapesOf(file);
  };
  EXPECT_EQ(line(1, 0, 100),
            (Lines{"chain 0,0 3,0 pen 0", "chain 4,0 7,0 pen 0", "chain 8,0 10,0 pen 0"}));
  EXPECT_EQ(line(2, 0, 30), (Lines{"chain 0,0 0.5,0 pen 0", "chain 1.5,0 2,0 pen 0"}));
  EXPECT_EQ(line(3, 0, 60),
            (Lines{"chain 0,0 3,0 pen 0", "chain 4,0 4.5,0 pen 0", "chain 5.5,0 6,0 pen 0"}));
  EXPECT_EQ(line(4, 0, 72), (Lines{"chain 0,0 3,0 pen 0", "chain 4,0 4.5,0 pen 0",
                                   "chain 5.5,0 6,0 pen 0", "chain 7,0 7.2,0 pen 0"}));
  EXPECT_EQ(line(1, 10, 100), (Lines{"chain 0,0 6,0 pen 1", "chain 8,0 10,0 pen 1"}));
}

TEST(Metafile, Dashes_run_on_around_corners_and_over_fillings_and_are_clipped) {
  MetafileWriter file;
  file.Record(CreatePen, {1, 0, 0, 0, 0}).Record(SelectObject, {0});
  file.Record(Polyline, {3, 0, 0, 20, 0, 20, 40});
  EXPECT_EQ(ShapesOf(file), (Lines{"chain 0,0 2,0 2,1 pen 0", "chain 2,2 2,4 pen 0"}));

  MetafileWriter area;
  area.Record(CreatePen, {1, 0, 0, 0, 0}).Record(SelectObject, {0});
  area.Record(Rectangle, {20, 30, 0, 0});
  // 10 mm around: three on, one off, from the upper left corner to the right.
  EXPECT_EQ(ShapesOf(area),
            (Lines{"polygon 0,0 3,0 3,2 0,2 no pen fill 255,255,255", "chain 0,0 3,0 pen 0",
                   "chain 3,1 3,2 1,2 pen 0", "chain 0,2 0,0 pen 0"}));

  MetafileWriter cut;
  cut.Record(CreatePen, {1, 0, 0, 0, 0}).Record(SelectObject, {0});
  cut.Record(IntersectClip, {10, 60, 0, 20}).Record(LineTo, {0, 100});
  EXPECT_EQ(ShapesOf(cut), (Lines{"chain 2,0 3,0 pen 0", "chain 4,0 6,0 pen 0"}));
}

TEST(Metafile, What_is_set_at_the_start) {
  MetafileWriter file;
  file.Record(Rectangle, {100, 200, 50, 20});
  EXPECT_EQ(ShapesOf(file), Lines{"rectangle 2 5 18 5 pen 0 fill 255,255,255"});
}

TEST(Metafile, Brushes_are_solid_or_nothing) {
  MetafileWriter file;
  file.Record(CreateBrush, {0, 0x2010, 0x30, 0}).Record(CreateBrush, {1, 0, 0, 0});
  file.Record(CreatePatternBrush, {5, 0, 0, 0}).Record(CreateBrush, {3, 0, 0, 0});
  for (const int slot : {0, 1, 0, 2, 0, 3}) {
    file.Record(SelectObject, {slot}).Record(Rectangle, {10, 10, 0, 0});
  }
  const std::string filled = "rectangle 0 0 1 1 pen 0 fill 16,32,48";
  const std::string open = "rectangle 0 0 1 1 pen 0";
  EXPECT_EQ(ShapesOf(file), (Lines{filled, open, filled, open, filled, open}));
}

TEST(Metafile, Hatched_brushes_draw_lines_a_millimetre_apart_under_the_outline) {
  // From 0.5 to 3.5 mm across, 0.5 to 2.5 mm down; the lines lie at whole millimetres.
  const auto hatched = [](int kind, bool opaque) {
    MetafileWriter file;
    file.Record(CreateBrush, {2, 0xFF, 0, kind}).Record(SelectObject, {0});
    file.Record(SetBackgroundColor, {0xFF00, 0}).Record(SetBackgroundMode, {opaque ? 2 : 1});
    file.Record(Rectangle, {25, 35, 5, 5});
    return ShapesOf(file);
  };
  const std::string outline = "rectangle 0.5 0.5 3 2 pen 0";
  EXPECT_EQ(hatched(0, false), (Lines{"line 0.5 1 3.5 1 pen 0.1 255,0,0",
                                      "line 0.5 2 3.5 2 pen 0.1 255,0,0", outline}));
  EXPECT_EQ(hatched(1, true),
            (Lines{"polygon 0.5,0.5 3.5,0.5 3.5,2.5 0.5,2.5 no pen fill 0,255,0",
                   "line 1 0.5 1 2.5 pen 0.1 255,0,0", "line 2 0.5 2 2.5 pen 0.1 255,0,0",
                   "line 3 0.5 3 2.5 pen 0.1 255,0,0", outline}));
  EXPECT_EQ(hatched(4, false).size(), 2U + 3U + 1U);
  // 5 mm of diagonal extent over root two make 3.5 lines apart: three fall on whole millimetres of
  // the rising ones (x + y from 1 to 6, over root two from 0.71 to 4.24: 1, 2, 3, 4).
  EXPECT_EQ(hatched(3, false).size(), 4U + 1U);
  // y - x from -3 to 2, over root two from -2.12 to 1.41: -2, -1, 0, 1.
  EXPECT_EQ(hatched(2, false).size(), 4U + 1U);
  EXPECT_EQ(hatched(5, false).size(), 8U + 1U);
  EXPECT_EQ(hatched(6, false), Lines{outline});
}

TEST(Metafile, Polygons_chains_and_areas_of_several_rings) {
  MetafileWriter file = LinesAlone();
  file.Record(Polyline, {3, 0, 0, 10, 0, 10, 20});
  file.Record(Polygon, {3, 0, 0, 10, 0, 10, 20});
  file.Record(PolyPolygon, {2, 3, 2, 0, 0, 50, 0, 50, 50, 10, 10, 20, 10});
  EXPECT_EQ(ShapesOf(file), (Lines{"chain 0,0 1,0 1,2 pen 0", "polygon 0,0 1,0 1,2 pen 0",
                                   "polygon 0,0 5,0 5,5 1,1 2,1 pen 0"}));
  // What has no length draws nothing.
  MetafileWriter points = LinesAlone();
  points.Record(Polyline, {1, 0, 0}).Record(Polygon, {0}).Record(PolyPolygon, {1, 1, 5, 5});
  EXPECT_EQ(ShapesOf(points), Lines{});
}

TEST(Metafile, Areas_fill_by_odd_crossings_or_by_winding) {
  MetafileWriter file;
  file.Record(Polygon, {3, 0, 0, 10, 0, 10, 20}).Record(SetFillMode, {2});
  file.Record(Polygon, {3, 0, 0, 10, 0, 10, 20}).Record(SetFillMode, {1});
  file.Record(Polygon, {3, 0, 0, 10, 0, 10, 20});
  const Picture picture = ReadMetafile(file.Placeable());
  ASSERT_EQ(picture.Shapes.size(), 3U);
  EXPECT_FALSE(std::get<PolygonShape>(picture.Shapes[0]).Winding);
  EXPECT_TRUE(std::get<PolygonShape>(picture.Shapes[1]).Winding);
  EXPECT_FALSE(std::get<PolygonShape>(picture.Shapes[2]).Winding);
}

TEST(Metafile, Ellipses_and_round_rectangles) {
  MetafileWriter file = LinesAlone();
  file.Record(Ellipse, {30, 50, 10, 20});
  file.Record(RoundRectangle, {0, 20, 30, 50, 10, 20});  // corners without a height
  file.Record(RoundRectangle, {20, 10, 100, 100, 0, 0});
  const Lines shapes = ShapesOf(file);
  ASSERT_EQ(shapes.size(), 3U);
  EXPECT_EQ(shapes[0], "ellipse 2 1 3 2 pen 0");
  EXPECT_EQ(shapes[1], "rectangle 2 1 3 2 pen 0");
  // 10 x 10 mm with quarters of an ellipse 1 mm wide and 2 mm high: it touches the sides where the
  // corners begin and end, and nothing reaches into the corners.
  const Picture picture = ReadMetafile(file.Placeable());
  const auto& ring = std::get<PolygonShape>(picture.Shapes[2]).Rings.at(0);
  const auto touches = [&](double x, double y) {
    return std::any_of(ring.begin(), ring.end(), [&](const Point& point) {
      return std::abs(point.X - x) < 1e-9 && std::abs(point.Y - y) < 1e-9;
    });
  };
  for (const double x : {0.5, 9.5}) EXPECT_TRUE(touches(x, 0) && touches(x, 10)) << x;
  for (const double y : {1.0, 9.0}) EXPECT_TRUE(touches(0, y) && touches(10, y)) << y;
  EXPECT_FALSE(touches(0, 0) || touches(10, 10));
}

TEST(Metafile, Arcs_run_counter_clockwise_from_their_start_to_their_end) {
  MetafileWriter file = LinesAlone();
  // An ellipse 4 x 2 mm at 1, 1, so its centre is 3, 2. End, start, box; Y before X.
  const int right = 100;
  file.Record(Arc, {0, 30, 20, right, 30, 50, 10, 10});    // from the right up to the top
  file.Record(Chord, {20, right, 0, 30, 30, 50, 10, 10});  // from the top round to the right
  file.Record(Pie, {20, -70, 0, 30, 30, 50, 10, 10});      // from the top to the left
  file.Record(Arc, {0, 30, 0, 30, 30, 50, 10, 10});        // all round
  // A ray at 1 up in 2 across meets an ellipse twice as wide as high at 45 degrees.
  file.Record(Arc, {20, -70, 10, 50, 30, 50, 10, 10});
  // One without a height is no arc.
  file.Record(Arc, {0, 30, 20, right, 30, 50, 30, 10});
  EXPECT_EQ(
      ShapesOf(file),
      (Lines{"arc 1 1 4 2 from 0 span 90 pen 0", "arc 1 1 4 2 from 90 span 270 outlined pen 0",
             "arc 1 1 4 2 from 90 span 90 pie outlined pen 0", "arc 1 1 4 2 from 90 span 360 pen 0",
             "arc 1 1 4 2 from 45 span 135 pen 0"}));
}

TEST(Metafile, An_arc_bears_no_filling_but_a_chord_does) {
  MetafileWriter file;
  file.Record(CreateBrush, {2, 0, 0, 0}).Record(CreateBrush, {0, 0xFF, 0, 0});
  file.Record(SelectObject, {1}).Record(Arc, {0, 30, 20, 99, 30, 50, 10, 10});
  file.Record(Chord, {0, 30, 20, 99, 30, 50, 10, 10});
  file.Record(SelectObject, {0}).Record(Arc, {0, 30, 20, 99, 30, 50, 10, 10});
  EXPECT_EQ(ShapesOf(file), (Lines{"arc 1 1 4 2 from 0 span 90 pen 0",
                                   "arc 1 1 4 2 from 0 span 90 outlined pen 0 fill 255,0,0",
                                   "arc 1 1 4 2 from 0 span 90 pen 0"}));
}

TEST(Metafile, Saved_states_come_back_by_their_number_or_from_the_last) {
  const auto wide = [](MetafileWriter& file, int slot) {
    file.Record(SelectObject, {slot}).Record(SaveState, {});
  };
  const auto restored = [&](int which) {
    MetafileWriter file;
    for (const int width : {10, 20, 30, 40}) file.Record(CreatePen, {0, width, 0, 0, 0});
    wide(file, 0);
    wide(file, 1);
    wide(file, 2);
    file.Record(SelectObject, {3}).Record(RestoreState, {which}).Record(LineTo, {0, 10});
    // Those behind it are gone.
    file.Record(RestoreState, {-1}).Record(LineTo, {0, 20});
    return ShapesOf(file);
  };
  EXPECT_EQ(restored(-1), (Lines{"line 0 0 1 0 pen 3", "line 0 0 2 0 pen 2"}));
  EXPECT_EQ(restored(2), (Lines{"line 0 0 1 0 pen 2", "line 0 0 2 0 pen 1"}));
  EXPECT_EQ(restored(1), (Lines{"line 0 0 1 0 pen 1", "line 1 0 2 0 pen 1"}));
  for (const int none : {0, 4, -4}) {
    EXPECT_EQ(restored(none), (Lines{"line 0 0 1 0 pen 4", "line 0 0 2 0 pen 3"})) << none;
  }
}

TEST(Metafile, Objects_keep_their_slots_and_a_new_one_takes_the_lowest_that_is_free) {
  MetafileWriter file;
  file.Record(CreatePalette, {0x0300, 0}).Record(CreateRegion, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  file.Record(CreatePen, {0, 10, 0, 0, 0}).Record(CreatePen, {0, 20, 0, 0, 0});  // 2 and 3
  file.Record(SelectObject, {2}).Record(LineTo, {0, 1});
  file.Record(SelectObject, {0}).Record(LineTo, {0, 2});   // no pen: nothing changes
  file.Record(SelectObject, {99}).Record(LineTo, {0, 3});  // nor for a slot that isn't there
  file.Record(DeleteObject, {2}).Record(DeleteObject, {0}).Record(DeleteObject, {99});
  file.Record(LineTo, {0, 4});  // what is in use stays so
  file.Record(CreatePen, {0, 30, 0, 0, 0}).Record(CreatePen, {0, 40, 0, 0, 0});  // 0 and 2
  file.Record(CreatePen, {0, 50, 0, 0, 0});                                      // 4
  for (const int slot : {0, 2, 3, 4}) {
    file.Record(SelectObject, {slot}).Record(MoveTo, {0, 0}).Record(LineTo, {0, 10});
  }
  EXPECT_EQ(ShapesOf(file),
            (Lines{"line 0 0 0.1 0 pen 1", "line 0.1 0 0.2 0 pen 1", "line 0.2 0 0.3 0 pen 1",
                   "line 0.3 0 0.4 0 pen 1", "line 0 0 1 0 pen 3", "line 0 0 1 0 pen 4",
                   "line 0 0 1 0 pen 2", "line 0 0 1 0 pen 5"}));
}

TEST(Metafile, The_clip_rectangle_cuts_lines_and_chains) {
  MetafileWriter file = LinesAlone();
  file.Record(SaveState, {}).Record(IntersectClip, {30, 40, 10, 10});  // 1 to 4 across, 1 to 3 down
  file.Record(MoveTo, {20, 0}).Record(LineTo, {20, 60});               // through it
  file.Record(MoveTo, {0, 0}).Record(LineTo, {40, 40});                // through two corners' edges
  file.Record(MoveTo, {0, 0}).Record(LineTo, {0, 60});                 // past it
  file.Record(Polyline, {4, 20, 20, 20, 60, 30, 60, 30, 20});          // out and in again
  file.Record(IntersectClip, {99, 99, 20, 20});                        // what both share
  file.Record(MoveTo, {25, 0}).Record(LineTo, {25, 60});
  file.Record(IntersectClip, {9, 9, 0, 0});  // nothing
  file.Record(MoveTo, {25, 0}).Record(LineTo, {25, 60});
  file.Record(RestoreState, {-1}).Record(MoveTo, {20, 0}).Record(LineTo, {20, 60});
  EXPECT_EQ(ShapesOf(file),
            (Lines{"line 1 2 4 2 pen 0", "line 1 1 3 3 pen 0", "chain 2,2 2,3 pen 0",
                   "chain 3,3 3,2 pen 0", "line 2 2.5 4 2.5 pen 0", "line 0 2 6 2 pen 0"}));
}

TEST(Metafile, The_clip_rectangle_may_be_moved_and_lifted) {
  MetafileWriter file = LinesAlone();
  const auto line = [&] { file.Record(MoveTo, {20, 0}).Record(LineTo, {20, 100}); };
  file.Record(OffsetClip, {5, 5});
  line();  // there is none yet
  file.Record(IntersectClip, {30, 40, 10, 10}).Record(OffsetClip, {10, 20});
  line();  // 3 to 6 across, 2 to 4 down
  file.Record(SetWindowExtents, {-500, 1000}).Record(OffsetClip, {10, -10});
  file.Record(SetWindowExtents, {500, 1000});
  line();  // a millimetre back, and one up where the axis runs up
  file.Record(OffsetClip, {20, 0});
  line();  // 3 to 5 down
  file.Record(SelectClip, {3});
  line();  // a region, of which nothing is known
  file.Record(SelectClip, {0});
  line();
  EXPECT_EQ(ShapesOf(file), (Lines{"line 0 2 10 2 pen 0", "line 3 2 6 2 pen 0",
                                   "line 2 2 5 2 pen 0", "line 0 2 10 2 pen 0"}));
}

TEST(Metafile, The_clip_rectangle_cuts_areas_and_strokes_only_their_own_outline) {
  MetafileWriter file;
  file.Record(CreateBrush, {0, 0xFF, 0, 0}).Record(SelectObject, {0});
  file.Record(IntersectClip, {30, 40, 10, 10});
  file.Record(Rectangle, {25, 35, 15, 15});  // inside
  file.Record(Rectangle, {20, 60, 0, 20});   // across
  file.Record(Ellipse, {90, 90, 60, 60});    // outside
  EXPECT_EQ(ShapesOf(file),
            (Lines{"rectangle 1.5 1.5 2 1 pen 0 fill 255,0,0",
                   "polygon 4,1 4,2 2,2 2,1 no pen fill 255,0,0", "chain 4,2 2,2 2,1 pen 0"}));
}

TEST(Metafile, The_clip_rectangle_cuts_ellipses_and_arcs) {
  MetafileWriter file;
  file.Record(IntersectClip, {100, 50, 0, 0});         // 5 mm across, 10 mm down
  file.Record(Ellipse, {100, 100, 0, 0});              // its left half
  file.Record(Arc, {50, 0, 50, 100, 100, 100, 0, 0});  // the left upper quarter
  const Picture picture = ReadMetafile(file.Placeable());
  ASSERT_EQ(picture.Shapes.size(), 3U);
  const auto& inside = std::get<PolygonShape>(picture.Shapes[0]);
  double area = 0;
  const auto& ring = inside.Rings.at(0);
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point& a = ring[i];
    const Point& b = ring[(i + 1) % ring.size()];
    area += (a.X * b.Y - b.X * a.Y) / 2;
    EXPECT_LE(a.X, 5);
  }
  EXPECT_NEAR(std::abs(area), 3.14159265 * 25 / 2, 0.05);
  for (const std::size_t at : {1U, 2U}) {
    const auto& chain = std::get<PolygonShape>(picture.Shapes[at]);
    EXPECT_FALSE(chain.Closed);
    for (const Point& point : chain.Rings.at(0)) {
      EXPECT_LE(point.X, 5);
      EXPECT_NEAR(std::hypot(point.X - 5, point.Y - 5), 5, 0.005);
      EXPECT_LE(point.Y, (at == 2U ? 5 : 10) + 1e-9);
    }
  }
}

TEST(Metafile, Records_that_draw_nothing_here_are_passed_over) {
  MetafileWriter file = LinesAlone();
  file.Record(StretchBitmap, {0x20, 0xCC, 0, 1, 1, 0, 0, 1, 1, 0, 0}, std::string(44, 'x'));
  file.Record(0x0626, {15, 4}, "abcd").Record(0x041F, {0, 0, 5, 5}).Record(0x7777, {});
  file.Record(LineTo, {0, 10});
  EXPECT_EQ(ShapesOf(file), Lines{"line 0 0 1 0 pen 0"});
}

TEST(Metafile, One_that_shows_bitmaps_alone_says_so) {
  const auto errorOf = [](const MetafileWriter& file) -> std::string {
    try {
      ReadMetafile(file.Placeable());
    } catch (const RuntimeError& error) {
      return error.Description();
    }
    return "";
  };
  MetafileWriter bitmap;
  bitmap.Record(StretchBitmap, {0x20, 0xCC, 0, 1, 1, 0, 0, 1, 1, 0, 0}, std::string(44, 'x'));
  EXPECT_EQ(errorOf(bitmap), "Nothing of the picture can be drawn");
  // An empty one has nothing to show.
  EXPECT_EQ(errorOf(MetafileWriter().Record(SaveState, {}).Record(0x0626, {15, 4}, "abcd")), "");
}

}  // namespace
}  // namespace orvane::test
