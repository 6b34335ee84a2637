// What is found in the open job while it is worked on: what is looked at at once, and what in its
// turn.
#include "output/job_findings.h"

#include <algorithm>

#include "output/design_accepted.h"
#include "tests/output/design_check_fixture.h"

namespace orvane {

namespace {

using namespace test;

class JobFindingsTest : public DesignCheckTest {
 protected:
  // Four purlins. The second and the fourth lack their quantity, the third any hole; the others
  // have one that is out of everything's way.
  JobFindingsTest() {
    for (int row = 1; row <= 4; ++row) {
      Item& item = AddPurlin();
      item.Length = Int16(5000 + row);
      if (row != 3) AddHoles(item, {OnLines(2000, "nyyn")});
      if (row % 2 == 0) item.Quantity = 0;
    }
  }

  Texts RulesOf(int row) { return Rules(findings_.Of(row)); }

  JobFindings findings_;
};

TEST_F(JobFindingsTest, The_whole_job_is_looked_at_a_slice_at_a_time) {
  findings_.StartAfresh();
  EXPECT_FALSE(findings_.IsDone());
  EXPECT_EQ(findings_.Counts(), FindingCounts{});
  EXPECT_FALSE(findings_.Step(2));
  EXPECT_EQ(findings_.Counts(), (FindingCounts{1, 0}));
  EXPECT_FALSE(findings_.IsDone());
  EXPECT_TRUE(findings_.Step(2));
  EXPECT_TRUE(findings_.IsDone());
  EXPECT_EQ(findings_.Counts(), (FindingCounts{2, 1}));
  EXPECT_EQ(Rules(findings_.All()),
            (Texts{"quantity-not-above-0", "no-holes", "quantity-not-above-0"}));
}

TEST_F(JobFindingsTest, A_section_that_is_asked_for_is_looked_at_before_its_turn) {
  EXPECT_EQ(RulesOf(4), (Texts{"quantity-not-above-0"}));
  EXPECT_EQ(findings_.Counts(), (FindingCounts{1, 0}));
  EXPECT_EQ(RulesOf(0), Texts{});
  EXPECT_EQ(RulesOf(5), Texts{});
}

TEST_F(JobFindingsTest, A_key_in_one_section_has_it_looked_at_at_once) {
  findings_.Finish();
  Items.At(2).Quantity = 3;
  EXPECT_TRUE(findings_.Follow({ChangeKind::Quantity, 2}));
  EXPECT_EQ(findings_.Counts(), (FindingCounts{1, 1}));
  EXPECT_EQ(RulesOf(2), Texts{});
  EXPECT_FALSE(findings_.IsDone());  // what shows beside the others isn't looked at yet
  EXPECT_TRUE(findings_.Step(0));
  EXPECT_TRUE(findings_.IsDone());
}

TEST_F(JobFindingsTest, What_shows_beside_the_others_comes_in_its_turn) {
  findings_.Finish();
  Items.At(1).Mark = "P3";
  findings_.Follow({ChangeKind::Mark, 1});
  EXPECT_EQ(RulesOf(1), Texts{});
  findings_.Finish();
  EXPECT_EQ(RulesOf(1), (Texts{"mark-twice"}));
  // What can't be made stands before the advice.
  EXPECT_EQ(RulesOf(3), (Texts{"mark-twice", "no-holes"}));
  EXPECT_EQ(findings_.Counts(), (FindingCounts{4, 1}));
  // A section is counted once, whatever it is by.
  Items.At(1).Quantity = 0;
  findings_.Follow({ChangeKind::Quantity, 1});
  findings_.Finish();
  EXPECT_EQ(findings_.Counts(), (FindingCounts{4, 1}));
}

TEST_F(JobFindingsTest, Rows_that_come_go_or_move_have_all_looked_at_again) {
  for (const ChangeKind kind : {ChangeKind::Delete, ChangeKind::Sort, ChangeKind::PasteSections,
                                ChangeKind::Undo, ChangeKind::OpenProject, ChangeKind::MaxDims}) {
    findings_.Finish();
    EXPECT_EQ(findings_.Counts(), (FindingCounts{2, 1}));
    EXPECT_TRUE(findings_.Follow({kind, 1}));
    EXPECT_FALSE(findings_.IsDone());
    EXPECT_EQ(findings_.Counts(), FindingCounts{});
  }
  // Rows that nobody told of too.
  findings_.Finish();
  Items.Clear();
  AddPurlin();
  EXPECT_EQ(RulesOf(1), (Texts{"no-holes"}));
  EXPECT_EQ(RulesOf(2), Texts{});
  findings_.Finish();
  EXPECT_EQ(findings_.Counts(), (FindingCounts{0, 1}));
}

TEST_F(JobFindingsTest, A_look_at_a_section_and_what_is_no_part_of_it_change_nothing) {
  findings_.Finish();
  for (const ChangeKind kind : {ChangeKind::ShowSection, ChangeKind::PrintAll, ChangeKind::Export,
                                ChangeKind::ProjectDetails, ChangeKind::ProjectReplaced}) {
    EXPECT_FALSE(findings_.Follow({kind, 0}));
    EXPECT_TRUE(findings_.IsDone());
  }
}

TEST_F(JobFindingsTest, What_is_accepted_is_not_counted_and_stands_last) {
  KeepAcceptedIn(TempPath("data"));
  Items.At(3).Quantity = 0;
  findings_.Finish();
  EXPECT_EQ(RulesOf(3), (Texts{"quantity-not-above-0", "no-holes"}));
  EXPECT_EQ(findings_.Counts(), (FindingCounts{3, 1}));
  AcceptFinding(OpenJob(), findings_.Of(3).front(), "to come");
  findings_.LookAgain(3);
  EXPECT_EQ(RulesOf(3), (Texts{"no-holes", "quantity-not-above-0"}));
  EXPECT_EQ(findings_.Counts(), (FindingCounts{2, 1}));
  EXPECT_EQ(OpenLine(findings_.Of(3)), "Consider: neither a pattern nor a hole");
  KeepAcceptedIn("");
}

TEST_F(JobFindingsTest, What_is_accepted_of_one_is_accepted_of_its_twin) {
  KeepAcceptedIn(TempPath("data"));
  Items.At(4) = Items.At(2);
  findings_.Finish();
  const auto words = [this](int row) {
    Texts accepted;
    for (const Finding& finding : findings_.Of(row)) {
      if (finding.Rule == "quantity-not-above-0") accepted.push_back(finding.Accepted);
    }
    return accepted;
  };
  const std::vector<Finding> found = findings_.Of(2);
  const auto quantity = std::find_if(found.begin(), found.end(), [](const Finding& finding) {
    return finding.Rule == "quantity-not-above-0";
  });
  ASSERT_NE(quantity, found.end());
  AcceptFinding(OpenJob(), *quantity, "to come");
  findings_.LookAgain(2);
  EXPECT_EQ(words(2), (Texts{"to come"}));
  EXPECT_EQ(words(4), (Texts{"to come"}));
  ForgetAcceptance(OpenJob(), *quantity);
  findings_.LookAgain(4);
  EXPECT_EQ(words(2), (Texts{""}));
  KeepAcceptedIn("");
}

TEST_F(JobFindingsTest, Until_all_are_looked_at_again_the_counts_are_not_the_jobs) {
  findings_.Finish();
  EXPECT_TRUE(findings_.AreAllLookedAt());
  AddPurlin();
  findings_.Follow({ChangeKind::AddSection, 5});
  EXPECT_FALSE(findings_.AreAllLookedAt());
  findings_.Follow({ChangeKind::Mark, 5});
  EXPECT_FALSE(findings_.AreAllLookedAt());
  findings_.Finish();
  EXPECT_TRUE(findings_.AreAllLookedAt());
}

TEST_F(JobFindingsTest, The_counts_are_told_in_a_line) {
  EXPECT_EQ(CountsLine({}), "Check: nothing open");
  EXPECT_EQ(CountsLine({2, 0}), "Check: 2 can't be made");
  EXPECT_EQ(CountsLine({0, 1}), "Check: 1 to consider");
  EXPECT_EQ(CountsLine({12, 3}), "Check: 12 can't be made, 3 to consider");
}

TEST_F(JobFindingsTest, The_worst_that_is_open_is_told_in_a_line) {
  EXPECT_EQ(OpenLine({}), "");
  Finding advice;
  advice.Grade = FindingGrade::Advice;
  advice.What = "neither a pattern nor a hole";
  EXPECT_EQ(OpenLine({advice}), "Consider: neither a pattern nor a hole");
  Finding fault;
  fault.Place = 5995;
  fault.What = "18 mm hole reaches beyond the right-hand end";
  EXPECT_EQ(OpenLine({advice, fault, advice}),
            "Can't be made: 18 mm hole reaches beyond the right-hand end, at 5995 mm (and 2 more)");
  fault.Accepted = "known";
  EXPECT_EQ(OpenLine({fault, advice}), "Consider: neither a pattern nor a hole");
  EXPECT_EQ(OpenLine({fault}), "");
}

}  // namespace
}  // namespace orvane
