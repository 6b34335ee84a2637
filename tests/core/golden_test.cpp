// The comparison with goldens: what it tells apart, what it shows, and how it promotes.
#include "tests/support/golden.h"

#include "tests/support/fixture.h"
#include "tests/support/golden_change.h"

namespace orvane::test {
namespace {

class Goldens : public SystemTest {};

TEST_F(Goldens, An_equal_text_says_nothing) {
  const std::string path = TempFile("golden.txt", "one\ntwo\n");
  EXPECT_EQ(CompareWithGolden(path, "one\ntwo\n", EqualLines, false), "");
  EXPECT_EQ(CompareWithGolden(path, "one\ntwo\n", EqualLines, true), "");
}

TEST_F(Goldens, A_difference_is_shown_with_three_lines_about_it) {
  EXPECT_EQ(Difference({"1", "2", "3", "4", "5", "6", "7", "8", "9"},
                       {"1", "2", "3", "4", "x", "6", "7", "8", "9"}, EqualLines),
            "@@ -2 +2 @@\n 2\n 3\n 4\n-5\n+x\n 6\n 7\n 8\n");
  EXPECT_EQ(Difference({"a", "b"}, {"b", "c"}, EqualLines), "@@ -1 +1 @@\n-a\n b\n+c\n");
  EXPECT_EQ(Difference({"a"}, {"a"}, EqualLines), "");
}

TEST_F(Goldens, Changes_far_from_each_other_are_shown_apart) {
  EXPECT_EQ(Difference({"1", "2", "3", "4", "5", "6", "7", "8"},
                       {"0", "1", "2", "3", "4", "5", "6", "7"}, EqualLines),
            "@@ -1 +1 @@\n+0\n 1\n 2\n 3\n@@ -5 +6 @@\n 5\n 6\n 7\n-8\n");
}

TEST_F(Goldens, Of_many_changes_the_first_are_shown_and_the_others_counted) {
  const GoldenLines many(150, "gone");
  const std::string difference = Difference(many, {}, EqualLines);
  EXPECT_EQ(LinesOf(difference).size(), 102U);  // with the heading and the count
  EXPECT_EQ(LinesOf(difference).back(), "and 50 more lines gone or new");
}

TEST_F(Goldens, A_line_feed_that_is_missing_at_the_end_is_a_difference) {
  const std::string path = TempFile("golden.txt", "one\n");
  EXPECT_NE(CompareWithGolden(path, "one", EqualLines, false), "");
  EXPECT_NE(CompareWithGolden(path, "one\r\n", EqualLines, false), "");
}

TEST_F(Goldens, An_empty_golden_and_one_that_is_missing_are_met_by_nothing) {
  EXPECT_NE(CompareWithGolden(TempFile("empty.txt", ""), "", EqualLines, false), "");
  EXPECT_NE(CompareWithGolden(TempPath("none.txt"), "", EqualLines, false), "");
  EXPECT_NE(CompareWithGolden(TempPath("none.txt"), "one\n", EqualLines, false), "");
}

TEST_F(Goldens, Without_promotion_the_golden_stays) {
  const std::string path = TempFile("golden.txt", "one\n");
  EXPECT_NE(CompareWithGolden(path, "two\n", EqualLines, false), "");
  EXPECT_EQ(BytesOf(path), "one\n");
}

TEST_F(Goldens, A_promotion_rewrites_the_golden_and_is_no_pass) {
  const std::string path = TempFile("golden.txt", "one\n");
  EXPECT_EQ(CompareWithGolden(path, "two\r\n", EqualLines, true),
            "promoted " + path + ":\n@@ -1 +1 @@\n-one\n+two\r\n");
  EXPECT_EQ(BytesOf(path), "two\r\n");
  EXPECT_EQ(CompareWithGolden(path, "two\r\n", EqualLines, false), "");
}

TEST_F(Goldens, Only_the_noise_of_floats_counts_as_equal) {
  EXPECT_TRUE(EqualButForNoise("DrawLine 1.0000001mm 2", "DrawLine 1mm 2.0000005"));
  for (const auto& [ours, golden] :
       std::vector<std::pair<std::string, std::string>>{{"DrawLine 1.00001mm", "DrawLine 1mm"},
                                                        {"DrawLine 1mm", "DrawLine 1"},
                                                        {"DrawLine 1 2", "DrawLine 1"},
                                                        {"DrawLine 1", "DrawArc 1"},
                                                        {"Text \"1.0\"", "Text \"1\""},
                                                        {"Text \"1  2\"", "Text \"1 2\""}}) {
    EXPECT_FALSE(EqualButForNoise(ours, golden)) << ours;
  }
}

// Changes.

const GoldenLines Before = {"head", "pen", "line 1", "pen", "line 2", "pen", "line 3", "end"};

TEST_F(Goldens, A_patch_says_what_changes_and_nothing_else_may) {
  const std::string path = TempFile("a.patch", "# why\n@@\n pen\n# here\n-line 2\n+line 7\n");
  GoldenLines after = Before;
  after[4] = "line 7";
  EXPECT_EQ(CompareWithPatch(path, Before, after, EqualButForNoise, false), "");
  after[7] = "ended";
  EXPECT_NE(CompareWithPatch(path, Before, after, EqualButForNoise, false), "");
  EXPECT_NE(CompareWithPatch(path, Before, Before, EqualButForNoise, false), "");
}

TEST_F(Goldens, A_patch_must_fit_in_one_place) {
  GoldenLines after = Before;
  after.insert(after.begin() + 2, "new");
  const std::string anywhere = TempFile("any.patch", "@@\n pen\n+new\n");
  EXPECT_EQ(CompareWithPatch(anywhere, Before, after, EqualLines, false).find("differs from "), 0U);
  EXPECT_NE(CompareWithPatch(anywhere, Before, after, EqualLines, false).find("3 places"),
            std::string::npos);
  const std::string one = TempFile("one.patch", "@@\n pen\n+new\n line 1\n");
  EXPECT_EQ(CompareWithPatch(one, Before, after, EqualLines, false), "");
}

TEST_F(Goldens, A_patch_without_a_change_is_met_by_nothing) {
  const std::string path = TempFile("none.patch", "# nothing\n");
  EXPECT_NE(CompareWithPatch(path, Before, Before, EqualLines, false), "");
}

TEST_F(Goldens, A_promoted_patch_keeps_its_opening_remarks_and_fits_in_one_place) {
  const GoldenLines alike(12, "pen");
  GoldenLines after = alike;
  after.insert(after.begin() + 6, "new");
  const std::string path = TempFile("a.patch", "# why\n# and how\n@@\n-gone\n");
  const std::string told = CompareWithPatch(path, alike, after, EqualLines, true);
  EXPECT_EQ(told.find("promoted "), 0U) << told;
  EXPECT_EQ(BytesOf(path).find("# why\n# and how\n@@\n"), 0U) << BytesOf(path);
  EXPECT_EQ(CompareWithPatch(path, alike, after, EqualLines, false), "");
}

}  // namespace
}  // namespace orvane::test
