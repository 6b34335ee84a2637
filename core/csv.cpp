#include "core/csv.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <utility>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/text.h"

namespace orvane {

namespace {

constexpr char Quote = '"';

void AppendUtf8(std::string& text, std::uint32_t letter) {
  const auto put = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (letter < 0x80) return put(letter);
  if (letter < 0x800) {
    put(0xC0 | (letter >> 6));
  } else if (letter < 0x10000) {
    put(0xE0 | (letter >> 12));
    put(0x80 | ((letter >> 6) & 0x3F));
  } else {
    put(0xF0 | (letter >> 18));
    put(0x80 | ((letter >> 12) & 0x3F));
    put(0x80 | ((letter >> 6) & 0x3F));
  }
  put(0x80 | (letter & 0x3F));
}

// `first` is the byte of a unit that holds its upper half, 0 or 1.
std::string DecodeUtf16(std::string_view bytes, std::size_t upper) {
  constexpr std::uint32_t Unknown = 0xFFFD;
  const auto unit = [&](std::size_t at) {
    const auto byte = [&](std::size_t place) {
      return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[place]));
    };
    return (byte(at + upper) << 8) | byte(at + 1 - upper);
  };
  std::string text;
  std::size_t at = 0;
  for (; at + 1 < bytes.size(); at += 2) {
    std::uint32_t letter = unit(at);
    const bool isFirstHalf = letter >= 0xD800 && letter < 0xDC00;
    const bool isSecondHalf = letter >= 0xDC00 && letter < 0xE000;
    if (isFirstHalf && at + 3 < bytes.size()) {
      const std::uint32_t second = unit(at + 2);
      if (second >= 0xDC00 && second < 0xE000) {
        AppendUtf8(text, 0x10000 + ((letter - 0xD800) << 10) + (second - 0xDC00));
        at += 2;
        continue;
      }
    }
    AppendUtf8(text, isFirstHalf || isSecondHalf ? Unknown : letter);
  }
  if (at < bytes.size()) AppendUtf8(text, Unknown);
  return text;
}

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

// Fields of each of the first rows, as ReadCsv would part them.
std::vector<std::size_t> FieldCounts(std::string_view text, char separator) {
  constexpr std::size_t Looked = 20;
  std::vector<std::size_t> counts(1, 1);
  bool quoted = false;
  bool begins = true;  // a field does
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    const bool opens = begins && c == Quote;
    begins = false;
    if (quoted || opens) {
      // Of two quotes within quotes each ends them and begins them again.
      if (c == Quote) quoted = !quoted;
      if (!quoted) begins = text.substr(at + 1, 1) == "\"";
      continue;
    }
    begins = c == separator || IsLineEnd(c);
    if (c == separator) ++counts.back();
    if (!IsLineEnd(c) || text.substr(at, 2) == "\r\n") continue;
    if (counts.size() == Looked) break;
    counts.push_back(1);
  }
  return counts;
}

// The number of the row that is read behind those.
std::string NumberOf(const std::vector<CsvRow>& rows) {
  return DecimalText(static_cast<long long>(rows.size()) + 1);
}

bool NeedsQuotes(std::string_view field, char separator) {
  if (field.empty()) return false;
  if (field.front() == ' ' || field.back() == ' ') return true;
  return std::any_of(field.begin(), field.end(),
                     [separator](char c) { return c == separator || c == Quote || IsLineEnd(c); });
}

bool BeginsFormula(std::string_view text) {
  const std::size_t first = text.find_first_not_of('\'');
  return first != std::string_view::npos &&
         std::string_view("=+-@").find(text[first]) != std::string_view::npos;
}

}  // namespace

void CheckCsvSize(std::size_t bytes) {
  if (bytes > MostCsvBytes) {
    throw RuntimeError(Failure::Overflow, "The list is longer than 64 MB");
  }
}

void CheckCsvRows(std::size_t rows) {
  if (rows > MostCsvRows) {
    throw RuntimeError(
        Failure::Overflow,
        "The list has more than " + DecimalText(static_cast<long long>(MostListRows)) + " rows");
  }
}

std::string DecodeCsv(std::string bytes) {
  CheckCsvSize(bytes.size());
  const std::string_view view = bytes;
  if (view.substr(0, 2) == "\xFF\xFE") return DecodeUtf16(view.substr(2), 1);
  if (view.substr(0, 2) == "\xFE\xFF") return DecodeUtf16(view.substr(2), 0);
  return DecodeText(std::move(bytes));
}

char CsvSeparator(std::string_view text) {
  constexpr std::array<char, 3> Separators = {'\t', ';', ','};
  char best = ',';
  std::size_t most = 0;
  for (const char separator : Separators) {
    // Rows of as many fields, times their fields: one comma in each note says less than four
    // semicolons in each row.
    std::map<std::size_t, std::size_t> alike;
    for (const std::size_t fields : FieldCounts(text, separator)) {
      if (fields > 1) alike[fields] += fields;
    }
    for (const auto& [fields, weight] : alike) {
      if (weight <= most) continue;
      most = weight;
      best = separator;
    }
  }
  return best;
}

std::vector<CsvRow> ReadCsv(std::string_view text, char separator) {
  std::vector<CsvRow> rows;
  std::size_t at = 0;
  const auto atEnd = [&] { return at == text.size(); };
  while (!atEnd()) {
    CheckCsvRows(rows.size() + 1);
    CsvRow row;
    for (bool more = true; more;) {
      if (row.size() == MostCsvFields) {
        throw RuntimeError(Failure::Overflow,
                           "Row " + NumberOf(rows) + " has more than " +
                               DecimalText(static_cast<long long>(MostCsvFields)) + " columns");
      }
      std::string field;
      if (!atEnd() && text[at] == Quote) {
        bool closed = false;
        for (++at; !atEnd() && !closed;) {
          const bool doubled = text.substr(at, 2) == "\"\"";
          closed = text[at] == Quote && !doubled;
          if (!closed) field += text[at];
          at += doubled ? 2 : 1;
        }
        if (!closed) {
          throw RuntimeError(Failure::InputPastEndOfFile,
                             "A quote in row " + NumberOf(rows) + " is not closed");
        }
      }
      while (!atEnd() && text[at] != separator && !IsLineEnd(text[at])) field += text[at++];
      row.push_back(std::move(field));
      more = !atEnd() && text[at] == separator;
      if (more) ++at;
    }
    if (!atEnd()) at += text.substr(at, 2) == "\r\n" ? 2 : 1;
    rows.push_back(std::move(row));
  }
  return rows;
}

std::string CsvText(const std::vector<CsvRow>& rows, char separator) {
  std::string text;
  for (const CsvRow& row : rows) {
    for (std::size_t at = 0; at < row.size(); ++at) {
      if (at > 0) text += separator;
      if (!NeedsQuotes(row[at], separator)) {
        text += row[at];
        continue;
      }
      text += Quote;
      for (const char c : row[at]) {
        if (c == Quote) text += Quote;
        text += c;
      }
      text += Quote;
    }
    text += "\r\n";
  }
  return text;
}

std::string GuardedText(std::string_view text) {
  return BeginsFormula(text) ? "'" + std::string(text) : std::string(text);
}

std::string UnguardedText(std::string_view text) {
  const bool isGuarded = !text.empty() && text.front() == '\'' && BeginsFormula(text);
  return std::string(isGuarded ? text.substr(1) : text);
}

}  // namespace orvane
