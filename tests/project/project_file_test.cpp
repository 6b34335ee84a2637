#include "project/project_file.h"

#include <array>
#include <string>
#include <vector>

#include "tests/project/small_project.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::Joined;
using test::LineOf;
using test::LinesOf;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

void ExpectBlankHole(const Hole& hole) {
  EXPECT_EQ(hole.XPos, 0);
  EXPECT_EQ(hole.Kind + hole.BF + hole.W1 + hole.W2 + hole.TF + hole.CounterSunk, "");
  EXPECT_EQ(hole.Diameter, 0);
  EXPECT_EQ(hole.SlotLength, 0);
  EXPECT_EQ(hole.RelX, 0);
  EXPECT_EQ(hole.DrawGap, 0);
}

// --- Writing

TEST_F(ProjectFileTest, A_small_complete_project_is_written_line_by_line) {
  FillSmallProject();
  EXPECT_EQ(LinesOf(ProjectText()), SmallProjectLines());
}

TEST_F(ProjectFileTest, The_file_holds_the_text_byte_for_byte_in_UTF_8_without_a_mark) {
  FillSmallProject();
  const std::string path = TempPath("job.ovd");
  WriteProjectFile(path);
  EXPECT_EQ(BytesOf(path), Joined(SmallProjectLines()));
  EXPECT_EQ(BytesOf(path).substr(0, 17), "v1.07:OV 1234\r\n\"J");
}

TEST_F(ProjectFileTest, A_project_without_items_has_two_zero_counts_in_a_row) {
  EXPECT_EQ(LinesOf(ProjectText()),
            (std::vector<std::string>{"v1.07:", "\"\"", "\"\"", "\"\"", "\"\"", "30/12/1899", " 0 ",
                                      " 0 ", " 0 ", " 0 ", " 0 ", " 0 ", " 0 "}));
}

TEST_F(ProjectFileTest, An_item_with_3_holes_has_4_hole_blocks_of_44_lines) {
  Item item;
  item.Mark = "M";
  item.Holes.Resize(3);
  item.Holes.At(3).XPos = 77;
  Items.Append(item);
  const std::vector<std::string> lines = LinesOf(ProjectText());
  // Head 7, item 10 to its hole count, 44 for the holes, 1 + 5 to the item's end, 2 counts, 4
  // flags.
  EXPECT_EQ(lines.size(), 7U + 10 + 44 + 6 + 2 + 4);
  EXPECT_EQ(lines.at(16), " 3 ");
  EXPECT_EQ(lines.at(17 + 3 * 11), " 77 ");  // the third hole's block begins
  EXPECT_EQ(lines.at(17 + 44), " 0 ");       // the notch count
}

TEST_F(ProjectFileTest, An_item_without_holes_writes_no_hole_lines_whatever_element_0_holds) {
  Item item;
  item.Holes.At(0).XPos = 6000;
  Items.Append(item);
  EXPECT_EQ(LinesOf(ProjectText()).size(), 7U + 16 + 2 + 4);
  Read(LinesOf(ProjectText()));
  EXPECT_EQ(Items.At(1).Holes.UBound(), 0);
  ExpectBlankHole(Items.At(1).Holes.At(0));
}

TEST_F(ProjectFileTest, Empty_notes_are_two_quotes_and_an_empty_date_text_an_empty_line) {
  Items.Append({});
  const std::string text = ProjectText();
  EXPECT_EQ(LineOf(text, line::Notes), "\"\"");
  EXPECT_EQ(LineOf(text, line::Notes + 1), "");
  Read(LinesOf(text));
  EXPECT_EQ(Items.At(1).Notes, "");
  EXPECT_EQ(Items.At(1).DateText, "");
}

TEST_F(ProjectFileTest, Saving_trims_the_project_details_and_leaves_the_fields) {
  txtProject = {" 123 ", "  a b ", " ", "\tc ", "d  "};
  const std::string text = ProjectText();
  EXPECT_EQ(LineOf(text, 1), "v1.07:123");
  EXPECT_EQ(LineOf(text, 2), "\"a b\"");
  EXPECT_EQ(LineOf(text, 3), "\"\"");
  EXPECT_EQ(LineOf(text, 4), "\"\tc\"");
  EXPECT_EQ(LineOf(text, 5), "\"d\"");
  EXPECT_EQ(txtProject.at(0), " 123 ");
}

TEST_F(ProjectFileTest, Texts_of_an_item_are_written_untrimmed) {
  FillSmallProject();
  Items.At(1).Mark = " Z1 ";
  Items.At(1).Product = "20020 ";
  EXPECT_EQ(LineOf(ProjectText(), line::Mark), "\" Z1 \"");
  EXPECT_EQ(LineOf(ProjectText(), line::Product), "20020 ");
}

