// A list of sections from elsewhere, read but not looked at yet: which text is meant for which
// column of which row. What becomes of it is a plan (section_plan).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/csv.h"
#include "project/section_list/list_columns.h"

namespace orvane {

// The texts of a row by their columns; what isn't there isn't given.
using ListTexts = std::array<std::optional<std::string>, ListColumnsEnd>;

struct ListRow {
  int Number = 0;  // in the text that it was read from, the heading counted, from 1
  ListTexts Texts;
};

struct SectionList {
  std::vector<ListRow> Rows;  // without those that have no text
  bool HasMarks = false;      // a column of it is that of the marks
  // Headings of columns that are none of ours, or stand there for the second time, and "column 12"
  // for those without a heading that go on behind the last one.
  std::vector<std::string> OtherColumns;
  std::vector<int> RowsAbove;  // numbers of those with a text above the headings, left out
};

// What is left out of a list, in a line; empty for nothing: "Columns that are left out: Weight.
// Rows above the headings: 1, 2".
std::string LeftOutOf(const SectionList& list);

// True when a text that is pasted into a cell of that column of the sections grid is a block: it
// holds a tab, or more than one line where the cell holds anything but notes. A line end at its end
// ends its last line, and a single line with one text among its tabs is that cell's. Column 0
// stands for an empty grid.
bool IsBlock(std::string_view text, int column);

// A block: tabs between the fields. Without headings its columns go on from that one, the marks
// where it is 0. More rows than a job can hold raise an error.
SectionList ListOfBlock(std::string_view text, int column);

// The bytes of a list file, in any of the forms that core/csv reads; raises its errors. Without
// headings the first column is that of the marks.
SectionList ListOfFile(std::string bytes);

// The same of a table. The first row with a text is one of headings if it names two columns, or
// one and no cell of it holds a digit; so is one of the twenty from there on that names two, under
// a title. Line ends and tabs within a cell become blanks, and what was put in front of a text for
// spreadsheets goes. Lengths under a heading in metres become metres.
SectionList ListOfTable(const std::vector<CsvRow>& table, int firstColumn);

}  // namespace orvane
