// What has changed between two jobs, as it is printed.
#include "output/list_reports.h"
#include "project/job.h"
#include "tests/output/print_fixture.h"
#include "tests/support/golden.h"

namespace orvane {

namespace {

using namespace test;

class RevisionListTest : public PrintTest {};

}  // namespace

TEST_F(RevisionListTest, It_is_drawn_line_by_line) {
  CompanyName = "Hillside Steelwork";
  CompanyDetails = "Unit 4, Mill Lane";
  Item purlin = MakeItem("Z", "P1", 6000);
  AddHoles(purlin, {MakeHole(1500, 18)});
  Job before;
  before.Details = {"", "J1042", "Dunmore Farm", "", ""};
  before.Items.Append(purlin);
  before.Items.Append(MakeItem("Z", "P2", 3000));
  before.Items.Append(MakeItem("Z", "P3", 900));
  Job after = before;
  after.Details.at(2) = "Dunmore Farms";
  after.Items.At(1).Length = 6500;
  after.Items.At(1).Holes.At(1).SlotLength = 40;
  after.Items.At(2).Mark = "Q2";
  after.Items.At(3) = MakeItem("Z", "P4", 800);
  after.AccLines2.Append(MakeLine2(7, "A1", 3, {"1"}));
  PrintRevisionList(CompareJobs(ViewOf(before), ViewOf(after)), "issued.ovd", "shed.ovd");
  ExpectGolden("reports/revision-list.txt", Drawn());
  EXPECT_EQ(screen.Shown, 1);
  EXPECT_EQ(screen.ShownName, "revision list");
}

}  // namespace orvane
