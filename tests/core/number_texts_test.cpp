// Numbers as texts: the forms, the shortest text, the file's form, and no locale in any of them.
#include "core/numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <random>
#include <string>
#include <vector>

#include "tests/support/decimal_comma.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;
using orvane::test::ErrorOf;
using orvane::test::WithDecimalComma;

const double NotANumber = std::numeric_limits<double>::quiet_NaN();
const double Infinity = std::numeric_limits<double>::infinity();

// --- Number to text

TEST(Numbers, FormatNumber_rounds_the_decimal_text_half_away_from_zero) {
  struct Case {
    double Value;
    const char* Form0;
    const char* Form1;
  };
  const std::vector<Case> cases = {
      {0, "0", "0.0"},
      {5, "5", "5.0"},
      {-5, "-5", "-5.0"},
      {0.5, "1", "0.5"},
      {1.5, "2", "1.5"},
      {2.5, "3", "2.5"},
      {-2.5, "-3", "-2.5"},
      {4.5, "5", "4.5"},
      {1234.5, "1235", "1234.5"},
      {22.5, "23", "22.5"},
      {0.25, "0", "0.3"},
      {12.25, "12", "12.3"},
      {-12.25, "-12", "-12.3"},
      // Binary values a little below or above the half that their text shows.
      {0.15, "0", "0.2"},
      {0.35, "0", "0.4"},
      {1.15, "1", "1.2"},
      {12.35, "12", "12.4"},
      {12.45, "12", "12.5"},
      {1000.05, "1000", "1000.1"},
      // A carry goes through to a digit more.
      {9.95, "10", "10.0"},
      {99.5, "100", "99.5"},
      {99.95, "100", "100.0"},
      {0.95, "1", "1.0"},
      // Small values: down to nothing, or up to the last decimal.
      {0.4, "0", "0.4"},
      {0.05, "0", "0.1"},
      {0.049, "0", "0.0"},
      {0.04, "0", "0.0"},
      {0.001, "0", "0.0"},
      {1e-14, "0", "0.0"},
      {1e-300, "0", "0.0"},
      // The fifteenth digit decides; what lies behind it has been rounded away.
      {0.499999999999999, "0", "0.5"},
      {0.4999999999999999, "1", "0.5"},
      {2.4999999999999996, "3", "2.5"},
      // Large values have as many digits as they need.
      {32767, "32767", "32767.0"},
      {1e15, "1000000000000000", "1000000000000000.0"},
      {1e20, "100000000000000000000", "100000000000000000000.0"},
      {123456789012345.5, "123456789012346", "123456789012346.0"},
      // A zero bears no sign, whatever it was rounded from.
      {-0.0, "0", "0.0"},
      {-0.04, "0", "0.0"},
      {-0.4, "0", "-0.4"},
      {-0.05, "0", "-0.1"},
      {-0.5, "-1", "-0.5"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(FormatNumber(c.Value, 0), c.Form0) << c.Value;
    EXPECT_EQ(FormatNumber(c.Value, 1), c.Form1) << c.Value;
  }
}

TEST(Numbers, FormatNumber_takes_seven_digits_of_a_32_bit_float) {
  struct Case {
    float Value;
    const char* Form0;
    const char* Form1;
  };
  const std::vector<Case> cases = {{0.15F, "0", "0.2"},
                                   {0.45F, "0", "0.5"},
                                   {2.5F, "3", "2.5"},
                                   {12.35F, "12", "12.4"},
                                   {-22.5F, "-23", "-22.5"},
                                   {-0.04F, "0", "0.0"},
                                   {-0.0F, "0", "0.0"},
                                   {0.49999999F, "1", "0.5"},
                                   {9.95F, "10", "10.0"},
                                   {123456.7F, "123457", "123456.7"},
                                   {16777216.0F, "16777220", "16777220.0"},
                                   {9999999.0F, "9999999", "9999999.0"}};
  for (const Case& c : cases) {
    EXPECT_EQ(FormatNumber(c.Value, 0), c.Form0) << c.Value;
    EXPECT_EQ(FormatNumber(c.Value, 1), c.Form1) << c.Value;
  }
}

TEST(Numbers, FormatNumber_and_Whole_differ_on_purpose_at_an_even_half) {
  EXPECT_EQ(FormatNumber(2.5, 0), "3");
  EXPECT_EQ(Whole(2.5), 2);
}

TEST(Numbers, A_value_that_is_no_number_has_no_text) {
  for (const double value : {NotANumber, Infinity, -Infinity}) {
    EXPECT_EQ(ErrorOf([&] { FormatNumber(value, 0); }), "Overflow");
    EXPECT_EQ(ErrorOf([&] { ShortestText(value); }), "Overflow");
  }
}

TEST(Numbers, ShortestText_of_a_64_bit_float_has_up_to_15_digits) {
  struct Case {
    double Value;
    const char* Text;
  };
  const std::vector<Case> cases = {
      {0, "0"},
      {-0.0, "0"},
      {0.5, "0.5"},
      {-0.5, "-0.5"},
      {12.50, "12.5"},
      {22.5, "22.5"},
      {1200, "1200"},
      {-32768, "-32768"},
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {100.0 / 3, "33.3333333333333"},
      {0.0001, "0.0001"},
      {0.00012345, "0.00012345"},
      {0.00001, "1E-05"},
      {-0.000012, "-1.2E-05"},
      // The left-over of 1200.1 - 1200 - 0.1 and its like: a power of two over 10 to the 14th.
      {0x1p-46, "1.4210854715202E-14"},
      {999999999999999, "999999999999999"},
      {1e15, "1E+15"},
      {1234567890123456, "1.23456789012346E+15"},
      {1e100, "1E+100"},
      {99999999999999.94, "99999999999999.9"}};
  for (const Case& c : cases) EXPECT_EQ(ShortestText(c.Value), c.Text) << c.Value;
}

TEST(Numbers, ShortestText_of_a_32_bit_float_has_up_to_7_digits) {
  struct Case {
    float Value;
    const char* Text;
  };
  const std::vector<Case> cases = {{0.0F, "0"},
                                   {-0.0F, "0"},
                                   {22.5F, "22.5"},
                                   {-7.25F, "-7.25"},
                                   {0.1F, "0.1"},
                                   {1.0F / 3, "0.3333333"},
                                   {2.0F / 3, "0.6666667"},
                                   {16.67F, "16.67"},
                                   // needs nine digits to come back the same; seven are written
                                   {16777.217F, "16777.22"},
                                   {9999999.0F, "9999999"},
                                   {10000000.0F, "1E+07"},
                                   {16777216.0F, "1.677722E+07"},
                                   {0.00001F, "1E-05"}};
  for (const Case& c : cases) EXPECT_EQ(ShortestText(c.Value), c.Text) << c.Value;
}

// The digits of a measure that was computed go on behind the fifteenth or the seventh, and are
// rounded there.
TEST(Numbers, ShortestText_rounds_what_lies_behind_the_last_significant_digit) {
  struct Case {
    double Value;
    const char* Text;
  };
  const std::vector<Case> cases = {
      {120.30000000000001, "120.3"},  // zeros before the cut go too
      {55.170000000000002, "55.17"},  // reads back by fewer digits already
      {68.799999999999997, "68.8"},
      {119.99999999999999, "120"},  // a carry through to the point and over it
      {0.99999999999999989, "1"},
      {1234.5678901234567, "1234.56789012346"},  // up by one
      {1234.5678901234547, "1234.56789012345"},  // and not
      {0.0012345678901234567, "0.00123456789012346"},
      {0.00099999999999999998, "0.001"},
      {0.00100000000000000041, "0.001"},
      {1234567890123.4567, "1234567890123.46"},
      {12345678901234.567, "12345678901234.6"},
      // Halves, exact in binary: to the even digit, as the nearest text is.
      {0x1p-1 + 0x1p-16, "0.500015258789062"},  // 0.5000152587890625
      {0x1.8p-1 + 0x1p-16, "0.750015258789062"},
      {0x1p-1 + 0x3p-16, "0.500045776367188"},  // 0.5000457763671875
      // Their neighbours, by one in the last binary place.
      {0.50001525878906261, "0.500015258789063"},
      {0.50001525878906239, "0.500015258789062"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ShortestText(c.Value), c.Text);
    EXPECT_EQ(ShortestText(-c.Value), "-" + std::string(c.Text));
  }
  struct FloatCase {
    float Value;
    const char* Text;
  };
  const std::vector<FloatCase> floats = {
      {33.333332F, "33.33333"},    {66.666664F, "66.66666"}, {0.0012345678F, "0.001234568"},
      {99999.992F, "99999.99"},    {9.9999999F, "10"},       {1000.0001F, "1000"},
      {4096.00048828125F, "4096"},
  };
  for (const FloatCase& c : floats) EXPECT_EQ(ShortestText(c.Value), c.Text);
}

template <class Float>
void ExpectNearestText(Float value) {
  constexpr int precision = sizeof(Float) == sizeof(float) ? 7 : 15;
  std::array<char, 64> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::general, precision)
                       .ptr;
  std::replace(buffer.data(), end, 'e', 'E');
  ASSERT_EQ(ShortestText(value), std::string(buffer.data(), end));
}

