// The sheets of sections edited in the real dialogs, recorded before and after: they may differ in
// nothing but the lines of tests/goldens/sheets/edited-*.patch. Those were worked out from the
// rules with a calculator of their own, not taken from the program; only where the order of
// settings shows nowhere on the page do they follow it.
#include <cmath>
#include <sstream>

#include "core/numbers.h"
#include "drawing/draw_section.h"
#include "drawing/recording_surface.h"
#include "tests/screens/edited_section_fixture.h"

namespace orvane::test {
namespace {

using Lines = std::vector<std::string>;

// One change of a patch: the lines that stand there (kept and gone ones) and those that stand there
// afterwards (kept and new ones).
struct Hunk {
  Lines Before;
  Lines After;
  std::size_t KeptBehind = 0;  // kept lines behind the last change
};

// A hunk begins at "@@"; its lines begin with " " (kept), "-" (gone) or "+" (new). "#" is a remark.
std::vector<Hunk> ReadPatch(const std::string& path) {
  std::vector<Hunk> hunks;
  std::istringstream text(BytesOf(path));
  for (std::string line; std::getline(text, line);) {
    const char kind = line.empty() ? '#' : line.front();
    if (kind == '#') continue;
    if (kind == '@') {
      hunks.emplace_back();
      continue;
    }
    Hunk& hunk = hunks.at(hunks.size() - 1);
    if (kind != '+') hunk.Before.push_back(line.substr(1));
    if (kind != '-') hunk.After.push_back(line.substr(1));
    hunk.KeptBehind = kind == ' ' ? hunk.KeptBehind + 1 : 0;
  }
  return hunks;
}

// Equal words, or numbers of one form (millimetres or bare) that differ by no more than the noise
// of floats.
bool SameWord(std::string one, std::string other) {
  if (one == other) return true;
  for (std::string* word : {&one, &other}) {
    while (!word->empty() && word->back() == '"') word->pop_back();
    if (!word->empty() && word->front() == '"') word->erase(0, 1);
  }
  if (one.ends_with("mm") != other.ends_with("mm")) return false;
  if (one.ends_with("mm")) {
    one.resize(one.size() - 2);
    other.resize(other.size() - 2);
  }
  return IsNumber(one) && IsNumber(other) && std::abs(ParseDouble(one) - ParseDouble(other)) < 1e-6;
}

bool SameLine(const std::string& one, const std::string& other) {
  if (one == other) return true;
  // A text that is written has to be the same to the letter.
  if (one.starts_with("Text ") || other.starts_with("Text ")) return false;
  std::istringstream ones(one);
  std::istringstream others(other);
  std::string word;
  std::string otherWord;
  while (ones >> word) {
    if (!(others >> otherWord) || !SameWord(word, otherWord)) return false;
  }
  return !(others >> otherWord);
}

bool Matches(const Lines& lines, std::size_t at, const Lines& part) {
  if (at + part.size() > lines.size()) return false;
  for (std::size_t i = 0; i < part.size(); ++i) {
    if (!SameLine(lines[at + i], part[i])) return false;
  }
  return true;
}

// How many lines match where the most of them do, and the first that doesn't there.
std::string BestGuess(const Lines& lines, const Lines& part) {
  std::size_t best = 0;
  std::string found;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    std::size_t count = 0;
    while (count < part.size() && at + count < lines.size() &&
           SameLine(lines[at + count], part[count])) {
      ++count;
    }
    if (count <= best || count == part.size()) continue;
    best = count;
    found = part[count] + "\n| " + (at + count < lines.size() ? lines[at + count] : "(end)");
  }
  return found;
}

// The sheet as the patch makes it of another. Each hunk must fit in one place only.
Lines Patched(const Lines& before, const std::vector<Hunk>& hunks) {
  Lines after;
  std::size_t done = 0;
  for (const Hunk& hunk : hunks) {
    std::vector<std::size_t> places;
    for (std::size_t at = done; at < before.size(); ++at) {
      if (Matches(before, at, hunk.Before)) places.push_back(at);
    }
    if (places.size() != 1) {
      ADD_FAILURE() << places.size() << " places for the hunk that begins with "
                    << hunk.Before.front() << "; expected | recorded where it fits best:\n"
                    << BestGuess(before, hunk.Before);
      return after;
    }
    const auto from = before.begin();
    const auto end = places.front() + hunk.Before.size() - hunk.KeptBehind;
    after.insert(after.end(), from + static_cast<std::ptrdiff_t>(done),
                 from + static_cast<std::ptrdiff_t>(places.front()));
    after.insert(after.end(), hunk.After.begin(),
                 hunk.After.end() - static_cast<std::ptrdiff_t>(hunk.KeptBehind));
    done = end;
  }
  after.insert(after.end(), before.begin() + static_cast<std::ptrdiff_t>(done), before.end());
  return after;
}

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
    const std::vector<Hunk> hunks =
        ReadPatch(ORVANE_SOURCE_DIR "/tests/goldens/sheets/" + name + ".patch");
    ASSERT_FALSE(hunks.empty());
    const Lines expected = Patched(before, hunks);
    const Lines after = Recorded(Sections().Row());
    ASSERT_NE(after, before);
    for (std::size_t at = 0; at < std::max(after.size(), expected.size()); ++at) {
      const std::string ours = at < after.size() ? after[at] : "(end)";
      const std::string theirs = at < expected.size() ? expected[at] : "(end)";
      ASSERT_PRED2(SameLine, ours, theirs) << "line " << at + 1 << " of " << name;
    }
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
