// Plain digits: whole numbers as text, and digits taken off a text.
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "core/numbers.h"

namespace {

using namespace orvane;

TEST(WholeNumbers, DecimalText_has_plain_digits_and_no_grouping) {
  struct Case {
    long long Value;
    std::string Text;
  };
  for (const Case& c :
       std::vector<Case>{{0, "0"},
                         {7, "7"},
                         {-1, "-1"},
                         {1005, "1005"},
                         {1000000, "1000000"},
                         {std::numeric_limits<long long>::max(), "9223372036854775807"},
                         {std::numeric_limits<long long>::min(), "-9223372036854775808"}}) {
    EXPECT_EQ(DecimalText(c.Value), c.Text);
  }
}

TEST(WholeNumbers, PaddedText_puts_zeros_in_front_and_cuts_nothing) {
  struct Case {
    long long Value;
    std::size_t Width;
    std::string Text;
  };
  for (const Case& c : std::vector<Case>{{5, 2, "05"},
                                         {0, 2, "00"},
                                         {12, 2, "12"},
                                         {123, 2, "123"},
                                         {7, 4, "0007"},
                                         {2024, 4, "2024"},
                                         {5, 1, "5"},
                                         {5, 0, "5"}}) {
    EXPECT_EQ(PaddedText(c.Value, c.Width), c.Text);
  }
}

TEST(WholeNumbers, TakeDigits_takes_no_more_than_it_may_and_leaves_the_rest) {
  struct Case {
    std::string Text;
    std::size_t Most;
    int Value;
    std::string Rest;
  };
  for (const Case& c : std::vector<Case>{{"05/03", 2, 5, "/03"},
                                         {"2024-", 4, 2024, "-"},
                                         {"123", 2, 12, "3"},
                                         {"0", 2, 0, ""},
                                         {"00", 2, 0, ""},
                                         {"", 2, -1, ""},
                                         {"/1", 2, -1, "/1"},
                                         {"-1", 2, -1, "-1"},
                                         {"+1", 2, -1, "+1"},
                                         {" 1", 2, -1, " 1"},
                                         {"1", 0, -1, "1"},
                                         {"999999999", 9, 999999999, ""}}) {
    std::string_view rest = c.Text;
    EXPECT_EQ(TakeDigits(rest, c.Most), c.Value) << c.Text;
    EXPECT_EQ(rest, c.Rest) << c.Text;
  }
}

}  // namespace
