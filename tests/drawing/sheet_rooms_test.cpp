// What texts and tables of a sheet have for room beside each other, laid out on a page.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "core/text.h"
#include "drawing/hole_drawing.h"
#include "drawing/off_gauge.h"
#include "drawing/page_surface.h"
#include "drawing/section_views.h"
#include "drawing/sheet_frame.h"
#include "tests/drawing/elevation_fixture.h"
#include "tests/drawing/page_fixture.h"

namespace orvane::test {

namespace {

using Texts = std::vector<TextShape>;

class SheetRooms : public ElevationTest {
 protected:
  // The sheet of the section, without its frame, on A4 with margins of 10 mm.
  const Page& Drawn() {
    StartSheets(page, PresentMargins());
    Sheet sheet = TheSheet(page);
    DrawSectionViews(sheet);
    DrawHoles(sheet);
    return page.Result().Pages.front();
  }
  const Page& DrawnFrame() {
    StartSheets(page, PresentMargins());
    DrawSheetFrame(page, PresentSource(), "Z");
    page.EndDoc();
    return page.Result().Pages.front();
  }
  // So many positions with a hole off gauge, the n-th of them with n on the web.
  void AddOffGaugeHoles(int count) {
    for (int number = 1; number <= count; ++number) {
      TheItem().Holes.Append(
          Placed(HoleOn("88", DecimalText(number), "n", "n"), Int16(40 * number), 40, 40));
    }
  }

  static Texts TextsOf(const Page& drawn) {
    Texts texts;
    for (const Shape& shape : drawn.Shapes) {
      if (const auto* text = std::get_if<TextShape>(&shape)) texts.push_back(*text);
    }
    return texts;
  }
  TextShape TextOn(const Page& drawn, const std::string& text) {
    for (const TextShape& shape : TextsOf(drawn)) {
      if (shape.Text == text) return shape;
    }
    ADD_FAILURE() << "no text " << text;
    return {};
  }
  // Without the blanks that labels end with.
  Box BoxOf(const TextShape& text) const {
    return {text.TopLeft.X, text.TopLeft.Y,
            text.WidthScale * metrics.Width(text.Type, Trim(text.Text)) / TwipsPerMm,
            metrics.Height(text.Type) / TwipsPerMm};
  }
  double RightOf(const TextShape& text) const { return BoxOf(text).Left + BoxOf(text).Width; }

