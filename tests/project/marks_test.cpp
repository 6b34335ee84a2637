// Marks counted up as detailers do.
#include "project/marks.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace orvane {
namespace {

TEST(Marks, The_last_group_of_digits_goes_up_and_keeps_its_width) {
  EXPECT_EQ(MarkBehind("P1"), "P2");
  EXPECT_EQ(MarkBehind("P09"), "P10");
  EXPECT_EQ(MarkBehind("P99"), "P100");
  EXPECT_EQ(MarkBehind("P009"), "P010");
  EXPECT_EQ(MarkBehind("12"), "13");
  EXPECT_EQ(MarkBehind("L2-P7"), "L2-P8");
  EXPECT_EQ(MarkBehind("P1-A"), "P2-A");
  EXPECT_EQ(MarkBehind("P99999999999999999999"), "P100000000000000000000");
}

TEST(Marks, Without_digits_it_is_the_last_letters) {
  EXPECT_EQ(MarkBehind("EB-A"), "EB-B");
  EXPECT_EQ(MarkBehind("Z"), "AA");
  EXPECT_EQ(MarkBehind("EB-Z"), "EB-AA");
  EXPECT_EQ(MarkBehind("AZ"), "BA");
  EXPECT_EQ(MarkBehind("ZZ"), "AAA");
  EXPECT_EQ(MarkBehind("eb-z"), "eb-aa");
  EXPECT_EQ(MarkBehind("A-"), "B-");
}

TEST(Marks, What_has_neither_has_no_next) {
  EXPECT_EQ(MarkBehind(""), "");
  EXPECT_EQ(MarkBehind("-"), "");
  EXPECT_EQ(MarkBehind("\xC3\xA9"), "");
  EXPECT_EQ(NextFreeMark("-", [](const std::string&) { return false; }), "");
}

TEST(Marks, It_goes_on_to_the_first_that_is_free) {
  const std::set<std::string> taken = {"P2", "P3", "P5"};
  const auto isFree = [&](const std::string& mark) { return taken.count(mark) == 0; };
  EXPECT_EQ(NextFreeMark("P1", isFree), "P4");
  EXPECT_EQ(NextFreeMark("P4", isFree), "P6");
  EXPECT_EQ(NextFreeMark("Q", isFree), "R");
}

}  // namespace
}  // namespace orvane
