// The sheets of a job as files, for a companion that was built with the toolkit.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace orvane {

// False in a companion that was built without the toolkit, which draws nothing.
bool SheetsInThisBuild();

// Where the sheets go: into one PDF, into SVG files by the number of the sheet, from 1, or both.
struct SheetFiles {
  std::string Title;
  std::string Pdf;                      // empty for none
  std::function<std::string(int)> Svg;  // none for none
};

// Starts the toolkit without a screen and keeps it for its life; one at a time.
class SheetWriter {
 public:
  SheetWriter();
  ~SheetWriter();
  SheetWriter(const SheetWriter&) = delete;
  SheetWriter& operator=(const SheetWriter&) = delete;

  // Draws the sheets of all Items, one at least, in their order. The holes are made afresh before,
  // but for those placed by hand, whose gaps alone are worked out; the room for the elevation is
  // that of the page. Each page is written as it comes. An error of the drawing or of a file is
  // raised; no new PDF is left then, and a former one stays.
  void Write(const SheetFiles& files);

 private:
  struct Toolkit;
  std::unique_ptr<Toolkit> toolkit_;
};

}  // namespace orvane