TEST_F(ProjectFileTest, Booleans_are_written_as_minus_1_or_0) {
  AccUsed.At(1) = True;
  AccUsed.At(3) = 1;  // a value that a faulty hand put there is true none the less
  const std::vector<std::string> lines = LinesOf(ProjectText());
  EXPECT_EQ(std::vector<std::string>(lines.end() - 4, lines.end()),
            (std::vector<std::string>{"-1 ", " 0 ", "-1 ", " 0 "}));
}

TEST_F(ProjectFileTest, The_number_form_of_each_type) {
  FillSmallProject();
  struct Case {
    double Value;
    std::string As32Bit;
    std::string As64Bit;
  };
  const std::vector<Case> cases = {
      {0, " 0 ", " 0 "},
      {-0.0, " 0 ", " 0 "},
      {5, " 5 ", " 5 "},
      {-1, "-1 ", "-1 "},
      {0.5, " 0.5 ", " 0.5 "},
      {-0.25, "-0.25 ", "-0.25 "},
      {400.0 / 3, " 133.3333 ", " 133.333333333333 "},
      {1e-14, " 1E-14 ", " 1E-14 "},
  };
  for (const Case& each : cases) {
    Items.At(1).MitreLeft = static_cast<float>(each.Value);
    Items.At(1).Holes.At(1).RelX = each.Value;
    EXPECT_EQ(LineOf(ProjectText(), 13), each.As32Bit);
    EXPECT_EQ(LineOf(ProjectText(), 38), each.As64Bit);
  }
  Items.At(1).Length = 32767;
  Items.At(1).Quantity = -32768;
  EXPECT_EQ(LineOf(ProjectText(), line::Length), " 32767 ");
  EXPECT_EQ(LineOf(ProjectText(), line::Length + 1), "-32768 ");
}

TEST_F(ProjectFileTest, A_line_end_inside_a_plain_text_becomes_a_blank) {
  FillSmallProject();
  txtProject.at(0) = "12\r\n3";
  Item& item = Items.At(1);
  item.SectionType = "Z\r";
  item.Product = "200\n20";
  item.DateText = "a\r\n\r\nb";
  item.Holes.At(1).Kind = "\nS";
  item.Holes.At(1).BF = "n\r";
  item.Holes.At(1).W1 = "y\r";
  item.Holes.At(1).W2 = "y\n";
  item.Holes.At(1).TF = "n\n";
  item.Holes.At(1).CounterSunk = "*\n";
  item.Notches.At(1).Code = "TL\n1";
  item.Pitch = "22\r5";
  AccLines2.At(1).Mark = "A\n1";

  std::vector<std::string> expected = SmallProjectLines();
  const auto put = [&](int number, const char* text) { expected = With(expected, number, text); };
  put(line::OrvaneNumber, "v1.07:12  3");
  put(9, "Z ");
  put(10, "200 20");
  put(16, "a    b");
  put(30, " S");
  put(31, "n ");
  put(32, "y ");
  put(33, "y ");
  put(34, "n ");
  put(37, "* ");
  put(52, "TL 1");
  put(58, "22 5");
  put(84, "A 1");
  EXPECT_EQ(LinesOf(ProjectText()), expected);
}

TEST_F(ProjectFileTest, Quoted_texts_keep_commas_and_line_ends_through_the_file) {
  FillSmallProject();
  txtProject.at(1) = "J-1,\nJ-2";
  Items.At(1).Mark = "Z1\r\nZ2";
  Items.At(1).Notes = "first,\r\nsecond\n\rthird\n";
  Items.At(1).PatternName = ",\n,";
  AccLines2.At(1).Values.At(2) = "\r";
  Read({ProjectText().substr(0, ProjectText().size() - 2)});
  EXPECT_EQ(txtProject.at(1), "J-1,\nJ-2");
  EXPECT_EQ(Items.At(1).Mark, "Z1\r\nZ2");
  EXPECT_EQ(Items.At(1).Notes, "first,\r\nsecond\n\rthird\n");
  EXPECT_EQ(Items.At(1).PatternName, ",\n,");
  EXPECT_EQ(AccLines2.At(1).Values.At(2), "\r");
  ExpectFlags({-1, 0, -1, -1});
}

TEST_F(ProjectFileTest, A_note_of_5000_characters_comes_back_whole) {
  FillSmallProject();
  std::string note;
  for (int i = 0; i < 5000; ++i) note += "é";
  Items.At(1).Notes = note;
  const std::string path = TempPath("job.ovd");
  WriteProjectFile(path);
  FillEarlierProject();
  ReadProjectFile(path);
  EXPECT_EQ(Items.At(1).Notes, note);
}

