// The section products that ship: a range of cold-rolled steel that makes sense, and the products
// that the program knows by name.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/catalogues.h"
#include "core/model.h"
#include "core/numbers.h"
#include "tests/catalogue/shipped_catalogue.h"

namespace orvane {

namespace {

using test::DepthsOf;
using test::ExpectPlainName;
using test::ProductsOf;
using test::RowsOf;
using test::ShippedCatalogue;
using test::Texts;

// The Z and C products: purlins, rails, channels and joists.
std::vector<SectionDim> PurlinsAndChannels() {
  std::vector<SectionDim> products = ProductsOf("Z");
  for (const SectionDim& row : ProductsOf("C")) products.push_back(row);
  return products;
}

// The sheet's thickness as a product's name gives it: its last two digits, in tenths of a
// millimetre.
double ThicknessInName(const SectionDim& row) {
  return Val(std::string_view(row.Product).substr(row.Product.size() - 2)) / 10;
}

TEST_F(ShippedCatalogue, Names_every_product_once_and_without_commas) {
  std::set<std::string> names;
  for (const SectionDim& row : SectionDims) {
    ExpectPlainName(row.Product);
    EXPECT_TRUE(names.insert(row.Product).second) << row.Product << " stands twice";
  }
}

TEST_F(ShippedCatalogue, Has_products_of_all_seven_row_letters) {
  std::set<std::string> letters;
  for (const Texts& cells : RowsOf("dims.csv", "EZCMVRT")) letters.insert(cells[0]);
  EXPECT_EQ(letters, (std::set<std::string>{"C", "E", "M", "R", "T", "V", "Z"}));
}

TEST_F(ShippedCatalogue, Offers_mezzanine_rows_among_the_channels) {
  const std::vector<Texts> rows = RowsOf("dims.csv", "M");
  EXPECT_GE(rows.size(), 3U);
  for (const Texts& cells : rows) EXPECT_EQ(GetSectionDim(cells[1]).SectionType, "C") << cells[1];
}

TEST_F(ShippedCatalogue, Spans_depths_of_about_140_to_350_in_Z_and_C) {
  for (const std::string letter : {"Z", "C"}) {
    const std::set<double> depths = DepthsOf(letter);
    ASSERT_GE(depths.size(), 6U) << letter;
    EXPECT_NEAR(*depths.begin(), 140, 5) << letter;
    EXPECT_NEAR(*depths.rbegin(), 350, 5) << letter;
    double last = *depths.begin();
    for (const double depth : depths) {
      EXPECT_LE(depth - last, 35) << letter << ": a gap in the range below " << depth;
      last = depth;
    }
  }
}

TEST_F(ShippedCatalogue, Rolls_each_Z_and_C_depth_in_three_or_four_thicknesses) {
  for (const std::string letter : {"Z", "C"}) {
    std::map<double, std::set<double>> thicknesses;
    for (const SectionDim& row : ProductsOf(letter)) {
      EXPECT_GE(row.Dim6, 1.2) << row.Product;
      EXPECT_LE(row.Dim6, 3.2) << row.Product;
      EXPECT_TRUE(thicknesses[row.Dim3].insert(row.Dim6).second) << row.Product;
    }
    for (const auto& [depth, gauges] : thicknesses) {
      EXPECT_GE(gauges.size(), 3U) << letter << depth;
      EXPECT_LE(gauges.size(), 4U) << letter << depth;
    }
  }
}

TEST_F(ShippedCatalogue, Names_products_by_depth_and_thickness) {
  for (const std::string letter : {"Z", "C", "E"}) {
    for (const SectionDim& row : ProductsOf(letter)) {
      ASSERT_GE(row.Product.size(), 5U) << row.Product;
      EXPECT_EQ(Val(std::string_view(row.Product).substr(row.Product.size() - 5, 3)), row.Dim3)
          << row.Product;
      EXPECT_DOUBLE_EQ(ThicknessInName(row), row.Dim6) << row.Product;
    }
  }
}

TEST_F(ShippedCatalogue, Keeps_Z_and_C_flanges_at_60_to_75_and_lips_at_16_to_20) {
  for (const SectionDim& row : PurlinsAndChannels()) {
    for (const double flange : {row.Dim4, row.Dim5}) {
      EXPECT_GE(flange, 60) << row.Product;
      EXPECT_LE(flange, 75) << row.Product;
    }
    for (const double lip : {row.Dim7, row.Dim8}) {
      EXPECT_GE(lip, 16) << row.Product;
      EXPECT_LE(lip, 20) << row.Product;
    }
  }
}

// The sheet gives half of the flange to either half of it, in 7 points, which are 2.469 mm, with
// digits of 0.556 em and points of 0.278. Drawn at 1:10, 32.5 mm have no room for "32.5".
TEST_F(ShippedCatalogue, Halves_the_flanges_of_C_and_E_into_figures_that_fit_on_the_sheet) {
  const auto fits = [](double flange) {
    double width = 0;
    for (const char letter : ShortestText(flange / 2)) width += letter == '.' ? 0.278 : 0.556;
    return width * 7 * 25.4 / 72 < flange / 2 / 10;
  };
  EXPECT_FALSE(fits(65));
  int count = 0;
  for (const std::string letter : {"C", "E"}) {
    for (const SectionDim& row : ProductsOf(letter)) {
      EXPECT_TRUE(fits(letter == "C" ? row.Dim4 : row.Dim5)) << row.Product;
      ++count;
    }
  }
  EXPECT_GT(count, 50);
}

TEST_F(ShippedCatalogue, Lets_purlins_sleeve_by_flanges_that_differ_a_little) {
  for (const SectionDim& row : ProductsOf("Z")) {
    // One purlin turned over lies in the other: the wide flange clears the narrow one's sheet.
    EXPECT_GE(std::abs(row.Dim4 - row.Dim5), row.Dim6) << row.Product;
    EXPECT_LE(std::abs(row.Dim4 - row.Dim5), 8) << row.Product;
  }
}

TEST_F(ShippedCatalogue, Puts_gauge_lines_45_from_the_flanges_and_40_on_the_shallowest) {
  for (const std::string letter : {"Z", "C"}) {
    const double shallowest = *DepthsOf(letter).begin();
    for (const SectionDim& row : ProductsOf(letter)) {
      const double gauge = row.Dim3 == shallowest ? 40 : 45;
      EXPECT_EQ(row.Dim9, gauge) << row.Product;
      EXPECT_EQ(row.Dim11, gauge) << row.Product;
    }
  }
}

TEST_F(ShippedCatalogue, Adds_the_gauges_up_to_the_depth_exactly) {
  for (const std::string letter : {"Z", "C", "E"}) {
    for (const SectionDim& row : ProductsOf(letter)) {
      EXPECT_GT(row.Dim9, 0) << row.Product;
      EXPECT_GT(row.Dim10, 0) << row.Product;
      EXPECT_GT(row.Dim11, 0) << row.Product;
      EXPECT_EQ(row.Dim9 + row.Dim10 + row.Dim11, row.Dim3) << row.Product;
    }
  }
}

TEST_F(ShippedCatalogue, Gives_every_product_with_paired_end_holes_its_pair_spacing) {
  for (const std::string letter : {"Z", "C", "E"}) {
    for (const SectionDim& row : ProductsOf(letter)) {
      EXPECT_GE(row.Dim13, 50) << row.Product;
      EXPECT_LE(row.Dim13, 100) << row.Product;
    }
  }
}

TEST_F(ShippedCatalogue, Holds_the_channel_30116_of_the_C_channel_blocks) {
  const SectionDim channel = GetSectionDim("30116");
  EXPECT_EQ(channel.SectionType, "C");
  EXPECT_EQ(channel.Dim3, 301);
  EXPECT_EQ(channel.Dim6, 1.6);
}

TEST_F(ShippedCatalogue, Holds_the_depths_301_321_and_351_that_sleeves_are_made_for) {
  for (const std::string letter : {"Z", "C"}) {
    for (const double depth : {301.0, 321.0, 351.0}) {
      EXPECT_EQ(DepthsOf(letter).count(depth), 1U) << letter << depth;
    }
  }
}

TEST_F(ShippedCatalogue, Holds_eaves_beams_of_170_to_300) {
  const std::set<double> depths = DepthsOf("E");
  ASSERT_GE(depths.size(), 3U);
  EXPECT_EQ(*depths.begin(), 170);
  EXPECT_EQ(*depths.rbegin(), 300);
  for (const SectionDim& row : ProductsOf("E")) {
    for (const double width : {row.Dim4, row.Dim5, row.Dim7, row.Dim8}) {
      EXPECT_GT(width, 0) << row.Product;
    }
  }
}

TEST_F(ShippedCatalogue, Holds_one_vertical_cladding_rail_as_deep_as_wide) {
  const std::vector<SectionDim> rows = ProductsOf("V");
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].Product, "VCR");
  EXPECT_GT(rows[0].Dim3, 0);
  EXPECT_EQ(rows[0].Dim3, rows[0].Dim4);
  // The rail lies on its side: its gauges run over the strip.
  EXPECT_EQ(rows[0].Dim9 + rows[0].Dim10 + rows[0].Dim11, rows[0].Dim4);
  for (const double size : {rows[0].Dim7, rows[0].Dim8, rows[0].Dim9, rows[0].Dim10}) {
    EXPECT_GT(size, 0);
  }
}

TEST_F(ShippedCatalogue, Holds_one_cleader_rail) {
  const std::vector<SectionDim> rows = ProductsOf("R");
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].Product, "CLR");
  EXPECT_GT(rows[0].Dim5, 0);
  EXPECT_GT(rows[0].Dim11, 0);
  EXPECT_LT(rows[0].Dim11, rows[0].Dim3);
}

TEST_F(ShippedCatalogue, Holds_symmetric_top_hats) {
  const std::vector<SectionDim> rows = ProductsOf("T");
  EXPECT_GE(rows.size(), 3U);
  for (const SectionDim& row : rows) {
    EXPECT_GT(row.Dim3, 0) << row.Product;
    EXPECT_GT(row.Dim4, 0) << row.Product;
    EXPECT_EQ(row.Dim7, row.Dim8) << row.Product;
    EXPECT_EQ(row.Dim5, row.Dim4) << row.Product;
    // The holes of the end lips stand on the lips.
    EXPECT_GT(row.Dim9, 0) << row.Product;
    EXPECT_LT(row.Dim9, row.Dim7) << row.Product;
  }
}

}  // namespace

}  // namespace orvane
