// The texts of a job that its file can't hold as they are: the form has neither an escape for a
// double quote between quotes nor one for a comma in a plain line, and a plain line loses the
// blanks in front.
#pragma once

#include <string>
#include <vector>

#include "project/job.h"

namespace orvane {

// Where a text of the job is entered.
struct TextPlace {
  enum class In { Details, Section, Accessory };
  In Where = In::Details;
  // The row of txtProject from 0, of Items, or of AccLines2.
  int Row = 0;
  // The column of the sections grid, or of the accessory's lines. 0 for what has none of its own.
  int Column = 0;
};

// A text that comes back from the file as another one.
struct UnfitText {
  TextPlace Place;
  std::string Name;  // of the place, for a person: "P4, Notes"
  std::string Text;
  std::string Back;
};

// What would become of a job that was written.
enum class FileFit {
  Same,       // it comes back as it is, but for what the form itself gives up
  Otherwise,  // it opens, but something of it comes back otherwise
  Broken      // it doesn't open
};

// Reads `text`, the ProjectText of the job, back, and compares each value with the one that it was
// made of. The form itself gives up the blank of a countersink that is none, blanks around the
// project details, and digits of a number that it doesn't write. Changes no table.
FileFit FitOf(const std::string& text, const JobView& job);

// Those texts, in the order of the file. Of the open job, whose names they get.
std::vector<UnfitText> UnfitTexts();

// The first of them in lines for a person, with what becomes of each.
std::string Described(const std::vector<UnfitText>& texts);

}  // namespace orvane
