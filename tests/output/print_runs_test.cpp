// The printing of sheets: one, all, and those of the accessories.
#include <algorithm>

#include "core/program_folder.h"
#include "drawing/accessory_sheet.h"
#include "drawing/draw_section.h"
#include "holes/hole_list.h"
#include "output/reports.h"
#include "project/rules/accessory_rules.h"
#include "project/section_look.h"
#include "tests/output/print_fixture.h"

namespace orvane {

namespace {

using namespace test;

class PrintRunsTest : public PrintTest {
 protected:
  static bool Begins(const TextList& lines, const std::string& operation) {
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
      return line == operation || line.rfind(operation + " ", 0) == 0;
    });
  }

  static std::vector<std::int16_t> HolesOf(int row) {
    std::vector<std::int16_t> places;
    for (const Hole& hole : Items.At(row).Holes) places.push_back(hole.XPos);
    return places;
  }

  // A section whose sheet needs a picture, and a catalogue without pictures.
  void AddRailWithoutPicture() {
    ProgramFolder = TempPath("bare");
    SectionDim dim;
    dim.SectionType = "R";
    dim.Product = "CLR";
    dim.Dim3 = 120;
    dim.Dim5 = 60;
    dim.Dim9 = 50;
    SectionDims.Append(dim);
    Item item = MakeItem("R", "R1", 3000);
    item.Product = "CLR";
    Items.Append(item);
  }

  // The page on which all is laid out, by the preview of the program.
  const std::vector<Page>& Pages(const std::function<void()>& command) {
    InstallOutputScreen(pages);
    command();
    return pages.ShownDocument->Pages;
  }

  PagedScreen pages;
};

}  // namespace

// One sheet.

TEST_F(PrintRunsTest, The_current_drawing_is_a_document_of_one_sheet) {
  AddPurlin("P1", 6000);
  AddCustomPurlin("P2", 4000, {100, 3000});
  PrintCurrentDrawing(2);
  EXPECT_EQ(Drawn(), DrawnBy([](PrintSurface& surface) { DrawSection(surface, 2, true, true); }));
  EXPECT_EQ(screen.Shown, 1);
  EXPECT_EQ(screen.Dropped, 0);
}

