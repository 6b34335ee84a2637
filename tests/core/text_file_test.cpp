#include "core/text_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/numbers.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;
using orvane::test::ErrorOf;

using Fields = std::vector<std::string>;

Fields FieldsOf(const std::string& text) {
  TextFile file(text);
  Fields fields;
  while (!file.AtEnd()) fields.emplace_back(file.ReadField());
  return fields;
}

struct FieldCase {
  std::string Text;
  Fields Expected;
};

void ExpectFields(const std::vector<FieldCase>& cases) {
  for (const FieldCase& c : cases) {
    EXPECT_EQ(FieldsOf(c.Text), c.Expected) << testing::PrintToString(c.Text);
  }
}

// --- Read-field

TEST(TextFiles, ReadField_reads_up_to_the_next_comma_or_line_end_and_consumes_it) {
  ExpectFields({
      {"", {}},
      {"a", {"a"}},
      {"a,b", {"a", "b"}},
      {"a,b\nc,d\n", {"a", "b", "c", "d"}},
      {"a,,c", {"a", "", "c"}},
      {",a", {"", "a"}},
      {",,\n", {"", "", ""}},
      // A comma as the very last character leaves the file at its end.
      {"a,", {"a"}},
      {",", {""}},
      {"a\n,", {"a", ""}},
  });
}

TEST(TextFiles, ReadField_skips_leading_blanks_and_keeps_trailing_ones) {
  ExpectFields({
      {"  ab,  cd\nef", {"ab", "cd", "ef"}},
      {" a b ,c ", {"a b ", "c "}},
      {"   ,   \n  ", {"", "", ""}},
      {" \ta", {"\ta"}},
      {"\xC2\xA0"
       "a",
       {"\xC2\xA0"
        "a"}},
  });
}

TEST(TextFiles, An_empty_line_is_one_empty_field) {
  ExpectFields({
      {"\nx", {"", "x"}},
      {"a\n\n\nb\n", {"a", "", "", "b"}},
      {"\n", {""}},
      {"\r\n\r\n", {"", ""}},
  });
}

TEST(TextFiles, CR_LF_and_LF_and_a_lone_CR_each_end_a_line) {
  ExpectFields({
      {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
      {"a\rb\r", {"a", "b"}},
      {"a\n\rb", {"a", "", "b"}},
      {"a\r\r\nb", {"a", "", "b"}},
      {"S,Y\r\n*\r\n", {"S", "Y", "*"}},
  });
}

TEST(TextFiles, A_quoted_field_runs_to_the_closing_quote_and_drops_the_quotes) {
  ExpectFields({
      {"\"a,b\",c", {"a,b", "c"}},
      {"\"\",x", {"", "x"}},
      {"\"  a  \",x", {"  a  ", "x"}},
      {"   \"a\"\nb", {"a", "b"}},
      {"\"a\"\r\nb", {"a", "b"}},
      {"\"a\"", {"a"}},
      {"\"a\",", {"a"}},
      {"x,\"a,b\"\n\"c\nd\",e", {"x", "a,b", "c\nd", "e"}},
      {"\"a\r\nb\rc\"\nd", {"a\r\nb\rc", "d"}},
      // Only a quote in front begins a quoted field.
      {"2\"x4\",b", {"2\"x4\"", "b"}},
  });
}

TEST(TextFiles, What_follows_a_closing_quote_is_dropped_up_to_the_comma_or_line_end) {
  ExpectFields({
      {"\"ab\"c,d", {"ab", "d"}},
      {"\"ab\"c\nd", {"ab", "d"}},
      {"\"ab\" ,d", {"ab", "d"}},
      {"\"ab\"c", {"ab"}},
      {"\"6\" bolts, long\",d", {"6", "long\"", "d"}},
      {"\"a\"\"b\",c", {"a", "c"}},
  });
}

TEST(TextFiles, A_quoted_field_without_its_closing_quote_runs_to_the_end_of_the_file) {
  TextFile file("a\n\"b,c\r\nd\n");
  EXPECT_EQ(file.ReadField(), "a");
  EXPECT_EQ(file.ReadField(), "b,c\r\nd\n");
  EXPECT_TRUE(file.AtEnd());
  EXPECT_EQ(ErrorOf([&] { file.ReadField(); }), "Input past end of file");
}

TEST(TextFiles, A_lone_quote_at_the_end_is_an_empty_field) {
  ExpectFields({{"a,\"", {"a", ""}}});
}

TEST(TextFiles, ReadField_at_the_end_of_the_file_is_an_error_each_time) {
  TextFile empty("");
  EXPECT_TRUE(empty.AtEnd());
  EXPECT_EQ(ErrorOf([&] { empty.ReadField(); }), "Input past end of file");
  TextFile file("a\n");
  EXPECT_EQ(file.ReadField(), "a");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(ErrorOf([&] { file.ReadField(); }), "Input past end of file");
  }
}

