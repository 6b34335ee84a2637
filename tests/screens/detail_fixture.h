// What the tests of the detail panel share: the parts that show, the hole list, a row's holes.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <string>
#include <vector>

#include "tests/screens/sections_fixture.h"

namespace orvane::test {

// A position and a diameter of a hole, mm.
struct HoleSize {
  int XPos = 0;
  float Diameter = 0;
  bool operator==(const HoleSize&) const = default;
};

class DetailTest : public SectionsTest {
 protected:
  // Nothing has been drawn when a test starts; the gaps of holes hang on it.
  DetailTest();

  // A section of that letter, 3000 mm long, with a product of the catalogue.
  static Item& PutSection(const std::string& letter, const std::string& pattern = "",
                          std::int16_t sagBarDia = 0);
  // A Z section on "Custom" with holes placed by hand.
  static Item& PutCustom(const std::vector<std::int16_t>& positions);

  PlainCombo& Pattern() { return Find<PlainCombo>("cboPattern"); }
  PlainCombo& Pitch() { return Find<PlainCombo>("cboPitch"); }
  QLineEdit& Jointing() { return Find<QLineEdit>("txtJointing"); }
  QAbstractButton& SagBarOption(int option) {
    return Find<QAbstractButton>("optSagBars(" + std::to_string(option) + ")");
  }
  FlexGrid& HoleList() { return Find<FlexGrid>("MSFlexGrid2"); }

  // objectNames of the panel's parts that show, a blank between them.
  std::string ShownParts();
  // "Spring Fix (18mm)" or "Threaded (14mm)", whichever is selected; empty while the frame is
  // hidden.
  std::string ShownOption();

  // The nine texts of a row of the hole list; row 0 is its heading.
  std::vector<std::string> HoleTexts(int row);
  // The first column of all its rows.
  std::vector<std::string> ListedHoles();

  static std::vector<HoleSize> SizesOf(int row);
};

// All that a section's record holds, for telling whether something changed it.
std::string RecordText(const Item& item);

// Sections that the tests go through, one for each letter.
inline const std::vector<std::string> AllLetters = {"Z", "E", "C", "V", "R", "T"};

}  // namespace orvane::test