TEST_F(PrintRunsTest, Without_a_selected_section_no_drawing_is_printed) {
  AddPurlin("P1", 6000);
  PrintCurrentDrawing(0);
  EXPECT_EQ(Drawn(), TextList{});
  EXPECT_EQ(screen.Shown, 0);
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(PrintRunsTest, Each_document_says_what_it_is_of_the_job) {
  AddPurlin("P1", 6000);
  UseAccessory(2);
  const auto nameOf = [this](const std::function<void()>& command) {
    command();
    return screen.ShownName;
  };
  EXPECT_EQ(nameOf([] { PrintCurrentDrawing(1); }), "sheet of P1");
  EXPECT_EQ(nameOf(PrintAllDrawings), "sheets");
  EXPECT_EQ(nameOf(PrintAllAccessorySheets), "accessory sheets");
  EXPECT_EQ(nameOf([] {
              PrintContractSummary();
              PrintAccessoryReport();
            }),
            "contract summary");
}

TEST_F(PrintRunsTest, The_very_first_drawing_has_its_gaps) {
  AddCustomPurlin("P1", 4000, {100, 3000});
  DrawingWidth = 0;
  PrintCurrentDrawing(1);
  EXPECT_EQ(DrawingWidth, 228);
  EXPECT_EQ(Items.At(1).Holes.At(1).RelX, 100);
  EXPECT_EQ(Items.At(1).Holes.At(2).RelX, 2900);
}

TEST_F(PrintRunsTest, A_drawing_that_fails_is_dropped_and_its_error_goes_to_the_menu) {
  AddRailWithoutPicture();
  EXPECT_EQ(ErrorOf([] { PrintCurrentDrawing(1); }).rfind("R1: File not found", 0), 0U);
  EXPECT_EQ(screen.Shown, 0);
  EXPECT_EQ(screen.Dropped, 1);
}

// All sheets.

TEST_F(PrintRunsTest, All_drawings_open_with_the_first_and_close_with_the_last) {
  AddPurlin("P1", 6000);
  AddPurlin("P2", 5000);
  AddPurlin("P3", 4000);
  PrintAllDrawings();
  const TextList expected = DrawnBy([](PrintSurface& surface) {
    DrawSection(surface, 1, true, false);
    DrawSection(surface, 2, false, false);
    DrawSection(surface, 3, false, true);
  });
  const TextList drawn = Drawn();
  EXPECT_EQ(drawn, expected);
  EXPECT_EQ(CountOf(drawn, "StartDoc"), 1U);
  EXPECT_EQ(CountOf(drawn, "NewPage"), 2U);
  EXPECT_EQ(CountOf(drawn, "EndDoc"), 1U);
  EXPECT_EQ(screen.Shown, 1);
}

TEST_F(PrintRunsTest, Chosen_sections_are_drawn_in_their_order_in_one_document) {
  AddPurlin("P1", 6000);
  AddPurlin("P2", 4000);
  AddPurlin("P3", 5000);
  AddPurlin("P4", 3000);
  PrintDrawings({2, 3, 4});
  const TextList expected = DrawnBy([](PrintSurface& surface) {
    DrawSection(surface, 2, true, false);
    DrawSection(surface, 3, false, false);
    DrawSection(surface, 4, false, true);
  });
  const TextList drawn = Drawn();
  EXPECT_EQ(drawn, expected);
  EXPECT_EQ(CountOf(drawn, "NewPage"), 2U);
  EXPECT_EQ(screen.Shown, 1);
  EXPECT_EQ(Items.At(1).HoleCount(), 0) << "of a section that isn't printed no holes are made";
  EXPECT_EQ(Items.At(2).HoleCount(), 2);
}

TEST_F(PrintRunsTest, A_single_section_closes_a_document_that_was_never_opened) {
  AddPurlin("P1", 6000);
  PrintAllDrawings();
  const TextList drawn = Drawn();
  EXPECT_EQ(drawn, DrawnBy([](PrintSurface& surface) { DrawSection(surface, 1, false, true); }));
  for (const char* operation : {"StartDoc", "Clear", "Orientation", "MarginLeft", "MarginTop",
                                "MarginRight", "MarginBottom", "MarginFooter", "NewPage"}) {
    EXPECT_FALSE(Begins(drawn, operation)) << operation;
  }
  EXPECT_EQ(CountOf(drawn, "EndDoc"), 1U);
  EXPECT_EQ(screen.Shown, 1);
}

TEST_F(PrintRunsTest, A_project_without_sections_prints_no_drawings) {
  PrintAllDrawings();
  EXPECT_EQ(Drawn(), TextList{});
  EXPECT_EQ(screen.Shown, 0);
  EXPECT_EQ(screen.Dropped, 0);
  EXPECT_TRUE(screen.Steps.empty());
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(PrintRunsTest, Each_section_has_one_page_with_frame_and_footer) {
  for (const int count : {1, 2, 5}) {
    Items.Clear();
    for (int row = 1; row <= count; ++row) AddPurlin("P" + std::to_string(row), 6000);
    const std::vector<Page>& shown = Pages(PrintAllDrawings);
    ASSERT_EQ(shown.size(), static_cast<std::size_t>(count));
    for (std::size_t at = 0; at < shown.size(); ++at) {
      EXPECT_EQ(shown[at].Width, 297);
      EXPECT_EQ(shown[at].Height, 210);
      const TextList texts = TextsOn(shown[at]);
      EXPECT_EQ(CountOf(texts, "P" + std::to_string(at + 1)), 1U);
      EXPECT_EQ(CountOf(texts, "Detail System"), 1U);
      EXPECT_EQ(CountOf(texts, "E-mail: sales@lintaro.example"), 1U);
    }
  }
}

TEST_F(PrintRunsTest, The_page_of_a_single_section_is_that_of_its_current_drawing) {
  AddPurlin("P1", 6000);
  const std::vector<Shape> alone = Pages(PrintAllDrawings).front().Shapes;
  EXPECT_EQ(alone, Pages([] { PrintCurrentDrawing(1); }).front().Shapes);
}

TEST_F(PrintRunsTest, Holes_of_a_pattern_are_made_afresh_and_custom_ones_stay_in_their_order) {
  AddPurlin("P1", 6000);
  Hole stale = MakeHole(11, 18);
  stale.Kind = PatternKind;
  AddHoles(Items.At(1), {stale, MakeHole(50, 14)});
  AddCustomPurlin("P2", 4000, {3000, 100});
  DrawingWidth = 228;
  PrintAllDrawings();
  // C3: 35 mm to both sides of the middle.
  EXPECT_EQ(HolesOf(1), (std::vector<std::int16_t>{50, 2965, 3035}));
  EXPECT_EQ(HolesOf(2), (std::vector<std::int16_t>{3000, 100}));
  EXPECT_EQ(Items.At(2).Holes.At(1).RelX, 3000);
}

// A job saved under another least separation: 4 mm of paper are 4 / (228 / 6000) mm of a section of
// 6 m, so that the 30 mm between its holes are drawn as 105.26. Nobody has looked at it since.
TEST_F(PrintRunsTest, Holes_by_hand_are_drawn_by_the_separation_of_today_whatever_their_file_has) {
  AddCustomPurlin("P1", 6000, {3000, 3030});
  AddCustomPurlin("P2", 6000, {3000, 3030});
  for (Item& item : Items) item.Holes.At(2).DrawGap = 30;
  DrawingWidth = 228;
  MinHoleSep = 4;
  const std::vector<Page> run = Pages(PrintAllDrawings);
  for (const Item& item : Items) {
    EXPECT_DOUBLE_EQ(item.Holes.At(2).DrawGap, 4 * 6000 / 228.0);
  }
  ASSERT_EQ(run.size(), 2U);
  EXPECT_EQ(run[1].Shapes, Pages([] { PrintCurrentDrawing(2); }).front().Shapes);
}

// A3 has 351 mm for the elevation: whole(420 * 56.7 / 56.7 - 55 - 10 - 4), so that 4 mm of its
// paper are 68.4 mm of a section of 6 m.
TEST_F(PrintRunsTest, On_other_paper_a_run_is_laid_out_anew_and_the_tables_keep_their_gaps) {
  AddCustomPurlin("P1", 6000, {3000, 3030});
  AddPurlin("P2", 4000);
  pages.OtherPaper = Paper{297, 420};
  for (const auto& command : {std::function<void()>(PrintAllDrawings),
                              std::function<void()>([] { PrintCurrentDrawing(1); })}) {
    const std::vector<Page> shown = Pages(command);
    EXPECT_EQ(shown.front().Width, 297);
    ASSERT_TRUE(pages.OtherDocument);
    ASSERT_EQ(pages.OtherDocument->Pages.size(), shown.size());
    EXPECT_EQ(pages.OtherDocument->Pages.front().Width, 420);
    EXPECT_EQ(pages.OtherDocument->Pages.front().Height, 297);
    EXPECT_EQ(DrawingWidth, 228);
    EXPECT_DOUBLE_EQ(Items.At(1).Holes.At(2).DrawGap, 4 * 6000 / 228.0);
  }
  // The sheets of a job that was opened for that paper.
  const std::vector<Shape> other = pages.OtherDocument->Pages.front().Shapes;
  const PlainFontMetrics metrics;
  PageSurface surface(metrics, {297, 420});
  PreparePreview(surface);
  DrawingWidth = 351;
  AdjustHoleSpacing(1);
  EXPECT_DOUBLE_EQ(Items.At(1).Holes.At(2).DrawGap, 4 * 6000 / 351.0);
  DrawSection(surface, 1, true, true);
  EXPECT_EQ(other, surface.Result().Pages.front().Shapes);
}

TEST_F(PrintRunsTest, The_turned_holes_of_an_opposite_hand_are_turned_back) {
  AddPurlin("P1", 6000);
  PunchPatterns.At(1).Codes = "A0";
  for (const int x : {5893, 5968}) {
    Hole hole = MakeHole(Int16(x), 18);
    hole.Kind = PatternKind;
    AddHoles(Items.At(1), {hole});
  }
  PrintAllDrawings();
  // A0: 32 mm from the left-hand end, and 75 mm further on.
  EXPECT_EQ(HolesOf(1), (std::vector<std::int16_t>{32, 107}));
}

TEST_F(PrintRunsTest, The_very_first_run_works_out_the_gaps_of_all_sections) {
  AddPurlin("P1", 6000);
  AddCustomPurlin("P2", 4000, {100, 3000});
  DrawingWidth = 0;
  PrintAllDrawings();
  EXPECT_EQ(DrawingWidth, 228);
  EXPECT_EQ(Items.At(1).Holes.At(1).RelX, 2965);
  EXPECT_EQ(Items.At(1).Holes.At(2).RelX, 70);
  EXPECT_EQ(Items.At(2).Holes.At(1).RelX, 100);
  EXPECT_EQ(Items.At(2).Holes.At(2).RelX, 2900);
}

TEST_F(PrintRunsTest, Pending_events_run_behind_each_sheet) {
  for (const char* mark : {"P1", "P2", "P3"}) AddPurlin(mark, 6000);
  PrintCurrentDrawing(2);
  EXPECT_EQ(desktop.EventRuns, 1);
  PrintAllDrawings();
  EXPECT_EQ(desktop.EventRuns, 4);
}

TEST_F(PrintRunsTest, The_progress_is_told_with_each_sheet) {
  for (const char* mark : {"P1", "P2", "P3"}) AddPurlin(mark, 6000);
  PrintAllDrawings();
  EXPECT_EQ(screen.Steps, (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}}));
}

