// The contract summary laid out on pages.
//
// A line of 9 points is 207 twips high here, 3.6508 mm, and a row of a ruled table 4.2508. On an
// upright page between margins of 10 mm the project table takes 28.8 mm and the title three lines,
// so that the sections' heading stands at 49.7524 mm; to 287 mm there is room for it and 54
// sections (55 rows are 233.79 mm, 56 are 238.04 mm). The next page has room for the heading and 64
// sections (65 rows are 276.30 mm).
#include <cmath>
#include <map>

#include "output/reports.h"
#include "tests/output/print_fixture.h"

namespace orvane {

namespace {

using namespace test;

constexpr std::size_t OnFirstPage = 54;
constexpr std::size_t OnOtherPages = 64;
constexpr double Line = 207 / 56.7;  // mm
constexpr double Above = 0.3;        // free over the texts of a row, and under them
constexpr double Row = Line + 2 * Above;
constexpr double Close = 0.001;

class ReportPagesTest : public PrintTest {
 protected:
  ReportPagesTest() {
    InstallOutputScreen(pages);
    CompanyName = "Hillside";
    CompanyDetails = "Mill Lane";
  }

  static void AddSections(int count) {
    for (int row = 1; row <= count; ++row) {
      Items.Append(MakeItem("Z", "S" + std::to_string(row) + ".", 1000));
    }
  }

  const std::vector<Page>& Summary() {
    PrintContractSummary();
    PrintAccessoryReport();
    return pages.ShownDocument->Pages;
  }

  // The marks of the sections on a page, from top to bottom.
  static TextList MarksOn(const Page& page) {
    TextList marks;
    for (const std::string& text : TextsOn(page)) {
      if (text.front() == 'S' && text.back() == '.') marks.push_back(text);
    }
    return marks;
  }

  // The one shape of that text on a page.
  static TextShape TextOn(const Page& page, const std::string& text) {
    TextShape found;
    int count = 0;
    for (const Shape& shape : page.Shapes) {
      const auto* one = std::get_if<TextShape>(&shape);
      if (one == nullptr || one->Text != text) continue;
      found = *one;
      ++count;
    }
    EXPECT_EQ(count, 1) << text;
    return found;
  }

