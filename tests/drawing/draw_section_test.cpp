#include "drawing/draw_section.h"

#include <algorithm>

#include "core/files.h"
#include "core/numbers.h"
#include "core/program_folder.h"
#include "drawing/hole_drawing.h"
#include "drawing/notches_and_mitres.h"
#include "drawing/section_views.h"
#include "drawing/sheet.h"
#include "drawing/sheet_frame.h"
#include "holes/hole_list.h"
#include "tests/drawing/section_views_fixture.h"

namespace orvane::test {

namespace {

using Lines = std::vector<std::string>;

class DrawSectionTest : public SheetTest {
 protected:
  DrawSectionTest() {
    SetLogo(60, 18);
    SectionDims.Append(Z20016());
    Item item = SectionOf("P1", "Z", 6000, 2);
    item.Product = "Z20016";
    item.MitreLeft = 10;
    for (const int x : {100, 3000}) {
      Hole& hole = item.Holes.Append({});
      hole.XPos = Int16(x);
      hole.Kind = CustomKind;
      hole.BF = hole.W2 = hole.TF = "n";
      hole.W1 = "y";
      hole.Diameter = 18;
    }
    item.CustomHoleCount = 2;
    Items.Append(item);
    DrawingWidth = 228;
    AdjustHoleSpacing(1);
  }

  Lines Drawn(std::int16_t row, bool openDocument, bool closeDocument) {
    surface.Forget();
    DrawSection(surface, row, openDocument, closeDocument);
    return surface.Lines();
  }