TEST_F(PrintRunsTest, A_run_that_is_called_off_shows_nothing_and_leaves_the_tables) {
  AddPurlin("P1", 6000);
  AddHoles(Items.At(1), {MakeHole(50, 14)});
  AddCustomPurlin("P2", 4000, {3000, 100});
  AddPurlin("P3", 5000);
  for (const int step : {1, 2, 3}) {
    screen.Shown = screen.Dropped = 0;
    screen.Steps.clear();
    screen.CalledOffAfter = step;
    DrawingWidth = 100;
    PrintAllDrawings();
    EXPECT_EQ(screen.Shown, 0);
    EXPECT_EQ(screen.Dropped, 1);
    EXPECT_EQ(static_cast<int>(screen.Steps.size()), step);
    EXPECT_EQ(DrawingWidth, 100);
    EXPECT_EQ(HolesOf(1), (std::vector<std::int16_t>{50}));
    EXPECT_EQ(Items.At(1).HoleCount(), 1);
    EXPECT_EQ(HolesOf(2), (std::vector<std::int16_t>{3000, 100}));
    EXPECT_EQ(Items.At(2).Holes.At(1).RelX, 0);
    EXPECT_EQ(HolesOf(3), std::vector<std::int16_t>{});
  }
}

TEST_F(PrintRunsTest, A_run_that_fails_is_dropped_and_its_error_goes_to_the_menu) {
  AddPurlin("P1", 6000);
  AddCustomPurlin("P2", 30, {0});
  AddPurlin("P3", 6000);
  DrawingWidth = 0;
  EXPECT_EQ(ErrorOf(PrintAllDrawings), "P2: Division by zero");
  EXPECT_EQ(screen.Shown, 0);
  EXPECT_EQ(screen.Dropped, 1);
  // Nothing is rolled back.
  EXPECT_EQ(HolesOf(1), (std::vector<std::int16_t>{2965, 3035}));
  EXPECT_EQ(HolesOf(3), std::vector<std::int16_t>{});
  // So that the next run works all gaps out.
  EXPECT_EQ(DrawingWidth, 0);
}

