#include "project/rules/mitre_rules.h"

#include <string>

#include "core/model.h"
#include "core/runtime_error.h"
#include "tests/support/fixture.h"

namespace orvane {
namespace {

class MitreRules : public test::SystemTest {
 protected:
  MitreRules() { Items.Append({}); }
};

struct TypedAngle {
  std::string Typed;
  std::string Left;
};

const TypedAngle TypedAngles[] = {
    {"5", "5.0"},
    {"10", "10.0"},
    {"-20", "-20.0"},
    // The limits, from both sides.
    {"60", "60.0"},
    {"59.9", "59.9"},
    {"60.04", "60.0"},
    {"60.05", "60.0"},
    {"60.1", "60.0"},
    {"75", "60.0"},
    {"-60", "-60.0"},
    {"-59.9", "-59.9"},
    {"-60.04", "-60.0"},
    {"-60.1", "-60.0"},
    {"-75", "-60.0"},
    {"32768", "60.0"},
    {"1e30", "60.0"},
    // One decimal place; halves away from zero on the decimal value.
    {"12.34", "12.3"},
    {"12.25", "12.3"},
    {"12.35", "12.4"},
    {"-12.25", "-12.3"},
    {"0.05", "0.1"},
    {"-0.05", "-0.1"},
    // No number, and no minus sign on a zero.
    {"", "0.0"},
    {"abc", "0.0"},
    {"-", "0.0"},
    {"-0.04", "0.0"},
    {"-0", "0.0"},
    // A number ends at the first character that can't belong to it; a comma too.
    {"12abc", "12.0"},
    {"7,5", "7.0"},
    {"  8", "8.0"},
};

TEST_F(MitreRules, LeftMitreText_gives_one_decimal_place_within_the_steepest_cuts) {
  for (const TypedAngle& angle : TypedAngles) {
    EXPECT_EQ(LeftMitreText(angle.Typed), angle.Left) << '"' << angle.Typed << '"';
  }
}

TEST_F(MitreRules, MitreText_shows_a_stored_angle_with_one_decimal_place_and_clamps_nothing) {
  EXPECT_EQ(MitreText(12.3F), "12.3");
  EXPECT_EQ(MitreText(-7), "-7.0");
  EXPECT_EQ(MitreText(0), "0.0");
  EXPECT_EQ(MitreText(-0.0F), "0.0");
  EXPECT_EQ(MitreText(75), "75.0");
}

TEST_F(MitreRules, StoreMitres_stores_both_as_32_bit_floats_and_leaves_the_changed_flag) {
  StoreMitres(1, "10.0", "-20.0");
  EXPECT_EQ(Items.At(1).MitreLeft, 10.0F);
  EXPECT_EQ(Items.At(1).MitreRight, -20.0F);
  StoreMitres(1, "12.3", "0.0");
  EXPECT_EQ(Items.At(1).MitreLeft, 12.3F);
  EXPECT_EQ(Items.At(1).MitreRight, 0.0F);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(MitreRules, StoreMitres_stores_neither_when_one_is_too_large) {
  EXPECT_THROW(StoreMitres(1, "10", "1e39"), RuntimeError);
  EXPECT_EQ(Items.At(1).MitreLeft, 0.0F);
  EXPECT_EQ(Items.At(1).MitreRight, 0.0F);
}

// A picture of 4000 by 1480 twips leaves 1000 twips of height: the tangent of the angle in
// thousandths is the slant.
constexpr double Width = 4000;
constexpr double Height = 1480;
constexpr double Degree = Pi / 180;
constexpr double Slant30 = 577.350269189626;  // 1000 / root 3

void ExpectBeam(double left, double right, const BeamSketch& expected) {
  const BeamSketch beam = SketchBeam(Width, Height, left * Degree, right * Degree);
  EXPECT_EQ(beam.Top, expected.Top);
  EXPECT_EQ(beam.Bottom, expected.Bottom);
  EXPECT_NEAR(beam.TopLeft, expected.TopLeft, 1e-9);
  EXPECT_NEAR(beam.BottomLeft, expected.BottomLeft, 1e-9);
  EXPECT_NEAR(beam.TopRight, expected.TopRight, 1e-9);
  EXPECT_NEAR(beam.BottomRight, expected.BottomRight, 1e-9);
}

TEST_F(MitreRules, Square_ends_give_a_rectangle_with_a_margin_of_240_twips) {
  ExpectBeam(0, 0, {240, 1240, 240, 240, 3760, 3760});
}

TEST_F(MitreRules, A_positive_left_angle_moves_the_top_left_corner_right) {
  ExpectBeam(30, 0, {240, 1240, 240 + Slant30, 240, 3760, 3760});
}

TEST_F(MitreRules, A_negative_left_angle_moves_the_bottom_left_corner_right) {
  ExpectBeam(-30, 0, {240, 1240, 240, 240 + Slant30, 3760, 3760});
}

TEST_F(MitreRules, A_positive_right_angle_moves_the_bottom_right_corner_left) {
  ExpectBeam(0, 30, {240, 1240, 240, 240, 3760, 3760 - Slant30});
}

TEST_F(MitreRules, A_negative_right_angle_moves_the_top_right_corner_left) {
  ExpectBeam(0, -30, {240, 1240, 240, 240, 3760 - Slant30, 3760});
}

TEST_F(MitreRules, Equal_positive_angles_give_a_parallelogram) {
  ExpectBeam(30, 30, {240, 1240, 240 + Slant30, 240, 3760, 3760 - Slant30});
}

TEST_F(MitreRules, Angles_of_opposite_sign_give_a_trapezium) {
  ExpectBeam(30, -30, {240, 1240, 240 + Slant30, 240, 3760 - Slant30, 3760});
  ExpectBeam(-45, 45, {240, 1240, 240, 1240, 3760, 2760});
}

TEST_F(MitreRules, The_ends_may_cross_on_a_narrow_picture) {
  // 1000 times the tangent of 60 degrees is 1732.05...
  const BeamSketch beam = SketchBeam(1000, Height, 60 * Degree, -60 * Degree);
  EXPECT_NEAR(beam.TopLeft, 1972.05080756888, 1e-9);
  EXPECT_NEAR(beam.TopRight, -972.05080756888, 1e-9);
}

}  // namespace
}  // namespace orvane
