#include "output/validation.h"

#include "tests/output/output_test.h"

namespace orvane {

namespace {

using namespace test;

using TextList = std::vector<std::string>;

class ValidationTest : public OutputTest {
 protected:
  ValidationTest() { ExportErrors.Clear(); }

  static TextList Errors() { return {ExportErrors.begin(), ExportErrors.end()}; }

  static void AddPurlin(const std::string& mark, const std::string& pattern) {
    Item item = MakeItem("Z", mark, 6000);
    item.Product = "Z20018";
    item.PatternName = pattern;
    Items.Append(item);
  }

  TextList Questions() const {
    TextList texts;
    for (const ShownBox& box : desktop.Boxes) texts.push_back(box.Text);
    return texts;
  }
};

std::string Question(const std::string& item) {
  return item +
         " requires sleeves and none were found\r"
         "Do you wish to continue with the export?";
}

TEST_F(ValidationTest, An_empty_project_passes_without_a_line) {
  EXPECT_TRUE(CheckExportData());
  EXPECT_EQ(Errors(), TextList{});
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(ValidationTest, A_blank_section_gives_three_lines_in_order) {
  Items.Append(Item{});
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Errors(),
            (TextList{"Item 1:  No mark", "Item 1:  Zero length", "Item 1:  Zero quantity"}));
}

TEST_F(ValidationTest, Sections_are_checked_in_order_each_by_every_rule) {
  Items.Append(MakeItem("C", "P1", 900));
  Items.Append(MakeItem("C", "P2", 0));
  Items.Append(MakeItem("C", "", 900));
  Items.Append(MakeItem("C", "P4", 0));
  Items.At(3).Quantity = 0;
  Items.At(4).Quantity = 0;
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Errors(),
            (TextList{"Item 2: P2 Zero length", "Item 3:  No mark", "Item 3:  Zero quantity",
                      "Item 4: P4 Zero length", "Item 4: P4 Zero quantity"}));
  EXPECT_EQ(ExportErrors.At(1), "Item 2: P2 Zero length");
}

TEST_F(ValidationTest, Each_rule_alone_refuses_the_export) {
  Items.Append(MakeItem("C", "", 900));
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Errors(), TextList{"Item 1:  No mark"});
  Items.At(1) = MakeItem("C", "P1", 0);
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Errors(), TextList{"Item 1: P1 Zero length"});
  Items.At(1) = MakeItem("C", "P1", 900);
  Items.At(1).Quantity = 0;
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Errors(), TextList{"Item 1: P1 Zero quantity"});
}

TEST_F(ValidationTest, Each_run_starts_the_lines_afresh) {
  Items.Append(Item{});
  EXPECT_FALSE(CheckExportData());
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(ExportErrors.UBound(), 3);
  Items.At(1) = MakeItem("C", "P1", 900);
  EXPECT_TRUE(CheckExportData());
  EXPECT_EQ(ExportErrors.UBound(), 0);
}

TEST_F(ValidationTest, Negative_lengths_and_quantities_pass) {
  Items.Append(MakeItem("C", "P1", -5));
  Items.At(1).Quantity = -1;
  EXPECT_TRUE(CheckExportData());
  EXPECT_EQ(Errors(), TextList{});
}

TEST_F(ValidationTest, A_mark_of_blanks_is_a_mark) {
  Items.Append(MakeItem("C", " ", 0));
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Errors(), TextList{"Item 1:   Zero length"});
}

TEST_F(ValidationTest, A_sleeved_purlin_without_sleeves_raises_the_question) {
  Items.Append(MakeItem("C", "C1", 900));
  AddPurlin("P1", "2 Row Sleeved");
  desktop.Answers = {Answer::Yes};
  EXPECT_TRUE(CheckExportData());
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text,
            "Item 2: P1 requires sleeves and none were found\r"
            "Do you wish to continue with the export?");
  EXPECT_EQ(desktop.Boxes[0].Title, "Checking Data");
  EXPECT_EQ(desktop.Boxes[0].Choice, Buttons::YesNo);
  EXPECT_EQ(desktop.Boxes[0].Sign, Icon::None);
}

TEST_F(ValidationTest, A_pattern_is_sleeved_by_two_words_case_and_all) {
  const std::vector<std::pair<std::string, bool>> patterns = {
      {"Sleeved", true}, {"2 Row Sleeved", true}, {"Slvd end", true},
      {"Slvd", true},    {"xSleevedx", true},     {"sleeved", false},
      {"SLVD", false},   {"Sleeve", false},       {"Custom", false},
      {"", false},       {"slvd end", false},
  };
  for (const auto& [pattern, asks] : patterns) {
    Items.Clear();
    desktop.Boxes.clear();
    AddPurlin("P1", pattern);
    desktop.Answers = {Answer::Yes};
    EXPECT_TRUE(CheckExportData());
    EXPECT_EQ(desktop.Boxes.size(), asks ? 1U : 0U) << pattern;
  }
}