// A value and its neighbours to both sides.
template <class Float>
void ExpectNearestTextAround(Float value) {
  constexpr int neighbours = 3;
  Float below = value;
  Float above = value;
  ExpectNearestText(value);
  for (int i = 0; i < neighbours; ++i) {
    ExpectNearestText(below = std::nextafter(below, Float(0)));
    ExpectNearestText(above = std::nextafter(above, std::numeric_limits<Float>::max()));
  }
}

template <class Float>
void ExpectNearestTexts(double halfPlace) {
  std::mt19937_64 random(20);
  for (int exponent = -6; exponent <= 17; ++exponent) {
    const double decade = std::pow(10.0, exponent);
    ExpectNearestTextAround(static_cast<Float>(decade));
    for (int i = 0; i < 1000; ++i) {
      const double mantissa = 1 + 9 * std::generate_canonical<double, 53>(random);
      ExpectNearestText(static_cast<Float>(mantissa * decade));
      // Near a half behind the last significant digit, where a wrong rounding would show.
      const double half = (std::floor(mantissa / halfPlace) + 0.5) * halfPlace;
      ExpectNearestTextAround(static_cast<Float>(half * decade));
      // What sums of lengths leave: a short number and a few of the last binary places.
      const double sum = std::round(mantissa * 1000) / 1000 * decade;
      ExpectNearestTextAround(static_cast<Float>(sum));
    }
    if (::testing::Test::HasFatalFailure()) return;
  }
}

