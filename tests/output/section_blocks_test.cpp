#include "output/section_blocks.h"

#include <cmath>
#include <limits>

#include "output/cam_export.h"
#include "tests/output/output_test.h"

namespace orvane {

namespace {

using namespace test;

class SectionBlockTest : public OutputTest {
 protected:
  static std::string Block(const Item& item) {
    FactoryWriter out;
    WriteSectionBlock(out, item);
    return out.TakeLines();
  }

  // The lines of the item's holes.
  static std::vector<std::string> HoleLinesOf(const Item& item, int before = 6) {
    return LinesOf(item, before, item.Holes.UBound());
  }

  // The lines of the item's notches; it must have no holes.
  static std::vector<std::string> NotchLinesOf(const Item& item) {
    return LinesOf(item, 8, item.NotchCount());
  }

  static std::vector<std::string> LinesOf(const Item& item, int before, int count) {
    const std::string block = Block(item);
    std::vector<std::string> lines;
    std::size_t at = 0;
    for (int i = 0; i < before + count; ++i) {
      const std::size_t end = block.find("\r\n", at);
      if (end == std::string::npos) return {"the block is too short"};
      if (i >= before) lines.push_back(block.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  }
};

using TextList = std::vector<std::string>;

TEST_F(SectionBlockTest, A_purlin_is_written_whole_and_mirrored_end_for_end) {
  Item item = MakeItem("Z", "P1", 6000);
  item.Product = "Z20018";
  item.Quantity = 12;
  AddHoles(item, {MakeHole(100, 18, 0, " "), MakeHole(3000, 14, 22, "", {"n", "n", "n", "y"}),
                  MakeHole(5900, 18, 0, "*", {"y", "y", "y", "n"})});
  item.MitreLeft = 10;
  item.MitreRight = -20;
  AddNotches(item, {MakeNotch("TL1", 50, 100, 0), MakeNotch("T2", 40, 80, 1000)});

  EXPECT_EQ(Block(item),
            "PURLIN\r\n"
            "P1\r\n"
            "Z20018\r\n"
            "12\r\n"
            "6000\r\n"
            "3\r\n"
            "5900      n y y n 18                     \r\n"
            "3000      n n n y 14 8                   \r\n"
            "100       y y y n 18 x                   \r\n"
            "10.0 -20.0\r\n"
            "2\r\n"
            "TR1   50 100\r\n"
            "T2    40 80 5000\r\n"
            "\r\n");
}

TEST_F(SectionBlockTest, An_eaves_beam_has_its_pitch_line_and_is_written_as_it_stands) {
  Item item = MakeItem("E", "E1", 7200);
  item.Product = "E23018";
  item.Quantity = 4;
  item.Pitch = "10";
  AddHoles(item, {MakeHole(32, 18, 0, " "), MakeHole(7168, 18, 0, " ")});
  item.MitreLeft = 12.25F;
  AddNotches(item, {MakeNotch("BL1", 30, 60, 0)});

  EXPECT_EQ(Block(item),
            "EAVES BEAM\r\n"
            "E1\r\n"
            "E23018\r\n"
            "10.0\r\n"
            "4\r\n"
            "7200\r\n"
            "2\r\n"
            "32        n y y n 18                     \r\n"
            "7168      n y y n 18                     \r\n"
            "12.3 0.0\r\n"
            "1\r\n"
            "BL1   30 60\r\n"
            "\r\n");
}

TEST_F(SectionBlockTest, The_keyword_follows_from_the_section_letter) {
  const std::vector<std::pair<std::string, std::string>> keywords = {
      {"Z", "PURLIN"},  {"C", "C-SECTION"}, {"E", "EAVES BEAM"},
      {"R", "CLEADER"}, {"V", "VCR"},       {"T", "TOPHAT"},
  };
  for (const auto& [letter, keyword] : keywords) {
    const std::string block = Block(MakeItem(letter, "M1", 100));
    EXPECT_EQ(block.substr(0, block.find("M1")), keyword + "\r\n") << letter;
  }
}

TEST_F(SectionBlockTest, Any_other_letter_has_no_keyword_line) {
  const std::string block = Lines({"Q1", "X20018", "1", "100", "0", "0.0 0.0", "0", ""});
  EXPECT_EQ(Block(MakeItem("Q", "Q1", 100)), block);
  EXPECT_EQ(Block(MakeItem("z", "Q1", 100)), block);
  EXPECT_EQ(Block(MakeItem("", "Q1", 100)), block);
}

// It has no pitch line either, and lies as it is stored.
TEST_F(SectionBlockTest, A_section_of_any_other_letter_is_written_as_it_stands) {
  Item item = MakeItem("Q", "Q1", 6000);
  item.Product = "Q20018";
  item.Pitch = "10";
  AddHoles(item, {MakeHole(32, 18, 0, " "), MakeHole(5900, 18, 0, " ")});
  AddNotches(item, {MakeNotch("TL1", 30, 60, 0), MakeNotch("T2", 40, 80, 1000)});
  EXPECT_EQ(Block(item),
            "Q1\r\n"
            "Q20018\r\n"
            "1\r\n"
            "6000\r\n"
            "2\r\n"
            "32        n y y n 18                     \r\n"
            "5900      n y y n 18                     \r\n"
            "0.0 0.0\r\n"
            "2\r\n"
            "TL1   30 60\r\n"
            "T2    40 80 1000\r\n"
            "\r\n");
}

TEST_F(SectionBlockTest, An_eaves_beam_has_one_line_more_than_any_other_section) {
  const auto count = [](const std::string& block) {
    int lines = 0;
    for (const char c : block) lines += c == '\n' ? 1 : 0;
    return lines;
  };
  for (const char* letter : {"Z", "C", "R", "V", "T"}) {
    EXPECT_EQ(count(Block(MakeItem(letter, "M1", 100))), 9) << letter;
  }
  EXPECT_EQ(count(Block(MakeItem("E", "M1", 100))), 10);
}

TEST_F(SectionBlockTest, The_pitch_is_a_number_with_one_decimal_or_the_text_itself) {
  const std::vector<std::pair<std::string, std::string>> pitches = {
      {"10", "10.0"},   {"22.5", "22.5"}, {" 7.25 ", "7.3"},    {"0", "0.0"},    {"-0.04", "0.0"},
      {"flat", "flat"}, {"", ""},         {"5deg", "5deg"},     {"1,5", "1,5"},  {"inf", "inf"},
      {" ", " "},       {"&H10", "&H10"}, {"5\u00b0", "5\xb0"}, {"1e1", "10.0"},
  };
  for (const auto& [pitch, line] : pitches) {
    Item item = MakeItem("E", "E1", 100);
    item.Pitch = pitch;
    EXPECT_EQ(Block(item),
              Lines({"EAVES BEAM", "E1", "X20018", line, "1", "100", "0", "0.0 0.0", "0", ""}))
        << pitch;
  }
}

TEST_F(SectionBlockTest, Only_an_eaves_beam_shows_its_pitch) {
  Item item = MakeItem("C", "C1", 100);
  item.Pitch = "10";
  EXPECT_EQ(Block(item), Lines({"C-SECTION", "C1", "X20018", "1", "100", "0", "0.0 0.0", "0", ""}));
}

TEST_F(SectionBlockTest, Whole_numbers_are_plain_digits_with_a_minus_sign) {
  Item item = MakeItem("C", "C1", 12000);
  item.Quantity = 32767;
  EXPECT_EQ(Block(item),
            Lines({"C-SECTION", "C1", "X20018", "32767", "12000", "0", "0.0 0.0", "0", ""}));
  item.Quantity = -1;
  item.Length = -32768;
  EXPECT_EQ(Block(item),
            Lines({"C-SECTION", "C1", "X20018", "-1", "-32768", "0", "0.0 0.0", "0", ""}));
}

TEST_F(SectionBlockTest, The_end_sentinel_in_row_0_is_never_written) {
  Item item = MakeItem("C", "C1", 900);
  item.Holes.At(0) = MakeHole(900, 0);
  EXPECT_EQ(Block(item), Lines({"C-SECTION", "C1", "X20018", "1", "900", "0", "0.0 0.0", "0", ""}));
  AddHoles(item, {MakeHole(450, 18)});
  EXPECT_EQ(Block(item), Lines({"C-SECTION", "C1", "X20018", "1", "900", "1",
                                HoleLine("450       n y y n 18"), "0.0 0.0", "0", ""}));
}

TEST_F(SectionBlockTest, Hole_lines_follow_the_list_and_the_count_line_counts_them) {
  Item item = MakeItem("C", "C1", 900);
  AddHoles(item, {MakeHole(10, 18), MakeHole(20, 18)});
  EXPECT_EQ(Block(item),
            Lines({"C-SECTION", "C1", "X20018", "1", "900", "2", HoleLine("10        n y y n 18"),
                   HoleLine("20        n y y n 18"), "0.0 0.0", "0", ""}));
}

TEST_F(SectionBlockTest, Purlin_holes_stand_in_descending_order_of_X_and_all_others_ascending) {
  for (const char* letter : {"C", "E", "R", "V", "T"}) {
    Item item = MakeItem(letter, "M1", 6000);
    AddHoles(item, {MakeHole(100, 18), MakeHole(2000, 18), MakeHole(5968, 18)});
    EXPECT_EQ(HoleLinesOf(item, item.SectionType == "E" ? 7 : 6),
              (TextList{HoleLine("100       n y y n 18"), HoleLine("2000      n y y n 18"),
                        HoleLine("5968      n y y n 18")}))
        << letter;
  }
  Item purlin = MakeItem("Z", "P1", 6000);
  AddHoles(purlin, {MakeHole(100, 18), MakeHole(2000, 18), MakeHole(5968, 18)});
  EXPECT_EQ(HoleLinesOf(purlin),
            (TextList{HoleLine("5900      n y y n 18"), HoleLine("4000      n y y n 18"),
                      HoleLine("32        n y y n 18")}));
}

TEST_F(SectionBlockTest, Purlin_holes_are_not_sorted_again) {
  Item item = MakeItem("Z", "P1", 6000);
  AddHoles(item, {MakeHole(5000, 18), MakeHole(100, 18), MakeHole(100, 14)});
  EXPECT_EQ(HoleLinesOf(item),
            (TextList{HoleLine("1000      n y y n 18"), HoleLine("5900      n y y n 18"),
                      HoleLine("5900      n y y n 14")}));
}

TEST_F(SectionBlockTest, A_hole_beyond_a_purlins_end_has_a_negative_X) {
  Item item = MakeItem("Z", "P1", 6000);
  AddHoles(item, {MakeHole(6010, 18), MakeHole(-25, 18)});
  EXPECT_EQ(HoleLinesOf(item),
            (TextList{HoleLine("-10       n y y n 18"), HoleLine("6025      n y y n 18")}));
}

TEST_F(SectionBlockTest, The_X_of_a_purlin_hole_is_worked_out_beyond_16_bits) {
  Item item = MakeItem("Z", "P1", 32767);
  AddHoles(item, {MakeHole(-32768, 18)});
  EXPECT_EQ(HoleLinesOf(item), TextList{HoleLine("65535     n y y n 18")});
  item.Length = -32768;
  item.Holes.At(1).XPos = 32767;
  EXPECT_EQ(HoleLinesOf(item), TextList{HoleLine("-65535    n y y n 18")});
}

TEST_F(SectionBlockTest, The_hole_lines_stand_as_stored) {
  Item item = MakeItem("C", "C1", 900);
  AddHoles(item, {MakeHole(100, 18, 0, "", {"n", "60", "n", "n"}),
                  MakeHole(110, 18, 0, "", {"y", "y", "y", "y"}),
                  MakeHole(120, 18, 0, "", {"", "12.5", " 7", "-3"})});
  EXPECT_EQ(HoleLinesOf(item),
            (TextList{HoleLine("100       n 60 n n 18"), HoleLine("110       y y y y 18"),
                      HoleLine("120        12.5  7 -3 18")}));
}

TEST_F(SectionBlockTest, A_hole_line_is_cut_at_41_columns) {
  Item item = MakeItem("C", "C1", 900);
  AddHoles(item, {MakeHole(100, 18, 28, "", {"123456789", "123456789", "123456789", "1"}),
                  MakeHole(100, 18, 28, "", {"123456", "123456", "123456", "123"})});
  EXPECT_EQ(HoleLinesOf(item), (TextList{"100       123456789 123456789 123456789 1",
                                         "100       123456 123456 123456 123 18 10 "}));
}

TEST_F(SectionBlockTest, The_diameter_is_rounded_half_away_from_zero) {
  const std::vector<std::pair<float, std::string>> diameters = {
      {12.5F, "13"},  {13.5F, "14"}, {0.5F, "1"},
      {1.5F, "2"},    {2.5F, "3"},   {-2.5F, "-3"},
      {12.49F, "12"}, {-0.4F, "0"},  {1234567.0F, "1234567"},
  };
  for (const auto& [diameter, text] : diameters) {
    Item item = MakeItem("C", "C1", 900);
    AddHoles(item, {MakeHole(100, diameter)});
    EXPECT_EQ(HoleLinesOf(item), TextList{HoleLine("100       n y y n " + text)}) << diameter;
  }
}

TEST_F(SectionBlockTest, The_slot_figure_is_the_extension_beyond_the_round_hole) {
  struct Case {
    float Slot, Diameter;
    std::string Tail;
  };
  const std::vector<Case> cases = {
      {22, 14, "14 8"},
      {28, 18, "18 10"},
      {18, 18, "18 0"},
      {14, 18, "18 -4"},
      {0, 18, "18"},
      {-5, 18, "18"},
      {0.1F, 18, "18 -18"},
      {30.5F, 18, "18 13"},
      {24, 13.5F, "14 11"},
      // The figure is rounded on the seven digits of the 32-bit difference: 6.499999 for the first
      // two, but 100.3 and 93.8 lie equally far from their binary values and differ by 6.5.
      {20.3F, 13.8F, "14 6"},
      {13.8F, 20.3F, "20 -6"},
      {100.3F, 93.8F, "94 7"},
      {20.2F, 13.8F, "14 6"},
  };
  for (const Case& one : cases) {
    Item item = MakeItem("C", "C1", 900);
    AddHoles(item, {MakeHole(100, one.Diameter, one.Slot)});
    EXPECT_EQ(HoleLinesOf(item), TextList{HoleLine("100       n y y n " + one.Tail)})
        << one.Slot << " " << one.Diameter;
  }
}

TEST_F(SectionBlockTest, A_countersunk_hole_ends_in_x_and_never_has_a_slot_figure) {
  Item item = MakeItem("C", "C1", 900);
  AddHoles(item, {MakeHole(100, 14, 0, "*"), MakeHole(110, 14, 22, "*")});
  EXPECT_EQ(HoleLinesOf(item),
            (TextList{HoleLine("100       n y y n 14 x"), HoleLine("110       n y y n 14 x")}));
}

TEST_F(SectionBlockTest, Only_a_star_makes_a_hole_countersunk) {
  Item item = MakeItem("C", "C1", 900);
  AddHoles(item, {MakeHole(100, 14, 22, ""), MakeHole(110, 14, 22, " "),
                  MakeHole(120, 14, 22, "* "), MakeHole(130, 14, 22, "x")});
  EXPECT_EQ(HoleLinesOf(item),
            (TextList{HoleLine("100       n y y n 14 8"), HoleLine("110       n y y n 14 8"),
                      HoleLine("120       n y y n 14 8"), HoleLine("130       n y y n 14 8")}));
}

TEST_F(SectionBlockTest, The_mitres_have_one_decimal_and_are_never_swapped) {
  struct Case {
    float Left, Right;
    std::string Line;
  };
  const std::vector<Case> cases = {
      {10, -20, "10.0 -20.0"},    {12.25F, -12.25F, "12.3 -12.3"}, {0.15F, 0.25F, "0.2 0.3"},
      {-0.0F, -0.04F, "0.0 0.0"}, {22.5F, 0.05F, "22.5 0.1"},      {-0.05F, 0.04F, "-0.1 0.0"},
      {12.249F, 45, "12.2 45.0"},
  };
  for (const char* letter : {"Z", "C"}) {
    for (const Case& one : cases) {
      Item item = MakeItem(letter, "M1", 900);
      item.MitreLeft = one.Left;
      item.MitreRight = one.Right;
      EXPECT_EQ(LinesOf(item, 6, 1), TextList{one.Line}) << letter;
    }
  }
}

TEST_F(SectionBlockTest, Notches_of_all_sections_but_purlins_stand_as_stored) {
  Item item = MakeItem("C", "C1", 6000);
  AddNotches(item, {MakeNotch("TL1", 50, 100, 0), MakeNotch("TR1", 50.5F, 99.5F, 10),
                    MakeNotch("T2", 40, 80, 1000), MakeNotch("L3", 1, 2, 0.4F),
                    MakeNotch("R3", 1, 2, -5), MakeNotch("BL1", 0, 0, 0),
                    MakeNotch("BR1", 2.5F, -2.5F, 0.5F), MakeNotch("B2", 40, 80, 6500)});
  EXPECT_EQ(NotchLinesOf(item),
            (TextList{"TL1   50 100", "TR1   51 100 10", "T2    40 80 1000", "L3    1 2 0",
                      "R3    1 2", "BL1   0 0", "BR1   3 -3 1", "B2    40 80 6500"}));
}

TEST_F(SectionBlockTest, Purlin_notches_change_ends) {
  Item item = MakeItem("Z", "P1", 6000);
  AddNotches(item, {MakeNotch("TL1", 50, 100, 7), MakeNotch("TR1", 50, 100, 7),
                    MakeNotch("L3", 50, 100, 7), MakeNotch("R3", 50, 100, 7),
                    MakeNotch("BL1", 50, 100, 7), MakeNotch("BR1", 50, 100, 7),
                    MakeNotch("T2", 50, 100, 1000), MakeNotch("B2", 50, 100, 1500)});
  EXPECT_EQ(NotchLinesOf(item), (TextList{"TR1   50 100 7", "TL1   50 100 7", "R3    50 100 7",
                                          "L3    50 100 7", "BR1   50 100 7", "BL1   50 100 7",
                                          "T2    50 100 5000", "B2    50 100 4500"}));
}

TEST_F(SectionBlockTest, A_purlins_notch_position_is_looked_at_after_mirroring) {
  Item item = MakeItem("Z", "P1", 6000);
  AddNotches(item, {MakeNotch("T2", 50, 100, 0), MakeNotch("B2", 50, 100, 6000),
                    MakeNotch("T2", 50, 100, 6001), MakeNotch("B2", 50, 100, -10),
                    MakeNotch("T2", 50, 100, 5999.5F), MakeNotch("T2", 50, 100, 12.3F),
                    MakeNotch("B2", 50, 100, 1000.4F)});
  EXPECT_EQ(NotchLinesOf(item),
            (TextList{"T2    50 100 6000", "B2    50 100", "T2    50 100", "B2    50 100 6010",
                      "T2    50 100 1", "T2    50 100 5988", "B2    50 100 5000"}));
}

TEST_F(SectionBlockTest, A_purlins_notch_position_keeps_its_decimals_until_it_is_rounded) {
  Item item = MakeItem("Z", "P1", 15000);
  AddNotches(item, {MakeNotch("T2", 1, 1, 12.501F), MakeNotch("T2", 1, 1, 12.499F)});
  EXPECT_EQ(NotchLinesOf(item), (TextList{"T2    1 1 14987", "T2    1 1 14988"}));
}

TEST_F(SectionBlockTest, A_purlins_notch_of_an_unknown_code_stands_as_stored) {
  Item item = MakeItem("Z", "P1", 6000);
  AddNotches(item, {MakeNotch("BR2", 50, 100, 7), MakeNotch("tl1", 50, 100, 0),
                    MakeNotch("", 50, 100, 0), MakeNotch("ABCDEFG", 50, 100, 0)});
  EXPECT_EQ(NotchLinesOf(item),
            (TextList{"BR2   50 100 7", "tl1   50 100", "      50 100", "ABCDE 50 100"}));
}

TEST_F(SectionBlockTest, Notches_are_counted_in_front_of_their_lines) {
  Item item = MakeItem("C", "C1", 900);
  EXPECT_EQ(Block(item), Lines({"C-SECTION", "C1", "X20018", "1", "900", "0", "0.0 0.0", "0", ""}));
  AddNotches(item, {MakeNotch("TL1", 1, 2, 0), MakeNotch("TR1", 1, 2, 0)});
  EXPECT_EQ(Block(item), Lines({"C-SECTION", "C1", "X20018", "1", "900", "0", "0.0 0.0", "2",
                                "TL1   1 2", "TR1   1 2", ""}));
}

TEST_F(SectionBlockTest, Notches_that_16_bits_can_t_count_cut_the_file_before_their_count) {
  Item item = MakeItem("C", "C1", 900);
  item.Notches.Resize(32768);
  Items.Append(item);
  const FactoryFile file = CamFile(desktop.Present);
  EXPECT_EQ(file.Text,
            CamHeader + Lines({"C-SECTION", "C1", "X20018", "1", "900", "0", "0.0 0.0"}));
  ASSERT_TRUE(file.Error);
  EXPECT_EQ(file.Error->Description(), "C1: Overflow");
}

TEST_F(SectionBlockTest, A_figure_without_a_text_cuts_the_file_before_its_line) {
  Item item = MakeItem("C", "C1", 900);
  AddHoles(item, {MakeHole(100, 18), MakeHole(200, std::numeric_limits<float>::infinity()),
                  MakeHole(300, 18)});
  Items.Append(item);
  const FactoryFile file = CamFile(desktop.Present);
  EXPECT_EQ(file.Text, CamHeader + Lines({"C-SECTION", "C1", "X20018", "1", "900", "3",
                                          HoleLine("100       n y y n 18")}));
  ASSERT_TRUE(file.Error);
  EXPECT_EQ(file.Error->Description(), "C1: Overflow");
}

TEST_F(SectionBlockTest, Texts_of_a_section_are_one_byte_a_character) {
  Item item = MakeItem("C", "P\u00e91", 900);
  item.Product = "\u20ac\u0416";
  AddHoles(item, {MakeHole(100, 18, 0, "", {"\u00e9", "y", "y", "n"})});
  EXPECT_EQ(Block(item), Lines({"C-SECTION", std::string("P\xe9") + "1", "\x80?", "1", "900", "1",
                                HoleLine("100       \xe9 y y n 18"), "0.0 0.0", "0", ""}));
}

TEST_F(SectionBlockTest, A_line_end_in_a_text_adds_no_line) {
  Item item = MakeItem("E", "A\r\nB", 900);
  item.Product = "C\nD";
  item.Pitch = "E\rF";
  EXPECT_EQ(Block(item),
            Lines({"EAVES BEAM", "A  B", "C D", "E F", "1", "900", "0", "0.0 0.0", "0", ""}));
}

}  // namespace

}  // namespace orvane
