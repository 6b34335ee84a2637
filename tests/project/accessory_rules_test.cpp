// What the accessory dialogs store and refuse.
#include "project/rules/accessory_rules.h"

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/fixture.h"

namespace orvane {

namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

TextRows ToRows(const Rows& rows) {
  TextRows table;
  for (const Row& row : rows) {
    Table<std::string>& added = table.Append({});
    for (const std::string& cell : row) added.Append(cell);
  }
  return table;
}

Rows FromRows(const TextRows& table) {
  Rows rows;
  for (const Table<std::string>& row : table) rows.emplace_back(row.begin(), row.end());
  return rows;
}

// Title, text, row and column of a refusal; empty for none.
std::vector<std::string> RefusalOf(int accIndex, const Rows& rows) {
  const auto refusal = ValidateAccessory(Int16(accIndex), ToRows(rows));
  if (!refusal) return {};
  return {refusal->Title, refusal->Text, std::to_string(refusal->Row),
          std::to_string(refusal->Column)};
}

class AccessoryRulesTest : public test::SystemTest {
 protected:
  // Three accessories of type 1 with three sizes each, nine of type 2: row 4 has the mark and the
  // number off alone, the others seven columns more.
  AccessoryRulesTest() {
    AccType1Count = 3;
    AccType2Count = 9;
    AccDefs.Resize(12);
    AccUsed.Resize(12);
    for (int index = 1; index <= 12; ++index) {
      AccDef& accessory = AccDefs.At(index);
      accessory.IsType1 = ToBoolean(index <= 3);
      accessory.ParamNames.Resize(index <= 3 ? 3 : index == 4 ? 2 : 9);
    }
    MaxDims.At(4) = 3050;
  }

  static void Add1(int accIndex, int paramIndex, int qty, int param = 0) {
    AccLines1.Append({Int16(accIndex), Int16(paramIndex), Int16(qty), Int16(param)});
    AccUsed.At(accIndex) = True;
  }

  static void Add2(int accIndex, const std::string& mark, int noOff, const Row& values) {
    AccLine2 line;
    line.AccIndex = Int16(accIndex);
    line.Mark = mark;
    line.NoOff = Int16(noOff);
    for (const std::string& value : values) line.Values.Append(value);
    AccLines2.Append(line);
    AccUsed.At(accIndex) = True;
  }

  // "AccIndex/ParamIndex/Qty/Param" of each line.
  static Row Lines1() {
    Row lines;
    for (const AccLine1& line : AccLines1) {
      lines.push_back(std::to_string(line.AccIndex) + "/" + std::to_string(line.ParamIndex) + "/" +
                      std::to_string(line.Qty) + "/" + std::to_string(line.Param));
    }
    return lines;
  }

