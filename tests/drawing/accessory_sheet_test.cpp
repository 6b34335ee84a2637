// The sheet of an accessory, operation by operation.
#include "drawing/accessory_sheet.h"

#include <algorithm>
#include <filesystem>

#include "core/files.h"
#include "core/numbers.h"
#include "core/program_folder.h"
#include "core/runtime_error.h"
#include "drawing/pictures.h"
#include "tests/drawing/accessory_fixture.h"
#include "tests/drawing/metafile_writer.h"
#include "tests/support/golden.h"

namespace orvane::test {

namespace {

constexpr AccessoryType One = AccessoryType::One;
constexpr AccessoryType Two = AccessoryType::Two;

// The end of a recording from that line on.
Lines From(const Lines& lines, const std::string& first) {
  return {std::find(lines.begin(), lines.end(), first), lines.end()};
}

// "File not found: " and the path of a drawing.
std::string NotFound(const std::string& name) {
  return "File not found: " + ProgramFolder + "/Drawings/" + name + ".wmf";
}

// Whole sheets, worked out line by line.

class AccessoryGoldens : public AccessorySheetTest {
 protected:
  AccessoryGoldens() {
    txtProject = {"OJ-7731", "J 2041", "Marsh & Field Ltd", "Barn at Low Farm", "K. Loom"};
    DTPicker1 = {2026, 9, 7};
    CompanyName = "Hillside Steelwork";
    CompanyDetails = "Unit 4, Mill Lane";
  }

  void ExpectSheet(const std::string& name) const { ExpectGolden("sheets/" + name, page.Lines()); }

