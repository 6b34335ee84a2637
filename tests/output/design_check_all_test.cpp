// The design check over everything that ships and over what chance makes: no pattern of the
// catalogue is flagged on a usual length, no hole that the dialog takes is said to be impossible,
// and no job, however odd, is too much for it.
#include <array>
#include <cstdint>
#include <random>

#include "core/section_families.h"
#include "holes/hole_list.h"
#include "project/rules/custom_holes.h"
#include "tests/output/design_check_fixture.h"

namespace orvane {

namespace {

using namespace test;

// Lengths that each family is ordered in, mm: from the shortest that its patterns are meant for.
constexpr PerFamily<std::array<std::int16_t, 8>> UsualLengths = {{
    {"Z", {1200, 2000, 3000, 4500, 6000, 7537, 9000, 15000}},
    {"E", {1200, 2000, 3000, 4500, 6000, 7537, 9000, 15000}},
    {"C", {1200, 2000, 3000, 4500, 6000, 7537, 9000, 15000}},
    {"V", {600, 900, 1200, 1537, 1800, 2400, 3000, 3050}},
    {"R", {600, 900, 1200, 1537, 1800, 2400, 3000, 3050}},
    {"T", {600, 900, 1200, 1537, 2400, 3000, 3600, 4000}},
}};
static_assert(NamesEachFamily(UsualLengths), "UsualLengths needs one row for each family");

TEST_F(DesignCheckTest, No_pattern_that_ships_is_flagged_on_any_product_of_a_usual_length) {
  int checked = 0;
  for (const SectionDim& dim : SectionDims) {
    for (const PunchPattern& pattern : PunchPatterns) {
      if (pattern.SectionType != dim.SectionType) continue;
      for (const std::int16_t length : *FactOf(UsualLengths, dim.SectionType)) {
        for (const std::int16_t sagBar : {std::int16_t{14}, std::int16_t{18}}) {
          Items.Clear();
          Item& item = Add(dim.SectionType, dim.Product, length);
          item.PatternName = pattern.Name;
          item.SagBarDia = pattern.HasSagBars == True ? sagBar : std::int16_t{0};
          ASSERT_EQ(Found(), Texts{}) << dim.Product << " " << pattern.Name << " " << length;
          ++checked;
        }
      }
    }
  }
  // By products and patterns: Z 35 by 23, C with its joists 47 by 14, E 15 by 6, R 1 by 4, V 1 by 3
  // and T 9 by 2 are 1578, each at eight lengths and two sag bars.
  EXPECT_EQ(checked, 1578 * 8 * 2);
}

// A generator with the same numbers on every machine.
class Chance {
 public:
  int Below(int count) { return static_cast<int>(numbers_() % static_cast<unsigned>(count)); }
  int From(int low, int high) { return low + Below(high - low + 1); }
  template <class Choices>
  auto One(const Choices& choices) {
    return choices.at(static_cast<std::size_t>(Below(static_cast<int>(choices.size()))));
  }