  // "AccIndex/Mark/NoOff/ValueCount" of each line, the values behind it.
  static Row Lines2() {
    Row lines;
    for (const AccLine2& line : AccLines2) {
      std::string text = std::to_string(line.AccIndex) + "/" + line.Mark + "/" +
                         std::to_string(line.NoOff) + "/" + std::to_string(line.ValueCount());
      for (const std::string& value : line.Values) text += "|" + value;
      lines.push_back(text);
    }
    return lines;
  }
};

// Which accessory is of which type.

TEST_F(AccessoryRulesTest, The_rows_of_the_first_catalogue_are_type_1) {
  EXPECT_FALSE(IsType1Accessory(0));
  EXPECT_TRUE(IsType1Accessory(1));
  EXPECT_TRUE(IsType1Accessory(3));
  EXPECT_FALSE(IsType1Accessory(4));
  EXPECT_FALSE(IsType1Accessory(12));
}

// What the dialogs show.

TEST_F(AccessoryRulesTest, A_type_1_accessory_shows_a_row_for_each_size_with_its_number_off) {
  Add1(1, 2, 7);
  Add1(2, 3, 32767);
  Add1(2, 1, 5);
  EXPECT_EQ(FromRows(AccessoryRows(2)), (Rows{{"5"}, {""}, {"32767"}}));
  EXPECT_EQ(FromRows(AccessoryRows(3)), (Rows{{""}, {""}, {""}}));
}

TEST_F(AccessoryRulesTest, The_value_column_is_shown_where_the_accessory_has_it) {
  Add1(2, 2, 5, 140);
  EXPECT_EQ(FromRows(AccessoryRows(2)), (Rows{{""}, {"5"}, {""}}));
  AccDefs.At(2).HasParamColumn = True;
  EXPECT_EQ(FromRows(AccessoryRows(2)), (Rows{{"", ""}, {"5", "140"}, {"", ""}}));
}

TEST_F(AccessoryRulesTest, A_size_that_the_catalogue_no_longer_has_is_skipped) {
  Add1(2, 4, 9);
  Add1(2, 0, 8);
  Add1(2, -1, 6);
  Add1(2, 3, 7);
  EXPECT_EQ(FromRows(AccessoryRows(2)), (Rows{{""}, {""}, {"7"}}));
}

TEST_F(AccessoryRulesTest, An_accessory_without_sizes_shows_no_rows) {
  AccDefs.At(2).ParamNames.Clear();
  Add1(2, 1, 9);
  EXPECT_EQ(FromRows(AccessoryRows(2)), Rows{});
}

TEST_F(AccessoryRulesTest, A_type_2_accessory_shows_its_lines_in_order) {
  Add2(6, "B", 2, {"1", "2", "3", "4", "5", "6", "7"});
  Add2(7, "X", 1, {"a", "b", "c", "d", "e", "f", "g"});
  Add2(6, "C", 12, {" 1", "", "", "", "", "", "seven"});
  EXPECT_EQ(FromRows(AccessoryRows(6)), (Rows{{"B", "2", "1", "2", "3", "4", "5", "6", "7"},
                                              {"C", "12", " 1", "", "", "", "", "", "seven"}}));
  EXPECT_EQ(FromRows(AccessoryRows(5)), Rows{});
}

TEST_F(AccessoryRulesTest, Values_without_a_column_are_skipped_and_missing_ones_are_empty) {
  Add2(4, "A", 1, {"surplus", "more"});
  Add2(5, "B", 2, {"only"});
  EXPECT_EQ(FromRows(AccessoryRows(4)), (Rows{{"A", "1"}}));
  EXPECT_EQ(FromRows(AccessoryRows(5)), (Rows{{"B", "2", "only", "", "", "", "", "", ""}}));
}

// "&OK" of a type 1 accessory.

TEST_F(AccessoryRulesTest, Each_size_with_a_number_above_0_becomes_a_line) {
  StoreType1Lines(2, ToRows({{"5"}, {""}, {"17"}}));
  EXPECT_EQ(Lines1(), (Row{"2/1/5/0", "2/3/17/0"}));
  EXPECT_EQ(AccUsed.At(2), True);
}

TEST_F(AccessoryRulesTest, The_new_lines_replace_those_of_the_accessory_alone) {
  Add1(3, 1, 4);
  Add1(2, 1, 5);
  Add1(1, 2, 6);
  Add2(2, "same index", 1, {});
  StoreType1Lines(2, ToRows({{""}, {"8"}, {""}}));
  EXPECT_EQ(Lines1(), (Row{"1/2/6/0", "2/2/8/0", "3/1/4/0"}));
  EXPECT_EQ(Lines2(), (Row{"2/same index/1/0"}));
}

TEST_F(AccessoryRulesTest, Type_1_without_a_number_loses_its_lines_and_its_flag) {
  Add1(2, 1, 5);
  StoreType1Lines(2, ToRows({{""}, {""}, {""}}));
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccUsed.At(2), False);
}

TEST_F(AccessoryRulesTest, A_number_of_0_counts_as_no_line) {
  StoreType1Lines(2, ToRows({{"0"}, {"000"}, {"-3"}}));
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccUsed.At(2), False);
}