// The text by number of digits is the library's; ours has a shorter road to most of them.
TEST(Numbers, ShortestText_is_the_nearest_text_of_its_digits_whatever_the_number) {
  ExpectNearestTexts<double>(1e-14);
  ExpectNearestTexts<float>(1e-6);
}

TEST(Numbers, ShortestText_of_a_16_bit_number_is_its_digits) {
  EXPECT_EQ(ShortestText(std::int16_t{0}), "0");
  EXPECT_EQ(ShortestText(std::int16_t{5}), "5");
  EXPECT_EQ(ShortestText(std::int16_t{32767}), "32767");
  EXPECT_EQ(ShortestText(std::int16_t{-32768}), "-32768");
}

template <class Number>
std::string FileNumber(Number value) {
  std::string text = "x";  // what stands there already stays
  AppendFileNumber(text, value);
  return text.substr(1);
}

TEST(Numbers, The_file_form_is_a_blank_or_a_minus_the_digits_and_a_blank) {
  EXPECT_EQ(FileNumber(std::int16_t{5}), " 5 ");
  EXPECT_EQ(FileNumber(std::int16_t{0}), " 0 ");
  EXPECT_EQ(FileNumber(std::int16_t{-5}), "-5 ");
  EXPECT_EQ(FileNumber(std::int16_t{32767}), " 32767 ");
  EXPECT_EQ(FileNumber(std::int16_t{-32768}), "-32768 ");
  EXPECT_EQ(FileNumber(True), "-1 ");
  EXPECT_EQ(FileNumber(False), " 0 ");
  EXPECT_EQ(FileNumber(22.5F), " 22.5 ");
  EXPECT_EQ(FileNumber(-22.5F), "-22.5 ");
  EXPECT_EQ(FileNumber(-0.0F), " 0 ");
  EXPECT_EQ(FileNumber(0.1F), " 0.1 ");
  EXPECT_EQ(FileNumber(1.0F / 3), " 0.3333333 ");
  EXPECT_EQ(FileNumber(0.0), " 0 ");
  EXPECT_EQ(FileNumber(-0.0), " 0 ");
  EXPECT_EQ(FileNumber(-0.5), "-0.5 ");
  EXPECT_EQ(FileNumber(1.0 / 3), " 0.333333333333333 ");
  EXPECT_EQ(FileNumber(-0x1p-46), "-1.4210854715202E-14 ");
}

