// What the tests of section lists share: a small catalogue, lists in a few words, and what becomes
// of them.
#pragma once

#include <string>
#include <vector>

#include "core/model.h"
#include "project/section_list/section_list.h"
#include "project/section_list/section_plan.h"
#include "tests/support/fixture.h"

namespace orvane::test {

class SectionListTest : public SystemTest {
 protected:
  // Z14012 and Z14014, E20016, C20020, VCR, CLR, T05010; "AB 12" of Z and of C. Patterns "Butt" and
  // "Butt 1 Sag Bar" of Z, "Eaves" of E, "Joist" of C. Limits as the families have them.
  SectionListTest();

  // Appends a section of the family that has the product.
  static Item& Put(const std::string& mark, const std::string& product, std::int16_t length,
                   std::int16_t quantity);
  // A hole placed by hand.
  static void PutHole(Item& item, std::int16_t x);

  // The plan of a block that is pasted into that cell, of a file's table where the row is 0; cells
  // are parted by "|", rows by line ends.
  static SectionList List(const std::string& rows, int column = MarkColumn);
  SectionPlan Plan(const std::string& rows, int row = 0, int column = MarkColumn) const;

  // What becomes of each row, PlanText.
  static std::vector<std::string> WordsOf(const SectionPlan& plan);
  // "mark product length quantity notes" of each row of Items, and "pattern sag-bars pitch left
  // right" behind "/" of one that has any of these.
  static std::vector<std::string> Job();

  ListAnswers answers;
};

}  // namespace orvane::test
