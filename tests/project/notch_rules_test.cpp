#include "project/rules/notch_rules.h"

#include <string>
#include <vector>

#include "core/model.h"
#include "core/runtime_error.h"
#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Texts = std::vector<std::string>;

class NotchRules : public test::SystemTest {
 protected:
  NotchRules() { Items.Append({}); }

  static void AddNotch(const std::string& code, float depth, float width, float position) {
    Items.At(1).Notches.Append({code, depth, width, position});
  }
  static std::vector<Texts> Shown() {
    std::vector<Texts> rows;
    for (const NotchTexts& row : NotchRows(1)) rows.emplace_back(row.begin(), row.end());
    return rows;
  }
  static void Store(const std::vector<Texts>& shown) {
    Table<NotchTexts> rows;
    for (const Texts& texts : shown) {
      NotchTexts row;
      for (const std::string& text : texts) row.Append(text);
      rows.Append(row);
    }
    StoreNotches(1, rows);
  }
  static std::vector<std::string> Codes() {
    std::vector<std::string> codes;
    for (const Notch& notch : Items.At(1).Notches) codes.push_back(notch.Code);
    EXPECT_EQ(Items.At(1).NotchCount(), static_cast<int>(codes.size()));
    return codes;
  }
};

TEST_F(NotchRules, NotchCodes_lists_the_eight_codes_in_their_order) {
  EXPECT_EQ(Texts(NotchCodes.begin(), NotchCodes.end()),
            (Texts{"TL1", "T2", "TR1", "BL1", "B2", "BR1", "L3", "R3"}));
}

TEST_F(NotchRules, NotchRows_gives_a_row_for_each_notch_with_its_sizes_in_plain_text) {
  AddNotch("TL1", 12.5F, 0.1F, 40);
  AddNotch("B2", 20, 100, 1500);
  EXPECT_EQ(Shown(), (std::vector<Texts>{{"", "TL1", "12.5", "0.1", "40"},
                                         {"", "B2", "20", "100", "1500"}}));
}

TEST_F(NotchRules, NotchRows_gives_one_blank_row_for_a_section_without_notches) {
  EXPECT_EQ(Shown(), (std::vector<Texts>{{"", "", "", "", ""}}));
}

TEST_F(NotchRules, StoreNotches_keeps_the_order_and_drops_rows_without_a_code) {
  AddNotch("R3", 1, 2, 3);
  Store({{"", "B2", "10", "20", "30"}, {"", "", "5", "6", "7"}, {"", "TL1", "12.5", "0.1", "0"}});
  EXPECT_EQ(Codes(), (Texts{"B2", "TL1"}));
  const Item& item = Items.At(1);
  EXPECT_EQ(item.Notches.At(1).Size1, 10);
  EXPECT_EQ(item.Notches.At(1).Size2, 20);
  EXPECT_EQ(item.Notches.At(1).Size3, 30);
  EXPECT_EQ(item.Notches.At(2).Size1, 12.5F);
  EXPECT_EQ(item.Notches.At(2).Size2, 0.1F);
  EXPECT_EQ(item.Notches.At(2).Size3, 0);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(NotchRules, StoreNotches_reads_the_number_that_a_text_begins_with) {
  Store({{"", "T2", "12abc", "abc", ""}});
  const Notch& notch = Items.At(1).Notches.At(1);
  EXPECT_EQ(notch.Size1, 12);
  EXPECT_EQ(notch.Size2, 0);
  EXPECT_EQ(notch.Size3, 0);
}

TEST_F(NotchRules, StoreNotches_refuses_neither_a_code_twice_nor_any_size_nor_an_unknown_code) {
  Store({{"", "TL1", "9999", "-5", "1"}, {"", "TL1", "9999", "1", "1"}, {"", "Q7", "1", "1", "1"}});
  EXPECT_EQ(Codes(), (Texts{"TL1", "TL1", "Q7"}));
  EXPECT_EQ(Items.At(1).Notches.At(1).Size1, 9999);
  EXPECT_EQ(Items.At(1).Notches.At(1).Size2, -5);
}

TEST_F(NotchRules, StoreNotches_of_blank_rows_or_none_leaves_no_notch) {
  AddNotch("R3", 1, 2, 3);
  Store({{"", "", "", "", ""}});
  EXPECT_EQ(Codes(), Texts{});
  Store({});
  EXPECT_EQ(Codes(), Texts{});
}

TEST_F(NotchRules, StoreNotches_leaves_the_section_alone_when_a_size_is_too_large) {
  AddNotch("R3", 1, 2, 3);
  EXPECT_THROW(Store({{"", "TL1", "1", "1", "1"}, {"", "T2", "1e39", "1", "1"}}), RuntimeError);
  EXPECT_EQ(Codes(), Texts{"R3"});
}

}  // namespace
}  // namespace orvane
