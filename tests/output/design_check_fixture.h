// What the tests of the design check share: the catalogue that ships, and one section to be
// checked.
//
// Figures of its products, mm. Z14012: depth 140, top flange 65, bottom flange 60, rows of the web
// 40 from the top and 40 from the bottom, end pair 60. 14012, a channel: flanges 60. VCR: strip
// 100, rows 30 from either edge. CLR: depth 120, flange 60, row 50 from the bottom. T05010: lips 30
// with rows 15 from their edges, sides reaching 50.
#pragma once

#include <string>
#include <vector>

#include "output/design_check.h"
#include "project/job.h"
#include "tests/output/output_test.h"

namespace orvane::test {

using Texts = std::vector<std::string>;

class DesignCheckTest : public OutputTest {
 protected:
  DesignCheckTest();
  ~DesignCheckTest() override;

  // Appends a section of that product, one off, without pattern, holes and notches, marked by its
  // row: "P1".
  static Item& Add(const std::string& letter, const std::string& product, std::int16_t length);
  // The one of most tests: Z14012, 6000 long.
  static Item& AddPurlin() { return Add("Z", "Z14012", 6000); }

  // The lines of all that is found of the first section, and whether a rule has found anything.
  static Texts Found();
  static bool Finds(DesignRule rule);
  // The same with these holes, or these notches, in the place of those that were there.
  static bool Finds(DesignRule rule, std::initializer_list<Hole> holes);
  static bool Finds(DesignRule rule, std::initializer_list<Notch> notches);
  // The names of the rules that have found something, in the order in which they are told.
  static Texts Rules(const std::vector<Finding>& findings);

  static void SwitchOff(DesignRule rule);
};

// A round hole of 18 mm on the lines of that text: "nyyn" is both rows of the web.
Hole OnLines(std::int16_t x, const std::string& lines, float diameter = 18, float slotLength = 0);
// One at that distance on one line, 0 for "BF" to 3 for "TF".
Hole OffGauge(std::int16_t x, int line, const std::string& distance, float diameter = 18);

}  // namespace orvane::test
