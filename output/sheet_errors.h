// What goes wrong in a run of sheets without ending it. Hundreds of sheets aren't held up by a box
// at each of them: it is told once, before their preview.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "drawing/sheet_source.h"
#include "project/section_look.h"

namespace orvane {

class SheetErrors {
 public:
  // Takes the errors of that section from now on, such as a notch without width.
  Teller Of(std::int16_t row);

  // From now on a picture that the source can't read is a crossed box, noted for the sheet of that
  // name: one missing file doesn't cost its user the other sheets.
  void CrossMissingPictures(SheetSource& source, const std::string& sheet);

  bool HasMissingPictures() const { return !missing_.empty(); }

  // What wasn't said of the sections yet, and every missing picture.
  void Say() const;

 private:
  struct MissingPicture {
    std::string Description;
    std::vector<std::string> Sheets;
  };

  void AddMissing(const std::string& description, const std::string& sheet);

  std::deque<SectionErrors> errors_;  // its elements stay where they are
  std::vector<MissingPicture> missing_;
};

}  // namespace orvane
