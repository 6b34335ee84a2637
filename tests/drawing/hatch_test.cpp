#include "drawing/hatch.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "core/model.h"
#include "tests/drawing/page_fixture.h"

namespace {

using namespace orvane;
using orvane::test::Described;
using orvane::test::Lines;

Lines Described(const std::vector<Shape>& shapes) {
  Lines lines;
  for (const Shape& shape : shapes) lines.push_back(orvane::test::Described(shape));
  return lines;
}

Hatch HatchOf(HatchLines lines, double spacing = 0.5) {
  Hatch hatch;
  hatch.Lines = lines;
  hatch.Spacing = spacing;
  return hatch;
}

// Rising lines are those of x + y = k * 0.5 * root 2. Over the box 10..12, 10..11 the sum runs from
// 20 to 23, so k from 29 (20.506) to 32 (22.627).
TEST(HatchTest, Rising_lines_half_a_millimetre_apart_are_cut_at_the_edges_of_a_rectangle) {
  std::vector<Shape> shapes;
  HatchRectangle(shapes, {10, 10, 2, 1}, {});
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 10 10.506 10.506 10 pen 0.1",
                                   "line 10.213 11 11.213 10 pen 0.1",
                                   "line 10.92 11 11.92 10 pen 0.1",
                                   "line 11.627 11 12 10.627 pen 0.1",
                               }));
}

// Falling ones: y - x = k * 0.707; over the same box from -2 to 1, so k from -2 to 1.
TEST(HatchTest, Falling_level_and_upright_lines_too) {
  std::vector<Shape> shapes;
  HatchRectangle(shapes, {10, 10, 2, 1}, HatchOf(HatchLines::Falling));
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 11.414 10 12 10.586 pen 0.1",
                                   "line 10.707 10 11.707 11 pen 0.1",
                                   "line 10 10 11 11 pen 0.1",
                                   "line 10 10.707 10.293 11 pen 0.1",
                               }));
  shapes.clear();
  HatchRectangle(shapes, {10.1, 10.1, 2, 1}, HatchOf(HatchLines::Level));
  EXPECT_EQ(Described(shapes),
            (Lines{"line 10.1 10.5 12.1 10.5 pen 0.1", "line 10.1 11 12.1 11 pen 0.1"}));
  shapes.clear();
  HatchRectangle(shapes, {10.1, 10.1, 1, 2}, HatchOf(HatchLines::Upright));
  EXPECT_EQ(Described(shapes),
            (Lines{"line 10.5 10.1 10.5 12.1 pen 0.1", "line 11 10.1 11 12.1 pen 0.1"}));
}

TEST(HatchTest, Lines_have_their_colour_and_width) {
  std::vector<Shape> shapes;
  Hatch hatch = HatchOf(HatchLines::Level, 1);
  hatch.Color = Grey;
  hatch.Width = 0.25;
  HatchRectangle(shapes, {0, 0.5, 4, 1}, hatch);
  EXPECT_EQ(Described(shapes), (Lines{"line 0 1 4 1 pen 0.25 128,128,128"}));
}

// The line with k = 30 (x + y = 21.213) passes x = 11 at y = 10.213 from one box into the next.
TEST(HatchTest, Lines_of_neighbouring_shapes_run_on) {
  std::vector<Shape> shapes;
  HatchRectangle(shapes, {10, 10, 1, 1}, {});
  HatchRectangle(shapes, {11, 10, 1, 1}, {});
  const Lines lines = Described(shapes);
  ASSERT_EQ(lines.size(), 6U);  // k = 29 to 31, and 30 to 32
  EXPECT_EQ(lines.at(1), "line 10.213 11 11 10.213 pen 0.1");
  EXPECT_EQ(lines.at(3), "line 11 10.213 11.213 10 pen 0.1");
}

