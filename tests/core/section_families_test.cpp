#include "core/section_families.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orvane;

TEST(SectionFamilies, are_the_six_of_the_trade_in_the_order_of_the_greatest_lengths) {
  std::vector<std::string> rows;
  for (const SectionFamily& family : SectionFamilies) {
    std::string row;
    for (const std::string_view text : {family.Letter, family.MenuEntry, family.ToolTip,
                                        family.SheetTitle, family.FixedProduct}) {
      row.append(text).append(1, '|');
    }
    rows.push_back(row);
  }
  const std::vector<std::string> expected = {
      "Z|&Z section|Add a Z section|Z Purlin/Rail||",
      "E|&Eaves Beam|Add an eaves beam section|Eaves Beam||",
      "C|&C Channel|Add a channel section|Mezzanine/C-Channel||",
      "V|&VCR|Add a vertical cladding rail section|VCR|VCR|",
      "R|Cleader &Rail|Add a cleader rail section|Cleader Rail|CLR|",
      "T|&Top Hat|Add a top hat section|Top Hat Section||",
  };
  EXPECT_EQ(rows, expected);

  std::vector<double> lengths;
  lengths.reserve(SectionFamilies.size());
  for (const SectionFamily& family : SectionFamilies) lengths.push_back(family.DefaultMaxLength);
  EXPECT_EQ(lengths, (std::vector<double>{15000, 15000, 15000, 3050, 3050, 4000}));
}

TEST(SectionFamilies, MaxDimsRow_counts_from_1_and_is_0_for_what_is_no_letter) {
  EXPECT_EQ(FamilyNumber("Z"), 1);
  EXPECT_EQ(FamilyNumber("E"), 2);
  EXPECT_EQ(FamilyNumber("C"), 3);
  EXPECT_EQ(FamilyNumber("V"), 4);
  EXPECT_EQ(FamilyNumber("R"), 5);
  EXPECT_EQ(FamilyNumber("T"), 6);
  for (const char* text : {"", "M", "z", " Z", "ZE", "1"}) EXPECT_EQ(FamilyNumber(text), 0) << text;
}

}  // namespace
