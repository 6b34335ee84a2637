#include "drawing/document.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "drawing/page_surface.h"
#include "tests/drawing/page_fixture.h"

namespace {

using namespace orvane;
using orvane::test::Described;
using orvane::test::Lines;
using orvane::test::PageTest;

// Pages of a document: how they begin and end, and what stands on each of them.
class DocumentTest : public PageTest {
 protected:
  // Width and height of a page, counted from 1.
  std::pair<double, double> SizeOf(std::size_t page) const {
    const Page& paper = surface.Result().Pages.at(page - 1);
    return {paper.Width, paper.Height};
  }
};

using Size = std::pair<double, double>;
const Size Landscape{297, 210};
const Size Portrait{210, 297};

// --- Empty, open, closed

TEST_F(DocumentTest, StartDoc_opens_an_empty_first_page) {
  EXPECT_EQ(PageCount(), 0U);
  surface.StartDoc();
  ASSERT_EQ(PageCount(), 1U);
  EXPECT_EQ(SizeOf(1), Landscape);
  EXPECT_EQ(ShapesOf(1), Lines{});
}

TEST_F(DocumentTest, NewPage_ends_a_page_and_starts_the_next_and_EndDoc_adds_none) {
  surface.StartDoc();
  surface.Text("one");
  surface.NewPage();
  surface.Text("two");
  surface.NewPage();
  surface.Text("three");
  surface.EndDoc();
  ASSERT_EQ(PageCount(), 3U);
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"one\" 10 10 10"}));
  EXPECT_EQ(ShapesOf(2), (Lines{"text \"two\" 10 10 10"}));
  EXPECT_EQ(ShapesOf(3), (Lines{"text \"three\" 10 10 10"}));
}

TEST_F(DocumentTest, StartDoc_discards_what_an_error_left_open) {
  surface.StartDoc();
  surface.Text("lost");
  surface.NewPage();
  surface.CurrentX(0);
  surface.StartTable();
  surface.TableCell(TableSetting::Rows, 0, 0, 1);
  surface.TableCell(TableSetting::Columns, 0, 0, 1);
  surface.TableCell(TableSetting::CellText, 0, 0, "lost");
  surface.StartDoc();
  ASSERT_EQ(PageCount(), 1U);
  EXPECT_EQ(ShapesOf(1), Lines{});
  surface.Text("new");
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"new\" 10 10 10"}));
}

TEST_F(DocumentTest, Drawing_on_an_empty_surface_makes_a_first_page_that_EndDoc_closes) {
  surface.Footer("foot");
  surface.CurrentX(Length::OfMm(50));
  surface.CurrentY(Length::OfMm(60));
  EXPECT_EQ(PageCount(), 0U);  // a position alone is no drawing
  surface.Text("as it stands");
  ASSERT_EQ(PageCount(), 1U);
  EXPECT_EQ(TextsOf(1), (Lines{"as it stands"}));
  surface.EndDoc();
  ASSERT_EQ(PageCount(), 1U);
  EXPECT_EQ(TextsOf(1), (Lines{"as it stands", "foot"}));
  EXPECT_EQ(ShapesOf(1).front(), "text \"as it stands\" 50 60 10");
}

TEST_F(DocumentTest, Drawing_on_a_closed_document_is_added_to_its_last_page) {
  surface.Header("Page %d");
  surface.StartDoc();
  surface.NewPage();
  surface.Text("first");
  surface.EndDoc();
  surface.Text("second");
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(2), (Lines{"first", "Page 2", "second"}));
  // The page ends once more; its header stands there once.
  surface.EndDoc();
  EXPECT_EQ(TextsOf(2), (Lines{"first", "second", "Page 2"}));
  surface.EndDoc();
  EXPECT_EQ(TextsOf(2), (Lines{"first", "second", "Page 2"}));
  surface.NewPage();
  surface.EndDoc();
  ASSERT_EQ(PageCount(), 3U);
  EXPECT_EQ(TextsOf(2), (Lines{"first", "second", "Page 2"}));
  EXPECT_EQ(TextsOf(3), (Lines{"Page 3"}));
}

