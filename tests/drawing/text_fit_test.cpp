#include "drawing/text_fit.h"

#include <gtest/gtest.h>

#include <string>

#include "drawing/length.h"
#include "drawing/recording_surface.h"

namespace orvane {
namespace {

// Ten points: a character is 100 twips wide, and the baseline 180 twips below the top.
class TextFitTest : public testing::Test {
 protected:
  // The text fitted into a room of so many twips.
  TextShape Fitted(const std::string& text, double roomTwips) {
    TextShape shape;
    shape.Text = text;
    shape.TopLeft = {30, 40};
    shape.Ascent = 180 / TwipsPerMm;
    width = TwipsPerMm * FitText(shape, metrics, roomTwips / TwipsPerMm);
    return shape;
  }

  PlainFontMetrics metrics;
  double width = 0;  // twips, of the one fitted last
  const std::string twenty = "abcdefghijklmnopqrst";
};

TEST_F(TextFitTest, A_text_that_has_room_stays_as_it_is) {
  for (const double room : {2000.0, 2500.0}) {
    const TextShape shape = Fitted(twenty, room);
    EXPECT_EQ(shape.Text, twenty);
    EXPECT_EQ(shape.WidthScale, 1);
    EXPECT_EQ(shape.Type.Size, 10);
    EXPECT_EQ(shape.TopLeft, (Point{30, 40}));
    EXPECT_NEAR(width, 2000, 1e-6);
  }
}

TEST_F(TextFitTest, A_wider_one_is_narrower_down_to_60_percent) {
  EXPECT_NEAR(Fitted(twenty, 1900).WidthScale, 0.95, 1e-9);
  EXPECT_NEAR(width, 1900, 1e-6);
  const TextShape least = Fitted(twenty, 1200);
  EXPECT_NEAR(least.WidthScale, 0.6, 1e-9);
  EXPECT_EQ(least.Type.Size, 10);
  EXPECT_EQ(least.Text, twenty);
  EXPECT_EQ(least.TopLeft, (Point{30, 40}));
}

// 900 of 2000 twips are 45 %: 75 % of the size at 60 % of the width. The baseline of 7.5 points is
// 135 twips below the top.
TEST_F(TextFitTest, Then_it_is_smaller_on_the_same_baseline) {
  const TextShape shape = Fitted(twenty, 900);
  EXPECT_EQ(shape.WidthScale, 0.6);
  EXPECT_NEAR(shape.Type.Size, 7.5, 1e-9);
  EXPECT_EQ(shape.Text, twenty);
  EXPECT_NEAR(width, 900, 1e-6);
  EXPECT_NEAR(shape.Ascent * TwipsPerMm, 135, 1e-9);
  EXPECT_NEAR(shape.TopLeft.Y, 40 + 45 / TwipsPerMm, 1e-9);
  EXPECT_EQ(shape.TopLeft.X, 30);
}

TEST_F(TextFitTest, Down_to_60_percent_of_its_size_no_letter_is_lost) {
  const TextShape shape = Fitted(twenty, 720);
  EXPECT_NEAR(shape.Type.Size, 6, 1e-9);
  EXPECT_EQ(shape.Text, twenty);
  EXPECT_NEAR(width, 720, 1e-6);
}

// Six points at 60 % are 36 twips a character: 16 in 600 twips, of which the ellipsis is one.
TEST_F(TextFitTest, Only_then_it_is_cut_and_says_so) {
  const TextShape shape = Fitted(twenty, 600);
  EXPECT_EQ(shape.Text, "abcdefghijklmno\xE2\x80\xA6");
  EXPECT_EQ(shape.WidthScale, 0.6);
  EXPECT_NEAR(shape.Type.Size, 6, 1e-9);
  EXPECT_NEAR(width, 16 * 36, 1e-6);
}

TEST_F(TextFitTest, A_cut_leaves_no_blank_before_the_ellipsis_and_no_half_letter) {
  EXPECT_EQ(Fitted("abcdefghijklm  pqrst", 600).Text, "abcdefghijklm\xE2\x80\xA6");
  std::string letters;  // twenty of two bytes each
  for (int i = 0; i < 20; ++i) letters += "\xC3\xA4";
  EXPECT_EQ(Fitted(letters, 600).Text, letters.substr(0, 2 * 15) + "\xE2\x80\xA6");
}

TEST_F(TextFitTest, Without_room_the_ellipsis_stands_alone) {
  for (const double room : {35.0, 0.0, -100.0}) {
    EXPECT_EQ(Fitted(twenty, room).Text, "\xE2\x80\xA6");
    EXPECT_NEAR(width, 36, 1e-6);
  }
}

}  // namespace
}  // namespace orvane
