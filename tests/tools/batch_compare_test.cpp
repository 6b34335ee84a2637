// Two jobs compared.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/companion.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::JobOf;
using test::Outcome;
using test::Purlin;
using test::SectionLines;
using test::SleeveTail;

class BatchCompare : public test::CompanionTest {
 protected:
  static std::vector<std::string> Section(const std::string& mark, const std::string& length) {
    return SectionLines(mark, "Z", "Z20015", length, " 5 ", "Pair");
  }
};

TEST_F(BatchCompare, Equal_jobs_end_with_0_and_no_line) {
  File("old.ovd", JobOf({Purlin(), Section("P2", " 3000 ")}, SleeveTail()));
  File("new.ovd", JobOf({Section("P2", " 3000 "), Purlin()}, SleeveTail()));
  const Outcome outcome = Run({"--compare", "old.ovd", "new.ovd"});
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Err, "No difference\n");
  EXPECT_EQ(outcome.Code, 0);
}

TEST_F(BatchCompare, Different_jobs_end_with_5_and_a_line_for_each_field) {
  File("old.ovd",
       JobOf({Section("P1", " 6000 "), Section("P2", " 3000 "), Section("P3", " 900 ")}));
  File("new.ovd", JobOf({Section("P1", " 6500 "), Section("Q2", " 3000 "), Section("P4", " 800 ")},
                        SleeveTail()));
  const std::string before = BytesOf(Path("old.ovd"));
  const Outcome outcome = Run({"old.ovd", "--compare", "new.ovd"});
  EXPECT_EQ(outcome.Out,
            "section\tchanged\tP1\tLength\t6000\t6500\n"
            "section\trenamed\tQ2\tMark\tP2\tQ2\n"
            "section\tadded\tP4\t\t\tZ20015, 800 mm, 5 off\n"
            "section\tremoved\tP3\t\tZ20015, 900 mm, 5 off\t\n"
            "accessory\tadded\tSleeves S1\t\t\t10 off, Product Z20015\n");
  EXPECT_EQ(outcome.Err,
            "Different: 1 section added, 1 changed, 1 renamed, 1 removed; 1 accessory line\n");
  EXPECT_EQ(outcome.Code, 5);
  EXPECT_EQ(BytesOf(Path("old.ovd")), before);
}

TEST_F(BatchCompare, The_files_may_lie_anywhere_and_nothing_is_written) {
  File("a/job.ovd", JobOf({Purlin()}));
  File("b/job.ovd", JobOf({Purlin()}));
  EXPECT_EQ(Run({"--compare", "--out", "to", "a/job.ovd", "b/job.ovd"}).Code, 0);
  EXPECT_FALSE(Exists("to"));
}

TEST_F(BatchCompare, A_job_that_cannot_be_read_is_told_by_its_name_and_nothing_is_compared) {
  File("old.ovd", JobOf({Purlin()}));
  File("half.ovd", JobOf({Purlin()}).substr(0, 60));
  const Outcome missing = Run({"--compare", "old.ovd", "none.ovd"});
  EXPECT_EQ(missing.Out, "");
  EXPECT_EQ(missing.Err, "none.ovd: File not found\n");
  EXPECT_EQ(missing.Code, 3);
  const Outcome half = Run({"--compare", "half.ovd", "old.ovd"});
  EXPECT_EQ(half.Err, "half.ovd: Input past end of file\n");
  EXPECT_EQ(half.Code, 3);
  File("folder/a.ovd", JobOf({Purlin()}));
  EXPECT_EQ(Run({"--compare", "old.ovd", "folder"}).Code, 3);
}

TEST_F(BatchCompare, A_job_that_was_cut_is_compared_only_where_that_is_allowed) {
  const std::string whole = JobOf({Purlin()}, SleeveTail());
  File("old.ovd", whole);
  // Within its one sleeve line.
  File("cut.ovd", whole.substr(0, whole.find("S1") + 2));
  const Outcome refused = Run({"--compare", "old.ovd", "cut.ovd"});
  EXPECT_EQ(refused.Err,
            "cut.ovd: not done, since it is cut off or damaged behind its sections; --allow-cut "
            "takes it as it is\n");
  EXPECT_EQ(refused.Code, 3);
  const Outcome allowed = Run({"--compare", "--allow-cut", "old.ovd", "cut.ovd"});
  EXPECT_EQ(allowed.Code, 5);
  EXPECT_EQ(allowed.Err.substr(0, 14), "cut.ovd: read,");
}

}  // namespace

}  // namespace orvane
