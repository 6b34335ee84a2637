// A length as the drawing procedures give it to a print surface.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

// Twips to the millimetre, the sheets' own rounding of 56.69..., used both ways everywhere.
constexpr double TwipsPerMm = 56.7;

// Millimetres or bare twips; it remembers which of the two it was given in.
class Length {
 public:
  // A bare number means twips.
  Length(double twips) : value_(twips) {}  // NOLINT(google-explicit-constructor)
  // A text that ends in "mm" means millimetres, another number text twips. "Type mismatch" for what
  // is no number.
  explicit Length(std::string_view text);

  static Length OfMm(double millimetres) { return Length(millimetres, true); }

  double Mm() const { return millimetres_ ? value_ : value_ / TwipsPerMm; }
  double Twips() const { return millimetres_ ? value_ * TwipsPerMm : value_; }

  // The form it was given in: "100.25mm", or "567".
  std::string Text() const;

 private:
  Length(double value, bool millimetres) : value_(value), millimetres_(millimetres) {}

  double value_ = 0;
  bool millimetres_ = false;
};

// The millimetres of a length that has to stand on a page: "Overflow" for one that is no finite
// number.
double FiniteMm(const Length& length);

}  // namespace orvane