  // The picture 120 mm wide at 35 mm, so 60 mm high; the table at 35 + 60 + 5 = 100 mm.
  static AccDef& AddCleats() {
    AccDef& cleats =
        AddType1("Purlin cleats", {
                                      {"Cleat for depths of 140 to 165", "CL140"},
                                      {"Cleat of a length that nobody ordered", "CL999"},
                                      {"Cleat for 245", "CL245-1200"},
                                  });
    ShowPicture(cleats, 120, 35);
    return cleats;
  }
  static TextRows CleatRows() { return RowsOf({{"12"}, {"0"}, {"3"}}); }
};

TEST_F(AccessoryGoldens, A_type_1_sheet_is_drawn_line_by_line) {
  AddCleats();
  Sheet(One, CleatRows(), true, true);
  ExpectSheet("accessory-type1.txt");
}

TEST_F(AccessoryGoldens, A_type_1_sheet_without_its_flag_is_drawn_line_by_line) {
  AddCleats().Flag = False;
  Sheet(One, CleatRows(), true, true);
  ExpectSheet("accessory-type1-codes.txt");
}

// The picture 100 mm wide at 50 mm, so 50 mm high; the table at 105 mm. 62 mm below it down to 3 mm
// above the strip hold 12 rows, 10 of them lines.
TEST_F(AccessoryGoldens, A_type_2_sheet_with_groups_over_three_pages_is_drawn_line_by_line) {
  AccDef& ties =
      AddType2("Diagonal ties", {"Twenty characters ab", "Thirty characters of a heading", "Hole"});
  AddGroup(ties, 3, 2, "Bay");
  ShowPicture(ties, 100, 50);
  Sheet(Two, NumberedRows(23, 3), true, true);
  ExpectSheet("accessory-type2-groups.txt");
}

TEST_F(AccessoryGoldens, A_type_2_sheet_without_a_picture_inside_a_document_is_drawn_line_by_line) {
  AddType2("Door jamb kits", {"Height"});
  Sheet(Two, RowsOf({{"D1", "2", "2100"}, {"D2", "1", "2400"}, {"D3", "14", ""}}), false, false);
  ExpectSheet("accessory-type2-none.txt");
}

// The document.

class AccessorySheetDocument : public AccessorySheetTest {
 protected:
  AccessorySheetDocument() { AddType1("Bolts", {{"Bolt", "M12"}}); }
};

TEST_F(AccessorySheetDocument, The_open_flag_begins_a_document_as_a_sections_sheet_does) {
  const Lines lines = Sheet(One, {}, true, false);
  EXPECT_EQ(Lines(lines.begin(), lines.begin() + 12),
            (Lines{"Orientation 1", "HdrFontName \"Arial\"", "HdrFontSize 8", "MarginLeft 12mm",
                   "MarginRight 8mm", "MarginTop 10mm", "MarginBottom 10mm", "MarginFooter 5mm",
                   "Clear", "StartDoc", "FontSize 8", "HdrFontSize 7"}));
}

TEST_F(AccessorySheetDocument, Without_it_the_sheet_sets_up_nothing) {
  EXPECT_EQ(Sheet(One, {}, false, false), From(Sheet(One, {}, true, false), "HdrFontSize 7"));
  EXPECT_EQ(Sheet(One, {}, false, false).at(0), "HdrFontSize 7");
}

TEST_F(AccessorySheetDocument, The_close_flag_ends_it_and_calls_the_closing_operation) {
  EXPECT_EQ(From(Sheet(One, {}, true, true), "EndDoc"), (Lines{"EndDoc", "Finish"}));
  EXPECT_EQ(From(Sheet(One, {}, false, true), "EndDoc"), (Lines{"EndDoc", "Finish"}));
}

TEST_F(AccessorySheetDocument, Without_it_the_sheet_ends_with_its_table_and_begins_no_page) {
  for (const bool open : {true, false}) {
    EXPECT_EQ(Sheet(One, {}, open, false).back(), "EndTable");
    EXPECT_EQ(That("NewPage"), Lines{});
  }
}

TEST_F(AccessorySheetDocument, The_next_sheet_shows_the_accessory_that_is_then_the_current_one) {
  AccDef& braces = AddType2("Eaves braces", {"Height"});
  ShowPicture(braces, 100, 35);
  Sheet(Two, NumberedRows(1, 1), false, false);
  EXPECT_EQ(That("Text \"").at(2), "Text \"Eaves braces\"");
  EXPECT_EQ(That("DrawPicture").size(), 2U);
  EXPECT_EQ(That("TableCell 18 1 3").back(), "TableCell 18 1 3 \"Height\"");
  CurrentAcc = 1;
  Sheet(One, RowsOf({{"4"}}), false, false);
  EXPECT_EQ(That("Text \"").at(2), "Text \"Bolts\"");
  EXPECT_EQ(That("DrawPicture").size(), 1U);  // the logo
  EXPECT_EQ(That("TableCell 18 2 2").back(), "TableCell 18 2 2 \"M12\"");
}

// The picture.

class AccessoryPicturePlace : public AccessorySheetTest {
 protected:
  AccessoryPicturePlace() { AddType1("Cleats", {{"Cleat", "C1"}}); }
};

TEST_F(AccessoryPicturePlace,
       A_picture_stands_in_the_middle_between_the_margins_in_its_proportion) {
  struct Case {
    int Width;
    int Top;
    const char* Picture;
    const char* Table;
  };
  // 12 + (280 - width) / 2; the height is half the width; the table 5 mm below.
  for (const Case& each : {
           Case{120, 35, "92mm 35mm 120mm 60mm", "100mm"},
           Case{75, 30, "114.5mm 30mm 75mm 37.5mm", "72.5mm"},
           Case{280, 0, "12mm 0mm 280mm 140mm", "145mm"},
           Case{300, 5, "2mm 5mm 300mm 150mm", "160mm"},  // wider than the room
       }) {
    ShowPicture(AccDefs.At(1), each.Width, each.Top);
    Detail(One, {});
    EXPECT_EQ(That("DrawPicture"),
              Lines{"DrawPicture picture 100x50 " + std::string(each.Picture)});
    EXPECT_EQ(That("CurrentY"), Lines{"CurrentY " + std::string(each.Table)});
  }
}

TEST_F(AccessoryPicturePlace, Its_proportion_is_its_own) {
  // 80 x 100 mm: at 60 mm wide it is 75 mm high.
  TempFile("Drawings/tall.wmf", MetafileWriter().Placeable(0, 0, 800, 1000, 254));
  ShowPicture(AccDefs.At(1), 60, 20);
  AccDefs.At(1).DrawingFile = "tall";
  Detail(One, {});
  EXPECT_EQ(That("DrawPicture"), Lines{"DrawPicture picture 80x100 122mm 20mm 60mm 75mm"});
  EXPECT_EQ(That("CurrentY"), Lines{"CurrentY 100mm"});
}

TEST_F(AccessoryPicturePlace, It_is_loaded_into_the_holder_of_the_drawings) {
  ShowPicture(AccDefs.At(1), 60, 20);
  frmDrawings().imgAcc = nullptr;
  Detail(One, {});
  ASSERT_NE(frmDrawings().imgAcc, nullptr);
  EXPECT_EQ(frmDrawings().imgAcc->Width, 100);
}

TEST_F(AccessoryPicturePlace, None_is_no_picture_and_the_table_stands_5_mm_below_its_place) {
  Detail(One, {});  // at 30 mm
  EXPECT_EQ(That("DrawPicture"), Lines{});
  EXPECT_EQ(That("CurrentY"), Lines{"CurrentY 35mm"});
}

TEST_F(AccessoryPicturePlace, None_is_written_just_so) {
  for (const char* name : {"none", "NONE", "None ", ""}) {
    AccDefs.At(1).DrawingFile = name;
    EXPECT_EQ(ErrorOf([&] { Detail(One, {}); }), NotFound(name));
  }
}

TEST_F(AccessoryPicturePlace, A_missing_file_fails_the_sheet_behind_its_frame) {
  AccDefs.At(1).DrawingFile = "lost";
  for (const AccessoryType type : {One, Two}) {
    EXPECT_EQ(ErrorOf([&] { Sheet(type, RowsOf({{"1"}}), true, true); }), NotFound("lost"));
    EXPECT_EQ(page.Lines().back(), "EndTable");  // of the frame
    EXPECT_EQ(That("StartTable").size(), 1U);
    EXPECT_EQ(That("EndDoc"), Lines{});
  }
  EXPECT_TRUE(desktop.Boxes.empty());
}

// Type 1.

class Type1Table : public AccessorySheetTest {
 protected:
  // Texts of 20, 30 and 10 characters, codes of 10, 20 and 30.
  Type1Table() {
    AddType1("Bolts", {{"Bolt and two washers", "M12x30-8.8"},
                       {"Bolt with a countersunk head B", "M16x35-8.8 head Y.Z."},
                       {"Studs of 5", "M16 by 200 mm of length, black"}});
  }

