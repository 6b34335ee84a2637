#include "core/section_families.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace orvane;

TEST(SectionFamilies, Are_the_six_of_the_trade_in_the_order_of_the_greatest_lengths) {
  std::vector<std::string> rows;
  for (const SectionFamily& family : SectionFamilies) {
    std::string row;
    for (const std::string_view text : {family.Letter, family.MenuEntry, family.ToolTip,
                                        family.SheetTitle, family.FixedProduct}) {
      row.append(text).append(1, '|');
    }
    rows.push_back(row);
  }
  const std::vector<std::string> expected = {
      "Z|&Z section|Add a Z section|Z Purlin/Rail||",
      "E|&Eaves Beam|Add an eaves beam section|Eaves Beam||",
      "C|&C Channel|Add a channel section|Mezzanine/C-Channel||",
      "V|&VCR|Add a vertical cladding rail section|VCR|VCR|",
      "R|Cleader &Rail|Add a cleader rail section|Cleader Rail|CLR|",
      "T|&Top Hat|Add a top hat section|Top Hat Section||",
  };
  EXPECT_EQ(rows, expected);

  std::vector<double> lengths;
  lengths.reserve(SectionFamilies.size());
  for (const SectionFamily& family : SectionFamilies) lengths.push_back(family.DefaultMaxLength);
  EXPECT_EQ(lengths, (std::vector<double>{15000, 15000, 15000, 3050, 3050, 4000}));
}

TEST(SectionFamilies, Buttons_labels_and_own_entries_of_the_detail_panel_are_each_familys_own) {
  std::vector<std::string> rows;
  for (const SectionFamily& family : SectionFamilies) {
    std::string row;
    for (const std::string_view text :
         {family.Letter, family.ButtonCaption, family.Icon, family.LengthLabel}) {
      row.append(text).append(1, '|');
    }
    if (family.HasPitch) row += "pitch";
    if (family.HasJointingPieces) row += "jointing pieces";
    rows.push_back(row);
  }
  const std::vector<std::string> expected = {
      "Z|Z|z|Z section|",
      "E|Eaves|eaves|Eaves beam|pitch",
      "C|C|c|Channel|",
      "V|VCR|vcr|VCR|",
      "R|Cleader|cleader|Cleader rail|jointing pieces",
      "T|Top Hat|top-hat|Top hat|",
  };
  EXPECT_EQ(rows, expected);
}

TEST(SectionFamilies, FamilyOf_finds_a_family_by_its_letter_and_nothing_by_any_other_text) {
  for (const SectionFamily& family : SectionFamilies) {
    EXPECT_EQ(FamilyOf(family.Letter), &family) << family.Letter;
  }
  for (const char* text : {"", "M", "H", "z", " Z", "ZE", "1"}) {
    EXPECT_EQ(FamilyOf(text), nullptr) << text;
  }
}

// What the line behind each table asks the compiler.
TEST(SectionFamilies, A_table_names_each_family_only_if_each_has_its_own_row_in_whatever_order) {
  constexpr PerFamily<int> Whole = {{{"Z", 1}, {"C", 3}, {"E", 2}, {"T", 6}, {"V", 4}, {"R", 5}}};
  constexpr PerFamily<int> Short = {{{"Z", 1}, {"E", 2}, {"C", 3}, {"V", 4}, {"R", 5}}};
  constexpr PerFamily<int> Twice = {{{"Z", 1}, {"E", 2}, {"C", 3}, {"V", 4}, {"R", 5}, {"R", 6}}};
  constexpr PerFamily<int> Foreign = {{{"Z", 1}, {"E", 2}, {"C", 3}, {"V", 4}, {"R", 5}, {"H", 6}}};
  EXPECT_TRUE(NamesEachFamily(Whole));
  EXPECT_FALSE(NamesEachFamily(Short));
  EXPECT_FALSE(NamesEachFamily(Twice));
  EXPECT_FALSE(NamesEachFamily(Foreign));
}

TEST(SectionFamilies,
     FactOf_finds_the_row_of_a_letter_and_nothing_for_a_letter_that_is_no_familys) {
  constexpr PerFamily<int> Table = {
      {{"Z", 10}, {"C", 30}, {"E", 20}, {"T", 60}, {"V", 40}, {"R", 50}}};
  const auto fact = [&](std::string_view letter) -> std::optional<int> {
    const int* found = FactOf(Table, letter);
    return found == nullptr ? std::nullopt : std::optional(*found);
  };
  EXPECT_EQ(fact("Z"), 10);
  EXPECT_EQ(fact("E"), 20);
  EXPECT_EQ(fact("C"), 30);
  EXPECT_EQ(fact("V"), 40);
  EXPECT_EQ(fact("R"), 50);
  EXPECT_EQ(fact("T"), 60);
  for (const char* text : {"", "M", "H", "z", " Z", "ZE"})
    EXPECT_EQ(fact(text), std::nullopt) << text;
}

TEST(SectionFamilies, FamilyNumber_counts_from_1_and_is_0_for_what_is_no_letter) {
  EXPECT_EQ(FamilyNumber("Z"), 1);
  EXPECT_EQ(FamilyNumber("E"), 2);
  EXPECT_EQ(FamilyNumber("C"), 3);
  EXPECT_EQ(FamilyNumber("V"), 4);
  EXPECT_EQ(FamilyNumber("R"), 5);
  EXPECT_EQ(FamilyNumber("T"), 6);
  for (const char* text : {"", "M", "z", " Z", "ZE", "1"}) EXPECT_EQ(FamilyNumber(text), 0) << text;
}

// The check is a line of its own behind the table, which is soon forgotten.
TEST(SectionFamilies, Every_table_of_the_house_with_a_row_for_each_family_has_its_check) {
  const std::regex declared("PerFamily<[^;=]*> (\\w+) =");
  int tables = 0;
  for (const std::string folder :
       {"core", "holes", "project", "drawing", "output", "tools", "ui"}) {
    const std::filesystem::path root = std::filesystem::path(ORVANE_SOURCE_DIR) / folder;
    for (const auto& file : std::filesystem::recursive_directory_iterator(root)) {
      const std::string suffix = file.path().extension().string();
      if (suffix != ".h" && suffix != ".cpp") continue;
      if (file.path().filename() == "section_families.h") continue;  // its example is a comment
      std::ifstream stream(file.path());
      const std::string text((std::istreambuf_iterator<char>(stream)), {});
      for (std::sregex_iterator found(text.begin(), text.end(), declared), end; found != end;
           ++found) {
        const std::string name = (*found)[1];
        ++tables;
        EXPECT_NE(text.find("static_assert(NamesEachFamily(" + name + "),"), std::string::npos)
            << name << " in " << file.path();
      }
    }
  }
  EXPECT_GE(tables, 4);
}

}  // namespace
