// What a list will do to one cell of a section.
#pragma once

#include <string>
#include <utility>

namespace orvane {

struct PlannedCell {
  enum class Result {
    NotGiven,  // nothing was said of it
    Same,      // the section shows it already
    Changed,
    Refused,
    HeldBack  // a pattern that would remove holes placed by hand, as long as that isn't allowed
  };
  Result What = Result::NotGiven;
  std::string Text;    // what the section will show; of one that is refused what was given
  std::string From;    // what it shows now; empty for a new one
  std::string Reason;  // of a refusal, and of what is held back

  void Refuse(std::string why) {
    What = Result::Refused;
    Reason = std::move(why);
  }
};

}  // namespace orvane
