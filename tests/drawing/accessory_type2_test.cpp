// The tables of type 2 accessories and their pages, operation by operation.
#include <algorithm>

#include "core/numbers.h"
#include "core/program_folder.h"
#include "core/runtime_error.h"
#include "drawing/accessory_sheet.h"
#include "tests/drawing/accessory_fixture.h"

namespace orvane::test {

namespace {

constexpr AccessoryType Two = AccessoryType::Two;

class Type2Table : public AccessorySheetTest {
 protected:
  // Without a picture the table begins at 35 mm.
  Type2Table() { AddType2("Plates", {"Product", "Length"}); }

  static AccDef& Plates() { return AccDefs.At(1); }
  Lines Texts(const TextRows& rows) {
    Detail(Two, rows);
    return That("TableCell 18");
  }
};

TEST_F(Type2Table, Begins_with_font_place_and_border_and_counts_its_columns_and_rows) {
  const Lines lines = Detail(Two, NumberedRows(3, 2));
  EXPECT_EQ(Lines(lines.begin(), lines.begin() + 8),
            (Lines{"FontSize 11", "CurrentY 35mm", "StartTable", "TableCell 24 0 0 11",
                   "TableBorder 7", "TableCell 2 0 0 4",
                   "TableCell 1 0 0 4",  // 3 lines, 1 heading
                   "TableCell 7 0 0 \"5mm\""}));
  EXPECT_EQ(lines.back(), "EndTable");
}

TEST_F(Type2Table, The_heading_row_holds_every_column_in_bold) {
  Detail(Two, NumberedRows(1, 2));
  EXPECT_EQ(That("TableCell 25"), (Lines{"TableCell 25 1 1 1", "TableCell 25 1 2 1",
                                         "TableCell 25 1 3 1", "TableCell 25 1 4 1"}));
  EXPECT_EQ(That("TableCell 18 1"),
            (Lines{"TableCell 18 1 1 \"Mark\"", "TableCell 18 1 2 \"No.Off\"",
                   "TableCell 18 1 3 \"Product\"", "TableCell 18 1 4 \"Length\""}));
  EXPECT_EQ(That("TableMerge"), Lines{});
}

TEST_F(Type2Table, With_groups_there_are_two_heading_rows_in_bold) {
  AddGroup(Plates(), 3, 2, "Plate");
  Detail(Two, NumberedRows(1, 2));
  EXPECT_EQ(That("TableCell 1 "), Lines{"TableCell 1 0 0 3"});
  EXPECT_EQ(That("TableCell 25"),
            (Lines{"TableCell 25 1 1 1", "TableCell 25 2 1 1", "TableCell 25 1 2 1",
                   "TableCell 25 2 2 1", "TableCell 25 1 3 1", "TableCell 25 2 3 1",
                   "TableCell 25 1 4 1", "TableCell 25 2 4 1"}));
  EXPECT_EQ(That("TableMerge"), Lines{"TableMerge 1 3 2"});
  EXPECT_EQ(That("TableAlignment"), Lines{"TableAlignment 1 3 centre 6"});
  EXPECT_EQ(
      That("TableCell 18"),
      (Lines{"TableCell 18 1 3 \"Plate\"", "TableCell 18 2 1 \"Mark\"",
             "TableCell 18 2 2 \"No.Off\"", "TableCell 18 2 3 \"Product\"",
             "TableCell 18 2 4 \"Length\"", "TableCell 18 3 1 \"M1\"", "TableCell 18 3 2 \"101\"",
             "TableCell 18 3 3 \"a1\"", "TableCell 18 3 4 \"b1\""}));
}

TEST_F(Type2Table, Each_group_is_merged_over_its_own_columns) {
  AddType2("VCR", {"As Drawn", "Opp. Hand", "Length", "End 1", "End 2"});
  AccDef& rails = AccDefs.At(2);
  AddGroup(rails, 3, 2, "Number");
  AddGroup(rails, 6, 2, "Allowances");
  Detail(Two, NumberedRows(1, 5));
  EXPECT_EQ(That("TableMerge"), (Lines{"TableMerge 1 3 2", "TableMerge 1 6 2"}));
  EXPECT_EQ(That("TableCell 18 1 "),
            (Lines{"TableCell 18 1 3 \"Number\"", "TableCell 18 1 6 \"Allowances\""}));
}

TEST_F(Type2Table, A_group_ends_at_the_last_column_and_one_behind_it_is_not_shown) {
  AddGroup(Plates(), 3, 9, "Plate");
  AddGroup(Plates(), 4, 2, "Size");
  AddGroup(Plates(), 5, 1, "Behind");
  Detail(Two, NumberedRows(1, 2));
  EXPECT_EQ(That("TableMerge"), (Lines{"TableMerge 1 3 2", "TableMerge 1 4 1"}));
  EXPECT_EQ(That("TableCell 18 1 "),
            (Lines{"TableCell 18 1 3 \"Plate\"", "TableCell 18 1 4 \"Size\""}));
}

TEST_F(Type2Table, A_group_of_no_columns_stands_over_its_first_one) {
  AddGroup(Plates(), 3, 0, "Plate");
  Detail(Two, NumberedRows(1, 2));
  EXPECT_EQ(That("TableMerge"), Lines{"TableMerge 1 3 1"});
}

TEST_F(Type2Table, Columns_are_20_mm_wide_or_as_wide_as_a_longer_heading) {
  // 19, 20 and 21 characters are 1077.3, 1134 and 1190.7 twips.
  AddType2("Long", {std::string(19, 'x'), std::string(20, 'x'), std::string(21, 'x')});
  Detail(Two, NumberedRows(1, 3));
  EXPECT_EQ(That("TableCell 13"),
            (Lines{"TableCell 13 0 1 1134", "TableCell 13 0 2 1134", "TableCell 13 0 3 1134",
                   "TableCell 13 0 4 1134", "TableCell 13 0 5 1191"}));
  // 17010 - 20 x 56.7 = 15876, less 4 x 1134 + 1191 = 5727: half of 10149.
  EXPECT_EQ(That("TableIndent"), Lines{"TableIndent 5074.5"});
}

TEST_F(Type2Table, The_headings_are_measured_in_11_points_and_regular_type) {
  AddType2("Long", {std::string(20, 'x')});
  page.FontSize(22);
  Detail(Two, NumberedRows(1, 1));
  EXPECT_EQ(That("TableCell 13").back(), "TableCell 13 0 3 1134");
}

TEST_F(Type2Table, The_title_of_a_group_widens_no_column) {
  AddGroup(Plates(), 3, 1, std::string(50, 'x'));
  Detail(Two, NumberedRows(1, 2));
  EXPECT_EQ(That("TableCell 13").at(2), "TableCell 13 0 3 1134");
}

TEST_F(Type2Table, A_table_wider_than_the_room_has_an_indent_below_0) {
  AddType2("Wide", std::vector<std::string>(13, "X"));
  Detail(Two, NumberedRows(1, 13));
  // 15876 - 15 x 1134 = -1134.
  EXPECT_EQ(That("TableIndent"), Lines{"TableIndent -567"});
}

TEST_F(Type2Table, Missing_values_are_empty_and_surplus_ones_left_out) {
  EXPECT_EQ(Texts(RowsOf({{"M1", "2", "a", "b", "c", "d"}, {"M2"}, {}})),
            (Lines{"TableCell 18 1 1 \"Mark\"", "TableCell 18 1 2 \"No.Off\"",
                   "TableCell 18 1 3 \"Product\"", "TableCell 18 1 4 \"Length\"",
                   "TableCell 18 2 1 \"M1\"", "TableCell 18 2 2 \"2\"", "TableCell 18 2 3 \"a\"",
                   "TableCell 18 2 4 \"b\"", "TableCell 18 3 1 \"M2\"", "TableCell 18 3 2 \"\"",
                   "TableCell 18 3 3 \"\"", "TableCell 18 3 4 \"\"", "TableCell 18 4 1 \"\"",
                   "TableCell 18 4 2 \"\"", "TableCell 18 4 3 \"\"", "TableCell 18 4 4 \"\""}));
}

TEST_F(Type2Table, Values_stand_as_they_are_typed) {
  EXPECT_EQ(Texts(RowsOf({{" M1", "02", "1.50 ", "x|y"}})).back(), "TableCell 18 2 4 \"x|y\"");
  EXPECT_EQ(That("TableCell 18 2 1"), Lines{"TableCell 18 2 1 \" M1\""});
  EXPECT_EQ(That("TableCell 18 2 2"), Lines{"TableCell 18 2 2 \"02\""});
  EXPECT_EQ(That("TableCell 18 2 3"), Lines{"TableCell 18 2 3 \"1.50 \""});
}

// Pages.

class Type2Pages : public AccessorySheetTest {
 protected:
  Type2Pages() { AddType2("Plates", {"Product"}); }