TEST_F(ValidationTest, Only_purlins_are_checked_for_sleeves) {
  for (const char* letter : {"E", "C", "V", "R", "T", "Q", "z", ""}) {
    Items.Append(MakeItem(letter, "M1", 900));
    Items.At(Items.UBound()).PatternName = "Sleeved";
  }
  EXPECT_TRUE(CheckExportData());
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(ValidationTest, A_sleeve_line_of_the_same_product_counts_whatever_its_quantity) {
  AddPurlin("P1", "Sleeved");
  AccLines2.Append(MakeLine2(6, "S0", 5, {"Z25020"}));
  AccLines2.Append(MakeLine2(6, "S1", 0, {"Z20018"}));
  EXPECT_TRUE(CheckExportData());
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(ValidationTest, A_line_of_another_accessory_or_product_is_no_sleeve) {
  AddPurlin("P1", "Sleeved");
  AccLines2.Append(MakeLine2(6, "S1", 5, {"Z25020", "Z20018"}));
  AccLines2.Append(MakeLine2(6, "S1", 5, {"z20018"}));
  AccLines2.Append(MakeLine2(6, "S1", 5, {"Z20018 "}));
  AccLines2.Append(MakeLine2(7, "S1", 5, {"Z20018"}));
  desktop.Answers = {Answer::Yes};
  EXPECT_TRUE(CheckExportData());
  EXPECT_EQ(Questions(), TextList{Question("Item 1: P1")});
}

TEST_F(ValidationTest, The_first_sleeve_line_that_fits_ends_the_search) {
  AddPurlin("P1", "Sleeved");
  AccLines2.Append(MakeLine2(6, "S1", 5, {"Z20018"}));
  AccLines2.Append(MakeLine2(6, "S2", 5, {}));
  EXPECT_TRUE(CheckExportData());
  AccLines2.Remove(1);
  EXPECT_EQ(ErrorOf([] { CheckExportData(); }), "Accessory 6 S2: Subscript out of range");
}

TEST_F(ValidationTest, Yes_goes_on_and_the_question_comes_for_each_section) {
  AddPurlin("P1", "Sleeved");
  AddPurlin("P2", "Slvd end");
  AddPurlin("P3", "Sleeved");
  desktop.Answers = {Answer::Yes, Answer::Yes, Answer::Yes};
  EXPECT_TRUE(CheckExportData());
  EXPECT_EQ(Errors(), TextList{});
  EXPECT_EQ(Questions(),
            (TextList{Question("Item 1: P1"), Question("Item 2: P2"), Question("Item 3: P3")}));
}

TEST_F(ValidationTest, No_ends_the_walk_at_once) {
  Items.Append(MakeItem("C", "", 900));
  AddPurlin("P2", "Sleeved");
  AddPurlin("P3", "Sleeved");
  Items.Append(Item{});
  desktop.Answers = {Answer::Yes, Answer::No};
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Errors(), (TextList{"Item 1:  No mark", "Item 3: P3 No sleeves"}));
  EXPECT_EQ(desktop.Boxes.size(), 2U);
}

TEST_F(ValidationTest, Any_answer_but_Yes_is_No) {
  for (const Answer answer : {Answer::No, Answer::Cancel, Answer::Ok}) {
    Items.Clear();
    AddPurlin("P1", "Sleeved");
    desktop.Answers = {answer};
    EXPECT_FALSE(CheckExportData());
    EXPECT_EQ(Errors(), TextList{"Item 1: P1 No sleeves"});
  }
}

TEST_F(ValidationTest, A_faulty_purlin_is_asked_about_and_refused_after_Yes) {
  AddPurlin("", "Sleeved");
  desktop.Answers = {Answer::Yes};
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Questions(), TextList{Question("Item 1: ")});
  EXPECT_EQ(Errors(), TextList{"Item 1:  No mark"});
}

TEST_F(ValidationTest, A_faulty_purlin_refused_by_No_has_all_its_lines) {
  AddPurlin("", "Sleeved");
  desktop.Answers = {Answer::No};
  EXPECT_FALSE(CheckExportData());
  EXPECT_EQ(Errors(), (TextList{"Item 1:  No mark", "Item 1:  No sleeves"}));
}

TEST_F(ValidationTest, Accessories_are_not_checked) {
  Items.Append(MakeItem("C", "C1", 900));
  AccLines1.Append(MakeLine1(-7, 99, -1));
  AccLines2.Append(MakeLine2(99, "", 0, {}));
  AccLines2.Append(MakeLine2(8, "", 0, {"3 off"}));
  EXPECT_TRUE(CheckExportData());
  EXPECT_EQ(Errors(), TextList{});
}

TEST_F(ValidationTest, AddExportError_appends_one_line) {
  AddExportError(2, "P1", "Zero length");
  AddExportError(10000, "", "No mark");
  EXPECT_EQ(Errors(), (TextList{"Item 2: P1 Zero length", "Item 10000:  No mark"}));
}

}  // namespace

}  // namespace orvane