  // What the parts of a sheet record, drawn one by one.
  Lines Frame(const std::string& kind) {
    surface.Forget();
    DrawSheetFrame(surface, PresentSource(), kind);
    return surface.Lines();
  }
  Lines SheetInParts(std::int16_t row) {
    surface.Forget();
    const Item& item = Items.At(row);
    const SectionDim dim = SectionDims.At(1);
    const SheetSource source = PresentSource();
    DrawSheetFrame(surface, source, item.SectionType);
    Sheet sheet = SheetOf(surface, source, item, dim, item.Length);
    DrawSectionViews(sheet);
    DrawHoles(sheet);
    return surface.Lines();
  }
};

Lines Joined(const Lines& first, const Lines& second, const Lines& third) {
  Lines all = first;
  all.insert(all.end(), second.begin(), second.end());
  all.insert(all.end(), third.begin(), third.end());
  return all;
}

const Lines Opening = {
    "Orientation 1",     "HdrFontName \"Arial\"", "HdrFontSize 8",
    "MarginLeft 10mm",   "MarginRight 10mm",      "MarginTop 10mm",
    "MarginBottom 10mm", "MarginFooter 5mm",      "Clear",
    "StartDoc",
};

TEST_F(DrawSectionTest, A_row_below_1_does_nothing_at_all) {
  for (const int row : {0, -1, -32768}) {
    EXPECT_EQ(Drawn(Int16(row), true, true), Lines{}) << row;
  }
  EXPECT_EQ(desktop.EventRuns, 0);
}

TEST_F(DrawSectionTest, A_sheet_is_its_frame_its_views_and_its_holes) {
  const Lines parts = SheetInParts(1);
  EXPECT_EQ(Drawn(1, true, true), Joined(Opening, parts, {"EndDoc"}));
  // The marker of each part, in this order.
  std::size_t from = 0;
  for (const char* marker :
       {"DrawPicture picture 60x18 20mm 170mm", "EndTable", "Text \"Mark:  \"", "Text \"6000\"",
        "Text \"Mitres\"", "Text \"All Holes 18 Dia.\"", "EndDoc"}) {
    const Lines& lines = surface.Lines();
    const auto at = std::find(lines.begin() + static_cast<std::ptrdiff_t>(from), lines.end(),
                              std::string(marker));
    ASSERT_NE(at, lines.end()) << marker;
    from = static_cast<std::size_t>(at - lines.begin());
  }
}

TEST_F(DrawSectionTest, The_open_flag_starts_a_document_and_the_close_flag_ends_it) {
  const Lines parts = SheetInParts(1);
  EXPECT_EQ(Drawn(1, true, false), Joined(Opening, parts, {"NewPage"}));
  EXPECT_EQ(Drawn(1, false, false), Joined({}, parts, {"NewPage"}));
  EXPECT_EQ(Drawn(1, false, true), Joined({}, parts, {"EndDoc"}));
}

TEST_F(DrawSectionTest, A_sheet_lets_no_events_run) {
  Drawn(1, true, false);
  Drawn(1, false, true);
  EXPECT_EQ(desktop.EventRuns, 0);
}

TEST_F(DrawSectionTest, A_section_that_is_no_row_has_the_same_sheet_and_leaves_no_room_behind) {
  const Lines inTable = Drawn(1, true, true);
  const Item section = Items.At(1);
  Items.Clear();
  DrawingWidth = 77;
  surface.Forget();
  DrawSection(surface, PresentSource(), section, true, true);
  EXPECT_EQ(surface.Lines(), inTable);
  EXPECT_EQ(DrawingWidth, 77);
}

TEST_F(DrawSectionTest, An_unknown_product_and_a_section_without_length_have_the_frame_alone) {
  const Lines frame = Frame("Z");
  DrawingWidth = 77;
  Items.At(1).Product = "Z999";
  EXPECT_EQ(Drawn(1, false, true), Joined(frame, {"EndDoc"}, {}));
  Items.At(1).Product = "Z20016";
  Items.At(1).Length = 0;
  EXPECT_EQ(Drawn(1, false, true), Joined(frame, {"EndDoc"}, {}));
  EXPECT_EQ(DrawingWidth, 77);
}

TEST_F(DrawSectionTest, A_row_beyond_the_table_is_out_of_range) {
  EXPECT_EQ(ErrorOf([&] { Drawn(2, true, true); }), "Subscript out of range");
  EXPECT_EQ(surface.Lines(), Opening);
}

TEST_F(DrawSectionTest, The_first_sheet_leaves_the_room_for_the_elevation_behind) {
  DrawingWidth = 0;
  Drawn(1, true, true);
  EXPECT_EQ(DrawingWidth, 228);
}

TEST_F(DrawSectionTest, Each_sheet_of_a_document_sets_all_that_it_needs) {
  const Lines first = Drawn(1, true, false);
  const Lines second = Drawn(1, false, false);
  EXPECT_EQ(Lines(first.begin() + 10, first.end()), second);
}

TEST_F(DrawSectionTest, A_rail_without_its_picture_stops_before_its_mitres_and_holes) {
  ProgramFolder = PathText(NativePath(TempFile("dims.csv", "")).parent_path());
  SectionDims.Append(ProductOf("R", "CLR", {.Dim3 = 120, .Dim5 = 60, .Dim11 = 50}));
  Items.At(1).SectionType = "R";
  Items.At(1).Product = "CLR";
  const std::string error = ErrorOf([&] { Drawn(1, true, true); });
  EXPECT_EQ(error.substr(0, 16), "File not found: ");
  EXPECT_TRUE(LinesOf("Text \"Mitres\"").empty());
  EXPECT_TRUE(LinesOf("EndDoc").empty());
  EXPECT_EQ(desktop.EventRuns, 0);

  // The next good section is drawn from a fresh document on.
  Items.At(1).SectionType = "Z";
  Items.At(1).Product = "Z20016";
  const Lines parts = SheetInParts(1);
  EXPECT_EQ(Drawn(1, true, true), Joined(Opening, parts, {"EndDoc"}));
}

TEST_F(DrawSectionTest, Preparing_a_fresh_start_gives_the_room_before_anything_is_drawn) {
  DrawingWidth = 0;
  EXPECT_TRUE(PrepareDrawingWidth(surface));
  EXPECT_EQ(DrawingWidth, 228);
  EXPECT_EQ(surface.Lines(), Lines{});
  EXPECT_FALSE(PrepareDrawingWidth(surface));
  EXPECT_EQ(DrawingWidth, 228);
}

TEST_F(DrawSectionTest, Preparing_follows_new_margins) {
  EXPECT_FALSE(PrepareDrawingWidth(surface));
  LeftMargin = 20;
  EXPECT_TRUE(PrepareDrawingWidth(surface));
  EXPECT_EQ(DrawingWidth, 218);
}

TEST_F(DrawSectionTest, Preparing_takes_the_longer_side_of_a_page_that_still_stands_upright) {
  RecordingSurface upright(metrics, 11907, 16840);
  DrawingWidth = 0;
  EXPECT_TRUE(PrepareDrawingWidth(upright));
  EXPECT_EQ(DrawingWidth, 228);
  // It is what drawing the sheet there gives.
  DrawSection(upright, 1, true, true);
  EXPECT_EQ(DrawingWidth, 228);
}

TEST_F(DrawSectionTest, Holes_made_after_preparing_have_their_gaps_on_the_very_first_sheet) {
  const Lines drawnLater = Drawn(1, true, true);
  for (Hole& hole : Items.At(1).Holes) hole.RelX = hole.DrawGap = 0;
  Items.At(1).Holes.At(0) = {};
  DrawingWidth = 0;
  PrepareDrawingWidth(surface);
  RebuildHoles(1, "");
  EXPECT_EQ(Items.At(1).Holes.At(2).RelX, 2900);
  EXPECT_EQ(Drawn(1, true, true), drawnLater);
}

}  // namespace

}  // namespace orvane::test
