// Holes placed by hand, free of the dialog: codes and lines, positions refused and taken, the hole
// that comes of an entry, its place in the list.
#include "project/rules/custom_holes.h"

#include <map>

#include "holes/hole_list.h"
#include "tests/support/fixture.h"

namespace orvane::test {
namespace {

class CustomHolesTest : public SystemTest {
 protected:
  CustomHolesTest() {
    Item item;
    item.SectionType = "Z";
    item.Length = 3000;
    item.PatternName = "Custom";
    Items.Append(item);
  }

  static void Put(std::int16_t x, std::string_view kind = CustomKind) {
    Item& item = Items.At(1);
    Hole hole;
    hole.XPos = x;
    hole.Kind = kind;
    item.Holes.Append(hole);
    if (kind == CustomKind) ++item.CustomHoleCount;
  }

  static HoleEntry At(const std::string& x, bool is18mm = true, int code = 0) {
    HoleEntry entry;
    entry.XPos = x;
    entry.Is18mm = is18mm;
    entry.Code = code;
    return entry;
  }

  // The position taken; -1 for a refusal.
  static int Position(std::int16_t mode, const HoleEntry& entry) {
    const auto position = HolePosition(1, mode, entry);
    return position ? *position : -1;
  }

  static std::string Lines(const Hole& hole) {
    return hole.BF + "|" + hole.W1 + "|" + hole.W2 + "|" + hole.TF;
  }