TEST(Numbers, What_is_written_reads_back_as_the_number_it_shows) {
  for (const double value : {0.5, -0.5, 22.5, 1.4210854715202e-14, 1e15, 33.3333333333333, 12000.0,
                             -1.2e-05, 123456.789}) {
    EXPECT_EQ(ParseDouble(FileNumber(value)), value) << value;
  }
  for (const float value : {0.1F, 22.5F, -7.25F, 1e7F, 16.67F, 0.00001F}) {
    EXPECT_EQ(ParseFloat(FileNumber(value)), value) << value;
  }
}

// --- Locales

void ExpectNumbersWithPoints() {
  EXPECT_EQ(Val("22.5mm"), 22.5);
  EXPECT_EQ(Val("22,5"), 22);
  EXPECT_EQ(Val("1.234.567"), 1.234);
  EXPECT_TRUE(IsNumber("12.50"));
  EXPECT_FALSE(IsNumber("12,50"));
  EXPECT_EQ(ParseFloat("22.5"), 22.5F);
  EXPECT_EQ(ParseDouble("-0.25"), -0.25);
  EXPECT_EQ(ErrorOf([] { ParseDouble("0,25"); }), "Type mismatch");
  EXPECT_EQ(FormatNumber(12345.25, 1), "12345.3");
  EXPECT_EQ(FormatNumber(1234567.0, 0), "1234567");
  EXPECT_EQ(ShortestText(12345.5), "12345.5");
  EXPECT_EQ(ShortestText(0.5F), "0.5");
  EXPECT_EQ(FileNumber(std::int16_t{12345}), " 12345 ");
  EXPECT_EQ(FileNumber(1234.5), " 1234.5 ");
}

class DecimalComma : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(Numbers, A_global_locale_with_decimal_comma_and_grouping_changes_nothing) {
  const std::locale before =
      std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
  ExpectNumbersWithPoints();
  std::locale::global(before);
}

class NumbersInTheLocale : public orvane::test::SystemTest {};

TEST_F(NumbersInTheLocale, A_C_locale_with_decimal_comma_changes_nothing) {
  bool ran = false;
  WithDecimalComma(TempPath("locales"), [&ran] {
    ExpectNumbersWithPoints();
    ran = true;
  });
  EXPECT_TRUE(ran);
  EXPECT_STREQ(std::localeconv()->decimal_point, ".");
}

}  // namespace
