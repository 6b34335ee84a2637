#include "core/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace orvane;

TEST(Text, Trim_takes_blanks_off_both_ends_and_nothing_else) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("a"), "a");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim(" \ta\t "), "\ta\t");
  EXPECT_EQ(Trim(" \r\na\r\n "), "\r\na\r\n");
  EXPECT_EQ(Trim("\xC2\xA0 a \xC2\xA0"), "\xC2\xA0 a \xC2\xA0");
}

TEST(Text, UpperCase_changes_a_to_z_only) {
  EXPECT_EQ(UpperCase("azAZ09-_ y"), "AZAZ09-_ Y");
  EXPECT_EQ(UpperCase("\xC3\xA9\xC3\xBC"), "\xC3\xA9\xC3\xBC");
  EXPECT_EQ(UpperCase("`{"), "`{");
  EXPECT_EQ(UpperCase(""), "");
}

// One letter of each length in bytes: 1, 2, 3 and 4.
constexpr std::string_view Letters = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x99\x82";

TEST(Text, Characters_are_counted_by_code_point) {
  EXPECT_EQ(CharCount(""), 0U);
  EXPECT_EQ(CharCount("abc"), 3U);
  EXPECT_EQ(CharCount(Letters), 4U);
}

TEST(Text, A_first_line_of_six_characters_is_not_longer_for_its_accents) {
  EXPECT_EQ(CharCount("v1.07:"), 6U);
  EXPECT_EQ(CharCount("v1.07\xC3\xA9"), 6U);
  EXPECT_EQ(CharCount("v1.07:\xC3\xA9"), 7U);
}

