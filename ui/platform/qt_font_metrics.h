// The sheets' fonts on the toolkit, and their measures.
#pragma once

#include <QFont>
#include <QString>
#include <array>
#include <string_view>
#include <vector>

#include "drawing/font_metrics.h"

namespace orvane {

// The font in which one unit of the painter is a twip: outlines and advances as they were designed,
// neither hinted nor kerned, so that a text is as wide as its characters together. "Arial" is the
// family that ships with the program and has the same metrics, even where an Arial is installed:
// every machine measures and prints alike. Another family that is missing gives it too.
//
// Sizes are whole twips, from 1 to `GreatestFontSize`.
QFont SheetFont(const Font& font);
constexpr int GreatestFontSize = 4096;  // twips, 72 mm: beyond it font engines fail

// The text as it is measured and painted: control characters are blanks.
QString SheetText(std::string_view text);

// Measures in design units by the fonts above; needs the toolkit's application to be there. Widths
// of the characters of Western texts are kept, so that measuring costs next to nothing.
class QtFontMetrics : public FontMetrics {
 public:
  double Width(const Font& font, std::string_view text) const override;
  double Height(const Font& font) const override;
  double Ascent(const Font& font) const override;

 private:
  static constexpr std::size_t KeptCharacters = 0x180;

  struct Measures {
    Font Type;
    double Height = 0;
    double Ascent = 0;
    std::array<double, KeptCharacters> Advances{};  // below 0 for a character that isn't kept
  };
  static Measures MeasuresOf(const Font& font);
  const Measures& Find(const Font& font) const;

  mutable std::vector<Measures> known_;
  mutable std::size_t last_ = 0;  // the one asked for last
};

// The ones that the program measures all its pages with.
const FontMetrics& SheetMetrics();

}  // namespace orvane
