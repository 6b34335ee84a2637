// Lists of sections made into jobs, and jobs written as lists.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/companion.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::CreatedMoment;
using test::JobOf;
using test::Outcome;
using test::Purlin;

class BatchImport : public test::CompanionTest {
 protected:
  Outcome Import(const std::string& list, const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments = {"--created", CreatedMoment, "--import",
                                          list,        "--to",        "new.ovd"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Run(arguments);
  }
};

const std::string Headings = "Mark,Product,Length,Qty,Notes,Punching\n";

TEST_F(BatchImport, A_list_becomes_the_job_that_would_have_been_typed) {
  File("a.ovd", JobOf({Purlin()}));
  ASSERT_EQ(Run({"--section-list", "--resave", "typed.ovd", "a.ovd"}).Code, 0);
  const Outcome outcome = Import("a-sections.csv");
  EXPECT_EQ(outcome.Err, "1 section imported\n");
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Out, "");
  // The job holds what its list says, and makes the same file for the factory.
  ASSERT_EQ(Run({"--section-list", "--cam", "--created", CreatedMoment, "new.ovd"}).Code, 0);
  ASSERT_EQ(Run({"--cam", "--created", CreatedMoment, "typed.ovd"}).Code, 0);
  EXPECT_EQ(BytesOf(Path("new-sections.csv")), BytesOf(Path("a-sections.csv")));
  // A list has no project details.
  const auto sections = [&](const char* file) {
    const std::string bytes = BytesOf(Path(file));
    return bytes.substr(bytes.find("PURLIN"));
  };
  EXPECT_EQ(sections("new.xov"), sections("typed.xov"));
}

TEST_F(BatchImport, A_list_is_written_beside_the_other_results) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--section-list", "--out", "to", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "Section list complete\n");
  EXPECT_EQ(BytesOf(Path("to/a-sections.csv")),
            "\xEF\xBB\xBF"
            "Mark,Product,Length,Qty,Notes,Punching,Sag bars,Pitch,Mitre left,Mitre right\r\n"
            "P1,Z20015,6000,5,,Pair,,,0.0,0.0\r\n");
}

TEST_F(BatchImport, Each_refused_row_is_told_and_nothing_is_written) {
  File("list.csv", Headings + "P1,Z20015,6000,4,,\nP2,Z20016,6000,4,,\n\nP3,Z20015,6 m,4,,\n" +
                       "P1,Z20015,6000,4,,\nP4,Z20015,\"6,000\",4,,\n");
  const Outcome outcome = Import("list.csv");
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err,
            "list.csv: row 3: Product \"Z20016\": Not in the list; nearest: Z20015\n"
            "list.csv: row 5: Length \"6 m\": Metres aren't taken here: in millimetres it is 6000\n"
            "list.csv: row 6: Mark \"P1\": Error - Duplicate Mark\n"
            "list.csv: row 7: Length \"6,000\": It may be thousands or a fraction\n"
            "list.csv: 4 rows refused, nothing written; --skip-refused takes the others\n");
  EXPECT_FALSE(Exists("new.ovd"));

  const Outcome skipping = Import("list.csv", {"--skip-refused"});
  EXPECT_EQ(skipping.Code, 0);
  EXPECT_NE(skipping.Err.find("1 section imported, 4 rows left out\n"), std::string::npos);
  EXPECT_NE(skipping.Err.find("row 7"), std::string::npos);
  EXPECT_TRUE(Exists("new.ovd"));
}

TEST_F(BatchImport, Columns_that_are_none_of_ours_are_told) {
  File("list.csv", "Mark;Weight;Product;Colour\nP1;12,5;Z20015;red\n");
  const Outcome outcome = Import("list.csv");
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "Columns that are left out: Weight, Colour\n1 section imported\n");
}

TEST_F(BatchImport, A_job_that_is_there_is_written_over_only_where_it_is_said) {
  File("list.csv", Headings + "P1,Z20015,6000,4,,\n");
  const std::string former = JobOf({Purlin()});
  File("new.ovd", former);
  const Outcome refused = Import("list.csv");
  EXPECT_EQ(refused.Code, 2);
  EXPECT_EQ(refused.Err,
            "orvane-batch: new.ovd is there already; --replace writes over it\n"
            "Try orvane-batch --help.\n");
  EXPECT_EQ(BytesOf(Path("new.ovd")), former);
  EXPECT_EQ(Import("list.csv", {"--replace"}).Code, 0);
  EXPECT_NE(BytesOf(Path("new.ovd")), former);
  EXPECT_EQ(BytesOf(Path("new.ovd.bak")), former);
}

TEST_F(BatchImport, What_it_would_destroy_is_kept) {
  const std::string list = Headings + "P1,Z20015,6000,4,,\n";
  File("list.csv", list);
  for (const std::string target : {"list.csv", "../catalogue/dims.csv"}) {
    const Outcome outcome = Run({"--import", "list.csv", "--to", target, "--replace"});
    EXPECT_EQ(outcome.Code, 2) << target;
    EXPECT_EQ(outcome.Err.rfind("orvane-batch: --to would overwrite ", 0), 0U) << outcome.Err;
  }
  EXPECT_EQ(BytesOf(Path("list.csv")), list);
  File("job.ovd.bak", list);
  EXPECT_EQ(Run({"--import", "job.ovd.bak", "--to", "job.ovd"}).Code, 2);
}

TEST_F(BatchImport, A_list_that_can_not_be_read_or_holds_nothing_ends_with_3) {
  File("empty.csv", Headings);
  EXPECT_EQ(Import("empty.csv").Err, "empty.csv: there are no sections in it\n");
  EXPECT_EQ(Import("empty.csv").Code, 3);
  File("open.csv", "Mark,Product\n\"P1,Z20015\n");
  EXPECT_EQ(Import("open.csv").Err, "open.csv: A quote in row 2 is not closed\n");
  EXPECT_EQ(Import("none.csv").Err, "none.csv: File not found\n");
  File("refused.csv", Headings + "P1,oops,6000,4,,\n");
  const Outcome outcome = Import("refused.csv", {"--skip-refused"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_FALSE(Exists("new.ovd"));
}

}  // namespace

}  // namespace orvane