  PagedScreen pages;
};

struct Band {
  std::string Text;
  double X;
  double Y;
  double Points;
};

}  // namespace

TEST_F(ReportPagesTest, Every_section_stands_once_on_its_page_between_the_margins) {
  AddSections(140);
  const std::vector<Page>& shown = Summary();
  ASSERT_EQ(shown.size(), 3U);
  EXPECT_EQ(MarksOn(shown[0]).size(), OnFirstPage);
  EXPECT_EQ(MarksOn(shown[1]).size(), OnOtherPages);
  EXPECT_EQ(MarksOn(shown[2]).size(), 140 - OnFirstPage - OnOtherPages);
  int row = 0;
  for (const Page& page : shown) {
    for (const std::string& mark : MarksOn(page)) {
      EXPECT_EQ(mark, "S" + std::to_string(++row) + ".");
      const double top = TextOn(page, mark).TopLeft.Y;
      EXPECT_GE(top, 10);
      EXPECT_LE(top + Line, 287 + Close);
    }
  }
  EXPECT_EQ(row, 140);
}

TEST_F(ReportPagesTest, All_pages_are_upright_from_the_first_one_on) {
  AddSections(140);
  for (const Page& page : Summary()) {
    EXPECT_EQ(page.Width, 210);
    EXPECT_EQ(page.Height, 297);
  }
}

TEST_F(ReportPagesTest, Each_page_has_the_header_in_10_points_and_the_footer_in_7_both_bold) {
  AddSections(140);
  const std::vector<Page>& shown = Summary();
  int number = 0;
  for (const Page& page : shown) {
    const std::string pageText = "Page " + std::to_string(++number);
    // A character is half its size wide: 100 twips in the header, 70 in the footer. Margins of
    // 10 mm leave 190 mm; the header stands 5 mm below the edge, the footer ends 5 mm above it.
    const std::vector<Band> bands = {
        {"Orvane Detail System", 10, 5, 10},
        {"Contract Summary (J1042)", 10 + (190 - 2400 / 56.7) / 2, 5, 10},
        {pageText, 200 - 600 / 56.7, 5, 10},
        {"E-mail: sales@lintaro.example", 10, 292 - 161 / 56.7, 7},
        {"Registered User: Hillside, Mill Lane", 200 - 36 * 70 / 56.7, 292 - 161 / 56.7, 7},
    };
    for (const Band& band : bands) {
      const TextShape text = TextOn(page, band.Text);
      EXPECT_NEAR(text.TopLeft.X, band.X, Close) << band.Text;
      EXPECT_NEAR(text.TopLeft.Y, band.Y, Close) << band.Text;
      EXPECT_EQ(text.Type.Size, band.Points) << band.Text;
      EXPECT_TRUE(text.Type.Bold) << band.Text;
    }
  }
  EXPECT_EQ(number, 3);
}

TEST_F(ReportPagesTest, Texts_are_regular_in_9_points) {
  AddSections(1);
  const Page& page = Summary().front();
  for (const char* text : {"Job No.:", "Sections:", "Mark", "S1.", "Accessories:"}) {
    const TextShape shape = TextOn(page, text);
    EXPECT_EQ(shape.Type.Size, 9) << text;
    EXPECT_FALSE(shape.Type.Bold) << text;
  }
}

TEST_F(ReportPagesTest, The_first_page_begins_with_the_project_and_blank_lines_around_the_titles) {
  AddSections(1);
  const Page& page = Summary().front();
  // Rows of 4.8 mm from the top margin on, their texts in the middle.
  EXPECT_NEAR(TextOn(page, "Job No.:").TopLeft.Y, 10 + (4.8 - Line) / 2, Close);
  EXPECT_NEAR(TextOn(page, "04/03/2024").TopLeft.Y, 10 + 4 * 4.8 + (4.8 - Line) / 2, Close);
  EXPECT_NEAR(TextOn(page, "04/03/2024").TopLeft.X, 10 + 32 + 0.5, Close);
  EXPECT_NEAR(TextOn(page, "Sections:").TopLeft.Y, 38.8 + Line, Close);
  EXPECT_NEAR(TextOn(page, "Mark").TopLeft.Y, 38.8 + 3 * Line + Above, Close);
  EXPECT_NEAR(TextOn(page, "S1.").TopLeft.Y, 38.8 + 3 * Line + Row + Above, Close);
  EXPECT_NEAR(TextOn(page, "Accessories:").TopLeft.Y, 38.8 + 4 * Line + 2 * Row, Close);
  EXPECT_NEAR(TextOn(page, "Accessories:").TopLeft.X, 10, Close);
}

TEST_F(ReportPagesTest, The_heading_is_repeated_ruled_on_each_page) {
  AddSections(140);
  const std::vector<Page>& shown = Summary();
  const std::vector<double> tops = {38.8 + 3 * Line, 10, 10};
  for (std::size_t at = 0; at < shown.size(); ++at) {
    EXPECT_NEAR(TextOn(shown[at], "Quantity").TopLeft.Y, tops.at(at) + Above, Close);
    std::vector<double> rules;
    for (const Shape& shape : shown[at].Shapes) {
      const auto* line = std::get_if<LineShape>(&shape);
      if (line != nullptr && line->Stroke.Width == 0.2) rules.push_back(line->From.Y);
    }
    ASSERT_EQ(rules.size(), 2U);
    EXPECT_NEAR(rules[0], tops.at(at), Close);
    EXPECT_NEAR(rules[1], tops.at(at) + Row, Close);
  }
}

TEST_F(ReportPagesTest, Figures_stand_at_the_right_of_their_columns_and_texts_at_the_left) {
  AddSections(1);
  Items.At(1).Notes = "Note";
  const Page& page = Summary().front();
  const double digit = 90 / 56.7;
  EXPECT_NEAR(TextOn(page, "S1.").TopLeft.X, 11, Close);
  EXPECT_NEAR(TextOn(page, "X20018").TopLeft.X, 26, Close);
  EXPECT_NEAR(TextOn(page, "1000").TopLeft.X, 55 - 1 - 4 * digit, Close);
  EXPECT_NEAR(TextOn(page, "1").TopLeft.X, 70 - 1 - digit, Close);
  EXPECT_NEAR(TextOn(page, "Note").TopLeft.X, 71, Close);
}

TEST_F(ReportPagesTest, A_long_note_takes_lines_of_its_own_and_loses_no_word) {
  AddSections(2);
  std::string note;
  for (int word = 1; word <= 40; ++word) note += "word" + std::to_string(word) + " ";
  Items.At(1).Notes = note;
  const Page& page = Summary().front();
  std::string together;
  for (const std::string& text : TextsOn(page)) {
    if (text.rfind("word", 0) == 0) together += text + " ";
  }
  EXPECT_EQ(together, note);
}

TEST_F(ReportPagesTest, Accessory_tables_follow_the_sections_over_as_many_pages_as_they_take) {
  AddSections(60);
  for (int line = 1; line <= 100; ++line) {
    AccLine2 given = MakeLine2(line <= 50 ? 6 : 8, "S" + std::to_string(line) + ".", 1, {"1"});
    AccLines2.Append(given);
  }
  for (int line = 1; line <= 40; ++line) AccLines1.Append(MakeLine1(1 + line % 5, 2, line));
  const std::vector<Page>& shown = Summary();
  std::map<std::string, int> marks;
  int type1 = 0;
  for (const Page& page : shown) {
    for (const std::string& mark : MarksOn(page)) ++marks[mark];
    for (const std::string& text : TextsOn(page)) type1 += text == "STwo" ? 1 : 0;
    for (const Shape& shape : page.Shapes) {
      const auto* text = std::get_if<TextShape>(&shape);
      if (text == nullptr || text->Type.Size != 9) continue;
      EXPECT_GE(text->TopLeft.Y, 10 - Close) << text->Text;
      EXPECT_LE(text->TopLeft.Y + Line, 287 + Close) << text->Text;
    }
  }
  // S1. to S60. are marks of sections and of accessories.
  for (int line = 1; line <= 100; ++line) {
    EXPECT_EQ(marks["S" + std::to_string(line) + "."], line <= 60 ? 2 : 1) << line;
  }
  EXPECT_EQ(type1, 40);
  // The first page ends with 54 sections. The second has the other 6 below a heading, the title, 41
  // rows of type 1 to 224.99 mm, and behind a blank line a heading and 12 rows of type 2. The third
  // has a heading and 38 rows, a blank line, and from 179.43 mm a heading and 24 rows; the fourth
  // has 26.
  EXPECT_EQ(shown.size(), 4U);
}

// Below 51 sections, to 270.79 mm, the title and its blank lines end at 281.75: there is no room
// for a heading with a row, 8.5 mm.
TEST_F(ReportPagesTest, The_title_of_the_accessories_goes_to_the_next_page_with_their_table) {
  AddSections(51);
  AccLines1.Append(MakeLine1(1, 2, 7));
  const std::vector<Page>& shown = Summary();
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(CountOf(TextsOn(shown[0]), "Accessories:"), 0U);
  EXPECT_NEAR(TextOn(shown[1], "Accessories:").TopLeft.Y, 10, Close);
  EXPECT_NEAR(TextOn(shown[1], "Type").TopLeft.Y, 10 + 2 * Line + Above, Close);
}

TEST_F(ReportPagesTest, With_room_for_a_row_the_title_of_the_accessories_stays) {
  AddSections(50);  // the row ends at 285.99
  AccLines1.Append(MakeLine1(1, 2, 7));
  AccLines1.Append(MakeLine1(2, 2, 7));
  const std::vector<Page>& shown = Summary();
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(CountOf(TextsOn(shown[0]), "Accessories:"), 1U);
  EXPECT_EQ(CountOf(TextsOn(shown[0]), "STwo"), 1U);
}

TEST_F(ReportPagesTest, Without_sections_the_report_stands_on_a_bare_landscape_page) {
  AccLines1.Append(MakeLine1(1, 2, 7));
  const std::vector<Page>& shown = Summary();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0].Width, 297);
  EXPECT_EQ(shown[0].Height, 210);
  EXPECT_EQ(TextsOn(shown[0]), (TextList{"Accessories:", "Type", "Description", "Code", "No.Off",
                                         "Accessory 1", "Size Two", "STwo", "7"}));
  EXPECT_NEAR(TextOn(shown[0], "Accessories:").TopLeft.X, 10, Close);
  EXPECT_NEAR(TextOn(shown[0], "Accessories:").TopLeft.Y, 10 + Line, Close);
}