// A circle of radius 1 around (10, 10): at half its radius a chord is root 0.75 = 0.866 to each
// side; the lines that touch it only, at 9 and 11, have no length. An ellipse twice as wide has
// chords twice as long.
TEST(HatchTest, Lines_are_cut_at_the_outline_of_an_ellipse) {
  std::vector<Shape> shapes;
  HatchEllipse(shapes, {9, 9, 2, 2}, HatchOf(HatchLines::Level));
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 9.134 9.5 10.866 9.5 pen 0.1",
                                   "line 9 10 11 10 pen 0.1",
                                   "line 9.134 10.5 10.866 10.5 pen 0.1",
                               }));
  shapes.clear();
  HatchEllipse(shapes, {8, 9, 4, 2}, HatchOf(HatchLines::Level, 1.9));  // one line, at 9.5
  EXPECT_EQ(Described(shapes), (Lines{"line 8.268 9.5 11.732 9.5 pen 0.1"}));
}

// Rising lines across that circle: the centre's is 14.142 across, so those at 13.5, 14, 14.5 and 15
// meet it. The one at 14 is 0.142 off the centre, its half chord root(1 - 0.0202) = 0.98985, and
// its middle 14 * 0.70711 = 9.89949 in x and y.
TEST(HatchTest, A_slanting_line_through_a_circle_ends_on_it) {
  std::vector<Shape> shapes;
  HatchEllipse(shapes, {9, 9, 2, 2}, {});
  const Lines lines = Described(shapes);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines.at(1), "line 9.2 10.599 10.599 9.2 pen 0.1");
}

TEST(HatchTest, An_arc_is_hatched_up_to_its_chord) {
  std::vector<Shape> shapes;
  const Hatch level = HatchOf(HatchLines::Level);
  // The left half: lines end at x = 10.
  HatchArc(shapes, {9, 9, 2, 2}, HalfPi, Pi, level);
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 9.134 9.5 10 9.5 pen 0.1",
                                   "line 9 10 10 10 pen 0.1",
                                   "line 9.134 10.5 10 10.5 pen 0.1",
                               }));
  // The right half, from below through 0.
  shapes.clear();
  HatchArc(shapes, {9, 9, 2, 2}, ThreeHalfPi, Pi, level);
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 10 9.5 10.866 9.5 pen 0.1",
                                   "line 10 10 11 10 pen 0.1",
                                   "line 10 10.5 10.866 10.5 pen 0.1",
                               }));
  // Three quarters, from 0 over the top to straight down: the chord is x + y = 21.
  shapes.clear();
  HatchArc(shapes, {9, 9, 2, 2}, 0, ThreeHalfPi, level);
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 9.134 9.5 10.866 9.5 pen 0.1",
                                   "line 9 10 11 10 pen 0.1",
                                   "line 9.134 10.5 10.5 10.5 pen 0.1",
                               }));
  // The last quarter alone: the chord's other side.
  shapes.clear();
  HatchArc(shapes, {9, 9, 2, 2}, ThreeHalfPi, HalfPi, level);
  EXPECT_EQ(Described(shapes), (Lines{"line 10.5 10.5 10.866 10.5 pen 0.1"}));
  // A full turn has no chord, nor has one that rounding makes a little more.
  for (const double span : {2 * Pi, 2 * Pi + 1e-12}) {
    shapes.clear();
    HatchArc(shapes, {9, 9, 2, 2}, 1, span, level);
    EXPECT_EQ(Described(shapes), (Lines{
                                     "line 9.134 9.5 10.866 9.5 pen 0.1",
                                     "line 9 10 11 10 pen 0.1",
                                     "line 9.134 10.5 10.866 10.5 pen 0.1",
                                 }));
  }
}

// The left half of a circle around (10.2, 10): of the lines at 9.5, 10, 10.5 and 11 two lie left of
// the chord. At 0.7 from the middle the half chord is root 0.51 = 0.714, at 0.2 root 0.96 = 0.98.
TEST(HatchTest, Lines_along_the_chord_of_an_arc_are_kept_or_left_out_whole) {
  std::vector<Shape> shapes;
  HatchArc(shapes, {9.2, 9, 2, 2}, HalfPi, Pi, HatchOf(HatchLines::Upright));
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 9.5 9.286 9.5 10.714 pen 0.1",
                                   "line 10 9.02 10 10.98 pen 0.1",
                               }));
}