  static AccDef& Plates() { return AccDefs.At(1); }
  // The first and last mark of each page's table, such as "M1-M10".
  Lines Pages(int rows) {
    Sheet(Two, NumberedRows(rows, 1), true, true);
    Lines pages;
    std::string first;
    std::string last;
    // A line's mark stands in column 1 below the headings.
    for (const std::string& line : page.Lines()) {
      if (line == "StartTable") first.clear();
      const std::size_t at = line.find(" 1 \"M");
      if (line.rfind("TableCell 18 ", 0) == 0 && at != std::string::npos &&
          line.find("Mark") == std::string::npos) {
        last = line.substr(at + 4, line.size() - at - 5);
        if (first.empty()) first = last;
      }
      if (line == "EndTable" && !first.empty()) pages.push_back(first + "-" + last);
    }
    return pages;
  }
  std::size_t CountOf(const std::string& operation) const { return That(operation).size(); }
};

TEST_F(Type2Pages, The_room_down_to_the_strip_makes_rows_of_5_mm) {
  // Down to 3 mm above the strip, 167 mm; the table 5 mm below the picture's place.
  struct Case {
    int Top;
    int Lines;  // of the first page
  };
  for (const Case& each : {
           Case{30, 25},   // 132 mm hold 26 rows, one of them the heading
           Case{102, 11},  // 60 mm hold 12
           Case{103, 10},  // 59 mm hold 11
           Case{107, 10},  // 55 mm hold 11
           Case{108, 9},   // 54 mm hold 10
           Case{150, 1},   // 12 mm hold 2
       }) {
    Plates().Value3 = Int16(each.Top);
    EXPECT_EQ(Pages(each.Lines), Lines{"M1-M" + DecimalText(each.Lines)}) << each.Top;
    // One more line goes to the next page, which asks for the picture.
    EXPECT_EQ(Pages(each.Lines + 1).size(), 2U) << each.Top;
  }
}

TEST_F(Type2Pages, Groups_take_a_row_more_of_each_page) {
  Plates().Value3 = 102;  // 12 rows
  AddGroup(Plates(), 3, 1, "Group");
  EXPECT_EQ(Pages(10), Lines{"M1-M10"});
  EXPECT_EQ(Pages(11), (Lines{"M1-M10", "M11-M11"}));
}

TEST_F(Type2Pages, Logo_and_bottom_margin_take_their_room) {
  Plates().Value3 = 30;
  SetLogo(60, 28);  // 122 mm hold 24 rows
  EXPECT_EQ(Pages(23), Lines{"M1-M23"});
  EXPECT_EQ(Pages(24), (Lines{"M1-M23", "M24-M24"}));
  BottomMargin = 25;  // 107 mm hold 21 rows
  EXPECT_EQ(Pages(20), Lines{"M1-M20"});
  EXPECT_EQ(Pages(21), (Lines{"M1-M20", "M21-M21"}));
}

TEST_F(Type2Pages, The_pages_are_filled_one_by_one_and_the_last_may_be_filled_in_part) {
  // The picture 100 mm wide at 47 mm: the table at 102 mm, 65 mm hold 13 rows, 12 of them lines.
  ShowPicture(Plates(), 100, 47);
  struct Case {
    int Rows;
    Lines Pages;
  };
  for (const Case& each : {
           Case{1, {"M1-M1"}},
           Case{11, {"M1-M11"}},
           Case{12, {"M1-M12"}},
           Case{13, {"M1-M12", "M13-M13"}},
           Case{23, {"M1-M12", "M13-M23"}},
           Case{24, {"M1-M12", "M13-M24"}},
           Case{25, {"M1-M12", "M13-M24", "M25-M25"}},
       }) {
    EXPECT_EQ(Pages(each.Rows), each.Pages) << each.Rows;
    EXPECT_EQ(CountOf("NewPage"), each.Pages.size() - 1);
    EXPECT_EQ(CountOf("StartDoc"), 1U);
    EXPECT_EQ(CountOf("EndDoc"), 1U);
  }
}

TEST_F(Type2Pages, Frame_picture_and_headings_stand_on_every_page_at_the_same_place) {
  ShowPicture(Plates(), 100, 47);
  Pages(30);
  EXPECT_EQ(That("Text \"Plates\""), Lines(3, "Text \"Plates\""));
  EXPECT_EQ(That("DrawPicture picture 100x50"),
            Lines(3, "DrawPicture picture 100x50 102mm 47mm 100mm 50mm"));
  EXPECT_EQ(That("CurrentY 102mm"), Lines(3, "CurrentY 102mm"));
  EXPECT_EQ(That("TableCell 18 1 3 \"P"), Lines(3, "TableCell 18 1 3 \"Product\""));
  // 12, 12 and 6 lines with a heading each.
  EXPECT_EQ(That("TableCell 1 0 0"),
            (Lines{"TableCell 1 0 0 6", "TableCell 1 0 0 13", "TableCell 1 0 0 6",
                   "TableCell 1 0 0 13", "TableCell 1 0 0 6", "TableCell 1 0 0 7"}));
}

TEST_F(Type2Pages, Without_a_line_there_is_frame_and_picture_alone) {
  ShowPicture(Plates(), 100, 47);
  EXPECT_EQ(Pages(0), Lines{});
  EXPECT_EQ(CountOf("StartTable"), 1U);  // the frame's
  EXPECT_EQ(That("DrawPicture").size(), 2U);
  EXPECT_EQ(Lines(page.Lines().end() - 3, page.Lines().end()),
            (Lines{"DrawPicture picture 100x50 102mm 47mm 100mm 50mm", "EndDoc", "Finish"}));
}

TEST_F(Type2Pages, None_on_one_page_is_a_sheet_without_a_picture) {
  EXPECT_EQ(Pages(25), Lines{"M1-M25"});
  EXPECT_EQ(That("DrawPicture").size(), 1U);  // the logo
}

TEST_F(Type2Pages, None_is_no_picture_on_any_page) {
  EXPECT_EQ(Pages(26), (Lines{"M1-M25", "M26-M26"}));
  EXPECT_EQ(That("DrawPicture").size(), 2U);  // the logo on both
  EXPECT_EQ(That("Text \"Plates\"").size(), 2U);
}

TEST_F(Type2Pages, Room_for_the_headings_alone_is_a_division_by_zero) {
  const std::string division = DescriptionOf(Failure::DivisionByZero);
  Plates().Value3 = 155;  // 7 mm hold 1 row
  for (const int rows : {0, 1, 40}) EXPECT_EQ(ErrorOf([&] { Pages(rows); }), division) << rows;
  AddGroup(Plates(), 3, 1, "Group");
  Plates().Value3 = 150;  // 12 mm hold 2 rows
  EXPECT_EQ(ErrorOf([&] { Pages(1); }), division);
}

TEST_F(Type2Pages, Room_for_less_gives_no_table) {
  for (const int top : {158, 160, 170, 190}) {  // 4, 2, -8 and -28 mm
    Plates().Value3 = Int16(top);
    for (const int rows : {1, 3, 100}) EXPECT_EQ(Pages(rows), Lines{}) << top << ", " << rows;
    EXPECT_EQ(page.Lines().back(), "Finish");
  }
  AddGroup(Plates(), 3, 1, "Group");
  Plates().Value3 = 155;  // 1 row
  EXPECT_EQ(Pages(1), Lines{});
}

TEST_F(Type2Pages, A_sheet_of_many_pages_loses_no_line) {
  ShowPicture(Plates(), 100, 47);
  const Lines pages = Pages(500);
  ASSERT_EQ(pages.size(), 42U);  // 41 x 12 = 492
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const auto first = static_cast<long long>(i) * 12 + 1;
    EXPECT_EQ(pages.at(i),
              "M" + DecimalText(first) + "-M" + DecimalText(std::min<long long>(first + 11, 500)));
  }
}

}  // namespace

}  // namespace orvane::test
