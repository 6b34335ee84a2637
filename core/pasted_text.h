// What becomes of a text from the clipboard before it gets into a field: texts of spreadsheets and
// mails bring line ends, tabs and units that no key types. A number never comes out other than it
// was copied.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

// The text as a field of one line takes it: line ends at its end are dropped, every other one and
// every tab becomes one blank. CR LF is one line end. All else stays, blanks too.
std::string PastedLine(std::string_view text);

// How the project file stores a text, and so what a field must not bring into it. There is no
// escape in that file: a double quote between quotes ends the text, and so does a comma in a text
// that stands without them.
enum class TextForm {
  Any,     // in no project file
  Quoted,  // between double quotes; one that is entered becomes two apostrophes, an inch sign too
  Plain    // without; a comma is refused
};

// A text that is entered into a field of that form, or why it is refused; one of the two is empty.
struct EnteredText {
  std::string Text;
  std::string Refusal;
};
EnteredText TextToEnter(std::string_view text, TextForm form);

// What a field takes as a number.
enum class NumberForm {
  Whole,     // digits alone, such as a length or a quantity
  Positive,  // digits and at most one point, such as the position of a hole
  Signed     // one sign besides, such as a mitre or the size of a notch
};

// A number that was pasted: its text, or why it is refused. One of the two is empty, but for an
// empty paste, which is neither taken nor refused.
struct PastedNumber {
  std::string Text;
  std::string Refusal;
};

// The number in a pasted text, written as it was copied. Blanks, line ends, tabs and "mm" may stand
// around it. A whole number may end in a point and one or two zeros, as spreadsheets write it; they
// are left off. Refused is what could be read as another number than was meant: a comma, a point
// before exactly three digits of a whole number (it may divide thousands), a fraction or a sign
// where the field has none, a whole number that no 16-bit field holds, and any other letter.
PastedNumber NumberToPaste(std::string_view text, NumberForm form);

// What one comma or one point before exactly three digits divides: "6,000" is six thousand or six.
enum class ThreeDigits { NotTold, Thousands, Fraction };

// A number of a table from elsewhere: its digits, or why it is refused. One of the two is empty,
// but for an empty text, which is neither taken nor refused.
struct TableNumber {
  std::string Text;
  std::string Refusal;
  // It is one of those that only a person can tell. It is refused as long as nobody has.
  bool IsAmbiguous = false;
};

// The number of a cell that holds whole millimetres, or pieces. Blanks of every kind and "mm" may
// stand around it, and one blank of any kind, a comma or a point between groups of three digits. A
// fraction of zeros is left off. One comma or point before exactly three digits is read as `told`,
// unless what stands before it can be no thousands. Refused are metres, which it says in
// millimetres, any other fraction, a sign, and what no 16-bit field holds.
TableNumber NumberInTable(std::string_view text, ThreeDigits told);

}  // namespace orvane