TEST_F(AccessoryRulesTest, A_quantity_beyond_16_bits_changes_nothing) {
  Add1(2, 1, 5);
  EXPECT_EQ(test::ErrorOf([] {
              StoreType1Lines(2, ToRows({{"6"}, {"32768"}, {""}}));
            }),
            "Overflow");
  EXPECT_EQ(Lines1(), (Row{"2/1/5/0"}));
  EXPECT_EQ(AccUsed.At(2), True);
  StoreType1Lines(2, ToRows({{"6"}, {"32767"}, {""}}));
  EXPECT_EQ(Lines1(), (Row{"2/1/6/0", "2/2/32767/0"}));
}

TEST_F(AccessoryRulesTest, The_value_is_stored_with_its_column_alone) {
  StoreType1Lines(2, ToRows({{"5", "140"}}));
  EXPECT_EQ(Lines1(), (Row{"2/1/5/0"}));
  AccDefs.At(2).HasParamColumn = True;
  StoreType1Lines(2, ToRows({{"5", "140"}, {"", "99999"}, {"3", ""}}));
  EXPECT_EQ(Lines1(), (Row{"2/1/5/140", "2/3/3/0"}));
  EXPECT_EQ(test::ErrorOf([] { StoreType1Lines(2, ToRows({{"1", "40000"}})); }), "Overflow");
  EXPECT_EQ(Lines1(), (Row{"2/1/5/140", "2/3/3/0"}));
}

TEST_F(AccessoryRulesTest, Type_1_lines_stand_by_accessory_and_size) {
  Add1(3, 2, 1);
  Add1(1, 3, 1);
  StoreType1Lines(2, ToRows({{"1"}, {"2"}, {"3"}}));
  EXPECT_EQ(Lines1(), (Row{"1/3/1/0", "2/1/1/0", "2/2/2/0", "2/3/3/0", "3/2/1/0"}));
}

// "&OK" of a type 2 accessory.

TEST_F(AccessoryRulesTest, Each_row_with_a_mark_becomes_a_line_with_a_value_a_column) {
  StoreType2Lines(6, ToRows({{"  A1 ", "5", " 1 ", "", "x", "4", "5", "6", "7"}}));
  EXPECT_EQ(Lines2(), (Row{"6/A1/5/7| 1 ||x|4|5|6|7"}));
  EXPECT_EQ(AccUsed.At(6), True);
}

TEST_F(AccessoryRulesTest, A_row_without_a_mark_is_dropped_whatever_else_it_holds) {
  Add2(6, "old", 1, {});
  StoreType2Lines(6, ToRows({{"  ", "99999", "1", "2", "3", "4", "5", "6", "7"},
                             {"", "5", "1", "2", "3", "4", "5", "6", "7"}}));
  EXPECT_EQ(AccLines2.UBound(), 0);
  EXPECT_EQ(AccUsed.At(6), False);
}

TEST_F(AccessoryRulesTest, An_empty_table_clears_the_accessory) {
  Add2(6, "A", 1, {});
  Add2(7, "B", 1, {});
  StoreType2Lines(6, {});
  EXPECT_EQ(Lines2(), (Row{"7/B/1/0"}));
  EXPECT_EQ(AccUsed.At(6), False);
  EXPECT_EQ(AccUsed.At(7), True);
}

TEST_F(AccessoryRulesTest, Lines_come_back_sorted_by_mark_in_character_order) {
  AccDefs.At(6).ParamNames.Resize(2);
  StoreType2Lines(6, ToRows({{"a1", "1"}, {"B1", "2"}, {"A9", "3"}, {"A10", "4"}, {"B1", "5"}}));
  EXPECT_EQ(Lines2(), (Row{"6/A10/4/0", "6/A9/3/0", "6/B1/2/0", "6/B1/5/0", "6/a1/1/0"}));
}

TEST_F(AccessoryRulesTest, Mark_and_number_alone_make_a_line_without_values) {
  StoreType2Lines(4, ToRows({{"A", "3"}}));
  EXPECT_EQ(Lines2(), (Row{"4/A/3/0"}));
}