TEST_F(PrintRunsTest, A_missing_picture_of_a_run_is_a_crossed_box_and_is_told_once_for_all_sheets) {
  AddRailWithoutPicture();
  AddPurlin("P2", 6000);
  AddRailWithoutPicture();
  Items.At(3).Mark = "R3";
  const std::vector<Page> run = Pages(PrintAllDrawings);
  ASSERT_EQ(run.size(), 3U);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text,
            "R1, R3: File not found: " + ProgramFolder + "/drawings/drg015.wmf");
  // The run of one sheet stops.
  Items.Resize(1);
  EXPECT_EQ(ErrorOf(PrintAllDrawings).rfind("R1: File not found", 0), 0U);
}

TEST_F(PrintRunsTest, Gaps_that_cant_be_adjusted_stop_a_run_by_the_sections_mark) {
  AddPurlin("P1", 6000);
  // The 30 mm behind its hole are too short for the paper, and the gap of 0 before it can't pay.
  AddCustomPurlin("P2", 30, {0});
  DrawingWidth = 0;
  EXPECT_EQ(ErrorOf(PrintAllDrawings), "P2: Division by zero");
}

TEST_F(PrintRunsTest, What_leaves_the_sheets_going_on_is_told_once_before_the_preview) {
  for (const char* mark : {"P1", "P2", "P3"}) {
    AddPurlin(mark, 6000);
    // A notch without width has two sides without length; that of P2 is in order.
    const float width = std::string(mark) == "P2" ? 50.0F : 0.0F;
    Items.At(Items.UBound()).Notches.Append({"T2", 20, width, 400});
  }
  const std::string first = "P1: Division by zero";
  PrintCurrentDrawing(1);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text, first);
  // What was said of P1 isn't said again.
  PrintAllDrawings();
  ASSERT_EQ(desktop.Boxes.size(), 2U);
  EXPECT_EQ(desktop.Boxes[1].Text, "P3: Division by zero");
  PrintAllDrawings();
  EXPECT_EQ(desktop.Boxes.size(), 2U);
  EXPECT_EQ(screen.Shown, 3);
  ForgetSaid();
  PrintAllDrawings();
  ASSERT_EQ(desktop.Boxes.size(), 3U);
  EXPECT_EQ(desktop.Boxes[2].Text, first + "\rP3: Division by zero");
}

