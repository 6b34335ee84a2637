// What the tests of the factory files share: a job to write, and expected text in readable pieces.
#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"
#include "tests/output/scripted_output_screen.h"
#include "tests/support/fixture.h"

namespace orvane::test {

// The lines, each with the factory's line end behind it.
std::string Lines(const std::vector<std::string>& lines);

// The text and blanks up to `width` columns; a longer text fails the test.
std::string Filled(std::string_view text, std::size_t width);

// A section block's hole line, filled with blanks to its 41 columns.
std::string HoleLine(std::string_view text);

// A row of the accessory list: columns of 35, 12, 12, 12, ...
std::string ListRow(const std::vector<std::string>& columns);

using HoleLines = std::array<const char*, 4>;  // BF, W1, W2, TF
inline constexpr HoleLines Web = {"n", "y", "y", "n"};

// A custom hole in the web.
Hole MakeHole(std::int16_t x, float diameter, float slotLength = 0,
              const std::string& counterSunk = "", const HoleLines& lines = Web);

Notch MakeNotch(const std::string& code, float size1, float size2, float size3);

// A section of the pattern "Custom" without holes and notches, one off.
Item MakeItem(const std::string& sectionType, const std::string& mark, std::int16_t length);

void AddHoles(Item& item, std::initializer_list<Hole> holes);
void AddNotches(Item& item, std::initializer_list<Notch> notches);

AccLine1 MakeLine1(int accIndex, int paramIndex, int qty);
AccLine2 MakeLine2(int accIndex, const std::string& mark, int noOff,
                   const std::vector<std::string>& values);

// Fills the project details; the scripted desktop's clock stands at 5 March 2024, 14:07:09.
class OutputTest : public SystemTest {
 protected:
  OutputTest();
  ~OutputTest() override;

  ScriptedOutputScreen screen;  // installed for the time of the test

  // The CAM file behind its header lines, which must be whole and right.
  std::string Blocks();
  // The same for the accessory list.
  std::string ListLines();

  // Appends rows named "Accessory 1" and so on to AccDefs: five of type 1 with three sizes, then
  // type 2 up to row 22 with the headings "Mark", "No.Off" and five values. No flag of AccUsed is
  // set.
  void AddAccessories();

  static const std::string CamHeader;
  static const std::string ListHeader;
};

}  // namespace orvane::test
