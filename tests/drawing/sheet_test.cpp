#include "drawing/sheet.h"

#include "tests/drawing/section_views_fixture.h"

namespace orvane::test {

namespace {

// A page on which the elevation has that room, mm, with margins of 10 mm: 69 mm more.
double PageWithRoom(double room) {
  return (room + 69) * 56.7;
}

class SheetRecord : public SheetTest {};

TEST_F(SheetRecord, A4_with_margins_of_10_mm_has_228_mm_for_the_elevation) {
  EXPECT_EQ(DrawingWidthOf(16840, PresentMargins()), 228);  // 297.002 - 55 - 10 - 4
}

TEST_F(SheetRecord, The_margins_of_both_sides_take_from_the_room) {
  LeftMargin = 20;
  EXPECT_EQ(DrawingWidthOf(16840, PresentMargins()), 218);
  RightMargin = 5;
  EXPECT_EQ(DrawingWidthOf(16840, PresentMargins()), 223);
  TopMargin = BottomMargin = 90;
  EXPECT_EQ(DrawingWidthOf(16840, PresentMargins()), 223);
}

TEST_F(SheetRecord, The_room_is_rounded_to_the_nearest_and_a_half_to_the_even_millimetre) {
  EXPECT_EQ(DrawingWidthOf(PageWithRoom(180.4), PresentMargins()), 180);
  EXPECT_EQ(DrawingWidthOf(PageWithRoom(180.6), PresentMargins()), 181);
  EXPECT_EQ(DrawingWidthOf(56.7 * 250.5, PresentMargins()), 182);  // 181.5
  EXPECT_EQ(DrawingWidthOf(56.7 * 249.5, PresentMargins()), 180);  // 180.5
}

TEST_F(SheetRecord, Margins_wider_than_the_page_leave_less_than_no_room) {
  LeftMargin = 200;
  RightMargin = 200;
  EXPECT_EQ(DrawingWidthOf(16840, PresentMargins()), -152);  // 297 - 245 - 200 - 4
  EXPECT_DOUBLE_EQ(LengthScaleOf(-152, 1520), -0.1);
}

TEST_F(SheetRecord, A_room_beyond_16_bits_is_an_overflow) {
  RightMargin = 32767;
  EXPECT_EQ(DrawingWidthOf(16840, PresentMargins()), -32529);
  LeftMargin = 32767;
  EXPECT_EQ(ErrorOf([] { DrawingWidthOf(16840, PresentMargins()); }), "Overflow");
}

TEST_F(SheetRecord, Lengths_fill_the_room_at_no_more_than_1_to_10) {
  EXPECT_EQ(LengthScaleOf(228, 1000), 0.1);
  EXPECT_EQ(LengthScaleOf(228, 2280), 0.1);
  EXPECT_EQ(LengthScaleOf(228, 6000), 0.038);
  EXPECT_EQ(LengthScaleOf(228, 15000), 0.0152);
  EXPECT_EQ(LengthScaleOf(0, 6000), 0);
}

TEST_F(SheetRecord, In_180_mm_a_section_of_1800_mm_is_at_a_tenth_and_one_of_1801_just_below) {
  EXPECT_EQ(LengthScaleOf(180, 1800), 0.1);
  EXPECT_EQ(LengthScaleOf(180, 1801), 180.0 / 1801);
  EXPECT_LT(LengthScaleOf(180, 1801), 0.1);
}

TEST_F(SheetRecord, In_200_mm_a_section_of_6000_mm_is_at_1_to_30_and_one_of_1500_at_1_to_10) {
  EXPECT_DOUBLE_EQ(LengthScaleOf(200, 6000), 1.0 / 30);
  EXPECT_EQ(LengthScaleOf(200, 1500), 0.1);
}

TEST_F(SheetRecord, No_length_is_drawn_longer_than_the_room) {
  for (std::int16_t room = 1; room <= 400; ++room) {
    const double length = room * 10.0;
    EXPECT_LE(LengthScaleOf(room, length) * length, room) << room;
  }
}

TEST_F(SheetRecord, Each_sheet_is_made_from_the_present_margins) {
  const Item section = SectionOf("P1", "Q", 6000);
  const SectionDim dim = ProductOf("", "", {.Dim3 = 200});
  const SheetSource source = PresentSource();
  const Sheet sheet = SheetOf(surface, source, section, dim, 6000);
  EXPECT_EQ(sheet.SectionViewLeft, 24);
  EXPECT_EQ(sheet.ElevationLeft, 55);
  EXPECT_EQ(sheet.DrawingWidth, 228);
  EXPECT_EQ(sheet.LengthScale, 0.038);
  LeftMargin = 20;
  const SheetSource moved = PresentSource();
  const Sheet next = SheetOf(surface, moved, section, dim, 1000);
  EXPECT_EQ(next.SectionViewLeft, 34);
  EXPECT_EQ(next.ElevationLeft, 65);
  EXPECT_EQ(next.DrawingWidth, 218);
  EXPECT_EQ(next.LengthScale, 0.1);
}

TEST_F(SheetRecord, Depths_are_always_at_a_tenth_below_100_mm) {
  EXPECT_EQ(CrossScale, 0.1);
  EXPECT_EQ(ViewTop, 100);
}

}  // namespace

}  // namespace orvane::test
