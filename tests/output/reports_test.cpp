// The contract summary and the accessory report, operation by operation.
#include "output/reports.h"

#include <algorithm>

#include "tests/output/print_fixture.h"
#include "tests/support/golden.h"

namespace orvane {

namespace {

using namespace test;

class ReportsTest : public PrintTest {
 protected:
  ReportsTest() {
    CompanyName = "Hillside Steelwork";
    CompanyDetails = "Unit 4, Mill Lane";
  }

  static void AddSection(const std::string& mark, const std::string& product, std::int16_t length,
                         std::int16_t quantity, const std::string& notes) {
    Item item;
    item.Mark = mark;
    item.Product = product;
    item.Length = length;
    item.Quantity = quantity;
    item.Notes = notes;
    Items.Append(item);
  }

  // The menu's entry.
  TextList Summary() {
    PrintContractSummary();
    PrintAccessoryReport();
    return Drawn();
  }

  // What the accessory report draws behind its title and before the document's end.
  TextList ReportTables() {
    PrintAccessoryReport();
    TextList lines = Drawn();
    const TextList front(lines.begin(), lines.begin() + 4);
    EXPECT_EQ(front, (TextList{"FontSize 9", "Paragraph \"\"", "Paragraph \"Accessories:\"",
                               "Paragraph \"\""}));
    EXPECT_EQ(lines.back(), "EndDoc");
    return {lines.begin() + 4, lines.end() - 1};
  }

  // The lines that set something of that number.
  static TextList Settings(const TextList& lines, const std::string& setting) {
    TextList found;
    for (const std::string& line : lines) {
      if (line.rfind("TableCell " + setting + " ", 0) == 0) found.push_back(line);
    }
    return found;
  }

