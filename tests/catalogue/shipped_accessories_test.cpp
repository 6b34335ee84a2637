// The accessories that ship: the rows that the program and the factory files know by their place,
// and tables that the dialogs and the accessory list can hold.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "core/model.h"
#include "core/numbers.h"
#include "tests/catalogue/shipped_catalogue.h"

namespace orvane {

namespace {

using test::Contains;
using test::ExpectPlainName;
using test::RowsIn;
using test::ShippedCatalogue;
using test::Texts;

// The names of an accessory's columns or sizes.
Texts ParamNamesOf(int accIndex) {
  return RowsIn(AccDefs.At(accIndex).ParamNames);
}

// The choices of one column of a type 2 accessory.
Texts ChoicesOf(int accIndex, int column) {
  return RowsIn(AccDefs.At(accIndex).Options.At(column).OptionTexts);
}

TEST_F(ShippedCatalogue, Has_exactly_five_type_1_accessories) {
  EXPECT_EQ(AccType1Count, 5);
}

TEST_F(ShippedCatalogue, Keeps_the_channel_sleeves_in_row_4_in_the_order_of_the_export) {
  EXPECT_EQ(ParamNamesOf(4), (Texts{"KSL301", "KSL321", "KSL351"}));
  const Texts descriptions = RowsIn(AccDefs.At(4).ParamTexts);
  ASSERT_EQ(descriptions.size(), 3U);
  EXPECT_TRUE(Contains(descriptions[0], "301"));
  EXPECT_TRUE(Contains(descriptions[1], "321"));
  EXPECT_TRUE(Contains(descriptions[2], "351"));
}

TEST_F(ShippedCatalogue, Keeps_the_short_sleeves_in_row_5_in_the_order_of_the_export) {
  EXPECT_EQ(ParamNamesOf(5), (Texts{"KHL90", "KHL190"}));
  const Texts descriptions = RowsIn(AccDefs.At(5).ParamTexts);
  ASSERT_EQ(descriptions.size(), 2U);
  EXPECT_TRUE(Contains(descriptions[0], " 90 "));
  EXPECT_TRUE(Contains(descriptions[1], " 190 "));
}

TEST_F(ShippedCatalogue, Shows_descriptions_for_some_type_1_accessories_and_not_for_others) {
  int shown = 0;
  for (int row = 1; row <= AccType1Count; ++row) shown += AccDefs.At(row).Flag == True ? 1 : 0;
  EXPECT_GT(shown, 0);
  EXPECT_LT(shown, AccType1Count);
}

TEST_F(ShippedCatalogue, Gives_every_type_1_accessory_sizes_that_fit_the_list) {
  for (int row = 1; row <= AccType1Count; ++row) {
    const AccDef& accessory = AccDefs.At(row);
    EXPECT_GE(accessory.ParamCount(), 1) << accessory.Name;
    std::set<std::string> codes;
    for (const std::string& code : accessory.ParamNames) {
      ExpectPlainName(code);
      EXPECT_LT(code.size(), 12U) << code;
      EXPECT_TRUE(codes.insert(code).second) << code;
    }
    for (const std::string& text : accessory.ParamTexts) {
      ExpectPlainName(text);
      EXPECT_LT(text.size(), 35U) << text;
    }
  }
}

TEST_F(ShippedCatalogue, Has_at_least_sixteen_type_2_accessories) {
  EXPECT_GE(AccType2Count, 16);
}

TEST_F(ShippedCatalogue, Gives_every_type_2_accessory_plain_headings_that_fit_the_list) {
  for (int row = AccType1Count + 1; row <= AccDefs.UBound(); ++row) {
    const AccDef& accessory = AccDefs.At(row);
    ExpectPlainName(accessory.Option);
    EXPECT_LT(accessory.Option.size(), 35U) << accessory.Option;
    std::set<std::string> headings;
    for (const std::string& heading : accessory.ParamNames) {
      ExpectPlainName(heading);
      EXPECT_LT(heading.size(), 12U) << heading;
      EXPECT_TRUE(headings.insert(heading).second) << accessory.Name << ": " << heading;
      // The checks of a table read its heading row too, as numbers.
      EXPECT_EQ(Val(heading), 0) << heading;
    }
  }
}

TEST_F(ShippedCatalogue, Keeps_the_purlin_sleeves_in_row_6_with_the_product_first) {
  EXPECT_TRUE(Contains(AccDefs.At(6).Name, "sleeve")) << AccDefs.At(6).Name;
  EXPECT_EQ(ParamNamesOf(6), (Texts{"Mark", "No.Off", "Product", "Length"}));
}

TEST_F(ShippedCatalogue, Keeps_a_type_2_accessory_in_row_7_that_calls_for_a_CAM_file) {
  EXPECT_GT(AccDefs.At(7).ParamCount(), 2);
  EXPECT_EQ(AccDefs.At(7).IsType1, False);
}

TEST_F(ShippedCatalogue, Keeps_the_VCR_assembly_in_row_8_with_its_nine_columns) {
  EXPECT_EQ(AccDefs.At(8).Name, "VCR Assembly");
  EXPECT_EQ(ParamNamesOf(8), (Texts{"Mark", "No.Off", "As Drawn", "Opp. Hand", "Length", "End 1",
                                    "End 2", "Cleat 1", "Cleat 2"}));
}

TEST_F(ShippedCatalogue, Offers_the_five_cleats_in_both_cleat_columns_of_the_VCR_assembly) {
  const Texts cleats = {"KT31", "KT33", "KT36", "KT39", "KT41"};
  for (int column = 3; column <= 7; ++column) EXPECT_EQ(ChoicesOf(8, column), Texts{}) << column;
  EXPECT_EQ(ChoicesOf(8, 8), cleats);
  EXPECT_EQ(ChoicesOf(8, 9), cleats);
}

TEST_F(ShippedCatalogue, Keeps_in_row_9_an_accessory_whose_kind_stands_behind_its_text) {
  // Its first value follows the text in the list, and the two behind it default to 0.
  const AccDef& accessory = AccDefs.At(9);
  EXPECT_FALSE(accessory.Option.empty());
  EXPECT_EQ(accessory.ParamCount(), 5);
  for (const std::string& kind : ChoicesOf(9, 3)) {
    EXPECT_LT(accessory.Option.size() + 1 + kind.size(), 35U) << kind;
  }
  EXPECT_FALSE(ChoicesOf(9, 3).empty());
  EXPECT_TRUE(ChoicesOf(9, 4).empty()) << "a size typed freely";
  EXPECT_TRUE(ChoicesOf(9, 5).empty()) << "a size typed freely";
}

TEST_F(ShippedCatalogue, Keeps_the_tubular_apex_ties_in_row_10_with_the_pitch_in_column_5) {
  EXPECT_EQ(AccDefs.At(10).Name, "Tubular apex ties");
  EXPECT_EQ(AccDefs.At(10).ParamNames.At(5), "Pitch");
}

TEST_F(ShippedCatalogue, Keeps_the_sag_bars_in_row_11_with_the_centres_in_columns_4_and_5) {
  EXPECT_EQ(AccDefs.At(11).Name, "Sag bars (screw fix)");
  EXPECT_EQ(AccDefs.At(11).ParamNames.At(4), "Purlin Crs");
  EXPECT_EQ(AccDefs.At(11).ParamNames.At(5), "Rail Crs");
}

TEST_F(ShippedCatalogue, Keeps_the_C_channel_in_row_21_with_its_six_values) {
  EXPECT_EQ(AccDefs.At(21).Name, "C-channel");
  const Texts columns = ParamNamesOf(21);
  ASSERT_EQ(columns.size(), 8U);
  EXPECT_EQ(columns[2], "Distance");
  EXPECT_EQ(columns[7], "Hole 3");
  // The four columns between them are the notch sizes, under one heading.
  ASSERT_EQ(AccDefs.At(21).Groups.UBound(), 1);
  EXPECT_EQ(AccDefs.At(21).Groups.At(1).Title, "Notch sizes");
  EXPECT_EQ(AccDefs.At(21).Groups.At(1).FirstParam, 4);
  EXPECT_EQ(AccDefs.At(21).Groups.At(1).GroupValue, 4);
}

TEST_F(ShippedCatalogue, Has_type_2_accessories_with_and_without_groups_choices_and_columns) {
  int grouped = 0;
  int withChoices = 0;
  int bare = 0;
  for (int row = AccType1Count + 1; row <= AccDefs.UBound(); ++row) {
    const AccDef& accessory = AccDefs.At(row);
    grouped += accessory.Groups.Empty() ? 0 : 1;
    withChoices += std::any_of(accessory.Options.begin(), accessory.Options.end(),
                               [](const AccParamOptions& o) { return o.OptionCount() > 0; })
                       ? 1
                       : 0;
    bare += accessory.ParamCount() == 2 ? 1 : 0;
  }
  EXPECT_GE(grouped, 2);
  EXPECT_LT(grouped, AccType2Count);
  EXPECT_GE(withChoices, 2);
  EXPECT_LT(withChoices, AccType2Count);
  EXPECT_GE(bare, 1);
}

TEST_F(ShippedCatalogue, Keeps_every_group_inside_the_columns_and_off_its_neighbours) {
  for (int row = AccType1Count + 1; row <= AccDefs.UBound(); ++row) {
    const AccDef& accessory = AccDefs.At(row);
    int next = 3;  // "Mark" and "No.Off" stand under no heading
    for (const AccGroup& group : accessory.Groups) {
      ExpectPlainName(group.Title);
      EXPECT_GE(group.FirstParam, next) << accessory.Name << ": " << group.Title;
      EXPECT_GE(group.GroupValue, 1) << accessory.Name << ": " << group.Title;
      next = group.FirstParam + group.GroupValue;
      EXPECT_LE(next - 1, accessory.ParamCount()) << accessory.Name << ": " << group.Title;
    }
  }
}

TEST_F(ShippedCatalogue, Keeps_choices_within_the_nine_columns_that_have_choice_editors) {
  for (int row = AccType1Count + 1; row <= AccDefs.UBound(); ++row) {
    const AccDef& accessory = AccDefs.At(row);
    for (int column = 1; column <= accessory.Options.UBound(); ++column) {
      const Texts choices = ChoicesOf(row, column);
      if (choices.empty()) continue;
      EXPECT_GE(column, 3) << accessory.Name;
      EXPECT_LE(accessory.ParamCount(), 9) << accessory.Name;
      EXPECT_GE(choices.size(), 2U) << accessory.Name;
      EXPECT_EQ(std::set<std::string>(choices.begin(), choices.end()).size(), choices.size())
          << accessory.Name;
      for (const std::string& choice : choices) ExpectPlainName(choice);
    }
  }
}

TEST_F(ShippedCatalogue, Names_every_accessory_once_so_that_the_list_heads_each_apart) {
  std::set<std::string> names;
  for (const AccDef& accessory : AccDefs) {
    ExpectPlainName(accessory.Name);
    EXPECT_LT(accessory.Name.size(), 35U) << accessory.Name;
    EXPECT_TRUE(names.insert(accessory.Name).second) << accessory.Name;
  }
}

TEST_F(ShippedCatalogue, Fits_every_picture_on_its_sheet) {
  for (const AccDef& accessory : AccDefs) {
    EXPECT_GE(accessory.Value1, 60) << accessory.Name << ": width of the picture, mm";
    EXPECT_LE(accessory.Value1, 150) << accessory.Name << ": width of the picture, mm";
    EXPECT_GE(accessory.Value3, 30) << accessory.Name << ": top of the picture, mm";
    EXPECT_LE(accessory.Value3, 45) << accessory.Name << ": top of the picture, mm";
  }
}

TEST_F(ShippedCatalogue, Names_a_picture_for_most_accessories_and_None_for_some) {
  std::set<std::string> pictures;
  int none = 0;
  for (const AccDef& accessory : AccDefs) {
    if (accessory.DrawingFile == "None") {
      ++none;
      continue;
    }
    EXPECT_TRUE(pictures.insert(accessory.DrawingFile).second) << accessory.DrawingFile;
    EXPECT_FALSE(accessory.DrawingFile.empty()) << accessory.Name;
    EXPECT_TRUE(std::all_of(accessory.DrawingFile.begin(), accessory.DrawingFile.end(), [](char c) {
      return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    })) << accessory.DrawingFile;
  }
  EXPECT_GE(none, 1);
  EXPECT_GT(static_cast<int>(pictures.size()), AccDefs.UBound() / 2);
  // The cleader rail's own detail picture is no accessory.
  EXPECT_EQ(pictures.count("drg015"), 0U);
}

TEST_F(ShippedCatalogue, Has_one_flag_for_each_accessory_none_of_them_set) {
  ASSERT_EQ(AccUsed.UBound(), AccType1Count + AccType2Count);
  EXPECT_TRUE(
      std::all_of(AccUsed.begin(), AccUsed.end(), [](Boolean used) { return used == False; }));
}

}  // namespace

}  // namespace orvane
