// The punching patterns that ship: every code of the hole engine in use, and a pattern for every
// rule about patterns.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/catalogues.h"
#include "core/model.h"
#include "holes/hole_coding.h"
#include "tests/catalogue/shipped_catalogue.h"

namespace orvane {

namespace {

using test::Contains;
using test::ExpectPlainName;
using test::PatternsOf;
using test::ProductsOf;
using test::ShippedCatalogue;
using test::Texts;

// The hole codes that the hole engine knows: a family's letter, its digits, the holes of one code.
struct CodeFamily {
  char Letter;
  std::string_view Digits;
  int Holes;
};
constexpr std::array<CodeFamily, 11> CodeFamilies = {{{'A', "06", 2},
                                                      {'B', "06", 1},
                                                      {'C', "3", 2},
                                                      {'D', "1234578", 1},
                                                      {'E', "1234578", 2},
                                                      {'F', "012345678", 1},
                                                      {'G', "12345", 1},
                                                      {'H', "234", 1},
                                                      {'I', "3", 2},
                                                      {'S', "06", 1},
                                                      {'T', "06", 2}}};

// Every code with its number of holes.
std::map<std::string, int> AllCodes() {
  std::map<std::string, int> codes;
  for (const CodeFamily& family : CodeFamilies) {
    for (const char digit : family.Digits) codes[std::string{family.Letter, digit}] = family.Holes;
  }
  return codes;
}

// A code string cut where its separators stand.
Texts CodesOf(const PunchPattern& pattern) {
  Texts codes;
  for (std::size_t at = 0; at < pattern.Codes.size(); at += 3) {
    codes.push_back(pattern.Codes.substr(at, 2));
  }
  return codes;
}

TEST_F(ShippedCatalogue, Has_patterns_for_every_family) {
  for (const std::string letter : {"Z", "E", "C", "V", "R", "T"}) {
    EXPECT_FALSE(PatternsOf(letter).empty()) << letter;
  }
}

TEST_F(ShippedCatalogue, Writes_codes_of_two_characters_with_one_blank_between) {
  for (const PunchPattern& row : PunchPatterns) {
    ASSERT_EQ(row.Codes.size() % 3, 2U) << row.Name;
    for (std::size_t at = 2; at < row.Codes.size(); at += 3) EXPECT_EQ(row.Codes[at], ' ') << at;
  }
}

TEST_F(ShippedCatalogue, Uses_all_41_codes_and_no_other) {
  const std::map<std::string, int> known = AllCodes();
  ASSERT_EQ(known.size(), 41U);
  std::set<std::string> used;
  for (const PunchPattern& row : PunchPatterns) {
    for (const std::string& code : CodesOf(row)) {
      EXPECT_EQ(known.count(code), 1U) << code << " in " << row.Name;
      used.insert(code);
    }
  }
  EXPECT_EQ(used.size(), 41U);
  for (const auto& [code, holes] : known) EXPECT_EQ(used.count(code), 1U) << code;
}

TEST_F(ShippedCatalogue, Marks_a_pattern_with_S_exactly_when_it_has_sag_bar_codes) {
  // Without the mark they would come out with diameter 0, and with it for nothing, a choice would
  // be offered that changes no hole.
  for (const PunchPattern& row : PunchPatterns) {
    const Texts codes = CodesOf(row);
    const bool sagBars = std::any_of(codes.begin(), codes.end(), [](const std::string& code) {
      return code[0] == 'D' || code[0] == 'E' || code[0] == 'H';
    });
    EXPECT_EQ(row.HasSagBars, ToBoolean(sagBars)) << row.Name;
  }
}

TEST_F(ShippedCatalogue, Has_sag_bars_of_all_three_families_where_purlins_and_rails_hang) {
  std::set<std::string> letters;
  for (const PunchPattern& row : PunchPatterns) {
    if (row.HasSagBars) letters.insert(row.SectionType);
  }
  EXPECT_EQ(letters, (std::set<std::string>{"C", "E", "Z"}));
}

TEST_F(ShippedCatalogue, Has_starred_patterns_with_and_without_others_beside_them) {
  for (const std::string letter : {"Z", "E", "C", "V", "R", "T"}) {
    const std::vector<PunchPattern> patterns = PatternsOf(letter);
    const auto starred = std::count_if(patterns.begin(), patterns.end(),
                                       [](const PunchPattern& row) { return row.Starred == True; });
    EXPECT_GE(starred, 1) << letter;
    EXPECT_LT(static_cast<std::size_t>(starred), patterns.size()) << letter;
  }
}

TEST_F(ShippedCatalogue, Has_a_starred_pattern_of_slots) {
  const auto found = std::find_if(
      PunchPatterns.begin(), PunchPatterns.end(),
      [](const PunchPattern& row) { return row.Starred == True && Contains(row.Codes, "S0"); });
  EXPECT_NE(found, PunchPatterns.end());
}

TEST_F(ShippedCatalogue, Has_purlin_patterns_named_Sleeved_and_Slvd_and_others) {
  int sleeved = 0;
  int slvd = 0;
  int others = 0;
  for (const PunchPattern& row : PatternsOf("Z")) {
    if (Contains(row.Name, "Sleeved")) {
      ++sleeved;
    } else if (Contains(row.Name, "Slvd")) {
      ++slvd;
    } else {
      ++others;
    }
  }
  EXPECT_GE(sleeved, 1);
  EXPECT_GE(slvd, 1);
  EXPECT_GE(others, 1);
}

TEST_F(ShippedCatalogue, Has_a_channel_pattern_named_Sleeved_that_the_export_must_not_ask_about) {
  const std::vector<PunchPattern> patterns = PatternsOf("C");
  EXPECT_TRUE(std::any_of(patterns.begin(), patterns.end(),
                          [](const PunchPattern& row) { return Contains(row.Name, "Sleeved"); }));
}

TEST_F(ShippedCatalogue, Never_names_two_patterns_alike) {
  // The sag-bar mark is looked up by the name alone, so a name with another mark would mislead.
  std::set<std::string> names = {"Custom"};  // the list's own entry for holes placed by hand
  for (int row = 1; row <= PunchPatterns.UBound(); ++row) {
    const std::string& name = PunchPatterns.At(row).Name;
    ExpectPlainName(name);
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_EQ(FindPunchPattern(name), row) << name;
  }
}

TEST_F(ShippedCatalogue, Punches_every_pattern_on_a_product_of_its_family) {
  const std::map<std::string, int> known = AllCodes();
  for (const PunchPattern& row : PunchPatterns) {
    Items.Clear();
    Items.Append({});
    Item& item = Items.At(1);
    item.SectionType = row.SectionType;
    item.Product = ProductsOf(row.SectionType).front().Product;
    item.Length = 3000;  // all families are rolled to this length
    item.PatternName = row.Name;
    item.SagBarDia = row.HasSagBars == True ? 14 : 0;
    ExpandPattern(row.Name, 1);

    int holes = 0;
    for (const std::string& code : CodesOf(row)) holes += known.at(code);
    EXPECT_EQ(item.HoleCount(), holes) << row.Name;
    std::set<int> places;
    for (const Hole& hole : item.Holes) {
      EXPECT_GE(hole.XPos, 32) << row.Name;
      EXPECT_LE(hole.XPos, 3000 - 32) << row.Name;
      EXPECT_GE(hole.Diameter, 14) << row.Name;
      EXPECT_EQ(hole.CounterSunk, row.Starred == True ? "*" : " ") << row.Name;
      EXPECT_TRUE(places.insert(hole.XPos).second) << row.Name << ": two holes at one place";
    }
  }
}

}  // namespace

}  // namespace orvane