TEST(Text, FirstChars_and_LastChars_cut_between_letters) {
  struct Case {
    std::size_t Count;
    std::string_view First, Last;
  };
  const std::vector<Case> cases = {
      {0, "", ""},
      {1, "a", "\xF0\x9F\x99\x82"},
      {2, "a\xC3\xA9", "\xE2\x82\xAC\xF0\x9F\x99\x82"},
      {3, "a\xC3\xA9\xE2\x82\xAC", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x99\x82"},
      {4, Letters, Letters},
      {50, Letters, Letters}};
  for (const Case& c : cases) {
    EXPECT_EQ(FirstChars(Letters, c.Count), c.First) << c.Count;
    EXPECT_EQ(LastChars(Letters, c.Count), c.Last) << c.Count;
  }
  EXPECT_EQ(FirstChars("", 3), "");
  EXPECT_EQ(LastChars("", 3), "");
}

TEST(Text, Texts_order_by_code_point) {
  // "z" < "é" < "€" < a face, in bytes as in code points.
  const std::vector<std::string> ordered = {
      "A", "Z", "a", "z", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x99\x82"};
  for (std::size_t i = 1; i < ordered.size(); ++i) EXPECT_LT(ordered[i - 1], ordered[i]);
}

// Megabytes are looked at block by block.
TEST(Text, A_broken_byte_is_found_wherever_it_stands_in_a_long_text) {
  std::string text(5000, 'a');
  EXPECT_TRUE(IsUtf8(text));
  for (const std::size_t at : {0U, 1023U, 1024U, 2047U, 4096U, 4999U}) {
    text[at] = '\xE9';
    EXPECT_FALSE(IsUtf8(text)) << at;
    text[at] = 'a';
  }
  text.replace(1023, 2, "\xC3\xA9");
  EXPECT_TRUE(IsUtf8(text)) << "a letter that lies in two blocks";
}

TEST(Text, IsUtf8_knows_well_formed_text) {
  for (const std::string_view text :
       {std::string_view(""), std::string_view("abc"), Letters, std::string_view("\xC2\x80"),
        std::string_view("\xDF\xBF"), std::string_view("\xE0\xA0\x80"),
        std::string_view("\xED\x9F\xBF"), std::string_view("\xEE\x80\x80"),
        std::string_view("\xEF\xBF\xBF"), std::string_view("\xF0\x90\x80\x80"),
        std::string_view("\xF4\x8F\xBF\xBF"), std::string_view("a\0b", 3)}) {
    EXPECT_TRUE(IsUtf8(text)) << testing::PrintToString(text);
  }
  const std::vector<std::string_view> broken = {
      "\x80",              // no lead byte
      "\xE9",              // a lone letter of an 8-bit page
      "\xC3",              // cut off
      "\xE2\x82",          // cut off
      "\xF0\x9F\x99",      // cut off
      "\xC3(",             // lead byte without its second one
      "\xC0\x80",          // longer than it need be
      "\xC1\xBF",          // longer than it need be
      "\xE0\x9F\xBF",      // longer than it need be
      "\xF0\x8F\xBF\xBF",  // longer than it need be
      "\xED\xA0\x80",      // half of a surrogate pair
      "\xF4\x90\x80\x80",  // beyond the last code point
      "\xF5\x80\x80\x80",  // beyond the last code point
      "\xFF",
  };
  for (const std::string_view text : broken) {
    EXPECT_FALSE(IsUtf8(text)) << testing::PrintToString(text);
    EXPECT_FALSE(IsUtf8("ab" + std::string(text) + "c")) << testing::PrintToString(text);
  }
}

TEST(Text, DecodeText_keeps_valid_UTF_8_and_drops_the_mark_in_front) {
  EXPECT_EQ(DecodeText(""), "");
  EXPECT_EQ(DecodeText(std::string(Letters)), Letters);
  EXPECT_EQ(DecodeText("\xEF\xBB\xBFZ,\xC3\xA9"), "Z,\xC3\xA9");
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF"), "");
  EXPECT_EQ(DecodeText("Z\xEF\xBB\xBF"), "Z\xEF\xBB\xBF");
  EXPECT_EQ(DecodeText("\xEF\xBB"), "\xC3\xAF\xC2\xBB");
}

TEST(Text, DecodeText_reads_anything_else_as_Windows_1252) {
  EXPECT_EQ(DecodeText("caf\xE9"), "caf\xC3\xA9");
  EXPECT_EQ(DecodeText("\x80 \x85 \x92 \x96 \x99 \x9F \xFF"),
            "\xE2\x82\xAC \xE2\x80\xA6 \xE2\x80\x99 \xE2\x80\x93 \xE2\x84\xA2 \xC5\xB8 \xC3\xBF");
  // One broken byte and the whole file is of the other page, UTF-8 look-alikes included.
  EXPECT_EQ(DecodeText("\xC3\xA9 \xE9 "), "\xC3\x83\xC2\xA9 \xC3\xA9 ");
  EXPECT_EQ(DecodeText("\xC3\xA9 \xFF"), "\xC3\x83\xC2\xA9 \xC3\xBF");
  // The mark in front is no text even then.
  EXPECT_EQ(DecodeText("\xEF\xBB\xBFZ,\xE9"), "Z,\xC3\xA9");
}

TEST(Text, A_file_of_UTF_8_that_is_cut_within_a_letter_is_read_up_to_that_letter) {
  EXPECT_EQ(DecodeText("\xC3\xA9 \xC3"), "\xC3\xA9 ");
  EXPECT_EQ(DecodeText("\xC3\xA9\xE2\x82"), "\xC3\xA9");
  EXPECT_EQ(DecodeText("\xC3\xA9\xE2"), "\xC3\xA9");
  EXPECT_EQ(DecodeText("\xC3\xA9 \xF0\x9F\x99"), "\xC3\xA9 ");
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF\xC3\xA9\xC3"), "\xC3\xA9");
  // Bytes that no letter begins with.
  EXPECT_EQ(DecodeText("\xC3\xA9\xC0"), "\xC3\x83\xC2\xA9\xC3\x80");
  EXPECT_EQ(DecodeText("\xC3\xA9\xF5"), "\xC3\x83\xC2\xA9\xC3\xB5");
}

TEST(Text, Every_byte_of_Windows_1252_is_one_character) {
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    // The byte in front makes the text invalid as UTF-8.
    const std::string text = DecodeText(std::string("\xFF") + static_cast<char>(byte));
    EXPECT_EQ(CharCount(text), 2U) << byte;
    EXPECT_TRUE(IsUtf8(text)) << byte;
  }
}

TEST(Text, FactoryText_is_one_byte_a_character) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", ""},
      {"Z 200-16", "Z 200-16"},
      {"caf\xC3\xA9", "caf\xE9"},
      {"\xC2\xA0\xC2\xB0\xC3\xBF", "\xA0\xB0\xFF"},
      {"\xE2\x82\xAC", "\x80"},
      {"\xE2\x80\x98\xE2\x80\x99\xE2\x80\x93", "\x91\x92\x96"},
      {"\xC5\x92\xC5\xB8\xC5\xBD", "\x8C\x9F\x8E"},
      // Characters that the page lacks, and bytes that are no text.
      {"\xC5\x82\xF0\x9F\x99\x82\xCE\xA9", "???"},
      {"a\xC3", "a?"},
      // A line end would add a line to the file.
      {"a\r\nb\nc\rd", "a  b c d"},
      // Other control characters steer what reads the file.
      {"a\tb\x1A"
       "c\x7F",
       "a b c "},
      {std::string("a\0b", 3), "a b"},
      {"\xC2\x81\xC2\x85\xC2\x9B", "   "},
  };
  for (const auto& [text, bytes] : cases) {
    EXPECT_EQ(FactoryText(text), bytes) << testing::PrintToString(text);
  }
}

