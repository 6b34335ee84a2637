#include <algorithm>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include "holes/hole_list.h"
#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Gaps = std::vector<double>;

class HoleSpacingTest : public test::SystemTest {
 protected:
  HoleSpacingTest() {
    MinHoleSep = 4;
    DrawingWidth = 180;
    Items.Append({});
  }

  // An item of that length with holes at those positions.
  static void Place(int length, const std::vector<int>& positions) {
    Item item;
    item.Length = Int16(length);
    for (const int position : positions) {
      Hole hole;
      hole.XPos = Int16(position);
      item.Holes.Append(hole);
    }
    Items.At(1) = item;
  }

  // Fields of rows 1 to the last, then of row 0.
  static Gaps Read(double Hole::*field) {
    const Table<Hole>& holes = Items.At(1).Holes;
    Gaps gaps;
    for (const Hole& hole : holes) gaps.push_back(hole.*field);
    gaps.push_back(holes.At(0).*field);
    return gaps;
  }
  static Gaps TrueGaps() { return Read(&Hole::RelX); }
  static Gaps DrawnGaps() { return Read(&Hole::DrawGap); }

  static void ExpectNear(const Gaps& gaps, const Gaps& expected, double tolerance) {
    ASSERT_EQ(gaps.size(), expected.size());
    for (std::size_t i = 0; i < gaps.size(); ++i) {
      EXPECT_NEAR(gaps[i], expected[i], tolerance) << i;
    }
  }

  static double Sum(const Gaps& gaps) { return std::accumulate(gaps.begin(), gaps.end(), 0.0); }
};

TEST_F(HoleSpacingTest, AdjustHoleSpacing_pays_the_shortfall_from_wide_gaps) {
  Place(6000, {3000, 3070});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{3000, 70, 2930}));
  // Scale 0.03, least gap 133.33; 63.33 are paid by 3000 and 2930 in proportion:
  // 63.33 * 3000 / 5930 = 32.0405, 63.33 * 2930 / 5930 = 31.2929.
  ExpectNear(DrawnGaps(), {2967.9595, 133.3333, 2898.7071}, 1e-4);
  EXPECT_NEAR(Sum(DrawnGaps()), 6000, 1e-9);
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 6000);
}

TEST_F(HoleSpacingTest, One_hole_has_a_gap_on_either_side) {
  Place(6000, {1000});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{1000, 5000}));
  EXPECT_EQ(DrawnGaps(), (Gaps{1000, 5000}));
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 6000);
  EXPECT_EQ(Items.At(1).Holes.At(1).XPos, 1000);
}

TEST_F(HoleSpacingTest, Below_1800_the_scale_stays_at_1_to_10) {
  // Least gap 4 * 10 = 40, although 180 / 1000 would give 22.2.
  Place(1000, {500, 530});
  AdjustHoleSpacing(1);
  // 10 paid by 500 and 470.
  ExpectNear(DrawnGaps(), {500 - 10 * 500 / 970.0, 40, 470 - 10 * 470 / 970.0}, 1e-9);

  // At 1800 the scale is 0.1 by itself, at 3600 it is 0.05.
  Place(1800, {900, 930});
  AdjustHoleSpacing(1);
  EXPECT_NEAR(DrawnGaps()[1], 40, 1e-9);
  Place(3600, {900, 930});
  AdjustHoleSpacing(1);
  EXPECT_NEAR(DrawnGaps()[1], 80, 1e-9);
}

TEST_F(HoleSpacingTest, A_gap_of_exactly_the_least_pays_and_is_not_widened_again) {
  Place(1000, {40, 50});
  AdjustHoleSpacing(1);
  // Gaps 40, 10, 950; the least is 40: 30 short, paid by 40 and 950.
  ExpectNear(DrawnGaps(), {40 - 30 * 40 / 990.0, 40, 950 - 30 * 950 / 990.0}, 1e-9);
  EXPECT_LT(DrawnGaps()[0], 40);
  EXPECT_NEAR(Sum(DrawnGaps()), 1000, 1e-9);
}

TEST_F(HoleSpacingTest, One_pass_only_leaves_a_paying_gap_below_the_least) {
  Place(1000, {45, 55, 65, 75, 85, 95, 105, 800});
  AdjustHoleSpacing(1);
  // 45, six of 10, 695, 200: the six are 30 short each, 180 paid by 45 + 695 + 200 = 940.
  ExpectNear(DrawnGaps(),
             {45 - 180 * 45 / 940.0, 40, 40, 40, 40, 40, 40, 695 - 180 * 695 / 940.0,
              200 - 180 * 200 / 940.0},
             1e-9);
  EXPECT_NEAR(DrawnGaps()[0], 36.383, 1e-3);
}

