// Expected recordings of a sheet, made line by line from numbers that a test worked out by hand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane::test {

// Every call adds what the recording surface writes for it. Lengths are millimetres; texts of
// dimensions are 7 points high, so 70 twips wide a character and 161 high.
class SheetLines {
 public:
  const std::vector<std::string>& Lines() const { return lines_; }

  // A recorded line as it stands.
  SheetLines& Says(const std::string& line);

  // "PenWidth", "DrawLine", "DrawRectangle".
  SheetLines& Pen(double width);
  SheetLines& Line(double x1, double y1, double x2, double y2);
  SheetLines& Rectangle(double x1, double y1, double x2, double y2);

  // A line of the text block: the label at 15 mm, the value at the given place.
  SheetLines& Entry(double y, const std::string& label, double valueX, const std::string& value);

  // An edge of the cross-section: its line in the thick pen, then the thin pen.
  SheetLines& Edge(double x1, double y1, double x2, double y2);

  // An arrow head that points into the direction (dx, dy) of the page, a vector of length 1; its
  // first corner is the one at the right hand when it points up.
  SheetLines& Head(double dx, double dy, double x, double y);
  // A text in its white box.
  SheetLines& CentredText(std::string_view text, double x, double y);

  // A dimension with its heads and value, downwards or to the right.
  SheetLines& Upright(double x, double y1, double y2, std::string_view value);
  SheetLines& Level(double x1, double x2, double y, std::string_view value);

  // A value in a white box turned by tenths of a degree about its corner at (x, y).
  SheetLines& Turned(std::string_view value, double x, double y, int tenths);

  // The dimension of the section's length, with its extension lines, 24 mm over the base.
  SheetLines& LengthOver(double baseY, double left, double right, std::string_view value);

 private:
  std::vector<std::string> lines_;
};

// Fails the test at the first line that differs. Whole twips of heads and white boxes may differ by
// one, since a product may lie just below or on a whole number; millimetres and other twips by no
// more than the noise of their computation.
void ExpectSameSheet(const std::vector<std::string>& recorded,
                     const std::vector<std::string>& expected);

}  // namespace orvane::test