  PageSurface page{metrics};
};

bool Overlap(const Box& one, const Box& other) {
  constexpr double close = 0.01;
  return one.Left + one.Width > other.Left + close && other.Left + other.Width > one.Left + close &&
         one.Top + one.Height > other.Top + close && other.Top + other.Height > one.Top + close;
}

// Letters of 12 points are 2.116 mm wide. Notes begin 35 mm from the left edge.
constexpr double Close = 0.05;

TEST_F(SheetRooms, Notes_end_at_the_right_margin) {
  TheItem().Notes = std::string(100, 'n');  // 211.6 mm
  EXPECT_EQ(TextOn(Drawn(), TheItem().Notes).WidthScale, 1);
  TheItem().Notes = std::string(150, 'n');  // 317.5 mm, of which 252 are 79.4 %
  const TextShape notes = TextOn(Drawn(), TheItem().Notes);
  EXPECT_NEAR(notes.WidthScale, 0.794, 0.001);
  EXPECT_EQ(notes.Type.Size, 12);
  EXPECT_NEAR(notes.TopLeft.X, 35, Close);
  EXPECT_NEAR(RightOf(notes), 287, Close);
}

// Three letters: the table begins at 267 - 30 - 45 = 192 mm. 154 of 317.5 mm are 48.5 %, 9.7 points
// at 60 % of the width.
TEST_F(SheetRooms, Notes_end_3_mm_before_the_table_of_off_gauge_holes) {
  TheItem().Notes = std::string(150, 'n');
  AddOffGaugeHoles(3);
  const TextShape notes = TextOn(Drawn(), TheItem().Notes);
  EXPECT_NEAR(notes.Type.Size, 9.7, 1e-9);
  EXPECT_NEAR(RightOf(notes), 189, Close);
  // A hole more at one of the positions needs no other letter.
  TheItem().Holes.Append(Placed(HoleOn("n", "n", "n", "25"), 120, 0, 0));
  EXPECT_NEAR(RightOf(TextOn(Drawn(), TheItem().Notes)), 189, Close);
}

// Twenty-six letters take two parts of thirteen, at 85 %: with the names 14 columns of 12.75 mm,
// which begin at 252 - 178.5 = 73.5 mm. Up to 70.5 mm there are 35.5 for the mark.
TEST_F(SheetRooms, The_table_leaves_room_for_the_mark) {
  TheItem().Mark = "PURLIN-GRID-C-TO-F";  // 38.1 mm
  AddOffGaugeHoles(26);
  const TextShape mark = TextOn(Drawn(), TheItem().Mark);
  EXPECT_NEAR(mark.WidthScale, 35.5 / 38.1, 0.002);
  EXPECT_EQ(mark.Type.Size, 12);
  EXPECT_NEAR(RightOf(mark), 70.5, Close);
}

// Sixteen letters are two parts of eight, nine columns of 12.75 mm from 137.25 mm on.
TEST_F(SheetRooms, Parts_of_the_table_are_as_narrow_as_they_can_be_for_the_notes) {
  TheItem().Notes = std::string(60, 'n');  // 127 mm, of which 99.25 are 78.1 %
  AddOffGaugeHoles(16);
  const TextShape notes = TextOn(Drawn(), TheItem().Notes);
  EXPECT_NEAR(notes.WidthScale, 0.781, 0.002);
  EXPECT_NEAR(RightOf(notes), 134.25, Close);
}

TEST_F(SheetRooms, Every_letter_of_the_table_stands_on_the_paper_and_over_no_other_text) {
  MakeSection("Z", 2000);
  TheItem().Mark = "P1";
  TheItem().Quantity = 4;
  TheItem().Notes = "Galvanised after punching, mark both ends";
  dim.Product = "Z14012";
  for (const int count : {1, 5, 11, 12, 15, 16, 22, 26, 33}) {
    TheItem().Holes.Resize(0);
    AddOffGaugeHoles(count);
    TheItem().Holes.Append(Placed(HoleOn("n", "y", "n", "n", 18, 30), 1990, 40, 40));
    const Page& drawn = Drawn();
    Texts above;
    for (const TextShape& text : TextsOf(drawn)) {
      const Box box = BoxOf(text);
      if (box.Top >= SlotListRow + 5) continue;
      EXPECT_GE(box.Left, 10) << count << " " << text.Text;
      EXPECT_LE(box.Left + box.Width, 287) << count << " " << text.Text;
      above.push_back(text);
    }
    for (std::size_t one = 0; one < above.size(); ++one) {
      for (std::size_t other = 0; other < one; ++other) {
        EXPECT_FALSE(Overlap(BoxOf(above[one]), BoxOf(above[other])))
            << count << ": " << above[one].Text << " and " << above[other].Text;
      }
    }
    for (int number = 1; number <= count; ++number) {
      const std::string figure = DecimalText(number);
      EXPECT_EQ(std::count_if(above.begin(), above.end(),
                              [&](const TextShape& text) {
                                return text.Text == figure && text.TopLeft.X > 70;
                              }),
                1)
          << count << " " << figure;
    }
    EXPECT_EQ(page.Result().Pages.size(), 1U);
  }
}

TEST_F(SheetRooms, Each_part_of_the_table_names_its_rows) {
  AddOffGaugeHoles(16);
  const Page& drawn = Drawn();
  for (const char* name : {"w", "b", "t"}) {
    std::vector<double> places;
    for (const TextShape& text : TextsOf(drawn)) {
      if (text.Text == name && text.TopLeft.X < 200) places.push_back(text.TopLeft.Y);
    }
    ASSERT_EQ(places.size(), 2U) << name;
    EXPECT_LT(places[0] + 15, places[1]) << name;
  }
}

// The title begins where the table does, also where that would be left of the paper.
TEST_F(SheetRooms, The_title_of_the_table_stands_over_it) {
  AddOffGaugeHoles(2);
  EXPECT_NEAR(TextOn(Drawn(), "Off-gauge hole Y dims.").TopLeft.X, 207, Close);
  // Twenty more are two parts of eleven, twelve columns of 12.75 mm, up to 252 mm. A row's name
  // stands in the middle of the first one; the key has the same letters farther right.
  AddOffGaugeHoles(20);
  const Page& drawn = Drawn();
  EXPECT_NEAR(TextOn(drawn, "Off-gauge hole Y dims.").TopLeft.X, 99, Close);
  int names = 0;
  for (const TextShape& text : TextsOf(drawn)) {
    if (text.Text != "w" || text.TopLeft.X > 120) continue;
    EXPECT_NEAR((text.TopLeft.X + RightOf(text)) / 2, 99 + 12.75 / 2, Close);
    ++names;
  }
  EXPECT_EQ(names, 2);
}

// The strip's last letters end 1.35 mm above the margin's line, and the contact line is 2.84 mm
// high.
TEST_F(SheetRooms, The_strip_ends_above_the_contact_line_with_the_least_bottom_margin_that_fits) {
  const int least = FittingStripMargins(PresentSource()).LeastBottom;
  EXPECT_EQ(least, 2);
  for (const int margin : {least, least - 1}) {
    BottomMargin = Int16(margin);
    double contact = 0;
    double strip = 0;
    for (const TextShape& text : TextsOf(DrawnFrame())) {
      const bool isContact = text.Text.rfind("E-mail", 0) == 0;
      const double bottom = text.TopLeft.Y + metrics.Height(text.Type) / TwipsPerMm;
      if (isContact) contact = text.TopLeft.Y;
      if (!isContact) strip = std::max(strip, bottom);
    }
    EXPECT_EQ(strip <= contact, margin == least) << margin << ": " << strip << ", " << contact;
  }
}

// The labels of the job table begin at 160 mm, the title at 70. Fourteen points: 2.469 mm a letter.
TEST_F(SheetRooms, A_long_name_of_an_accessory_ends_before_the_job_table) {
  AccDef accessory;
  accessory.Name = std::string(50, 'a');  // 123.5 mm, of which 87 are 70.5 %
  StartSheets(page, PresentMargins());
  DrawSheetFrame(page, PresentSource(), accessory);
  const TextShape title = TextOn(page.Result().Pages.front(), accessory.Name);
  EXPECT_NEAR(title.WidthScale, 0.705, 0.001);
  EXPECT_NEAR(RightOf(title), 157, Close);
}

// 100 mm less the paddings, 51 % of 194 mm.
TEST_F(SheetRooms, A_long_field_of_the_job_stays_in_its_column) {
  txtProject.at(2) = std::string(100, 'c');
  const TextShape customer = TextOn(DrawnFrame(), txtProject.at(2));
  EXPECT_NEAR(customer.TopLeft.X, 192.5, Close);
  EXPECT_NEAR(RightOf(customer), 291.5, 0.2);
  EXPECT_FALSE(customer.Clipped);
}

// Letters of 7 points are 1.235 mm wide: the contact line is 29 of them.
TEST_F(SheetRooms, A_long_company_line_ends_before_the_contact_line) {
  CompanyName = std::string(100, 'n');
  CompanyDetails = std::string(100, 'd');
  const Texts texts = TextsOf(DrawnFrame());
  const TextShape& company = texts.back();
  EXPECT_EQ(company.Text, "Registered User: " + CompanyName + ", " + CompanyDetails);
  EXPECT_NEAR(company.TopLeft.X, 10 + 29 * 1.2346 + 5, Close);
  EXPECT_NEAR(RightOf(company), 287, Close);
}

TEST_F(SheetRooms, A_company_without_an_address_ends_with_its_name) {
  CompanyName = "Acme Steel";
  for (const char* details : {"", "  "}) {
    CompanyDetails = details;
    EXPECT_EQ(TextsOf(DrawnFrame()).back().Text, "Registered User: Acme Steel " + CompanyDetails);
  }
}

TEST_F(SheetRooms, A_room_begins_a_text_at_its_left_side_and_is_forgotten_with_the_document) {
  page.StartDoc();
  page.Within({.Left = 40, .Right = 60});
  page.CurrentX(Length::OfMm(-3));
  page.Text("ab");
  page.Text("");
  page.StartDoc();
  page.CurrentX(Length::OfMm(-3));
  page.Text("cd");
  EXPECT_EQ(Described(page.Result().Pages.front().Shapes.at(0)), "text \"cd\" -3 10 10");
}

}  // namespace

}  // namespace orvane::test
