#include "ui/platform/pace.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane {
namespace {

using Seconds = Pace::Seconds;

class PaceTest : public ::testing::Test {
 protected:
  // Works for so long, and is at a place where it may rest.
  void Work(double seconds) {
    now_ += Seconds(seconds);
    pace_.Rest();
  }
  double Rested() const {
    double sum = 0;
    for (const double rest : rests_) sum += rest;
    return sum;
  }

  Seconds now_{100};
  std::vector<double> rests_;
  Pace pace_{[this] { return now_; },
             [this](Seconds rest) {
               rests_.push_back(rest.count());
               now_ += rest;
             }};
};

TEST_F(PaceTest, It_rests_four_times_as_long_as_it_works) {
  pace_.Begin();
  Work(0.0003);
  ASSERT_EQ(rests_.size(), 1U);
  EXPECT_NEAR(rests_[0], 0.0012, 1e-9);
  Work(0.0005);
  EXPECT_NEAR(Rested(), 0.0032, 1e-9) << "what it rested is no work";
}

TEST_F(PaceTest, Small_pieces_of_work_are_done_in_one_turn) {
  pace_.Begin();
  Work(0.0001);
  EXPECT_TRUE(rests_.empty());
  Work(0.0001);
  EXPECT_EQ(rests_.size(), 1U);
}

TEST_F(PaceTest, It_rests_no_longer_than_a_second_in_all) {
  pace_.Begin();
  for (int turn = 0; turn < 100; ++turn) Work(0.01);
  EXPECT_NEAR(Rested(), 1, 1e-9);
  pace_.Begin();
  Work(0.01);
  EXPECT_NEAR(Rested(), 1.04, 1e-9) << "the next piece of work rests again";
}

TEST_F(PaceTest, It_does_not_rest_while_somebody_waits) {
  pace_.Begin();
  pace_.Hurry(true);
  Work(0.01);
  EXPECT_TRUE(rests_.empty());
  pace_.Hurry(false);
  Work(0.01);
  EXPECT_EQ(rests_.size(), 1U);
}

}  // namespace
}  // namespace orvane
