#include "drawing/recording_surface.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "drawing/length.h"
#include "tests/drawing/sheet_fixture.h"
#include "tests/support/fixture.h"

namespace {

using namespace orvane;
using orvane::test::ErrorOf;
using orvane::test::SheetTest;

// --- Length

TEST(LengthTest, A_text_in_mm_is_millimetres_and_any_other_number_twips) {
  struct Case {
    std::string Text;
    double Mm;
    double Twips;
    std::string Form;
  };
  const std::vector<Case> cases = {
      {"10mm", 10, 567, "10mm"},
      {"100.25mm", 100.25, 5684.175, "100.25mm"},
      {"0.1mm", 0.1, 5.67, "0.1mm"},
      {"-5mm", -5, -283.5, "-5mm"},
      {" 4.80 mm ", 4.8, 272.16, "4.8mm"},
      {"1E1mm", 10, 567, "10mm"},
      {"567", 10, 567, "567"},
      {" 1134 ", 20, 1134, "1134"},
      {"283.5", 5, 283.5, "283.5"},
      {"0", 0, 0, "0"},
      {"-56.7", -1, -56.7, "-56.7"},
      {"5.67e2", 10, 567, "567"},
  };
  for (const Case& c : cases) {
    const Length length(c.Text);
    EXPECT_DOUBLE_EQ(length.Mm(), c.Mm) << c.Text;
    EXPECT_DOUBLE_EQ(length.Twips(), c.Twips) << c.Text;
    EXPECT_EQ(length.Text(), c.Form) << c.Text;
  }
}

TEST(LengthTest, Numbers_are_twips_and_OfMm_is_millimetres) {
  EXPECT_DOUBLE_EQ(Length(567).Mm(), 10);
  EXPECT_EQ(Length(567).Text(), "567");
  EXPECT_EQ(Length(16840.0).Text(), "16840");
  EXPECT_DOUBLE_EQ(Length::OfMm(10).Twips(), 567);
  EXPECT_EQ(Length::OfMm(100.25).Text(), "100.25mm");
  EXPECT_EQ(Length::OfMm(0.1 + 0.2).Text(), "0.3mm");
  EXPECT_EQ(Length::OfMm(-0.0).Text(), "0mm");
}

TEST(LengthTest, What_is_no_number_is_a_type_mismatch) {
  for (const char* text :
       {"", "mm", " mm", "ten", "10 m", "10cm", "10,5mm", "infmm", "1e", "10mm5"}) {
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Length(std::string_view(text))); }), "Type mismatch")
        << text;
  }
}

TEST(LengthTest, FiniteMm_refuses_what_no_page_has_a_place_for) {
  EXPECT_DOUBLE_EQ(FiniteMm(Length(567)), 10);
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(ErrorOf([&] { FiniteMm(Length::OfMm(infinity)); }), "Overflow");
  EXPECT_EQ(ErrorOf([&] { FiniteMm(Length(-infinity)); }), "Overflow");
  EXPECT_EQ(ErrorOf([&] { FiniteMm(Length(std::numeric_limits<double>::quiet_NaN())); }),
            "Overflow");
}

// --- PlainFontMetrics

TEST(PlainFontMetricsTest, Characters_are_half_an_em_wide_and_lines_1_15_em_high) {
  const PlainFontMetrics metrics;
  const Font seven{"Arial", 7, false, false};
  const Font twelve{"Arial", 12, true, false};
  EXPECT_DOUBLE_EQ(metrics.Width(seven, "1200"), 280);        // 4 x 0.5 x 140
  EXPECT_DOUBLE_EQ(metrics.Width(seven, "Mark:  "), 490);     // blanks at the end count
  EXPECT_DOUBLE_EQ(metrics.Width(seven, "10\xC2\xBA"), 210);  // three characters in four bytes
  EXPECT_DOUBLE_EQ(metrics.Width(seven, ""), 0);
  EXPECT_DOUBLE_EQ(metrics.Width(twelve, "Z"), 120);
  EXPECT_DOUBLE_EQ(metrics.Height(seven), 161);   // 1.15 x 140
  EXPECT_DOUBLE_EQ(metrics.Height(twelve), 276);  // 1.15 x 240
  EXPECT_DOUBLE_EQ(metrics.Ascent(twelve), 216);  // 0.9 x 240
}