TEST_F(DocumentTest, Page_operations_without_a_document_do_no_harm) {
  surface.EndDoc();
  EXPECT_EQ(PageCount(), 0U);
  surface.EndTable();
  surface.TableCell(TableSetting::CellText, 1, 1, "no table");
  surface.TableAlignment(1, 1, CellAlignment::Right);
  surface.TableMerge(1, 1, 2);
  EXPECT_EQ(PageCount(), 0U);
  surface.NewPage();  // ends the first page, which is blank
  EXPECT_EQ(PageCount(), 2U);
  surface.EndDoc();
  EXPECT_EQ(PageCount(), 2U);
}

TEST_F(DocumentTest, Clear_empties_the_document_and_keeps_the_settings) {
  surface.MarginLeft(Length::OfMm(20));
  surface.Orientation(PageOrientation::Portrait);
  surface.FontSize(7);
  surface.Header("head");
  surface.StartDoc();
  surface.NewPage();
  surface.Text("x");
  surface.Clear();
  EXPECT_EQ(PageCount(), 0U);
  surface.StartDoc();
  surface.Text("y");
  surface.EndDoc();
  ASSERT_EQ(PageCount(), 1U);
  EXPECT_EQ(SizeOf(1), Portrait);
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"y\" 20 10 7", "text \"head\" 20 5 10"}));
}

TEST_F(DocumentTest, TakeResult_hands_the_pages_over_and_leaves_an_empty_surface) {
  surface.Header("%d");
  surface.StartDoc();
  surface.Text("one");
  surface.NewPage();
  surface.Paragraph("moves the position");
  surface.EndDoc();
  const Document document = surface.TakeResult();
  ASSERT_EQ(document.Pages.size(), 2U);
  EXPECT_EQ(Described(document.Pages.at(0).Shapes.at(0)), "text \"one\" 10 10 10");
  EXPECT_EQ(PageCount(), 0U);
  surface.Text("next");
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"next\" 10 10 10", "text \"1\" 10 5 10"}));
}

// --- Orientation

TEST_F(DocumentTest, Orientation_turns_a_page_that_is_still_empty) {
  surface.StartDoc();
  surface.Orientation(PageOrientation::Portrait);
  EXPECT_EQ(SizeOf(1), Portrait);
  surface.Orientation(PageOrientation::Landscape);
  EXPECT_EQ(SizeOf(1), Landscape);
  surface.Orientation(PageOrientation::Portrait);
  surface.Text("x");
  surface.EndDoc();
  EXPECT_EQ(SizeOf(1), Portrait);
}

TEST_F(DocumentTest, Orientation_leaves_a_page_with_drawing_and_turns_the_next) {
  surface.StartDoc();
  surface.Text("x");
  surface.Orientation(PageOrientation::Portrait);
  EXPECT_EQ(SizeOf(1), Landscape);
  EXPECT_EQ(surface.PageWidth(), 11907);
  surface.NewPage();
  EXPECT_EQ(SizeOf(1), Landscape);
  EXPECT_EQ(SizeOf(2), Portrait);
  surface.EndDoc();
  surface.Orientation(PageOrientation::Landscape);  // the last page has ended
  EXPECT_EQ(SizeOf(2), Portrait);
}

// --- Header and footer

// Ten points: "C" is 100 twips wide (1.764 mm), "Page 1" 600 (10.582 mm). Between the margins, from
// 10 to 287 mm, the centred one begins at 10 + (277 - 1.764) / 2, the right one at 287 - 10.582.
TEST_F(DocumentTest, Bars_divide_a_header_into_left_centre_and_right) {
  surface.Header("L|C|Page %d");
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"L\" 10 5 10",
                             "text \"C\" 147.618 5 10",
                             "text \"Page 1\" 276.418 5 10",
                         }));
}

