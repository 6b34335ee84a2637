#include "project/section_list/section_list.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "core/numbers.h"
#include "core/pasted_text.h"
#include "core/runtime_error.h"
#include "core/text.h"

namespace orvane {

namespace {

using TableRows = std::vector<CsvRow>;

bool IsEmptyText(std::string_view text) {
  return Trim(text).empty();
}

bool HasText(const CsvRow& row) {
  return !std::all_of(row.begin(), row.end(), IsEmptyText);
}

bool IsFieldEnd(char c) {
  return c == '\t' || c == '\r' || c == '\n';
}

// Fields as they stand, for a text with a quote that opens one and is meant for an inch.
TableRows PlainRows(std::string_view text) {
  TableRows rows;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
    std::string_view line = text.substr(at, end - at);
    CsvRow row;
    for (std::size_t tab = line.find('\t');
         tab != std::string_view::npos && row.size() + 1 < MostCsvFields; tab = line.find('\t')) {
      row.emplace_back(line.substr(0, tab));
      line.remove_prefix(tab + 1);
    }
    row.emplace_back(line);
    CheckCsvRows(rows.size() + 1);
    rows.push_back(std::move(row));
    at = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
  }
  return rows;
}

// Whether each double quote that opens a field has one that closes it at the field's end, as
// programs write them. Where one hasn't, quotes are what a person wrote, and mustn't swallow rows.
bool AreQuotesPairs(std::string_view text) {
  bool begins = true;  // a field
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (begins && text[at] == '"') {
      for (at = text.find('"', at + 1); at != std::string_view::npos; at = text.find('"', at + 2)) {
        if (at + 1 == text.size() || text[at + 1] != '"') break;
      }
      if (at == std::string_view::npos) return false;
      if (at + 1 < text.size() && !IsFieldEnd(text[at + 1])) return false;
      begins = false;
      continue;
    }
    begins = IsFieldEnd(text[at]);
  }
  return true;
}

TableRows RowsOfBlock(std::string_view text) {
  CheckCsvSize(text.size());
  if (!AreQuotesPairs(text)) return PlainRows(text);
  return ReadCsv(text, '\t');
}

bool HoldsDigit(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos;
}

auto NamedIn(const CsvRow& row) {
  return std::count_if(row.begin(), row.end(),
                       [](const std::string& cell) { return ListColumnNamed(cell) > 0; });
}

bool AreHeadings(const CsvRow& row) {
  const auto named = NamedIn(row);
  return named > 1 || (named == 1 && std::none_of(row.begin(), row.end(), HoldsDigit));
}

// The row that names columns: the first one, or one a little below it, under the title of the list
// and the job that it was made for, that names two. The first one where there is none.
TableRows::const_iterator HeadingsBelow(TableRows::const_iterator first,
                                        TableRows::const_iterator end) {
  constexpr std::ptrdiff_t MostTitles = 20;
  const auto last = first + std::min(MostTitles, end - first);
  const auto found = std::find_if(first, last, [](const CsvRow& row) { return NamedIn(row) > 1; });
  return found == last ? first : found;
}

// What stands in a column of the table.
struct TableColumn {
  int Column = 0;  // of the list; 0 for none
  bool InMetres = false;
};

std::string ColumnName(std::size_t at) {
  return "column " + DecimalText(static_cast<long long>(at) + 1);
}

bool HasTextAt(const TableRows& table, std::size_t at) {
  return std::any_of(table.begin(), table.end(),
                     [at](const CsvRow& row) { return at < row.size() && !IsEmptyText(row[at]); });
}

// A list's columns by their headings.
std::vector<TableColumn> NamedColumns(const CsvRow& headings, const TableRows& table,
                                      std::size_t count, SectionList& list) {
  std::vector<TableColumn> columns(count);
  std::array<bool, ListColumnsEnd> seen = {};
  for (std::size_t at = 0; at < count; ++at) {
    const std::string heading = at < headings.size() ? headings[at] : std::string();
    const int named = ListColumnNamed(heading);
    if (named > 0 && !std::exchange(seen.at(static_cast<std::size_t>(named)), true)) {
      columns[at] = {named, named == LengthColumn && IsInMetres(heading)};
    } else if (!IsEmptyText(heading)) {
      list.OtherColumns.emplace_back(Trim(heading));
    } else if (HasTextAt(table, at)) {
      list.OtherColumns.push_back(ColumnName(at));
    }
  }
  return columns;
}

