// What the help tells the catalogue's maintainer agrees with the system and with what ships.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "core/model.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "holes/hole_coding.h"
#include "tests/help/help_page.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

using test::PageSource;
using test::TableRows;
using Row = std::vector<std::string>;

class HelpCatalogue : public test::SystemTest {};

// The codes that make holes.
std::set<std::string> KnownCodes() {
  Item section;
  section.SectionType = "Z";
  section.Length = 6000;
  Items.Append(section);
  std::set<std::string> known;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    for (char digit = '0'; digit <= '9'; ++digit) {
      PunchPattern pattern;
      pattern.SectionType = "Z";
      pattern.Codes = {letter, digit};
      pattern.Name = pattern.Codes;
      PunchPatterns.Append(pattern);
      const std::int16_t before = Items.At(1).HoleCount();
      ExpandPattern(pattern.Name, 1);
      if (Items.At(1).HoleCount() > before) known.insert(pattern.Codes);
    }
  }
  return known;
}

TEST_F(HelpCatalogue, The_table_of_hole_codes_names_all_41_codes_and_no_other) {
  std::set<std::string> named;
  std::size_t count = 0;
  for (const Row& row : TableRows(PageSource("catalogue-punch.html"))) {
    if (row.size() != 6 || row.at(0).size() != 1) continue;
    const std::string& codes = row.at(1);
    for (std::size_t at = 0; at < codes.size(); at += 4) {
      const std::string code = codes.substr(at, 2);
      EXPECT_EQ(code.substr(0, 1), row.at(0));
      named.insert(code);
      ++count;
    }
  }
  EXPECT_EQ(count, 41U);
  EXPECT_EQ(named, KnownCodes());
}

TEST_F(HelpCatalogue, Lines_diameters_and_slots_of_the_hole_codes) {
  const std::vector<Row> rows = TableRows(PageSource("catalogue-punch.html"));
  std::vector<Row> families;
  for (const Row& row : rows) {
    if (row.size() == 6 && row.at(0).size() == 1) {
      families.push_back({row.at(0), row.at(3), row.at(4), row.at(5)});
    }
  }
  EXPECT_EQ(families, (std::vector<Row>{
                          {"A", "n y y n", "18", "0"},
                          {"B", "n y y n", "18", "0"},
                          {"C", "n y y n", "18", "0"},
                          {"D", "n y y n", "sag bar", "0"},
                          {"E", "n y y n", "sag bar", "0"},
                          {"F", "y y y n", "18", "0"},
                          {"G", "y n n n", "18", "0"},
                          {"H", "n y n n", "sag bar", "0"},
                          {"I", "y y y n", "18", "0"},
                          {"S", "n n n y", "18", "28"},
                          {"T", "as told", "14", "0"},
                      }));
}

TEST_F(HelpCatalogue, Rows_known_by_their_number_bear_the_names_of_the_catalogue_that_ships) {
  LoadShippedCatalogues();
  std::vector<int> numbers;
  for (const Row& row : TableRows(PageSource("catalogues.html"))) {
    if (row.size() != 3 || std::isdigit(static_cast<unsigned char>(row.at(0).front())) == 0) {
      continue;
    }
    const int number = ParseInt16(row.at(0));
    numbers.push_back(number);
    const std::string& name = AccDefs.At(number).Name;
    EXPECT_EQ(row.at(1).substr(0, name.size()), name);
  }
  EXPECT_EQ(numbers, (std::vector<int>{4, 5, 6, 7, 8, 9, 10, 11, 21}));
}

TEST_F(HelpCatalogue, Widths_and_tops_of_the_pictures_that_ship) {
  LoadShippedCatalogues();
  std::set<int> widths;
  std::set<int> tops;
  for (const AccDef& accessory : AccDefs) {
    if (accessory.DrawingFile == "None") continue;
    widths.insert(accessory.Value1);
    tops.insert(accessory.Value3);
  }
  ASSERT_GT(widths.size(), 1U);
  ASSERT_GT(tops.size(), 1U);
  const auto range = [](const std::set<int>& values) {
    return DecimalText(*values.begin()) + " to " + DecimalText(*values.rbegin()) + " mm";
  };
  std::string text = test::TextOf(PageSource("catalogues.html"));
  std::replace(text.begin(), text.end(), '\n', ' ');
  EXPECT_NE(text.find("are " + range(widths) + " wide and begin at " + range(tops) + "."),
            std::string::npos);
}

TEST_F(HelpCatalogue, The_default_maximum_lengths) {
  const std::vector<Row> rows = TableRows(PageSource("max-lengths.html"));
  std::vector<Row> lengths(rows.begin() + 1, rows.begin() + 7);
  EXPECT_EQ(lengths, (std::vector<Row>{{"Z section", "15000"},
                                       {"Eaves beam", "15000"},
                                       {"Channel", "15000"},
                                       {"VCR", "3050"},
                                       {"Cleader rail", "3050"},
                                       {"Top hat", "4000"}}));
}

}  // namespace

}  // namespace orvane
