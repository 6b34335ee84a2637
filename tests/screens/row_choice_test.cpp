#include "ui/controls/row_choice.h"

#include <gtest/gtest.h>

#include <set>

namespace orvane::test {
namespace {

using Rows = std::vector<int>;

TEST(RowChoice, A_stretch_reaches_from_its_row_to_either_side) {
  RowChoice choice;
  EXPECT_TRUE(choice.Empty());
  EXPECT_EQ(choice.Rows(), Rows{});
  EXPECT_FALSE(choice.Has(0));
  choice.Begin(4);
  EXPECT_EQ(choice.Rows(), Rows{4});
  choice.StretchTo(6);
  EXPECT_EQ(choice.Rows(), (Rows{4, 5, 6}));
  choice.StretchTo(2);
  EXPECT_EQ(choice.Rows(), (Rows{2, 3, 4}));
  EXPECT_EQ(choice.At(), 4);
  EXPECT_EQ(choice.End(), 2);
  EXPECT_TRUE(choice.Has(2));
  EXPECT_FALSE(choice.Has(5));
}

TEST(RowChoice, Further_rows_stay_beside_a_stretch_or_go) {
  RowChoice choice;
  choice.Begin(2);
  choice.Add(7);
  EXPECT_EQ(choice.At(), 7);
  EXPECT_EQ(choice.Rows(), (Rows{2, 7}));
  choice.StretchTo(9, RowChoice::Others::Stay);
  EXPECT_EQ(choice.Rows(), (Rows{2, 7, 8, 9}));
  // A stretch over others leaves them when it is drawn back.
  choice.StretchTo(1, RowChoice::Others::Stay);
  EXPECT_EQ(choice.Rows(), (Rows{1, 2, 3, 4, 5, 6, 7}));
  choice.StretchTo(7, RowChoice::Others::Stay);
  EXPECT_EQ(choice.Rows(), (Rows{2, 7}));
  choice.StretchTo(8);
  EXPECT_EQ(choice.Rows(), (Rows{7, 8}));
}

TEST(RowChoice, A_row_taken_out_leaves_the_others_and_a_row_to_be_around) {
  RowChoice choice;
  choice.Begin(3);
  choice.StretchTo(6);
  choice.Remove(5);
  EXPECT_EQ(choice.Rows(), (Rows{3, 4, 6}));
  EXPECT_EQ(choice.At(), 3);
  choice.Remove(3);
  EXPECT_EQ(choice.Rows(), (Rows{4, 6}));
  EXPECT_EQ(choice.At(), 4) << "the next one below";
  choice.Add(8);
  choice.Remove(8);
  EXPECT_EQ(choice.At(), 6) << "above where there is none below";
  choice.Remove(1);
  EXPECT_EQ(choice.Rows(), (Rows{4, 6}));
  choice.Remove(6);
  choice.Remove(4);
  EXPECT_TRUE(choice.Empty());
  EXPECT_EQ(choice.Rows(), Rows{});
}

TEST(RowChoice, All_rows_are_chosen_around_any_of_them) {
  RowChoice choice;
  choice.All(5, 3);
  EXPECT_EQ(choice.Rows(), (Rows{1, 2, 3, 4, 5}));
  EXPECT_EQ(choice.At(), 3);
  choice.StretchTo(4);
  EXPECT_EQ(choice.Rows(), (Rows{3, 4}));
}

}  // namespace
}  // namespace orvane::test
