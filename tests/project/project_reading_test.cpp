// How a project file's lines are read: what each form of line gives and gives up.
#include <array>
#include <string>
#include <vector>

#include "project/project_file.h"
#include "tests/project/small_project.h"

namespace orvane {

namespace {

using test::First;
using test::Joined;
using test::LineOf;
using test::LinesOf;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

TEST_F(ProjectFileTest, Line_1_gives_what_stands_behind_its_first_6_characters) {
  struct Case {
    std::string Line;
    std::string Number;
  };
  const std::vector<Case> cases = {
      {"v1.07:77", "77"},
      {"xxxxxx77", "77"},           // the version is compared with nothing
      {"v1.07: 77 ", " 77 "},       // reading trims nothing behind the stamp
      {"  v1.07:77", "77"},         // read-field skips leading blanks
      {"\"v1.07:77\"", "77"},       // and takes quotes off
      {"v1.07:\"9", "\"9"},         // a quote that isn't the line's first character stays
      {"éééééé7", "7"},             // six characters, not six bytes
      {"v1.07:Øå", "Øå"},           //
      {"v1.07:", "old 0"},          // six characters or fewer leave the number before
      {"v1.07", "old 0"},           //
      {"ééé", "old 0"},             // six bytes, three characters
      {"éééééé", "old 0"},          // twelve bytes, six characters
      {"", "old 0"},                //
      {"     v1.07:", "old 0"},     //
      {"v1.07: ", " "},             //
      {"\"v1.07:\"77", "old 0"},    // what stands behind a closing quote is dropped
      {"v1.07:5 3/4\"", "5 3/4\""}  //
  };
  for (const Case& each : cases) {
    FillEarlierProject();
    Read(With(SmallProjectLines(), line::OrvaneNumber, each.Line));
    EXPECT_EQ(txtProject.at(0), each.Number) << each.Line;
    EXPECT_EQ(txtProject.at(1), "J-77, phase 2") << each.Line;
  }
}

TEST_F(ProjectFileTest, A_job_number_with_a_comma_is_safe_and_an_Orvane_number_is_not) {
  FillSmallProject();
  txtProject.at(1) = "1,2";
  Read(LinesOf(ProjectText()));
  EXPECT_EQ(txtProject.at(1), "1,2");

  // The second half becomes the job number, all details move down by one, and the designer stands
  // where the date is looked for.
  EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), line::OrvaneNumber, "v1.07:12,5")),
            "Type mismatch");
  EXPECT_EQ(txtProject, (std::array<std::string, 5>{"12", "5", "J-77, phase 2", "Ångström & Søn",
                                                    "Halle 3 – Süd €"}));
}

TEST_F(ProjectFileTest, A_comma_in_a_plain_line_cuts_the_value_and_shifts_what_follows) {
  EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), line::Product, "A,B")), "Type mismatch");
  EXPECT_EQ(Items.At(1).Product, "A");
  EXPECT_EQ(Items.At(1).Length, 0);

  // The jointing pieces take the second half, and the mark of the next item the first item's 14.
  EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), line::Pitch, "7,8")), "Type mismatch");
  EXPECT_EQ(Items.At(1).Pitch, "7");
  EXPECT_EQ(Items.At(1).JointingPieces, 8);
  EXPECT_EQ(Items.At(1).SagBarDia, 0);
  EXPECT_EQ(Items.At(2).Mark, "14 ");
}

TEST_F(ProjectFileTest, A_comma_in_a_type_2_mark_spoils_the_tail_without_a_word) {
  FillEarlierProject();
  Read(With(SmallProjectLines(), line::Lines2Mark, "A,1"));
  // Number off 1, then the number off as the count of values: the four lines behind it. The second
  // line's mark stands where an accessory's row is looked for.
  ASSERT_EQ(AccLines2.UBound(), 2);
  EXPECT_EQ(AccLines2.At(1).Mark, "A");
  EXPECT_EQ(AccLines2.At(1).NoOff, 1);
  EXPECT_EQ(AccLines2.At(1).ValueCount(), 4);
  const Table<std::string>& values = AccLines2.At(1).Values;
  EXPECT_EQ(std::vector<std::string>(values.begin(), values.end()),
            (std::vector<std::string>{"2 ", "6000", "ø 16, long", "4 "}));
  EXPECT_EQ(AccLines2.At(2).AccIndex, 0);
  ExpectFlags({-1, -1, -1, -1});
}

TEST_F(ProjectFileTest, An_inner_quote_shortens_the_text_and_the_file_stays_in_step) {
  FillSmallProject();
  Items.At(1).Mark = "A\"B";
  Items.At(1).Notes = "8\" deep";
  const std::string text = ProjectText();
  EXPECT_EQ(LineOf(text, line::Mark), "\"A\"B\"");
  EXPECT_EQ(LineOf(text, line::Notes), "\"8\" deep\"");
  Read(LinesOf(text));
  EXPECT_EQ(Items.At(1).Mark, "A");
  EXPECT_EQ(Items.At(1).Notes, "8");
  EXPECT_EQ(Items.At(1).DateText, "12.03.2024");
  EXPECT_EQ(Items.At(2).Mark, "R é");
}