// The accessories' sheets.

TEST_F(PrintRunsTest, Accessory_sheets_come_in_the_order_of_the_catalogue_into_one_document) {
  for (const int row : {12, 2, 6}) UseAccessory(row);
  CurrentAcc = 1;
  PrintAllAccessorySheets();
  EXPECT_EQ(CurrentAcc, 12);
  const TextList expected = DrawnBy([](PrintSurface& surface) {
    DrawAccessorySheet(surface, AccDefs.At(2), AccessoryType::One, AccessoryRows(2), true, false);
    surface.NewPage();
    DrawAccessorySheet(surface, AccDefs.At(6), AccessoryType::Two, AccessoryRows(6), false, false);
    surface.NewPage();
    DrawAccessorySheet(surface, AccDefs.At(12), AccessoryType::Two, AccessoryRows(12), false,
                       false);
    surface.EndDoc();
  });
  const TextList drawn = Drawn();
  EXPECT_EQ(drawn, expected);
  EXPECT_EQ(CountOf(drawn, "StartDoc"), 1U);
  EXPECT_EQ(CountOf(drawn, "NewPage"), 2U);
  EXPECT_EQ(CountOf(drawn, "EndDoc"), 1U);
  EXPECT_EQ(drawn.back(), "EndDoc");
  EXPECT_EQ(CountOf(drawn, "Text \"Accessory 2\""), 1U);
  EXPECT_EQ(CountOf(drawn, "Text \"Accessory 6\""), 1U);
  EXPECT_EQ(CountOf(drawn, "Text \"Accessory 12\""), 1U);
  EXPECT_EQ(screen.Shown, 1);
  EXPECT_EQ(screen.Steps, (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}}));
}

TEST_F(PrintRunsTest, A_type_1_sheet_has_the_numbers_off_of_its_sizes) {
  AccUsed.At(2) = True;
  AccLines1.Append(MakeLine1(2, 3, 12));
  AccLines1.Append(MakeLine1(1, 1, 99));
  AccLines1.Append(MakeLine1(2, 1, 5));
  AccLines1.Append(MakeLine1(2, 2, 0));
  PrintAllAccessorySheets();
  TextList cells;  // of the last table, behind the frame's own
  for (const std::string& line : Drawn()) {
    if (line == "StartTable") cells.clear();
    if (line.rfind("TableCell 18 ", 0) == 0) cells.push_back(line);
  }
  EXPECT_EQ(cells, (TextList{"TableCell 18 1 1 \"Descripton\"", "TableCell 18 1 2 \"Code\"",
                             "TableCell 18 1 3 \"No. Off\"", "TableCell 18 2 1 \"Size One\"",
                             "TableCell 18 2 2 \"SOne\"", "TableCell 18 2 3 \"5\"",
                             "TableCell 18 3 1 \"Size Three\"", "TableCell 18 3 2 \"SThree\"",
                             "TableCell 18 3 3 \"12\""}));
}

TEST_F(PrintRunsTest, A_number_off_of_a_size_that_the_catalogue_lost_stops_the_run_unseen) {
  UseAccessory(2);
  AccLines1.Append(MakeLine1(1, 4, 8));  // of an accessory that isn't in use
  PrintAllAccessorySheets();
  EXPECT_EQ(screen.Shown, 1);
  for (const int size : {4, -1}) {
    AccLines1.Append(MakeLine1(2, size, 8));
    EXPECT_EQ(ErrorOf(PrintAllAccessorySheets), "Accessory 2: Subscript out of range") << size;
    AccLines1.Remove(AccLines1.UBound());
  }
  EXPECT_EQ(screen.Shown, 1);
  EXPECT_EQ(screen.Dropped, 2);
}

