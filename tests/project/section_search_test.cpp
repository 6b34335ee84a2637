#include "project/section_list/section_search.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/model.h"
#include "project/sections.h"
#include "tests/support/fixture.h"

namespace orvane::test {

namespace {

class SectionSearch : public SystemTest {
 protected:
  static void Add(const char* mark, const char* product, std::int16_t length, const char* notes) {
    Item& item = Items.At(AddSectionRow("Z"));
    item.Mark = mark;
    item.Product = product;
    item.Length = length;
    item.Quantity = 77;
    item.Notes = notes;
  }
  SectionSearch() {
    Add("P1", "Z14012", 6000, "north");
    Add("P12", "Z17016", 7250, "South side");
    Add("B1", "Z14012", 6000, "p1 mirrored");
  }
  using Found = std::vector<FoundSection>;
};

}  // namespace

TEST_F(SectionSearch, A_text_is_found_in_mark_product_length_and_notes) {
  EXPECT_EQ(SectionsWith("P12"), (Found{{2, 1}}));
  EXPECT_EQ(SectionsWith("7016"), (Found{{2, 2}}));
  EXPECT_EQ(SectionsWith("725"), (Found{{2, 3}}));
  EXPECT_EQ(SectionsWith("side"), (Found{{2, 5}}));
}

TEST_F(SectionSearch, Each_section_is_found_once_by_its_first_cell) {
  EXPECT_EQ(SectionsWith("1"), (Found{{1, 1}, {2, 1}, {3, 1}}));
  EXPECT_EQ(SectionsWith("6000"), (Found{{1, 3}, {3, 3}}));
}

TEST_F(SectionSearch, Letters_are_found_in_either_case) {
  EXPECT_EQ(SectionsWith("p1"), (Found{{1, 1}, {2, 1}, {3, 5}}));
  EXPECT_EQ(SectionsWith("SOUTH"), (Found{{2, 5}}));
  EXPECT_EQ(SectionsWith("z17"), (Found{{2, 2}}));
}

TEST_F(SectionSearch, Quantities_are_not_looked_at) {
  EXPECT_EQ(SectionsWith("77"), Found{});
}

TEST_F(SectionSearch, An_empty_text_finds_none) {
  EXPECT_EQ(SectionsWith(""), Found{});
  EXPECT_EQ(SectionsWith("P13"), Found{});
}

}  // namespace orvane::test