TEST(Text, Every_character_of_the_factory_page_comes_back_as_its_own_byte) {
  const std::string free = "\x81\x8D\x8F\x90\x9D";  // the five bytes without a character
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    const char c = static_cast<char>(byte);
    const std::string character = DecodeText(std::string("\xFF") + c).substr(2);
    const std::string expected(1, free.find(c) == std::string::npos ? c : ' ');
    EXPECT_EQ(FactoryText(character), expected) << byte;
  }
}

TEST(Text, A_letter_and_the_mark_that_belongs_on_it_are_one_letter_of_the_factory_page) {
  // Every letter of the page with a mark on it, as the page has it and taken apart: the letters in
  // front, the mark behind them.
  struct Case {
    const char* Mark;
    const char* Bare;
    const char* Bytes;
  };
  for (const Case& each : std::vector<Case>{
           {"\xCC\x80", "AEIOUaeiou", "\xC0\xC8\xCC\xD2\xD9\xE0\xE8\xEC\xF2\xF9"},
           {"\xCC\x81", "AEIOUYaeiouy", "\xC1\xC9\xCD\xD3\xDA\xDD\xE1\xE9\xED\xF3\xFA\xFD"},
           {"\xCC\x82", "AEIOUaeiou", "\xC2\xCA\xCE\xD4\xDB\xE2\xEA\xEE\xF4\xFB"},
           {"\xCC\x83", "ANOano", "\xC3\xD1\xD5\xE3\xF1\xF5"},
           {"\xCC\x88", "AEIOUYaeiouy", "\xC4\xCB\xCF\xD6\xDC\x9F\xE4\xEB\xEF\xF6\xFC\xFF"},
           {"\xCC\x8A", "Aa", "\xC5\xE5"},
           {"\xCC\x8C", "SZsz", "\x8A\x8E\x9A\x9E"},
           {"\xCC\xA7", "Cc", "\xC7\xE7"},
       }) {
    std::string apart;
    for (const char* bare = each.Bare; *bare != 0; ++bare) apart += *bare + std::string(each.Mark);
    EXPECT_EQ(FactoryText(apart), each.Bytes) << each.Bare;
  }
  // A mark on a letter that the page has only bare, on one that bears it already, and on none.
  EXPECT_EQ(FactoryText("x\xCC\x88 \xC3\xBC\xCC\x88 \xCC\x88"), "x? \xFC? ?");
}

TEST(Text, PadRight_fills_with_blanks_and_cuts_to_the_width) {
  EXPECT_EQ(PadRight("ab", 5), "ab   ");
  EXPECT_EQ(PadRight("abcde", 5), "abcde");
  EXPECT_EQ(PadRight("abcdefg", 5), "abcde");
  EXPECT_EQ(PadRight("", 3), "   ");
  EXPECT_EQ(PadRight("ab", 0), "");
}

TEST(Text, PadRight_counts_a_column_for_each_character_of_encoded_text) {
  EXPECT_EQ(PadRight(FactoryText("\xC3\xA9\xE2\x82\xAC"), 4), "\xE9\x80  ");
}

}  // namespace
