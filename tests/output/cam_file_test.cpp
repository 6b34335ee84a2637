// The layout of the whole CAM file.
#include <locale>

#include "output/cam_export.h"
#include "tests/output/output_test.h"
#include "tests/support/decimal_comma.h"

namespace orvane {

namespace {

using namespace test;

class CamFileTest : public OutputTest {};

TEST_F(CamFileTest, An_empty_project_is_a_header_of_nine_lines) {
  const FactoryFile file = CamFile(desktop.Present);
  EXPECT_FALSE(file.Error);
  EXPECT_EQ(file.Text,
            "COLDCAM 5.3\r\n"
            "* Job Number: J1042\r\n"
            "* Customer:   Dunmore Farms\r\n"
            "* Project:    Grain store\r\n"
            "* Designer:   A. Reid\r\n"
            "* Date:       04/03/24\r\n"
            "*\r\n"
            "* Created:    Tue Mar 05 2024 14:07:09\r\n"
            "\r\n");
}

TEST_F(CamFileTest, Empty_project_details_leave_the_labels_with_their_blanks) {
  txtProject = {};
  DTPicker1 = Date{};
  EXPECT_EQ(CamFile({{2025, 1, 1}, 0, 0, 0}).Text,
            "COLDCAM 5.3\r\n"
            "* Job Number: \r\n"
            "* Customer:   \r\n"
            "* Project:    \r\n"
            "* Designer:   \r\n"
            "* Date:       30/12/99\r\n"
            "*\r\n"
            "* Created:    Wed Jan 01 2025 00:00:00\r\n"
            "\r\n");
}

void FillMixedJob() {
  Items.Append(MakeItem("C", "C1", 900));
  Items.Append(MakeItem("T", "T1", 800));
  AccLines1.Append(MakeLine1(5, 2, 1));
  AccLines1.Append(MakeLine1(4, 3, 2));
  AccLines1.Append(MakeLine1(1, 1, 3));
  AccLines1.Append(MakeLine1(5, 1, 4));
  AccLines1.Append(MakeLine1(4, 1, 5));
  AccLines2.Append(MakeLine2(6, "S1", 6, {"Z20018"}));
  AccLines2.Append(MakeLine2(21, "CH1", 7, {"1200", "", "", "", "", ""}));
  AccLines2.Append(MakeLine2(8, "V1", 2, {"1", "1", "3000", "0", "0", "KT31", "KT39"}));
  AccLines2.Append(MakeLine2(7, "H1", 8, {}));
  AccLines2.Append(MakeLine2(6, "S2", 9, {"Z25020"}));
  AccLines2.Append(MakeLine2(21, "CH2", 10, {"1300", "", "", "", "", ""}));
  AccLines2.Append(MakeLine2(8, "V2", 1, {"0", "1", "2000", "0", "0", "KT31", "KT39"}));
}

TEST_F(CamFileTest, Blocks_of_a_kind_stand_together_in_a_fixed_order_and_nothing_comes_behind) {
  FillMixedJob();
  const auto rail = [](const char* mark, const char* length, const char* first,
                       const char* second) {
    return Lines({"VCR", mark, "VCR", "1", length, "2", Filled(first, 10) + "n y y n 14",
                  Filled(second, 10) + "n y y n 14", "0.0 0.0", "0", ""});
  };
  const auto channel = [](const char* mark, const char* quantity, const char* length,
                          const char* last) {
    return Lines({"C-CHANNEL", mark, "30116", quantity, length, "2", "25        n y y n 14",
                  Filled(last, 10) + "n y y n 14", "0.0 0.0", "4", "TR1   62 25", "BL1   62 25",
                  "BR2   62 25", "BR2   62 25", ""});
  };
  EXPECT_EQ(Blocks(), Lines({"C-SECTION", "C1", "X20018", "1", "900", "0", "0.0 0.0", "0", ""}) +
                          Lines({"TOPHAT", "T1", "X20018", "1", "800", "0", "0.0 0.0", "0", ""}) +
                          rail("V1", "3000", "100", "2880") + rail("V1X", "3000", "120", "2900") +
                          rail("V2X", "2000", "120", "1900") + channel("CH1", "7", "1304", "1279") +
                          channel("CH2", "10", "1404", "1379") +
                          Lines({"SLEEVE", "S1", "Z20018", "6", ""}) +
                          Lines({"SLEEVE", "S2", "Z25020", "9", ""}) +
                          Lines({"SLEEVE", "KSL351", "K35124", "2", ""}) +
                          Lines({"SLEEVE", "KSL301", "K30124", "5", ""}) +
                          Lines({"SLEEVE", "KHL190", "KHL190", "1", ""}) +
                          Lines({"SLEEVE", "KHL90", "KHL90", "4", ""}));
}

TEST_F(CamFileTest, Accessories_are_known_by_their_row_whatever_the_catalogue_calls_them) {
  FillMixedJob();
  const std::string withoutCatalogue = Blocks();
  AddAccessories();
  EXPECT_EQ(Blocks(), withoutCatalogue);
  for (AccDef& accessory : AccDefs) {
    accessory.Name = "Renamed";
    accessory.ParamNames.Clear();
  }
  EXPECT_EQ(Blocks(), withoutCatalogue);
}

TEST_F(CamFileTest, Every_line_end_is_carriage_return_and_line_feed_and_the_last_line_is_empty) {
  FillMixedJob();
  Items.At(1).Mark = "\u00e9\n";
  const std::string text = CamFile(desktop.Present).Text;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    EXPECT_EQ(text[i] == '\r', text[i + 1] == '\n') << i;
  }
  ASSERT_GE(text.size(), 4U);
  EXPECT_EQ(text.substr(text.size() - 4), "\r\n\r\n");
}

TEST_F(CamFileTest, It_changes_nothing_in_the_model) {
  FillMixedJob();
  AddHoles(Items.At(1), {MakeHole(10, 18)});
  Items.At(1).PatternName = "P1";
  ProjectDirty = False;
  Blocks();
  EXPECT_EQ(Items.At(1).HoleCount(), 1);
  EXPECT_EQ(Items.At(1).Holes.At(1).XPos, 10);
  EXPECT_EQ(ProjectDirty, False);
}

class CommaPoint : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST_F(CamFileTest, Numbers_dont_depend_on_the_locale) {
  Item item = MakeItem("E", "E1", 12000);
  item.Pitch = "22.5";
  item.MitreLeft = 12.25F;
  AddHoles(item, {MakeHole(11000, 18)});
  Items.Append(item);

  const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPoint));
  std::string blocks;
  WithDecimalComma(TempPath("locales"), [&] { blocks = Blocks(); });
  std::locale::global(before);
  EXPECT_EQ(blocks, Lines({"EAVES BEAM", "E1", "X20018", "22.5", "1", "12000", "1",
                           HoleLine("11000     n y y n 18"), "12.3 0.0", "0", ""}));
}

}  // namespace

}  // namespace orvane