TEST_F(AccessoryRulesTest, A_number_off_is_read_as_far_as_it_is_a_number) {
  AccDefs.At(6).ParamNames.Resize(2);
  StoreType2Lines(6, ToRows({{"A", ""}, {"B", "12x"}, {"C", "none"}}));
  EXPECT_EQ(Lines2(), (Row{"6/A/0/0", "6/B/12/0", "6/C/0/0"}));
}

TEST_F(AccessoryRulesTest, A_number_off_beyond_16_bits_changes_nothing) {
  Add2(4, "A", 3, {});
  EXPECT_EQ(test::ErrorOf([] {
              StoreType2Lines(4, ToRows({{"B", "1"}, {"C", "40000"}}));
            }),
            "Overflow");
  EXPECT_EQ(Lines2(), (Row{"4/A/3/0"}));
  EXPECT_EQ(AccUsed.At(4), True);
}

TEST_F(AccessoryRulesTest, What_no_longer_fits_the_catalogue_goes_with_the_rewrite) {
  Add2(4, "A", 3, {"surplus"});
  Add1(2, 4, 9);
  Add1(2, 1, 1);
  StoreType2Lines(4, AccessoryRows(4));
  StoreType1Lines(2, AccessoryRows(2));
  EXPECT_EQ(Lines2(), (Row{"4/A/3/0"}));
  EXPECT_EQ(Lines1(), (Row{"2/1/1/0"}));
}

// What a type 2 table is refused for.

// Mark, number required, as drawn, opposite hand, length; allowances and cleats don't matter.
Row Vcr(const std::string& required, const std::string& drawn, const std::string& opposite,
        const std::string& length, const std::string& mark = "V1") {
  return {mark, required, drawn, opposite, length, "", "", "", ""};
}

TEST_F(AccessoryRulesTest, A_VCR_assembly_counts_as_drawn_and_opposite_hand) {
  const Row refusal = {"VCR Assembly", "'No. Rqd' should equal 'No. As Drawn' + 'No. Opp. Hand'",
                       "1", "0"};
  EXPECT_EQ(RefusalOf(8, {Vcr("5", "3", "1", "2000")}), refusal);
  EXPECT_EQ(RefusalOf(8, {Vcr("5", "3", "3", "2000")}), refusal);
  EXPECT_EQ(RefusalOf(8, {Vcr("5", "", "", "2000")}), refusal);
  EXPECT_EQ(RefusalOf(8, {Vcr("5", "3", "2", "2000")}), Row{});
  EXPECT_EQ(RefusalOf(8, {Vcr("5", "5", "", "2000")}), Row{});
  EXPECT_EQ(RefusalOf(8, {Vcr("", "", "", "")}), Row{});
}

TEST_F(AccessoryRulesTest, The_sum_of_a_VCR_assembly_may_pass_16_bits) {
  EXPECT_EQ(RefusalOf(8, {Vcr("40000", "20000", "20000", "2000")}), Row{});
}

TEST_F(AccessoryRulesTest, A_VCR_assembly_is_as_long_as_its_section_may_be) {
  EXPECT_EQ(RefusalOf(8, {Vcr("1", "1", "", "3050")}), Row{});
  EXPECT_EQ(RefusalOf(8, {Vcr("1", "1", "", "3051")}),
            (Row{"VCR Assembly", "Maximum length for VCR section is 3050", "1", "0"}));
  MaxDims.At(4) = 2999.5;
  EXPECT_EQ(RefusalOf(8, {Vcr("1", "1", "", "2999.6")}),
            (Row{"VCR Assembly", "Maximum length for VCR section is 3000", "1", "0"}));
}

TEST_F(AccessoryRulesTest, The_numbers_of_a_VCR_assembly_are_checked_before_its_length) {
  EXPECT_EQ(RefusalOf(8, {Vcr("5", "3", "1", "9999")}).at(1),
            "'No. Rqd' should equal 'No. As Drawn' + 'No. Opp. Hand'");
}

