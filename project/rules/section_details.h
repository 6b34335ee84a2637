// What the detail panel offers for a section, and what a choice there does to it. Rows are rows of
// Items; row 0 stands for none, and nothing happens then. Choosing sag bars, a pitch or jointing
// pieces is a change of its kind; the steps of selecting a pattern are parts of one, whose kind the
// screen's handler names.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/model.h"
#include "core/table.h"

namespace orvane {

// The pitches that an eaves beam's list offers, degrees as text.
extern const Table<std::string> Pitches;

// The products of a section letter, and "Custom" and the names of its patterns, in file order.
Table<std::string> SectionProducts(std::string_view letter);
Table<std::string> PatternNames(std::string_view letter);
// The first of the letter's products that the text names, blanks at both ends apart; none for
// another text, and for an empty one.
std::optional<std::string> ProductNamed(std::string_view letter, std::string_view text);
// The same of its patterns and "Custom".
std::optional<std::string> PatternNamed(std::string_view letter, std::string_view text);

// True for the letters of families whose panel shows the pitch, or the jointing pieces.
bool HasPitch(std::string_view letter);
bool HasJointingPieces(std::string_view letter);

// What the choice of sag bars shows.
enum class SagBars {
  Hidden,
  SpringFix,  // option 0, 18 mm
  Threaded    // option 1, 14 mm
};

// What the choice shows for a section as it stands.
SagBars ShownSagBars(std::int16_t ItemIndex);
// Showing it settles the diameter: one above 0 that isn't 18 becomes 14.
void SettleSagBars(std::int16_t ItemIndex);

// Selecting a pattern, in the steps of its handler.

// True when the user must be asked first: custom holes would go.
bool RemovesCustomHoles(std::int16_t ItemIndex, int listIndex);
// The answer Yes: no holes at all. CustomHoleCount stays until the next rebuild.
void EmptyHoles(std::int16_t ItemIndex);
// No pattern: PatternName empty, SagBarDia 0.
void ClearPattern(std::int16_t ItemIndex);
// PatternName from the list's text.
void SetPattern(std::int16_t ItemIndex, std::string_view listText);
// What the choice shows for a section with that pattern, by the pattern's sag-bar mark; none when
// no pattern has been loaded.
std::optional<SagBars> SagBarsOfPattern(std::int16_t ItemIndex, std::string_view listText);
// Gives the section what that choice stands for: SagBarDia 0, 14 or 18; none changes nothing.
void SetSagBarsOfPattern(std::int16_t ItemIndex, std::string_view listText);
// The same for a section wherever it stands.
void SetSagBarsOfPattern(Item& item, std::string_view listText);

// Choosing option 0 or 1 of the sag bars, without the rebuild that follows.
void SetSagBars(std::int16_t ItemIndex, int option);

// Choosing a pitch; typing jointing pieces, "Overflow" beyond 16 bits.
void SetPitch(std::int16_t ItemIndex, std::string_view listText);
void SetJointingPieces(std::int16_t ItemIndex, std::string_view text);

// A scratch section that is blanked whenever one is added; nothing reads it.
extern Item CurrentSection;
void ClearCurrentSection(std::string_view letter, const Date& today);

}  // namespace orvane
