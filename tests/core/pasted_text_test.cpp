#include "core/pasted_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

namespace {

std::string Taken(std::string_view text, NumberForm field) {
  const PastedNumber pasted = NumberToPaste(text, field);
  EXPECT_EQ(pasted.Refusal, "") << text;
  return pasted.Text;
}
std::string Refusal(std::string_view text, NumberForm field) {
  const PastedNumber pasted = NumberToPaste(text, field);
  EXPECT_EQ(pasted.Text, "") << text;
  return pasted.Refusal;
}

// A number of a table, and what becomes of it as long as nobody has told of thousands.
struct TableCase {
  std::string Text;
  std::string Number;
  std::string Refusal;
};

}  // namespace

TEST(PastedText, A_line_end_at_the_end_is_dropped_and_others_become_one_blank) {
  EXPECT_EQ(PastedLine("A1\n"), "A1");
  EXPECT_EQ(PastedLine("A1\r\n"), "A1");
  EXPECT_EQ(PastedLine("A1\r"), "A1");
  EXPECT_EQ(PastedLine("A1\n\n"), "A1");
  EXPECT_EQ(PastedLine("A1\nA2"), "A1 A2");
  EXPECT_EQ(PastedLine("A1\r\nA2\r\n"), "A1 A2");
  EXPECT_EQ(PastedLine("A1\n\rA2"), "A1  A2");
  EXPECT_EQ(PastedLine("A1\tZ24520\t6150"), "A1 Z24520 6150");
  EXPECT_EQ(PastedLine("\n"), "");
  EXPECT_EQ(PastedLine(""), "");
}

TEST(PastedText, Empty_cells_beside_one_are_no_part_of_its_text) {
  EXPECT_EQ(PastedLine("\tP1"), "P1");
  EXPECT_EQ(PastedLine("P1\t\t\r\n"), "P1");
  EXPECT_EQ(PastedLine("\t\t"), "");
}

TEST(PastedText, Blanks_and_letters_of_a_line_stay) {
  EXPECT_EQ(PastedLine("  two  blanks "), "  two  blanks ");
  EXPECT_EQ(PastedLine("Gr\xC3\xBC\xC3\x9F"
                       "e\xC2\xA0x"),
            "Gr\xC3\xBC\xC3\x9F"
            "e\xC2\xA0x");
}

TEST(PastedText, A_whole_number_is_taken_as_it_was_copied) {
  EXPECT_EQ(Taken("6150", NumberForm::Whole), "6150");
  EXPECT_EQ(Taken("0050", NumberForm::Whole), "0050");
  EXPECT_EQ(Taken("6150\r\n", NumberForm::Whole), "6150");
  EXPECT_EQ(Taken("\t 6150 \t", NumberForm::Whole), "6150");
  EXPECT_EQ(Taken("6150mm", NumberForm::Whole), "6150");
  EXPECT_EQ(Taken(" 6150 mm ", NumberForm::Whole), "6150");
  EXPECT_EQ(Taken("6150 MM", NumberForm::Whole), "6150");
  EXPECT_EQ(Taken("mm 6150", NumberForm::Whole), "6150");
  EXPECT_EQ(Taken("\xC2\xA0"
                  "6150\xE2\x80\xAFmm",
                  NumberForm::Whole),
            "6150");
}

TEST(PastedText, One_or_two_zeros_behind_the_point_are_a_spreadsheets_form_of_a_whole_number) {
  EXPECT_EQ(Taken("6150.0", NumberForm::Whole), "6150");
  EXPECT_EQ(Taken("6150.00", NumberForm::Whole), "6150");
}

