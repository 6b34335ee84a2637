#include "output/page_room.h"

#include "core/numbers.h"
#include "tests/output/print_fixture.h"

namespace orvane::test {

namespace {

// A4 landscape with margins of 10 mm has 228 mm for the elevation.
class PageRoomTest : public PrintTest {
 protected:
  // Two holes by hand so close to each other that in 228 mm for 4000 they are drawn further apart:
  // 4 mm of paper are 4 / 0.057 = 70.1754385964912 mm of the section.
  PageRoomTest() {
    AddCustomPurlin("P1", 4000, {3000, 3010});
    AddCustomPurlin("P2", 4000, {3000, 3010});
  }

  // The drawn gap of the pair of that row; 0 before it was worked out.
  static double PairGap(int row) { return Items.At(row).Holes.At(2).DrawGap; }
  static constexpr double Widened = 4 * 4000 / 228.0;

  // All gaps of no length: a section as long as a hole's position, which nothing can pay for.
  static void MakeUnspaceable(int row) {
    Items.At(row).Length = 10;
    Items.At(row).Holes.At(1).XPos = 0;
    Items.At(row).Holes.At(2).XPos = 10;
  }

  PlainFontMetrics metrics;
  PageSurface page{metrics};
};

TEST_F(PageRoomTest, A_new_room_that_is_kept_stays) {
  DrawingWidth = 100;
  {
    PageRoom room(page);
    EXPECT_TRUE(room.IsNew());
    EXPECT_EQ(DrawingWidth, 228);
    room.Keep();
  }
  EXPECT_EQ(DrawingWidth, 228);
}

TEST_F(PageRoomTest, A_new_room_that_is_not_kept_is_put_back) {
  DrawingWidth = 100;
  { const PageRoom room(page); }
  EXPECT_EQ(DrawingWidth, 100);
}

TEST_F(PageRoomTest, The_room_that_was_there_already_is_not_new_and_stays) {
  DrawingWidth = 228;
  {
    const PageRoom room(page);
    EXPECT_FALSE(room.IsNew());
  }
  EXPECT_EQ(DrawingWidth, 228);
}

TEST_F(PageRoomTest, Holes_are_fitted_to_a_page_with_another_room_alone) {
  DrawingWidth = 228;
  FitHolesToPage(page, 1);
  EXPECT_EQ(PairGap(1), 0);
  DrawingWidth = 100;
  FitHolesToPage(page, 1);
  EXPECT_DOUBLE_EQ(PairGap(1), Widened);
  EXPECT_EQ(PairGap(2), 0);
  EXPECT_EQ(DrawingWidth, 228);
}

TEST_F(PageRoomTest, A_row_that_cannot_be_fitted_leaves_the_former_room) {
  MakeUnspaceable(1);
  DrawingWidth = 100;
  for (int time = 1; time <= 2; ++time) {
    EXPECT_EQ(ErrorOf([&] { FitHolesToPage(page, 1); }), "Division by zero") << time;
    EXPECT_EQ(DrawingWidth, 100);
  }
}

TEST_F(PageRoomTest, All_rows_are_fitted_where_the_room_is_new_or_it_is_asked_for) {
  DrawingWidth = 228;
  FitAllHolesToPage(page, false);
  EXPECT_EQ(PairGap(1), 0);
  FitAllHolesToPage(page, true);
  EXPECT_DOUBLE_EQ(PairGap(1), Widened);
  EXPECT_DOUBLE_EQ(PairGap(2), Widened);
  for (int row = 1; row <= 2; ++row) Items.At(row).Holes.At(2).DrawGap = 0;
  DrawingWidth = 100;
  FitAllHolesToPage(page, false);
  EXPECT_DOUBLE_EQ(PairGap(1), Widened);
  EXPECT_DOUBLE_EQ(PairGap(2), Widened);
}

TEST_F(PageRoomTest, A_row_that_cannot_be_fitted_keeps_no_other_back) {
  MakeUnspaceable(1);
  DrawingWidth = 100;
  FitAllHolesToPage(page, false);
  EXPECT_DOUBLE_EQ(PairGap(2), Widened);
  EXPECT_EQ(DrawingWidth, 228);
  EXPECT_TRUE(desktop.Boxes.empty());
}

}  // namespace

}  // namespace orvane::test