  static Hole WithLines(const std::string& bf, const std::string& w1, const std::string& w2,
                        const std::string& tf) {
    Hole hole;
    hole.BF = bf;
    hole.W1 = w1;
    hole.W2 = w2;
    hole.TF = tf;
    return hole;
  }
};

constexpr bool Dia18 = true;
constexpr bool Dia14 = false;
constexpr int Refused = -1;

// The codes.

struct CodeLines {
  int Code;
  const char *BF, *W1, *W2, *TF;
  const char* Name;
};
const std::vector<CodeLines> Codes = {
    // clang-format off
    {0,  "n", "y", "y", "n", "W1, W2"},
    {1,  "y", "y", "y", "y", "BF, W1, W2, TF"},
    {2,  "y", "n", "n", "y", "BF, TF"},
    {3,  "n", "n", "n", "y", "TF"},
    {4,  "n", "n", "y", "n", "W2"},
    {5,  "n", "y", "n", "n", "W1"},
    {6,  "y", "n", "n", "n", "BF"},
    {7,  "n", "n", "y", "y", "W2, TF"},
    {8,  "n", "y", "n", "y", "W1, TF"},
    {9,  "y", "n", "y", "n", "BF, W2"},
    {10, "y", "y", "y", "n", "BF, W1, W2"},
    {11, "n", "y", "y", "y", "W1, W2, TF"},
    {12, "y", "y", "n", "n", "BF, W1"},
    // clang-format on
};

TEST_F(CustomHolesTest, Each_code_stands_for_its_four_lines_both_ways) {
  ASSERT_EQ(Codes.size(), HoleLines.size());
  for (const CodeLines& row : Codes) {
    SCOPED_TRACE(row.Code);
    const Hole hole = CustomHole(At("100", Dia18, row.Code), 100);
    EXPECT_EQ(Lines(hole), std::string(row.BF) + "|" + row.W1 + "|" + row.W2 + "|" + row.TF);
    EXPECT_EQ(HoleCodeOf(hole), row.Code);
    EXPECT_EQ(HoleCodeName(row.Code), row.Name);
  }
  EXPECT_EQ(HoleCodeName(OffGaugeCode), "");
  EXPECT_EQ(HoleCodeName(NoLines), "");
}

TEST_F(CustomHolesTest, Each_letter_has_the_codes_of_its_set) {
  const std::vector<int> all = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};
  const std::map<std::string, std::vector<int>> sets = {{"Z", all},
                                                        {"C", all},
                                                        {"E", {0, 4, 6, 9, 10, 12, 13}},
                                                        {"T", {0, 2, 3, 4, 5, 6}},
                                                        {"V", {0}},
                                                        {"R", {3}},
                                                        {"X", {}},
                                                        {"", {}}};
  for (const auto& [letter, codes] : sets) EXPECT_EQ(HoleCodes(letter), codes) << letter;
}

TEST_F(CustomHolesTest, A_stored_hole_is_known_by_its_trimmed_lines) {
  EXPECT_EQ(HoleCodeOf(WithLines(" y ", "n ", " n", "y")), 2);
  // Three combinations have no button.
  EXPECT_EQ(HoleCodeOf(WithLines("n", "n", "n", "n")), NoLines);
  EXPECT_EQ(HoleCodeOf(WithLines("y", "n", "y", "y")), NoLines);
  EXPECT_EQ(HoleCodeOf(WithLines("y", "y", "n", "y")), NoLines);
  EXPECT_EQ(HoleCodeOf(WithLines("", "", "", "")), NoLines);
  EXPECT_EQ(HoleCodeOf(WithLines("N", "Y", "Y", "N")), NoLines);
}

TEST_F(CustomHolesTest, A_number_above_0_in_W1_TF_or_BF_makes_a_hole_one_off_gauge) {
  struct Row {
    Hole Stored;
    int Code;
    OffGaugeLine Line;
    const char* Distance;
  };
  const std::vector<Row> rows = {
      {WithLines("n", "60", "n", "n"), OffGaugeCode, OffGaugeLine::Web, "60"},
      {WithLines("n", "n", "n", "30"), OffGaugeCode, OffGaugeLine::TopFlange, "30"},
      {WithLines("25", "n", "n", "n"), OffGaugeCode, OffGaugeLine::BottomFlange, "25"},
      // The web comes before the flanges, the top before the bottom.
      {WithLines("25", "60", "n", "30"), OffGaugeCode, OffGaugeLine::Web, "60"},
      {WithLines("25", "y", "n", "30"), OffGaugeCode, OffGaugeLine::TopFlange, "30"},
      // The second web row isn't looked at; 0 is no distance.
      {WithLines("n", "n", "60", "n"), NoLines, OffGaugeLine::Web, ""},
      {WithLines("n", "0", "n", "n"), NoLines, OffGaugeLine::Web, ""},
      {WithLines("n", "-5", "n", "n"), NoLines, OffGaugeLine::Web, ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Lines(row.Stored));
    EXPECT_EQ(HoleCodeOf(row.Stored), row.Code);
    EXPECT_EQ(OffGaugeOf(row.Stored).Line, row.Line);
    EXPECT_EQ(OffGaugeOf(row.Stored).Distance, row.Distance);
  }
}

// Positions.

struct PositionCase {
  std::int16_t Mode;
  bool Is18mm;
  const char* Typed;
  int Taken;
};

TEST_F(CustomHolesTest, In_every_mode_a_hole_keeps_the_edge_distance_of_its_diameter) {
  // A section of 3000 without holes, so that relative positions count from the left-hand end.
  const std::vector<PositionCase> cases = {
      // clang-format off
      {AddAbsolute, Dia18, "24",   24},   {AddAbsolute, Dia18, "23",   Refused},
      {AddAbsolute, Dia18, "2976", 2976}, {AddAbsolute, Dia18, "2977", Refused},
      {AddAbsolute, Dia14, "18",   18},   {AddAbsolute, Dia14, "17",   Refused},
      {AddAbsolute, Dia14, "2982", 2982}, {AddAbsolute, Dia14, "2983", Refused},
      {AddRelative, Dia18, "24",   24},   {AddRelative, Dia18, "23",   Refused},
      {AddRelative, Dia18, "2976", 2976}, {AddRelative, Dia18, "2977", Refused},
      {AddRelative, Dia14, "18",   18},   {AddRelative, Dia14, "17",   Refused},
      {AddRelative, Dia14, "2982", 2982}, {AddRelative, Dia14, "2983", Refused},
      {EditHole,    Dia18, "24",   24},   {EditHole,    Dia18, "23",   Refused},
      {EditHole,    Dia18, "2976", 2976}, {EditHole,    Dia18, "2977", Refused},
      {EditHole,    Dia14, "18",   18},   {EditHole,    Dia14, "17",   Refused},
      {EditHole,    Dia14, "2982", 2982}, {EditHole,    Dia14, "2983", Refused},
      // clang-format on
  };
  for (const PositionCase& row : cases) {
    EXPECT_EQ(Position(row.Mode, At(row.Typed, row.Is18mm)), row.Taken)
        << row.Mode << " " << row.Is18mm << " " << row.Typed;
    // A hole off gauge keeps the ends as well.
    EXPECT_EQ(Position(row.Mode, At(row.Typed, row.Is18mm, OffGaugeCode)), row.Taken) << row.Typed;
  }
}

TEST_F(CustomHolesTest, An_absolute_position_is_tested_as_typed_and_the_others_as_rounded) {
  EXPECT_EQ(Position(AddAbsolute, At("23.6")), Refused);
  EXPECT_EQ(Position(AddRelative, At("23.6")), 24);
  EXPECT_EQ(Position(EditHole, At("23.6")), 24);
  EXPECT_EQ(Position(AddAbsolute, At("2976.4")), Refused);
  EXPECT_EQ(Position(EditHole, At("2976.4")), 2976);
  // 23.5 goes to the even neighbour 24, 2976.5 to 2976.
  EXPECT_EQ(Position(EditHole, At("23.5")), 24);
  EXPECT_EQ(Position(EditHole, At("23.4")), Refused);
  EXPECT_EQ(Position(EditHole, At("2976.5")), 2976);
}

TEST_F(CustomHolesTest, A_position_is_rounded_an_exact_half_to_the_even_neighbour) {
  for (const std::int16_t mode : {EditHole, AddAbsolute, AddRelative}) {
    EXPECT_EQ(Position(mode, At("100.5")), 100) << mode;
    EXPECT_EQ(Position(mode, At("101.5")), 102) << mode;
    EXPECT_EQ(Position(mode, At("101.4")), 101) << mode;
  }
}

TEST_F(CustomHolesTest, An_absolute_position_keeps_the_separation_from_every_hole) {
  Put(500, PatternKind);
  Put(1000);
  Put(2000);
  const std::vector<PositionCase> cases = {
      // clang-format off
      {AddAbsolute, Dia18, "1018",   Refused}, {AddAbsolute, Dia18, "1019", 1019},
      {AddAbsolute, Dia18, "982",    Refused}, {AddAbsolute, Dia18, "981",  981},
      {AddAbsolute, Dia14, "1014",   Refused}, {AddAbsolute, Dia14, "1015", 1015},
      {AddAbsolute, Dia14, "986",    Refused}, {AddAbsolute, Dia14, "985",  985},
      {AddAbsolute, Dia18, "518",    Refused}, {AddAbsolute, Dia18, "519",  519},
      {AddAbsolute, Dia18, "2018",   Refused}, {AddAbsolute, Dia18, "2019", 2019},
      {AddAbsolute, Dia18, "1018.9", Refused}, {AddAbsolute, Dia18, "1000", Refused},
      // clang-format on
  };
  for (const PositionCase& row : cases) {
    EXPECT_EQ(Position(row.Mode, At(row.Typed, row.Is18mm)), row.Taken) << row.Typed;
  }
}

TEST_F(CustomHolesTest, A_hole_off_gauge_isnt_held_to_the_separation) {
  Put(1000);
  EXPECT_EQ(Position(AddAbsolute, At("1014", Dia14)), Refused);
  EXPECT_EQ(Position(AddAbsolute, At("1014", Dia14, OffGaugeCode)), 1014);
  EXPECT_EQ(Position(AddAbsolute, At("1000", Dia18, OffGaugeCode)), 1000);
  EXPECT_EQ(Position(AddRelative, At("0", Dia18, OffGaugeCode)), 1000);
  // It may even lie before the last hole.
  EXPECT_EQ(Position(AddRelative, At("-100", Dia18, OffGaugeCode)), 900);
}

TEST_F(CustomHolesTest, A_relative_position_keeps_the_separation_from_the_last_hole) {
  Put(1000);
  EXPECT_EQ(Position(AddRelative, At("18", Dia18)), Refused);
  EXPECT_EQ(Position(AddRelative, At("19", Dia18)), 1019);
  EXPECT_EQ(Position(AddRelative, At("14", Dia14)), Refused);
  EXPECT_EQ(Position(AddRelative, At("15", Dia14)), 1015);
  // As typed, before it is rounded.
  EXPECT_EQ(Position(AddRelative, At("18.9", Dia18)), Refused);
}

TEST_F(CustomHolesTest, A_relative_position_counts_from_the_last_row_pattern_holes_included) {
  EXPECT_EQ(Position(AddRelative, At("500")), 500);
  Put(500);
  EXPECT_EQ(Position(AddRelative, At("100")), 600);
  Put(2000, PatternKind);
  EXPECT_EQ(Position(AddRelative, At("100")), 2100);
}

TEST_F(CustomHolesTest, Of_an_empty_list_the_row_before_the_first_hole_is_no_hole) {
  // What the gaps of a hole since removed have left there.
  Items.At(1).Holes.At(0).XPos = 3000;
  EXPECT_EQ(Position(AddRelative, At("500")), 500);
  EXPECT_EQ(Position(AddAbsolute, At("2976")), 2976);
}

TEST_F(CustomHolesTest, A_relative_position_beyond_the_end_is_refused) {
  Put(2970);
  // 2985 is less than 18 from the end.
  EXPECT_EQ(Position(AddRelative, At("15", Dia14)), Refused);
}

TEST_F(CustomHolesTest, An_edited_hole_may_lie_on_another) {
  Put(1000);
  Put(2000);
  EXPECT_EQ(Position(EditHole, At("2000")), 2000);
  EXPECT_EQ(Position(EditHole, At("1001")), 1001);
}

TEST_F(CustomHolesTest, A_position_beyond_16_bits_is_refused_and_no_fault) {
  for (const char* typed : {"32768", "40000", "-40000", "1E300", "1E999", "-1E999", "32767.6"}) {
    for (const std::int16_t mode : {EditHole, AddAbsolute, AddRelative}) {
      EXPECT_EQ(Position(mode, At(typed)), Refused) << typed << " " << mode;
      EXPECT_EQ(Position(mode, At(typed, Dia18, OffGaugeCode)), Refused) << typed << " " << mode;
    }
  }
  Items.At(1).Length = 32767;
  Put(32000);
  EXPECT_EQ(Position(AddRelative, At("743")), 32743);
  EXPECT_EQ(Position(AddRelative, At("800")), Refused);
}

TEST_F(CustomHolesTest, What_is_no_number_counts_as_0_and_reading_stops_at_a_foreign_character) {
  for (const std::int16_t mode : {EditHole, AddAbsolute, AddRelative}) {
    EXPECT_EQ(Position(mode, At("abc")), Refused) << mode;
    EXPECT_EQ(Position(mode, At("")), Refused) << mode;
    EXPECT_EQ(Position(mode, At("  500mm")), 500) << mode;
    EXPECT_EQ(Position(mode, At("500,7")), 500) << mode;
  }
}

TEST_F(CustomHolesTest, A_section_without_length_takes_no_hole) {
  Items.At(1).Length = 0;
  for (const std::int16_t mode : {EditHole, AddAbsolute, AddRelative}) {
    EXPECT_EQ(Position(mode, At("500")), Refused) << mode;
  }
}

TEST_F(CustomHolesTest, The_refusal_has_its_one_text) {
  EXPECT_EQ(BadHolePosition,
            "Please enter a valid value for the X position (too close to edge or too close to "
            "existing hole)");
}

// The hole.

TEST_F(CustomHolesTest, A_hole_takes_position_kind_diameter_slot_and_countersink) {
  HoleEntry entry = At("500", Dia14, 6);
  entry.SlotLen = "28.5";
  Hole hole = CustomHole(entry, 500);
  EXPECT_EQ(hole.XPos, 500);
  EXPECT_EQ(hole.Kind, "C");
  EXPECT_EQ(hole.Diameter, 14);
  EXPECT_EQ(hole.SlotLength, 28.5F);
  EXPECT_EQ(hole.CounterSunk, "");
  EXPECT_EQ(Lines(hole), "y|n|n|n");

  entry.Is18mm = Dia18;
  entry.SlotLen = "0";
  entry.CounterSunk = true;
  hole = CustomHole(entry, 500);
  EXPECT_EQ(hole.Diameter, 18);
  EXPECT_EQ(hole.SlotLength, 0);
  EXPECT_EQ(hole.CounterSunk, "*");
}

TEST_F(CustomHolesTest, A_hole_off_gauge_has_its_distance_on_one_line_as_a_whole_number) {
  HoleEntry entry = At("500", Dia18, OffGaugeCode);
  entry.YPos = "60";
  EXPECT_EQ(Lines(CustomHole(entry, 500)), "n|60|n|n");
  entry.YLine = OffGaugeLine::TopFlange;
  EXPECT_EQ(Lines(CustomHole(entry, 500)), "n|n|n|60");
  entry.YLine = OffGaugeLine::BottomFlange;
  EXPECT_EQ(Lines(CustomHole(entry, 500)), "60|n|n|n");
  // The form "0" rounds halves away from zero.
  entry.YPos = "62.5";
  EXPECT_EQ(Lines(CustomHole(entry, 500)), "63|n|n|n");
  entry.YPos = "007";
  EXPECT_EQ(Lines(CustomHole(entry, 500)), "7|n|n|n");
  // Without a distance it can't be told from a hole without lines afterwards.
  entry.YPos = "";
  EXPECT_EQ(Lines(CustomHole(entry, 500)), "0|n|n|n");
  EXPECT_EQ(HoleCodeOf(CustomHole(entry, 500)), NoLines);
}

TEST_F(CustomHolesTest, Without_a_button_selected_a_hole_has_no_line) {
  EXPECT_EQ(Lines(CustomHole(At("500", Dia18, NoLines), 500)), "n|n|n|n");
}

TEST_F(CustomHolesTest, A_slot_length_beyond_32_bits_raises_Overflow) {
  HoleEntry entry = At("500");
  entry.SlotLen = "1E39";
  EXPECT_EQ(ErrorOf([&] { CustomHole(entry, 500); }), "Overflow");
}

TEST_F(CustomHolesTest, The_lines_of_a_hole_can_be_handed_to_another) {
  Hole to = CustomHole(At("500", Dia14), 500);
  CopyHoleLines(WithLines("y", "1", "x", "z"), to);
  EXPECT_EQ(Lines(to), "y|1|x|z");
  EXPECT_EQ(to.XPos, 500);
}

// The list.

TEST_F(CustomHolesTest, An_added_hole_becomes_the_last_row_and_both_counts_grow) {
  Put(1000);
  Put(2000, PatternKind);
  AppendCustomHole(1, CustomHole(At("500"), 500));
  const Item& item = Items.At(1);
  EXPECT_EQ(item.HoleCount(), 3);
  EXPECT_EQ(item.CustomHoleCount, 2);
  ASSERT_EQ(item.Holes.UBound(), 3);
  EXPECT_EQ(item.Holes.At(3).XPos, 500);
  EXPECT_EQ(item.PatternName, "Custom");
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(CustomHolesTest, The_hole_to_edit_is_counted_among_the_custom_ones) {
  Put(100, PatternKind);
  Put(200);
  Put(300, PatternKind);
  Put(400);
  EXPECT_EQ(CustomHoleRow(1, 1), 2);
  EXPECT_EQ(CustomHoleRow(1, 2), 4);
  EXPECT_EQ(CustomHoleRow(1, 3), 0);
  EXPECT_EQ(CustomHoleRow(1, 0), 0);
  EXPECT_EQ(CustomHoleRow(1, -1), 0);
  EXPECT_EQ(CustomHoleRow(0, 1), 0);
}

TEST_F(CustomHolesTest, A_hole_is_known_by_the_number_that_sorting_will_give_it) {
  Put(700);
  Put(300, PatternKind);
  Put(500);
  Put(700);
  Put(100);
  // 100, 500, 700 and 700 in their order; the pattern's hole isn't counted.
  EXPECT_EQ(SortedCustomRow(1, 1), 3);
  EXPECT_EQ(SortedCustomRow(1, 2), 2);
  EXPECT_EQ(SortedCustomRow(1, 3), 4);
  EXPECT_EQ(SortedCustomRow(1, 4), 1);
  EXPECT_EQ(SortedCustomRow(1, 5), 0);
  EXPECT_EQ(SortedCustomRow(1, 0), 0);
  EXPECT_EQ(SortedCustomRow(0, 1), 0);
}

TEST_F(CustomHolesTest, An_edited_hole_replaces_its_row_and_the_counts_stay) {
  Put(100, PatternKind);
  Put(200);
  Put(300, PatternKind);
  Put(400);
  ReplaceCustomHole(1, 2, CustomHole(At("450", Dia14, 3), 450));
  const Item& item = Items.At(1);
  EXPECT_EQ(item.HoleCount(), 4);
  EXPECT_EQ(item.CustomHoleCount, 2);
  EXPECT_EQ(item.Holes.At(4).XPos, 450);
  EXPECT_EQ(Lines(item.Holes.At(4)), "n|n|n|y");
  EXPECT_EQ(item.Holes.At(2).XPos, 200);
  ReplaceCustomHole(1, 3, CustomHole(At("999"), 999));
  EXPECT_EQ(item.Holes.UBound(), 4);
  for (const Hole& hole : item.Holes) EXPECT_NE(hole.XPos, 999);
}

TEST_F(CustomHolesTest, An_added_hole_finds_its_place_and_its_gaps) {
  DrawingWidth = 180;
  Put(2000);
  AppendCustomHole(1, CustomHole(At("1000"), 1000));
  SortHoles(1);
  AdjustHoleSpacing(1);
  const Table<Hole>& holes = Items.At(1).Holes;
  EXPECT_EQ(holes.At(1).XPos, 1000);
  EXPECT_EQ(holes.At(1).RelX, 1000);
  EXPECT_EQ(holes.At(2).XPos, 2000);
  EXPECT_EQ(holes.At(2).RelX, 1000);
  EXPECT_EQ(holes.At(0).RelX, 1000);
}

// What a person is told.

TEST_F(CustomHolesTest, The_information_tells_the_limits_and_the_lines_of_the_family) {
  const std::string limits =
      "18mm holes: at least 24 mm from each end and 19 mm from the next hole.\r"
      "14mm holes: at least 18 mm from each end and 15 mm from the next hole.\r";
  const std::string beside = "An off-gauge hole may lie beside another hole.\r";
  const std::string purlin =
      "\rBF: bottom flange\rW1: lower row of the web\rW2: upper row of the web\rTF: top flange";
  EXPECT_EQ(HoleInfo("Z"), limits + beside + purlin);
  EXPECT_EQ(HoleInfo("E"), limits + beside + purlin);
  EXPECT_EQ(HoleInfo("V"), limits + purlin);
  EXPECT_EQ(HoleInfo("T"), limits +
                               "\rBF: lower lip\rW1: lower sloping side\rW2: upper sloping side\r"
                               "TF: upper lip");
  EXPECT_EQ(HoleInfo("R"), limits + "\rBF: flange\rW1: web\rW2: web\rTF: web");
  // A letter that is no family's has no buttons; its lines are named as a purlin's.
  EXPECT_EQ(HoleInfo("Q"), limits + purlin);
}

TEST_F(CustomHolesTest, Top_hats_alone_are_offered_the_thinner_bolt) {
  for (const std::string letter : {"Z", "E", "C", "V", "R", "T", "Q", "", "t"}) {
    EXPECT_EQ(UsesThinBolts(letter), letter == "T") << letter;
  }
}

}  // namespace
}  // namespace orvane::test
