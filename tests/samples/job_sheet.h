// The words that the sample jobs are written in: each enters one thing into the open project as the
// screens would. The catalogues must be loaded. Lengths are mm, angles degrees.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"

namespace orvane::test {

// Rows of the shipped accessory catalogue.
enum class Acc : std::int16_t {
  PurlinCleats = 1,
  EavesBeamCleats = 2,
  Bolts = 3,
  ChannelSleeves = 4,
  HalfSleeves = 5,
  PurlinSleeves = 6,
  SplicePlates = 7,
  VcrAssembly = 8,
  EavesBraces = 9,
  ApexTies = 10,
  SagBarsScrewFix = 11,
  CleaderBrackets = 17,
  TopHatSpacers = 18,
  TrimmerCleats = 19,
  CChannel = 21,
  WasherPlates = 22,
};

// The text that stands for a countersunk hole.
inline const std::string CSK = "*";

// The line that an off-gauge hole stands on.
enum class Gauge { Web, TopFlange, BottomFlange };

// Starts a new project with its five details and its date.
void StartJob(const std::string& orvaneNumber, const std::string& jobNumber,
              const std::string& customer, const std::string& project, const std::string& designer,
              const Date& date);

// One marked section at the end of the list, punched with its pattern; "Custom" punches nothing.
// Each returns the row of Items.
std::int16_t AddPurlin(const std::string& mark, const std::string& product, std::int16_t length,
                       std::int16_t quantity, const std::string& pattern,
                       std::int16_t sagBarDia = 0);
std::int16_t AddEavesBeam(const std::string& mark, const std::string& product, std::int16_t length,
                          std::int16_t quantity, const std::string& pattern,
                          const std::string& pitch, std::int16_t sagBarDia = 0);
std::int16_t AddChannel(const std::string& mark, const std::string& product, std::int16_t length,
                        std::int16_t quantity, const std::string& pattern,
                        std::int16_t sagBarDia = 0);
std::int16_t AddVcr(const std::string& mark, std::int16_t length, std::int16_t quantity,
                    const std::string& pattern);
std::int16_t AddCleader(const std::string& mark, std::int16_t length, std::int16_t quantity,
                        const std::string& pattern, std::int16_t jointingPieces);
std::int16_t AddTopHat(const std::string& mark, const std::string& product, std::int16_t length,
                       std::int16_t quantity, const std::string& pattern);

// The section turned end for end at the end of the list, with "X" behind its mark.
std::int16_t AddOppositeHand(std::int16_t row);

void SetNote(std::int16_t row, const std::string& note);
void SetMitres(std::int16_t row, double left, double right);
void AddNotch(std::int16_t row, const std::string& code, double depth, double width,
              double position = 0);

// Turns the pattern's holes into custom ones.
void ConvertToCustom(std::int16_t row);

// A hole placed by hand. `lines` has four letters "y" or "n": bottom flange, first and second web
// row, top flange. `slot` is the slot's whole length, 0 for a round hole; `countersunk` is CSK or
// empty.
void AddCustomHole(std::int16_t row, std::int16_t x, std::string_view lines, double diameter,
                   double slot = 0, const std::string& countersunk = "");

// A single hole placed by hand at a distance of its own.
void AddOffGaugeHole(std::int16_t row, std::int16_t x, Gauge gauge, const std::string& distance,
                     double diameter, double slot = 0);

// Leaves the section as it is once its sheet has been drawn: with true gaps, drawn gaps and the end
// sentinel. All other sections are as they are before anything has been drawn.
void DrawOnSheet(std::int16_t row);

// One line of a type 1 accessory, the size named by its short code. A quantity of 0 doesn't mark
// the accessory as used.
void AddLine1(Acc accessory, const std::string& code, std::int16_t quantity);

// One line of a type 2 accessory with a value for each column behind "Mark" and "No.Off".
void AddLine2(Acc accessory, const std::string& mark, std::int16_t noOff,
              const std::vector<std::string>& values);

// Sorts the accessory lines as the accessory dialogs do when they close.
void EndJob();

}  // namespace orvane::test