TEST(PastedText, What_may_be_another_number_is_refused_with_its_reason) {
  EXPECT_EQ(Refusal("3 pcs", NumberForm::Whole), "\"3 pcs\" wasn't pasted: it isn't a number");
  EXPECT_EQ(Refusal("-3.5", NumberForm::Whole), "\"-3.5\" wasn't pasted: no sign is taken here");
  EXPECT_EQ(Refusal("+3", NumberForm::Whole), "\"+3\" wasn't pasted: no sign is taken here");
  EXPECT_EQ(Refusal("6,150", NumberForm::Whole),
            "\"6,150\" wasn't pasted: a comma may divide thousands or a fraction");
  EXPECT_EQ(Refusal("6.150", NumberForm::Whole),
            "\"6.150\" wasn't pasted: the point may divide thousands");
  EXPECT_EQ(Refusal("6150.000", NumberForm::Whole),
            "\"6150.000\" wasn't pasted: the point may divide thousands");
  for (const char* text : {"6150.5", "6150.", ".0", "6150.0000"}) {
    EXPECT_EQ(Refusal(text, NumberForm::Whole),
              "\"" + std::string(text) + "\" wasn't pasted: only whole numbers are taken here");
  }
  for (const char* text :
       {"6 150", "6150 m", "6.1.5", "6150 mm mm", "mm", "1e3", "0x10", "-", ".", "--3", "3-"}) {
    EXPECT_EQ(Refusal(text, NumberForm::Whole),
              "\"" + std::string(text) + "\" wasn't pasted: it isn't a number");
  }
}

TEST(PastedText, A_whole_number_that_no_field_holds_is_refused) {
  EXPECT_EQ(NumberToPaste("32767", NumberForm::Whole).Text, "32767");
  EXPECT_EQ(NumberToPaste("032767.0 mm", NumberForm::Whole).Text, "032767");
  EXPECT_EQ(NumberToPaste("9999", NumberForm::Whole).Text, "9999");
  for (const char* text : {"32768", "61500", "61500.00", "99999999999999999999"}) {
    const PastedNumber pasted = NumberToPaste(text, NumberForm::Whole);
    EXPECT_EQ(pasted.Text, "");
    EXPECT_EQ(pasted.Refusal,
              "\"" + std::string(text) + "\" wasn't pasted: it is larger than 32767");
  }
}

TEST(PastedText, A_number_with_a_fraction_takes_one_point_and_a_signed_one_a_sign_besides) {
  EXPECT_EQ(Taken("12.125", NumberForm::Positive), "12.125");
  EXPECT_EQ(Taken(".5", NumberForm::Positive), ".5");
  EXPECT_EQ(Taken("12. mm", NumberForm::Positive), "12.");
  EXPECT_EQ(Refusal("-3.5", NumberForm::Positive), "\"-3.5\" wasn't pasted: no sign is taken here");
  EXPECT_EQ(Taken("-3.5", NumberForm::Signed), "-3.5");
  EXPECT_EQ(Taken("+22.5\n", NumberForm::Signed), "+22.5");
  EXPECT_EQ(Refusal("22,5", NumberForm::Signed),
            "\"22,5\" wasn't pasted: a comma may divide thousands or a fraction");
  EXPECT_EQ(Refusal("-2-2", NumberForm::Signed), "\"-2-2\" wasn't pasted: it isn't a number");
}

TEST(PastedText, A_paste_of_nothing_but_blanks_is_neither_taken_nor_refused) {
  for (const char* text : {"", " ", "\t\r\n"}) {
    const PastedNumber pasted = NumberToPaste(text, NumberForm::Whole);
    EXPECT_EQ(pasted.Text, "");
    EXPECT_EQ(pasted.Refusal, "");
  }
}

TEST(PastedText, A_reason_shows_the_beginning_of_a_long_text_on_one_line) {
  EXPECT_EQ(Refusal("a first line\nand a second line of it", NumberForm::Whole),
            "\"a first line and a s...\" wasn't pasted: it isn't a number");
}

TEST(NumberInTable, Blanks_and_millimetres_are_no_part_of_it) {
  const std::string noBreak = "\xC2\xA0";
  const std::string narrow = "\xE2\x80\xAF";
  const std::string thin = "\xE2\x80\x89";
  const std::vector<TableCase> cases = {
      {"", "", ""},
      {"  ", "", ""},
      {"6000", "6000", ""},
      {" 6000 mm", "6000", ""},
      {"6000MM", "6000", ""},
      {"6 000", "6000", ""},
      {"6" + noBreak + "000", "6000", ""},
      {"12" + narrow + "500 mm", "12500", ""},
      {"6" + thin + "000", "6000", ""},
      {"0", "0", ""},
      {"007", "007", ""},
      {"60 00", "", "It isn't a number"},
      {"6 000 0", "", "It isn't a number"},
      {"6  000", "", "It isn't a number"},
      {"1 2", "", "It isn't a number"},
      {"0 500", "", "It isn't a number"},
      {"1 234 567", "", "It is larger than 32767"},
      {"32767", "32767", ""},
      {"32 768", "", "It is larger than 32767"},
      {"6000 mm each", "", "It isn't a number"},
      {"6x", "", "It isn't a number"},
      {"six", "", "It isn't a number"},
      {"mm", "", "It isn't a number"},
      {"-5", "", "No sign is taken here"},
      {"+5", "", "No sign is taken here"},
  };
  for (const TableCase& each : cases) {
    const TableNumber number = NumberInTable(each.Text, ThreeDigits::NotTold);
    EXPECT_EQ(number.Text, each.Number) << each.Text;
    EXPECT_EQ(number.Refusal, each.Refusal) << each.Text;
    EXPECT_FALSE(number.IsAmbiguous) << each.Text;
  }
}

