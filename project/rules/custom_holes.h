// Holes placed by hand: which lines a button of the hole dialog stands for, which positions are
// refused, and what a hole becomes in a section's list. Positions are mm from the left-hand end;
// rows of sections are rows of Items.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"

namespace orvane {

// The code of a set of hole lines is the number of its button.

// The four lines in the order of their letters below, "y" or "n" each. The code behind the last of
// them is a hole off gauge, and NoLines that no button is selected.
constexpr std::array<std::string_view, 13> HoleLines = {
    "nyyn", "yyyy", "ynny", "nnny", "nnyn", "nynn", "ynnn",
    "nnyy", "nyny", "ynyn", "yyyn", "nyyy", "yynn",
};
constexpr int OffGaugeCode = 13;
constexpr int NoLines = -1;
constexpr std::array<std::string_view, 4> HoleLineNames = {"BF", "W1", "W2", "TF"};

// The codes that sections of that letter can have, ascending; none for a text that is no family's
// letter.
std::vector<int> HoleCodes(std::string_view letter);

// True for a family that is punched for the thinner bolt as a rule: its holes are offered with 14
// mm first, those of others with 18 mm.
bool UsesThinBolts(std::string_view letter);

// "BF, W1": the lines of a code by name; empty for a code that isn't in the table.
std::string HoleCodeName(int code);

// The code of a stored hole: off gauge when a flange or the first web row holds a number above 0,
// else the code of its four lines, else NoLines.
int HoleCodeOf(const Hole& hole);

// Where a single hole off gauge lies; the numbers are those of its buttons.
enum class OffGaugeLine { Web = 0, TopFlange = 1, BottomFlange = 2 };

// The line of a stored hole off gauge and its distance as text; web and empty if it is none.
struct OffGaugeText {
  OffGaugeLine Line = OffGaugeLine::Web;
  std::string Distance;
};
OffGaugeText OffGaugeOf(const Hole& hole);

// Least distances of a hole from an end of the section and from another hole, mm.
struct HoleLimits {
  int Edge = 0;
  int Separation = 0;
};
HoleLimits LimitsOf(bool is18mm);

// What the dialog holds when its button is pressed.
struct HoleEntry {
  std::string XPos;    // as typed
  int Code = NoLines;  // of the selected button
  bool Is18mm = true;  // else 14 mm
  std::string YPos;    // distance of a hole off gauge, as typed
  OffGaugeLine YLine = OffGaugeLine::Web;
  std::string SlotLen;  // as typed
  bool CounterSunk = false;
};

// The refusal of a position.
constexpr std::string_view BadHolePosition =
    "Please enter a valid value for the X position (too close to edge or too close to existing "
    "hole)";

// The position that the entry stands for in that mode (EditHole, AddAbsolute, AddRelative); none if
// it is refused. Relative positions count from the last hole of any kind, or from the left-hand end
// in a section without holes.
std::optional<std::int16_t> HolePosition(std::int16_t ItemIndex, std::int16_t Mode,
                                         const HoleEntry& entry);

// The hole of that entry at that position, with its lines. A slot length beyond 32 bits raises
// "Overflow".
Hole CustomHole(const HoleEntry& entry, std::int16_t XPos);

// Gives a hole the four line texts of another.
void CopyHoleLines(const Hole& from, Hole& to);

// The row of Holes that the CustomRow-th hole of kind "C" has; 0 if there is none.
int CustomHoleRow(std::int16_t ItemIndex, int CustomRow);

// The CustomRow that the hole will have once the list has been sorted; 0 if there is none. For
// whoever keeps a hole by its number while another is put in or it is moved itself.
int SortedCustomRow(std::int16_t ItemIndex, int CustomRow);

// Appends the hole behind the last row. The list must then be sorted and its gaps adjusted.
void AppendCustomHole(std::int16_t ItemIndex, Hole hole);

// Puts the hole into the place of the CustomRow-th hole of kind "C"; nothing happens if there is
// none. The list must then be sorted and its gaps adjusted.
void ReplaceCustomHole(std::int16_t ItemIndex, int CustomRow, Hole hole);

// What a person should know who places holes in sections of that letter: the limits and the meaning
// of the lines.
std::string HoleInfo(std::string_view letter);

}  // namespace orvane
