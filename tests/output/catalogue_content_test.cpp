// The catalogue check beyond the rows: what the tables hold and can't work with, the catalogue that
// ships, and the lines in which findings are told.
#include <filesystem>

#include "core/catalogue_folder.h"
#include "core/program_folder.h"
#include "tests/output/catalogue_check_fixture.h"

namespace orvane {

namespace {

using namespace test;

class CatalogueContent : public SystemTest {
 protected:
  ~CatalogueContent() override { OfficeFolder.clear(); }
};

TEST_F(CatalogueContent, The_catalogue_that_ships_has_no_finding) {
  LoadShippedCatalogues();
  EXPECT_EQ(InShort(CheckCatalogueIn("")), Texts{});
}

TEST_F(CatalogueContent, The_one_product_of_a_family_may_come_under_its_name_alone) {
  Files files = CleanFiles();
  files.at("punch.csv") = Pattern + "V,Cleats,B0 B6,,\n";
  files.at("dims.csv") = Product + "V,Vcr,100,100,0,1.6,20,20,30,40,30,2.88,60,3\n";
  EXPECT_EQ(InShort(FindingsOf(files)), Texts{"dims.csv 0:0 fixed-product-missing"});
  files.at("dims.csv") = Product + "V,VCR,100,100,0,1.6,20,20,30,40,30,2.88,60,3\n";
  EXPECT_EQ(InShort(FindingsOf(files)), Texts{});
}

TEST_F(CatalogueContent, Each_family_needs_the_gauges_that_its_holes_lie_at) {
  // A cleader rail has one row, 50 mm from its bottom; a top hat one in each lip.
  const std::string rail = "R,CLR,120,0,60,1.6,0,0,0,0,50,2.22,60,3\n";
  const std::string hat = "T,T1,50,50,50,1,30,30,15,0,0,1.58,40,3\n";
  EXPECT_EQ(InShort(FindingsWith("dims.csv", Product + rail + hat)), Texts{});
  EXPECT_EQ(
      InShort(FindingsWith("dims.csv", Product + "R,CLR,120,0,60,1.6,0,0,50,50,0,2.22,60,3\n"
                                                 "T,T1,50,50,50,1,30,30,0,15,15,1.58,40,3\n")),
      (Texts{"dims.csv 2:11 product-without-gauge", "dims.csv 3:9 product-without-gauge"}));
}

TEST_F(CatalogueContent, The_S_of_a_name_counts_in_its_first_row_alone) {
  const std::vector<CatalogueFinding> findings =
      FindingsWith("punch.csv", "C,Shared,B0 B6,,\nZ,Shared,B0 D3 B6,S,\n");
  ASSERT_EQ(InShort(findings), Texts{"punch.csv 2:4 sag-bars-without-s"});
  EXPECT_EQ(findings[0].What,
            "Shared has codes of sag bars, but its S doesn't count, as row 1 has the name without "
            "one: their holes have no diameter");
}

TEST_F(CatalogueContent, Holes_coincide_where_two_stand_at_one_place_of_one_line) {
  // D3 and H3 both stand at half the length and share W1; C3's pair is 35 mm off it. G3 is on the
  // flange alone, where D3 isn't.
  const std::vector<CatalogueFinding> findings =
      FindingsWith("punch.csv", "Z,Twice,B0 D3 H3 B6,S,\n");
  ASSERT_EQ(InShort(findings), Texts{"punch.csv 1:3 holes-coincide"});
  EXPECT_EQ(findings[0].What,
            "Two holes of Twice lie on each other at 750 mm on W1, Z1 1500 mm long");
  EXPECT_EQ(InShort(FindingsWith("punch.csv", "Z,Apart,B0 D3 C3 G3 B6,S,\n")), Texts{});
}

TEST_F(CatalogueContent, An_accessory_at_another_place_is_told_by_its_name_and_by_its_columns) {
  // Row 8, the third of accs2.csv, is the VCR assembly with nine columns; here it is the fourth.
  const std::string one = Type2(3);
  std::string text = one + "A,VCR Assembly,None,60,0,30,VCR\nP,a\nP,b\nP,c\n" + Type2(12);
  EXPECT_EQ(InShort(FindingsWith("accs2.csv", text)), Texts{"accs2.csv 25:2 row-counted-on"});
  // Six columns of its own make eight.
  text = Type2(2) + Type2(1, 6) + Type2(13);
  EXPECT_EQ(InShort(FindingsWith("accs2.csv", text)), Texts{"accs2.csv 17:0 row-counted-on"});
}

TEST_F(CatalogueContent, The_cleader_rails_picture_is_asked_for_where_there_are_such_rails) {
  Files files = CleanFiles();
  files.at("punch.csv") = Pattern + "R,Slotted,S0 S6,,\n";
  files.at("dims.csv") = Product + "R,CLR,120,0,60,1.6,0,0,0,0,50,2.22,60,3\n";
  EXPECT_EQ(InShort(FindingsOf(files)), Texts{});
  const auto none = [](std::string_view name) -> std::string { return std::string(name); };
  const auto read = [&](std::string_view name) -> std::string {
    if (name == "\\check.csv") throw RuntimeError(Failure::FileNotFound);
    return *files.at(std::string(name.substr(1)));
  };
  EXPECT_EQ(InShort(CheckCatalogue({read, none})), Texts{"Drawings 0:0 picture-missing"});
}

TEST_F(CatalogueContent, An_offices_folder_is_checked_with_the_programs_files_for_what_it_lacks) {
  LoadShippedCatalogues();
  std::filesystem::create_directories(TempPath("office"));
  TempFile("office/punch.csv", "Z,Butt,A0 A6\nZ,Single,B0 B6,,\n");
  TempFile("office/accs1.csv", "nothing\n");  // without accs2.csv it doesn't count
  const std::vector<CatalogueFinding> findings = CheckCatalogueIn(TempPath("office"));
  EXPECT_EQ(InShort(findings), Texts{"punch.csv 1:3 row-swallows-next"});
  EXPECT_EQ(OfficeFolder, "");
}

TEST_F(CatalogueContent, A_line_tells_file_row_column_grade_rule_and_what) {
  EXPECT_EQ(CatalogueFindingsText(FindingsWith("punch.csv", "Z,Butt,A0 A1 A6,x,\n")),
            "punch.csv\t1\t3\tfault\tunknown-code\t\"A1\" is no hole code: it makes no hole\n"
            "punch.csv\t1\t4\tadvice\tsag-bar-cell\t\"x\" isn't S: the pattern has no choice of "
            "sag bars\n");
  const std::vector<CatalogueFinding> missing = FindingsWith("dims.csv", std::nullopt);
  EXPECT_EQ(CatalogueFindingsText(missing),
            "dims.csv\t\t\tfault\tfile-missing\tThe file can't be read: File not found\n");
  EXPECT_EQ(PlaceText(missing.at(0)), "");
  EXPECT_EQ(FaultsIn(missing), 1);
}

}  // namespace

}  // namespace orvane