  // The widths of the value columns of an accessory's table with that many values.
  TextList ValueWidths(int count) {
    AccLines2.Clear();
    AccLines2.Append(MakeLine2(6, "A", 1, TextList(static_cast<std::size_t>(count), "1")));
    const TextList widths = Settings(ReportTables(), "13");
    EXPECT_EQ(widths.size(), static_cast<std::size_t>(count) + 3);
    return {widths.begin() + 3, widths.end()};
  }
};

}  // namespace

TEST_F(ReportsTest, The_contract_summary_is_drawn_line_by_line) {
  AddSection("P1", "Z20015", 6000, 5, "");
  AddSection("EB1", "E23020", 0, 0, "Lip up | 10% sealed");
  AddSection("", "", 32767, 32767, "Blank mark");
  AccLines1.Append(MakeLine1(3, 3, 12));
  AccLines1.Append(MakeLine1(1, 1, 0));
  AccLines1.Append(MakeLine1(1, 2, 7));
  AccLines2.Append(MakeLine2(7, "M1", 3, {"Z20015", "600", "", "12.5", "y"}));
  AccLines2.Append(MakeLine2(9, "  ", 9, {"1", "2", "3", "4", "5"}));
  AccLines2.Append(MakeLine2(7, "M2", 0, {"1", "2", "3", "4", "5"}));
  AccLines2.Append(MakeLine2(7, "", 4, {"1", "2", "3", "4", "5"}));
  AccLines2.Append(MakeLine2(12, " V1", 2, {"950"}));
  ExpectGolden("reports/contract-summary.txt", Summary());
  EXPECT_EQ(screen.Shown, 1);
  EXPECT_EQ(screen.Dropped, 0);
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(ReportsTest, The_document_stays_open_until_the_accessory_report_ends_and_shows_it) {
  AddSection("P1", "Z20015", 6000, 5, "");
  PrintContractSummary();
  EXPECT_EQ(screen.Shown, 0);
  const TextList summary = Drawn();
  EXPECT_EQ(CountOf(summary, "StartDoc"), 1U);
  EXPECT_EQ(CountOf(summary, "EndDoc"), 0U);
  PrintAccessoryReport();
  EXPECT_EQ(screen.Shown, 1);
  const TextList report = Drawn();
  EXPECT_EQ(CountOf(report, "StartDoc"), 0U);
  EXPECT_EQ(CountOf(report, "EndDoc"), 1U);
}

TEST_F(ReportsTest, Without_sections_only_the_accessory_report_is_written_as_the_surface_stands) {
  PrintContractSummary();
  EXPECT_EQ(Drawn(), TextList{});
  EXPECT_EQ(screen.Shown, 0);
  PrintAccessoryReport();
  EXPECT_EQ(Drawn(), (TextList{"FontSize 9", "Paragraph \"\"", "Paragraph \"Accessories:\"",
                               "Paragraph \"\"", "EndDoc"}));
  EXPECT_EQ(screen.Shown, 1);
}

TEST_F(ReportsTest, Type_1_lines_with_none_off_leave_the_heading_alone) {
  AccLines1.Append(MakeLine1(1, 1, 0));
  AccLines1.Append(MakeLine1(1, 2, -3));
  EXPECT_EQ(Settings(ReportTables(), "18"),
            (TextList{"TableCell 18 1 1 \"Type\"", "TableCell 18 1 2 \"Description\"",
                      "TableCell 18 1 3 \"Code\"", "TableCell 18 1 4 \"No.Off\""}));
}

TEST_F(ReportsTest, A_number_off_of_a_size_that_the_catalogue_lost_stops_the_report_unseen) {
  AccLines1.Append(MakeLine1(1, 2, 3));
  for (const int size : {4, -1}) {
    AccLines1.Append(MakeLine1(1, size, 4));
    EXPECT_EQ(ErrorOf(PrintAccessoryReport), "Accessory 1: Subscript out of range") << size;
    EXPECT_EQ(screen.Shown, 0);
    AccLines1.Remove(2);
  }
  EXPECT_EQ(screen.Dropped, 2);
  // Without a number off the line is left out whatever its size.
  AccLines1.Append(MakeLine1(1, 4, 0));
  EXPECT_EQ(Settings(ReportTables(), "18").size(), 8U);
}

TEST_F(ReportsTest, Type_2_lines_without_a_mark_alone_make_no_table) {
  AccLines2.Append(MakeLine2(6, "", 1, {"1"}));
  AccLines2.Append(MakeLine2(7, "   ", 1, {"1"}));
  EXPECT_EQ(ReportTables(), TextList{});
}

TEST_F(ReportsTest, An_accessory_whose_lines_are_apart_in_the_list_has_two_tables) {
  for (const int accessory : {6, 7, 7, 6}) {
    AccLines2.Append(MakeLine2(accessory, "A", 1, {"1"}));
  }
  const TextList lines = ReportTables();
  TextList order;
  for (const std::string& line : lines) {
    const bool first = line.find(" 1 \"Accessory") != std::string::npos;
    if (first || line == "StartTable" || line == "EndTable" || line == "Paragraph \"\"") {
      order.push_back(line);
    }
  }
  EXPECT_EQ(order, (TextList{"Paragraph \"\"", "StartTable", "TableCell 18 2 1 \"Accessory 6\"",
                             "EndTable", "Paragraph \"\"", "StartTable",
                             "TableCell 18 2 1 \"Accessory 7\"", "TableCell 18 3 1 \"Accessory 7\"",
                             "EndTable", "Paragraph \"\"", "StartTable",
                             "TableCell 18 2 1 \"Accessory 6\"", "EndTable"}));
}

TEST_F(ReportsTest, A_line_without_a_mark_between_two_of_one_accessory_does_not_part_them) {
  AccLines2.Append(MakeLine2(6, "A", 1, {"1"}));
  AccLines2.Append(MakeLine2(7, " ", 1, {"1"}));
  AccLines2.Append(MakeLine2(6, "B", 1, {"1"}));
  EXPECT_EQ(CountOf(ReportTables(), "StartTable"), 1U);
}

TEST_F(ReportsTest, The_first_line_settles_the_columns_and_later_ones_are_cut_or_filled) {
  AccLines2.Append(MakeLine2(6, "A", 1, {"1", "2"}));
  AccLines2.Append(MakeLine2(6, "B", 1, {"3"}));
  AccLines2.Append(MakeLine2(6, "C", 1, {"4", "5", "6"}));
  const TextList texts = Settings(ReportTables(), "18");
  EXPECT_EQ(texts.size(), 20U);
  for (const char* line :
       {"TableCell 18 2 4 \"1\"", "TableCell 18 2 5 \"2\"", "TableCell 18 3 4 \"3\"",
        "TableCell 18 3 5 \"\"", "TableCell 18 4 4 \"4\"", "TableCell 18 4 5 \"5\""}) {
    EXPECT_EQ(CountOf(texts, line), 1U) << line;
  }
}

TEST_F(ReportsTest, More_values_than_the_catalogue_has_headings_stand_under_empty_ones) {
  AccLines2.Append(MakeLine2(6, "A", 1, {"1", "2", "3", "4", "5", "6"}));
  const TextList texts = Settings(ReportTables(), "18");
  EXPECT_EQ(CountOf(texts, "TableCell 18 1 8 \"E\""), 1U);
  EXPECT_EQ(CountOf(texts, "TableCell 18 1 9 \"\""), 1U);
  EXPECT_EQ(CountOf(texts, "TableCell 18 2 9 \"6\""), 1U);
}

TEST_F(ReportsTest, Value_columns_share_the_room_and_are_20_mm_at_most) {
  // The whole part of 112 / (count + 1) + 0.49: 56.49, 28.49, 22.89, 19.15, 16.49, 14.49, 12.93,
  // 11.69, 10.67.
  struct Case {
    int Count;
    std::string Width;
  };
  const std::vector<Case> cases = {{1, "20mm"}, {3, "20mm"}, {4, "20mm"}, {5, "19mm"}, {6, "16mm"},
                                   {7, "14mm"}, {8, "12mm"}, {9, "11mm"}, {10, "10mm"}};
  for (const Case& given : cases) {
    const TextList widths = ValueWidths(given.Count);
    for (std::size_t column = 0; column < widths.size(); ++column) {
      EXPECT_EQ(widths[column],
                "TableCell 13 0 " + std::to_string(column + 4) + " \"" + given.Width + "\"")
          << given.Count;
    }
  }
}

TEST_F(ReportsTest, A_table_without_values_has_its_three_columns) {
  AccLines2.Append(MakeLine2(6, "A", 1, {}));
  const TextList lines = ReportTables();
  EXPECT_EQ(CountOf(lines, "TableCell 2 0 0 3"), 1U);
  EXPECT_EQ(Settings(lines, "13").size(), 3U);
}

TEST_F(ReportsTest, An_accessory_that_is_not_in_the_catalogue_stops_the_report_unseen) {
  AccLines2.Append(MakeLine2(23, "A", 1, {"1"}));
  EXPECT_EQ(ErrorOf(PrintAccessoryReport), "Accessory 23: Subscript out of range");
  EXPECT_EQ(screen.Shown, 0);
  EXPECT_EQ(screen.Dropped, 1);
}

}  // namespace orvane