TEST_F(ProjectFileTest, A_comma_behind_an_inner_quote_shifts_what_follows) {
  FillSmallProject();
  Items.At(1).Mark = "A\"B,C";
  EXPECT_EQ(ErrorOfReading(LinesOf(ProjectText())), "Type mismatch");
  EXPECT_EQ(Items.At(1).Mark, "A");
  EXPECT_EQ(Items.At(1).SectionType, "C\"");
  EXPECT_EQ(Items.At(1).Product, "Z");
  EXPECT_EQ(Items.At(1).Length, 20020);  // the product's digits
  EXPECT_EQ(Items.At(1).Quantity, 6000);
}

TEST_F(ProjectFileTest, Leading_blanks_of_a_plain_line_vanish_and_trailing_ones_stay) {
  Read(With(SmallProjectLines(), line::Product, "  VCR "));
  EXPECT_EQ(Items.At(1).Product, "VCR ");
}

TEST_F(ProjectFileTest, Numbers_are_read_in_any_blank_padded_form) {
  for (const char* text : {"6000", " 6000 ", "    6000    ", "+6000", "6000.0", "6E3", "5999.6"}) {
    Read(With(SmallProjectLines(), line::Length, text));
    EXPECT_EQ(Items.At(1).Length, 6000) << text;
  }
}

TEST_F(ProjectFileTest, A_fraction_in_a_16_bit_line_goes_to_the_even_neighbour_at_a_half) {
  Read(With(SmallProjectLines(), line::Length, " 2.5 "));
  EXPECT_EQ(Items.At(1).Length, 2);
  Read(With(SmallProjectLines(), line::Length, " 3.5 "));
  EXPECT_EQ(Items.At(1).Length, 4);
}

TEST_F(ProjectFileTest, Every_kind_of_line_end_reads_the_same) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    FillEarlierProject();
    ReadBytes(Joined(SmallProjectLines(), end));
    const auto expected = With(SmallProjectLines(), line::FirstHoleCounterSunk, "");
    EXPECT_EQ(LinesOf(ProjectText()), expected);
  }
}

TEST_F(ProjectFileTest, A_byte_order_mark_is_skipped) {
  ReadBytes("\xEF\xBB\xBF" + Joined(SmallProjectLines()));
  EXPECT_EQ(txtProject.at(0), "OV 1234");
}

TEST_F(ProjectFileTest, A_Windows_1252_file_is_read_and_saved_again_as_UTF_8) {
  std::vector<std::string> lines = First(SmallProjectLines(), line::Lines1End);
  lines = With(lines, 3, "\"\xC5ngstr\xF6m & S\xF8n\"");
  lines = With(lines, 4,
               "\"Halle 3 \x96 S\xFC"
               "d \x80\"");
  lines = With(lines, 5, "\"K. M\xFCller\"");
  lines = With(lines, line::SecondMark, "\"R \xE9\"");
  Read(lines);
  EXPECT_EQ(txtProject.at(2), "Ångström & Søn");
  EXPECT_EQ(txtProject.at(3), "Halle 3 – Süd €");
  EXPECT_EQ(Items.At(2).Mark, "R é");
  EXPECT_EQ(LineOf(ProjectText(), 4), "\"Halle 3 – Süd €\"");
}

TEST_F(ProjectFileTest, Lines_behind_the_layout_are_passed_over) {
  std::vector<std::string> lines = SmallProjectLines();
  lines.emplace_back("more");
  Read(lines);
  ExpectFlags({-1, 0, -1, -1});
}

TEST_F(ProjectFileTest, A_date_text_of_the_file_is_carried_through) {
  Read(With(SmallProjectLines(), 16, "some day"));
  EXPECT_EQ(Items.At(1).DateText, "some day");
  EXPECT_EQ(LineOf(ProjectText(), 16), "some day");
}

TEST_F(ProjectFileTest, Unknown_letters_and_codes_are_read_as_they_stand) {
  std::vector<std::string> lines = With(SmallProjectLines(), 9, "Q");
  lines = With(lines, line::NotchCode, "XX9");
  lines = With(lines, 30, "?");
  Read(lines);
  EXPECT_EQ(Items.At(1).SectionType, "Q");
  EXPECT_EQ(Items.At(1).Notches.At(1).Code, "XX9");
  EXPECT_EQ(Items.At(1).Holes.At(1).Kind, "?");
}

// --- The flags and the catalogue

