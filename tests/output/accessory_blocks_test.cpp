#include "output/accessory_blocks.h"

#include "output/cam_export.h"
#include "tests/output/output_test.h"

namespace orvane {

namespace {

using namespace test;

using Values = std::vector<std::string>;

class AccessoryBlocksTest : public OutputTest {
 protected:
  // The blocks of one line of AccLines2.
  std::string BlocksOf(const AccLine2& line) {
    AccLines2.Clear();
    AccLines2.Append(line);
    return Blocks();
  }
  std::string BlocksOf(const AccLine1& line) {
    AccLines1.Clear();
    AccLines1.Append(line);
    return Blocks();
  }

  // What an error leaves of the file behind the header and a sleeve that stands before it.
  struct Broken {
    std::string Blocks;
    std::string Description;
  };
  Broken BrokenBlocks() {
    const FactoryFile file = CamFile(desktop.Present);
    EXPECT_EQ(file.Text.substr(0, CamHeader.size()), CamHeader);
    if (!file.Error) return {file.Text, "no error"};
    return {file.Text.substr(CamHeader.size()), file.Error->Description()};
  }
};

const Values RailValues = {"3", "2", "3000", "10", "20.5", "KT31", "KT39"};

TEST_F(AccessoryBlocksTest, A_vertical_cladding_rail_is_written_as_drawn_and_of_opposite_hand) {
  AccLines2.Append(MakeLine2(8, "V1", 5, RailValues));
  // L = 3000 - 10 - 20.5 = 2969.5, even neighbour 2970. KT31 with the allowance of end 2:
  // 100 - 20.5 = 79.5, even neighbour 80. KT39 with that of end 1: 120 - 10 = 110.
  EXPECT_EQ(Blocks(),
            "VCR\r\n"
            "V1\r\n"
            "VCR\r\n"
            "3\r\n"
            "2970\r\n"
            "2\r\n"
            "80        n y y n 14\r\n"
            "2860      n y y n 14\r\n"
            "0.0 0.0\r\n"
            "0\r\n"
            "\r\n"
            "VCR\r\n"
            "V1X\r\n"
            "VCR\r\n"
            "2\r\n"
            "2970\r\n"
            "2\r\n"
            "110       n y y n 14\r\n"
            "2890      n y y n 14\r\n"
            "0.0 0.0\r\n"
            "0\r\n"
            "\r\n");
}

std::string RailBlock(const std::string& mark, const std::string& quantity,
                      const std::string& first, const std::string& second) {
  return Lines({"VCR", mark, "VCR", quantity, "2970", "2", Filled(first, 10) + "n y y n 14",
                Filled(second, 10) + "n y y n 14", "0.0 0.0", "0", ""});
}

TEST_F(AccessoryBlocksTest, Each_hand_of_a_rail_is_written_only_for_a_number_above_0) {
  const std::string asDrawn = RailBlock("V1", "3", "80", "2860");
  const std::string opposite = RailBlock("V1X", "2", "110", "2890");
  struct Case {
    std::string AsDrawn, OppositeHand, Blocks;
  };
  const std::vector<Case> cases = {
      {"3", "2", asDrawn + opposite},
      {"3", "0", asDrawn},
      {"3", "", asDrawn},
      {"0", "2", opposite},
      {"", "2", opposite},
      {"0", "0", ""},
      {"", "", ""},
      {"-3", "-2", ""},
      {"none", "2", opposite},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(
        BlocksOf(MakeLine2(8, "V1", 5,
                           {one.AsDrawn, one.OppositeHand, "3000", "10", "20.5", "KT31", "KT39"})),
        one.Blocks)
        << one.AsDrawn << " and " << one.OppositeHand;
  }
}

TEST_F(AccessoryBlocksTest, The_number_off_of_a_rail_is_in_shortest_form) {
  const std::vector<std::pair<std::string, std::string>> numbers = {
      {"3", "3"},      {"3.0", "3"},    {" 3 ", "3"},  {"+3", "3"},
      {"3.50", "3.5"}, {"1e3", "1000"}, {".5", "0.5"},
  };
  for (const auto& [value, line] : numbers) {
    EXPECT_EQ(BlocksOf(MakeLine2(8, "V1", 5, {value, "0", "3000", "10", "20.5", "KT31", "KT39"})),
              RailBlock("V1", line, "80", "2860"))
        << value;
    EXPECT_EQ(BlocksOf(MakeLine2(8, "V1", 5, {"0", value, "3000", "10", "20.5", "KT31", "KT39"})),
              RailBlock("V1X", line, "110", "2890"))
        << value;
  }
}

TEST_F(AccessoryBlocksTest, A_number_off_with_words_cuts_the_file_in_its_quantity_line) {
  AccLines2.Append(MakeLine2(8, "V0", 1, {"1", "0", "3000", "10", "20.5", "KT31", "KT39"}));
  AccLines2.Append(MakeLine2(8, "V1", 3, {"3 off", "2", "3000", "10", "20.5", "KT31", "KT39"}));
  AccLines2.Append(MakeLine2(6, "S1", 4, {"Z20018"}));
  const Broken broken = BrokenBlocks();
  EXPECT_EQ(broken.Blocks, RailBlock("V0", "1", "80", "2860") + Lines({"VCR", "V1", "VCR"}));
  EXPECT_EQ(broken.Description, "Accessory 8 V1: Type mismatch");
}

TEST_F(AccessoryBlocksTest, A_faulty_number_of_opposite_hand_leaves_the_block_as_drawn_whole) {
  AccLines2.Append(MakeLine2(8, "V1", 3, {"3", "2 off", "3000", "10", "20.5", "KT31", "KT39"}));
  const Broken broken = BrokenBlocks();
  EXPECT_EQ(broken.Blocks, RailBlock("V1", "3", "80", "2860") + Lines({"VCR", "V1X", "VCR"}));
  EXPECT_EQ(broken.Description, "Accessory 8 V1: Type mismatch");
}

TEST_F(AccessoryBlocksTest, The_other_values_of_a_rail_are_read_by_their_leading_number) {
  EXPECT_EQ(
      BlocksOf(MakeLine2(8, "V1", 1, {"1", "0", "3000mm", " 10 mm", "20.5mm", "KT31", "KT39"})),
      RailBlock("V1", "1", "80", "2860"));
  // No number counts as 0.
  EXPECT_EQ(BlocksOf(MakeLine2(8, "V1", 1, {"1", "0", "2970", "", "none", "KT31", "KT39"})),
            RailBlock("V1", "1", "100", "2850"));
}

TEST_F(AccessoryBlocksTest, A_rail_shorter_than_its_insets_has_negative_positions) {
  EXPECT_EQ(BlocksOf(MakeLine2(8, "V1", 1, {"1", "0", "50", "0", "150", "KT31", "KT39"})),
            Lines({"VCR", "V1", "VCR", "1", "-100", "2", "-50       n y y n 14",
                   "-220      n y y n 14", "0.0 0.0", "0", ""}));
}

TEST_F(AccessoryBlocksTest, VcrInset_knows_five_cleats_and_rounds_halves_to_even) {
  struct Case {
    std::string Cleat, Allowance;
    int Inset;
  };
  const std::vector<Case> cases = {
      {"KT31", "0", 100},    {"KT33", "0", 100},   {"KT36", "0", 100},   {"KT39", "0", 120},
      {"KT41", "0", 120},    {"KT33", "20.5", 80}, {"KT36", "21.5", 78}, {"KT41", "20.5", 100},
      {"KT39", "5 mm", 115}, {"KT31", "", 100},    {"KT31", "150", -50}, {"KT31", "-10", 110},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(VcrInset(one.Cleat, one.Allowance), one.Inset) << one.Cleat;
  }
}

TEST_F(AccessoryBlocksTest, VcrInset_of_an_unknown_cleat_names_the_code) {
  for (const char* cleat : {"KT99", "", "kt31", "KT31 "}) {
    EXPECT_EQ(ErrorOf([cleat] { VcrInset(cleat, "10"); }),
              "unknown cleat code \"" + std::string(cleat) + "\"");
  }
}

TEST_F(AccessoryBlocksTest, An_unknown_cleat_stops_the_file_before_a_line_of_its_block) {
  AccLines2.Append(MakeLine2(8, "V0", 1, {"1", "0", "3000", "10", "20.5", "KT31", "KT39"}));
  AccLines2.Append(MakeLine2(8, "V1", 1, {"1", "1", "3000", "10", "20.5", "KT31", "KT99"}));
  const Broken second = BrokenBlocks();
  EXPECT_EQ(second.Blocks, RailBlock("V0", "1", "80", "2860"));
  EXPECT_EQ(second.Description, "Accessory 8 V1: unknown cleat code \"KT99\"");

  AccLines2.At(2) = MakeLine2(8, "V2", 1, {"0", "1", "3000", "10", "20.5", "", "KT39"});
  const Broken first = BrokenBlocks();
  EXPECT_EQ(first.Blocks, RailBlock("V0", "1", "80", "2860"));
  EXPECT_EQ(first.Description, "Accessory 8 V2: unknown cleat code \"\"");
}

TEST_F(AccessoryBlocksTest, An_unknown_cleat_comes_before_a_faulty_number_off) {
  AccLines2.Append(MakeLine2(8, "V1", 1, {"3 off", "0", "3000", "10", "20.5", "KT99", "KT39"}));
  const Broken broken = BrokenBlocks();
  EXPECT_EQ(broken.Blocks, "");
  EXPECT_EQ(broken.Description, "Accessory 8 V1: unknown cleat code \"KT99\"");
}

TEST_F(AccessoryBlocksTest, A_rail_of_which_none_is_wanted_needs_no_cleats) {
  EXPECT_EQ(BlocksOf(MakeLine2(8, "V1", 0, {"0", "0", "", "", "", "", ""})), "");
  EXPECT_EQ(BlocksOf(MakeLine2(8, "V1", 0, {"0", "0"})), "");
}

TEST_F(AccessoryBlocksTest, A_rail_beyond_16_bits_overflows_before_a_line_of_its_block) {
  AccLines2.Append(MakeLine2(8, "V1", 1, {"1", "0", "40000", "0", "0", "KT31", "KT39"}));
  const Broken broken = BrokenBlocks();
  EXPECT_EQ(broken.Blocks, "");
  EXPECT_EQ(broken.Description, "Accessory 8 V1: Overflow");
}

TEST_F(AccessoryBlocksTest, A_line_that_lacks_a_value_stops_the_file_before_a_line_of_its_block) {
  struct Case {
    int AccIndex;
    Values All;
  };
  const std::vector<Case> cases = {
      {8, RailValues}, {21, {"1200", "70", "", "0", "80", "300"}}, {6, {"Z20018"}}};
  for (const Case& one : cases) {
    for (std::size_t count = 0; count < one.All.size(); ++count) {
      const Values values(one.All.begin(), one.All.begin() + static_cast<std::ptrdiff_t>(count));
      AccLines2.Clear();
      AccLines2.Append(MakeLine2(one.AccIndex, "M1", 1, values));
      const Broken broken = BrokenBlocks();
      EXPECT_EQ(broken.Blocks, "") << one.AccIndex << " with " << count;
      EXPECT_EQ(broken.Description,
                "Accessory " + std::to_string(one.AccIndex) + " M1: Subscript out of range")
          << count;
    }
  }
}

TEST_F(AccessoryBlocksTest, A_channel_is_written_whole) {
  AccLines2.Append(MakeLine2(21, "CH1", 6, {"1200", "70", "", "0", "80", "300"}));
  EXPECT_EQ(Blocks(),
            "C-CHANNEL\r\n"
            "CH1\r\n"
            "30116\r\n"
            "6\r\n"
            "1304\r\n"
            "3\r\n"
            "25        n y y n 14\r\n"
            "352       n y y n 14\r\n"
            "1279      n y y n 14\r\n"
            "0.0 0.0\r\n"
            "4\r\n"
            "TR1   70 25\r\n"
            "BL1   62 25\r\n"
            "BR2   62 25\r\n"
            "BR2   80 25\r\n"
            "\r\n");
}

std::string ChannelBlock(const std::string& length, const std::vector<std::string>& holes,
                         const std::vector<std::string>& sizes) {
  std::vector<std::string> lines = {"C-CHANNEL", "CH1",  "30116",
                                    "1",         length, std::to_string(holes.size())};
  for (const std::string& hole : holes) lines.push_back(Filled(hole, 10) + "n y y n 14");
  for (const char* line : {"0.0 0.0", "4"}) lines.emplace_back(line);
  const std::array<const char*, 4> codes = {"TR1", "BL1", "BR2", "BR2"};
  for (std::size_t n = 0; n < codes.size(); ++n) {
    lines.push_back(std::string(codes.at(n)) + "   " + sizes.at(n) + " 25");
  }
  lines.emplace_back("");
  return Lines(lines);
}

TEST_F(AccessoryBlocksTest, A_channel_without_a_sixth_value_has_two_holes_and_sizes_of_62) {
  for (const char* sixth : {"", "0", "-5", "none"}) {
    EXPECT_EQ(BlocksOf(MakeLine2(21, "CH1", 1, {"1200", "", "0", "-1", "none", sixth})),
              ChannelBlock("1304", {"25", "1279"}, {"62", "62", "62", "62"}))
        << sixth;
  }
}

TEST_F(AccessoryBlocksTest, A_channels_length_and_middle_hole_are_rounded_each_in_its_own_way) {
  // 1200.5 + 104 goes to the even neighbour, 300.5 + 52 away from zero.
  EXPECT_EQ(BlocksOf(MakeLine2(21, "CH1", 1, {"1200.5", "", "", "", "", "300.5"})),
            ChannelBlock("1304", {"25", "353", "1279"}, {"62", "62", "62", "62"}));
  EXPECT_EQ(BlocksOf(MakeLine2(21, "CH1", 1, {"1201.5", "", "", "", "", "0.4"})),
            ChannelBlock("1306", {"25", "52", "1281"}, {"62", "62", "62", "62"}));
}

TEST_F(AccessoryBlocksTest, A_channels_notch_size_is_rounded_before_it_is_looked_at) {
  EXPECT_EQ(BlocksOf(MakeLine2(21, "CH1", 1, {"1200", "0.4", "0.5", "0.6", "1.5", ""})),
            ChannelBlock("1304", {"25", "1279"}, {"62", "62", "1", "2"}));
}

TEST_F(AccessoryBlocksTest, A_channel_whose_distance_is_no_number_is_104_long) {
  EXPECT_EQ(BlocksOf(MakeLine2(21, "CH1", 1, {"", "", "", "", "", ""})),
            ChannelBlock("104", {"25", "79"}, {"62", "62", "62", "62"}));
}

TEST_F(AccessoryBlocksTest, A_channel_beyond_16_bits_overflows_before_a_line_of_its_block) {
  AccLines2.Append(MakeLine2(21, "CH1", 1, {"1200", "", "", "", "40000", ""}));
  const Broken broken = BrokenBlocks();
  EXPECT_EQ(broken.Blocks, "");
  EXPECT_EQ(broken.Description, "Accessory 21 CH1: Overflow");
}

TEST_F(AccessoryBlocksTest, A_purlin_sleeve_is_written_with_its_product_as_it_stands) {
  EXPECT_EQ(BlocksOf(MakeLine2(6, "S1", 14, {" Z200 18 ", "600"})),
            "SLEEVE\r\n"
            "S1\r\n"
            " Z200 18 \r\n"
            "14\r\n"
            "\r\n");
  EXPECT_EQ(BlocksOf(MakeLine2(6, "S1", 0, {""})), Lines({"SLEEVE", "S1", "", "0", ""}));
}

TEST_F(AccessoryBlocksTest, Sleeves_of_fixed_sizes_have_fixed_codes) {
  struct Case {
    int AccIndex, ParamIndex;
    std::string Mark, Product;
  };
  const std::vector<Case> cases = {
      {4, 1, "KSL301", "K30124"}, {4, 2, "KSL321", "K32124"}, {4, 3, "KSL351", "K35124"},
      {5, 1, "KHL90", "KHL90"},   {5, 2, "KHL190", "KHL190"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(BlocksOf(MakeLine1(one.AccIndex, one.ParamIndex, 8)),
              Lines({"SLEEVE", one.Mark, one.Product, "8", ""}));
  }
  EXPECT_EQ(BlocksOf(MakeLine1(4, 1, -2)), Lines({"SLEEVE", "KSL301", "K30124", "-2", ""}));
}

TEST_F(AccessoryBlocksTest, A_sleeve_of_any_other_size_is_not_written_at_all) {
  for (const int size : {0, -1, 4, 5}) EXPECT_EQ(BlocksOf(MakeLine1(4, size, 8)), "");
  for (const int size : {0, -1, 3, 4}) EXPECT_EQ(BlocksOf(MakeLine1(5, size, 8)), "");
}

TEST_F(AccessoryBlocksTest, No_other_accessory_has_a_block) {
  for (int row = 0; row <= 30; ++row) {
    if (row != 4 && row != 5) {
      EXPECT_EQ(BlocksOf(MakeLine1(row, 1, 8)), "") << row;
    }
    AccLines1.Clear();
    if (row != 6 && row != 8 && row != 21) {
      EXPECT_EQ(BlocksOf(MakeLine2(row, "M1", 8, {"1", "1", "1", "1", "1", "1", "1"})), "") << row;
    }
    AccLines2.Clear();
  }
}

TEST_F(AccessoryBlocksTest, Texts_of_a_block_are_one_byte_a_character) {
  EXPECT_EQ(BlocksOf(MakeLine2(6, "S\u00e9\n", 1, {"\u20ac\u0416"})),
            Lines({"SLEEVE", "S\xe9 ", "\x80?", "1", ""}));
}

}  // namespace

}  // namespace orvane
