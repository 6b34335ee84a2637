// What the export's last message says of sections that can't be made.
#include "output/design_accepted.h"
#include "output/design_check.h"
#include "tests/output/export_fixture.h"

namespace orvane {

namespace {

using namespace test;

class ExportCheckTest : public ExportRunTest {
 protected:
  ExportCheckTest() { desktop.DataFolder = TempPath("data"); }
  ~ExportCheckTest() override { KeepAcceptedIn(""); }

  // Sections C1, C2, ... whose hole reaches beyond the end.
  static void AddFaulty(int count) {
    for (int section = 1; section <= count; ++section) {
      Item item =
          MakeItem("C", "C" + std::to_string(section), static_cast<std::int16_t>(900 + section));
      AddHoles(item, {MakeHole(5, 18), MakeHole(4, 18)});
      Items.Append(item);
    }
  }

  std::string Last() {
    EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
    EXPECT_EQ(trace.size(), 2U);  // the file dialog and the message: nothing is asked
    return trace.back();
  }
};

TEST_F(ExportCheckTest, A_section_that_cant_be_made_is_told_in_a_line_of_the_last_message) {
  AddFaulty(1);
  EXPECT_EQ(Last(), Complete({"a.xov"}) + "\r1 section can't be made: see Check");
}

TEST_F(ExportCheckTest, Several_are_counted_each_once_whatever_is_found_of_them) {
  AddFaulty(3);
  AddChannel();
  Items.At(4).Mark = "C4";
  EXPECT_EQ(Last(), Complete({"a.xov"}) + "\r3 sections can't be made: see Check");
}

TEST_F(ExportCheckTest, A_mark_that_stands_twice_counts_at_both_sections) {
  AddChannel();
  AddChannel();
  EXPECT_EQ(Last(), Complete({"a.xov"}) + "\r2 sections can't be made: see Check");
}

TEST_F(ExportCheckTest, What_is_only_worth_a_look_is_no_line) {
  AddChannel();  // without holes
  ASSERT_FALSE(CheckJob(OpenJob()).empty());
  EXPECT_EQ(Last(), Complete({"a.xov"}));
}

TEST_F(ExportCheckTest, What_was_accepted_doesnt_count) {
  AddFaulty(2);
  KeepAcceptedIn(TempPath("data"));
  for (const Finding& finding : CheckSection(OpenJob(), 1)) {
    AcceptFinding(OpenJob(), finding, "cut by hand");
  }
  EXPECT_EQ(Last(), Complete({"a.xov"}) + "\r1 section can't be made: see Check");
}

TEST_F(ExportCheckTest, The_file_is_the_same_with_the_line_and_without) {
  AddFaulty(1);
  Last();
  const std::string with = BytesOf(TempPath("a.xov"));
  TheRules.at(RowOf(DesignRule::HoleBeyondEnd)).Used = false;
  TheRules.at(RowOf(DesignRule::HolesOverlap)).Used = false;
  EXPECT_EQ(Last(), Complete({"a.xov"}));
  TheRules = ShippedRules();
  EXPECT_EQ(BytesOf(TempPath("a.xov")), with);
}

}  // namespace

}  // namespace orvane
