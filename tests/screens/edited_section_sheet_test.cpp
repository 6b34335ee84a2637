// The sheets of sections edited in the real dialogs, recorded before and after: they may differ in
// nothing but the lines of tests/goldens/sheets/edited-*.patch. Those were worked out by hand from
// the rules, not taken from the program; only where the order of settings shows nowhere on the page
// do they follow it.
#include "core/numbers.h"
#include "drawing/draw_section.h"
#include "drawing/recording_surface.h"
#include "tests/screens/edited_section_fixture.h"
#include "tests/support/golden_change.h"

namespace orvane::test {
namespace {

using Lines = std::vector<std::string>;

class EditedSheet : public EditedSectionTest {
 protected:
  // The purlin of all these sheets, drawn at 1:10, with custom holes at 200 and 1480.
  void ShowPurlin() {
    Item& item = Put("Z", "P1", "Z24520", 2280, 4);
    item.PatternName = "Custom";
    for (const int x : {200, 1480}) PutHole(item, Int16(x), "C");
    Show();
    ASSERT_EQ(DrawingWidth, 228);
  }
  void AddMiddleHole() { PlaceAbsolute({{.X = "900", .Picture = 10, .CounterSunk = true}}); }

  // The sheet of a row as a document of its own.
  static Lines Recorded(int row) {
    PlainFontMetrics metrics;
    RecordingSurface surface(metrics);
    DrawSection(surface, Int16(row), true, true);
    return surface.Lines();
  }

  // Whether the edit changes the sheet in exactly those lines, and is shown at once.
  void ExpectChange(const std::string& name, const std::function<void()>& edit) {
    const Lines before = Recorded(Sections().Row());
    const int draws = Sheet().DrawCount();
    edit();
    EXPECT_GT(Sheet().DrawCount(), draws);
    EXPECT_EQ(Sheet().ShownRow(), Sections().Row());
    ExpectGoldenChange("sheets/" + name + ".patch", before, Recorded(Sections().Row()));
  }
};

TEST_F(EditedSheet, A_hole_added_brings_its_marks_and_shares_the_gap_it_stands_in) {
  ShowPurlin();
  ExpectChange("edited-hole-added", [this] { AddMiddleHole(); });
}

TEST_F(EditedSheet, A_hole_edited_takes_its_new_marks_to_its_new_place) {
  ShowPurlin();
  AddMiddleHole();
  ExpectChange("edited-hole-changed",
               [this] { EditHole(2, {.X = "1000", .Picture = 5, .Diameter = 14, .Slot = "30"}); });
}

TEST_F(EditedSheet, A_hole_moved_close_to_another_is_drawn_apart_at_the_wide_gaps_cost) {
  ShowPurlin();
  AddMiddleHole();
  ExpectChange("edited-hole-moved-close", [this] { EditHole(2, {.X = "230"}); });
}

TEST_F(EditedSheet, A_hole_off_gauge_brings_its_letter_the_key_and_the_table) {
  ShowPurlin();
  ExpectChange("edited-hole-off-gauge", [this] {
    PlaceRelative({{.X = "320", .Picture = 13, .Ribbon = 0, .Y = "61", .Diameter = 14}});
  });
}

TEST_F(EditedSheet, Notches_bring_their_dashes_their_sizes_and_the_chain) {
  ShowPurlin();
  ExpectChange("edited-notches", [this] {
    TypeNotches({{"TL1", "20", "45", ""}, {"B2", "12.5", "60", "1500"}});
  });
}

TEST_F(EditedSheet, Mitres_bring_their_dashes_and_offsets) {
  ShowPurlin();
  ExpectChange("edited-mitres", [this] { TypeMitres("10", "-20"); });
}

TEST_F(EditedSheet, The_opposite_hand_turns_holes_notches_and_mitres_end_for_end) {
  ShowPurlin();
  AddMiddleHole();
  TypeNotches({{"TL1", "20", "45", ""}, {"B2", "12.5", "60", "1500"}});
  TypeMitres("10", "-20");
  ExpectChange("edited-opposite-hand", [this] { CreateOppositeHand(); });
  EXPECT_EQ(Sections().Row(), 2);
}

}  // namespace
}  // namespace orvane::test