TEST(TextFiles, The_file_is_at_its_end_when_no_byte_is_left_behind_the_last_line_end) {
  TextFile file("a\nb\r\n");
  file.ReadField();
  EXPECT_FALSE(file.AtEnd());
  file.ReadField();
  EXPECT_TRUE(file.AtEnd());
}

TEST(TextFiles, ReadField_goes_on_into_the_next_line_where_a_row_is_too_short) {
  // Two cells are asked of the first row, which has one.
  TextFile file("a\nb,c\n");
  EXPECT_EQ(file.ReadField(), "a");
  EXPECT_EQ(file.ReadField(), "b");
  EXPECT_EQ(file.ReadField(), "c");
}

TEST(TextFiles, Bytes_of_every_value_are_read) {
  EXPECT_EQ(FieldsOf(std::string("a\0b,\x01\n", 6)), (Fields{std::string("a\0b", 3), "\x01"}));
}

// --- Read-rest-of-line

TEST(TextFiles, ReadRestOfLine_gives_what_is_left_and_moves_to_the_next_line) {
  TextFile file("a,b, c ,d\ne,f\r\ng");
  EXPECT_EQ(file.ReadField(), "a");
  EXPECT_EQ(file.ReadRestOfLine(), "b, c ,d");
  EXPECT_EQ(file.ReadField(), "e");
  EXPECT_EQ(file.ReadRestOfLine(), "f");
  EXPECT_EQ(file.ReadField(), "g");
  EXPECT_TRUE(file.AtEnd());
}

TEST(TextFiles, ReadRestOfLine_takes_quotes_and_blanks_as_they_stand) {
  TextFile file("a, \"b,\nc\"\n");
  file.ReadField();
  EXPECT_EQ(file.ReadRestOfLine(), " \"b,");
  EXPECT_EQ(file.ReadField(), "c\"");
}

TEST(TextFiles, ReadRestOfLine_at_a_lines_start_takes_the_whole_line) {
  TextFile file("a,b\n\nc\n");
  EXPECT_EQ(file.ReadRestOfLine(), "a,b");
  EXPECT_EQ(file.ReadRestOfLine(), "");
  EXPECT_EQ(file.ReadRestOfLine(), "c");
  EXPECT_TRUE(file.AtEnd());
}

TEST(TextFiles, Behind_a_field_that_ended_its_line_the_row_is_over_and_the_row_below_stays) {
  for (const std::string& end : {std::string("\n"), std::string("\r\n"), std::string("\r")}) {
    // The first row ends exactly with its last cell, the second has a comma more, the third many.
    TextFile file("a,b" + end + "c,d," + end + "e,f,,,x" + end + "g");
    const std::vector<Fields> expected = {{"a", "b", ""}, {"c", "d", ""}, {"e", "f", ",,x"}};
    for (const Fields& row : expected) {
      EXPECT_EQ(file.ReadField(), row[0]);
      EXPECT_EQ(file.ReadField(), row[1]);
      EXPECT_EQ(file.ReadRestOfLine(), row[2]);
    }
    EXPECT_EQ(file.ReadField(), "g");
  }
}

