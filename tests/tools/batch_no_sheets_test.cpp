#include <gtest/gtest.h>

#include "tests/tools/companion.h"

namespace orvane {

namespace {

using test::JobOf;
using test::Outcome;
using test::Purlin;

class BatchWithoutSheets : public test::CompanionTest {};

}  // namespace

TEST_F(BatchWithoutSheets, Sheets_are_refused_and_nothing_is_done) {
  File("a.ovd", JobOf({Purlin()}));
  for (const char* option : {"--sheets", "--svg", "--accessory-sheets", "--summary"}) {
    const Outcome outcome = Run({"--cam", option, "a.ovd"});
    EXPECT_EQ(outcome.Code, 2);
    EXPECT_EQ(
        outcome.Err,
        "orvane-batch: --sheets, --svg, --accessory-sheets and --summary are not in this build\n"
        "Try orvane-batch --help.\n");
    EXPECT_FALSE(Exists("a.xov"));
  }
}

TEST_F(BatchWithoutSheets, A_cutting_list_is_figures_alone) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--cutting-list", "a.ovd"});
  EXPECT_EQ(outcome.Err, "Cutting list complete\n");
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_TRUE(Exists("a-cutting-list.csv"));
  EXPECT_FALSE(Exists("a-cutting-list.pdf"));
}

}  // namespace orvane
