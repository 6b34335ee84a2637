// Tables as spreadsheets write and read them.
#include "core/csv.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/runtime_error.h"

namespace orvane {
namespace {

using Rows = std::vector<CsvRow>;

std::string ErrorOfReading(const std::string& text) {
  try {
    ReadCsv(text, ',');
  } catch (const RuntimeError& error) {
    return error.Description();
  }
  return {};
}

TEST(Csv, Rows_end_as_any_system_ends_lines) {
  const Rows two = {{"Mark", "Qty"}, {"P1", "4"}};
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    EXPECT_EQ(ReadCsv("Mark,Qty" + end + "P1,4" + end, ','), two);
    EXPECT_EQ(ReadCsv("Mark,Qty" + end + "P1,4", ','), two);
  }
  EXPECT_EQ(ReadCsv("", ','), Rows{});
  EXPECT_EQ(ReadCsv("a\n\nb", ','), (Rows{{"a"}, {""}, {"b"}}));
  EXPECT_EQ(ReadCsv("a,\n,b", ','), (Rows{{"a", ""}, {"", "b"}}));
}

TEST(Csv, Quotes_hold_separators_line_ends_and_quotes) {
  EXPECT_EQ(ReadCsv("\"a,b\",c\n", ','), (Rows{{"a,b", "c"}}));
  EXPECT_EQ(ReadCsv("\"two\r\nlines\";1", ';'), (Rows{{"two\r\nlines", "1"}}));
  EXPECT_EQ(ReadCsv("\"12\"\" deep\",x", ','), (Rows{{"12\" deep", "x"}}));
  EXPECT_EQ(ReadCsv("\"\",x", ','), (Rows{{"", "x"}}));
  EXPECT_EQ(ReadCsv("\"a\" b,x", ','), (Rows{{"a b", "x"}}));
  EXPECT_EQ(ReadCsv("12\" deep,x", ','), (Rows{{"12\" deep", "x"}}));
  EXPECT_EQ(ReadCsv("\"a\"", ','), (Rows{{"a"}}));
}

TEST(Csv, A_quote_that_is_never_closed_is_told_with_its_row) {
  EXPECT_EQ(ErrorOfReading("a,b\nc,\"d\n"), "A quote in row 2 is not closed");
  EXPECT_EQ(ErrorOfReading("a,\""), "A quote in row 1 is not closed");
}

TEST(Csv, No_more_rows_are_read_than_a_job_holds) {
  std::string most;
  for (std::size_t row = 0; row < MostCsvRows; ++row) most += "P,1\n";
  // A heading and 32,767 sections.
  EXPECT_EQ(ReadCsv(most, ',').size(), 32768U);
  EXPECT_EQ(ErrorOfReading(most + "P,1\n"), "The list has more than 32767 rows");
}

TEST(Csv, A_file_of_separators_takes_no_memory_beyond_measure) {
  EXPECT_EQ(ReadCsv(std::string(255, ','), ',').front().size(), 256U);
  EXPECT_EQ(ErrorOfReading("P,1\n" + std::string(256, ',')), "Row 2 has more than 256 columns");
}

TEST(Csv, A_file_that_is_too_long_is_not_read) {
  EXPECT_EQ(DecodeCsv(std::string(MostCsvBytes, 'a')).size(), MostCsvBytes);
  EXPECT_THROW(DecodeCsv(std::string(MostCsvBytes + 1, 'a')), RuntimeError);
}

TEST(Csv, The_separator_is_found_out) {
  EXPECT_EQ(CsvSeparator("Mark,Qty\nP1,4\n"), ',');
  EXPECT_EQ(CsvSeparator("Mark;Length;Qty\nP1;7,5;4\n"), ';');
  EXPECT_EQ(CsvSeparator("Mark\tNotes\nP1\ta, b; c\n"), '\t');
  EXPECT_EQ(CsvSeparator("\"a;b;c\",1\n\"d\",2\n"), ',');
  EXPECT_EQ(CsvSeparator("Mark\nP1\n"), ',');
  EXPECT_EQ(CsvSeparator(""), ',');
  // Each line end of any system ends a row.
  EXPECT_EQ(CsvSeparator("a;b\rc,d,e;f\r"), ';');
  EXPECT_EQ(CsvSeparator("a;b\r\nc,d,e;f\r\n"), ';');
  // A sign for inches in the middle of a field opens no quotes.
  EXPECT_EQ(CsvSeparator("12\" deep;1\n10 deep;1\n"), ';');
  EXPECT_EQ(CsvSeparator("\"say \"\"a,b\"\", c\";1\n"), ';');
}

TEST(Csv, Bytes_of_any_spreadsheet_become_UTF_8) {
  EXPECT_EQ(DecodeCsv("\xEF\xBB\xBFn\xC3\xA9"), "n\xC3\xA9");
  EXPECT_EQ(DecodeCsv("n\xE9"), "n\xC3\xA9");
  EXPECT_EQ(DecodeCsv(std::string("\xFF\xFEn\0\xE9\0", 6)), "n\xC3\xA9");
  EXPECT_EQ(DecodeCsv(std::string("\xFE\xFF\0n\0\xE9", 6)), "n\xC3\xA9");
  // U+20AC of three bytes, U+1F600 of four, which is two units there.
  EXPECT_EQ(DecodeCsv(std::string("\xFF\xFE\xAC\x20\x3D\xD8\x00\xDE", 8)),
            "\xE2\x82\xAC\xF0\x9F\x98\x80");
  // Half a letter, and half a unit.
  EXPECT_EQ(DecodeCsv(std::string("\xFF\xFE\x3D\xD8n", 5)), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(DecodeCsv(std::string("\xFF\xFE\x00\xDEn\0", 6)), "\xEF\xBF\xBDn");
}

TEST(Csv, What_is_written_comes_back) {
  const Rows rows = {{"P1", "a,b", "c;d", "12\" deep"}, {" led", "trailing ", "two\nlines", ""}};
  for (const char separator : {',', ';', '\t'}) {
    EXPECT_EQ(ReadCsv(CsvText(rows, separator), separator), rows);
  }
  EXPECT_EQ(CsvText({{"P1", "a,b"}, {"P2", "12\" deep"}}, ','),
            "P1,\"a,b\"\r\nP2,\"12\"\" deep\"\r\n");
  EXPECT_EQ(CsvText({{"P1", "a,b"}}, ';'), "P1;a,b\r\n");
}

TEST(Csv, A_text_stays_a_text) {
  for (const std::string formula : {"=1+1", "+P1", "-A", "@b", "'=x", "''-y"}) {
    EXPECT_EQ(GuardedText(formula), "'" + formula);
    EXPECT_EQ(UnguardedText(GuardedText(formula)), formula);
  }
  for (const std::string plain : {"", "P1", "'", "'s end", "A-B"}) {
    EXPECT_EQ(GuardedText(plain), plain);
    EXPECT_EQ(UnguardedText(plain), plain);
  }
}

}  // namespace
}  // namespace orvane