// --- RecordingSurface

class RecordingSurfaceTest : public SheetTest {};

TEST_F(RecordingSurfaceTest, Writes_every_operation_as_one_line) {
  const auto picture = std::make_shared<const Picture>(Picture{40, 18.5, {}});
  surface.Orientation(PageOrientation::Landscape);
  surface.MarginLeft(Length::OfMm(10));
  surface.MarginTop(Length::OfMm(11));
  surface.MarginRight(Length::OfMm(12.5));
  surface.MarginBottom(Length::OfMm(13));
  surface.MarginFooter(Length::OfMm(-2));
  surface.HdrFontName("Arial");
  surface.HdrFontSize(8);
  surface.HdrFontBold(true);
  surface.Header("A|B|Page %d");
  surface.Footer("E-mail: ||Registered User: ");
  surface.Clear();
  surface.StartDoc();
  surface.FontName("Arial");
  surface.FontSize(7);
  surface.FontBold(false);
  surface.TextColor(Navy);
  surface.CurrentX(Length::OfMm(15));
  surface.CurrentY(567);
  surface.Text("Mark:  ");
  surface.Paragraph("");
  surface.TextAngle(-125);
  surface.TextAlign(6);
  surface.TextBox("75", 100, 200.5, 140, 161, true);
  surface.PenWidth(Length::OfMm(0.1));
  surface.PenStyle(0);
  surface.PenColor(White);
  surface.BrushStyle(Brush::Solid);
  surface.BrushStyle(Brush::Transparent);
  surface.BrushStyle(Brush::DiagonalHatch);
  surface.BrushColor(Grey);
  surface.DrawLine(Length::OfMm(1), Length::OfMm(2), 3, 4);
  surface.DrawRectangle(1, 2, 3, 4);
  surface.DrawCircle(Length::OfMm(1), Length::OfMm(2), Length::OfMm(0.9));
  surface.DrawArc(Length::OfMm(1), Length::OfMm(2), Length::OfMm(4), 0, 0.5);
  surface.DrawEllipse(Length::OfMm(1), Length::OfMm(2), Length::OfMm(3), Length::OfMm(4));
  surface.Polygon("1 2 3 4 5 6 1 2");
  surface.DrawPicture(picture, Length::OfMm(20), Length::OfMm(160));
  surface.DrawPicture(picture, Length::OfMm(160), Length::OfMm(125), Length::OfMm(75),
                      Length::OfMm(41.25));
  surface.StartTable();
  surface.TableCell(TableSetting::Columns, 0, 0, 3);
  surface.TableCell(TableSetting::RowHeight, 0, 0, "4.8mm");
  surface.TableCell(TableSetting::CellText, 1, 2, "Job No.");
  surface.TableCell(TableSetting::CellTextColor, 6, 2, Grey);
  surface.TableBorder(AllTableLines);
  surface.TableIndent(Length::OfMm(33.3));
  surface.TableOnOnePage();
  surface.TableAlignment(0, 1, CellAlignment::Left);
  surface.TableAlignment(0, 2, CellAlignment::Centre);
  surface.TableAlignment(0, 3, CellAlignment::Right);
  surface.TableMerge(1, 2, 4);
  surface.EndTable();
  surface.NewPage();
  surface.EndDoc();
  surface.Finish();

  const std::vector<std::string> expected = {
      "Orientation 1",
      "MarginLeft 10mm",
      "MarginTop 11mm",
      "MarginRight 12.5mm",
      "MarginBottom 13mm",
      "MarginFooter -2mm",
      "HdrFontName \"Arial\"",
      "HdrFontSize 8",
      "HdrFontBold true",
      "Header \"A|B|Page %d\"",
      "Footer \"E-mail: ||Registered User: \"",
      "Clear",
      "StartDoc",
      "FontName \"Arial\"",
      "FontSize 7",
      "FontBold false",
      "TextColor 0,0,128",
      "CurrentX 15mm",
      "CurrentY 567",
      "Text \"Mark:  \"",
      "Paragraph \"\"",
      "TextAngle -125",
      "TextAlign 6",
      "TextBox \"75\" 100 200.5 140 161 true",
      "PenWidth 0.1mm",
      "PenStyle 0",
      "PenColor 255,255,255",
      "BrushStyle 0",
      "BrushStyle 1",
      "BrushStyle 7",
      "BrushColor 128,128,128",
      "DrawLine 1mm 2mm 3 4",
      "DrawRectangle 1 2 3 4",
      "DrawCircle 1mm 2mm 0.9mm",
      "DrawArc 1mm 2mm 4mm 0 0.5",
      "DrawEllipse 1mm 2mm 3mm 4mm",
      "Polygon \"1 2 3 4 5 6 1 2\"",
      "DrawPicture picture 40x18.5 20mm 160mm",
      "DrawPicture picture 40x18.5 160mm 125mm 75mm 41.25mm",
      "StartTable",
      "TableCell 2 0 0 3",
      "TableCell 7 0 0 \"4.8mm\"",
      "TableCell 18 1 2 \"Job No.\"",
      "TableCell 21 6 2 128,128,128",
      "TableBorder 7",
      "TableIndent 33.3mm",
      "TableOnOnePage",
      "TableAlignment 0 1 left 6",
      "TableAlignment 0 2 centre 6",
      "TableAlignment 0 3 right 8",
      "TableMerge 1 2 4",
      "EndTable",
      "NewPage",
      "EndDoc",
      "Finish",
  };
  EXPECT_EQ(surface.Lines(), expected);
  surface.Forget();
  EXPECT_TRUE(surface.Lines().empty());
}