TEST(TextFiles, A_quoted_field_that_ends_its_line_ends_the_row_too) {
  TextFile file("\"a\"x\nb\n");
  EXPECT_EQ(file.ReadField(), "a");
  EXPECT_EQ(file.ReadRestOfLine(), "");
  EXPECT_EQ(file.ReadField(), "b");
}

TEST(TextFiles, A_rest_read_twice_behind_a_rows_last_field_takes_the_row_below) {
  TextFile file("a\nb,c\nd");
  file.ReadField();
  EXPECT_EQ(file.ReadRestOfLine(), "");
  EXPECT_EQ(file.ReadRestOfLine(), "b,c");
  EXPECT_EQ(file.ReadField(), "d");
}

TEST(TextFiles, ReadRestOfLine_at_the_end_of_the_file_is_empty_and_no_error) {
  TextFile file("a,b,c,S");
  for (int i = 0; i < 4; ++i) file.ReadField();
  EXPECT_TRUE(file.AtEnd());
  EXPECT_EQ(file.ReadRestOfLine(), "");
  EXPECT_EQ(file.ReadRestOfLine(), "");
  TextFile comma("a,");
  comma.ReadField();
  EXPECT_EQ(comma.ReadRestOfLine(), "");
  TextFile empty("");
  EXPECT_EQ(empty.ReadRestOfLine(), "");
}

TEST(TextFiles, A_last_row_without_a_line_end_gives_its_rest) {
  TextFile file("a,S,*");
  file.ReadField();
  file.ReadField();
  EXPECT_EQ(file.ReadRestOfLine(), "*");
  EXPECT_TRUE(file.AtEnd());
}

// --- Numbers

TEST(TextFiles, Numbers_are_read_strictly) {
  TextFile file(" 12, 2.5,22.5 ,\"7\",1E-14\n");
  EXPECT_EQ(file.ReadInt16(), 12);
  EXPECT_EQ(file.ReadInt16(), 2);
  EXPECT_EQ(file.ReadFloat(), 22.5F);
  EXPECT_EQ(file.ReadInt16(), 7);
  EXPECT_EQ(file.ReadDouble(), 1e-14);
  EXPECT_EQ(ErrorOf([&] { file.ReadInt16(); }), "Input past end of file");
}

TEST(TextFiles, A_field_that_is_no_number_or_empty_is_a_Type_mismatch) {
  for (const char* text : {"x\n", "\n", "  ,\n", "5mm\n", "1 2\n"}) {
    EXPECT_EQ(ErrorOf([&] { TextFile(text).ReadInt16(); }), "Type mismatch") << text;
    EXPECT_EQ(ErrorOf([&] { TextFile(text).ReadFloat(); }), "Type mismatch") << text;
    EXPECT_EQ(ErrorOf([&] { TextFile(text).ReadDouble(); }), "Type mismatch") << text;
  }
  EXPECT_EQ(ErrorOf([] { TextFile("32768\n").ReadInt16(); }), "Overflow");
}

// --- Where the last field began

TEST(TextFiles, Row_and_column_tell_where_the_last_field_began) {
  TextFile file("a,b\r\n\n\"c\r\nd\re\",f\rg,h,i\nj");
  struct Case {
    const char* Field;
    int Row, Column;
  };
  EXPECT_EQ(file.Row(), 0);
  EXPECT_EQ(file.Column(), 0);
  for (const Case& c : std::vector<Case>{
           {"a", 1, 1}, {"b", 1, 2}, {"", 2, 1}, {"c\r\nd\re", 3, 1}, {"f", 5, 2}, {"g", 6, 1}}) {
    EXPECT_EQ(file.ReadField(), c.Field);
    EXPECT_EQ(file.Row(), c.Row) << c.Field;
    EXPECT_EQ(file.Column(), c.Column) << c.Field;
  }
  file.ReadRestOfLine();
  file.ReadField();
  EXPECT_EQ(file.Row(), 7);
  EXPECT_EQ(file.Column(), 1);
}