// A line at 1.7 through a square from 0.25 to 3.25 with an opening from 1.25 to
// 2.25: it meets the opening.
TEST(HatchTest, Rings_make_one_area_by_odd_crossings_or_by_winding) {
  const std::vector<Point> outer = {{0.25, 0.25}, {3.25, 0.25}, {3.25, 3.25}, {0.25, 3.25}};
  const std::vector<Point> inner = {{1.25, 1.25}, {2.25, 1.25}, {2.25, 2.25}, {1.25, 2.25}};
  const std::vector<Point> turned(inner.rbegin(), inner.rend());
  const Hatch upright = HatchOf(HatchLines::Upright, 1.7);  // lines at 1.7 alone
  const Lines open = {"line 1.7 0.25 1.7 1.25 pen 0.1", "line 1.7 2.25 1.7 3.25 pen 0.1"};

  std::vector<Shape> shapes;
  HatchPolygon(shapes, {outer, inner}, false, upright);
  EXPECT_EQ(Described(shapes), open);

  // By winding the opening counts only where its ring runs the other way; its edges still part the
  // line.
  shapes.clear();
  HatchPolygon(shapes, {outer, turned}, true, upright);
  EXPECT_EQ(Described(shapes), open);
  shapes.clear();
  HatchPolygon(shapes, {outer, inner}, true, upright);
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 1.7 0.25 1.7 1.25 pen 0.1",
                                   "line 1.7 1.25 1.7 2.25 pen 0.1",
                                   "line 1.7 2.25 1.7 3.25 pen 0.1",
                               }));
}

// A V from above: the level line at 1 lies in its arms alone, the one at 3 below their meeting.
TEST(HatchTest, A_polygon_with_a_bay_is_hatched_on_both_sides_of_it) {
  const std::vector<Point> ring = {{0, 0}, {1, 0}, {2, 2}, {3, 0}, {4, 0}, {2, 4}};
  std::vector<Shape> shapes;
  HatchPolygon(shapes, {ring}, false, HatchOf(HatchLines::Level, 1));
  EXPECT_EQ(Described(shapes), (Lines{
                                   "line 0 0 1 0 pen 0.1",
                                   "line 3 0 4 0 pen 0.1",
                                   "line 0.5 1 1.5 1 pen 0.1",
                                   "line 2.5 1 3.5 1 pen 0.1",
                                   "line 1 2 3 2 pen 0.1",
                                   "line 1.5 3 2.5 3 pen 0.1",
                               }));
}

TEST(HatchTest, What_has_no_inside_or_fits_no_paper_is_not_hatched) {
  std::vector<Shape> shapes;
  HatchRectangle(shapes, {10, 10, 0, 5}, {});
  HatchEllipse(shapes, {10, 10, 5, 0}, {});
  HatchPolygon(shapes, {}, false, {});
  HatchPolygon(shapes, {{}, {{1, 1}}}, false, {});
  HatchRectangle(shapes, {0, 0, 1e9, 1e9}, {});
  HatchEllipse(shapes, {0, 0, 1e300, 1e300}, {});
  const double nothing = std::numeric_limits<double>::quiet_NaN();
  HatchRectangle(shapes, {nothing, 0, 1, 1}, {});
  HatchRectangle(shapes, {0, 0, 1, 1}, HatchOf(HatchLines::Level, 0));
  EXPECT_TRUE(shapes.empty());
}

// There a coordinate is the same number as its neighbours.
TEST(HatchTest, What_lies_far_from_every_paper_is_not_hatched) {
  std::vector<Shape> shapes;
  HatchRectangle(shapes, {1e20, 0, 1, 1}, {});
  HatchEllipse(shapes, {-1e20, 0, 10, 10}, HatchOf(HatchLines::Upright));
  HatchPolygon(shapes, {{{0, 1e16}, {1, 1e16}, {0, 1e16 + 4}}}, false, HatchOf(HatchLines::Level));
  EXPECT_TRUE(shapes.empty());
}

}  // namespace