// Seven points: a line is 161 twips (2.840 mm) high; 5 mm above the paper's edge its top stands at
// 210 - 5 - 2.840. "Registered User: A B" is 20 x 70 = 1400 twips (24.691 mm) wide.
TEST_F(DocumentTest, Two_bars_put_a_footer_at_the_left_and_at_the_right) {
  surface.HdrFontSize(7);
  surface.HdrFontName("Arial");
  surface.MarginFooter(Length::OfMm(5));
  surface.Footer("E-mail: sales||Registered User: A B");
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"E-mail: sales\" 10 202.16 7",
                             "text \"Registered User: A B\" 262.309 202.16 7",
                         }));
  const auto& text = std::get<TextShape>(surface.Result().Pages.at(0).Shapes.at(0));
  EXPECT_NEAR(text.Ascent, 2.222, 0.001);  // 0.9 x 140 twips
}

// 277 mm between the margins less the 10.582 of "E-mail" and a gap of 5 are 261.418: 67.4 % of 220
// characters, which are 388.007 mm long.
TEST_F(DocumentTest, A_long_part_of_a_footer_has_what_the_others_leave) {
  surface.HdrFontSize(10);
  surface.Footer("E-mail||" + std::string(220, 'u'));
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1),
            (Lines{
                "text \"E-mail\" 10 200.944 10",
                "text \"" + std::string(220, 'u') + "\" 25.582 200.944 10 narrowed 0.674",
            }));
}

// 267 mm without the gaps are 89 a part, 50.5 % of 176.367: set in 60 % of the width and 8.4
// points, 88.889 mm. Their baseline is 151.2 twips below the top, 0.508 mm less than the 180 of 10
// points.
TEST_F(DocumentTest, Parts_that_are_all_too_long_have_equal_shares) {
  const std::string text(100, 't');
  surface.Header(text + "|" + text + "|" + text);
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"" + text + "\" 10 5.508 8.4 narrowed 0.6",
                             "text \"" + text + "\" 104.056 5.508 8.4 narrowed 0.6",
                             "text \"" + text + "\" 198.111 5.508 8.4 narrowed 0.6",
                         }));
}

// Ninety characters are 158.73 mm long: they begin at 128.27, and the middle part ends 5 mm before.
TEST_F(DocumentTest, A_middle_part_makes_way_for_a_long_neighbour) {
  surface.Header("L|" + std::string(10, 'c') + "|" + std::string(90, 'r'));
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1).at(1), "text \"cccccccccc\" 105.633 5 10");
  surface.Header(std::string(90, 'l') + "|" + std::string(10, 'c'));
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1).at(1), "text \"cccccccccc\" 173.73 5 10");
}

TEST_F(DocumentTest, A_break_in_a_footer_shows_as_a_comma_until_the_next_footer) {
  surface.Footer("||User: Hill Mill Lane");
  surface.FooterBreak(12);
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(TextsOf(1), (Lines{"User: Hill, Mill Lane"}));
  surface.Footer("||User: Hill Mill Lane");
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(TextsOf(1), (Lines{"User: Hill Mill Lane"}));
}

TEST_F(DocumentTest, Further_bars_belong_to_the_right_part_and_page_numbers_stand_everywhere) {
  struct Case {
    std::string Footer;
    Lines Texts;
  };
  const std::vector<Case> cases = {
      {"", {}},
      {"left", {"left"}},
      {"||right", {"right"}},
      {"|centre", {"centre"}},
      {"a|b|c|d||e", {"a", "b", "c|d||e"}},
      {"%d of %d|%d%d|100%|d", {"1 of 1", "11", "100%|d"}},
      {"two\nlines", {"two lines"}},
      {"||", {}},
  };
  for (const Case& c : cases) {
    surface.Footer(c.Footer);
    surface.StartDoc();
    surface.EndDoc();
    EXPECT_EQ(TextsOf(1), c.Texts) << c.Footer;
  }
}

TEST_F(DocumentTest, Header_and_footer_are_those_of_the_moment_at_which_the_page_ends) {
  surface.Header("first");
  surface.StartDoc();
  surface.Footer("foot");  // as the frame of a sheet does
  surface.NewPage();
  surface.Header("second %d");
  surface.EndDoc();
  EXPECT_EQ(TextsOf(1), (Lines{"first", "foot"}));
  EXPECT_EQ(TextsOf(2), (Lines{"second 2", "foot"}));
}

