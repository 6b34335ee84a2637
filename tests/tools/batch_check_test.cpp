// Jobs checked before they are cut.
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

// The catalogue's pattern "Pair" is two holes of 18 mm, 35 to either side of the middle: on 80 mm
// they stand at 5 and 75.
class BatchCheck : public test::CompanionTest {
 protected:
  static std::vector<std::string> Section(const std::string& mark, const std::string& length) {
    return SectionLines(mark, "Z", "Z20015", length, " 5 ", "Pair");
  }
  const std::string TooLong =
      "\tcan't be made\tpattern-too-long\t5 mm\t\tpattern Pair puts 2 holes beyond the ends\ta "
      "longer "
      "section\tthe section\t\n";
};

TEST_F(BatchCheck, A_job_that_nothing_is_wrong_with_ends_with_0_and_no_line) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--check", "a.ovd"});
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Err, "Check complete: nothing is found\n");
  EXPECT_EQ(outcome.Code, 0);
}

TEST_F(BatchCheck, What_cant_be_made_is_told_and_ends_with_4) {
  File("a.ovd", JobOf({Section("P1", " 80 "), Section("P2", " 3000 ")}));
  const Outcome outcome = Run({"--check", "--out", "to", "a.ovd"});
  EXPECT_EQ(outcome.Out, "P1" + TooLong);
  EXPECT_EQ(outcome.Err, "Check complete: 1 section can't be made\n");
  EXPECT_EQ(outcome.Code, 4);
  EXPECT_FALSE(Exists("to"));
}

TEST_F(BatchCheck, What_is_worth_a_look_alone_ends_with_0) {
  File("a.ovd", JobOf({Section("P1", " 3000 "), Section("P2", " 3000 ")}));
  const Outcome outcome = Run({"--check", "a.ovd"});
  EXPECT_EQ(
      outcome.Out,
      "P2\tadvice\tsections-alike\t\t\tthe same as P1 but for mark and quantity\tone mark for "
      "both\tthe job\t\n");
  EXPECT_EQ(outcome.Err, "Check complete: 1 finding\n");
  EXPECT_EQ(outcome.Code, 0);
}

TEST_F(BatchCheck, Of_several_jobs_each_line_begins_with_its_job_whoever_works_on_it) {
  File("a.ovd", JobOf({Section("P1", " 80 ")}));
  File("b.ovd", JobOf({Purlin()}));
  File("c.ovd", JobOf({Section("P9", " 80 ")}));
  const Outcome one = Run({"--check", "a.ovd", "b.ovd", "c.ovd"});
  EXPECT_EQ(one.Out, "a.ovd\tP1" + TooLong + "c.ovd\tP9" + TooLong);
  EXPECT_EQ(one.Code, 4);
  const Outcome several = Run({"--check", "--jobs", "2", "a.ovd", "b.ovd", "c.ovd"});
  EXPECT_EQ(several.Out, one.Out);
  EXPECT_EQ(several.Err, one.Err);
  EXPECT_EQ(several.Code, 4);
}

TEST_F(BatchCheck, The_file_holds_the_same_as_a_table) {
  File("a.ovd", JobOf({Section("P1", " 80 ")}));
  const Outcome outcome = Run({"--check-csv", "--out", "to", "a.ovd"});
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Code, 4);
  EXPECT_EQ(
      BytesOf(Path("to/a-check.csv")),
      "Mark,Grade,Rule,Place,Line,What,Limit,Source,Accepted\r\n"
      "P1,can't be made,pattern-too-long,5 mm,,pattern Pair puts 2 holes beyond the ends,a longer "
      "section,the section,\r\n");
}

TEST_F(BatchCheck, The_export_counts_them_in_a_line_and_ends_with_0) {
  File("a.ovd", JobOf({Section("P1", " 80 ")}));
  const Outcome outcome = Run({"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Err,
            "CAM export complete\n" + Path("a.xov") + "\n1 section can't be made: see Check\n");
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(Run({"--cam", "--check", "a.ovd"}).Code, 4);
}

TEST_F(BatchCheck, The_catalogues_check_csv_rules_and_a_faulty_one_ends_the_run) {
  File("a.ovd", JobOf({Section("P1", " 80 ")}));
  TempFile("catalogue/check.csv", "R,pattern-too-long,N,,\r\nR,hole-beyond-end,N,,\r\n");
  EXPECT_EQ(Run({"--check", "a.ovd"}).Code, 0);
  TempFile("catalogue/check.csv", "R,pattern-too-log,N,,\r\n");
  const Outcome faulty = Run({"--check", "a.ovd"});
  EXPECT_EQ(faulty.Code, 3);
  EXPECT_EQ(faulty.Err, "Orvane Detailing System\nError loading data from " + catalogue +
                            "/check.csv\nThere is no rule pattern-too-log (row 1, column 2)\n");
}

}  // namespace

}  // namespace orvane