TEST_F(RecordingSurfaceTest, Measures_in_its_present_font_and_records_no_measuring) {
  surface.FontSize(7);
  EXPECT_EQ(surface.TextWidth("1200"), 280);
  EXPECT_EQ(surface.TextHeight("1200"), 161);
  surface.FontSize(7.25);
  EXPECT_EQ(surface.TextWidth("1"), 72);     // 72.5, to the even twip
  EXPECT_EQ(surface.TextWidth("123"), 218);  // 217.5
  EXPECT_EQ(surface.TextHeight(""), 167);    // 1.15 x 145 = 166.75
  EXPECT_EQ(surface.Lines(), (std::vector<std::string>{"FontSize 7", "FontSize 7.25"}));
}

TEST_F(RecordingSurfaceTest, Is_A4_landscape_and_turns_with_the_orientation) {
  EXPECT_EQ(surface.PageWidth(), 16840);
  EXPECT_EQ(surface.PageHeight(), 11907);
  surface.Orientation(PageOrientation::Portrait);
  EXPECT_EQ(surface.PageWidth(), 11907);
  EXPECT_EQ(surface.PageHeight(), 16840);
  surface.Orientation(PageOrientation::Portrait);
  EXPECT_EQ(surface.PageHeight(), 16840);
  surface.Orientation(PageOrientation::Landscape);
  EXPECT_EQ(surface.PageWidth(), 16840);

  RecordingSurface other(metrics, 23814, 16840);
  EXPECT_EQ(other.PageWidth(), 23814);
  EXPECT_EQ(other.PageHeight(), 16840);
}

TEST_F(RecordingSurfaceTest, Records_the_absence_of_a_picture) {
  surface.DrawPicture(nullptr, 1, 2);
  EXPECT_EQ(surface.Lines(), (std::vector<std::string>{"DrawPicture picture none 1 2"}));
}

}  // namespace