TEST_F(DocumentTest, Header_and_footer_share_a_font_of_their_own_and_are_black) {
  surface.HdrFontName("Courier");
  surface.HdrFontSize(5);
  surface.HdrFontBold(true);
  surface.Header("H");
  surface.MarginLeft(Length::OfMm(20));
  surface.TextColor(Navy);
  surface.StartDoc();
  surface.Text("T");
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"T\" 20 10 10 0,0,128",
                             "text \"H\" 20 5 5 bold Courier",
                         }));
}

TEST_F(DocumentTest, Page_events_may_set_the_header_font_for_each_of_the_two) {
  surface.BeforeHeader = [&] { surface.HdrFontSize(10); };
  surface.BeforeFooter = [&] { surface.HdrFontSize(7); };
  surface.Header("H");
  surface.Footer("F");
  surface.StartDoc();
  surface.NewPage();
  surface.EndDoc();
  const Lines expected = {"text \"H\" 10 5 10", "text \"F\" 10 202.16 7"};
  EXPECT_EQ(ShapesOf(1), expected);
  EXPECT_EQ(ShapesOf(2), expected);
}

TEST_F(DocumentTest,
       A_footer_margin_below_0_stands_at_the_edge_and_one_beyond_the_paper_at_its_top) {
  surface.HdrFontSize(7);
  surface.Footer("F");
  surface.MarginFooter(Length::OfMm(-5));
  surface.StartDoc();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"F\" 10 207.16 7"}));
  surface.MarginFooter(Length::OfMm(500));
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1), (Lines{"text \"F\" 10 0 7"}));
}

TEST_F(DocumentTest, A_band_uses_the_size_of_its_own_page) {
  surface.Header("||R");
  surface.StartDoc();
  surface.Text("x");
  surface.Orientation(PageOrientation::Portrait);
  surface.NewPage();
  surface.EndDoc();
  EXPECT_EQ(ShapesOf(1).back(), "text \"R\" 285.236 5 10");  // 287 - 1.764
  EXPECT_EQ(ShapesOf(2).back(), "text \"R\" 198.236 5 10");  // 200 - 1.764
}

// --- Pages handed out

TEST_F(DocumentTest, PageDone_gets_each_page_as_it_ends_and_none_is_kept) {
  std::vector<Page> pages;
  surface.PageDone = [&](Page page) { pages.push_back(std::move(page)); };
  surface.Header("%d");
  surface.StartDoc();
  surface.Text("one");
  surface.NewPage();
  ASSERT_EQ(pages.size(), 1U);
  ASSERT_EQ(PageCount(), 1U);  // the page at hand alone
  EXPECT_EQ(ShapesOf(1), Lines{});
  surface.Text("two");
  surface.EndDoc();
  EXPECT_EQ(PageCount(), 0U);
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages.at(0).Width, 297);
  EXPECT_EQ(Described(pages.at(0).Shapes.at(0)), "text \"one\" 10 10 10");
  EXPECT_EQ(Described(pages.at(0).Shapes.at(1)), "text \"1\" 10 5 10");
  EXPECT_EQ(Described(pages.at(1).Shapes.at(0)), "text \"two\" 10 10 10");
  EXPECT_EQ(Described(pages.at(1).Shapes.at(1)), "text \"2\" 10 5 10");
  surface.EndDoc();
  EXPECT_EQ(pages.size(), 2U);

  // What comes behind the last page begins one of its own.
  surface.Text("three");
  surface.EndDoc();
  ASSERT_EQ(pages.size(), 3U);
  EXPECT_EQ(Described(pages.at(2).Shapes.at(1)), "text \"3\" 10 5 10");

  // A new document counts from 1; what was open is never handed out.
  surface.StartDoc();
  surface.Text("lost");
  surface.StartDoc();
  surface.EndDoc();
  ASSERT_EQ(pages.size(), 4U);
  ASSERT_EQ(pages.at(3).Shapes.size(), 1U);
  EXPECT_EQ(Described(pages.at(3).Shapes.at(0)), "text \"1\" 10 5 10");
}

