// Fonts, and how the drawing measures text without knowing a device.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

struct Font {
  std::string Name = "Arial";
  double Size = 10;  // points
  bool Bold = false;
  bool Italic = false;

  friend bool operator==(const Font&, const Font&) = default;
};

// Design metrics of a font, the same on every machine and device; all in twips, not rounded.
class FontMetrics {
 public:
  virtual ~FontMetrics() = default;
  // Width of the text; blanks at its end count.
  virtual double Width(const Font& font, std::string_view text) const = 0;
  // Ascent and descent together, and the ascent alone.
  virtual double Height(const Font& font) const = 0;
  virtual double Ascent(const Font& font) const = 0;
};

}  // namespace orvane
