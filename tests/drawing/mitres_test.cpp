#include <array>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "drawing/notches_and_mitres.h"
#include "tests/drawing/elevation_fixture.h"

namespace orvane {
namespace {

using Lines = std::vector<std::string>;

// A Z section of 2000 mm at 1:10, from 55 to 255 mm and from 100 down to 114 mm: at 45 degrees a
// mitre is offset by 14 mm on paper, 140 in truth.
class MitresTest : public test::ElevationTest {
 protected:
  std::string Drawn(float left, float right) {
    TheItem().MitreLeft = left;
    TheItem().MitreRight = right;
    DrawNotchesAndMitres(TheSheet());
    return Taken();
  }

  // "Mitres" in 7 points is 420 twips wide, 161 high.
  const std::string label = "CurrentX " + ShortestText(54 - 420 / 56.7) + "mm\nCurrentY " +
                            ShortestText(82 - 161 / 113.4) + "mm\nText \"Mitres\"\n";

  // Lines in bare twips; all others are in millimetres.
  int Dashes() const {
    int dashes = 0;
    for (const std::string& line : LinesOf("DrawLine")) {
      if (line.find("mm") == std::string::npos) ++dashes;
    }
    return dashes;
  }

  static std::string MitreDimension(double x1, double x2, const std::string& value) {
    const std::string first = " " + ShortestText(x1) + "mm ";
    const std::string second = " " + ShortestText(x2) + "mm ";
    return "PenWidth 0.1mm\nDrawLine" + first + "80mm" + first + "86mm\nDrawLine" + second +
           "80mm" + second + "86mm\n" + Dimension(x1, 82, x2, 82, value);
  }
};

TEST_F(MitresTest, Square_ends_draw_nothing) {
  EXPECT_EQ(Drawn(0, 0), "PenWidth 0.1mm\n");
}

TEST_F(MitresTest, Square_ends_that_were_mirrored_draw_nothing) {
  EXPECT_EQ(Drawn(-0.0F, -0.0F), "PenWidth 0.1mm\n");
}

TEST_F(MitresTest, Each_sign_at_each_end_has_its_line_and_dimension) {
  struct Case {
    float Left, Right;
    double BottomX, TopX;
    double X1, X2;
  };
  const std::array<Case, 4> cases = {{
      {45, 0, 55, 69, 55, 69},       // the left end is cut back at the top
      {-45, 0, 69, 55, 55, 69},      // at the bottom
      {0, 45, 241, 255, 241, 255},   // the right end is cut back at the bottom
      {0, -45, 255, 241, 241, 255},  // at the top
  }};
  for (const Case& one : cases) {
    SCOPED_TRACE(one.BottomX);
    test::ExpectNear(Drawn(one.Left, one.Right), label + "PenWidth 0.1mm\n" +
                                                     Dashed(one.BottomX, 114, one.TopX, 100) +
                                                     MitreDimension(one.X1, one.X2, "140"));
  }
}

TEST_F(MitresTest, A_square_end_beside_a_mitred_one_leaves_one_label_and_one_line) {
  TheItem().MitreLeft = 45;
  DrawNotchesAndMitres(TheSheet());
  EXPECT_EQ(LinesOf("Text"), (Lines{"Text \"Mitres\"", "Text \"140\""}));
  EXPECT_EQ(Dashes(), 20);
}

TEST_F(MitresTest, Mitres_at_both_ends_have_one_label_and_a_line_each_from_the_left) {
  test::ExpectNear(Drawn(45, -45), label + "PenWidth 0.1mm\n" + Dashed(55, 114, 69, 100) +
                                       MitreDimension(55, 69, "140") + Dashed(255, 114, 241, 100) +
                                       MitreDimension(241, 255, "140"));
}

TEST_F(MitresTest, The_offset_follows_the_scale_of_lengths_and_the_value_does_not) {
  // 1:20 along the section: 7 mm on paper, and the right end at 55 + 100 = 155 mm.
  LengthScale = 0.05;
  test::ExpectNear(Drawn(0, 45), label + "PenWidth 0.1mm\n" + Dashed(148, 114, 155, 100) +
                                     MitreDimension(148, 155, "140"));
}

TEST_F(MitresTest, A_vertical_rail_draws_its_strip_and_states_the_offset_of_its_web) {
  // The elevation is 6 mm high; the value is taken over the 100 of the web.
  MakeSection("V");
  test::ExpectNear(Drawn(45, 0), label + "PenWidth 0.1mm\n" + Dashed(55, 106, 61, 100) +
                                     MitreDimension(55, 61, "100"));
}

TEST_F(MitresTest, A_top_hat_is_mitred_over_its_overall_depth) {
  // 122.6326980708465 deep.
  MakeSection("T");
  const double offset = 12.26326980708465;
  test::ExpectNear(Drawn(45, 0), label + "PenWidth 0.1mm\n" +
                                     Dashed(55, 100 + offset, 55 + offset, 100) +
                                     MitreDimension(55, 55 + offset, "123"));
}

TEST_F(MitresTest, An_eaves_beam_with_a_pitch_is_mitred_from_the_level_top) {
  MakeSection("E");
  TheItem().Pitch = "10";
  test::ExpectNear(Drawn(45, 0), label + "PenWidth 0.1mm\n" + Dashed(55, 114, 69, 100) +
                                     MitreDimension(55, 69, "140"));
}

TEST_F(MitresTest, A_mitre_of_30_degrees_over_200_is_offset_by_115) {
  // tan 30 degrees is 0.577350269189626: 115.47, and 11.5470053837925 mm on paper.
  dim.Dim3 = 200;
  const double offset = 11.5470053837925;
  test::ExpectNear(Drawn(-30, 0), label + "PenWidth 0.1mm\n" + Dashed(55 + offset, 120, 55, 100) +
                                      MitreDimension(55, 55 + offset, "115"));
}

TEST_F(MitresTest, A_mitre_of_less_than_a_degree_is_drawn) {
  // tan 0.5 degrees is 0.00872686779075879: 1.2 over 140, and 0.12 mm on paper.
  const double offset = 0.122176149070623;
  test::ExpectNear(Drawn(0, 0.5F), label + "PenWidth 0.1mm\n" +
                                       Dashed(255 - offset, 114, 255, 100) +
                                       MitreDimension(255 - offset, 255, "1"));
}

TEST_F(MitresTest, A_line_of_45_degrees_has_20_dashes) {
  // 14 * sqrt 2 mm are 1122.6 twips, in pieces of 56 twips 20.05.
  TheItem().MitreRight = 45;
  DrawNotchesAndMitres(TheSheet());
  EXPECT_EQ(Dashes(), 20);
}

TEST_F(MitresTest, DrawMitreDimension_rounds_halves_away_from_zero) {
  DrawMitreDimension(surface, 60, 65, 2.5);
  EXPECT_EQ(Taken(), MitreDimension(60, 65, "3"));
  DrawMitreDimension(surface, 60, 65, 1.5);
  EXPECT_EQ(Taken(), MitreDimension(60, 65, "2"));
}

}  // namespace
}  // namespace orvane
