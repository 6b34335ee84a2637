// The catalogue files that ship as a spreadsheet leaves them, and every one of their rows against
// its record: no row is lost in reading.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "core/catalogues.h"
#include "core/model.h"
#include "core/numbers.h"
#include "core/text.h"
#include "tests/catalogue/shipped_catalogue.h"

namespace orvane {

namespace {

using test::Contains;
using test::LinesOf;
using test::RowsOf;
using test::ShippedBytes;
using test::ShippedCatalogue;
using test::ShippedNames;
using test::Texts;

TEST_F(ShippedCatalogue, Loads_without_a_message) {
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(ShippedCatalogue, Is_plain_ascii_with_an_end_on_every_line) {
  for (const std::string& name : ShippedNames) {
    const std::string bytes = ShippedBytes(name);
    EXPECT_EQ(bytes.back(), '\n') << name;
    EXPECT_TRUE(std::all_of(bytes.begin(), bytes.end(), [](char c) {
      return c == '\n' || (c >= ' ' && c <= '~');
    })) << name;
  }
}

TEST_F(ShippedCatalogue, Bears_headings_remarks_blank_lines_and_lines_of_commas) {
  for (const std::string& name : ShippedNames) {
    const Texts lines = LinesOf(name);
    const auto count = [&lines](const auto& isSo) {
      return std::count_if(lines.begin(), lines.end(), isSo);
    };
    EXPECT_TRUE(Contains(lines.front(), name[0] == 'a' ? "Row," : "Type,")) << name;
    EXPECT_GE(count([](const std::string& line) { return line.rfind("Remark,", 0) == 0; }), 1)
        << name;
    EXPECT_GE(count([](const std::string& line) { return line.empty(); }), 1) << name;
    EXPECT_GE(count([](const std::string& line) {
                return !line.empty() && line.find_first_not_of(',') == std::string::npos;
              }),
              1)
        << name;
  }
}

TEST_F(ShippedCatalogue, Gives_every_row_exactly_the_cells_of_its_file) {
  struct Shape {
    const char* Name;
    const char* Tags;
    std::size_t Cells;
  };
  // A surplus cell of dims.csv would be taken as a tag; a missing one would come from the next row.
  for (const Shape& shape :
       {Shape{"dims.csv", "EZCMVRT", 14}, Shape{"punch.csv", "EZCRVT", 5},
        Shape{"accs1.csv", "AI", 7}, Shape{"accs2.csv", "APOG", 7}, Shape{"check.csv", "R", 6}}) {
    const std::vector<Texts> rows = RowsOf(shape.Name, shape.Tags);
    EXPECT_FALSE(rows.empty()) << shape.Name;
    for (const Texts& cells : rows) {
      EXPECT_EQ(cells.size(), shape.Cells) << shape.Name << ": " << cells[0] << "," << cells[1];
      for (const std::string& cell : cells) {
        EXPECT_FALSE(Contains(cell, "\"")) << cell;
        EXPECT_EQ(cell, Trim(cell));
      }
      EXPECT_EQ(cells[0], UpperCase(cells[0])) << "a lower-case letter would stand in no list";
    }
  }
}

TEST_F(ShippedCatalogue, Has_no_one_cell_line_but_blank_ones) {
  for (const std::string& name : ShippedNames) {
    for (const std::string& line : LinesOf(name)) {
      EXPECT_TRUE(line.empty() || Contains(line, ",")) << name << ": " << line;
    }
  }
}

TEST_F(ShippedCatalogue, Turns_every_row_of_dims_csv_into_its_record) {
  const std::vector<Texts> rows = RowsOf("dims.csv", "EZCMVRT");
  ASSERT_EQ(static_cast<std::size_t>(SectionDims.UBound()), rows.size());
  for (int row = 1; row <= SectionDims.UBound(); ++row) {
    const Texts& cells = rows[static_cast<std::size_t>(row) - 1];
    const SectionDim& dim = SectionDims.At(row);
    EXPECT_EQ(dim.SectionType, cells[0] == "M" ? "C" : cells[0]);
    EXPECT_EQ(dim.Product, cells[1]);
    const std::array<double, 12> dims = {dim.Dim3,  dim.Dim4,  dim.Dim5,  dim.Dim6,
                                         dim.Dim7,  dim.Dim8,  dim.Dim9,  dim.Dim10,
                                         dim.Dim11, dim.Dim12, dim.Dim13, dim.Dim14};
    for (std::size_t column = 0; column < dims.size(); ++column) {
      EXPECT_TRUE(IsNumber(cells[column + 2])) << cells[1] << ", column " << column + 3;
      EXPECT_EQ(dims[column], Val(cells[column + 2])) << cells[1] << ", column " << column + 3;
    }
  }
}

TEST_F(ShippedCatalogue, Turns_every_row_of_punch_csv_into_its_record) {
  const std::vector<Texts> rows = RowsOf("punch.csv", "EZCRVT");
  ASSERT_EQ(static_cast<std::size_t>(PunchPatterns.UBound()), rows.size());
  for (int row = 1; row <= PunchPatterns.UBound(); ++row) {
    const Texts& cells = rows[static_cast<std::size_t>(row) - 1];
    const PunchPattern& pattern = PunchPatterns.At(row);
    EXPECT_EQ(pattern.SectionType, cells[0]);
    EXPECT_EQ(pattern.Name, cells[1]);
    EXPECT_EQ(pattern.Codes, cells[2]);
    EXPECT_TRUE(cells[3].empty() || cells[3] == "S") << cells[1];
    EXPECT_EQ(pattern.HasSagBars, ToBoolean(cells[3] == "S")) << cells[1];
    EXPECT_TRUE(cells[4].empty() || cells[4] == "*") << cells[1];
    EXPECT_EQ(pattern.Starred, ToBoolean(cells[4] == "*")) << cells[1];
  }
}

TEST_F(ShippedCatalogue, Turns_every_row_of_accs1_csv_into_its_record) {
  int accIndex = 0;
  int param = 0;
  for (const Texts& cells : RowsOf("accs1.csv", "AI")) {
    if (cells[0] == "A") {
      ++accIndex;
      param = 0;
    } else {
      ++param;
    }
    const AccDef& accessory = AccDefs.At(accIndex);
    if (cells[0] == "A") {
      EXPECT_EQ(accessory.Name, cells[1]);
      EXPECT_EQ(accessory.DrawingFile, cells[2]);
      EXPECT_EQ(accessory.Value1, Val(cells[3]));
      EXPECT_EQ(accessory.Value2, Val(cells[4]));
      EXPECT_EQ(accessory.Value3, Val(cells[5]));
      EXPECT_TRUE(cells[6] == "Y" || cells[6] == "N") << cells[1];
      EXPECT_EQ(accessory.Flag, ToBoolean(cells[6] == "Y"));
    } else {
      EXPECT_EQ(accessory.ParamTexts.At(param), cells[1]);
      EXPECT_EQ(accessory.ParamNames.At(param), cells[2]);
      EXPECT_LE(param, accessory.ParamCount());
    }
  }
  EXPECT_EQ(accIndex, AccType1Count);
  int params = 0;
  for (int row = 1; row <= AccType1Count; ++row) {
    EXPECT_EQ(AccDefs.At(row).ParamCount(), AccDefs.At(row).ParamTexts.UBound());
    EXPECT_EQ(AccDefs.At(row).IsType1, True);
    EXPECT_EQ(AccDefs.At(row).HasParamColumn, False);
    params += AccDefs.At(row).ParamCount();
  }
  EXPECT_EQ(static_cast<std::size_t>(params), RowsOf("accs1.csv", "I").size());
}

TEST_F(ShippedCatalogue, Turns_every_row_of_accs2_csv_into_its_record) {
  int accIndex = AccType1Count;
  int column = 0;
  int group = 0;
  int choice = 0;
  for (const Texts& cells : RowsOf("accs2.csv", "APOG")) {
    const char tag = cells[0][0];
    if (tag == 'A') {
      ++accIndex;
      column = 2;
      group = 0;
    } else if (tag == 'P') {
      ++column;
      choice = 0;
    }
    const AccDef& accessory = AccDefs.At(accIndex);
    if (tag == 'A') {
      EXPECT_EQ(accessory.Name, cells[1]);
      EXPECT_EQ(accessory.DrawingFile, cells[2]);
      EXPECT_EQ(accessory.Value1, Val(cells[3]));
      EXPECT_EQ(accessory.Value2, Val(cells[4]));
      EXPECT_EQ(accessory.Value3, Val(cells[5]));
      EXPECT_EQ(accessory.Option, cells[6]);
    } else if (tag == 'P') {
      EXPECT_EQ(accessory.ParamNames.At(column), cells[1]);
    } else if (tag == 'O') {
      EXPECT_EQ(accessory.Options.At(column).OptionTexts.At(++choice), cells[1]);
    } else {
      ++group;
      EXPECT_EQ(accessory.Groups.At(group).Title, cells[1]);
      EXPECT_EQ(accessory.Groups.At(group).GroupValue, Val(cells[2]));
      EXPECT_EQ(accessory.Groups.At(group).FirstParam, column + 1);
    }
  }
  EXPECT_EQ(accIndex, AccDefs.UBound());
  EXPECT_EQ(accIndex, AccType1Count + AccType2Count);

  std::size_t columns = 0;
  std::size_t choices = 0;
  std::size_t groups = 0;
  for (int row = AccType1Count + 1; row <= AccDefs.UBound(); ++row) {
    const AccDef& accessory = AccDefs.At(row);
    EXPECT_EQ(accessory.IsType1, False);
    EXPECT_EQ(accessory.ParamNames.At(1), "Mark");
    EXPECT_EQ(accessory.ParamNames.At(2), "No.Off");
    columns += static_cast<std::size_t>(accessory.ParamCount() - 2);
    groups += static_cast<std::size_t>(accessory.Groups.UBound());
    for (const AccParamOptions& options : accessory.Options) {
      choices += static_cast<std::size_t>(options.OptionCount());
    }
  }
  EXPECT_EQ(columns, RowsOf("accs2.csv", "P").size());
  EXPECT_EQ(choices, RowsOf("accs2.csv", "O").size());
  EXPECT_EQ(groups, RowsOf("accs2.csv", "G").size());
}

}  // namespace

}  // namespace orvane