// --- Reading

TEST_F(ProjectFileTest, A_small_complete_project_is_read_field_by_field) {
  FillEarlierProject();
  Read(SmallProjectLines());

  EXPECT_EQ(txtProject, (std::array<std::string, 5>{"OV 1234", "J-77, phase 2", "Ångström & Søn",
                                                    "Halle 3 – Süd €", "K. Müller"}));
  EXPECT_EQ(DTPicker1, (Date{2024, 3, 5}));
  ASSERT_EQ(Items.UBound(), 2);

  const Item& purlin = Items.At(1);
  EXPECT_EQ(purlin.Mark, "Z1");
  EXPECT_EQ(purlin.SectionType, "Z");
  EXPECT_EQ(purlin.Product, "20020");
  EXPECT_EQ(purlin.Length, 6000);
  EXPECT_EQ(purlin.Quantity, 12);
  EXPECT_EQ(purlin.MitreLeft, 22.5F);
  EXPECT_EQ(purlin.MitreRight, -0.1F);
  EXPECT_EQ(purlin.Notes, "sleeved, both ends");
  EXPECT_EQ(purlin.DateText, "12.03.2024");
  EXPECT_EQ(purlin.HoleCount(), 2);
  ASSERT_EQ(purlin.Holes.UBound(), 2);

  const Hole& sentinel = purlin.Holes.At(0);
  EXPECT_EQ(sentinel.XPos, 6000);
  EXPECT_EQ(sentinel.Kind, "");
  EXPECT_EQ(sentinel.RelX, 300);
  EXPECT_EQ(sentinel.DrawGap, 412.5);

  const Hole& standard = purlin.Holes.At(1);
  EXPECT_EQ(standard.XPos, 35);
  EXPECT_EQ(standard.Kind, "S");
  EXPECT_EQ(standard.BF, "n");
  EXPECT_EQ(standard.W1, "y");
  EXPECT_EQ(standard.W2, "y");
  EXPECT_EQ(standard.TF, "n");
  EXPECT_EQ(standard.Diameter, 14);
  EXPECT_EQ(standard.SlotLength, 0);
  EXPECT_EQ(standard.CounterSunk, "");  // a line of one blank is read as empty
  EXPECT_EQ(standard.RelX, 35);
  EXPECT_EQ(standard.DrawGap, 1e-14);

  const Hole& slot = purlin.Holes.At(2);
  EXPECT_EQ(slot.XPos, 5700);
  EXPECT_EQ(slot.Kind, "C");
  EXPECT_EQ(slot.BF, "42.5");
  EXPECT_EQ(slot.W1, "n");
  EXPECT_EQ(slot.W2, "n");
  EXPECT_EQ(slot.TF, "y");
  EXPECT_EQ(slot.Diameter, 17.6F);
  EXPECT_EQ(slot.SlotLength, 30);
  EXPECT_EQ(slot.CounterSunk, "*");
  EXPECT_EQ(slot.RelX, 5665);
  EXPECT_EQ(slot.DrawGap, 133.333333333333);

  EXPECT_EQ(purlin.NotchCount(), 1);
  ASSERT_EQ(purlin.Notches.UBound(), 1);
  EXPECT_EQ(purlin.Notches.At(1).Code, "TL1");
  EXPECT_EQ(purlin.Notches.At(1).Size1, 50);
  EXPECT_EQ(purlin.Notches.At(1).Size2, 120.5F);
  EXPECT_EQ(purlin.Notches.At(1).Size3, -3);
  EXPECT_EQ(purlin.PatternName, "Slvd, 2 rows");
  EXPECT_EQ(purlin.CustomHoleCount, 1);
  EXPECT_EQ(purlin.Pitch, "22.5");
  EXPECT_EQ(purlin.JointingPieces, 0);
  EXPECT_EQ(purlin.SagBarDia, 14);

  const Item& rail = Items.At(2);
  EXPECT_EQ(rail.Mark, "R é");
  EXPECT_EQ(rail.SectionType, "R");
  EXPECT_EQ(rail.Product, "CLR");
  EXPECT_EQ(rail.Length, 3050);
  EXPECT_EQ(rail.Quantity, -1);
  EXPECT_EQ(rail.MitreLeft, 0);
  EXPECT_EQ(rail.MitreRight, 0);
  EXPECT_EQ(rail.Notes, "");
  EXPECT_EQ(rail.DateText, "");
  EXPECT_EQ(rail.HoleCount(), 0);
  EXPECT_EQ(rail.Holes.UBound(), 0);
  EXPECT_EQ(rail.NotchCount(), 0);
  EXPECT_EQ(rail.Notches.UBound(), 0);
  EXPECT_EQ(rail.PatternName, "");
  EXPECT_EQ(rail.CustomHoleCount, 0);
  EXPECT_EQ(rail.Pitch, "");
  EXPECT_EQ(rail.JointingPieces, 4);
  EXPECT_EQ(rail.SagBarDia, 0);

  ASSERT_EQ(AccLines1.UBound(), 1);
  EXPECT_EQ(AccLines1.At(1).AccIndex, 1);
  EXPECT_EQ(AccLines1.At(1).ParamIndex, 2);
  EXPECT_EQ(AccLines1.At(1).Qty, 10);
  EXPECT_EQ(AccLines1.At(1).Param, -5);

  ASSERT_EQ(AccLines2.UBound(), 2);
  EXPECT_EQ(AccLines2.At(1).AccIndex, 3);
  EXPECT_EQ(AccLines2.At(1).Mark, "A1");
  EXPECT_EQ(AccLines2.At(1).NoOff, 4);
  EXPECT_EQ(AccLines2.At(1).ValueCount(), 2);
  ASSERT_EQ(AccLines2.At(1).Values.UBound(), 2);
  EXPECT_EQ(AccLines2.At(1).Values.At(1), "6000");
  EXPECT_EQ(AccLines2.At(1).Values.At(2), "ø 16, long");
  EXPECT_EQ(AccLines2.At(2).AccIndex, 4);
  EXPECT_EQ(AccLines2.At(2).Mark, "B2");
  EXPECT_EQ(AccLines2.At(2).NoOff, 7);
  EXPECT_EQ(AccLines2.At(2).ValueCount(), 0);
  EXPECT_EQ(AccLines2.At(2).Values.UBound(), 0);

  ExpectFlags({-1, 0, -1, -1});
}

