// Tables as text files: rows of fields between separators, as spreadsheets write and read them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

using CsvRow = std::vector<std::string>;

// More rows than a heading and all that a job can hold, more bytes than any list of them takes, and
// rows of more fields than anybody has columns are refused: 64 MB of nothing but separators would
// take 2 GB here.
constexpr std::size_t MostListRows = 32767;
constexpr std::size_t MostCsvRows = MostListRows + 1;
constexpr std::size_t MostCsvFields = 256;
constexpr std::size_t MostCsvBytes = std::size_t{64} << 20;

// Raise the errors for more than these.
void CheckCsvSize(std::size_t bytes);
void CheckCsvRows(std::size_t rows);

// The bytes of such a file as UTF-8 without a mark: UTF-16 by the mark in front, else as
// DecodeText. Half a letter of UTF-16 becomes U+FFFD. More than MostCsvBytes raise an error.
std::string DecodeCsv(std::string bytes);

// What separates the fields: a tab, a semicolon or a comma, whichever gives the rows up to the
// first twenty the most fields alike; of equals the first of these. Separators between quotes don't
// count.
char CsvSeparator(std::string_view text);

// The rows of a text. CR LF, LF and a lone CR each end one, but not between quotes; the last one
// needs no end. A field that begins with a double quote runs to the closing one, two of them being
// one that belongs to it; what stands behind the closing one is kept. Empty rows come as one empty
// field, so that a row's number is that in the file as long as no field holds a line end. A quote
// that is never closed, more than MostCsvRows, and more than MostCsvFields in one, raise an error.
std::vector<CsvRow> ReadCsv(std::string_view text, char separator);

// The text of rows, each ended by CR LF: a field that holds the separator, a double quote or a line
// end, or begins or ends with a blank, stands between quotes.
std::string CsvText(const std::vector<CsvRow>& rows, char separator);

// A text that a spreadsheet must not take for a formula: an apostrophe in front of one that begins
// with = + - @; and the text that it was made of.
std::string GuardedText(std::string_view text);
std::string UnguardedText(std::string_view text);

}  // namespace orvane