TEST_F(HoleSpacingTest, A_short_gap_to_the_end_is_widened_too) {
  Place(1000, {970});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{970, 30}));
  ExpectNear(DrawnGaps(), {960, 40}, 1e-9);
}

TEST_F(HoleSpacingTest, Coincident_holes_stay_coincident) {
  Place(1000, {500, 500, 510});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{500, 0, 10, 490}));
  EXPECT_EQ(DrawnGaps()[1], 0);
  ExpectNear(DrawnGaps(), {500 - 30 * 500 / 990.0, 0, 40, 490 - 30 * 490 / 990.0}, 1e-9);

  // However small the separation.
  MinHoleSep = 0.001;
  AdjustHoleSpacing(1);
  EXPECT_EQ(DrawnGaps(), (Gaps{500, 0, 10, 490}));
}

TEST_F(HoleSpacingTest, A_separation_of_0_widens_nothing) {
  MinHoleSep = 0;
  Place(1000, {500, 501, 501});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{500, 1, 0, 499}));
  EXPECT_EQ(DrawnGaps(), (Gaps{500, 1, 0, 499}));
}

TEST_F(HoleSpacingTest, Gaps_that_are_all_short_are_widened_and_nobody_pays) {
  Place(50, {30});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{30, 20}));
  EXPECT_EQ(DrawnGaps(), (Gaps{40, 40}));
}

TEST_F(HoleSpacingTest, Negative_gaps_belong_to_the_pool_without_clamping) {
  // A hole beyond the end: gaps 1000, 20, 100, -120. The least is 40; the pool is 980, 20 short.
  Place(1000, {1000, 1020, 1120});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{1000, 20, 100, -120}));
  ExpectNear(DrawnGaps(),
             {1000 - 20 * 1000 / 980.0, 40, 100 - 20 * 100 / 980.0, -120 + 20 * 120 / 980.0}, 1e-9);
  EXPECT_NEAR(Sum(DrawnGaps()), 1000, 1e-9);
}

TEST_F(HoleSpacingTest, A_pool_below_0_is_shared_as_it_stands) {
  // Gaps 20, 100, -105 on length 15: 20 short, the pool is -5, each share is -4 times its gap.
  Place(15, {20, 120});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{20, 100, -105}));
  ExpectNear(DrawnGaps(), {40, 100 + 4 * 100, -105 - 4 * 105}, 1e-9);
}

TEST_F(HoleSpacingTest, An_empty_pool_is_a_division_by_zero_and_widened_gaps_stay) {
  Place(50, {30, 30});
  EXPECT_EQ(test::ErrorOf([] { AdjustHoleSpacing(1); }), "Division by zero");
  EXPECT_EQ(TrueGaps(), (Gaps{30, 0, 20}));
  EXPECT_EQ(DrawnGaps(), (Gaps{40, 0, 40}));
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 50);
}

TEST_F(HoleSpacingTest, A_pool_that_adds_up_to_0_fails_before_the_first_share) {
  // Gaps 100, 20, -100.
  Place(20, {100, 120});
  EXPECT_EQ(test::ErrorOf([] { AdjustHoleSpacing(1); }), "Division by zero");
  EXPECT_EQ(DrawnGaps(), (Gaps{100, 40, -100}));
}

TEST_F(HoleSpacingTest, Without_a_shortfall_every_gap_is_drawn_as_it_is) {
  // Beyond the end and back; no gap lies between 0 and 40.
  Place(60, {120, 20});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{120, -100, 40}));
  EXPECT_EQ(DrawnGaps(), (Gaps{120, -100, 40}));
}

TEST_F(HoleSpacingTest, Nothing_changes_before_a_drawing_or_without_length_or_holes) {
  const auto unchanged = [](int length, const std::vector<int>& positions) {
    Place(length, positions);
    for (int row = 0; row <= Items.At(1).Holes.UBound(); ++row) {
      Items.At(1).Holes.At(row).RelX = 11 + row;
      Items.At(1).Holes.At(row).DrawGap = 77 + row;
    }
    AdjustHoleSpacing(1);
    EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 0);
    for (int row = 0; row <= Items.At(1).Holes.UBound(); ++row) {
      EXPECT_EQ(Items.At(1).Holes.At(row).RelX, 11 + row);
      EXPECT_EQ(Items.At(1).Holes.At(row).DrawGap, 77 + row);
    }
  };
  unchanged(1000, {});
  unchanged(0, {500});
  unchanged(-1, {500});
  DrawingWidth = 0;
  unchanged(1000, {500});
}

