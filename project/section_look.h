// Looks at sections: what makes a section's holes afresh and draws its sheet. It runs at every key
// stroke and at every move, so what goes wrong in it is collected, said once when the cell is left,
// and stands in a line under the sheet from then on.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "project/changes.h"

namespace orvane {

// What went wrong with one section.
struct SectionErrors {
  std::string Name;  // NameOfSection
  std::vector<std::string> Descriptions;
  std::int32_t Serial = 0;  // SerialOf

  // Each description once.
  void Add(const std::string& description);
};

// Runs a look at that row of Items. Errors that it raises, and those that TakeLookError is given
// meanwhile, are collected, each once; none leaves it. When it is over the main screen shows them.
// A look inside another one at the same row is a part of that one. Row 0 is nobody's section: its
// errors are raised.
void LookAtSection(std::int16_t ItemIndex, const std::function<void()>& look);

// The same, and says at its end in a plain message box what is left to say. For a look that isn't
// one of a cell half typed.
void LookAndSay(std::int16_t ItemIndex, const std::function<void()>& look);

// Takes an error that leaves the look under way going on; without a look it is told in a plain
// message box.
void TakeLookError(const std::string& description);

// What the last look found and nobody has been told yet, a line for each description: "P4: Division
// by zero". It counts as said from now on. Empty if there is nothing.
std::string ErrorsToSay();
// The same in a plain message box, if there is anything.
void SayErrors();

// Which of these were not said before, in the same form; they count as said from now on.
std::string ErrorsNotYetSaid(const SectionErrors& errors);

// What was said of a section is said again once the user has changed it, also by taking a change of
// it back: to be told before each change. Another job knows nothing of what was said of this one.
void ForgetSaid(const ChangeNotice& change);
void ForgetSaid();

}  // namespace orvane