TEST_F(ProjectFileTest, Any_number_but_0_is_a_true_flag_stored_as_minus_1) {
  std::vector<std::string> lines = With(SmallProjectLines(), line::FirstFlag, " 1 ");
  lines = With(lines, line::FirstFlag + 1, " 0.25 ");
  lines = With(lines, line::FirstFlag + 2, " 70000 ");
  lines = With(lines, line::FirstFlag + 3, "-0 ");
  FillEarlierProject();
  Read(lines);
  ExpectFlags({-1, -1, -1, 0});
}

TEST_F(ProjectFileTest, A_catalogue_that_has_grown_leaves_its_last_flags_as_they_were) {
  SetCatalogue(2, 4);
  AccUsed.At(5) = True;
  Read(SmallProjectLines());
  ExpectFlags({-1, 0, -1, -1, -1, 0});
}

TEST_F(ProjectFileTest, A_catalogue_that_has_shrunk_reads_the_further_flags_behind_its_own) {
  SetCatalogue(1, 1);
  Read(SmallProjectLines());
  ExpectFlags({-1, 0, -1, -1});
  EXPECT_EQ(AccLines2.At(2).AccIndex, 4);  // a row that the catalogue no longer has
}

TEST_F(ProjectFileTest, A_catalogue_without_accessories_writes_the_flags_that_were_read) {
  SetCatalogue(0, 0);
  EXPECT_EQ(LinesOf(ProjectText()).size(), 9U);
  Read(SmallProjectLines());
  ExpectFlags({-1, 0, -1, -1});
  EXPECT_EQ(AccLines2.UBound(), 2);
}

// --- The date line

TEST_F(ProjectFileTest, The_date_line_follows_the_systems_short_form_with_a_full_year) {
  struct Case {
    std::string Form;
    std::string Line;
  };
  const std::vector<Case> cases = {
      {"dd/MM/yyyy", "05/03/2024"}, {"dd.MM.yy", "05.03.2024"},   {"M/d/yy", "3/5/2024"},
      {"yyyy-MM-dd", "2024-03-05"}, {"d MMM yyyy", "05/03/2024"}, {"dd, MM yyyy", "05/03/2024"},
      {"", "05/03/2024"},           {"d. M. yyyy", "5. 3. 2024"},
  };
  for (const Case& each : cases) {
    FillSmallProject();
    desktop.DateForm = each.Form;
    const std::string text = ProjectText();
    EXPECT_EQ(LineOf(text, line::ProjectDate), each.Line) << each.Form;
    DTPicker1 = {};
    Read(LinesOf(text));
    EXPECT_EQ(DTPicker1, (Date{2024, 3, 5})) << each.Form;
  }
}

TEST_F(ProjectFileTest, Other_date_lines_are_read_by_the_forms_that_fit) {
  struct Case {
    std::string Form;
    std::string Line;
    Date Expected;
  };
  const std::vector<Case> cases = {
      {"dd.MM.yy", "04.03.25", {2025, 3, 4}},      // the system's own form, two digits mean 20xx
      {"M/d/yy", "3/4/25", {2025, 3, 4}},          //
      {"dd.MM.yy", "2025-03-04", {2025, 3, 4}},    // the international form
      {"dd.MM.yyyy", "04/03/2025", {2025, 3, 4}},  // the form that every machine reads
      {"M/d/yyyy", "25/12/2024", {2024, 12, 25}},  // no month 25: again that form
      {"dd/MM/yyyy", "12/25/24", {2024, 12, 25}},  // an office across the sea
  };
  for (const Case& each : cases) {
    desktop.DateForm = each.Form;
    Read(With(SmallProjectLines(), line::ProjectDate, each.Line));
    EXPECT_EQ(DTPicker1, each.Expected) << each.Form << " " << each.Line;
  }
}

TEST_F(ProjectFileTest, A_line_that_is_no_date_gives_todays_and_a_line_to_tell_of_it) {
  desktop.Present = {{2026, 11, 22}, 9, 0, 0};
  for (const std::string text : {"", "tomorrow", "31/02/2024", "05/03/24x", "0"}) {
    FillEarlierProject();
    const std::string path = FreshFile(Joined(With(SmallProjectLines(), line::ProjectDate, text)));
    const ProjectNotes notes = ReadProjectFile(path);
    EXPECT_EQ(DTPicker1, (Date{2026, 11, 22})) << text;
    EXPECT_EQ(notes.UnreadDate, text);
    EXPECT_EQ(notes.Line(), "The date \"" + text + "\" can't be read; today's is in its place");
    EXPECT_EQ(Items.UBound(), 2);
    EXPECT_EQ(Items.At(1).Mark, "Z1");
  }
}

TEST_F(ProjectFileTest, A_line_that_is_a_date_gives_nothing_to_tell) {
  const ProjectNotes notes = ReadProjectFile(FreshFile(Joined(SmallProjectLines())));
  EXPECT_EQ(notes.UnreadDate, std::nullopt);
  EXPECT_EQ(notes.Line(), "");
}

}  // namespace

}  // namespace orvane