TEST_F(ReportPagesTest, Margins_of_the_settings_hold_for_the_summary_too) {
  LeftMargin = 25;
  TopMargin = 40;
  AddSections(1);
  const Page& page = Summary().front();
  EXPECT_NEAR(TextOn(page, "Orvane Detail System").TopLeft.X, 25, Close);
  EXPECT_NEAR(TextOn(page, "S1.").TopLeft.X, 26, Close);
  EXPECT_NEAR(TextOn(page, "Job No.:").TopLeft.Y, 40 + (4.8 - Line) / 2, Close);
}

TEST_F(ReportPagesTest, A_job_number_may_hold_the_signs_of_the_header) {
  AddSections(1);
  txtProject.at(1) = "A%d|B";
  const TextList texts = TextsOn(Summary().front());
  // The first two bars divide; "%d" is the page's number wherever it stands.
  EXPECT_EQ(CountOf(texts, "Contract Summary (A1"), 1U);
  EXPECT_EQ(CountOf(texts, "B)|Page 1"), 1U);
}

TEST_F(ReportPagesTest, A_sheet_behind_a_summary_is_landscape_without_its_header) {
  AddPurlin("P1", 6000);
  Summary();
  PrintCurrentDrawing(1);
  ASSERT_EQ(pages.ShownDocument->Pages.size(), 1U);
  const Page& sheet = pages.ShownDocument->Pages.front();
  EXPECT_EQ(sheet.Width, 297);
  EXPECT_EQ(CountOf(TextsOn(sheet), "Orvane Detail System"), 0U);
  const TextShape footer = TextOn(sheet, "E-mail: sales@lintaro.example");
  EXPECT_EQ(footer.Type.Size, 7);
  EXPECT_FALSE(footer.Type.Bold);
}

}  // namespace orvane
