#include "drawing/sheet_frame.h"

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "drawing/page_surface.h"
#include "tests/drawing/sheet_fixture.h"

namespace orvane::test {

namespace {

using Lines = std::vector<std::string>;

class SheetFrame : public SheetTest {
 protected:
  SheetFrame() { SetLogo(60, 18); }

  // The footer that the frame sets.
  std::string Footer() {
    surface.Forget();
    SetSheetFooter(surface, CompanyName, CompanyDetails);
    return LinesOf("Footer").at(0);
  }

  // The frame of that kind, afresh.
  Lines Frame(const std::string& kind) {
    surface.Forget();
    DrawSheetFrame(surface, PresentSource(), kind);
    return surface.Lines();
  }
};

// The strip of a Z sheet of the job below, the logo 18 mm high: its top is at
// 210 - 18 - 10 - 12 = 170 mm, its foot at 188 mm.
const Lines ZFrame = {
    "HdrFontSize 7",
    "Footer \"E-mail: sales@lintaro.example||Registered User: Acme Steel Leeds, UK\"",
    "TextAlign 6",
    "DrawPicture picture 60x18 20mm 170mm",
    "TextColor 0,0,128",
    "FontSize 14",
    "FontBold true",
    "CurrentX 16mm",
    "CurrentY 188.5mm",
    "Text \"Detail System\"",
    "FontSize 9",
    "FontBold false",
    "CurrentX 11mm",
    "CurrentY 195mm",
    "Text \"(c) Lintaro. All rights reserved.\"",
    "FontSize 14",
    "CurrentX 70mm",
    "CurrentY 193mm",
    "Text \"Z Purlin/Rail\"",
    "TextColor 0,0,0",
    "CurrentY 170mm",
    "StartTable",
    "TableCell 2 0 0 3",
    "TableCell 1 0 0 6",
    "TableCell 7 0 0 \"4.8mm\"",
    "TableCell 13 0 1 \"150mm\"",
    "TableCell 13 0 2 \"32mm\"",
    "TableCell 13 0 3 \"100mm\"",
    "TableCell 21 6 2 128,128,128",
    "TableCell 21 6 3 128,128,128",
    "TableCell 24 0 0 11",
    "TableCell 18 1 2 \"Job No.\"",
    "TableCell 18 1 3 \"J-77\"",
    "TableCell 18 2 2 \"Customer\"",
    "TableCell 18 2 3 \"Barns & Co\"",
    "TableCell 18 3 2 \"Project/Site\"",
    "TableCell 18 3 3 \"Hill Farm\"",
    "TableCell 18 4 2 \"Designer\"",
    "TableCell 18 4 3 \"M. Lee\"",
    "TableCell 18 5 2 \"Project Date\"",
    "TableCell 18 5 3 \"05/03/2024\"",
    "TableCell 18 6 2 \"Orvane Job No.\"",
    "TableCell 18 6 3 \"OV-1\"",
    "TableBorder 0",
    "EndTable",
};

void FillJob() {
  txtProject = {"OV-1", "J-77", "Barns & Co", "Hill Farm", "M. Lee"};
  DTPicker1 = {2024, 3, 5};
  CompanyName = "Acme Steel";
  CompanyDetails = "Leeds, UK";
}

TEST_F(SheetFrame, The_strip_has_footer_logo_headings_title_and_job_table) {
  FillJob();
  EXPECT_EQ(Frame("Z"), ZFrame);
}

TEST_F(SheetFrame, Each_section_letter_has_its_title) {
  struct Case {
    const char* Kind;
    const char* Title;
  };
  for (const Case& each :
       {Case{"Z", "Z Purlin/Rail"}, Case{"E", "Eaves Beam"}, Case{"C", "Mezzanine/C-Channel"},
        Case{"V", "VCR"}, Case{"R", "Cleader Rail"}, Case{"T", "Top Hat Section"}}) {
    Frame(each.Kind);
    EXPECT_EQ(LinesOf("Text").at(2), "Text \"" + std::string(each.Title) + "\"");
  }
}

TEST_F(SheetFrame, An_accessory_sheet_shows_the_accessorys_name_in_the_place_of_a_sections_title) {
  FillJob();
  AccDefs.Append({}).Name = "Anti-sag rod";
  AccDefs.Append({}).Name = "Sleeve";
  Lines expected = ZFrame;
  expected.at(18) = "Text \"Sleeve\"";
  DrawSheetFrame(surface, PresentSource(), AccDefs.At(2));
  EXPECT_EQ(surface.Lines(), expected);
}

TEST_F(SheetFrame, Another_kind_draws_the_frame_without_a_title) {
  FillJob();
  Lines expected = ZFrame;
  expected.erase(expected.begin() + 16, expected.begin() + 19);
  for (const char* kind : {"Q", "", "z", "A", "M", "a"}) EXPECT_EQ(Frame(kind), expected) << kind;
}

TEST_F(SheetFrame, Without_a_company_name_the_footer_holds_only_the_contact_line) {
  CompanyDetails = "Leeds";
  for (const char* name : {"", "   "}) {
    CompanyName = name;
    EXPECT_EQ(Footer(), "Footer \"E-mail: sales@lintaro.example\"");
  }
}

TEST_F(SheetFrame, The_footer_names_the_company_as_it_stands) {
  CompanyName = " Acme ";
  CompanyDetails = "";
  EXPECT_EQ(Footer(), "Footer \"E-mail: sales@lintaro.example||Registered User:  Acme  \"");
  CompanyName = "A|B";
  CompanyDetails = "%d";
  EXPECT_EQ(Footer(), "Footer \"E-mail: sales@lintaro.example||Registered User: A|B %d\"");
}

TEST_F(SheetFrame, The_footer_is_7_points_high) {
  SetSheetFooter(surface, CompanyName, CompanyDetails);
  EXPECT_EQ(surface.Lines().at(0), "HdrFontSize 7");
}

TEST_F(SheetFrame, A_new_job_prints_its_labels_with_empty_cells) {
  DTPicker1 = {2024, 12, 31};
  Frame("C");
  EXPECT_EQ(LinesOf("TableCell 18"), (Lines{
                                         "TableCell 18 1 2 \"Job No.\"",
                                         "TableCell 18 1 3 \"\"",
                                         "TableCell 18 2 2 \"Customer\"",
                                         "TableCell 18 2 3 \"\"",
                                         "TableCell 18 3 2 \"Project/Site\"",
                                         "TableCell 18 3 3 \"\"",
                                         "TableCell 18 4 2 \"Designer\"",
                                         "TableCell 18 4 3 \"\"",
                                         "TableCell 18 5 2 \"Project Date\"",
                                         "TableCell 18 5 3 \"31/12/2024\"",
                                         "TableCell 18 6 2 \"Orvane Job No.\"",
                                         "TableCell 18 6 3 \"\"",
                                     }));
}

TEST_F(SheetFrame, The_fields_are_read_afresh_for_each_sheet) {
  txtProject.at(2) = "One";
  Frame("Z");
  EXPECT_EQ(LinesOf("TableCell 18 2 3").at(0), "TableCell 18 2 3 \"One\"");
  txtProject.at(2) = "Two";
  Frame("Z");
  EXPECT_EQ(LinesOf("TableCell 18 2 3").at(0), "TableCell 18 2 3 \"Two\"");
}

TEST_F(SheetFrame, The_strip_follows_the_logos_height_and_the_margins) {
  SetLogo(80, 25.5);
  LeftMargin = 15;
  BottomMargin = 30;
  Frame("T");  // top at 210 - 25.5 - 30 - 12 = 142.5, foot at 168
  EXPECT_EQ(LinesOf("DrawPicture"), Lines{"DrawPicture picture 80x25.5 25mm 142.5mm"});
  EXPECT_EQ(LinesOf("CurrentX"), (Lines{"CurrentX 21mm", "CurrentX 16mm", "CurrentX 75mm"}));
  EXPECT_EQ(LinesOf("CurrentY"),
            (Lines{"CurrentY 168.5mm", "CurrentY 175mm", "CurrentY 173mm", "CurrentY 142.5mm"}));
}

TEST_F(SheetFrame, The_page_margins_are_those_of_the_settings) {
  ApplyPageMargins(surface);
  EXPECT_EQ(surface.Lines(), (Lines{"MarginLeft 10mm", "MarginRight 10mm", "MarginTop 10mm",
                                    "MarginBottom 10mm", "MarginFooter 5mm"}));
  surface.Forget();
  LeftMargin = 1;
  RightMargin = 2;
  TopMargin = 3;
  BottomMargin = 4;
  ApplyPageMargins(surface);
  EXPECT_EQ(surface.Lines(), (Lines{"MarginLeft 1mm", "MarginRight 2mm", "MarginTop 3mm",
                                    "MarginBottom 4mm", "MarginFooter -1mm"}));
}

TEST_F(SheetFrame, The_strip_never_makes_a_second_page) {
  FillJob();
  for (const int margin : {10, 0, 30}) {
    BottomMargin = Int16(margin);
    PageSurface paper(metrics);
    paper.Orientation(PageOrientation::Landscape);
    ApplyPageMargins(paper);
    paper.StartDoc();
    DrawSheetFrame(paper, PresentSource(), "Z");
    paper.EndDoc();
    EXPECT_EQ(paper.Result().Pages.size(), 1U) << margin;
  }
}

TEST_F(SheetFrame, An_error_of_the_surface_leaves_the_frame) {
  class FailingSurface : public RecordingSurface {
   public:
    using RecordingSurface::RecordingSurface;
    void EndTable() override { throw RuntimeError(Failure::DiskFull); }
  };
  FailingSurface failing(metrics);
  EXPECT_EQ(ErrorOf([&] { DrawSheetFrame(failing, PresentSource(), "Z"); }),
            DescriptionOf(Failure::DiskFull));
  EXPECT_TRUE(desktop.Boxes.empty());
}

}  // namespace

}  // namespace orvane::test