  // The three columns and the indent, in order.
  Lines Widths(const TextRows& rows) {
    Detail(One, rows);
    Lines widths = That("TableCell 13");
    for (const std::string& indent : That("TableIndent")) widths.push_back(indent);
    return widths;
  }
  Lines Texts(const TextRows& rows) {
    Detail(One, rows);
    return That("TableCell 18");
  }
};

const Lines Headings = {"TableCell 18 1 1 \"Descripton\"", "TableCell 18 1 2 \"Code\"",
                        "TableCell 18 1 3 \"No. Off\""};

Lines Under(Lines headings, const Lines& rows) {
  headings.insert(headings.end(), rows.begin(), rows.end());
  return headings;
}

TEST_F(Type1Table, Columns_are_5_mm_wider_than_their_widest_text_and_the_table_is_centred) {
  // 30 + 5, 30 + 5 and 20 of 280: half of 190.
  EXPECT_EQ(Widths(RowsOf({{"1"}, {"1"}, {"1"}})),
            (Lines{"TableCell 13 0 1 \"35mm\"", "TableCell 13 0 2 \"35mm\"",
                   "TableCell 13 0 3 \"20mm\"", "TableIndent 95mm"}));
}

TEST_F(Type1Table, The_texts_are_measured_in_11_points_and_regular_type) {
  page.FontSize(22);
  page.FontBold(false);
  EXPECT_EQ(Widths(RowsOf({{"1"}})).at(0), "TableCell 13 0 1 \"25mm\"");
  const Lines lines = page.Lines();
  EXPECT_EQ(lines.at(0), "FontSize 11");
  EXPECT_EQ(That("FontSize"), Lines{"FontSize 11"});
}

TEST_F(Type1Table, A_width_that_is_no_round_figure_keeps_its_fraction) {
  // 7 characters of 110 twips: 770 / 56.7 = 13.5802469135802...; the page 297 mm wide.
  AccDefs.At(1).ParamTexts.At(1) = "Bracket";
  surface.Forget();
  DrawAccessoryDetail(surface, PresentSource(), AccDefs.At(CurrentAcc), One, RowsOf({{"1"}}));
  EXPECT_EQ(LinesOf("TableCell 13").at(0), "TableCell 13 0 1 \"18.5802469135802mm\"");
}

TEST_F(Type1Table, Sizes_without_a_number_off_have_no_row_and_no_part_in_the_widths) {
  for (const char* none : {"0", "", "  ", "000", "x", "-4"}) {
    const TextRows rows = RowsOf({{"2"}, {none}, {none}});
    // 20 + 5, 10 + 5 and 20 of 280: half of 220.
    EXPECT_EQ(Widths(rows), (Lines{"TableCell 13 0 1 \"25mm\"", "TableCell 13 0 2 \"15mm\"",
                                   "TableCell 13 0 3 \"20mm\"", "TableIndent 110mm"}))
        << none;
    EXPECT_EQ(That("TableCell 1 "), Lines{"TableCell 1 0 0 2"}) << none;
    EXPECT_EQ(Texts(rows),
              Under(Headings, {"TableCell 18 2 1 \"Bolt and two washers\"",
                               "TableCell 18 2 2 \"M12x30-8.8\"", "TableCell 18 2 3 \"2\""}))
        << none;
  }
}

TEST_F(Type1Table, The_rows_follow_the_sizes_with_their_numbers_off) {
  EXPECT_EQ(
      Texts(RowsOf({{"12"}, {}, {"3"}})),
      Under(Headings,
            {"TableCell 18 2 1 \"Bolt and two washers\"", "TableCell 18 2 2 \"M12x30-8.8\"",
             "TableCell 18 2 3 \"12\"", "TableCell 18 3 1 \"Studs of 5\"",
             "TableCell 18 3 2 \"M16 by 200 mm of length, black\"", "TableCell 18 3 3 \"3\""}));
}

TEST_F(Type1Table, A_number_off_is_what_the_text_is_worth) {
  const struct {
    const char* Text;
    const char* Shown;
  } cases[] = {{"7", "7"}, {" 7 ", "7"}, {"007", "7"}, {"12 pcs", "12"}, {"32767", "32767"}};
  for (const auto& each : cases) {
    EXPECT_EQ(Texts(RowsOf({{each.Text}})).back(),
              "TableCell 18 2 3 \"" + std::string(each.Shown) + "\"");
  }
}

TEST_F(Type1Table, With_nothing_used_it_is_its_heading_row_alone) {
  for (const TextRows& rows : {TextRows{}, RowsOf({{"0"}, {""}, {"0"}})}) {
    EXPECT_EQ(Texts(rows), Headings);
    EXPECT_EQ(That("TableCell 1 "), Lines{"TableCell 1 0 0 1"});
    // A column without a text has no width: 20 of 280.
    EXPECT_EQ(Widths(rows), (Lines{"TableCell 13 0 1 \"0mm\"", "TableCell 13 0 2 \"0mm\"",
                                   "TableCell 13 0 3 \"20mm\"", "TableIndent 130mm"}));
  }
}

TEST_F(Type1Table, Without_the_flag_the_texts_stand_in_a_column_of_no_width) {
  AccDefs.At(1).Flag = False;
  // 0, 20 + 5 and 20 of 280: half of 235.
  const TextRows rows = RowsOf({{"1"}, {"5"}});
  EXPECT_EQ(Widths(rows), (Lines{"TableCell 13 0 1 \"0mm\"", "TableCell 13 0 2 \"25mm\"",
                                 "TableCell 13 0 3 \"20mm\"", "TableIndent 117.5mm"}));
  EXPECT_EQ(Texts(rows),
            Under(Headings,
                  {"TableCell 18 2 1 \"Bolt and two washers\"", "TableCell 18 2 2 \"M12x30-8.8\"",
                   "TableCell 18 2 3 \"1\"", "TableCell 18 3 1 \"Bolt with a countersunk head B\"",
                   "TableCell 18 3 2 \"M16x35-8.8 head Y.Z.\"", "TableCell 18 3 3 \"5\""}));
}

TEST_F(Type1Table, A_column_of_empty_texts_has_no_width) {
  AccDefs.At(1).ParamTexts.At(1) = "";
  AccDefs.At(1).ParamNames.At(1) = "";
  EXPECT_EQ(Widths(RowsOf({{"1"}})), (Lines{"TableCell 13 0 1 \"0mm\"", "TableCell 13 0 2 \"0mm\"",
                                            "TableCell 13 0 3 \"20mm\"", "TableIndent 130mm"}));
}

TEST_F(Type1Table, A_table_wider_than_the_room_has_an_indent_below_0) {
  AccDefs.At(1).ParamTexts.At(1) = std::string(300, 'x');
  // 305, 15 and 20 of 280: half of -60.
  EXPECT_EQ(Widths(RowsOf({{"1"}})).back(), "TableIndent -30mm");
}

TEST_F(Type1Table, Its_look_is_ruled_rows_of_5_mm_a_bold_heading_and_centred_centred_right) {
  Detail(One, RowsOf({{"1"}}));
  EXPECT_EQ(That("TableBorder"), Lines{"TableBorder 7"});
  EXPECT_EQ(That("TableCell 7"), Lines{"TableCell 7 0 0 \"5mm\""});
  EXPECT_EQ(That("TableCell 25"), Lines{"TableCell 25 1 0 1"});
  EXPECT_EQ(That("TableAlignment"),
            (Lines{"TableAlignment 0 1 centre 6", "TableAlignment 0 2 centre 6",
                   "TableAlignment 0 3 right 8"}));
}

TEST_F(Type1Table, A_number_off_for_a_size_that_the_catalogue_lacks_is_out_of_range) {
  EXPECT_EQ(ErrorOf([&] {
              Detail(One, RowsOf({{"1"}, {"1"}, {"1"}, {"1"}}));
            }),
            DescriptionOf(Failure::SubscriptOutOfRange));
  // An empty row behind the last size is no size.
  Detail(One, RowsOf({{"1"}, {"1"}, {"1"}, {"0"}}));
  EXPECT_EQ(That("TableCell 1 "), Lines{"TableCell 1 0 0 4"});
}

TEST_F(Type1Table, Fewer_rows_than_sizes_leave_the_others_out) {
  Detail(One, RowsOf({{"1"}}));
  EXPECT_EQ(That("TableCell 1 "), Lines{"TableCell 1 0 0 2"});
}

TEST_F(Type1Table, A_value_behind_the_number_off_is_not_shown) {
  AccDefs.At(1).HasParamColumn = True;
  EXPECT_EQ(Texts(RowsOf({{"4", "75"}})).back(), "TableCell 18 2 3 \"4\"");
}

}  // namespace

}  // namespace orvane::test
