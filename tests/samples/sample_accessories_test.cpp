// The accessory lines of the samples together hold every kind of line that the export treats in a
// way of its own, as the accessory dialogs leave them.
#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"
#include "tests/samples/sample_contents.h"

namespace orvane::test {
namespace {

TEST_F(SampleContents, All_accessories_that_the_export_knows_by_their_row_have_lines) {
  std::set<int> rows;
  for (const Job& job : jobs) {
    for (const AccLine1& line : job.Lines1) rows.insert(line.AccIndex);
    for (const AccLine2& line : job.Lines2) rows.insert(line.AccIndex);
  }
  for (const int row : {4, 5, 6, 7, 8, 9, 10, 11, 21}) EXPECT_EQ(rows.count(row), 1U) << row;
}

TEST_F(SampleContents, Accessories_are_flagged_that_have_a_line_as_the_dialogs_leave_it) {
  for (const Job& job : jobs) {
    SCOPED_TRACE(job.Name);
    ASSERT_EQ(job.Used.size(), static_cast<std::size_t>(AccDefs.UBound()));
    std::vector<Boolean> expected(job.Used.size(), False);
    for (const AccLine1& line : job.Lines1) {
      // No dialog leaves a type 1 line without a quantity.
      if (line.Qty > 0) expected.at(static_cast<std::size_t>(line.AccIndex) - 1) = True;
    }
    for (const AccLine2& line : job.Lines2) {
      expected.at(static_cast<std::size_t>(line.AccIndex) - 1) = True;
    }
    EXPECT_EQ(job.Used, expected);
  }
}

TEST_F(SampleContents, Lines_are_sorted_as_the_dialogs_leave_them) {
  for (const Job& job : jobs) {
    SCOPED_TRACE(job.Name);
    EXPECT_TRUE(std::is_sorted(
        job.Lines1.begin(), job.Lines1.end(), [](const AccLine1& a, const AccLine1& b) {
          return std::tie(a.AccIndex, a.ParamIndex) < std::tie(b.AccIndex, b.ParamIndex);
        }));
    EXPECT_TRUE(std::is_sorted(job.Lines2.begin(), job.Lines2.end(),
                               [](const AccLine2& a, const AccLine2& b) {
                                 return std::tie(a.AccIndex, a.Mark) < std::tie(b.AccIndex, b.Mark);
                               }));
  }
  // By character code: the digit 1 stands before 2 whatever follows.
  ASSERT_EQ(LinesOf(Acc::SplicePlates).size(), 2U);
  EXPECT_EQ(LinesOf(Acc::SplicePlates)[0].Mark, "SP10");
  EXPECT_EQ(LinesOf(Acc::SplicePlates)[1].Mark, "SP2");
}

TEST_F(SampleContents, Headings_stand_over_several_lines_and_change_in_both_lists) {
  for (const Job& job : jobs) {
    SCOPED_TRACE(job.Name);
    std::map<int, int> counts1;
    std::map<int, int> counts2;
    for (const AccLine1& line : job.Lines1) counts1[line.AccIndex] += line.Qty > 0 ? 1 : 0;
    for (const AccLine2& line : job.Lines2) counts2[line.AccIndex] += line.NoOff > 0 ? 1 : 0;
    const auto several = [](const auto& entry) { return entry.second > 1; };
    EXPECT_TRUE(std::any_of(counts1.begin(), counts1.end(), several));
    EXPECT_TRUE(std::any_of(counts2.begin(), counts2.end(), several));
    EXPECT_GT(counts2.size(), 1U);
  }
  EXPECT_GT(JobOf("portal-shed").Lines1.front().AccIndex, 0);
  EXPECT_NE(JobOf("portal-shed").Lines1.front().AccIndex,
            JobOf("portal-shed").Lines1.back().AccIndex);
}

TEST_F(SampleContents, Every_size_of_the_two_fixed_sleeves_is_ordered) {
  std::set<std::pair<int, int>> sizes;
  for (const Job& job : jobs) {
    for (const AccLine1& line : job.Lines1) {
      if (line.AccIndex == 4 || line.AccIndex == 5) sizes.insert({line.AccIndex, line.ParamIndex});
    }
  }
  EXPECT_EQ(sizes, (std::set<std::pair<int, int>>{{4, 1}, {4, 2}, {4, 3}, {5, 1}, {5, 2}}));
}

TEST_F(SampleContents, Lines_of_number_0_are_there_in_both_lists) {
  const Job& job = JobOf("mezzanine");
  EXPECT_EQ(std::count_if(job.Lines1.begin(), job.Lines1.end(),
                          [](const AccLine1& line) { return line.Qty == 0; }),
            1);
  EXPECT_EQ(std::count_if(job.Lines2.begin(), job.Lines2.end(),
                          [](const AccLine2& line) { return line.NoOff == 0; }),
            1);
}

TEST_F(SampleContents, Marks_and_values_are_longer_than_a_column_of_the_list) {
  bool longMark = false;
  bool longValue = false;
  for (const Job& job : jobs) {
    for (const AccLine2& line : job.Lines2) {
      longMark = longMark || CharCount(line.Mark) > 12;
      for (const std::string& value : line.Values) longValue = longValue || CharCount(value) > 12;
    }
  }
  EXPECT_TRUE(longMark);
  EXPECT_TRUE(longValue);
}

TEST_F(SampleContents, Values_are_decimal_texts_that_have_a_shorter_form_and_one_with_a_comma) {
  Texts values;
  for (const Job& job : jobs) {
    for (const AccLine2& line : job.Lines2) values.insert(line.Values.begin(), line.Values.end());
  }
  for (const std::string& text : Texts{"12.50", "3.0", "650.0", "75.0", "12,5"}) {
    EXPECT_EQ(values.count(text), 1U) << text;
  }
}

TEST_F(SampleContents, Purlin_sleeves_name_every_sleeved_product) {
  Texts sleeved;
  for (const Item& item : Sections("Z")) {
    if (Contains(item.PatternName, "Sleeved") || Contains(item.PatternName, "Slvd")) {
      sleeved.insert(item.Product);
    }
  }
  Texts named;
  for (const AccLine2& line : LinesOf(Acc::PurlinSleeves)) named.insert(line.Values.At(1));
  EXPECT_EQ(sleeved, (Texts{"Z24516", "Z24520"}));
  EXPECT_EQ(named, sleeved);
}

TEST_F(SampleContents, Vcr_assemblies_are_as_drawn_of_opposite_hand_and_both) {
  std::set<std::pair<bool, bool>> hands;
  Texts cleats;
  for (const AccLine2& line : LinesOf(Acc::VcrAssembly)) {
    SCOPED_TRACE(line.Mark);
    const double drawn = Val(line.Values.At(1));
    const double opposite = Val(line.Values.At(2));
    hands.insert({drawn > 0, opposite > 0});
    cleats.insert({line.Values.At(6), line.Values.At(7)});
    // The two rules of the dialog.
    EXPECT_EQ(drawn + opposite, line.NoOff);
    EXPECT_LE(Val(line.Values.At(3)), 3050);
  }
  EXPECT_EQ(hands, (std::set<std::pair<bool, bool>>{{true, false}, {false, true}, {true, true}}));
  EXPECT_EQ(cleats, (Texts{"KT31", "KT33", "KT36", "KT39", "KT41"}));
}

TEST_F(SampleContents, Vcr_allowances_give_halves_that_round_up_and_down_to_the_even_neighbour) {
  Texts allowances;
  for (const AccLine2& line : LinesOf(Acc::VcrAssembly)) {
    allowances.insert({line.Values.At(4), line.Values.At(5)});
  }
  EXPECT_EQ(allowances.count("20.5"), 1U);  // 79.5 and 99.5, up to 80 and 100
  EXPECT_EQ(allowances.count("21.5"), 1U);  // 98.5, down to 98
}

TEST_F(SampleContents, C_channels_are_with_and_without_a_third_hole_and_notch_size) {
  bool hole = false;
  bool noHole = false;
  Texts sizes;
  for (const AccLine2& line : LinesOf(Acc::CChannel)) {
    (Val(line.Values.At(6)) > 0 ? hole : noHole) = true;
    for (int j = 2; j <= 5; ++j) sizes.insert(line.Values.At(j));
  }
  EXPECT_TRUE(hole);
  EXPECT_TRUE(noHole);
  // A size that is missing, 0, or 0 once it is rounded; and a half.
  for (const std::string& size : Texts{"", "0", "0.4", "48.5"})
    EXPECT_EQ(sizes.count(size), 1U) << size;
}

TEST_F(SampleContents, Eaves_braces_leave_the_height_or_the_reach_empty) {
  const std::vector<AccLine2> braces = LinesOf(Acc::EavesBraces);
  ASSERT_EQ(braces.size(), 3U);
  EXPECT_EQ(braces[1].Values.At(2), "");
  EXPECT_NE(braces[1].Values.At(3), "");
  EXPECT_NE(braces[2].Values.At(2), "");
  EXPECT_EQ(braces[2].Values.At(3), "");
}

TEST_F(SampleContents, Apex_ties_and_sag_bars_keep_the_rules_of_their_tables) {
  for (const AccLine2& line : LinesOf(Acc::ApexTies)) EXPECT_LE(Val(line.Values.At(3)), 25);
  for (const AccLine2& line : LinesOf(Acc::SagBarsScrewFix)) {
    EXPECT_FALSE(Val(line.Values.At(2)) > 0 && Val(line.Values.At(3)) > 0) << line.Mark;
  }
  EXPECT_FALSE(LinesOf(Acc::ApexTies).empty());
  EXPECT_EQ(LinesOf(Acc::SagBarsScrewFix).size(), 2U);
}

}  // namespace
}  // namespace orvane::test
