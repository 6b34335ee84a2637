#include "core/numbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "tests/support/fixture.h"

namespace {

using namespace orvane;
using orvane::test::ErrorOf;

const double NotANumber = std::numeric_limits<double>::quiet_NaN();
const double Infinity = std::numeric_limits<double>::infinity();

// --- Val

TEST(Numbers, Val_reads_the_number_in_front_and_gives_0_without_one) {
  struct Case {
    std::string Text;
    double Value;
  };
  const std::vector<Case> cases = {
      {"", 0},
      {" ", 0},
      {"abc", 0},
      {"y", 0},
      {"5", 5},
      {"00012", 12},
      {"  12abc", 12},
      {"12abc", 12},
      {"60mm", 60},
      {"-3.5x", -3.5},
      // Signs: one, right in front.
      {"+5", 5},
      {"-5", -5},
      {"+", 0},
      {"-", 0},
      {"+-5", 0},
      {"--5", 0},
      {"- 5", 0},
      {"5-", 5},
      // One point, among or around the digits.
      {"5.", 5},
      {".5", 0.5},
      {"-.5", -0.5},
      {".", 0},
      {"-.", 0},
      {"1.5.2", 1.5},
      {"..5", 0},
      {"1,5", 1},
      {"1'000", 1},
      // An exponent only if digits follow.
      {"1e5", 100000},
      {"1E+5", 100000},
      {"25e-1", 2.5},
      {"1.e2", 100},
      {".5e1", 5},
      {"1e", 1},
      {"1e+", 1},
      {"1e-x", 1},
      {"1ex", 1},
      {"1e2.5", 100},
      {"1d5", 1},
      {"e5", 0},
      // A blank ends the number; only blanks are skipped before it.
      {"1 2", 1},
      {"5. 3", 5},
      {"1 e5", 1},
      {"\t5", 0},
      {"\r\n5", 0},
      {"\xC2\xA0"
       "5",
       0},
      // No hexadecimal and no words.
      {"0x10", 0},
      {"&H10", 0},
      {"inf", 0},
      {"-inf", 0},
      {"INF", 0},
      {"infinity", 0},
      {"nan", 0},
      {"NAN(1)", 0},
      // Too small for a float of 64 bits is 0.
      {"1e-400", 0},
      {"-1e-400", 0},
      {".001e-9223372036854775807", 0},
      {"1e-99999999999999999999999", 0},
      {"0e99999999999999999999999", 0},
      {"0.0e999", 0},
      // A long way round to 1.
      {"0." + std::string(399, '0') + "1e400", 1},
      {"1" + std::string(400, '0') + "e-400", 1},
  };
  for (const Case& c : cases) EXPECT_EQ(Val(c.Text), c.Value) << '"' << c.Text << '"';
}

TEST(Numbers, Val_raises_Overflow_for_a_number_beyond_64_bits_and_is_never_infinite) {
  for (const std::string& text :
       {std::string("1e999"), std::string("-1e999"), std::string("1e309"),
        "1" + std::string(400, '0'), std::string("10e9223372036854775807"),
        std::string("1e99999999999999999999999"), "0.001e" + std::string(30, '9')}) {
    EXPECT_EQ(ErrorOf([&] { Val(text); }), "Overflow") << text;
  }
}

TEST(Numbers, Val_reads_the_largest_and_the_smallest_float) {
  EXPECT_EQ(Val("1.7976931348623157e308"), std::numeric_limits<double>::max());
  EXPECT_EQ(Val("2.2250738585072014e-308"), std::numeric_limits<double>::min());
}

TEST(Numbers, IsNumber_wants_the_whole_trimmed_text_to_be_one_number) {
  for (const char* text :
       {"5", " 5 ", "-0", "+5", "5.", ".5", "12.50", "1e5", "1E-14", "-1.5e+3", "007", "32768"}) {
    EXPECT_TRUE(IsNumber(text)) << '"' << text << '"';
  }
  for (const char* text :
       {"",     " ",   ".",  "+",   "-",   "1,5", "&H10", "0x10", "inf",   "nan", "flat",
        "5deg", "1 2", "1e", "1e+", "--5", "\t5", "5\t",  "5\r",  "1.2.3", "e5",  "y"}) {
    EXPECT_FALSE(IsNumber(text)) << '"' << text << '"';
  }
}

// --- Strict conversions

TEST(Numbers, ParseInt16_sends_a_fraction_through_Whole) {
  struct Case {
    const char* Text;
    int Value;
  };
  const std::vector<Case> cases = {{"5", 5},           {" 12 ", 12},       {"-1", -1},
                                   {"+7", 7},          {"2.5", 2},         {"3.5", 4},
                                   {"-0.5", 0},        {"-1.5", -2},       {"12.0", 12},
                                   {"1e3", 1000},      {"1e-400", 0},      {"32767", 32767},
                                   {"32767.4", 32767}, {"-32768", -32768}, {"-32768.5", -32768}};
  for (const Case& c : cases) EXPECT_EQ(ParseInt16(c.Text), c.Value) << '"' << c.Text << '"';
}

TEST(Numbers, Strict_conversions_refuse_a_text_that_is_not_a_number_from_end_to_end) {
  for (const char* text : {"", " ", "x", "1,5", "&H10", "0x10", "inf", "nan", "5x", "12 off", "1 2",
                           "1e", "-", "\t5"}) {
    EXPECT_EQ(ErrorOf([&] { ParseInt16(text); }), "Type mismatch") << '"' << text << '"';
    EXPECT_EQ(ErrorOf([&] { ParseFloat(text); }), "Type mismatch") << '"' << text << '"';
    EXPECT_EQ(ErrorOf([&] { ParseDouble(text); }), "Type mismatch") << '"' << text << '"';
  }
}

TEST(Numbers, ParseInt16_raises_Overflow_beyond_16_bits) {
  // 32767.5 lies halfway; its even neighbour is 32768.
  for (const char* text :
       {"32767.5", "32768", "40000", "-32768.6", "-32769", "1e9", "1e300", "1e999"}) {
    EXPECT_EQ(ErrorOf([&] { ParseInt16(text); }), "Overflow") << text;
  }
}

TEST(Numbers, Strict_floats_keep_fraction_and_exponent) {
  EXPECT_EQ(ParseFloat(" 22.5 "), 22.5F);
  EXPECT_EQ(ParseFloat("-0.1"), -0.1F);
  EXPECT_EQ(ParseFloat("1e-60"), 0.0F);
  EXPECT_EQ(ParseDouble("1.4210854715202E-14"), 1.4210854715202e-14);
  EXPECT_EQ(ParseDouble("-12.25"), -12.25);
  EXPECT_EQ(ErrorOf([] { ParseFloat("1e39"); }), "Overflow");
  EXPECT_EQ(ErrorOf([] { ParseDouble("1e309"); }), "Overflow");
}

// --- Rounding and limits

TEST(Numbers, Whole_rounds_an_exact_half_to_the_even_neighbour) {
  struct Case {
    double Value;
    int Whole;
  };
  const std::vector<Case> cases = {
      {0.5, 0},       {1.5, 2},       {2.5, 2},         {3.5, 4},         {-0.5, 0},
      {-1.5, -2},     {-2.5, -2},     {0.49999, 0},     {0.50001, 1},     {2.50001, 3},
      {1049.5, 1050}, {1050.5, 1050}, {32767.4, 32767}, {32766.5, 32766}, {-32768.5, -32768}};
  for (const Case& c : cases) EXPECT_EQ(Whole(c.Value), c.Whole) << c.Value;
}

TEST(Numbers, Whole_raises_Overflow_beyond_16_bits_and_for_what_is_no_number) {
  for (const double value :
       {32767.5, 32768.0, -32768.51, -32769.0, 1e10, -1e300, NotANumber, Infinity, -Infinity}) {
    EXPECT_EQ(ErrorOf([&] { Whole(value); }), "Overflow") << value;
  }
}

TEST(Numbers, Nearest_rounds_a_half_to_the_even_neighbour_beyond_16_bits_too) {
  EXPECT_EQ(Nearest(16839.9), 16840);
  EXPECT_EQ(Nearest(72.5), 72);
  EXPECT_EQ(Nearest(217.5), 218);
  EXPECT_EQ(Nearest(40000.4), 40000);
}

TEST(Numbers, Int16_is_checked_at_both_limits) {
  EXPECT_EQ(Int16(32767), 32767);
  EXPECT_EQ(Int16(-32768), -32768);
  EXPECT_EQ(ErrorOf([] { Int16(32768); }), "Overflow");
  EXPECT_EQ(ErrorOf([] { Int16(-32769); }), "Overflow");
  EXPECT_EQ(ErrorOf([] { Int16(1LL << 40); }), "Overflow");
}

TEST(Numbers, Float32_is_checked_at_its_limit) {
  EXPECT_EQ(Float32(0.1), 0.1F);
  EXPECT_EQ(Float32(std::numeric_limits<float>::max()), std::numeric_limits<float>::max());
  for (const double value : {3.5e38, -1e39, Infinity, NotANumber}) {
    EXPECT_EQ(ErrorOf([&] { Float32(value); }), "Overflow") << value;
  }
}

TEST(Numbers, Divide_raises_Division_by_zero_instead_of_giving_what_is_no_number) {
  EXPECT_EQ(Divide(9, 4), 2.25);
  EXPECT_EQ(ErrorOf([] { Divide(1, 0); }), "Division by zero");
  EXPECT_EQ(ErrorOf([] { Divide(0, 0); }), "Division by zero");
  EXPECT_EQ(ErrorOf([] { Divide(1, -0.0); }), "Division by zero");
}

TEST(Numbers, Booleans_are_minus_1_and_0) {
  EXPECT_EQ(True, -1);
  EXPECT_EQ(False, 0);
  EXPECT_EQ(ToBoolean(true), -1);
  EXPECT_EQ(ToBoolean(false), 0);
  EXPECT_EQ(sizeof(Boolean), 2U);
}

TEST(Numbers, A_count_stands_before_its_noun) {
  EXPECT_EQ(Counted(1, "section"), "1 section");
  EXPECT_EQ(Counted(0, "section"), "0 sections");
  EXPECT_EQ(Counted(12, "accessory line"), "12 accessory lines");
}

}  // namespace