TEST_F(ProjectFileTest, Element_0_of_every_table_is_blank_after_reading_over_anything) {
  Items.At(0).Mark = "stray";
  AccLines1.At(0).Qty = 5;
  AccLines2.At(0).Mark = "stray";
  Read(SmallProjectLines());
  EXPECT_EQ(Items.At(0).Mark, "");
  EXPECT_EQ(AccLines1.At(0).Qty, 0);
  EXPECT_EQ(AccLines2.At(0).Mark, "");
  EXPECT_EQ(AccLines2.At(1).Values.At(0), "");
  EXPECT_EQ(Items.At(1).Notches.At(0).Code, "");
}

TEST_F(ProjectFileTest, Save_open_save_gives_up_the_one_blank_countersinks_and_nothing_else) {
  FillSmallProject();
  const std::string path = TempPath("job.ovd");
  WriteProjectFile(path);
  FillEarlierProject();
  ReadProjectFile(path);
  const std::string second = ProjectText();
  EXPECT_EQ(LinesOf(second), With(SmallProjectLines(), line::FirstHoleCounterSunk, ""));

  WriteProjectFile(path);
  FillEarlierProject();
  ReadProjectFile(path);
  EXPECT_EQ(ProjectText(), second);
}

TEST_F(ProjectFileTest, Reading_leaves_the_file_name_the_dirty_mark_and_the_current_rows) {
  ProjectFileName = "/old/job.ovd";
  CurrentItem = 3;
  CurrentAcc = 2;
  Read(SmallProjectLines());
  EXPECT_EQ(ProjectFileName, "/old/job.ovd");
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(CurrentItem, 3);
  EXPECT_EQ(CurrentAcc, 2);
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(ProjectFileTest, Writing_leaves_the_file_name_and_the_dirty_mark) {
  FillSmallProject();
  ProjectDirty = True;
  ProjectFileName = "/old/job.ovd";
  WriteProjectFile(TempPath("job.ovd"));
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(ProjectFileName, "/old/job.ovd");
}

TEST_F(ProjectFileTest, Reading_makes_no_holes_afresh) {
  Read(With(SmallProjectLines(), line::FirstHoleXPos, " 999 "));
  EXPECT_EQ(Items.At(1).Holes.At(1).XPos, 999);
}

TEST_F(ProjectFileTest, A_path_of_blanks_reads_nothing) {
  FillEarlierProject();
  ReadProjectFile("");
  ReadProjectFile("   ");
  ExpectEarlierItems();
  EXPECT_EQ(txtProject.at(1), "old 1");
}

}  // namespace

}  // namespace orvane