TEST_F(HoleSpacingTest, Gaps_are_worked_out_wider_than_16_bits) {
  Place(32767, {-32768, 32767});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{-32768, 65535, 0}));
  EXPECT_EQ(DrawnGaps(), (Gaps{-32768, 65535, 0}));
  Place(32767, {-32768});
  AdjustHoleSpacing(1);
  EXPECT_EQ(TrueGaps(), (Gaps{-32768, 65535}));
}

TEST_F(HoleSpacingTest, A_second_run_starts_from_the_positions_and_not_from_drawn_gaps) {
  Place(6000, {3000, 3070});
  AdjustHoleSpacing(1);
  const Gaps first = DrawnGaps();
  AdjustHoleSpacing(1);
  EXPECT_EQ(DrawnGaps(), first);
}

// Patterns, lengths and custom holes as they come: the list ascends, the drawn gaps add up to the
// length, and every custom hole is where it was put.
TEST_F(HoleSpacingTest, After_a_rebuild_the_list_ascends_and_its_drawn_gaps_add_up_to_the_length) {
  const std::vector<std::string> codes = {"A0", "A6", "B0", "C3", "D1", "D4", "E2", "E5", "F7",
                                          "F8", "G3", "H4", "I3", "S0", "S6", "T0", "T6", "X1"};
  SectionDim product;
  product.SectionType = "Z";
  product.Product = "Z200";
  product.Dim13 = 62.5;
  SectionDims.Append(product);

  int widened = 0;
  for (unsigned seed = 1; seed <= 2000; ++seed) {
    std::mt19937 random(seed);
    const auto below = [&](int limit) {
      return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    Items.Clear();
    PunchPatterns.Clear();
    PunchPattern pattern;
    pattern.SectionType = "Z";
    pattern.Name = "P";
    const int codeCount = below(7);
    for (int i = 0; i < codeCount; ++i) {
      if (i > 0) pattern.Codes += ',';
      pattern.Codes += codes[static_cast<std::size_t>(below(static_cast<int>(codes.size())))];
    }
    PunchPatterns.Append(pattern);

    Item item;
    item.SectionType = "Z";
    item.Product = "Z200";
    item.SagBarDia = 18;
    const int length = 3000 + below(12000);
    item.Length = Int16(length);
    std::vector<std::pair<int, float>> customs;
    const int customCount = below(5);
    for (int i = 0; i < customCount; ++i) {
      Hole hole;
      hole.Kind = "C";
      hole.XPos = Int16(24 + below(length - 48));
      hole.Diameter = static_cast<float>(i);
      item.Holes.Append(hole);
      customs.emplace_back(hole.XPos, hole.Diameter);
    }
    item.CustomHoleCount = Int16(customCount);
    Items.Append(item);
    std::stable_sort(customs.begin(), customs.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });

    // A second rebuild makes the same list again.
    for (int run = 1; run <= 2; ++run) {
      RebuildHoles(1, "P");
      const Item& made = Items.At(1);
      ASSERT_EQ(made.CustomHoleCount, customCount) << seed;
      std::vector<std::pair<int, float>> found;
      for (int row = 1; row <= made.HoleCount(); ++row) {
        const Hole& hole = made.Holes.At(row);
        if (row > 1) {
          ASSERT_LE(made.Holes.At(row - 1).XPos, hole.XPos) << seed;
        }
        if (hole.Kind == "C") found.emplace_back(hole.XPos, hole.Diameter);
        if (hole.DrawGap > hole.RelX) ++widened;
      }
      ASSERT_EQ(found, customs) << seed;
      if (made.HoleCount() == 0) {
        ASSERT_EQ(made.Holes.At(0).XPos, 0) << seed;
        continue;
      }
      // At most 16 holes leave 17 gaps; the least gap is length / 45, so one of them is wide.
      ASSERT_LE(made.HoleCount(), 16);
      ASSERT_NEAR(Sum(DrawnGaps()), length, 1e-6) << seed;
      ASSERT_NEAR(Sum(TrueGaps()), length, 1e-9) << seed;
      ASSERT_EQ(made.Holes.At(0).XPos, length) << seed;
    }
  }
  EXPECT_GT(widened, 1000);
}

}  // namespace
}  // namespace orvane