TEST_F(AccessoryRulesTest, The_first_faulty_row_is_refused) {
  EXPECT_EQ(RefusalOf(8, {Vcr("5", "3", "2", "100"), Vcr("1", "1", "", "4000"),
                          Vcr("5", "3", "1", "100")}),
            (Row{"VCR Assembly", "Maximum length for VCR section is 3050", "2", "0"}));
}

TEST_F(AccessoryRulesTest, A_row_without_a_mark_is_checked_too) {
  EXPECT_EQ(RefusalOf(8, {Vcr("5", "3", "1", "2000", "")}).at(2), "1");
  EXPECT_EQ(RefusalOf(10, {{"", "1", "", "", "30"}}).at(2), "1");
  EXPECT_EQ(RefusalOf(11, {{"", "1", "", "5", "6"}}).at(2), "1");
}

TEST_F(AccessoryRulesTest, A_tubular_apex_tie_takes_a_pitch_up_to_25_degrees) {
  const Row refusal = {"Tubular apex ties", "Tubular apex ties only suitable if pitch <= 25deg",
                       "2", "5"};
  for (const std::string pitch : {"", "0", "10", "25", "25.0", "25deg", "-30"}) {
    EXPECT_EQ(RefusalOf(10, {{"T1", "1", "Z", "1200", pitch}}), Row{}) << pitch;
  }
  for (const std::string pitch : {"25.1", "26", " 26", "90"}) {
    const Rows rows = {{"T1", "1", "Z", "1200", "25"}, {"T2", "1", "Z", "1200", pitch}};
    EXPECT_EQ(RefusalOf(10, rows), refusal) << pitch;
  }
}

TEST_F(AccessoryRulesTest, A_screw_fixed_sag_bar_stands_between_purlins_or_between_rails) {
  const Row refusal = {"Sag bars (screw fix)", "Please enter EITHER purlin OR rail centres", "1",
                       "4"};
  EXPECT_EQ(RefusalOf(11, {{"S1", "1", "Z", "1200", "1200"}}), refusal);
  EXPECT_EQ(RefusalOf(11, {{"S1", "1", "Z", "0.5", "1"}}), refusal);
  EXPECT_EQ(RefusalOf(11, {{"S1", "1", "Z", "1200", ""}}), Row{});
  EXPECT_EQ(RefusalOf(11, {{"S1", "1", "Z", "", "1200"}}), Row{});
  EXPECT_EQ(RefusalOf(11, {{"S1", "1", "Z", "0", "1200"}}), Row{});
  EXPECT_EQ(RefusalOf(11, {{"S1", "1", "Z", "", ""}}), Row{});
}

TEST_F(AccessoryRulesTest, Every_other_accessory_passes) {
  for (const int index : {4, 5, 6, 7, 9, 12}) {
    EXPECT_EQ(RefusalOf(index, {Vcr("5", "3", "99", "99999")}), Row{}) << index;
  }
}

TEST_F(AccessoryRulesTest, An_empty_table_passes) {
  for (const int index : {8, 10, 11}) EXPECT_EQ(RefusalOf(index, {}), Row{}) << index;
}

TEST_F(AccessoryRulesTest, The_shipped_catalogue_has_the_columns_that_the_rules_read) {
  LoadShippedCatalogues();
  const auto columns = [](int index) {
    const AccDef& accessory = AccDefs.At(index);
    return Row(accessory.ParamNames.begin(), accessory.ParamNames.end());
  };
  EXPECT_EQ(columns(8), (Row{"Mark", "No.Off", "As Drawn", "Opp. Hand", "Length", "End 1", "End 2",
                             "Cleat 1", "Cleat 2"}));
  EXPECT_EQ(columns(10), (Row{"Mark", "No.Off", "Purlin", "Apex Crs", "Pitch"}));
  EXPECT_EQ(columns(11), (Row{"Mark", "No.Off", "Section", "Purlin Crs", "Rail Crs"}));
}

}  // namespace

}  // namespace orvane