TEST(NumberInTable, A_fraction_of_zeros_is_left_off_and_no_other_is) {
  const std::string noBreak = "\xC2\xA0";
  const std::vector<TableCase> cases = {
      {"6000.00", "6000", ""},
      {"6000,0", "6000", ""},
      {"6,000.00", "6000", ""},
      {"6.000,00", "6000", ""},
      {"6 000,00 mm", "6000", ""},
      {"6" + noBreak + "000.000", "6000", ""},
      {"6000.000", "6000", ""},  // four digits are no thousands of thousands
      {"0.000", "0", ""},
      {"6.", "6", ""},
      {"6.5", "", "Only whole numbers are taken here"},
      {"6,25", "", "Only whole numbers are taken here"},
      {"0,500", "", "Only whole numbers are taken here"},
      {"1,234.5", "", "Only whole numbers are taken here"},
      {"1,234,567", "", "It is larger than 32767"},
      {"1,234.567,00", "", "It isn't a number"},
      {"1,23,456", "", "It isn't a number"},
      {".", "", "It isn't a number"},
      {",000", "", "It isn't a number"},
      {"6,000 000", "", "It isn't a number"},
  };
  for (const TableCase& each : cases) {
    const TableNumber number = NumberInTable(each.Text, ThreeDigits::NotTold);
    EXPECT_EQ(number.Text, each.Number) << each.Text;
    EXPECT_EQ(number.Refusal, each.Refusal) << each.Text;
    EXPECT_FALSE(number.IsAmbiguous) << each.Text;
  }
}

TEST(NumberInTable, One_comma_or_point_before_three_digits_is_never_guessed) {
  for (const std::string text : {"6,000", "6.000", "12,500 mm", " 1.200 "}) {
    const TableNumber number = NumberInTable(text, ThreeDigits::NotTold);
    EXPECT_TRUE(number.IsAmbiguous) << text;
    EXPECT_EQ(number.Text, "") << text;
    EXPECT_EQ(number.Refusal, "It may be thousands or a fraction") << text;
  }
  EXPECT_EQ(NumberInTable("6,000", ThreeDigits::Thousands).Text, "6000");
  EXPECT_EQ(NumberInTable("12.500 mm", ThreeDigits::Thousands).Text, "12500");
  EXPECT_EQ(NumberInTable("6,000", ThreeDigits::Fraction).Text, "6");
  EXPECT_EQ(NumberInTable("7,250", ThreeDigits::Fraction).Refusal,
            "Only whole numbers are taken here");
  EXPECT_EQ(NumberInTable("99,000", ThreeDigits::Thousands).Refusal, "It is larger than 32767");
  // It stays one of those that were asked for.
  EXPECT_TRUE(NumberInTable("6,000", ThreeDigits::Thousands).IsAmbiguous);
}

TEST(NumberInTable, Metres_are_refused_and_said_in_millimetres) {
  const std::string said = "Metres aren't taken here: in millimetres it is ";
  EXPECT_EQ(NumberInTable("6 m", ThreeDigits::NotTold).Refusal, said + "6000");
  EXPECT_EQ(NumberInTable("6.5m", ThreeDigits::NotTold).Refusal, said + "6500");
  EXPECT_EQ(NumberInTable("7,25 M", ThreeDigits::NotTold).Refusal, said + "7250");
  EXPECT_EQ(NumberInTable("6,125 metres", ThreeDigits::NotTold).Refusal, said + "6125");
  EXPECT_EQ(NumberInTable("m", ThreeDigits::NotTold).Refusal, "It isn't a number");
  EXPECT_EQ(NumberInTable("6 km", ThreeDigits::NotTold).Refusal, "It isn't a number");
}

}  // namespace orvane