TEST_F(DocumentTest, PageDone_gets_the_pages_that_flowing_text_and_tables_fill) {
  std::size_t pages = 0;
  std::size_t most = 0;
  surface.PageDone = [&](const Page&) {
    ++pages;
    most = std::max(most, PageCount());
  };
  surface.StartDoc();
  // 190 mm between the margins hold 46 lines of 4.056 mm.
  for (int i = 0; i < 46 * 3; ++i) surface.Paragraph("line");
  surface.EndDoc();
  EXPECT_EQ(pages, 3U);
  EXPECT_EQ(most, 0U);
}

// --- Flowing text

TEST_F(DocumentTest, A_paragraph_stands_at_the_left_margin_and_an_empty_one_leaves_a_line) {
  surface.StartDoc();
  surface.CurrentX(Length::OfMm(100));
  surface.Paragraph("");
  surface.Paragraph("Sections:");
  surface.Paragraph("");
  surface.Text("next");
  // Lines of 230 twips, 4.056 mm.
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"Sections:\" 10 14.056 10",
                             "text \"next\" 10 22.169 10",
                         }));
}

// 277 mm of room are 15705.9 twips: 157 characters of 100.
TEST_F(DocumentTest, A_long_paragraph_breaks_between_words_and_a_long_word_is_fitted) {
  surface.StartDoc();
  const std::string sixty(60, 'a');
  const std::string tail(36, 'b');
  surface.Paragraph(sixty + " " + sixty + "  " + tail + "\n" + "end");
  // 60 + 1 + 60 + 2 + 36 = 159 are too many; 121 are left of the blanks at which the line breaks.
  EXPECT_EQ(TextsOf(1), (Lines{sixty + " " + sixty, tail + " end"}));
  surface.StartDoc();
  const std::string word(200, 'w');  // 20000 twips, 352.734 mm, of which 277 are 78.5 %
  surface.Paragraph("x " + word + " y");
  EXPECT_EQ(ShapesOf(1), (Lines{
                             "text \"x\" 10 10 10",
                             "text \"" + word + "\" 10 14.056 10 narrowed 0.785",
                             "text \"y\" 10 18.113 10",
                         }));
  surface.StartDoc();
  surface.Paragraph("end  ");
  EXPECT_EQ(TextsOf(1), (Lines{"end"}));
  surface.StartDoc();
  surface.MarginRight(Length::OfMm(290));  // no room at all
  surface.Paragraph("ab c");
  EXPECT_EQ(TextsOf(1), (Lines{"\xE2\x80\xA6", "\xE2\x80\xA6"}));
}

// 190 mm between the margins: 46 lines of 4.056 mm end at 196.614, a 47th would pass 200.
TEST_F(DocumentTest, Flowing_text_goes_on_at_the_top_margin_of_a_new_page) {
  surface.Header("%d");
  surface.StartDoc();
  for (int i = 0; i < 47; ++i) surface.Paragraph("line");
  surface.EndDoc();
  ASSERT_EQ(PageCount(), 2U);
  EXPECT_EQ(ShapesOf(1).size(), 47U);
  EXPECT_EQ(ShapesOf(1).at(45), "text \"line\" 10 192.54 10");  // 10 + 45 x 4.0564
  EXPECT_EQ(ShapesOf(2), (Lines{"text \"line\" 10 10 10", "text \"2\" 10 5 10"}));
}

TEST_F(DocumentTest, A_line_taller_than_the_room_takes_one_page_each) {
  surface.MarginBottom(Length::OfMm(300));
  surface.StartDoc();
  surface.Paragraph("a");
  surface.Paragraph("b");
  EXPECT_EQ(PageCount(), 2U);
  EXPECT_EQ(TextsOf(1), (Lines{"a"}));
  EXPECT_EQ(TextsOf(2), (Lines{"b"}));
}

}  // namespace