// The same without headings, from a column on.
std::vector<TableColumn> ColumnsFrom(int first, const TableRows& table, std::size_t count,
                                     SectionList& list) {
  std::vector<TableColumn> columns(count);
  for (std::size_t at = 0; at < count; ++at) {
    const int column = first + static_cast<int>(at);
    if (column < ListColumnsEnd) {
      columns[at].Column = column;
    } else if (HasTextAt(table, at)) {
      list.OtherColumns.push_back(ColumnName(at));
    }
  }
  return columns;
}

std::string CellText(const std::string& given, const TableColumn& column) {
  std::string text = PastedLine(UnguardedText(given));
  const bool number = HoldsDigit(text) && text.find_first_of("mM") == std::string::npos;
  if (column.InMetres && number) text += " m";
  return text;
}

}  // namespace

std::string LeftOutOf(const SectionList& list) {
  std::string columns;
  for (const std::string& column : list.OtherColumns) {
    columns += (columns.empty() ? "Columns that are left out: " : ", ") + column;
  }
  std::string rows;
  for (const int row : list.RowsAbove) {
    rows += (rows.empty() ? "Rows above the headings: " : ", ") + DecimalText(row);
  }
  return columns + (columns.empty() || rows.empty() ? "" : ". ") + rows;
}

bool IsBlock(std::string_view text, int column) {
  while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
  const bool tabs = text.find('\t') != std::string_view::npos;
  const bool lines = text.find_first_of("\r\n") != std::string_view::npos;
  if (lines) return tabs || column != NotesColumn;
  // One text among blank cells needs no preview.
  constexpr std::string_view Blanks = " \t";
  const std::size_t first = text.find_first_not_of(Blanks);
  if (!tabs || first == std::string_view::npos) return false;
  const std::size_t last = text.find_last_not_of(Blanks);
  return text.substr(first, last - first).find('\t') != std::string_view::npos;
}

SectionList ListOfBlock(std::string_view text, int column) {
  return ListOfTable(RowsOfBlock(text), std::max(column, MarkColumn));
}

SectionList ListOfFile(std::string bytes) {
  const std::string text = DecodeCsv(std::move(bytes));
  return ListOfTable(ReadCsv(text, CsvSeparator(text)), MarkColumn);
}

SectionList ListOfTable(const std::vector<CsvRow>& table, int firstColumn) {
  SectionList list;
  auto first = std::find_if(table.begin(), table.end(), HasText);
  if (first == table.end()) return list;
  const auto lower = HeadingsBelow(first, table.end());
  for (auto above = first; above != lower; ++above) {
    if (HasText(*above)) list.RowsAbove.push_back(static_cast<int>(above - table.begin()) + 1);
  }
  first = lower;
  const bool headed = AreHeadings(*first);
  std::size_t widest = 0;
  for (const CsvRow& row : table) {
    if (HasText(row)) widest = std::max(widest, row.size());
  }
  const std::vector<TableColumn> columns = headed ? NamedColumns(*first, table, widest, list)
                                                  : ColumnsFrom(firstColumn, table, widest, list);
  list.HasMarks = std::any_of(columns.begin(), columns.end(), [](const TableColumn& column) {
    return column.Column == MarkColumn;
  });
  for (auto row = headed ? first + 1 : first; row != table.end(); ++row) {
    ListRow taken;
    taken.Number = static_cast<int>(row - table.begin()) + 1;
    bool empty = true;
    for (std::size_t at = 0; at < std::min(row->size(), columns.size()); ++at) {
      if (columns[at].Column == 0) continue;
      std::string text = CellText((*row)[at], columns[at]);
      empty = empty && IsEmptyText(text);
      taken.Texts.at(static_cast<std::size_t>(columns[at].Column)) = std::move(text);
    }
    if (!empty) list.Rows.push_back(std::move(taken));
  }
  if (list.Rows.size() > MostListRows) {
    throw RuntimeError(
        Failure::Overflow,
        "The list has more than " + DecimalText(static_cast<long long>(MostListRows)) + " rows");
  }
  return list;
}

}  // namespace orvane