TEST_F(PrintRunsTest, Without_accessories_in_use_there_is_nothing_to_print) {
  AccLines1.Append(MakeLine1(1, 2, 7));  // a line without its mark
  CurrentAcc = 3;
  PrintAllAccessorySheets();
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text, "Nothing to print");
  EXPECT_EQ(desktop.Boxes[0].Title, "");
  EXPECT_EQ(desktop.Boxes[0].Choice, Buttons::Ok);
  EXPECT_EQ(Drawn(), TextList{});
  EXPECT_EQ(screen.Shown, 0);
  EXPECT_EQ(CurrentAcc, 3);
}

TEST_F(PrintRunsTest, An_accessory_in_use_without_lines_has_its_sheet) {
  AccUsed.At(1) = True;
  AccUsed.At(6) = True;
  EXPECT_EQ(Pages(PrintAllAccessorySheets).size(), 2U);
}

TEST_F(PrintRunsTest, Accessory_sheets_have_a_page_each_landscape_with_frame_and_footer) {
  for (const int row : {1, 5, 6, 22}) UseAccessory(row);
  const std::vector<Page>& shown = Pages(PrintAllAccessorySheets);
  ASSERT_EQ(shown.size(), 4U);
  const TextList titles = {"Accessory 1", "Accessory 5", "Accessory 6", "Accessory 22"};
  for (std::size_t at = 0; at < shown.size(); ++at) {
    EXPECT_EQ(shown[at].Width, 297);
    const TextList texts = TextsOn(shown[at]);
    EXPECT_EQ(CountOf(texts, titles[at]), 1U);
    EXPECT_EQ(CountOf(texts, "E-mail: sales@lintaro.example"), 1U);
  }
}

TEST_F(PrintRunsTest, On_other_paper_accessory_sheets_are_in_their_middle) {
  for (const int row : {1, 6}) UseAccessory(row);
  pages.OtherPaper = Paper{279.4, 431.8};
  EXPECT_EQ(Pages(PrintAllAccessorySheets).size(), 2U);
  ASSERT_TRUE(pages.OtherDocument);
  ASSERT_EQ(pages.OtherDocument->Pages.size(), 2U);
  EXPECT_EQ(pages.OtherDocument->Pages.front().Width, 431.8);
  EXPECT_EQ(CountOf(TextsOn(pages.OtherDocument->Pages.back()), "Accessory 6"), 1U);
  EXPECT_EQ(CurrentAcc, 6);
}

TEST_F(PrintRunsTest, An_accessory_run_that_is_called_off_shows_nothing_and_changes_nothing) {
  for (const int row : {1, 6, 7}) UseAccessory(row);
  CurrentAcc = 4;
  screen.CalledOffAfter = 2;
  PrintAllAccessorySheets();
  EXPECT_EQ(screen.Shown, 0);
  EXPECT_EQ(screen.Dropped, 1);
  EXPECT_EQ(screen.Steps, (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}}));
  EXPECT_EQ(CurrentAcc, 4);
  EXPECT_EQ(CountOf(Drawn(), "EndDoc"), 0U);
}

TEST_F(PrintRunsTest, A_missing_accessory_picture_is_a_crossed_box_and_the_other_sheets_come) {
  for (const int row : {1, 6}) UseAccessory(row);
  AccDefs.At(6).DrawingFile = "no-such-picture";
  EXPECT_FALSE(PrintAllAccessorySheets());
  EXPECT_EQ(screen.Shown, 1);
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes[0].Text,
            "Accessory 6: File not found: " + ProgramFolder + "/Drawings/no-such-picture.wmf");
}

TEST_F(PrintRunsTest, A_missing_accessory_picture_stops_a_run_of_one_sheet_unseen) {
  UseAccessory(6);
  AccDefs.At(6).DrawingFile = "no-such-picture";
  EXPECT_EQ(ErrorOf(PrintAllAccessorySheets).rfind("Accessory 6: File not found", 0), 0U);
  EXPECT_EQ(screen.Shown, 0);
  EXPECT_EQ(screen.Dropped, 1);
  EXPECT_TRUE(desktop.Boxes.empty());
}

}  // namespace orvane
