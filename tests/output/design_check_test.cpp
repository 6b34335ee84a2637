// The design check: each rule with a section that just passes and one that just fails. The figures
// are those of the catalogue that ships. Z14012: depth 140, top flange 65, bottom flange 60, rows
// of the web 40 from the top and 40 from the bottom, pair spacing 60.
#include "output/design_check.h"

#include <string>
#include <vector>

#include "core/settings.h"
#include "tests/output/output_test.h"

namespace orvane {

namespace {

using namespace test;

class DesignCheckTest : public OutputTest {
 protected:
  DesignCheckTest() {
    LoadShippedCatalogues();
    LoadMaxDims();
  }
  ~DesignCheckTest() override { TheRules = ShippedRules(); }

  // A section of its family's first product, one off, with a hole in the middle of its web's lower
  // row that nothing is wrong with.
  static Item& Add(const std::string& letter, const std::string& product, std::int16_t length) {
    Item item = MakeItem(letter, "P1", length);
    item.Product = product;
    AddHoles(item, {MakeHole(static_cast<std::int16_t>(length / 2), 18)});
    Items.Append(item);
    return Items.At(Items.UBound());
  }

  static std::vector<std::string> Rules(const std::vector<Finding>& findings) {
    std::vector<std::string> rules;
    for (const Finding& finding : findings) rules.emplace_back(finding.Rule);
    return rules;
  }

  static std::vector<std::string> Lines(const std::vector<Finding>& findings) {
    std::vector<std::string> lines;
    for (const Finding& finding : findings) lines.push_back(FindingLine(finding));
    return lines;
  }

  static std::vector<std::string> Found() { return Lines(CheckSection(OpenJob(), 1)); }
};

using Texts = std::vector<std::string>;

TEST_F(DesignCheckTest, A_section_that_nothing_is_wrong_with_gives_no_finding) {
  Add("Z", "Z14012", 6000);
  EXPECT_EQ(Found(), Texts{});
}

TEST_F(DesignCheckTest, A_hole_that_touches_the_end_passes_and_one_a_millimetre_on_doesnt) {
  // 18 mm: 9 to either side, on a web without practice of ends.
  TheRules.at(RowOf(DesignRule::EndDistance)).Used = false;
  Item& item = Add("Z", "Z14012", 6000);
  AddHoles(item, {MakeHole(9, 18), MakeHole(5991, 18)});
  EXPECT_EQ(Found(), Texts{});
  item.Holes.At(2).XPos = 8;
  item.Holes.At(3).XPos = 5992;
  EXPECT_EQ(Found(),
            (Texts{"P1 at 8 mm: 18 mm hole reaches beyond the left-hand end (9 to 5991 mm; the "
                   "section)",
                   "P1 at 5992 mm: 18 mm hole reaches beyond the right-hand end (9 to 5991 mm; the "
                   "section)"}));
}

}  // namespace

}  // namespace orvane
