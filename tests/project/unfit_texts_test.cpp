// Texts that a project file can't hold: found by reading the file's text back, and named.
#include "project/unfit_texts.h"

#include <string>
#include <vector>

#include "project/project_file.h"
#include "project/rules/section_columns.h"
#include "tests/project/small_project.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::ErrorOf;
using test::ProjectFileTest;

class UnfitTextsTest : public ProjectFileTest {
 protected:
  UnfitTextsTest() { FillSmallProject(); }

  static FileFit Fit() { return FitOf(ProjectText(), OpenJob()); }

  // "NAME: TEXT > BACK" of each.
  static std::vector<std::string> Found() {
    std::vector<std::string> found;
    for (const UnfitText& each : UnfitTexts()) {
      found.push_back(each.Name + ": " + each.Text + " > " + each.Back);
    }
    return found;
  }

  using Texts = std::vector<std::string>;
};

TEST_F(UnfitTextsTest, What_the_form_itself_gives_up_is_no_difference) {
  Items.At(1).Holes.At(1).CounterSunk = " ";
  txtProject = {" 12 ", "  J-77", "a  b ", "", " "};
  Items.At(1).Holes.At(1).RelX = 1.0 / 3;
  Items.At(1).MitreLeft = 1.0F / 3;
  Items.At(1).Notches.At(1).Size1 = 16777.217F;
  AccUsed.At(1) = 7;
  EXPECT_EQ(Fit(), FileFit::Same);
  EXPECT_EQ(Found(), Texts{});
  txtProject.at(0) = "";
  EXPECT_EQ(Fit(), FileFit::Same);
}

TEST_F(UnfitTextsTest, What_quoted_texts_and_plain_ones_can_hold_is_no_difference) {
  Items.At(1).Mark = " A, b ";
  Items.At(1).Notes = "it's, 12''";
  Items.At(1).Product = "20020 ";
  Items.At(1).Pitch = "22.5";
  txtProject.at(0) = "5 3/4\" OV";
  AccLines2.At(1).Mark = "A 1\"";
  AccLines2.At(1).Values.At(1) = "";
  Items.At(2).Notes = "two\r\nlines";
  EXPECT_EQ(Fit(), FileFit::Same);
  EXPECT_EQ(Found(), Texts{});
}

TEST_F(UnfitTextsTest, A_double_quote_between_quotes_is_named_with_what_is_left) {
  Items.At(1).Notes = "12\" deep";
  Items.At(2).Mark = "\"R\"";
  txtProject.at(3) = "Barn \"B\"";
  AccLines2.At(1).Values.At(2) = "3\"";
  EXPECT_EQ(Fit(), FileFit::Otherwise);
  EXPECT_EQ(Found(), (Texts{"Project: Barn \"B\" > Barn ", "Z1, Notes: 12\" deep > 12",
                            "\"R\", Mark: \"R\" > ", "Accessory 3 A1: 3\" > 3"}));
}

TEST_F(UnfitTextsTest, A_note_with_a_quote_and_a_comma_would_not_open_again) {
  Items.At(1).Notes = "12\" x 3\", see drawing";
  EXPECT_EQ(Fit(), FileFit::Broken);
  EXPECT_EQ(Found(), Texts{"Z1, Notes: 12\" x 3\", see drawing > 12"});
}

TEST_F(UnfitTextsTest, Commas_and_blanks_in_front_of_plain_texts_are_named) {
  Items.At(1).Product = " 20020";
  AccLines2.At(2).Mark = "A,1";
  EXPECT_EQ(Fit(), FileFit::Otherwise);
  EXPECT_EQ(Found(), (Texts{"Z1, Product:  20020 > 20020", "Accessory 4 A,1: A,1 > A"}));
  txtProject.at(0) = "1,2";
  EXPECT_EQ(Fit(), FileFit::Broken);
  EXPECT_EQ(Found().front(), "Orvane No.: 1,2 > 1");
}

TEST_F(UnfitTextsTest, Texts_without_a_field_of_their_own_are_named_by_their_section) {
  Items.At(1).Holes.At(2).W1 = "y,";
  Items.At(1).Notches.At(1).Code = " TL1";
  Items.At(1).Pitch = "7,8";
  EXPECT_EQ(Found(), (Texts{"Z1: y, > y", "Z1:  TL1 > TL1", "Z1, Pitch: 7,8 > 7"}));
}

TEST_F(UnfitTextsTest, A_place_tells_row_and_column) {
  Items.At(2).Notes = "\"";
  AccLines2.At(1).Mark = ",";
  AccLines2.At(1).Values.At(2) = "\"";
  txtProject.at(4) = "\"";
  const std::vector<UnfitText> found = UnfitTexts();
  ASSERT_EQ(found.size(), 4U);
  EXPECT_EQ(found[0].Place.Where, TextPlace::In::Details);
  EXPECT_EQ(found[0].Place.Row, 4);
  EXPECT_EQ(found[1].Place.Where, TextPlace::In::Section);
  EXPECT_EQ(found[1].Place.Row, 2);
  EXPECT_EQ(found[1].Place.Column, NotesColumn);
  EXPECT_EQ(found[2].Place.Where, TextPlace::In::Accessory);
  EXPECT_EQ(found[2].Place.Row, 1);
  EXPECT_EQ(found[2].Place.Column, 1);
  EXPECT_EQ(found[3].Place.Column, 4);  // behind mark, number off and the first value
}

TEST_F(UnfitTextsTest, The_columns_are_those_of_the_sections_grid) {
  Items.At(1).Mark = "\"";
  Items.At(1).Product = ",";
  Items.At(1).Notes = "\"";
  const std::vector<UnfitText> found = UnfitTexts();
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0].Place.Column, MarkColumn);
  EXPECT_EQ(found[1].Place.Column, ProductColumn);
  EXPECT_EQ(found[2].Place.Column, NotesColumn);
}

TEST_F(UnfitTextsTest, The_lines_for_a_person_are_a_few_short_ones) {
  for (int row = 1; row <= 2; ++row) Items.At(row).Notes = "\"";
  txtProject = {"a,b", "\"", "\"", "\"", std::string(100, 'x') + "\""};
  const std::string x60(60, 'x');
  EXPECT_EQ(Described(UnfitTexts()),
            "\rOrvane No.:  a,b\r    comes back as:  a"
            "\rJob No.:  \"\r    comes back as:  (nothing)"
            "\rCustomer:  \"\r    comes back as:  (nothing)"
            "\rProject:  \"\r    comes back as:  (nothing)"
            "\rDesigner:  " +
                x60 + "...\r    comes back as:  " + x60 +
                "..."
                "\rand 2 more");
}

TEST_F(UnfitTextsTest, Who_has_nobody_to_ask_writes_no_such_file) {
  const std::string path = TempFile("job.ovd", "former");
  Items.At(1).Notes = "12\" deep";
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(path); }),
            "The project file can't hold these texts as they are:\rZ1, Notes:  12\" deep\r    "
            "comes back as:  12");
  EXPECT_EQ(BytesOf(path), "former");
}

TEST_F(UnfitTextsTest, Looking_changes_no_table) {
  const std::string text = ProjectText();
  FillEarlierProject();
  EXPECT_NE(FitOf(text, OpenJob()), FileFit::Same);
  ExpectEarlierItems();
  ExpectEarlierLines1();
  ExpectEarlierLines2();
}

}  // namespace

}  // namespace orvane
