// The catalogue check, rule by rule: a catalogue that just fails and one that just passes.
#include <set>

#include "core/model.h"
#include "output/design_check_rules.h"
#include "tests/output/catalogue_check_fixture.h"

namespace orvane {

namespace {

using namespace test;
using namespace std::string_literals;

class CatalogueCheck : public SystemTest {};

// One rule: a text of that file that breaks it alone, or with what else is told by hand, and the
// text next to it that breaks none.
struct Case {
  CatalogueRule Rule;
  std::string File;
  std::optional<std::string> Fails;
  Texts Found;
  std::optional<std::string> Passes;
};

// The sizes of Product from a column on, behind others in front.
std::string Sized(const std::string& front, int from) {
  std::size_t at = 0;
  for (int column = 1; column < from; ++column) at = Product.find(',', at) + 1;
  return front + Product.substr(at);
}

std::vector<Case> Cases() {
  const std::string bare = Product.substr(0, Product.size() - 1);
  return {
      {CatalogueRule::FileMissing,
       "dims.csv",
       std::nullopt,
       {"dims.csv 0:0 file-missing"},
       Product},
      {CatalogueRule::FileBroken,
       "punch.csv",
       "Z,Butt,A0 A6",
       {"punch.csv 1:0 file-broken-off"},
       "Z,Butt,A0 A6,,"},
      {CatalogueRule::Utf16,
       "dims.csv",
       "Z\0,\0Z\0001\0"s,
       {"dims.csv 0:0 utf-16"},
       "\xEF\xBB\xBF" + Product},
      {CatalogueRule::Semicolons,
       "punch.csv",
       Pattern + "Z;Single;B0 B6;;\n",
       {"punch.csv 2:0 semicolons"},
       Pattern + "Zone; a remark\n"},
      {CatalogueRule::Tabs,
       "punch.csv",
       Pattern + "\"Z\"\tSingle\tB0 B6\t\t\n",
       {"punch.csv 2:0 tabs"},
       Pattern + "Zone\tremark\n"},
      {CatalogueRule::RowPassedOver,
       "dims.csv",
       Product + Sized("X,X1,", 3),
       {"dims.csv 2:1 row-passed-over"},
       Product + "X,X1 is no more,,140,65\n"},
      {CatalogueRule::RowWithoutName,
       "dims.csv",
       Product + "C, ,140\n",
       {"dims.csv 2:2 row-without-name"},
       Product + " ,,,140\n"},
      {CatalogueRule::RowSwallowsNext,
       "punch.csv",
       "Z,Butt,A0 A6\nZ,Single,B0 B6,,\n",
       {"punch.csv 1:3 row-swallows-next"},
       "Z,Butt,A0 A6,\nZ,Single,B0 B6,,\n"},
      {CatalogueRule::ShortRow,
       "punch.csv",
       "Z,Butt,A0 A6\nRemark,,\n",
       {"punch.csv 1:3 row-short"},
       "Z,Butt,A0 A6,\nRemark,,\n"},
      {CatalogueRule::CellOverLines,
       "punch.csv",
       "Z,\"Butt,A0 A6,,\nZ,Single\",B0 B6,,\n",
       {"punch.csv 1:0 cell-over-lines"},
       "Z,\"Butt, long\",A0 A6,,\n"},
      {CatalogueRule::OutOfStep,
       "dims.csv",
       bare + ",C,\n",
       {"dims.csv 1:15 row-out-of-step", "dims.csv 1:16 row-without-name"},
       bare + ",Note,\n"},
      {CatalogueRule::TagNotExact,
       "dims.csv",
       Product + Sized("z,Z2,", 3),
       {"dims.csv 2:1 letter-not-exact"},
       Product + Sized(" Z,Z2,", 3)},
      {CatalogueRule::NumberCut,
       "dims.csv",
       Sized("Z,Z1,140mm,", 4),
       {"dims.csv 1:3 number-cut"},
       Sized("Z,Z1, 140.0 ,", 4)},
      {CatalogueRule::NumberEmpty,
       "dims.csv",
       Sized("Z,Z1,140,65,60, ,", 7),
       {"dims.csv 1:6 number-empty"},
       Sized("Z,Z1,140,65,60,0,", 7)},
      {CatalogueRule::StarLost,
       "punch.csv",
       "Z,Butt,A0 A6,,\"*\"\n",
       {"punch.csv 1:5 star-lost"},
       "Z,Butt,A0 A6,, * \n"},
      {CatalogueRule::StarCell,
       "punch.csv",
       "Z,Butt,A0 A6,,x\n",
       {"punch.csv 1:5 star-cell"},
       "Z,Butt,A0 A6,,,,\n"},
      {CatalogueRule::SagCell,
       "punch.csv",
       "Z,Butt,A0 A6,Y,\n",
       {"punch.csv 1:4 sag-bar-cell"},
       "Z,Butt,A0 A6, ,\n"},
      {CatalogueRule::YesNo,
       "accs1.csv",
       "A,One,None,60,0,30,Y \nI,a,a\n" + Type1(4),
       {"accs1.csv 1:7 yes-or-no"},
       "A,One,None,60,0,30,y\nI,a,a\n" + Type1(4)},
      {CatalogueRule::RuleTwice,
       "check.csv",
       "R,pitch,Y,2,\nR,pitch,N,2,\n",
       {"check.csv 2:2 rule-twice"},
       "R,pitch,Y,2,\nR,no-holes,N,,\n"},
      {CatalogueRule::ProductTwice,
       "dims.csv",
       Product + Sized("C,Z1,", 3),
       {"dims.csv 2:2 product-twice"},
       Product + Sized("C,z1,", 3)},
      {CatalogueRule::FixedProduct,
       "punch.csv",
       Pattern + "V,Cleats,B0 B6,,\n",
       {"dims.csv 0:0 fixed-product-missing"},
       Pattern + "E,Cleats,B0 B6,,\n"},
      {CatalogueRule::WithoutDepth,
       "dims.csv",
       Sized("Z,Z1,0,", 4),
       {"dims.csv 1:3 product-without-depth"},
       Sized("Z,Z1,0.1,", 4)},
      {CatalogueRule::WithoutGauge,
       "dims.csv",
       Sized("Z,Z1,140,65,60,1.2,16,16,40,0,", 11),
       {"dims.csv 1:10 product-without-gauge"},
       Sized("Z,Z1,140,65,60,1.2,16,16,40,0.1,", 11)},
      {CatalogueRule::WithoutPair,
       "dims.csv",
       Sized("Z,Z1,140,65,60,1.2,16,16,40,60,40,2.69,0,", 14),
       {"dims.csv 1:13 product-without-pair"},
       Sized("Z,Z1,140,65,60,1.2,16,16,40,60,40,2.69,1,", 14)},
      {CatalogueRule::PatternTwice,
       "punch.csv",
       Pattern + "Z,Butt,B0 B6,,\n",
       {"punch.csv 2:2 pattern-twice"},
       Pattern + "E,Butt,B0 B6,,\n"},
      {CatalogueRule::UnknownCode,
       "punch.csv",
       "Z,Butt,A0 A1 A6,,\n",
       {"punch.csv 1:3 unknown-code"},
       "Z,Butt,A0-B6,,\n"},
      {CatalogueRule::SagBarsWithoutSize,
       "punch.csv",
       "Z,Butt,A0 H3 A6,,\n",
       {"punch.csv 1:4 sag-bars-without-s"},
       "Z,Butt,A0 H3 A6,S,\n"},
      {CatalogueRule::SagBarsNowhere,
       "punch.csv",
       "Z,Butt,A0 G3 A6,S,\n",
       {"punch.csv 1:4 s-without-sag-bars"},
       "Z,Butt,A0 E3 A6,S,\n"},
      // B0 and F0 both stand 32 mm from the left, on W1 and W2; F6 is at the other end.
      {CatalogueRule::HolesCoincide,
       "punch.csv",
       "Z,Butt,B0 F0,,\n",
       {"punch.csv 1:3 holes-coincide"},
       "Z,Butt,B0 F6,,\n"},
      {CatalogueRule::PictureMissing,
       "accs1.csv",
       "A,One,acc02,60,0,30,Y\nI,a,a\n" + Type1(4),
       {"accs1.csv 1:3 picture-missing"},
       "A,One,acc01,60,0,30,Y\nI,a,a\n" + Type1(4)},
      {CatalogueRule::RowCounted,
       "accs1.csv",
       Type1(4),
       {"accs1.csv 0:0 row-counted-on"},
       Type1(5)},
      {CatalogueRule::RowMissing, "accs2.csv", Type2(15), {"accs2.csv 0:0 row-missing"}, Type2(16)},
  };
}

TEST_F(CatalogueCheck, Each_rule_tells_the_catalogue_that_just_fails_and_not_its_neighbour) {
  std::set<CatalogueRule> seen;
  for (const Case& one : Cases()) {
    const std::string rule(CatalogueRules.at(RowOf(one.Rule)).Name);
    seen.insert(one.Rule);
    const std::vector<CatalogueFinding> findings = FindingsWith(one.File, one.Fails);
    EXPECT_EQ(InShort(findings), one.Found) << rule;
    for (const CatalogueFinding& finding : findings) EXPECT_FALSE(finding.What.empty()) << rule;
    EXPECT_EQ(InShort(FindingsWith(one.File, one.Passes)), Texts{}) << rule;
  }
  EXPECT_EQ(seen.size(), CatalogueRules.size());
}

// The trap of a spreadsheet that strips trailing commas: every second pattern is lost.
TEST_F(CatalogueCheck, Each_row_that_swallows_the_next_is_told_and_the_lost_row_is_named) {
  const std::vector<CatalogueFinding> findings = FindingsWith(
      "punch.csv", "Z,One,B0,\r\nZ,Two,B0\r\nZ,Three,B0,S\r\nZ,Four\r\n\r\nZ,Five,B0,,*\r\n");
  ASSERT_EQ(InShort(findings),
            (Texts{"punch.csv 2:3 row-swallows-next", "punch.csv 4:2 row-short"}));
  EXPECT_EQ(findings[0].What,
            "The row has 3 of 4 cells and takes the others from row 3, which is lost: put a comma "
            "behind it for each cell that is missing");
}

TEST_F(CatalogueCheck, A_short_product_throws_the_rows_below_out_of_step) {
  // 13 cells: the 14th is the Z of the next row, whose product is a tag then, and its rest goes.
  const std::string shortRow = "Z,Z0,140,65,60,1.2,16,16,40,60,40,2.69,60\n";
  EXPECT_EQ(InShort(FindingsWith("dims.csv", shortRow + Product + Product)),
            Texts{"dims.csv 1:13 row-swallows-next"});
  // The product's name is a letter: a row that begins in the second cell.
  const std::vector<CatalogueFinding> stepped =
      FindingsWith("dims.csv", shortRow + "Z,C,140,65,60,1.2,16,16,40,60,40,2.69,60,3,9\n");
  EXPECT_EQ(InShort(stepped),
            (Texts{"dims.csv 1:13 row-swallows-next", "dims.csv 2:2 row-out-of-step"}));
}

TEST_F(CatalogueCheck, A_star_that_a_spreadsheet_quotes_pads_or_moves_loses_the_countersinks) {
  for (const char* text : {"Z,Butt,A0 A6,,\"*\"\n", "Z,Butt,A0 A6,,*,\n", "Z,Butt,A0 A6,,,*\n",
                           "Z,Butt,A0 A6,*\n", "Z,Butt,A0 A6,,**\n"}) {
    const std::vector<CatalogueFinding> findings = FindingsWith("punch.csv", text);
    ASSERT_EQ(findings.size(), 1U) << text;
    EXPECT_EQ(findings[0].Rule, CatalogueRule::StarLost) << text;
  }
}

TEST_F(CatalogueCheck, What_stops_a_reader_is_told_at_its_cell_and_the_file_behind_it_is_not_read) {
  EXPECT_EQ(InShort(FindingsWith("accs1.csv", "A,One,None,wide,0,30,Y\n" + Type1(5))),
            Texts{"accs1.csv 1:4 file-broken-off"});
  EXPECT_EQ(InShort(FindingsWith("accs2.csv", "P,Product\n")),
            Texts{"accs2.csv 1:1 file-broken-off"});
  const std::vector<CatalogueFinding> findings = FindingsWith("check.csv", "R,pitches,Y,2,\n");
  ASSERT_EQ(InShort(findings), Texts{"check.csv 1:2 file-broken-off"});
  EXPECT_EQ(findings[0].What,
            "There is no rule pitches: neither this row nor any below it is read");
}

TEST_F(CatalogueCheck, A_row_of_check_csv_without_its_tag_or_cells_is_told) {
  EXPECT_EQ(InShort(FindingsWith("check.csv", "pitch,pitch,N,2,\n,,\n")),
            Texts{"check.csv 1:1 row-passed-over"});
  EXPECT_EQ(InShort(FindingsWith("check.csv", "R,pitch,N,2\nR,no-holes,N,,\n")),
            Texts{"check.csv 1:4 row-swallows-next"});
}

TEST_F(CatalogueCheck, Leaves_tables_and_rules_as_they_were) {
  LoadShippedCatalogues();
  AccUsed.At(3) = True;
  TheRules.at(RowOf(DesignRule::NoHoles)).Used = false;
  const int dims = SectionDims.UBound();
  const int patterns = PunchPatterns.UBound();
  const int accessories = AccDefs.UBound();
  FindingsWith("check.csv", "R,pitch,N,2,\n");
  EXPECT_EQ(SectionDims.UBound(), dims);
  EXPECT_EQ(PunchPatterns.UBound(), patterns);
  EXPECT_EQ(AccDefs.UBound(), accessories);
  EXPECT_EQ(AccType1Count, 5);
  EXPECT_EQ(AccUsed.At(3), True);
  EXPECT_FALSE(TheRules.at(RowOf(DesignRule::NoHoles)).Used);
  EXPECT_TRUE(TheRules.at(RowOf(DesignRule::PitchDistance)).Used);
  EXPECT_TRUE(desktop.Boxes.empty());
  TheRules = ShippedRules();
}

}  // namespace

}  // namespace orvane
