// The holes that an export makes afresh before it writes them.
#include "holes/hole_list.h"
#include "project/sections.h"
#include "tests/output/export_fixture.h"

namespace orvane {

namespace {

using namespace test;

// Two patterns whose holes are easily worked out.
class RebuildTest : public ExportRunTest {
 protected:
  RebuildTest() {
    AddPattern("Z", "Ends", "A0 F3 A6");
    AddPattern("C", "Quarter", "D1");
    MinHoleSep = 4;
  }

  static void AddPattern(const std::string& letter, const std::string& name,
                         const std::string& codes) {
    PunchPattern pattern;
    pattern.SectionType = letter;
    pattern.Name = name;
    pattern.Codes = codes;
    PunchPatterns.Append(pattern);
  }

  static Hole PatternHole(std::int16_t x) {
    Hole hole = MakeHole(x, 18, 0, " ");
    hole.Kind = "S";
    return hole;
  }
};

TEST_F(RebuildTest, Stale_pattern_holes_are_made_afresh_and_stay_in_the_model) {
  Item item = MakeItem("Z", "P1", 6000);
  item.PatternName = "Ends";
  AddHoles(item, {PatternHole(11), PatternHole(22)});
  Items.Append(item);
  ProjectDirty = False;
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  // A0: 32 and 75 + 32. F3: 3000. A6: 6000 - 32 - 75 and 6000 - 32. A purlin counts from the end.
  EXPECT_EQ(BytesOf(TempPath("a.xov")),
            CamHeader + Lines({"PURLIN", "P1", "X20018", "1", "6000", "5",
                               HoleLine("5968      n y y n 18"), HoleLine("5893      n y y n 18"),
                               HoleLine("3000      y y y n 18"), HoleLine("107       n y y n 18"),
                               HoleLine("32        n y y n 18"), "0.0 0.0", "0", ""}));
  ASSERT_EQ(Items.At(1).HoleCount(), 5);
  EXPECT_EQ(Items.At(1).Holes.At(2).XPos, 107);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(RebuildTest, The_project_is_not_marked_as_changed_nor_as_saved) {
  Item item = MakeItem("Z", "P1", 6000);
  item.PatternName = "Ends";
  Items.Append(item);
  for (const Boolean dirty : {True, False}) {
    ProjectDirty = dirty;
    Export(TempPath("a.xov"));
    EXPECT_EQ(ProjectDirty, dirty);
  }
}

TEST_F(RebuildTest, Custom_holes_beside_a_pattern_are_kept_in_their_place) {
  Item item = MakeItem("Z", "P1", 6000);
  item.PatternName = "Ends";
  AddHoles(item, {PatternHole(11), MakeHole(50, 14)});
  Items.Append(item);
  Export(TempPath("a.xov"));
  EXPECT_EQ(BytesOf(TempPath("a.xov")),
            CamHeader +
                Lines({"PURLIN", "P1", "X20018", "1", "6000", "6", HoleLine("5968      n y y n 18"),
                       HoleLine("5950      n y y n 14"), HoleLine("5893      n y y n 18"),
                       HoleLine("3000      y y y n 18"), HoleLine("107       n y y n 18"),
                       HoleLine("32        n y y n 18"), "0.0 0.0", "0", ""}));
}

TEST_F(RebuildTest, A_section_of_the_pattern_Custom_keeps_its_holes_as_they_stand) {
  Item item = MakeItem("C", "C1", 6000);
  AddHoles(item, {MakeHole(500, 18), PatternHole(100)});
  Items.Append(item);
  DrawingWidth = 180;
  Export(TempPath("a.xov"));
  EXPECT_EQ(BytesOf(TempPath("a.xov")),
            CamHeader + Lines({"C-SECTION", "C1", "X20018", "1", "6000", "2",
                               HoleLine("500       n y y n 18"), HoleLine("100       n y y n 18"),
                               "0.0 0.0", "0", ""}));
  EXPECT_EQ(Items.At(1).Holes.At(2).RelX, 0);
}

TEST_F(RebuildTest, A_section_without_a_pattern_loses_its_stale_pattern_holes) {
  Item item = MakeItem("C", "C1", 6000);
  item.PatternName = "";
  AddHoles(item, {PatternHole(100), MakeHole(500, 18)});
  Items.Append(item);
  Export(TempPath("a.xov"));
  EXPECT_EQ(BytesOf(TempPath("a.xov")),
            CamHeader + Lines({"C-SECTION", "C1", "X20018", "1", "6000", "1",
                               HoleLine("500       n y y n 18"), "0.0 0.0", "0", ""}));
}

TEST_F(RebuildTest, A_section_of_opposite_hand_gets_the_patterns_holes_not_the_mirrored_ones) {
  Item item = MakeItem("C", "C1", 6000);
  item.PatternName = "Quarter";
  item.SagBarDia = 14;
  Items.Append(item);
  RebuildHoles(1, "Quarter");
  ASSERT_EQ(CreateOppHandRow(1), 2);
  ASSERT_EQ(Items.At(2).Holes.At(1).XPos, 4500);  // as its sheet shows it until then
  Export(TempPath("a.xov"));
  const auto block = [](const char* mark) {
    return Lines({"C-SECTION", mark, "X20018", "1", "6000", "1", HoleLine("1500      n y y n 14"),
                  "0.0 0.0", "0", ""});
  };
  EXPECT_EQ(BytesOf(TempPath("a.xov")), CamHeader + block("C1") + block("C1X"));
  EXPECT_EQ(Items.At(2).Holes.At(1).XPos, 1500);
}

TEST_F(RebuildTest, Before_anything_was_drawn_the_export_needs_no_gaps) {
  Item item = MakeItem("Z", "P1", 6000);
  item.PatternName = "Ends";
  Items.Append(item);
  DrawingWidth = 0;
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  EXPECT_EQ(Items.At(1).HoleCount(), 5);
  for (const Hole& hole : Items.At(1).Holes) EXPECT_EQ(hole.RelX, 0);
}

TEST_F(RebuildTest, Gaps_that_cant_be_adjusted_end_the_export_before_any_file_is_made) {
  // Two holes at one place in the middle of a short section: both short gaps are to be widened,
  // and only the gap of 0 between them could pay for it.
  AddPattern("Z", "Pair", "B0 B0");
  Item item = MakeItem("Z", "P1", 64);
  item.PatternName = "Pair";
  Items.Append(item);
  AddListedAccessory();
  DrawingWidth = 180;
  const std::string path = TempFile("a.xov", "the old file");
  EXPECT_EQ(Export(path), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: P1: Division by zero"}));
  EXPECT_EQ(BytesOf(path), "the old file");
  EXPECT_EQ(Files(), TextList{"a.xov"});
  EXPECT_NE(CamDirectorySetting(), "not stored");
}

TEST_F(RebuildTest, A_hole_beyond_16_bits_ends_the_export_before_any_file_is_made) {
  SectionDims.At(1).Dim13 = 40000;
  Item item = MakeItem("Z", "P1", 6000);
  item.PatternName = "Ends";
  Items.Append(item);
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: P1: Overflow"}));
  EXPECT_EQ(Files(), TextList{});
}

TEST_F(RebuildTest, Cancelling_the_dialog_changes_nothing) {
  Item item = MakeItem("Z", "P1", 6000);
  item.PatternName = "Ends";
  AddHoles(item, {PatternHole(11)});
  Items.Append(item);
  AddListedAccessory();
  EXPECT_EQ(Export(std::nullopt), ExportOutcome::Cancelled);
  EXPECT_EQ(trace, TextList{"open dialog"});
  EXPECT_EQ(CamDirectorySetting(), "not stored");
  EXPECT_EQ(Items.At(1).Holes.At(1).XPos, 11);
  EXPECT_EQ(Files(), TextList{});
}

TEST_F(RebuildTest, An_empty_name_ends_the_export_after_its_folder_was_stored) {
  Item item = MakeItem("Z", "P1", 6000);
  item.PatternName = "Ends";
  AddHoles(item, {PatternHole(11)});
  Items.Append(item);
  AddListedAccessory();
  EXPECT_EQ(Export(""), ExportOutcome::Cancelled);
  EXPECT_EQ(trace, TextList{"open dialog"});
  EXPECT_EQ(CamDirectorySetting(), "");
  EXPECT_EQ(Items.At(1).Holes.At(1).XPos, 11);
}

}  // namespace

}  // namespace orvane
