#include "drawing/sheet_places.h"

#include <optional>

#include "tests/drawing/elevation_fixture.h"

namespace orvane {
namespace {

using test::HoleOn;
using test::Placed;

// The elevation begins at 55 mm and 100 mm of the page, and 10 mm of the section are 1 mm of it.
class SheetPlacesTest : public test::ElevationTest {
 protected:
  void ExpectPlace(const SheetThing& thing, double left, double top, double right, double bottom) {
    const std::optional<PagePlace> place = PlaceOnSheet(TheSheet(), thing);
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->Left, left, 1e-6);
    EXPECT_NEAR(place->Top, top, 1e-6);
    EXPECT_NEAR(place->Right, right, 1e-6);
    EXPECT_NEAR(place->Bottom, bottom, 1e-6);
  }
};

TEST_F(SheetPlacesTest, A_web_hole_lies_where_its_circle_is_drawn) {
  // W1 stands 40 above the bottom of a web of 140: 100 mm of it down, 110 on the page. Its radius
  // is 0.9.
  TheItem().Holes.Append(Placed(HoleOn("n", "y", "n", "n"), 100, 100, 100));
  TheItem().Holes.Append(Placed(HoleOn("n", "y", "n", "n"), 300, 200, 200));
  ExpectPlace({.Hole = 1}, 64.1, 109.1, 65.9, 110.9);
  ExpectPlace({.Hole = 2}, 84.1, 109.1, 85.9, 110.9);
}

TEST_F(SheetPlacesTest, A_widened_gap_shifts_it_as_it_shifts_the_mark) {
  TheItem().Holes.Append(Placed(HoleOn("n", "y", "n", "n"), 10, 10, 50));
  ExpectPlace({.Hole = 1}, 59.1, 109.1, 60.9, 110.9);
}

TEST_F(SheetPlacesTest, A_slot_reaches_to_both_its_ends) {
  // 18 x 58: its half circles stand 20 mm off the middle, 2 on the page.
  TheItem().Holes.Append(Placed(HoleOn("n", "y", "n", "n", 18, 58), 100, 100, 100));
  ExpectPlace({.Hole = 1}, 62.1, 109.1, 67.9, 110.9);
}

TEST_F(SheetPlacesTest, A_row_of_several_marks_is_gone_round_whole_or_line_by_line) {
  // The bottom flange lies at 114, W2 45 below the top at 104.5.
  TheItem().Holes.Append(Placed(HoleOn("y", "n", "y", "n"), 100, 100, 100));
  ExpectPlace({.Hole = 1, .Line = "BF"}, 63.2, 113.25, 66.8, 114.75);
  ExpectPlace({.Hole = 1, .Line = "W2"}, 64.1, 103.6, 65.9, 105.4);
  ExpectPlace({.Hole = 1}, 63.2, 103.6, 66.8, 114.75);
}

TEST_F(SheetPlacesTest, A_line_without_a_mark_has_no_place) {
  TheItem().Holes.Append(Placed(HoleOn("y", "n", "n", "n"), 100, 100, 100));
  EXPECT_FALSE(PlaceOnSheet(TheSheet(), {.Hole = 1, .Line = "TF"}));
  TheItem().Holes.At(1) = Placed(HoleOn("n", "n", "n", "n"), 100, 100, 100);
  EXPECT_FALSE(PlaceOnSheet(TheSheet(), {.Hole = 1}));
}

TEST_F(SheetPlacesTest, A_hole_off_gauge_lies_at_its_own_height) {
  // 70 above the bottom: 107.
  TheItem().Holes.Append(Placed(HoleOn("n", "70", "n", "n"), 100, 100, 100));
  ExpectPlace({.Hole = 1, .Line = "W1"}, 64.1, 106.1, 65.9, 107.9);
}

TEST_F(SheetPlacesTest, Notches_lie_at_their_outlines) {
  // 30 deep, 200 wide: at the top left end, and 500 mm from it at the bottom edge.
  TheItem().Notches.Append({"TL1", 30, 200, 0});
  TheItem().Notches.Append({"B2", 30, 200, 500});
  TheItem().Notches.Append({"R3", 30, 200, 20});
  TheItem().Notches.Append({"XX", 30, 200, 0});
  ExpectPlace({.Notch = 1}, 55, 100, 75, 103);
  ExpectPlace({.Notch = 2}, 105, 111, 125, 114);
  // The right end of 2000 mm stands at 255; 20 above the bottom is 112.
  ExpectPlace({.Notch = 3}, 235, 109, 255, 112);
  EXPECT_FALSE(PlaceOnSheet(TheSheet(), {.Notch = 4}));
}

TEST_F(SheetPlacesTest, A_stretch_lies_over_the_whole_elevation) {
  ExpectPlace({.From = 100, .To = 250}, 65, 100, 80, 114);
  ExpectPlace({.From = 250, .To = 100}, 65, 100, 80, 114);
}

TEST_F(SheetPlacesTest, What_lies_beyond_an_end_is_pointed_at_just_beside_it) {
  ExpectPlace({.From = 1900, .To = 9000}, 245, 100, 260, 114);
  ExpectPlace({.From = -400, .To = -400}, 50, 100, 50, 114);
}

TEST_F(SheetPlacesTest, A_section_without_views_has_no_places) {
  TheItem().Length = 0;
  EXPECT_FALSE(PlaceOnSheet(TheSheet(), {.From = 0, .To = 10}));
}

TEST_F(SheetPlacesTest, The_product_of_the_section_gives_its_depth) {
  dim.Product = "Z140";
  SectionDims.Append(dim);
  TheItem().Product = "Z140";
  const std::optional<PagePlace> place =
      PlaceOnSheet(surface, {10, 10, 10, 10}, TheItem(), {.From = 0, .To = 1000});
  ASSERT_TRUE(place);
  EXPECT_NEAR(place->Left, 55, 1e-6);
  EXPECT_NEAR(place->Right, 155, 1e-6);
  EXPECT_NEAR(place->Bottom, 114, 1e-6);
  TheItem().Product = "none";
  EXPECT_FALSE(PlaceOnSheet(surface, {10, 10, 10, 10}, TheItem(), {.From = 0, .To = 1000}));
}

}  // namespace
}  // namespace orvane
