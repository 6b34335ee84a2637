#include "output/accessory_list.h"

#include <filesystem>

#include "tests/output/output_test.h"

namespace orvane {

namespace {

using namespace test;

class AccessoryListTest : public OutputTest {
 protected:
  AccessoryListTest() { AddAccessories(); }

  // What an error leaves of the list behind its header.
  struct Broken {
    std::string Lines;
    std::string Description;
  };
  Broken BrokenList() {
    const FactoryFile file = AccListFile(desktop.Present);
    EXPECT_EQ(file.Text.substr(0, ListHeader.size()), ListHeader);
    if (!file.Error) return {file.Text, "no error"};
    return {file.Text.substr(ListHeader.size()), file.Error->Description()};
  }
};

// The heading group of a type 1 accessory.
std::string Heading1(const std::string& name) {
  return Lines({"", ListRow({name, "Mark", "Quantity"})});
}

// The heading group of a type 2 accessory with five values.
std::string Heading2(const std::string& name) {
  return Lines({"", ListRow({name, "Mark", "Quantity", "A", "B", "C", "D", "E"})});
}

TEST_F(AccessoryListTest, The_header_has_thirteen_lines) {
  const FactoryFile file = AccListFile(desktop.Present);
  EXPECT_FALSE(file.Error);
  EXPECT_EQ(file.Text, ListHeader);
  const std::size_t dashes = file.Text.find('-');
  EXPECT_EQ(file.Text.find("\r\n", dashes) - dashes, 58U);
}

TEST_F(AccessoryListTest, A_list_of_both_types_is_written_whole) {
  AccLines1.Append(MakeLine1(1, 1, 24));
  AccLines1.Append(MakeLine1(1, 3, 6));
  AccLines2.Append(MakeLine2(10, "T1", 2, {"Z20018", "1250.0", "12.50", "", "left"}));
  EXPECT_EQ(ListLines(),
            "\r\n"
            "Accessory 1                        Mark        Quantity    \r\n"
            "Size One                           SOne        24          \r\n"
            "Size Three                         SThree      6           \r\n"
            "\r\n"
            "Accessory 10                       Mark        Quantity    "
            "A           B           C           D           E           \r\n"
            "Text 10                            T1          2           "
            "Z20018      1250        12.5                    left        \r\n");
}

TEST_F(AccessoryListTest, The_lists_keep_their_own_orders_type_1_first) {
  AccLines2.Append(MakeLine2(12, "B", 1, {"", "", "", "", ""}));
  AccLines2.Append(MakeLine2(10, "A", 1, {"", "", "", "", ""}));
  AccLines1.Append(MakeLine1(3, 2, 1));
  AccLines1.Append(MakeLine1(2, 3, 1));
  AccLines1.Append(MakeLine1(2, 1, 1));
  EXPECT_EQ(
      ListLines(),
      Heading1("Accessory 3") + Lines({ListRow({"Size Two", "STwo", "1"})}) +
          Heading1("Accessory 2") +
          Lines({ListRow({"Size Three", "SThree", "1"}), ListRow({"Size One", "SOne", "1"})}) +
          Heading2("Accessory 12") + Lines({ListRow({"Text 12", "B", "1", "", "", "", "", ""})}) +
          Heading2("Accessory 10") + Lines({ListRow({"Text 10", "A", "1", "", "", "", "", ""})}));
}

TEST_F(AccessoryListTest, Lines_of_one_accessory_share_a_heading_until_another_comes_between) {
  for (const int row : {1, 1, 2, 1}) AccLines1.Append(MakeLine1(row, 1, 1));
  const std::string line = Lines({ListRow({"Size One", "SOne", "1"})});
  EXPECT_EQ(ListLines(), Heading1("Accessory 1") + line + line + Heading1("Accessory 2") + line +
                             Heading1("Accessory 1") + line);

  AccLines1.Clear();
  for (const int row : {10, 10, 12, 10}) {
    AccLines2.Append(MakeLine2(row, "M", 1, {"", "", "", "", ""}));
  }
  const auto line2 = [](const char* part) {
    return Lines({ListRow({part, "M", "1", "", "", "", "", ""})});
  };
  EXPECT_EQ(ListLines(), Heading2("Accessory 10") + line2("Text 10") + line2("Text 10") +
                             Heading2("Accessory 12") + line2("Text 12") +
                             Heading2("Accessory 10") + line2("Text 10"));
}

TEST_F(AccessoryListTest, Two_accessories_of_one_name_share_a_heading) {
  AccDefs.At(2).Name = "Accessory 1";
  AccLines1.Append(MakeLine1(1, 1, 1));
  AccLines1.Append(MakeLine1(2, 2, 1));
  EXPECT_EQ(ListLines(), Heading1("Accessory 1") + Lines({ListRow({"Size One", "SOne", "1"}),
                                                          ListRow({"Size Two", "STwo", "1"})}));
}

TEST_F(AccessoryListTest, Lines_without_a_quantity_are_not_written) {
  AccLines1.Append(MakeLine1(1, 1, 0));
  AccLines1.Append(MakeLine1(2, 1, -1));
  AccLines2.Append(MakeLine2(10, "M", 0, {"", "", "", "", ""}));
  AccLines2.Append(MakeLine2(11, "M", -1, {"", "", "", "", ""}));
  EXPECT_EQ(ListLines(), "");
}

TEST_F(AccessoryListTest, A_line_without_a_quantity_starts_no_heading_and_breaks_none) {
  AccLines1.Append(MakeLine1(1, 1, 1));
  AccLines1.Append(MakeLine1(2, 1, 0));
  AccLines1.Append(MakeLine1(1, 2, 1));
  AccLines2.Append(MakeLine2(10, "M1", 1, {"", "", "", "", ""}));
  AccLines2.Append(MakeLine2(11, "M2", 0, {"", "", "", "", ""}));
  AccLines2.Append(MakeLine2(10, "M3", 1, {"", "", "", "", ""}));
  EXPECT_EQ(ListLines(),
            Heading1("Accessory 1") +
                Lines({ListRow({"Size One", "SOne", "1"}), ListRow({"Size Two", "STwo", "1"})}) +
                Heading2("Accessory 10") +
                Lines({ListRow({"Text 10", "M1", "1", "", "", "", "", ""}),
                       ListRow({"Text 10", "M3", "1", "", "", "", "", ""})}));
}

TEST_F(AccessoryListTest, A_line_without_a_quantity_needs_no_row_in_the_catalogue) {
  AccLines1.Append(MakeLine1(99, 99, 0));
  AccLines2.Append(MakeLine2(0, "", 0, {}));
  AccLines2.Append(MakeLine2(99, "", 0, {}));
  EXPECT_EQ(ListLines(), "");
}

TEST_F(AccessoryListTest, The_second_list_begins_with_a_heading_even_under_the_same_name) {
  AccDefs.At(10).Name = "Accessory 1";
  AccLines1.Append(MakeLine1(1, 1, 1));
  AccLines2.Append(MakeLine2(10, "M", 1, {"", "", "", "", ""}));
  EXPECT_EQ(ListLines(), Heading1("Accessory 1") + Lines({ListRow({"Size One", "SOne", "1"})}) +
                             Heading2("Accessory 1") +
                             Lines({ListRow({"Text 10", "M", "1", "", "", "", "", ""})}));
}

TEST_F(AccessoryListTest, A_type_1_line_shows_the_sizes_code_under_the_heading_Mark) {
  AccLines1.Append(MakeLine1(1, 2, 32767));
  EXPECT_EQ(ListLines(),
            "\r\n"
            "Accessory 1                        Mark        Quantity    \r\n"
            "Size Two                           STwo        32767       \r\n");
}

TEST_F(AccessoryListTest, An_accessory_without_value_columns_has_rows_of_59_columns) {
  AccDefs.At(10).ParamNames.Resize(2);
  AccLines2.Append(MakeLine2(10, "M1", 3, {}));
  AccLines2.Append(MakeLine2(10, "M2", 4, {"surplus"}));
  EXPECT_EQ(ListLines(),
            "\r\n"
            "Accessory 10                       Mark        Quantity    \r\n"
            "Text 10                            M1          3           \r\n"
            "Text 10                            M2          4           \r\n");
}

TEST_F(AccessoryListTest, A_value_that_is_a_number_is_written_in_shortest_form) {
  const std::vector<std::pair<std::string, std::string>> values = {
      {"12.50", "12.5"}, {"12", "12"},     {" 7 ", "7"},   {"+5", "5"},      {".5", "0.5"},
      {"-0", "0"},       {"1e3", "1000"},  {"007", "7"},   {"", ""},         {" ", " "},
      {"KT31", "KT31"},  {"12a", "12a"},   {"1,5", "1,5"}, {"&H10", "&H10"}, {"inf", "inf"},
      {"nan", "nan"},    {"0x10", "0x10"}, {"1 2", "1 2"}, {"--5", "--5"},   {"5.", "5"},
      {"0.1", "0.1"},    {"1e", "1e"},
  };
  for (const auto& [value, text] : values) {
    AccLines2.Clear();
    AccLines2.Append(MakeLine2(10, "M", 1, {value, "", "", "", "end"}));
    EXPECT_EQ(ListLines(), Heading2("Accessory 10") +
                               Lines({ListRow({"Text 10", "M", "1", text, "", "", "", "end"})}))
        << value;
  }
}

TEST_F(AccessoryListTest, Values_stand_under_their_headings) {
  AccDefs.At(10).ParamNames.At(5) = "Centres";
  AccLines2.Append(MakeLine2(10, "M", 1, {"v1", "v2", "v3", "v4", "v5"}));
  const std::string text = ListLines();
  const std::size_t heading = text.find("Accessory 10");
  const std::size_t line = text.find("Text 10");
  ASSERT_NE(line, std::string::npos);
  EXPECT_EQ(text.find("Centres") - heading, 35U + 12 + 12 + 2 * 12);
  EXPECT_EQ(text.find("v3") - line, 35U + 12 + 12 + 2 * 12);
  EXPECT_EQ(text.find("v5") - line, 35U + 12 + 12 + 4 * 12);
}

TEST_F(AccessoryListTest, A_text_longer_than_its_column_is_cut_without_a_blank_behind_it) {
  AccDefs.At(1).Name = "A name of forty characters exactly, yes!";
  AccDefs.At(1).ParamTexts.At(1) = "A description of forty characters, yes!!";
  AccDefs.At(1).ParamNames.At(1) = "CODE-OF-FIFTEEN";
  AccLines1.Append(MakeLine1(1, 1, 5));
  EXPECT_EQ(ListLines(),
            "\r\n"
            "A name of forty characters exactly,Mark        Quantity    \r\n"
            "A description of forty characters, CODE-OF-FIFT5           \r\n");

  AccLines1.Clear();
  AccDefs.At(10).Name = "N";
  AccDefs.At(10).Option = "A part of more than thirty-five characters";
  AccDefs.At(10).ParamNames.At(3) = "Purlin centres";
  AccLines2.Append(
      MakeLine2(10, "MARK-OF-FIFTEEN", 5, {"a value too long", "1234567890.12345", "", "", ""}));
  EXPECT_EQ(ListLines(),
            "\r\n"
            "N                                  Mark        Quantity    "
            "Purlin centrB           C           D           E           \r\n"
            "A part of more than thirty-five chaMARK-OF-FIFT5           "
            "a value too 1234567890.1                                    \r\n");
}

TEST_F(AccessoryListTest, Columns_count_characters_of_one_byte_each) {
  AccDefs.At(1).Name = "Caf\u00e9";
  AccDefs.At(1).ParamTexts.At(1) = "\u00d8 12 \u2013 \u0416";
  AccDefs.At(1).ParamNames.At(1) =
      "\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9"
      "\u00e9\u00e9\u00e9\u00e9";
  AccLines1.Append(MakeLine1(1, 1, 5));
  const std::string text = ListLines();
  EXPECT_EQ(text, Lines({"", ListRow({"Caf\xe9", "Mark", "Quantity"}),
                         ListRow({"\xd8 12 \x96 ?",
                                  "\xe9\xe9\xe9\xe9\xe9\xe9\xe9\xe9\xe9\xe9\xe9\xe9", "5"})}));
  EXPECT_EQ(text.size(), 2U + 59 + 2 + 59 + 2);
}

TEST_F(AccessoryListTest, Every_accessory_in_use_is_listed) {
  AccLines2.Append(MakeLine2(22, "M1", 1, {"", "", "", "", ""}));
  AccLines2.Append(MakeLine2(7, "M2", 1, {"", "", "", "", ""}));
  EXPECT_EQ(ListLines(), Heading2("Accessory 22") +
                             Lines({ListRow({"Text 22", "M1", "1", "", "", "", "", ""})}) +
                             Heading2("Accessory 7") +
                             Lines({ListRow({"Text 7", "M2", "1", "", "", "", "", ""})}));
}

// The accessory in row 9.

TEST_F(AccessoryListTest, Row_9_joins_its_first_value_to_the_part_and_leaves_out_its_column) {
  AccLines2.Append(MakeLine2(9, "B1", 4, {"EB2", "450", "300.0", "x", "12.50"}));
  EXPECT_EQ(ListLines(),
            "\r\n"
            "Accessory 9                        Mark        Quantity    "
            "B           C           D           E           \r\n"
            "Text 9 EB2                         B1          4           "
            "450         300         x           12.5        \r\n");
}

TEST_F(AccessoryListTest, Row_9_joins_its_first_value_as_a_text_and_cuts_both_together) {
  AccDefs.At(9).Option = "An eaves brace of thirty chars";
  AccLines2.Append(MakeLine2(9, "B1", 4, {"12.50", "1", "1", "", ""}));
  AccLines2.Append(MakeLine2(9, "B2", 4, {"", "1", "1", "", ""}));
  EXPECT_EQ(ListLines(),
            "\r\n"
            "Accessory 9                        Mark        Quantity    "
            "B           C           D           E           \r\n"
            "An eaves brace of thirty chars 12.5B1          4           "
            "1           1                                   \r\n"
            "An eaves brace of thirty chars     B2          4           "
            "1           1                                   \r\n");
}

TEST_F(AccessoryListTest, Row_9_sets_an_empty_second_and_third_value_to_0_in_the_model_too) {
  AccLines2.Append(MakeLine2(9, "B1", 4, {"", "", "", "", ""}));
  AccLines2.Append(MakeLine2(9, "B2", 4, {"EB2", "450", "", "", ""}));
  AccLines2.Append(MakeLine2(9, "B3", 4, {"EB2", " ", "300", "", ""}));
  EXPECT_EQ(ListLines(),
            "\r\n"
            "Accessory 9                        Mark        Quantity    "
            "B           C           D           E           \r\n"
            "Text 9                             B1          4           "
            "0           0                                   \r\n"
            "Text 9 EB2                         B2          4           "
            "450         0                                   \r\n"
            "Text 9 EB2                         B3          4           "
            "            300                                 \r\n");
  const std::vector<std::vector<std::string>> values = {
      {"", "0", "0", "", ""}, {"EB2", "450", "0", "", ""}, {"EB2", " ", "300", "", ""}};
  for (int row = 1; row <= 3; ++row) {
    for (int j = 1; j <= 5; ++j) {
      EXPECT_EQ(AccLines2.At(row).Values.At(j),
                values[static_cast<std::size_t>(row) - 1][static_cast<std::size_t>(j) - 1]);
    }
  }
}

TEST_F(AccessoryListTest, Row_9_without_a_quantity_and_all_other_rows_keep_their_empty_values) {
  AccLines2.Append(MakeLine2(9, "B1", 0, {"", "", "", "", ""}));
  AccLines2.Append(MakeLine2(10, "T1", 1, {"", "", "", "", ""}));
  ListLines();
  for (int row = 1; row <= 2; ++row) {
    for (int j = 1; j <= 5; ++j) EXPECT_EQ(AccLines2.At(row).Values.At(j), "");
  }
}

TEST_F(AccessoryListTest, Row_9_without_its_second_or_third_value_stops_the_list) {
  for (const std::vector<std::string>& values :
       {std::vector<std::string>{}, {"EB2"}, {"EB2", "450"}}) {
    AccLines2.Clear();
    AccLines2.Append(MakeLine2(9, "B1", 4, values));
    const Broken broken = BrokenList();
    EXPECT_EQ(broken.Lines,
              Lines({"", ListRow({"Accessory 9", "Mark", "Quantity", "B", "C", "D", "E"})}));
    EXPECT_EQ(broken.Description, "Accessory 9 B1: Subscript out of range");
  }
}

// Faulty lines.

TEST_F(AccessoryListTest, A_line_outside_the_catalogue_stops_the_list_behind_what_was_written) {
  const std::string good = Heading1("Accessory 1") + Lines({ListRow({"Size One", "SOne", "1"})});
  for (const int accIndex : {23, -1}) {
    AccLines1.Clear();
    AccLines1.Append(MakeLine1(1, 1, 1));
    AccLines1.Append(MakeLine1(accIndex, 1, 1));
    AccLines1.Append(MakeLine1(2, 1, 1));
    const Broken broken = BrokenList();
    EXPECT_EQ(broken.Lines, good);
    EXPECT_EQ(broken.Description,
              "Accessory " + std::to_string(accIndex) + ": Subscript out of range");
  }
  AccLines1.Clear();
  AccLines1.Append(MakeLine1(1, 1, 1));
  AccLines2.Append(MakeLine2(23, "M", 1, {}));
  const Broken broken = BrokenList();
  EXPECT_EQ(broken.Lines, good);
  EXPECT_EQ(broken.Description, "Accessory 23 M: Subscript out of range");
}

TEST_F(AccessoryListTest, A_size_outside_the_accessory_stops_the_list_behind_the_heading) {
  for (const int size : {4, -1}) {
    AccLines1.Clear();
    AccLines1.Append(MakeLine1(1, size, 1));
    const Broken broken = BrokenList();
    EXPECT_EQ(broken.Lines, Heading1("Accessory 1"));
    EXPECT_EQ(broken.Description, "Accessory 1: Subscript out of range");
  }
}

TEST_F(AccessoryListTest, Size_0_is_the_blank_element) {
  AccLines1.Append(MakeLine1(1, 0, 5));
  EXPECT_EQ(ListLines(), Heading1("Accessory 1") + Lines({ListRow({"", "", "5"})}));
}

TEST_F(AccessoryListTest, Row_0_of_the_catalogue_is_blank_and_needs_no_heading_at_the_start) {
  AccLines1.Append(MakeLine1(0, 0, 5));
  AccLines2.Append(MakeLine2(0, "M", 6, {}));
  EXPECT_EQ(ListLines(), Lines({ListRow({"", "", "5"}), ListRow({"", "M", "6"})}));
}

TEST_F(AccessoryListTest, A_missing_value_stops_the_list_before_its_line) {
  AccLines2.Append(MakeLine2(10, "M1", 1, {"1", "2", "3", "4", "5"}));
  AccLines2.Append(MakeLine2(10, "M2", 1, {"1", "2", "3", "4"}));
  const Broken broken = BrokenList();
  EXPECT_EQ(broken.Lines, Heading2("Accessory 10") +
                              Lines({ListRow({"Text 10", "M1", "1", "1", "2", "3", "4", "5"})}));
  EXPECT_EQ(broken.Description, "Accessory 10 M2: Subscript out of range");
}

// The file.

TEST_F(AccessoryListTest, Its_name_is_the_CAM_files_up_to_the_first_point_and_xac) {
  const std::vector<std::pair<std::string, std::string>> paths = {
      {"a.xov", "a.xac"},
      {"/jobs/a.xov", "/jobs/a.xac"},
      {"/jobs/a.b.xov", "/jobs/a.xac"},
      {"/jobs/v1.2/a.xov", "/jobs/v1.xac"},
      {"/home/u/.hidden/a.xov", "/home/u/.xac"},
      {"C:\\Users\\j.smith\\a.xov", "C:\\Users\\j.xac"},
      {"/jobs/a.xac.xov", "/jobs/a.xac"},
      {"/jobs/a", "/jobs/a.xac"},
      {"/jobs/a.", "/jobs/a.xac"},
      {"../a.xov", ".xac"},
  };
  for (const auto& [cam, list] : paths) EXPECT_EQ(AccListPath(cam), list) << cam;
}

TEST_F(AccessoryListTest, Nothing_is_written_unless_an_accessory_is_in_use) {
  AccLines1.Append(MakeLine1(1, 1, 1));
  const std::string old = TempFile("a.xac", "the old list");
  EXPECT_EQ(ExportAccList(TempPath("a.xov")), ListOutcome::NotNeeded);
  EXPECT_EQ(BytesOf(old), "the old list");
  AccUsed.Clear();
  EXPECT_EQ(ExportAccList(TempPath("a.xov")), ListOutcome::NotNeeded);
  EXPECT_EQ(BytesOf(old), "the old list");
  EXPECT_EQ(desktop.ClockReads, 0);
}

TEST_F(AccessoryListTest, The_flag_of_any_accessory_writes_the_list_over_the_old_one) {
  AccLines1.Append(MakeLine1(1, 1, 1));
  AccUsed.At(22) = True;
  const std::string path = TempFile("a.xac", std::string(10000, 'x'));
  EXPECT_EQ(ExportAccList(TempPath("a.xov")), ListOutcome::Written);
  EXPECT_EQ(BytesOf(path),
            ListHeader + Heading1("Accessory 1") + Lines({ListRow({"Size One", "SOne", "1"})}));
  EXPECT_TRUE(desktop.Boxes.empty());
  EXPECT_EQ(desktop.ClockReads, 1);
}

TEST_F(AccessoryListTest, An_error_shows_its_description_in_a_plain_box) {
  AccUsed.At(1) = True;
  const auto shown = [this](const std::string& camPath) {
    desktop.Boxes.clear();
    EXPECT_EQ(ExportAccList(camPath), ListOutcome::Failed);
    EXPECT_EQ(desktop.Boxes.size(), 1U);
    if (desktop.Boxes.empty()) return std::string();
    EXPECT_EQ(desktop.Boxes[0].Title, "");
    EXPECT_EQ(desktop.Boxes[0].Choice, Buttons::Ok);
    EXPECT_EQ(desktop.Boxes[0].Sign, Icon::None);
    return desktop.Boxes[0].Text;
  };
  EXPECT_EQ(shown(TempPath("no such folder/a.xov")), "Path not found");
  std::filesystem::create_directory(TempPath("b.xac"));
  EXPECT_EQ(shown(TempPath("b.xov")), "Is a directory");
  std::filesystem::create_symlink("/dev/full", TempPath("c.xac"));
  EXPECT_EQ(shown(TempPath("c.xov")), "Not a regular file");
  std::filesystem::permissions(TempPath("."), std::filesystem::perms(0555));
  const std::string denied = AsOrdinaryUser([&] { return shown(TempPath("d.xov")); });
  std::filesystem::permissions(TempPath("."), std::filesystem::perms(0755));
  EXPECT_EQ(denied, "Permission denied");
}

TEST_F(AccessoryListTest, A_faulty_line_leaves_the_former_list) {
  AccLines1.Append(MakeLine1(1, 1, 1));
  AccLines1.Append(MakeLine1(99, 1, 1));
  AccUsed.At(1) = True;
  TempFile("a.xac", "the former list");
  EXPECT_EQ(ExportAccList(TempPath("a.xov")), ListOutcome::Failed);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text, "Accessory 99: Subscript out of range");
  EXPECT_EQ(BytesOf(TempPath("a.xac")), "the former list");
}

}  // namespace

}  // namespace orvane