// --- Opening

class TextFileOpening : public orvane::test::SystemTest {};

TEST_F(TextFileOpening, A_file_is_read_as_UTF_8_or_as_Windows_1252_without_its_mark) {
  EXPECT_EQ(TextFile::Open(TempFile("a.csv", "\xEF\xBB\xBFZ,\xC3\xA9\r\n")).ReadField(), "Z");
  EXPECT_EQ(TextFile::Open(TempFile("b.csv", "\xC3\xA9\r\n")).ReadField(), "\xC3\xA9");
  EXPECT_EQ(TextFile::Open(TempFile("c.csv", "\xE9\r\n")).ReadField(), "\xC3\xA9");
  EXPECT_TRUE(TextFile::Open(TempFile("d.csv", "")).AtEnd());
}

TEST(TextFiles, Bytes_that_are_UTF_8_are_read_where_they_stand) {
  const std::string bytes =
      "\xEF\xBB\xBF"
      "a,\xC3\xA9\r\n";
  TextFile file = TextFile::Over(bytes);
  const std::string_view first = file.ReadField();
  EXPECT_EQ(first, "a");
  EXPECT_EQ(first.data(), bytes.data() + 3) << "behind the mark, and no copy";
  EXPECT_EQ(file.ReadField(), "\xC3\xA9");
  EXPECT_TRUE(file.AtEnd());
}

TEST(TextFiles, Other_bytes_are_read_as_Windows_1252_behind_a_mark_too) {
  const std::string plain = "caf\xE9,b\r\n";
  const std::string marked = "\xEF\xBB\xBF" + plain;
  for (const std::string& bytes : {plain, marked}) {
    TextFile file = TextFile::Over(bytes);
    EXPECT_EQ(file.ReadField(), "caf\xC3\xA9");
    EXPECT_EQ(file.ReadField(), "b");
  }
}

TEST_F(TextFileOpening, A_missing_file_is_an_error) {
  EXPECT_EQ(ErrorOf([&] { TextFile::Open(TempPath("gone.csv")); }), "File not found");
  EXPECT_EQ(ErrorOf([&] { TextFile::Open(TempPath("gone/gone.csv")); }), "Path not found");
}

// --- Writing

TEST(LineWriting, Lines_end_with_carriage_return_and_line_feed) {
  LineWriter writer;
  writer.Line("v1.07:12");
  writer.Line();
  writer.QuotedLine("a \"b\", c");
  writer.QuotedLine("");
  writer.NumberLine(std::int16_t{5});
  writer.NumberLine(True);
  writer.NumberLine(-22.5F);
  writer.NumberLine(0.25);
  const std::string expected =
      "v1.07:12\r\n\r\n\"a \"b\", c\"\r\n\"\"\r\n 5 \r\n-1 \r\n-22.5 \r\n 0.25 \r\n";
  EXPECT_EQ(writer.Text(), expected);
  EXPECT_EQ(writer.TakeText(), expected);
}

TEST(LineWriting, What_is_written_is_read_back_field_by_field) {
  LineWriter writer;
  writer.Line("plain");
  writer.QuotedLine(" quoted, with comma ");
  writer.Line();
  writer.NumberLine(-1.5);
  writer.QuotedLine("\xC3\xA9");
  TextFile file(writer.Text());
  EXPECT_EQ(file.ReadField(), "plain");
  EXPECT_EQ(file.ReadField(), " quoted, with comma ");
  EXPECT_EQ(file.ReadField(), "");
  EXPECT_EQ(file.ReadDouble(), -1.5);
  EXPECT_EQ(file.ReadField(), "\xC3\xA9");
  EXPECT_TRUE(file.AtEnd());
}

TEST(LineWriting, A_plain_line_of_one_blank_is_read_back_as_empty) {
  LineWriter writer;
  writer.Line(" ");
  EXPECT_EQ(FieldsOf(writer.Text()), (Fields{""}));
}

}  // namespace
