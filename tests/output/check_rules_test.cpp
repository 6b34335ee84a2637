// check.csv: the file that ships, what an office writes in its own, and what is wrong with one.
#include <filesystem>

#include "core/program_folder.h"
#include "tests/output/design_check_fixture.h"

namespace orvane {

namespace {

using namespace test;

class CheckRulesTest : public DesignCheckTest {
 protected:
  // The one box that a reading has shown, behind the path.
  std::string FaultOf(const std::string& text) {
    const std::string path = TempFile("check.csv", text);
    EXPECT_FALSE(LoadCheckRules(path)) << text;
    EXPECT_EQ(desktop.Boxes.size(), 1U);
    if (desktop.Boxes.empty()) return "";
    const ShownBox box = desktop.Boxes.back();
    desktop.Boxes.clear();
    EXPECT_EQ(box.Title, "Orvane Detailing System");
    EXPECT_EQ(box.Sign, Icon::Stop);
    const std::string start = "Error loading data from " + path + "\r";
    EXPECT_EQ(box.Text.substr(0, start.size()), start);
    return box.Text.size() < start.size() ? "" : box.Text.substr(start.size());
  }
  bool Load(const std::string& text) { return LoadCheckRules(TempFile("check.csv", text)); }

  static const RuleInUse& Of(DesignRule rule) { return TheRules.at(RowOf(rule)); }
  static void ExpectShipped() {
    const RulesInUse shipped = ShippedRules();
    for (const DesignRuleRow& row : DesignRules) {
      const RuleInUse& inUse = Of(row.Rule);
      EXPECT_TRUE(inUse.Used) << row.Name;
      EXPECT_EQ(inUse.Times, shipped.at(RowOf(row.Rule)).Times) << row.Name;
      EXPECT_EQ(inUse.Source, shipped.at(RowOf(row.Rule)).Source) << row.Name;
    }
  }
};

TEST_F(CheckRulesTest, The_file_that_ships_names_every_rule_as_it_is_without_one) {
  ASSERT_TRUE(LoadCheckRules(ProgramPath(CheckFile)));
  EXPECT_TRUE(desktop.Boxes.empty());
  ExpectShipped();
  const std::string bytes = BytesOf(ProgramPath(CheckFile));
  for (const DesignRuleRow& row : DesignRules) {
    const std::string cells = "\nR," + std::string(row.Name) + ",Y,";
    EXPECT_NE(bytes.find(cells), std::string::npos) << row.Name;
    EXPECT_NE(bytes.find("," + std::string(row.What) + "\n"), std::string::npos) << row.Name;
  }
}

TEST_F(CheckRulesTest, Only_distances_have_figures_and_all_of_them_are_our_own) {
  for (const DesignRuleRow& row : DesignRules) {
    EXPECT_FALSE(row.What.empty());
    EXPECT_FALSE(row.Source.empty());
    EXPECT_EQ(row.Times > 0, row.Source == OwnPractice) << row.Name;
  }
  EXPECT_EQ(Of(DesignRule::EndDistance).Times, 1.5);
  EXPECT_EQ(Of(DesignRule::PitchDistance).Times, 2);
}

TEST_F(CheckRulesTest, Without_a_file_the_rules_are_as_they_ship_and_nothing_is_told) {
  ASSERT_TRUE(Load("R,pitch,N,3,\nend\n"));
  EXPECT_FALSE(Of(DesignRule::PitchDistance).Used);
  EXPECT_TRUE(LoadCheckRules(TempPath("nowhere.csv")));
  EXPECT_TRUE(LoadCheckRules(TempPath("nowhere") + "/check.csv"));
  EXPECT_TRUE(desktop.Boxes.empty());
  ExpectShipped();
}

TEST_F(CheckRulesTest, A_row_switches_a_rule_off_and_sets_a_distance_with_its_source) {
  ASSERT_TRUE(
      Load("Heading,Rule\r\n"
           "R,holes-overlap,N,,,\r\n"
           " r , end-distance ,y, 2.25 , Works standard 7 ,and more\r\n"
           "R,pitch,Y,0,\r\n"
           ",,,,\r\n"));
  EXPECT_FALSE(Of(DesignRule::HolesOverlap).Used);
  EXPECT_TRUE(Of(DesignRule::EndDistance).Used);
  EXPECT_EQ(Of(DesignRule::EndDistance).Times, 2.25);
  EXPECT_EQ(Of(DesignRule::EndDistance).Source, "Works standard 7");
  EXPECT_EQ(Of(DesignRule::PitchDistance).Times, 0);
  EXPECT_EQ(Of(DesignRule::PitchDistance).Source, "own practice");
  EXPECT_TRUE(Of(DesignRule::BendDistance).Used);  // not named, as it ships

  // 2.25 times 18 mm is 40.5 mm; overlaps and pitches aren't told.
  AddHoles(AddPurlin(), {OnLines(40, "nyyn"), OnLines(45, "nyyn")});
  EXPECT_EQ(Found(),
            Texts{"P1 at 40 mm: 18 mm hole is 40 mm from the left-hand end (at least 40.5 mm, "
                  "2.25 times the hole; Works standard 7)"});
}

TEST_F(CheckRulesTest, A_fault_is_told_by_row_and_column_and_the_rows_before_it_count) {
  EXPECT_EQ(FaultOf("R,pitch,N,3,\nR,pitches,Y,3,\n"),
            "There is no rule pitches (row 2, column 2)");
  EXPECT_FALSE(Of(DesignRule::PitchDistance).Used);
  EXPECT_EQ(FaultOf("R,pitch,yes,3,\n"), "Y or N must stand here (row 1, column 3)");
  EXPECT_TRUE(Of(DesignRule::PitchDistance).Used);
  EXPECT_EQ(FaultOf("R,pitch,,3,\n"), "Y or N must stand here (row 1, column 3)");
  EXPECT_EQ(FaultOf("R,pitch,Y,,\n"), "Type mismatch (row 1, column 4)");
  EXPECT_EQ(FaultOf("R,pitch,Y,\"2,5\",\n"), "Type mismatch (row 1, column 4)");
  EXPECT_EQ(FaultOf("R,pitch,Y,-1,\n"), "A number from 0 to 100 must stand here (row 1, column 4)");
  EXPECT_EQ(FaultOf("R,pitch,Y,101,\n"),
            "A number from 0 to 100 must stand here (row 1, column 4)");
  EXPECT_EQ(FaultOf("R,holes-overlap,Y,2,\n"),
            "This rule has no distance to be set (row 1, column 4)");
  EXPECT_EQ(FaultOf("R,pitch,Y\n"), "Input past end of file");
}

TEST_F(CheckRulesTest, A_folder_of_that_name_is_told) {
  std::filesystem::create_directory(TempPath("check.csv/").substr(0, TempPath("check.csv").size()));
  EXPECT_FALSE(LoadCheckRules(TempPath("check.csv")));
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_NE(desktop.Boxes.at(0).Text.find("Is a directory"), std::string::npos);
}

}  // namespace

}  // namespace orvane