 private:
  std::mt19937 numbers_{20240305};
};

// What the dialog takes by absolute X keeps 19 mm for 18 and 15 for 14 from every other hole, and
// 24 or 18 from the ends, so that holes of one diameter neither overlap nor reach beyond. Other
// diameters, slots, distances off gauge, relative X and edits are held to less.
TEST_F(DesignCheckTest, No_hole_that_the_dialog_takes_by_absolute_X_is_said_to_be_impossible) {
  Chance chance;
  int taken = 0;
  for (int section = 0; section < 10000; ++section) {
    const SectionDim& dim = SectionDims.At(chance.From(1, SectionDims.UBound()));
    const int maximum = static_cast<int>(MaxDims.At(FamilyNumber(dim.SectionType)));
    Items.Clear();
    Add(dim.SectionType, dim.Product, static_cast<std::int16_t>(chance.From(20, maximum)));
    HoleEntry entry;
    entry.Is18mm = chance.Below(2) == 0;
    // Crowded at one end, so that many are refused and those that aren't stand close.
    const int room = chance.From(30, 1000);
    const std::vector<int> codes = HoleCodes(dim.SectionType);
    for (int attempt = 0; attempt < 30; ++attempt) {
      entry.Code = chance.One(codes);
      if (entry.Code == OffGaugeCode) continue;
      entry.CounterSunk = chance.Below(5) == 0;
      entry.XPos = std::to_string(chance.Below(room));
      if (chance.Below(4) == 0) entry.XPos += ".5";
      if (chance.Below(4) == 0)
        entry.XPos = std::to_string(Items.At(1).Length - chance.Below(room));
      const std::optional<std::int16_t> x = HolePosition(1, AddAbsolute, entry);
      if (!x) continue;
      AppendCustomHole(1, CustomHole(entry, *x));
      SortHoles(Items.At(1));
      ++taken;
    }
    for (const Finding& finding : CheckSection(OpenJob(), 1)) {
      ASSERT_EQ(finding.Grade, FindingGrade::Advice) << FindingLine(finding);
    }
  }
  EXPECT_GT(taken, 50000);
}

// Jobs that nobody would enter and a file could hold.
class OddJobs {
 public:
  Item Section() {
    Item item;
    item.Mark = Text();
    item.SectionType = chance_.One(letters_);
    item.Product = chance_.Below(4) == 0 ? Text() : Product();
    item.Length = Whole();
    item.Quantity = Whole();
    item.Pitch = Text();
    item.MitreLeft = Number();
    item.MitreRight = Number();
    item.SagBarDia = Whole();
    item.PatternName = Pattern();
    for (int hole = chance_.Below(12); hole > 0; --hole) item.Holes.Append(OneHole(item.Length));
    for (int notch = chance_.Below(5); notch > 0; --notch) {
      item.Notches.Append(MakeNotch(chance_.One(codes_), Number(), Number(), Number()));
    }
    return item;
  }
  AccLine2 Sleeve() {
    AccLine2 line = MakeLine2(chance_.From(-1, 9), Text(), 1, {});
    for (int value = chance_.Below(3); value > 0; --value) line.Values.Append(Product());
    return line;
  }

 private:
  Hole OneHole(int length) {
    Hole hole = MakeHole(Whole(), Number(), Number(), chance_.One(signs_));
    if (chance_.Below(2) == 0) hole.XPos = Int16(chance_.Below(std::max(1, length)));
    hole.Kind = chance_.Below(3) == 0 ? PatternKind : CustomKind;
    for (std::string* line : {&hole.BF, &hole.W1, &hole.W2, &hole.TF}) *line = chance_.One(lines_);
    return hole;
  }
  std::string Text() { return chance_.One(texts_); }
  std::string Product() { return SectionDims.At(chance_.From(1, SectionDims.UBound())).Product; }
  std::string Pattern() {
    if (chance_.Below(3) == 0) return std::string(CustomPattern);
    if (chance_.Below(4) == 0) return Text();
    return PunchPatterns.At(chance_.From(1, PunchPatterns.UBound())).Name;
  }
  std::int16_t Whole() { return Int16(chance_.One(wholes_)); }
  float Number() { return chance_.One(numbers_); }

  Chance chance_;
  const Texts letters_ = {"Z", "E", "C", "V", "R", "T", "", "X", "z"};
  const Texts texts_ = {"", " ", "P1", "P1 ", "y", "Custom", "\xC3\xA9", "1e999", "a,\"b\"\n"};
  const Texts lines_ = {"n", "n", "y", "", "0", "20", "-7", "1e999", "1e300", "abc", " 35 "};
  const Texts signs_ = {"", " ", "*", "x"};
  const Texts codes_ = {"TL1", "TR1", "T2", "L3", "R3", "BL1", "BR1", "B2", "BR2", ""};
  const std::vector<int> wholes_ = {-32768, -1, 0, 1, 14, 18, 40, 1000, 6000, 32767};
  const std::vector<float> numbers_ = {-3.4e38F, -90,   -45, -0.0F, 0,  0.001F, 1,      14,
                                       18,       22.5F, 60,  89.9F, 90, 500,    3.4e38F};
};

TEST_F(DesignCheckTest, Ten_thousand_odd_jobs_are_checked_without_an_error) {
  OddJobs odd;
  std::size_t told = 0;
  for (int job = 0; job < 10000; ++job) {
    Items.Clear();
    AccLines2.Clear();
    for (int row = job % 4; row > 0; --row) Items.Append(odd.Section());
    AccLines2.Append(odd.Sleeve());
    for (const Finding& finding : CheckJob(OpenJob())) {
      ASSERT_FALSE(finding.What.empty()) << finding.Rule;
      ASSERT_FALSE(FindingLine(finding).empty());
      ASSERT_GE(finding.Row, 0);
      ASSERT_LE(finding.Row, Items.UBound());
      ++told;
    }
  }
  EXPECT_GT(told, 20000U);
}

}  // namespace

}  // namespace orvane
